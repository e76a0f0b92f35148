#include <gesso/containers/Index.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListCellLayout.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr UINT ICON_CELLS = 3;

// Starts the elements anew, with the check box if there is one. It names no column, so that the header shows
// an empty cell above it.
void StartCells(ListCells& cells, UINT itemHeight, const SIZE* pCheckBox)
{
    cells.RemoveAll();
    if (pCheckBox) {
        const int top = Saturated((int64_t{itemHeight} - pCheckBox->cy) >> 1);
        cells.Add({LCT_CHECKSLOT,
                   NO_INDEX,
                   0,
                   0,
                   {0, top, pCheckBox->cx, Saturated(int64_t{top} + pCheckBox->cy)}});
    }
}

LPCWSTR MixedCaption(const ListCells& cells, const ListColumns& columns, UINT column)
{
    const UINT named = column < cells.GetLength() ? cells[column].column : column;
    return columns[named < columns.GetLength() ? named : column]->text;
}

// A fresh element names the first column.
void MakeIconCells(ListCells& cells)
{
    while (cells.GetLength() < ICON_CELLS) {
        cells.GetAtGrow(cells.GetLength()) = stcColumnDrawInfo();
    }
    cells.SetLength(ICON_CELLS, -1);
}

} // namespace

int ArrangeDetails(ListCells& cells, const ListColumns& columns, UINT itemHeight, const SIZE* pCheckBox,
                   int checkGap)
{
    StartCells(cells, itemHeight, pCheckBox);
    int x = pCheckBox ? pCheckBox->cx + checkGap : 0;
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        const ListColumn& c = *columns[column];
        const int right = Saturated(int64_t{x} + c.cx);
        cells.Add({c.type, column, c.format, 0, {x, 0, right, Saturated(itemHeight)}});
        x = right;
    }
    return x;
}

bool HasTileColumns(const ListColumns& columns)
{
    return std::any_of(columns.begin(), columns.end(), [](const ListColumn* column) {
        return (column->flags & (LCF_TILELINE | LCF_TILECAPTION)) != 0;
    });
}

void ArrangeTiles(ListCells& cells, const ListColumns& columns, UINT itemHeight, const SIZE* pCheckBox,
                  const std::function<int(LPCWSTR)>& captionWidth, bool fMixed)
{
    StartCells(cells, itemHeight, pCheckBox);
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        const ListColumn& c = *columns[column];
        const bool fLine = c.flags & LCF_TILELINE;
        RECT rc = c.rcFormat;
        if (!fLine && (c.flags & LCF_TILECAPTION)) {
            cells.Add({LCT_CAPTION, column, c.format, 0, rc});
            const LPCWSTR caption = fMixed ? MixedCaption(cells, columns, column) : LPCWSTR{c.text};
            rc.left = Saturated(int64_t{rc.left} + (caption ? captionWidth(caption) : 0));
        }
        if (c.flags & (LCF_TILELINE | LCF_TILECAPTION)) {
            cells.Add({c.type, column, c.format, 0, rc});
        }
    }
}

void ArrangeIcons(ListCells& cells, const IconMeasures& measures)
{
    const auto [cx, cy] = measures.item;
    const int gap = measures.gap;
    const int imageBottom = cy - measures.textCy - 2 * gap;
    const int imageLeft = (cx >> 1) - measures.icon.cx / 2;
    const int imageTop = (imageBottom >> 1) - measures.icon.cy / 2 + gap;
    MakeIconCells(cells);
    cells[0].type = LCT_CHECKSLOT;
    cells[0].rect = {0, 0, measures.checkSlot, measures.checkSlot};
    cells[1].type = LCT_ICONIMAGE;
    cells[1].rect = {imageLeft, imageTop, cx, imageBottom};
    cells[2].type = LCT_ICONTEXT;
    cells[2].format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    cells[2].rect = {0, imageBottom + gap, cx, cy};
}

} // namespace gesso
