#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>

namespace gesso {
namespace {

// A stretch of a bar from one distance to another along its axis.
RECT Stretch(const RECT& rc, bool fVertical, int nFrom, int nTo)
{
    const auto at = [](LONG nStart, int n) { return Wrapped(int64_t{nStart} + n); };
    return fVertical ? RECT{rc.left, at(rc.top, nFrom), rc.right, at(rc.top, nTo)}
                     : RECT{at(rc.left, nFrom), rc.top, at(rc.left, nTo), rc.bottom};
}

int ThumbEnd(const BarStops& stops)
{
    return Wrapped(int64_t{stops.nThumb} + stops.nThumbLength);
}

} // namespace

int LengthOf(const BarTraits& traits, const RECT& rc)
{
    return IsVertical(traits) ? rc.bottom - rc.top : rc.right - rc.left;
}

PartRule RuleOf(const BarTraits& traits, WORD wPart)
{
    if (wPart == traits.wFirst) {
        return {SB_LINEUP, GSB_DISABLE_FIRST};
    }
    if (wPart == traits.wLast) {
        return {SB_LINEDOWN, GSB_DISABLE_LAST};
    }
    if (wPart == traits.wPageFirst) {
        return {SB_PAGEUP, GSB_DISABLE_PAGEFIRST};
    }
    if (wPart == traits.wPageLast) {
        return {SB_PAGEDOWN, GSB_DISABLE_PAGELAST};
    }
    return {NO_SCROLL_CODE, wPart == traits.wThumb ? GSB_DISABLE_THUMB : 0};
}

WORD PartAt(const BarTraits& traits, const BarStops& stops, int nAt)
{
    if (nAt < stops.nArrow) {
        return traits.wFirst;
    }
    if (nAt > stops.nLength - stops.nArrow) {
        return traits.wLast;
    }
    if (nAt < stops.nThumb) {
        return traits.wPageFirst;
    }
    return nAt > ThumbEnd(stops) ? traits.wPageLast : traits.wThumb;
}

BarLayout LayOutBar(const BarTraits& traits, const RECT& rc, const BarStops& stops)
{
    const bool fVertical = IsVertical(traits);
    const int nLast = stops.nLength - stops.nArrow;
    return {Stretch(rc, fVertical, stops.nArrow, nLast), Stretch(rc, fVertical, 0, stops.nArrow),
            Stretch(rc, fVertical, nLast, stops.nLength),
            Stretch(rc, fVertical, stops.nThumb, ThumbEnd(stops))};
}

void EnlargeThumb(int nSmallest, int* pnTrack, int* pnLength)
{
    if (*pnLength < nSmallest) {
        *pnTrack = Wrapped(int64_t{*pnTrack} + *pnLength - nSmallest);
        *pnLength = nSmallest;
    }
}

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
    thumb.nTrack = nBarLength - 2 * SystemMetric(hwnd, traits.nArrowMetric);
    thumb.nLength = MulDiv(thumb.nTrack, static_cast<int>(si.nPage), nRange);
    EnlargeThumb(SystemMetric(hwnd, traits.nThumbMetric), &thumb.nTrack, &thumb.nLength);
    thumb.nOffset = MulDiv(thumb.nTrack, si.nPos, nRange);
    return thumb;
}

BarStops StopsOf(HWND hwnd, const BarTraits& traits, const RECT& rc, const SCROLLINFO& si)
{
    const int nLength = LengthOf(traits, rc);
    const int nArrow = SystemMetric(hwnd, traits.nArrowMetric);
    const Thumb thumb = ThumbOf(hwnd, traits, nLength, si);
    return {nLength, nArrow, Wrapped(int64_t{nArrow} + thumb.nOffset), thumb.nLength};
}

} // namespace gesso
