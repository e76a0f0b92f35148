// The tree and the navigation bar, whose items are named by handles.

#include "Call.h"
#include "ControlTables.h"

namespace attack {

namespace {

template <class CONTROL> void AddTree(Table& table)
{
    using Act = void (CONTROL::*)(void*); // there are others, which are not public
    Add(table, {Making(OP(CONTROL, Create)),
                OP(CONTROL, Destroy),
                Often(4, Call<CONTROL>("Expand", Act(&CONTROL::Expand))),
                Often(2, Call<CONTROL>("Collapse", Act(&CONTROL::Collapse))),
                Call<CONTROL>("EnsureVisible", Act(&CONTROL::EnsureVisible)),
                OP(CONTROL, SetStyle),
                OP(CONTROL, GetStyle),
                OP(CONTROL, SetFont),
                OP(CONTROL, GetFont),
                OP(CONTROL, SetItemHeight),
                OP(CONTROL, GetItemHeight),
                OP(CONTROL, SetImageList),
                OP(CONTROL, GetImageList),
                Often(2, OP(CONTROL, GetRootItem)),
                Often(16, OP(CONTROL, InsertItem)),
                Often(3, OP(CONTROL, RemoveItem)),
                OP(CONTROL, RemoveAllItems),
                OP(CONTROL, GetItemLevel),
                OP(CONTROL, GetItemState),
                OP(CONTROL, GetItemName),
                OP(CONTROL, GetItemImage),
                OP(CONTROL, GetItemParent),
                OP(CONTROL, GetItemChildCount),
                OP(CONTROL, GetItemNextChild),
                OP(CONTROL, GetItemCustomData),
                OP(CONTROL, SetItemState),
                OP(CONTROL, SetItemName),
                OP(CONTROL, SetItemImage),
                OP(CONTROL, SetItemCustomData),
                OP(CONTROL, SortChildren),
                OP(CONTROL, GetSelectedItem),
                Often(3, OP(CONTROL, SetSelectedItem))});
}

} // namespace

template <> void AddOperations<GTree>(Table& table)
{
    AddTree<GTree>(table);
    Add(table, {Often(3, OP(GTree, SetTreeStyle)), OP(GTree, GetTreeStyle), OP(GTree, SetItemParent),
                OP(GTree, SetRootVisible), OP(GTree, ItemFromPoint), OP(GTree, GetItemRect),
                Often(3, OP(GTree, InsertSorted)), Often(2, OP(GTree, EditLabel)),
                Often(4, OP(GTree, SetChildCount)), Often(4, OP(GTree, GetChildAt))});
}

template <> void AddOperations<GNavigationBar>(Table& table)
{
    AddTree<GNavigationBar>(table);
}

} // namespace attack
