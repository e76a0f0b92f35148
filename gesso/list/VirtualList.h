// What a list that owns no rows has in their place.
#pragma once

#include <gesso/list/IndexRanges.h>
#include <gesso/list/RowScale.h>
#include <gesso/list/VirtualCells.h>
#include <gesso/list/VirtualRows.h>

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

// An item and how far the position lies below its top: what stays where it is when rows come or go.
struct ViewAnchor
{
    UINT item = NO_INDEX;
    int64_t offset = 0;
};

struct VirtualList
{
    VirtualList(VirtualCells::MAKE make, VirtualCells::RELEASE release) : cells(make, release) {}

    VirtualRows rows;
    RowScale scale;
    int64_t top = 0; // the position in pixels
    IndexRanges selected;
    IndexRanges kept; // during a drag from empty room: selected before, and stays so
    VirtualCells cells;

    // The rows in view and around it, with what they were made for.
    ListCut view;
    RowOrder order;
    int64_t viewTop = 0;
    int viewHeight = -1; // below 0 for rows that have changed since
};

} // namespace gesso
