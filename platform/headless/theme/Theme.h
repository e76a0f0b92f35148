// What the window manager tells the visual-styles services.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// Forgets what SetWindowTheme told a window that is going.
void ForgetWindowTheme(HWND hwnd);

} // namespace gesso::headless
