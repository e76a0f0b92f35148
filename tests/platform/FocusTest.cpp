// Focus and activation.
#include "../support/TestWindow.h"

using namespace test;

namespace {

using FocusTest = WindowsTest;

const std::initializer_list<UINT> FOCUS_MESSAGES = {WM_NCACTIVATE, WM_ACTIVATE, WM_KILLFOCUS, WM_SETFOCUS};

TEST_F(FocusTest, FocusMovesWithLossBeforeGain)
{
    const HWND top = MakeTop();
    const HWND a = MakeChild(top, {0, 0, 10, 10});
    const HWND b = MakeChild(top, {20, 0, 30, 10});
    EXPECT_EQ(GetFocus(), top); // from the activation that came with the showing
    EXPECT_EQ(SetFocus(a), top);
    const auto trace = Traced([&] { EXPECT_EQ(SetFocus(b), a); });
    EXPECT_EQ(Names(trace, {{a, 'a'}, {b, 'b'}}, FOCUS_MESSAGES), "a:WM_KILLFOCUS, b:WM_SETFOCUS");
    EXPECT_EQ(trace[0].wParam, reinterpret_cast<WPARAM>(b));
    EXPECT_EQ(trace[1].wParam, reinterpret_cast<WPARAM>(a));
    EXPECT_TRUE(Traced([&] { SetFocus(b); }).empty());
    EnableWindow(a, FALSE);
    EXPECT_EQ(SetFocus(a), nullptr);
    EXPECT_EQ(GetFocus(), b);
}

TEST_F(FocusTest, AWindowThatSendsTheFocusBackKeepsIt)
{
    const HWND top = MakeTop();
    HWND stubborn = nullptr;
    stubborn = MakeChild(top, {0, 0, 10, 10},
                         [&](HWND self, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                             if (message == WM_KILLFOCUS && GetFocus() != self) {
                                 SetFocus(self);
                             }
                             return std::nullopt;
                         });
    const HWND other = MakeChild(top, {20, 0, 30, 10});
    SetFocus(stubborn);
    SetFocus(other);
    EXPECT_EQ(GetFocus(), stubborn);
}

TEST_F(FocusTest, ActivationPassesFromWindowToWindow)
{
    const HWND a = MakeTop({0, 0, 100, 100});
    const HWND b = MakeTop({200, 0, 300, 100});
    const auto trace = Traced([&] { SetActiveWindow(a); });
    EXPECT_EQ(
        Names(trace, {{a, 'a'}, {b, 'b'}}, FOCUS_MESSAGES),
        "b:WM_NCACTIVATE, b:WM_ACTIVATE, a:WM_NCACTIVATE, a:WM_ACTIVATE, b:WM_KILLFOCUS, a:WM_SETFOCUS");
    EXPECT_EQ(GetForegroundWindow(), a);
}

TEST_F(FocusTest, FocusInAnotherWindowActivatesIt)
{
    const HWND a = MakeTop({0, 0, 100, 100});
    const HWND field = MakeChild(a, {0, 0, 10, 10});
    const HWND b = MakeTop({200, 0, 300, 100});
    ASSERT_EQ(GetActiveWindow(), b);
    SetFocus(field);
    EXPECT_EQ(GetActiveWindow(), a);
    EXPECT_EQ(GetFocus(), field);
}

TEST_F(FocusTest, HidingOrDestroyingTheActiveWindowPassesActivationToOwnerThenNext)
{
    const HWND owner = MakeTop({0, 0, 100, 100});
    const HWND third = MakeTop({300, 0, 400, 100});
    const HWND owned = Make({.style = WS_POPUP | WS_VISIBLE, .parent = owner});
    ASSERT_EQ(GetActiveWindow(), owned);
    DestroyWindow(owned);
    EXPECT_EQ(GetActiveWindow(), owner);
    ShowWindow(owner, SW_HIDE);
    EXPECT_EQ(GetActiveWindow(), third);
    DestroyWindow(third);
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(FocusTest, HidingTakesTheFocusOnlyFromTheHiddenWindowItself)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 100, 100});
    const HWND inner = MakeChild(child, {0, 0, 50, 50});
    SetFocus(inner);
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(GetFocus(), inner);
    ShowWindow(inner, SW_HIDE);
    EXPECT_EQ(GetFocus(), child);
    MakeTop({200, 0, 300, 100});
    SetActiveWindow(top);
    SetWindowPos(top, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_HIDEWINDOW);
    EXPECT_EQ(GetActiveWindow(), top); // only ShowWindow passes the activation on
}

TEST_F(FocusTest, AWindowThatGoesWithItsOwnerIsNotActivatedOnTheWay)
{
    const HWND owner = MakeTop();
    const HWND popup = Make({.style = WS_POPUP, .parent = owner});
    ShowWindow(popup, SW_SHOWNA);
    const auto trace = Traced([&] { DestroyWindow(owner); });
    EXPECT_EQ(Names(trace, {{owner, 'o'}, {popup, 'p'}}, {WM_ACTIVATE, WM_DESTROY}),
              "p:WM_DESTROY, o:WM_ACTIVATE, o:WM_DESTROY");
}

TEST_F(FocusTest, AWindowMayBeShownWithoutActivation)
{
    const HWND top = MakeTop();
    const HWND popup = Make({.style = WS_POPUP, .parent = top});
    SetWindowPos(popup, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    EXPECT_TRUE(IsWindowVisible(popup));
    EXPECT_EQ(GetActiveWindow(), top);
    ShowWindow(popup, SW_HIDE);
    ShowWindow(popup, SW_SHOWNA);
    EXPECT_EQ(GetActiveWindow(), top);
}

} // namespace
