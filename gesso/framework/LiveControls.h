// What all windows of the library do when the look changes, of all threads.
#pragma once

namespace gesso {

// Each of them repaints with its frame, and so does what it stands in.
void RepaintControls();

} // namespace gesso
