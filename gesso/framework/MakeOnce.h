// What the process has once, whichever thread needs it first: window classes, cursors, the default font.
#pragma once

#include <gesso/api.h>

namespace gesso {

class ScopedLock
{
public:
    explicit ScopedLock(SRWLOCK& lock) : m_lock(lock) { AcquireSRWLockExclusive(&m_lock); }
    ~ScopedLock() { ReleaseSRWLockExclusive(&m_lock); }
    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;

private:
    SRWLOCK& m_lock;
};

// The one lock of all that is made once. Nothing that may send a message is done under it.
extern SRWLOCK g_makeOnceLock;

// Returns the value, made now if it is still null; one that could not be made is tried again at the next
// call.
template <class VALUE, class MAKE> VALUE MakeOnce(VALUE& value, const MAKE& make)
{
    const ScopedLock lock(g_makeOnceLock);
    if (!value) {
        value = make();
    }
    return value;
}

} // namespace gesso
