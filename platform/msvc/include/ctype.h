// The C++ library's headers ask for classes of characters by locale, which Wine's header does not declare.
#include_next <ctype.h>
#ifndef GESSO_CTYPE
#define GESSO_CTYPE
#ifdef __cplusplus
extern "C" {
#endif
int __cdecl _isxdigit_l(int, _locale_t);
int __cdecl _isdigit_l(int, _locale_t);
int __cdecl _isspace_l(int, _locale_t);
int __cdecl _islower_l(int, _locale_t);
int __cdecl _isupper_l(int, _locale_t);
#ifdef __cplusplus
}
#endif
#endif
