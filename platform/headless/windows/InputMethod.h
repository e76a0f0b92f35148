// The input method's share in what windows are told.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Tells a window that it has the input method now, or has it no longer.
void TellInputMethod(Window& window, bool active);
// What becomes of a WM_IME_COMPOSITION that a window leaves to the platform: its result comes as characters.
void TypeResult(Window& window, LPARAM what);

} // namespace gesso::headless
