// A tree as it is shown: its items, the rows of those that are in view, and which one is selected. It knows
// no window and no message.
//
// The rows and the selection stand in the control, where derived classes read them; what changes them stands
// here. Each kind of change ends in one function: ChangeSelection for the selection, ChangeState for what is
// expanded or checked.
#pragma once

#include <gesso/tree/NameSort.h>
#include <gesso/tree/TreeItems.h>

#include <algorithm>
#include <new>
#include <vector>

namespace gesso {

template <class ITEM, class RULES> class TreeView : public TreeItems<ITEM, RULES>
{
    using TreeItems<ITEM, RULES>::m_tree;
    using TreeItems<ITEM, RULES>::m_rows;

public:
    TreeView(VisibleRows<ITEM>& shown, ITEM*& pSelected, UINT& nSelected)
        : TreeItems<ITEM, RULES>(shown), m_pSelected(pSelected), m_nSelected(nSelected)
    {}

    // The root, which is expanded from the start.
    ITEM* OpenRoot()
    {
        ChangeState(*m_tree.Root(), RULES::EXPANDED);
        return m_tree.Root();
    }

    // --- Selection

    // The one place: the selected item, null for none, and the selected row. They do not always go together.
    void ChangeSelection(ITEM* item, UINT row)
    {
        m_pSelected = item;
        m_nSelected = row;
    }

    // A removed item cannot be selected: of its row only the number is.
    void SelectRow(UINT row) { ChangeSelection(m_tree.FindInTree(m_rows[row]), row); }

    // False where nothing changes. Null selects nothing.
    bool Select(void* hItem)
    {
        ITEM* item = m_tree.FindInTree(hItem);
        if (hItem && !this->OrMisuse(item)) {
            return false;
        }
        if (item == m_pSelected) {
            return false;
        }
        SelectItem(item);
        return true;
    }
    // Its row with it, if it has one.
    void SelectItem(ITEM* item) { ChangeSelection(item, this->FindRow(item)); }

    // The selected row becomes the selected item's, wherever that stands now.
    void FindSelectedRow() { SelectItem(m_pSelected); }

    // --- State

    // Fixed behaviour: the bits to set are not limited by the mask; hosts that give a mask of 0 would set
    // nothing.
    void SetState(void* hItem, UINT uState, UINT uMask)
    {
        if (ITEM* item = this->ItemOf(hItem)) {
            ChangeState(*item, (item->uState & ~(uMask & ~HIDDEN_STATE)) | (uState & ~HIDDEN_STATE));
        }
    }

    // --- Items that come and go

    struct Place
    {
        ITEM* item;
        UINT row; // NO_INDEX where no row shows it
    };

    // No item for a bad parent, or without memory.
    Place Insert(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
    {
        ITEM* parent =
            this->IsRootByNull(hParent) ? m_tree.Root() : this->OrMisuse(m_tree.FindInTree(hParent));
        if (!parent) {
            return {nullptr, NO_INDEX};
        }
        ITEM* item = m_tree.Insert(*parent, IndexBehind(*parent, hAfter), pszName);
        if (!item) {
            return {nullptr, NO_INDEX};
        }
        item->nImage = nImage;
        item->pCustomData = pData;
        ChangeState(*item, uState);
        const UINT row = IsExpanded(*parent) ? RowForNew(*item) : NO_INDEX;
        if (row != NO_INDEX && !m_rows.Insert(row, item)) {
            m_tree.Remove(*item, [](const ITEM*) {});
            return {nullptr, NO_INDEX};
        }
        return {item, row};
    }

    // The item that a handle names if it can be removed.
    ITEM* Removable(void* hItem) const
    {
        ITEM* item = m_tree.FindInTree(hItem);
        return this->OrMisuse(item == m_tree.Root() ? nullptr : item);
    }

    // The first step of a removal; false where no row shows the item.
    bool RemoveRows(ITEM& item)
    {
        const UINT row = m_rows.Find(&item);
        if (row == NO_INDEX) {
            return false;
        }
        const UINT rowEnd = m_rows.EndOfBranch(row);
        const UINT rowFirst = RULES::REMOVED_ROW_STAYS ? row + 1 : row;
        m_rows.Remove(rowFirst, rowEnd - rowFirst);
        // Fixed behaviour: a selection below keeps its number, though its row has moved; hosts that remove an
        // item above it and select again would repaint nothing.
        if (m_nSelected >= row && m_nSelected < rowEnd) {
            ChangeSelection(nullptr, NO_INDEX);
        }
        return true;
    }

    // The second step: the item itself, and all below it.
    void Delete(ITEM& item)
    {
        m_tree.Remove(item, [this](const ITEM* gone) {
            if (gone == m_pSelected) {
                ChangeSelection(nullptr, m_nSelected);
            }
        });
    }

    void RemoveAll()
    {
        m_rows.RemoveAll();
        m_tree.RemoveChildren(*m_tree.Root(), [](const ITEM*) {});
        ChangeSelection(nullptr, NO_INDEX);
    }

    // --- What is expanded

    static bool IsExpanded(const ITEM& item) { return item.uState & RULES::EXPANDED; }
    bool MayExpand(UINT row) const
    {
        const ITEM* item = m_rows[row];
        return item && !IsExpanded(*item) && HasExpander(*item);
    }
    bool MayCollapse(UINT row) const
    {
        const ITEM* item = m_rows[row];
        return item && IsExpanded(*item);
    }

    // Of a row that may be expanded. What was expanded below comes back with it. False where there is nothing
    // to show, and the tree's rule keeps the item closed; and, with nothing done, without memory.
    bool Expand(UINT row)
    {
        ITEM& item = *m_rows[row];
        if (item.aChildren.GetLength() == 0 && !RULES::EXPANDS_WITHOUT_CHILDREN) {
            return false;
        }
        if (!ShowBranch(row + 1, item)) {
            return false;
        }
        ChangeState(item, item.uState | RULES::EXPANDED);
        return true;
    }

    // Of a row that may be collapsed. What is expanded below stays so.
    void Collapse(UINT row)
    {
        ITEM& item = *m_rows[row];
        ChangeState(item, item.uState & ~RULES::EXPANDED);
        m_rows.Remove(row + 1, m_rows.EndOfBranch(row) - row - 1);
    }

    // --- Order

    void SortChildren(ITEM& item)
    {
        SortByName(item.aChildren.GetData(), item.aChildren.GetLength());
        const UINT row = m_rows.Find(&item);
        const bool fPlaced = row != NO_INDEX || &item == m_tree.Root() || !RULES::SORT_NEEDS_ROW;
        if (fPlaced && IsExpanded(item)) {
            // Of no row the number is -1, so that its children begin at 0.
            OverwriteRows(row + 1, item);
        }
        if (m_pSelected || RULES::SELECTION_FOLLOWS_ITEM) {
            FindSelectedRow();
        }
    }

    // Makes an item the last child of another one. Its rows stay. False, with nothing done, for a bad handle
    // and where the parent is the item itself or stands below it. Nothing is done without memory either.
    bool Move(void* hItem, void* hNewParent)
    {
        ITEM* item = m_tree.FindInTree(hItem);
        ITEM* pNewParent = m_tree.FindInTree(hNewParent);
        if (!item || item == m_tree.Root() || !pNewParent || m_tree.IsWithin(*pNewParent, *item)) {
            return false;
        }
        m_tree.Move(*item, *pNewParent);
        FindSelectedRow();
        return true;
    }

    // Gives the root the first row, or takes it away again.
    void ShowRoot(bool fShow)
    {
        const bool fShown = m_rows[0] == m_tree.Root();
        if (fShow && !fShown) {
            m_rows.Insert(0, m_tree.Root());
        } else if (!fShow && fShown) {
            m_rows.Remove(0, 1);
        }
    }

    // Whether all is as it must be: for tests.
    bool Check() const
    {
        return m_tree.Check() && m_rows.Check() && (!m_pSelected || m_tree.FindInTree(m_pSelected));
    }

private:
    // The one place of what an item's state is: what is expanded, promised or checked.
    static void ChangeState(ITEM& item, UINT uState) { item.uState = uState; }

    // False, with nothing done, without memory.
    bool ShowBranch(UINT row, const ITEM& item)
    try {
        std::vector<ITEM*> branch;
        m_tree.AddOpenBranch(item, RULES::EXPANDED, branch);
        return m_rows.Insert(row, branch);
    } catch (const std::bad_alloc&) {
        return false;
    }

    // Where a child behind `hAfter` stands among its siblings.
    UINT IndexBehind(const ITEM& parent, void* hAfter) const
    {
        const ITEM* after = m_tree.FindInTree(hAfter);
        if (m_tree.IsChildOf(after, parent)) {
            return m_tree.IndexOf(*after) + 1;
        }
        const bool fFront = hAfter ? RULES::PARENT_IS_FRONT && after == &parent : RULES::NULL_CHILD_IS_FRONT;
        return fFront ? 0 : parent.aChildren.GetLength();
    }

    // Below an item that is expanded but not in view itself there is no row.
    UINT RowForNew(const ITEM& item) const
    {
        return RULES::ROWS_COUNT_CHILDREN_ALONE ? RowByChildrenAlone(item) : RowByBranches(item);
    }

    // Behind the branch of its sibling, or of its parent.
    UINT RowByBranches(const ITEM& item) const
    {
        const UINT i = item.place.iChild;
        ITEM* pAnchor = i > 0 ? item.pParent->aChildren[i - 1] : item.pParent;
        if (pAnchor == m_tree.Root()) {
            // Fixed behaviour: in front of the root's own row as well; hosts that show the root would find
            // their first item in another row.
            return 0;
        }
        const UINT row = m_rows.Find(pAnchor);
        return row == NO_INDEX ? row : m_rows.SkipDeeper(row + 1, item.nLevel);
    }

    // Fixed behaviour: counted from the children alone, as if none of them were expanded; any other row would
    // show what hosts insert behind an expanded item in another place than before.
    UINT RowByChildrenAlone(const ITEM& item) const
    {
        const UINT rowParent = m_rows.Find(item.pParent);
        if (rowParent == NO_INDEX && item.pParent != m_tree.Root()) {
            return NO_INDEX;
        }
        return std::min(rowParent + 1 + item.place.iChild, m_rows.GetLength());
    }

    // Fixed behaviour: open branches among the children are not reckoned with; the rows of hosts that sort
    // with open branches would come out in another order.
    void OverwriteRows(UINT rowFirst, const ITEM& parent)
    {
        const UINT nRows = m_rows.GetLength();
        const UINT nRoom = rowFirst < nRows ? nRows - rowFirst : 0;
        const UINT n = std::min(parent.aChildren.GetLength(), nRoom);
        for (UINT i = 0; i < n; ++i) {
            m_rows.Set(rowFirst + i, parent.aChildren[i]);
        }
    }

    ITEM*& m_pSelected;
    UINT& m_nSelected;
};

} // namespace gesso
