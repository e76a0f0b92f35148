// How input that has no window yet is kept.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Appends an event. Moves that follow one another become one.
void QueueInput(Desktop& desktop, InputEvent event);
// Brings the key states that GetKeyState answers up to an event that a message loop takes out.
void SeeKeys(const InputEvent& event, bool remove);

} // namespace gesso::headless
