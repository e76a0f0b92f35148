// Painting of a tree, what a point hits, and what the mouse does.

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/TreeCells.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::NO_INDEX;

namespace {

constexpr WORD NO_PART = 0xFFFF;

} // namespace

// --- Painting

void GTree::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const gesso::TransparentScope mode(hdc);
    gesso::FillTreeBackground(hdc, rcClient);
    if (m_nItemHeight == 0) {
        return;
    }
    const gesso::SelectScope font(hdc, m_hFont);
    const bool fFocused = GetFocus() == m_hWnd;
    const UINT rowFirst = static_cast<UINT>(m_siV.nPos) / m_nItemHeight;
    int64_t nTop = int64_t{rowFirst} * m_nItemHeight - m_siV.nPos;
    for (UINT row = rowFirst; row < m_aVisible.GetLength() && nTop < rcClient.bottom; ++row) {
        const int64_t nBottom = std::min<int64_t>(nTop + m_nItemHeight, LONG_MAX);
        DrawRow(hdc, row, {0, static_cast<LONG>(nTop), rcClient.right, static_cast<LONG>(nBottom)}, fFocused);
        nTop = nBottom;
    }
}

void GTree::DrawRow(HDC hdc, UINT row, RECT rc, bool fFocused) const
{
    const TreeItem& item = *m_aVisible[row];
    const bool fSelected = row == m_nSelected;
    const bool fHot = row == m_hitMove.nItem;
    if (fSelected || fHot || (Frame::Style(*this) & WS_DISABLED)) {
        m_hTheme.Items().DrawRow(hdc, gesso::RowStateOf(fSelected, fFocused, fHot), rc);
    }
    const gesso::TreeMeasures measures = gesso::PaintedMeasures(m_hWnd);
    const gesso::TreeCells cells = gesso::LayOutCells(measures, item.nLevel, m_uTreeStyle);
    const auto cell = [&](int nLeft) {
        const int x = nLeft - m_siH.nPos;
        return RECT{x, rc.top, x + measures.nCell, rc.bottom};
    };
    if (gesso::HasExpander(item)) {
        m_hTheme.DrawGlyph(hdc, fHot && m_hitMove.nPart == THT_EXPANDER, item.uState & TIS_EXPANDED,
                           cell(cells.nExpander));
    }
    if (m_uTreeStyle & GTS_CHECKBOXES) {
        const int nState = item.uState & TIS_CHECKED ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL;
        gesso::ThemePart(m_hThemeButton, hdc, BP_CHECKBOX, nState, gesso::PlainPart::CheckBox)
            .DrawBackground(cell(cells.nCheckBox));
    }
    if (m_uTreeStyle & GTS_IMAGES) {
        gesso::DrawTreeImage(hdc, m_hImageList, item.nImage, cell(cells.nImage).left, rc.top,
                             gesso::Pixels(m_hWnd, gesso::Metrics::TREE_IMAGE));
    }
    rc.left = cells.nLabel - m_siH.nPos;
    gesso::DrawTreeLabel(hdc, item.strName, rc);
}

// --- Hit-testing

void GTree::HitTest(HitTestInfo* pInfo) const
{
    const POINTS pt = pInfo->pt;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    pInfo->nItem = NO_INDEX;
    pInfo->nPart = THT_NOWHERE;
    if (m_aVisible.GetLength() == 0 || pt.x < 0 || pt.y < 0 || pt.x > rc.right || pt.y > rc.bottom) {
        return;
    }
    pInfo->nPart = THT_ROW;
    const int64_t y = int64_t{m_siV.nPos} + pt.y;
    const UINT row = m_nItemHeight ? static_cast<UINT>(y) / m_nItemHeight : NO_INDEX;
    if (row < m_aVisible.GetLength()) {
        pInfo->nItem = row;
        pInfo->nPart = PartAt(*m_aVisible[row], pt.x);
    }
}

WORD GTree::PartAt(const TreeItem& item, int x) const
{
    const gesso::TreeCells cells = gesso::LayOutCells(gesso::HitMeasures(m_hWnd), item.nLevel, m_uTreeStyle);
    if (x < cells.nExpander) {
        return THT_ROW;
    }
    if (x < cells.nCheckBox) {
        return gesso::HasExpander(item) ? THT_EXPANDER : THT_ROW;
    }
    if (x < cells.nImage) {
        return THT_CHECKBOX;
    }
    return x < cells.nLabel ? THT_IMAGE : THT_LABEL;
}

// --- The mouse

void GTree::Toggle(UINT row)
{
    const TreeItem* item = m_aVisible[row];
    if (item && (item->uState & TIS_EXPANDED)) {
        Collapse(row);
    } else {
        Expand(row);
    }
}

LRESULT GTree::OnLButtonUp(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcLButtonUp(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    if (!gesso::EndPress(*this)) {
        return 0;
    }
    Invalidate(0);
    HitTestInfo hit{pt, NO_INDEX, THT_NOWHERE};
    HitTest(&hit);
    const HitTestInfo press = std::exchange(m_hitDown, HitTestInfo{m_hitDown.pt, NO_INDEX, NO_PART});
    if (hit.nItem != press.nItem) {
        return 0;
    }
    if (hit.nPart == THT_EXPANDER) {
        Toggle(hit.nItem);
    } else if (hit.nPart > THT_EXPANDER) {
        SelectRow(hit.nItem);
        SendItem(static_cast<UINT>(NM_CLICK), hit.nItem, 0, pt.x, pt.y);
    }
    return 0;
}

LRESULT GTree::OnLButtonDblClk(WPARAM, POINTS pt)
{
    HitTestInfo hit{pt, NO_INDEX, THT_NOWHERE};
    HitTest(&hit);
    if (hit.nPart != THT_IMAGE && hit.nPart != THT_LABEL) {
        return 0;
    }
    const HWND hwnd = m_hWnd;
    TreeItem* item = m_aVisible[hit.nItem];
    const gesso::ItemHold hold(m_tree.Store(), item);
    const LRESULT lAnswer = SendItem(static_cast<UINT>(NM_DBLCLK), hit.nItem, 0, pt.x, pt.y);
    if (lAnswer == 0 && Frame::IsAlive(hwnd, this)) {
        Toggle(m_aVisible[hit.nItem] == item ? hit.nItem : m_aVisible.Find(item));
    }
    return 0;
}

// --- Scrolling

// Fixed behaviour: whatever row is given, it is the selected one that is brought into view; keys that reach
// another row by its number would scroll the tree.
void GTree::EnsureVisible(UINT)
{
    if (static_cast<int>(m_siV.nPage) < m_siV.nMax && m_nSelected < m_aVisible.GetLength()) {
        ScrollRowIntoView(m_nSelected, true, true);
    }
}

// Fixed behaviour: a line across is as wide as an item is high; hosts that scroll by lines would end
// elsewhere.
LRESULT GTree::OnHScroll(UINT uCode, UINT nPos, HWND)
{
    if (const auto nTarget = gesso::ScrollTarget(m_siH, uCode, nPos, m_nItemHeight)) {
        ScrollTo(SB_HORZ, *nTarget);
    }
    Invalidate(0);
    return 0;
}
