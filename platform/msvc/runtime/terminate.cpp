// What an exception ends in that leaves a function which lets none out. It belongs to Microsoft's runtime for
// each compiler, not to the C runtime that is part of Windows.
#include <stdlib.h>

extern "C" [[noreturn]] void __cdecl __std_terminate() noexcept
{
    abort();
}
