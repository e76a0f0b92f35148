// Input: how it finds its window and what it becomes there.
#include "../support/OnWine.h"
#include "../support/TestWindow.h"
#include "../support/User.h"

#include <algorithm>
#include <utility>

using namespace test;
using namespace test::user;

namespace {

class InputTest : public WindowsTest
{
protected:
    void SetUp() override
    {
        WindowsTest::SetUp();
        MoveMouse(900, 900);
        m_top = MakeTop({0, 0, 400, 300});
        m_child = MakeChild(m_top, {100, 100, 200, 200});
        Pump();
    }

    // What all test windows get by input, or one.
    static std::vector<Seen> TracedInput(const std::function<void()>& act, HWND hwnd = nullptr)
    {
        return Traced(
            [&] {
                act();
                Pump();
            },
            hwnd);
    }

    // The messages of the mouse, by window and place; those of the pointer's shape are left out, and those
    // that say the same again.
    std::string Mouse(const std::function<void()>& act)
    {
        const auto trace = TracedInput(act);
        std::string out;
        std::string last;
        for (const Seen& m : trace) {
            const bool mouse = (m.message >= WM_MOUSEFIRST && m.message <= WM_MOUSELAST) ||
                               (m.message >= WM_NCMOUSEMOVE && m.message <= WM_NCMBUTTONDBLCLK) ||
                               m.message == WM_MOUSELEAVE || m.message == WM_NCMOUSELEAVE ||
                               m.message == WM_CAPTURECHANGED;
            if (mouse && Describe(m) != last) {
                last = Describe(m);
                out += last + " ";
            }
        }
        return out.empty() ? out : out.substr(0, out.size() - 1);
    }

    // The same, with the time that it takes until a pointer is known to have left.
    std::string MouseAndLeave(const std::function<void()>& act)
    {
        return Mouse([&] {
            act();
            Pump();
            Wait(600);
        });
    }

    HWND m_top = nullptr;
    HWND m_child = nullptr;

private:
    std::string Describe(const Seen& m) const
    {
        const std::string window = m.hwnd == m_top ? "top" : m.hwnd == m_child ? "child" : "other";
        const std::string place =
            "(" + std::to_string(GET_X_LPARAM(m.lParam)) + "," + std::to_string(GET_Y_LPARAM(m.lParam)) + ")";
        return window + ":" + (gesso::NameOfMessage(m.message) + 3) + place;
    }
};

TEST_F(InputTest, TheMouseGoesToTheDeepestUsableWindow)
{
    EXPECT_EQ(Mouse([] { MoveMouse(150, 160); }), "child:MOUSEMOVE(50,60)");
    EXPECT_EQ(Mouse([] { MoveMouse(50, 60); }), "top:MOUSEMOVE(50,60)");
    EXPECT_EQ(Mouse([] { MoveMouse(450, 60); }), "");
    EnableWindow(m_child, FALSE);
    EXPECT_EQ(Mouse([] { MoveMouse(150, 160); }), "top:MOUSEMOVE(150,160)"); // looks through it
    EnableWindow(m_top, FALSE);
    EXPECT_EQ(Mouse([] { Click(150, 160); }), "");
}

TEST_F(InputTest, ATransparentWindowLetsTheMouseThrough)
{
    MakeChild(m_child, {0, 0, 100, 100}, [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        return message == WM_NCHITTEST ? std::optional<LRESULT>(HTTRANSPARENT) : std::nullopt;
    });
    EXPECT_EQ(Mouse([] { MoveMouse(150, 160); }), "child:MOUSEMOVE(50,60)");
}

TEST_F(InputTest, MovesInTheQueueBecomeOneAndNothingComesBeforeThePump)
{
    const auto early = Traced([] {
        MoveMouse(150, 150);
        MoveMouse(151, 151);
    });
    EXPECT_TRUE(early.empty());
    EXPECT_EQ(Mouse([] {}), "child:MOUSEMOVE(51,51)");
}

TEST_F(InputTest, TheCaptureTakesAllMouseMessagesUntilItIsReleased)
{
    SetCapture(m_child);
    EXPECT_EQ(Mouse([] { Click(10, 20); }),
              "child:MOUSEMOVE(-90,-80) child:LBUTTONDOWN(-90,-80) child:LBUTTONUP(-90,-80)");
    // The window that the pointer is over hears of it as soon as it can.
    EXPECT_EQ(Mouse([] { ReleaseCapture(); }), "child:CAPTURECHANGED(0,0) top:MOUSEMOVE(10,20)");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(InputTest, DisablingOrDestroyingTheHolderEndsTheCapture)
{
    SetCapture(m_child);
    EnableWindow(m_child, FALSE);
    EXPECT_EQ(GetCapture(), nullptr);
    EnableWindow(m_child, TRUE);
    SetCapture(m_child);
    DestroyWindow(m_child);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(InputTest, TheSecondPressIsADoubleClickOnlyWhereItIsWantedInTimeAndInPlace)
{
    const HWND wants = MakeDoubleClickChild(m_top, {200, 100, 300, 200});
    const auto presses = [&](int x, DWORD wait, int step) {
        return Mouse([&] {
            MoveMouse(x, 150);
            Pump();
            PressButton();
            ReleaseButton();
            Wait(wait);
            MoveMouse(x + step, 150);
            PressButton();
            ReleaseButton();
            Wait(1000);
        });
    };
    const auto isDouble = [](const std::string& messages) {
        return messages.find("LBUTTONDBLCLK") != std::string::npos;
    };
    EXPECT_TRUE(isDouble(presses(250, 100, 0)));
    EXPECT_FALSE(isDouble(presses(250, 600, 0)));
    EXPECT_FALSE(isDouble(presses(250, 10, 20)));
    EXPECT_FALSE(isDouble(presses(150, 10, 0)));
    EXPECT_EQ(
        Mouse([] {
            Click(250, 150);
            PressButton();
            ReleaseButton();
        }),
        "other:MOUSEMOVE(50,50) other:LBUTTONDOWN(50,50) other:LBUTTONUP(50,50) other:LBUTTONDBLCLK(50,50) "
        "other:LBUTTONUP(50,50)");
    EXPECT_FALSE(isDouble(Mouse([] {
        Click(250, 150);
        Click(250, 150);
    })));
    EXPECT_TRUE(IsWindow(wants));
}

TEST_F(InputTest, TheFrameGetsNonClientMessagesInScreenCoordinates)
{
    Make({.style = WS_CHILD | WS_VISIBLE | WS_VSCROLL, .place = {200, 100, 300, 200}, .parent = m_top},
         [](HWND, UINT message, WPARAM, LPARAM) {
             return message == WM_NCLBUTTONDOWN ? std::optional<LRESULT>(0)
                                                : std::nullopt; // and scrolls nothing
         });
    Pump();
    EXPECT_EQ(Mouse([] { Click(295, 150); }), "other:NCMOUSEMOVE(295,150) other:NCLBUTTONDOWN(295,150) "
                                              "other:NCLBUTTONUP(295,150)");
}

TEST_F(InputTest, ATrackedPointerThatLeavesIsReportedOnce)
{
    MoveMouse(150, 150);
    Pump();
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, m_child, 0};
    EXPECT_TRUE(TrackMouseEvent(&track));
    EXPECT_EQ(Mouse([] { MoveMouse(151, 150); }), "child:MOUSEMOVE(51,50)");
    EXPECT_EQ(MouseAndLeave([] { MoveMouse(50, 50); }), "top:MOUSEMOVE(50,50) child:MOUSELEAVE(0,0)");
    EXPECT_EQ(Mouse([] { MoveMouse(150, 150); }), "child:MOUSEMOVE(50,50)");
    EXPECT_EQ(MouseAndLeave([] { MoveMouse(50, 50); }), "top:MOUSEMOVE(50,50)"); // asked for once
    EXPECT_TRUE(TrackMouseEvent(&track));
    // The pointer was elsewhere already.
    ExpectButForWine<std::string>(MouseAndLeave([] {}), "child:MOUSELEAVE(0,0)", "");
}

TEST_F(InputTest, NonClientTrackingEndsInTheClientArea)
{
    const HWND bar =
        Make({.style = WS_CHILD | WS_VISIBLE | WS_VSCROLL, .place = {200, 100, 300, 200}, .parent = m_top});
    MoveMouse(295, 150);
    Pump();
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE | TME_NONCLIENT, bar, 0};
    EXPECT_TRUE(TrackMouseEvent(&track));
    EXPECT_EQ(MouseAndLeave([] { MoveMouse(250, 150); }), "other:MOUSEMOVE(50,50) other:NCMOUSELEAVE(0,0)");
}

TEST_F(InputTest, AWindowThatAppearsUnderTheRestingPointerHearsOfIt)
{
    MoveMouse(150, 150);
    Pump();
    const HWND cover = MakeChild(m_child, {0, 0, 100, 100});
    ExpectButForWine<std::string>(Mouse([] {}), "other:MOUSEMOVE(50,50)", "");
    ExpectButForWine<std::string>(Mouse([&] { DestroyWindow(cover); }), "child:MOUSEMOVE(50,50)", "");
}

bool IsAbove(HWND upper, HWND lower)
{
    HWND at = upper;
    while (at && at != lower) {
        at = GetWindow(at, GW_HWNDNEXT);
    }
    return at == lower;
}

TEST_F(InputTest, APressAsksForActivationAndTellsTheParents)
{
    const HWND other = MakeTop({500, 0, 600, 100});
    ASSERT_EQ(GetActiveWindow(), other);
    const auto trace = TracedInput([] { Click(150, 150); });
    EXPECT_EQ(
        Names(trace, {{m_top, 't'}, {m_child, 'c'}},
              {WM_NCHITTEST, WM_PARENTNOTIFY, WM_MOUSEACTIVATE, WM_ACTIVATE, WM_SETCURSOR, WM_LBUTTONDOWN}),
        "c:WM_NCHITTEST, c:WM_SETCURSOR, t:WM_SETCURSOR, " // the move
        "c:WM_NCHITTEST, t:WM_PARENTNOTIFY, c:WM_MOUSEACTIVATE, t:WM_MOUSEACTIVATE, t:WM_ACTIVATE, "
        "c:WM_SETCURSOR, t:WM_SETCURSOR, c:WM_LBUTTONDOWN, " // the press
        "c:WM_NCHITTEST, c:WM_SETCURSOR, t:WM_SETCURSOR");   // the release
    EXPECT_EQ(GetActiveWindow(), m_top);
    ExpectButForWine(IsAbove(m_top, other), true, false);
    const auto told =
        std::find_if(trace.begin(), trace.end(), [](const Seen& m) { return m.message == WM_PARENTNOTIFY; });
    EXPECT_EQ(told->wParam, WPARAM{WM_LBUTTONDOWN});
    EXPECT_EQ(told->lParam, MAKELPARAM(150, 150));
}

TEST_F(InputTest, ALoopWithinAMessageOfTheInputTakesWhatComesBehindIt)
{
    bool nested = false;
    MSG shared{};
    const auto loop = [&] {
        while (PeekMessageW(&shared, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&shared);
        }
    };
    MakeChild(m_top, {250, 100, 350, 200}, [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SETCURSOR && !std::exchange(nested, true)) {
            loop();
        }
        return std::nullopt;
    });
    const std::string seen = Mouse([&] {
        MoveMouse(300, 150);
        PressButton();
        ReleaseButton();
        loop(); // both loops keep their message in one record
    });
    EXPECT_EQ(seen, "other:LBUTTONDOWN(50,50) other:LBUTTONUP(50,50) other:MOUSEMOVE(50,50)");
}

TEST_F(InputTest, AWindowMayDestroyItsTopLevelWindowAsAPressAsksForActivation)
{
    MakeChild(m_top, {250, 100, 350, 200}, [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_MOUSEACTIVATE) {
            return std::nullopt;
        }
        DestroyWindow(m_top);
        return MA_ACTIVATE;
    });
    MakeTop({500, 0, 600, 100});
    const std::string seen = Mouse([] { Click(300, 150); });
    EXPECT_EQ(seen, "other:MOUSEMOVE(50,50)");
    EXPECT_FALSE(IsWindow(m_top));
}

TEST_F(InputTest, AWindowMayRefuseActivationOrEatThePress)
{
    struct Case
    {
        LRESULT answer;
        bool activates;
        bool pressed;
    };
    const Case cases[] = {{MA_ACTIVATE, true, true},
                          {MA_ACTIVATEANDEAT, true, false},
                          {MA_NOACTIVATE, false, true},
                          {MA_NOACTIVATEANDEAT, false, false}};
    for (const Case& c : cases) {
        const HWND popup =
            MakeTop({500, 0, 600, 100}, [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                return message == WM_MOUSEACTIVATE ? std::optional<LRESULT>(c.answer) : std::nullopt;
            });
        SetActiveWindow(m_top);
        const std::string messages = Mouse([] { Click(550, 50); });
        EXPECT_EQ(GetActiveWindow() == popup, c.activates) << c.answer;
        EXPECT_EQ(messages.find("LBUTTONDOWN") != std::string::npos, c.pressed) << c.answer;
        DestroyWindow(popup);
    }
}

TEST_F(InputTest, TheWheelGoesToTheFocusAndUpFromThere)
{
    SetFocus(m_child);
    const auto trace = TracedInput([] {
        MoveMouse(350, 250);
        Wheel(-120);
    });
    // Wine gives it to the window under the pointer.
    ExpectButForWine<std::string>(Names(trace, {{m_top, 't'}, {m_child, 'c'}}, {WM_MOUSEWHEEL}),
                                  "c:WM_MOUSEWHEEL, t:WM_MOUSEWHEEL", "t:WM_MOUSEWHEEL");
    for (const Seen& m : trace) {
        if (m.message == WM_MOUSEWHEEL) {
            EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(m.wParam), -120);
            EXPECT_EQ(GET_X_LPARAM(m.lParam), 350);
        }
    }
}

TEST_F(InputTest, KeysGoToTheFocusAndBecomeCharacters)
{
    SetFocus(m_child);
    const auto characters = [&](const std::function<void()>& act) {
        std::string out;
        for (const Seen& m : TracedInput(act, m_child)) {
            if (m.message == WM_CHAR || m.message == WM_SYSCHAR) {
                out += (m.message == WM_CHAR ? "" : "sys ") + std::to_string(m.wParam) + " ";
            }
        }
        return out;
    };
    EXPECT_EQ(characters([] { TypeText("aA1!\xC3\xA4"); }), "97 65 49 33 228 ");
    EXPECT_EQ(characters([] { TypeText("\xF0\x9F\x98\x80"); }), "55357 56832 "); // as two halves
    EXPECT_EQ(characters([] { TypeKey('C', {VK_CONTROL}); }), "3 ");
    EXPECT_EQ(characters([] { TypeKey(VK_RETURN); }), "13 ");
    EXPECT_EQ(characters([] { TypeKey(VK_BACK); }), "8 ");
    EXPECT_EQ(characters([] { TypeKey('C', {VK_MENU}); }), "sys 99 ");
    EXPECT_EQ(characters([] { TypeKey(VK_LEFT); }), "");
    TypeKey(VK_CAPITAL);
    EXPECT_EQ(characters([] {
                  TypeKey('A');
                  TypeKey('B', {VK_SHIFT});
              }),
              "65 98 ");
    TypeKey(VK_CAPITAL);
    Pump();
}

// Keyboards differ in the codes of their keys.
LPARAM WithoutScanCode(LPARAM lParam)
{
    return lParam & 0xFF00FFFF;
}

TEST_F(InputTest, KeyMessagesTellRepeatsAndExtendedKeysAndWithoutFocusAreSystemKeys)
{
    SetFocus(m_child);
    const auto keys = TracedInput(
        [] {
            PressKey(VK_LEFT);
            PressKey(VK_LEFT);
            ReleaseKey(VK_LEFT);
        },
        m_child);
    ASSERT_EQ(keys.size(), 3U);
    EXPECT_EQ(WithoutScanCode(keys[0].lParam), 0x01000001);
    EXPECT_EQ(WithoutScanCode(keys[1].lParam), 0x41000001);
    EXPECT_EQ(keys[2].message, UINT{WM_KEYUP});
    EXPECT_EQ(WithoutScanCode(keys[2].lParam), 0xC1000001);
    SetFocus(nullptr);
    const auto trace = TracedInput([] { TypeKey('A'); });
    EXPECT_EQ(Names(trace, {{m_top, 't'}}, {WM_KEYDOWN, WM_SYSKEYDOWN, WM_SYSKEYUP}),
              "t:WM_SYSKEYDOWN, t:WM_SYSKEYUP");
}

TEST_F(InputTest, TheKeyboardAsksForAContextMenuAtNoPlace)
{
    SetFocus(m_child);
    const auto trace = TracedInput([] {
        TypeKey(VK_APPS);
        TypeKey(VK_F10, {VK_SHIFT});
    });
    EXPECT_EQ(Names(trace, {{m_top, 't'}, {m_child, 'c'}}, {WM_CONTEXTMENU}),
              "c:WM_CONTEXTMENU, t:WM_CONTEXTMENU, c:WM_CONTEXTMENU, t:WM_CONTEXTMENU");
    for (const Seen& m : trace) {
        EXPECT_TRUE(m.message != WM_CONTEXTMENU || m.lParam == -1);
    }
}

TEST_F(InputTest, KeyStatesAreThoseOfTheMessageAtHand)
{
    SetFocus(m_child);
    MoveMouse(150, 150);
    Pump();
    PressKey(VK_SHIFT);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0); // not taken out of the queue yet
    PressButton();
    ReleaseButton();
    bool pressed = false;
    for (const Seen& m : TracedInput([] {})) {
        if (m.message == WM_LBUTTONDOWN) {
            EXPECT_EQ(m.wParam, WPARAM{MK_LBUTTON | MK_SHIFT});
            pressed = true;
        }
    }
    EXPECT_TRUE(pressed);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    ReleaseKey(VK_SHIFT);
    Pump();
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
}

TEST_F(InputTest, AltF4ClosesTheTopLevelWindow)
{
    SetFocus(m_child);
    TypeKey(VK_F4, {VK_MENU});
    Pump();
    EXPECT_FALSE(IsWindow(m_top));
}

TEST_F(InputTest, MessagesCarryTheirOwnTimeAndPlace)
{
    const DWORD start = Now();
    Wait(40);
    MoveMouse(150, 160);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
    EXPECT_GE(static_cast<DWORD>(GetMessageTime()) - start, 40U);
    EXPECT_LT(static_cast<DWORD>(GetMessageTime()) - start, 5000U);
    EXPECT_EQ(GetMessagePos(), DWORD(MAKELONG(150, 160)));
}

} // namespace
