// Who ends an object that a host made.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Whether a host gave a window its object, by OwnByWindow.
bool IsGivenToWindow(HWND hwnd);

} // namespace gesso
