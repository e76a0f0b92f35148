// Images side by side in a PNG, as an image list.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// The PNG is a resource of type RT_RCDATA, its images are as wide as high. The list is the caller's to
// destroy; null where that failed.
HIMAGELIST LoadImageStrip(int nResource);

// Images side by side, for controls; kept until the program ends.
struct SchemeImages
{
    HIMAGELIST hLarge; // null where the ribbon's own will do
    HIMAGELIST hSmall;
};
// Those that can be told from what the active scheme has behind them.
SchemeImages ImagesOfScheme();

} // namespace gallery
