// Where the rows of groups and items lie, and how far the content reaches. Painting and hit-testing both go
// by the elements that are made here.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/list/GList.h>
#include <gesso/list/Saturate.h>

#include <algorithm>
#include <utility>

using gesso::Saturated;

namespace {

using Elements = OArray<stcElementPosition, stcElementPosition const&>;

int Below(int y, UINT height)
{
    return Saturated(int64_t{y} + height);
}

void Move(stcElementPosition& element, int64_t dy)
{
    element.rect.top = Saturated(element.rect.top + dy);
    element.rect.bottom = Saturated(element.rect.bottom + dy);
}

void Reserve(Elements& elements, UINT count)
{
    if (count > elements.GetBufferLength()) {
        elements.AllocExtra(std::max(count, elements.GetLength() + elements.GetLength() / 2));
    }
}

// The walk that places the rows of groups and items, top down, in the order in which they stand in their
// arrays.
class Placing
{
public:
    // `nMost` is how many rows there may be.
    Placing(Elements& elements, UINT nMost, UINT right, SIZE item, SIZE spacing)
        : m_elements(elements), m_right(Saturated(right)), m_item(item), m_spacing(spacing)
    {
        Reserve(elements, nMost);
        elements.SetLength(nMost, -1);
        m_next = elements.GetData();
    }
    ~Placing() { m_elements.SetLength(static_cast<UINT>(m_next - m_elements.GetData()), -1); }
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

    Elements& m_elements;
    stcElementPosition* m_next;
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

} // namespace

// --- The whole layout

void GList::Calculate()
{
    const int end = PlaceElements();
    m_fLayoutCurrent = true;
    if (SetContentHeight(end)) {
        Invalidate(1);
    }
}

// Calculate, of a change that moves no row. A bulk fill lays out at its end.
void GList::RefreshLayout()
{
    if (bulkInsert) {
        return;
    }
    if (!m_fLayoutCurrent || !m_fStacked) {
        Calculate();
        return;
    }
    if (SetContentHeight(ElementsEnd())) {
        Invalidate(1);
    }
}

// Items must stand in the order of the groups. One that matches neither the group that the walk has come to
// nor any behind it has no row.
//
// Fixed behaviour: groups behind the last item have no row. Empty groups at the end would else show, and make
// the content higher.
int GList::PlaceElements()
{
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    const UINT groupCount = groups.GetLength();
    const UINT itemCount = items.GetLength();
    Placing placing(elements, groupCount + itemCount, ColumnsWidth(),
                    {Saturated(itemWidth), Saturated(itemHeight)},
                    {Saturated(itemSpacingX), Saturated(itemSpacingY)});
    UINT id = 0;
    UINT i = 0;
    for (UINT g = 0; g == 0 || i < itemCount; ++g) {
        if (g < groupCount) {
            placing.AddGroup(g, groupHeight);
            id = groups[g]->group;
        } else if (g > 0) {
            ++i;
        }
        placing.StartIcons();
        for (; i < itemCount && items[i]->group == id; ++i) {
            if (fIcons) {
                placing.AddIcon(i, i + 1 == itemCount || items[i + 1]->group != id);
            } else {
                placing.AddRow(i);
            }
        }
    }
    m_fStacked = !fIcons;
    m_fAscending = true;
    m_groupRowsEnd = groupCount;
    return placing.End();
}

// --- One item's change

void GList::CalculateU(UINT item, bool inserted)
{
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS) {
        Calculate();
        return;
    }
    const UINT row = FirstRowFrom(item);
    if (inserted) {
        InsertRow(row, item);
    }
    if (row >= elements.GetLength() || FitRow(row)) {
        RedrawAll();
    }
}

// The first row of an item of this index or a larger one; the number of elements if there is none.
UINT GList::FirstRowFrom(UINT item) const
{
    const stcElementPosition* element = elements.GetData();
    UINT low = 0;
    UINT high = elements.GetLength();
    while (m_fAscending && low < high) {
        const UINT middle = low + (high - low) / 2;
        UINT row = middle;
        while (row < high && element[row].type != LET_ITEM) {
            ++row;
        }
        if (row == high || element[row].index >= item) {
            high = middle;
        } else {
            low = row + 1;
        }
    }
    const auto isBehind = [item](const stcElementPosition& e) {
        return e.type == LET_ITEM && e.index >= item;
    };
    return static_cast<UINT>(std::find_if(element + low, element + elements.GetLength(), isBehind) - element);
}

// The first row of this very item; the number of elements if it has none.
UINT GList::RowOf(UINT item) const
{
    const stcElementPosition* element = elements.GetData();
    const UINT count = elements.GetLength();
    if (m_fAscending) {
        const UINT row = FirstRowFrom(item);
        return row < count && element[row].index == item ? row : count;
    }
    const auto isItem = [item](const stcElementPosition& e) { return e.type == LET_ITEM && e.index == item; };
    return static_cast<UINT>(std::find_if(element, element + count, isItem) - element);
}

// Fixed behaviour: the new row's index is its place among the elements, and the indices behind it move on,
// those of groups as well: in a list with groups they are right again with the next Calculate. What a paint
// between the two shows would else change.
void GList::InsertRow(UINT row, UINT item)
{
    const UINT count = elements.GetLength();
    const bool fPlain = m_groupRowsEnd == 0 && groups.GetLength() == 0;
    // Where nothing before the row can have such an index, the walk begins there.
    for (UINT k = m_fAscending && m_groupRowsEnd <= item ? row : 0; k < count; ++k) {
        elements[k].index += elements[k].index >= item ? 1 : 0;
    }
    m_groupRowsEnd += m_groupRowsEnd > item ? 1 : 0;

    Reserve(elements, count + 1);
    const int y = row > 0 ? elements[row - 1].rect.bottom : 0;
    elements.InsertAt(row, {LET_ITEM, row, {0, y, Saturated(ColumnsWidth()), y}});
    m_fAscending = m_fAscending && IsInOrder(row);
    m_fLayoutCurrent = m_fLayoutCurrent && fPlain && row == item && items[item]->group == 0;
}

// Whether a row's index lies between those of the items' rows around it.
bool GList::IsInOrder(UINT row) const
{
    UINT before = row;
    while (before > 0 && elements[before - 1].type != LET_ITEM) {
        --before;
    }
    UINT behind = row + 1;
    while (behind < elements.GetLength() && elements[behind].type != LET_ITEM) {
        ++behind;
    }
    return (before == 0 || elements[before - 1].index < elements[row].index) &&
           (behind == elements.GetLength() || elements[behind].index > elements[row].index);
}

// Gives a row the items' height, and moves those below it. False where the list is gone.
bool GList::FitRow(UINT row)
{
    RECT& rc = elements[row].rect;
    const int bottom = Below(rc.top, itemHeight);
    const int64_t dy = int64_t{bottom} - rc.bottom;
    if (dy == 0) {
        return true;
    }
    rc.bottom = bottom;
    for (UINT below = row + 1; below < elements.GetLength(); ++below) {
        Move(elements[below], dy);
    }
    return SetContentHeight(ElementsEnd());
}

// --- Finding rows

// The first element whose bottom lies at or below y.
UINT GList::FirstRowReaching(int64_t y) const
{
    const stcElementPosition* first = elements.GetData();
    const stcElementPosition* end = first + elements.GetLength();
    const auto isAbove = [y](const stcElementPosition& e) { return e.rect.bottom < y; };
    const stcElementPosition* found =
        m_fStacked ? std::partition_point(first, end, isAbove) : std::find_if_not(first, end, isAbove);
    return static_cast<UINT>(found - first);
}

void GList::GetItemRect(RECT* rc, UINT item, UINT subItem)
{
    if (!rc) {
        gesso::Misuse("GList::GetItemRect: no rectangle");
        return;
    }
    const UINT row = RowOf(item);
    *rc = {};
    if (row >= elements.GetLength() || subItem >= columnDraw.GetLength()) {
        gesso::Misuse("GList::GetItemRect: no such item or element");
        return;
    }
    const RECT& rcRow = elements[row].rect;
    const RECT& rcCell = columnDraw[subItem].rect;
    *rc = {rcCell.left, Saturated(int64_t{rcRow.top} + headerArea), rcCell.right,
           Saturated(int64_t{rcRow.bottom} + headerArea)};
}

// --- What the keyboard goes by

// Where the items lie, as far as the keyboard knows.
//
// Fixed behaviour: set by SetListStyle and by single insertions alone, so that it stays behind after a sort
// or a bulk fill. The page keys would else lead elsewhere, and scroll, in lists that are filled in bulk.
void GList::StampRows(UINT first, int right)
{
    for (UINT i = first; i < items.GetLength(); ++i) {
        const int64_t top = int64_t{i} * itemHeight;
        items[i]->rcItem = {0, Saturated(top), right, Saturated(top + itemHeight)};
        items[i]->row = i;
    }
}

void GList::StampRowsOfView(UINT first)
{
    const UINT view = listStyle & GLS_VIEWMASK;
    const UINT cells = columnDraw.GetLength();
    if (view == GLS_DETAILS) {
        StampRows(first, cells ? columnDraw[cells - 1].rect.right : 0);
    } else if (view == GLS_TILES) {
        StampRows(first, Saturated(itemWidth));
    }
}

// --- The content and the scroll bars

int GList::ElementsEnd() const
{
    const UINT count = elements.GetLength();
    return count ? elements[count - 1].rect.bottom : 0;
}

// False where the list is gone: a bar that comes or goes repaints the frame, in whose corner the parent
// draws.
bool GList::SetContentHeight(int rowsEnd)
{
    const gesso::Lifeline life(*this);
    contentCy = headerArea + static_cast<UINT>(rowsEnd);
    // Fixed behaviour: room is added for the bars that do not show. The pages of the bars would else change.
    RECT rc{};
    GetClientRectNoScroll(&rc);
    CalcScrollbars(static_cast<int>(contentCx), static_cast<int>(contentCy), rc.right, rc.bottom);
    return life;
}

// Fixed behaviour: the pages are reduced when both directions fit, and not when neither does. Thumbs, and the
// last position of either bar, would else change.
void GList::CalcScrollbars(int contentWidth, int contentHeight, int clientWidth, int clientHeight)
{
    const auto cxBar = static_cast<UINT>(gesso::SystemMetric(m_hWnd, SM_CXVSCROLL));
    const auto cyBar = static_cast<UINT>(gesso::SystemMetric(m_hWnd, SM_CYHSCROLL));
    const auto clientCx = static_cast<UINT>(clientWidth);
    const auto clientCy = static_cast<UINT>(clientHeight);
    const UINT lastX = static_cast<UINT>(contentWidth) - 1;
    const UINT lastY = static_cast<UINT>(contentHeight) - 1;
    const UINT code = (lastY < clientCy ? 10U : 0U) | (lastX < clientCx ? 5U : 0U) |
                      (lastX < clientCx - cxBar ? 1U : 0U) | (lastY < clientCy - cyBar ? 2U : 0U);
    const bool fBoth = code == 7 || code == 11 || code == 15;
    const UINT pageX = clientCx - (fBoth || code == 5 ? cxBar : 0);
    const UINT pageY = clientCy - (fBoth || code == 10 ? cyBar : 0);
    constexpr UINT MASK = SIF_RANGE | SIF_PAGE;
    const SCROLLINFO siH{sizeof(SCROLLINFO), MASK, 0, static_cast<int>(lastX), pageX, 0, 0};
    const SCROLLINFO siV{sizeof(SCROLLINFO), MASK, 0, static_cast<int>(lastY), pageY, 0, 0};
    const gesso::Lifeline life(*this);
    GWndScroll::SetScrollInfo(SB_HORZ, &siH);
    if (life) {
        GWndScroll::SetScrollInfo(SB_VERT, &siV);
    }
}

LRESULT GList::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    RECT& rc = pParams->rgrc[0];
    const bool fBorder =
        (gesso::Frame::Style(*this) & WS_BORDER) || (GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    if (fBorder) {
        const int nBorder = themeList.BorderSize();
        InflateRect(&rc, -nBorder, -nBorder);
    }
    // A bar that comes or goes sends this message again from within, with the size that the window had
    // before.
    if (!std::exchange(m_fSizing, true)) {
        const gesso::Lifeline life(*this);
        CalcScrollbars(static_cast<int>(contentCx), static_cast<int>(contentCy), rc.right - rc.left,
                       rc.bottom - rc.top);
        if (!life) {
            return 0;
        }
        m_fSizing = false;
    }
    return GWndScroll::OnNcCalcSize(fValidRects, pParams);
}
