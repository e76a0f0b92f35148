// Wine 8's inline _vsnwprintf and _snwprintf forget the flag that lets an exact fit go unterminated.
#ifndef GESSO_WSTDIO
#define GESSO_WSTDIO
#define _vsnwprintf gesso_wine_vsnwprintf
#define _snwprintf gesso_wine_snwprintf
#include_next <corecrt_wstdio.h>
#undef _vsnwprintf
#undef _snwprintf
static inline int __cdecl _vsnwprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args)
{
    int ret = __stdio_common_vswprintf(_CRT_INTERNAL_LOCAL_PRINTF_OPTIONS | 1, to, n, format, NULL, args);
    return ret < 0 ? -1 : ret;
}
static inline int __cdecl _snwprintf(wchar_t* to, size_t n, const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    int ret = _vsnwprintf(to, n, format, args);
    va_end(args);
    return ret;
}
#endif
