// The tables that the simulated process has once, whichever thread asks: classes, modules, resources,
// graphics objects, the style, settings, the census, faults. Windows and input are each thread's own and take
// no lock.
#pragma once

#include <mutex>

namespace gesso::headless {

// Held by an operation while it reads or changes such a table, and never while it calls the program's code.
class TableLock
{
public:
    TableLock() : m_lock(Mutex()) {}

private:
    static std::recursive_mutex& Mutex()
    {
        static std::recursive_mutex s_mutex;
        return s_mutex;
    }

    std::lock_guard<std::recursive_mutex> m_lock;
};

} // namespace gesso::headless
