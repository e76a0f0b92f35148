// Places and sizes of windows.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Asks the window by WM_NCCALCSIZE for its client area within the frame that it has.
void CalculateClient(Window& window);
void SendSizeAndMove(Window& window);
// What SetWindowPos does.
BOOL Reposition(HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags);
// Puts a window before its siblings in z-order.
void RaiseToTop(Window& window);
// The frame that DefWindowProc leaves around a client area.
RECT FrameWidths(DWORD style, DWORD exStyle, bool menu);

// The window under a point of the screen, and what its WM_NCHITTEST says of it; null for the bare desktop.
WindowRef WindowAt(POINT point, LRESULT& hit);
// What a window says to that point; HTERROR where it is disabled, HTCLIENT for another thread's.
LRESULT HitIn(Window& window, POINT point);

} // namespace gesso::headless
