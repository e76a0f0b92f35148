// Events for accessibility clients, and who hears them.
#pragma once

#include "../windows/Desktop.h"

namespace gesso::headless {

// What the platform itself tells of a window.
void TellEvent(DWORD event, const Window& window, LONG object);
// Drops the hooks of a thread whose desktop goes.
void DropEventHooks(const Desktop& going);

} // namespace gesso::headless
