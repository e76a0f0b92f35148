// The rows that a tree shows now, in the order of display: an array of items in which rows come and go, and
// an item's row is found, at a cost that hardly depends on how many rows there are.
//
// The rows stand in chunks of up to 256, each of which knows the number of its first row; an item knows its
// chunk. Splicing moves the rows of one chunk and renumbers the chunks behind it.
//
// An item counts its rows. One that has been removed from its tree lives on until its last row goes: no row
// ever points to an item that is gone.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/tree/ItemStore.h>
#include <gesso/tree/TreeRecord.h>

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace gesso {

template <class ITEM> class ItemRows;

template <class ITEM> struct RowChunk
{
    static constexpr UINT CAPACITY = 256;

    const ItemRows<ITEM>* pOwner;
    UINT nFirst = 0; // number of the first row
    UINT nCount = 0;
    int nWidest = NOT_MEASURED;
    ITEM* aItems[CAPACITY];
};

template <class ITEM> class ItemRows
{
public:
    using Chunk = RowChunk<ITEM>;

    explicit ItemRows(std::shared_ptr<ItemStore<ITEM>> pStore) : m_pStore(std::move(pStore)) {}
    // A copy has rows of its own to the same items.
    ItemRows(const ItemRows& other) : m_pStore(other.m_pStore) { InsertAll(other); }
    ItemRows& operator=(const ItemRows& other)
    {
        if (this != &other) {
            RemoveAll();
            m_pStore = other.m_pStore;
            InsertAll(other);
        }
        return *this;
    }
    ~ItemRows() { RemoveAll(); }

    UINT GetLength() const
    {
        return m_chunks.empty() ? 0 : m_chunks.back()->nFirst + m_chunks.back()->nCount;
    }

    // The item of a row; null past the last one.
    ITEM* operator[](UINT row) const
    {
        if (row >= GetLength()) {
            return nullptr;
        }
        const Chunk& chunk = *m_chunks[ChunkOf(row)];
        return chunk.aItems[row - chunk.nFirst];
    }
    ITEM* GetAt(UINT row) const { return (*this)[row]; }

    // The first row of an item; NO_INDEX if it has none.
    UINT Find(ITEM* item) const
    {
        if (!item || item->place.nRows == 0) {
            return NO_INDEX;
        }
        TreePlace<ITEM>& place = item->place;
        if (place.nRows > 1 || !place.pChunk) {
            return FindByWalking(item);
        }
        return place.pChunk->pOwner == this ? PlaceIn(*place.pChunk, item) : NO_INDEX;
    }

    // The first row behind a row's branch: the next one of a level not above its own.
    UINT EndOfBranch(UINT row) const
    {
        const int nLevel = (*this)[row]->nLevel;
        return SkipDeeper(row + 1, nLevel);
    }

    // The first row from `row` on whose level is not above the given one.
    UINT SkipDeeper(UINT row, int nLevel) const
    {
        const UINT nRows = GetLength();
        while (row < nRows && (*this)[row]->nLevel > nLevel) {
            ++row;
        }
        return row;
    }

    // In front of row `row`; past the last row, behind it.
    void Insert(UINT row, std::span<ITEM* const> items)
    {
        if (items.empty()) {
            return;
        }
        size_t k = 0;
        UINT iAt = 0;
        Locate(std::min(row, GetLength()), &k, &iAt);
        if (m_chunks[k]->nCount + items.size() <= Chunk::CAPACITY) {
            InsertInto(*m_chunks[k], iAt, items);
        } else {
            InsertByChunks(k, iAt, items);
        }
        Renumber(k);
    }
    void Insert(UINT row, ITEM* item) { Insert(row, std::span<ITEM* const>(&item, 1)); }

    void Set(UINT row, ITEM* item)
    {
        Chunk& chunk = *m_chunks[ChunkOf(row)];
        ITEM*& entry = chunk.aItems[row - chunk.nFirst];
        ITEM* former = entry;
        if (former != item) {
            entry = item;
            Enter(chunk, item);
            Leave(former);
            chunk.nWidest = NOT_MEASURED;
        }
    }

    void Remove(UINT row, UINT n)
    {
        const UINT nRows = GetLength();
        if (row >= nRows || n == 0) {
            return;
        }
        n = std::min(n, nRows - row);
        const size_t iFirst = ChunkOf(row);
        UINT iAt = row - m_chunks[iFirst]->nFirst;
        for (size_t k = iFirst; n > 0; ++k, iAt = 0) {
            const UINT nHere = std::min(n, m_chunks[k]->nCount - iAt);
            RemoveFrom(*m_chunks[k], iAt, nHere);
            n -= nHere;
        }
        std::erase_if(m_chunks, [](const std::unique_ptr<Chunk>& pChunk) { return pChunk->nCount == 0; });
        Renumber(MergeAround(iFirst));
    }

    void RemoveAll()
    {
        for (const auto& pChunk : m_chunks) {
            RemoveFrom(*pChunk, 0, pChunk->nCount);
        }
        m_chunks.clear();
    }

    // The greatest of widthOf(item) over all rows, at least 0. Only rows that came, and the rows around those
    // that came or went, are asked again: what the answer depends on is told by Changed.
    template <class FUNCTION> int Widest(FUNCTION widthOf)
    {
        int nWidest = 0;
        for (const auto& pChunk : m_chunks) {
            Chunk& chunk = *pChunk;
            if (chunk.nWidest == NOT_MEASURED) {
                chunk.nWidest = 0;
                for (UINT i = 0; i < chunk.nCount; ++i) {
                    chunk.nWidest = std::max(chunk.nWidest, widthOf(*chunk.aItems[i]));
                }
            }
            nWidest = std::max(nWidest, chunk.nWidest);
        }
        return nWidest;
    }

    void Changed(const ITEM& item)
    {
        const TreePlace<ITEM>& place = item.place;
        if (place.nRows == 1 && place.pChunk) {
            place.pChunk->nWidest = NOT_MEASURED;
        } else if (place.nRows > 0) {
            AllChanged();
        }
    }

    void AllChanged()
    {
        for (const auto& pChunk : m_chunks) {
            pChunk->nWidest = NOT_MEASURED;
        }
    }

private:
    void InsertAll(const ItemRows& other)
    {
        for (const auto& pChunk : other.m_chunks) {
            Insert(GetLength(), std::span<ITEM* const>(pChunk->aItems, pChunk->nCount));
        }
    }

    // The chunk of a row that exists. Rows are mostly asked for one after the other.
    size_t ChunkOf(UINT row) const
    {
        const auto holds = [&](size_t k) {
            return k < m_chunks.size() && row - m_chunks[k]->nFirst < m_chunks[k]->nCount;
        };
        if (!holds(m_iLastChunk)) {
            const auto behind = std::upper_bound(
                m_chunks.begin(), m_chunks.end(), row,
                [](UINT n, const std::unique_ptr<Chunk>& pChunk) { return n < pChunk->nFirst; });
            m_iLastChunk = static_cast<size_t>(behind - m_chunks.begin()) - 1;
        }
        return m_iLastChunk;
    }

    // What is found of an item with one row is kept, so that the next search needs no walk.
    UINT FindByWalking(ITEM* item) const
    {
        for (const auto& pChunk : m_chunks) {
            const UINT row = PlaceIn(*pChunk, item);
            if (row != NO_INDEX) {
                item->place.pChunk = pChunk.get();
                return row;
            }
        }
        return NO_INDEX;
    }

    static UINT PlaceIn(const Chunk& chunk, const ITEM* item)
    {
        const auto* pEnd = chunk.aItems + chunk.nCount;
        const auto* pFound = std::find(chunk.aItems, pEnd, item);
        return pFound == pEnd ? NO_INDEX : chunk.nFirst + static_cast<UINT>(pFound - chunk.aItems);
    }

    static void Enter(Chunk& chunk, ITEM* item)
    {
        ++item->place.nRows;
        item->place.pChunk = &chunk;
    }

    // An item with rows left in unknown places is looked for by walking the next time.
    void Leave(ITEM* item)
    {
        TreePlace<ITEM>& place = item->place;
        --place.nRows;
        place.pChunk = nullptr;
        FreeIfForgotten(*m_pStore, item);
    }

    // Where rows are put in front of `row`: at the end of the chunk before it as long as that has room.
    void Locate(UINT row, size_t* pChunk, UINT* pAt)
    {
        if (m_chunks.empty()) {
            m_chunks.push_back(MakeChunk());
        }
        size_t k = row < GetLength() ? ChunkOf(row) : m_chunks.size() - 1;
        UINT iAt = row - m_chunks[k]->nFirst;
        if (iAt == 0 && k > 0 && m_chunks[k - 1]->nCount < Chunk::CAPACITY) {
            --k;
            iAt = m_chunks[k]->nCount;
        }
        *pChunk = k;
        *pAt = iAt;
    }

    std::unique_ptr<Chunk> MakeChunk() const
    {
        auto pChunk = std::make_unique_for_overwrite<Chunk>();
        pChunk->pOwner = this;
        return pChunk;
    }

    static void InsertInto(Chunk& chunk, UINT iAt, std::span<ITEM* const> items)
    {
        ITEM** const pAt = chunk.aItems + iAt;
        std::copy_backward(pAt, chunk.aItems + chunk.nCount, chunk.aItems + chunk.nCount + items.size());
        std::copy(items.begin(), items.end(), pAt);
        for (ITEM* item : items) {
            Enter(chunk, item);
        }
        chunk.nCount += static_cast<UINT>(items.size());
        chunk.nWidest = NOT_MEASURED;
    }

    // Fills the chunk and new ones behind it; what stood behind the place comes last.
    void InsertByChunks(size_t k, UINT iAt, std::span<ITEM* const> items)
    {
        Chunk* pChunk = m_chunks[k].get();
        const std::vector<ITEM*> tail(pChunk->aItems + iAt, pChunk->aItems + pChunk->nCount);
        pChunk->nCount = iAt;
        pChunk->nWidest = NOT_MEASURED;
        std::vector<std::unique_ptr<Chunk>> added;
        const auto append = [&](ITEM* item) {
            if (pChunk->nCount == Chunk::CAPACITY) {
                added.push_back(MakeChunk());
                pChunk = added.back().get();
            }
            pChunk->aItems[pChunk->nCount++] = item;
        };
        for (ITEM* item : items) {
            append(item);
            Enter(*pChunk, item);
        }
        for (ITEM* item : tail) {
            append(item);
            item->place.pChunk = pChunk;
        }
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(k) + 1,
                        std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    }

    void RemoveFrom(Chunk& chunk, UINT iAt, UINT n)
    {
        std::for_each_n(chunk.aItems + iAt, n, [this](ITEM* item) { Leave(item); });
        std::copy(chunk.aItems + iAt + n, chunk.aItems + chunk.nCount, chunk.aItems + iAt);
        chunk.nCount -= n;
        chunk.nWidest = NOT_MEASURED;
    }

    // Joins chunks that a removal has left small; returns the first one that it may have changed.
    size_t MergeAround(size_t k)
    {
        const size_t iFirst = k > 0 ? k - 1 : 0;
        for (size_t i = iFirst; i + 1 < m_chunks.size() && i <= k;) {
            Chunk& chunk = *m_chunks[i];
            const Chunk& next = *m_chunks[i + 1];
            if (chunk.nCount + next.nCount > Chunk::CAPACITY / 2) {
                ++i;
                continue;
            }
            std::copy_n(next.aItems, next.nCount, chunk.aItems + chunk.nCount);
            std::for_each_n(next.aItems, next.nCount, [&](ITEM* item) { item->place.pChunk = &chunk; });
            chunk.nCount += next.nCount;
            chunk.nWidest = NOT_MEASURED;
            m_chunks.erase(m_chunks.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
        return iFirst;
    }

    void Renumber(size_t k)
    {
        UINT nFirst = k == 0 ? 0 : m_chunks[k - 1]->nFirst + m_chunks[k - 1]->nCount;
        for (; k < m_chunks.size(); ++k) {
            m_chunks[k]->nFirst = nFirst;
            nFirst += m_chunks[k]->nCount;
        }
    }

    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    std::vector<std::unique_ptr<Chunk>> m_chunks; // none of them empty
    mutable size_t m_iLastChunk = 0;
};

} // namespace gesso
