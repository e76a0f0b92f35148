// The frame's way to assistive technology: the one message that asks for a control's description, the end of
// what was given out, and the events. What stands behind the first two is in gesso/access/, above the frame.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

class AccessibleSide;

// WM_GETOBJECT of a control or dialog whose class describes itself. False where it asks for what is the
// platform's to give.
bool AnswersGetObject(GWnd& wnd, HWND hwnd, const AccessibleSide& side, WPARAM wParam, LPARAM lParam,
                      LRESULT* plAnswer);

// The window goes, or its object: whatever was given out of it answers no more.
void EndAccess(HWND hwnd);

// Tells whoever listens that something changed, by the platform's EVENT_ numbers; child 0 is the control
// itself, its items count from 1. A listener within the process is called at once and may do anything: tell
// last, or look again afterwards.
void TellAccess(HWND hwnd, DWORD dwEvent, LONG nChild = 0);
// The focus came, and an item has it. Of a window that has it itself, child 0, the platform tells.
void TellItemFocus(HWND hwnd, LONG nChild);

} // namespace gesso
