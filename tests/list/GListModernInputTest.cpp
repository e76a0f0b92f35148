// Keys and mouse of lists made in Modern.

#include "ModernListFixture.h"

#include "../support/Interception.h"
#include "../support/Numbers.h"

namespace {

using namespace test;

constexpr WORD CTRL = KEYMOD_CTRL;
constexpr WORD SHIFT = KEYMOD_SHIFT;

class GListModernInputTest : public ModernListFixture
{};

// --- Keys

struct Step
{
    UINT vk;
    WORD mods;
    UINT cursor, anchor; // before; the cursor's item is selected
    const char* selected;
    UINT cursorAfter;
};

TEST_F(GListModernInputTest, KeysMoveTheCursorAndSelectByTheModifiers)
{
    Fill(8);
    const Step steps[] = {
        {VK_DOWN, 0, 3, 3, "4", 4},
        {VK_UP, 0, 3, 3, "2", 2},
        {VK_DOWN, CTRL, 3, 3, "3", 4},
        {VK_DOWN, SHIFT, 3, 3, "3 4", 4},
        {VK_DOWN, SHIFT, 3, END, "3 4", 4}, // with no anchor from the cursor
        {VK_UP, SHIFT, 5, 3, "3 4", 4},
        {VK_DOWN, CTRL | SHIFT, 3, 1, "1 2 3 4", 4},
        {VK_UP, 0, 0, 0, "0", 0},
        {VK_DOWN, 0, 7, 7, "7", 7},
        {VK_DOWN, 0, END, END, "0", 0}, // the first step leads to the first item
        {VK_UP, 0, END, END, "0", 0},
        {VK_END, 0, END, END, "7", 7},
        {VK_HOME, SHIFT, 3, 5, "0 1 2 3 4 5", 0},
        {VK_END, CTRL, 3, 3, "3", 7},
        {VK_NEXT, SHIFT, 6, 6, "6 7", 7},
        {VK_SPACE, 0, 3, 3, "3", 3},
        {VK_SPACE, CTRL, 3, 3, "", 3},
        {VK_SPACE, SHIFT, 3, 5, "3 4 5", 3},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(&step - steps);
        list.ClearSelection();
        list.SetCursorItem(step.cursor);
        list.shiftAnchor = step.anchor;
        if (step.cursor != END) {
            list.SetSelected(step.cursor, 1);
        }
        host.Take();
        EXPECT_EQ(SelectedBy(step.vk, step.mods), step.selected);
        EXPECT_EQ(list.GetCursorItem(), step.cursorAfter);
        EXPECT_EQ(host.TakeCodes().back(), KEY_PRESSED);
    }
}

TEST_F(GListModernInputTest, AStepBackUnselectsOnlyWhatItLeaves)
{
    Fill(10);
    list.SetSelected(9, 1);
    ClickWith(CTRL, 3);
    Key(VK_DOWN, SHIFT);
    Key(VK_DOWN, SHIFT);
    EXPECT_EQ(list.Selected(), "3 4 5 9");
    EXPECT_EQ(SelectedBy(VK_UP, SHIFT), "3 4 9");
    Key(VK_UP, SHIFT);
    EXPECT_EQ(SelectedBy(VK_UP, SHIFT), "2 3 9") << "over the anchor";
}

TEST_F(GListModernInputTest, TheKeyboardStartsFromWhatIsSelectedAndFollowsTheRows)
{
    Fill(40);
    list.SetCursorItem(END);
    list.SetSelected(20, 1);
    EXPECT_EQ(SelectedBy(VK_DOWN), "21");
    list.SetCursorItem(END);
    list.shiftAnchor = END;
    EXPECT_EQ(SelectedBy(VK_DOWN, SHIFT), "21 22") << "from the selected one";
    list.ClearSelection();
    list.SetFirstSelectedItemIndex(21);
    list.Sort(0, false);
    const UINT cursor = list.GetFirstSelectedItemIndex();
    EXPECT_EQ(SelectedBy(VK_DOWN), std::to_string(cursor + 1));
    const int rows = static_cast<int>(list.m_siV.nPage) / 22;
    list.SetFirstSelectedItemIndex(0);
    Key(VK_NEXT);
    EXPECT_EQ(static_cast<int>(list.GetCursorItem()), rows - 1);
    Key(VK_NEXT);
    EXPECT_EQ(static_cast<int>(list.GetCursorItem()), 2 * (rows - 1));
    Key(VK_PRIOR);
    EXPECT_EQ(static_cast<int>(list.GetCursorItem()), rows - 1);
}

TEST_F(GListModernInputTest, EveryKeyIsSafeInAListOfNoneAndOfOne)
{
    MakeList();
    AddColumns(2);
    SetFocus(list);
    for (const UINT count : {0U, 1U}) {
        AddItems(count);
        for (const UINT style : {GLS_DETAILS, GLS_TILES, GLS_ICONS}) {
            list.SetListStyle(style);
            for (UINT vk = VK_SPACE; vk <= VK_DOWN; ++vk) {
                for (const WORD mods : {WORD{0}, CTRL, SHIFT, WORD{CTRL | SHIFT}}) {
                    list.SetCursorItem(END);
                    Key(vk, mods);
                    const bool fSideways = (vk == VK_LEFT || vk == VK_RIGHT) && style != GLS_ICONS;
                    EXPECT_EQ(list.GetCursorItem(), count && !fSideways ? 0U : END) << vk;
                }
            }
        }
    }
}

TEST_F(GListModernInputTest, EnterIsTold)
{
    Fill(3);
    ClickItem(1);
    host.Take();
    Key(VK_RETURN);
    const std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 2U);
    EXPECT_EQ(notified[0].code, RETURN_PRESSED);
    EXPECT_EQ(notified[0].record.iItem, 1);
    EXPECT_EQ(notified[1].code, KEY_PRESSED);
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(ToldBy([&] { Send(WM_KEYDOWN, VK_RETURN, LPARAM{KF_REPEAT} << 16 | 1); }), "") << "held";
}

// --- The mouse

TEST_F(GListModernInputTest, AShiftClickSelectsFromTheAnchor)
{
    Fill(6);
    ClickWith(0, 1);
    ClickWith(SHIFT, 4);
    EXPECT_EQ(list.Selected(), "1 2 3 4");
    ClickWith(SHIFT, 2);
    EXPECT_EQ(list.Selected(), "1 2");
    ClickWith(CTRL, 5);
    ClickWith(CTRL | SHIFT, 4);
    EXPECT_EQ(list.Selected(), "1 2 4 5");
    EXPECT_EQ(SelectedBy(VK_UP), "3") << "the cursor is where the click was";
}

TEST_F(GListModernInputTest, ARightClickSelectsAndTellsAndThenAsksForAMenu)
{
    Fill(4);
    list.SetSelected(1, 1);
    list.SetSelected(2, 1);
    host.Take();
    {
        const Interception menu(host, WM_CONTEXTMENU, [] {});
        EXPECT_EQ(ToldBy([&] { RightClick(5, RowY(1)); }), "-5 1");
        EXPECT_TRUE(menu.Happened());
    }
    EXPECT_EQ(list.Selected(), "1 2") << "it was selected already";
    {
        const Interception menu(host, WM_CONTEXTMENU, [] {});
        host.answer = 1;
        EXPECT_EQ(ToldBy([&] { RightClick(150, RowY(3)); }), "-101 -1, -5 3");
        host.answer = 0;
        EXPECT_FALSE(menu.Happened()) << "the parent has seen to it";
    }
    EXPECT_EQ(list.Selected(), "3");
    EXPECT_EQ(list.GetCursorItem(), 3U);
    Mouse(WM_RBUTTONDOWN, 150, RowY(0));
    EXPECT_EQ(list.Selected(), "0") << "with the press";
    Mouse(WM_RBUTTONUP, 150, RowY(0));
    const Notified told = host.Take().back();
    EXPECT_EQ(told.record.iSubItem, 1);
    EXPECT_EQ(Numbers(told.record.x, told.record.y), Numbers(150, RowY(0)));
    EXPECT_EQ(ToldBy([&] { Mouse(WM_RBUTTONDBLCLK, 5, RowY(2)); }), "-101 -1, -6 2");

    HoldKeys(CTRL);
    EXPECT_EQ(ToldBy([&] { RightClick(5, RowY(0)); }), "-101 0, -5 0") << "with Ctrl the others stay";
    list.SetSelected(0, 0);
    EXPECT_EQ(ToldBy([&] { RightClick(5, LIST_CY - 25); }), "-5 -1") << "with Ctrl the selection stays";
    HoldKeys(0);
    EXPECT_EQ(ToldBy([&] { RightClick(5, LIST_CY - 25); }), "-101 2, -5 -1");
    list.SetListStyle(GLS_DETAILS | GLS_HEADER);
    list.SetCursorItem(1);
    RightClick(5, 5);
    EXPECT_EQ(list.GetCursorItem(), 1U) << "the header is no item";
    EXPECT_EQ(SendMessageW(list, WM_KEYDOWN, VK_LEFT, 1), 0);
}

TEST_F(GListModernInputTest, ADragFromEmptyRoomSelectsWhatItsRectangleTouches)
{
    Fill(5, GLS_DETAILS | GLS_HEADER);
    const int below = RowY(4) + 25;
    EXPECT_EQ(ToldBy([&] {
                  Drag({150, below}, {20, RowY(3)});
              }),
              "-101 4, -101 3")
        << "once a move, and no click";
    EXPECT_EQ(list.Selected(), "3 4");
    list.SetSelected(0, 1);
    HoldKeys(CTRL);
    Drag({20, below}, {60, RowY(4)});
    EXPECT_EQ(list.Selected(), "0 3 4");
    HoldKeys(0);
    Drag({20, below}, {60, RowY(4)});
    EXPECT_EQ(list.Selected(), "4");
    Mouse(WM_LBUTTONDOWN, 20, below);
    Mouse(WM_MOUSEMOVE, 60, RowY(2));
    Mouse(WM_MOUSEMOVE, 60, RowY(4));
    EXPECT_EQ(list.Selected(), "4") << "what it touches no more is unselected";
    ReleaseCapture();
    Mouse(WM_MOUSEMOVE, 60, RowY(2));
    EXPECT_EQ(list.Selected(), "4") << "without the capture it is over";
    EXPECT_EQ(ToldBy([&] { Click(20, below); }), "-101 4") << "a click there clears";
    const int right = list.elements[4].rect.right;
    Drag({right, below}, {right + 20, RowY(4)});
    EXPECT_EQ(list.Selected(), "") << "beside it";
    Drag({right - 1, below}, {right + 20, RowY(4)});
    EXPECT_EQ(list.Selected(), "4");
}

TEST_F(GListModernInputTest, ADragBeyondTheEdgeScrolls)
{
    Fill(40, GLS_DETAILS, 1);
    Mouse(WM_LBUTTONDOWN, 150, RowY(1));
    Mouse(WM_MOUSEMOVE, 150, RowY(1) + 1);
    EXPECT_EQ(list.Selected(), "") << "not far enough for a drag";
    Mouse(WM_MOUSEMOVE, 50, LIST_CY + 40);
    Mouse(WM_MOUSEMOVE, 50, LIST_CY + 41);
    EXPECT_EQ(list.m_siV.nPos, static_cast<int>(2 * list.itemHeight)) << "a row each time";
    Mouse(WM_MOUSEMOVE, 50, -10);
    EXPECT_EQ(list.m_siV.nPos, static_cast<int>(list.itemHeight));
    Mouse(WM_LBUTTONUP, 50, -10);
    EXPECT_FALSE(list.Selected().empty());
}

TEST_F(GListModernInputTest, APressGoesWithItsItem)
{
    Fill(3);
    Mouse(WM_LBUTTONDOWN, 5, RowY(1));
    list.InsertItem(0, 0, nullptr, 0, L"new", 0);
    host.Take();
    Mouse(WM_LBUTTONUP, 5, RowY(2));
    EXPECT_EQ(Told(), "-101 2, -2 2");
}

TEST_F(GListModernInputTest, TheWheelTiltsSideways)
{
    Fill(3, GLS_DETAILS, 6);
    Send(WM_MOUSEHWHEEL, MAKEWPARAM(0, WHEEL_DELTA));
    const int right = list.m_siH.nPos;
    EXPECT_GT(right, 0);
    Send(WM_MOUSEHWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    EXPECT_EQ(list.m_siH.nPos, 0);
}

} // namespace
