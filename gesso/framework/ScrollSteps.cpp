#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ScrollSteps.h>

namespace gesso {

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

std::optional<int64_t> WheelTarget(HWND hwnd, const SCROLLINFO& si, int nDelta)
{
    if (static_cast<int>(si.nPage) >= RangeOf(si)) {
        return std::nullopt;
    }
    return si.nPos - int64_t{nDelta / WHEEL_DELTA} * WheelLines() * Pixels(hwnd, Metrics::WHEEL_LINE);
}

} // namespace gesso
