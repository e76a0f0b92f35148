#include "Clock.h"

namespace gesso::headless {
namespace {
constinit thread_local ULONGLONG s_now = 0;
} // namespace

ULONGLONG Now()
{
    return s_now;
}

void SetNow(ULONGLONG milliseconds)
{
    s_now = milliseconds;
}

} // namespace gesso::headless
