// The platform's own accessible objects, for windows that have none.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// A new object with one reference; null for an object that the platform has none for.
IAccessible* MakeStandardAccessible(HWND hwnd, LONG object);

// A fresh reference to a part of a window, as AccessibleObjectFromWindow gives it; null where it gives none.
IDispatch* DispatchOf(HWND hwnd, LONG object);

} // namespace gesso::headless
