// Keeps an item, if there is one, while the host is told of it, who may remove it and make others: none of
// them takes its place.
#pragma once

#include <gesso/tree/ItemStore.h>

#include <memory>
#include <utility>

namespace gesso {

template <class ITEM> class ItemHold
{
public:
    ItemHold(std::shared_ptr<ItemStore<ITEM>> pStore, ITEM* item) : m_pStore(std::move(pStore)), m_item(item)
    {
        if (m_item) {
            ++m_item->place.nStrays; // an item that somebody names lives on
        }
    }
    ~ItemHold()
    {
        if (m_item) {
            --m_item->place.nStrays;
            FreeIfForgotten(*m_pStore, m_item);
        }
    }
    ItemHold(const ItemHold&) = delete;
    ItemHold& operator=(const ItemHold&) = delete;

private:
    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    ITEM* m_item;
};

} // namespace gesso
