// Where groups and items stand, and what is at a point.

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/ItemCode.h>

#include <algorithm>

using gesso::Pixels;
using gesso::PlainPart;
using gesso::ThemePart;
using Group = GRibbonPage::Group;
using Item = GRibbonPage::Item;
namespace Metrics = gesso::Metrics;

namespace {

constexpr RECT MEASURE_BOUNDS{0, 0, 32000, 32000};

int Length(LPCWSTR psz)
{
    return static_cast<int>(wcslen(psz));
}

int TextWidth(const ThemePart& part, LPCWSTR psz, int nLength)
{
    return nLength ? static_cast<int>(part.TextExtent(psz, nLength, 0, MEASURE_BOUNDS).right) : 0;
}

// The width of the best break into two lines, for a text that is wide enough for it.
int LargeTextWidth(HWND hwnd, const ThemePart& part, LPCWSTR psz)
{
    const int nLength = Length(psz);
    int nBest = TextWidth(part, psz, nLength);
    if (nBest <= Pixels(hwnd, Metrics::RIBBON_LARGE_TEXT_WIDTH)) {
        return nBest;
    }
    for (int i = 1; i < nLength; i++) {
        if (psz[i] == L' ') {
            const int nLine1 = TextWidth(part, psz, i);
            const int nLine2 = TextWidth(part, psz + i + 1, nLength - i - 1);
            nBest = std::min(nBest, std::max(nLine1, nLine2));
        }
    }
    return nBest;
}

void SetSize(Item& item, int cx, int cy)
{
    item.nLeft = 0;
    item.nRight = cx;
    item.nBottom = item.nTop + cy;
}

// What the items of a page measure; hwnd is the ribbon's window.
struct ItemMeasurer
{
    HWND hwnd;
    const ThemePart& part; // that the texts are measured for
    LPCWSTR pszText;

    int At(gesso::Measure measure) const { return Pixels(hwnd, measure); }
    int TextWidth() const { return ::TextWidth(part, pszText, Length(pszText)); }

    void MeasureButton(Item& item) const
    {
        const int cyRow = At(Metrics::RIBBON_ROW_HEIGHT);
        switch (item.wSize) {
        case RIS_SMALL: return SetSize(item, At(Metrics::RIBBON_SMALL_WIDTH), cyRow);
        case RIS_MEDIUM: {
            const int nMargin = At(Metrics::RIBBON_TEXT_MARGIN);
            const int nImage = item.nImage == -1 ? nMargin : At(Metrics::RIBBON_MEDIUM_IMAGE_ROOM);
            return SetSize(item, TextWidth() + nMargin + nImage, cyRow);
        }
        case RIS_LARGE: {
            const int nText =
                std::max(LargeTextWidth(hwnd, part, pszText), At(Metrics::RIBBON_LARGE_TEXT_WIDTH));
            return SetSize(item, nText + At(Metrics::RIBBON_LARGE_MARGINS),
                           At(Metrics::RIBBON_COLUMN_HEIGHT));
        }
        default: break;
        }
    }

    void MeasureCheckBox(int cxBox, Item& item) const
    {
        SetSize(item, cxBox + TextWidth() + At(Metrics::RIBBON_CHECK_MARGINS),
                At(Metrics::RIBBON_ROW_HEIGHT));
    }
};

// Stacks items in columns from left to right.
class Columns
{
public:
    // Goes on behind the first nPlaced items. Every item of a column starts at the largest right edge of the
    // columns before it, so that only the last column need be looked at.
    Columns(HWND hwnd, const OArray<Item, Item const&>& items, UINT nPlaced)
        : m_nTop(Pixels(hwnd, Metrics::RIBBON_PAGE_TOP)),
          m_nHeight(Pixels(hwnd, Metrics::RIBBON_COLUMN_HEIGHT))
    {
        if (nPlaced == 0) {
            return;
        }
        m_nLeft = m_nMaxRight = items[nPlaced - 1].nLeft;
        m_nOffset = items[nPlaced - 1].nBottom - m_nTop;
        for (UINT i = nPlaced; i-- > 0 && items[i].nLeft == m_nLeft;) {
            m_nMaxRight = std::max(m_nMaxRight, items[i].nRight);
        }
    }

    void Place(Item& item)
    {
        const int cx = item.nRight - item.nLeft;
        const int cy = item.nBottom - item.nTop;
        if (m_nOffset + cy > m_nHeight) {
            m_nLeft = m_nMaxRight;
            m_nOffset = 0;
        }
        item.nLeft = m_nLeft;
        item.nTop = m_nTop + m_nOffset;
        item.nRight = item.nLeft + cx;
        item.nBottom = item.nTop + cy;
        m_nOffset += cy;
        m_nMaxRight = std::max(m_nMaxRight, item.nRight);
    }

    int MaxRight() const { return m_nMaxRight; }

private:
    int m_nTop, m_nHeight; // of each column
    int m_nLeft = 0;
    int m_nOffset = 0; // of the next item in the column
    int m_nMaxRight = 0;
};

void PlaceItems(HWND hwnd, Group& group)
{
    Columns columns(hwnd, group.aItems, group.nPlacedItems);
    for (UINT i = group.nPlacedItems; i < group.aItems.GetLength(); i++) {
        columns.Place(group.aItems[i]);
    }
    group.nPlacedItems = group.aItems.GetLength();
    group.nLeft = 0;
    group.nRight = std::max(columns.MaxRight() + Pixels(hwnd, Metrics::RIBBON_GROUP_MARGINS),
                            Pixels(hwnd, Metrics::RIBBON_EMPTY_GROUP_WIDTH));
}

// The index in the group, or the count of items.
UINT FindItemAt(HWND hwnd, const Group& group, POINTS pt)
{
    const int nOffset = Pixels(hwnd, Metrics::RIBBON_HIT_OFFSET); // right of and below each rectangle
    const auto& items = group.aItems;
    const int x = pt.x - group.nLeft - nOffset;
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

} // namespace

void GRibbonPage::CalculateItemSize(HDC hdc, Item* pItem) const
{
    const gesso::SelectScope font(hdc, m_hItemFont);
    const LPCWSTR pszText = gesso::TextOrEmpty(pItem->pszText);
    if (pItem->uType == RIT_BUTTON) {
        const ThemePart part(m_hTheme, hdc, BP_PUSHBUTTON, PBS_NORMAL, PlainPart::PushButton);
        ItemMeasurer{RibbonWindow(), part, pszText}.MeasureButton(*pItem);
    } else if (pItem->uType == RIT_CHECKBOX) {
        const ThemePart box(m_hTheme, hdc, BP_CHECKBOX, 0, PlainPart::CheckBox);
        const ThemePart text(m_hTheme, hdc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, PlainPart::CheckBox);
        const auto cxBox = static_cast<int>(box.Size(nullptr).cx);
        ItemMeasurer{RibbonWindow(), text, pszText}.MeasureCheckBox(cxBox, *pItem);
    }
}

void GRibbonPage::Measure(Item& item) const
{
    const gesso::WindowContext context(RibbonWindow());
    CalculateItemSize(context, &item);
}

void GRibbonPage::CalculateGroupSize(Group* pGroup) const
{
    pGroup->nPlacedItems = 0;
    PlaceItems(RibbonWindow(), *pGroup);
}

// The items before the changed one stand as they are, which keeps filling a group from growing with the
// square of its items.
void GRibbonPage::OnItemsChanged(Group& group, UINT nFirstChanged)
{
    group.nPlacedItems = std::min(group.nPlacedItems, nFirstChanged);
    PlaceItems(RibbonWindow(), group);
    RecalcWidth();
}

void GRibbonPage::RecalcWidth()
{
    int x = 0;
    for (Group& group : m_aGroups) {
        const int nWidth = group.nRight - group.nLeft;
        group.nLeft = x;
        group.nRight = x + (group.uFixedWidth ? static_cast<int>(group.uFixedWidth) : nWidth);
        x = group.nRight + 1;
    }
}

void GRibbonPage::HitTest(HitTestInfo* pInfo) const
{
    const HWND hwnd = RibbonWindow();
    pInfo->group = pInfo->item = RIBBON_NONE;
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        if (m_aGroups[i].nRight >= pInfo->pt.x) {
            const UINT nItem = FindItemAt(hwnd, m_aGroups[i], pInfo->pt);
            pInfo->group = i;
            pInfo->item = nItem < m_aGroups[i].aItems.GetLength() ? gesso::ItemCode(i, nItem) : RIBBON_NONE;
            return;
        }
    }
}
