// Faults that a test has ordered, looked up by the operations that can fail.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// True if this call of the operation is to fail; the last error is then set, and the operation returns its
// failure value without doing anything.
bool FaultFires(const char* operation);

} // namespace gesso::headless
