// What the process holds of the system.
#pragma once

#include <gesso/api.h>

#include <vector>

namespace gallery {

DWORD GdiObjects();
// By the types of the system's table; all as one where it has none to be read.
std::vector<int> GdiObjectsByType();
// Of a thread, with those inside of others.
DWORD Windows(DWORD dwThread);

} // namespace gallery
