#include <gallery/PreparedText.h>

#include <algorithm>

namespace gallery {
namespace {

constexpr COLORREF BOX_COLOR = RGB(222, 235, 250);

void DrawGlyphs(HDC hdc, int x, int y, stcDrawTextBuffer& text, UINT nStart, UINT nEnd)
{
    for (UINT i = 0; i < text.nItems; i++) {
        const stcDrawTextRun& run = text.pRuns[i];
        const UINT nFirst = std::max(nStart, run.nFirstGlyph);
        const UINT nLast = std::min(nEnd, run.nFirstGlyph + static_cast<UINT>(run.nGlyphs));
        if (nFirst >= nLast) {
            continue;
        }
        ScriptTextOut(hdc, &text.scriptCache, x, y, 0, nullptr, &text.pItems[i].a, nullptr, 0,
                      text.pGlyphs + nFirst, static_cast<int>(nLast - nFirst), text.pAdvance + nFirst,
                      nullptr, text.pOffset + nFirst);
        for (UINT n = nFirst; n < nLast; n++) {
            x += text.pAdvance[n];
        }
    }
}

} // namespace

PreparedText PrepareText(HDC hdc, LPCWSTR pszText, RECT rc, UINT uFormat, int nLineHeight)
{
    return PreparedText(
        CDrawText::DrawText_Prepare_Int(hdc, pszText, -1, &rc, uFormat, nLineHeight, nullptr));
}

void DrawLineByLine(HDC hdc, const RECT& rc, stcDrawTextBuffer& text)
{
    int y = rc.top;
    UINT nStart = 0;
    for (UINT n = 0; n <= text.nBreaks; n++) {
        DrawGlyphs(hdc, rc.left, y, text, nStart, text.pBreaks[n].nGlyph);
        nStart = text.pBreaks[n].nGlyph;
        y += text.nLineHeight;
    }
}

void DrawLineBoxes(HDC hdc, const RECT& rc, const stcDrawTextBuffer& text)
{
    const HBRUSH hbr = CreateSolidBrush(BOX_COLOR);
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
