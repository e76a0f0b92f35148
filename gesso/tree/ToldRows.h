// The rows that assistive technology is told of, by their numbers among these: all rows of a tree, and those
// of a navigation bar that are no spacers.
#pragma once

#include <gesso/tree/GTree.h>
#include <gesso/tree/NavigationRows.h>

namespace gesso {

inline UINT CountTold(const VisibleRows<TreeItem>& rows)
{
    return rows.GetLength();
}
inline UINT CountTold(const VisibleRows<NavigationBarItem>& rows)
{
    return NavigationRows::CountTold(rows, NO_INDEX);
}

// The row with an index among them; NO_INDEX for none.
inline UINT ToldRow(const VisibleRows<TreeItem>& rows, UINT nIndex)
{
    return nIndex < rows.GetLength() ? nIndex : NO_INDEX;
}
inline UINT ToldRow(const VisibleRows<NavigationBarItem>& rows, UINT nIndex)
{
    return NavigationRows::ToldRow(rows, nIndex);
}

// The other way round; NO_INDEX also for a row that is not told of.
inline UINT ToldIndex(const VisibleRows<TreeItem>& rows, UINT row)
{
    return row < rows.GetLength() ? row : NO_INDEX;
}
inline UINT ToldIndex(const VisibleRows<NavigationBarItem>& rows, UINT row)
{
    const NavigationBarItem* item = rows[row];
    return item && KindOf(*item) != NBIK_SPACER ? NavigationRows::CountTold(rows, row) : NO_INDEX;
}

// Whether a row can be selected; asks for no item of a run.
inline bool IsSelectableRow(const VisibleRows<TreeItem>& rows, UINT row)
{
    return row < rows.GetLength();
}
inline bool IsSelectableRow(const VisibleRows<NavigationBarItem>& rows, UINT row)
{
    const NavigationBarItem* item = rows[row];
    return item && IsSelectable(*item);
}

} // namespace gesso
