// How windows go when their thread ends.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Takes a window of a thread that ends out of the desktop without a word to it; what other threads have in it
// they are told to destroy.
void Abandon(Window& window);

} // namespace gesso::headless
