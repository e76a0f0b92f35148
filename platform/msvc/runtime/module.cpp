// What each module has: the table of its thread-local variables and the list of its initialisers, both of
// which the linker collects from sections by their names.
#include "runtime.h"

#include <stdlib.h>

using Initialiser = void(__cdecl*)();

#pragma section(".tls", long, read, write)
#pragma section(".tls$ZZZ", long, read, write)
#pragma section(".CRT$XLA", long, read)
#pragma section(".CRT$XLZ", long, read)
#pragma section(".CRT$XCA", long, read)
#pragma section(".CRT$XCZ", long, read)
#pragma section(".rdata$T", long, read)

extern "C" {

unsigned long _tls_index = 0;
__declspec(allocate(".tls")) char* _tls_start = nullptr;
__declspec(allocate(".tls$ZZZ")) char* _tls_end = nullptr;
__declspec(allocate(".CRT$XLA")) PIMAGE_TLS_CALLBACK __xl_a = nullptr;
__declspec(allocate(".CRT$XLZ")) PIMAGE_TLS_CALLBACK __xl_z = nullptr;
extern const IMAGE_TLS_DIRECTORY64 _tls_used;
__declspec(allocate(".rdata$T")) const IMAGE_TLS_DIRECTORY64 _tls_used = {
    reinterpret_cast<ULONGLONG>(&_tls_start),
    reinterpret_cast<ULONGLONG>(&_tls_end),
    reinterpret_cast<ULONGLONG>(&_tls_index),
    reinterpret_cast<ULONGLONG>(&__xl_a + 1),
    0,
    {}};

__declspec(allocate(".CRT$XCA")) Initialiser __xc_a = nullptr;
__declspec(allocate(".CRT$XCZ")) Initialiser __xc_z = nullptr;

// Floating-point support is wanted.
int _fltused = 0x9875;

int __cdecl _purecall()
{
    abort();
}

} // extern "C"

namespace runtime {

void RunInitialisers()
{
    // Through volatile: to the compiler the two are no ends of one array.
    Initialiser* const volatile end = &__xc_z;
    for (Initialiser* p = &__xc_a + 1; p < end; ++p) {
        if (*p) {
            (*p)();
        }
    }
}

} // namespace runtime
