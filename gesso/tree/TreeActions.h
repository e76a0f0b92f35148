// What the operations of a tree do besides changing its model: scroll bars, repaints, and what the parent is
// told. Alike in both trees; where their rules part stands in TreeRules.h.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/tree/ItemNotify.h>
#include <gesso/tree/TreeView.h>

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

    // Tells the parent of the selection, if that is another than it knows. False where there is nothing to go
    // on with.
    template <class CONTROL> static bool TellSelection(CONTROL& tree)
    {
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
        const auto [item, row] = tree.View().Insert(hParent, hAfter, fields...);
        if (item) {
            tree.ItemInserted(*item, row != NO_INDEX);
        }
        return item;
    }

    template <class CONTROL, class... FIELDS>
    static void* InsertSorted(CONTROL& tree, void* hParent, LPCWSTR pszName, FIELDS... fields)
    {
        const auto [item, row] = tree.View().InsertSorted(hParent, pszName, fields...);
        if (item) {
            tree.ItemInserted(*item, row != NO_INDEX);
        }
        return item;
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
        if (tree.View().RemoveRows(*item)) {
            RedrawWithBars(tree);
        } else if (!Has(tree, Quirk::TreeRowsStay)) {
            tree.Invalidate(0); // its parent may have no expander any more
        }
        // The parent may have removed it as well, while it drew beside bars that went.
        if (life && tree.View().IsInTree(item)) {
            tree.DeleteItem(item);
        }
        if (life) {
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
        tree.View().RemoveAll();
        if (RedrawWithBars(tree)) {
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
        if (tree.View().SetChildCount(*item, nChildren) && tree.RowsChanged()) {
            TellAfterRemoval(tree);
        }
    }

    template <class CONTROL> static void SetItemState(CONTROL& tree, void* hItem, UINT uState, UINT uMask)
    {
        if (tree.View().SetState(hItem, uState, uMask)) {
            if (tree.RowsChanged()) {
                TellSelection(tree);
            }
        } else {
            ShowField(tree);
        }
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
        }
    }

    // --- Expansion

    template <class CONTROL> static void Expand(CONTROL& tree, UINT row)
    {
        if (!AskFor(tree, &row) || !tree.View().MayExpand(row) || !AskExpansion(tree, &row, TVE_EXPAND)) {
            return;
        }
        if (tree.View().Expand(row) && tree.RowsChanged()) {
            SendItem(tree, TVN_ITEMEXPANDEDW, row, TVE_EXPAND, -1, 0);
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
        if (tree.RowsChanged() && TellSelection(tree)) {
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
