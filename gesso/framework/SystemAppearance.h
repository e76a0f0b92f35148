// What the system says of the look that programs are to have, and how the library hears of a change.
#pragma once

#include <gesso/framework/Appearance.h>

namespace gesso {

// What ColorScheme::System comes to now.
ColorScheme SchemeOfSystem();

// Changes are heard of by a hidden top-level window, as long as the scheme that is set is System or the
// user's text size is asked for, and until the last of the library's windows goes. It belongs to the thread
// that asks first; where it went with that, the next one who asks makes it again: when a scheme is set, a
// control comes or one paints.
void FollowSystem();
// Whether the user's text size is.
void HearOfTextSize(bool fHear);
void StopFollowing();
// The library's module goes: nothing may be sent now, and the window must not lead to it.
void LeaveListener();

// What System comes to may be another one now.
void RenewScheme();

// The system's colours or settings have changed: for all controls, and for one that was told by a message.
void TakeSystemColors();
void TakeSystemColorsFor(HWND hwnd);

// A dialog of the library's gets a caption of the scheme. For each of its messages.
void FitCaption(HWND hDlg, UINT uMsg);

} // namespace gesso
