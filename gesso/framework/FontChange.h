// What is remembered of the machine's fonts, and is to be forgotten when these change and when the library is
// unloaded.
#pragma once

#include <gesso/api.h>

#include <atomic>

namespace gesso {

// Set by whoever remembers anything; null until then.
extern constinit std::atomic<void (*)()> g_pfnForgetFonts;

inline void ForgetFonts()
{
    if (const auto pfnForget = g_pfnForgetFonts.load()) {
        pfnForget();
    }
}

} // namespace gesso
