// A fresh desktop below a fixture; at the end nothing may be left of what the test made.
#pragma once

#include <gesso/gesso.h>
#include <platform/headless/headless.h>

#include <gtest/gtest.h>

namespace test {

namespace desk = gesso::headless;

class FreshDesktop
{
public:
    FreshDesktop()
    {
        desk::Reset();
        InitControls();
        m_before = desk::Live();
    }
    ~FreshDesktop()
    {
        EXPECT_EQ(desk::Live(), m_before);
        EXPECT_TRUE(desk::HeapIsClean());
    }
    FreshDesktop(const FreshDesktop&) = delete;
    FreshDesktop& operator=(const FreshDesktop&) = delete;

private:
    desk::Census m_before;
};

} // namespace test
