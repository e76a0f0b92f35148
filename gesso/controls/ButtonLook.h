// What the states of the button family look like.
#pragma once

#include <gesso/controls/ControlStyles.h>

namespace gesso {

// Of a button's state word: BM_SETSTATE shows it pressed, with nothing behind it.
inline constexpr DWORD SHOWN_PRESSED = 0x80;

// PBS_PRESSED, PBS_HOT, PBS_DISABLED or PBS_NORMAL, by the state bits and the window style. Every part of the
// family has these numbers for them.
int PressState(DWORD dwState, DWORD dwStyle);

// The same for a button that may be a dialog's default: PBS_DEFAULTED instead of PBS_NORMAL.
int PressStateOfDefault(DWORD dwState, DWORD dwStyle);

bool ShowsFocus(HWND hwnd, DWORD dwState);

} // namespace gesso
