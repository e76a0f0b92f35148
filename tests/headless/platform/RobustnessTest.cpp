// What a program may do within the messages of the platform, and what may fail for good, without an end of
// the desktop.
#include "DesktopTest.h"

#include <algorithm>
#include <climits>

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

using RobustnessTest = DesktopTest;

// A window that paints by BeginPaint alone, and counts how often it could.
HWND MakePainting(int& painted)
{
    return MakeTop({0, 0, 50, 50}, [&](HWND self, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_PAINT) {
            return std::nullopt;
        }
        PAINTSTRUCT paint;
        if (BeginPaint(self, &paint)) {
            EndPaint(self, &paint);
            ++painted;
        }
        return 0;
    });
}

TEST_F(RobustnessTest, ALoopGoesOnWhereAPaintNeverBegins)
{
    int painted = 0;
    const HWND top = MakePainting(painted);
    Fail("BeginPaint", INT_MAX);
    SetTimer(top, 1, 10, nullptr);
    const auto trace = Traced([] { Advance(30); }, top);
    EXPECT_EQ(std::count_if(trace.begin(), trace.end(), [](const auto& m) { return m.message == WM_TIMER; }),
              3);
    EXPECT_EQ(painted, 0);

    WhenIdle([] { ClearFaults(); });
    WhenIdle([] { PostQuitMessage(0); });
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0)) { // as a modal loop
        DispatchMessageW(&message);
    }
    EXPECT_FALSE(Deadlocked());
    EXPECT_EQ(painted, 1) << "what was given up is tried again once something has happened";
    Fail("BeginPaint");
    InvalidateRect(top, nullptr, FALSE);
    Pump();
    EXPECT_EQ(painted, 2) << "one failure passes within one loop";
}

TEST_F(RobustnessTest, KeysBehindInputThatFindsNoWindowAreSeenAsTheyAreTaken)
{
    WPARAM typed = 0;
    const HWND top = MakeTop({0, 0, 50, 50}, [&](HWND, UINT message, WPARAM wParam, LPARAM) {
        typed = message == WM_CHAR ? wParam : typed;
        return std::optional<LRESULT>();
    });
    SetFocus(top);
    Pump();
    MoveMouse(500, 400);
    TypeText("A"); // the pointer's move is dropped, and Shift comes in its place
    Pump();
    EXPECT_EQ(typed, WPARAM{'A'});
}

TEST_F(RobustnessTest, TheDesktopItselfTakesNoFocus)
{
    const HWND top = MakeTop({0, 0, 50, 50});
    SetFocus(top);
    const HWND desktop = GetDesktopWindow();
    EXPECT_EQ(SetFocus(desktop), nullptr);
    EXPECT_EQ(SetActiveWindow(desktop), nullptr);
    EXPECT_FALSE(SetForegroundWindow(desktop));
    EXPECT_EQ(GetFocus(), top);
}

TEST_F(RobustnessTest, ChildrenMadeAsTheirParentEndsGoWithIt)
{
    HWND late = nullptr;
    const HWND top = MakeTop({0, 0, 50, 50}, [&](HWND self, UINT message, WPARAM, LPARAM) {
        if (message == WM_NCDESTROY) {
            late = Make({.style = WS_CHILD, .exStyle = WS_EX_NOPARENTNOTIFY, .parent = self});
        }
        return std::optional<LRESULT>();
    });
    DestroyWindow(top);
    EXPECT_NE(late, nullptr);
    EXPECT_FALSE(IsWindow(late));
}

TEST_F(RobustnessTest, AWindowMayGoAsItIsPaintedPrintedOrGivenAParent)
{
    HWND victim = nullptr;
    UINT fatal = 0;
    const auto handler = [&](HWND, UINT message, WPARAM, LPARAM) {
        if (message == fatal) {
            DestroyWindow(victim);
        }
        return std::optional<LRESULT>();
    };
    const HWND top = MakeTop({0, 0, 50, 50});
    const HWND other = MakeTop({0, 0, 50, 50});
    victim = MakeChild(top, {0, 0, 5, 5});
    MakeChild(top, {5, 0, 10, 5}, handler);
    fatal = WM_PRINT;
    const HDC hdc = CreateCompatibleDC(nullptr);
    SendMessageW(top, WM_PRINT, reinterpret_cast<WPARAM>(hdc), PRF_CHILDREN);
    DeleteDC(hdc);
    EXPECT_FALSE(IsWindow(victim)) << "its sibling is printed first";

    victim = MakeChild(top, {0, 0, 5, 5}, handler);
    fatal = WM_SHOWWINDOW;
    EXPECT_EQ(SetParent(victim, other), nullptr);
    EXPECT_FALSE(IsWindow(victim));

    victim = MakeChild(top, {0, 0, 5, 5}, handler);
    RedrawWindow(victim, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    fatal = WM_NCPAINT;
    PAINTSTRUCT paint;
    EXPECT_EQ(BeginPaint(victim, &paint), nullptr);
    EXPECT_FALSE(IsWindow(victim));
    DestroyWindow(top); // while what its children look at is there
}

} // namespace
