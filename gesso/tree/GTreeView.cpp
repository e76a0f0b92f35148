// Painting of a tree, what a point hits, and what the mouse does.

#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/Wrapped.h>
#include <gesso/tree/TreeCells.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;

namespace {

constexpr WORD NO_PART = 0xFFFF;

} // namespace

// --- Rows

gesso::RowPlace GTree::PlaceOf(UINT row) const
{
    return gesso::EvenRows{m_nItemHeight}.PlaceOf(row);
}

// Of the client area; painting, hit-testing and scrolling reckon by the same even rows.
RECT GTree::RowRect(UINT row, int cx) const
{
    return gesso::RectOf(PlaceOf(row), m_siV.nPos, cx);
}

UINT GTree::RowAt(int y) const
{
    return gesso::EvenRows{m_nItemHeight}.RowAt(int64_t{m_siV.nPos} + y);
}

void* GTree::ItemFromPoint(POINT client) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    return PtInRect(&rc, client) ? m_aVisible[RowAt(client.y)] : nullptr;
}

bool GTree::GetItemRect(void* hItem, bool labelOnly, RECT* prc) const
{
    if (labelOnly && hItem && !AskFor(hItem)) {
        return false;
    }
    const UINT row = Items().RowOf(hItem);
    if (!hItem || !prc) {
        gesso::Misuse("GTree::GetItemRect: no item, or nowhere to write to");
    }
    if (row == NO_INDEX || !prc) {
        return false;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    *prc = RowRect(row, rcClient.right);
    if (labelOnly) {
        TreeItem& item = *Items().ItemOf(hItem);
        const auto cells = gesso::LayOutCells(gesso::PaintedMeasures(m_hWnd), item.nLevel, m_uTreeStyle);
        prc->left = gesso::Wrapped(int64_t{cells.nLabel} - m_siH.nPos);
        prc->right = gesso::Wrapped(int64_t{prc->left} + TextWidth(item));
    }
    return true;
}

// --- Painting

// The host is asked before the painting begins, so that what it changes in its answers is painted with it.
LRESULT GTree::OnPaint()
{
    const gesso::Lifeline life(*this);
    if (!AskInView()) {
        return 0;
    }
    const bool fFormer = std::exchange(m_aVisible.Inside().fAsking, true);
    gesso::PaintControl(*this, m_hWnd);
    if (life) {
        m_aVisible.Inside().fAsking = fFormer;
    }
    return 0;
}

void GTree::Draw(HDC hdc)
{
    if (!AskInView()) {
        return;
    }
    ++m_aVisible.Inside().nPainted;
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const gesso::TransparentScope mode(hdc);
    gesso::FillTreeBackground(hdc, rcClient);
    const gesso::SelectScope font(hdc, m_hFont);
    const bool fFocused = GetFocus() == m_hWnd;
    for (UINT row = RowAt(0); row < m_aVisible.GetLength(); ++row) {
        const RECT rc = RowRect(row, rcClient.right);
        if (rc.top >= rcClient.bottom) {
            break;
        }
        DrawRow(hdc, row, rc, fFocused);
    }
    TreeInput::DrawEdges(*this, hdc, rcClient, RowRect(m_nSelected, rcClient.right));
}

void GTree::DrawRow(HDC hdc, UINT row, RECT rc, bool fFocused) const
{
    const TreeItem* pItem = m_aVisible[row];
    if (!pItem) {
        return; // there is no memory for it
    }
    gesso::LayoutOverlay::Add(hdc, rc);
    const TreeItem& item = *pItem;
    const bool fSelected = row == m_nSelected;
    const bool fHot = row == m_hitMove.nItem;
    const bool fDrawn = fSelected || fHot || (Frame::Style(*this) & WS_DISABLED);
    const int nState = fDrawn ? gesso::RowStateOf(fSelected, fFocused, fHot) : int{TREIS_NORMAL};
    if (fDrawn) {
        m_hTheme.Items().DrawRow(m_hWnd, hdc, nState, rc);
    }
    const gesso::FlatTextScope color(hdc, gesso::RowTextColor(nState), gesso::ColorRole::WindowText);
    const gesso::TreeMeasures measures = gesso::PaintedMeasures(m_hWnd);
    const gesso::TreeCells cells = gesso::LayOutCells(measures, item.nLevel, m_uTreeStyle);
    const auto cell = [&](int nLeft) {
        const int64_t x = int64_t{nLeft} - m_siH.nPos;
        return RECT{gesso::Wrapped(x), rc.top, gesso::Wrapped(x + measures.nCell), rc.bottom};
    };
    if (gesso::HasExpander(item)) {
        m_hTheme.DrawGlyph(m_hWnd, hdc, fHot && m_hitMove.nPart == THT_EXPANDER, item.uState & TIS_EXPANDED,
                           cell(cells.nExpander));
    }
    if (m_uTreeStyle & GTS_CHECKBOXES) {
        const bool fGrey = gesso::IsDrawnFlat() && (Frame::Style(*this) & WS_DISABLED);
        const int nBoxState = (item.uState & TIS_CHECKED ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL) +
                              (fGrey ? CBS_UNCHECKEDDISABLED - CBS_UNCHECKEDNORMAL : 0);
        gesso::ThemePart(m_hThemeButton, hdc, BP_CHECKBOX, nBoxState, gesso::PlainPart::CheckBox)
            .In(m_hWnd)
            .DrawBackground(cell(cells.nCheckBox));
    }
    if (m_uTreeStyle & GTS_IMAGES) {
        gesso::DrawTreeImage(hdc, m_hImageList, item.nImage, cell(cells.nImage).left, rc.top,
                             gesso::Pixels(m_hWnd, gesso::Metrics::TREE_IMAGE));
    }
    rc.left = gesso::Wrapped(int64_t{cells.nLabel} - m_siH.nPos);
    gesso::DrawTreeLabel(hdc, item.strName, rc);
}

void GTree::NcDraw(HDC hdc, RECT rc)
{
    TreeInput::NcDraw(*this, hdc, rc);
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
    const UINT row = RowAt(pt.y);
    if (row < m_aVisible.GetLength()) {
        const TreeItem* item = m_aVisible[row];
        pInfo->nItem = row;
        pInfo->nPart = item ? PartAt(*item, pt.x) : THT_ROW;
    }
}

UINT GTree::SelectableAt(POINTS pt) const
{
    HitTestInfo hit{pt, NO_INDEX, THT_NOWHERE};
    HitTest(&hit);
    return hit.nItem;
}

WORD GTree::PartAt(const TreeItem& item, int x) const
{
    const bool fAsPainted = !Has(*this, Quirk::TreeHitsByOwnSteps);
    const auto measures = fAsPainted ? gesso::PaintedMeasures(m_hWnd) : gesso::HitMeasures(m_hWnd);
    const gesso::TreeCells cells = gesso::LayOutCells(measures, item.nLevel, m_uTreeStyle);
    x = fAsPainted ? gesso::Wrapped(int64_t{x} + m_siH.nPos) : x;
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

LRESULT GTree::OnLButtonDown(WPARAM, POINTS pt)
{
    return TreeInput::AskAt(*this, pt) ? TreeInput::OnLButtonDown(*this, pt) : 0;
}

LRESULT GTree::OnMouseMove(WPARAM, POINTS pt)
{
    // While a bar is dragged the pointer is over no row.
    const bool fGoesOn = (m_dwState & GWS_NCPRESSED) || TreeInput::AskAt(*this, pt);
    return fGoesOn ? TreeInput::OnMouseMove(*this, pt) : 0;
}

LRESULT GTree::OnMouseLeave()
{
    return TreeInput::OnMouseLeave(*this);
}

LRESULT GTree::OnMouseWheel(UINT, int nDelta, POINTS)
{
    return TreeInput::OnMouseWheel(*this, nDelta);
}

LRESULT GTree::OnVScroll(UINT uCode, UINT nPos, HWND)
{
    return TreeInput::OnVScroll(*this, uCode, nPos);
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
    if (!TreeInput::AskAt(*this, pt)) {
        return 0;
    }
    HitTestInfo hit{pt, NO_INDEX, THT_NOWHERE};
    HitTest(&hit);
    const HitTestInfo press = std::exchange(m_hitDown, HitTestInfo{m_hitDown.pt, NO_INDEX, NO_PART});
    if (hit.nItem != press.nItem) {
        return 0;
    }
    if (hit.nPart == THT_EXPANDER) {
        TreeActions::Toggle(*this, hit.nItem);
    } else if (hit.nPart > THT_EXPANDER) {
        ClickRow(hit.nItem, press.nPart == hit.nPart ? hit.nPart : THT_ROW, pt);
    }
    return 0;
}

void GTree::ClickRow(UINT row, WORD nPart, POINTS pt)
{
    View().SelectRow(row);
    TreeItem* item = m_aVisible[row];
    const auto hold = Items().Hold(item);
    if (!TreeActions::TellSelection(*this)) {
        return;
    }
    const gesso::Watch watch(*this);
    if (nPart == THT_CHECKBOX) {
        Tick(*item);
    }
    if (!watch) {
        return;
    }
    TreeActions::SendItemAgain(*this, static_cast<UINT>(NM_CLICK), item, row, 0, pt.x, pt.y);
}

void GTree::Tick(TreeItem& item)
{
    if (!Has(*this, Quirk::TreeBoxesTickNothing)) {
        View().Tick(item, TIS_CHECKED);
        Invalidate(0);
        TreeActions::TellRow(*this, Items().FindRow(&item), EVENT_OBJECT_STATECHANGE);
    }
}

LRESULT GTree::OnLButtonDblClk(WPARAM, POINTS pt)
{
    if (!TreeInput::AskAt(*this, pt)) {
        return 0;
    }
    HitTestInfo hit{pt, NO_INDEX, THT_NOWHERE};
    HitTest(&hit);
    if (hit.nPart != THT_IMAGE && hit.nPart != THT_LABEL) {
        const bool fClicks = hit.nItem != NO_INDEX && !Has(*this, Quirk::TreeLosesSecondClicks);
        return fClicks ? TreeInput::OnLButtonDown(*this, pt) : 0;
    }
    const HWND hwnd = m_hWnd;
    TreeItem* item = m_aVisible[hit.nItem];
    const auto hold = Items().Hold(item);
    const LRESULT lAnswer =
        TreeActions::SendItem(*this, static_cast<UINT>(NM_DBLCLK), hit.nItem, 0, pt.x, pt.y);
    if (lAnswer == 0 && Frame::IsAlive(hwnd, this)) {
        TreeActions::Toggle(*this, m_aVisible[hit.nItem] == item ? hit.nItem : Items().FindRow(item));
    }
    return 0;
}

// --- Scrolling

// Fixed behaviour: whatever row is given, it is the selected one that is brought into view; keys that reach
// another row by its number would scroll the tree.
void GTree::EnsureVisible(UINT row)
{
    const bool fSelected = Has(*this, Quirk::TreeEnsuresSelection);
    row = fSelected ? m_nSelected : row;
    if (static_cast<int>(m_siV.nPage) < m_siV.nMax && row < m_aVisible.GetLength() &&
        TreeInput::ScrollRowIntoView(*this, row, true, true) && !fSelected)
    {
        Invalidate(0);
    }
}

// Fixed behaviour: a line across is as wide as an item is high; hosts that scroll by lines would end
// elsewhere.
LRESULT GTree::OnHScroll(UINT uCode, UINT nPos, HWND)
{
    const UINT nThumb = gesso::TrackedPos(*this, m_siH, nPos);
    if (const auto nTarget = gesso::ScrollTarget(m_siH, uCode, nThumb, m_nItemHeight)) {
        TreeInput::ScrollTo(*this, SB_HORZ, *nTarget);
    }
    Invalidate(0);
    TreeActions::TellScrolled(*this);
    return 0;
}
