// Where the keys of Modern lead.

#include <gesso/list/ListGeometry.h>

#include <algorithm>

namespace gesso {

// Rows of groups, and those that stand for no item, are stepped over.
UINT ListGeometry::ItemOfRow(UINT row, UINT none) const
{
    const stcElementPosition& element = m_rows[row];
    return element.type == LET_ITEM && element.index < ItemCount() ? element.index : none;
}

UINT ListGeometry::ItemAbove(UINT item) const
{
    const UINT from = RowOf(item);
    if (from >= m_rows.GetLength()) {
        return item;
    }
    const RECT& rc = m_rows[from].rect;
    for (UINT row = from; row-- > 0;) {
        const RECT& rcRow = m_rows[row].rect;
        if (rcRow.top < rc.top && rcRow.left <= rc.left && m_rows[row].type == LET_ITEM) {
            return ItemOfRow(row, item);
        }
    }
    return item;
}

// The last one of a shorter line.
UINT ListGeometry::ItemBelow(UINT item) const
{
    const UINT from = RowOf(item);
    UINT below = item;
    LONG line = 0;
    for (UINT row = from; row < m_rows.GetLength(); ++row) {
        const RECT& rcRow = m_rows[row].rect;
        if (m_rows[row].type != LET_ITEM || rcRow.top <= m_rows[from].rect.top) {
            continue;
        }
        if (below != item && (rcRow.top != line || rcRow.left > m_rows[from].rect.left)) {
            break;
        }
        line = rcRow.top;
        below = ItemOfRow(row, below);
    }
    return below;
}

// Of the items in the line of a row the last one that begins no further right than `left`.
UINT ListGeometry::InLineOf(UINT row, LONG left, UINT none) const
{
    const LONG top = m_rows[row].rect.top;
    const auto isInLine = [&](UINT k) { return m_rows[k].type == LET_ITEM && m_rows[k].rect.top == top; };
    while (row > 0 && isInLine(row - 1)) {
        --row;
    }
    UINT found = none;
    for (UINT k = row; k < m_rows.GetLength() && isInLine(k); ++k) {
        found = k == row || m_rows[k].rect.left <= left ? ItemOfRow(k, found) : found;
    }
    return found;
}

UINT ListGeometry::ItemPageAbove(UINT item, int page) const
{
    const UINT from = RowOf(item);
    if (from >= m_rows.GetLength()) {
        return item;
    }
    const RECT& rc = m_rows[from].rect;
    const int64_t start = int64_t{rc.bottom} - page;
    for (UINT row = FirstRowReaching(start); row < from && m_rows[row].rect.top < rc.top; ++row) {
        if (m_rows[row].rect.top >= start && m_rows[row].type == LET_ITEM) {
            return InLineOf(row, rc.left, item);
        }
    }
    return ItemAbove(item);
}

UINT ListGeometry::ItemPageBelow(UINT item, int page) const
{
    const UINT count = m_rows.GetLength();
    const UINT from = RowOf(item);
    if (from >= count) {
        return item;
    }
    const RECT& rc = m_rows[from].rect;
    const int64_t end = int64_t{rc.top} + page;
    for (UINT row = std::min(FirstRowReaching(end + 1), count); row-- > from + 1;) {
        if (m_rows[row].type == LET_ITEM && m_rows[row].rect.top > rc.top) {
            return InLineOf(row, rc.left, item);
        }
    }
    return ItemBelow(item);
}

int64_t ListGeometry::StartOf(UINT row, int64_t room) const
{
    const RECT& rc = m_rows[row].rect;
    const bool fAfterGroup = row > 0 && m_rows[row - 1].type == LET_GROUP;
    const bool fFirst = row == 0 || (row == 1 && fAfterGroup);
    const int64_t start = fFirst ? 0 : fAfterGroup ? m_rows[row - 1].rect.top : rc.top;
    return rc.bottom - start <= room ? start : rc.top;
}

} // namespace gesso
