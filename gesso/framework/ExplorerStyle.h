// The style that lists and trees have: that of the platform's file manager.
#pragma once

#include <gesso/api.h>

namespace gesso {

// For a new window.
void TakeExplorerStyle(HWND hwnd);
// At WM_THEMECHANGED: where the window could not be given the style before, it is now.
void MendExplorerStyle(HWND hwnd);

} // namespace gesso
