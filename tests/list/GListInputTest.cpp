#include "../support/Numbers.h"
#include "ListFixture.h"

#include <memory>

namespace {

using namespace test;

class GListInputTest : public ListFixture
{
protected:
    void SetUp() override
    {
        MakeFilledList(2, 5, GLS_DETAILS | GLS_HEADER);
        SetFocus(list);
        list.ClearSelection();
        host.Take();
    }
    // In the header.
    void Drag(int from, int to)
    {
        Mouse(WM_LBUTTONDOWN, from, 5);
        Mouse(WM_MOUSEMOVE, to, 5);
        Mouse(WM_LBUTTONUP, to, 5);
    }
};

constexpr int HEADER_AREA = 35;

int MiddleOf(UINT item)
{
    return HEADER_AREA + static_cast<int>(item) * 22 + 11;
}

// As the layout finds it, from where the window and its bars are.
TEST_F(GListInputTest, APointHitsTheCellThatShowsThere)
{
    const auto hit = [this](int x, int y) {
        const GList::HitTestInfo info = list.HitAt(x, y);
        EXPECT_EQ(info.reserved, END);
        return std::to_string(static_cast<int>(info.item)) + " " + Numbers(info.subItem, info.part);
    };
    EXPECT_EQ(hit(105, 5), "-2 0,2");
    EXPECT_EQ(hit(106, 5), "-2 0,0");
    EXPECT_EQ(hit(101, MiddleOf(1)), "1 1,0");
    EXPECT_EQ(hit(LIST_CX + 1, 50), "-1 65535,65535");
    list.m_siH.nPos = 10;
    list.m_siV.nPos = 22;
    EXPECT_EQ(hit(100, MiddleOf(1)), "2 1,0");
    EXPECT_EQ(hit(95, 5), "-2 0,2");
    list.m_siH.nPos = list.m_siV.nPos = 0;
    list.SetListStyle(GLS_DETAILS);
    AddGroup(0);
    list.Calculate();
    EXPECT_EQ(hit(5, 10), "0 65535,0") << "a group's index";
}

TEST_F(GListInputTest, AClickSelectsAndTells)
{
    Click(150, MiddleOf(2));
    EXPECT_EQ(list.Selected(), "2");
    const std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 1u);
    const GLISTNOTIFY& record = notified[0].record;
    EXPECT_EQ(notified[0].code, CLICKED);
    EXPECT_EQ(record.hdr.hwndFrom, list.GetHwnd());
    EXPECT_EQ(record.hdr.idFrom, UINT_PTR{LIST_ID});
    EXPECT_EQ(record.iItem, 2);
    EXPECT_EQ(record.iSubItem, 1);
    EXPECT_EQ(Numbers(record.x, record.y), Numbers(150, MiddleOf(2)));
    EXPECT_TRUE(record.uKeyFlags == 0 && record.vKey == 0 && !record.pItem);

    Mouse(WM_LBUTTONDOWN, 5, MiddleOf(0));
    EXPECT_EQ(GetCapture(), list.GetHwnd());
    EXPECT_EQ(list.Selected(), "2") << "selection comes with the release";
    Mouse(WM_LBUTTONUP, 5, MiddleOf(3));
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{}) << "released elsewhere";
    EXPECT_EQ(GetCapture(), nullptr);

    Mouse(WM_LBUTTONDOWN, 5, MiddleOf(0));
    ReleaseCapture();
    Mouse(WM_LBUTTONUP, 5, MiddleOf(0));
    EXPECT_EQ(list.Selected(), "2") << "the capture was lost";
}

TEST_F(GListInputTest, ModifierKeysExtendAndInvertTheSelection)
{
    const auto selectedBy = [&](WORD mods, UINT item) {
        HoldKeys(mods);
        ClickItem(item);
        return list.Selected();
    };
    EXPECT_EQ(selectedBy(0, 1), "1");
    EXPECT_EQ(selectedBy(KEYMOD_SHIFT, 3), "1 2 3");
    EXPECT_EQ(selectedBy(KEYMOD_SHIFT, 4), "1 2 3 4") << "from the last item on, and nothing is cleared";
    EXPECT_EQ(selectedBy(KEYMOD_CTRL, 2), "1 3 4");
    EXPECT_EQ(list.lastItem, 2u);
    EXPECT_EQ(host.Take().back().record.uKeyFlags, UINT{LVKF_CONTROL});
    EXPECT_EQ(selectedBy(KEYMOD_CTRL | KEYMOD_SHIFT, 0), "0 1 2 3 4");
    EXPECT_EQ(host.Take().back().record.uKeyFlags, UINT{LVKF_CONTROL | LVKF_SHIFT});

    HoldKeys(KEYMOD_CTRL);
    Click(5, LIST_CY - 5);
    EXPECT_EQ(list.GetSelectedCount(), 5u);
    HoldKeys(0);
    Click(5, LIST_CY - 5);
    EXPECT_EQ(list.GetSelectedCount(), 0u) << "a click on nothing";
    EXPECT_EQ(list.lastItem, END);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
    EXPECT_EQ(selectedBy(KEYMOD_SHIFT, 3), "3 4") << "with no last item: to the end";
}

TEST_F(GListInputTest, ADoubleClickLeavesItsItemSelectedAlone)
{
    list.SetSelected(4, 1);
    HoldKeys(KEYMOD_CTRL);
    Mouse(WM_LBUTTONDBLCLK, 5, MiddleOf(1));
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(list.lastItem, 1u);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{DOUBLE_CLICKED});
    Mouse(WM_LBUTTONDBLCLK, 5, 5);
    Mouse(WM_LBUTTONDBLCLK, 5, LIST_CY - 5);
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
}

TEST_F(GListInputTest, AClickOnAGroupsRowActsOnTheItemOfThatNumber)
{
    list.SetListStyle(GLS_DETAILS);
    AddGroup(0);
    AddGroup(1);
    list.SetItemGroup(4, 1);
    Mouse(WM_MOUSEMOVE, 5, 26 + 4 * 22 + 10);
    EXPECT_EQ(list.GetHotItem(), 1u);
    Click(5, 26 + 4 * 22 + 10);
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(host.Take()[0].record.iSubItem, -1);
}

TEST_F(GListInputTest, AHeaderClickSortsAndReverses)
{
    Click(5, 5);
    EXPECT_EQ(list.Texts(), "item0 item1 item2 item3 item4") << "ascending first";
    Click(5, 5);
    EXPECT_EQ(list.Texts(), "item4 item3 item2 item1 item0");
    for (const int x : {150, 100, 250}) { // the divider and the room behind the columns sort nothing
        Click(x, 5);
        EXPECT_EQ(list.columns[1]->state, LCS_SORTUP) << x;
    }
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
}

TEST_F(GListInputTest, TheDividerSizesItsColumnDownToTheLeastWidth)
{
    Mouse(WM_MOUSEMOVE, 100, 5);
    EXPECT_EQ(SendMessageW(list, WM_SETCURSOR, reinterpret_cast<WPARAM>(list.GetHwnd()), HTCLIENT), 1);
    const auto widthAt = [&](int x, int y = 5) {
        Mouse(WM_MOUSEMOVE, x, y);
        return list.GetColumnCx(0);
    };
    Mouse(WM_LBUTTONDOWN, 100, 5);
    EXPECT_EQ(widthAt(130, 60), 130u);
    EXPECT_EQ(list.columnDraw[1].rect.left, 130);
    EXPECT_EQ(list.contentCx, 230u);
    EXPECT_EQ(widthAt(2), 20u);
    EXPECT_EQ(widthAt(-500), 20u);
    EXPECT_EQ(widthAt(110), 110u);
    Mouse(WM_LBUTTONUP, 110, 5);
    EXPECT_EQ(widthAt(180), 110u) << "no press, no sizing";
    EXPECT_EQ(widthAt(5, MiddleOf(0)), 110u);
    EXPECT_EQ(widthAt(80, MiddleOf(3)), 110u);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{}) << "and no drag";
}

// The elements' numbers stand for columns, whatever stands before them.
TEST_F(GListInputTest, WithCheckBoxesTheHeaderActsOnTheColumnOfTheElementsNumber)
{
    list.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    const int divider = list.columnDraw[1].rect.right;
    Drag(divider, divider + 50);
    EXPECT_EQ(list.GetColumnCx(0), 100u);
    EXPECT_EQ(list.GetColumnCx(1), 150u);
    const int last = list.columnDraw[2].rect.right;
    Drag(last, last - 10);
    EXPECT_EQ(list.GetColumnCx(1), 150u) << "there is no third column";
    Click(last - 40, 5);
    EXPECT_EQ(list.Texts(), "item0 item1 item2 item3 item4");
}

TEST_F(GListInputTest, TheHotItemFollowsThePointerUntilItLeaves)
{
    Mouse(WM_MOUSEMOVE, 150, MiddleOf(1));
    EXPECT_EQ(list.GetHotItem(), 1u);
    EXPECT_EQ(list.GetHotSubItem(), 1);
    Mouse(WM_MOUSEMOVE, 150, LIST_CY - 5);
    EXPECT_EQ(list.GetHotItem(), END);
    Mouse(WM_MOUSEMOVE, 150, MiddleOf(1));
    Send(WM_MOUSELEAVE);
    EXPECT_EQ(list.GetHotItem(), END);
    EXPECT_EQ(list.GetHotSubItem(), 0xFFFF);
}

TEST_F(GListInputTest, ADragBeginsOnceThePointerHasLeftItsPlaceBothWays)
{
    Mouse(WM_LBUTTONDOWN, 50, MiddleOf(1));
    Mouse(WM_MOUSEMOVE, 50, MiddleOf(3)); // down alone
    Mouse(WM_MOUSEMOVE, 90, MiddleOf(3)); // across as well, but over the same item
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
    Mouse(WM_MOUSEMOVE, 90, MiddleOf(4));
    const std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 1u);
    EXPECT_EQ(notified[0].code, DRAG_BEGUN);
    EXPECT_EQ(notified[0].record.iItem, 1);
    Mouse(WM_MOUSEMOVE, 5, MiddleOf(0));
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{}) << "once";
    Mouse(WM_LBUTTONUP, 5, MiddleOf(0));
    EXPECT_FALSE(list.m_dwState & GWS_LISTDRAG);
}

TEST_F(GListInputTest, APressThatLosesItsCaptureIsOver)
{
    Mouse(WM_LBUTTONDOWN, 100, 5);
    ASSERT_EQ(list.hitPress.part, LHP_DIVIDER);
    SetCapture(host);
    ReleaseCapture();
    Mouse(WM_MOUSEMOVE, 5, MiddleOf(0));
    EXPECT_NE(list.hitPress.part, LHP_DIVIDER) << "the pointer would look like sizing everywhere";
    EXPECT_NE(list.hitPress.item, LHI_HEADER) << "the header would go on looking pressed";
}

TEST_F(GListInputTest, TheFirstFocusSelectsTheFirstItem)
{
    list.lastItem = END;
    SetFocus(host);
    SetFocus(list);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(host.TakeCodes(), (std::vector<int>{FOCUS_KILLED, FOCUS_SET}));
    list.ClearSelection();
    SetFocus(host);
    SetFocus(list);
    EXPECT_EQ(list.Selected(), "");
}

TEST_F(GListInputTest, SmallMessagesAreAnswered)
{
    const auto code = [&](WPARAM vk) {
        MSG msg{list, WM_KEYDOWN, vk, 0, 0, {}};
        return SendMessageW(list, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(&msg));
    };
    EXPECT_EQ(code(VK_TAB), DLGC_WANTCHARS | DLGC_WANTARROWS);
    EXPECT_EQ(code(VK_RETURN), DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS);
    EXPECT_EQ(SendMessageW(list, WM_ERASEBKGND, 0, 0), 1);
    for (const UINT uMsg : std::initializer_list<UINT>{WM_RBUTTONDOWN, WM_RBUTTONUP}) {
        SendMessageW(list, uMsg, 0, MAKELPARAM(5, RowY(0)));
    }
    EXPECT_EQ(list.Selected(), "") << "the right button does nothing";
    MSG released{list, WM_KEYUP, VK_TAB, 0, 0, {}};
    EXPECT_EQ(SendMessageW(list, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(&released)),
              DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS);
    for (const UINT uMsg : std::initializer_list<UINT>{WM_CONTEXTMENU, WM_MOUSEHWHEEL, WM_DEADCHAR, WM_KEYUP})
    {
        EXPECT_EQ(SendMessageW(list, uMsg, 'A', 0), 0) << uMsg;
    }
    Mouse(WM_LBUTTONDOWN, 5, MiddleOf(0));
    EXPECT_TRUE(list.m_dwState & GWS_PRESSED);
    EnableWindow(list, FALSE);
    EXPECT_FALSE(list.m_dwState & GWS_PRESSED);
    EnableWindow(list, TRUE);
}

// Whatever the parent does in a notification: nothing of the list is touched any more.
TEST_F(GListInputTest, TheParentMayDestroyTheListInEveryNotification)
{
    const std::pair<int, std::function<void()>> cases[] = {
        {CLICKED, [&] { ClickItem(1); }},
        {DOUBLE_CLICKED, [&] { Mouse(WM_LBUTTONDBLCLK, 5, MiddleOf(1)); }},
        {KEY_PRESSED, [&] { Send(WM_KEYDOWN, VK_DOWN); }},
        {FOCUS_KILLED, [&] { SetFocus(host); }},
        {FOCUS_SET,
         [&] {
             SetFocus(host);
             Mouse(WM_LBUTTONDOWN, 5, MiddleOf(1));
         }},
        {DRAG_BEGUN,
         [&] {
             Mouse(WM_LBUTTONDOWN, 5, MiddleOf(0));
             Mouse(WM_MOUSEMOVE, 90, MiddleOf(4));
         }},
        {EDIT_LEFT,
         [&] {
             list.BeginEdit(0, nullptr);
             SetFocus(host);
         }},
    };
    for (const auto& [code, act] : cases) {
        if (!IsWindow(list)) {
            MakeFilledList(2, 5, GLS_DETAILS | GLS_HEADER);
        }
        SetFocus(list);
        bool destroyed = false;
        host.onNotify = [&, wanted = code](const Notified& notified) {
            if (notified.code == wanted) {
                destroyed = true;
                DestroyWindow(list);
            }
        };
        act();
        host.onNotify = nullptr;
        EXPECT_TRUE(destroyed) << code;
        EXPECT_FALSE(IsWindow(list)) << code;
    }
}

// The same with the object itself gone.
TEST_F(GListInputTest, TheParentMayDeleteTheListInAClick)
{
    auto own = std::make_unique<ProbeList>();
    const HWND hwnd =
        own->Create(0, 0, LIST_CX, LIST_CY, host, LIST_ID, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    own->InsertColumn(0, 0, 0, 100, 20, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    own->InsertItem(0, 0, nullptr, 0, L"a", 0);
    host.onNotify = [&](const Notified&) {
        DestroyWindow(hwnd);
        own = nullptr;
    };
    SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
    SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(own, nullptr);
}

} // namespace
