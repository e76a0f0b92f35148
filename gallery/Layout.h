// Where the gallery's controls stand on the screen, for tests that drive it with a real pointer.
#pragma once

#include <gesso/gesso.h>

#include <string>

namespace gallery {

// Writes a line for each visible control below a window: class, id, text, and x, y, width and height in
// screen pixels, parted by tabs. The file is complete as soon as it has its name.
void WriteLayout(HWND hwnd, const std::wstring& path);

} // namespace gallery
