// What a point hits of a list made in Modern: what is drawn there.

#include <gesso/list/ListGeometry.h>

#include <algorithm>

namespace gesso {
namespace {

bool Holds(const RECT& rc, int64_t x, int64_t y)
{
    return rc.left <= x && x < rc.right && rc.top <= y && y < rc.bottom;
}

} // namespace

// The rows of groups are empty room.
ListHit ListGeometry::HitExact(POINT pt, const ListViewport& view, int reach) const
{
    if (!Holds({0, 0, view.client.cx, view.client.cy}, pt.x, pt.y)) {
        return {};
    }
    const int64_t x = int64_t{pt.x} + view.scroll.x;
    if (static_cast<UINT>(pt.y) < m_measures.headerHeight) {
        return HitExactHeader(x, reach);
    }
    const int64_t y = int64_t{pt.y} + view.scroll.y - m_measures.headerArea;
    // Rows that end below the header are not drawn.
    const int64_t first = std::max<int64_t>(y, view.scroll.y) + 1;
    for (UINT row = FirstRowReaching(first); row < m_rows.GetLength(); ++row) {
        const RECT& rc = m_rows[row].rect;
        if (m_order.fStacked && rc.top > y) {
            break;
        }
        if (Holds(rc, x, y) && rc.bottom >= first) {
            return HitExactCell(row, x, y);
        }
    }
    return {};
}

// A divider reaches to both of its sides; the far one is that of the columns without width that lie there,
// which are drawn out again by it. The check boxes' element has none.
ListHit ListGeometry::HitExactHeader(int64_t x, int reach) const
{
    const UINT cells = m_cells.GetLength();
    if (cells == 0 || x >= int64_t{m_cells[cells - 1].rect.right} + reach) {
        return {LHI_HEADER};
    }
    UINT cell = 0;
    while (cell + 1 < cells && x >= m_cells[cell + 1].rect.left &&
           (x >= int64_t{m_cells[cell].rect.right} + reach || m_cells[cell].column == NO_INDEX))
    {
        ++cell;
    }
    const int64_t right = m_cells[cell].rect.right;
    const bool fDivider = x > right - reach && m_cells[cell].column != NO_INDEX;
    while (fDivider && x >= right && cell + 1 < cells && m_cells[cell + 1].rect.right == right) {
        ++cell;
    }
    return {LHI_HEADER, static_cast<WORD>(cell), fDivider ? LHP_DIVIDER : LHP_BODY};
}

// The element that lies on top; beside all of them just the item.
ListHit ListGeometry::HitExactCell(UINT row, int64_t x, int64_t y) const
{
    const stcElementPosition& element = m_rows[row];
    if (element.type != LET_ITEM || element.index >= ItemCount()) {
        return {};
    }
    ListHit hit{element.index, ListHit::NO_PART, LHP_BODY};
    for (UINT cell = 0; cell < m_cells.GetLength(); ++cell) {
        const RECT& rc = m_cells[cell].rect;
        const bool fHit = m_measures.view == GLS_DETAILS
                              ? rc.left <= x - element.rect.left
                              : Holds(rc, x - element.rect.left, y - element.rect.top);
        hit.subItem = fHit ? static_cast<WORD>(cell) : hit.subItem;
    }
    return hit;
}

} // namespace gesso
