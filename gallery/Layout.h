// Where the gallery's controls stand on the screen, for tests that drive it with a real pointer.
#pragma once

#include <gallery/Page.h>

namespace gallery {

// Writes a line for each visible control below a window, for each dialog that is open and its controls, and
// for each part: class or kind, id, text, and x, y, width and height in screen pixels, parted by tabs. The
// last lines tell the active window, the control that has the focus, and whether the window is "enabled" or
// "disabled". The file is complete as soon as it has its name.
void WriteLayout(HWND hwnd, const std::vector<Part>& parts, const std::wstring& path);

} // namespace gallery
