// The style that lists and trees have: that of the platform's file manager.
#pragma once

#include <gesso/api.h>

namespace gesso {

// For a new window. False where the platform refuses.
bool TakeExplorerStyle(HWND hwnd);
// At WM_THEMECHANGED: where the window could not be given the style before, it is now. True then: the message
// has come and been answered within, and the control may be gone.
bool MendExplorerStyle(HWND hwnd);

} // namespace gesso
