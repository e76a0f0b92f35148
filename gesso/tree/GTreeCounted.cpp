// Children that the host has only counted: it is asked for each when that first shows, or somebody wants to
// know of it.

#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeActions.h>
#include <gesso/tree/TreeCells.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>

using gesso::Frame;
using gesso::TreeActions;

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
    if (!parent || nIndex >= tree.ChildCount(*parent)) {
        gesso::Misuse("GTree::GetChildAt: no such child");
        return nullptr;
    }
    TreeItem* child = tree.ChildAt(*parent, nIndex);
    return child && Ask(*child) ? child : nullptr;
}

// --- Asking

// False where there is nothing to go on with: the tree is gone, or the item. A parent that asks for the item
// meanwhile finds it as it is.
bool GTree::Ask(TreeItem& item)
{
    if (item.fAsked || !m_hWnd || !gesso::IsOneCounted(item)) {
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
    item.fAsked = true;
    Frame::SendNotify(*this, TVN_GETDISPINFOW, &notify.hdr);
    return watch && Items().IsInTree(&item) && TakeAnswer(item, info);
}

// Without memory for the text the item is asked for again. Children that the parent has given it meanwhile
// stay. False where the object is gone.
bool GTree::TakeAnswer(TreeItem& item, const GTREEDISPINFO& info)
{
    item.fAsked = item.strName.Format(L"%s", info.text ? info.text : L"");
    item.place.nTextWidth = gesso::NOT_MEASURED;
    item.nImage = info.image;
    if (info.childCount == 0 || gesso::HasChildren(item)) {
        return true;
    }
    const UINT nRows = m_aVisible.GetLength();
    View().SetChildCount(item, std::min(info.childCount, gesso::CountedChildren<TreeItem>::MOST));
    return m_aVisible.GetLength() == nRows || RowsChanged();
}

// Of an item that a getter is asked for. A bad handle is the getter's to tell of.
bool GTree::AskFor(void* hItem) const
{
    TreeItem* item = m_aVisible.Inside().tree.FindInTree(hItem);
    return !item || const_cast<GTree*>(this)->Ask(*item);
}

// Of a row that the user or the host is about to act on.
bool GTree::AskForRow(UINT row)
{
    TreeItem* item = m_aVisible.Inside().rows.HasRuns() ? m_aVisible[row] : nullptr;
    const gesso::Watch watch(*this);
    return !item || Ask(*item) || watch;
}

// Whatever is in view. The widest row counts as wide as those that have shown make it. False where the object
// is gone.
bool GTree::AskInView()
{
    if (!m_aVisible.Inside().rows.HasRuns()) {
        return true;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const gesso::Watch watch(*this);
    bool fWider = false;
    for (UINT row = RowAt(0); row < m_aVisible.GetLength() && RowRect(row, 0).top < rcClient.bottom; ++row) {
        TreeItem* item = m_aVisible[row];
        if (item && Ask(*item)) {
            fWider = Widen(*item) || fWider;
        }
        if (!watch) {
            return false;
        }
    }
    return !fWider || UpdateScrollbars();
}

// Whether the widest row is wider than it was.
bool GTree::Widen(TreeItem& item)
{
    if (!gesso::IsOneCounted(item) || item.place.nTextWidth != gesso::NOT_MEASURED) {
        return false;
    }
    const gesso::TreeMeasures cells = gesso::PaintedMeasures(m_hWnd);
    const int nWidth = (item.nLevel + 1) * cells.nLevelStep + TextWidth(item);
    m_aVisible.Inside().rows.Widen(item, nWidth);
    const auto nContent = static_cast<UINT>(nWidth + gesso::LayOutCells(cells, -1, m_uTreeStyle).nLabel);
    return m_nContentWidth < std::exchange(m_nContentWidth, std::max(m_nContentWidth, nContent));
}
