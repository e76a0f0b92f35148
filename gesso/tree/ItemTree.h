// The items of a tree as such: a hidden root and who is whose child. What shows of it are ItemRows.
//
// A copy shares the items, which live as long as any copy does.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/tree/ItemStore.h>
#include <gesso/tree/TreeRecord.h>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace gesso {

template <class ITEM> class ItemTree
{
public:
    ItemTree() : m_pStore(std::make_shared<ItemStore<ITEM>>()), m_pRoot(m_pStore->Make(nullptr))
    {
        m_pRoot->nLevel = -1;
    }

    const std::shared_ptr<ItemStore<ITEM>>& Store() const { return m_pStore; }
    ITEM* Root() const { return m_pRoot; }

    // The item that a handle names; null for a null handle, one of another tree, and one of an item that is
    // gone. An item that was removed is found as long as a row shows it.
    ITEM* Find(const void* handle) const { return m_pStore->Find(handle); }
    // The same without those that were removed.
    ITEM* FindInTree(const void* handle) const
    {
        ITEM* item = Find(handle);
        return item && !IsRemoved(*item) ? item : nullptr;
    }

    static bool IsChildOf(const ITEM* item, const ITEM& parent)
    {
        return item && item->place.pHolder == &parent;
    }

    // Of an item that is somebody's child.
    static UINT IndexOf(const ITEM& item)
    {
        auto& aSiblings = item.place.pHolder->aChildren;
        const UINT iNear = IndexNear(aSiblings, item);
        if (iNear != NO_INDEX) {
            return aSiblings[iNear]->place.iChild = iNear;
        }
        // After this the places of all siblings are known, but for what comes and goes.
        for (UINT k = 0; k < aSiblings.GetLength(); ++k) {
            aSiblings[k]->place.iChild = k;
        }
        return item.place.iChild;
    }

    // The child behind another one, or the first one behind null; null at the end and behind an item that is
    // no child.
    static ITEM* NextChild(const ITEM& parent, const ITEM* child)
    {
        const UINT i = !child ? 0 : IsChildOf(child, parent) ? IndexOf(*child) + 1 : NO_INDEX;
        return i < parent.aChildren.GetLength() ? parent.aChildren[i] : nullptr;
    }

    // The item behind another one in a branch, whose top comes first; null behind the last one.
    static ITEM* NextWithin(const ITEM& top, const ITEM& item)
    {
        ITEM* child = NextChild(item, nullptr);
        return child ? child : NextBehind(top, item);
    }
    // The same of what shows of a branch whose top is open: what is below a closed item is left out.
    static ITEM* NextOpen(const ITEM& top, const ITEM& item, UINT uExpanded)
    {
        const bool fOpen = &item == &top || (item.uState & uExpanded);
        return fOpen ? NextWithin(top, item) : NextBehind(top, item);
    }

    // Null, with nothing done, without memory.
    ITEM* Insert(ITEM& parent, UINT i, LPCWSTR pszName)
    {
        if (!ReserveChild(parent)) {
            return nullptr;
        }
        ITEM* item = m_pStore->Make(pszName);
        if (item) {
            item->nLevel = parent.nLevel + 1;
            item->pParent = &parent;
            Hold(parent, i, *item);
        }
        return item;
    }

    // Whether an item stands below another one, or is that one.
    static bool IsWithin(const ITEM& item, const ITEM& top)
    {
        const ITEM* p = &item;
        while (p && p != &top) {
            p = p->place.pHolder;
        }
        return p;
    }

    // Makes an item the last child of another one, which does not stand within it; the parent that it names,
    // and its level, stay as they are. Without memory nothing is done.
    void Move(ITEM& item, ITEM& newParent)
    {
        if (!ReserveChild(newParent)) {
            return;
        }
        Unlink(item);
        item.pParent->place.nStrays -= IsStray(item);
        Hold(newParent, newParent.aChildren.GetLength(), item);
        item.pParent->place.nStrays += IsStray(item);
    }

    // Whether there is memory for one more child.
    static bool ReserveChild(ITEM& parent)
    {
        return parent.aChildren.AllocExtra(parent.aChildren.GetLength() + 1);
    }

    // Moves an item as Move does, and its level and the parent that it names with it. There is room for it.
    void Adopt(ITEM& item, ITEM& newParent)
    {
        ITEM* const pNamed = item.pParent;
        const bool fWasStray = IsStray(item);
        Unlink(item);
        Hold(newParent, newParent.aChildren.GetLength(), item);
        item.pParent = &newParent;
        if (fWasStray) {
            --pNamed->place.nStrays;
            FreeIfForgotten(*m_pStore, pNamed);
        }
        const int nDown = newParent.nLevel + 1 - item.nLevel;
        for (ITEM* p = &item; p; p = NextWithin(item, *p)) {
            p->nLevel += nDown;
        }
    }

    // Takes an item out with all of its descendants. Those that rows show live on, without children and
    // parent. onGone(item) is called with each of them first.
    template <class FUNCTION> void Remove(ITEM& item, FUNCTION onGone)
    {
        ITEM* const pTop = item.place.pHolder;
        Unlink(item);
        ITEM* p = &item;
        // Downwards to the last descendant first, with no recursion: a tree may be very deep.
        while (p != pTop) {
            const UINT nChildren = p->aChildren.GetLength();
            if (nChildren > 0) {
                ITEM* child = p->aChildren[nChildren - 1];
                p->aChildren.RemoveAt(nChildren - 1, 1);
                p = child;
            } else {
                ITEM* const pUp = p->place.pHolder;
                onGone(p);
                Forget(*p);
                p = pUp;
            }
        }
    }

    template <class FUNCTION> void RemoveChildren(ITEM& item, FUNCTION onGone)
    {
        for (UINT n = item.aChildren.GetLength(); n > 0; --n) {
            Remove(*item.aChildren[n - 1], onGone);
        }
    }

    // Adds what shows below an item that is expanded: its children and, below each that has the bit, its own.
    // Throws without memory.
    static void AddOpenBranch(const ITEM& item, UINT uExpanded, std::vector<ITEM*>& branch)
    {
        std::vector<std::pair<const ITEM*, UINT>> path{{&item, 0}};
        while (!path.empty()) {
            auto& [parent, i] = path.back();
            if (i == parent->aChildren.GetLength()) {
                path.pop_back();
                continue;
            }
            ITEM* child = parent->aChildren[i++];
            branch.push_back(child);
            if ((child->uState & uExpanded) && child->aChildren.GetLength() > 0) {
                path.emplace_back(child, 0);
            }
        }
    }

    // Whether all is as it must be: for tests. Every item is the root, in the tree once, or removed and still
    // named or shown by something.
    bool Check() const
    {
        std::vector<const ITEM*> open{m_pRoot};
        size_t nInTree = 0;
        while (!open.empty()) {
            const ITEM& parent = *open.back();
            open.pop_back();
            ++nInTree;
            for (UINT i = 0; i < parent.aChildren.GetLength(); ++i) {
                const ITEM* child = parent.aChildren[i];
                if (Find(child) != child || !IsChildOf(child, parent)) {
                    return false;
                }
                open.push_back(child);
            }
        }
        return CheckItems(nInTree);
    }

private:
    // Each item names a parent that lives, which counts those that it has lost.
    bool CheckItems(size_t nInTree) const
    {
        size_t nKept = 0;
        bool fGood = true;
        std::unordered_map<const ITEM*, UINT> strays;
        m_pStore->ForEach([&](const ITEM& item) {
            nKept += !IsRemoved(item);
            fGood = fGood && (!IsRemoved(item) || item.place.nRows + item.place.nStrays > 0);
            fGood = fGood && (!item.pParent || Find(item.pParent) == item.pParent);
            strays[item.pParent] += IsStray(item);
        });
        return fGood && nKept == nInTree && std::all_of(strays.begin(), strays.end(), [](const auto& entry) {
                   return !entry.first || entry.first->place.nStrays >= entry.second;
               });
    }

    static constexpr UINT NEAR_BY = 64;

    // Around where it was seen last: siblings that came or went since, one by one, have moved it a little.
    template <class SIBLINGS> static UINT IndexNear(SIBLINGS& aSiblings, const ITEM& item)
    {
        const UINT nSiblings = aSiblings.GetLength();
        const UINT iSeen = std::min(item.place.iChild, nSiblings - 1);
        for (UINT n = 0; n <= NEAR_BY; ++n) {
            for (const UINT i : {iSeen - n, iSeen + n}) {
                if (i < nSiblings && aSiblings[i] == &item) {
                    return i;
                }
            }
        }
        return NO_INDEX;
    }

    // The item behind the branch of another one.
    static ITEM* NextBehind(const ITEM& top, const ITEM& item)
    {
        for (const ITEM* p = &item; p != &top; p = p->place.pHolder) {
            if (ITEM* next = NextChild(*p->place.pHolder, p)) {
                return next;
            }
        }
        return nullptr;
    }

    // There is room for it.
    static void Hold(ITEM& parent, UINT i, ITEM& item)
    {
        parent.aChildren.InsertAt(i, &item);
        item.place.pHolder = &parent;
        item.place.iChild = i;
    }

    static void Unlink(ITEM& item) { item.place.pHolder->aChildren.RemoveAt(IndexOf(item), 1); }

    // An item that was moved is counted by the parent that it still names.
    static bool IsStray(const ITEM& item) { return item.pParent != item.place.pHolder; }

    void Forget(ITEM& item)
    {
        if (IsStray(item)) {
            --item.pParent->place.nStrays;
            FreeIfForgotten(*m_pStore, item.pParent);
        }
        item.aChildren = {};
        item.pParent = item.place.pHolder = nullptr;
        FreeIfForgotten(*m_pStore, &item);
    }

    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    ITEM* m_pRoot;
};

} // namespace gesso
