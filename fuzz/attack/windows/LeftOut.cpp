// What the simulated desktop alone can do.

#include "../ControlWorld.h"
#include "../Dialogs.h"
#include "../Plain.h"

namespace attack {

// The style's numbers are its file's, and the settings are those of the session's other programs as well.
void AddSettings(Table&) {}

// The platform fails when it likes.
void AddFaults(Table&) {}

void AddFonts(Table&) {}

// A program's resources are built into it.
void AddFromResources(Table&) {}

// Classes that the host registers as the library does its own need operations that the DLL keeps to itself.
void AddHostBases(std::vector<AttackedClass>&) {}

// The model stands beside the library's own sources.
void AddFields(std::vector<AttackedClass>&) {}

} // namespace attack
