// The windows of all controls that live, of all threads: who repaints when the look changes.
#pragma once

#include <gesso/api.h>

namespace gesso {

// False without memory.
bool AddLiveControl(HWND hwnd);
void RemoveLiveControl(HWND hwnd);

// Each of them repaints with its frame, and so does what it stands in.
void RepaintControls();

} // namespace gesso
