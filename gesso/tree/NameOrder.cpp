#include <gesso/tree/NameOrder.h>

// Of shlwapi, whose header would bring its hundreds of macros to every host.
extern "C" DECLSPEC_IMPORT int WINAPI StrCmpLogicalW(LPCWSTR psz1, LPCWSTR psz2);

namespace gesso {

int CompareAsShell(LPCWSTR a, LPCWSTR b)
{
    return StrCmpLogicalW(a, b);
}

} // namespace gesso
