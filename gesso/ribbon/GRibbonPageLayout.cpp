// Where groups and items stand, and what is at a point.

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/RibbonMetrics.h>

#include <algorithm>

using gesso::PAGE_TOP;
using gesso::PlainPart;
using gesso::ThemePart;
using Group = GRibbonPage::Group;
using Item = GRibbonPage::Item;

namespace {

constexpr int ROW_HEIGHT = 22;
constexpr int COLUMN_HEIGHT = 66;
constexpr int SMALL_WIDTH = 22;
constexpr int MEDIUM_IMAGE = 22; // the image with its margins
constexpr int TEXT_MARGIN = 3;
constexpr int LARGE_TEXT_WIDTH = 40; // up to here a large button's text stays in one line
constexpr int LARGE_MARGINS = 6;
constexpr int CHECK_MARGINS = 11;
constexpr int GROUP_MARGINS = 10;
constexpr int HIT_OFFSET = 4; // items are hit so far right of and below their rectangle
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
int LargeTextWidth(const ThemePart& part, LPCWSTR psz)
{
    const int nLength = Length(psz);
    int nBest = TextWidth(part, psz, nLength);
    if (nBest <= LARGE_TEXT_WIDTH) {
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

void MeasureButton(const ThemePart& part, LPCWSTR pszText, Item& item)
{
    switch (item.wSize) {
    case RIS_SMALL: return SetSize(item, SMALL_WIDTH, ROW_HEIGHT);
    case RIS_MEDIUM: {
        const int nImage = item.nImage == -1 ? TEXT_MARGIN : MEDIUM_IMAGE;
        return SetSize(item, TextWidth(part, pszText, Length(pszText)) + TEXT_MARGIN + nImage, ROW_HEIGHT);
    }
    case RIS_LARGE: {
        const int nText = LargeTextWidth(part, pszText);
        return SetSize(item, std::max(nText, LARGE_TEXT_WIDTH) + LARGE_MARGINS, COLUMN_HEIGHT);
    }
    default: break;
    }
}

void MeasureCheckBox(const ThemePart& part, int cxBox, LPCWSTR pszText, Item& item)
{
    SetSize(item, cxBox + TextWidth(part, pszText, Length(pszText)) + CHECK_MARGINS, ROW_HEIGHT);
}

// Stacks items in columns from left to right.
class Columns
{
public:
    Columns() = default;

    // Goes on behind the first nPlaced items. Every item of a column starts at the largest right edge of the
    // columns before it, so that only the last column need be looked at.
    Columns(const OArray<Item, Item const&>& items, UINT nPlaced)
    {
        if (nPlaced == 0) {
            return;
        }
        m_nLeft = m_nMaxRight = items[nPlaced - 1].nLeft;
        m_nOffset = items[nPlaced - 1].nBottom - PAGE_TOP;
        for (UINT i = nPlaced; i-- > 0 && items[i].nLeft == m_nLeft;) {
            m_nMaxRight = std::max(m_nMaxRight, items[i].nRight);
        }
    }

    void Place(Item& item)
    {
        const int cx = item.nRight - item.nLeft;
        const int cy = item.nBottom - item.nTop;
        if (m_nOffset + cy > COLUMN_HEIGHT) {
            m_nLeft = m_nMaxRight;
            m_nOffset = 0;
        }
        item.nLeft = m_nLeft;
        item.nTop = PAGE_TOP + m_nOffset;
        item.nRight = item.nLeft + cx;
        item.nBottom = item.nTop + cy;
        m_nOffset += cy;
        m_nMaxRight = std::max(m_nMaxRight, item.nRight);
    }

    int MaxRight() const { return m_nMaxRight; }

private:
    int m_nLeft = 0;
    int m_nOffset = 0; // of the next item in the column
    int m_nMaxRight = 0;
};

void PlaceItems(Group& group)
{
    Columns columns(group.aItems, group.nPlacedItems);
    for (UINT i = group.nPlacedItems; i < group.aItems.GetLength(); i++) {
        columns.Place(group.aItems[i]);
    }
    group.nPlacedItems = group.aItems.GetLength();
    group.nLeft = 0;
    group.nRight = std::max(columns.MaxRight() + GROUP_MARGINS, gesso::EMPTY_GROUP_WIDTH);
}

// The index in the group, or the count of items.
UINT FindItemAt(const Group& group, POINTS pt)
{
    const auto& items = group.aItems;
    const int x = pt.x - group.nLeft - HIT_OFFSET;
    const int y = pt.y - HIT_OFFSET;
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
        MeasureButton(part, pszText, *pItem);
    } else if (pItem->uType == RIT_CHECKBOX) {
        const ThemePart box(m_hTheme, hdc, BP_CHECKBOX, 0, PlainPart::CheckBox);
        const ThemePart text(m_hTheme, hdc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, PlainPart::CheckBox);
        MeasureCheckBox(text, static_cast<int>(box.Size(nullptr).cx), pszText, *pItem);
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
    PlaceItems(*pGroup);
}

// The items before the changed one stand as they are, which keeps filling a group from growing with the
// square of its items.
void GRibbonPage::OnItemsChanged(Group& group, UINT nFirstChanged)
{
    group.nPlacedItems = std::min(group.nPlacedItems, nFirstChanged);
    PlaceItems(group);
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
    pInfo->group = pInfo->item = RIBBON_NONE;
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        if (m_aGroups[i].nRight >= pInfo->pt.x) {
            const UINT nItem = FindItemAt(m_aGroups[i], pInfo->pt);
            pInfo->group = i;
            pInfo->item = nItem < m_aGroups[i].aItems.GetLength() ? gesso::ItemCode(i, nItem) : RIBBON_NONE;
            return;
        }
    }
}
