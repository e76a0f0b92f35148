// What the system says of the look that programs are to have, and how the library hears of a change.
#pragma once

#include <gesso/framework/Appearance.h>

namespace gesso {

// What ColorScheme::System comes to now.
ColorScheme SchemeOfSystem();

// Whether changes are heard of: by a hidden top-level window, which belongs to the thread that asks first.
void FollowSystem(bool fFollow);
// The same for the user's text size.
void HearOfTextSize(bool fHear);

// The system's colours or settings have changed: for all controls, and for one that was told by a message.
void TakeSystemColors();
void TakeSystemColorsFor(HWND hwnd);

// A dialog of the library's gets a caption of the scheme. For each of its messages.
void FitCaption(HWND hDlg, UINT uMsg);

} // namespace gesso
