// How large the gallery is. Its pages are laid out for 96 dots an inch; the canvas brings what they make and
// place to the dots that the gallery is drawn for.
#pragma once

#include <gesso/api.h>

namespace gallery {

// The dots an inch; those of 96 at first.
int Dots();
void SetDots(int nDots);

// A length of a page in pixels, and back.
int Scaled(int nLength);
int Unscaled(int nPixels);
RECT Scaled(const RECT& rc);

// Brings the windows below one that a page has just made to the dots, with their places.
void ScaleChildren(HWND hwndParent);
// Tells every control below a window of the dots, as a window does that has come to another screen.
void TellDots(HWND hwndParent);

} // namespace gallery
