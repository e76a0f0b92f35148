// The items of a navigation bar, its rows, and which of them is selected.

#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/TreeActions.h>
#include <gesso/tree/TreeRules.h>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;

gesso::TreeItems<NavigationBarItem, GNavigationBar::Rules> GNavigationBar::Items() const
{
    return gesso::TreeItems<NavigationBarItem, Rules>(m_aVisible);
}

gesso::TreeView<NavigationBarItem, GNavigationBar::Rules> GNavigationBar::View()
{
    return {m_aVisible, m_pSelected, m_nSelected, gesso::RowQuirksOf(*this)};
}

// --- Items

void* GNavigationBar::GetRootItem() const
{
    return m_pRoot;
}

int GNavigationBar::GetItemLevel(void* hItem) const
{
    return Items().GetLevel(hItem);
}

UINT GNavigationBar::GetItemState(void* hItem) const
{
    return Items().GetState(hItem);
}

LPCWSTR GNavigationBar::GetItemName(void* hItem) const
{
    return Items().GetName(hItem);
}

UINT GNavigationBar::GetItemImage(void* hItem) const
{
    return Items().GetImage(hItem);
}

void* GNavigationBar::GetItemParent(void* hItem) const
{
    return Items().GetParent(hItem);
}

UINT GNavigationBar::GetItemChildCount(void* hItem) const
{
    return Items().GetChildCount(hItem);
}

void* GNavigationBar::GetItemNextChild(void* hParent, void* hChild) const
{
    return Items().GetNextChild(hParent, hChild);
}

void* GNavigationBar::GetItemCustomData(void* hItem) const
{
    return Items().GetCustomData(hItem);
}

void GNavigationBar::SetItemState(void* hItem, UINT uState, UINT uMask)
{
    TreeActions::SetItemState(*this, hItem, uState, uMask);
}

void GNavigationBar::SetItemName(void* hItem, LPCWSTR pszName)
{
    const bool fOther = TreeActions::IsOtherName(*this, hItem, pszName);
    Items().SetName(hItem, pszName);
    TreeActions::ShowField(*this);
    if (fOther) {
        TreeActions::TellRow(*this, Items().FindRow(hItem), EVENT_OBJECT_NAMECHANGE);
    }
}

void GNavigationBar::SetItemImage(void* hItem, UINT nImage)
{
    Items().SetImage(hItem, nImage);
    TreeActions::ShowField(*this);
}

void GNavigationBar::SetItemCustomData(void* hItem, void* pData)
{
    Items().SetCustomData(hItem, pData);
}

void* GNavigationBar::InsertItem(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState,
                                 void* pData)
{
    return TreeActions::InsertItem(*this, hParent, hAfter, pszName, nImage, uState, pData);
}

void GNavigationBar::RemoveItem(void* hItem)
{
    TreeActions::RemoveItem(*this, hItem);
}

void GNavigationBar::RemoveAllItems()
{
    TreeActions::RemoveAllItems(*this);
}

void GNavigationBar::DeleteItem(NavigationBarItem* item)
{
    View().Delete(*item);
}

void GNavigationBar::SortChildren(void* hItem)
{
    TreeActions::SortChildren(*this, hItem);
}

// --- Rows and selection

void* GNavigationBar::GetSelectedItem() const
{
    return Has(*this, Quirk::TreeSelectsByNumber) ? m_aVisible[m_nSelected] : m_pSelected;
}

void GNavigationBar::SetSelectedItem(void* hItem)
{
    if (View().Select(hItem)) {
        Invalidate(0);
        TreeActions::TellSelection(*this);
    }
}

UINT GNavigationBar::FindVisibleIndex(NavigationBarItem* item) const
{
    return Items().FindRow(item);
}

void GNavigationBar::Expand(void* hItem)
{
    const UINT row = TreeActions::RowToShow(*this, hItem);
    if (row != NO_INDEX) {
        Expand(row);
    }
}

void GNavigationBar::Expand(UINT row)
{
    TreeActions::Expand(*this, row);
}

void GNavigationBar::Collapse(void* hItem)
{
    Collapse(Items().RowOf(hItem));
}

void GNavigationBar::Collapse(UINT row)
{
    TreeActions::Collapse(*this, row);
}

void GNavigationBar::EnsureVisible(void* hItem)
{
    const UINT row = TreeActions::RowToShow(*this, hItem);
    if (row != NO_INDEX) {
        EnsureVisible(row);
        TreeActions::TellScrolled(*this);
    }
}

void GNavigationBar::ItemInserted(const NavigationBarItem&, bool fShown)
{
    if (fShown) {
        RowsChanged();
    }
}
