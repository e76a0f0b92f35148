// What a list that owns no rows has in their place.
#pragma once

#include <gesso/list/IndexRanges.h>
#include <gesso/list/RowScale.h>
#include <gesso/list/VirtualCells.h>
#include <gesso/list/VirtualRows.h>

#include <memory>
#include <new>
#include <vector>

namespace gesso {

// Rows made for a look at them, as they count from a place in the content.
struct ListCut
{
    ListRows rows;
    int64_t origin = 0;
};

// Items that are about to show.
struct ShownItems
{
    std::vector<UINT> items;
};

// What is asked of an item for one of its cells (CELL_).
struct CellNeed
{
    UINT column;
    UINT bits;
};
struct CellNeeds
{
    std::vector<CellNeed> cells;
};

// An item and how far a place lies below its top; with no item, below the end of the rows.
struct RowAnchor
{
    UINT item = NO_INDEX;
    int64_t offset = 0;
};

// What stays where it is when rows come or go: the position, and where a drag rectangle began.
struct ViewAnchor : RowAnchor
{
    RowAnchor band;
};

// A question that the host has not answered yet. It goes where its item goes.
struct PendingCell
{
    UINT item; // NO_INDEX once it is gone
    UINT column;
    UINT bit; // CELL_; 0 for none
    bool fOutdated = false;
    PendingCell* outer = nullptr;
};

// A round of questions.
struct AskingPass
{
    bool fKeeps = false; // what is answered, whatever the host changes in its answers
    AskingPass* outer = nullptr;
};

struct VirtualList
{
    VirtualList(VirtualCells::MAKE make, VirtualCells::RELEASE release) : cells(make, release) {}
    // Null without memory.
    static std::unique_ptr<VirtualList> Make(VirtualCells::MAKE make, VirtualCells::RELEASE release)
    try {
        return std::make_unique<VirtualList>(make, release);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }

    bool IsPending(UINT item, UINT column, UINT bit) const;
    // Of items whose cells are to be asked for anew, both ends included. In a pass that keeps what is
    // answered it waits for the end of that.
    void Outdate(UINT first, UINT last);
    void ForgetOutdated();
    template <class MOVE> void MovePending(MOVE move)
    {
        for (PendingCell* cell = pending; cell; cell = cell->outer) {
            cell->item = cell->item == NO_INDEX ? NO_INDEX : move(cell->item);
        }
    }
    RowAnchor AnchorAt(int64_t y) const;
    int64_t PlaceOf(const RowAnchor& anchor) const;
    // Whether all of it is of the items that there are, and no question is open.
    bool Check() const;

    VirtualRows rows;
    RowScale scale;
    int64_t top = 0; // the position in pixels
    int barPos = 0;  // that of the bar that it belongs to
    IndexRanges selected;
    IndexRanges kept; // during a drag from empty room: selected before, and stays so
    VirtualCells cells;

    // What goes on of questions; the innermost ones, on the stack.
    PendingCell* pending = nullptr;
    AskingPass* pass = nullptr;
    bool fOutdated = false; // all that is kept, once the pass is over
    UINT columnChanges = 0; // a cell is another one since
    UINT questions = 0;
    UINT paints = 0;

    // The rows in view and around it, with what they were made for.
    ListCut view;
    RowOrder order;
    int64_t viewTop = 0;
    int viewHeight = -1; // below 0 for rows that have changed since
};

} // namespace gesso
