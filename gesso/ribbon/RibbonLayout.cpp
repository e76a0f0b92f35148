#include <gesso/framework/Metrics.h>
#include <gesso/framework/Wrapped.h>
#include <gesso/ribbon/ItemCode.h>
#include <gesso/ribbon/RibbonLayout.h>

#include <algorithm>

namespace gesso {
namespace {

using Group = GRibbonPage::Group;
using Item = GRibbonPage::Item;

// Stacks items in columns from left to right.
class Columns
{
public:
    // Goes on behind the first nPlaced items. Every item of a column starts at the largest right edge of the
    // columns before it, so that only the last column need be looked at.
    Columns(HWND hwnd, const OArray<Item, Item const&>& items, UINT nPlaced)
        : m_hWnd(hwnd), m_nTop(Pixels(hwnd, Metrics::RIBBON_PAGE_TOP)), m_nHeight(ColumnHeight(hwnd))
    {
        if (nPlaced == 0) {
            return;
        }
        m_nLeft = m_nMaxRight = items[nPlaced - 1].nLeft;
        m_nOffset = Wrapped(int64_t{items[nPlaced - 1].nBottom} - m_nTop);
        for (UINT i = nPlaced; i-- > 0 && items[i].nLeft == m_nLeft;) {
            m_nMaxRight = std::max(m_nMaxRight, items[i].nRight);
        }
    }

    void Place(Item& item)
    {
        // A host's own record may hold anything.
        const int64_t cx = int64_t{item.nRight} - item.nLeft;
        const int64_t cy = int64_t{item.nBottom} - item.nTop;
        if (m_nOffset + cy > m_nHeight) {
            m_nLeft = m_nMaxRight;
            m_nOffset = 0;
        }
        item.nLeft = m_nLeft;
        item.nTop = Wrapped(int64_t{m_nTop} + m_nOffset);
        item.nRight = Wrapped(item.nLeft + cx);
        item.nBottom = Wrapped(item.nTop + cy);
        m_nOffset = Wrapped(m_nOffset + cy);
        m_nMaxRight = std::max(m_nMaxRight, item.nRight);
    }

    int GroupWidth() const
    {
        return std::max(Wrapped(int64_t{m_nMaxRight} + Pixels(m_hWnd, Metrics::RIBBON_GROUP_MARGINS)),
                        Pixels(m_hWnd, Metrics::RIBBON_EMPTY_GROUP_WIDTH));
    }

private:
    HWND m_hWnd;
    int m_nTop, m_nHeight; // of each column
    int m_nLeft = 0;
    int m_nOffset = 0; // of the next item in the column
    int m_nMaxRight = 0;
};

int WidthOf(const Group& group)
{
    return Wrapped(int64_t{group.nRight} - group.nLeft);
}

// The index in the group, or the count of items.
UINT FindItemAt(HWND hwnd, const Group& group, POINTS pt)
{
    const int nOffset = Pixels(hwnd, Metrics::RIBBON_HIT_OFFSET); // right of and below each rectangle
    const auto& items = group.aItems;
    const int x = Wrapped(int64_t{pt.x} - group.nLeft - nOffset);
    const int y = pt.y - nOffset;
    const UINT nCount = items.GetLength();
    UINT i = 0;
    while (i < nCount && items[i].nRight < x) {
        i++;
    }
    for (; i < nCount; i++) {
        if (items[i].nLeft > x) {
            return nCount;
        }
        if (items[i].nRight >= x && items[i].nTop <= y && y <= items[i].nBottom) {
            return i;
        }
    }
    return nCount;
}

bool StandAlike(const Item& item, const Item& other)
{
    return item.nLeft == other.nLeft && item.nTop == other.nTop && item.nRight == other.nRight &&
           item.nBottom == other.nBottom;
}

bool CheckItems(HWND hwnd, const Group& group)
{
    if (group.nPlacedItems > group.aItems.GetLength()) {
        return false;
    }
    Columns columns(hwnd, group.aItems, 0);
    for (UINT i = 0; i < group.nPlacedItems; i++) {
        Item item = group.aItems[i];
        columns.Place(item);
        if (!StandAlike(item, group.aItems[i])) {
            return false;
        }
    }
    const int nWidth = group.uFixedWidth ? static_cast<int>(group.uFixedWidth) : columns.GroupWidth();
    return WidthOf(group) == nWidth;
}

} // namespace

int ColumnHeight(HWND hwnd)
{
    constexpr int ROW = Metrics::RIBBON_ROW_HEIGHT.nPixels;
    return Metrics::RIBBON_COLUMN_HEIGHT.nPixels / ROW * Pixels(hwnd, {ROW});
}

void PlaceItems(HWND hwnd, Group& group)
{
    Columns columns(hwnd, group.aItems, group.nPlacedItems);
    for (UINT i = group.nPlacedItems; i < group.aItems.GetLength(); i++) {
        columns.Place(group.aItems[i]);
    }
    group.nPlacedItems = group.aItems.GetLength();
    group.nLeft = 0;
    group.nRight = columns.GroupWidth();
}

void PlaceGroups(RibbonGroups& groups)
{
    int x = 0;
    for (Group& group : groups) {
        const int nWidth = group.uFixedWidth ? static_cast<int>(group.uFixedWidth) : WidthOf(group);
        group.nLeft = x;
        group.nRight = Wrapped(int64_t{x} + nWidth);
        x = Wrapped(int64_t{group.nRight} + 1);
    }
}

void HitGroups(HWND hwnd, const RibbonGroups& groups, GRibbonPage::HitTestInfo& info)
{
    info.group = info.item = RIBBON_NONE;
    for (UINT i = 0; i < groups.GetLength(); i++) {
        if (groups[i].nRight >= info.pt.x) {
            const UINT nItem = FindItemAt(hwnd, groups[i], info.pt);
            info.group = i;
            info.item = nItem < groups[i].aItems.GetLength() ? ItemCode(i, nItem) : RIBBON_NONE;
            return;
        }
    }
}

bool CheckGroups(HWND hwnd, const RibbonGroups& groups)
{
    int x = 0;
    for (const Group& group : groups) {
        if (group.nLeft < x || !CheckItems(hwnd, group)) {
            return false;
        }
        x = Wrapped(int64_t{group.nRight} + 1);
    }
    return true;
}

} // namespace gesso
