// The virtual clock behind timers, message times, GetTickCount and GetSystemTimeAsFileTime.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// The clock of the calling thread, for its desktop: another thread may move it on, under the lock.
ULONGLONG& ClockOfThread();

// Sets that clock, in milliseconds since Reset(). Only the driver's operations move it.
void SetNow(ULONGLONG milliseconds);

} // namespace gesso::headless
