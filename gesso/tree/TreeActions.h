// What the operations of a tree do besides changing its model: scroll bars, repaints, and what the parent is
// told. Alike in both trees; where their rules part stands in TreeRules.h.
#pragma once

#include <gesso/framework/Access.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/tree/ItemNotify.h>
#include <gesso/tree/ToldRows.h>
#include <gesso/tree/TreeView.h>

#include <utility>

namespace gesso {

// A friend of the classes, whose own members it calls.
struct TreeActions
{
    template <class CONTROL>
    static LRESULT SendItem(CONTROL& tree, UINT uCode, UINT row, UINT uAction, int x, int y)
    {
        return SendItemNotify(tree, uCode, tree.m_aVisible[row], row, uAction, x, y);
    }

    // The same of an item that another notification may have moved by now; of one that is gone nothing is
    // told.
    template <class CONTROL, class ITEM>
    static void SendItemAgain(CONTROL& tree, UINT uCode, ITEM* item, UINT rowFormer, UINT uAction, int x,
                              int y)
    {
        const UINT row = tree.m_aVisible[rowFormer] == item ? rowFormer : tree.View().FindRow(item);
        if (row != NO_INDEX) {
            SendItem(tree, uCode, row, uAction, x, y);
        }
    }

    // --- Selection

    // Tells the parent of the selection, if that is another than it knows, and assistive technology before
    // it. False where there is nothing to go on with.
    template <class CONTROL> static bool TellSelection(CONTROL& tree)
    {
        if (!TellSelected(tree, GetFocus() == tree.m_hWnd)) {
            return false;
        }
        auto& pTold = tree.m_aVisible.Inside().pToldSelection;
        if (pTold == tree.m_pSelected || Has(tree, Quirk::TreeSelectionIsSilent)) {
            return true;
        }
        pTold = tree.m_pSelected;
        RedrawAll(tree);
        const Watch watch(tree);
        SendItemNotify(tree, TVN_SELCHANGEDW, tree.m_pSelected, tree.m_nSelected, 0, -1, -1);
        return watch;
    }

    // --- What assistive technology hears. A listener may do anything: each is false where there is nothing
    // to go on with. A copy, whose rows are not its window's, tells nothing.

    template <class CONTROL> static bool TellRow(CONTROL& tree, UINT row, DWORD dwEvent)
    {
        return TellIndex(tree, ToldIndex(tree.m_aVisible, row), dwEvent);
    }
    // The same by the row's index among those that are told of; nothing of NO_INDEX.
    template <class CONTROL> static bool TellIndex(CONTROL& tree, UINT nIndex, DWORD dwEvent)
    {
        if (nIndex == NO_INDEX || !Frame::IsAlive(tree.m_hWnd, &tree)) {
            return true;
        }
        const Watch watch(tree);
        TellAccess(tree.m_hWnd, dwEvent, static_cast<LONG>(nIndex) + 1);
        return watch;
    }
    // The whole control.
    template <class CONTROL> static bool TellWhole(CONTROL& tree, DWORD dwEvent)
    {
        const Watch watch(tree);
        if (Frame::IsAlive(tree.m_hWnd, &tree)) {
            TellAccess(tree.m_hWnd, dwEvent);
        }
        return watch;
    }

    // Of the selection, if that is another than was told, and of the focus with it.
    template <class CONTROL> static bool TellSelected(CONTROL& tree, bool fFocus)
    {
        auto& inside = tree.m_aVisible.Inside();
        const HeardSelection now = SelectionOf(tree);
        const HeardSelection former = std::exchange(inside.heard, now);
        if (now == former) {
            return true;
        }
        const bool fShown = IsSelectableRow(tree.m_aVisible, tree.m_nSelected);
        if (fFocus && !(fShown ? TellRow(tree, tree.m_nSelected, EVENT_OBJECT_FOCUS)
                               : TellWhole(tree, EVENT_OBJECT_FOCUS)))
        {
            return false;
        }
        if (fShown) { // by now it may be another one, which was told then
            return !(SelectionOf(tree) == now) || TellRow(tree, tree.m_nSelected, EVENT_OBJECT_SELECTION);
        }
        const UINT row = former.pItem ? tree.View().FindRow(former.pItem) : former.row;
        return TellRow(tree, row, EVENT_OBJECT_SELECTIONREMOVE);
    }

    // Of many rows that came, went or moved: nothing else is told of them, nor of a selection among them.
    template <class CONTROL> static bool TellReorder(CONTROL& tree)
    {
        tree.m_aVisible.Inside().heard = SelectionOf(tree);
        return TellWhole(tree, EVENT_OBJECT_REORDER);
    }

    // Of a scroll position that is another than was told. To be called last, after what has scrolled.
    template <class CONTROL> static bool TellScrolled(CONTROL& tree)
    {
        POINT& ptHeard = tree.m_aVisible.Inside().ptHeard;
        const POINT pt{tree.m_siH.nPos, tree.m_siV.nPos};
        if (pt.x == ptHeard.x && pt.y == ptHeard.y) {
            return true;
        }
        ptHeard = pt;
        constexpr DWORD SCROLLED = 0x8015; // EVENT_OBJECT_CONTENTSCROLLED, which not all headers have
        return TellWhole(tree, SCROLLED);
    }

    // Of a new window, of which nothing has been told.
    template <class CONTROL> static void HearAsItIs(CONTROL& tree)
    {
        auto& inside = tree.m_aVisible.Inside();
        inside.heard = SelectionOf(tree);
        inside.ptHeard = {tree.m_siH.nPos, tree.m_siV.nPos};
    }

    // The focus is on the selected row, if there is one; of the window's own the platform tells.
    template <class CONTROL> static LRESULT OnSetFocus(CONTROL& tree)
    {
        tree.Invalidate(0);
        const bool fShown = IsSelectableRow(tree.m_aVisible, tree.m_nSelected);
        if ((!fShown || TellRow(tree, tree.m_nSelected, EVENT_OBJECT_FOCUS)) && TellSelected(tree, false)) {
            Frame::SendNotify(tree, static_cast<UINT>(NM_SETFOCUS));
        }
        return 0;
    }

    template <class CONTROL> static void SetItemHeight(CONTROL& tree, UINT nHeight)
    {
        tree.m_nItemHeight = nHeight;
        tree.m_aVisible.Inside().fHeightGiven = true;
        RedrawWithBars(tree);
    }

    // --- Items

    template <class CONTROL, class... FIELDS>
    static void* InsertItem(CONTROL& tree, void* hParent, void* hAfter, FIELDS... fields)
    {
        return Inserted(tree, tree.View().Insert(hParent, hAfter, fields...));
    }

    template <class CONTROL, class... FIELDS>
    static void* InsertSorted(CONTROL& tree, void* hParent, LPCWSTR pszName, FIELDS... fields)
    {
        return Inserted(tree, tree.View().InsertSorted(hParent, pszName, fields...));
    }

    template <class CONTROL> static void RemoveItem(CONTROL& tree, void* hItem)
    {
        auto* item = tree.View().Removable(hItem);
        if (!item) {
            return;
        }
        const auto hold = tree.View().Hold(item);
        if (!TellRemoval(tree, *item, false)) {
            return;
        }
        const Lifeline life(tree);
        const Removal removal = RemovalOf(tree, *item);
        if (tree.View().RemoveRows(*item)) {
            RedrawWithBars(tree);
        } else if (!Has(tree, Quirk::TreeRowsStay)) {
            tree.Invalidate(0); // its parent may have no expander any more
        }
        // The parent may have removed it as well, while it drew beside bars that went.
        if (life && tree.View().IsInTree(item)) {
            tree.DeleteItem(item);
        }
        if (life && TellRemoved(tree, removal)) {
            TellAfterRemoval(tree);
        }
    }

    template <class CONTROL> static void RemoveAllItems(CONTROL& tree)
    {
        auto& root = *tree.View().Root();
        if (root.fGoing || !TellRemoval(tree, root, true)) {
            return;
        }
        root.fGoing = root.fTold = false;
        const bool fRows = tree.m_aVisible.GetLength() > 0;
        tree.View().RemoveAll();
        if (RedrawWithBars(tree) && (!fRows || TellReorder(tree))) {
            TellAfterRemoval(tree);
        }
    }

    template <class CONTROL> static void SetChildCount(CONTROL& tree, void* hItem, UINT nChildren)
    {
        auto* item = tree.View().ParentOfAny(hItem);
        if (!item) {
            return;
        }
        // Before anything is told of those that go.
        const auto room = tree.View().RoomForCount(*item, nChildren);
        if (!room || !tree.View().HasRoomForRows(*item, nChildren) || !TellRemoval(tree, *item, true)) {
            return;
        }
        tree.View().Spare(*item);
        if (tree.View().SetChildCount(*item, nChildren) && tree.RowsChanged() && TellFilled(tree, item)) {
            TellAfterRemoval(tree);
        }
    }

    template <class CONTROL> static void SetItemState(CONTROL& tree, void* hItem, UINT uState, UINT uMask)
    {
        const UINT row = tree.View().FindRow(hItem);
        const UINT uFormer = row == NO_INDEX ? 0 : tree.m_aVisible[row]->uState;
        if (tree.View().SetState(hItem, uState, uMask)) {
            if (tree.RowsChanged() && TellState(tree, hItem, uFormer)) {
                TellSelection(tree);
            }
        } else {
            ShowField(tree);
            if (row != NO_INDEX) {
                TellState(tree, hItem, uFormer);
            }
        }
    }

    // Whether a name is another than an item's that has a row.
    template <class CONTROL> static bool IsOtherName(CONTROL& tree, const void* hItem, LPCWSTR pszName)
    {
        const UINT row = tree.View().FindRow(hItem);
        return row != NO_INDEX && tree.m_aVisible[row]->strName != (pszName ? pszName : L"");
    }

    // After a change of what a row shows.
    template <class CONTROL> static void ShowField(CONTROL& tree)
    {
        if (!Has(tree, Quirk::TreeSettersShowLater)) {
            tree.Invalidate(0);
        }
    }

    template <class CONTROL> static void SortChildren(CONTROL& tree, void* hItem)
    {
        tree.Invalidate(0);
        if (auto* item = tree.View().ItemOf(hItem)) {
            tree.View().SortChildren(*item);
            PlaceEdit(tree);
            if (tree.View().IsExpanded(*item)) {
                TellReorder(tree);
            }
        }
    }

    // --- Expansion

    template <class CONTROL> static void Expand(CONTROL& tree, UINT row)
    {
        if (!AskFor(tree, &row) || !tree.View().MayExpand(row) || !AskExpansion(tree, &row, TVE_EXPAND)) {
            return;
        }
        auto* item = tree.m_aVisible[row];
        const auto hold = tree.View().Hold(item);
        if (tree.View().Expand(row) && tree.RowsChanged() && TellRow(tree, row, EVENT_OBJECT_STATECHANGE)) {
            SendItemAgain(tree, TVN_ITEMEXPANDEDW, item, row, TVE_EXPAND, -1, 0);
        }
    }

    template <class CONTROL> static void Collapse(CONTROL& tree, UINT row)
    {
        if (!tree.View().MayCollapse(row) || !AskExpansion(tree, &row, TVE_COLLAPSE)) {
            return;
        }
        auto* item = tree.m_aVisible[row];
        const auto hold = tree.View().Hold(item);
        tree.View().Collapse(row);
        if (tree.RowsChanged() && TellRow(tree, row, EVENT_OBJECT_STATECHANGE) && TellSelection(tree)) {
            SendItemAgain(tree, TVN_ITEMEXPANDEDW, item, row, TVE_COLLAPSE, -1, 0);
        }
    }

    // Opens what is closed above an item, from the top down. The item's row; NO_INDEX where it has none
    // still, and where there is nothing to go on with.
    template <class CONTROL, class ITEM> static UINT OpenAbove(CONTROL& tree, ITEM* item)
    {
        const Watch watch(tree);
        const auto hold = tree.View().Hold(item);
        while (auto* pClosed = tree.View().ClosedAbove(*item)) {
            const auto holdClosed = tree.View().Hold(pClosed);
            Expand(tree, tree.View().FindRow(pClosed));
            if (!watch || !tree.View().IsInTree(item) || !tree.View().IsExpanded(*pClosed)) {
                return NO_INDEX;
            }
        }
        return tree.View().FindRow(item);
    }

    // The row of an item that is to be expanded or brought into view.
    template <class CONTROL> static UINT RowToShow(CONTROL& tree, void* hItem)
    {
        auto* item = hItem ? tree.View().ItemOf(hItem) : nullptr;
        if (!item || Has(tree, Quirk::TreeOpensRowsInView)) {
            return tree.View().FindRow(item);
        }
        return OpenAbove(tree, item);
    }

    template <class CONTROL> static void Toggle(CONTROL& tree, UINT row)
    {
        tree.View().MayCollapse(row) ? Collapse(tree, row) : Expand(tree, row);
    }

    // --- Repainting

    template <class CONTROL> static void RedrawAll(CONTROL& tree)
    {
        // To the platform a null window means the desktop. Of one that does not show, or holds its painting,
        // nothing is repainted, but under Wine each request costs as much as the change itself.
        if (tree.m_hWnd && IsWindowVisible(tree.m_hWnd) && Frame::Redraws(tree.m_hWnd)) {
            RedrawWindow(tree.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
        }
        PlaceEdit(tree);
    }

    template <class CONTROL> static void PlaceEdit(CONTROL& tree)
    {
        if constexpr (requires { tree.PlaceEdit(); }) {
            tree.PlaceEdit();
        }
    }

    // False where the object is gone: bars that come or go let the parent draw.
    template <class CONTROL> static bool RedrawWithBars(CONTROL& tree)
    {
        if (!tree.UpdateScrollbars()) {
            return false;
        }
        RedrawAll(tree);
        return true;
    }

private:
    template <class CONTROL> static HeardSelection SelectionOf(const CONTROL& tree)
    {
        return {tree.m_pSelected, tree.m_pSelected ? NO_INDEX : tree.m_nSelected};
    }

    // What is to be done of an item that came, and told of it.
    template <class CONTROL, class PLACE> static void* Inserted(CONTROL& tree, const PLACE& place)
    {
        const auto [item, row] = place;
        if (!item) {
            return nullptr;
        }
        const bool fFirst =
            item->pParent->aChildren.GetLength() == 1 && !(item->pParent->uState & SHOWS_EXPANDER);
        const Watch watch(tree);
        tree.ItemInserted(*item, row != NO_INDEX);
        const UINT rowNow = !watch || row == NO_INDEX      ? NO_INDEX
                            : tree.m_aVisible[row] == item ? row
                                                           : tree.View().FindRow(item);
        const bool fGoesOn = watch && TellRow(tree, rowNow, EVENT_OBJECT_CREATE);
        if (fGoesOn && fFirst && tree.View().IsInTree(item)) {
            TellRow(tree, tree.View().FindRow(item->pParent), EVENT_OBJECT_STATECHANGE);
        }
        return item;
    }

    // What is known of an item before it is removed.
    struct Removal
    {
        const void* pItem;
        UINT nIndex; // among the rows that are told of
        UINT nRows;
        const void* pParent;
    };
    template <class CONTROL, class ITEM> static Removal RemovalOf(const CONTROL& tree, const ITEM& item)
    {
        const auto& rows = tree.m_aVisible;
        return {&item, ToldIndex(rows, tree.Items().FindRow(&item)), rows.GetLength(), item.pParent};
    }
    // More than one row counts as many. Where it was the last child, its parent cannot be expanded any more.
    template <class CONTROL> static bool TellRemoved(CONTROL& tree, const Removal& removal)
    {
        const UINT nRows = tree.m_aVisible.GetLength();
        const bool fAlone = nRows + 1 == removal.nRows && tree.View().FindRow(removal.pItem) == NO_INDEX;
        const bool fGoesOn = fAlone                  ? TellIndex(tree, removal.nIndex, EVENT_OBJECT_DESTROY)
                             : nRows < removal.nRows ? TellReorder(tree)
                                                     : true;
        const UINT row = fGoesOn ? tree.View().FindRow(removal.pParent) : NO_INDEX;
        return fGoesOn && (row == NO_INDEX || HasExpander(*tree.m_aVisible[row]) ||
                           TellRow(tree, row, EVENT_OBJECT_STATECHANGE));
    }

    // Of an item whose children are only counted now.
    template <class CONTROL, class ITEM> static bool TellFilled(CONTROL& tree, ITEM* item)
    {
        const UINT row = tree.View().FindRow(item);
        if (!tree.View().IsInTree(item)) {
            return true;
        }
        const bool fShown = tree.View().IsExpanded(*item) && (row != NO_INDEX || item == tree.View().Root());
        return fShown ? TellReorder(tree) : TellRow(tree, row, EVENT_OBJECT_STATECHANGE);
    }

    // Of an item whose row shows another state than before.
    template <class CONTROL> static bool TellState(CONTROL& tree, const void* hItem, UINT uFormer)
    {
        const UINT row = tree.View().FindRow(hItem);
        const bool fOther =
            row != NO_INDEX && ((tree.m_aVisible[row]->uState ^ uFormer) & CONTROL::Rules::SEEN);
        return !fOther || TellRow(tree, row, EVENT_OBJECT_STATECHANGE);
    }

    // Tells the parent of each item of a branch, which stays as it is meanwhile, that it goes; the top may
    // stay. False where that leaves nothing to do: the tree is gone, or the parent has removed more.
    template <class CONTROL, class ITEM> static bool TellRemoval(CONTROL& tree, ITEM& top, bool fTopStays)
    {
        if (Has(tree, Quirk::TreeRemovalIsSilent)) {
            return true;
        }
        tree.View().Doom(top);
        top.fTold = fTopStays;
        const auto hold = tree.View().Hold(&top);
        const Lifeline life(tree);
        for (ITEM* item = &top; (item = tree.View().NextUntold(top, *item));) {
            item->fTold = true;
            SendItemNotify(tree, TVN_DELETEITEMW, item, tree.View().FindRow(item), 0, -1, -1);
            if (!life || (&top != tree.View().Root() && !tree.View().IsInTree(&top))) {
                return false;
            }
        }
        return true;
    }

    // The selection, and the end of an edit, that went with what was removed.
    template <class CONTROL> static void TellAfterRemoval(CONTROL& tree)
    {
        if (TellSelection(tree)) {
            if constexpr (requires { tree.EndLostEdit(); }) {
                tree.EndLostEdit();
            }
        }
    }

    // What a row shows, if that has not been told yet. The row may move meanwhile, along with its item. False
    // where there is nothing to go on with.
    template <class CONTROL> static bool AskFor(CONTROL& tree, UINT* pRow)
    {
        if constexpr (requires { tree.AskForRow(*pRow); }) {
            auto* item = tree.m_aVisible[*pRow];
            const auto hold = tree.View().Hold(item);
            if (!tree.AskForRow(*pRow)) {
                return false;
            }
            if (tree.m_aVisible[*pRow] != item) {
                *pRow = tree.View().FindRow(item);
            }
        }
        return true;
    }

    // Tells the parent what is to come. False where that leaves nothing to do: the parent has destroyed the
    // control, taken the row away, or expanded or collapsed it itself. The row may have moved.
    template <class CONTROL> static bool AskExpansion(CONTROL& tree, UINT* pRow, UINT uAction)
    {
        const Watch watch(tree); // a copy may be expanded too, and a tree that has no window any more
        auto* item = tree.m_aVisible[*pRow];
        const auto hold = tree.View().Hold(item);
        SendItem(tree, TVN_ITEMEXPANDINGW, *pRow, uAction, -1, 0);
        if (!watch) {
            return false;
        }
        if (tree.m_aVisible[*pRow] != item) {
            *pRow = tree.View().FindRow(item);
        }
        return *pRow != NO_INDEX && tree.View().IsExpanded(*item) == (uAction == TVE_COLLAPSE);
    }
};

} // namespace gesso
