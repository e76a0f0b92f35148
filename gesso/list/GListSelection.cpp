// The selection: a bit of each item; and the cursor.

#include <gesso/containers/Index.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;

UINT GList::GetSelectedCount() const
{
    if (const gesso::VirtualList* rows = Virtual()) {
        return rows->selected.Count();
    }
    const auto* first = items.GetData();
    const auto isSelected = [](const ListItem* item) { return (item->state & LIS_SELECTED) != 0; };
    return static_cast<UINT>(std::count_if(first, first + items.GetLength(), isSelected));
}

void GList::ClearSelection()
{
    SelectNone();
    Invalidate(0);
    TellSelection();
}

void GList::SetSelected(UINT item, int on)
{
    if (item < ItemCount()) {
        ChangeSelection(item, item, on != 0);
        Invalidate(0);
        TellSelection();
    }
}

int GList::GetSelected(UINT item) const
{
    if (const gesso::VirtualList* rows = Virtual()) {
        return rows->selected.Has(item) ? 1 : 0;
    }
    const ListItem* record = ItemAt(item);
    return record && (record->state & LIS_SELECTED) ? 1 : 0;
}

// An override of ClearSelection hears of it, and the parent of both as one change.
void GList::SetFirstSelectedItemIndex(UINT item)
{
    if (item >= ItemCount()) {
        return;
    }
    const bool fHeld = std::exchange(m_inside->fHoldsTelling, true);
    const bool fSelected = GetSelected(item);
    ClearSelection();
    const bool fTwice = fSelected && !GetSelected(item);
    Select(item);
    if (fTwice) {
        m_inside->selection.TakeBack();
    }
    m_inside->fHoldsTelling = fHeld;
    if (!Has(*this, Quirk::ListCursorStays)) {
        PutCursor(item);
    }
    Invalidate(0);
    TellSelection();
}

void GList::SetNextSelectedItemIndex(UINT item)
{
    if (item < ItemCount()) {
        Select(item);
        Invalidate(0);
        TellSelection();
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
    if (const gesso::VirtualList* rows = Virtual()) {
        return rows->selected.Next(item);
    }
    while (item < items.GetLength() && !GetSelected(item)) {
        ++item;
    }
    return item < items.GetLength() ? item : NO_INDEX;
}

// --- The cursor

// Classic's lies in one of two places: after a click only in the second.
UINT GList::GetCursorItem() const
{
    const UINT cursor = cursorItem != NO_INDEX ? cursorItem : lastItem;
    return cursor < ItemCount() ? cursor : NO_INDEX;
}

void GList::SetCursorItem(UINT item)
{
    if (item != NO_INDEX && !HasItem(item, "GList::SetCursorItem: no such item")) {
        return;
    }
    ChangeCursor(item, item);
    if (!Has(*this, Quirk::ListKeyboard)) {
        shiftAnchor = NO_INDEX;
    }
    Invalidate(0);
    gesso::ListInside::TellChanges(*this);
}

// Where a range that the user selects starts as well.
void GList::PutCursor(UINT item)
{
    ChangeCursor(item, item);
    shiftAnchor = item;
}

// --- What changes, each in its one place

// Both ends included, in either order; what lies past the end is left out. In Classic a derived class may
// have set the bit of any item.
void GList::ChangeSelection(UINT a, UINT b, bool on)
{
    const UINT count = ItemCount();
    UINT first = std::min(a, b);
    UINT end = std::min(std::max(a, b), count - 1) + 1;
    if (count == 0 || first >= count) {
        return;
    }
    if (gesso::VirtualList* rows = Virtual()) {
        const auto change = on ? rows->selected.Add(first, end) : rows->selected.Remove(first, end);
        m_inside->selection.Note(change);
        return;
    }
    gesso::SelectedSpan& span = m_inside->selected;
    span.Renew(m_inside->itemChanges);
    if (on) {
        span.Include(first, end);
    } else if (!Has(*this, Quirk::ListSelectionSilent)) {
        const gesso::SelectedSpan former = span;
        span.Exclude(first, end);
        first = std::max(first, former.first);
        end = std::min(end, former.end);
    }
    for (UINT item = first; item < end; ++item) {
        UINT& state = items[item]->state;
        if (((state & LIS_SELECTED) != 0) != on) {
            state ^= LIS_SELECTED;
            m_inside->counted.count += on ? 1U : ~0U;
            m_inside->selection.Note(item);
        }
    }
}

// Tells of what has changed since the last time: the parent, and those who do not see the list. False where
// the list is gone.
bool GList::TellSelection()
{
    if (m_inside->fHoldsTelling) {
        return true;
    }
    const gesso::SelectionChange change = std::exchange(m_inside->selection, {});
    if (!gesso::ListInside::TellChanges(*this, change)) {
        return false;
    }
    if (change.count == 0 || bulkInsert || !m_hWnd || Has(*this, Quirk::ListSelectionSilent)) {
        return true;
    }
    const gesso::Watch watch(*this);
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(change.OneItem());
    Frame::SendNotify(*this, static_cast<UINT>(LVN_ITEMCHANGED), &notify.hdr);
    return watch;
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
    SelectOnlyRange(item, item);
}

void GList::SelectOnlyRange(UINT a, UINT b)
{
    const UINT first = std::min(a, b);
    const UINT last = std::max(a, b);
    if (first > 0) {
        ChangeSelection(0, first - 1, false);
    }
    if (last < ItemCount()) {
        ChangeSelection(last + 1, NO_INDEX, false);
    }
    ChangeSelection(first, last, true);
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
