// The list.

#include "Call.h"
#include "ControlTables.h"

namespace attack {

namespace {

UINT AnyGroup(GList* pList, void* data)
{
    const auto group = static_cast<UINT>(reinterpret_cast<size_t>(data) % 5);
    while (pList->GetGroupCount() <= group) {
        pList->InsertGroup(0, L"group", 0, pList->GetGroupCount());
    }
    return group;
}

UINT NoGroup(GList*, void*)
{
    return 0x80000000;
}

int AnyOrder(void* a, void* b)
{
    return reinterpret_cast<size_t>(a) % 7 < reinterpret_cast<size_t>(b) % 7 ? -1 : 1;
}

// No order at all.
int Always(void*, void*)
{
    return -1;
}

void GetNothing(GList*, UINT, UINT, UINT, void*) {}

// Answers anything, and changes the list by the way.
void GetAnything(GList* pList, UINT item, UINT column, UINT what, void* answer)
{
    switch (item % 23) {
    case 3: pList->SetVirtualItems(item % 40); break;
    case 5: pList->ItemsChanged(0, item); break;
    case 7: pList->ItemsInserted(item, 2); break;
    case 11: pList->ItemsRemoved(column, 3); break;
    case 13: pList->GetItemText(item + 1, column); break;
    case 17: pList->SetListStyle(item % 4); break;
    case 19: pList->RemoveColumn(column); break;
    case 22: pList->LeaveVirtual(); break;
    default: break;
    }
    if (what == LGET_TEXT) {
        *static_cast<LPCWSTR*>(answer) = item % 5 ? L"text" : nullptr;
    } else if (what == LGET_MATCH) {
        static_cast<GLISTMATCH*>(answer)->found = static_cast<GLISTMATCH*>(answer)->from + 7;
    } else {
        *static_cast<UINT*>(answer) = item * 0x10001;
    }
}

int ByContext(const GList*, UINT column, void* a, void* b, void* context)
{
    return reinterpret_cast<size_t>(context) & 1 ? AnyOrder(a, b) : static_cast<int>(column) - 1;
}

} // namespace

template <> struct Argument<PFNLISTGROUP> : Value<PFNLISTGROUP>
{
    Argument(World&, Source& source)
        : Value{source.Chance(2)   ? nullptr
                : source.Chance(3) ? NoGroup
                                   : AnyGroup}
    {}
};
template <> struct Argument<PFNLISTSORT> : Value<PFNLISTSORT>
{
    Argument(World&, Source& source)
        : Value{source.Chance(2)   ? nullptr
                : source.Chance(3) ? Always
                                   : AnyOrder}
    {}
};
template <> struct Argument<PFNLISTCOMPARE> : Value<PFNLISTCOMPARE>
{
    Argument(World&, Source& source) : Value{source.Chance(2) ? nullptr : ByContext} {}
};
template <> struct Argument<PFNLISTGET> : Value<PFNLISTGET>
{
    Argument(World&, Source& source)
        : Value{source.Chance(2)   ? nullptr
                : source.Chance(3) ? GetNothing
                                   : GetAnything}
    {}
};

namespace {

void AddColumns(Table& table)
{
    Add(table, {Often(6, OP(GList, InsertColumn)),
                OP(GList, RemoveColumn),
                OP(GList, RemoveAllColumns),
                OP(GList, GetColumnCount),
                OP(GList, SetColumnFlags),
                OP(GList, SetColumnFormat),
                OP(GList, SetColumnCx),
                OP(GList, SetColumnCxMin),
                OP(GList, SetColumnText),
                OP(GList, SetColumnImage),
                OP(GList, SetColumnFktGroup),
                OP(GList, SetColumnFktSort),
                OP(GList, SetColumnFktGet),
                OP(GList, GetColumnFlags),
                OP(GList, GetColumnFormat),
                OP(GList, GetColumnCx),
                OP(GList, GetColumnCxMin),
                OP(GList, GetColumnText),
                OP(GList, GetColumnImage),
                OP(GList, GetColumnType),
                OP(GList, GetColumnFormatRect),
                OP(GList, GetColumnFktGroup),
                OP(GList, GetColumnFktSort),
                OP(GList, GetColumnFktGet)});
}

void AddGroups(Table& table)
{
    Add(table, {Often(2, OP(GList, InsertGroup)), OP(GList, RemoveGroup), OP(GList, RemoveAllGroups),
                OP(GList, GetGroupCount), OP(GList, SetGroupFormat), OP(GList, SetGroupFormatRect),
                OP(GList, SetGroupHeight), OP(GList, SetGroupName), OP(GList, SetGroupImage),
                OP(GList, SetGroupGroup), OP(GList, GetGroupFormat), OP(GList, GetGroupFormatRect),
                OP(GList, GetGroupHeight), OP(GList, GetGroupName), OP(GList, GetGroupImage),
                OP(GList, GetGroupGroup)});
}

// Many items at once, which wait for the end of the fill.
void FillInBulk(GList& list, World& world, Source& source)
{
    const UINT nActed = world.Acted();
    list.BulkInsertOn();
    for (UINT n = source.Count(60); n > 0 && world.Acted() == nActed; --n) {
        list.InsertItem(source.Below(70), source.Below(5), nullptr, 0, source.ShortText(), 0);
    }
    if (world.Acted() == nActed && !source.Chance(10)) {
        list.BulkInsertOff();
    }
}

void AddItems(Table& table)
{
    Add(table, {Often(12, OP(GList, InsertItem)),
                Often(2, OP(GList, RemoveItem)),
                OP(GList, RemoveAllItems),
                OP(GList, GetItemCount),
                OP(GList, SetItemHeight),
                OP(GList, GetItemHeight),
                OP(GList, SetItemWidth),
                OP(GList, GetItemWidth),
                OP(GList, SetItemCustomData),
                OP(GList, SetItemGroup),
                OP(GList, SetItemState),
                Often(2, OP(GList, SetItemText)),
                OP(GList, SetItemImage),
                OP(GList, GetItemCustomData),
                OP(GList, GetItemGroup),
                OP(GList, GetItemState),
                OP(GList, GetItemText),
                OP(GList, GetItemImage),
                OP(GList, SetItem),
                Often(3, OP(GList, SetSubItem)),
                OP(GList, GetItemRect),
                OP(GList, BulkInsertOn),
                Often(2, OP(GList, BulkInsertOff)),
                Own<GList>("FillInBulk", FillInBulk)});
}

void AddSelection(Table& table)
{
    Add(table, {OP(GList, GetSelectedCount),
                OP(GList, ClearSelection),
                OP(GList, SetSelected),
                OP(GList, GetSelected),
                OP(GList, SetFirstSelectedItemIndex),
                OP(GList, SetNextSelectedItemIndex),
                OP(GList, GetFirstSelectedItemIndex),
                OP(GList, GetNextSelectedItemIndex),
                OP(GList, GetHotItem),
                OP(GList, GetHotSubItem),
                Often(2, OP(GList, Sort)),
                Often(2, OP(GList, Group)),
                OP(GList, GetCurrentSort),
                OP(GList, GetCurrentGroup),
                OP(GList, GetCursorItem),
                OP(GList, SetCursorItem),
                OP(GList, EnsureVisible),
                OP(GList, SetSortCallback),
                OP(GList, FitColumn),
                Often(2, OP(GList, SetVirtualItems)),
                OP(GList, IsVirtual),
                OP(GList, LeaveVirtual),
                OP(GList, ItemsChanged),
                OP(GList, ItemsInserted),
                OP(GList, ItemsRemoved),
                OP(GList, SetGroupItemCount)});
}

// The view with its options, or any bits.
void SetView(GList& list, World&, Source& source)
{
    constexpr UINT OPTIONS[] = {0, GLS_GRIDLINES, GLS_HEADER, GLS_CHECKBOXES};
    const UINT style = source.Below(5) | source.Any(std::span<const UINT>(OPTIONS)) |
                       source.Any(std::span<const UINT>(OPTIONS));
    source.Note(std::to_string(style));
    list.SetListStyle(style);
}

// Any bits but the one that only the list sets.
void SetBits(GList& list, World&, Source& source)
{
    list.SetListStyle(source.Bits() & ~GLS_OWNFONT);
}

void MakeWindow(GList& list, World& world, Source& source)
{
    const int x = source.Integer();
    const int y = source.Integer();
    const int cx = source.Integer();
    const int cy = source.Integer();
    const UINT style = source.Bits() & ~GLS_OWNFONT;
    const DWORD dwExStyle = source.Bits();
    list.Create(x, y, cx, cy, world.AnyParent(source), source.Integer(), style, dwExStyle,
                source.Bits() & ~desk::STYLES_LEFT_OUT);
}

// Two windows, which the host destroys when it likes.
void EditInPlace(GList& list, World& world, Source& source)
{
    HWND windows[2];
    for (HWND& hwnd : windows) {
        hwnd = source.Chance(6) ? world.AnyWindow(source)
                                : CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                                  world.Window(), nullptr, nullptr, nullptr);
    }
    if (world.Object() != &list) {
        return;
    }
    list.BeginEdit(source.Below(3), windows);
    SetFocus(windows[0]);
    if (source.Chance(3)) {
        DestroyWindow(windows[source.Below(2)]);
    }
}

} // namespace

template <> void AddOperations<GList>(Table& table)
{
    AddColumns(table);
    AddGroups(table);
    AddItems(table);
    AddSelection(table);
    Add(table, {Making(Own<GList>("Create", MakeWindow)),
                OP(GList, Destroy),
                OP(GList, SetStyle),
                OP(GList, GetStyle),
                Own<GList>("SetListStyle", SetBits),
                OP(GList, GetListStyle),
                Own<GList>("SetView", SetView),
                OP(GList, SetImageList),
                OP(GList, GetImageList),
                OP(GList, SetLabelTitleFont),
                OP(GList, SetLabelHeaderFont),
                OP(GList, SetLabelTextFont),
                OP(GList, SetGroupTitleFont),
                OP(GList, GetLabelTitleFont),
                OP(GList, GetLabelHeaderFont),
                OP(GList, GetLabelTextFont),
                OP(GList, GetGroupTitleFont),
                OP(GList, GetHeaderHeight),
                OP(GList, SetHeaderHeight),
                OP(GList, GetHeaderItemSpacing),
                OP(GList, SetHeaderItemSpacing),
                Own<GList>("BeginEdit", EditInPlace),
                OP(GList, EndEdit),
                Often(2, OP(GList, EditItem))});
}

} // namespace attack
