// What is Gesso's own of a list, behind the one pointer that its class has for it.
#pragma once

#include <gesso/framework/TypeAhead.h>
#include <gesso/list/GList.h>
#include <gesso/list/ListBlocks.h>
#include <gesso/list/ListGeometry.h>
#include <gesso/list/ListTexts.h>
#include <gesso/list/VirtualList.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace gesso {

// Where an item is that is kept an eye on. A record moves when a column is inserted.
struct TrackedItem
{
    const ListItem* item = nullptr; // null once it is gone
    UINT index = NO_INDEX;          // of an item without a record; NO_INDEX once it is gone
};
class ListItemTrack : public std::shared_ptr<TrackedItem>
{
public:
    using std::shared_ptr<TrackedItem>::shared_ptr;
    ListItemTrack(std::shared_ptr<TrackedItem> track) : std::shared_ptr<TrackedItem>(std::move(track)) {}
};

class ListItemTracks
{
public:
    ListItemTrack Follow(const TrackedItem& item);
    void Replace(const ListItem* former, const ListItem* item);
    // Behind a removal, before anybody is told: a new item's record may lie where one was.
    void ForgetLost(const OArray<ListItem*, ListItem*>& items);
    // Of items without records: each goes to the index that `move` answers, NO_INDEX for one that is gone.
    template <class MOVE> void MoveIndices(MOVE move)
    {
        for (const auto& known : m_tracks) {
            if (const ListItemTrack track = known.lock()) {
                track->index = track->index == NO_INDEX ? NO_INDEX : move(track->index);
            }
        }
    }

private:
    std::vector<std::weak_ptr<TrackedItem>> m_tracks;
};

// A renaming in progress.
struct ListRenaming
{
    HWND hwnd = nullptr; // of the field; null for none
    ListItemTrack item;  // null for none
    bool fLost = false;  // the first column is another one now
};

// What has been selected or unselected since the parent was last told.
struct SelectionChange
{
    UINT count = 0;
    UINT items = 0; // of one item its index: of an item that changed and changed back nothing is left
    // The first changes, each by its item. `known` counts on to one more, which stands for any more.
    static constexpr UINT MOST_KNOWN = 20;
    UINT known = 0;
    std::array<UINT, MOST_KNOWN> changed{};

    void Note(UINT item)
    {
        ++count;
        items ^= item;
        Know(item);
    }
    void Note(const IndexRanges::Change& change)
    {
        count = std::min(count + std::min(change.count, MANY), MANY);
        items ^= change.mixed;
        if (change.count == 1) {
            Know(change.mixed);
        } else if (change.count) {
            known = MOST_KNOWN + 1;
        }
    }
    void Know(UINT item)
    {
        if (known < MOST_KNOWN) {
            changed[known] = item;
        }
        known = std::min(known, MOST_KNOWN) + 1;
    }
    // One of the items has changed twice.
    void TakeBack() { count -= 2; }
    // One that was selected is no more there.
    void NoteGone() { count += 2; }
    UINT OneItem() const { return count == 1 ? items : NO_INDEX; }

    static constexpr UINT MANY = 0x40000000; // and more
};

// What those who do not see the list have yet to be told: of the items one event, and what is the same as
// when they were last told.
struct ListUntold
{
    DWORD dwEvent = 0;    // EVENT_OBJECT_CREATE, _DESTROY or _REORDER; 0 for none
    UINT item = NO_INDEX; // that it is told of; NO_INDEX for the list
    bool fScrolled = false;
    UINT cursor = NO_INDEX;

    // More than one change is told as a new order.
    void Note(DWORD dwNew, UINT changed = NO_INDEX)
    {
        const bool fFirst = dwEvent == 0;
        dwEvent = fFirst ? dwNew : DWORD{EVENT_OBJECT_REORDER};
        item = fFirst ? changed : NO_INDEX;
    }
};

// How many of the list's own items are selected, while the items are those of then.
struct SelectedCount
{
    UINT count = 0;
    UINT itemChanges = NO_INDEX;
};

// What a removal has taken: how many, and of one its index.
struct GoneItems
{
    UINT count = 0;
    UINT item = NO_INDEX;
};

// Where the selected items are: none lies outside, as long as the items are those of then and in that order.
// So a key in a long list looks at few of them.
struct SelectedSpan
{
    UINT first = 0;
    UINT end = NO_INDEX;
    UINT itemChanges = 0;

    void Renew(UINT changes)
    {
        if (itemChanges != changes) {
            *this = {0, NO_INDEX, changes};
        }
    }
    void Include(UINT from, UINT to)
    {
        const bool fEmpty = first >= end;
        first = fEmpty ? from : std::min(first, from);
        end = fEmpty ? to : std::max(end, to);
    }
    void Exclude(UINT from, UINT to)
    {
        if (from <= first) {
            first = std::max(first, to);
        }
        if (to >= end) {
            end = std::min(end, from);
        }
    }
};

// Bits of an item's state while it is on its way out of the list: how deep its removal is nested in others,
// and whether the parent has been told.
constexpr UINT GOING_SHIFT = 24;
constexpr UINT MOST_REMOVALS = 0xFF;
constexpr UINT LIS_TOLD = 0x800000;

inline UINT RemovalOf(const ListItem& item)
{
    return item.state >> GOING_SHIFT;
}

// A place among the rows, from the first one's top.
struct ListPlace
{
    int64_t x;
    int64_t y;
};

// The rectangle that a drag from empty room draws.
struct ListBand
{
    bool fBegun = false; // a press on empty room goes on
    bool fOn = false;    // and has become a drag
    ListPlace start{};
    ListPlace end{};
    POINTS pt{}; // of the pointer, in the client area
};

// Bits of an item's state during such a drag.
constexpr UINT LIS_KEPT = 0x100000;    // was selected before, and stays so
constexpr UINT LIS_TOUCHED = 0x200000; // of the last move

// What the list keeps an eye on: cursor, item last acted on, anchor, hot item, pressed item. The indices,
// NO_INDEX for none, and their items.
struct ListIndices : std::array<UINT, 5>
{};
struct ListKept : std::array<ListItem*, 5>
{};

// What the host has set itself, so that no other scale changes it.
enum ListGiven : UINT
{
    LIST_HEADER_HEIGHT_GIVEN = 0x0001,
    LIST_HEADER_GAP_GIVEN = 0x0002,
    LIST_GROUP_HEIGHT_GIVEN = 0x0004,
    LIST_ITEM_WIDTH_GIVEN = 0x0008,
    LIST_ITEM_HEIGHT_GIVEN = 0x0010,
    LIST_TITLE_FONT_GIVEN = 0x0020,
    LIST_HEADER_FONT_GIVEN = 0x0040,
    LIST_TEXT_FONT_GIVEN = 0x0080,
    LIST_GROUP_FONT_GIVEN = 0x0100
};
constexpr UINT LIST_FONTS_GIVEN =
    LIST_TITLE_FONT_GIVEN | LIST_HEADER_FONT_GIVEN | LIST_TEXT_FONT_GIVEN | LIST_GROUP_FONT_GIVEN;

struct ListInside
{
    UINT given = 0;      // LIST_..._GIVEN
    bool fOwner = false; // of the list's records: their maker's, not a copy's
    RowOrder rowOrder;
    bool fSizing = false;       // in WM_NCCALCSIZE
    bool fBarsMoved = false;    // since they were last painted
    POINT lastPos{};            // what the bars may scroll to, of lists made in Modern
    bool fFontsMissing = false; // some could not be made
    bool fEdits = false;        // the edit in progress is this list's own, which a copy has only seen
    UINT itemChanges = 0;       // counts insertions and removals
    ListItemTracks tracks;
    ListTexts texts;
    BlockPool fillPool;
    ListRenaming renaming;
    SelectionChange selection;
    SelectedSpan selected;
    SelectedCount counted;
    ListUntold untold;
    GoneItems gone;             // by the last removal
    bool fHoldsTelling = false; // a change of the selection goes on
    bool fEnding = false;       // the window goes
    bool fHadWindow = false;
    ListBand band;
    TypeAhead typed;
    PFNLISTCOMPARE compare = nullptr; // what sorts every column
    void* compareContext = nullptr;
    int linesWidth = 0;                       // what icons lie side by side in
    SIZE linesRoom{};                         // of the window, bars included, that this came from
    std::unique_ptr<VirtualList> virtualList; // null for a list that owns its items
    bool fAsked = false;                      // for what is painted now, so that painting asks for nothing
    UINT removals = 0;                        // how many go on, one within the other

    // How many times as large as they are the images of a list's image list are drawn.
    static int ImageTimes(const GList& list, SIZE image);
    // Whether a list's layout agrees with its records, for tests.
    static bool CheckLayout(const GList& list);
    // What a click on an item does, with these modifier keys. The list may be gone afterwards.
    static void ClickItem(GList& list, const GList::HitTestInfo& hit, WORD mods);

    // Those who do not see the list are told of what has changed since they last were, and of a change of the
    // selection. False where the list is gone.
    static bool TellChanges(GList& list, const SelectionChange& change = {});
    // The same of an item alone, nothing during a bulk fill. The list may be gone afterwards.
    static void TellItem(const GList& list, DWORD dwEvent, UINT item);
    // The number by which they know an item; the list's own for none.
    static LONG ChildOf(UINT item);

    struct FieldPlaces;
    class Question;
    class Pass;
    class Tale;
};

} // namespace gesso
