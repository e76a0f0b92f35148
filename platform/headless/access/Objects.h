// Accessible objects on their way from a window to a client.
#pragma once

#include "../windows/Desktop.h"

namespace gesso::headless {

// Lets go of what windows of a thread gave out and nobody took, since its desktop goes.
void DropUntaken(const Desktop& going);

} // namespace gesso::headless
