// The settings of the simulated system.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// Puts every setting of the metrics back to its first value.
void ResetMetrics();

} // namespace gesso::headless
