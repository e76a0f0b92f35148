// Where the rows of a navigation bar stand as they are painted and hit: each as high as its kind.
//
// Fixed behaviour: for the scroll range and EnsureVisible all rows are as high as an item (EvenRows), but for
// PaneRangeIsEven; pages and positions that hosts keep would mean other rows.
#pragma once

#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/RowGeometry.h>

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

private:
    using Chunk = RowChunk<NavigationBarItem>;

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

    // The chunk keeps how many of its rows are subitems, and how many are thin.
    int64_t HeightOf(Chunk& chunk) const
    {
        constexpr int THIN = 0x10000;
        if (chunk.nSummary == NOT_MEASURED) {
            const auto weight = [](int n, const NavigationBarItem* item) {
                return n + (IsThin(*item) ? THIN : KindOf(*item) == NBIK_SUBITEM ? 1 : 0);
            };
            chunk.nSummary = std::accumulate(chunk.aItems, chunk.aItems + chunk.nCount, 0, weight);
        }
        const int nThin = chunk.nSummary / THIN;
        const int nSubitems = chunk.nSummary % THIN;
        const int64_t nItems = static_cast<int64_t>(chunk.nCount) - nThin - nSubitems;
        return nItems * m_heights.nItem + int64_t{nSubitems} * m_heights.nSubitem +
               int64_t{nThin} * m_heights.nThin;
    }

    static bool IsThin(const NavigationBarItem& item)
    {
        return KindOf(item) == NBIK_SEPARATOR || KindOf(item) == NBIK_SPACER;
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
