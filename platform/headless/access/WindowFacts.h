// What the platform says to accessibility clients of a window that says nothing itself.
#pragma once

#include "../windows/Desktop.h"

namespace gesso::headless {

// `object` is OBJID_WINDOW, OBJID_CLIENT, OBJID_VSCROLL, OBJID_HSCROLL or OBJID_CARET. Of a window that is
// gone there are role and state alone: it is invisible.
DWORD RoleOf(HWND hwnd, LONG object);
DWORD StateOf(HWND hwnd, LONG object);
// The window's text, or for a field the text before it, without the mark of its mnemonic; what a bar is.
WideText NameOf(HWND hwnd, LONG object);
// "Alt+S", or nothing.
WideText ShortcutOf(HWND hwnd, LONG object);
// A field's text, and a bar's position in percent.
WideText ValueOf(HWND hwnd, LONG object);
// "Press", "Check", "Uncheck", or nothing.
WideText ActionOf(HWND hwnd, LONG object);
RECT PlaceOf(HWND hwnd, LONG object);

// What the window of a field takes by put_accValue.
bool IsField(HWND hwnd);
bool IsPassword(HWND hwnd);
// The window below the thread's user that has the focus, null if none has.
HWND FocusBeside(HWND hwnd);
std::vector<HWND> ChildWindows(HWND hwnd);

} // namespace gesso::headless
