// The children that a tree's host has only counted, of all items that have such: each is made when somebody
// asks for it, and found by its index.
#pragma once

#include <gesso/api.h>
#include <gesso/tree/TreeRecord.h>

#include <algorithm>
#include <map>
#include <new>
#include <unordered_map>

namespace gesso {

template <class ITEM> class CountedChildren
{
public:
    // Children of one item. So the rows of some such items fit into their numbers, and those of one, 20
    // pixels high, into a scroll range; rows beyond 2,147,483,647 pixels no scroll bar reaches.
    static constexpr UINT MOST = 100'000'000;

    bool IsEmpty() const { return m_parents.empty(); }

    // For a count of this item's. False without memory.
    bool Reserve(const ITEM& parent)
    try {
        m_parents.try_emplace(&parent);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
    // Of an item without children that were made. Above 0 there must be room for it.
    void SetCount(ITEM& parent, UINT n)
    {
        parent.fCounted = n > 0;
        if (parent.fCounted) {
            m_parents.find(&parent)->second.nCount = n;
        } else {
            m_parents.erase(&parent);
        }
    }
    UINT CountOf(const ITEM& parent) const { return parent.fCounted ? Of(parent).nCount : 0; }

    // Takes a child that has been made. False, with nothing done, without memory.
    bool Add(ITEM& parent, UINT i, ITEM& child)
    try {
        Of(parent).made.emplace(i, &child);
        child.place.pHolder = &parent;
        child.place.iChild = i;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
    void Remove(const ITEM& child) { Of(*child.place.pHolder).made.erase(child.place.iChild); }

    // Null for one that has not been made.
    ITEM* Find(const ITEM& parent, UINT i) const
    {
        ITEM* child = FindFrom(parent, i);
        return child && child->place.iChild == i ? child : nullptr;
    }
    // The first one from an index on that has been made; null for none.
    ITEM* FindFrom(const ITEM& parent, UINT i) const
    {
        if (!parent.fCounted) {
            return nullptr;
        }
        const auto& made = Of(parent).made;
        const auto found = made.lower_bound(i);
        return found == made.end() ? nullptr : found->second;
    }
    ITEM* FindLast(const ITEM& parent) const
    {
        const auto& made = Of(parent).made;
        return made.empty() ? nullptr : std::prev(made.end())->second;
    }

    // Calls function(item) with those among n children that have been made.
    template <class FUNCTION> void ForEach(const ITEM& parent, UINT iFirst, UINT n, FUNCTION function) const
    {
        if (parent.fCounted) {
            const auto& made = Of(parent).made;
            for (auto p = made.lower_bound(iFirst); p != made.end() && p->first - iFirst < n; ++p) {
                function(*p->second);
            }
        }
    }

    // Whether all is as it must be: for tests. Each count is of an item that lives, has no children of its
    // own and has made no more than it counts.
    template <class LIVES> bool Check(LIVES lives) const
    {
        return std::all_of(m_parents.begin(), m_parents.end(), [&](const auto& entry) {
            const auto& [parent, children] = entry;
            return lives(parent) && parent->fCounted && children.nCount > 0 &&
                   parent->aChildren.GetLength() == 0 &&
                   std::all_of(children.made.begin(), children.made.end(), [&](const auto& made) {
                       const ITEM* child = made.second;
                       return made.first < children.nCount && lives(child) &&
                              child->place.iChild == made.first && child->place.pHolder == parent;
                   });
        });
    }

private:
    struct Children
    {
        UINT nCount = 0;
        std::map<UINT, ITEM*> made;
    };

    Children& Of(const ITEM& parent) { return m_parents.find(&parent)->second; }
    const Children& Of(const ITEM& parent) const { return m_parents.find(&parent)->second; }

    std::unordered_map<const ITEM*, Children> m_parents;
};

// Whether an item is a child that was only counted.
template <class ITEM> bool IsOneCounted(const ITEM& item)
{
    return item.place.pHolder && item.place.pHolder->fCounted;
}

} // namespace gesso
