// What a list draws, operation by operation.

#include "../../support/Numbers.h"
#include "ListDesktop.h"

#include <algorithm>

namespace {

using namespace test;

class ListDrawTest : public ListDesktop
{
protected:
    // The lines of the next paint that start with a word.
    Lines Draw(const std::string& word) { return NextPaint(list, word); }
    // The rows that are highlighted, as "3 (0,22,200,44)": state and place.
    Lines Rows() { return After("DrawThemeBackground explorer::LISTVIEW 1 "); }
    Lines Texts() { return Draw("ScriptTextOut"); }
    // What follows a word in them.
    Lines After(const std::string& word) { return NextPaintBehind(list, word); }
};

TEST_F(ListDrawTest, TheWholePaintInItsOrder)
{
    MakeFilledList(2, 1, GLS_DETAILS | GLS_HEADER);
    list.SetFirstSelectedItemIndex(0);
    EXPECT_EQ(Draw(""), (Lines{
                            "DrawThemeParentBackground (0,0,300,200)",
                            "DrawThemeBackground explorer::LISTVIEW 0 0 (-2,-2,302,202)",
                            "DrawThemeBackground explorer::LISTVIEW 1 5 (0,35,200,57)",
                            "ScriptTextOut \"item0\" (3,38) cx=30 latin font=\"Segoe UI\" 12 color=000000",
                            "ScriptTextOut \"item0\" (103,38) cx=30 latin font=\"Segoe UI\" 12 color=000000",
                            "DrawThemeBackground explorer::HEADER 1 1 (0,0,100,25)",
                            "ScriptTextOut \"A\" (3,5) cx=6 latin font=\"Segoe UI\" 12 color=000000",
                            "DrawThemeBackground explorer::HEADER 1 1 (100,0,200,25)",
                            "ScriptTextOut \"B\" (103,5) cx=6 latin font=\"Segoe UI\" 12 color=000000",
                            "DrawThemeBackground explorer::HEADER 3 0 (200,0,300,25)",
                            "BitBlt (0,0,300,200) from (0,0) SRCCOPY",
                        }));
}

TEST_F(ListDrawTest, ADerivedClassMayDrawItemsAndTexts)
{
    MakeFilledList(1, 2);
    const HDC hdc = GetDC(list);
    const auto drawn = [&](const std::function<void()>& act) {
        desk::ClearDrawing(list);
        act();
        const Lines lines = desk::Drawing(list);
        return lines.empty() ? "nothing" : lines.back();
    };
    Lines lines;
    for (const UINT mode : {LTM_COLUMN, LTM_CAPTION, LTM_GROUP, LTM_ITEM, LTM_TITLE, 99U}) {
        ListTextPair* pair = list.PrepareText(hdc, mode, L"x", nullptr, DT_SINGLELINE, 18);
        lines.push_back(drawn([&] { list.TextOutW(hdc, mode, pair, {1, 2, 50, 30}); }));
        list.FreeText(pair);
    }
    lines.push_back(drawn([&] { list.TextOutW(hdc, LTM_ITEM, nullptr, {1, 2, 50, 30}); }));
    lines.push_back(drawn([&] { list.DrawItem(hdc, 1, {0, 50, 100, 72}); }));
    const std::string x = "ScriptTextOut \"x\" (1,2) cx=6 latin font=\"Segoe UI\" ";
    const std::string rest = " color=000000 back=FFFFFF";
    EXPECT_EQ(lines,
              (Lines{x + "12" + rest, "ScriptTextOut \"x:\" (1,2) cx=12 latin font=\"Segoe UI\" 12" + rest,
                     x + "13 bold" + rest, x + "12" + rest, x + "13" + rest, "nothing", "nothing",
                     "ScriptTextOut \"item1\" (3,53) cx=30 latin font=\"Segoe UI\" 12" + rest}));
    ReleaseDC(list, hdc);
}

TEST_F(ListDrawTest, ARowsLookFollowsSelectionFocusAndPointer)
{
    MakeFilledList(1, 2);
    list.SetFirstSelectedItemIndex(1);
    EXPECT_EQ(Rows(), Lines{"5 (0,22,100,44)"}) << "selected, without the focus";
    SetFocus(list);
    EXPECT_EQ(Rows(), (Lines{"3 (0,0,100,22)", "3 (0,22,100,44)"})) << "the first focus selects item 0";
    PointAt(list, 5, 30);
    EXPECT_EQ(Rows(), (Lines{"3 (0,0,100,22)", "6 (0,22,100,44)"})) << "hot and selected";
    list.ClearSelection();
    EXPECT_EQ(Rows(), Lines{"2 (0,22,100,44)"}) << "hot";
    PointAt(list, LIST_CX + 50, LIST_CY + 50);
    EXPECT_EQ(Rows(), Lines{});
    EnableWindow(list, FALSE);
    EXPECT_EQ(Rows(), (Lines{"4 (0,0,100,22)", "4 (0,22,100,44)"})) << "disabled";
    EnableWindow(list, TRUE);

    HWND edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 100, 50, 20, list, nullptr,
                                nullptr, nullptr);
    list.BeginEdit(1, &edit);
    list.SetFirstSelectedItemIndex(0);
    SetFocus(edit);
    EXPECT_EQ(Rows(), Lines{"3 (0,0,100,22)"}) << "an edit window's focus is the list's";
    list.EndEdit();
    EXPECT_EQ(Rows(), Lines{"5 (0,0,100,22)"});
}

// "TREEVIEW" rows have the same states; without these too the row is drawn in plain colours.
TEST_F(ListDrawTest, AStyleWithoutRowsFallsBackToTheTreesAndThenToPlainOnes)
{
    desk::SetThemePartAvailable("LISTVIEW", LVP_LISTITEM, false);
    MakeFilledList(1, 1, GLS_DETAILS | GLS_GRIDLINES);
    list.SetFirstSelectedItemIndex(0);
    EXPECT_EQ(Draw("DrawThemeBackground explorer::TREEVIEW"),
              Lines{"DrawThemeBackground explorer::TREEVIEW 1 5 (0,0,100,22)"});
    EXPECT_EQ(Rows(), Lines{});
    desk::SetThemePartAvailable("TREEVIEW", TVP_TREEITEM, false);
    Send(WM_THEMECHANGED);
    EXPECT_EQ(Draw("FillRect").size(), 1u);
    desk::SetThemed(false);
    Send(WM_THEMECHANGED);
    list.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    list.Sort(0, true);
    EXPECT_EQ(Draw("DrawThemeBackground"), Lines{});
    EXPECT_EQ(Draw("DrawFrameControl").size(), 1u + 2u + 1u + 1u) << "check box, header, arrow, the rest";
}

TEST_F(ListDrawTest, WithoutAStyleABorderIsASunkenEdgeThatShowsWhole)
{
    desk::SetThemed(false);
    MakeList(GLS_DETAILS, WS_BORDER);
    RECT rcClient{};
    GetClientRect(list, &rcClient);
    EXPECT_EQ(Numbers(rcClient), "0,0,296,196");
    desk::ClearDrawing(list);
    Send(WM_NCPAINT, 1);
    const Lines lines = desk::Drawing(list);
    EXPECT_TRUE(std::ranges::any_of(lines, [](const std::string& line) {
        return line.starts_with("DrawEdge (0,0,300,200) 0x000A"); // EDGE_SUNKEN
    }));
}

TEST_F(ListDrawTest, OnlyTheRowsInViewAreDrawn)
{
    MakeFilledList(1, 1000, GLS_DETAILS | GLS_GRIDLINES);
    const auto firstAndLast = [&] {
        const Lines texts = Texts();
        return texts.front().substr(14, 9) + " " + texts.back().substr(14, 9) + " " +
               std::to_string(texts.size());
    };
    EXPECT_EQ(firstAndLast(), "\"item0\" ( \"item9\" ( 10");
    EXPECT_EQ(Draw("LineTo"), Lines{}) << "a run that reaches below the window has no grid";
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 500 * 22));
    EXPECT_EQ(firstAndLast(), "\"item500\" \"item509\" 10");
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 500 * 22 - 1));
    EXPECT_EQ(firstAndLast(), "\"item499\" \"item509\" 11") << "a line of it is still in view";
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 65535));
    EXPECT_EQ(firstAndLast().substr(10), "\"item999\" 10");

    // The same among groups of one item each, whose runs would not end the painting.
    for (UINT i = 0; i < 1000; ++i) {
        AddGroup(i);
        list.items[i]->group = i;
    }
    list.Calculate();
    EXPECT_LE(Texts().size(), 14u);
}

TEST_F(ListDrawTest, TheGridStaysWhereItIsWhenTheListScrolls)
{
    MakeFilledList(1, 2, GLS_DETAILS | GLS_GRIDLINES | GLS_HEADER);
    desk::SetThemeColor("LISTVIEW", LVP_LISTITEM, 0, TMT_EDGEFILLCOLOR, RGB(1, 2, 3));
    const Lines grid{
        "LineTo (0,35) (0,79) pen=solid 1 010203",   "LineTo (100,35) (100,79) pen=solid 1 010203",
        "LineTo (0,35) (100,35) pen=solid 1 010203", "LineTo (0,57) (100,57) pen=solid 1 010203",
        "LineTo (0,79) (100,79) pen=solid 1 010203",
    };
    EXPECT_EQ(Draw("LineTo"), grid);
    list.m_siV.nPos = 5;
    EXPECT_EQ(Draw("LineTo"), grid);
    list.m_siV.nPos = 0;
}

TEST_F(ListDrawTest, EachKindOfElementDrawsItsContent)
{
    const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 2, 1);
    const HBITMAP bitmap = CreateBitmap(32, 16, 1, 32, nullptr);
    ImageList_Add(images, bitmap, nullptr);
    DeleteObject(bitmap);
    MakeList();
    list.SetImageList(images);
    const RECT margins{5, 6, 7, 8};
    for (const int type : {LCT_TEXT, LCT_IMAGE, LCT_IMAGETEXT, LCT_TITLE, 0x77}) {
        AddColumn(L"C", type, 0, type == LCT_TITLE ? &margins : nullptr);
    }
    list.InsertItem(0, 0, nullptr, 0, L"text", 1);
    list.SetSubItem(0, 1, 0, L"unseen", 1);
    list.SetSubItem(0, 2, 0, L"both", 1);
    list.SetSubItem(0, 3, 0, L"title", 1);
    list.SetSubItem(0, 4, 0, L"none", 1);
    EXPECT_EQ(Texts(),
              (Lines{"ScriptTextOut \"text\" (3,3) cx=24 latin font=\"Segoe UI\" 12 color=000000",
                     "ScriptTextOut \"both\" (223,3) cx=24 latin font=\"Segoe UI\" 12 color=000000",
                     "ScriptTextOut \"title\" (306,7) cx=30 latin font=\"Segoe UI\" 13 color=000000"}));
    EXPECT_EQ(Draw("ImageList_Draw"),
              (Lines{"ImageList_Draw 1 (103,3,119,19) 0x0000", "ImageList_Draw 1 (203,3,219,19) 0x0000"}));
    list.SetItemImage(0, 2, 2);
    EXPECT_EQ(Draw("ImageList_Draw").size(), 1u) << "there is no such image";
    EXPECT_EQ(Texts().at(1).substr(0, 28), "ScriptTextOut \"both\" (223,3)") << "its room stays";
    list.SetImageList(nullptr);
    EXPECT_EQ(Draw("ImageList_Draw"), Lines{});
    ImageList_Destroy(images);
}

TEST_F(ListDrawTest, TilesShowCaptionsInGrey)
{
    MakeList();
    const RECT rc{10, 2, 90, 18};
    AddColumn(L"Size", LCT_TEXT, LCF_TILECAPTION, &rc);
    list.SetListStyle(GLS_TILES);
    AddItem("12 KB");
    EXPECT_EQ(Texts(),
              (Lines{"ScriptTextOut \"Size:\" (11,3) cx=30 latin font=\"Segoe UI\" 12 color=767676",
                     "ScriptTextOut \"12 KB\" (46,3) cx=30 latin font=\"Segoe UI\" 12 color=000000"}));
}

TEST_F(ListDrawTest, AnItemOfFewerColumnsShowsNoMoreThanItHas)
{
    MakeFilledList(1, 1);
    const RECT rc{10, 2, 90, 18};
    AddColumn(L"Size", LCT_IMAGETEXT, LCF_TILECAPTION, &rc);
    EXPECT_EQ(Texts().size(), 1u);
    list.SetListStyle(GLS_TILES);
    ASSERT_EQ(Texts().size(), 1u);
    EXPECT_EQ(Texts()[0].substr(0, 21), "ScriptTextOut \"Size:\"") << "the caption is the column's";
}

TEST_F(ListDrawTest, CheckBoxesOfAListPressTogether)
{
    MakeList(GLS_DETAILS | GLS_CHECKBOXES);
    list.SetListStyle(GLS_DETAILS | GLS_CHECKBOXES);
    AddColumns(1);
    AddItems(2);
    list.SetItemState(1, 0, LSIS_CHECKED, LSIS_CHECKED);
    const auto boxes = [&] { return After("DrawThemeBackground explorer::BUTTON 3 "); };
    EXPECT_EQ(boxes(), (Lines{"1 (0,4,13,17)", "5 (0,26,13,39)"}));
    list.m_dwState |= GWS_HOT | GWS_PRESSED;
    EXPECT_EQ(boxes(), (Lines{"3 (0,4,13,17)", "7 (0,26,13,39)"}));
    list.m_dwState &= ~GWS_PRESSED;
    EXPECT_EQ(boxes(), (Lines{"2 (0,4,13,17)", "6 (0,26,13,39)"}));
    list.m_dwState &= ~GWS_HOT;
    EnableWindow(list, FALSE);
    EXPECT_EQ(boxes(), (Lines{"4 (0,4,13,17)", "8 (0,26,13,39)"}));
    EXPECT_EQ(Texts().at(0).substr(0, 29), "ScriptTextOut \"item0\" (19,3) ");
}

TEST_F(ListDrawTest, TheHeaderShowsThePressedTheHotAndTheSortedColumn)
{
    MakeFilledList(2, 1, GLS_DETAILS | GLS_HEADER);
    const auto header = [&] { return After("DrawThemeBackground explorer::HEADER "); };
    PointAt(list, 100, 5);
    EXPECT_EQ(header(), (Lines{"1 2 (0,0,100,25)", "1 1 (100,0,200,25)", "3 0 (200,0,300,25)"}))
        << "a divider counts for the cell at its left";
    PointAt(list, 150, 5);
    desk::PressButton();
    EXPECT_EQ(header()[1], "1 3 (100,0,200,25)");
    PointAt(list, 150, 6);
    desk::ReleaseButton();
    PointAt(list, 50, 5);
    EXPECT_EQ(header(),
              (Lines{"1 2 (0,0,100,25)", "1 4 (100,0,200,25)", "4 1 (100,0,200,5)", "3 0 (200,0,300,25)"}));
    PointAt(list, 150, 5);
    list.Sort(1, false);
    EXPECT_EQ(header()[1], "1 5 (100,0,200,25)");
    EXPECT_EQ(header()[2], "4 2 (100,0,200,5)");
    list.m_siH.nPos = 30;
    EXPECT_EQ(header()[0], "1 1 (-30,0,70,25)");
    list.m_siH.nPos = 0;

    // The check box's element has no column, and nothing but a cell above it.
    list.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    EXPECT_EQ(header()[0], "1 1 (0,0,13,25)");
    EXPECT_EQ(Texts().back().substr(0, 26), "ScriptTextOut \"B\" (119,5) ");

    // In the other views it lies over the first rows.
    list.SetListStyle(GLS_ICONS | GLS_HEADER);
    EXPECT_EQ(header().size(), 5u);
    EXPECT_EQ(list.headerArea, 0u);
}

TEST_F(ListDrawTest, AGroupsTitleStandsInItsRowMovedByTheFormat)
{
    MakeList();
    AddColumns(1);
    AddGroup(0, "Title");
    AddItems(1);
    list.Calculate();
    EXPECT_EQ(Texts().at(0),
              "ScriptTextOut \"Title\" (0,0) cx=30 latin font=\"Segoe UI\" 13 bold color=000000");
    const RECT rc{7, 3, 0, 0};
    list.SetGroupFormatRect(&rc);
    EXPECT_EQ(Texts().at(0).substr(0, 27), "ScriptTextOut \"Title\" (7,3)");
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(ListDrawTest, PrintingDrawsTheSameIntoAGivenContext)
{
    MakeFilledList(1, 30);
    const Lines painted = Draw("ScriptTextOut");
    const HDC hdc = GetDC(list);
    desk::ClearDrawing(list);
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), 0);
    EXPECT_EQ(desk::Drawing(list), Lines{});
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT | PRF_NONCLIENT);
    Lines printed = desk::Drawing(list);
    ReleaseDC(list, hdc);
    EXPECT_TRUE(std::any_of(printed.begin(), printed.end(), [](const std::string& line) {
        return line.starts_with("DrawThemeBackground explorer::SCROLLBAR");
    }));
    std::erase_if(printed, [](const std::string& line) { return !line.starts_with("ScriptTextOut"); });
    EXPECT_EQ(printed, painted);
}

TEST_F(ListDrawTest, ThePaintHistoryKeepsAHundredFramesAndReplaysThem)
{
    const desk::Census before = desk::Live();
    MakeFilledList(1, 1);
    list.frameRecord = true;
    for (int i = 0; i < 105; ++i) {
        Draw("");
    }
    EXPECT_EQ(list.frames.GetLength(), 100u);
    SetWindowPos(list, nullptr, 0, 0, 250, 150, SWP_NOMOVE | SWP_NOZORDER);
    Draw("");
    BITMAP bitmap{};
    GetObjectW(list.frames[99], sizeof(bitmap), &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 250);
    EXPECT_EQ(bitmap.bmHeight, 150);
    const int nBitmaps = desk::Live()[desk::Kind::Bitmap] - before[desk::Kind::Bitmap];
    EXPECT_GE(nBitmaps, 100);
    EXPECT_LE(nBitmaps, 101) << "one may be waiting for the next paint";
    list.frameRecord = false;
    list.frameReplay = true;
    list.frameIndex = 42;
    const Lines lines = Draw("");
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.back().starts_with("DrawTextW \"42\" (0,0,50,20)")) << lines.back();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "BitBlt (0,0,250,150) from (0,0) SRCCOPY"), 1);
    list.frameIndex = 1000;
    Draw("");
}

TEST_F(ListDrawTest, AFontThatFailedIsMadeWithTheStyle)
{
    MakeList(GLS_DETAILS);
    LOGFONTW whole{}, made{};
    GetObjectW(list.fontLabelHeader, sizeof(whole), &whole);
    Renew();
    desk::Fail("CreateFontW", 1, ERROR_NOT_ENOUGH_MEMORY, 1);
    MakeList(GLS_DETAILS);
    EXPECT_FALSE(list.fontLabelHeader);
    Send(WM_THEMECHANGED);
    GetObjectW(list.fontLabelHeader, sizeof(made), &made);
    EXPECT_EQ(made.lfHeight, whole.lfHeight);
    EXPECT_EQ(made.lfWeight, whole.lfWeight);
}

TEST_F(ListDrawTest, AListWithoutFontsThemesOrBitmapsStaysUsable)
{
    desk::Fail("CreateFontW", 4);
    desk::Fail("OpenThemeData", 4);
    MakeList(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    EndFaults();
    AddColumns(1);
    desk::Fail("GetTextMetricsW", 2);
    AddItems(3);
    EXPECT_EQ(Texts().size(), 3u) << "a text that could not be prepared does not show, the caption does";
    list.SetFirstSelectedItemIndex(1);
    Draw("");
    desk::Fail("GetDC", 1);
    list.SetItemText(0, 0, L"x");
    EndFaults();
}

} // namespace
