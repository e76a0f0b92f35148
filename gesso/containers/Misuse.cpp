#include <gesso/containers/Misuse.h>

#include <atomic>
#include <cstdio>

namespace gesso {
namespace {
constinit std::atomic<bool> s_fStop = true;
} // namespace

bool SetMisuseStops(bool fStop) noexcept
{
    return s_fStop.exchange(fStop);
}

void StopOnMisuse(const char* pszOperation) noexcept
{
    if (!s_fStop) {
        return;
    }
    std::fprintf(stderr, "gesso: misuse of %s\n", pszOperation);
    std::abort();
}

} // namespace gesso
