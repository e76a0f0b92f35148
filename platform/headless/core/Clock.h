// The virtual clock behind timers, message times, GetTickCount and GetSystemTimeAsFileTime.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// Sets the clock, in milliseconds since Reset(). Only the driver's operations move it.
void SetNow(ULONGLONG milliseconds);

} // namespace gesso::headless
