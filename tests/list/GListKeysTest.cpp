#include "ListFixture.h"

namespace {

using namespace test;

constexpr WORD CTRL = KEYMOD_CTRL;
constexpr WORD SHIFT = KEYMOD_SHIFT;

class GListKeysTest : public ListFixture
{
protected:
    void Fill(UINT count, UINT style = GLS_DETAILS)
    {
        MakeFilledList(2, count, style);
        SetFocus(list);
        Forget();
    }
    std::string SelectedBy(UINT vk, WORD mods = 0)
    {
        Key(vk, mods);
        return list.Selected();
    }
    // No cursor, no anchor, nothing selected.
    void Forget()
    {
        list.ClearSelection();
        list.cursorItem = list.lastItem = list.shiftAnchor = list.hitHot.item = END;
        list.keyMods = 0;
        host.Take();
    }
    void PutCursor(UINT item, UINT anchor = END)
    {
        Forget();
        list.cursorItem = item;
        list.shiftAnchor = anchor;
        list.SetSelected(item, 1);
    }
};

struct KeyCase
{
    UINT vk;
    WORD mods;
    UINT cursor, anchor; // before
    const char* selected;
    UINT cursorAfter, anchorAfter, hotAfter;
};

// In a list of eight of which the cursor's item is selected.
TEST_F(GListKeysTest, StepsAndEdgesMoveAndSelectByTheModifiers)
{
    Fill(8);
    const KeyCase cases[] = {
        {VK_DOWN, 0, 3, 3, "4", 4, END, END},
        {VK_UP, 0, 3, 3, "2", 2, END, END},
        {VK_DOWN, CTRL, 3, 3, "3", 4, 3, 4},
        {VK_DOWN, SHIFT, 3, 3, "3 4", 4, 3, 4},
        {VK_UP, SHIFT, 3, 3, "2 3", 2, 3, 2},
        {VK_UP, SHIFT, 5, 3, "", 4, 3, 4}, // toward the anchor: both are unselected
        {VK_DOWN, SHIFT, 1, 3, "", 2, 3, 2},
        {VK_DOWN, SHIFT, 2, 3, "", 3, 3, 3},      // onto the anchor
        {VK_UP, SHIFT, 4, END, "3 4", 3, END, 3}, // an anchor of -1 is the largest
        {VK_DOWN, CTRL | SHIFT, 3, 6, "3 4", 4, 6, END},
        {VK_UP, CTRL | SHIFT, 1, 6, "0 1", 0, 6, END}, // down to item 0, and no further
        {VK_UP, 0, 0, 0, "0", 0, 0, END},
        {VK_DOWN, 0, 7, 7, "7", 7, 7, END},
        {VK_UP, 0, END, END, "", END, END, END},
        {VK_DOWN, 0, END, END, "1", 1, END, END}, // the first step lands on the second item
        {VK_DOWN, SHIFT, END, END, "0 1", 1, 0, 1},
        {VK_DOWN, CTRL | SHIFT, END, END, "0 1", 1, 0, 1},
        {VK_DOWN, CTRL, END, END, "", 1, END, 1},
        {VK_HOME, 0, 3, 3, "0", 0, END, END},
        {VK_END, 0, 3, 3, "7", 7, END, END},
        {VK_HOME, CTRL, 3, 3, "3", 0, 3, 0},
        {VK_END, SHIFT, 3, 5, "5 6 7", 7, 5, 7},
        {VK_HOME, CTRL | SHIFT, 5, 2, "0 1 2 5", 0, 2, 0},
    };
    for (const KeyCase& c : cases) {
        PutCursor(c.cursor, c.anchor);
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        EXPECT_EQ(SelectedBy(c.vk, c.mods), c.selected);
        EXPECT_EQ(list.cursorItem, c.cursorAfter);
        EXPECT_EQ(list.shiftAnchor, c.anchorAfter);
        EXPECT_EQ(list.hitHot.item, c.hotAfter);
        EXPECT_EQ(list.lastItem, list.cursorItem);
        EXPECT_EQ(host.TakeCodes(), std::vector<int>{KEY_PRESSED});
    }
}

TEST_F(GListKeysTest, EveryKeyIsSafeInAListOfNoneAndOfOne)
{
    MakeList();
    AddColumns(2);
    SetFocus(list);
    const UINT keys[] = {VK_UP,   VK_DOWN, VK_LEFT,  VK_RIGHT, VK_PRIOR, VK_NEXT,
                         VK_HOME, VK_END,  VK_SPACE, VK_SHIFT, 'A',      VK_RETURN};
    for (const UINT style : {GLS_DETAILS, GLS_ICONS}) {
        list.SetListStyle(style);
        for (const UINT vk : keys) {
            for (const WORD mods : {WORD{0}, CTRL, SHIFT, WORD{CTRL | SHIFT}}) {
                Forget();
                Key(vk, mods);
                EXPECT_EQ(list.cursorItem, END) << vk;
                list.cursorItem = 7; // of an item that is gone
                Key(vk, mods);
            }
        }
    }
    list.SetListStyle(GLS_DETAILS);
    AddItems(1);
    for (const UINT vk : std::initializer_list<UINT>{VK_DOWN, VK_NEXT, VK_PRIOR, VK_HOME, VK_END}) {
        for (const WORD mods : {WORD{0}, SHIFT, WORD{CTRL | SHIFT}}) {
            Forget();
            EXPECT_EQ(SelectedBy(vk, mods), "0") << vk << " with " << mods;
            EXPECT_EQ(list.cursorItem, 0u);
        }
    }
}

TEST_F(GListKeysTest, PagesGoByTheWindowsHeight)
{
    Fill(50);
    const UINT page = list.m_siV.nPage;
    // Up and down stop at the row that is a page away, less a row.
    PutCursor(0);
    Key(VK_NEXT);
    const UINT down = list.cursorItem;
    EXPECT_EQ(down, (page - 22 + 21) / 22 - 1) << "of " << page;
    EXPECT_EQ(list.Selected(), std::to_string(down));
    Key(VK_NEXT, SHIFT);
    EXPECT_EQ(list.cursorItem, 2 * down);
    PutCursor(49, 45);
    Key(VK_PRIOR, SHIFT);
    EXPECT_EQ(list.cursorItem, 49 - down);
    EXPECT_EQ(list.GetFirstSelectedItemIndex(), 49 - down);
    EXPECT_EQ(list.GetSelected(45), 1);
    EXPECT_EQ(list.GetSelected(46), 0) << "from the anchor to the cursor";
    PutCursor(2, 4);
    Key(VK_PRIOR, CTRL);
    EXPECT_EQ(list.cursorItem, 0u);
    EXPECT_EQ(list.hitHot.item, 0u);
    EXPECT_EQ(list.Selected(), "2");
    PutCursor(48);
    Key(VK_NEXT);
    EXPECT_EQ(list.cursorItem, 49u);
}

TEST_F(GListKeysTest, TheCursorComesIntoView)
{
    Fill(50, GLS_DETAILS | GLS_HEADER);
    const int page = static_cast<int>(list.m_siV.nPage);
    Key(VK_END);
    EXPECT_EQ(list.m_siV.nPos, 35 + 50 * 22 - page);
    Key(VK_UP);
    EXPECT_EQ(list.m_siV.nPos, 35 + 50 * 22 - page) << "still in view";
    PutCursor(11);
    Key(VK_UP);
    EXPECT_EQ(list.m_siV.nPos, 10 * 22 + 10) << "the gap below the header counts";
    Key(VK_HOME);
    EXPECT_EQ(list.m_siV.nPos, 0);
    list.items[5]->row = 40;
    PutCursor(4);
    Key(VK_DOWN);
    EXPECT_EQ(list.m_siV.nPos, 35 + 41 * 22 - page) << "the keyboard goes by the row of the last placing";
}

TEST_F(GListKeysTest, IconsStepSidewaysAndStayUpAndDown)
{
    Fill(5, GLS_ICONS);
    PutCursor(2);
    EXPECT_EQ(SelectedBy(VK_RIGHT), "3");
    EXPECT_EQ(SelectedBy(VK_LEFT), "2");
    PutCursor(2);
    EXPECT_EQ(SelectedBy(VK_DOWN), "2");
    EXPECT_EQ(list.cursorItem, 2u);
    Key(VK_UP);
    EXPECT_EQ(list.cursorItem, 2u);

    list.SetListStyle(GLS_DETAILS);
    PutCursor(2);
    Key(VK_RIGHT);
    EXPECT_EQ(list.cursorItem, 2u);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{}) << "not even a notification";
}

TEST_F(GListKeysTest, SpaceInvertsOnlyOnceANavigationKeyHasSeenCtrl)
{
    Fill(4);
    EXPECT_EQ(SelectedBy(VK_SPACE), "0") << "without a cursor it goes to the first item";
    PutCursor(1);
    EXPECT_EQ(SelectedBy(VK_SPACE, CTRL), "1");
    Key(VK_DOWN, CTRL);
    EXPECT_EQ(SelectedBy(VK_SPACE, CTRL), "1 2");
    EXPECT_EQ(SelectedBy(VK_SPACE), "1") << "until the key is let go";
    Send(WM_KEYUP, VK_CONTROL);
    EXPECT_EQ(SelectedBy(VK_SPACE), "1");

    list.keyMods = SHIFT | CTRL;
    Send(WM_CHAR, 16);
    EXPECT_EQ(list.keyMods, CTRL);
    list.keyMods = SHIFT;
    Send(WM_KEYUP, VK_SHIFT);
    EXPECT_EQ(list.keyMods, 0);
}

TEST_F(GListKeysTest, CtrlASelectsAllAndLeavesNoCursor)
{
    Fill(3);
    PutCursor(1);
    EXPECT_EQ(SelectedBy('A'), "1");
    EXPECT_EQ(SelectedBy('A', CTRL), "0 1 2");
    EXPECT_EQ(list.cursorItem, END);
    EXPECT_EQ(list.lastItem, END);
}

TEST_F(GListKeysTest, AKeyIsToldOnceItIsHandled)
{
    Fill(3);
    ClickItem(1);
    host.Take();
    host.onNotify = [&](const Notified&) { EXPECT_EQ(list.Selected(), "2"); };
    Send(WM_KEYDOWN, VK_DOWN, 0x01500001);
    const std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 1u);
    EXPECT_EQ(notified[0].record.vKey, UINT{VK_DOWN});
    EXPECT_EQ(notified[0].record.uKeyFlags, 0x0150u);
    EXPECT_EQ(notified[0].record.iItem, 0);
    host.onNotify = nullptr;
    Key(VK_SHIFT);
    EXPECT_EQ(list.shiftAnchor, 2u);
}

} // namespace
