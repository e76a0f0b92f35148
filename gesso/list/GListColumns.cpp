// Columns that change when there are items: what of it shows, and the items' sub-items, which in Modern go
// with their column.

#include <gesso/containers/Index.h>
#include <gesso/containers/Memory.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/PreparedText.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::Quirk;
using gesso::Saturated;
using gesso::WindowContext;
namespace Metrics = gesso::Metrics;

namespace {

// The item with one sub-item more; null without memory. The texts are the new block's then.
ListItem* Widened(ListItem& item, UINT position)
{
    const UINT count = item.subItemCount;
    position = std::min(position, count);
    ListItem* wider = gesso::MakeListItem(count + 1, nullptr);
    if (!wider) {
        return nullptr;
    }
    *wider = item;
    const ListSubItem* from = item.SubItems();
    ListSubItem* to = std::copy(from, from + position, wider->SubItems());
    *to = ListSubItem();
    std::copy(from + position, from + count, to + 1);
    wider->subItemCount = count + 1;
    return wider;
}

// The check mark is the item's, and stands in the first sub-item.
void MoveCheckMark(ListSubItem& from, ListSubItem& to)
{
    to.state = (to.state & ~LSIS_CHECKED) | (from.state & LSIS_CHECKED);
    from.state &= ~LSIS_CHECKED;
}

int64_t WidthOf(void* hText)
{
    return gesso::PreparedSize(hText).cx;
}

} // namespace

// --- What shows

// Fixed behaviour: in Classic format, width and flags wait for the next SetListStyle, and the prepared
// caption stays, so that the header goes on showing the former text. Captions would else change in programs
// that keep a column's key in its text. One that could not be prepared is prepared now.
void GList::ShowColumn(UINT column, ListColumnPart part)
{
    const bool fWaits = Has(*this, Quirk::ListColumnsWait);
    ListColumn& record = *columns[column];
    const auto* former = static_cast<const ListTextPair*>(record.prepared);
    const bool fFailed = former && (!former->first || !former->second);
    const bool fCaption = part == ListColumnPart::Caption || part == ListColumnPart::Texts;
    const WindowContext context(m_hWnd);
    if (fCaption && (fFailed || !fWaits)) {
        ListTextPair* prepared =
            record.text ? PrepareText(context, LTM_COLUMN, record.text, nullptr, record.format, lineHeight)
                        : nullptr;
        FreeText(std::exchange(record.prepared, prepared));
    }
    if (part == ListColumnPart::Texts) {
        ForgetCells();
    }
    if (fWaits) {
        part == ListColumnPart::Width ? Calculate() : RefreshLayout();
        return;
    }
    if (part == ListColumnPart::Texts) {
        PrepareColumn(column);
    }
    SetListStyle(listStyle);
}

// --- Sub-items

// False, with nothing done, without memory.
bool GList::InsertSubItems(UINT position)
{
    if (columns.GetLength() == 1) {
        return true; // an item has one sub-item without columns too
    }
    const UINT count = items.GetLength();
    std::vector<ListItem*> wider;
    try {
        wider.reserve(count);
    } catch (const std::bad_alloc&) {
        return false;
    }
    for (UINT i = 0; i < count; ++i) {
        ListItem* item = Widened(*items[i], position);
        if (!item) {
            std::for_each(wider.begin(), wider.end(), gesso::FreeListItem);
            return false;
        }
        wider.push_back(item);
    }
    for (UINT i = 0; i < count; ++i) {
        m_inside->tracks.Replace(items[i], wider[i]);
        gesso::FreeListItem(std::exchange(items[i], wider[i]));
        if (position == 0) {
            MoveCheckMark(items[i]->SubItems()[1], items[i]->SubItems()[0]);
        }
    }
    m_inside->itemChanges += count ? 1 : 0;
    return true;
}

void GList::RemoveSubItems(UINT column)
{
    for (ListItem* item : items) {
        ListSubItem* sub = item->SubItem(column);
        if (!sub) {
            continue;
        }
        if (column == 0 && item->subItemCount > 1) {
            MoveCheckMark(sub[0], sub[1]);
        }
        gesso::FreeItemText(sub->text);
        FreeText(sub->prepared);
        if (item->subItemCount == 1) {
            *sub = {sub->state & LSIS_CHECKED, 0, nullptr, nullptr};
        } else {
            std::copy(sub + 1, item->SubItems() + item->subItemCount, sub);
            --item->subItemCount;
        }
    }
}

// The column that the list is sorted by, if it has been sorted.
void GList::FollowSortColumn(UINT column, bool fInserted)
{
    const UINT sorted = sortColumn + (fInserted && column <= sortColumn ? 1 : 0);
    if (sorted >= columns.GetLength() || !(columns[sorted]->state & (LCS_SORTUP | LCS_SORTDOWN))) {
        return;
    }
    if (fInserted) {
        sortColumn = sorted;
    } else if (column <= sortColumn) {
        sortColumn = column == sortColumn ? NO_INDEX : sortColumn - 1;
    }
}

// --- The width that fits

void GList::FitColumn(UINT column)
{
    ListColumn* record = ColumnFor(column, "GList::FitColumn: no such column");
    if (!record) {
        return;
    }
    const bool fTitle = record->type == LCT_TITLE;
    const gesso::Lifeline life(*this);
    int64_t text = IsVirtual() ? WidestInView(column, fTitle) : 0;
    if (!life || column >= columns.GetLength() || columns[column] != record) {
        return;
    }
    for (UINT i = 0; i < items.GetLength(); ++i) {
        const ListSubItem* sub = items[i]->SubItem(column);
        if (sub && sub->prepared) {
            text = std::max(text, WidthOf(fTitle ? sub->prepared->second : sub->prepared->first));
        }
    }
    const int64_t icon = IconSize().cx;
    const int64_t content = record->type == LCT_IMAGE       ? icon
                            : record->type == LCT_IMAGETEXT ? icon * 5 / 4 + text
                                                            : text;
    const int64_t caption = record->prepared ? WidthOf(record->prepared->first) : 0;
    const RECT margins = MarginsOf(*record);
    // A text that reaches the right side of its room is cut.
    const int64_t room = int64_t{margins.left} + margins.right + 2 * int64_t{themeList.BorderSize()} + 1;
    const int64_t cx = std::max(content, caption) + room;
    record->cx = static_cast<UINT>(Saturated(std::max(cx, int64_t{static_cast<int>(record->cxMin)})));
    Invalidate(0);
    SetListStyle(listStyle);
}
