// How the tabs look, with one layout for hit-testing and drawing.

#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/VisitTabs.h>

using gesso::Color;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;

namespace {

// A colour that a program's own class may have set, before the window was made.
COLORREF SchemeColor(COLORREF crHost, Color color)
{
    return HostColor(crHost, crHost != 0 && crHost != LightColorOf(color), color);
}

// Whether the window's own brush or pen will not do.
bool IsOther(COLORREF crHost, Color color)
{
    return gesso::IsDrawnFlat() || SchemeColor(crHost, color) != crHost;
}

void FillArea(HDC hdc, const RECT& rc, HBRUSH hBrush, COLORREF crHost, Color color)
{
    if (IsOther(crHost, color)) {
        gesso::FillColor(hdc, rc, SchemeColor(crHost, color));
    } else {
        FillRect(hdc, &rc, hBrush);
    }
}

// The pen of a line: that of the window in Light, else one of the scheme.
class LinePen
{
public:
    LinePen(HWND hwnd, HPEN hLight, COLORREF crHost, Color color) : m_hPen(hLight)
    {
        if (IsOther(crHost, color)) {
            m_flat.Reset(CreatePen(PS_SOLID, Pixels(hwnd, Metrics::THIN_LINE), SchemeColor(crHost, color)));
            m_hPen = m_flat;
        }
    }
    operator HPEN() const { return m_hPen; }

private:
    gesso::PenHandle m_flat;
    HPEN m_hPen;
};

// The outline of a tab, from and to the base line.
void DrawOutline(HDC hdc, int nLeft, int nRight, int nBaseLine)
{
    LineTo(hdc, nLeft, 0);
    LineTo(hdc, nRight, 0);
    LineTo(hdc, nRight, nBaseLine);
}

} // namespace

UINT GRibbon::HitTest(POINTS pt) const
{
    UINT nHit = RIBBON_NONE;
    if (pt.y >= Pixels(m_hWnd, Metrics::RIBBON_PAGE_TOP) || pt.x < 0) {
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
        const gesso::FlatTextScope color(hdc, ColorOf(gesso::ColorRole::PanelText),
                                         gesso::ColorRole::PanelText);
        const LinePen line(m_hWnd, m_hActivePen, m_crActiveLine, Color::RibbonActiveLine);
        const gesso::SelectScope pen(hdc, line);
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
    gesso::LayoutOverlay::Add(hdc, {nLeft, 0, nRight, Pixels(m_hWnd, Metrics::RIBBON_TAB_BASE_LINE)});
    if (nIndex == m_nActive) {
        DrawActiveTab(hdc, nLeft, nRight, nClientRight);
    } else if (nIndex == m_nHot) {
        DrawHotTab(hdc, nLeft, nRight);
    }
    const int nMargin = Pixels(m_hWnd, Metrics::RIBBON_TAB_MARGIN);
    RECT rcText{nLeft + nMargin, 1, nRight - nMargin, Pixels(m_hWnd, Metrics::RIBBON_TAB_TEXT_BOTTOM)};
    DrawTextW(hdc, m_aTabs[nIndex].pPage->Title(), -1, &rcText, DT_VCENTER | DT_SINGLELINE);
    if (ShowsFocus() && nIndex == FocusTab()) {
        const int nInset = Pixels(m_hWnd, Metrics::RIBBON_TAB_FOCUS_INSET);
        const RECT rcFocus{nLeft + nInset, nInset, nRight - nInset + 1,
                           Pixels(m_hWnd, Metrics::RIBBON_PAGE_TOP) - nInset};
        gesso::DrawFocusFrame(m_hWnd, hdc, rcFocus);
    }
}

// The base line is drawn with the active tab alone, left and right of it, and painted out under it.
void GRibbon::DrawActiveTab(HDC hdc, int nLeft, int nRight, int nClientRight) const
{
    const int nBaseLine = Pixels(m_hWnd, Metrics::RIBBON_TAB_BASE_LINE);
    MoveToEx(hdc, 0, nBaseLine, nullptr);
    LineTo(hdc, nLeft, nBaseLine);
    DrawOutline(hdc, nLeft, nRight, nBaseLine);
    LineTo(hdc, nClientRight, nBaseLine);
    FillArea(hdc, {nLeft + 1, 1, nRight, Pixels(m_hWnd, Metrics::RIBBON_PAGE_TOP)}, m_hActiveBrush,
             m_crActiveFill, Color::RibbonActiveFill);
    if (gesso::IsDrawnFlat()) {
        const int nThick = 2 * Pixels(m_hWnd, Metrics::THIN_LINE);
        gesso::FillColor(hdc, {nLeft, 0, nRight + 1, nThick}, ColorOf(gesso::ColorRole::Accent));
    }
}

COLORREF GRibbon::ColorOfPageLine() const
{
    return SchemeColor(m_crPageLine, Color::RibbonPageLine);
}

void GRibbon::DrawHotTab(HDC hdc, int nLeft, int nRight) const
{
    const int nBaseLine = Pixels(m_hWnd, Metrics::RIBBON_TAB_BASE_LINE);
    const LinePen line(m_hWnd, m_hHotPen, m_crHotLine, Color::RibbonHotLine);
    const gesso::SelectScope pen(hdc, line);
    MoveToEx(hdc, nLeft, nBaseLine, nullptr);
    DrawOutline(hdc, nLeft, nRight, nBaseLine);
    FillArea(hdc, {nLeft + 1, 1, nRight - 1, nBaseLine}, m_hHotBrush, m_crHotFill, Color::RibbonHotFill);
}
