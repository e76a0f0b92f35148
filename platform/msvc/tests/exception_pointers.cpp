// What the C++ library keeps of an exception for later, by Microsoft's runtime. The test program keeps none:
// an exception of a thread's own ends the program.
#include <stdlib.h>

extern "C" int __cdecl __uncaught_exceptions()
{
    return 0;
}

void __cdecl __ExceptionPtrCreate(void* p)
{
    static_cast<void**>(p)[0] = static_cast<void**>(p)[1] = nullptr;
}

void __cdecl __ExceptionPtrDestroy(void*) {}

void __cdecl __ExceptionPtrCopy(void* p, const void*)
{
    __ExceptionPtrCreate(p);
}

void __cdecl __ExceptionPtrAssign(void*, const void*) {}

bool __cdecl __ExceptionPtrCompare(const void*, const void*)
{
    return true;
}

bool __cdecl __ExceptionPtrToBool(const void*)
{
    return false;
}

void __cdecl __ExceptionPtrSwap(void*, void*) {}

void __cdecl __ExceptionPtrCurrentException(void* p)
{
    __ExceptionPtrCreate(p);
}

[[noreturn]] void __cdecl __ExceptionPtrRethrow(const void*)
{
    abort();
}

void __cdecl __ExceptionPtrCopyException(void* p, const void*, const void*)
{
    __ExceptionPtrCreate(p);
}
