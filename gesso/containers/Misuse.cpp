#include <gesso/containers/Misuse.h>

#include <cstdio>

namespace gesso {
namespace {
constinit bool s_fStop = true;
} // namespace

bool SetMisuseStops(bool fStop) noexcept
{
    const bool fFormer = s_fStop;
    s_fStop = fStop;
    return fFormer;
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
