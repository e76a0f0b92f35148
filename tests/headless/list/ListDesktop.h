// A list on a fresh desktop; at the end nothing may be left of what the test made.
#pragma once

#include <platform/headless/headless.h>

#include "../../list/ListFixture.h"

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

class ListDesktop : private FreshDesktop, public ListFixture
{
protected:
    // Takes the pointer to a place in the list.
    static void MovePointer(int x, int y)
    {
        desk::MoveMouse(HOST_X + x, HOST_Y + y);
        desk::Pump();
    }
};

} // namespace test
