// Invalid regions.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Invalidates a part of the client area and, by the rules of RedrawWindow, of the windows within it.
// `area` is in client coordinates; RDW_FRAME, RDW_ERASE, RDW_NOCHILDREN and RDW_ALLCHILDREN count.
void Invalidate(Window& window, Area area, UINT flags);
void InvalidateWhole(Window& window, UINT flags);
// Sends WM_NCPAINT and WM_ERASEBKGND where they are due, in the window and all within it.
void EraseNow(Window& window);
// A snapshot, topmost first: what is sent to one may change the others.
std::vector<WindowRef> VisibleChildren(const Window& window);
// Invalidates what a window leaves uncovered of its parent.
void Uncover(Window& window, const RECT& screen);

} // namespace gesso::headless
