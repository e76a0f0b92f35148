#include <gesso/containers/Misuse.h>
#include <gesso/framework/Direction.h>
#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/TextPaint.h>

using namespace gesso;

namespace {

void PaintItem(HDC hdc, int x, int y, stcDrawTextBuffer& buffer, UINT nItem)
{
    const stcDrawTextRun& run = buffer.pRuns[nItem];
    PaintSlice(hdc, x, y, buffer, nItem, run.nFirstGlyph, run.nGlyphs);
}

// Paints a text of several lines.
// Fixed behaviour: these steps, oddities included. With others, what shows within a program's clip region
// would be other glyphs:
// - what an item has in a line is painted from the item's first glyph, not from the line's start, up to the
//   line's end;
// - then the rest of the item, past the ends of all lines within it, is painted at the start of the new line,
//   and the item is gone through again for that line, with the pen moved on behind the rest.
class LinesPainter
{
public:
    LinesPainter(HDC hdc, const RECT& rc, UINT uSide, stcDrawTextBuffer& buffer)
        : m_hdc(hdc), m_rc(rc), m_uSide(uSide), m_cxMax(static_cast<UINT>(WrapSubtract(rc.right, rc.left))),
          m_buffer(buffer), m_y(FirstLineY(buffer, rc))
    {}

    void Paint();

private:
    bool HasLine() const { return m_nLine <= m_buffer.nBreaks; }
    const stcDrawTextBreak& Line() const { return m_buffer.pBreaks[m_nLine]; }
    bool IsTooWide() const { return HasLine() && Line().nWidth > m_cxMax; }
    void StartLine();
    void NextLine();
    void PaintCutLine();
    void PaintBreak();
    void PaintRest(UINT nFirst);
    void PaintWholeItem();

    HDC m_hdc;
    const RECT m_rc;
    const UINT m_uSide;
    const UINT m_cxMax;
    stcDrawTextBuffer& m_buffer;
    UINT m_nItem = 0;
    UINT m_nLine = 0;
    int m_x = 0;
    int m_y;
};

void LinesPainter::Paint()
{
    StartLine();
    if (IsTooWide()) {
        PaintCutLine();
    }
    const UINT nItems = UsableItems(m_buffer);
    while (m_nItem < nItems && HasLine()) {
        if (m_nItem >= Line().nItem && Line().nGlyph != m_buffer.nGlyphs) {
            PaintBreak();
        } else {
            PaintWholeItem();
        }
    }
}

void LinesPainter::StartLine()
{
    if (HasLine()) {
        m_x = LineX(m_uSide, m_rc, Line().nWidth);
    }
}

void LinesPainter::NextLine()
{
    m_y = WrapAdd(m_y, m_buffer.nLineHeight);
    ++m_nLine;
    StartLine();
}

// A line that is too wide is painted by itself, and items go on from the one in which it ends.
void LinesPainter::PaintCutLine()
{
    CDrawText::DrawText_TextOut_cxMax(m_hdc, m_x, m_y, &m_buffer, m_nLine, m_cxMax);
    m_nItem = Line().nItem;
    NextLine();
}

// The current line ends in the current item.
void LinesPainter::PaintBreak()
{
    const UINT nEnd = Line().nGlyph;
    const UINT nFirst = m_buffer.pRuns[m_nItem].nFirstGlyph;
    PaintSlice(m_hdc, m_x, m_y, m_buffer, m_nItem, nFirst, static_cast<int>(nEnd - nFirst));
    NextLine();
    if (IsTooWide()) {
        PaintCutLine();
    } else {
        PaintRest(nEnd);
    }
}

void LinesPainter::PaintRest(UINT nFirst)
{
    const UINT nEnd = RunEnd(m_buffer.pRuns[m_nItem]);
    PaintSlice(m_hdc, m_x, m_y, m_buffer, m_nItem, nFirst, static_cast<int>(nEnd - nFirst));
    m_x = WrapAdd(m_x, SumAdvances(m_buffer, nFirst, nEnd));
}

void LinesPainter::PaintWholeItem()
{
    PaintItem(m_hdc, m_x, m_y, m_buffer, m_nItem);
    m_x = WrapAdd(m_x, RunWidth(m_buffer.pRuns[m_nItem]));
    ++m_nItem;
}

// A text stands at the other side of a mirrored area, and is not mirrored itself.
UINT OtherSide(UINT uFormat)
{
    return uFormat & DT_CENTER ? uFormat : uFormat ^ DT_RIGHT;
}

// How wide some glyphs are that are about to be painted side by side; asked for in mirrored contexts alone.
int WidthOf(HDC hdc, const stcDrawTextBuffer& buffer, UINT nFirst, UINT nEnd)
{
    const UINT nTo = std::min(nEnd, UsableGlyphs(buffer));
    return nFirst < nTo && IsMirrored(hdc) ? SumAdvances(buffer, nFirst, nTo) : 0;
}

} // namespace

void gesso::PaintSlice(HDC hdc, int x, int y, stcDrawTextBuffer& buffer, UINT nItem, UINT nFirst, int nCount)
{
    const UINT nGlyphs = UsableGlyphs(buffer);
    if (nCount <= 0 || nFirst >= nGlyphs || nItem >= UsableItems(buffer)) {
        return;
    }
    const int nInside = static_cast<int>(std::min(static_cast<UINT>(nCount), nGlyphs - nFirst));
    const auto paint = [&](SCRIPT_CACHE& cache, int yGlyphs) {
        ScriptTextOut(hdc, &cache, x, yGlyphs, 0, nullptr, &buffer.pItems[nItem].a, nullptr, 0,
                      buffer.pGlyphs + nFirst, nInside, buffer.pAdvance + nFirst, nullptr,
                      buffer.pOffset + nFirst);
    };
    RunFont* const pFont = FontOfItem(buffer, nItem);
    if (!pFont) {
        paint(buffer.scriptCache, y);
        return;
    }
    // In the context's own font the glyphs would be others.
    const RunFontScope font(hdc, *pFont);
    if (font.IsSelected()) {
        paint(font.Cache(), WrapAdd(y, font.Drop()));
    }
}

UINT gesso::CountFitting(const stcDrawTextBuffer& buffer, UINT nStart, UINT nStop, UINT cxMax)
{
    UINT cx = 0;
    UINT n = nStart;
    for (nStop = std::min(nStop, UsableGlyphs(buffer)); n < nStop; ++n) {
        cx += static_cast<UINT>(buffer.pAdvance[n]);
        if (cx >= cxMax) {
            break;
        }
    }
    return n - nStart;
}

// The top of the first line. A text that is taller than the rectangle starts above it, but for top alignment.
int gesso::FirstLineY(const stcDrawTextBuffer& buffer, const RECT& rc)
{
    const int cyText = WrapSubtract(buffer.rcText.bottom, buffer.rcText.top);
    const int y = WrapSubtract(rc.bottom, cyText);
    if (buffer.uFormat & DT_BOTTOM) {
        return y;
    }
    return buffer.uFormat & DT_VCENTER ? WrapAdd(rc.top, WrapSubtract(y, rc.top) >> 1) : rc.top;
}

// The left end of a line of the given width, on the side that the flags name. A line that is too wide starts
// at the left side. Fixed behaviour: but for a centred one, since half of its negative room, as an unsigned
// number, lies far to the right; otherwise a text that a program hides by its width would show.
int gesso::LineX(UINT uSide, const RECT& rc, UINT cx)
{
    const int cxFree = WrapSubtract(WrapSubtract(rc.right, rc.left), static_cast<int>(cx));
    int x = rc.left;
    if (uSide & DT_CENTER) {
        x = WrapAdd(rc.left, static_cast<int>(static_cast<UINT>(cxFree) >> 1));
    } else if (uSide & DT_RIGHT) {
        x = WrapAdd(rc.left, cxFree);
    }
    return std::max<int>(x, rc.left);
}

void CDrawText::DrawText_TextOut_Break(HDC hdc, RECT rc, stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer) || !pBuffer->pBreaks || rc.right == rc.left) {
        return;
    }
    const UprightScope upright(hdc, rc.left, WrapSubtract(rc.right, rc.left));
    rc = upright.Placed(rc);
    const UINT uSide = upright.IsMirrored() ? OtherSide(pBuffer->uFormat) : pBuffer->uFormat;
    if (pBuffer->nBreaks != 0 && IsPaintedAsRead(*pBuffer)) {
        PaintLinesInOrder(hdc, rc, uSide, *pBuffer);
        return;
    }
    if (pBuffer->nBreaks != 0) {
        LinesPainter(hdc, rc, uSide, *pBuffer).Paint();
        return;
    }
    const UINT cxMax = static_cast<UINT>(WrapSubtract(rc.right, rc.left));
    const UINT cx = pBuffer->pBreaks[0].nWidth;
    const int x = LineX(uSide, rc, cx);
    const int y = FirstLineY(*pBuffer, rc);
    if (cx <= cxMax) {
        DrawText_TextOut(hdc, x, y, pBuffer);
    } else {
        DrawText_TextOut_cxMax(hdc, x, y, pBuffer, 0, cxMax);
    }
}

void CDrawText::DrawText_TextOut(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    const UprightScope upright(hdc, x, WidthOf(hdc, *pBuffer, 0, UNCUT));
    x = upright.Left();
    if (IsPaintedAsRead(*pBuffer)) {
        PaintInOrder(hdc, x, y, *pBuffer, 0, UNCUT, UNCUT);
        return;
    }
    const UINT nItems = UsableItems(*pBuffer);
    for (UINT n = 0; n < nItems; ++n) {
        PaintItem(hdc, x, y, *pBuffer, n);
        x = WrapAdd(x, RunWidth(pBuffer->pRuns[n]));
    }
}

// Fixed behaviour: an item's slice is not reduced where the range starts in the middle of it, so that a range
// that ends in a later item runs over into that item's glyphs; reduced, programs that paint line by line
// would lose glyphs.
void CDrawText::DrawText_TextOut_Start_Glyph(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nStart,
                                             UINT nCount)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    const UINT nEnd = nStart + nCount;
    const UprightScope upright(hdc, x, WidthOf(hdc, *pBuffer, nStart, nEnd));
    x = upright.Left();
    if (IsPaintedAsRead(*pBuffer)) {
        PaintInOrder(hdc, x, y, *pBuffer, nStart, nEnd, UNCUT);
        return;
    }
    const UINT nItems = UsableItems(*pBuffer);
    const UINT nLast = FindRun(*pBuffer, nEnd);
    UINT nCur = nStart;
    for (UINT n = FindRun(*pBuffer, nStart); n <= nLast && n < nItems; ++n) {
        const stcDrawTextRun& run = pBuffer->pRuns[n];
        const int nSlice = nEnd > RunEnd(run) ? run.nGlyphs : static_cast<int>(nEnd - nCur);
        PaintSlice(hdc, x, y, *pBuffer, n, nCur, nSlice);
        x = WrapAdd(x, SumAdvances(*pBuffer, nCur, nCur + static_cast<UINT>(nSlice)));
        nCur += static_cast<UINT>(nSlice);
    }
}

void CDrawText::DrawText_TextOut_cxMax(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nLine,
                                       UINT cxMax)
{
    if (!IsBuffer(pBuffer) || !pBuffer->pBreaks) {
        return;
    }
    if (nLine > pBuffer->nBreaks) {
        Misuse("CDrawText::DrawText_TextOut_cxMax: no such line");
        return;
    }
    const UINT nStart = nLine == 0 ? 0 : pBuffer->pBreaks[nLine - 1].nGlyph;
    const UINT nCount = CountFitting(*pBuffer, nStart, pBuffer->pBreaks[nLine].nGlyph, cxMax);
    if (IsPaintedAsRead(*pBuffer)) {
        const UprightScope upright(hdc, x, WidthOf(hdc, *pBuffer, nStart, nStart + nCount));
        PaintInOrder(hdc, upright.Left(), y, *pBuffer, nStart, pBuffer->pBreaks[nLine].nGlyph, cxMax);
        return;
    }
    DrawText_TextOut_Start_Glyph(hdc, x, y, pBuffer, nStart, nCount);
}

// Fixed behaviour: the glyphs are counted from the start of the text and not from nItem's first one; other
// glyphs would show otherwise.
void CDrawText::DrawText_TextOut_Item(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nItem,
                                      UINT /*nReserved*/)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    const UINT nItems = UsableItems(*pBuffer);
    const UprightScope upright(
        hdc, x, nItem < nItems ? WidthOf(hdc, *pBuffer, pBuffer->pRuns[nItem].nFirstGlyph, UNCUT) : 0);
    x = upright.Left();
    if (IsPaintedAsRead(*pBuffer) && nItem < nItems) {
        PaintInOrder(hdc, x, y, *pBuffer, pBuffer->pRuns[nItem].nFirstGlyph, UNCUT, UNCUT);
        return;
    }
    UINT nFirst = 0;
    for (UINT n = nItem; n < nItems; ++n) {
        const stcDrawTextRun& run = pBuffer->pRuns[n];
        PaintSlice(hdc, x, y, *pBuffer, n, nFirst, run.nGlyphs);
        x = WrapAdd(x, RunWidth(run));
        nFirst += static_cast<UINT>(run.nGlyphs);
    }
}

// The pen moves by the whole item, also where only a part of it was painted.
void CDrawText::DrawText_TextOut_Char(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nGlyphs)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    const UprightScope upright(hdc, x, WidthOf(hdc, *pBuffer, 0, nGlyphs));
    x = upright.Left();
    if (IsPaintedAsRead(*pBuffer)) {
        PaintInOrder(hdc, x, y, *pBuffer, 0, nGlyphs, UNCUT);
        return;
    }
    const UINT nItems = UsableItems(*pBuffer);
    UINT nLeft = std::min(nGlyphs, UsableGlyphs(*pBuffer));
    for (UINT n = 0; n < nItems && nLeft != 0; ++n) {
        const stcDrawTextRun& run = pBuffer->pRuns[n];
        const UINT nSlice = std::min(nLeft, static_cast<UINT>(run.nGlyphs));
        PaintSlice(hdc, x, y, *pBuffer, n, run.nFirstGlyph, static_cast<int>(nSlice));
        x = WrapAdd(x, RunWidth(run));
        nLeft -= nSlice;
    }
}

void CDrawText::DrawText_TextOut_Line(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nLine)
{
    if (!IsBuffer(pBuffer) || !pBuffer->pBreaks) {
        return;
    }
    if (nLine > pBuffer->nBreaks) {
        Misuse("CDrawText::DrawText_TextOut_Line: no such line");
        return;
    }
    const UINT nStart = nLine == 0 ? 0 : pBuffer->pBreaks[nLine - 1].nGlyph;
    const UINT nEnd = pBuffer->pBreaks[nLine].nGlyph;
    const UprightScope upright(hdc, x, WidthOf(hdc, *pBuffer, nStart, nEnd));
    PaintInOrder(hdc, upright.Left(), y, *pBuffer, nStart, nEnd, UNCUT);
}
