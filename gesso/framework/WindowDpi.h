// What scaling is made of: which windows are the library's and how many dots an inch each has, the user's
// text size, the default font of each size, and the messages that change any of it.
#pragma once

#include <gesso/framework/Scaling.h>

namespace gesso {

// A window that the library answers for, from its attachment to its end. False without memory.
bool KeepWindow(HWND hwnd);
void ForgetWindow(HWND hwnd);
// A window that belongs to a control has its dots an inch.
void TakeDpi(HWND hwnd, HWND hwndOwner);

// In percent, from 100 to 225; 100 with None.
int TextPercent();
// Reads the user's text size again; all controls follow where it is another one.
void FollowTextSize();

// The font that a control of the window starts with: g_hDefaultFont, but for a window that another height is
// for. Null before InitControls.
HFONT DefaultFontOf(HWND hwnd);
// Whether that of some window is this one, or was it once.
bool IsDefaultFont(HFONT hFont);
// A font like another in another height, which lives as long as the library has any window; null for none,
// and without memory. The same one for all who ask.
HFONT FontInHeight(HFONT hFont, int nHeight);
// Whether a font is one of these, or a default font; that of the first height with scaling alone.
bool IsSharedFont(HFONT hFont);
// All of them go where the library has no window any more.
void ReleaseSharedFonts();

// A message that may change how large things are in a window.
bool IsScalingMessage(UINT uMsg);
// What of a window's measures are others than before, as far as can be known.
enum class ScalingChange
{
    None,
    Text, // with the user's text size
    Dpi   // all of them
};
// Of such a message: takes what it tells.
ScalingChange TakeScaling(HWND hwnd, UINT uMsg, WPARAM wParam);

// How many times as large an image is drawn that its host gave before the window's dots an inch changed: a
// whole number. TakeNewImages: the host has given another one.
int ImageFactor(HWND hwnd);
void TakeNewImages(HWND hwnd);

} // namespace gesso
