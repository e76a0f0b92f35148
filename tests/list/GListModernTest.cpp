// What lists made in Modern tell, and where their cursor is.

#include "ModernListFixture.h"

#include "../support/AllowMisuse.h"
#include "../support/Numbers.h"

#include <memory>

namespace {

using namespace test;

constexpr int HEADER_AREA = 35;

class GListModernTest : public ModernListFixture
{
protected:
    // Three rows below a header.
    HWND MakeOwn(ProbeList& own)
    {
        const HWND hwnd = own.Create(0, 0, LIST_CX, LIST_CY, host, LIST_ID, GLS_DETAILS | GLS_HEADER, 0,
                                     WS_CHILD | WS_VISIBLE);
        own.InsertColumn(0, 0, 0, 100, 20, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
        for (UINT i = 0; i < 3; ++i) {
            own.InsertItem(i, 0, nullptr, 0, L"item", 0);
        }
        SetFocus(hwnd);
        return hwnd;
    }
};

// --- What is told

TEST_F(GListModernTest, EachChangeOfTheSelectionIsToldOnce)
{
    Fill(6);
    EXPECT_EQ(ToldBy([&] { ClickItem(2); }), "-101 2, -2 2");
    EXPECT_EQ(ToldBy([&] { ClickItem(2); }), "-2 2") << "nothing has changed";
    EXPECT_EQ(ToldBy([&] { ClickItem(3); }), "-101 -1, -2 3") << "two items";
    EXPECT_EQ(ToldBy([&] { ClickWith(KEYMOD_CTRL, 5); }), "-101 5, -2 5");
    EXPECT_EQ(ToldBy([&] { Mouse(WM_LBUTTONDBLCLK, 5, RowY(3)); }), "-101 5, -3 3");
    EXPECT_EQ(ToldBy([&] { Key(VK_DOWN); }), "-101 -1");
    EXPECT_EQ(ToldBy([&] { Key(VK_DOWN, KEYMOD_SHIFT); }), "-101 5");
    EXPECT_EQ(ToldBy([&] { Key(VK_DOWN, KEYMOD_SHIFT); }), "") << "the end";
    EXPECT_EQ(ToldBy([&] { Key('A', KEYMOD_CTRL); }), "-101 -1");

    EXPECT_EQ(ToldBy([&] { list.ClearSelection(); }), "-101 -1");
    EXPECT_EQ(ToldBy([&] { list.ClearSelection(); }), "");
    EXPECT_EQ(ToldBy([&] { list.SetSelected(4, 1); }), "-101 4");
    EXPECT_EQ(ToldBy([&] { list.SetSelected(4, 1); }), "");
    EXPECT_EQ(ToldBy([&] { list.SetNextSelectedItemIndex(1); }), "-101 1");
    EXPECT_EQ(ToldBy([&] { list.SetFirstSelectedItemIndex(4); }), "-101 1") << "the other one went";
    EXPECT_EQ(ToldBy([&] { list.SetFirstSelectedItemIndex(4); }), "");
    EXPECT_EQ(ToldBy([&] { list.SetFirstSelectedItemIndex(0); }), "-101 -1");
}

TEST_F(GListModernTest, ABulkFillTellsNothingOfTheSelection)
{
    MakeList();
    AddColumns(1);
    host.Take();
    list.BulkInsertOn();
    AddItems(3);
    list.SetSelected(1, 1);
    list.BulkInsertOff();
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(ToldBy([&] { list.SetSelected(2, 1); }), "-101 2") << "and leaves nothing to tell";
}

TEST_F(GListModernTest, AnItemIsToldBeforeItGoes)
{
    Fill(5);
    for (UINT i = 0; i < 5; ++i) {
        list.SetItemCustomData(i, &list.items[i]);
    }
    UINT last = 4;
    host.onNotify = [&](const Notified& notified) {
        if (notified.code == ITEM_DELETED) {
            EXPECT_TRUE(list.GetItemCustomData(static_cast<UINT>(notified.record.iItem)));
            EXPECT_TRUE(list.GetItemText(last, 0)) << "all are there still";
        }
    };
    EXPECT_EQ(ToldBy([&] { list.RemoveItem(3); }), "-103 3");
    last = 3;
    list.SetSelected(0, 1);
    EXPECT_EQ(ToldBy([&] { list.RemoveItem(0); }), "-103 0, -101 -1");
    last = 2;
    list.SetSelected(1, 1);
    list.SetSelected(2, 1);
    EXPECT_EQ(ToldBy([&] { list.RemoveAllItems(); }), "-103 0, -103 1, -103 2, -101 -1");
    EXPECT_EQ(ToldBy([&] { list.RemoveAllItems(); }), "");
    AddItem("item", 0, this);
    AddItem("item", 0, this);
    last = 0;
    list.SetSelected(1, 1);
    EXPECT_EQ(ToldBy([&] { DestroyWindow(list); }), "-8 0, -103 0, -103 1") << "by the window's end too";
    host.onNotify = nullptr;
}

TEST_F(GListModernTest, ItemsThatASortDropsAreTold)
{
    Fill(4);
    AddGroup(7);
    for (const UINT i : {0U, 1U, 3U}) {
        list.SetItemGroup(i, 7);
    }
    list.SetSelected(2, 1);
    EXPECT_EQ(ToldBy([&] { list.Sort(0, false); }), "-103 2, -101 -1");
    EXPECT_EQ(list.Texts(), "item3 item1 item0");
}

// What the parent does while an item goes: the item goes once, and those that it removes besides.
TEST_F(GListModernTest, TheParentMayChangeTheItemsWhileTheyGo)
{
    Fill(5);
    const auto whileGoing = [&](std::function<void(int)> act) {
        host.onNotify = [&, act](const Notified& notified) {
            if (notified.code == ITEM_DELETED) {
                act(notified.record.iItem);
            }
        };
    };
    whileGoing([&](int item) { list.RemoveItem(static_cast<UINT>(item)); });
    EXPECT_EQ(ToldBy([&] { list.RemoveItem(2); }), "-103 2");
    EXPECT_EQ(list.Texts(), "item0 item1 item3 item4");

    whileGoing([&](int) {
        if (list.GetItemCount() == 4) {
            list.RemoveItem(0);
        }
    });
    EXPECT_EQ(ToldBy([&] { list.RemoveItem(2); }), "-103 2, -103 0");
    EXPECT_EQ(list.Texts(), "item1 item4");

    bool fInserted = false;
    whileGoing([&](int) {
        list.RemoveAllItems();
        if (!std::exchange(fInserted, true)) {
            list.InsertItem(0, 0, nullptr, 0, L"new", 0);
        }
    });
    EXPECT_EQ(ToldBy([&] { list.RemoveAllItems(); }), "-103 0, -103 2, -103 0");
    EXPECT_EQ(list.Texts(), "") << "all of them, and what was put in before the second one's end";
    host.onNotify = nullptr;
}

TEST_F(GListModernTest, AHeaderClickAsksBeforeItSorts)
{
    Fill(3, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    const int first = list.columnDraw[1].rect.left + 20;
    Click(first, 5);
    std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 1U);
    EXPECT_EQ(notified[0].code, COLUMN_CLICKED);
    EXPECT_EQ(notified[0].record.iSubItem, 0) << "the column, which is not the element's number";
    Click(first, 5);
    EXPECT_EQ(list.Texts(), "item2 item1 item0");
    host.answer = 1;
    Click(first, 5);
    EXPECT_EQ(list.Texts(), "item2 item1 item0");
    host.answer = 0;
    host.Take();
    Click(5, 5);
    EXPECT_EQ(Told(), "") << "above the check boxes there is no column";
    host.onNotify = [&](const Notified&) { list.RemoveAllColumns(); };
    Click(first, 5);
    host.onNotify = nullptr;
    EXPECT_EQ(list.GetColumnCount(), 0U);
}

// Whatever the parent does in a notification: nothing of the list is touched any more.
TEST_F(GListModernTest, TheParentMayDestroyTheListInEveryNotification)
{
    using Act = std::function<void(ProbeList&)>;
    const auto mouse = [](std::initializer_list<UINT> messages, int x, int y) {
        const std::vector<UINT> sent = messages;
        return [sent, x, y](ProbeList& own) {
            const HWND hwnd = own;
            for (const UINT uMsg : sent) {
                SendMessageW(hwnd, uMsg, 0, MAKELPARAM(x, y));
            }
        };
    };
    const auto key = [](UINT vk) { return [vk](ProbeList& own) { SendMessageW(own, WM_KEYDOWN, vk, 1); }; };
    const int row = HEADER_AREA + 30;
    const std::pair<int, Act> cases[] = {
        {ITEM_CHANGED, mouse({WM_LBUTTONDOWN, WM_LBUTTONUP}, 5, row)},
        {ITEM_CHANGED, mouse({WM_LBUTTONDBLCLK}, 5, row)},
        {ITEM_CHANGED, mouse({WM_RBUTTONDOWN}, 5, row)},
        {ITEM_CHANGED, key(VK_END)},
        {ITEM_CHANGED,
         [&](ProbeList& own) {
             mouse({WM_LBUTTONDOWN}, 5, 180)(own);
             mouse({WM_MOUSEMOVE}, 50, row)(own);
         }},
        {ITEM_CHANGED, [](ProbeList& own) { own.SetFirstSelectedItemIndex(1); }},
        {ITEM_CHANGED,
         [](ProbeList& own) {
             own.items[0]->state |= LIS_SELECTED;
             own.RemoveItem(0);
         }},
        {ITEM_DELETED, [](ProbeList& own) { own.RemoveItem(1); }},
        {ITEM_DELETED, [](ProbeList& own) { own.RemoveAllItems(); }},
        {ITEM_DELETED, [](ProbeList& own) { DestroyWindow(own); }},
        {ITEM_DELETED,
         [](ProbeList& own) {
             own.InsertGroup(0, L"group", 0, 5);
             own.Sort(0, true);
         }},
        {COLUMN_CLICKED, mouse({WM_LBUTTONDOWN, WM_LBUTTONUP}, 5, 5)},
        {RETURN_PRESSED, key(VK_RETURN)},
        {RIGHT_CLICKED, mouse({WM_RBUTTONDOWN, WM_RBUTTONUP}, 5, row)},
        {RIGHT_DOUBLE_CLICKED, mouse({WM_RBUTTONDBLCLK}, 5, row)},
    };
    for (const auto& [code, act] : cases) {
        for (const bool fObjectToo : {false, true}) {
            SCOPED_TRACE("case " + std::to_string(&code - &cases[0].first));
            auto own = std::make_unique<ProbeList>();
            const HWND hwnd = MakeOwn(*own);
            bool fGone = false;
            host.onNotify = [&, wanted = code](const Notified& notified) {
                if (notified.code == wanted && !fGone) {
                    fGone = true;
                    DestroyWindow(hwnd);
                    own.reset(fObjectToo ? nullptr : own.release());
                }
            };
            act(*own);
            host.onNotify = nullptr;
            EXPECT_TRUE(fGone);
            EXPECT_FALSE(IsWindow(hwnd));
        }
    }
}

// --- The cursor

TEST_F(GListModernTest, CursorAnchorAndHotItemGoWithTheirItems)
{
    Fill(6);
    ClickItem(2);
    Key(VK_DOWN, KEYMOD_SHIFT);
    Mouse(WM_MOUSEMOVE, 5, RowY(4));
    const auto places = [&] {
        return Numbers(static_cast<int>(list.GetCursorItem()), static_cast<int>(list.shiftAnchor)) + "," +
               std::to_string(static_cast<int>(list.GetHotItem()));
    };
    EXPECT_EQ(places(), "3,2,4");
    list.InsertItem(3, 0, nullptr, 0, L"new", 0);
    EXPECT_EQ(places(), "4,2,5");
    list.InsertItem(END, 0, nullptr, 0, L"new", 0);
    EXPECT_EQ(places(), "4,2,5");
    list.RemoveItem(0);
    EXPECT_EQ(places(), "3,1,4");
    list.Sort(0, false);
    EXPECT_EQ(list.Texts(), "new new item5 item4 item3 item2 item1");
    EXPECT_EQ(places(), "4,5,3");
    list.RemoveItem(4);
    EXPECT_EQ(places(), "4,4,3") << "to the item that follows";
    list.RemoveItem(3);
    EXPECT_EQ(places(), "3,3,-1");
    list.SetCursorItem(4);
    list.RemoveItem(4);
    EXPECT_EQ(list.GetCursorItem(), 3U) << "to the last";
    list.RemoveAllItems();
    EXPECT_EQ(list.GetCursorItem(), END);
}

TEST_F(GListModernTest, TheCursorIsSetAndAsked)
{
    Fill(3);
    list.SetCursorItem(2);
    EXPECT_EQ(list.GetCursorItem(), 2U);
    EXPECT_EQ(Told(), "");
    {
        const AllowMisuse allowed;
        list.SetCursorItem(3);
        list.EnsureVisible(3);
    }
    EXPECT_EQ(list.GetCursorItem(), 2U);
    list.SetSelected(1, 1);
    EXPECT_EQ(list.GetCursorItem(), 2U) << "a selected item is no cursor";
    list.SetFirstSelectedItemIndex(0);
    EXPECT_EQ(list.GetCursorItem(), 0U);
    list.SetCursorItem(END);
    EXPECT_EQ(list.GetCursorItem(), END);
}

TEST_F(GListModernTest, TheFirstFocusPutsTheCursorAndSelectsNothing)
{
    Fill(3);
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.GetCursorItem(), 0U);
    EXPECT_EQ(SelectedBy(VK_DOWN), "1");
    SetFocus(host);
    list.SetCursorItem(END);
    list.SetFirstSelectedItemIndex(2);
    list.SetCursorItem(END);
    SetFocus(list);
    EXPECT_EQ(list.GetCursorItem(), 2U);
}

TEST_F(GListModernTest, EnsureVisibleShowsTheWholeRow)
{
    Fill(60, GLS_DETAILS | GLS_HEADER);
    RECT rcClient{};
    GetClientRect(list, &rcClient);
    const auto shown = [&](UINT item) {
        RECT rc{};
        list.GetItemRect(&rc, item, 0);
        OffsetRect(&rc, 0, -list.m_siV.nPos);
        return rc.top >= static_cast<int>(list.headerArea) && rc.bottom <= rcClient.bottom;
    };
    for (const UINT item : {30U, 31U, 59U, 0U, 17U}) {
        list.EnsureVisible(item);
        EXPECT_TRUE(shown(item)) << item;
        const int position = list.m_siV.nPos;
        list.EnsureVisible(item);
        EXPECT_EQ(list.m_siV.nPos, position);
    }
}

// --- A second window

TEST_F(GListModernTest, ASecondWindowHasTheColumnsAndNoCursor)
{
    Fill(3);
    ClickItem(1);
    const HFONT font = list.GetLabelTextFont();
    DestroyWindow(list);
    MakeList();
    EXPECT_EQ(list.GetColumnCount(), 2U);
    EXPECT_EQ(list.GetLabelTextFont(), font);
    EXPECT_EQ(list.GetItemCount(), 0U);
    EXPECT_EQ(list.GetCursorItem(), END);
    AddItems(2);
    SetFocus(list);
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.GetCursorItem(), 0U);
}

} // namespace
