// The controls of a dialog box, and which of its buttons is the default one.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

LRESULT DialogCode(HWND control);
// The dialog's control that calls itself the default button; null if none does.
HWND FindDefaultButton(HWND dialog);
// Makes the button with an id the default one, as DM_SETDEFID does.
void SetDefaultId(Window& dialog, UINT id);
// Shows the button that has the focus as the default one, or the real default if the focus is on no button.
void ShowDefaultFor(HWND dialog, HWND focus);
// Sets the focus as the keyboard does: the text of a field is selected.
void FocusControl(HWND control);
// Carries out the mnemonic of a control. False if no control has that one.
bool PressMnemonic(HWND dialog, HWND from, WPARAM character);

} // namespace gesso::headless
