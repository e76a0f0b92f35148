// How controls act: as programs know them that were written for them long ago, or as users of Windows know
// controls today. docs/quirks.md tells what differs, rule by rule.
//
// A new program calls SetBehavior(gesso::Behavior::Modern) once, before it makes its first control.
#pragma once

#include <gesso/framework/GWnd.h>

// Styles of check boxes and radio buttons, in Modern; in Classic they do nothing.
constexpr DWORD GBS_AUTO = 0x0200;   // a click changes the mark by itself, before BN_CLICKED is sent
constexpr DWORD GBS_3STATE = 0x0400; // with GBS_AUTO, of a check box: three marks rather than two

// Notification of a ribbon, in Modern: another tab is active. GLISTNOTIFY; iItem is the page's index, or -1.
constexpr UINT GRN_TABCHANGED = 0u - 700u;

namespace gesso {

enum class Behavior
{
    Classic, // what each control's page tells, every fixed rule of it included
    Modern   // the rules of docs/quirks.md are the new ones
};

// For controls made from now on, by any thread of the process; Classic at first. A control keeps what it was
// made with; an object that is given a second window takes the behaviour of then. A value that is none is
// ignored.
GESSO_API void SetBehavior(Behavior behavior);
GESSO_API Behavior GetBehavior();
// What a control's window was made with. Classic for any other window, and for null.
GESSO_API Behavior BehaviorOf(HWND hwnd);

// From now on the window deletes the object when it goes, as it does with one that a dialog template made.
// For an object that `new` or CreateControl made, once it has its window, in both behaviours; one without a
// window, and null, are ignored.
GESSO_API void OwnByWindow(GWnd* pObject);

// Shows focus rectangles and underlined mnemonics in a window and all below it, and in those that are made
// there later. Controls made in Modern call it themselves, for their top-level window: for the focus
// rectangles at the first Tab or arrow, for both at the first Alt. What is no window is ignored.
GESSO_API void ShowKeyboardCues(HWND hwnd);

} // namespace gesso
