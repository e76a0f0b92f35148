// Timers of the simulated desktop, on its virtual clock.
#include "DesktopTest.h"

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

std::vector<std::string> s_fired;

void CALLBACK OnThreadTimer(HWND, UINT, UINT_PTR id, DWORD time)
{
    s_fired.push_back(std::to_string(id) + "@" + std::to_string(time));
}

class TimerClockTest : public DesktopTest
{
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        s_fired.clear();
    }
};

TEST_F(TimerClockTest, TimersFireInTheOrderOfTheirTimes)
{
    const HWND top =
        MakeTop({0, 0, 10, 10}, [](HWND, UINT message, WPARAM id, LPARAM) -> std::optional<LRESULT> {
            if (message == WM_TIMER) {
                s_fired.push_back("w" + std::to_string(id) + "@" + std::to_string(Now()));
            }
            return std::nullopt;
        });
    const UINT_PTR thread = SetTimer(nullptr, 0, 100, OnThreadTimer);
    SetTimer(top, 7, 70, nullptr);
    Advance(210);
    const std::string t = std::to_string(thread);
    EXPECT_EQ(s_fired, (std::vector<std::string>{"w7@70", t + "@100", "w7@140", t + "@200", "w7@210"}));
    EXPECT_EQ(Now(), 210U);
}

TEST_F(TimerClockTest, ATimerGoesWithItsWindowOrWhenItIsKilled)
{
    const HWND top = MakeTop();
    SetTimer(top, 1, 10, OnThreadTimer);
    SetTimer(top, 2, 10, OnThreadTimer);
    EXPECT_EQ(Live()[Kind::Timer], 2);
    KillTimer(top, 1);
    EXPECT_EQ(Live()[Kind::Timer], 1);
    DestroyWindow(top);
    EXPECT_EQ(Live()[Kind::Timer], 0);
}

} // namespace
