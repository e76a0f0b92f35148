#include "../support/Interception.h"
#include "../support/Numbers.h"
#include "ListFixture.h"

#include <gesso/containers/Misuse.h>

#include <climits>
#include <functional>
#include <memory>

namespace {

using namespace test;
using Rows = std::vector<std::string>;

class GListLayoutTest : public ListFixture
{
protected:
    // The elements of a cell as "1 of column 0 at 0,0,100,22".
    Rows Cells() const
    {
        Rows cells;
        for (UINT k = 0; k < list.columnDraw.GetLength(); ++k) {
            const stcColumnDrawInfo& e = list.columnDraw[k];
            cells.push_back(std::to_string(e.type) + " of " + std::to_string(static_cast<int>(e.column)) +
                            " at " + Numbers(e.rect));
        }
        return cells;
    }
    void AddTileColumn(UINT flags, LPCWSTR text, RECT rc) { AddColumn(text, LCT_TEXT, flags, &rc); }
    static SIZE TextSize(HFONT hFont, LPCWSTR text)
    {
        SIZE size{};
        const HDC hdc = CreateCompatibleDC(nullptr);
        const HGDIOBJ former = SelectObject(hdc, hFont);
        GetTextExtentPointW(hdc, text, static_cast<int>(wcslen(text)), &size);
        SelectObject(hdc, former);
        DeleteDC(hdc);
        return size;
    }
    SIZE CheckBox() const
    {
        SIZE size{};
        const HTHEME hTheme = OpenThemeData(list, L"BUTTON");
        const HDC hdc = GetDC(list);
        GetThemePartSize(hTheme, hdc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr, TS_TRUE, &size);
        ReleaseDC(list, hdc);
        CloseThemeData(hTheme);
        return size;
    }
};

TEST_F(GListLayoutTest, DetailsLineTheColumnsUpBehindTheCheckBox)
{
    MakeList();
    AddColumns(2, LCT_TITLE);
    EXPECT_EQ(Cells(), (Rows{"16 of 0 at 0,0,100,22", "16 of 1 at 100,0,200,22"}));

    EXPECT_EQ(list.SetListStyle(GLS_DETAILS | GLS_CHECKBOXES), GLS_DETAILS);
    const SIZE box = CheckBox();
    ASSERT_EQ(list.columnDraw.GetLength(), 3u);
    EXPECT_EQ(list.columnDraw[0].rect.right, box.cx);
    EXPECT_EQ(list.columnDraw[0].rect.top, (22 - box.cy) / 2);
    EXPECT_EQ(list.columnDraw[1].rect.left, box.cx + 3);
    EXPECT_EQ(list.contentCx, 200u) << "the check box does not count";

    list.SetItemHeight(4);
    list.SetListStyle(GLS_DETAILS | GLS_CHECKBOXES);
    EXPECT_EQ(list.GetItemHeight(), static_cast<UINT>(box.cy)) << "a row is as high as its check box";
    list.SetListStyle(GLS_DETAILS);
    EXPECT_EQ(list.GetItemHeight(), 4u);
}

TEST_F(GListLayoutTest, TheHeaderTakesItsRoomInDetailsAlone)
{
    MakeList(GLS_DETAILS | GLS_HEADER);
    AddColumns(1);
    EXPECT_EQ(list.headerArea, 35u);
    EXPECT_EQ(list.contentCy, 35u) << "an empty list is as high as its header's room";
    list.SetHeaderHeight(40);
    EXPECT_EQ(list.headerArea, 35u) << "until the next style or item height";
    list.SetItemHeight(22);
    EXPECT_EQ(list.headerArea, 50u);
    list.SetColumnFlags(0, LCF_TILELINE);
    list.SetListStyle(GLS_TILES | GLS_HEADER);
    EXPECT_EQ(list.headerArea, 0u);
}

TEST_F(GListLayoutTest, ASecondWindowOfAnotherViewPlacesTheRowsAnew)
{
    MakeList(GLS_DETAILS);
    AddColumns(2);
    DestroyWindow(list);
    list.InsertColumn(0, 0, 0, 100, 20, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.InsertItem(0, 0, nullptr, 0, L"a", 0);
    list.InsertItem(1, 0, nullptr, 0, L"b", 0);
    MakeList(GLS_ICONS);
    list.SetHeaderItemSpacing(3);
    list.Check();
}

TEST_F(GListLayoutTest, TilesPlaceTheFlaggedColumnsAndTheirCaptions)
{
    MakeList();
    AddTileColumn(0, L"Hidden", {0, 0, 10, 10});
    EXPECT_EQ(list.SetListStyle(GLS_TILES), END);
    EXPECT_EQ(list.GetListStyle(), GLS_TILES);
    EXPECT_EQ(Cells(), Rows{"1 of 0 at 0,0,100,22"}) << "with nothing to show the cells stay";

    list.SetListStyle(GLS_DETAILS);
    list.RemoveAllColumns();
    AddTileColumn(LCF_TILELINE, L"Line", {1, 2, 50, 12});
    AddTileColumn(LCF_TILECAPTION, L"Caption", {3, 14, 80, 24});
    EXPECT_EQ(list.SetListStyle(GLS_TILES), GLS_DETAILS);
    const SIZE size = TextSize(list.GetLabelHeaderFont(), L"Caption:");
    EXPECT_EQ(Cells(), (Rows{"1 of 0 at 1,2,50,12", "32768 of 1 at 3,14,80,24",
                             "1 of 1 at " + std::to_string(3 + size.cx + 5) + ",14,80,24"}));
    EXPECT_EQ(list.GetItemWidth(), 90u);
    AddItems(1);
    EXPECT_EQ(list.items[0]->rcItem.right, 90);
}

// The element at the column's number says which caption is measured.
TEST_F(GListLayoutTest, ASecondCaptionIsMeasuredByTheFirst)
{
    MakeList();
    AddTileColumn(LCF_TILECAPTION, L"A very long caption", {0, 0, 50, 10});
    AddTileColumn(LCF_TILECAPTION, L"B", {0, 10, 50, 20});
    list.SetListStyle(GLS_TILES);
    EXPECT_EQ(list.columnDraw[3].rect.left, list.columnDraw[1].rect.left);

    // Where there is no such element the column's own is measured.
    list.SetColumnFlags(0, 0);
    list.SetListStyle(GLS_TILES);
    EXPECT_EQ(list.columnDraw.GetLength(), 2u);
    EXPECT_LT(list.columnDraw[1].rect.left, list.columnDraw[1].rect.right);
}

TEST_F(GListLayoutTest, IconsAreAnImageAndALineOfText)
{
    const HIMAGELIST images = ImageList_Create(32, 16, ILC_COLOR32, 1, 1);
    MakeList(GLS_ICONS);
    list.SetImageList(images);
    AddColumns(2);
    const SIZE size = TextSize(list.GetLabelTextFont(), L"B");
    const int height = std::max(22, static_cast<int>(size.cy) + 16 + 6);
    const int imageBottom = height - static_cast<int>(size.cy) - 4;
    EXPECT_EQ(list.GetItemHeight(), static_cast<UINT>(height));
    EXPECT_EQ(Cells(),
              (Rows{"1024 of 0 at 0,0,40,40",
                    "512 of 0 at 29," + std::to_string(imageBottom / 2 - 8 + 2) + ",90," +
                        std::to_string(imageBottom),
                    "256 of 0 at 0," + std::to_string(imageBottom + 2) + ",90," + std::to_string(height)}))
        << "in a list that starts with icons they show the first column";
    list.SetImageList(nullptr);
    list.SetListStyle(GLS_DETAILS);
    AddColumns(1);
    list.SetListStyle(GLS_ICONS);
    EXPECT_EQ(list.columnDraw[1].column, 1u) << "after another view they keep the columns that it named";
    EXPECT_EQ(list.columnDraw[2].column, 2u);
    ImageList_Destroy(images);
}

TEST_F(GListLayoutTest, RowsFollowTheGroupsInTheOrderOfTheItems)
{
    MakeList();
    AddColumns(1);
    AddGroup(5);
    AddGroup(6);
    AddGroup(7);
    for (const UINT group : {5U, 5U, 7U}) {
        list.InsertItem(END, group, nullptr, 0, L"x", 0);
    }
    list.Calculate();
    EXPECT_EQ(list.Rows(), (Rows{"group 0 at 0..26", "item 0 at 26..48", "item 1 at 48..70",
                                 "group 1 at 70..96", "group 2 at 96..122", "item 2 at 122..144"}));
    list.SetItemGroup(2, 5);
    EXPECT_EQ(list.Rows(),
              (Rows{"group 0 at 0..26", "item 0 at 26..48", "item 1 at 48..70", "item 2 at 70..92"}))
        << "groups behind the last item have no row";
    list.SetGroupHeight(10);
    EXPECT_EQ(list.contentCy, 10u + 66u);
}

TEST_F(GListLayoutTest, AnInsertionAmongGroupsIsRightWithTheNextLayout)
{
    MakeList();
    AddColumns(1);
    AddGroup(0);
    AddGroup(1);
    AddItem("a", 0);
    AddItem("b", 1);
    list.Calculate();
    list.InsertItem(2, 1, nullptr, 0, L"c", 0);
    EXPECT_EQ(list.Rows(), (Rows{"group 0 at 0..26", "item 0 at 26..48", "group 1 at 48..74",
                                 "item 1 at 74..96", "item 4 at 96..118"}))
        << "the new row counts as its place among the rows";
    EXPECT_EQ(list.HitAt(5, 100).item, END) << "a row that stands for no item hits nothing";
    list.InsertItem(0, 0, nullptr, 0, L"d", 0);
    EXPECT_EQ(list.Rows(), (Rows{"group 1 at 0..26", "item 1 at 26..48", "item 1 at 48..70",
                                 "group 2 at 70..96", "item 2 at 96..118", "item 5 at 118..140"}));
    list.Calculate();
    EXPECT_EQ(list.Rows(), (Rows{"group 0 at 0..26", "item 0 at 26..48", "item 1 at 48..70",
                                 "group 1 at 70..96", "item 2 at 96..118", "item 3 at 118..140"}));
}

TEST_F(GListLayoutTest, SettersThatMoveNoRowLeaveWhatANewLayoutWouldMake)
{
    MakeFilledList(1, 2);
    AddGroup(0);
    list.SetItemImage(0, 0, 1);
    EXPECT_EQ(list.Rows(), (Rows{"group 0 at 0..26", "item 0 at 26..48", "item 1 at 48..70"}))
        << "the group that was inserted before shows with the next layout";
    list.SetItemState(0, 0, 1, 1);
    const Rows rows = list.Rows();
    list.Calculate();
    EXPECT_EQ(list.Rows(), rows);
}

TEST_F(GListLayoutTest, ARowsCellIsInTheContentBelowTheHeader)
{
    MakeFilledList(2, 40, GLS_DETAILS | GLS_HEADER);
    list.m_siV.nPos = 100;
    RECT rc{};
    list.GetItemRect(&rc, 2, 1);
    EXPECT_EQ(Numbers(rc), "100,79,200,101") << "35 from the header";
    AddGroup(0);
    list.Calculate();
    list.GetItemRect(&rc, 39, 0);
    EXPECT_EQ(rc.top, 35 + 26 + 39 * 22);
}

TEST_F(GListLayoutTest, BarsComeAndGoWithTheContentAndTheWindow)
{
    MakeList();
    AddColumns(1);
    const auto bars = [&] { return GetWindowLongW(list, GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL); };
    AddItems(2);
    EXPECT_EQ(bars(), 0);
    AddItems(20);
    EXPECT_EQ(bars(), WS_VSCROLL);
    EXPECT_EQ(list.m_siV.nPage, UINT{LIST_CY});
    EXPECT_EQ(list.m_siH.nPage, 99u) << "of a content of 100, whatever room there is";
    SetWindowPos(list, nullptr, 0, 0, LIST_CX, 1000, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(bars(), 0);
    SetWindowPos(list, nullptr, 0, 0, 50, 1000, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(bars(), WS_HSCROLL);
    list.RemoveAllItems();
    list.RemoveAllColumns();
    EXPECT_EQ(list.elements.GetLength(), 0u);
}

// A bar that comes repaints the frame, and the parent draws in the corner between the two.
TEST_F(GListLayoutTest, TheParentMayDeleteTheListAsItDrawsBehindTheBars)
{
    struct Case
    {
        UINT cxColumn;
        UINT items;
        std::function<void(GList&)> act;
    };
    constexpr UINT WIDE = 400;
    const PFNLISTGROUP groupOf = [](GList* pList, void*) {
        return pList->GetGroupCount() ? 0 : pList->InsertGroup(0, L"all", 0, 0);
    };
    const Case cases[] = {
        {WIDE, 1, [](GList& own) { own.SetItemHeight(500); }},
        {WIDE, 3, [](GList& own) { own.InsertItem(0, 0, nullptr, 0, L"a", 0); }},
        {WIDE, 3, [](GList& own) { own.MoveWindow(0, 0, 100, 50); }},
        {WIDE, 3, [](GList& own) { own.Group(0, false); }},
        {50, 9, [](GList& own) { own.SetListStyle(GLS_ICONS); }},
        {50, 9,
         [](GList& own) {
             own.InsertColumn(1, 0, 0, WIDE, 20, L"B", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
         }},
    };
    for (const Case& c : cases) {
        auto own = std::make_unique<ProbeList>();
        own->Create(0, 0, 100, 100, host, LIST_ID, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
        own->InsertColumn(0, 0, 0, c.cxColumn, 20, L"A", 0, LCT_TEXT, nullptr, groupOf, nullptr, nullptr);
        for (UINT i = 0; i < c.items; ++i) {
            own->InsertItem(i, 0, nullptr, 0, L"a", 0);
        }
        const HWND hwnd = *own;
        const Interception background(host, WM_ERASEBKGND, [&] {
            DestroyWindow(hwnd);
            own = nullptr;
        });
        c.act(*own);
        DispatchAll();
        EXPECT_EQ(own, nullptr) << &c - cases;
    }
}

TEST_F(GListLayoutTest, ScrollingStepsByLinesAndPagesAndStopsAtTheEnds)
{
    MakeFilledList(8, 100, GLS_DETAILS | GLS_HEADER);
    const int page = static_cast<int>(list.m_siV.nPage);
    const int last = list.m_siV.nMax - page + 1;
    const auto scroll = [&](UINT uMsg, WORD code, WORD position = 0) {
        Send(uMsg, MAKEWPARAM(code, position));
        return uMsg == WM_VSCROLL ? list.m_siV.nPos : list.m_siH.nPos;
    };
    EXPECT_EQ(scroll(WM_VSCROLL, SB_LINEDOWN), 22 + 35) << "the header's room counts as part of a line";
    EXPECT_EQ(scroll(WM_VSCROLL, SB_PAGEDOWN), 57 + page * 5 / 6);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_PAGEUP), 57);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_LINEUP), 0);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_LINEUP), 0);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_THUMBTRACK, 500), 500);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_THUMBPOSITION, 700), 500);
    EXPECT_EQ(scroll(WM_VSCROLL, SB_THUMBTRACK, 65535), last);
    EXPECT_EQ(scroll(WM_HSCROLL, SB_LINEDOWN), 22);
    SCROLLINFO si{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 0, 0};
    GetScrollInfo(list, SB_VERT, &si);
    EXPECT_EQ(si.nPos, last) << "the platform's bar follows";
}

TEST_F(GListLayoutTest, TheWheelScrollsTwentyPixelsALine)
{
    MakeFilledList(1, 100);
    UINT lines = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const auto wheel = [&](int delta) {
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, delta));
        return list.m_siV.nPos;
    };
    EXPECT_EQ(wheel(-240), 2 * static_cast<int>(lines) * 20);
    EXPECT_EQ(wheel(119), 2 * static_cast<int>(lines) * 20) << "less than a notch does nothing";
    EXPECT_EQ(wheel(120), static_cast<int>(lines) * 20);
    Mouse(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(list.GetHotItem(), 2u);
    wheel(120);
    EXPECT_EQ(list.GetHotItem(), 0u) << "the hot item follows the content";
    list.RemoveAllItems();
    AddItems(1);
    EXPECT_EQ(wheel(-120), 0);
}

// Sums of a host's measures stop at the ends of the numbers' range.
TEST_F(GListLayoutTest, MeasuresOfAnySizeLayOut)
{
    MakeList();
    list.InsertColumn(0, 0, 0, UINT_MAX, 0, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.InsertColumn(1, 0, 0, UINT_MAX, 0, L"B", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.SetItemHeight(INT_MAX);
    AddItems(3);
    list.SetItemHeight(UINT_MAX);
    list.SetGroupHeight(UINT_MAX);
    AddGroup(0);
    list.Calculate();
    list.Check();
    UpdateWindow(list);
    for (const UINT style : {GLS_TILES, GLS_ICONS, GLS_DETAILS | GLS_GRIDLINES | GLS_HEADER}) {
        list.SetListStyle(style);
        list.HitAt(5, 5);
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
    }
}

} // namespace
