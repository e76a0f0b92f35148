// The image lists that a ribbon draws its items from.
#pragma once

#include <gesso/framework/OwnedHandles.h>

namespace gesso {

struct RibbonImages
{
    HIMAGELIST hLarge; // 32 by 32 pixels
    HIMAGELIST hSmall; // 16 by 16 pixels
};

// The caller destroys both lists.
RibbonImages MakeEmptyRibbonImages();

// From the template resource of that name. A list is empty where the template is missing, has no image for
// it, or is malformed.
RibbonImages LoadRibbonImages(HINSTANCE hInstance, LPCWSTR pszTemplate);

} // namespace gesso
