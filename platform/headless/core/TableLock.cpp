#include "TableLock.h"

#include <mutex>
#include <utility>

namespace gesso::headless {
namespace {

constinit std::mutex s_mutex;
constinit uint64_t s_timesLocked = 0;
constinit thread_local int s_depth = 0; // how often this thread holds the lock

} // namespace

TableLock::TableLock()
{
    if (s_depth++ == 0) {
        s_mutex.lock();
        ++s_timesLocked;
    }
}

TableLock::~TableLock()
{
    if (--s_depth == 0) {
        s_mutex.unlock();
    }
}

TableUnlock::TableUnlock() : m_depth(std::exchange(s_depth, 0))
{
    if (m_depth > 0) {
        s_mutex.unlock();
    }
}

TableUnlock::~TableUnlock()
{
    if (m_depth > 0) {
        s_mutex.lock();
        s_depth = m_depth;
    }
}

void WaitUnlocked(std::condition_variable& wake, std::chrono::milliseconds atMost)
{
    std::unique_lock held(s_mutex, std::adopt_lock);
    const int depth = std::exchange(s_depth, 0);
    wake.wait_for(held, atMost);
    s_depth = depth;
    held.release();
}

uint64_t TimesLocked()
{
    return s_timesLocked;
}

} // namespace gesso::headless
