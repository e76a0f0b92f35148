// What a list that was made in Modern draws otherwise.

#include "../../list/ModernListFixture.h"
#include "../../support/Numbers.h"
#include "../FreshDesktop.h"

#include <algorithm>

namespace {

using namespace test;

class ListModernDrawTest : private FreshDesktop, public ModernListFixture
{
protected:
    Lines Draw(const std::string& word) { return NextPaint(list, word); }
};

TEST_F(ListModernDrawTest, TheGridScrollsWithTheRowsAndShowsInLongListsToo)
{
    MakeFilledList(1, 2, GLS_DETAILS | GLS_GRIDLINES | GLS_HEADER);
    desk::SetThemeColor("LISTVIEW", LVP_LISTITEM, 0, TMT_EDGEFILLCOLOR, RGB(1, 2, 3));
    list.m_siV.nPos = 5;
    EXPECT_EQ(Draw("LineTo"),
              (Lines{"LineTo (0,30) (0,74) pen=solid 1 010203", "LineTo (100,30) (100,74) pen=solid 1 010203",
                     "LineTo (0,30) (100,30) pen=solid 1 010203", "LineTo (0,52) (100,52) pen=solid 1 010203",
                     "LineTo (0,74) (100,74) pen=solid 1 010203"}));
    list.m_siV.nPos = 0;
    AddItems(20);
    EXPECT_GT(Draw("LineTo").size(), 5U);
}

TEST_F(ListModernDrawTest, TheCursorHasAFocusRectangleOnceCuesAreShown)
{
    Fill(2, GLS_DETAILS, 1);
    EXPECT_EQ(Draw("DrawFocusRect"), Lines{});
    Send(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(Draw("DrawFocusRect"), Lines{"DrawFocusRect (0,22,100,44)"});
    SetFocus(host);
    EXPECT_EQ(Draw("DrawFocusRect"), Lines{});
}

TEST_F(ListModernDrawTest, ADragFromEmptyRoomDrawsItsRectangle)
{
    Fill(2, GLS_DETAILS, 1);
    PointAt(list, 60, 30);
    Mouse(WM_LBUTTONDOWN, 20, 100);
    Mouse(WM_MOUSEMOVE, -5, 30);
    EXPECT_EQ(list.m_siH.nPos, 0) << "all of it shows";
    Mouse(WM_MOUSEMOVE, 60, 30);
    EXPECT_EQ(Draw("DrawFocusRect"), Lines{"DrawFocusRect (20,30,61,101)"});
    Mouse(WM_LBUTTONUP, 60, 30);
    EXPECT_EQ(Draw("DrawFocusRect"), Lines{});
}

TEST_F(ListModernDrawTest, AColumnsCaptionShowsAtOnceAndOnlyInDetails)
{
    MakeFilledList(1, 0, GLS_DETAILS | GLS_HEADER);
    list.SetColumnText(0, L"New");
    EXPECT_EQ(Draw("ScriptTextOut"),
              Lines{"ScriptTextOut \"New\" (3,5) cx=18 latin font=\"Segoe UI\" 12 color=000000"});
    list.SetListStyle(GLS_ICONS | GLS_HEADER);
    EXPECT_EQ(Draw("ScriptTextOut"), Lines{});
}

TEST_F(ListModernDrawTest, WhatACellHasNoRoomForIsCutOff)
{
    const HIMAGELIST images = ImageList_Create(32, 32, ILC_COLOR32, 1, 1);
    const HBITMAP bitmap = CreateBitmap(32, 32, 1, 32, nullptr);
    ImageList_Add(images, bitmap, nullptr);
    DeleteObject(bitmap);
    MakeFilledList(1, 1, GLS_DETAILS | GLS_HEADER);
    list.SetImageList(images);
    EXPECT_EQ(Draw("ScriptTextOut").size(), 2U);
    list.SetColumnCx(0, 5);
    EXPECT_EQ(Draw("ScriptTextOut"), Lines{}) << "neither text nor caption";
    list.SetColumnCx(0, 100);
    list.SetItemHeight(8);
    const Lines tall = Draw("ScriptTextOut \"item0\"");
    ASSERT_EQ(tall.size(), 1U);
    EXPECT_NE(tall[0].find("clip=(0,35,100,43)"), std::string::npos) << tall[0];
    list.SetItemHeight(22);
    list.RemoveAllColumns();
    AddColumn(L"", LCT_IMAGE);
    list.SetColumnCx(0, 20);
    EXPECT_EQ(Draw("ImageList_Draw"), Lines{"ImageList_Draw 0 (3,38,20,57) 0x0000"});
    list.SetColumnCx(0, 2);
    EXPECT_EQ(Draw("ImageList_Draw"), Lines{});
    list.SetListStyle(GLS_ICONS);
    const RECT rc = list.columnDraw[1].rect;
    const Lines drawn = Draw("ImageList_Draw");
    ASSERT_EQ(drawn.size(), 1U);
    const RECT rcImage{5 + rc.left, 5 + rc.top, 5 + rc.left + 32, 5 + rc.top + 32};
    EXPECT_EQ(drawn[0], "ImageList_Draw 0 (" + Numbers(rcImage) + ") 0x0000") << "in the middle of the icon";
    list.SetImageList(nullptr);
    ImageList_Destroy(images);
}

TEST_F(ListModernDrawTest, TextsThatAreTooWideBeginAtTheLeftAndIconsAreCentred)
{
    MakeFilledList(1, 0, GLS_DETAILS);
    list.SetColumnFormat(0, DT_CENTER | DT_SINGLELINE);
    AddItem("a text that is too wide for its column");
    Lines drawn = Draw("ScriptTextOut");
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_NE(drawn[0].find("\" (3,3)"), std::string::npos) << drawn[0];
    list.SetColumnFormat(0, DT_SINGLELINE);
    list.SetItemText(0, 0, L"abcd");
    list.SetListStyle(GLS_ICONS);
    drawn = Draw("ScriptTextOut");
    ASSERT_EQ(drawn.size(), 1U);
    // 24 pixels in the middle of 90 that begin at 5.
    EXPECT_NE(drawn[0].find("\" (38,"), std::string::npos) << drawn[0];
}

TEST_F(ListModernDrawTest, TheHeaderIsPaintedBehindTheCheckBoxesAndTheCursorOverTheGrid)
{
    Fill(2, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES | GLS_GRIDLINES, 1);
    const int first = list.columnDraw[1].rect.left;
    const Lines header = Draw("DrawThemeBackground explorer::HEADER");
    ASSERT_GT(header.size(), 1U);
    EXPECT_TRUE(header[0].ends_with("(0,0," + std::to_string(first) + ",25)")) << header[0];
    Send(WM_KEYDOWN, VK_DOWN);
    const Lines lines = Draw("");
    const auto last = [&](const std::string& word) {
        const auto it = std::find_if(lines.rbegin(), lines.rend(),
                                     [&](const std::string& line) { return line.starts_with(word); });
        return lines.rend() - it;
    };
    EXPECT_GT(last("DrawFocusRect"), last("LineTo"));
}

TEST_F(ListModernDrawTest, AGroupsTitleHasTheRoomBesideTheColumns)
{
    MakeFilledList(1, 0, GLS_DETAILS);
    list.SetColumnCx(0, 20);
    list.InsertGroup(DT_SINGLELINE, L"A title", 0, 0);
    AddItem("x");
    list.Calculate();
    EXPECT_TRUE(Draw("ScriptTextOut")[0].starts_with("ScriptTextOut \"A title\""));
}

TEST_F(ListModernDrawTest, AChangedBarIsPaintedOnce)
{
    Fill(40, GLS_DETAILS, 1);
    desk::Pump();
    desk::ClearDrawing(list);
    list.RemoveItem(0);
    list.RemoveItem(0);
    desk::Pump();
    const Lines lines = desk::Drawing(list);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line.ends_with(" nonclient"); }),
              1);
}

TEST_F(ListModernDrawTest, ADragThatRestsBeyondTheRowsGoesOn)
{
    Fill(60, GLS_DETAILS, 1);
    Mouse(WM_LBUTTONDOWN, 150, 100);
    Mouse(WM_MOUSEMOVE, 50, 150);
    const std::string selected = list.Selected();
    EXPECT_EQ(ToldBy([&] { Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120))); }), "-101 -1");
    EXPECT_GT(list.Selected().size(), selected.size()) << "down to where the pointer is now";
    Mouse(WM_MOUSEMOVE, 50, LIST_CY + 10);
    const int pos = list.m_siV.nPos;
    desk::Advance(300);
    EXPECT_GT(list.m_siV.nPos, pos + 22);
    Mouse(WM_LBUTTONUP, 50, LIST_CY + 10);
    const int last = list.m_siV.nPos;
    desk::Advance(300);
    EXPECT_EQ(list.m_siV.nPos, last);
}

} // namespace
