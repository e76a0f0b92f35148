// What the C++ library's headers want of the C runtime and Wine's header does not declare, C++ overloads
// included.
#include_next <stdlib.h>
#ifndef GESSO_STDLIB
#define GESSO_STDLIB
#ifdef __cplusplus
extern "C" {
#endif
int __cdecl ___mb_cur_max_func(void);
float __cdecl _strtof_l(const char*, char**, _locale_t);
double __cdecl _strtod_l(const char*, char**, _locale_t);
int* __cdecl __sys_nerr(void);
#ifdef __cplusplus
}
extern "C++" {
inline long abs(long x) noexcept
{
    return x < 0 ? -x : x;
}
inline long long abs(long long x) noexcept
{
    return x < 0 ? -x : x;
}
inline ldiv_t div(long x, long y) noexcept
{
    return ldiv(x, y);
}
inline lldiv_t div(long long x, long long y) noexcept
{
    return lldiv(x, y);
}
}
#endif
#ifndef MB_CUR_MAX
#define MB_CUR_MAX ___mb_cur_max_func()
#endif
#ifndef _sys_nerr
#define _sys_nerr (*__sys_nerr())
#endif
#endif
#ifndef GESSO_ABORT_BEHAVIOR
#define GESSO_ABORT_BEHAVIOR
#ifdef __cplusplus
extern "C"
#endif
    unsigned int __cdecl _set_abort_behavior(unsigned int, unsigned int);
#ifndef _WRITE_ABORT_MSG
#define _WRITE_ABORT_MSG 1
#endif
#ifndef _CALL_REPORTFAULT
#define _CALL_REPORTFAULT 2
#endif
#endif
