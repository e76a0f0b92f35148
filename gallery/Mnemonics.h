// Alt and a letter presses the button that is marked with it.
//
// The dialog manager does that with BM_CLICK, which Gesso's buttons do not answer: they are clicked by the
// pointer and the space key alone. A host that wants mnemonics on its buttons puts this before
// IsDialogMessageW in its message loop.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// Whether the message was the mnemonic of a button below hwndTop, which is pressed by now.
bool PressMnemonic(HWND hwndTop, const MSG& msg);

} // namespace gallery
