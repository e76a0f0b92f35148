// What is to run at the end: of a program, which the C runtime keeps, or of a DLL, which keeps it itself,
// since it may be unloaded before.
// Each module has its own: the C runtime's headers would have it imported, and so exported from here.
#define _ACRTIMP
#include "runtime.h"

extern "C" {

int __cdecl _crt_atexit(void(__cdecl*)());
int __cdecl _register_onexit_function(runtime::Endings*, int(__cdecl*)());

int __cdecl atexit(void(__cdecl* pfn)())
{
    return runtime::g_pEndings
               ? _register_onexit_function(runtime::g_pEndings, reinterpret_cast<int(__cdecl*)()>(pfn))
               : _crt_atexit(pfn);
}

} // extern "C"

runtime::Endings* runtime::g_pEndings = nullptr;
