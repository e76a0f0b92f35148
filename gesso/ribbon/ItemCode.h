// How a page names an item: the index of its group in the high word, and its own in the low one. What comes
// later has the larger code.
#pragma once

#include <gesso/containers/Index.h>

namespace gesso {

constexpr UINT ItemCode(UINT nGroup, UINT nItem)
{
    return nGroup << 16 | nItem;
}

// Of what is offered in rising order, what the keyboard goes to from one of it: the next one or, backwards,
// the one before. From none it goes to the first, or to the last. NO_INDEX where there is nothing.
class NextInOrder
{
public:
    NextInOrder(UINT nFrom, int nStep) : m_nFrom(nFrom), m_fForwards(nStep > 0) {}

    void Offer(UINT n)
    {
        const bool fLies = m_nFrom == NO_INDEX || (m_fForwards ? n > m_nFrom : n < m_nFrom);
        if (fLies && (!m_fForwards || m_nFound == NO_INDEX)) {
            m_nFound = n;
        }
    }
    UINT Found() const { return m_nFound; }

private:
    UINT m_nFrom;
    bool m_fForwards;
    UINT m_nFound = NO_INDEX;
};

// Flags of an item that are the page's own, beside RIF_.
constexpr UINT ITEM_FOCUSED = 0x1; // the keyboard is here while the ribbon has the focus
constexpr UINT ITEM_AWAY = 0x2;    // of a hosted window: it is hidden because the page is

} // namespace gesso
