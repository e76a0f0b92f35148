// Room for an item's count of children, as long as this lives: the host may be told meanwhile of those whose
// place they take.
#pragma once

#include <gesso/tree/ItemHold.h>

#include <memory>
#include <utility>

namespace gesso {

template <class ITEM> class CountRoom
{
public:
    // A count of 0 needs none.
    CountRoom(std::shared_ptr<ItemStore<ITEM>> pStore, ITEM& item, UINT n)
        : m_pStore(std::move(pStore)), m_item(item), m_hold(m_pStore, &item),
          m_fGood(n == 0 || m_pStore->Counted().Reserve(item))
    {}
    ~CountRoom()
    {
        if (!m_item.fCounted) {
            m_pStore->Counted().SetCount(m_item, 0);
        }
    }
    CountRoom(const CountRoom&) = delete;
    CountRoom& operator=(const CountRoom&) = delete;

    // False without memory.
    operator bool() const { return m_fGood; }

private:
    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    ITEM& m_item;
    ItemHold<ITEM> m_hold; // it may be removed meanwhile
    bool m_fGood;
};

} // namespace gesso
