#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

TEST(GProgressBarTest, HasNoIdAndRepaintsOnItsSettersAlone)
{
    test::Host host;
    GProgressBar bar;
    ASSERT_TRUE(bar.Create(10, 10, 100, 20, host, 55, 0, WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(GetDlgCtrlID(bar), 0);
    test::TakeRepaint(bar);
    bar.SetProgress(500);
    EXPECT_TRUE(test::TakeRepaint(bar));
    bar.SetStyle(bar.GetStyle() | 1);
    EXPECT_FALSE(test::TakeRepaint(bar));
    EnableWindow(bar, FALSE);
    EXPECT_TRUE(test::TakeRepaint(bar));
    EXPECT_NE(bar.Destroy(), 0);
    EXPECT_EQ(host.TakeReports(), test::Reports{}) << "a progress bar sends nothing";
}

} // namespace
