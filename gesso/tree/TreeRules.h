// Where the rules of the two trees part. All else they have in common: TreeView, TreeActions, TreeInput.
#pragma once

#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/GTree.h>

namespace gesso {

static_assert(SHOWS_EXPANDER == TIS_HASCHILDREN && SHOWS_EXPANDER == NBIS_HASCHILDREN);

template <class CONTROL> struct TreeRules;

template <> struct TreeRules<GTree>
{
    static constexpr LPCWSTR CLASS_NAME = L"GTree";
    static constexpr const char* BAD_HANDLE = "GTree: a handle that names none of its items";
    static constexpr UINT EXPANDED = TIS_EXPANDED;
    // The bits of a state that are seen.
    static constexpr UINT SEEN = TIS_EXPANDED | TIS_HASCHILDREN | TIS_CHECKED;
    // A null parent names the root.
    static constexpr bool NULL_PARENT_IS_ROOT = true;
    // Behind a null child is the end, and behind the parent itself the front.
    static constexpr bool NULL_CHILD_IS_FRONT = false;
    static constexpr bool PARENT_IS_FRONT = true;
    // What GetItemNextChild answers at the end.
    static constexpr LONG_PTR NO_MORE_CHILDREN = -1;
    // Where a new item's row stands is counted from the children before it alone.
    static constexpr bool ROWS_COUNT_CHILDREN_ALONE = false;
    // A removed item's own row stays.
    static constexpr bool REMOVED_ROW_STAYS = true;
    // An item that got no children by TVN_ITEMEXPANDINGW stays closed.
    static constexpr bool EXPANDS_WITHOUT_CHILDREN = false;
    // After each change of the rows the selected row is the selected item's, and the widest row counts anew.
    static constexpr bool SELECTION_FOLLOWS_ITEM = true;
    // Sorting writes over the first rows where the item has no row itself.
    static constexpr bool SORT_NEEDS_ROW = false;
    // WM_VSCROLL's line is always as high as at first, and not as high as an item.
    static constexpr bool LINE_IS_FIXED = true;
    static constexpr bool THUMB_POSITION_SCROLLS = true;
};

template <> struct TreeRules<GNavigationBar>
{
    static constexpr LPCWSTR CLASS_NAME = L"GNavigationBar";
    static constexpr const char* BAD_HANDLE = "GNavigationBar: a handle that names none of its items";
    static constexpr UINT EXPANDED = NBIS_EXPANDED;
    static constexpr UINT SEEN = NBIS_EXPANDED | NBIS_HASCHILDREN;
    static constexpr bool NULL_PARENT_IS_ROOT = false;
    static constexpr bool NULL_CHILD_IS_FRONT = true;
    static constexpr bool PARENT_IS_FRONT = false;
    static constexpr LONG_PTR NO_MORE_CHILDREN = 0;
    static constexpr bool ROWS_COUNT_CHILDREN_ALONE = true;
    static constexpr bool REMOVED_ROW_STAYS = false;
    static constexpr bool EXPANDS_WITHOUT_CHILDREN = true;
    static constexpr bool SELECTION_FOLLOWS_ITEM = false;
    static constexpr bool SORT_NEEDS_ROW = true;
    static constexpr bool LINE_IS_FIXED = false;
    static constexpr bool THUMB_POSITION_SCROLLS = false;
};

} // namespace gesso
