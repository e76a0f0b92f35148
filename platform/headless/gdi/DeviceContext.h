// What the window manager needs of the graphics half: contexts of windows, and regions (CreateRectRgn,
// CombineRgn, ... under the platform's own names).
#pragma once

#include "../core/Area.h"

namespace gesso::headless {

// Makes a context that draws into a window's client area, or into the whole window, of that size, with the
// window's layout.
HDC CreateWindowContext(HWND hwnd, SIZE size, bool wholeWindow, DWORD layout = 0);
// Ends a context that CreateWindowContext made, with whatever is selected into it.
void DeleteWindowContext(HDC hdc);
// The window that a context draws into; null for a memory context or a stale handle.
HWND WindowOfContext(HDC hdc);

// Clips a window's context to an area in its own coordinates, as BeginPaint does with the invalid region.
// Unlike the region of SelectClipRgn it cannot be replaced by the program.
void SetVisibleArea(HDC hdc, const Area& area);

// Gives the pixels of a rectangle a value, where the context draws into a bitmap that has pixels of 32 bits.
void SetPixels(HDC hdc, const RECT& rect, DWORD value);
// The same with a picture of the rectangle's size, `stride` pixels a row, whose pixels are multiplied by
// their opacity, which stands in the high byte; `opaque` for one that has none.
void BlendPixels(HDC hdc, const RECT& rect, const DWORD* from, int stride, bool opaque);

// Forgets what was drawn into a window, which is going.
void ForgetDrawing(HWND hwnd);
// Puts everything of the graphics half that Reset() covers back to its first state.
void ResetGraphics();

} // namespace gesso::headless
