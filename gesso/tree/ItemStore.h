// The memory of a tree's items.
//
// Items are made in a few large blocks, so that a handle is known for one of this tree's, or for none,
// without a look at what it points to. The place of an item that is gone is used again: its old handle may
// then name another item.
#pragma once

#include <gesso/api.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace gesso {

template <class ITEM> class ItemStore
{
public:
    ItemStore() = default;
    ~ItemStore()
    {
        ForEach([](ITEM& item) { std::destroy_at(&item); });
    }
    ItemStore(const ItemStore&) = delete;
    ItemStore& operator=(const ItemStore&) = delete;

    ITEM* Make(LPCWSTR pszName)
    {
        if (m_free.empty()) {
            AddBlock();
        }
        const Slot slot = m_free.back();
        m_free.pop_back();
        slot.pBlock->used[slot.i] = true;
        return std::construct_at(slot.pBlock->At(slot.i), pszName);
    }

    void Free(ITEM* item)
    {
        const Slot slot = SlotOf(item);
        if (!slot.pBlock) {
            return; // none of this store
        }
        slot.pBlock->used[slot.i] = false;
        std::destroy_at(item);
        m_free.push_back(slot);
    }

    // The item that a handle names; null where it names none of this store.
    ITEM* Find(const void* handle) const
    {
        const Slot slot = SlotOf(handle);
        return slot.pBlock && slot.pBlock->used[slot.i] ? slot.pBlock->At(slot.i) : nullptr;
    }

    template <class FUNCTION> void ForEach(FUNCTION function)
    {
        for (const auto& pBlock : m_blocks) {
            for (size_t i = 0; i < pBlock->nItems; ++i) {
                if (pBlock->used[i]) {
                    function(*pBlock->At(i));
                }
            }
        }
    }

private:
    static constexpr size_t SMALLEST_BLOCK = 16; // items; each block is twice as large as the last one
    static constexpr size_t LARGEST_BLOCK = 8192;

    struct Block
    {
        explicit Block(size_t n)
            : nItems(n), pMemory(std::make_unique_for_overwrite<std::byte[]>(n * sizeof(ITEM))), used(n)
        {}
        ITEM* At(size_t i) const { return reinterpret_cast<ITEM*>(pMemory.get()) + i; }
        const std::byte* Begin() const { return pMemory.get(); }

        size_t nItems;
        std::unique_ptr<std::byte[]> pMemory;
        std::vector<bool> used;
    };
    static_assert(alignof(ITEM) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

    struct Slot
    {
        Block* pBlock;
        size_t i;
    };

    void AddBlock()
    {
        const size_t nLast = m_nLastBlock;
        m_nLastBlock = std::clamp(2 * nLast, SMALLEST_BLOCK, LARGEST_BLOCK);
        auto pBlock = std::make_unique<Block>(m_nLastBlock);
        for (size_t i = m_nLastBlock; i-- > 0;) {
            m_free.push_back({pBlock.get(), i});
        }
        m_blocks.insert(Behind(pBlock->Begin()), std::move(pBlock));
    }

    // The first block that lies behind an address.
    auto Behind(const void* p) const
    {
        return std::upper_bound(m_blocks.begin(), m_blocks.end(), p,
                                [](const void* pSought, const std::unique_ptr<Block>& pBlock) {
                                    return std::less<>{}(pSought, static_cast<const void*>(pBlock->Begin()));
                                });
    }

    Slot SlotOf(const void* p) const
    {
        const auto behind = Behind(p);
        if (!p || behind == m_blocks.begin()) {
            return {nullptr, 0};
        }
        Block* pBlock = std::prev(behind)->get();
        const auto nOffset = static_cast<size_t>(static_cast<const std::byte*>(p) - pBlock->Begin());
        const size_t i = nOffset / sizeof(ITEM);
        const bool fInside = i < pBlock->nItems && nOffset % sizeof(ITEM) == 0;
        return {fInside ? pBlock : nullptr, i};
    }

    std::vector<std::unique_ptr<Block>> m_blocks; // in the order of their addresses
    std::vector<Slot> m_free;
    size_t m_nLastBlock = 0;
};

// Whether an item has been taken out of its tree: neither the root nor anyone's child.
template <class ITEM> bool IsRemoved(const ITEM& item)
{
    return !item.place.pHolder && item.nLevel >= 0;
}

// Frees a removed item that no row and no other item points to any more.
template <class ITEM> void FreeIfForgotten(ItemStore<ITEM>& store, ITEM* item)
{
    if (IsRemoved(*item) && item->place.nRows == 0 && item->place.nStrays == 0) {
        store.Free(item);
    }
}

} // namespace gesso
