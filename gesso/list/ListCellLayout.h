// The layout of what every item of a list shows: the elements of its cell, made from the columns once for
// each list style. What is measured in a font or by the visual style comes from the caller.
#pragma once

#include <gesso/list/ListGeometry.h>

#include <algorithm>
#include <functional>

namespace gesso {

// How many elements an item shows of so many columns at the most, in any view.
constexpr UINT MostCells(UINT columns)
{
    return std::max(2 * columns + 1, 3U);
}

// Side by side, behind the check box if there is one. Returns where the next would begin.
int ArrangeDetails(ListCells& cells, const ListColumns& columns, UINT itemHeight, const SIZE* pCheckBox,
                   int checkGap);

// Whether any column shows in tiles.
bool HasTileColumns(const ListColumns& columns);
// Each at its column's own place. `captionWidth` measures a column's text with what stands behind it; with
// fMixed the caption that is measured is that of the element at the column's number, which is the column's
// own only while every column before made just one element.
void ArrangeTiles(ListCells& cells, const ListColumns& columns, UINT itemHeight, const SIZE* pCheckBox,
                  const std::function<int(LPCWSTR)>& captionWidth, bool fMixed = true);

struct IconMeasures
{
    SIZE item;
    SIZE icon;
    int textCy;
    int gap;       // above the icon, between it and its text, and below that
    int checkSlot; // width and height
};
// A check slot, the image and a line of text below it.
//
// Fixed behaviour: what an earlier view wrote into the fields that this one does not name stays. Icons that
// follow another view would else show another column's image and text.
void ArrangeIcons(ListCells& cells, const IconMeasures& measures);

} // namespace gesso
