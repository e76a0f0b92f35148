// Press and release, by the pointer and the space key: the machine of the button family, whose halves other
// controls that are pressed use too.
//
// A click needs one release, of the space key or of the mouse button, with the other not held. The states are
// those of GWS_HOT, GWS_PRESSED and GWS_KEYDOWN; the mouse holds the capture while pressed.
#pragma once

#include <gesso/framework/Frame.h>

namespace gesso {

// Inside means within the client rectangle, its right and bottom edges included.
int HitTestClient(HWND hwnd, POINTS pt);

LRESULT OnButtonKeyDown(GWnd& wnd, UINT uKey);
LRESULT OnButtonKeyUp(GWnd& wnd, UINT uKey, Frame::ClickFunction pfnClick = Frame::SendClick);
// Focus, capture and GWS_PRESSED; false where the control was destroyed meanwhile.
bool TakePress(GWnd& wnd);
// Gives the capture up again. False where nothing was pressed, or the control was destroyed meanwhile.
bool EndPress(GWnd& wnd);
LRESULT OnButtonDown(GWnd& wnd);
// fKeyHolds: a held space key keeps the mouse from clicking.
LRESULT OnButtonUp(GWnd& wnd, POINTS pt, bool fKeyHolds = true,
                   Frame::ClickFunction pfnClick = Frame::SendClick);
LRESULT OnButtonMove(GWnd& wnd, POINTS pt);

} // namespace gesso
