// What the operations of a tree do besides changing its model: scroll bars, repaints, and what the parent is
// told. Alike in both trees; where their rules part stands in TreeRules.h.
#pragma once

#include <gesso/framework/Frame.h>
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

    template <class CONTROL> static void SetItemHeight(CONTROL& tree, UINT nHeight)
    {
        tree.m_nItemHeight = nHeight;
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

    template <class CONTROL> static void RemoveItem(CONTROL& tree, void* hItem)
    {
        auto* item = tree.View().Removable(hItem);
        if (!item) {
            return;
        }
        const auto hold = tree.View().Hold(item);
        if (tree.View().RemoveRows(*item) && !RedrawWithBars(tree)) {
            return;
        }
        // The parent may have removed it as well, while it drew beside bars that went.
        if (tree.View().IsInTree(item)) {
            tree.DeleteItem(item);
        }
    }

    template <class CONTROL> static void RemoveAllItems(CONTROL& tree)
    {
        tree.View().RemoveAll();
        RedrawWithBars(tree);
    }

    template <class CONTROL> static void SortChildren(CONTROL& tree, void* hItem)
    {
        tree.Invalidate(0);
        if (auto* item = tree.View().ItemOf(hItem)) {
            tree.View().SortChildren(*item);
        }
    }

    // --- Expansion

    template <class CONTROL> static void Expand(CONTROL& tree, UINT row)
    {
        if (!tree.View().MayExpand(row) || !AskExpansion(tree, &row, TVE_EXPAND)) {
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
        tree.View().Collapse(row);
        if (tree.RowsChanged()) {
            SendItem(tree, TVN_ITEMEXPANDEDW, row, TVE_COLLAPSE, -1, 0);
        }
    }

    template <class CONTROL> static void Toggle(CONTROL& tree, UINT row)
    {
        tree.View().MayCollapse(row) ? Collapse(tree, row) : Expand(tree, row);
    }

    // --- Repainting

    template <class CONTROL> static void RedrawAll(CONTROL& tree)
    {
        // To the platform a null window means the desktop.
        if (tree.m_hWnd) {
            RedrawWindow(tree.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
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
