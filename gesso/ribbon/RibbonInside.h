// What is Gesso's own of a ribbon, behind the one hold that its class has for it.
#pragma once

#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/OwnedSet.h>

namespace gesso {

struct RibbonInside
{
    OwnedSet<GRibbonPage*, GRibbon::DeletePage> ownPages;
    HIMAGELIST hLargeImages = nullptr; // the host's; null for the ribbon's own
    HIMAGELIST hSmallImages = nullptr;
    HWND hwndBefore = nullptr; // had the focus before the ribbon
    UINT nTurns = 0;           // of pages: a later one tells for those before it
};

} // namespace gesso
