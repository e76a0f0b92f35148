#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

TEST(GProgressBarTest, HasNoIdAndRepaintsOnItsSettersAlone)
{
    Host host;
    GProgressBar bar;
    ASSERT_TRUE(bar.Create(10, 10, 100, 20, host, 55, 0, WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(GetDlgCtrlID(bar), 0);
    TakeRepaint(bar);
    bar.SetProgress(500);
    EXPECT_TRUE(TakeRepaint(bar));
    bar.SetStyle(bar.GetStyle() | 1);
    EXPECT_FALSE(TakeRepaint(bar));
    EnableWindow(bar, FALSE);
    EXPECT_TRUE(TakeRepaint(bar));
    EXPECT_NE(bar.Destroy(), 0);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "a progress bar sends nothing";
}

} // namespace
