// The items of a navigation bar, and where their rows stand.

#include <gesso/tree/GNavigationBar.h>

using Control = GNavigationBar;
#include <gesso/tree/ItemMembers.inl>

#include <algorithm>

// Below an item that is expanded but not in view itself there is no row.
// Fixed behaviour: counted from the children alone, as if none of them were expanded; any other row would
// show what hosts insert behind an expanded item in another place than before.
UINT GNavigationBar::RowForNew(const NavigationBarItem& item) const
{
    const UINT rowParent = m_aVisible.Find(item.pParent);
    if (rowParent == gesso::NO_INDEX && item.pParent != m_pRoot) {
        return gesso::NO_INDEX;
    }
    return std::min(rowParent + 1 + item.place.iChild, m_aVisible.GetLength());
}

void GNavigationBar::ItemInserted(const NavigationBarItem&, bool fShown)
{
    if (fShown) {
        RowsChanged();
    }
}
