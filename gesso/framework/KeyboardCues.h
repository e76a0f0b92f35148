// The signs of the keyboard, focus rectangles and underlined mnemonics, which controls show once their user
// works with it. Windows tells them when; where nobody does, controls made in Modern tell each other.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

// UISF_ bits as the state word has them.
constexpr DWORD StateOfCues(WORD wCues)
{
    return static_cast<DWORD>(wCues & (UISF_HIDEFOCUS | UISF_HIDEACCEL)) << 5;
}

// What a user shows by a message that a control gets, as UISF_ bits: by a key that goes from control to
// control, also where a dialog only asks who wants it, or has gone already; and by Alt.
WORD CuesOfMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);

// Tells a window and all below it, and notes it for those that are made there later. Sends messages.
void ShowCues(HWND hwnd, WORD wCues);

// What was noted for a window or one around it.
WORD CuesShownAround(HWND hwnd);

} // namespace gesso
