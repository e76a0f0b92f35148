// How large controls are on a screen with more dots an inch than 96, and for a user who wants larger texts.
//
// A program calls SetScaling once, before it makes its first control, and says in its manifest that it is
// aware of the dots an inch (dpiAware, dpiAwareness): else the platform tells it of 96 everywhere. With
// System and PerMonitor every measure that is the library's own and every font that it makes is that of 96
// dots times the window's, and the fonts and the measures that hold text are larger by the user's text size
// besides. What a host gives in pixels stays as given: Scale tells it how much that should be.
//
// A control's GetFont may then give a font other than g_hDefaultFont, which lives as long as the library has
// any window: a host that wants it longer makes one like it.
#pragma once

#include <gesso/api.h>

// Notification by WM_NOTIFY, with an NMHDR: the window's dots an inch are others now, and DpiOf tells them.
// It comes once from each control that shows images, to its parent, which may give the control images that
// fit. Those that are not replaced are drawn at whole multiples, in the middle of their place.
constexpr UINT GN_DPICHANGED = 0u - 710u;

namespace gesso {

enum class Scaling
{
    None,      // every measure is that of 96 dots an inch
    System,    // that of the dots that the program's first screen has; a change is not followed
    PerMonitor // that of each window's own, followed at WM_DPICHANGED and WM_DPICHANGED_AFTERPARENT
};

// For all controls of the process, those that are there as well; None at first. A scaling that is none is
// ignored. Controls of other threads follow when these look at their messages.
GESSO_API void SetScaling(Scaling scaling);
GESSO_API Scaling GetScaling();

// The dots an inch that a window's measures are for: 96 with None, the first screen's with System. With
// PerMonitor those that the window heard of last, or the nearest window around it that is the library's, or
// the platform's answer. Null, or a window that is none: the first screen's.
GESSO_API UINT DpiOf(HWND hwnd);
// A length at 96 dots an inch as it is in a window, in pixels; rounded to the nearest, halves away from zero.
// One that is beyond the numbers ends with them, at INT_MAX or INT_MIN.
GESSO_API int Scale(HWND hwnd, int nPixels);

} // namespace gesso
