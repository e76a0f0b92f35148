// Ribbons and pages that show what they hold inside, and a hand to fill and click them.
#pragma once

#include "../support/AllowMisuse.h"
#include "../support/Host.h"

#include <gesso/ribbon/GRibbonPage.h>

namespace test::ribbon {

using namespace test;

struct OpenRibbon : GRibbon
{
    using GRibbon::GRibbon;
    using GRibbon::HitTest;
    using GRibbon::m_aTabs;
    using GRibbon::m_hLargeImages;
    using GRibbon::m_hSmallImages;
    using GRibbon::m_nActive;
    using GRibbon::m_nHot;
};

struct OpenPage : GRibbonPage
{
    using GRibbonPage::GRibbonPage;
    using GRibbonPage::m_aGroups;
    using GRibbonPage::m_hItemFont;
    using GRibbonPage::m_hover;
    using GRibbonPage::m_hTheme;
    using GRibbonPage::m_press;
    using GRibbonPage::m_uHotItem;
    using GRibbonPage::m_uState;

    // Every item, also those of the size and type that the library does not set.
    Item& ItemAt(UINT nGroup, UINT nItem) { return m_aGroups[nGroup].aItems[nItem]; }
};

// A page that counts how many of its kind live.
struct CountedPage : OpenPage
{
    explicit CountedPage(DWORD dwId = 0) : OpenPage(dwId, L"Counted") { s_nLive++; }
    CountedPage(const CountedPage& other) : OpenPage(other) { s_nLive++; }
    CountedPage& operator=(const CountedPage&) = default;
    ~CountedPage() override { s_nLive--; }
    static inline int s_nLive = 0;
};

constexpr int RIBBON_WIDTH = 700;
constexpr int RIBBON_HEIGHT = 118;

HWND CreateRibbon(GRibbon& ribbon, HWND hwndParent);

void InsertButton(GRibbonPage& page, DWORD dwGroup, UINT nId, WORD wSize, LPCWSTR pszText, int nImage = -1,
                  DWORD dwBefore = 0);
void InsertCheckBox(GRibbonPage& page, DWORD dwGroup, UINT nId, bool fChecked, LPCWSTR pszText);

// Mouse messages as the platform sends them, in client coordinates.
inline void Press(HWND hwnd, int x, int y)
{
    SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
}
inline void Release(HWND hwnd, int x, int y)
{
    SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}
inline void Move(HWND hwnd, int x, int y)
{
    SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
}
inline void Click(HWND hwnd, int x, int y)
{
    Press(hwnd, x, y);
    Release(hwnd, x, y);
}

// A point inside an item's hit rectangle, in the ribbon.
POINT MiddleOf(OpenPage& page, UINT nGroup, UINT nItem);
inline void Click(HWND hwnd, POINT pt)
{
    Click(hwnd, pt.x, pt.y);
}

// Has the window draw itself into a bitmap of its size.
void Print(HWND hwnd);

} // namespace test::ribbon
