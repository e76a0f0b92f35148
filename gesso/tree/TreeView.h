// A tree as it is shown: its items, the rows of those that are in view, and which one is selected. It knows
// no window and no message.
//
// The rows and the selection stand in the control, where derived classes read them; what changes them stands
// here. Each kind of change ends in one function: ChangeSelection for the selection, ChangeState for what is
// expanded or checked.
#pragma once

#include <gesso/tree/CountRoom.h>
#include <gesso/tree/NameOrder.h>
#include <gesso/tree/NameSort.h>
#include <gesso/tree/RowQuirks.h>
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
    TreeView(VisibleRows<ITEM>& shown, ITEM*& pSelected, UINT& nSelected, RowQuirks quirks = {})
        : TreeItems<ITEM, RULES>(shown), m_pSelected(pSelected), m_nSelected(nSelected), m_quirks(quirks)
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

    // True where rows came or went, which they do but for TreeRowsStay.
    // Fixed behaviour: the bits to set are not limited by the mask; hosts that give a mask of 0 would set
    // nothing.
    bool SetState(void* hItem, UINT uState, UINT uMask)
    {
        ITEM* item = this->ItemOf(hItem);
        if (!item) {
            return false;
        }
        const UINT uNew = (item->uState & ~(uMask & ~HIDDEN_STATE)) | (uState & ~HIDDEN_STATE);
        const UINT row = m_quirks.fRowsStay ? NO_INDEX : m_rows.Find(item);
        const bool fToggles = row != NO_INDEX && ((item->uState ^ uNew) & RULES::EXPANDED);
        if (fToggles && IsExpanded(*item)) {
            Collapse(row);
        } else if (fToggles && !ShowBranch(row + 1, *item)) {
            return false;
        }
        ChangeState(*item, uNew);
        FollowSelection();
        return fToggles;
    }
    void Tick(ITEM& item, UINT uBit) { ChangeState(item, item.uState ^ uBit); }

    // --- Items that come and go

    struct Place
    {
        ITEM* item;
        UINT row; // NO_INDEX where no row shows it
    };

    // No item for a bad parent, or without memory.
    Place Insert(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
    {
        ITEM* parent = ParentForNew(hParent);
        return parent ? InsertAt(*parent, IndexBehind(*parent, hAfter), pszName, nImage, uState, pData)
                      : Place{nullptr, NO_INDEX};
    }

    // By name among its siblings, behind those with the same one; these are to be in that order already.
    Place InsertSorted(void* hParent, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
    {
        ITEM* parent = ParentForNew(hParent);
        return parent ? InsertAt(*parent, IndexByName(*parent, pszName ? pszName : L""), pszName, nImage,
                                 uState, pData)
                      : Place{nullptr, NO_INDEX};
    }

    // The item that a handle names if it may have a new child.
    ITEM* ParentForNew(void* hParent) const
    {
        ITEM* parent = ParentOfAny(hParent);
        if (parent && parent->fCounted) {
            Misuse(COUNTED);
            return nullptr;
        }
        return parent;
    }

    // The item that a handle names if its children may change.
    ITEM* ParentOfAny(void* hParent) const
    {
        ITEM* parent = this->IsRootByNull(hParent) ? m_tree.Root() : m_tree.FindInTree(hParent);
        return this->OrMisuse(parent && parent->fGoing ? nullptr : parent);
    }

    CountRoom<ITEM> RoomForCount(ITEM& item, UINT n) const { return {m_tree.Store(), item, n}; }
    // The same for the rows that come with it, if nothing comes between.
    bool HasRoomForRows(ITEM& item, UINT n)
    {
        const auto [rowFirst, rowEnd] = RowsBelow(item);
        return n == 0 || !ShowsBranch(item) || m_rows.ReserveRun(n, rowEnd - rowFirst);
    }

    // Replaces what stands below an item by children that are only counted. False, with nothing done, without
    // memory.
    bool SetChildCount(ITEM& item, UINT n)
    {
        const CountRoom<ITEM> room = RoomForCount(item, n);
        if (!room || !HasRoomForRows(item, n)) {
            return false;
        }
        const auto [rowFirst, rowEnd] = RowsBelow(item);
        m_rows.Remove(rowFirst, rowEnd - rowFirst);
        if (m_nSelected >= rowFirst && m_nSelected < rowEnd) {
            ChangeSelection(nullptr, NO_INDEX);
        }
        m_tree.RemoveChildren(item, [this](const ITEM* gone) {
            if (gone == m_pSelected) {
                ChangeSelection(nullptr, NO_INDEX);
            }
        });
        m_tree.SetCount(item, n);
        if (n > 0 && ShowsBranch(item)) {
            m_rows.InsertRun(rowFirst, {&item, 0, n});
        }
        FollowSelection();
        return true;
    }

    Place InsertAt(ITEM& parent, UINT i, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
    {
        ITEM* item = m_tree.Insert(parent, i, pszName);
        if (!item) {
            return {nullptr, NO_INDEX};
        }
        item->nImage = nImage;
        item->pCustomData = pData;
        ChangeState(*item, uState);
        const UINT row = IsExpanded(parent) ? RowForNew(*item) : NO_INDEX;
        if (row != NO_INDEX && !m_rows.Insert(row, item)) {
            m_tree.Remove(*item, [](const ITEM*) {});
            return {nullptr, NO_INDEX};
        }
        FollowSelection();
        return {item, row};
    }

    // The item that a handle names if it can be removed; null also for one that goes already.
    ITEM* Removable(void* hItem) const
    {
        ITEM* item = m_tree.FindInTree(hItem);
        this->OrMisuse(item == m_tree.Root() ? nullptr : item);
        if (item && IsOneCounted(*item)) {
            Misuse(COUNTED);
            return nullptr;
        }
        return !item || item == m_tree.Root() || item->fGoing ? nullptr : item;
    }

    // Marks a branch as one that goes: nothing enters or leaves it any more.
    void Doom(ITEM& top) const
    {
        for (ITEM* p = &top; p; p = m_tree.NextWithin(top, *p)) {
            p->fGoing = true;
        }
    }
    // Takes that back, for what has not gone after all.
    void Spare(ITEM& top) const
    {
        for (ITEM* p = &top; p; p = m_tree.NextWithin(top, *p)) {
            p->fGoing = p->fTold = false;
        }
    }
    // The first item of a branch, from another one on, of which the parent has not been told yet; null for
    // none.
    ITEM* NextUntold(const ITEM& top, ITEM& from) const
    {
        ITEM* p = &from;
        while (p && p->fTold) {
            p = m_tree.NextWithin(top, *p);
        }
        return p;
    }

    // The first step of a removal; false where no row shows the item.
    bool RemoveRows(ITEM& item)
    {
        const UINT row = m_rows.Find(&item);
        if (row == NO_INDEX) {
            return false;
        }
        const UINT rowEnd = m_rows.EndOfBranch(row);
        const UINT rowFirst = RULES::REMOVED_ROW_STAYS && m_quirks.fRowsStay ? row + 1 : row;
        m_rows.Remove(rowFirst, rowEnd - rowFirst);
        // Fixed behaviour: a selection below keeps its number, though its row has moved; hosts that remove an
        // item above it and select again would repaint nothing.
        if (m_nSelected >= row && m_nSelected < rowEnd) {
            ChangeSelection(nullptr, NO_INDEX);
        }
        FollowSelection();
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
        m_tree.StopCounting(*m_tree.Root());
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
        if (!HasChildren(item) && !RULES::EXPANDS_WITHOUT_CHILDREN) {
            return false;
        }
        if (!ShowBranch(row + 1, item)) {
            return false;
        }
        ChangeState(item, item.uState | RULES::EXPANDED);
        FollowSelection();
        return true;
    }

    // Of a row that may be collapsed. What is expanded below stays so. Where the selected item is hidden by
    // it, the item is selected instead, but for TreeSelectsByNumber.
    void Collapse(UINT row)
    {
        ITEM& item = *m_rows[row];
        ChangeState(item, item.uState & ~RULES::EXPANDED);
        m_rows.Remove(row + 1, m_rows.EndOfBranch(row) - row - 1);
        // That of a copy may have gone in the tree that it was made from.
        const ITEM* pSelected = m_quirks.fSelectsByNumber ? nullptr : m_tree.FindInTree(m_pSelected);
        if (pSelected && m_tree.IsWithin(*pSelected, item)) {
            SelectItem(&item);
        }
        FollowSelection();
    }

    // The highest closed item above another one; null where none keeps that from being in view.
    ITEM* ClosedAbove(const ITEM& item) const
    {
        ITEM* pClosed = nullptr;
        for (ITEM* p = item.place.pHolder; p; p = p->place.pHolder) {
            pClosed = IsExpanded(*p) ? pClosed : p;
        }
        return pClosed;
    }

    // --- Order

    void SortChildren(ITEM& item)
    {
        if (item.fCounted) {
            return Misuse(COUNTED);
        }
        if (item.fGoing) {
            return;
        }
        SortByName(item.aChildren.GetData(), item.aChildren.GetLength());
        const UINT row = m_rows.Find(&item);
        if (!m_quirks.fRowsStay) {
            return RewriteBranch(item, row);
        }
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
    // and where the parent is the item itself or stands below it, or children are only counted. Nothing is
    // done without memory either.
    bool Move(void* hItem, void* hNewParent)
    {
        ITEM* item = m_tree.FindInTree(hItem);
        ITEM* pNewParent = m_tree.FindInTree(hNewParent);
        if (!item || item == m_tree.Root() || !pNewParent || m_tree.IsWithin(*pNewParent, *item) ||
            IsOneCounted(*item) || pNewParent->fCounted)
        {
            return false;
        }
        if (m_quirks.fRowsStay) {
            m_tree.Move(*item, *pNewParent);
        } else if (!item->fGoing && !pNewParent->fGoing) {
            MoveBranch(*item, *pNewParent);
        }
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
        FollowSelection();
    }

    // Whether all is as it must be: for tests.
    bool Check() const
    {
        return m_tree.Check() && m_rows.Check() && (!m_pSelected || m_tree.FindInTree(m_pSelected));
    }

private:
    // The one place of what an item's state is: what is expanded, promised or checked.
    static void ChangeState(ITEM& item, UINT uState) { item.uState = uState; }

    struct Span
    {
        UINT rowFirst;
        UINT rowEnd;
    };
    // The rows below an item. Of no row the number is -1, so that those of a root without one begin at 0.
    Span RowsBelow(ITEM& item) const
    {
        const UINT row = m_rows.Find(&item);
        const bool fAll = row == NO_INDEX && &item == m_tree.Root();
        return {row + 1, fAll ? m_rows.GetLength() : row == NO_INDEX ? row + 1 : m_rows.EndOfBranch(row)};
    }
    // Whether what is below an item has rows, or would have.
    bool ShowsBranch(ITEM& item) const
    {
        return IsExpanded(item) && (&item == m_tree.Root() || m_rows.Find(&item) != NO_INDEX);
    }

    // False, with nothing done, without memory.
    bool ShowBranch(UINT row, ITEM& item)
    try {
        RowBranch<ITEM> branch;
        m_tree.AddOpenBranch(item, RULES::EXPANDED, branch);
        return m_rows.Insert(row, branch);
    } catch (const std::bad_alloc&) {
        return false;
    }

    // After rows came, went or moved.
    void FollowSelection()
    {
        if (!m_quirks.fSelectsByNumber) {
            FindSelectedRow();
        }
    }

    // The rows below an item become what shows of it now. Only where another tree has the same items can
    // there be more or fewer of these than of rows.
    void RewriteBranch(ITEM& item, UINT row)
    {
        if (!IsExpanded(item) || (row == NO_INDEX && &item != m_tree.Root())) {
            return;
        }
        const UINT rowFirst = row + 1;
        const UINT rowEnd = row == NO_INDEX ? m_rows.GetLength() : m_rows.EndOfBranch(row);
        if (m_rows.HasRuns()) {
            return ReplaceRows(item, rowFirst, rowEnd);
        }
        UINT rowNext = rowFirst;
        for (ITEM* p = &item; (p = m_tree.NextOpen(item, *p, RULES::EXPANDED)) && rowNext < rowEnd;) {
            m_rows.Set(rowNext++, p);
        }
        m_rows.Remove(rowNext, rowEnd - rowNext);
        m_rows.FindAgain(rowFirst, rowNext);
        FindSelectedRow();
    }

    // The new rows come before the old ones go. Without memory those stay as they are.
    void ReplaceRows(ITEM& item, UINT rowFirst, UINT rowEnd)
    {
        const UINT nFormer = m_rows.GetLength();
        if (ShowBranch(rowEnd, item)) {
            const UINT nNew = m_rows.GetLength() - nFormer;
            m_rows.Remove(rowFirst, rowEnd - rowFirst);
            m_rows.FindAgain(rowFirst, rowFirst + nNew);
        }
        FindSelectedRow();
    }

    // With level, named parent and rows. The new rows come before the old ones go, so that nothing is done
    // without memory.
    void MoveBranch(ITEM& item, ITEM& newParent)
    try {
        const UINT rowParent = m_rows.Find(&newParent);
        const UINT rowOld = m_rows.Find(&item);
        const UINT nOld = rowOld == NO_INDEX ? 0 : m_rows.EndOfBranch(rowOld) - rowOld;
        RowBranch<ITEM> branch;
        if (IsExpanded(newParent) && (rowParent != NO_INDEX || &newParent == m_tree.Root())) {
            branch.Add(&item);
            if (IsExpanded(item)) {
                m_tree.AddOpenBranch(item, RULES::EXPANDED, branch);
            }
        }
        const auto nNew = static_cast<UINT>(branch.GetLength());
        const UINT rowNew = rowParent == NO_INDEX ? m_rows.GetLength() : m_rows.EndOfBranch(rowParent);
        if (!m_tree.ReserveChild(newParent) || !m_rows.Insert(rowNew, branch)) {
            return;
        }
        const bool fOldBehind = nOld > 0 && rowNew <= rowOld;
        m_rows.Remove(fOldBehind ? rowOld + nNew : rowOld, nOld);
        m_tree.Adopt(item, newParent);
        const UINT rowFirst = nOld > 0 && !fOldBehind ? rowNew - nOld : rowNew;
        m_rows.FindAgain(rowFirst, rowFirst + nNew);
    } catch (const std::bad_alloc&) {
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

    static UINT IndexByName(const ITEM& parent, LPCWSTR pszName)
    {
        ITEM* const* const pFirst = parent.aChildren.GetData();
        ITEM* const* const pEnd = pFirst + parent.aChildren.GetLength();
        const auto* pAt = std::upper_bound(pFirst, pEnd, pszName, [](LPCWSTR pszNew, const ITEM* item) {
            return CompareAsShell(pszNew, item->strName) < 0;
        });
        return static_cast<UINT>(pAt - pFirst);
    }

    // Below an item that is expanded but not in view itself there is no row.
    UINT RowForNew(const ITEM& item) const
    {
        const bool fChildrenAlone = RULES::ROWS_COUNT_CHILDREN_ALONE && m_quirks.fRowsStay;
        return fChildrenAlone ? RowByChildrenAlone(item) : RowByBranches(item);
    }

    // Behind the branch of its sibling, or of its parent.
    UINT RowByBranches(const ITEM& item) const
    {
        const UINT i = item.place.iChild;
        ITEM* pAnchor = i > 0 ? item.pParent->aChildren[i - 1] : item.pParent;
        if (pAnchor == m_tree.Root()) {
            // Fixed behaviour: in front of the root's own row as well; hosts that show the root would find
            // their first item in another row.
            return m_quirks.fRowsStay ? 0 : m_rows.Find(pAnchor) + 1;
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

    static constexpr const char* COUNTED =
        "tree: children that are only counted are not the host's to change";

    ITEM*& m_pSelected;
    UINT& m_nSelected;
    RowQuirks m_quirks;
};

} // namespace gesso
