// The library's windows that live, of all threads: its controls from their attachment to their end, and its
// dialogs. Who repaints when the look changes, and how many dots an inch each has.
#pragma once

#include <gesso/api.h>

#include <vector>

namespace gesso {

struct LibraryWindow
{
    HWND hwnd;
    UINT uDpi;      // 0 until it is known
    UINT uImageDpi; // what its images were given for, where its dots an inch have changed since it was made
};

// A window that is there already gets the new dots. False without memory.
bool AddLibraryWindow(HWND hwnd, UINT uDpi);
// Those that went with their thread go as well, where none that lives is in front of them.
void RemoveLibraryWindow(HWND hwnd);
bool HasLibraryWindows();

// What is known of a window; all zero for one that is not the library's.
LibraryWindow KnownWindow(HWND hwnd);
// Writes it back; nothing where the window has gone meanwhile.
void SetKnownWindow(const LibraryWindow& window);

// In the order of their handles. The second needs no memory: the next one, null behind the last.
std::vector<LibraryWindow> LibraryWindows();
HWND NextLibraryWindow(HWND hwndFormer);

} // namespace gesso
