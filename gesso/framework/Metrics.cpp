#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>

namespace gesso {
namespace {

constexpr int POINTS_PER_INCH = 72;

} // namespace

int Pixels(HWND, Measure measure)
{
    return measure.nPixels;
}

int SystemMetric(HWND, int nIndex)
{
    return GetSystemMetrics(nIndex);
}

int FontHeight(HWND, int nPoints)
{
    const WindowContext screen(nullptr);
    return -MulDiv(nPoints, GetDeviceCaps(screen, LOGPIXELSY), POINTS_PER_INCH);
}

} // namespace gesso
