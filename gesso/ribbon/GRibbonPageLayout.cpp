// How large items are, and how a page keeps its layout.

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/ribbon/RibbonLayout.h>

#include <algorithm>

using gesso::Pixels;
using gesso::PlainPart;
using gesso::ThemePart;
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
            return SetSize(item, nText + At(Metrics::RIBBON_LARGE_MARGINS), gesso::ColumnHeight(hwnd));
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
        const auto cxBox = static_cast<int>(box.Size(RibbonWindow(), nullptr).cx);
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
    gesso::PlaceItems(RibbonWindow(), *pGroup);
}

// The items before the changed one stand as they are, which keeps filling a group from growing with the
// square of its items.
void GRibbonPage::OnItemsChanged(Group& group, UINT nFirstChanged)
{
    group.nPlacedItems = std::min(group.nPlacedItems, nFirstChanged);
    gesso::PlaceItems(RibbonWindow(), group);
    RecalcWidth();
}

void GRibbonPage::RecalcWidth()
{
    gesso::PlaceGroups(m_aGroups);
}

void GRibbonPage::HitTest(HitTestInfo* pInfo) const
{
    gesso::HitGroups(RibbonWindow(), m_aGroups, *pInfo);
}
