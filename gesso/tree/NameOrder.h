// The order of names that people know from the shell: capitals and small letters are alike, and digits count
// as numbers, "file 2" before "file 10".
#pragma once

#include <gesso/api.h>

namespace gesso {

// Below, at or above 0, as a stands before b, at one place with it, or behind it.
int CompareAsShell(LPCWSTR a, LPCWSTR b);

} // namespace gesso
