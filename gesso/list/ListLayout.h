// The layout of a list: places the rows of groups and items, and mends them after one insertion. What it
// needs of the list is bound by the caller for the time of a call, so that it works on any records, with no
// window.
#pragma once

#include <gesso/list/ListGeometry.h>

namespace gesso {

// Makes room for so many rows, all that there may be. False without memory.
bool ReserveRows(ListRows& rows, UINT count);

class ListLayout : public ListGeometry
{
public:
    ListLayout(const ListMeasures& measures, const ListItems& items, const ListGroups& groups,
               const ListCells& cells, ListRows& rows, RowOrder& order)
        : ListGeometry(measures, items, groups, cells, rows, order), m_placed(rows), m_known(order)
    {}

    // Places all rows anew. Returns where they end, as far as the content goes. Without memory the rows are
    // as they were, and not current.
    //
    // Items must stand in the order of the groups. One that matches neither the group that the walk has come
    // to nor any behind it has no row.
    //
    // Fixed behaviour: groups behind the last item have no row. Empty groups at the end would else show, and
    // make the content higher.
    int Place();

    // Makes the row of an item that was inserted, as yet of no height. Returns it.
    //
    // Fixed behaviour: the new row's index is its place among the rows, and the indices behind it move on,
    // those of groups as well: in a list with groups they are right again with the next Place. What a paint
    // between the two shows would else change.
    UINT Insert(UINT item);

    // Gives a row the items' height, and moves those below it. False where it has that height already.
    bool Fit(UINT row);

    // Tells the items from `first` on where the keyboard takes them to be: one below the other, as wide as
    // the view's rows, or to `right`.
    void Stamp(UINT first);
    void Stamp(UINT first, int right);

    // Whether the rows agree with what is known of them, and are what Place makes if they are current.
    bool Check() const;

private:
    template <class START, class ITEM> void Walk(START start, ITEM addItem);
    int PlaceRows();
    int PlaceLines();
    bool IsInOrder(UINT row) const;
    bool IgnoresIds() const;

    ListRows& m_placed;
    RowOrder& m_known;
};

} // namespace gesso
