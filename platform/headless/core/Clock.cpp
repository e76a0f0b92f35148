#include "Clock.h"
#include "TableLock.h"

namespace gesso::headless {
namespace {
constinit thread_local ULONGLONG s_now = 0;
} // namespace

ULONGLONG& ClockOfThread()
{
    return s_now;
}

ULONGLONG Now()
{
    const TableLock lock;
    return s_now;
}

void SetNow(ULONGLONG milliseconds)
{
    const TableLock lock;
    s_now = milliseconds;
}

} // namespace gesso::headless
