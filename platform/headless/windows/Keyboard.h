// Keys and characters.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// The message of a key event: to the focus, or with no focus to the active window as a system key. False if
// no window is there to get it.
bool KeyMessage(const InputEvent& event, MSG& message);

// The key that types a character in the American layout; 0 if none does. `shift` tells whether with Shift.
UINT KeyOf(char16_t character, bool& shift);

} // namespace gesso::headless
