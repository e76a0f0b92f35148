// The tests of the simulated desktop's own powers.
#pragma once

#include "../../support/TestWindow.h"
#include "../Faults.h"

namespace gesso::headless::test {

using namespace ::test;

// Starts each test with a fresh desktop, and fails it if it leaves anything behind or a fault never fired.
class DesktopTest : public WindowsTest
{
protected:
    void SetUp() override
    {
        Reset();
        m_before = Live();
    }
    void TearDown() override
    {
        EndFaults();
        Reset();
        EXPECT_EQ(Live(), m_before);
    }

private:
    Census m_before;
};

// What all test windows get by input, or one.
inline std::vector<Seen> TracedInput(const std::function<void()>& act, HWND hwnd = nullptr)
{
    return Traced(
        [&] {
            act();
            Pump();
        },
        hwnd);
}

} // namespace gesso::headless::test
