// The end of the faults that a test has ordered.
#pragma once

#include <platform/headless/headless.h>

#include <gtest/gtest.h>

namespace test {

// Drops what is left of them. One that never fired has tested nothing, and fails the test.
inline void EndFaults()
{
    EXPECT_EQ(gesso::headless::PendingFaults(), std::vector<std::string>()) << "ordered, and nobody asked";
    gesso::headless::ClearFaults();
}

} // namespace test
