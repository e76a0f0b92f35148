#include <gesso/containers/Index.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListGeometry.h>

#include <algorithm>

namespace gesso {
// Fixed behaviour: the pages are reduced when both directions fit, and not when neither does. Thumbs, and the
// last position of either bar, would else change.
ListBars BarsOf(SIZE content, SIZE client, SIZE bar)
{
    const auto cxBar = static_cast<UINT>(bar.cx);
    const auto cyBar = static_cast<UINT>(bar.cy);
    const auto clientCx = static_cast<UINT>(client.cx);
    const auto clientCy = static_cast<UINT>(client.cy);
    const UINT lastX = static_cast<UINT>(content.cx) - 1;
    const UINT lastY = static_cast<UINT>(content.cy) - 1;
    const UINT code = (lastY < clientCy ? 10U : 0U) | (lastX < clientCx ? 5U : 0U) |
                      (lastX < clientCx - cxBar ? 1U : 0U) | (lastY < clientCy - cyBar ? 2U : 0U);
    const bool fBoth = code == 7 || code == 11 || code == 15;
    return {lastX, lastY, clientCx - (fBoth || code == 5 ? cxBar : 0),
            clientCy - (fBoth || code == 10 ? cyBar : 0)};
}

ListBars ExactBarsOf(SIZE content, SIZE client, SIZE bar)
{
    bool fDown = content.cy > client.cy;
    const bool fAcross = content.cx > client.cx - (fDown ? bar.cx : 0);
    fDown = content.cy > client.cy - (fAcross ? bar.cy : 0);
    const auto last = [](LONG extent) { return static_cast<UINT>(std::max<LONG>(extent, 1) - 1); };
    const auto page = [](LONG extent) { return static_cast<UINT>(std::max<LONG>(extent, 0)); };
    return {last(content.cx), last(content.cy), page(client.cx - (fDown ? bar.cx : 0)),
            page(client.cy - (fAcross ? bar.cy : 0))};
}

// --- Rows

UINT ListGeometry::RowFrom(UINT item) const
{
    const stcElementPosition* row = m_rows.GetData();
    UINT low = 0;
    UINT high = m_rows.GetLength();
    while (m_order.fAscending && low < high) {
        const UINT middle = low + (high - low) / 2;
        UINT itemRow = middle;
        while (itemRow < high && row[itemRow].type != LET_ITEM) {
            ++itemRow;
        }
        if (itemRow == high || row[itemRow].index >= item) {
            high = middle;
        } else {
            low = itemRow + 1;
        }
    }
    const auto isBehind = [item](const stcElementPosition& e) {
        return e.type == LET_ITEM && e.index >= item;
    };
    return static_cast<UINT>(std::find_if(row + low, row + m_rows.GetLength(), isBehind) - row);
}

UINT ListGeometry::RowOf(UINT item) const
{
    const stcElementPosition* first = m_rows.GetData();
    const UINT count = m_rows.GetLength();
    if (m_order.fAscending) {
        const UINT row = RowFrom(item);
        return row < count && first[row].index == item ? row : count;
    }
    const auto isItem = [item](const stcElementPosition& e) { return e.type == LET_ITEM && e.index == item; };
    return static_cast<UINT>(std::find_if(first, first + count, isItem) - first);
}

UINT ListGeometry::FirstRowReaching(int64_t y) const
{
    const stcElementPosition* first = m_rows.GetData();
    const stcElementPosition* end = first + m_rows.GetLength();
    const auto isAbove = [y](const stcElementPosition& e) { return e.rect.bottom < y; };
    const stcElementPosition* found =
        m_order.fStacked ? std::partition_point(first, end, isAbove) : std::find_if_not(first, end, isAbove);
    return static_cast<UINT>(found - first);
}

int ListGeometry::RowsEnd() const
{
    const UINT count = m_rows.GetLength();
    return count ? m_rows[count - 1].rect.bottom : 0;
}

UINT ListGeometry::RunEnd(UINT row, int64_t y) const
{
    do {
        ++row;
    } while (row < m_rows.GetLength() && m_rows[row].type == LET_ITEM && !IsBelow(row, y));
    return row;
}

bool ListGeometry::IsBelow(UINT row, int64_t y) const
{
    return int64_t{m_rows[row].rect.top} + m_measures.headerArea > y;
}

bool ListGeometry::AreBelow(UINT row, int64_t y) const
{
    return m_order.fStacked && IsBelow(row, y);
}

// --- Rectangles

RECT ListGeometry::RowRect(UINT row, int64_t dx, int64_t dy) const
{
    const RECT& place = m_rows[row].rect;
    RECT rc = Shifted(place, dx, dy + m_measures.headerArea);
    // What lies above all numbers stays there.
    rc.top = place.top == INT_MIN ? INT_MIN : rc.top;
    rc.bottom = place.bottom == INT_MIN ? INT_MIN : rc.bottom;
    return rc;
}

RECT ListGeometry::CellRect(UINT row, UINT cell) const
{
    const RECT rcRow = RowRect(row);
    const RECT& rcCell = m_cells[cell].rect;
    if (m_measures.fExact && m_measures.view != GLS_DETAILS) {
        return Shifted(rcCell, rcRow.left, rcRow.top);
    }
    return {rcCell.left, rcRow.top, rcCell.right, rcRow.bottom};
}

// --- Hits

// Fixed behaviour: a place in the content has 16 bits: further down or right than that, a point hits what
// lies at the rest of the place. GetHotItem and the item of a click would else change in lists of many rows.
int ListGeometry::HitPlace(int64_t n) const
{
    return m_measures.fVirtual ? Saturated(n) : static_cast<SHORT>(n);
}

ListHit ListGeometry::HitAt(POINT pt, const ListViewport& view, int dividerReach) const
{
    if (m_measures.fExact) {
        return HitExact(pt, view, dividerReach);
    }
    if (ItemCount() == 0 || pt.x < 0 || pt.y < 0 || pt.x > view.client.cx || pt.y > view.client.cy) {
        return {};
    }
    const int x = HitPlace(int64_t{pt.x} + view.scroll.x);
    return static_cast<UINT>(pt.y) < m_measures.headerArea
               ? HitHeader(x, dividerReach)
               : HitRows(x, HitPlace(int64_t{pt.y} + view.scroll.y - m_measures.headerArea));
}

// The element at x, of which each ends where the next one, moved on by `reach`, begins.
WORD ListGeometry::CellAt(int x, int reach) const
{
    UINT cell = 0;
    while (cell + 1 < m_cells.GetLength() && x > int64_t{m_cells[cell + 1].rect.left} + reach) {
        ++cell;
    }
    return static_cast<WORD>(cell);
}

// Fixed behaviour: the far half of the last divider is out of reach, so that a click there does nothing.
ListHit ListGeometry::HitHeader(int x, int reach) const
{
    const UINT cells = m_cells.GetLength();
    if (cells == 0 || x > m_cells[cells - 1].rect.right) {
        return {LHI_HEADER};
    }
    const WORD cell = CellAt(x, reach);
    const int64_t right = m_cells[cell].rect.right;
    const bool fDivider = x > right - reach && x < right + reach;
    return {LHI_HEADER, cell, fDivider ? LHP_DIVIDER : LHP_BODY};
}

ListHit ListGeometry::HitRows(int x, int y) const
{
    ListHit hit;
    const auto holds = [y](const RECT& rc) { return rc.top < y && y <= rc.bottom; };
    for (UINT row = FirstRowReaching(y); row < m_rows.GetLength(); ++row) {
        const RECT& rc = m_rows[row].rect;
        if ((m_order.fStacked && rc.top >= y) || (holds(rc) && HitRow(hit, row, x))) {
            break;
        }
    }
    return hit;
}

// Whether the row ends the search, with or without a hit.
bool ListGeometry::HitRow(ListHit& hit, UINT row, int x) const
{
    const stcElementPosition& element = m_rows[row];
    const bool fInside = x <= element.rect.right;
    if (element.type == LET_GROUP) {
        // Fixed behaviour: the group's index stands where an item's does, so that the pointer on a group's
        // row acts on the item of that number. Clicks on group rows would else send no NM_CLICK.
        if (fInside && element.index < m_groups.GetLength()) {
            hit = {element.index, ListHit::NO_PART, LHP_BODY};
        }
        return true;
    }
    if (m_measures.view == GLS_ICONS) {
        return HitIcon(hit, row, x);
    }
    if (fInside && element.index < ItemCount()) {
        hit = HitCell(element.index, x);
    }
    return true;
}

// Fixed behaviour: the comparisons let no icon be hit while it lies where its elements do, and beyond the
// three elements of an icon nothing is hit. Icons would else light up, and clicks on them tell.
bool ListGeometry::HitIcon(ListHit& hit, UINT row, int x) const
{
    const stcElementPosition& element = m_rows[row];
    const bool fHit = element.index < ItemCount() && row < m_cells.GetLength() &&
                      m_cells[row].rect.left >= x && element.rect.right < x;
    if (fHit) {
        hit = {element.index, ListHit::NO_PART, LHP_BODY};
    }
    return fHit;
}

ListHit ListGeometry::HitCell(UINT item, int x) const
{
    if (m_measures.fCheckBoxes && m_cells.GetLength() > 0 && x < m_cells[0].rect.left) {
        return {item, ListHit::NO_PART, LHP_CHECKBOX};
    }
    return {item, CellAt(x, 0), LHP_BODY};
}

// --- What the keyboard goes by

bool ListGeometry::ReachesPageUp(const ListItem& item, const ListItem& from, UINT page) const
{
    const UINT start = static_cast<UINT>(item.rcItem.top) - m_measures.spacingY - m_measures.itemHeight;
    return static_cast<UINT>(from.rcItem.bottom) > start + page && item.column == from.column;
}

bool ListGeometry::ReachesPageDown(const ListItem& item, const ListItem& from, UINT page) const
{
    const int64_t end = int64_t{item.rcItem.bottom} - page + m_measures.spacingY + m_measures.itemHeight;
    return from.rcItem.top < end && item.column == from.column;
}

UINT ListGeometry::PageUpFrom(UINT item, UINT page) const
{
    if (item >= m_items.GetLength()) {
        return 0;
    }
    const ListItem& from = *m_items[item];
    UINT to = item;
    while (to != NO_INDEX && !ReachesPageUp(*m_items[to], from, page)) {
        --to;
    }
    to = to == NO_INDEX ? from.column : to;
    return to == item ? 0 : to;
}

UINT ListGeometry::PageDownFrom(UINT item, UINT page) const
{
    const UINT last = m_items.GetLength() - 1;
    if (item >= m_items.GetLength()) {
        return last;
    }
    const ListItem& from = *m_items[item];
    UINT to = item;
    while (to < last && !ReachesPageDown(*m_items[to], from, page)) {
        ++to;
    }
    while (to == last && to > 0 && m_items[to]->column != from.column) {
        --to;
    }
    return to == item ? last : to;
}

std::optional<int64_t> ListGeometry::PositionOfEnd(UINT item, int position, UINT page) const
{
    const int64_t height = int64_t{m_measures.itemHeight} + m_measures.spacingY;
    const int64_t row = m_items[item]->row;
    const int64_t end = int64_t{m_measures.headerArea} - m_measures.spacingY + (row + 1) * height;
    return end > int64_t{position} + page ? std::optional(end - page) : std::nullopt;
}

std::optional<int64_t> ListGeometry::PositionOfStart(UINT item, int position, UINT headerGap) const
{
    const int64_t height = int64_t{m_measures.itemHeight} + m_measures.spacingY;
    const int64_t row = m_items[item]->row;
    const int64_t top = row == 0 ? 0 : row * height - 2 * int64_t{m_measures.spacingY} + headerGap;
    return row == 0 || top < position ? std::optional(top) : std::nullopt;
}

// --- Check

bool ListGeometry::IsStacked() const
{
    int64_t y = 0;
    return std::all_of(m_rows.begin(), m_rows.end(), [&y](const stcElementPosition& row) {
        const bool fFollows = row.rect.top == y && row.rect.bottom >= y;
        y = row.rect.bottom;
        return fFollows;
    });
}

bool ListGeometry::IsAscending() const
{
    int64_t before = -1;
    return std::all_of(m_rows.begin(), m_rows.end(), [&before](const stcElementPosition& row) {
        const bool fBehind = row.type != LET_ITEM || row.index > before;
        before = row.type == LET_ITEM ? row.index : before;
        return fBehind;
    });
}

bool ListGeometry::Check() const
{
    const auto isKnown = [this](const stcElementPosition& row) {
        return row.type == LET_ITEM || (row.type == LET_GROUP && row.index < m_order.groupRowsEnd);
    };
    return (!m_order.fStacked || IsStacked()) &&
           (!m_order.fAscending || (IsAscending() && std::all_of(m_rows.begin(), m_rows.end(), isKnown)));
}

} // namespace gesso
