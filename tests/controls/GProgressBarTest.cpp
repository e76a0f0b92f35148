#include "../support/Host.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

class GProgressBarTest : public testing::Test
{
protected:
    void SetUp() override { InitControls(); }

    test::Host host;
};

TEST_F(GProgressBarTest, HasNoIdAndRepaintsOnItsSettersAlone)
{
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

TEST_F(GProgressBarTest, PaintsAnyValueInAnySize)
{
    GProgressBar bar;
    bar.Create(10, 10, 100, 20, host, 0, 0, WS_CHILD | WS_VISIBLE);
    for (const int cx : {0, 1, 100, 3000}) {
        bar.MoveWindow(10, 10, cx, 20);
        for (const UINT nProgress : {0u, 999u, 1000u, 2500u, 5'000'000u, UINT{INT_MAX}, UINT_MAX}) {
            bar.SetProgress(nProgress);
            UpdateWindow(bar);
            EXPECT_FALSE(GetUpdateRect(bar, nullptr, FALSE));
        }
    }
    DestroyWindow(bar);
}

TEST_F(GProgressBarTest, MadeByNameIsTheWindowsOwn)
{
    const HWND hwnd =
        CreateWindowExW(0, L"GProgressBar", L"", WS_CHILD, 0, 0, 100, 20, host, nullptr, nullptr, nullptr);
    EXPECT_TRUE(dynamic_cast<GProgressBar*>(GWnd::FromHwnd(hwnd)));
    DestroyWindow(hwnd);
}

} // namespace
