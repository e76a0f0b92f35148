// The time that the repeating scroll bars go by.
#pragma once

#include <gesso/api.h>

namespace gesso {

constexpr ULONGLONG TICKS_PER_MILLISECOND = 10000;

// The system's time in ticks of 100 nanoseconds.
inline ULONGLONG SystemTicks()
{
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

} // namespace gesso
