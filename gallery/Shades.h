// The gallery's own colours. Beside controls in Light they are the gallery's, else those of the controls'
// scheme.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

enum class Shade
{
    Page,    // behind the controls
    Side,    // behind ribbon, list of pages and report
    Frame,   // around cells
    Box,     // behind the lines of prepared texts
    Edge,    // what can be dragged
    Text,    // plain
    Caption, // texts that stand back
    Title,   // of a wizard's page
    Answer,  // what a dialog answered
    Warning,
    Measure // lines that measure
};

COLORREF ColorOf(Shade shade);
// Good until the scheme changes, and not deleted.
HBRUSH PageBrush();
// What of a window is to be filled; for WM_ERASEBKGND.
void FillClient(HWND hwnd, HDC hdc, Shade shade);

} // namespace gallery
