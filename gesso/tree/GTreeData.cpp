// The items of a tree, and where their rows stand.

#include <gesso/tree/GTree.h>

using Control = GTree;
#include <gesso/tree/ItemMembers.inl>

void GTree::SetItemParent(void* hItem, void* hNewParent)
{
    TreeItem* item = m_tree.FindInTree(hItem);
    TreeItem* pNewParent = m_tree.FindInTree(hNewParent);
    if (!item || item == m_pRoot || !pNewParent || !m_tree.Move(*item, *pNewParent)) {
        gesso::Misuse("GTree::SetItemParent: a bad handle, or a parent below the item");
        return;
    }
    FindSelectedRow();
    Invalidate(0);
}

// Fixed behaviour: levels and scroll ranges stay as they are; all rows would move to the right, and bars
// come, in trees of hosts that show the root.
void GTree::SetRootVisible(bool fVisible)
{
    const bool fShown = m_aVisible[0] == m_pRoot;
    if (fVisible && !fShown) {
        m_aVisible.Insert(0, m_pRoot);
    } else if (!fVisible && fShown) {
        m_aVisible.Remove(0, 1);
    }
}

// Behind the branch of its sibling, or of its parent. Below an item that is expanded but not in view itself
// there is no row.
UINT GTree::RowForNew(const TreeItem& item) const
{
    const TreeItem& parent = *item.pParent;
    const UINT i = item.place.iChild;
    TreeItem* pAnchor = i > 0 ? parent.aChildren[i - 1] : item.pParent;
    if (pAnchor == m_pRoot) {
        // Fixed behaviour: in front of the root's own row as well; hosts that show the root would find their
        // first item in another row.
        return 0;
    }
    const UINT row = m_aVisible.Find(pAnchor);
    return row == gesso::NO_INDEX ? row : m_aVisible.SkipDeeper(row + 1, item.nLevel);
}

// An item that no row shows changes what is seen only where it gives its parent an expander.
void GTree::ItemInserted(const TreeItem& item, bool fShown)
{
    const UINT rowFormer = m_nSelected;
    if (!UpdateScrollbars()) {
        return;
    }
    FindSelectedRow();
    if (fShown) {
        RedrawAll(); // the thumb too
    } else if (item.pParent->aChildren.GetLength() == 1 || m_nSelected != rowFormer) {
        Invalidate(0);
    }
}
