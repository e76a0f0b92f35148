#include <gallery/PreparedText.h>
#include <gallery/Shades.h>

namespace gallery {

PreparedText PrepareText(HDC hdc, LPCWSTR pszText, RECT rc, UINT uFormat, int nLineHeight)
{
    return PreparedText(
        CDrawText::DrawText_Prepare_Int(hdc, pszText, -1, &rc, uFormat, nLineHeight, nullptr));
}

void DrawLineByLine(HDC hdc, const RECT& rc, stcDrawTextBuffer& text)
{
    int y = rc.top;
    for (UINT n = 0; n <= text.nBreaks; n++) {
        CDrawText::DrawText_TextOut_Line(hdc, rc.left, y, &text, n);
        y += text.nLineHeight;
    }
}

void DrawLineBoxes(HDC hdc, const RECT& rc, const stcDrawTextBuffer& text)
{
    const HBRUSH hbr = CreateSolidBrush(ColorOf(Shade::Box));
    int y = rc.top;
    for (UINT n = 0; n <= text.nBreaks; n++) {
        const RECT rcLine = {rc.left, y, rc.left + static_cast<LONG>(text.pBreaks[n].nWidth),
                             y + text.nFontHeight};
        FillRect(hdc, &rcLine, hbr);
        y += text.nLineHeight;
    }
    DeleteObject(hbr);
}

} // namespace gallery
