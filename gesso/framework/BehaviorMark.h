// How a window acts that belongs to another one.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A control's window that has just been made acts as another control's does, whatever controls are made as
// now. False, with nothing done, where that could not be kept.
bool TakeBehavior(HWND hwnd, HWND hwndOwner);

} // namespace gesso
