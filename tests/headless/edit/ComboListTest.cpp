// The open list: where it stands, how it is used and closed, and what the program may do meanwhile.

#include "../../support/Interception.h"
#include "../../support/WithBehavior.h"
#include "ComboFixture.h"

namespace {

using namespace test;

const std::string SELCHANGE = "click 5 code 1";

class ComboListTest : public ComboFixture
{
protected:
    static void TypeEscape() { desk::TypeKey(VK_ESCAPE); }
    void ScrollInAThickFrame();
};

void ComboListTest::ScrollInAThickFrame()
{
    constexpr int FRAME = 6;
    desk::SetThemePartSize("COMBOBOX", CP_BORDER, 0, {FRAME, FRAME});
    Make(GCBS_DROPDOWNLIST, 40);
    Combo().SetDropdownHeight(110 + 2 * FRAME);
    Combo().SetSelected(0);
    const int xBar = COMBO_CX - 2 * FRAME - 8; // in the client area, as all points here
    WithList({[&] { ClickAt(List(), xBar, 110 - 2); }, [&] { ClickAt(List(), xBar, 110 - 16); },
              [&] { ClickAt(List(), xBar, 2); }, [] { ClickRow(0); }});
    EXPECT_EQ(Combo().GetSelected(), 1u) << "two rows down, one up";
}

TEST_F(ComboListTest, StandsBelowTheControlNoHigherThanItsItems)
{
    desk::SetThemePartSize("COMBOBOX", CP_BORDER, 0, {2, 3});
    Make(GCBS_DROPDOWNLIST, 3);
    std::string list, client;
    DWORD dwStyle = 0, dwExStyle = 0;
    bool fVisible = false;
    WithList({[&] {
        list = Numbers(PlaceIn(nullptr, List()));
        client = Numbers(ClientSize(List()));
        dwStyle = static_cast<DWORD>(GetWindowLongW(List(), GWL_STYLE));
        dwExStyle = static_cast<DWORD>(GetWindowLongW(List(), GWL_EXSTYLE));
        fVisible = IsWindowVisible(List());
        EXPECT_EQ(GetForegroundWindow(), Parent()) << "it takes no activation";
        EXPECT_EQ(GetCapture(), Combo().GetHwnd());
        TypeEscape();
    }});
    const RECT rcCombo = PlaceIn(nullptr, Combo());
    const LONG nBottom = rcCombo.bottom + 3 * 22 + 2 * 3;
    EXPECT_EQ(list, Numbers({rcCombo.left, rcCombo.bottom, rcCombo.right, nBottom}));
    EXPECT_EQ(client, Numbers(COMBO_CX - 2 * 2, 3 * 22));
    EXPECT_EQ(dwStyle & ~static_cast<DWORD>(WS_VISIBLE), 0x86800000u);
    EXPECT_EQ(dwExStyle, 0x88u);
    EXPECT_TRUE(fVisible);
    EXPECT_EQ(List(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Combo().State() & GWS_PRESSED, 0u);
}

TEST_F(ComboListTest, ScrollsWithItsBarWhereTheItemsDoNotFit)
{
    Make(GCBS_DROPDOWNLIST, 100);
    Combo().SetDropdownHeight(5 * 22);
    Combo().SetSelected(50);
    SIZE client{};
    WithList({[&] {
        client = ClientSize(List());
        // The selected row is in view, at the bottom: rows 46 to 50.
        ClickRow(0);
    }});
    EXPECT_EQ(Numbers(client), Numbers(COMBO_CX - 17, 5 * 22));
    EXPECT_EQ(Combo().GetSelected(), 46u);
    EXPECT_EQ(TheHost().TakeReports().back(), SELCHANGE);

    // A bar that an earlier opening needed is gone when the items fit.
    while (Combo().GetItemCount() > 2) {
        Combo().RemoveItem(0);
    }
    SCROLLINFO si{sizeof(si), SIF_POS, 0, 0, 0, -1, 0};
    WithList({[&] {
        client = ClientSize(List());
        GetScrollInfo(List(), SB_VERT, &si);
        ClickRow(1);
    }});
    EXPECT_EQ(client.cx, COMBO_CX);
    EXPECT_EQ(si.nPos, 0) << "as the platform knows it";
    EXPECT_EQ(Combo().GetSelected(), 1u);
    Combo().SetDropdownHeight(2 * 22 - 2);
    WithList({[&] {
        client = ClientSize(List());
        TypeEscape();
    }});
    EXPECT_EQ(client.cx, COMBO_CX - 17) << "the last pixels do not fit";
}

TEST_F(ComboListTest, AnyHeightIsLimitedToTheItems)
{
    Make(GCBS_DROPDOWNLIST, 3);
    for (const UINT nHeight : {UINT{INT_MAX}, UINT{INT_MAX} + 1, UINT_MAX}) {
        Combo().SetDropdownHeight(nHeight);
        SIZE client{};
        WithList({[&] { client = ClientSize(List()); }, TypeEscape});
        EXPECT_EQ(Numbers(client), Numbers(COMBO_CX, 3 * COMBO_ROW)) << nHeight;
    }
}

// Callback takes any index: steps from one that is no item's end at the items.
TEST_F(ComboListTest, StepsFromAnyIndexEndAtTheItems)
{
    Make(GCBS_PLAIN, 3);
    SetFocus(Combo());
    for (const UINT nIndex : {UINT{INT_MAX}, UINT{INT_MAX} + 1}) {
        const UINT nNearest = nIndex > INT_MAX ? 0 : 2;
        for (const int nDelta : {WHEEL_DELTA, -WHEEL_DELTA}) {
            Combo().Callback(nIndex);
            SendMessageW(Combo(), WM_MOUSEWHEEL, MAKEWPARAM(0, nDelta), 0);
            EXPECT_EQ(Combo().GetSelected(), nNearest);
            Combo().Callback(nIndex);
            SendMessageW(Combo(), WM_KEYDOWN, nDelta > 0 ? VK_UP : VK_DOWN, 1);
            EXPECT_EQ(Combo().GetSelected(), nNearest);
        }
    }
}

TEST_F(ComboListTest, AnEmptyListHasNoHeightAndCloses)
{
    Make(GCBS_DROPDOWN);
    LONG nHeight = -1;
    WithList({[&] {
        nHeight = ClientSize(List()).cy;
        for (const UINT uKey : std::initializer_list<UINT>{VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR}) {
            desk::TypeKey(uKey);
        }
        desk::Wheel(-120);
        TypeEscape();
    }});
    EXPECT_EQ(nHeight, 0);
    EXPECT_EQ(Combo().GetSelected(), NONE);
}

TEST_F(ComboListTest, KeysMoveTheSelectionAndTheTextFollowsAtOnce)
{
    Make(GCBS_DROPDOWN, 30);
    std::vector<std::string> texts;
    std::vector<std::function<void()>> actions;
    const auto type = [&](UINT uKey) {
        desk::WhenIdle([uKey] { desk::TypeKey(uKey); });
        desk::WhenIdle([&] { texts.push_back(TextOf(Combo())); });
    };
    for (const UINT uKey : std::initializer_list<UINT>{VK_UP, VK_DOWN, VK_UP, VK_DOWN, VK_UP, VK_DOWN,
                                                       VK_NEXT, VK_NEXT, VK_NEXT, VK_NEXT, VK_PRIOR, VK_UP})
    {
        type(uKey);
    }
    desk::WhenIdle(TypeEscape);
    SetFocus(Combo());
    TheHost().TakeReports();
    Type(VK_F4);
    EXPECT_EQ(texts,
              (std::vector<std::string>{"", "item 0", "item 0", "item 1", "item 0", "item 1", "item 11",
                                        "item 21", "item 29", "item 29", "item 19", "item 18"}));
    EXPECT_EQ(TextOf(Combo()), "item 18") << "Esc takes nothing back";
    EXPECT_EQ(TheHost().TakeReports(), Reports{}) << "keys in the list are not told of";
}

TEST_F(ComboListTest, KeysAndClicksElsewhereCloseIt)
{
    Make(GCBS_DROPDOWN, 5);
    Combo().SetSelected(2);
    GButton button;
    button.Create(200, 200, 50, 20, Parent(), 6, L"button", 0, WS_CHILD | WS_VISIBLE);
    std::vector<std::function<void()>> closers;
    for (const UINT uKey : {UINT{VK_RETURN}, UINT{VK_F4}, UINT{VK_ESCAPE}}) {
        closers.emplace_back([uKey] { desk::TypeKey(uKey); });
    }
    // Beside all, on the button, and on the control's own button.
    for (const auto& [x, y] : {std::pair{300, 5}, {210, 210}, {COMBO_X + COMBO_CX - 5, COMBO_Y + 5}}) {
        closers.emplace_back([pt = OnScreen(Parent(), x, y)] { desk::Click(pt.x, pt.y); });
    }
    for (const auto& close : closers) {
        bool fWasOpen = false;
        WithList({[&] {
            fWasOpen = List() != nullptr;
            close();
        }});
        EXPECT_TRUE(fWasOpen);
        EXPECT_FALSE(List()) << &close - closers.data();
        EXPECT_EQ(Combo().GetSelected(), 2u);
    }
    EXPECT_EQ(GetFocus(), Combo().GetHwnd()) << "the click reached nothing else";
    for (const std::string& report : TheHost().TakeReports()) {
        EXPECT_EQ(report, "setfocus 5");
    }
    const POINT pt = OnScreen(Combo(), COMBO_CX - 5, 10);
    desk::DoubleClick(pt.x, pt.y);
    desk::Pump();
    EXPECT_FALSE(List()) << "a quick second click";
    button.Destroy();
}

TEST_F(ComboListTest, ATypedTextGivesWayToTheSelectedItem)
{
    Make(GCBS_DROPDOWN, 3);
    Combo().SetText(L"typed");
    WithList({TypeEscape});
    EXPECT_EQ(TextOf(Combo()), "");
    Combo().SetSelected(1);
    Combo().SetText(L"typed");
    WithList({TypeEscape});
    EXPECT_EQ(TextOf(Combo()), "item 1");
}

TEST_F(ComboListTest, AClickPicksARowAndTellsTheParent)
{
    Make(GCBS_DROPDOWNLIST, 5);
    std::string textWhenTold;
    TheHost().onReport = [&](const std::string& report) {
        if (report == SELCHANGE) {
            textWhenTold = TextOf(Combo()) + "/" + std::to_string(Combo().GetSelected());
        }
    };
    WithList({[] { ClickRow(3); }});
    EXPECT_EQ(Combo().GetSelected(), 3u);
    EXPECT_EQ(TextOf(Combo()), "item 3");
    EXPECT_EQ(textWhenTold, "/3") << "the text follows when the list has closed";
    EXPECT_EQ(TheHost().TakeReports(), (Reports{"setfocus 5", SELCHANGE}));
    WithList({[] { ClickAt(List(), 5, 0); }});
    EXPECT_EQ(Combo().GetSelected(), 0u) << "by its first pixel";
}

TEST_F(ComboListTest, InputElsewhereReachesTheListAndAPressOnAFrameClosesIt)
{
    Make(GCBS_DROPDOWNLIST, 5);
    bool fOpen = false;
    Lines printed;
    WithList({[&] {
                  PostMessageW(Parent(), WM_NCMOUSEMOVE, HTCAPTION, MAKELPARAM(1, 1));
                  PostMessageW(Parent(), WM_XBUTTONDOWN, 0, MAKELPARAM(1, 1));
                  PostMessageW(Parent(), WM_NCXBUTTONDOWN, HTCAPTION, MAKELPARAM(1, 1));
                  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
              },
              [&] {
                  fOpen = List() != nullptr;
                  const HDC hdc = GetDC(List());
                  desk::ClearDrawing(List());
                  SendMessageW(List(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
                  printed = desk::Drawing(List());
                  ReleaseDC(List(), hdc);
                  // On its own frame: no row.
                  MoveTo(List(), 5, -1);
                  desk::PressButton();
                  desk::ReleaseButton();
              },
              [&] { PostMessageW(Parent(), WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(1, 1)); }, TypeEscape});
    EXPECT_TRUE(fOpen);
    EXPECT_TRUE(std::any_of(printed.begin(), printed.end(), [](const std::string& line) {
        return line.find("\"item 4\"") != std::string::npos;
    }));
    EXPECT_FALSE(List());
    EXPECT_EQ(Combo().GetSelected(), NONE);
}

TEST_F(ComboListTest, AReleaseWithoutAPressOnARowPicksNothing)
{
    Make(GCBS_DROPDOWNLIST, 5);
    bool fOpen = false;
    WithList({[] { // the press opened the list; the release came already
                  MoveTo(List(), 5, 30);
                  desk::ReleaseButton();
              },
              [&] {
                  fOpen = List() != nullptr;
                  // pressed on a row, released outside
                  MoveTo(List(), 5, 30);
                  desk::PressButton();
                  MoveTo(List(), 5, -100);
                  desk::ReleaseButton();
                  // and the press is forgotten
                  MoveTo(List(), 5, 30);
                  desk::ReleaseButton();
              },
              [&] {
                  fOpen = fOpen && List();
                  MoveTo(List(), 5, 30);
                  desk::PressButton();
                  MoveTo(List(), 5, 2 * 22 + 5);
                  desk::ReleaseButton();
              }});
    EXPECT_TRUE(fOpen);
    EXPECT_EQ(Combo().GetSelected(), 2u) << "the row of the release counts";
}

TEST_F(ComboListTest, TheHoveredRowIsHotAndKeysGoOnFromTheSelection)
{
    Make(GCBS_DROPDOWNLIST, 5);
    Combo().SetSelected(1);
    Lines hot;
    WithList({[&] { MoveTo(List(), 5, 3 * 22 + 5); },
              [&] {
                  hot = Draw(List(), "DrawThemeBackground");
                  EXPECT_EQ(Combo().GetSelected(), 1u);
                  EXPECT_EQ(SendMessageW(List(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 3 * 22 + 6)), 0);
                  desk::SetThemed(false);
                  SendMessageW(List(), WM_THEMECHANGED, 0, 0);
                  EXPECT_EQ(Draw(List(), "DrawThemeBackground"), Lines{}) << "the style is gone";
                  desk::SetThemed(true);
                  desk::TypeKey(VK_DOWN);
              },
              TypeEscape});
    EXPECT_EQ(hot, (Lines{"DrawThemeBackground explorer::LISTVIEW 0 0 (-2,-2,122,112)",
                          "DrawThemeBackground explorer::LISTVIEW 1 6 (0,66,120,88)"}));
    EXPECT_EQ(Combo().GetSelected(), 2u);
}

TEST_F(ComboListTest, AnotherWindowInFrontClosesIt)
{
    Make(GCBS_DROPDOWN, 5);
    bool fHandled = false;
    TheHost().onReport = [&](const std::string& report) { fHandled = fHandled || report == "click 9"; };
    WithList({[&] {
        desk::SwitchAway();
        PostMessageW(Parent(), WM_COMMAND, 9, 0);
    }});
    EXPECT_FALSE(List());
    EXPECT_TRUE(fHandled) << "the message that came then is not lost";
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Combo().State() & GWS_PRESSED, 0u);
}

TEST_F(ComboListTest, TheBarScrollsByMouseAndTheWheelByLines)
{
    Make(GCBS_DROPDOWNLIST, 4000); // beyond 16 bits of pixels
    Combo().SetDropdownHeight(110);
    const int xBar = COMBO_CX - 8;
    std::vector<UINT> picked;
    // Opens, acts, and picks the row that is at the top then.
    const auto topAfter = [&](std::function<void()> act) {
        Combo().SetSelected(NONE);
        WithList({act, [] {}, [] { ClickRow(0); }});
        return Combo().GetSelected();
    };
    EXPECT_EQ(topAfter([&] { ClickAt(List(), xBar, 110 - 5); }), 1u) << "the arrow: a row";
    EXPECT_EQ(topAfter([&] { ClickAt(List(), xBar, 60); }), 110u * 5 / 6 / 22)
        << "the track: five sixths of a page";
    EXPECT_EQ(topAfter([&] { desk::Wheel(-240); }), 6u) << "three rows a notch";
    EXPECT_EQ(topAfter([&] {
                  desk::Wheel(-240);
                  desk::Wheel(1200);
              }),
              0u);
    EXPECT_EQ(topAfter([&] {
                  MoveTo(List(), xBar, 20);
                  desk::PressButton();
                  MoveTo(List(), xBar, 400);
                  desk::ReleaseButton();
              }),
              3995u)
        << "the thumb, to the end";
    EXPECT_EQ(topAfter([&] { SendMessageW(List(), WM_VSCROLL, SB_BOTTOM, 0); }), 3995u);
    EXPECT_EQ(topAfter([&] {
                  SendMessageW(List(), WM_VSCROLL, SB_BOTTOM, 0);
                  SendMessageW(List(), WM_VSCROLL, SB_TOP, 0);
              }),
              0u);
    EXPECT_EQ(topAfter([&] { SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 44), 0); }), 2u);
    desk::SetWheelLines(WHEEL_PAGESCROLL);
    EXPECT_GT(topAfter([&] { desk::Wheel(-120); }), 4u) << "a page at least";
}

TEST_F(ComboListTest, AThickFrameLeavesTheBarWhereItIsDrawn)
{
    ScrollInAThickFrame();
}

TEST_F(ComboListTest, SoItDoesInModern)
{
    const Modern modern;
    ScrollInAThickFrame();
}

TEST_F(ComboListTest, TheProgramMayRemoveItemsMeanwhile)
{
    Make(GCBS_DROPDOWN, 100);
    Combo().SetDropdownHeight(110);
    Combo().SetSelected(99);
    WithList({[&] { MoveTo(List(), 5, 100); }, [&] { desk::PressButton(); },
              [&] {
                  while (Combo().GetItemCount() > 1) {
                      Combo().RemoveItem(1);
                  }
                  InvalidateRect(List(), nullptr, FALSE);
              },
              [&] { desk::ReleaseButton(); }, // no row is there now
              [&] { desk::TypeKey(VK_UP); }, TypeEscape});
    EXPECT_EQ(Combo().GetSelected(), 0u);
    EXPECT_EQ(TextOf(Combo()), "item 0");
    WithList({[&] { Combo().RemoveAllItems(); }, [] { desk::TypeKey(VK_DOWN); }, TypeEscape});
    EXPECT_EQ(Combo().GetSelected(), NONE);
}

TEST_F(ComboListTest, TheParentMayDestroyTheControlInTheLoop)
{
    for (const bool fDelete : {false, true}) {
        for (const bool fFromClick : {false, true}) {
            pCombo = std::make_unique<ComboProbe>();
            const HWND hwnd = Make(GCBS_DROPDOWNLIST, 5);
            const auto destroy = [&] {
                if (fDelete) {
                    pCombo.reset();
                    EXPECT_TRUE(IsWindow(hwnd));
                }
                DestroyWindow(hwnd);
            };
            if (fFromClick) {
                TheHost().onReport = [&](const std::string& report) {
                    if (report == SELCHANGE) {
                        destroy();
                    }
                };
                WithList({[] { ClickRow(2); }});
            } else {
                WithList({destroy});
            }
            TheHost().onReport = nullptr;
            EXPECT_FALSE(IsWindow(hwnd));
            EXPECT_FALSE(List());
            EXPECT_FALSE(GetCapture());
        }
    }
}

TEST_F(ComboListTest, AQuitLeavesAllAsItIsAndEndsTheOuterLoopToo)
{
    Make(GCBS_DROPDOWNLIST, 5);
    desk::WhenIdle([] { PostQuitMessage(3); });
    ClickAt(Combo(), 5, 5);
    EXPECT_FALSE(desk::Pump()) << "the outer loop meets it";
    EXPECT_TRUE(List());
    EXPECT_EQ(GetCapture(), Combo().GetHwnd());
    EXPECT_TRUE(Combo().State() & GWS_PRESSED);
    Combo().Destroy();
    EXPECT_FALSE(List()) << "the list goes with the control";
}

TEST_F(ComboListTest, AListThatGoesOrNeverComesFreesTheCapture)
{
    const HWND hwnd = Make(GCBS_DROPDOWNLIST, 5);
    desk::Fail("CreateWindowExW");
    WithList({});
    EXPECT_FALSE(GetCapture());
    EXPECT_EQ(Combo().State() & GWS_PRESSED, 0u);
    WithList({[] { DestroyWindow(List()); }});
    EXPECT_FALSE(GetCapture());
    WithList({[&] { pCombo.reset(); }});
    EXPECT_FALSE(List()) << "the list goes with the object";
    EXPECT_FALSE(GetCapture());
    DestroyWindow(hwnd);
}

TEST_F(ComboListTest, AListThatCannotBeDestroyedGoesOutOfSightAndLaterWithItsOwner)
{
    Make(GCBS_DROPDOWNLIST, 5);
    desk::Fail("DestroyWindow");
    WithList({TypeEscape});
    EXPECT_FALSE(IsWindowVisible(List()));
    EXPECT_EQ(Combo().State() & GWS_PRESSED, 0u);
    bool fOpen = false;
    WithList({[&] {
        fOpen = IsWindowVisible(List());
        TypeEscape();
    }});
    EXPECT_TRUE(fOpen) << "a new one";
}

TEST_F(ComboListTest, AListThatGetsNoMessagesCloses)
{
    Make(GCBS_DROPDOWNLIST, 5);
    desk::Fail("GetMessageW", INT_MAX);
    WithList({});
    EXPECT_FALSE(List());
    EXPECT_FALSE(GetCapture());
    EXPECT_EQ(Combo().State() & GWS_PRESSED, 0u);
    EXPECT_TRUE(desk::Pump()) << "the program goes on";
}

TEST_F(ComboListTest, AfterwardsEveryKindHasACaret)
{
    Make(GCBS_DROPDOWNLIST, 5);
    WithList({TypeEscape});
    EXPECT_EQ(desk::Caret().hwnd, Combo().GetHwnd());
    SetFocus(Parent());
    EXPECT_EQ(desk::Caret().hwnd, Combo().GetHwnd()) << "losing the focus takes it from the field only";
    // But it moves no caret of another control.
    GEdit edit;
    edit.Create(0, 100, 100, 30, Parent(), 6, L"", WS_CHILD | WS_VISIBLE, 0);
    SetFocus(edit);
    const POINT ptFormer = desk::Caret().position;
    Combo().SetText(L"set by the program");
    EXPECT_EQ(desk::Caret().hwnd, edit.GetHwnd());
    EXPECT_EQ(Numbers(desk::Caret().position), Numbers(ptFormer));
    edit.Destroy();
}

TEST_F(ComboListTest, ARowThatWasAddedMeanwhileIsShownAsTheHotOne)
{
    Make(GCBS_DROPDOWNLIST, 1);
    Combo().SetSelected(0);
    bool fRedrawn = false;
    WithList({[&] {
                  Add("added");
                  desk::ClearDrawing(List());
                  desk::TypeKey(VK_DOWN);
              },
              [&] {
                  fRedrawn = !desk::Drawing(List()).empty();
                  TypeEscape();
              }});
    EXPECT_EQ(Combo().GetSelected(), 1u);
    EXPECT_TRUE(fRedrawn) << "or the former row still looks like the selected one";
}

TEST_F(ComboListTest, TheParentMayDestroyTheControlWhileTheListPaints)
{
    const HWND hwnd = Make(GCBS_DROPDOWNLIST, 5);
    bool fPainted = false;
    WithList({[&] {
        const Interception background(Parent(), WM_ERASEBKGND, [&] {
            DestroyWindow(hwnd);
            pCombo.reset();
        });
        RedrawWindow(List(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        fPainted = background.Happened();
    }});
    EXPECT_TRUE(fPainted);
    EXPECT_FALSE(List());
    EXPECT_FALSE(GetCapture());
}

TEST_F(ComboListTest, AWindowThatHadTheCaptureMayDestroyTheControlAsTheListCloses)
{
    const HWND hwnd = Make(GCBS_DROPDOWNLIST, 5);
    const Interception loss(Parent(), WM_CAPTURECHANGED, [&] {
        DestroyWindow(hwnd);
        pCombo.reset();
    });
    WithList({[&] {
        SetCapture(Parent());
        TypeEscape();
    }});
    EXPECT_TRUE(loss.Happened());
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST_F(ComboListTest, ThePressThatClosesItInModernIsUsedUpWithItsRelease)
{
    const Modern modern;
    Make(GCBS_DROPDOWNLIST, 5);
    const POINT pt = OnScreen(Parent(), 300, 5);
    const Interception release(Parent(), WM_RBUTTONUP, [] {});
    SendMessageW(Combo(), CB_SHOWDROPDOWN, TRUE, 0);
    desk::Click(pt.x, pt.y, desk::Button::Right);
    desk::Pump();
    EXPECT_FALSE(List());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(release.Happened()) << "or a menu comes up";
    desk::Click(pt.x, pt.y, desk::Button::Right);
    desk::Pump();
    EXPECT_TRUE(release.Happened());
}

TEST_F(ComboListTest, WhatWasPaintedInModernIsNotPreparedAgain)
{
    const Modern modern;
    Make(GCBS_DROPDOWNLIST, 3);
    SendMessageW(Combo(), CB_SETCURSEL, 1, 0);
    SendMessageW(Combo(), CB_SHOWDROPDOWN, TRUE, 0);
    desk::Pump();
    const auto isPrepared = [&](HWND hwnd) {
        desk::Fail("ScriptShape", 1);
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const bool fAsked = desk::PendingFaults().empty();
        desk::ClearFaults();
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        return !fAsked;
    };
    EXPECT_TRUE(isPrepared(List()));
    EXPECT_TRUE(isPrepared(Combo()));
    Combo().SetItemText(1, L"another");
    EXPECT_FALSE(isPrepared(List()));
    EXPECT_TRUE(isPrepared(List()));
    SendMessageW(Combo(), WM_SETFONT, SendMessageW(Combo(), WM_GETFONT, 0, 0), FALSE);
    EXPECT_FALSE(isPrepared(List())) << "in another font, it may be";
    SendMessageW(Combo(), CB_SHOWDROPDOWN, FALSE, 0);
}

} // namespace
