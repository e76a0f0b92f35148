// The selection: a bit of each item. None of the public operations sends a notification.

#include <gesso/containers/Index.h>
#include <gesso/list/GList.h>

#include <algorithm>

using gesso::NO_INDEX;

UINT GList::GetSelectedCount() const
{
    const auto* first = items.GetData();
    const auto isSelected = [](const ListItem* item) { return (item->state & LIS_SELECTED) != 0; };
    return static_cast<UINT>(std::count_if(first, first + items.GetLength(), isSelected));
}

void GList::ClearSelection()
{
    SelectNone();
    Invalidate(0);
}

void GList::SetSelected(UINT item, int on)
{
    if (item < items.GetLength()) {
        ChangeSelection(item, item, on != 0);
        Invalidate(0);
    }
}

int GList::GetSelected(UINT item) const
{
    const ListItem* record = ItemAt(item);
    return record && (record->state & LIS_SELECTED) ? 1 : 0;
}

void GList::SetFirstSelectedItemIndex(UINT item)
{
    if (item < items.GetLength()) {
        ClearSelection();
        Select(item);
        Invalidate(0);
    }
}

void GList::SetNextSelectedItemIndex(UINT item)
{
    if (item < items.GetLength()) {
        Select(item);
        Invalidate(0);
    }
}

UINT GList::GetFirstSelectedItemIndex() const
{
    return SelectedFrom(0);
}

UINT GList::GetNextSelectedItemIndex(UINT item) const
{
    return SelectedFrom(item + 1);
}

UINT GList::GetHotItem() const
{
    return hitHot.item;
}

WORD GList::GetHotSubItem() const
{
    return hitHot.subItem;
}

UINT GList::SelectedFrom(UINT item) const
{
    while (item < items.GetLength() && !GetSelected(item)) {
        ++item;
    }
    return item < items.GetLength() ? item : NO_INDEX;
}

// --- What changes, each in its one place

// Both ends included, in either order; what lies past the end is left out.
void GList::ChangeSelection(UINT a, UINT b, bool on)
{
    const UINT count = items.GetLength();
    for (UINT item = std::min(a, b); item < count && item <= std::max(a, b); ++item) {
        UINT& state = items[item]->state;
        state = on ? state | LIS_SELECTED : state & ~LIS_SELECTED;
    }
}

// The keyboard's item, none after a click; and the item last acted on, where the keyboard starts then.
void GList::ChangeCursor(UINT cursor, UINT last)
{
    cursorItem = cursor;
    lastItem = last;
}

void GList::ChangeHot(const HitTestInfo& hit)
{
    hitHot = hit;
}

// The check mark, and the host's bits.
void GList::ChangeSubItemState(ListSubItem& sub, UINT state)
{
    sub.state = state;
}

// --- What the user's input is made of

void GList::Select(UINT item)
{
    ChangeSelection(item, item, true);
}

void GList::SelectNone()
{
    ChangeSelection(0, NO_INDEX, false);
}

void GList::SelectOnly(UINT item)
{
    SelectNone();
    Select(item);
}

void GList::InvertItem(UINT item)
{
    ChangeSelection(item, item, !GetSelected(item));
}

void GList::MoveCursor(UINT item)
{
    ChangeCursor(item, lastItem);
}

void GList::SetHotItem(UINT item)
{
    HitTestInfo hit = hitHot;
    hit.item = item;
    ChangeHot(hit);
}
