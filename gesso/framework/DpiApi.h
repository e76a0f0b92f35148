// The platform's operations that take or give dots an inch, which not every Windows has: looked up when they
// are first needed. What stands in for one that is not there is what an older Windows does.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Of the first screen; never 0.
UINT PlatformDpi();
// Of a window's screen; never 0.
UINT PlatformDpiOf(HWND hwnd);
// GetSystemMetrics for so many dots an inch.
int PlatformMetric(int nIndex, UINT uDpi);
// The font of captions for so many dots an inch; false where the platform does not tell.
bool PlatformCaptionFont(UINT uDpi, LOGFONTW* pFont);
// The platform lays a dialog out for other dots by itself, where it knows how to: from now on it does not.
void LeaveLayoutToProgram(HWND hDlg);
HTHEME OpenPlatformTheme(HWND hwnd, LPCWSTR pszClass, UINT uDpi);
// Whether the margins of a style's parts are those of the dots that it is opened for: Wine has the same for
// all. Asked of the platform once, and again after ForgetMargins.
bool DoMarginsScale();
void ForgetMargins();

} // namespace gesso
