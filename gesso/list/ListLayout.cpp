#include <gesso/framework/Saturate.h>
#include <gesso/list/ListLayout.h>

#include <algorithm>

namespace gesso {
namespace {

int Below(int y, UINT height)
{
    return Saturated(int64_t{y} + height);
}

void Move(stcElementPosition& row, int64_t dy)
{
    row.rect.top = Saturated(row.rect.top + dy);
    row.rect.bottom = Saturated(row.rect.bottom + dy);
}

bool AreAlike(const stcElementPosition& a, const stcElementPosition& b)
{
    return a.type == b.type && a.index == b.index && EqualRect(&a.rect, &b.rect);
}

// The walk that places the rows of groups and items, top down, in the order in which they stand in their
// arrays.
class Placing
{
public:
    // `rows` are as many as there may be.
    Placing(ListRows& rows, const ListMeasures& measures)
        : m_rows(rows), m_right(Saturated(measures.columnsWidth)), m_item{Saturated(measures.itemWidth),
                                                                          Saturated(measures.itemHeight)},
          m_spacing{Saturated(measures.spacingX), Saturated(measures.spacingY)}
    {}
    ~Placing() { m_rows.SetLength(static_cast<UINT>(m_next - m_rows.GetData()), -1); }
    Placing(const Placing&) = delete;
    Placing& operator=(const Placing&) = delete;

    void AddGroup(UINT group, UINT height)
    {
        m_y = Below(m_y, height);
        m_bottom = m_end = m_y;
        Append(LET_GROUP, group);
        m_top = m_y;
    }

    void AddRow(UINT item)
    {
        m_y = Below(m_y, static_cast<UINT>(m_item.cy));
        m_bottom = m_end = m_y;
        Append(LET_ITEM, item);
        m_top = m_y;
    }

    void StartIcons() { m_x = 0U - static_cast<UINT>(m_spacing.cx) - static_cast<UINT>(m_item.cx) - 1; }

    // Fixed behaviour: the first icon of a group opens a row; from then on there is always room, so that all
    // icons of a group lie in one cell, of which the first has the right edge of what came before. What
    // follows a group begins just below the top of its cell. Every picture of icons would else change.
    void AddIcon(UINT item, bool fLastOfGroup)
    {
        const auto cx = static_cast<UINT>(m_item.cx);
        const auto spacingX = static_cast<UINT>(m_spacing.cx);
        const auto spacingY = static_cast<UINT>(m_spacing.cy);
        if (cx + spacingX + m_x > static_cast<UINT>(m_right)) {
            m_y = m_top = Below(m_end, spacingY);
            m_bottom = Below(m_y, static_cast<UINT>(m_item.cy));
            m_x = 0U - spacingX;
        }
        Append(LET_ITEM, item);
        m_left = static_cast<int>(spacingX + m_x);
        m_right = Below(m_left, cx);
        m_bottom = m_end = Below(m_y, static_cast<UINT>(m_item.cy));
        if (fLastOfGroup) {
            m_y = m_end = m_bottom = Below(m_y, spacingY);
        }
        m_top = m_y;
    }

    int End() const { return m_end; }

private:
    void Append(UINT type, UINT index) { *m_next++ = {type, index, {m_left, m_top, m_right, m_bottom}}; }

    ListRows& m_rows;
    stcElementPosition* m_next = m_rows.GetData();
    int m_left = 0;
    int m_top = 0;
    int m_right;
    int m_bottom = 0;
    int m_y = 0;
    int m_end = 0; // of the rows
    UINT m_x = 0;  // wraps
    SIZE m_item;
    SIZE m_spacing;
};

// The same for lists made in Modern whose items lie side by side: each in a cell of its own, in lines.
class LinePlacing
{
public:
    LinePlacing(ListRows& rows, const ListMeasures& measures)
        : m_rows(rows), m_width(std::max(measures.linesWidth, 0)), m_item{Saturated(measures.itemWidth),
                                                                          Saturated(measures.itemHeight)},
          m_spacing{Saturated(measures.spacingX), Saturated(measures.spacingY)}
    {}
    ~LinePlacing() { m_rows.SetLength(m_count, -1); }
    LinePlacing(const LinePlacing&) = delete;
    LinePlacing& operator=(const LinePlacing&) = delete;

    void AddGroup(UINT group, UINT height)
    {
        const int bottom = Below(m_end, height);
        Append({LET_GROUP, group, {0, m_end, m_width, bottom}});
        m_end = bottom;
        m_right = m_width; // a line of its own
    }

    // One at least in each line.
    void AddItem(UINT item)
    {
        const int64_t left = int64_t{m_right} + m_spacing.cx;
        const bool fNewLine = m_count == 0 || left + m_item.cx > m_width;
        if (fNewLine) {
            m_top = Saturated(int64_t{m_end} + m_spacing.cy);
            m_end = Saturated(int64_t{m_top} + m_item.cy);
        }
        const int x = fNewLine ? m_spacing.cx : Saturated(left);
        m_right = Saturated(int64_t{x} + m_item.cx);
        Append({LET_ITEM, item, {x, m_top, m_right, m_end}});
    }

    int End() const { return m_end; }

private:
    void Append(const stcElementPosition& row) { m_rows[m_count++] = row; }

    ListRows& m_rows;
    UINT m_count = 0;
    int m_width;
    int m_right = 0; // of the last cell
    int m_top = 0;   // of the line
    int m_end = 0;   // of the rows
    SIZE m_item;
    SIZE m_spacing;
};

} // namespace

bool ReserveRows(ListRows& rows, UINT count)
{
    const UINT room = rows.GetBufferLength();
    return count <= room || rows.AllocExtra(std::max(count, room + room / 2));
}

int ListLayout::Place()
{
    const bool fIcons = m_measures.view == GLS_ICONS;
    const UINT groupCount = m_groups.GetLength();
    const UINT itemCount = m_items.GetLength();
    if (!ReserveRows(m_placed, groupCount + itemCount)) {
        m_known.fCurrent = false;
        return RowsEnd();
    }
    m_placed.SetLength(groupCount + itemCount, -1);
    m_known = {true, !fIcons, true, groupCount};
    return fIcons && m_measures.fExact ? PlaceLines() : PlaceRows();
}

int ListLayout::PlaceLines()
{
    LinePlacing placing(m_placed, m_measures);
    Walk(
        [&](UINT group) {
            if (group != NO_INDEX) {
                placing.AddGroup(group, m_measures.groupHeight);
            }
        },
        [&](UINT item, bool) { placing.AddItem(item); });
    return placing.End();
}

int ListLayout::PlaceRows()
{
    const bool fIcons = m_measures.view == GLS_ICONS;
    Placing placing(m_placed, m_measures);
    Walk(
        [&](UINT group) {
            if (group != NO_INDEX) {
                placing.AddGroup(group, m_measures.groupHeight);
            }
            placing.StartIcons();
        },
        [&](UINT item, bool fLastOfGroup) {
            fIcons ? placing.AddIcon(item, fLastOfGroup) : placing.AddRow(item);
        });
    return placing.End();
}

// Fixed behaviour: in Classic an item with the id of a group has no row while there are no groups, but for
// one that was just inserted. Lists whose groups come later would else show their items before.
bool ListLayout::IgnoresIds() const
{
    return m_measures.fExact && m_groups.GetLength() == 0;
}

// Visits the groups, each with its items behind it. What is started with no group goes on with the last one.
template <class START, class ITEM> void ListLayout::Walk(START start, ITEM addItem)
{
    const UINT groupCount = m_groups.GetLength();
    const UINT itemCount = m_items.GetLength();
    UINT id = 0;
    UINT i = 0;
    if (IgnoresIds()) {
        start(NO_INDEX);
        for (; i < itemCount; ++i) {
            addItem(i, i + 1 == itemCount);
        }
        return;
    }
    for (UINT g = 0; g == 0 || i < itemCount; ++g) {
        if (g < groupCount) {
            id = m_groups[g]->group;
        } else if (g > 0) {
            ++i;
        }
        start(g < groupCount ? g : NO_INDEX);
        for (; i < itemCount && m_items[i]->group == id; ++i) {
            addItem(i, i + 1 == itemCount || m_items[i + 1]->group != id);
        }
    }
}

UINT ListLayout::Insert(UINT item)
{
    const UINT count = m_placed.GetLength();
    if (!ReserveRows(m_placed, count + 1)) {
        m_known.fCurrent = false;
        return count;
    }
    if (count == 0) {
        m_known = {m_known.fCurrent, true, true, 0};
    }
    const UINT row = RowFrom(item);
    const bool fPlain = m_known.groupRowsEnd == 0 && m_groups.GetLength() == 0;
    // Where nothing before the row can have such an index, the walk begins there.
    for (UINT k = m_known.fAscending && m_known.groupRowsEnd <= item ? row : 0; k < count; ++k) {
        m_placed[k].index += m_placed[k].index >= item ? 1 : 0;
    }
    m_known.groupRowsEnd += m_known.groupRowsEnd > item ? 1 : 0;

    const int y = row > 0 ? m_placed[row - 1].rect.bottom : 0;
    m_placed.InsertAt(row, {LET_ITEM, row, {0, y, Saturated(m_measures.columnsWidth), y}});
    m_known.fAscending = m_known.fAscending && IsInOrder(row);
    m_known.fCurrent =
        m_known.fCurrent && fPlain && row == item && (m_items[item]->group == 0 || IgnoresIds());
    return row;
}

// Whether a row's index lies between those of the items' rows around it.
bool ListLayout::IsInOrder(UINT row) const
{
    UINT before = row;
    while (before > 0 && m_placed[before - 1].type != LET_ITEM) {
        --before;
    }
    UINT behind = row + 1;
    while (behind < m_placed.GetLength() && m_placed[behind].type != LET_ITEM) {
        ++behind;
    }
    return (before == 0 || m_placed[before - 1].index < m_placed[row].index) &&
           (behind == m_placed.GetLength() || m_placed[behind].index > m_placed[row].index);
}

bool ListLayout::Fit(UINT row)
{
    RECT& rc = m_placed[row].rect;
    const int bottom = Below(rc.top, m_measures.itemHeight);
    const int64_t dy = int64_t{bottom} - rc.bottom;
    rc.bottom = bottom;
    for (UINT below = row + 1; dy != 0 && below < m_placed.GetLength(); ++below) {
        Move(m_placed[below], dy);
    }
    return dy != 0;
}

void ListLayout::Stamp(UINT first)
{
    const UINT cells = m_cells.GetLength();
    if (m_measures.view == GLS_DETAILS) {
        Stamp(first, cells ? m_cells[cells - 1].rect.right : 0);
    } else if (m_measures.view == GLS_TILES) {
        Stamp(first, Saturated(m_measures.itemWidth));
    }
}

void ListLayout::Stamp(UINT first, int right)
{
    for (UINT i = first; i < m_items.GetLength(); ++i) {
        const int64_t top = int64_t{i} * m_measures.itemHeight;
        m_items[i]->rcItem = {0, Saturated(top), right, Saturated(top + m_measures.itemHeight)};
        m_items[i]->row = i;
    }
}

bool ListLayout::Check() const
{
    if (!m_known.fCurrent) {
        return ListGeometry::Check();
    }
    ListRows rows;
    RowOrder order;
    ListLayout(m_measures, m_items, m_groups, m_cells, rows, order).Place();
    return ListGeometry::Check() &&
           std::equal(rows.begin(), rows.end(), m_placed.begin(), m_placed.end(), AreAlike);
}

} // namespace gesso
