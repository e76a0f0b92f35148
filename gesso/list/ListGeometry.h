// Where the rows and cells of a list lie, and what a point of it hits: worked out from its records alone,
// with no window and no context. Painting, hit-testing and scrolling all ask here.
//
// Places are pixels in the content, whose top is the header's room (ListMeasures::headerArea), with the first
// row below it. A row's own rectangle starts at that first row.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/list/ListRecords.h>

#include <cstdint>
#include <optional>

namespace gesso {

using ListColumns = OArray<ListColumn*, ListColumn*>;
using ListGroups = OArray<ListGroup*, ListGroup*>;
using ListItems = OArray<ListItem*, ListItem*>;
using ListRows = OArray<stcElementPosition, stcElementPosition const&>;
using ListCells = OArray<stcColumnDrawInfo, stcColumnDrawInfo const&>;

// What the places depend on besides the records.
struct ListMeasures
{
    UINT view = GLS_DETAILS; // the view's value of the list style
    bool fCheckBoxes = false;
    UINT columnsWidth = 0;
    UINT itemWidth = 0;
    UINT itemHeight = 0;
    UINT spacingX = 0; // between icons
    UINT spacingY = 0;
    UINT groupHeight = 0;
    UINT headerArea = 0;
    // Of lists made in Modern, where hits and rectangles are those of what is drawn.
    bool fExact = false;
    UINT headerHeight = 0; // as drawn, 0 without a header
    int linesWidth = 0;    // what icons lie side by side in
    // Of lists whose items have no records: how many there are. A point's place is not cut to 16 bits.
    bool fVirtual = false;
    UINT count = 0;
};

// What is known of the rows, so that few of them need a look. Nothing is known of rows that are only copied.
struct RowOrder
{
    bool fCurrent = false;   // they are just what ListLayout::Place would make of the records
    bool fStacked = false;   // one below the other: a row is found by its place
    bool fAscending = false; // those of items in the order of their indices: a row is found by its item
    UINT groupRowsEnd = 0;   // above every index in a group's row
};

// A window on the content.
struct ListViewport
{
    SIZE client;
    POINT scroll; // of the client area's top left
};

struct ListHit
{
    static constexpr WORD NO_PART = 0xFFFF;

    UINT item = NO_INDEX;   // item; of a group's row the group; LHI_HEADER
    WORD subItem = NO_PART; // element of the item's cell
    WORD part = NO_PART;    // LHP_
};

// The pages and the last positions of the two bars.
struct ListBars
{
    UINT lastX, lastY;
    UINT pageX, pageY;
};
// Of a content in a client area without bars, where a bar is so wide.
ListBars BarsOf(SIZE content, SIZE client, SIZE bar);

// The same, of bars that show where they are needed, with all of the content in reach.
ListBars ExactBarsOf(SIZE content, SIZE client, SIZE bar);

// Bound to a list's arrays, which stay the list's.
class ListGeometry
{
public:
    ListGeometry(const ListMeasures& measures, const ListItems& items, const ListGroups& groups,
                 const ListCells& cells, const ListRows& rows, const RowOrder& order)
        : m_measures(measures), m_items(items), m_groups(groups), m_cells(cells), m_rows(rows), m_order(order)
    {}

    // --- Rows. The number of rows stands for none.

    UINT RowCount() const { return m_rows.GetLength(); }
    const stcElementPosition& Row(UINT row) const { return m_rows[row]; }

    // The first row of an item of this index or a larger one.
    UINT RowFrom(UINT item) const;
    // The first row of this very item.
    UINT RowOf(UINT item) const;
    // The first row whose bottom lies at or below y, which counts from the first row.
    UINT FirstRowReaching(int64_t y) const;
    // Where the rows end, counted from the first.
    int RowsEnd() const;
    // Where the run of items ends that begins with a row: at a group's row, or below y of the content.
    UINT RunEnd(UINT row, int64_t y) const;
    // Whether a row begins below y of the content; and whether it and all behind it do.
    bool IsBelow(UINT row, int64_t y) const;
    bool AreBelow(UINT row, int64_t y) const;

    // --- Rectangles

    // A row in the content, moved on.
    RECT RowRect(UINT row, int64_t dx = 0, int64_t dy = 0) const;
    // An element of a row: as wide as the element, and as high as the row; where elements do not lie in
    // columns, and places are exact, the element itself.
    RECT CellRect(UINT row, UINT cell) const;

    // --- Hits

    // What lies at a point of the client area; an element's divider in the header reaches to both sides.
    ListHit HitAt(POINT pt, const ListViewport& view, int dividerReach) const;

    // --- What the keyboard goes by
    //
    // Fixed behaviour: the page keys and the scrolling to the cursor go by the rectangle and row that are
    // kept with each item, as ListLayout::Stamp left them, and not by the rows that show. In a list that is
    // sorted, grouped or filled in bulk the two differ, and the keys would else lead elsewhere.

    // Where a page key leads from an item, with a page of so many pixels.
    UINT PageUpFrom(UINT item, UINT page) const;
    UINT PageDownFrom(UINT item, UINT page) const;
    // The position to scroll to, so that an item shows whose end (or start) the key leads to; none where it
    // shows already. A gap of the header is left above the start.
    std::optional<int64_t> PositionOfEnd(UINT item, int position, UINT page) const;
    std::optional<int64_t> PositionOfStart(UINT item, int position, UINT headerGap) const;

    // --- Where the keys of Modern lead, by the rows that show: the item itself where there is none further
    // on.

    // The item in the same place of the line above or below, of items that lie side by side.
    UINT ItemAbove(UINT item) const;
    UINT ItemBelow(UINT item) const;
    // The furthest item that shows together with this one in so many pixels; the next one where that is
    // itself.
    UINT ItemPageAbove(UINT item, int page) const;
    UINT ItemPageBelow(UINT item, int page) const;

    // What is to show above a row, counted from the first row: its own top; of the first item of a group that
    // of the group, if both fit in so many pixels; of the first item of all the start.
    int64_t StartOf(UINT row, int64_t room) const;

    // Whether the rows agree with what is known of them.
    bool Check() const;

private:
    UINT ItemCount() const { return m_measures.fVirtual ? m_measures.count : m_items.GetLength(); }
    int HitPlace(int64_t n) const;
    WORD CellAt(int x, int reach) const;
    ListHit HitHeader(int x, int reach) const;
    ListHit HitRows(int x, int y) const;
    bool HitRow(ListHit& hit, UINT row, int x) const;
    bool HitIcon(ListHit& hit, UINT row, int x) const;
    ListHit HitCell(UINT item, int x) const;
    ListHit HitExact(POINT pt, const ListViewport& view, int reach) const;
    ListHit HitExactHeader(int64_t x, int reach) const;
    ListHit HitExactCell(UINT row, int64_t x, int64_t y) const;
    UINT ItemOfRow(UINT row, UINT none) const;
    UINT InLineOf(UINT row, LONG left, UINT none) const;
    bool ReachesPageUp(const ListItem& item, const ListItem& from, UINT page) const;
    bool ReachesPageDown(const ListItem& item, const ListItem& from, UINT page) const;
    bool IsStacked() const;
    bool IsAscending() const;

protected:
    const ListMeasures m_measures;
    const ListItems& m_items;
    const ListGroups& m_groups;
    const ListCells& m_cells;

private:
    const ListRows& m_rows;
    const RowOrder& m_order;
};

} // namespace gesso
