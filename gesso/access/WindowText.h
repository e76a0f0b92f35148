// The text of a window, as the platform gives it: a caption, or what WM_GETTEXT answers.
#pragma once

#include <gesso/access/AccessibleSide.h>

namespace gesso {

AccessString TextOfWindow(HWND hwnd);

} // namespace gesso
