// Timers.
#include "../support/TestWindow.h"
#include "../support/User.h"

using namespace test;
using namespace test::user;

namespace {

int s_fired;

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD)
{
    ++s_fired;
}

class TimerTest : public WindowsTest
{
protected:
    void SetUp() override
    {
        WindowsTest::SetUp();
        s_fired = 0;
    }
};

TEST_F(TimerTest, ATimerSetAgainStartsAnewAndAKilledOneIsSilent)
{
    const HWND top = MakeTop();
    SetTimer(top, 1, 2000, OnTimer);
    Wait(1200);
    SetTimer(top, 1, 2000, OnTimer);
    Wait(1200);
    EXPECT_EQ(s_fired, 0);
    EXPECT_TRUE(KillTimer(top, 1));
    EXPECT_FALSE(KillTimer(top, 1));
    SetTimer(top, 2, 10, OnTimer);
    Wait(300);
    EXPECT_GT(s_fired, 0);
}

TEST_F(TimerTest, NoPeriodIsShorterThanTenMilliseconds)
{
    const UINT_PTR timer = SetTimer(nullptr, 0, 1, OnTimer);
    Wait(100);
    EXPECT_GT(s_fired, 0);
    EXPECT_LE(s_fired, 10);
    EXPECT_TRUE(KillTimer(nullptr, timer));
}

TEST_F(TimerTest, ATimerGoesWithItsWindow)
{
    const HWND top = MakeTop();
    SetTimer(top, 1, 10, OnTimer);
    DestroyWindow(top);
    Wait(100);
    EXPECT_EQ(s_fired, 0);
    EXPECT_FALSE(KillTimer(top, 1));
    EXPECT_EQ(SetTimer(top, 1, 10, OnTimer), 0U);
}

} // namespace
