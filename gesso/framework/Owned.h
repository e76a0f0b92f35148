// A handle or block that belongs to the object it was made for. Copies of that object only borrow it: a
// control's copy operations share the window, the theme and the text, and take no ownership.
#pragma once

#include <gesso/api.h>

namespace gesso {

template <class VALUE, void (*RELEASE)(VALUE)> class Owned
{
public:
    constexpr Owned() noexcept = default;
    Owned(const Owned& other) noexcept : m_value(other.m_value) {}
    Owned& operator=(const Owned& other) noexcept
    {
        if (m_value != other.m_value) {
            Reset();
            m_value = other.m_value;
        }
        return *this;
    }
    ~Owned() { Reset(); }

    // Takes the value as its owner, and then releases the former one if that was owned too.
    void Reset(VALUE value = VALUE()) noexcept
    {
        const VALUE former = m_value;
        const bool fOwnedFormer = m_fOwner;
        m_value = value;
        m_fOwner = value != VALUE();
        if (fOwnedFormer) {
            RELEASE(former);
        }
    }

    // Takes a value that stays another's; the former one is left to whoever else has it.
    void Borrow(VALUE value) noexcept
    {
        m_value = value;
        m_fOwner = false;
    }

    VALUE operator->() const noexcept { return m_value; }
    operator VALUE() const noexcept { return m_value; }
    bool IsOwner() const noexcept { return m_fOwner; }

private:
    VALUE m_value = VALUE();
    bool m_fOwner = false;
};

} // namespace gesso
