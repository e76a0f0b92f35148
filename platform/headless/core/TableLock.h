// The one lock of the simulated process. Its tables are the same for every thread: windows and what each
// thread has of the desktop, classes, modules, resources, graphics objects, the style, settings, the census.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>

namespace gesso::headless {

// Held by an operation while it reads or changes a table. An operation that another one calls holds it again.
class TableLock
{
public:
    TableLock();
    ~TableLock();
    TableLock(const TableLock&) = delete;
    TableLock& operator=(const TableLock&) = delete;
};

// Gives the lock up wholly, however often the thread holds it, and takes it back as it was: while code of the
// program runs, which may take as long as it likes and wait for other threads. What was read before may have
// changed after.
class TableUnlock
{
public:
    TableUnlock();
    ~TableUnlock();
    TableUnlock(const TableUnlock&) = delete;
    TableUnlock& operator=(const TableUnlock&) = delete;

private:
    int m_depth;
};

// Waits without the lock until woken, at most for that time. The thread holds the lock before and after.
void WaitUnlocked(std::condition_variable& wake, std::chrono::milliseconds atMost);
// How often any thread has come from outside to take the lock: it stands still where the desktop does.
uint64_t TimesLocked();

} // namespace gesso::headless
