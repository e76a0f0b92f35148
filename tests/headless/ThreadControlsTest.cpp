// Controls of every kind, prepared texts and dialogs, in two threads at once. Runs under ThreadSanitizer too.
#include "../support/AllControls.h"

#include <platform/headless/headless.h>

#include <barrier>
#include <thread>

namespace test {
namespace {

namespace desk = gesso::headless;

constexpr int THREADS = 2;
constexpr int ROUNDS = 3;
using Barrier = std::barrier<>;

HWND MakeFrame()
{
    return CreateWindowExW(0, L"#32770", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                           nullptr, nullptr);
}

// As a user does with anything: points at it, presses, holds, types, turns the wheel, and sees it painted.
void Use(HWND hwnd)
{
    desk::Pump();
    RECT place{};
    GetWindowRect(hwnd, &place);
    desk::Click((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    desk::MoveMouse(place.right - 4, place.bottom - 4); // on a scroll bar, where there is one
    desk::PressButton();
    desk::Pump();
    desk::Advance(1000);
    desk::ReleaseButton();
    desk::TypeText("ab");
    desk::TypeKey(VK_DOWN);
    desk::Wheel(-120);
    desk::Pump();
    SetWindowPos(hwnd, nullptr, 0, 0, 90, 60, SWP_NOMOVE | SWP_NOZORDER);
    InvalidateRect(hwnd, nullptr, TRUE);
    desk::Pump();
}

void Fill(const GWnd&) {}
void Fill(GList& list)
{
    list.InsertColumn(0, 0, DT_SINGLELINE, 100, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                      nullptr);
    for (UINT i = 0; i < 20; ++i) {
        list.InsertItem(i, 0, nullptr, 0, L"Item", 0);
    }
}
void Fill(GTree& tree)
{
    for (int i = 0; i < 20; ++i) {
        tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
    }
}

void Fill(GComboBox& box)
{
    for (UINT i = 0; i < 3; ++i) {
        box.InsertItem(i, 0, L"Item", 0, nullptr);
    }
}

// Its list has a message loop of its own.
void OpenList(GComboBox& box)
{
    desk::WhenIdle([] { desk::TypeKey(VK_DOWN); });
    desk::WhenIdle([] { desk::TypeKey(VK_RETURN); });
    desk::Click(100, 20);
    desk::Pump();
    EXPECT_EQ(box.GetTextLength(), 4) << "the chosen one's";
}

template <class CONTROL> void UseOne(HWND hwndFrame)
{
    CONTROL control;
    const HWND hwnd = MakeAnyControl(control, hwndFrame);
    ASSERT_TRUE(hwnd);
    Fill(control);
    desk::Pump();
    EXPECT_EQ(desk::Drawing(hwnd).empty(), (std::is_same_v<CONTROL, GSeparator>))
        << "that one is not to be seen";
    if constexpr (std::is_same_v<CONTROL, GComboBox>) {
        OpenList(control);
    } else {
        Use(hwnd);
    }
    DestroyWindow(hwnd);
}

template <class... CONTROLS> void UseEach(HWND hwndFrame, ClassList<CONTROLS...>)
{
    (UseOne<CONTROLS>(hwndFrame), ...);
}

void UseText(HWND hwndFrame)
{
    const HDC hdc = GetDC(hwndFrame);
    RECT rc{0, 0, 60, 100};
    void* hText = CDrawText::DrawText_Prepare(hdc, L"a text of words on lines, \x05D3\x05D2", -1, &rc,
                                              DT_WORDBREAK, 18, nullptr);
    EXPECT_TRUE(hText);
    CDrawText::DrawTextW(hdc, hText, rc);
    CDrawText::DrawText_CloseHandle(hText);
    CDrawText::DrawTextW(hdc, L"one", -1, rc, DT_SINGLELINE, 18, nullptr);
    ReleaseDC(hwndFrame, hdc);
}

void UseDialogs(HWND hwndFrame)
{
    desk::WhenIdle([] { desk::TypeKey(VK_RETURN); });
    EXPECT_EQ(GTaskDialog::MessageBoxW(hwndFrame, L"Sure?", L"Host", MB_OKCANCEL), static_cast<UINT>(IDOK));
    DWORD dwResult = 0;
    desk::WhenIdle([] { desk::TypeKey(VK_ESCAPE); });
    EXPECT_EQ(GWndCertFailure::WndCertFailure(&dwResult, hwndFrame, nullptr, nullptr, CFT_SECURE, 0,
                                              L"Caption", L"subject"),
              S_OK);
    EXPECT_FALSE(desk::Deadlocked());
}

// Both threads make the same things at the same time.
void UseAll(Barrier& together)
{
    together.arrive_and_wait();
    InitControls();
    for (int round = 0; round < ROUNDS; ++round) {
        const HWND hwndFrame = MakeFrame();
        together.arrive_and_wait();
        UseEach(hwndFrame, AllControls());
        together.arrive_and_wait();
        UseText(hwndFrame);
        together.arrive_and_wait();
        UseDialogs(hwndFrame);
        DestroyWindow(hwndFrame);
    }
}

} // namespace

TEST(ThreadControls, EveryKindAndTheDialogsInTwoThreadsAtOnce)
{
    desk::Reset();
    InitControls();
    const desk::Census before = desk::Live();
    Barrier together(THREADS);
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back(UseAll, std::ref(together));
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(desk::Live(), before);
}

// The desktop waits for the one that is in the dialog no more than for any other.
TEST(ThreadControls, ADialogIsModalForItsOwnThreadAlone)
{
    desk::Reset();
    InitControls();
    std::barrier<> shown(2);
    std::atomic<DWORD> modal = 0;
    std::thread other([&] {
        modal = GetCurrentThreadId();
        const HWND hwndFrame = MakeFrame();
        desk::WhenIdle([&] { shown.arrive_and_wait(); });
        EXPECT_EQ(GTaskDialog::MessageBoxW(hwndFrame, L"Sure?", L"Host", MB_OKCANCEL),
                  static_cast<UINT>(IDCANCEL));
        EXPECT_TRUE(IsWindowEnabled(hwndFrame));
        DestroyWindow(hwndFrame);
    });
    shown.arrive_and_wait();
    const HWND hwndFrame = MakeFrame();
    UseEach(hwndFrame, ClassList<GButton, GEdit, GList>());
    DestroyWindow(hwndFrame);
    EXPECT_TRUE(desk::WaitUntilIdle(modal));
    const HWND hwndDialog = desk::TopLevelWindows(modal).at(0);
    PostMessageW(hwndDialog, WM_CLOSE, 0, 0); // by hand of this thread
    other.join();
    EXPECT_FALSE(IsWindow(hwndDialog));
}

} // namespace test
