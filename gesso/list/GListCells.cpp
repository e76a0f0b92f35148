// What every item shows: the elements of its cell, made once for each list style.

#include <gesso/containers/Index.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/list/ListCellLayout.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

#include <algorithm>
#include <utility>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::Quirk;
using gesso::Saturated;
using gesso::SelectScope;
using gesso::WindowContext;
namespace Metrics = gesso::Metrics;

namespace {

SIZE TextSize(HFONT hFont, LPCWSTR text)
{
    const gesso::MemoryContext context;
    const SelectScope font(context, hFont);
    SIZE size{};
    GetTextExtentPointW(context, text, gesso::TextLength(text), &size);
    return size;
}

} // namespace

UINT GList::SetListStyle(UINT style)
{
    UINT former = std::exchange(listStyle, style);
    const WindowContext context(m_hWnd);
    const gesso::Lifeline life(*this);
    ForgetLayout();
    switch (listStyle & GLS_VIEWMASK) {
    case GLS_DETAILS: MakeDetailsCell(context); break;
    case GLS_TILES:
        // Nothing to show: the style stays stored, and in Classic the cells of the view before stay too.
        if (!MakeTilesCell(context)) {
            if (Has(*this, Quirk::ListCellsLag)) {
                return NO_INDEX;
            }
            columnDraw.RemoveAll();
            contentCx = RowsWidth();
            former = NO_INDEX;
        }
        break;
    case GLS_ICONS: MakeIconsCell(); break;
    default: break;
    }
    if (life) {
        Calculate();
    }
    if (life) {
        EndLostRenaming();
    }
    return former;
}

UINT GList::GetListStyle() const
{
    return listStyle;
}

// The room above the first row.
UINT GList::HeaderRoom() const
{
    const bool fHeader = (listStyle & GLS_VIEWMASK) == GLS_DETAILS && (listStyle & GLS_HEADER);
    return fHeader ? headerHeight + headerItemSpacing : 0;
}

UINT GList::ColumnsWidth() const
{
    uint64_t cx = 0;
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        cx += columns[column]->cx;
    }
    return static_cast<UINT>(std::min<uint64_t>(cx, INT_MAX));
}

SIZE GList::CheckBoxSize(HDC hdc) const
{
    return gesso::ThemePart(themeButton, hdc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, gesso::PlainPart::CheckBox)
        .Size(m_hWnd, nullptr);
}

// --- The three views

void GList::MakeDetailsCell(HDC hdc)
{
    itemSpacingX = itemSpacingY = 0;
    itemHeight = itemHeightBase;
    headerArea = HeaderRoom();
    const bool fCheckBoxes = listStyle & GLS_CHECKBOXES;
    const SIZE box = fCheckBoxes ? CheckBoxSize(hdc) : SIZE{};
    itemHeight = std::max(itemHeight, static_cast<UINT>(box.cy));
    const int end = gesso::ArrangeDetails(columnDraw, columns, itemHeight, fCheckBoxes ? &box : nullptr,
                                          Pixels(m_hWnd, Metrics::LIST_CHECK_GAP));
    Layout().Stamp(0, end);
    contentCx = RowsWidth();
}

bool GList::MakeTilesCell(HDC hdc)
{
    headerArea = itemSpacingX = itemSpacingY = 0;
    itemHeight = itemHeightBase;
    if (!gesso::HasTileColumns(columns)) {
        return false;
    }
    const bool fCheckBoxes = listStyle & GLS_CHECKBOXES;
    const SIZE box = fCheckBoxes ? CheckBoxSize(hdc) : SIZE{};
    // Fixed behaviour: in Classic captions are mixed up, where a column before has one. Values would else
    // move in tiles of several captions.
    gesso::ArrangeTiles(
        columnDraw, columns, itemHeight, fCheckBoxes ? &box : nullptr,
        [this](LPCWSTR caption) { return TileCaptionWidth(caption); }, Has(*this, Quirk::ListCaptionsMixed));
    Layout().Stamp(0);
    contentCx = RowsWidth();
    return true;
}

int GList::TileCaptionWidth(LPCWSTR caption) const
{
    const SIZE size = TextSize(fontLabelHeader, OString<wchar_t>::Build(L"%s:", caption));
    return size.cx + Pixels(m_hWnd, Metrics::LIST_TILE_CAPTION_GAP);
}

SIZE GList::IconSize() const
{
    int cx = 0;
    int cy = 0;
    if (imageList) {
        reinterpret_cast<IImageList*>(imageList)->GetIconSize(&cx, &cy);
    }
    const int nTimes = gesso::ListInside::ImageTimes(*this, {cx, cy});
    return {Saturated(int64_t{cx} * nTimes), Saturated(int64_t{cy} * nTimes)};
}

void GList::MakeIconsCell()
{
    headerArea = 0;
    const bool fExact = HasExactPlaces();
    const LPCWSTR text = fExact ? L"X" : columns.GetLength() > 1 ? columns[1]->text : nullptr;
    const int textCy = text ? TextSize(fontLabelText, text).cy : 0;
    const SIZE icon = IconSize();
    const int gap = Pixels(m_hWnd, Metrics::LIST_ICON_TEXT_GAP);
    itemHeight = std::max(itemHeightBase, static_cast<UINT>(textCy + icon.cy + 3 * gap));
    itemWidth =
        std::max(itemWidthBase, static_cast<UINT>(icon.cx + Pixels(m_hWnd, Metrics::LIST_ICON_MARGINS)));
    itemSpacingX = itemSpacingY = static_cast<UINT>(Pixels(m_hWnd, Metrics::LIST_ICON_SPACING));
    if (fExact) {
        columnDraw.RemoveAll(); // so that nothing is left of another view
        contentCx = RowsWidth();
    }
    gesso::ArrangeIcons(columnDraw, {{Saturated(itemWidth), Saturated(itemHeight)},
                                     icon,
                                     textCy,
                                     gap,
                                     Pixels(m_hWnd, Metrics::LIST_ICON_CHECK_SLOT)});
    // Once more than SetListStyle does, since showing the bars may change what there is room for.
    Calculate();
}
