// Where the tabs of a ribbon stand: one layout for hit-testing, drawing, and those who do not see them.
#pragma once

#include <gesso/framework/Metrics.h>
#include <gesso/ribbon/GRibbon.h>

// Visits the visible tabs from left to right, with where they start and end, until `visit` returns false.
template <class VISIT> void GRibbon::VisitTabs(VISIT visit) const
{
    const int nMargins = 2 * gesso::Pixels(m_hWnd, gesso::Metrics::RIBBON_TAB_MARGIN);
    const int nGap = gesso::Pixels(m_hWnd, gesso::Metrics::RIBBON_TAB_GAP);
    int nLeft = 0;
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        if (!IsVisible(i)) {
            continue;
        }
        const int nRight = nLeft + nMargins + static_cast<int>(m_aTabs[i].uTextWidth);
        if (!visit(i, nLeft, nRight)) {
            return;
        }
        nLeft = nRight + nGap;
    }
}
