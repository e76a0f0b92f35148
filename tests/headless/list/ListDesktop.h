// A list on a fresh desktop; at the end nothing may be left of what the test made.
#pragma once

#include "../../list/ListFixture.h"
#include "../FreshDesktop.h"

namespace test {

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
