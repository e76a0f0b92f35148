// Items that are the host's: how many there are, and what goes along when they come and go.

#include <gesso/containers/Index.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

using gesso::Has;
using gesso::ListIndices;
using gesso::NO_INDEX;
using gesso::Quirk;

gesso::VirtualList* GList::Virtual() const
{
    return m_inside->virtualList.get();
}

bool GList::IsVirtual() const
{
    return Virtual() != nullptr;
}

UINT GList::ItemCount() const
{
    const gesso::VirtualList* list = Virtual();
    return list ? list->rows.Count() : items.GetLength();
}

bool GList::HasItem(UINT item, const char* operation) const
{
    if (item < ItemCount()) {
        return true;
    }
    gesso::Misuse(operation);
    return false;
}

// Whether the items are the host's, of an operation for the list's own.
bool GList::IsForeign(const char* operation) const
{
    if (IsVirtual()) {
        gesso::Misuse(operation);
    }
    return IsVirtual();
}

// The same of an operation for items of the host's.
bool GList::IsHosts(const char* operation) const
{
    if (!IsVirtual()) {
        gesso::Misuse(operation);
    }
    return IsVirtual();
}

// --- How many there are

void GList::SetVirtualItems(UINT count)
{
    if (!IsVirtual() && !BecomeVirtual()) {
        return;
    }
    gesso::VirtualList& list = VirtualInStep();
    list.rows.SetCount(count);
    count = list.rows.Count();
    if (list.selected.Remove(count, NO_INDEX).count) {
        m_inside->selection.NoteGone();
    }
    list.kept.Remove(count, NO_INDEX);
    list.cells.Forget(count, NO_INDEX);
    list.Outdate(0, NO_INDEX);
    MoveIndices([count](UINT index, UINT) { return index < count ? index : NO_INDEX; });
    m_inside->untold.Note(EVENT_OBJECT_REORDER);
    LayOutAround({});
}

// False where the list is gone, and without memory: it is empty then.
bool GList::BecomeVirtual()
{
    const gesso::Lifeline life(*this);
    RemoveAllItems();
    if (!life) {
        return false;
    }
    if (IsVirtual()) {
        return true; // the parent has made it so meanwhile
    }
    ReleaseItems(); // what the parent has put in
    elements.RemoveAll();
    ChangeSort(0, false, 0); // the order was that of the list's own items
    bulkInsert = false;
    m_inside->fillPool.Close();
    m_inside->virtualList = gesso::VirtualList::Make(MakeItem, ReleaseItem);
    if (!IsVirtual()) {
        Calculate();
        return false;
    }
    Virtual()->top = Virtual()->barPos = m_siV.nPos;
    ForgetLayout();
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS && Has(*this, Quirk::ListPlaces)) {
        SetListStyle(listStyle);
    }
    return life && IsVirtual();
}

void GList::LeaveVirtual()
{
    if (!IsHosts("GList::LeaveVirtual: the list is not virtual")) {
        return;
    }
    const gesso::Lifeline life(*this);
    if (Virtual()->selected.Count()) {
        m_inside->selection.NoteGone();
    }
    DropVirtualItems();
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS) {
        SetListStyle(listStyle);
    } else {
        Calculate();
    }
    m_inside->untold.Note(EVENT_OBJECT_REORDER);
    if (life && TellSelection()) {
        EndLostRenaming();
    }
}

void GList::DropVirtualItems()
{
    if (IsVirtual()) {
        MoveIndices([](UINT, UINT) { return NO_INDEX; });
        m_inside->virtualList.reset();
        ForgetLayout();
    }
}

// --- Items that come and go

// Tells whatever keeps an index where its item is now: `move` answers it, by the index and its place among
// those that the list keeps an eye on.
template <class MOVE> void GList::MoveIndices(MOVE move)
{
    ++m_inside->itemChanges;
    ListIndices indices = Indices();
    for (UINT k = 0; k < indices.size(); ++k) {
        indices[k] = indices[k] == NO_INDEX ? NO_INDEX : move(indices[k], k);
    }
    SetIndices(indices);
    const auto places = static_cast<UINT>(indices.size());
    m_inside->tracks.MoveIndices([=](UINT index) { return move(index, places); });
    Virtual()->MovePending([=](UINT index) { return move(index, places); });
}

void GList::ItemsChanged(UINT first, UINT last)
{
    if (IsHosts("GList::ItemsChanged: the list is not virtual")) {
        Virtual()->Outdate(first, last);
        Invalidate(0);
        if (first == last) {
            gesso::ListInside::TellItem(*this, EVENT_OBJECT_NAMECHANGE, first);
        } else {
            m_inside->untold.Note(EVENT_OBJECT_REORDER);
            gesso::ListInside::TellChanges(*this);
        }
    }
}

void GList::ItemsInserted(UINT first, UINT count)
{
    if (!IsHosts("GList::ItemsInserted: the list is not virtual")) {
        return;
    }
    gesso::VirtualList& list = VirtualInStep();
    if (first > list.rows.Count()) {
        gesso::Misuse("GList::ItemsInserted: no such place");
        return;
    }
    gesso::ViewAnchor anchor = AnchorOfView();
    count = list.rows.Insert(first, count);
    list.selected.Insert(first, count);
    list.kept.Insert(first, count);
    list.cells.Insert(first, count);
    const auto move = [=](UINT index, UINT) {
        return index != NO_INDEX && index >= first ? index + count : index;
    };
    MoveIndices(move);
    anchor.item = move(anchor.item, 0);
    anchor.band.item = move(anchor.band.item, 0);
    if (count) {
        const bool fOne = count == 1;
        m_inside->untold.Note(fOne ? EVENT_OBJECT_CREATE : EVENT_OBJECT_REORDER, fOne ? first : NO_INDEX);
    }
    LayOutAround(anchor);
}

void GList::ItemsRemoved(UINT first, UINT count)
{
    if (!IsHosts("GList::ItemsRemoved: the list is not virtual")) {
        return;
    }
    gesso::VirtualList& list = VirtualInStep();
    if (count == 0) {
        return;
    }
    if (first >= list.rows.Count()) {
        gesso::Misuse("GList::ItemsRemoved: no such item");
        return;
    }
    gesso::ViewAnchor anchor = AnchorOfView();
    const UINT cursor = GetCursorItem();
    count = list.rows.Erase(first, count);
    if (list.selected.Erase(first, first + count)) {
        m_inside->selection.NoteGone();
    }
    list.kept.Erase(first, first + count);
    list.cells.Erase(first, count);
    // The item that follows; at the end the last one; NO_INDEX where there is none.
    const UINT left = list.rows.Count();
    const UINT next = left ? std::min(first, left - 1) : NO_INDEX;
    constexpr UINT CURSORS = 3; // the places of those that have a next item to go to
    const auto move = [=](UINT index, UINT place) {
        const bool fGone = index >= first && index - first < count;
        const bool fStays = index < first || index == NO_INDEX;
        return fStays ? index : !fGone ? index - count : place < CURSORS ? next : NO_INDEX;
    };
    MoveIndices(move);
    anchor.item = move(anchor.item, 0);
    anchor.band.item = move(anchor.band.item, 0);
    const bool fOne = count == 1;
    m_inside->untold.Note(fOne ? EVENT_OBJECT_DESTROY : EVENT_OBJECT_REORDER, fOne ? first : NO_INDEX);
    if (cursor != NO_INDEX && cursor >= first && cursor - first < count) {
        m_inside->untold.cursor = NO_INDEX; // it has the next one
    }
    LayOutAround(anchor);
}

// The first item in view, and where a drag rectangle began.
gesso::ViewAnchor GList::AnchorOfView() const
{
    const gesso::VirtualList& list = VirtualInStep();
    return {list.AnchorAt(list.top), list.AnchorAt(m_inside->band.start.y)};
}

// With the anchor where it was in the window. What the parent has changed while the bars came or went it has
// laid out.
void GList::LayOutAround(const gesso::ViewAnchor& anchor)
{
    const gesso::Lifeline life(*this);
    const UINT changes = m_inside->itemChanges;
    const int formerPos = m_siV.nPos;
    Calculate();
    if (life && IsVirtual() && changes == m_inside->itemChanges && anchor.item < ItemCount()) {
        const gesso::VirtualList& list = VirtualInStep();
        const int64_t top = list.PlaceOf(anchor);
        m_inside->band.start.y = list.PlaceOf(anchor.band);
        if (top != list.top) {
            ScrollTo(SB_VERT, top - Origin());
        }
        // A thumb that is held goes on from there.
        m_nTrackStart = gesso::Saturated(int64_t{m_nTrackStart} + m_siV.nPos - formerPos);
        Invalidate(0);
    }
    if (life && TellSelection()) {
        EndLostRenaming();
    }
}

// --- Groups

void GList::SetGroupItemCount(UINT group, UINT count)
{
    if (!IsHosts("GList::SetGroupItemCount: the list is not virtual")) {
        return;
    }
    if (!GroupAt(group)) {
        gesso::Misuse("GList::SetGroupItemCount: no such group");
        return;
    }
    // The rows in view stay in view, but for those at the start.
    const gesso::ViewAnchor anchor = VirtualInStep().top > 0 ? AnchorOfView() : gesso::ViewAnchor();
    Virtual()->rows.SetGroupCount(group, count);
    m_inside->untold.Note(EVENT_OBJECT_REORDER);
    LayOutAround(anchor);
}

UINT GList::GetVirtualGroup(UINT item) const
{
    // Those that came since the last layout have no items yet.
    const UINT placed = std::min(Virtual()->order.groupRowsEnd, groups.GetLength());
    const UINT group = Virtual()->rows.GroupOf(item);
    return group < placed ? groups[group]->group : NO_INDEX;
}

// --- What the user asks for that is the host's to do

// The arrow is the new one already when the parent is told, which puts its items in order.
void GList::AskToSort(const HitTestInfo& hit, UINT column, bool ascending)
{
    const UINT formerColumn = sortColumn;
    const bool formerAscending = sortAscending;
    const UINT formerState =
        formerColumn < columns.GetLength() ? columns[formerColumn]->state & (LCS_SORTUP | LCS_SORTDOWN) : 0;
    ChangeSort(column, ascending, ascending ? LCS_SORTUP : LCS_SORTDOWN);
    Invalidate(0);
    const gesso::Watch watch(*this);
    HitTestInfo clicked = hit;
    clicked.item = NO_INDEX;
    clicked.subItem = static_cast<WORD>(column);
    const bool fRefused = SendItemNotify(static_cast<UINT>(LVN_COLUMNCLICK), clicked) != 0;
    if (fRefused && watch && sortColumn == column && sortAscending == ascending) {
        ChangeSort(formerColumn, formerAscending, formerState);
        Invalidate(0);
    }
}

UINT GList::MatchByHost(UINT from)
{
    const UINT count = ItemCount();
    const PFNLISTGET get = columns.GetLength() ? columns[0]->fktGet : nullptr;
    if (!get || count == 0) {
        return NO_INDEX;
    }
    const gesso::TypeAhead& typed = m_inside->typed;
    std::array<wchar_t, gesso::TypeAhead::MOST + 1> word{};
    std::copy_n(typed.Word(), typed.Length(), word.begin());
    GLISTMATCH match{word.data(), typed.First(from, count), NO_INDEX};
    const gesso::Lifeline life(*this);
    get(this, NO_INDEX, 0, LGET_MATCH, &match);
    return life && IsVirtual() && match.found < ItemCount() ? match.found : NO_INDEX;
}
