// Timers on the virtual clock.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

void KillTimersOf(HWND hwnd);
// When the next timer falls due; nothing if there is no timer.
std::optional<uint64_t> NextDue();

} // namespace gesso::headless
