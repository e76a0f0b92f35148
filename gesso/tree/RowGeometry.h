// Where rows stand, in pixels from the top of the first one.
#pragma once

#include <gesso/containers/Index.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace gesso {

struct RowPlace
{
    UINT row;
    int64_t nTop;
    int64_t nBottom;
};

// The rectangle of a row in a client area that is scrolled down by nPos.
inline RECT RectOf(const RowPlace& place, int nPos, int cx)
{
    const auto y = [nPos](int64_t n) { return static_cast<LONG>(std::min<int64_t>(n - nPos, INT_MAX)); };
    return {0, y(place.nTop), cx, y(place.nBottom)};
}

// Rows of one height.
struct EvenRows
{
    UINT nHeight;

    RowPlace PlaceOf(UINT row) const
    {
        // As many rows as can be counted may be as high as a height can be.
        const auto nTop = static_cast<int64_t>(std::min<uint64_t>(uint64_t{row} * nHeight, INT64_MAX / 2));
        return {row, nTop, nTop + nHeight};
    }
    // The row at y, whether there are as many or not; of rows without a height there is none.
    UINT RowAt(int64_t y) const { return nHeight ? static_cast<UINT>(y) / nHeight : NO_INDEX; }
    // What the scroll range of so many rows ends with.
    int LastPixel(UINT nRows) const
    {
        return static_cast<int>(std::min<int64_t>(PlaceOf(nRows).nTop, INT_MAX)) - 1;
    }
};

} // namespace gesso
