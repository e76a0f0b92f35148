// A page of a dialog: a child dialog of the host's template, which the platform lays out once. With scaling
// it grows with the dots an inch of the dialog around it, and what stands on it with it.
#pragma once

#include <gesso/api.h>

namespace gesso {

// With scaling, right after a page is made: from now on it is the library alone that lays it out again.
void KeepPage(HWND hwndPage);

// What the page is laid out for.
UINT PageDpi(HWND hwndPage);

// Lays a page out for the dots of the dialog around it, or as the platform did without scaling: the places
// and sizes of its controls grow by the factor, and then its own size; its controls follow that have the font
// of its template. Fonts that the host has given stay. Tells windows of the host's, which may do anything.
void FitPage(HWND hwndPage);

} // namespace gesso
