// What is Gesso's own of a ribbon, behind the one hold that its class has for it.
#pragma once

#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/OwnedSet.h>

namespace gesso {

// A friend of GRibbon, whose tabs and page it tells of.
struct RibbonInside
{
    // --- What assistive technology hears. A listener may do anything, so that it is told last. Groups and
    // items have no number of their own among the ribbon's children: it is the page's that changes.

    // Of a tab among the ribbon's children, from 1; 0 for a hidden one, and for none.
    static LONG NumberOfTab(const GRibbon& ribbon, UINT nIndex);
    static void TellTab(const GRibbon& ribbon, UINT nIndex, DWORD dwEvent);
    // Nothing without a ribbon, and for a page that is not the active one.
    static void TellPage(const GRibbon* pRibbon, const GRibbonPage* pPage, DWORD dwEvent);
    // Where the keyboard is now.
    static void TellFocus(const GRibbon& ribbon);
    // Another tab is active.
    static void TellTurn(const GRibbon& ribbon);
    static void TellAdded(const GRibbon& ribbon, UINT nIndex);
    // After a tab with that number went, and before it that page was shown.
    static void TellRemoved(const GRibbon& ribbon, LONG nFormer, const GRibbonPage* pShown);
    // After a tab that had that number was shown or hidden.
    static void TellStatus(const GRibbon& ribbon, UINT nIndex, LONG nFormer);
    static void TellTitle(const GRibbon* pRibbon, const GRibbonPage* pPage);

    OwnedSet<GRibbonPage*, GRibbon::DeletePage> ownPages;
    HIMAGELIST hLargeImages = nullptr; // the host's; null for the ribbon's own
    HIMAGELIST hSmallImages = nullptr;
    HWND hwndBefore = nullptr; // had the focus before the ribbon
    UINT nTurns = 0;           // of pages: a later one tells for those before it
};

} // namespace gesso
