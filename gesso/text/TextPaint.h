// What the two ways of painting a text share: as Classic does it, and in visual order.
#pragma once

#include <gesso/text/CDrawText.h>

namespace gesso {

// Paints nCount glyphs from nFirst on, as part of an item. What lies outside the arrays is left out, and a
// negative count paints nothing. Everything that is painted goes through here.
void PaintSlice(HDC hdc, int x, int y, stcDrawTextBuffer& buffer, UINT nItem, UINT nFirst, int nCount);

// How many glyphs of a line come before the one with which the sum of advances reaches cxMax.
UINT CountFitting(const stcDrawTextBuffer& buffer, UINT nStart, UINT nStop, UINT cxMax);

// The top of the first line, as uFormat says, and the left end of a line of the given width, as uSide does:
// DT_CENTER, DT_RIGHT or neither.
int FirstLineY(const stcDrawTextBuffer& buffer, const RECT& rc);
int LineX(UINT uSide, const RECT& rc, UINT cx);

// Each glyph once, in visual order where the text is painted as it is read: those from nFirst up to nEnd, all
// of one line, cut before the one that reaches cxMax; and all lines.
constexpr UINT UNCUT = 0xFFFFFFFF;
void PaintInOrder(HDC hdc, int x, int y, stcDrawTextBuffer& buffer, UINT nFirst, UINT nEnd, UINT cxMax);
void PaintLinesInOrder(HDC hdc, const RECT& rc, UINT uSide, stcDrawTextBuffer& buffer);

} // namespace gesso
