// The order of the items, and their gathering by group.

#include <gesso/containers/Index.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/PartitionSort.h>

#include <algorithm>
#include <new>
#include <unordered_map>
#include <vector>

using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

struct DataKey
{
    void* customData;
    ListItem* item;
};

// Four folded characters in one number decide most comparisons without a look at the text.
struct TextKey
{
    uint64_t lead;
    LPCWSTR text;
    ListItem* item;
};
constexpr int LEAD_LENGTH = 4;
constexpr int CHARACTER_BITS = 16;

// As _wcsicmp folds it.
WORD Folded(wchar_t c)
{
    return static_cast<WORD>(towlower(static_cast<wint_t>(c)));
}

uint64_t LeadOf(LPCWSTR text)
{
    uint64_t lead = 0;
    for (int i = 0; i < LEAD_LENGTH; ++i) {
        lead = lead << CHARACTER_BITS | Folded(*text);
        text += *text ? 1 : 0;
    }
    return lead;
}

// How many characters, of `most` at the most, two texts begin with in common.
size_t CommonStart(LPCWSTR a, LPCWSTR b, size_t most)
{
    size_t n = 0;
    while (n < most && a[n] && Folded(a[n]) == Folded(b[n])) {
        ++n;
    }
    return n;
}

// As _wcsicmp orders the texts.
int OrderTexts(const TextKey& a, const TextKey& b)
{
    if (a.lead != b.lead) {
        return a.lead < b.lead ? -1 : 1;
    }
    const bool fWhole = static_cast<WORD>(a.lead) == 0;
    return fWhole ? 0 : _wcsicmp(a.text + LEAD_LENGTH, b.text + LEAD_LENGTH);
}

LPCWSTR TextOf(ListItem* item, UINT column)
{
    const ListSubItem* sub = item->SubItem(column);
    return sub && sub->text ? sub->text : L"";
}

int Reversed(int order)
{
    return (order < 0) - (order > 0);
}

// Which way up, and whether equal items keep their order.
struct Direction
{
    bool fAscending;
    bool fStable = false;
};

template <class KEY, class ORDER> void SortKeys(std::vector<KEY>& keys, Direction direction, ORDER order)
{
    const bool ascending = direction.fAscending;
    const auto directed = [=](const KEY& a, const KEY& b) {
        return ascending ? order(a, b) : Reversed(order(a, b));
    };
    if (direction.fStable) {
        gesso::MergeSort(keys, directed);
    } else {
        gesso::PartitionSort<KEY, decltype(directed)>::Sort(keys, directed);
    }
}

template <class KEY> void StoreItems(const std::vector<KEY>& keys, ListItem** a)
{
    std::transform(keys.begin(), keys.end(), a, [](const KEY& key) { return key.item; });
}

template <class COMPARE> void SortByData(ListItem** a, size_t n, Direction direction, COMPARE compare)
{
    std::vector<DataKey> keys;
    std::transform(a, a + n, std::back_inserter(keys), [](ListItem* item) {
        return DataKey{item->customData, item};
    });
    SortKeys(keys, direction,
             [compare](const DataKey& x, const DataKey& y) { return compare(x.customData, y.customData); });
    StoreItems(keys, a);
}

// What all texts begin with decides nothing, so that the keys leave it out.
void SortByText(ListItem** a, size_t n, Direction direction, UINT column)
{
    ListItem** end = a + n;
    const LPCWSTR first = a < end ? TextOf(*a, column) : L"";
    size_t start = wcslen(first);
    std::for_each(a, end, [&](ListItem* item) { start = CommonStart(first, TextOf(item, column), start); });
    std::vector<TextKey> keys;
    std::transform(a, end, std::back_inserter(keys), [column, start](ListItem* item) {
        const LPCWSTR text = TextOf(item, column) + start;
        return TextKey{LeadOf(text), text, item};
    });
    SortKeys(keys, direction, OrderTexts);
    StoreItems(keys, a);
}

// The items brought, within each group in the order that they have, into the order of the groups. One whose
// id several groups have goes to the first; `strays` are those whose group is none of these.
std::vector<ListItem*> ByGroup(const std::vector<ListItem*>& items, const gesso::ListGroups& groups,
                               std::vector<ListItem*>& strays)
{
    std::unordered_map<UINT, UINT> groupOf;
    for (UINT group = 0; group < groups.GetLength(); ++group) {
        groupOf.try_emplace(groups[group]->group, group);
    }
    std::vector<std::vector<ListItem*>> members(groups.GetLength());
    for (ListItem* item : items) {
        const auto found = groupOf.find(item->group);
        (found != groupOf.end() ? members[found->second] : strays).push_back(item);
    }
    std::vector<ListItem*> gathered;
    gathered.reserve(items.size());
    for (const auto& group : members) {
        gathered.insert(gathered.end(), group.begin(), group.end());
    }
    return gathered;
}

// Does what needs memory; false where there is none.
template <class FUNCTION> bool Tried(FUNCTION function)
{
    try {
        function();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

void GList::FastSortItemPtr(ListItem** a, __int64 n, bool ascending, PFNLISTSORT compare)
{
    Tried([=] { SortByData(a, static_cast<size_t>(std::max<__int64>(n, 0)), {ascending}, compare); });
}

void GList::SortAlphabetical(ListItem** a, __int64 n, bool ascending, UINT column)
{
    Tried([=] { SortByText(a, static_cast<size_t>(std::max<__int64>(n, 0)), {ascending}, column); });
}

void GList::SetSortCallback(PFNLISTCOMPARE compare, void* context)
{
    m_inside->compare = compare;
    m_inside->compareContext = context;
}

void GList::SetSortState(UINT column, UINT state)
{
    if (column < columns.GetLength()) {
        columns[column]->state = (columns[column]->state & ~(LCS_SORTUP | LCS_SORTDOWN)) | state;
    }
}

void GList::Sort(UINT column, bool ascending)
{
    if (IsForeign("GList::Sort: the items are the host's")) {
        return;
    }
    const UINT formerColumn = sortColumn;
    const bool formerAscending = sortAscending;
    const UINT formerState =
        formerColumn < columns.GetLength() ? columns[formerColumn]->state & (LCS_SORTUP | LCS_SORTDOWN) : 0;
    ChangeSort(column, ascending, ascending ? LCS_SORTUP : LCS_SORTDOWN);
    if (items.GetLength() == 0) {
        return;
    }
    const gesso::Watch watch(*this);
    if (!Has(*this, Quirk::ListRemovalSilent) && !RemoveItems(0, NO_INDEX, true)) {
        return;
    }
    const bool fOrdered = Tried([&] { OrderItems(column, ascending); });
    if (!watch) {
        return;
    }
    if (fOrdered) {
        m_inside->untold.Note(EVENT_OBJECT_REORDER);
        Calculate();
        if (watch) {
            TellSelection();
        }
        if (watch) {
            EndLostRenaming();
        }
    } else {
        ChangeSort(formerColumn, formerAscending, formerState);
    }
}

// The one place: which column the list is sorted by, and the arrow that shows it.
void GList::ChangeSort(UINT column, bool ascending, UINT state)
{
    SetSortState(sortColumn, 0);
    sortColumn = column;
    sortAscending = ascending;
    SetSortState(column, state);
}

// Orders a copy: the callback is not to change the items, and nothing is lost if it does, if the list goes,
// nor where there is no memory for more. What belongs to no group goes.
void GList::OrderItems(UINT column, bool ascending)
{
    const UINT changes = m_inside->itemChanges;
    const gesso::Watch watch(*this);
    std::vector<ListItem*> order(items.begin(), items.end());
    if (column < columns.GetLength()) {
        const Direction direction{ascending, !Has(*this, Quirk::ListSortUnstable)};
        // The host may have freed its data with the items: it is asked no more then.
        const gesso::Lifeline life(*this);
        const auto asks = [&] { return life && changes == m_inside->itemChanges; };
        if (const PFNLISTCOMPARE compare = m_inside->compare) {
            void* context = m_inside->compareContext;
            SortByData(order.data(), order.size(), direction, [&](void* data1, void* data2) {
                return asks() ? compare(this, column, data1, data2, context) : 0;
            });
        } else if (const PFNLISTSORT sort = columns[column]->fktSort) {
            SortByData(order.data(), order.size(), direction,
                       [&](void* data1, void* data2) { return asks() ? sort(data1, data2) : 0; });
        } else {
            SortByText(order.data(), order.size(), direction, column);
        }
    }
    if (!watch) {
        return;
    }
    if (changes != m_inside->itemChanges) {
        gesso::Misuse("GList::Sort: the comparison changed the items");
        order.assign(items.begin(), items.end());
    }
    std::vector<ListItem*> strays;
    if (groups.GetLength() > 0) {
        order = ByGroup(order, groups, strays);
        ++m_inside->itemChanges;
    }
    const bool fFollows = FollowsItems();
    const gesso::ListKept kept = fFollows ? KeepItems() : gesso::ListKept{};
    std::for_each(strays.begin(), strays.end(), [](ListItem* item) { ReleaseItem(item); });
    std::copy(order.begin(), order.end(), items.GetData());
    items.SetLength(static_cast<UINT>(order.size()), -1);
    m_inside->tracks.ForgetLost(items);
    m_inside->selected = {};
    if (fFollows) {
        FindItems(kept);
    }
}

// Fixed behaviour: the items are left with the index of their group, while sorting and layout go by its id.
// The two agree where groups have their index as id, and GetItemGroup answers the index in any case.
void GList::Group(UINT column, bool)
{
    if (IsForeign("GList::Group: the items are the host's")) {
        return;
    }
    RemoveAllGroups();
    if (items.GetLength() == 0) {
        Calculate();
        return;
    }
    const bool fOff = column == NO_INDEX;
    const PFNLISTGROUP groupOf = column < columns.GetLength() ? columns[column]->fktGroup : nullptr;
    const gesso::Watch watch(*this);
    for (UINT i = 0; (fOff || groupOf) && i < items.GetLength(); ++i) {
        const UINT id = fOff ? 0 : groupOf(this, items[i]->customData);
        if (!watch) {
            return;
        }
        if (i < items.GetLength()) {
            items[i]->group = fOff ? id : GroupIndexOf(id);
        }
    }
    if (IsVirtual()) {
        return; // the callback has made it so
    }
    ForgetLayout();
    Sort(sortColumn, sortAscending);
    if (watch) {
        RefreshLayout();
    }
}

// The index of the first group with an id; the id itself without such a group.
UINT GList::GroupIndexOf(UINT id) const
{
    for (UINT group = 0; group < groups.GetLength(); ++group) {
        if (groups[group]->group == id) {
            return group;
        }
    }
    return id;
}

void GList::GetCurrentSort(UINT* column, bool* ascending)
{
    if (column) {
        *column = sortColumn;
    }
    if (ascending) {
        *ascending = sortAscending;
    }
}

void GList::GetCurrentGroup(UINT*, bool*) {}
