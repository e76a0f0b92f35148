#include <gesso/framework/Saturate.h>
#include <gesso/list/ListLayout.h>
#include <gesso/list/VirtualRows.h>

#include <algorithm>
#include <new>

namespace gesso {

// --- The numbers

void VirtualRows::SetCount(UINT count)
{
    m_count = std::min(count, MOST);
    m_groupCounts.clear();
}

void VirtualRows::SetGroupCount(UINT group, UINT count)
{
    if (group < m_groupCounts.size() || SetGroups(group + size_t{1})) {
        m_groupCounts[group] = count;
    }
}

// False without memory.
bool VirtualRows::SetGroups(size_t groups)
{
    try {
        m_groupCounts.resize(groups);
        m_blocks.reserve(groups + 1);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void VirtualRows::ForgetGroup(UINT group)
{
    if (group < m_groupCounts.size()) {
        m_groupCounts.erase(m_groupCounts.begin() + group);
    }
}

// To what there are items for.
void VirtualRows::CutGroupCounts()
{
    UINT left = m_count;
    for (UINT& count : m_groupCounts) {
        count = std::min(count, left);
        left -= count;
    }
}

UINT VirtualRows::Insert(UINT first, UINT count)
{
    if (first > m_count) {
        return 0;
    }
    count = std::min(count, MOST - m_count);
    CutGroupCounts();
    UINT* holder = nullptr;
    UINT end = 0;
    for (UINT& group : m_groupCounts) {
        holder = end <= first ? &group : holder;
        end += group;
    }
    // What stands behind the last group stays behind it.
    const bool fBehind = first > end || (first == end && end < m_count);
    if (holder && !fBehind) {
        *holder += count;
    }
    m_count += count;
    return count;
}

UINT VirtualRows::Erase(UINT first, UINT count)
{
    if (first >= m_count) {
        return 0;
    }
    count = std::min(count, m_count - first);
    CutGroupCounts();
    UINT start = 0;
    for (UINT& group : m_groupCounts) {
        const UINT end = start + group;
        const UINT from = std::max(start, first);
        const UINT to = std::min(end, first + count);
        group -= from < to ? to - from : 0;
        start = end;
    }
    m_count -= count;
    return count;
}

// --- Layout

void VirtualRows::Place(const ListMeasures& measures, UINT groups)
{
    const bool fLines = measures.view == GLS_ICONS;
    m_spacingX = fLines ? Saturated(measures.spacingX) : 0;
    m_spacingY = fLines ? Saturated(measures.spacingY) : 0;
    m_itemCx = fLines ? Saturated(measures.itemWidth) : Saturated(measures.columnsWidth);
    m_width = fLines ? std::max(measures.linesWidth, 0) : m_itemCx;
    m_pitchX = std::max<int64_t>(m_itemCx + m_spacingX, 1);
    const int64_t itemHeight = std::max<int64_t>(Saturated(measures.itemHeight), 1);
    m_pitchY = std::min<int64_t>(itemHeight + m_spacingY, INT_MAX);
    const int64_t room = m_width - m_spacingX - m_itemCx; // behind the first of a line
    m_perLine = fLines && room > 0 ? room / m_pitchX + 1 : 1;
    m_fGroups = groups > 0;
    m_groupHeight = m_fGroups ? Saturated(measures.groupHeight) : 0;
    if (!SetGroups(groups)) {
        groups = static_cast<UINT>(std::min(m_groupCounts.size(), m_blocks.capacity() - 1));
    }
    PlaceBlocks(groups);
}

// Groups behind the last item have no row, but for the first of all.
void VirtualRows::PlaceBlocks(UINT groups)
{
    m_blocks.assign(1, {0, 0});
    UINT end = 0;
    int64_t lines = 0;
    for (UINT group = 0; group < groups && (group == 0 || end < m_count); ++group) {
        if (group > 0) {
            m_blocks.push_back({end, lines});
        }
        const UINT items = std::min(m_groupCounts[group], m_count - end);
        end += items;
        lines += LinesOf(items);
    }
    m_groupedEnd = m_fGroups ? end : m_count;
    m_lines = m_blocks.back().firstLine + LinesOf(m_count - m_blocks.back().firstItem);
}

int64_t VirtualRows::TopOf(size_t block) const
{
    return static_cast<int64_t>(block) * m_groupHeight + m_blocks[block].firstLine * m_pitchY;
}

UINT VirtualRows::EndOf(size_t block) const
{
    return block + 1 < m_blocks.size() ? m_blocks[block + 1].firstItem : m_count;
}

int64_t VirtualRows::End() const
{
    return static_cast<int64_t>(m_blocks.size()) * m_groupHeight + m_lines * m_pitchY;
}

// The last block that begins there or further up.
size_t VirtualRows::BlockAt(int64_t y) const
{
    size_t low = 0;
    size_t high = m_blocks.size();
    while (high - low > 1) {
        const size_t middle = low + (high - low) / 2;
        (TopOf(middle) <= y ? low : high) = middle;
    }
    return low;
}

size_t VirtualRows::BlockOf(UINT item) const
{
    const auto behind = std::upper_bound(m_blocks.begin(), m_blocks.end(), item,
                                         [](UINT n, const Block& block) { return n < block.firstItem; });
    return static_cast<size_t>(behind - m_blocks.begin()) - 1;
}

VirtualRows::Span VirtualRows::PlaceOf(UINT item) const
{
    const size_t block = BlockOf(item);
    const int64_t line = (int64_t{item} - m_blocks[block].firstItem) / m_perLine;
    const int64_t top = LinesTop(block) + line * m_pitchY;
    return {top + m_spacingY, top + m_pitchY};
}

UINT VirtualRows::ItemReaching(int64_t y) const
{
    const size_t block = BlockAt(y);
    const int64_t line = std::max<int64_t>(y - LinesTop(block), 0) / m_pitchY;
    const int64_t item = m_blocks[block].firstItem + line * m_perLine;
    return static_cast<UINT>(std::min<int64_t>(item, EndOf(block)));
}

UINT VirtualRows::GroupOf(UINT item) const
{
    return item < m_groupedEnd ? static_cast<UINT>(BlockOf(item)) : NO_INDEX;
}

VirtualRows::Span VirtualRows::PlaceOfGroup(UINT group) const
{
    return m_fGroups && group < m_blocks.size() ? Span{TopOf(group), LinesTop(group)} : Span{0, 0};
}

// --- The rows themselves

bool VirtualRows::AddRow(ListRows& rows, UINT type, UINT index, const Area& area, int64_t origin) const
{
    const UINT count = rows.GetLength();
    if (!ReserveRows(rows, count + 1)) {
        return false;
    }
    rows.SetLength(count + 1, -1);
    rows[count] = {type,
                   index,
                   {Saturated(area.left), Saturated(area.top - origin), Saturated(area.right),
                    Saturated(area.bottom - origin)}};
    return true;
}

// False at the end, and without memory.
bool VirtualRows::CutBlock(size_t block, int64_t from, int64_t to, int64_t origin, ListRows& rows) const
{
    const int64_t top = TopOf(block);
    const int64_t lines = LinesTop(block);
    if (top > to) {
        return false;
    }
    if (m_fGroups && lines >= from &&
        !AddRow(rows, LET_GROUP, static_cast<UINT>(block), {0, top, m_width, lines}, origin))
    {
        return false;
    }
    const int64_t first = m_blocks[block].firstItem;
    for (int64_t line = std::max<int64_t>(from - lines, 0) / m_pitchY; lines + line * m_pitchY <= to; ++line)
    {
        const int64_t item = first + line * m_perLine;
        const int64_t y = lines + line * m_pitchY;
        for (int64_t k = 0; k < m_perLine && item + k < EndOf(block); ++k) {
            const int64_t x = m_spacingX + k * m_pitchX;
            if (!AddRow(rows, LET_ITEM, static_cast<UINT>(item + k),
                        {x, y + m_spacingY, x + m_itemCx, y + m_pitchY}, origin))
            {
                return false;
            }
        }
        if (item + m_perLine >= EndOf(block)) {
            break;
        }
    }
    return true;
}

void VirtualRows::Cut(int64_t from, int64_t to, int64_t origin, ListRows& rows) const
{
    rows.SetLength(0, -1);
    from -= m_groupHeight + m_pitchY + 1;
    to += m_groupHeight + m_pitchY + 1;
    size_t block = BlockAt(from);
    // Groups of no height share a place.
    while (block > 0 && TopOf(block) >= from) {
        --block;
    }
    while (block < m_blocks.size() && CutBlock(block, from, to, origin, rows)) {
        ++block;
    }
}

// Of a block, those that reach into a stretch.
VirtualRows::LineSpan VirtualRows::LinesIn(size_t block, int64_t top, int64_t bottom) const
{
    const int64_t start = LinesTop(block);
    const int64_t first = std::max<int64_t>(top - start, 0) / m_pitchY;
    const int64_t end = std::min((bottom - start - m_spacingY + m_pitchY - 1) / m_pitchY,
                                 LinesOf(EndOf(block) - m_blocks[block].firstItem));
    return {first, std::max(first, end)};
}

bool VirtualRows::VisitTouched(const Area& area, const std::function<void(UINT, UINT)>& visit) const
{
    const auto across = [this](int64_t x) {
        return std::clamp<int64_t>(x <= 0 ? 0 : (x + m_pitchX - 1) / m_pitchX, 0, m_perLine);
    };
    const int64_t kEnd = across(area.right - m_spacingX);
    const int64_t kFirst = std::min<int64_t>(std::max<int64_t>(area.left, 0) / m_pitchX, kEnd);
    if (kFirst == kEnd) {
        return true;
    }
    const size_t firstBlock = BlockAt(area.top);
    size_t blockEnd = firstBlock;
    int64_t lines = 0;
    while (blockEnd < m_blocks.size() && LinesTop(blockEnd) + m_spacingY < area.bottom) {
        const LineSpan span = LinesIn(blockEnd++, area.top, area.bottom);
        lines += span.end - span.first;
    }
    const bool fWhole = kFirst == 0 && kEnd == m_perLine;
    if (!fWhole && lines > MOST_TOUCHED) {
        return false;
    }
    for (size_t block = firstBlock; block < blockEnd; ++block) {
        const LineSpan span = LinesIn(block, area.top, area.bottom);
        const int64_t first = m_blocks[block].firstItem;
        const auto item = [&](int64_t n) {
            return static_cast<UINT>(std::min<int64_t>(first + n, EndOf(block)));
        };
        if (fWhole && span.first < span.end) {
            visit(item(span.first * m_perLine), item(span.end * m_perLine));
        }
        for (int64_t line = span.first; !fWhole && line < span.end; ++line) {
            visit(item(line * m_perLine + kFirst), item(line * m_perLine + kEnd));
        }
    }
    return true;
}

// --- Pages

UINT VirtualRows::PageUpFrom(UINT item, int64_t page) const
{
    if (item >= m_count) {
        return 0;
    }
    const int64_t limit = PlaceOf(item).bottom + m_pitchY - page;
    UINT to = std::min(ItemReaching(limit - 1), item);
    if (to > 0 && PlaceOf(to).top >= limit) {
        --to;
    }
    return to == item ? 0 : to;
}

UINT VirtualRows::PageDownFrom(UINT item, int64_t page) const
{
    const UINT last = m_count - 1;
    if (item >= m_count) {
        return last;
    }
    const UINT to = std::min(std::max(ItemReaching(PlaceOf(item).top + page - m_pitchY), item), last);
    return to == item ? last : to;
}

// --- Check

bool VirtualRows::Check() const
{
    int64_t lines = 0;
    for (size_t block = 0; block < m_blocks.size(); ++block) {
        const UINT first = m_blocks[block].firstItem;
        if (m_blocks[block].firstLine != lines || first > EndOf(block)) {
            return false;
        }
        lines += LinesOf(EndOf(block) - first);
    }
    return m_blocks.front().firstItem == 0 && m_lines == lines && m_groupedEnd <= m_count;
}

} // namespace gesso
