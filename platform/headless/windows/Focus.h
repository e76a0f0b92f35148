// The focus, the active window and the capture.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Makes a top-level window the active one, or none with null. `byMouse` tells WA_CLICKACTIVE from WA_ACTIVE.
bool Activate(Window* window, bool byMouse);
// Makes the window that is next in line the active one, since `leaving` can be it no longer.
void ActivateNext(Window& leaving);
void MoveFocus(Window* window);
// Ends the caret that a window has, if it has one.
void EndCaretOf(const Window& window);
// Takes focus, capture and activation from a window that is gone, without messages to it.
void ForgetFocus(Window& window);

} // namespace gesso::headless
