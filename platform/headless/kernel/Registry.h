// The values of the registry that a test has set.
#pragma once

namespace gesso::headless {

void ClearRegistry();

} // namespace gesso::headless
