// Where things lie in lists made in Modern, and what of columns, sorting and typing is Modern's.

#include "ModernListFixture.h"

#include "../support/AllowMisuse.h"
#include "../support/Numbers.h"
#include "../support/User.h"

namespace {

using namespace test;

class GListModernLayoutTest : public ModernListFixture
{
protected:
    // Scrolled all the way.
    void ScrollToEnd()
    {
        list.SetScrollPos(SB_HORZ, INT_MAX, FALSE);
        list.SetScrollPos(SB_VERT, INT_MAX, FALSE);
    }
    RECT ShownRect(UINT item, UINT element)
    {
        RECT rc{};
        list.GetItemRect(&rc, item, element);
        OffsetRect(&rc, -list.m_siH.nPos, -list.m_siV.nPos);
        return rc;
    }
    std::string Hit(int x, int y)
    {
        const GList::HitTestInfo hit = list.HitAt(x, y);
        return Numbers(static_cast<int>(hit.item), static_cast<SHORT>(hit.subItem));
    }
    // The elements whose rectangles show whole are hit in all of their corners, and not beyond.
    void ExpectHitsWhereItemsShow()
    {
        const SIZE client = ClientSize(list);
        // Below an icon's image and text lies the room of a check box.
        const UINT first = list.GetListStyle() == GLS_ICONS ? 1 : 0;
        UINT seen = 0;
        for (UINT item = 0; item < list.GetItemCount(); ++item) {
            for (UINT k = first; k < list.columnDraw.GetLength(); ++k) {
                const RECT rc = ShownRect(item, k);
                const bool fShown = rc.left >= 0 && rc.top >= static_cast<int>(list.headerArea) &&
                                    rc.right <= client.cx && rc.bottom <= client.cy;
                if (!fShown || IsRectEmpty(&rc)) {
                    continue;
                }
                ++seen;
                const std::string wanted = Numbers(static_cast<int>(item), static_cast<int>(k));
                EXPECT_EQ(Hit(rc.left, rc.top), wanted);
                EXPECT_EQ(Hit(rc.right - 1, rc.bottom - 1), wanted);
                EXPECT_NE(Hit(rc.left, rc.bottom), wanted);
            }
        }
        EXPECT_GT(seen, 1U);
    }
};

TEST_F(GListModernLayoutTest, RectanglesAndHitsAgreeInEveryView)
{
    const RECT rcName{5, 2, 80, 12};
    const RECT rcSize{5, 12, 80, 22};
    MakeList(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    AddColumn(L"Name", LCT_TEXT, LCF_TILELINE, &rcName);
    AddColumn(L"Size", LCT_TEXT, LCF_TILELINE, &rcSize);
    AddItems(30);
    list.SetItemHeight(24);
    for (const UINT style : {GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, GLS_TILES | GLS_HEADER, GLS_ICONS}) {
        SCOPED_TRACE(style);
        list.SetListStyle(style);
        ExpectHitsWhereItemsShow();
        ScrollToEnd();
        ExpectHitsWhereItemsShow();
        list.SetScrollPos(SB_HORZ, 0, FALSE);
        list.SetScrollPos(SB_VERT, 0, FALSE);
    }
    list.SetListStyle(GLS_TILES);
    const RECT rcFirst = ShownRect(0, 0);
    const RECT rcSecond = ShownRect(0, 1);
    Mouse(WM_LBUTTONDOWN, rcFirst.left + 2, rcFirst.top + 2);
    Mouse(WM_LBUTTONUP, rcSecond.left + 2, rcSecond.bottom - 2);
    EXPECT_EQ(list.Selected(), "0") << "anywhere in the tile";
}

TEST_F(GListModernLayoutTest, RowsTakeTheMouseHoweverFarDown)
{
    Fill(0);
    list.BulkInsertOn();
    AddItems(4000);
    list.BulkInsertOff();
    for (const UINT item : {1489U, 1490U, 3000U, 3999U}) {
        list.EnsureVisible(item);
        ClickItem(item);
        EXPECT_EQ(list.Selected(), std::to_string(item));
    }
}

TEST_F(GListModernLayoutTest, IconsHaveCellsOfTheirOwnInLinesAsWideAsTheWindow)
{
    Fill(9, GLS_ICONS);
    AddGroup(0);
    AddGroup(1);
    for (UINT item = 5; item < 9; ++item) {
        list.SetItemGroup(item, 1);
    }
    list.Calculate();
    const auto inLine = [&] {
        UINT count = 0;
        for (UINT item = 0; item < 5; ++item) {
            count += ShownRect(item, 0).top == ShownRect(0, 0).top ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(inLine(), 3U);
    EXPECT_EQ(list.elements[0].rect.top, 0);
    for (UINT a = 0; a < 9; ++a) {
        for (UINT b = a + 1; b < 9; ++b) {
            RECT rc{};
            const stcElementPosition* rows = list.elements.GetData();
            EXPECT_FALSE(IntersectRect(&rc, &rows[a].rect, &rows[b].rect)) << a << " and " << b;
        }
    }
    list.SetFirstSelectedItemIndex(1);
    EXPECT_EQ(SelectedBy(VK_DOWN), "4") << "below it";
    EXPECT_EQ(SelectedBy(VK_DOWN), "6") << "in the next group";
    EXPECT_EQ(SelectedBy(VK_UP), "4");
    EXPECT_EQ(SelectedBy(VK_RIGHT), "5");
    MoveWindow(list, 0, 0, 120, LIST_CY, FALSE);
    EXPECT_EQ(inLine(), 1U) << "broken anew with the window";
    list.Check();
}

TEST_F(GListModernLayoutTest, BothBarsLeaveTheLastPixelInReach)
{
    Fill(30, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, 5);
    ScrollToEnd();
    const RECT rc = ShownRect(29, 5);
    const SIZE client = ClientSize(list);
    EXPECT_EQ(rc.right, client.cx);
    EXPECT_EQ(rc.bottom, client.cy);
}

TEST_F(GListModernLayoutTest, GroupRowsAndTheRoomBesideTheColumnsAreEmptyRoom)
{
    Fill(5);
    AddGroup(0);
    AddGroup(1);
    list.SetItemGroup(4, 1);
    list.SetSelected(3, 1);
    EXPECT_EQ(ToldBy([&] { Click(5, 10); }), "-101 3") << "cleared, and no click";
    list.SetSelected(3, 1);
    EXPECT_EQ(ToldBy([&] { RightClick(5, 26 + 4 * 22 + 10); }), "-101 3, -5 -1");
    EXPECT_EQ(Hit(210, RowY(1)), "-1,-1");
    AddItem("more", 1);
    EXPECT_EQ(list.Rows().back(), "item 5 at 162..184") << "without a sort";
}

TEST_F(GListModernLayoutTest, TheHeaderOfAnEmptyListAndBothSidesOfADividerAreHit)
{
    Fill(0, GLS_DETAILS | GLS_HEADER);
    EXPECT_EQ(Hit(50, 5), Numbers(static_cast<int>(LHI_HEADER), 0));
    const int end = list.columnDraw[1].rect.right;
    for (const int x : {end - 5, end + 5}) {
        EXPECT_EQ(list.HitAt(x, 5).part, LHP_DIVIDER) << x;
    }
    EXPECT_EQ(Hit(end + 6, 5), Numbers(static_cast<int>(LHI_HEADER), -1));
    EXPECT_EQ(Hit(5, 30), "-1,-1") << "below the header";
}

// --- Columns

TEST_F(GListModernLayoutTest, SubItemsGoWithTheirColumn)
{
    MakeList(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    AddColumn(L"A");
    AddItem("x");
    AddItem("y");
    list.SetItemState(1, 0, LSIS_CHECKED, LSIS_CHECKED);
    list.Sort(0, true);
    list.InsertColumn(0, 0, 0, 50, 10, L"First", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(list.GetItemText(0, 0));
    EXPECT_STREQ(Narrow(list.GetItemText(0, 1)).c_str(), "x");
    EXPECT_EQ(list.GetItemState(1, 0) & LSIS_CHECKED, LSIS_CHECKED) << "the mark is the item's";
    UINT sorted = 0;
    bool ascending = false;
    list.GetCurrentSort(&sorted, &ascending);
    EXPECT_EQ(sorted, 1U);
    list.SetItemText(0, 0, L"new");
    list.RemoveColumn(1);
    AddColumn(L"Front");
    list.InsertColumn(0, 0, 0, 50, 10, L"Front", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.RemoveColumn(0);
    EXPECT_EQ(list.GetItemState(1, 0) & LSIS_CHECKED, LSIS_CHECKED) << "nor does it go with a column";
    EXPECT_STREQ(Narrow(list.GetItemText(0, 0)).c_str(), "new");
    list.GetCurrentSort(&sorted, &ascending);
    EXPECT_EQ(sorted, END);
    list.RemoveAllColumns();
    EXPECT_FALSE(list.GetItemText(0, 0));
    EXPECT_EQ(list.GetItemState(1, 0) & LSIS_CHECKED, LSIS_CHECKED);
    AddColumns(3);
    list.SetItemText(1, 2, L"third");
    EXPECT_STREQ(Narrow(list.GetItemText(1, 2)).c_str(), "third");
}

TEST_F(GListModernLayoutTest, AColumnsWidthShowsAtOnce)
{
    Fill(3);
    list.SetColumnCx(0, 150);
    EXPECT_EQ(list.columnDraw[1].rect.left, 150);
    EXPECT_EQ(list.contentCx, 250U);
}

TEST_F(GListModernLayoutTest, AColumnFitsItsWidestTextItsCaptionAndItsLeastWidth)
{
    Fill(3, GLS_DETAILS | GLS_HEADER);
    list.FitColumn(0);
    const UINT least = list.GetColumnCx(0);
    list.SetItemText(1, 0, L"a text that is a good deal longer");
    list.FitColumn(0);
    const UINT wide = list.GetColumnCx(0);
    EXPECT_GT(wide, least);
    list.SetColumnText(0, L"a caption that is still longer than that text");
    const int divider = list.columnDraw[0].rect.right;
    Mouse(WM_LBUTTONDBLCLK, divider, 5);
    EXPECT_GT(list.GetColumnCx(0), wide) << "by a double click on the divider";
    list.SetColumnCxMin(1, 180);
    list.FitColumn(1);
    EXPECT_EQ(list.GetColumnCx(1), 180U);
    list.SetColumnCxMin(1, 0);
    const auto fits = [&](int type) {
        AddColumn(L"", type);
        list.InsertItem(END, 0, nullptr, 0, L"x", 0);
        const UINT column = list.GetColumnCount() - 1;
        list.SetSubItem(0, column, 0, L"the same text", 0);
        list.FitColumn(column);
        return list.GetColumnCx(column);
    };
    const UINT text = fits(LCT_TEXT);
    EXPECT_LT(fits(LCT_IMAGE), text) << "no text shows";
    EXPECT_EQ(fits(LCT_IMAGETEXT), text) << "without an image list an image has no width";
    EXPECT_GE(fits(LCT_TITLE), text) << "in a larger font";
    const AllowMisuse allowed;
    list.FitColumn(99);
}

TEST_F(GListModernLayoutTest, AColumnsFormatShowsAtOnce)
{
    Fill(2);
    const void* hText = list.items[0]->SubItem(1)->prepared;
    list.SetColumnFormat(1, DT_RIGHT);
    EXPECT_NE(list.items[0]->SubItem(1)->prepared, nullptr);
    EXPECT_NE(list.items[0]->SubItem(1)->prepared, hText) << "prepared anew";
}

// --- Sorting

struct Calls
{
    const GList* pList;
    UINT column;
    int calls;
};

int ByLastDigit(const GList* pList, UINT column, void* a, void* b, void* context)
{
    auto* told = static_cast<Calls*>(context);
    *told = {pList, column, told->calls + 1};
    return static_cast<int>(reinterpret_cast<size_t>(a) % 10) -
           static_cast<int>(reinterpret_cast<size_t>(b) % 10);
}

TEST_F(GListModernLayoutTest, OneFunctionSortsEveryColumnAndEqualItemsStay)
{
    Fill(0);
    for (const size_t n : {31, 12, 51, 22, 41, 2, 11}) {
        AddItem(std::to_string(n).c_str(), 0, reinterpret_cast<void*>(n));
    }
    Calls told{};
    list.SetSortCallback(ByLastDigit, &told);
    list.Sort(1, true);
    EXPECT_EQ(list.Texts(), "31 51 41 11 12 22 2");
    EXPECT_TRUE(told.pList == &list && told.column == 1 && told.calls > 0);
    list.Sort(0, false);
    EXPECT_EQ(list.Texts(), "12 22 2 31 51 41 11");
    list.SetSortCallback(nullptr, nullptr);
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "11 12 2 22 31 41 51");
}

// --- Typing, and what a dialog gets

TEST_F(GListModernLayoutTest, TypedCharactersLeadToTheItemThatBeginsSo)
{
    Fill(0);
    for (const char* text : {"beta", "alpha", "be here", "bet"}) {
        AddItem(text);
    }
    const auto type = [&](const char* text) {
        for (; *text; ++text) {
            Send(WM_KEYDOWN, static_cast<WPARAM>(*text == ' ' ? VK_SPACE : 0xFF), 1);
            Send(WM_CHAR, static_cast<WPARAM>(*text), 1);
        }
        return list.Selected();
    };
    EXPECT_EQ(type("A"), "1");
    user::Wait(1100);
    EXPECT_EQ(type("be"), "2");
    EXPECT_EQ(type(" h"), "2") << "a blank belongs to the word";
    user::Wait(1100);
    EXPECT_EQ(type("b"), "3");
    EXPECT_EQ(type("b"), "0") << "one letter steps";
    user::Wait(1100);
    EXPECT_EQ(type("be"), "2");
    HoldKeys(KEYMOD_SHIFT);
    EXPECT_EQ(type(" H"), "2") << "nor does Shift make a blank a command";
    HoldKeys(0);
    user::Wait(1100);
    list.SetCursorItem(END);
    EXPECT_EQ(type("b"), "3") << "from the selected one";
    EXPECT_EQ(type("b"), "0");
    user::Wait(1100);
    HoldKeys(KEYMOD_CTRL);
    EXPECT_EQ(type("a"), "0") << "no command is text";
    HoldKeys(0);
    EXPECT_EQ(ToldBy([&] { type("a"); }), "-101 -1");
}

TEST_F(GListModernLayoutTest, EnterAndEscAreTheDialogsButForAnEditInProgress)
{
    Fill(2);
    const HWND edit =
        CreateWindowExW(0, L"EDIT", nullptr, WS_CHILD, 0, 0, 10, 10, list, nullptr, nullptr, nullptr);
    const auto wants = [](HWND hwnd, WPARAM vk) {
        MSG msg{hwnd, WM_KEYDOWN, vk, 0, 0, {}};
        return (SendMessageW(hwnd, WM_GETDLGCODE, vk, reinterpret_cast<LPARAM>(&msg)) & DLGC_WANTALLKEYS) !=
               0;
    };
    EXPECT_FALSE(wants(list, VK_RETURN));
    EXPECT_FALSE(wants(list, VK_ESCAPE));
    EXPECT_FALSE(wants(list, VK_TAB));
    EXPECT_TRUE(wants(list, VK_DELETE));
    HWND windows[] = {edit};
    list.BeginEdit(1, windows);
    EXPECT_TRUE(wants(list, VK_RETURN));
    EXPECT_TRUE(wants(edit, VK_RETURN));
    EXPECT_TRUE(wants(edit, VK_ESCAPE));
    EXPECT_FALSE(wants(edit, VK_TAB));
    list.EndEdit();
}

} // namespace
