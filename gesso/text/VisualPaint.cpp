#include <gesso/text/TextArrays.h>
#include <gesso/text/TextPaint.h>
#include <gesso/text/VisualOrder.h>

namespace gesso {

void PaintInOrder(HDC hdc, int x, int y, stcDrawTextBuffer& buffer, UINT nFirst, UINT nEnd, UINT cxMax)
{
    nEnd = std::min(nEnd, UsableGlyphs(buffer));
    if (nFirst >= nEnd) {
        return;
    }
    const UINT nFirstItem = FindRun(buffer, nFirst + 1);
    const UINT nItems = std::min(FindRun(buffer, nEnd) + 1, UsableItems(buffer)) - nFirstItem;
    const ItemOrder order(buffer, nFirstItem, nItems);
    for (UINT n = 0; n < nItems; ++n) {
        const UINT nItem = IsPaintedAsRead(buffer) ? order[n] : nFirstItem + n;
        const stcDrawTextRun& run = buffer.pRuns[nItem];
        const UINT nFrom = std::max(nFirst, run.nFirstGlyph);
        const UINT nTo = std::min(nEnd, RunEnd(run));
        const UINT nFitting = nFrom < nTo ? CountFitting(buffer, nFrom, nTo, cxMax) : 0;
        PaintSlice(hdc, x, y, buffer, nItem, nFrom, static_cast<int>(nFitting));
        if (nFrom + nFitting < nTo) {
            return;
        }
        const int cx = SumAdvances(buffer, nFrom, nFrom + nFitting);
        x = WrapAdd(x, cx);
        cxMax = cxMax == UNCUT ? UNCUT : cxMax - static_cast<UINT>(cx);
    }
}

void PaintLinesInOrder(HDC hdc, const RECT& rc, UINT uSide, stcDrawTextBuffer& buffer)
{
    const UINT cxMax = static_cast<UINT>(WrapSubtract(rc.right, rc.left));
    int y = FirstLineY(buffer, rc);
    UINT nStart = 0;
    for (UINT n = 0; n <= buffer.nBreaks; ++n) {
        const stcDrawTextBreak& line = buffer.pBreaks[n];
        PaintInOrder(hdc, LineX(uSide, rc, line.nWidth), y, buffer, nStart, line.nGlyph,
                     line.nWidth > cxMax ? cxMax : UNCUT);
        nStart = line.nGlyph;
        y = WrapAdd(y, buffer.nLineHeight);
    }
}

} // namespace gesso
