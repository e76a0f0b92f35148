#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ScrollSteps.h>

namespace gesso {
namespace {

// What is left of the turns of the wheel.
struct WheelRest
{
    const void* pBar; // only compared
    int nDelta;
};

} // namespace

int WheelNotches(const GWnd& wnd, const SCROLLINFO& si, int nDelta)
{
    static constinit thread_local WheelRest s_rest{};
    if (Has(wnd, Quirk::BarWheelDropsRest)) {
        return nDelta / WHEEL_DELTA;
    }
    const bool fGoesOn = s_rest.pBar == &si && (s_rest.nDelta < 0) == (nDelta < 0);
    const int nTurned = nDelta + (fGoesOn ? s_rest.nDelta : 0);
    s_rest = {&si, nTurned % WHEEL_DELTA};
    return nTurned / WHEEL_DELTA;
}

UINT WheelLines()
{
    UINT nLines = 1;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0);
    return nLines;
}

std::optional<int64_t> ScrollTarget(const SCROLLINFO& si, UINT uCode, UINT nThumb, int64_t nLine)
{
    const int64_t nPage = int64_t{si.nPage} * 5 / 6;
    switch (uCode) {
    case SB_LINEUP: return si.nPos - nLine;
    case SB_LINEDOWN: return si.nPos + nLine;
    case SB_PAGEUP: return si.nPos - nPage;
    case SB_PAGEDOWN: return si.nPos + nPage;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: return nThumb;
    default: return std::nullopt;
    }
}

UINT TrackedPos(const GWnd& wnd, const SCROLLINFO& si, UINT nTold)
{
    return Has(wnd, Quirk::BarThumbWraps) ? nTold : TrackedPos(si, nTold);
}

UINT TrackedPos(const SCROLLINFO& si, UINT nTold)
{
    const bool fSame = LOWORD(si.nTrackPos) == nTold && si.nTrackPos >= 0;
    return fSame ? static_cast<UINT>(si.nTrackPos) : nTold;
}

int64_t WheelTravel(const GWnd& wnd, const SCROLLINFO& si, int nDelta)
{
    return int64_t{WheelNotches(wnd, si, nDelta)} * WheelLines() *
           Pixels(Frame::Handle(wnd), Metrics::WHEEL_LINE);
}

std::optional<int64_t> WheelTarget(const GWnd& wnd, const SCROLLINFO& si, int nDelta)
{
    if (static_cast<int>(si.nPage) >= RangeOf(si)) {
        return std::nullopt;
    }
    return si.nPos - WheelTravel(wnd, si, nDelta);
}

} // namespace gesso
