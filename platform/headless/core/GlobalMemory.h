// Blocks of global memory.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// The memory behind a handle, locked or not; null, with the last error set, for a stale handle.
void* BlockOf(HGLOBAL handle);

} // namespace gesso::headless
