// How the controls look: light as the visual style draws them, dark, or in the colours of a contrast theme.
//
//     gesso::SetColorScheme(gesso::ColorScheme::System); // once, before the first control or at any time
//
// What a host paints beside the controls it takes from here, so that both go together: a window that controls
// stand on is filled with ColorOf(ColorRole::Panel), a page that looks like a list with Window. A control
// shows its parent's background where it has none of its own (labels, check boxes, the ribbon): the parent
// answers WM_ERASEBKGND and WM_PRINTCLIENT with it, a dialog WM_CTLCOLORDLG and WM_CTLCOLORSTATIC.
#pragma once

#include <gesso/api.h>

namespace gesso {

enum class ColorScheme
{
    Light,    // as the visual style draws; what a program has that sets none
    Dark,     // drawn by the library itself, from a palette
    Contrast, // the same, in the user's system colours and nothing else
    System    // Contrast where the user has a contrast theme, else Dark or Light as the user wants programs
};

// Of the process: the controls of all its threads repaint, and the windows that they stand in. Fonts and
// sizes stay. System is followed as the user changes it, from when it is set until the last control goes, and
// again with the next one; the thread that sets it, or made that control, must dispatch messages for that. A
// value that is none is ignored.
GESSO_API void SetColorScheme(ColorScheme scheme);
// As set; Light at first.
GESSO_API ColorScheme GetColorScheme();
// Light, Dark or Contrast: what System comes to.
GESSO_API ColorScheme ActiveColorScheme();

enum class ColorRole
{
    Window,     // lists, trees, fields
    WindowText, // on it
    Panel,      // what controls stand on
    PanelText,
    DisabledText,
    Selection,
    SelectionText,
    InactiveSelection, // of a control without the focus
    InactiveSelectionText,
    HotRow, // under the pointer; its text is WindowText
    Line,   // between things
    Border, // around fields and boxes
    Accent, // what is chosen, and how far something is
    AccentText,
    Link,
    Header, // of a list
    HeaderText,
    Hint // texts that stand back: captions, titles of groups, what an empty field shows
};

// The shade of a role in the scheme that is active. In Light the system's colour that comes nearest; the
// controls are the visual style's there. CLR_INVALID for a role that is none.
GESSO_API COLORREF ColorOf(ColorRole role);
// A host's own shade, from now on in the scheme that is active and in no other; all controls repaint.
// CLR_DEFAULT takes it back. In Light only what the library paints by itself follows. A role that is none is
// ignored, and so is anything that is no shade of red, green and blue.
GESSO_API void SetColor(ColorRole role, COLORREF cr);

} // namespace gesso
