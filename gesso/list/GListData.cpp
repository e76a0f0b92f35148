// Columns, groups and items: the records, and what is stored in them.

#include <gesso/containers/Index.h>
#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListCellLayout.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

#include <algorithm>
#include <new>
#include <utility>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::WindowContext;

namespace {

constexpr UINT LEAST_ITEM_GROWTH = 64;

// A field of a record, or `neutral` without a record.
template <class RECORD, class VALUE>
VALUE Field(const RECORD* record, VALUE RECORD::*field, VALUE neutral = VALUE())
{
    return record ? record->*field : neutral;
}

// Stores a field; false without a record.
template <class RECORD, class VALUE> bool Store(RECORD* record, VALUE RECORD::*field, VALUE value)
{
    if (record) {
        record->*field = value;
    }
    return record;
}

// Stores a copy of a text; none for null. False, with nothing done, without memory.
bool ReplaceText(LPWSTR& field, LPCWSTR text)
{
    LPWSTR copy = text ? gesso::CopyText(text) : nullptr;
    if (text && !copy) {
        return false;
    }
    gesso::FreeText(std::exchange(field, copy));
    return true;
}

// What those are told who do not see the list.

bool IsOther(LPCWSTR former, LPCWSTR text)
{
    return wcscmp(gesso::TextOrEmpty(former), gesso::TextOrEmpty(text)) != 0;
}

DWORD EventOfText(UINT subItem)
{
    return subItem == 0 ? EVENT_OBJECT_NAMECHANGE : EVENT_OBJECT_DESCRIPTIONCHANGE;
}

bool ShowsCheck(UINT listStyle, UINT subItem, UINT changed)
{
    return subItem == 0 && (changed & LSIS_CHECKED) && (listStyle & GLS_CHECKBOXES);
}

} // namespace

// --- Looking records up

ListColumn* GList::ColumnFor(UINT column, const char* operation) const
{
    if (column < columns.GetLength()) {
        return columns[column];
    }
    gesso::Misuse(operation);
    return nullptr;
}

ListItem* GList::ItemAt(UINT item) const
{
    return item < items.GetLength() ? items[item] : nullptr;
}

ListItem* GList::ItemFor(UINT item, const char* operation) const
{
    ListItem* record = ItemAt(item);
    if (!record) {
        gesso::Misuse(operation);
    }
    return record;
}

ListSubItem* GList::SubItemFor(UINT item, UINT subItem, const char* operation) const
{
    ListItem* record = ItemAt(item);
    ListSubItem* sub = record ? record->SubItem(subItem) : nullptr;
    if (!sub) {
        gesso::Misuse(operation);
    }
    return sub;
}

ListGroup* GList::GroupAt(UINT group) const
{
    return group < groups.GetLength() ? groups[group] : nullptr;
}

// --- Columns

UINT GList::InsertColumn(UINT position, UINT flags, UINT format, UINT cx, UINT cxMin, LPCWSTR text,
                         UINT image, int type, const RECT* rcFormat, PFNLISTGROUP fktGroup,
                         PFNLISTSORT fktSort, PFNLISTGET fktGet)
{
    position = std::min(position, columns.GetLength());
    auto* column =
        new ListColumn{flags,    0,       format, cx,   cxMin,
                       nullptr,  nullptr, image,  type, rcFormat ? *rcFormat : RECT{-1, -1, -1, -1},
                       fktGroup, fktSort, fktGet};
    if (!ReplaceText(column->text, text) || !AddColumn(position, column)) {
        ReleaseColumn(column);
        return NO_INDEX;
    }
    if (!Has(*this, Quirk::ListColumnsMoveNothing)) {
        if (!InsertSubItems(position)) {
            columns.RemoveAt(position, 1);
            ReleaseColumn(column);
            return NO_INDEX;
        }
        FollowSortColumn(position, true);
        m_inside->renaming.fLost = m_inside->renaming.fLost || position == 0;
    }
    if (text) {
        const WindowContext context(m_hWnd);
        column->prepared = PrepareText(context, LTM_COLUMN, text, nullptr, format, lineHeight);
    }
    ForgetCells();
    SetListStyle(listStyle);
    return position;
}

// Makes room for what a column shows too, so that no view fails for want of it. False without memory.
bool GList::AddColumn(UINT position, ListColumn* column)
{
    return columnDraw.AllocExtra(gesso::MostCells(columns.GetLength() + 1)) &&
           columns.InsertAt(position, column);
}

void GList::ReleaseColumn(ListColumn* column)
{
    gesso::FreeText(column->text);
    FreeText(column->prepared);
    delete column;
}

void GList::RemoveColumn(UINT column)
{
    if (column < columns.GetLength()) {
        if (!Has(*this, Quirk::ListColumnsMoveNothing)) {
            RemoveSubItems(column);
            FollowSortColumn(column, false);
            m_inside->renaming.fLost = m_inside->renaming.fLost || column == 0;
        }
        ReleaseColumn(columns[column]);
        columns.RemoveAt(column, 1);
        ForgetCells();
        SetListStyle(listStyle);
    }
}

void GList::RemoveAllColumns()
{
    const bool fSubItemsGo = !Has(*this, Quirk::ListColumnsMoveNothing);
    for (UINT column = columns.GetLength(); fSubItemsGo && column > 0; --column) {
        RemoveSubItems(column - 1);
        FollowSortColumn(column - 1, false);
    }
    ReleaseColumns();
    ForgetCells();
    SetListStyle(listStyle);
}

void GList::ReleaseColumns()
{
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        ReleaseColumn(columns[column]);
    }
    columns.RemoveAll();
}

UINT GList::GetColumnCount()
{
    return columns.GetLength();
}

void GList::SetColumnFlags(UINT column, UINT flags)
{
    if (Store(ColumnFor(column, "GList::SetColumnFlags: no such column"), &ListColumn::flags, flags)) {
        ShowColumn(column, ListColumnPart::Place);
    }
}

void GList::SetColumnFormat(UINT column, UINT format)
{
    if (Store(ColumnFor(column, "GList::SetColumnFormat: no such column"), &ListColumn::format, format)) {
        ShowColumn(column, ListColumnPart::Texts);
    }
}

void GList::SetColumnCx(UINT column, UINT cx)
{
    if (Store(ColumnFor(column, "GList::SetColumnCx: no such column"), &ListColumn::cx, cx)) {
        ShowColumn(column, ListColumnPart::Width);
    }
}

void GList::SetColumnCxMin(UINT column, UINT cxMin)
{
    if (Store(ColumnFor(column, "GList::SetColumnCxMin: no such column"), &ListColumn::cxMin, cxMin)) {
        RefreshLayout();
    }
}

void GList::SetColumnText(UINT column, LPCWSTR text)
{
    ListColumn* record = ColumnFor(column, "GList::SetColumnText: no such column");
    if (record && ReplaceText(record->text, text)) {
        ShowColumn(column, ListColumnPart::Caption);
    }
}

void GList::SetColumnImage(UINT column, UINT image)
{
    if (Store(ColumnFor(column, "GList::SetColumnImage: no such column"), &ListColumn::image, image)) {
        RefreshLayout();
    }
}

void GList::SetColumnFktGroup(UINT column, PFNLISTGROUP fktGroup)
{
    Store(ColumnFor(column, "GList::SetColumnFktGroup: no such column"), &ListColumn::fktGroup, fktGroup);
}

void GList::SetColumnFktSort(UINT column, PFNLISTSORT fktSort)
{
    Store(ColumnFor(column, "GList::SetColumnFktSort: no such column"), &ListColumn::fktSort, fktSort);
}

void GList::SetColumnFktGet(UINT column, PFNLISTGET fktGet)
{
    if (Store(ColumnFor(column, "GList::SetColumnFktGet: no such column"), &ListColumn::fktGet, fktGet)) {
        ForgetCells();
    }
}

UINT GList::GetColumnFlags(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnFlags: no such column"), &ListColumn::flags);
}

UINT GList::GetColumnFormat(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnFormat: no such column"), &ListColumn::format);
}

UINT GList::GetColumnCx(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnCx: no such column"), &ListColumn::cx);
}

UINT GList::GetColumnCxMin(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnCxMin: no such column"), &ListColumn::cxMin);
}

LPCWSTR GList::GetColumnText(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnText: no such column"), &ListColumn::text);
}

UINT GList::GetColumnImage(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnImage: no such column"), &ListColumn::image);
}

int GList::GetColumnType(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnType: no such column"), &ListColumn::type);
}

RECT* GList::GetColumnFormatRect(UINT column)
{
    ListColumn* record = ColumnFor(column, "GList::GetColumnFormatRect: no such column");
    return record ? &record->rcFormat : nullptr;
}

PFNLISTGROUP GList::GetColumnFktGroup(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnFktGroup: no such column"), &ListColumn::fktGroup);
}

PFNLISTSORT GList::GetColumnFktSort(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnFktSort: no such column"), &ListColumn::fktSort);
}

PFNLISTGET GList::GetColumnFktGet(UINT column) const
{
    return Field(ColumnFor(column, "GList::GetColumnFktGet: no such column"), &ListColumn::fktGet);
}

// --- Groups

UINT GList::InsertGroup(UINT format, LPCWSTR name, UINT image, UINT group)
{
    auto* record = new ListGroup{format, image, group, {}, nullptr};
    if (!NameGroup(*record, name) || !ReserveRow() || groups.Add(record) == NO_INDEX) {
        ReleaseGroup(record);
        return NO_INDEX;
    }
    ForgetLayout();
    return groups.GetLength() - 1;
}

// False, with nothing done, without memory.
bool GList::NameGroup(ListGroup& group, LPCWSTR name)
{
    if (!group.name.Format(L"%s", gesso::TextOrEmpty(name))) {
        return false;
    }
    const WindowContext context(m_hWnd);
    ListTextPair* prepared = PrepareText(context, LTM_GROUP, group.name, nullptr, group.format, lineHeight);
    FreeText(std::exchange(group.prepared, prepared));
    return true;
}

// Makes room for one row more than there are records, so that no layout fails for want of it. False without
// memory.
bool GList::ReserveRow()
{
    return gesso::ReserveRows(elements, groups.GetLength() + items.GetLength() + 1);
}

void GList::ReleaseGroup(ListGroup* group)
{
    FreeText(group->prepared);
    delete group;
}

void GList::RemoveGroup(UINT group)
{
    if (group < groups.GetLength()) {
        ReleaseGroup(groups[group]);
        groups.RemoveAt(group, 1);
        if (gesso::VirtualList* list = Virtual()) {
            list->rows.ForgetGroup(group);
        }
        ForgetLayout();
        if (IsVirtual()) {
            Calculate();
        }
    }
}

void GList::RemoveAllGroups()
{
    ReleaseGroups();
    if (IsVirtual()) {
        Calculate();
    }
}

void GList::ReleaseGroups()
{
    for (UINT group = 0; group < groups.GetLength(); ++group) {
        ReleaseGroup(groups[group]);
    }
    groups.RemoveAll();
    if (gesso::VirtualList* list = Virtual()) {
        list->rows.ForgetGroups();
    }
    ForgetLayout();
}

UINT GList::GetGroupCount() const
{
    return groups.GetLength();
}

void GList::SetGroupFormat(UINT group, UINT format)
{
    if (Store(GroupAt(group), &ListGroup::format, format)) {
        RefreshLayout();
    }
}

void GList::SetGroupFormatRect(const RECT* rcFormat)
{
    if (rcFormat) {
        rcGroupFormat = *rcFormat;
        RefreshLayout();
    }
}

void GList::SetGroupHeight(UINT height)
{
    groupHeight = height;
    NoteGiven(gesso::LIST_GROUP_HEIGHT_GIVEN);
    Calculate();
}

void GList::SetGroupName(UINT group, LPCWSTR name)
{
    ListGroup* record = GroupAt(group);
    if (record && NameGroup(*record, name)) {
        RefreshLayout();
    }
}

void GList::SetGroupImage(UINT group, UINT image)
{
    if (Store(GroupAt(group), &ListGroup::image, image)) {
        RefreshLayout();
    }
}

void GList::SetGroupGroup(UINT index, UINT group)
{
    if (Store(GroupAt(index), &ListGroup::group, group)) {
        ForgetLayout();
    }
}

UINT GList::GetGroupFormat(UINT group) const
{
    return Field(GroupAt(group), &ListGroup::format, NO_INDEX);
}

RECT* GList::GetGroupFormatRect()
{
    return &rcGroupFormat;
}

UINT GList::GetGroupHeight() const
{
    return groupHeight;
}

LPCWSTR GList::GetGroupName(UINT group) const
{
    const ListGroup* record = GroupAt(group);
    return record ? static_cast<LPCWSTR>(record->name) : nullptr;
}

UINT GList::GetGroupImage(UINT group) const
{
    return Field(GroupAt(group), &ListGroup::image, NO_INDEX);
}

UINT GList::GetGroupGroup(UINT group) const
{
    return Field(GroupAt(group), &ListGroup::group, NO_INDEX);
}

// --- Items

UINT GList::InsertItem(UINT position, UINT group, void* customData, UINT state, LPCWSTR text, UINT image)
{
    if (IsForeign("GList::InsertItem: the items are the host's")) {
        return NO_INDEX;
    }
    position = std::min(position, items.GetLength());
    // A list without columns keeps the text all the same.
    gesso::BlockPool* pool = FillPool();
    ListItem* item = gesso::MakeListItem(std::max(GetColumnCount(), 1U), pool);
    if (!item || !gesso::ReplaceItemText(item->SubItems()->text, text, pool) || !ReserveRow() ||
        !AddItem(position, item))
    {
        ReleaseItem(item);
        return NO_INDEX;
    }
    item->group = group;
    item->customData = customData;
    item->SubItems()->state = state;
    item->SubItems()->image = image;
    ++m_inside->itemChanges;
    FollowInsertion(position);
    if (bulkInsert) {
        ForgetLayout();
        return position;
    }
    PrepareSubItem(*item->SubItems(), 0);
    Layout().Stamp(position);
    const gesso::Watch watch(*this);
    CalculateU(position, true);
    if (watch) {
        m_inside->untold.Note(EVENT_OBJECT_CREATE, position);
        gesso::ListInside::TellChanges(*this);
    }
    return position;
}

// Null without memory.
ListItem* GList::MakeItem(UINT subItemCount)
{
    return gesso::MakeListItem(subItemCount, nullptr);
}

// Where the blocks of a bulk fill lie; null for none.
gesso::BlockPool* GList::FillPool() const
{
    return bulkInsert ? &m_inside->fillPool : nullptr;
}

// False without memory.
bool GList::AddItem(UINT position, ListItem* item)
{
    const UINT count = items.GetLength();
    if (count == items.GetBufferLength()) {
        items.AllocExtra(count + std::max(count / 2, LEAST_ITEM_GROWTH));
    }
    return items.InsertAt(position, item);
}

// Null is ignored.
void GList::ReleaseItem(ListItem* item)
{
    for (UINT subItem = 0; item && subItem < item->subItemCount; ++subItem) {
        gesso::FreeItemText(item->SubItems()[subItem].text);
        FreeText(item->SubItems()[subItem].prepared);
    }
    gesso::FreeListItem(item);
}

void GList::RemoveItem(UINT item)
{
    if (IsForeign("GList::RemoveItem: the items are the host's") || item >= items.GetLength()) {
        return;
    }
    if (!Has(*this, Quirk::ListRemovalSilent)) {
        RemoveAndTell(item, item);
        return;
    }
    ReleaseItem(items[item]);
    items.RemoveAt(item, 1);
    m_inside->tracks.ForgetLost(items);
    ++m_inside->itemChanges;
    m_inside->untold.Note(EVENT_OBJECT_DESTROY, item);
    if (m_inside->untold.cursor != NO_INDEX && m_inside->untold.cursor >= item) {
        m_inside->untold.cursor = NO_INDEX; // there is another item now
    }
    const gesso::Lifeline life(*this);
    Calculate();
    if (life && TellSelection()) {
        EndLostRenaming();
    }
}

void GList::RemoveAllItems()
{
    if (m_inside->fEnding) {
        DropVirtualItems();
    } else if (IsForeign("GList::RemoveAllItems: the items are the host's")) {
        return;
    }
    if (!Has(*this, Quirk::ListRemovalSilent)) {
        RemoveAndTell(0, NO_INDEX);
        return;
    }
    if (items.GetLength()) {
        m_inside->untold.Note(EVENT_OBJECT_REORDER);
    }
    ReleaseItems();
    m_inside->untold.cursor = NO_INDEX;
    const gesso::Lifeline life(*this);
    Calculate();
    if (life && (m_inside->fEnding || TellSelection())) {
        EndLostRenaming();
    }
}

void GList::ReleaseItems()
{
    for (UINT item = 0; item < items.GetLength(); ++item) {
        ReleaseItem(items[item]);
    }
    items.RemoveAll();
    m_inside->texts.Forget();
    m_inside->tracks.ForgetLost(items);
    ++m_inside->itemChanges;
}

UINT GList::GetItemCount() const
{
    return ItemCount();
}

// Fixed behaviour: in Classic, of this and the width, the cells of the items stay as they are. A program that
// sets a style behind it would else have its view laid out twice, and one that does not another picture.
void GList::SetItemHeight(UINT height)
{
    itemHeight = itemHeightBase = height;
    NoteGiven(gesso::LIST_ITEM_HEIGHT_GIVEN);
    headerArea = HeaderRoom();
    Has(*this, Quirk::ListCellsLag) ? Calculate() : void(SetListStyle(listStyle));
}

UINT GList::GetItemHeight() const
{
    return itemHeight;
}

void GList::SetItemWidth(UINT width)
{
    itemWidth = itemWidthBase = width;
    NoteGiven(gesso::LIST_ITEM_WIDTH_GIVEN);
    Has(*this, Quirk::ListCellsLag) ? Calculate() : void(SetListStyle(listStyle));
}

UINT GList::GetItemWidth() const
{
    return itemWidth;
}

void GList::SetItemCustomData(UINT item, void* customData)
{
    Store(ItemFor(item, "GList::SetItemCustomData: no such item"), &ListItem::customData, customData);
}

void GList::SetItemGroup(UINT item, UINT group)
{
    if (Store(ItemFor(item, "GList::SetItemGroup: no such item"), &ListItem::group, group)) {
        ForgetLayout();
        RefreshLayout();
    }
}

void GList::SetItem(UINT item, UINT group, void* customData)
{
    if (ListItem* record = ItemFor(item, "GList::SetItem: no such item")) {
        record->group = group;
        record->customData = customData;
        ForgetLayout();
        RefreshLayout();
    }
}

void GList::SetItemState(UINT item, UINT subItem, UINT state, UINT mask)
{
    if (ListSubItem* sub = SubItemFor(item, subItem, "GList::SetItemState: no such sub-item")) {
        const UINT former = sub->state;
        ChangeSubItemState(*sub, (sub->state & ~mask) | state);
        const bool fChecks = ShowsCheck(listStyle, subItem, former ^ sub->state);
        const gesso::Watch watch(*this);
        RefreshLayout();
        if (watch && fChecks) {
            gesso::ListInside::TellItem(*this, EVENT_OBJECT_STATECHANGE, item);
        }
    }
}

void GList::SetItemImage(UINT item, UINT subItem, UINT image)
{
    if (Store(SubItemFor(item, subItem, "GList::SetItemImage: no such sub-item"), &ListSubItem::image, image))
    {
        RefreshLayout();
    }
}

void GList::SetItemText(UINT item, UINT subItem, LPCWSTR text)
{
    ListSubItem* sub = SubItemFor(item, subItem, "GList::SetItemText: no such sub-item");
    const bool fOther = sub && IsOther(sub->text, text);
    const gesso::Watch watch(*this);
    if (sub && StoreText(*sub, subItem, text)) {
        CalculateU(item, false);
        if (watch && fOther) {
            gesso::ListInside::TellItem(*this, EventOfText(subItem), item);
        }
    }
}

void GList::SetSubItem(UINT item, UINT subItem, UINT state, LPCWSTR text, UINT image)
{
    ListSubItem* sub = SubItemFor(item, subItem, "GList::SetSubItem: no such sub-item");
    const bool fOther = sub && IsOther(sub->text, text);
    if (!sub || !StoreText(*sub, subItem, text)) {
        return;
    }
    const bool fChecks = ShowsCheck(listStyle, subItem, sub->state ^ state);
    ChangeSubItemState(*sub, state);
    sub->image = image;
    const gesso::Watch watch(*this);
    RefreshLayout();
    if (watch && fOther) {
        gesso::ListInside::TellItem(*this, EventOfText(subItem), item);
    }
    if (watch && fChecks) {
        gesso::ListInside::TellItem(*this, EVENT_OBJECT_STATECHANGE, item);
    }
}

// False, with nothing done, without memory.
bool GList::StoreText(ListSubItem& sub, UINT column, LPCWSTR text)
{
    if (!gesso::ReplaceItemText(sub.text, text, FillPool())) {
        return false;
    }
    FreeText(std::exchange(sub.prepared, nullptr));
    if (!bulkInsert) {
        PrepareSubItem(sub, column);
    }
    return true;
}

void* GList::GetItemCustomData(UINT item) const
{
    if (item < ItemCount() && IsVirtual()) {
        return nullptr;
    }
    return Field(ItemFor(item, "GList::GetItemCustomData: no such item"), &ListItem::customData);
}

UINT GList::GetItemGroup(UINT item) const
{
    if (item < ItemCount() && IsVirtual()) {
        return GetVirtualGroup(item);
    }
    return Field(ItemFor(item, "GList::GetItemGroup: no such item"), &ListItem::group);
}

UINT GList::GetItemState(UINT item, UINT subItem) const
{
    if (IsVirtual()) {
        return Answered(item, subItem, gesso::CELL_STATE, "GList::GetItemState: no such sub-item").state;
    }
    return Field(SubItemFor(item, subItem, "GList::GetItemState: no such sub-item"), &ListSubItem::state);
}

LPCWSTR GList::GetItemText(UINT item, UINT subItem) const
{
    if (IsVirtual()) {
        return Answered(item, subItem, gesso::CELL_TEXT, "GList::GetItemText: no such sub-item").text;
    }
    return Field(SubItemFor(item, subItem, "GList::GetItemText: no such sub-item"), &ListSubItem::text);
}

UINT GList::GetItemImage(UINT item, UINT subItem) const
{
    if (IsVirtual()) {
        return Answered(item, subItem, gesso::CELL_IMAGE, "GList::GetItemImage: no such sub-item").image;
    }
    return Field(SubItemFor(item, subItem, "GList::GetItemImage: no such sub-item"), &ListSubItem::image);
}
