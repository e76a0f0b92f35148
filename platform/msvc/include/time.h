// Wine's header lacks timespec, and what reads and writes dates safely.
#pragma once
#include_next <time.h>
#ifndef GESSO_TIMESPEC
#define GESSO_TIMESPEC
struct timespec
{
    time_t tv_sec;
    long tv_nsec;
};
#endif
#ifdef __cplusplus
inline int localtime_s(struct tm* to, const time_t* from)
{
    return _localtime64_s(to, from);
}
#endif
#ifdef __cplusplus
extern "C"
#endif
    size_t __cdecl _strftime_l(char*, size_t, const char*, const struct tm*, _locale_t);
