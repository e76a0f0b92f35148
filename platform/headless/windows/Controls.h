// The platform's own simplest controls, for the templates of host dialogs: they keep a text and an id, tell
// the dialog what they are, and paint nothing.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

void RegisterBuiltInControls();

} // namespace gesso::headless
