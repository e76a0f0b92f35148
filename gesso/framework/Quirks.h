// The fixed rules that controls made in Classic keep and those made in Modern do not have: each has its name
// here and its row in docs/quirks.md, and the control asks for it at the one place where it matters.
// scripts/check-quirks.py compares the three.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

enum class Quirk
{
    // All controls
    ContextMenuEnds,     // WM_CONTEXTMENU and the menu key do not leave most of the controls
    CuesStayHidden,      // a key shows focus rectangles and mnemonics only where the platform says so
    StateOutlivesWindow, // pressed, hot and the like are what they were before a second Create
    RedrawShows,         // WM_SETREDRAW is the platform's, which shows a window that was hidden
};

// Whether a control has the rule. An object without a window has what it would be made with now.
bool Has(const GWnd& wnd, Quirk quirk);

} // namespace gesso
