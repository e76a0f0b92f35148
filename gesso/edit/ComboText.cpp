#include <gesso/edit/ComboText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Saturate.h>
#include <gesso/text/CDrawText.h>

namespace gesso {
namespace {

constexpr LONGLONG MOST_WIDTH = 1 << 24; // a prepared text ends with a whole character, and this one in it

} // namespace

void DrawComboText(HDC hdc, LPCWSTR psz, const RECT& rc, COLORREF cr, UINT uFormat)
{
    if (!psz[0]) {
        return;
    }
    const StateScope state(hdc);
    IntersectClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
    SetTextColor(hdc, cr);
    SetBkMode(hdc, TRANSPARENT);
    const RECT rcLine{rc.left, rc.top, Saturated(rc.left + MOST_WIDTH), rc.bottom};
    CDrawText::DrawTextW(hdc, psz, -1, rcLine, DT_SINGLELINE | uFormat, 1, nullptr);
}

int ComboTextWidth(HDC hdc, LPCWSTR psz)
{
    if (!psz[0]) {
        return 0;
    }
    RECT rc{};
    CDrawText::DrawText_Prepare(hdc, psz, -1, &rc, DT_SINGLELINE | DT_CALCRECT, 1, nullptr);
    return rc.right;
}

} // namespace gesso
