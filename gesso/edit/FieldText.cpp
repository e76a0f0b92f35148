#include <gesso/edit/FieldText.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>

namespace gesso {
namespace {

int Width(HDC hdc, LPCWSTR psz, UINT nLength)
{
    return MeasureField(hdc, psz, nLength).cx;
}

// What two neighbours take together beyond what each takes alone: the glyphs may overhang or be kerned.
int Overhang(HDC hdc, LPCWSTR psz, UINT nSecond)
{
    const LPCWSTR pszPair = psz + nSecond - 1;
    return Width(hdc, pszPair, 2) - Width(hdc, pszPair, 1) - Width(hdc, pszPair + 1, 1);
}

void DrawRun(HDC hdc, const RECT& rc, int nLeft, LPCWSTR psz, UINT nLength)
{
    RECT rcRun = rc;
    rcRun.left = nLeft;
    if (nLength > 0 && rcRun.left < rcRun.right) {
        DrawTextW(hdc, psz, static_cast<int>(nLength), &rcRun, FIELD_DRAW);
    }
}

void FillSelection(HDC hdc, const RECT& rc)
{
    BrushHandle brush;
    brush.Reset(CreateSolidBrush(ColorOf(Color::FieldSelection)));
    FillRect(hdc, &rc, brush);
}

// In Light selected text keeps its colour, unless the host has set one.
COLORREF SelectedTextColor(HDC hdc)
{
    return IsDrawnAs(ColorRole::SelectionText) ? ColorOf(Color::FieldSelectedText) : GetTextColor(hdc);
}

void DrawFromLeft(HDC hdc, const RECT& rc, LPCWSTR psz, UINT nLength, UINT nFrom, UINT nTo)
{
    if (nFrom == nTo) {
        DrawRun(hdc, rc, rc.left, psz, nLength);
        return;
    }
    const int nStart = nFrom > 0 ? Width(hdc, psz, nFrom) + Overhang(hdc, psz, nFrom) : 0;
    const int nLeft = rc.left + nStart;
    const int nRight = nLeft + Width(hdc, psz + nFrom, nTo - nFrom);
    const int nBottom = rc.top + MeasureField(hdc, psz, nLength).cy;
    FillSelection(hdc, {nLeft, rc.top, std::min<int>(nRight, rc.right), nBottom});
    DrawRun(hdc, rc, rc.left, psz, nFrom);
    {
        const TextColorScope color(hdc, SelectedTextColor(hdc));
        DrawRun(hdc, rc, nLeft, psz + nFrom, nTo - nFrom);
    }
    const int nRest = nTo < nLength ? nRight + Overhang(hdc, psz, nTo) : nRight;
    DrawRun(hdc, rc, nRest, psz + nTo, nLength - nTo);
}

} // namespace

SIZE MeasureField(HDC hdc, LPCWSTR psz, UINT nLength, UINT uFormat)
{
    RECT rc{};
    DrawTextW(hdc, psz, static_cast<int>(nLength), &rc, uFormat | DT_CALCRECT);
    return {rc.right, rc.bottom};
}

// In a mirrored field the line ends where others begin, and is what goes out of view on the other side.
void DrawField(HDC hdc, const RECT& rc, LPCWSTR psz, UINT nLength, UINT nFrom, UINT nTo)
{
    if (!IsMirrored(hdc)) {
        DrawFromLeft(hdc, rc, psz, nLength, nFrom, nTo);
        return;
    }
    const int nWidth = Width(hdc, psz, nLength);
    const UprightScope upright(hdc, rc.left, nWidth);
    const RECT rcShown = upright.Placed(rc);
    IntersectClipRect(hdc, rcShown.left, rcShown.top, rcShown.right, rcShown.bottom);
    DrawFromLeft(hdc, {upright.Left(), rc.top, Wrapped(int64_t{upright.Left()} + nWidth), rc.bottom}, psz,
                 nLength, nFrom, nTo);
}

} // namespace gesso
