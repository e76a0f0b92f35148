// The measures: every length in pixels and every font height that is the library's own, and the one way to
// the system's. A control asks for each when it uses it and names its window, so that a measure can follow
// the window it is for.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A length of the library's own, in pixels at 96 dots an inch.
struct Measure
{
    int nPixels;
};

// What a measure is in a window, in its pixels; null for no window in particular.
int Pixels(HWND hwnd, Measure measure);

// GetSystemMetrics for a window.
int SystemMetric(HWND hwnd, int nIndex);

// The height of a font of so many points, as LOGFONTW counts it: negative.
int FontHeight(HWND hwnd, int nPoints);

// By family, in the order of the folders.
namespace Metrics {

// --- Fonts, in points
inline constexpr int DEFAULT_FONT_POINTS = 9;

// --- Trees
inline constexpr Measure TREE_ITEM_HEIGHT{20};

} // namespace Metrics

} // namespace gesso
