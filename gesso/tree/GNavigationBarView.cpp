// Painting of a navigation bar, what a point hits, and what the mouse does.

#include <gesso/framework/Colors.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/ItemNotify.h>

#include <algorithm>
#include <utility>

using gesso::ColorOf;
using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;

namespace {

UINT KindOf(const NavigationBarItem& item)
{
    return item.uState & NBIK_MASK;
}

// Fixed behaviour: a compact row shows its glyph for children that are there, and not for those to come; a
// glyph would appear in rows of hosts that set NBIS_HASCHILDREN in all of them.
bool ShowsGlyph(const NavigationBarItem& item)
{
    return KindOf(item) == NBIK_SUBITEM ? item.aChildren.GetLength() > 0 : gesso::HasExpander(item);
}

bool IsSelectable(const NavigationBarItem& item)
{
    return KindOf(item) == NBIK_ITEM || KindOf(item) == NBIK_SUBITEM;
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

int GNavigationBar::RowHeight(const NavigationBarItem& item) const
{
    switch (KindOf(item)) {
    case NBIK_SEPARATOR:
    case NBIK_SPACER: return Pixels(m_hWnd, Metrics::NAVIGATION_THIN_HEIGHT);
    case NBIK_SUBITEM: return Pixels(m_hWnd, Metrics::NAVIGATION_SUBITEM_HEIGHT);
    default: return static_cast<int>(std::min<UINT>(m_nItemHeight, SHRT_MAX));
    }
}

// The first row whose bottom is at y or below, and where its top is; y counts from the first row's top.
UINT GNavigationBar::RowReaching(int64_t y, int64_t* pTop) const
{
    *pTop = 0;
    for (UINT row = 0; row < m_aVisible.GetLength(); ++row) {
        const int nHeight = RowHeight(*m_aVisible[row]);
        if (*pTop + nHeight >= y) {
            return row;
        }
        *pTop += nHeight;
    }
    return NO_INDEX;
}

// --- Painting

void GNavigationBar::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const gesso::TransparentScope mode(hdc);
    gesso::FillTreeBackground(hdc, rcClient);
    const gesso::SelectScope font(hdc, m_hFont);
    int64_t nTop = 0;
    UINT row = RowReaching(m_siV.nPos, &nTop);
    nTop -= m_siV.nPos;
    for (; row < m_aVisible.GetLength() && nTop <= rcClient.bottom; ++row) {
        const auto y = static_cast<int>(nTop);
        const int nHeight = RowHeight(*m_aVisible[row]);
        DrawRow(hdc, row, {0, y, rcClient.right, y + nHeight});
        nTop += nHeight;
    }
}

void GNavigationBar::DrawRow(HDC hdc, UINT row, const RECT& rc) const
{
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
    if (fSelected || fHot || (Frame::Style(*this) & WS_DISABLED)) {
        const bool fFocused = GetFocus() == m_hWnd;
        m_hTheme.Items().DrawRow(hdc, gesso::RowStateOf(fSelected, fFocused, fHot), rc);
    }
    const Cells cells = CellsOf(item, rc.right);
    if (ShowsGlyph(item)) {
        m_hTheme.DrawGlyph(hdc, IsGlyphHot(row), item.uState & NBIS_EXPANDED,
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
    int64_t nTop = 0;
    const UINT row = RowReaching(y, &nTop);
    if (row == NO_INDEX) {
        return;
    }
    pInfo->nItem = row;
    const NavigationBarItem& item = *m_aVisible[row];
    // A row has its bottom line as well, but its cells do not reach there.
    if (y < nTop + RowHeight(item)) {
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

// --- The mouse

void GNavigationBar::Toggle(UINT row)
{
    if (m_aVisible[row]->uState & NBIS_EXPANDED) {
        Collapse(row);
    } else {
        Expand(row);
    }
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
    const gesso::ItemHold hold(m_tree.Store(), pOpen);
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
    const gesso::ItemHold hold(m_tree.Store(), item);
    const bool fOnGlyph = press.nPart == NHT_GLYPH && hit.nPart == NHT_GLYPH;
    if (HasGlyphAtLeft(*item)) {
        if (fOnGlyph) {
            Toggle(hit.nItem);
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
    if (!m_tree.FindInTree(item)) {
        return;
    }
    m_pSelected = item;
    FindSelectedRow();
    gesso::SendItemNotify(*this, static_cast<UINT>(NM_CLICK), item, m_nSelected, 0, pt.x, pt.y);
}

LRESULT GNavigationBar::OnLButtonDblClk(WPARAM, POINTS pt)
{
    HitTestInfo hit{pt, NO_INDEX, NHT_NOWHERE, 0};
    HitTest(&hit);
    if (hit.nItem != NO_INDEX && hit.nPart != NHT_GLYPH) {
        SendItem(static_cast<UINT>(NM_DBLCLK), hit.nItem, 0, pt.x, pt.y);
    }
    return 0;
}
