// Radio buttons with GBS_AUTO that belong together: all of a parent's from a window with WS_GROUP to the
// next.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Takes the marks of all others of a button's group, hidden ones too.
void UncheckOthers(HWND hwnd);

// Tab stops at the checked button of a group. What a button does whose mark comes or goes, and a new one.
void MoveTabStop(HWND hwnd, bool fChecked);
void JoinGroup(HWND hwnd);

// What a button of a group adds to WM_GETDLGCODE: it takes the arrow keys.
LRESULT CodeOfArrows(LPARAM lParam);
// An arrow key: the focus and the mark go on to the next button that can have them. False for any other key.
bool GoInGroup(HWND hwnd, WPARAM wKey);

} // namespace gesso
