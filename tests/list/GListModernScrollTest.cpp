// The bars and the places of lists made in Modern, as their content, their window and their columns change.

#include "ModernListFixture.h"

#include "../support/Numbers.h"

namespace {

using namespace test;

class GListModernScrollTest : public ModernListFixture
{
protected:
    void Scroll(UINT uMsg, int nCode, int nPos = 0)
    {
        Send(uMsg, MAKEWPARAM(nCode, nPos), reinterpret_cast<LPARAM>(list.GetHwnd()));
    }
    // So many items at once.
    void FillMany(UINT count)
    {
        Fill(0);
        list.BulkInsertOn();
        AddItems(count);
        list.BulkInsertOff();
    }
    bool IsDirty() const { return GetUpdateRect(list, nullptr, FALSE) != 0; }
    std::string Hit(int x, int y)
    {
        const GList::HitTestInfo hit = list.HitAt(x, y);
        return Numbers(static_cast<int>(hit.item), static_cast<SHORT>(hit.subItem));
    }
};

TEST_F(GListModernScrollTest, AThumbLeadsToTheEndOfALongList)
{
    FillMany(5000);
    list.m_siV.nTrackPos = 5000 * 22 - 100;
    Scroll(WM_VSCROLL, SB_THUMBTRACK, LOWORD(list.m_siV.nTrackPos));
    EXPECT_GT(list.m_siV.nPos, 0xFFFF);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 7);
    EXPECT_EQ(list.m_siV.nPos, 7) << "of a message that the bar has not sent";
    list.SetColumnCx(0, 100000);
    list.m_siH.nTrackPos = 90000;
    Scroll(WM_HSCROLL, SB_THUMBTRACK, LOWORD(90000));
    EXPECT_EQ(list.m_siH.nPos, 90000);
}

TEST_F(GListModernScrollTest, WhatFitsIsNotScrolled)
{
    Fill(40);
    Scroll(WM_VSCROLL, SB_PAGEDOWN);
    ASSERT_GT(list.m_siV.nPos, 1);
    list.RemoveAllItems();
    AddItems(2);
    EXPECT_EQ(list.m_siV.nPos, 0);
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)));
    EXPECT_EQ(list.m_siV.nPos, 0);
    AddColumns(3);
    Scroll(WM_HSCROLL, SB_PAGEDOWN);
    ASSERT_GT(list.m_siH.nPos, 1);
    MoveWindow(list, 0, 0, 600, LIST_CY, FALSE);
    EXPECT_EQ(list.m_siH.nPos, 0);
}

TEST_F(GListModernScrollTest, AWheelTurnedByPartsOfANotchScrollsAtItsEnd)
{
    Fill(40);
    const auto turn = [this](int nDelta) {
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(nDelta)));
        return list.m_siV.nPos;
    };
    EXPECT_EQ(turn(-60), 0);
    const int notch = turn(-60);
    EXPECT_GT(notch, 0);
    EXPECT_EQ(turn(-119), notch);
    EXPECT_EQ(turn(60), notch) << "the other way round";
    EXPECT_EQ(turn(60), 0);
    // One pixel too many.
    MoveWindow(list, 0, 0, LIST_CX, 40 * 22 - 1, FALSE);
    turn(-120);
    EXPECT_EQ(list.m_siV.nPos, 1);
}

TEST_F(GListModernScrollTest, TheBarInsideABorderIsHitFromItsFirstPixel)
{
    MakeList(GLS_DETAILS, WS_HSCROLL | WS_VSCROLL | WS_BORDER);
    AddColumns(1);
    AddItems(40);
    RECT rc{};
    GetClientRect(list, &rc);
    POINT pt{rc.right, rc.bottom - 1};
    ClientToScreen(list, &pt);
    const LPARAM at = MAKELPARAM(pt.x, pt.y);
    EXPECT_EQ(SendMessageW(list, WM_NCHITTEST, 0, at), HTVSCROLL);
    Send(WM_NCLBUTTONDOWN, HTVSCROLL, at);
    EXPECT_GT(list.m_siV.nPos, 0) << "a line down";
    Mouse(WM_LBUTTONUP, rc.right, rc.bottom - 1);
}

TEST_F(GListModernScrollTest, ALargerWindowIsPaintedWhereItHasScrolledBack)
{
    Fill(40);
    Key(VK_END);
    ASSERT_TRUE(list.EditItem(39));
    RECT rc{}, rcFormer{};
    GetWindowRect(GetFocus(), &rcFormer);
    ValidateRect(list, nullptr);
    MoveWindow(list, 0, 0, LIST_CX, LIST_CY + 100, FALSE);
    EXPECT_TRUE(IsDirty()) << "other rows show";
    GetWindowRect(GetFocus(), &rc);
    EXPECT_EQ(rc.top, rcFormer.top + 100) << "the field too";
}

TEST_F(GListModernScrollTest, HomeShowsTheVeryTop)
{
    Fill(30);
    AddGroup(0);
    AddGroup(1);
    for (UINT item = 15; item < 30; ++item) {
        list.SetItemGroup(item, 1);
    }
    list.Calculate();
    Key(VK_END);
    Key(VK_HOME);
    EXPECT_EQ(list.m_siV.nPos, 0);
    Key(VK_END);
    list.EnsureVisible(15);
    EXPECT_EQ(list.m_siV.nPos, 26 + 15 * 22) << "with its group's row";
    list.SetListStyle(GLS_ICONS);
    Key(VK_END);
    Key(VK_HOME);
    EXPECT_EQ(list.m_siV.nPos, 0);
}

TEST_F(GListModernScrollTest, PageKeysKeepTheColumnAmongIcons)
{
    Fill(30, GLS_ICONS);
    const LONG left = list.elements[1].rect.left;
    list.SetFirstSelectedItemIndex(1);
    const auto leftAfter = [&](UINT vk) {
        Key(vk);
        return list.elements[list.GetCursorItem()].rect.left;
    };
    EXPECT_EQ(leftAfter(VK_NEXT), left);
    const UINT first = list.GetCursorItem();
    EXPECT_GT(first, 3U);
    EXPECT_EQ(leftAfter(VK_NEXT), left);
    EXPECT_EQ(leftAfter(VK_PRIOR), left);
    EXPECT_EQ(list.GetCursorItem(), first);
    EXPECT_EQ(leftAfter(VK_PRIOR), left);
    EXPECT_EQ(list.GetCursorItem(), 1U);
}

TEST_F(GListModernScrollTest, ASelectionOfMovedItemsIsClearedWhole)
{
    Fill(0);
    for (char c = '0'; c <= '9'; ++c) {
        AddItem(std::string(1, c).c_str());
    }
    ClickItem(5);
    list.Sort(0, false);
    EXPECT_EQ(list.Selected(), "4");
    EXPECT_EQ(ToldBy([&] { ClickItem(7); }), "-101 -1, -2 7");
    EXPECT_EQ(list.Selected(), "7");
}

// --- What is laid out anew

TEST_F(GListModernScrollTest, CellsFollowHeightWidthAndView)
{
    const RECT rcName{5, 2, 80, 12};
    MakeList(GLS_DETAILS);
    AddColumn(L"Name", LCT_TEXT, LCF_TILELINE, &rcName);
    AddItems(3);
    list.SetItemHeight(40);
    EXPECT_EQ(list.columnDraw[0].rect.bottom, 40);
    list.SetListStyle(GLS_ICONS);
    list.SetItemWidth(150);
    EXPECT_EQ(list.columnDraw[2].rect.right, 150);
    list.SetColumnFlags(0, 0);
    EXPECT_EQ(list.SetListStyle(GLS_TILES), END);
    EXPECT_EQ(list.columnDraw.GetLength(), 0U) << "nothing of the icons";
    EXPECT_EQ(list.elements[1].rect.top, list.elements[0].rect.bottom);
}

TEST_F(GListModernScrollTest, ValuesInTilesBeginBehindTheirOwnCaptions)
{
    MakeList(GLS_DETAILS);
    const RECT rc{0, 0, 200, 10};
    for (const LPCWSTR caption : {L"A", L"A long caption", L"A"}) {
        AddColumn(caption, LCT_TEXT, LCF_TILECAPTION, &rc);
    }
    list.SetListStyle(GLS_TILES);
    ASSERT_EQ(list.columnDraw.GetLength(), 6U);
    EXPECT_EQ(list.columnDraw[1].rect.left, list.columnDraw[5].rect.left);
    EXPECT_GT(list.columnDraw[3].rect.left, list.columnDraw[5].rect.left);
}

TEST_F(GListModernScrollTest, GroupsCountWhereThereAreAny)
{
    Fill(0);
    AddItem("a", 7);
    AddItem("b");
    const std::vector<std::string> rows = list.Rows();
    EXPECT_EQ(rows.size(), 2U);
    list.Calculate();
    EXPECT_EQ(list.Rows(), rows);
    AddGroup(7);
    AddGroup(0);
    list.Calculate();
    list.elements[1].rect.right = 777;
    list.SetItemText(0, 0, L"new");
    EXPECT_EQ(list.elements[1].rect.right, 777) << "a text alone moves nothing";
    list.RemoveAllGroups();
    list.RemoveAllColumns();
    UINT sorted = 0;
    AddColumns(1);
    list.Sort(0, true);
    list.RemoveAllColumns();
    list.GetCurrentSort(&sorted, nullptr);
    EXPECT_EQ(sorted, END) << "nor does the sort outlive its column";
}

TEST_F(GListModernScrollTest, ARenamingGoesWithItsColumnAndViewAndHidesBehindTheHeader)
{
    MakeList(GLS_DETAILS | GLS_HEADER);
    AddColumn(L"A", LCT_TITLE);
    AddColumn(L"B");
    AddItems(40);
    SetFocus(list);
    const auto place = [&] {
        RECT rc{};
        GetWindowRect(GetFocus(), &rc);
        MapWindowPoints(nullptr, list, reinterpret_cast<POINT*>(&rc), 2);
        return rc;
    };
    ASSERT_TRUE(list.EditItem(3));
    EXPECT_EQ(SendMessageW(GetFocus(), WM_GETFONT, 0, 0),
              reinterpret_cast<LRESULT>(list.GetLabelTitleFont()));
    list.SetItemHeight(40);
    EXPECT_EQ(place().bottom - place().top, 40);
    Scroll(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_LE(place().bottom, 0) << "not over the header";
    Scroll(WM_VSCROLL, SB_TOP);
    // What is told but for the focus.
    const auto endsBy = [&](auto act) {
        EXPECT_TRUE(list.EditItem(3));
        const std::string told = ToldBy(act);
        return told.substr(told.find("-176"));
    };
    EXPECT_EQ(endsBy([&] { list.SetListStyle(GLS_TILES); }), "-176 3");
    list.SetListStyle(GLS_DETAILS);
    EXPECT_EQ(endsBy([&] {
                  list.InsertColumn(0, 0, 0, 50, 10, L"C", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
              }),
              "-176 3");
    EXPECT_EQ(endsBy([&] { list.RemoveColumn(0); }), "-176 3");
    EXPECT_EQ(GetWindow(list, GW_CHILD), nullptr);
}

// --- The mouse

TEST_F(GListModernScrollTest, WhatIsUnderThePointerIsHotAfterAKeyToo)
{
    Fill(40);
    Mouse(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(list.GetHotItem(), 0U);
    Key(VK_END);
    EXPECT_EQ(list.GetHotItem(), list.HitAt(5, 5).item);
    EXPECT_GT(list.GetHotItem(), 20U);
}

TEST_F(GListModernScrollTest, TheHeaderTellsNoDragAndTakesFastClicks)
{
    Fill(5, GLS_DETAILS | GLS_HEADER);
    EXPECT_EQ(ToldBy([&] { Drag({50, 5}, {150, 100}); }), "");
    list.SetFirstSelectedItemIndex(2);
    const auto clickTwice = [&](int x, int y) {
        Click(x, y);
        Mouse(WM_LBUTTONDBLCLK, x, y);
        Mouse(WM_LBUTTONUP, x, y);
    };
    EXPECT_EQ(ToldBy([&] { clickTwice(50, 5); }), "-108 -1, -108 -1");
    Click(5, 180);
    list.SetSelected(1, 1);
    Mouse(WM_LBUTTONDBLCLK, 5, 180);
    Mouse(WM_LBUTTONUP, 5, 180);
    EXPECT_EQ(list.Selected(), "") << "in empty room";
}

TEST_F(GListModernScrollTest, AColumnWithoutWidthIsDrawnOutAgain)
{
    Fill(1, GLS_DETAILS | GLS_HEADER, 3);
    list.SetColumnCxMin(1, 0);
    list.SetColumnCx(1, 0);
    EXPECT_EQ(Hit(97, 5), Numbers(static_cast<int>(LHI_HEADER), 0));
    EXPECT_EQ(Hit(103, 5), Numbers(static_cast<int>(LHI_HEADER), 1));
    Drag({103, 5}, {163, 5});
    EXPECT_EQ(list.GetColumnCx(1), 60U);
    EXPECT_EQ(list.GetColumnCx(0), 100U);
}

} // namespace
