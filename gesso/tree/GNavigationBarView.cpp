// Painting of a navigation bar, what a point hits, and what the mouse does.

#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/tree/NavigationRows.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <utility>

using gesso::ColorOf;
using gesso::Frame;
using gesso::IsSelectable;
using gesso::KindOf;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::TreeActions;
using gesso::TreeInput;
namespace Metrics = gesso::Metrics;

namespace {

// Fixed behaviour: a compact row shows its glyph for children that are there, and not for those to come; a
// glyph would appear in rows of hosts that set NBIS_HASCHILDREN in all of them.
bool ShowsGlyph(const NavigationBarItem& item)
{
    return KindOf(item) == NBIK_SUBITEM ? item.aChildren.GetLength() > 0 : gesso::HasExpander(item);
}

} // namespace

// The places across a row that shows an item, in pixels.
struct GNavigationBar::Cells
{
    int nGlyph, nGlyphEnd, nImage, nLabel;
};

bool GNavigationBar::HasGlyphAtLeft(const NavigationBarItem& item) const
{
    return KindOf(item) == NBIK_SUBITEM || (Frame::Style(*this) & GNS_GLYPHLEFT);
}

// Where a row begins: its header's text, or its first cell.
int GNavigationBar::LeftOf(const NavigationBarItem& item) const
{
    return item.nLevel * Pixels(m_hWnd, Metrics::NAVIGATION_LEVEL_STEP) +
           Pixels(m_hWnd, Metrics::NAVIGATION_LEFT_MARGIN);
}

GNavigationBar::Cells GNavigationBar::CellsOf(const NavigationBarItem& item, int nRight) const
{
    const int x = LeftOf(item);
    const int cxGlyph = Pixels(m_hWnd, Metrics::NAVIGATION_GLYPH_CELL);
    const int cxImage = Pixels(m_hWnd, Metrics::NAVIGATION_IMAGE_CELL);
    if (HasGlyphAtLeft(item)) {
        return {x, x + cxGlyph, x + cxGlyph, x + cxGlyph + cxImage};
    }
    const int nGlyphEnd = nRight - Pixels(m_hWnd, Metrics::NAVIGATION_RIGHT_MARGIN);
    return {nRight - cxGlyph, nGlyphEnd, x, x + cxImage};
}

gesso::NavigationRows GNavigationBar::Rows() const
{
    const gesso::NavigationHeights heights{static_cast<int>(std::min<UINT>(m_nItemHeight, SHRT_MAX)),
                                           Pixels(m_hWnd, Metrics::NAVIGATION_SUBITEM_HEIGHT),
                                           Pixels(m_hWnd, Metrics::NAVIGATION_THIN_HEIGHT)};
    return {m_aVisible, heights};
}

// --- Painting

void GNavigationBar::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const gesso::TransparentScope mode(hdc);
    gesso::FillTreeBackground(hdc, rcClient);
    const gesso::SelectScope font(hdc, m_hFont);
    const gesso::NavigationRows rows = Rows();
    RECT rcSelected{}; // where it shows
    for (gesso::RowPlace place = rows.Reaching(m_siV.nPos); place.row != NO_INDEX; place = rows.Behind(place))
    {
        const RECT rc = gesso::RectOf(place, m_siV.nPos, rcClient.right);
        if (rc.top > rcClient.bottom) {
            break;
        }
        DrawRow(hdc, place.row, rc);
        rcSelected = place.row == m_nSelected ? rc : rcSelected;
    }
    TreeInput::DrawEdges(*this, hdc, rcClient, rcSelected);
}

void GNavigationBar::DrawRow(HDC hdc, UINT row, const RECT& rc) const
{
    gesso::LayoutOverlay::Add(hdc, rc);
    const NavigationBarItem& item = *m_aVisible[row];
    switch (KindOf(item)) {
    case NBIK_ITEM:
    case NBIK_SUBITEM: DrawItemRow(hdc, row, rc); break;
    case NBIK_HEADER: DrawHeader(hdc, item, rc); break;
    case NBIK_SEPARATOR: DrawSeparator(hdc, rc); break;
    default: break;
    }
}

void GNavigationBar::DrawSeparator(HDC hdc, const RECT& rc) const
{
    const int nTop = rc.top + Pixels(m_hWnd, Metrics::NAVIGATION_LINE_TOP);
    const RECT rcLine{rc.left, nTop, rc.right, nTop + Pixels(m_hWnd, Metrics::NAVIGATION_LINE)};
    gesso::BrushHandle brush;
    brush.Reset(CreateSolidBrush(ColorOf(gesso::Color::NavigationLine)));
    FillRect(hdc, &rcLine, brush);
}

void GNavigationBar::DrawHeader(HDC hdc, const NavigationBarItem& item, RECT rc) const
{
    rc.left = LeftOf(item);
    const gesso::SelectScope font(hdc, m_hHeaderFont);
    const gesso::TextColorScope color(hdc, ColorOf(gesso::Color::NavigationHeaderText));
    gesso::DrawTreeLabel(hdc, item.strName, rc);
}

void GNavigationBar::DrawItemRow(HDC hdc, UINT row, const RECT& rc) const
{
    const NavigationBarItem& item = *m_aVisible[row];
    const bool fSelected = row == m_nSelected;
    const bool fHot = row == m_hitMove.nItem;
    const bool fDrawn = fSelected || fHot || (Frame::Style(*this) & WS_DISABLED);
    const bool fFocused = GetFocus() == m_hWnd;
    const int nState = fDrawn ? gesso::RowStateOf(fSelected, fFocused, fHot) : int{TREIS_NORMAL};
    if (fDrawn) {
        m_hTheme.Items().DrawRow(m_hWnd, hdc, nState, rc);
    }
    const gesso::FlatTextScope color(hdc, gesso::RowTextColor(nState), gesso::ColorRole::WindowText);
    const Cells cells = CellsOf(item, rc.right);
    if (ShowsGlyph(item)) {
        m_hTheme.DrawGlyph(m_hWnd, hdc, IsGlyphHot(row), item.uState & NBIS_EXPANDED,
                           {cells.nGlyph, rc.top, cells.nGlyphEnd, rc.bottom});
    }
    const int nSide = Pixels(m_hWnd, Metrics::TREE_IMAGE);
    gesso::DrawTreeImage(hdc, m_hImageList, item.nImage, cells.nImage, (rc.top + rc.bottom - nSide) / 2,
                         nSide);
    gesso::DrawTreeLabel(hdc, item.strName, {cells.nLabel, rc.top, rc.right, rc.bottom});
}

bool GNavigationBar::IsGlyphHot(UINT row) const
{
    const DWORD dwStyle = Frame::Style(*this);
    const bool fAtRight = !HasGlyphAtLeft(*m_aVisible[row]);
    if (row != m_hitMove.nItem || (fAtRight && (dwStyle & GNS_NOHOTGLYPH))) {
        return false;
    }
    return (fAtRight && (dwStyle & GNS_CLICKEXPAND)) || m_hitMove.nPart == NHT_GLYPH;
}

void GNavigationBar::NcDraw(HDC hdc, RECT rc)
{
    TreeInput::NcDraw(*this, hdc, rc);
}

// --- Hit-testing

void GNavigationBar::HitTest(HitTestInfo* pInfo) const
{
    const POINTS pt = pInfo->pt;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    pInfo->nItem = NO_INDEX;
    pInfo->nPart = NHT_NOWHERE;
    if (m_aVisible.GetLength() == 0 || pt.x < 0 || pt.y < 0 || pt.x > rc.right || pt.y > rc.bottom) {
        return;
    }
    pInfo->nPart = NHT_ROW;
    const int64_t y = int64_t{pt.y} + m_siV.nPos;
    const gesso::RowPlace place = Rows().Reaching(y);
    if (place.row == NO_INDEX) {
        return;
    }
    pInfo->nItem = place.row;
    // A row has its bottom line as well, but its cells do not reach there.
    if (y < place.nBottom) {
        const NavigationBarItem& item = *m_aVisible[place.row];
        pInfo->nPart = PartAt(item, pt.x, rc.right);
    }
}

WORD GNavigationBar::PartAt(const NavigationBarItem& item, int x, int nRight) const
{
    const auto isWithin = [x](int nFrom, int nEnd) { return x >= nFrom && x < nEnd; };
    if (!IsSelectable(item)) {
        return NHT_ROW;
    }
    const Cells cells = CellsOf(item, nRight);
    const bool fAtLeft = HasGlyphAtLeft(item);
    // Fixed behaviour: a compact row has the glyph's part also where there is no glyph; a click there
    // would select in place of toggling.
    const bool fGlyph = gesso::HasExpander(item) || KindOf(item) == NBIK_SUBITEM;
    if (isWithin(cells.nImage, cells.nLabel)) {
        return NHT_IMAGE;
    }
    if (fGlyph && isWithin(cells.nGlyph, cells.nGlyphEnd)) {
        return NHT_GLYPH;
    }
    // Fixed behaviour: with the glyph at the right, the label's part is the room around it and not the text;
    // hosts that ask for the part under the pointer would get another one.
    return isWithin(fAtLeft ? cells.nLabel : cells.nGlyph, nRight) ? NHT_LABEL : NHT_ROW;
}

// The row at a point that a click there may select.
UINT GNavigationBar::SelectableAt(POINTS pt) const
{
    HitTestInfo hit{pt, NO_INDEX, NHT_NOWHERE, 0};
    HitTest(&hit);
    const NavigationBarItem* item = m_aVisible[hit.nItem];
    return item && IsSelectable(*item) ? hit.nItem : NO_INDEX;
}

// --- The mouse

LRESULT GNavigationBar::OnLButtonDown(WPARAM, POINTS pt)
{
    return TreeInput::OnLButtonDown(*this, pt);
}

LRESULT GNavigationBar::OnMouseMove(WPARAM, POINTS pt)
{
    return TreeInput::OnMouseMove(*this, pt);
}

LRESULT GNavigationBar::OnMouseLeave()
{
    return TreeInput::OnMouseLeave(*this);
}

LRESULT GNavigationBar::OnMouseWheel(UINT, int nDelta, POINTS)
{
    return TreeInput::OnMouseWheel(*this, nDelta);
}

LRESULT GNavigationBar::OnVScroll(UINT uCode, UINT nPos, HWND)
{
    return TreeInput::OnVScroll(*this, uCode, nPos);
}

UINT GNavigationBar::FirstExpanded() const
{
    UINT row = 0;
    while (row < m_aVisible.GetLength() && !(m_aVisible[row]->uState & NBIS_EXPANDED)) {
        ++row;
    }
    return row;
}

// A click on an item with its glyph at the right. False where the control was destroyed meanwhile.
bool GNavigationBar::ToggleByClick(UINT row, bool fOnGlyph)
{
    const HWND hwnd = m_hWnd;
    if (m_aVisible[row]->uState & NBIS_EXPANDED) {
        if (fOnGlyph || row == m_nSelected) {
            Collapse(row);
        }
        return Frame::IsAlive(hwnd, this);
    }
    const bool fSingle = Frame::Style(*this) & GNS_SINGLEEXPAND;
    NavigationBarItem* pOpen = fSingle ? m_aVisible[FirstExpanded()] : nullptr;
    const auto hold = Items().Hold(pOpen);
    Expand(row);
    if (!Frame::IsAlive(hwnd, this)) {
        return false;
    }
    if (pOpen) {
        Collapse(static_cast<void*>(pOpen));
    }
    return Frame::IsAlive(hwnd, this);
}

LRESULT GNavigationBar::OnLButtonUp(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcLButtonUp(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    if (!gesso::EndPress(*this)) {
        return 0;
    }
    Invalidate(0);
    HitTestInfo hit{pt, NO_INDEX, NHT_NOWHERE, 0};
    HitTest(&hit);
    const HitTestInfo press = std::exchange(m_hitDown, NO_HIT);
    NavigationBarItem* item = m_aVisible[hit.nItem];
    if (!item || hit.nItem != press.nItem || !IsSelectable(*item)) {
        return 0;
    }
    const auto hold = Items().Hold(item);
    const bool fOnGlyph = press.nPart == NHT_GLYPH && hit.nPart == NHT_GLYPH;
    if (HasGlyphAtLeft(*item)) {
        if (fOnGlyph) {
            TreeActions::Toggle(*this, hit.nItem);
            return 0;
        }
    } else if (fOnGlyph || (Frame::Style(*this) & GNS_CLICKEXPAND)) {
        if (!ToggleByClick(hit.nItem, fOnGlyph) || fOnGlyph) {
            return 0;
        }
    }
    ClickItem(item, pt);
    return 0;
}

// A collapse above may have moved the item's row by now, or hidden it.
void GNavigationBar::ClickItem(NavigationBarItem* item, POINTS pt)
{
    if (!Items().IsInTree(item)) {
        return;
    }
    View().SelectItem(item);
    if (TreeActions::TellSelection(*this) && Items().IsInTree(item)) {
        gesso::SendItemNotify(*this, static_cast<UINT>(NM_CLICK), item, Items().FindRow(item), 0, pt.x, pt.y);
    }
}

LRESULT GNavigationBar::OnLButtonDblClk(WPARAM, POINTS pt)
{
    HitTestInfo hit{pt, NO_INDEX, NHT_NOWHERE, 0};
    HitTest(&hit);
    if (hit.nItem != NO_INDEX && hit.nPart != NHT_GLYPH) {
        TreeActions::SendItem(*this, static_cast<UINT>(NM_DBLCLK), hit.nItem, 0, pt.x, pt.y);
    }
    return 0;
}
