// What a program with Microsoft's C++ interface starts with, in place of that compiler's own static runtime:
// the C runtime is the system's ucrtbase.dll, and exceptions are handled by the system's msvcrt.dll.
#pragma once

#include <windows.h>

namespace runtime {

// Runs what is to run before anything else of a module, in the order of its sources.
void RunInitialisers();

} // namespace runtime
