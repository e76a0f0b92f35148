// Window classes.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// The class that a name or an atom in its place stands for, as seen from a module; null if there is none.
WindowClass* FindClass(LPCWSTR nameOrAtom, HINSTANCE instance);
// Makes one of the desktop's own classes known, to every module.
void RegisterBuiltInClass(LPCWSTR name, UINT style, WNDPROC procedure, int extraBytes);
void RegisterBuiltInClasses();

} // namespace gesso::headless
