#include <gesso/framework/DpiApi.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowDpi.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr int POINTS_PER_INCH = 72;
constexpr int BASE_DPI = USER_DEFAULT_SCREEN_DPI;
constexpr int PERCENT = 100;

} // namespace

int Pixels(HWND hwnd, Measure measure)
{
    if (GetScaling() == Scaling::None) {
        return measure.nPixels;
    }
    const auto nDpi = static_cast<int>(DpiOf(hwnd));
    switch (measure.kind) {
    case MeasureKind::Text:
        return std::max(MulDiv(measure.nPixels, nDpi * TextPercent(), BASE_DPI * PERCENT), 1);
    case MeasureKind::Line: return std::max(measure.nPixels * nDpi / BASE_DPI, 1);
    default: return std::max(MulDiv(measure.nPixels, nDpi, BASE_DPI), 1);
    }
}

int SystemMetric(HWND hwnd, int nIndex)
{
    return GetScaling() == Scaling::None ? GetSystemMetrics(nIndex) : PlatformMetric(nIndex, DpiOf(hwnd));
}

int FontHeight(HWND hwnd, int nPoints)
{
    if (GetScaling() == Scaling::None) {
        return ScreenFontHeight(nPoints);
    }
    const auto nDpi = static_cast<int>(DpiOf(hwnd));
    return -std::max(MulDiv(nPoints * TextPercent(), nDpi, POINTS_PER_INCH * PERCENT), 1);
}

int ScreenFontHeight(int nPoints)
{
    const WindowContext screen(nullptr);
    return -MulDiv(nPoints, GetDeviceCaps(screen, LOGPIXELSY), POINTS_PER_INCH);
}

} // namespace gesso
