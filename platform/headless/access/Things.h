// What accessibility clients see of the windows of the calling thread.
#pragma once

#include "../windows/Desktop.h"

namespace gesso::headless {

using AccessibleRef = std::shared_ptr<IAccessible>; // a counted reference

// An object, or a child of one that is no object, as it was when it was looked at.
struct Thing
{
    AccessibleRef object;
    LONG child = CHILDID_SELF;
    HWND hwnd = nullptr;
    int depth = 0;
    DWORD role = 0;
    DWORD state = 0;
    std::string name;

    VARIANT Id() const;
};
using Things = std::vector<Thing>;

// Those of a visible top-level window and of all windows in it, but for what is invisible.
Things ThingsIn(HWND top);
// Those below a thing, also where they are invisible or in other windows.
Things ThingsBelow(const Thing& thing);
// The state as it is now.
DWORD StateNow(const Thing& thing);

// "push button "Save"".
std::string Described(DWORD role, std::string_view name);
// One line a thing, in order, as a tree.
std::string Described(const Things& things);

} // namespace gesso::headless
