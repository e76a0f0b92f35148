// The driver's own powers: queue and idle actions, accounting, faults, clipboard and caret.
#include "DesktopTest.h"

#include <sstream>

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

using DriverTest = DesktopTest;

TEST_F(DriverTest, QuitIsLeftToTheLoopThatItIsMeantFor)
{
    PostQuitMessage(5);
    Advance(100);
    MSG message{};
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 5U);
}

TEST_F(DriverTest, TheTraceTellsWhatWasPostedFromWhatWasSent)
{
    const HWND top = MakeTop();
    Pump();
    PostMessageW(top, WM_USER, 0, 0);
    StartTrace(top);
    SendMessageW(top, WM_USER + 1, 0, 0);
    EXPECT_GE(GetAsyncKeyState(VK_SHIFT), 0);
    PressKey(VK_SHIFT);
    EXPECT_LT(GetAsyncKeyState(VK_SHIFT), 0) << "the key's own state, before any message tells of it";
    ReleaseKey(VK_SHIFT);
    Pump();
    const auto trace = StopTrace();
    ASSERT_GE(trace.size(), 2U);
    EXPECT_FALSE(trace[0].posted);
    EXPECT_EQ(MessageName(trace[1].message), "WM_USER");
    EXPECT_TRUE(trace[1].posted);
}

TEST_F(DriverTest, IdleActionsDriveALoopAndAForgottenLoopIsEnded)
{
    const HWND top = MakeTop();
    std::string order;
    WhenIdle([&] {
        order += "a";
        PostMessageW(top, WM_USER, 0, 0);
    });
    WhenIdle([&] { order += "b"; });
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0)) {
        order += message.message == WM_USER ? "m" : "";
        DispatchMessageW(&message);
    }
    EXPECT_EQ(order, "amb");
    EXPECT_TRUE(Deadlocked());
    Reset();
    EXPECT_FALSE(Deadlocked());
}

TEST_F(DriverTest, TheCensusCountsAndNamesWhatLives)
{
    const Census before = Live();
    MakeTop();
    SetTimer(nullptr, 0, 10, nullptr);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
    Census expected = before;
    ++expected.counts[static_cast<size_t>(Kind::Window)];
    ++expected.counts[static_cast<size_t>(Kind::Timer)];
    ++expected.counts[static_cast<size_t>(Kind::GlobalMemory)];
    EXPECT_EQ(Live(), expected);
    GlobalFree(block);
    Reset();
    EXPECT_EQ(Live(), before);

    std::ostringstream out;
    Census some;
    some.counts[static_cast<size_t>(Kind::Window)] = 2;
    some.counts[static_cast<size_t>(Kind::Pen)] = 1;
    out << some << "; " << Census{};
    EXPECT_EQ(out.str(), "2 windows, 1 pens; nothing");
}

TEST_F(DriverTest, AFaultFiresAsOftenAsOrderedAfterWhatItSkips)
{
    Fail("CreateWindowExW", 2, ERROR_ACCESS_DENIED, 1);
    std::string outcome;
    for (int i = 0; i < 4; ++i) {
        SetLastError(0);
        const bool made = Make({.style = WS_POPUP}) != nullptr;
        outcome += made ? "+" : GetLastError() == ERROR_ACCESS_DENIED ? "-" : "?";
    }
    EXPECT_EQ(outcome, "+--+");
    Fail("SetTimer", 100);
    EXPECT_EQ(SetTimer(nullptr, 0, 10, nullptr), 0U);
    Reset();
    EXPECT_NE(SetTimer(nullptr, 0, 10, nullptr), 0U);
}

TEST_F(DriverTest, AFaultIsPendingUntilItFirstFires)
{
    Fail("SetTimer", 2);
    Fail("CreateWindowExW", 1, ERROR_ACCESS_DENIED, 1);
    EXPECT_EQ(PendingFaults(), (std::vector<std::string>{"CreateWindowExW", "SetTimer"}));
    SetTimer(nullptr, 0, 10, nullptr);
    MakeTop();
    EXPECT_EQ(PendingFaults(), std::vector<std::string>{"CreateWindowExW"}) << "it let one call through";
    ClearFaults();
    EXPECT_TRUE(PendingFaults().empty());
    Fail("SetTimer");
    Reset();
    EXPECT_TRUE(PendingFaults().empty());
}

TEST_F(DriverTest, OnlyAnOperationThatCanFailTakesAFault)
{
    EXPECT_DEATH(Fail("IsWindow"), "'IsWindow' is no operation that can fail");
    EXPECT_DEATH(Fail("CreateWindow"), "'CreateWindow' is no operation that can fail");
}

TEST_F(DriverTest, AFailureLeavesWhatThePlatformWouldLeave)
{
    const HWND top = MakeTop();
    SetWindowTextW(top, L"text");
    wchar_t text[8] = L"before";
    Fail("GetWindowTextW");
    EXPECT_EQ(GetWindowTextW(top, text, 8), 0);
    EXPECT_EQ(text[0], 0);
    PAINTSTRUCT paint{};
    paint.fErase = 7;
    Fail("BeginPaint");
    EXPECT_EQ(BeginPaint(top, &paint), nullptr);
    EXPECT_EQ(paint.fErase, 7);
    const HTHEME theme = OpenThemeData(top, L"BUTTON");
    COLORREF color = 7;
    Fail("GetThemeColor", 1, ERROR_SUCCESS);
    EXPECT_TRUE(FAILED(GetThemeColor(theme, BP_PUSHBUTTON, 1, TMT_TEXTCOLOR, &color)))
        << "without an error too";
    EXPECT_EQ(color, 7U);
    CloseThemeData(theme);
}

TEST_F(DriverTest, MethodsOfImageListsFailUnderTheirOwnNames)
{
    const HIMAGELIST handle = ImageList_Create(16, 16, 0, 0, 1);
    auto* list = reinterpret_cast<IImageList*>(handle);
    int count = 7;
    int size = 7;
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    for (const char* name : {"IImageList::Draw", "IImageList::GetIconSize", "IImageList::GetImageCount"}) {
        Fail(name, 1, ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(ImageList_GetImageCount(handle), 0) << "a function fails under its own name alone";
    EXPECT_EQ(PendingFaults().size(), 3U);
    EXPECT_EQ(list->GetImageCount(&count), E_ACCESSDENIED);
    EXPECT_EQ(list->GetIconSize(&size, &size), E_ACCESSDENIED);
    EXPECT_EQ(list->Draw(&params), E_ACCESSDENIED);
    EXPECT_EQ(count + size, 14);
    EXPECT_EQ(list->SetIconSize(0, 16), E_INVALIDARG);
    ImageList_Destroy(handle);
}

TEST_F(DriverTest, CallsOfTheProgramFailAndThoseWithinThePlatformDoNot)
{
    BOOL moved = TRUE;
    const HWND top = Make({.style = WS_POPUP}, [&](HWND self, UINT message, WPARAM, LPARAM) {
        if (message == WM_SHOWWINDOW) {
            moved = SetWindowPos(self, nullptr, 1, 1, 9, 9, SWP_NOZORDER | SWP_NOACTIVATE);
        }
        return std::optional<LRESULT>();
    });
    Fail("SetWindowPos", 9);
    EXPECT_TRUE(MoveWindow(top, 5, 5, 50, 50, TRUE)) << "another operation, whatever it is made of";
    EXPECT_EQ(PendingFaults(), std::vector<std::string>{"SetWindowPos"});
    ShowWindow(top, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(top));
    EXPECT_FALSE(moved) << "a window procedure's call, within one of the platform's, is the program's";
}

TEST_F(DriverTest, TheClipboardOwnsWhatItIsGiven)
{
    SetClipboardText("a\xC3\xA4");
    ASSERT_TRUE(OpenClipboard(MakeTop()));
    EXPECT_FALSE(OpenClipboard(nullptr));
    const auto* text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    EXPECT_EQ(text[1], 0xE4);
    EXPECT_EQ(text[2], 0);
    EmptyClipboard();
    EXPECT_EQ(Live()[Kind::GlobalMemory], 0);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 2 * sizeof(wchar_t));
    void* memory = GlobalLock(block);
    EXPECT_NE(memory, block) << "a block that is not locked would be written all the same";
    std::memcpy(memory, L"b", 2 * sizeof(wchar_t));
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, block), nullptr); // it is closed
    EXPECT_EQ(ClipboardText(), "b");
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HGLOBAL ownerless = GlobalAlloc(GMEM_MOVEABLE, 2);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, ownerless), nullptr); // no window emptied it
    GlobalFree(ownerless);
    CloseClipboard();
}

TEST_F(DriverTest, TheCaretIsHiddenAsOftenAsItMustBeShown)
{
    const HWND top = MakeTop();
    CreateCaret(top, nullptr, 0, 16);
    EXPECT_FALSE(Caret().visible);
    SetCaretPos(5, 6);
    ShowCaret(top);
    EXPECT_TRUE(Caret().visible);
    EXPECT_EQ(Caret().position.x, 5);
    EXPECT_EQ(Caret().size.cx, 1);
    HideCaret(top);
    HideCaret(top);
    ShowCaret(top);
    EXPECT_FALSE(Caret().visible);
    DestroyWindow(top);
    EXPECT_EQ(Caret().hwnd, nullptr);
}

TEST_F(DriverTest, AnotherProgramTakesTheForegroundAway)
{
    const HWND top = MakeTop();
    const auto trace = Traced([] { SwitchAway(); });
    EXPECT_EQ(Names(trace, {{top, 't'}}, {WM_ACTIVATE, WM_ACTIVATEAPP, WM_KILLFOCUS}),
              "t:WM_ACTIVATE, t:WM_ACTIVATEAPP, t:WM_KILLFOCUS");
    EXPECT_NE(GetForegroundWindow(), top);
    SetForegroundWindow(top);
    EXPECT_EQ(GetForegroundWindow(), top);
    EXPECT_EQ(GetFocus(), top);
}

} // namespace
