// What an object frees one by one, or all together at its own end. A copy of that object owns none of it.
#pragma once

#include <gesso/containers/OArray.h>

namespace gesso {

template <class POINTER, void (*RELEASE)(POINTER)> class OwnedSet
{
public:
    OwnedSet() = default;
    OwnedSet(const OwnedSet&) {}
    OwnedSet& operator=(const OwnedSet&) { return *this; }
    ~OwnedSet()
    {
        for (void* p : m_ap) {
            RELEASE(static_cast<POINTER>(p));
        }
    }

    // Makes room for `n` more. False without memory.
    bool Reserve(UINT n) { return m_ap.AllocExtra(m_ap.GetLength() + n); }

    // Takes a pointer that is not in the set, for which there is room.
    void Add(POINTER p) { m_ap.Add(p); }

    // Gives the pointer away. False if it is not in the set: it belongs to somebody else.
    bool Forget(POINTER p)
    {
        for (UINT i = m_ap.GetLength(); i-- > 0;) {
            if (m_ap[i] == p) {
                m_ap[i] = m_ap[m_ap.GetLength() - 1];
                m_ap.RemoveAt(m_ap.GetLength() - 1, 1);
                return true;
            }
        }
        return false;
    }

    // Frees what the pointer points at, unless it is null or belongs to somebody else.
    void Free(POINTER p)
    {
        if (p && Forget(p)) {
            RELEASE(p);
        }
    }

private:
    OArray<void*, void* const&> m_ap;
};

} // namespace gesso
