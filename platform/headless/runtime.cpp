#include <platform/platform.h>

size_t gesso_wcslen(const wchar_t* s)
{
    size_t n = 0;
    while (s[n]) {
        ++n;
    }
    return n;
}
