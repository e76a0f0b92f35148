// Conversions that the C++ library's headers want and Wine's header does not declare.
#include_next <wchar.h>
#ifndef GESSO_WCHAR
#define GESSO_WCHAR
#ifdef __cplusplus
extern "C" {
#endif
errno_t __cdecl wcrtomb_s(size_t*, char*, size_t, wchar_t, mbstate_t*);
long double __cdecl wcstold(const wchar_t*, wchar_t**);
#ifdef __cplusplus
}
#endif
#endif
