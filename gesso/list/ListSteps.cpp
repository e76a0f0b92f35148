// Where the keys of Modern lead.

#include <gesso/list/ListGeometry.h>

#include <algorithm>

namespace gesso {

// Rows of groups, and those that stand for no item, are stepped over.
UINT ListGeometry::ItemOfRow(UINT row, UINT none) const
{
    const stcElementPosition& element = m_rows[row];
    return element.type == LET_ITEM && element.index < m_items.GetLength() ? element.index : none;
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

UINT ListGeometry::ItemPageAbove(UINT item, int page) const
{
    const UINT from = RowOf(item);
    if (from >= m_rows.GetLength()) {
        return item;
    }
    const int64_t start = int64_t{m_rows[from].rect.bottom} - page;
    for (UINT row = FirstRowReaching(start); row < from; ++row) {
        if (m_rows[row].rect.top >= start && m_rows[row].type == LET_ITEM) {
            return ItemOfRow(row, item);
        }
    }
    for (UINT row = from; row-- > 0;) {
        if (m_rows[row].type == LET_ITEM) {
            return ItemOfRow(row, item);
        }
    }
    return item;
}

UINT ListGeometry::ItemPageBelow(UINT item, int page) const
{
    const UINT count = m_rows.GetLength();
    const UINT from = RowOf(item);
    if (from >= count) {
        return item;
    }
    const int64_t end = int64_t{m_rows[from].rect.top} + page;
    for (UINT row = std::min(FirstRowReaching(end + 1), count); row-- > from + 1;) {
        if (m_rows[row].type == LET_ITEM) {
            return ItemOfRow(row, item);
        }
    }
    for (UINT row = from + 1; row < count; ++row) {
        if (m_rows[row].type == LET_ITEM) {
            return ItemOfRow(row, item);
        }
    }
    return item;
}

} // namespace gesso
