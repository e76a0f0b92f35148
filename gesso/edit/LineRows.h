// Where the lines of an edit field lie, one below the other: what painting, hits and the caret go by.
#pragma once

#include <gesso/framework/Saturate.h>

namespace gesso {

struct LineRows
{
    int nTop;    // of the first line
    int nHeight; // of each

    int TopOf(UINT nLine) const { return Saturated(nTop + int64_t{nHeight} * nLine); }
    // The line of nCount that y belongs to: above them all the first, below them the last.
    UINT LineAt(int64_t y, UINT nCount) const
    {
        const int64_t nBelowTop = y - nTop;
        return nBelowTop > 0 && nHeight > 0
                   ? static_cast<UINT>(std::min<int64_t>(nBelowTop / nHeight, int64_t{nCount} - 1))
                   : 0;
    }
};

} // namespace gesso
