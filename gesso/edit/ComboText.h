// The texts of a combo box that was made in Modern, in its face and its rows: in visual order, and in the
// fonts that they need.
#pragma once

#include <gesso/api.h>

namespace gesso {

// One line, in the context's font. uFormat may be DT_VCENTER; what does not fit is cut off at the right.
void DrawComboText(HDC hdc, LPCWSTR psz, const RECT& rc, COLORREF cr, UINT uFormat = 0);
// In pixels.
int ComboTextWidth(HDC hdc, LPCWSTR psz);

} // namespace gesso
