// Where the rows of a navigation bar stand as they are painted and hit: each as high as its kind.
//
// Fixed behaviour: for the scroll range and EnsureVisible all rows are as high as an item (EvenRows), but for
// PaneRangeIsEven; pages and positions that hosts keep would mean other rows.
#pragma once

#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/RowGeometry.h>

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
        RowPlace place = At(0, 0);
        while (place.row != NO_INDEX && place.nBottom < y) {
            place = Behind(place);
        }
        return place;
    }
    RowPlace Behind(const RowPlace& place) const { return At(place.row + 1, place.nBottom); }
    RowPlace PlaceOf(UINT row) const
    {
        RowPlace place = At(0, 0);
        while (place.row < row) {
            place = Behind(place);
        }
        return place;
    }
    // What the scroll range of all rows ends with.
    int LastPixel() const { return static_cast<int>(std::min<int64_t>(PlaceOf(NO_INDEX).nTop, INT_MAX)) - 1; }

private:
    RowPlace At(UINT row, int64_t nTop) const
    {
        const NavigationBarItem* item = m_rows[row];
        return item ? RowPlace{row, nTop, nTop + HeightOf(*item)} : RowPlace{NO_INDEX, nTop, nTop};
    }
    int HeightOf(const NavigationBarItem& item) const
    {
        switch (KindOf(item)) {
        case NBIK_SEPARATOR:
        case NBIK_SPACER: return m_heights.nThin;
        case NBIK_SUBITEM: return m_heights.nSubitem;
        default: return m_heights.nItem;
        }
    }

    const VisibleRows<NavigationBarItem>& m_rows;
    NavigationHeights m_heights;
};

} // namespace gesso
