#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

TEST(GProgressBarTest, HasNoIdAndRepaintsOnItsSettersAlone)
{
    InitControls();
    test::Host host;
    GProgressBar bar;
    ASSERT_TRUE(bar.Create(10, 10, 100, 20, host, 55, 0, WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(GetDlgCtrlID(bar), 0);
    ValidateRect(bar, nullptr);
    bar.SetProgress(500);
    EXPECT_TRUE(GetUpdateRect(bar, nullptr, FALSE));
    ValidateRect(bar, nullptr);
    bar.SetStyle(bar.GetStyle() | 1);
    EXPECT_FALSE(GetUpdateRect(bar, nullptr, FALSE));
    EnableWindow(bar, FALSE);
    EXPECT_TRUE(GetUpdateRect(bar, nullptr, FALSE));
    EXPECT_NE(bar.Destroy(), 0);
    EXPECT_EQ(host.TakeReports(), test::Reports{}) << "a progress bar sends nothing";
}

} // namespace
