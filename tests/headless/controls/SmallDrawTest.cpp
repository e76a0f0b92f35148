// What the back button, the progress bar and the separator draw.

#include "../../support/WithBehavior.h"
#include "DrawFixture.h"

#include <climits>

namespace {

using namespace test;

using SmallDrawTest = DrawFixture;

TEST_F(SmallDrawTest, BackButtonDrawsOnePartOfAnotherClassAfterAThemeChangeAndNoParentBackground)
{
    GNavigationButton button;
    button.Create(0, 0, 30, 30, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(Draw(button, ""), (Lines{
                                    "DrawThemeBackground NAVIGATION 1 1 (0,0,30,30)",
                                    "BitBlt (0,0,30,30) from (0,0) SRCCOPY",
                                }));
    SendMessageW(button, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(Draw(button, "DrawThemeBackground"), Lines{"DrawThemeBackground BUTTON 1 1 (0,0,30,30)"});
}

TEST_F(SmallDrawTest, BackButtonStateByItsTwoLowBits)
{
    OpenState<GNavigationButton> button;
    button.Create(0, 0, 30, 30, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    ExpectStates(button, "NAVIGATION 1 ",
                 {
                     {0, 0, 1},
                     {GWS_KEYDOWN, 0, 1}, // a held space key does not show
                     {GWS_HOT, 0, 2},
                     {GWS_PRESSED, 0, 2}, // dragged outside
                     {GWS_HOT | GWS_PRESSED, 0, 3},
                     {0, WS_DISABLED, 4},
                     {GWS_HOT, WS_DISABLED, 2},
                 });
    button.SetStyle(WS_CHILD | WS_VISIBLE);
    button.m_dwState = GWS_HOT;
    EnableWindow(button, FALSE);
    EXPECT_EQ(Draw(button, "DrawThemeBackground NAVIGATION 1 4").size(), 1u)
        << "cleared after the repaint was asked for, and before the paint";
    EnableWindow(button, TRUE);
    {
        const Modern modern;
        DestroyWindow(button);
        button.Create(0, 0, 30, 30, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    }
    SendMessageW(button, BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(Draw(button, "DrawThemeBackground NAVIGATION 1 3").size(), 1u);
}

TEST_F(SmallDrawTest, BackButtonAndProgressBarArePlainWithoutTheirClasses)
{
    desk::SetThemeClassAvailable("NAVIGATION", false);
    desk::SetThemeClassAvailable("PROGRESS", false);
    GNavigationButton button;
    button.Create(0, 0, 30, 30, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(Draw(button, "DrawFrameControl").size(), 1u);
    DestroyWindow(button);
    GProgressBar bar;
    bar.Create(0, 0, 100, 20, Parent(), 0, 0, WS_CHILD | WS_VISIBLE);
    bar.SetProgress(300);
    EXPECT_EQ(Draw(bar, "DrawEdge").size(), 1u);
    EXPECT_EQ(Draw(bar, "FillRect (2,2,30,18)").size(), 1u) << "within the edge";
}

class ProgressDrawTest : public DrawFixture
{
protected:
    void SetUp() override { desk::SetThemeMargins("PROGRESS", PP_BAR, 0, TMT_CONTENTMARGINS, {3, 5, 2, 4}); }
    void Make(int cx) { bar.Create(0, 0, cx, 20, Parent(), 0, 0, WS_CHILD | WS_VISIBLE); }
    // The fill's right edge; its left one is at 3.
    int RightAt(UINT nProgress)
    {
        bar.SetProgress(nProgress);
        const Lines lines = Draw(bar, "DrawThemeBackground PROGRESS 5 1 (3,2,");
        EXPECT_EQ(lines.size(), 1u) << nProgress;
        return lines.empty() ? 0 : std::stoi(lines[0].substr(lines[0].find("(3,2,") + 5));
    }

    GProgressBar bar;
};

TEST_F(ProgressDrawTest, WholeRecord)
{
    Make(109);
    bar.SetProgress(500);
    EXPECT_EQ(Draw(bar, ""), (Lines{
                                 "DrawThemeParentBackground (0,0,109,20)",
                                 "FillRect (0,0,400,300) brush=sys15 F0F0F0 clip=(0,0,109,20)",
                                 "DrawThemeBackground PROGRESS 1 0 (0,0,109,20)",
                                 "DrawThemeBackground PROGRESS 5 1 (3,2,53,16)",
                                 "BitBlt (0,0,109,20) from (0,0) SRCCOPY",
                             }));
}

TEST_F(ProgressDrawTest, FillIsTruncatedAndUnlimited)
{
    Make(109); // 101 pixels between the margins
    EXPECT_EQ(RightAt(0), 3);
    EXPECT_EQ(RightAt(1), 3);
    EXPECT_EQ(RightAt(999), 103);
    EXPECT_EQ(RightAt(1000), 104);
    EXPECT_EQ(RightAt(2000), 205) << "drawn past the bar";
    EXPECT_EQ(RightAt(40'000'000), 4'040'003) << "beyond 32 bits before the division";
    EXPECT_GT(RightAt(UINT_MAX), 4'040'003);
    DestroyWindow(bar);
    Make(80);
    EXPECT_EQ(RightAt(375), 29) << "26.99...: the division comes before the product";
    DestroyWindow(bar);
    Make(4); // less room than the margins take
    EXPECT_EQ(RightAt(1000), -1);
}

// Unlike the other controls': a host that changes the style would see another bar.
TEST_F(ProgressDrawTest, ChangeOfTheStyleLeavesTheThemeThatWasOpened)
{
    Make(109);
    desk::Fail("OpenThemeData");
    SendMessageW(bar, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(RightAt(1000), 104) << "still drawn by the style";
    EXPECT_EQ(desk::PendingFaults(), std::vector<std::string>{"OpenThemeData"}) << "nothing is opened";
    desk::ClearFaults();
}

TEST_F(ProgressDrawTest, SeparatorDrawsNothing)
{
    GSeparator separator;
    separator.Create(100, 0, 6, 100, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(Draw(separator, ""), Lines{});
}

} // namespace
