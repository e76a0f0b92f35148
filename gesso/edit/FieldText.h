// One line of editable text: its extent, and its drawing with a part of it selected.
#pragma once

#include <gesso/api.h>

namespace gesso {

// What the formats of measuring and of drawing a line have in common.
constexpr UINT FIELD_MEASURE = DT_SINGLELINE | DT_CALCRECT | DT_EXTERNALLEADING | DT_NOPREFIX;
constexpr UINT FIELD_DRAW = DT_NOPREFIX | DT_SINGLELINE;

// The extent of the text in the context's font, in pixels.
SIZE MeasureField(HDC hdc, LPCWSTR psz, UINT nLength, UINT uFormat = FIELD_MEASURE);

// Draws the text at the top left of the rectangle and no further than its right edge, with the characters
// from nFrom up to nTo in front of the selection colour; none where the two are equal.
void DrawField(HDC hdc, const RECT& rc, LPCWSTR psz, UINT nLength, UINT nFrom, UINT nTo);

} // namespace gesso
