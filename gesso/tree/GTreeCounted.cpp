// Children that the host has only counted: it is asked for each when that first shows, or somebody wants to
// know of it.

#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeActions.h>
#include <gesso/tree/TreeCells.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::TreeActions;
using gesso::TreeInput;

namespace {

// Of asking for what is in view, where the host changes it in its answers.
constexpr int ATTEMPTS = 2;

} // namespace

TreeItem* gesso::ItemOfRun(const RowChunk<TreeItem>& chunk, UINT row)
{
    const auto* pRows = static_cast<const VisibleRows<TreeItem>*>(chunk.pOwner);
    return pRows->Inside().tree.ChildAt(*chunk.aItems[0], chunk.iFirstChild + (row - chunk.nFirst));
}

void GTree::SetChildCount(void* hItem, UINT nChildren)
{
    if (AskFor(hItem)) {
        TreeActions::SetChildCount(*this, hItem, std::min(nChildren, gesso::CountedChildren<TreeItem>::MOST));
    }
}

void* GTree::GetChildAt(void* hItem, UINT nIndex)
{
    if (!AskFor(hItem)) {
        return nullptr;
    }
    TreeItem* parent = hItem ? Items().ItemOf(hItem) : m_pRoot;
    auto& tree = m_aVisible.Inside().tree;
    if (!parent) {
        return nullptr;
    }
    if (nIndex >= tree.ChildCount(*parent)) {
        gesso::Misuse("GTree::GetChildAt: no such child");
        return nullptr;
    }
    TreeItem* child = tree.ChildAt(*parent, nIndex);
    return child && Ask(*child) ? child : nullptr;
}

// --- Asking

// False where there is nothing to go on with: the tree is gone, or the item. A parent that asks for the item
// meanwhile, or has the tree painted, finds it as it is. Nothing is asked of a branch that is being removed.
bool GTree::Ask(TreeItem& item)
{
    if (item.fAsked || item.fGoing || !m_hWnd || !gesso::IsOneCounted(item)) {
        return true;
    }
    GTREEDISPINFO info{GTDI_TEXT | GTDI_IMAGE | GTDI_CHILDREN, nullptr, 0, 0};
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(item.place.iChild);
    notify.iSubItem = -1;
    notify.pItem = item.pParent == m_pRoot ? nullptr : item.pParent;
    notify.pDispInfo = &info;
    const auto hold = Items().Hold(&item);
    const gesso::Watch watch(*this);
    const UINT nPainted = m_aVisible.Inside().nPainted;
    ++m_aVisible.Inside().nAsked;
    item.fAsked = true;
    Frame::SendNotify(*this, TVN_GETDISPINFOW, &notify.hdr);
    if (!watch) {
        item.fAsked = false; // the object may get another window
        return false;
    }
    if (m_aVisible.Inside().nPainted != nPainted) {
        Invalidate(0);
    }
    return Items().IsInTree(&item) && TakeAnswer(item, info);
}

// Without memory for the text, or for the children, the item is asked for again. Children that the parent has
// given it meanwhile stay. False where the object is gone.
bool GTree::TakeAnswer(TreeItem& item, const GTREEDISPINFO& info)
{
    item.fAsked = item.strName.Format(L"%s", info.text ? info.text : L"");
    item.fWidened = false;
    item.place.nTextWidth = gesso::NOT_MEASURED;
    item.nImage = info.image;
    if (info.childCount == 0 || gesso::HasChildren(item)) {
        return true;
    }
    const UINT nRows = m_aVisible.GetLength();
    const UINT nChildren = std::min(info.childCount, gesso::CountedChildren<TreeItem>::MOST);
    item.fAsked = View().SetChildCount(item, nChildren) && item.fAsked;
    return m_aVisible.GetLength() == nRows || (RowsChanged() && TreeActions::TellReorder(*this));
}

// Of an item that a getter is asked for. A bad handle is the getter's to tell of.
bool GTree::AskFor(void* hItem) const
{
    const auto& tree = m_aVisible.Inside().tree;
    TreeItem* item = tree.HasCounted() ? tree.FindInTree(hItem) : nullptr;
    return !item || const_cast<GTree*>(this)->Ask(*item);
}

// Of a row that the user or the host is about to act on.
bool GTree::AskForRow(UINT row)
{
    TreeItem* item = m_aVisible.Inside().rows.HasRuns() ? m_aVisible[row] : nullptr;
    const gesso::Watch watch(*this);
    return !item || Ask(*item) || watch;
}

// Whatever is in view, and once more, in place of what the host has changed in its answers: what it changes
// again is painted as it is. False where the object is gone.
bool GTree::AskInView()
{
    if (!m_aVisible.Inside().rows.HasRuns() || std::exchange(m_aVisible.Inside().fAsking, true)) {
        return true;
    }
    const gesso::Lifeline life(*this);
    bool fGoesOn = true;
    bool fAsked = true;
    for (int attempt = 0; attempt < ATTEMPTS && fGoesOn && fAsked; ++attempt) {
        const UINT nAsked = m_aVisible.Inside().nAsked;
        RECT rcClient{};
        GetClientRect(m_hWnd, &rcClient);
        fGoesOn = AskRows(rcClient.bottom);
        fAsked = fGoesOn && m_aVisible.Inside().nAsked != nAsked;
    }
    if (life) {
        m_aVisible.Inside().fAsking = false;
    }
    return fGoesOn;
}

// The rows of a client area of this height. The widest row counts as wide as those that have shown make it.
// False where the object is gone.
bool GTree::AskRows(LONG cy)
{
    const gesso::Watch watch(*this);
    const bool fSelectedShows = ShowsWhole(m_nSelected, cy);
    const UINT rowEnd = cy > 0 ? RowAt(cy - 1) + 1 : 0;
    bool fWider = false;
    for (UINT row = RowAt(0); row < std::min(rowEnd, m_aVisible.GetLength()); ++row) {
        TreeItem* item = m_aVisible[row];
        if (item && Ask(*item)) {
            fWider = Widen(*item) || fWider;
        }
        if (!watch) {
            return false;
        }
    }
    return !fWider || WidenRange(fSelectedShows);
}

bool GTree::ShowsWhole(UINT row, LONG cy) const
{
    if (row >= m_aVisible.GetLength()) {
        return false;
    }
    const gesso::RowPlace place = PlaceOf(row);
    return place.nTop >= m_siV.nPos && place.nBottom <= int64_t{m_siV.nPos} + cy;
}

// Whether the widest row is wider than it was, now that an item shows for the first time.
bool GTree::Widen(TreeItem& item)
{
    if (!gesso::IsOneCounted(item) || item.fWidened) {
        return false;
    }
    item.fWidened = true;
    const gesso::TreeMeasures cells = gesso::PaintedMeasures(m_hWnd);
    const int nWidth = (item.nLevel + 1) * cells.nLevelStep + TextWidth(item);
    m_aVisible.Inside().rows.Widen(item, nWidth);
    const auto nContent = static_cast<UINT>(nWidth + gesso::LayOutCells(cells, -1, m_uTreeStyle).nLabel);
    const UINT nFormer = std::exchange(m_nContentWidth, std::max(m_nContentWidth, nContent));
    return nFormer < m_nContentWidth;
}

// A bar across that comes takes room off the rows: the selected one does not get below it. False where the
// object is gone.
bool GTree::WidenRange(bool fSelectedShows)
{
    const gesso::Watch watch(*this);
    if (!UpdateScrollbars() || !watch) {
        return false;
    }
    DrawScrollBar(SB_HORZ);
    if (fSelectedShows && m_nSelected < m_aVisible.GetLength()) {
        TreeInput::ScrollRowIntoView(*this, m_nSelected, true, true);
    }
    return true;
}
