// What those are told of a list who do not see it: the same changes that are drawn, each once it is complete.

#include <gesso/framework/Access.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <array>
#include <utility>

namespace gesso {
namespace {

constexpr DWORD CONTENT_SCROLLED = 0x8015; // EVENT_OBJECT_CONTENTSCROLLED, which not all headers have
constexpr UINT MOST_CHILDREN = 0x7FFFFFFF; // as many as can be told of

using Changed = SelectionChange;

// The items of a change that are not as they were: one that changed and changed back is none of them.
struct Differing
{
    explicit Differing(const Changed& change)
    {
        const UINT* first = change.changed.data();
        const UINT* end = first + std::min(change.known, Changed::MOST_KNOWN);
        for (const UINT* item = first; item < end; ++item) {
            const bool fAgain = std::find(item + 1, end, *item) != end;
            if (!fAgain && std::count(first, end, *item) % 2) {
                items[count++] = *item;
            }
        }
    }

    std::array<UINT, Changed::MOST_KNOWN> items{};
    UINT count = 0;
};

} // namespace

LONG ListInside::ChildOf(UINT item)
{
    return item < MOST_CHILDREN ? static_cast<LONG>(item) + 1 : CHILDID_SELF;
}

void ListInside::TellItem(const GList& list, DWORD dwEvent, UINT item)
{
    if (!list.bulkInsert && item < list.ItemCount()) {
        TellAccess(list.m_hWnd, dwEvent, ChildOf(item));
    }
}

// One that is selected alone is told as that.
class ListInside::Tale
{
public:
    explicit Tale(GList& list) : m_list(list), m_watch(list), m_hWnd(list.m_hWnd) {}

    bool Tell(DWORD dwEvent, UINT item)
    {
        if (m_watch) {
            TellAccess(m_hWnd, dwEvent, ChildOf(item));
        }
        return m_watch;
    }

    bool TellSelected(const SelectionChange& change)
    {
        if (change.known > SelectionChange::MOST_KNOWN) {
            return Tell(EVENT_OBJECT_SELECTIONWITHIN, NO_INDEX);
        }
        const Differing differing(change);
        if (differing.count && CountSelected() == 1) {
            const UINT* end = differing.items.data() + differing.count;
            const auto isSelected = [this](UINT item) { return m_list.GetSelected(item) != 0; };
            const UINT* found = std::find_if(differing.items.data(), end, isSelected);
            if (found != end) {
                return Tell(EVENT_OBJECT_SELECTION, *found);
            }
        }
        for (UINT k = 0; k < differing.count && m_watch; ++k) {
            const UINT item = differing.items[k];
            if (item < m_list.ItemCount()) {
                Tell(m_list.GetSelected(item) ? EVENT_OBJECT_SELECTIONADD : EVENT_OBJECT_SELECTIONREMOVE,
                     item);
            }
        }
        return m_watch;
    }

private:
    // All are looked at only once the items are others.
    UINT CountSelected() const
    {
        ListInside& inside = *m_list.m_inside;
        if (inside.virtualList) {
            return inside.virtualList->selected.Count();
        }
        if (inside.counted.itemChanges != inside.itemChanges) {
            inside.counted = {m_list.GList::GetSelectedCount(), inside.itemChanges};
        }
        return inside.counted.count;
    }

    GList& m_list;
    const Watch m_watch;
    const HWND m_hWnd;
};

// The items first, so that what is told of them afterwards counts as they are now.
bool ListInside::TellChanges(GList& list, const SelectionChange& change)
{
    ListInside& inside = *list.m_inside;
    const UINT cursor = list.GetCursorItem();
    const ListUntold untold = std::exchange(inside.untold, {0, NO_INDEX, false, cursor});
    const bool fCursor = untold.cursor != cursor && GetFocus() == list.m_hWnd;
    const bool fAny = untold.dwEvent || untold.fScrolled || fCursor || change.known;
    if (!fAny || !list.m_hWnd || list.bulkInsert || inside.fEnding) {
        return true;
    }
    Tale tale(list);
    if (untold.dwEvent && !tale.Tell(untold.dwEvent, untold.item)) {
        return false;
    }
    if (untold.fScrolled && !tale.Tell(CONTENT_SCROLLED, NO_INDEX)) {
        return false;
    }
    if (fCursor && !tale.Tell(EVENT_OBJECT_FOCUS, cursor)) {
        return false;
    }
    return tale.TellSelected(change);
}

} // namespace gesso
