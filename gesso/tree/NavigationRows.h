// Where the rows of a navigation bar stand as they are painted and hit: each as high as its kind.
//
// Fixed behaviour: for the scroll range and EnsureVisible all rows are as high as an item (EvenRows), but for
// PaneRangeIsEven; pages and positions that hosts keep would mean other rows.
#pragma once

#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/RowGeometry.h>

#include <algorithm>
#include <numeric>

namespace gesso {

struct NavigationHeights
{
    int nItem; // headers too
    int nSubitem;
    int nThin; // separators and spacers
};

inline UINT KindOf(const NavigationBarItem& item)
{
    return item.uState & NBIK_MASK;
}

inline bool IsSelectable(const NavigationBarItem& item)
{
    return KindOf(item) == NBIK_ITEM || KindOf(item) == NBIK_SUBITEM;
}

class NavigationRows
{
public:
    NavigationRows(const VisibleRows<NavigationBarItem>& rows, const NavigationHeights& heights)
        : m_rows(rows), m_heights(heights)
    {}

    // The first row whose bottom is at y or below; behind the last one its number is NO_INDEX.
    RowPlace Reaching(int64_t y) const
    {
        RowPlace place = FirstOfChunk([y](const Chunk&, int64_t nBottom) { return nBottom >= y; });
        while (place.row != NO_INDEX && place.nBottom < y) {
            place = Behind(place);
        }
        return place;
    }
    RowPlace Behind(const RowPlace& place) const { return At(place.row + 1, place.nBottom); }
    RowPlace PlaceOf(UINT row) const
    {
        RowPlace place =
            FirstOfChunk([row](const Chunk& chunk, int64_t) { return row - chunk.nFirst < chunk.nCount; });
        while (place.row < row) {
            place = Behind(place);
        }
        return place;
    }
    // What the scroll range of all rows ends with.
    int LastPixel() const { return static_cast<int>(std::min<int64_t>(PlaceOf(NO_INDEX).nTop, INT_MAX)) - 1; }

    // How many of the rows in front of one are no spacers; of all rows for NO_INDEX.
    static UINT CountTold(const VisibleRows<NavigationBarItem>& rows, UINT rowEnd)
    {
        UINT n = 0;
        for (Chunk* pChunk : rows.Chunks()) {
            if (rowEnd - pChunk->nFirst < pChunk->nCount) {
                return n + static_cast<UINT>(
                               std::count_if(pChunk->aItems, pChunk->aItems + (rowEnd - pChunk->nFirst),
                                             [](const auto* item) { return !IsSpacer(*item); }));
            }
            n += pChunk->nCount - SpacersIn(*pChunk);
        }
        return n;
    }
    // The row that is no spacer and has so many of these in front of it; NO_INDEX for none.
    static UINT ToldRow(const VisibleRows<NavigationBarItem>& rows, UINT nIndex)
    {
        for (Chunk* pChunk : rows.Chunks()) {
            const UINT nTold = pChunk->nCount - SpacersIn(*pChunk);
            if (nIndex < nTold) {
                UINT i = 0;
                while (IsSpacer(*pChunk->aItems[i]) || nIndex-- > 0) {
                    ++i;
                }
                return pChunk->nFirst + i;
            }
            nIndex -= nTold;
        }
        return NO_INDEX;
    }

private:
    using Chunk = RowChunk<NavigationBarItem>;

    // The chunk keeps how many of its rows are subitems, how many are thin, and how many of these spacers.
    static constexpr int THIN = 0x400;
    static constexpr int SPACER = 0x100000;
    static_assert(Chunk::CAPACITY < THIN && THIN * THIN == SPACER);

    static int SummaryOf(Chunk& chunk)
    {
        if (chunk.nSummary == NOT_MEASURED) {
            const auto weight = [](int n, const NavigationBarItem* item) {
                return n +
                       (IsThin(*item)                   ? THIN
                        : KindOf(*item) == NBIK_SUBITEM ? 1
                                                        : 0) +
                       (IsSpacer(*item) ? SPACER : 0);
            };
            chunk.nSummary = std::accumulate(chunk.aItems, chunk.aItems + chunk.nCount, 0, weight);
        }
        return chunk.nSummary;
    }
    static UINT SpacersIn(Chunk& chunk) { return static_cast<UINT>(SummaryOf(chunk) / SPACER); }

    // The first row of the first chunk for which isWanted(chunk, its bottom) holds; behind the last one its
    // number is NO_INDEX.
    template <class PREDICATE> RowPlace FirstOfChunk(PREDICATE isWanted) const
    {
        int64_t nTop = 0;
        for (Chunk* pChunk : m_rows.Chunks()) {
            const int64_t nBottom = nTop + HeightOf(*pChunk);
            if (isWanted(*pChunk, nBottom)) {
                return At(pChunk->nFirst, nTop);
            }
            nTop = nBottom;
        }
        return At(NO_INDEX, nTop);
    }

    int64_t HeightOf(Chunk& chunk) const
    {
        const int nSummary = SummaryOf(chunk);
        const int nThin = nSummary % SPACER / THIN;
        const int nSubitems = nSummary % THIN;
        const int64_t nItems = static_cast<int64_t>(chunk.nCount) - nThin - nSubitems;
        return nItems * m_heights.nItem + int64_t{nSubitems} * m_heights.nSubitem +
               int64_t{nThin} * m_heights.nThin;
    }

    static bool IsSpacer(const NavigationBarItem& item) { return KindOf(item) == NBIK_SPACER; }
    static bool IsThin(const NavigationBarItem& item)
    {
        return KindOf(item) == NBIK_SEPARATOR || IsSpacer(item);
    }
    RowPlace At(UINT row, int64_t nTop) const
    {
        const NavigationBarItem* item = m_rows[row];
        return item ? RowPlace{row, nTop, nTop + HeightOf(*item)} : RowPlace{NO_INDEX, nTop, nTop};
    }
    int HeightOf(const NavigationBarItem& item) const
    {
        return IsThin(item)                   ? m_heights.nThin
               : KindOf(item) == NBIK_SUBITEM ? m_heights.nSubitem
                                              : m_heights.nItem;
    }

    const VisibleRows<NavigationBarItem>& m_rows;
    NavigationHeights m_heights;
};

} // namespace gesso
