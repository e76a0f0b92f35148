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

// --- Scroll bars of the frame
inline constexpr Measure WHEEL_LINE{20};

// --- Parts of the style as they look without one
inline constexpr Measure PLAIN_GLYPH_REACH{4};      // of a tree's box from its middle
inline constexpr Measure PLAIN_GLYPH_MARK_REACH{2}; // of the plus or minus in it

// --- Labels, buttons and the other small controls
inline constexpr Measure LABEL_INSET{1};
inline constexpr Measure IMAGE_GAP{5};          // between an image and the text
inline constexpr Measure CHECK_BOX_GAP{3};      // between a check box's box and its content
inline constexpr Measure CHECK_FOCUS_MARGIN{2}; // around the text
inline constexpr Measure COMMAND_GLYPH_GAP{5};  // between a command link's glyph and its text
inline constexpr Measure SCROLLBAR_BUTTON{17};  // the extent of a button of GScrollbar, and the bar's width
inline constexpr Measure SCROLLBAR_SMALLEST_THUMB{22};

// --- Trees
inline constexpr Measure TREE_ITEM_HEIGHT{20};

} // namespace Metrics

} // namespace gesso
