// Where the list of a combo box that was made in Modern opens.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Pixels; rectangles in screen coordinates.
struct ComboListRoom
{
    RECT rcControl;
    RECT rcWork; // of the control's monitor; empty where that is not known
    int cxLeast;
    int cxWidest; // of the items' texts, with what is around them in a row
    int cxBar;
    SIZE frame; // what it takes off each side
    int cyRow;
    UINT nItems;
    UINT nMostRows;
    UINT cyMost; // with the frame; 0 for any
    bool fMirrored = false;
};

// Below the control where there is room for all that is to be seen, or more than above; otherwise above. Full
// rows, and at least one. As wide as the control, cxLeast or the widest text, whichever is most, within the
// monitor; what is more than the control is at its right, and of a mirrored one at its left.
RECT PlaceComboList(const ComboListRoom& room);

// What the frame of a combo box's list takes off each side: the style's, or the system's where it has none,
// and with scaling where the style's is that of other dots an inch.
SIZE ComboListFrame(HTHEME hComboTheme, HWND hwnd);

} // namespace gesso
