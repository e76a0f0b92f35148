// The rows that a tree shows now, in the order of display, as derived classes read them, and the one pointer
// to what is the library's own: the items and the rows' upkeep (TreeInside).
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/tree/TreeRecord.h>

#include <algorithm>
#include <cstddef>

namespace gesso {

template <class ITEM> class ItemRows;
template <class ITEM> struct TreeInside;
template <class ITEM, class RULES> class TreeItems;
template <class ITEM, class RULES> class TreeView;
template <class CONTROL> struct TreeRules;
struct TreeActions;
struct TreeInput;

// Up to 256 rows that follow each other; or a run, of any number of children of one item that are only
// counted.
template <class ITEM> struct RowChunk
{
    static constexpr UINT CAPACITY = 256;

    const void* pOwner;
    UINT nFirst = 0; // number of the first row
    UINT nCount = 0;
    int nSummary = NOT_MEASURED; // of its rows: a tree's widest, or the kinds of a bar's
    UINT iFirstChild = NO_INDEX; // of a run: the first row's index among the children of the item in aItems
    ITEM* aItems[CAPACITY];
    // The level of the highest of its rows, which was so at a time (ItemStore::LevelsTime); 0 for none.
    int nTopLevel = 0;
    UINT64 nLevelsTime = 0;

    bool IsRun() const { return iFirstChild != NO_INDEX; }
    void Changed()
    {
        nSummary = NOT_MEASURED;
        nLevelsTime = 0;
    }
};

template <class ITEM> class VisibleRows
{
public:
    // Of a new tree, with a root and no rows.
    VisibleRows();
    // A copy shares the items, which live as long as any copy does, and has rows of its own.
    VisibleRows(const VisibleRows& other);
    VisibleRows& operator=(const VisibleRows& other);
    ~VisibleRows();

    UINT GetLength() const { return m_ppFirst == m_ppEnd ? 0 : m_ppEnd[-1]->nFirst + m_ppEnd[-1]->nCount; }

    // The item of a row; null past the last one, and without memory for a child that was only counted.
    ITEM* operator[](UINT row) const
    {
        if (row >= GetLength()) {
            return nullptr;
        }
        const Chunk& chunk = *m_ppFirst[ChunkOf(row)];
        if constexpr (requires { ItemOfRun(chunk, row); }) {
            if (chunk.IsRun()) {
                return ItemOfRun(chunk, row);
            }
        }
        return chunk.aItems[row - chunk.nFirst];
    }
    ITEM* GetAt(UINT row) const { return (*this)[row]; }

    // In the order of their rows.
    struct ChunkRange
    {
        RowChunk<ITEM>* const* m_ppFirst;
        RowChunk<ITEM>* const* m_ppEnd;

        RowChunk<ITEM>* const* begin() const { return m_ppFirst; }
        RowChunk<ITEM>* const* end() const { return m_ppEnd; }
    };
    ChunkRange Chunks() const { return {m_ppFirst, m_ppEnd}; }

    TreeInside<ITEM>& Inside() const
    {
        if (!HasOwn()) {
            MakeOwn();
        }
        return *m_inside;
    }

private:
    friend class ItemRows<ITEM>;
    using Chunk = RowChunk<ITEM>;

    bool HasOwn() const { return m_pOwner == this; }
    void MakeOwn() const;

    // The chunk of a row that exists. Rows are mostly asked for one after the other.
    size_t ChunkOf(UINT row) const
    {
        const auto nChunks = static_cast<size_t>(m_ppEnd - m_ppFirst);
        const auto holds = [&](size_t k) {
            return k < nChunks && row - m_ppFirst[k]->nFirst < m_ppFirst[k]->nCount;
        };
        if (!holds(m_iLastChunk)) {
            const auto* behind = std::upper_bound(
                m_ppFirst, m_ppEnd, row, [](UINT n, const Chunk* pChunk) { return n < pChunk->nFirst; });
            m_iLastChunk = static_cast<size_t>(behind - m_ppFirst) - 1;
        }
        return m_iLastChunk;
    }

    // Fixed behaviour: the chunks' two ends and the last one asked for keep their places, and the record its
    // size; derived classes that were compiled earlier have the reading of rows in their own code. They copy
    // a tree by code of their own as well: such a copy has the other's pointer, no owner, or one that is not
    // itself, and chunks of its own. It would release what is the other's.
    mutable TreeInside<ITEM>* m_inside = nullptr;
    void* m_pReserved = nullptr; // they count by it, where it is not null
    mutable Chunk* const* m_ppFirst = nullptr;
    mutable Chunk* const* m_ppEnd = nullptr;
    mutable const void* m_pOwner = nullptr; // whose the pointer is
    mutable size_t m_iLastChunk = 0;
};

} // namespace gesso
