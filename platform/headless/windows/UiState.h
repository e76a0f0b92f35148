// The signs of the keyboard: focus rectangles and underlined mnemonics, shown or hidden for a window and all
// in it.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// DefWindowProc's part of WM_CHANGEUISTATE, WM_UPDATEUISTATE and WM_QUERYUISTATE.
bool HandleUiState(Window& window, UINT message, WPARAM wParam, LRESULT& result);

} // namespace gesso::headless
