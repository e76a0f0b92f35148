// Images of a list in places that grow with the dots an inch: drawn at whole multiples, so that they stay
// sharp, in the middle of their place.
#pragma once

#include <gesso/api.h>

namespace gesso {

// An image so many times as large as it is.
void DrawImageTimes(HDC hdc, HIMAGELIST hImages, int nImage, POINT pt, int nTimes);

// In a square of a place, with scaling; false, with nothing drawn, with Scaling::None, where an image lies at
// the place's corner as it is, and for one that is larger than its place.
bool DrawImageInPlace(HDC hdc, HIMAGELIST hImages, int nImage, POINT pt, int nSide);

// How much of such a place an image takes that lies at its corner as it is. In a context that is not mirrored
// that does not matter, and nothing is asked.
int WidthInPlace(HDC hdc, HIMAGELIST hImages, int nSide);

} // namespace gesso
