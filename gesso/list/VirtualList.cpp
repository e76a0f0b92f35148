#include <gesso/list/VirtualList.h>

namespace gesso {

bool VirtualList::IsPending(UINT item, UINT column, UINT bit) const
{
    const PendingCell* cell = pending;
    while (cell && (cell->item != item || cell->column != column || cell->bit != bit)) {
        cell = cell->outer;
    }
    return cell != nullptr;
}

void VirtualList::Outdate(UINT first, UINT last)
{
    if (pass && pass->fKeeps) {
        fOutdated = true;
        return;
    }
    cells.Forget(first, last);
    for (PendingCell* cell = pending; cell; cell = cell->outer) {
        cell->fOutdated = cell->fOutdated || (cell->item >= first && cell->item <= last);
    }
}

void VirtualList::ForgetOutdated()
{
    if (fOutdated && !pass) {
        fOutdated = false;
        cells.Forget();
    }
}

RowAnchor VirtualList::AnchorAt(int64_t y) const
{
    const UINT item = rows.ItemReaching(y);
    return item < rows.Count() ? RowAnchor{item, y - rows.PlaceOf(item).top}
                               : RowAnchor{NO_INDEX, y - rows.End()};
}

int64_t VirtualList::PlaceOf(const RowAnchor& anchor) const
{
    return anchor.offset + (anchor.item < rows.Count() ? rows.PlaceOf(anchor.item).top : rows.End());
}

bool VirtualList::Check() const
{
    const UINT count = rows.Count();
    return rows.Check() && selected.Check() && kept.Check() && selected.Next(count) == NO_INDEX &&
           kept.Next(count) == NO_INDEX && cells.Check(count) && !pending && !pass;
}

} // namespace gesso
