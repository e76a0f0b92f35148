// The items of a tree as such: a hidden root and who is whose child. What shows of it are ItemRows.
//
// A copy shares the items, which live as long as any copy does.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/tree/ItemStore.h>
#include <gesso/tree/RowBranch.h>
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

    UINT ChildCount(const ITEM& item) const
    {
        return item.fCounted ? Counted().CountOf(item) : item.aChildren.GetLength();
    }

    // Of an item that is somebody's child.
    static UINT IndexOf(const ITEM& item)
    {
        if (IsOneCounted(item)) {
            return item.place.iChild;
        }
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

    // The index behind a child, or the first one behind null; NO_INDEX behind an item that is no child.
    static UINT IndexBehind(const ITEM& parent, const ITEM* child)
    {
        return !child ? 0 : IsChildOf(child, parent) ? IndexOf(*child) + 1 : NO_INDEX;
    }
    // The child behind another one, or the first one behind null; null at the end and behind an item that is
    // no child. Of those that are only counted, one that has been made.
    ITEM* NextChild(const ITEM& parent, const ITEM* child) const
    {
        const UINT i = IndexBehind(parent, child);
        if (parent.fCounted) {
            return Counted().FindFrom(parent, i);
        }
        return i < parent.aChildren.GetLength() ? parent.aChildren[i] : nullptr;
    }

    // The child with an index, which is made if it was only counted; null where there is none, and without
    // memory. Nothing is made in a branch that goes.
    ITEM* ChildAt(ITEM& parent, UINT i)
    {
        if (i >= ChildCount(parent)) {
            return nullptr;
        }
        if (!parent.fCounted) {
            return parent.aChildren[i];
        }
        ITEM* child = Counted().Find(parent, i);
        return child ? child : MakeCounted(parent, i);
    }

    bool HasCounted() const { return !Counted().IsEmpty(); }
    // Of an item without children: from now on it has so many. Above 0 there is a CountRoom for it.
    void SetCount(ITEM& item, UINT n) { Counted().SetCount(item, n); }
    void StopCounting(ITEM& item)
    {
        if (item.fCounted) {
            SetCount(item, 0);
        }
    }

    // The item behind another one in a branch, whose top comes first; null behind the last one.
    ITEM* NextWithin(const ITEM& top, const ITEM& item) const
    {
        ITEM* child = NextChild(item, nullptr);
        return child ? child : NextBehind(top, item);
    }
    // The same of what shows of a branch whose top is open: what is below a closed item is left out.
    ITEM* NextOpen(const ITEM& top, const ITEM& item, UINT uExpanded) const
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
        m_pStore->LevelsChanged();
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
            if (ITEM* child = TakeLastChild(*p)) {
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
        while (ITEM* child = LastChild(item)) {
            Remove(*child, onGone);
        }
    }

    // Adds what shows below an item that is expanded: its children and, below each that has the bit, its own.
    // Throws without memory.
    void AddOpenBranch(ITEM& item, UINT uExpanded, RowBranch<ITEM>& branch) const
    {
        std::vector<std::pair<ITEM*, UINT>> path{{&item, 0}};
        while (!path.empty()) {
            auto& [parent, i] = path.back();
            if (i == ChildCount(*parent)) {
                path.pop_back();
                continue;
            }
            ITEM* child = parent->fCounted ? AddRun(*parent, &i, uExpanded, branch) : parent->aChildren[i++];
            if (child && !parent->fCounted) {
                branch.Add(child);
            }
            if (child && IsOpen(*child, uExpanded)) {
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
            for (const ITEM* child = nullptr; (child = NextChild(parent, child));) {
                if (Find(child) != child || !IsChildOf(child, parent)) {
                    return false;
                }
                open.push_back(child);
            }
        }
        return CheckItems(nInTree) &&
               Counted().Check([this](const ITEM* item) { return Find(item) == item; });
    }

private:
    CountedChildren<ITEM>& Counted() const { return m_pStore->Counted(); }

    ITEM* MakeCounted(ITEM& parent, UINT i)
    {
        ITEM* item = parent.fGoing ? nullptr : m_pStore->Make(nullptr);
        if (!item) {
            return nullptr;
        }
        if (!Counted().Add(parent, i, *item)) {
            m_pStore->Free(item);
            return nullptr;
        }
        item->nLevel = parent.nLevel + 1;
        item->pParent = &parent;
        return item;
    }

    // Of those that are only counted, the last one that has been made.
    ITEM* LastChild(const ITEM& parent) const
    {
        if (parent.fCounted) {
            return Counted().FindLast(parent);
        }
        const UINT nChildren = parent.aChildren.GetLength();
        return nChildren > 0 ? parent.aChildren[nChildren - 1] : nullptr;
    }

    ITEM* TakeLastChild(ITEM& parent)
    {
        ITEM* child = LastChild(parent);
        if (child && parent.fCounted) {
            Counted().Remove(*child);
        } else if (child) {
            parent.aChildren.RemoveAt(parent.aChildren.GetLength() - 1, 1);
        }
        return child;
    }

    static bool IsOpen(const ITEM& item, UINT uExpanded)
    {
        return (item.uState & uExpanded) && HasChildren(item);
    }

    // Adds the counted children from an index on to the next open one, or to the end. Sets the index to what
    // is left, and returns the open one, or null.
    ITEM* AddRun(ITEM& parent, UINT* pIndex, UINT uExpanded, RowBranch<ITEM>& branch) const
    {
        ITEM* child = Counted().FindFrom(parent, *pIndex);
        while (child && !IsOpen(*child, uExpanded)) {
            child = NextChild(parent, child);
        }
        const UINT iEnd = child ? child->place.iChild + 1 : ChildCount(parent);
        branch.Add({&parent, *pIndex, iEnd - *pIndex});
        *pIndex = iEnd;
        return child;
    }

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

    // So far a search costs less than the share of one in seeing all siblings anew, of a hundred thousand.
    static constexpr UINT NEAR_BY = 1024;

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
    ITEM* NextBehind(const ITEM& top, const ITEM& item) const
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

    void Unlink(const ITEM& item)
    {
        if (IsOneCounted(item)) {
            Counted().Remove(item);
        } else {
            item.place.pHolder->aChildren.RemoveAt(IndexOf(item), 1);
        }
    }

    // An item that was moved is counted by the parent that it still names.
    static bool IsStray(const ITEM& item) { return item.pParent != item.place.pHolder; }

    void Forget(ITEM& item)
    {
        if (IsStray(item)) {
            --item.pParent->place.nStrays;
            FreeIfForgotten(*m_pStore, item.pParent);
        }
        item.aChildren = {};
        StopCounting(item);
        item.pParent = item.place.pHolder = nullptr;
        FreeIfForgotten(*m_pStore, &item);
    }

    std::shared_ptr<ItemStore<ITEM>> m_pStore;
    ITEM* m_pRoot;
};

} // namespace gesso
