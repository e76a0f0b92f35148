// What is Gesso's own of a list, behind the one pointer that its class has for it.
#pragma once

#include <gesso/list/GList.h>
#include <gesso/list/ListGeometry.h>

#include <array>

namespace gesso {

// What has been selected or unselected since the parent was last told.
struct SelectionChange
{
    UINT count = 0;
    UINT items = 0; // of one item its index: of an item that changed and changed back nothing is left

    void Note(UINT item)
    {
        ++count;
        items ^= item;
    }
    // One of the items has changed twice.
    void TakeBack() { count -= 2; }
    // One that was selected is no more there.
    void NoteGone() { count += 2; }
    UINT OneItem() const { return count == 1 ? items : NO_INDEX; }
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

// The rectangle that a drag from empty room draws, as the rows' rectangles count.
struct ListBand
{
    bool fBegun = false; // a press on empty room goes on
    bool fOn = false;    // and has become a drag
    POINT start{};
    POINT end{};
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

struct ListInside
{
    bool fOwner = false; // of the list's records: their maker's, not a copy's
    RowOrder rowOrder;
    bool fSizing = false;       // in WM_NCCALCSIZE
    bool fFontsMissing = false; // some could not be made
    bool fEdits = false;        // the edit in progress is this list's own, which a copy has only seen
    UINT itemChanges = 0;       // counts insertions and removals
    SelectionChange selection;
    bool fHoldsTelling = false; // a change of the selection goes on
    bool fEnding = false;       // the window goes
    bool fHadWindow = false;
    ListBand band;
    UINT removals = 0; // how many go on, one within the other

    // Whether a list's layout agrees with its records, for tests.
    static bool CheckLayout(const GList& list);

    struct FieldPlaces;
};

} // namespace gesso
