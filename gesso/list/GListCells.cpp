// What every item shows: the elements of its cell, made once for each list style.

#include <gesso/containers/Index.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/list/GList.h>
#include <gesso/list/Saturate.h>

#include <algorithm>
#include <utility>

using gesso::NO_INDEX;
using gesso::Pixels;
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

int RightEnd(int x, UINT cx)
{
    return Saturated(int64_t{x} + cx);
}

} // namespace

UINT GList::SetListStyle(UINT style)
{
    const UINT former = std::exchange(listStyle, style);
    const WindowContext context(m_hWnd);
    const gesso::Lifeline life(*this);
    m_fLayoutCurrent = false;
    switch (listStyle & GLS_VIEWMASK) {
    case GLS_DETAILS: MakeDetailsCell(context); break;
    case GLS_TILES:
        // Nothing to show: the style stays stored, and the cells of the view before stay too.
        if (!MakeTilesCell(context)) {
            return NO_INDEX;
        }
        break;
    case GLS_ICONS: MakeIconsCell(); break;
    default: break;
    }
    if (life) {
        Calculate();
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
        .Size(nullptr);
}

// The check box's element names no column, so that the header shows an empty cell above it.
stcColumnDrawInfo GList::CheckBoxElement(SIZE size) const
{
    const int top = Saturated((int64_t{itemHeight} - size.cy) >> 1);
    return {LCT_CHECKSLOT, NO_INDEX, 0, 0, {0, top, size.cx, Saturated(int64_t{top} + size.cy)}};
}

// --- Details

void GList::MakeDetailsCell(HDC hdc)
{
    itemSpacingX = itemSpacingY = 0;
    itemHeight = itemHeightBase;
    headerArea = HeaderRoom();
    columnDraw.RemoveAll();
    int x = 0;
    if (listStyle & GLS_CHECKBOXES) {
        const SIZE size = CheckBoxSize(hdc);
        itemHeight = std::max(itemHeight, static_cast<UINT>(size.cy));
        columnDraw.Add(CheckBoxElement(size));
        x = size.cx + Pixels(m_hWnd, Metrics::LIST_CHECK_GAP);
    }
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        const ListColumn& c = *columns[column];
        const int right = RightEnd(x, c.cx);
        columnDraw.Add({c.type, column, c.format, 0, {x, 0, right, Saturated(itemHeight)}});
        x = right;
    }
    StampRows(0, x);
    // Fixed behaviour: without the check box, by whose width the bar across falls short of the last column.
    // The bar would else show in lists whose columns just fill the window.
    contentCx = ColumnsWidth();
}

// --- Tiles

bool GList::MakeTilesCell(HDC hdc)
{
    headerArea = itemSpacingX = itemSpacingY = 0;
    itemHeight = itemHeightBase;
    if (!HasTileColumns()) {
        return false;
    }
    columnDraw.RemoveAll();
    if (listStyle & GLS_CHECKBOXES) {
        columnDraw.Add(CheckBoxElement(CheckBoxSize(hdc)));
    }
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        AddTileElements(column);
    }
    StampRows(0, Saturated(itemWidth));
    contentCx = ColumnsWidth();
    return true;
}

bool GList::HasTileColumns() const
{
    const auto* first = columns.GetData();
    return std::any_of(first, first + columns.GetLength(), [](const ListColumn* column) {
        return (column->flags & (LCF_TILELINE | LCF_TILECAPTION)) != 0;
    });
}

void GList::AddTileElements(UINT column)
{
    const ListColumn& c = *columns[column];
    RECT rc = c.rcFormat;
    if (!(c.flags & LCF_TILELINE)) {
        if (!(c.flags & LCF_TILECAPTION)) {
            return;
        }
        columnDraw.Add({LCT_CAPTION, column, c.format, 0, rc});
        rc.left = Saturated(int64_t{rc.left} + CaptionWidth(column));
    }
    columnDraw.Add({c.type, column, c.format, 0, rc});
}

// Fixed behaviour: the caption that is measured is that of the element at the column's number, which is the
// column's own only while every column before made just one element. Values would else move in tiles of
// several captions.
int GList::CaptionWidth(UINT column) const
{
    const UINT named = column < columnDraw.GetLength() ? columnDraw[column].column : column;
    const UINT measured = named < columns.GetLength() ? named : column;
    const LPCWSTR text = columns[measured]->text;
    if (!text) {
        return 0;
    }
    const SIZE size = TextSize(fontLabelHeader, OString<wchar_t>::Build(L"%s:", text));
    return size.cx + Pixels(m_hWnd, Metrics::LIST_TILE_CAPTION_GAP);
}

// --- Icons

SIZE GList::IconSize() const
{
    int cx = 0;
    int cy = 0;
    if (imageList) {
        reinterpret_cast<IImageList*>(imageList)->GetIconSize(&cx, &cy);
    }
    return {cx, cy};
}

// Makes the elements three. A fresh element names the first column.
//
// Fixed behaviour: what an earlier view wrote into the fields that this one does not name stays. Icons that
// follow another view would else show another column's image and text.
void GList::MakeThreeElements()
{
    while (columnDraw.GetLength() < 3) {
        columnDraw.Add(stcColumnDrawInfo());
    }
    columnDraw.SetLength(3, -1);
}

void GList::MakeIconsCell()
{
    headerArea = 0;
    const LPCWSTR text = columns.GetLength() > 1 ? columns[1]->text : nullptr;
    const int textCy = text ? TextSize(fontLabelText, text).cy : 0;
    const SIZE icon = IconSize();
    const int gap = Pixels(m_hWnd, Metrics::LIST_ICON_TEXT_GAP);
    const int slot = Pixels(m_hWnd, Metrics::LIST_ICON_CHECK_SLOT);
    const int margins = Pixels(m_hWnd, Metrics::LIST_ICON_MARGINS);
    itemHeight = std::max(itemHeightBase, static_cast<UINT>(textCy + icon.cy + 3 * gap));
    itemWidth = std::max(itemWidthBase, static_cast<UINT>(icon.cx + margins));
    const int cx = Saturated(itemWidth);
    const int cy = Saturated(itemHeight);

    MakeThreeElements();
    columnDraw[0].type = LCT_CHECKSLOT;
    columnDraw[0].rect = {0, 0, slot, slot};
    const int imageBottom = cy - textCy - 2 * gap;
    columnDraw[1].type = LCT_ICONIMAGE;
    columnDraw[1].rect = {(cx >> 1) - icon.cx / 2, (imageBottom >> 1) - icon.cy / 2 + gap, cx, imageBottom};
    columnDraw[2].type = LCT_ICONTEXT;
    columnDraw[2].format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    columnDraw[2].rect = {0, imageBottom + gap, cx, cy};
    itemSpacingX = itemSpacingY = static_cast<UINT>(Pixels(m_hWnd, Metrics::LIST_ICON_SPACING));
    // Once more than SetListStyle does, since showing the bars may change what there is room for.
    Calculate();
}
