// The memory of a tree's items.
//
// Items are made in a few large blocks, so that a handle is known for one of this tree's, or for none,
// without a look at what it points to. The place of an item that is gone is used again: its old handle may
// then name another item.
#pragma once

#include <gesso/api.h>
#include <gesso/tree/CountedChildren.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <new>
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

    // Null without memory for the item or its name.
    ITEM* Make(LPCWSTR pszName)
    {
        if (!m_pGaps && !AddBlock()) {
            return nullptr;
        }
        const Gap gap = *m_pGaps;
        ITEM* item = std::construct_at(reinterpret_cast<ITEM*>(m_pGaps), pszName);
        m_pGaps = gap.pNext;
        gap.pBlock->used[gap.pBlock->IndexOf(item)] = true;
        if (pszName && *pszName && item->strName.GetLength() == 0) {
            Free(item);
            return nullptr;
        }
        return item;
    }

    void Free(ITEM* item)
    {
        const Slot slot = SlotOf(item);
        if (!slot.pBlock) {
            return; // none of this store
        }
        slot.pBlock->used[slot.i] = false;
        std::destroy_at(item);
        AddGap(*slot.pBlock, slot.i);
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

    CountedChildren<ITEM>& Counted() { return m_counted; }

    // Above 0, and another one once the level of an item that a row may show has changed.
    UINT64 LevelsTime() const { return m_nLevelsTime; }
    void LevelsChanged() { ++m_nLevelsTime; }

private:
    static constexpr size_t SMALLEST_BLOCK = 16; // items; each block is twice as large as the last one
    static constexpr size_t LARGEST_BLOCK = 8192;

    struct Block
    {
        explicit Block(size_t n)
            : nItems(n), pMemory(std::make_unique_for_overwrite<std::byte[]>(n * sizeof(ITEM))), used(n)
        {}
        ITEM* At(size_t i) const { return reinterpret_cast<ITEM*>(pMemory.get()) + i; }
        size_t IndexOf(const ITEM* item) const { return static_cast<size_t>(item - At(0)); }
        const std::byte* Begin() const { return pMemory.get(); }
        size_t OffsetOf(const void* p) const
        {
            return reinterpret_cast<uintptr_t>(p) - reinterpret_cast<uintptr_t>(Begin());
        }
        bool Holds(const void* p) const { return OffsetOf(p) < nItems * sizeof(ITEM); }

        size_t nItems;
        std::unique_ptr<std::byte[]> pMemory;
        std::vector<bool> used;
    };
    static_assert(alignof(ITEM) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

    // What stands in the place of an item that is not there: so it needs no memory to free one.
    struct Gap
    {
        Gap* pNext;
        Block* pBlock;
    };
    static_assert(sizeof(ITEM) >= sizeof(Gap) && alignof(ITEM) >= alignof(Gap));

    struct Slot
    {
        Block* pBlock;
        size_t i;
    };

    void AddGap(Block& block, size_t i) { m_pGaps = new (block.At(i)) Gap{m_pGaps, &block}; }

    // False, with nothing done, without memory.
    bool AddBlock()
    try {
        const size_t nItems = std::clamp(2 * m_nLastBlock, SMALLEST_BLOCK, LARGEST_BLOCK);
        auto pNew = std::make_unique<Block>(nItems);
        Block& block = *pNew;
        m_blocks.insert(Behind(block.Begin()), std::move(pNew));
        for (size_t i = nItems; i-- > 0;) {
            AddGap(block, i);
        }
        m_nLastBlock = nItems;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }

    // The first block that lies behind an address.
    auto Behind(const void* p) const
    {
        return std::upper_bound(m_blocks.begin(), m_blocks.end(), p,
                                [](const void* pSought, const std::unique_ptr<Block>& pBlock) {
                                    return std::less<>{}(pSought, static_cast<const void*>(pBlock->Begin()));
                                });
    }

    // Items that are asked for one after the other mostly lie in one block.
    Slot SlotOf(const void* p) const
    {
        if (!m_pLastFound || !m_pLastFound->Holds(p)) {
            const auto behind = Behind(p);
            m_pLastFound = behind == m_blocks.begin() ? nullptr : std::prev(behind)->get();
        }
        if (!m_pLastFound || !m_pLastFound->Holds(p)) {
            return {nullptr, 0};
        }
        const size_t nOffset = m_pLastFound->OffsetOf(p);
        return {nOffset % sizeof(ITEM) == 0 ? m_pLastFound : nullptr, nOffset / sizeof(ITEM)};
    }

    std::vector<std::unique_ptr<Block>> m_blocks; // in the order of their addresses
    mutable Block* m_pLastFound = nullptr;
    Gap* m_pGaps = nullptr;
    size_t m_nLastBlock = 0;
    UINT64 m_nLevelsTime = 1;
    CountedChildren<ITEM> m_counted;
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
