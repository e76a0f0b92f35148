// The resources that the library was built with.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// Adds them to the library's module, as loading it does.
void AddLibraryResources();

} // namespace gesso::headless
