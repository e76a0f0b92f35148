// The tabs: one layout for hit-testing and drawing.

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/RibbonMetrics.h>

using gesso::PAGE_TOP;
using gesso::TAB_BASE_LINE;

namespace {

constexpr int TEXT_MARGIN = 25; // on each side of a title
constexpr int TAB_GAP = 2;
constexpr int TEXT_BOTTOM = 24;

void FillArea(HDC hdc, const RECT& rc, HBRUSH hBrush)
{
    FillRect(hdc, &rc, hBrush);
}

// The outline of a tab, from and to the base line.
void DrawOutline(HDC hdc, int nLeft, int nRight)
{
    LineTo(hdc, nLeft, 0);
    LineTo(hdc, nRight, 0);
    LineTo(hdc, nRight, TAB_BASE_LINE);
}

} // namespace

// Visits the visible tabs from left to right, with where they start and end, until `visit` returns false.
template <class VISIT> void GRibbon::VisitTabs(VISIT visit) const
{
    int nLeft = 0;
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        if (!IsVisible(i)) {
            continue;
        }
        const int nRight = nLeft + 2 * TEXT_MARGIN + static_cast<int>(m_aTabs[i].uTextWidth);
        if (!visit(i, nLeft, nRight)) {
            return;
        }
        nLeft = nRight + TAB_GAP;
    }
}

UINT GRibbon::HitTest(POINTS pt) const
{
    UINT nHit = RIBBON_NONE;
    if (pt.y >= PAGE_TOP || pt.x < 0) {
        return nHit;
    }
    VisitTabs([&](UINT nIndex, int nLeft, int nRight) {
        if (pt.x < nLeft) {
            return false;
        }
        if (pt.x <= nRight) {
            nHit = nIndex;
        }
        return pt.x > nRight;
    });
    return nHit;
}

void GRibbon::Draw(HDC hdc)
{
    RECT rc{};
    {
        const gesso::TransparentScope mode(hdc);
        if (!gesso::Frame::DrawParentBackground(*this, hdc, &rc)) {
            return;
        }
        const gesso::SelectScope font(hdc, m_hTabFont);
        const gesso::SelectScope pen(hdc, m_hActivePen);
        VisitTabs([&](UINT nIndex, int nLeft, int nRight) {
            DrawTab(hdc, nIndex, nLeft, nRight, rc.right);
            return true;
        });
        MoveToEx(hdc, 0, rc.bottom - 1, nullptr);
        LineTo(hdc, rc.right, rc.bottom - 1);
    }
    if (GRibbonPage* pPage = ActivePage()) {
        pPage->Draw(hdc);
    }
}

void GRibbon::DrawTab(HDC hdc, UINT nIndex, int nLeft, int nRight, int nClientRight) const
{
    if (nIndex == m_nActive) {
        DrawActiveTab(hdc, nLeft, nRight, nClientRight);
    } else if (nIndex == m_nHot) {
        DrawHotTab(hdc, nLeft, nRight);
    }
    RECT rcText{nLeft + TEXT_MARGIN, 1, nRight - TEXT_MARGIN, TEXT_BOTTOM};
    DrawTextW(hdc, m_aTabs[nIndex].pPage->Title(), -1, &rcText, DT_VCENTER | DT_SINGLELINE);
}

// The base line is drawn with the active tab alone, left and right of it, and painted out under it.
void GRibbon::DrawActiveTab(HDC hdc, int nLeft, int nRight, int nClientRight) const
{
    MoveToEx(hdc, 0, TAB_BASE_LINE, nullptr);
    LineTo(hdc, nLeft, TAB_BASE_LINE);
    DrawOutline(hdc, nLeft, nRight);
    LineTo(hdc, nClientRight, TAB_BASE_LINE);
    FillArea(hdc, {nLeft + 1, 1, nRight, PAGE_TOP}, m_hActiveBrush);
}

void GRibbon::DrawHotTab(HDC hdc, int nLeft, int nRight) const
{
    const gesso::SelectScope pen(hdc, m_hHotPen);
    MoveToEx(hdc, nLeft, TAB_BASE_LINE, nullptr);
    DrawOutline(hdc, nLeft, nRight);
    FillArea(hdc, {nLeft + 1, 1, nRight - 1, TAB_BASE_LINE}, m_hHotBrush);
}
