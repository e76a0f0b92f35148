// Timers on the virtual clock.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

void KillTimersOf(const Window& window);
// When the next timer of a thread falls due; nothing if it has no timer.
std::optional<uint64_t> NextDue(const Desktop& desktop);

} // namespace gesso::headless
