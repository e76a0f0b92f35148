// What a list that was made in Modern draws otherwise.

#include "../../list/ModernListFixture.h"
#include "../FreshDesktop.h"

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

} // namespace
