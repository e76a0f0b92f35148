// The upkeep of a tree's VisibleRows: an array of items in which rows come and go, and an item's row is
// found, at a cost that hardly depends on how many rows there are.
//
// The rows stand in chunks of up to 256, each of which knows the number of its first row; an item knows its
// chunk. Splicing moves the rows of one chunk and renumbers the chunks behind it.
//
// Children that the host has only counted stand in runs: a chunk of a run has no items but the one whose
// children they are, so that a million of them are one chunk, and those that have been made are found by
// their index. A run is split where rows come below one of its children, and joined again when they have
// gone.
//
// An item counts its rows, but for those in runs. One that has been removed from its tree lives on until its
// last row goes: no row ever points to an item that is gone.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/tree/ItemStore.h>
#include <gesso/tree/RowBranch.h>
#include <gesso/tree/VisibleRows.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <new>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace gesso {

template <class ITEM> class ItemRows
{
public:
    using Chunk = RowChunk<ITEM>;

    ItemRows(std::shared_ptr<ItemStore<ITEM>> pStore, VisibleRows<ITEM>& shown)
        : m_pStore(std::move(pStore)), m_shown(shown)
    {}
    ItemRows(const ItemRows&) = delete;
    ItemRows& operator=(const ItemRows&) = delete;
    ~ItemRows() { RemoveAll(); }

    UINT GetLength() const { return m_shown.GetLength(); }
    // The item of a row; null past the last one.
    ITEM* operator[](UINT row) const { return m_shown[row]; }

    // The first row of an item; NO_INDEX if it has none.
    UINT Find(ITEM* item) const
    {
        if (!item) {
            return NO_INDEX;
        }
        TreePlace<ITEM>& place = item->place;
        if (place.nRows == 0) {
            return RowInRun(*item);
        }
        if (place.nRows > 1 || !place.pChunk) {
            return FindByWalking(item);
        }
        return place.pChunk->pOwner == &m_shown ? PlaceIn(*place.pChunk, item) : NO_INDEX;
    }

    // The first row behind a row's branch: the next one of a level not above its own.
    UINT EndOfBranch(UINT row) const
    {
        const Chunk& chunk = *m_chunks[ChunkOf(row)];
        return SkipDeeper(row + 1, LevelIn(chunk, row - chunk.nFirst));
    }

    // The first row from `row` on whose level is not above the given one.
    UINT SkipDeeper(UINT row, int nLevel) const
    {
        const UINT nRows = GetLength();
        while (row < nRows) {
            Chunk& chunk = *m_chunks[ChunkOf(row)];
            if (LevelIn(chunk, row - chunk.nFirst) <= nLevel) {
                break;
            }
            const bool fWhole = chunk.IsRun() || (row == chunk.nFirst && TopLevel(chunk) > nLevel);
            row = fWhole ? chunk.nFirst + chunk.nCount : row + 1;
        }
        return row;
    }

    // The nearest row of an item at or above another row; NO_INDEX for none.
    UINT FindAbove(UINT row, const ITEM& item) const
    {
        for (size_t k = ChunkOf(row) + 1; k-- > 0;) {
            const Chunk& chunk = *m_chunks[k];
            if (chunk.IsRun()) {
                const UINT rowHere = PlaceInRun(chunk, item);
                if (rowHere <= row) {
                    return rowHere;
                }
                continue;
            }
            for (UINT i = std::min(chunk.nCount, row - chunk.nFirst + 1); i-- > 0;) {
                if (chunk.aItems[i] == &item) {
                    return chunk.nFirst + i;
                }
            }
        }
        return NO_INDEX;
    }

    // --- Runs

    bool HasRuns() const { return !m_runs.empty(); }

    // The first row from one on whose item has been made and asked for; NO_INDEX for none.
    UINT NextKnown(UINT row) const
    {
        while (row < GetLength()) {
            const Chunk& chunk = *m_chunks[ChunkOf(row)];
            if (!chunk.IsRun()) {
                return row;
            }
            const UINT iFrom = chunk.iFirstChild + (row - chunk.nFirst);
            const ITEM* item = m_pStore->Counted().FindFrom(*chunk.aItems[0], iFrom);
            const UINT rowEnd = chunk.nFirst + chunk.nCount;
            row =
                item ? chunk.nFirst + std::min(item->place.iChild - chunk.iFirstChild, chunk.nCount) : rowEnd;
            if (row < rowEnd && item->fAsked) {
                return row;
            }
            row += row < rowEnd;
        }
        return NO_INDEX;
    }

    // For the next InsertRun, of so many rows in place of some that go first. False without memory.
    bool ReserveRun(UINT n, UINT nFormer)
    try {
        if (n >= NO_INDEX - (GetLength() - nFormer)) {
            return false;
        }
        for (auto& pSpare : m_spare) {
            pSpare = pSpare ? std::move(pSpare) : MakeChunk();
        }
        ReserveChunks(m_spare.size());
        m_runs.reserve(m_chunks.capacity());
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }

    // In front of row `row`, as Insert does.
    bool InsertRun(UINT row, const RowRun<ITEM>& run)
    try {
        if (!HasRoomFor(run.nCount)) {
            return false;
        }
        auto pRun = MakeRun(run);
        ReserveChunks(2); // another one may be split
        m_runs.reserve(m_chunks.capacity());
        m_fHasHadRuns = true;
        const size_t k = SplitAt(std::min(row, GetLength()));
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(k), pRun.release());
        ++run.parent->place.nStrays; // which lives as long as a row is its child's
        m_spare = {};
        Renumber(k);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }

    // A child in a run has got a text of a width, by which its row is so wide.
    void Widen(const ITEM& item, int nWidth)
    {
        if (Chunk* pRun = RunOf(item); pRun && pRun->nSummary != NOT_MEASURED) {
            pRun->nSummary = std::max(pRun->nSummary, nWidth);
        }
    }

    // --- Rows that come and go

    // In front of row `row`; past the last row, behind it. False, with nothing done, without memory.
    bool Insert(UINT row, std::span<ITEM* const> items)
    try {
        if (items.empty()) {
            return true;
        }
        if (!HasRoomFor(items.size())) {
            return false;
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
        return true;
    } catch (const std::bad_alloc&) {
        DeleteEmpty(); // the first one
        Publish();
        return false;
    }
    bool Insert(UINT row, ITEM* item) { return Insert(row, std::span<ITEM* const>(&item, 1)); }
    bool Insert(UINT row, const RowBranch<ITEM>& branch)
    {
        row = std::min(row, GetLength());
        const UINT nFormer = GetLength();
        const std::span<ITEM* const> items(branch.items);
        size_t i = 0;
        const auto rowNext = [&] { return row + (GetLength() - nFormer); };
        bool fGood = true;
        for (const auto& [iItem, run] : branch.runs) {
            fGood = fGood && Insert(rowNext(), items.subspan(i, iItem - i)) && InsertRun(rowNext(), run);
            i = iItem;
        }
        fGood = fGood && Insert(rowNext(), items.subspan(i));
        if (!fGood) {
            Remove(row, GetLength() - nFormer);
        }
        return fGood;
    }

    void Set(UINT row, ITEM* item)
    {
        Chunk& chunk = *m_chunks[ChunkOf(row)];
        if (chunk.IsRun()) {
            // In its place; without memory nothing is done.
            if (Insert(row, item)) {
                Remove(row + 1, 1);
            }
            return;
        }
        ITEM*& entry = chunk.aItems[row - chunk.nFirst];
        ITEM* former = entry;
        if (former != item) {
            entry = item;
            Enter(chunk, item);
            Leave(former);
            chunk.Changed();
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
        DeleteEmpty();
        Renumber(MergeAround(iFirst));
    }

    // After items have moved among rows: what is looked for next needs no walk.
    void FindAgain(UINT row, UINT rowEnd) const
    {
        rowEnd = std::min(rowEnd, GetLength());
        while (row < rowEnd) {
            Chunk& chunk = *m_chunks[ChunkOf(row)];
            const UINT iEnd = std::min(chunk.nCount, rowEnd - chunk.nFirst);
            for (UINT i = row - chunk.nFirst; i < iEnd && !chunk.IsRun(); ++i) {
                chunk.aItems[i]->place.pChunk = &chunk;
            }
            row = chunk.nFirst + iEnd;
        }
    }

    void RemoveAll()
    {
        for (Chunk* pChunk : m_chunks) {
            RemoveFrom(*pChunk, 0, pChunk->nCount);
        }
        DeleteEmpty();
        Publish();
    }

    // The greatest of widthOf(item) over all rows, at least 0. Only rows that came, and the rows around those
    // that came or went, are asked again: what the answer depends on is told by Changed.
    template <class FUNCTION> int Widest(FUNCTION widthOf)
    {
        int nWidest = 0;
        for (Chunk* pChunk : m_chunks) {
            Chunk& chunk = *pChunk;
            if (chunk.nSummary == NOT_MEASURED) {
                chunk.nSummary = 0;
                ForEachKnown(chunk,
                             [&](ITEM& item) { chunk.nSummary = std::max(chunk.nSummary, widthOf(item)); });
            }
            nWidest = std::max(nWidest, chunk.nSummary);
        }
        return nWidest;
    }

    void Changed(const ITEM& item)
    {
        const TreePlace<ITEM>& place = item.place;
        if (place.nRows == 1 && place.pChunk) {
            place.pChunk->nSummary = NOT_MEASURED;
        } else if (place.nRows > 0) {
            AllChanged();
        } else if (Chunk* pRun = RunOf(item)) {
            pRun->nSummary = NOT_MEASURED;
        }
    }

    void AllChanged()
    {
        for (Chunk* pChunk : m_chunks) {
            pChunk->nSummary = NOT_MEASURED;
        }
    }

    // Behind the rows that there are, those of another tree with the same items. Without memory there are
    // none.
    void InsertAll(const ItemRows& other)
    {
        for (const Chunk* pChunk : other.m_chunks) {
            const bool fGood =
                pChunk->IsRun() ? InsertRun(GetLength(), RunIn(*pChunk))
                                : Insert(GetLength(), std::span<ITEM* const>(pChunk->aItems, pChunk->nCount));
            if (!fGood) {
                return RemoveAll();
            }
        }
    }

    // Whether all is as it must be: for tests.
    bool Check() const
    {
        UINT nFirst = 0;
        const Chunk* pBefore = nullptr;
        std::unordered_map<const ITEM*, UINT> shown;
        for (const Chunk* pChunk : m_chunks) {
            if (pChunk->pOwner != &m_shown || pChunk->nFirst != nFirst || pChunk->nCount == 0 ||
                (pChunk->nCount > Chunk::CAPACITY && !pChunk->IsRun()))
            {
                return false;
            }
            if (nFirst > 0 && GoOn(*pBefore, *pChunk)) {
                return false;
            }
            pBefore = pChunk;
            nFirst += pChunk->nCount;
            if (pChunk->IsRun()) {
                if (!CheckRun(pChunk)) {
                    return false;
                }
                continue;
            }
            std::for_each_n(pChunk->aItems, pChunk->nCount, [&](const ITEM* item) { ++shown[item]; });
        }
        const bool fPublished = m_chunks.empty() || (m_shown.m_ppFirst == m_chunks.data() &&
                                                     m_shown.m_ppEnd == m_chunks.data() + m_chunks.size());
        return fPublished && m_shown.GetLength() == nFirst &&
               std::all_of(shown.begin(), shown.end(),
                           [this](const auto& entry) { return CheckItem(entry.first, entry.second); });
    }

private:
    // Of an item that n rows show: it lives, knows of as many rows at least, copies having some as well, and
    // where its only one is.
    bool CheckItem(const ITEM* item, UINT n) const
    {
        if (m_pStore->Find(item) != item || item->place.nRows < n) {
            return false;
        }
        const Chunk* pChunk = item->place.pChunk;
        const bool fKnown = item->place.nRows == 1 && pChunk;
        return !fKnown || (pChunk->pOwner == &m_shown && PlaceIn(*pChunk, item) != NO_INDEX);
    }

    bool CheckRun(const Chunk* pRun) const
    {
        const ITEM* parent = pRun->aItems[0];
        return m_pStore->Find(parent) == parent && parent->place.nStrays > 0 &&
               std::find(m_runs.begin(), m_runs.end(), pRun) != m_runs.end();
    }

    // --- Runs

    static RowRun<ITEM> RunIn(const Chunk& chunk)
    {
        return {chunk.aItems[0], chunk.iFirstChild, chunk.nCount};
    }

    std::unique_ptr<Chunk> MakeRun(const RowRun<ITEM>& run)
    {
        auto pChunk = TakeChunk();
        pChunk->aItems[0] = run.parent;
        pChunk->iFirstChild = run.iFirst;
        pChunk->nCount = run.nCount;
        return pChunk;
    }

    static int LevelIn(const Chunk& chunk, UINT i)
    {
        return chunk.IsRun() ? chunk.aItems[0]->nLevel + 1 : chunk.aItems[i]->nLevel;
    }

    // Of a chunk that is no run.
    int TopLevel(Chunk& chunk) const
    {
        if (chunk.nLevelsTime != m_pStore->LevelsTime()) {
            chunk.nTopLevel = chunk.aItems[0]->nLevel;
            for (UINT i = 1; i < chunk.nCount; ++i) {
                chunk.nTopLevel = std::min(chunk.nTopLevel, chunk.aItems[i]->nLevel);
            }
            chunk.nLevelsTime = m_pStore->LevelsTime();
        }
        return chunk.nTopLevel;
    }

    // Those of the items in a chunk that have been made, and told.
    template <class FUNCTION> void ForEachKnown(const Chunk& chunk, FUNCTION function) const
    {
        if (!chunk.IsRun()) {
            std::for_each_n(chunk.aItems, chunk.nCount, [&](ITEM* item) { function(*item); });
            return;
        }
        m_pStore->Counted().ForEach(*chunk.aItems[0], chunk.iFirstChild, chunk.nCount, [&](ITEM& item) {
            if (item.fAsked) {
                function(item);
            }
        });
    }

    static UINT PlaceInRun(const Chunk& run, const ITEM& item)
    {
        const bool fHere = item.place.pHolder == run.aItems[0] && item.place.pHolder->fCounted &&
                           item.place.iChild - run.iFirstChild < run.nCount;
        return fHere ? run.nFirst + (item.place.iChild - run.iFirstChild) : NO_INDEX;
    }

    // The first run that shows an item; null for none.
    Chunk* RunOf(const ITEM& item) const
    {
        const auto found = std::find_if(m_runs.begin(), m_runs.end(), [&](const Chunk* pRun) {
            return PlaceInRun(*pRun, item) != NO_INDEX;
        });
        return found == m_runs.end() ? nullptr : *found;
    }

    UINT RowInRun(const ITEM& item) const
    {
        const Chunk* pRun = RunOf(item);
        return pRun ? PlaceInRun(*pRun, item) : NO_INDEX;
    }

    // So that a chunk begins at a row, or the rows end with it; returns its number. There is room among the
    // chunks. Throws, with nothing done, without memory.
    size_t SplitAt(UINT row)
    {
        if (row == GetLength()) {
            return m_chunks.size();
        }
        const size_t k = ChunkOf(row);
        Chunk& chunk = *m_chunks[k];
        const UINT iAt = row - chunk.nFirst;
        if (iAt == 0) {
            return k;
        }
        auto pTail = TakeChunk();
        pTail->nCount = chunk.nCount - iAt;
        if (chunk.IsRun()) {
            pTail->iFirstChild = chunk.iFirstChild + iAt;
            pTail->aItems[0] = chunk.aItems[0];
            ++chunk.aItems[0]->place.nStrays;
        } else {
            std::copy_n(chunk.aItems + iAt, pTail->nCount, pTail->aItems);
            std::for_each_n(pTail->aItems, pTail->nCount,
                            [&](ITEM* item) { item->place.pChunk = pTail.get(); });
        }
        chunk.nCount = iAt;
        chunk.Changed();
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(k) + 1, pTail.release());
        Renumber(k);
        return k + 1;
    }

    // A removal begins or ends with a run, or takes all of it.
    void RemoveFromRun(Chunk& run, UINT iAt, UINT n)
    {
        run.iFirstChild += iAt == 0 ? n : 0;
        run.nCount -= n;
        run.Changed();
        if (run.nCount == 0) {
            LeaveRun(run);
        }
    }

    void LeaveRun(const Chunk& run)
    {
        ITEM* parent = run.aItems[0];
        --parent->place.nStrays;
        FreeIfForgotten(*m_pStore, parent);
    }

    // --- Chunks

    bool HasRoomFor(size_t n) const { return n < NO_INDEX - GetLength(); }

    // Lets the tree, and classes derived from it, see the chunks.
    void Publish()
    {
        if (m_fHasHadRuns) {
            m_runs.clear(); // there is room for all
            std::copy_if(m_chunks.begin(), m_chunks.end(), std::back_inserter(m_runs),
                         [](const Chunk* pChunk) { return pChunk->IsRun(); });
        }
        m_shown.m_ppFirst = m_chunks.data();
        m_shown.m_ppEnd = m_chunks.data() + m_chunks.size();
    }

    void DeleteEmpty()
    {
        std::erase_if(m_chunks, [](Chunk* pChunk) {
            const std::unique_ptr<Chunk> empty(pChunk->nCount == 0 ? pChunk : nullptr);
            return empty != nullptr;
        });
    }

    size_t ChunkOf(UINT row) const { return m_shown.ChunkOf(row); }

    // What is found of an item with one row is kept, so that the next search needs no walk.
    UINT FindByWalking(ITEM* item) const
    {
        for (Chunk* pChunk : m_chunks) {
            const UINT row = PlaceIn(*pChunk, item);
            if (row != NO_INDEX) {
                item->place.pChunk = pChunk;
                return row;
            }
        }
        return NO_INDEX;
    }

    static UINT PlaceIn(const Chunk& chunk, const ITEM* item)
    {
        const auto* pEnd = chunk.aItems + (chunk.IsRun() ? 0 : chunk.nCount);
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
            auto pFirst = MakeChunk();
            m_chunks.push_back(pFirst.get());
            static_cast<void>(pFirst.release()); // owned above
            Publish();
        }
        size_t k = row < GetLength() ? ChunkOf(row) : m_chunks.size() - 1;
        UINT iAt = row - m_chunks[k]->nFirst;
        if (iAt == 0 && k > 0 && m_chunks[k - 1]->nCount < Chunk::CAPACITY && !m_chunks[k - 1]->IsRun()) {
            --k;
            iAt = m_chunks[k]->nCount;
        }
        if (m_chunks[k]->IsRun()) {
            k = MakeGap(row);
            iAt = 0;
        }
        *pChunk = k;
        *pAt = iAt;
    }

    // An empty chunk in front of a row, within a run or beside it. Throws without memory.
    size_t MakeGap(UINT row)
    {
        auto pEmpty = MakeChunk();
        ReserveChunks(2);
        const size_t k = SplitAt(row);
        pEmpty->nFirst = row;
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(k), pEmpty.release());
        return k;
    }

    // So that adding so many to them needs no memory. Throws, with nothing done, without it.
    void ReserveChunks(size_t n)
    {
        if (m_chunks.size() + n > m_chunks.capacity()) {
            m_chunks.reserve(std::max(m_chunks.size() + n, 2 * m_chunks.capacity()));
            Publish();
        }
        if (m_fHasHadRuns) {
            m_runs.reserve(m_chunks.capacity());
        }
    }

    std::unique_ptr<Chunk> MakeChunk() const
    {
        auto pChunk = std::make_unique_for_overwrite<Chunk>();
        pChunk->pOwner = &m_shown;
        return pChunk;
    }

    // One that was kept, if there is one.
    std::unique_ptr<Chunk> TakeChunk()
    {
        const auto kept =
            std::find_if(m_spare.begin(), m_spare.end(), [](const auto& p) { return p != nullptr; });
        return kept == m_spare.end() ? MakeChunk() : std::move(*kept);
    }

    // With room for them among the chunks. Throws, with nothing done, without memory.
    std::vector<std::unique_ptr<Chunk>> MakeChunks(size_t n)
    {
        std::vector<std::unique_ptr<Chunk>> added(n);
        std::generate(added.begin(), added.end(), [this] { return MakeChunk(); });
        ReserveChunks(n);
        return added;
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
        chunk.Changed();
    }

    // Fills the chunk and new ones behind it; what stood behind the place comes last.
    void InsertByChunks(size_t k, UINT iAt, std::span<ITEM* const> items)
    {
        Chunk* pChunk = m_chunks[k];
        const std::vector<ITEM*> tail(pChunk->aItems + iAt, pChunk->aItems + pChunk->nCount);
        auto added = MakeChunks((pChunk->nCount + items.size() - 1) / Chunk::CAPACITY);
        // From here on nothing needs memory.
        pChunk->nCount = iAt;
        pChunk->Changed();
        auto next = added.begin();
        const auto append = [&](ITEM* item) {
            if (pChunk->nCount == Chunk::CAPACITY) {
                pChunk = next++->get();
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
        auto at =
            m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(k) + 1, added.size(), nullptr);
        for (auto& pAdded : added) {
            *at++ = pAdded.release();
        }
    }

    void RemoveFrom(Chunk& chunk, UINT iAt, UINT n)
    {
        if (chunk.IsRun()) {
            return RemoveFromRun(chunk, iAt, n);
        }
        std::for_each_n(chunk.aItems + iAt, n, [this](ITEM* item) { Leave(item); });
        std::copy(chunk.aItems + iAt + n, chunk.aItems + chunk.nCount, chunk.aItems + iAt);
        chunk.nCount -= n;
        chunk.Changed();
    }

    // Joins chunks that a removal has left small; returns the first one that it may have changed.
    size_t MergeAround(size_t k)
    {
        const size_t iFirst = k > 0 ? k - 1 : 0;
        for (size_t i = iFirst; i + 1 < m_chunks.size() && i <= k;) {
            Chunk& chunk = *m_chunks[i];
            Chunk& next = *m_chunks[i + 1];
            if (chunk.IsRun() || next.IsRun() ? !GoOn(chunk, next)
                                              : chunk.nCount + next.nCount > Chunk::CAPACITY / 2) {
                ++i;
                continue;
            }
            if (chunk.IsRun()) {
                LeaveRun(next);
            } else {
                std::copy_n(next.aItems, next.nCount, chunk.aItems + chunk.nCount);
                std::for_each_n(next.aItems, next.nCount, [&](ITEM* item) { item->place.pChunk = &chunk; });
            }
            chunk.nCount += std::exchange(next.nCount, 0);
            chunk.Changed();
            DeleteEmpty();
        }
        return iFirst;
    }

    // Whether two chunks are runs of which the second goes on where the first ends.
    static bool GoOn(const Chunk& chunk, const Chunk& next)
    {
        return chunk.IsRun() && next.IsRun() && chunk.aItems[0] == next.aItems[0] &&
               chunk.iFirstChild + chunk.nCount == next.iFirstChild;
    }

    void Renumber(size_t k)
    {
        Publish();
        UINT nFirst = k == 0 ? 0 : m_chunks[k - 1]->nFirst + m_chunks[k - 1]->nCount;
        for (; k < m_chunks.size(); ++k) {
            m_chunks[k]->nFirst = nFirst;
            nFirst += m_chunks[k]->nCount;
        }
    }

    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    VisibleRows<ITEM>& m_shown;
    std::vector<Chunk*> m_chunks;                  // owned; none of them empty
    std::vector<Chunk*> m_runs;                    // those of them that are runs
    std::array<std::unique_ptr<Chunk>, 2> m_spare; // kept for a run, and for what it may split
    bool m_fHasHadRuns = false;
};

} // namespace gesso
