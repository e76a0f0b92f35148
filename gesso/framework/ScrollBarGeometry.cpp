#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollBarGeometry.h>

#include <algorithm>

namespace gesso {

int RangeOf(const SCROLLINFO& si)
{
    return static_cast<int>(static_cast<UINT>(si.nMax) - static_cast<UINT>(si.nMin));
}

int ClampPos(const SCROLLINFO& si, int nPos)
{
    if (nPos < si.nMin) {
        return si.nMin;
    }
    return std::min(nPos, static_cast<int>(static_cast<UINT>(si.nMax) - si.nPage + 1));
}

Thumb ThumbOf(HWND hwnd, const BarTraits& traits, int nBarLength, const SCROLLINFO& si)
{
    Thumb thumb{};
    const int nRange = RangeOf(si);
    const int nSmallest = SystemMetric(hwnd, traits.nThumbMetric);
    thumb.nTrack = nBarLength - 2 * SystemMetric(hwnd, traits.nArrowMetric);
    thumb.nLength = MulDiv(thumb.nTrack, static_cast<int>(si.nPage), nRange);
    if (thumb.nLength < nSmallest) {
        thumb.nTrack += thumb.nLength - nSmallest;
        thumb.nLength = nSmallest;
    }
    thumb.nOffset = MulDiv(thumb.nTrack, si.nPos, nRange);
    return thumb;
}

} // namespace gesso
