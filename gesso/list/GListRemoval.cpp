// Items that go, of lists made in Modern: the parent is told of each while it is there still, and may do
// anything then, removing others included.

#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>

#include <algorithm>

using gesso::Frame;
using gesso::NO_INDEX;
using gesso::RemovalOf;

void GList::RemoveAndTell(UINT first, UINT last)
{
    const gesso::Watch watch(*this);
    if (RemoveItems(first, last, false)) {
        const gesso::GoneItems gone = m_inside->gone;
        if (gone.count) {
            const bool fOne = gone.count == 1 && first == last;
            m_inside->untold.Note(fOne ? EVENT_OBJECT_DESTROY : EVENT_OBJECT_REORDER,
                                  fOne ? gone.item : NO_INDEX);
        }
        Calculate();
        if (watch && !m_inside->fEnding) {
            TellSelection();
        }
        if (watch) {
            EndLostRenaming();
        }
    }
}

bool GList::IsStray(const ListItem& item) const
{
    const auto isOwn = [&item](const ListGroup* group) { return group->group == item.group; };
    return groups.GetLength() > 0 && std::none_of(groups.begin(), groups.end(), isOwn);
}

// Those of a range that go, or just those of them that belong to no group. All are marked at once: what is on
// its way out is told of once, and stays until the removal that took it first is done. False where the list
// is gone.
bool GList::RemoveItems(UINT first, UINT last, bool fStraysAlone)
{
    const UINT depth = m_inside->removals + 1;
    m_inside->gone = {};
    if (depth > gesso::MOST_REMOVALS || !MarkGoing(first, last, fStraysAlone, depth)) {
        return true;
    }
    const gesso::Lifeline life(*this);
    const gesso::Watch watch(*this);
    m_inside->removals = depth;
    TellGoing(first, last, depth);
    if (!life) {
        return false;
    }
    m_inside->removals = depth - 1;
    DropGoing(depth);
    return watch;
}

// Whether there is any.
bool GList::MarkGoing(UINT first, UINT last, bool fStraysAlone, UINT depth)
{
    bool fAny = false;
    for (UINT i = first; i < items.GetLength() && i <= last; ++i) {
        ListItem& item = *items[i];
        if (!RemovalOf(item) && (!fStraysAlone || IsStray(item))) {
            item.state |= depth << gesso::GOING_SHIFT;
            fAny = true;
        }
    }
    return fAny;
}

void GList::TellGoing(UINT first, UINT last, UINT depth)
{
    const gesso::Watch watch(*this);
    UINT i = first;
    while (watch && i < items.GetLength() && i <= last) {
        ListItem& item = *items[i];
        if (RemovalOf(item) != depth || (item.state & gesso::LIS_TOLD)) {
            ++i;
            continue;
        }
        item.state |= gesso::LIS_TOLD;
        const UINT changes = m_inside->itemChanges;
        GLISTNOTIFY notify{};
        notify.iItem = static_cast<int>(i);
        Frame::SendNotify(*this, static_cast<UINT>(LVN_DELETEITEM), &notify.hdr);
        if (watch && changes != m_inside->itemChanges) {
            i = 0;
            last = NO_INDEX;
        }
    }
}

void GList::DropGoing(UINT depth)
{
    const bool fFollows = FollowsItems();
    const gesso::ListKept kept = fFollows ? KeepItems() : gesso::ListKept{};
    const ListItem* cursor = ItemAt(GetCursorItem());
    const bool fCursorGoes = cursor && RemovalOf(*cursor) == depth;
    gesso::GoneItems gone;
    UINT count = 0;
    for (UINT i = 0; i < items.GetLength(); ++i) {
        if (RemovalOf(*items[i]) != depth) {
            items[count++] = items[i];
            continue;
        }
        if (items[i]->state & LIS_SELECTED) {
            m_inside->selection.NoteGone();
        }
        gone = {gone.count + 1, i};
        ReleaseItem(items[i]);
    }
    items.SetLength(count, -1);
    m_inside->tracks.ForgetLost(items);
    ++m_inside->itemChanges;
    if (fFollows) {
        FindItems(kept);
    }
    m_inside->gone = gone;
    m_inside->untold.cursor = fCursorGoes ? NO_INDEX : GetCursorItem();
}
