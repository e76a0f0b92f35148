// The items of a tree, its rows, and which of them is selected.

#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeActions.h>
#include <gesso/tree/TreeRules.h>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;

gesso::TreeItems<TreeItem, GTree::Rules> GTree::Items() const
{
    return gesso::TreeItems<TreeItem, Rules>(m_aVisible);
}

gesso::TreeView<TreeItem, GTree::Rules> GTree::View()
{
    return {m_aVisible, m_pSelected, m_nSelected, gesso::RowQuirksOf(*this)};
}

// --- Items

void* GTree::GetRootItem() const
{
    return m_pRoot;
}

int GTree::GetItemLevel(void* hItem) const
{
    return Items().GetLevel(hItem);
}

UINT GTree::GetItemState(void* hItem) const
{
    return Items().GetState(hItem);
}

LPCWSTR GTree::GetItemName(void* hItem) const
{
    return AskFor(hItem) ? Items().GetName(hItem) : nullptr;
}

UINT GTree::GetItemImage(void* hItem) const
{
    return AskFor(hItem) ? Items().GetImage(hItem) : 0;
}

void* GTree::GetItemParent(void* hItem) const
{
    return Items().GetParent(hItem);
}

UINT GTree::GetItemChildCount(void* hItem) const
{
    return AskFor(hItem) ? Items().GetChildCount(hItem) : 0;
}

void* GTree::GetItemNextChild(void* hParent, void* hChild) const
{
    return AskFor(hParent) ? Items().GetNextChild(hParent, hChild)
                           : reinterpret_cast<void*>(Rules::NO_MORE_CHILDREN);
}

void* GTree::GetItemCustomData(void* hItem) const
{
    return Items().GetCustomData(hItem);
}

void GTree::SetItemState(void* hItem, UINT uState, UINT uMask)
{
    TreeActions::SetItemState(*this, hItem, uState, uMask);
}

void GTree::SetItemName(void* hItem, LPCWSTR pszName)
{
    if (!AskFor(hItem)) {
        return;
    }
    const bool fOther = TreeActions::IsOtherName(*this, hItem, pszName);
    const gesso::Watch watch(*this);
    Items().SetName(hItem, pszName);
    if (!Has(*this, Quirk::TreeSettersShowLater)) {
        RowsChanged();
    }
    if (watch && fOther) {
        TreeActions::TellRow(*this, Items().FindRow(hItem), EVENT_OBJECT_NAMECHANGE);
    }
}

void GTree::SetItemImage(void* hItem, UINT nImage)
{
    if (!AskFor(hItem)) {
        return;
    }
    Items().SetImage(hItem, nImage);
    TreeActions::ShowField(*this);
}

void GTree::SetItemCustomData(void* hItem, void* pData)
{
    Items().SetCustomData(hItem, pData);
}

void* GTree::InsertItem(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
{
    return AskFor(hParent) ? TreeActions::InsertItem(*this, hParent, hAfter, pszName, nImage, uState, pData)
                           : nullptr;
}

void* GTree::InsertSorted(void* hParent, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
{
    return AskFor(hParent) ? TreeActions::InsertSorted(*this, hParent, pszName, nImage, uState, pData)
                           : nullptr;
}

void GTree::RemoveItem(void* hItem)
{
    TreeActions::RemoveItem(*this, hItem);
}

void GTree::RemoveAllItems()
{
    TreeActions::RemoveAllItems(*this);
}

void GTree::DeleteItem(TreeItem* item)
{
    View().Delete(*item);
}

void GTree::SortChildren(void* hItem)
{
    if (AskFor(hItem)) {
        TreeActions::SortChildren(*this, hItem);
    }
}

// --- Rows and selection

void* GTree::GetSelectedItem() const
{
    // The selected item of a copy may have gone in the tree that it was made from.
    return Has(*this, Quirk::TreeSelectsByNumber) ? m_aVisible[m_nSelected]
                                                  : m_aVisible.Inside().tree.FindInTree(m_pSelected);
}

void GTree::SetSelectedItem(void* hItem)
{
    View().Select(hItem);
    TreeActions::TellSelection(*this);
}

UINT GTree::FindVisibleIndex(TreeItem* item) const
{
    return Items().FindRow(item);
}

void GTree::Expand(void* hItem)
{
    const UINT row = TreeActions::RowToShow(*this, hItem);
    if (row != NO_INDEX) {
        Expand(row);
    }
}

void GTree::Expand(UINT row)
{
    TreeActions::Expand(*this, row);
}

void GTree::Collapse(void* hItem)
{
    Collapse(Items().RowOf(hItem));
}

void GTree::Collapse(UINT row)
{
    TreeActions::Collapse(*this, row);
}

void GTree::EnsureVisible(void* hItem)
{
    const UINT row = TreeActions::RowToShow(*this, hItem);
    if (row != NO_INDEX) {
        EnsureVisible(row);
        TreeActions::TellScrolled(*this);
    }
}

void GTree::SetItemParent(void* hItem, void* hNewParent)
{
    if (!AskFor(hNewParent)) {
        return;
    }
    if (!View().Move(hItem, hNewParent)) {
        gesso::Misuse("GTree::SetItemParent: a bad handle, or a parent below the item");
    } else if (Has(*this, Quirk::TreeRowsStay)) {
        Invalidate(0);
    } else if (RowsChanged()) {
        TreeActions::TellReorder(*this);
    }
}

// Fixed behaviour: levels and scroll ranges stay as they are; all rows would move to the right, and bars
// come, in trees of hosts that show the root.
void GTree::SetRootVisible(bool fVisible)
{
    const UINT nRows = m_aVisible.GetLength();
    View().ShowRoot(fVisible);
    if (m_aVisible.GetLength() != nRows) {
        TreeActions::TellIndex(*this, 0, fVisible ? EVENT_OBJECT_CREATE : EVENT_OBJECT_DESTROY);
    }
}

// An item that no row shows changes what is seen only where it gives its parent an expander.
void GTree::ItemInserted(const TreeItem& item, bool fShown)
{
    const UINT rowFormer = m_nSelected;
    const bool fFirst = item.pParent->aChildren.GetLength() == 1;
    // Bars that come or go let the parent draw, which may remove the item.
    if (!UpdateScrollbars()) {
        return;
    }
    View().FindSelectedRow();
    if (fShown) {
        TreeActions::RedrawAll(*this); // the thumb too
    } else if (fFirst || m_nSelected != rowFormer) {
        Invalidate(0);
    }
}
