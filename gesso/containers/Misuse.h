// Reports of calls that break an operation's contract: an index out of range, a handle that is gone.
//
// Such a call is always answered safely. In debug builds it also stops the program with the operation's name,
// so that the mistake is found where it is made.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Switches the stop on (the state at start) or off, for tests of the safe answers; returns the former state.
// Has no effect in release builds.
GESSO_API bool SetMisuseStops(bool fStop) noexcept;

// Stops the program, naming the operation, unless SetMisuseStops(false) was called. Every build of the
// library has it, since the array template is compiled into hosts, and a debug host may use a release
// library.
GESSO_API void StopOnMisuse(const char* pszOperation) noexcept;

#if defined(NDEBUG)
inline void Misuse(const char*) noexcept {}
#else
inline void Misuse(const char* pszOperation) noexcept
{
    StopOnMisuse(pszOperation);
}
#endif

} // namespace gesso
