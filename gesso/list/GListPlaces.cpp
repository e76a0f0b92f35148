// The indices that the list keeps of items: in Modern they go where their items go.

#include <gesso/containers/Index.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>

#include <algorithm>

using gesso::Has;
using gesso::ListIndices;
using gesso::ListKept;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

// By the group's index, in Classic.
bool IsOfGroup(const GList::HitTestInfo& hit)
{
    return hit.subItem == gesso::ListHit::NO_PART && hit.part == LHP_BODY;
}

} // namespace

bool GList::IsHotOnItem() const
{
    return hitHot.item < LHI_HEADER && !(IsVirtual() && !HasExactPlaces() && IsOfGroup(hitHot));
}

bool GList::IsPressOnItem() const
{
    const bool fGroup = IsVirtual() && !HasExactPlaces() && IsOfGroup(hitPress);
    return (m_dwState & GWS_PRESSED) && hitPress.item < LHI_HEADER && !fGroup;
}

ListIndices GList::Indices() const
{
    return {cursorItem, lastItem, shiftAnchor, IsHotOnItem() ? hitHot.item : NO_INDEX,
            IsPressOnItem() ? hitPress.item : NO_INDEX};
}

void GList::SetIndices(const ListIndices& indices)
{
    ChangeCursor(indices[0], indices[1]);
    shiftAnchor = indices[2];
    if (IsHotOnItem()) {
        SetHotItem(indices[3]);
    }
    if (IsPressOnItem()) {
        hitPress.item = indices[4];
    }
    m_inside->untold.cursor = GetCursorItem(); // the same item, at another place
}

// Whether there is any, and it is to go with its item.
bool GList::FollowsItems() const
{
    const ListIndices indices = Indices();
    const auto isAny = [](UINT index) { return index != NO_INDEX; };
    return std::any_of(indices.begin(), indices.end(), isAny) && !Has(*this, Quirk::ListIndicesStay);
}

// An item that was inserted moves those behind it on.
void GList::FollowInsertion(UINT item)
{
    if (FollowsItems()) {
        ListIndices indices = Indices();
        for (UINT& index : indices) {
            index += index != NO_INDEX && index >= item ? 1 : 0;
        }
        SetIndices(indices);
    }
}

// The item itself, or the next one that stays, or else the last one before it.
ListItem* GList::StayingFrom(UINT item) const
{
    const UINT count = items.GetLength();
    if (item >= count) {
        return nullptr;
    }
    for (UINT i = item; i < count; ++i) {
        if (!gesso::RemovalOf(*items[i])) {
            return items[i];
        }
    }
    while (item-- > 0) {
        if (!gesso::RemovalOf(*items[item])) {
            return items[item];
        }
    }
    return nullptr;
}

// The cursor has a next item to go to; what the pointer is over has none.
ListKept GList::KeepItems() const
{
    const ListIndices indices = Indices();
    return {StayingFrom(indices[0]), StayingFrom(indices[1]), StayingFrom(indices[2]), ItemAt(indices[3]),
            ItemAt(indices[4])};
}

void GList::FindItems(const ListKept& kept)
{
    ListIndices indices;
    indices.fill(NO_INDEX);
    for (UINT i = 0; i < items.GetLength(); ++i) {
        for (UINT k = 0; k < kept.size(); ++k) {
            indices[k] = items[i] == kept[k] ? i : indices[k];
        }
    }
    SetIndices(indices);
}
