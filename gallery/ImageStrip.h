// Images side by side in a PNG, as an image list.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// The PNG is a resource of type RT_RCDATA, its images are as wide as high. The list is the caller's to
// destroy; null where that failed.
HIMAGELIST LoadImageStrip(int nResource);

} // namespace gallery
