// What the windows and dialogs of hosts call besides what the library itself does.
#include "../support/DialogTemplate.h"
#include "../support/Numbers.h"
#include "../support/TestWindow.h"

#include <algorithm>

using namespace test;

namespace {

using HostOperationsTest = WindowsTest;

TEST_F(HostOperationsTest, ADialogsItemsAreSetByTheirNumbers)
{
    DialogTemplate source(WS_POPUP | DS_SETFONT, 100, 100);
    for (WORD id = 1; id <= 3; ++id) {
        source.Add({BS_RADIOBUTTON | WS_VISIBLE, id, L"BUTTON", L""});
    }
    const HWND dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), source.Get(), nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    ASSERT_TRUE(dialog);
    const auto checks = [&] {
        std::string out;
        for (int id = 1; id <= 3; ++id) {
            out += IsDlgButtonChecked(dialog, id) == BST_CHECKED ? '+' : '-';
        }
        return out;
    };
    EXPECT_TRUE(CheckRadioButton(dialog, 1, 3, 2));
    EXPECT_EQ(checks(), "-+-");
    EXPECT_TRUE(CheckRadioButton(dialog, 1, 3, 3));
    EXPECT_TRUE(CheckDlgButton(dialog, 1, BST_CHECKED));
    EXPECT_EQ(checks(), "+-+");
    EXPECT_TRUE(SetDlgItemTextW(dialog, 2, L"text"));
    wchar_t text[8];
    EXPECT_EQ(GetDlgItemTextW(dialog, 2, text, 8), 4U);
    DestroyWindow(dialog);
}

TEST_F(HostOperationsTest, WindowsMoveTogether)
{
    const HWND top = MakeTop();
    const HWND first = MakeChild(top, {0, 0, 10, 10});
    const HWND second = MakeChild(top, {20, 0, 30, 10});
    HDWP batch = BeginDeferWindowPos(2);
    ASSERT_TRUE(batch);
    batch = DeferWindowPos(batch, first, nullptr, 5, 6, 10, 10, SWP_NOZORDER | SWP_NOACTIVATE);
    batch = DeferWindowPos(batch, second, nullptr, 25, 6, 20, 10, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(Numbers(PlaceIn(top, first)), "0,0,10,10") << "not yet";
    EXPECT_TRUE(EndDeferWindowPos(batch));
    EXPECT_EQ(Numbers(PlaceIn(top, first)), "5,6,15,16");
    EXPECT_EQ(Numbers(PlaceIn(top, second)), "25,6,45,16");
}

TEST_F(HostOperationsTest, PropertiesStayWithTheirWindow)
{
    const HWND hwnd = MakeTop();
    const auto value = reinterpret_cast<HANDLE>(uintptr_t{7});
    EXPECT_TRUE(SetPropW(hwnd, L"Name", value));
    EXPECT_EQ(GetPropW(hwnd, L"Name"), value);
    EXPECT_EQ(GetPropW(hwnd, L"Other"), nullptr);
    EXPECT_EQ(RemovePropW(hwnd, L"Name"), value);
    EXPECT_EQ(GetPropW(hwnd, L"Name"), nullptr);
}

TEST_F(HostOperationsTest, AWindowIsFoundByItsPlaceAndBroughtUp)
{
    const HWND lower = MakeTop({100, 100, 300, 200});
    const HWND child = MakeChild(lower, {10, 10, 60, 60});
    const HWND upper = MakeTop({200, 100, 400, 200});
    EXPECT_EQ(WindowFromPoint({120, 120}), child);
    EXPECT_EQ(WindowFromPoint({250, 150}), upper);
    BringWindowToTop(lower);
    EXPECT_EQ(WindowFromPoint({250, 150}), lower);
    EXPECT_FALSE(IsIconic(lower));
    RECT wanted{};
    SetRect(&wanted, 0, 0, 200, 100);
    RECT same{};
    CopyRect(&same, &wanted);
    AdjustWindowRect(&wanted, WS_POPUP | WS_BORDER, FALSE);
    InflateRect(&same, GetSystemMetrics(SM_CXBORDER), GetSystemMetrics(SM_CYBORDER));
    EXPECT_EQ(Numbers(wanted), Numbers(same));
    SetRectEmpty(&same);
    EXPECT_TRUE(IsRectEmpty(&same));
}

TEST_F(HostOperationsTest, NamesOfMessagesAndIconsAreSharedAndFormatsKnown)
{
    EXPECT_EQ(RegisterWindowMessageW(L"Host.One"), RegisterWindowMessageW(L"Host.One"));
    EXPECT_NE(RegisterWindowMessageW(L"Host.One"), RegisterWindowMessageW(L"Host.Two"));
    EXPECT_GE(RegisterWindowMessageW(L"Host.One"), 0xC000U);
    const auto icon = MAKEINTRESOURCEW(32512);
    EXPECT_TRUE(LoadIconW(nullptr, icon));
    EXPECT_EQ(LoadIconW(nullptr, icon), LoadIconW(nullptr, icon));
    const HWND hwnd = MakeTop();
    ASSERT_TRUE(OpenClipboard(hwnd));
    EmptyClipboard();
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GMEM_MOVEABLE, 4));
    CloseClipboard();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST_F(HostOperationsTest, ThreadMonitorKeysAndClockAnswer)
{
    const HWND top = MakeTop();
    std::vector<HWND> found;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND hwnd, LPARAM param) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(param)->push_back(hwnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    EXPECT_NE(std::find(found.begin(), found.end(), top), found.end());
    EXPECT_EQ(MonitorFromPoint({5, 5}, MONITOR_DEFAULTTONULL), MonitorFromWindow(top, MONITOR_DEFAULTTONULL));
    EXPECT_EQ(MonitorFromPoint({-30000, 0}, MONITOR_DEFAULTTONULL), nullptr);

    constexpr int KEY = 'K';
    BYTE keys[256]{};
    keys[KEY] = 0x80;
    SetKeyboardState(keys);
    keys[KEY] = 0;
    EXPECT_TRUE(GetKeyboardState(keys));
    EXPECT_EQ(keys[KEY] & 0x80, 0x80);
    keys[KEY] = 0;
    SetKeyboardState(keys);

    const ULONGLONG start = GetTickCount64();
    Sleep(100); // the clock goes in steps of up to 16, which under Wine come late on a busy machine
    EXPECT_GE(GetTickCount64() - start, 34U);
    EXPECT_LE(static_cast<DWORD>(GetTickCount64()) - GetTickCount(), 1000U);
    PostMessageW(top, WM_USER, 0, 0);
    EXPECT_TRUE(WaitMessage());
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, top, WM_USER, WM_USER, PM_REMOVE)) << "it waits, and takes nothing";
}

} // namespace
