// The C runtime of Windows has it, and the names that mingw-w64 knows of that do not: long double is double
// here.
#include <wchar.h>

extern "C" long double __cdecl wcstold(const wchar_t* psz, wchar_t** ppEnd)
{
    return wcstod(psz, ppEnd);
}
