// The list of platform objects that live, by kind. Every operation that makes or ends one keeps it here.
#pragma once

#include "../headless.h"

namespace gesso::headless {

void Track(Kind kind, const void* object);
// False if the object is not live: a stale or foreign handle.
bool Untrack(Kind kind, const void* object);
bool IsLive(Kind kind, const void* object);

} // namespace gesso::headless
