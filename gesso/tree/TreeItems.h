// The items of a tree by their handles: which item a handle names, its fields, and its neighbours.
//
// A handle that names no item is a caller's mistake: what takes it does nothing, and a getter returns 0 or
// null.
#pragma once

#include <gesso/containers/Misuse.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/TreeInside.h>

namespace gesso {

// Bits of the state that the getter and setter leave alone.
constexpr UINT HIDDEN_STATE = 0xFF00;

template <class ITEM, class RULES> class TreeItems
{
public:
    explicit TreeItems(const VisibleRows<ITEM>& shown)
        : m_tree(shown.Inside().tree), m_rows(shown.Inside().rows)
    {}

    ITEM* Root() const { return m_tree.Root(); }
    ITEM* ItemOf(void* hItem) const { return OrMisuse(m_tree.Find(hItem)); }
    bool IsInTree(const void* hItem) const { return m_tree.FindInTree(hItem) != nullptr; }
    ItemHold<ITEM> Hold(ITEM* item) const { return {m_tree.Store(), item}; }

    // --- Fields

    int GetLevel(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? item->nLevel : 0;
    }
    UINT GetState(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? item->uState & ~HIDDEN_STATE : 0;
    }
    LPCWSTR GetName(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? static_cast<LPCWSTR>(item->strName) : nullptr;
    }
    UINT GetImage(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? item->nImage : 0;
    }
    void* GetCustomData(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? item->pCustomData : nullptr;
    }

    void SetName(void* hItem, LPCWSTR pszName) const
    {
        ITEM* item = ItemOf(hItem);
        if (item && item->strName.Format(L"%s", pszName ? pszName : L"")) {
            item->place.nTextWidth = NOT_MEASURED;
            m_rows.Changed(*item);
        }
    }
    void SetImage(void* hItem, UINT nImage) const
    {
        if (ITEM* item = ItemOf(hItem)) {
            item->nImage = nImage;
        }
    }
    void SetCustomData(void* hItem, void* pData) const
    {
        if (ITEM* item = ItemOf(hItem)) {
            item->pCustomData = pData;
        }
    }

    // After a change of the font.
    void ForgetWidths() const
    {
        m_tree.Store()->ForEach([](ITEM& item) { item.place.nTextWidth = NOT_MEASURED; });
        m_rows.AllChanged();
    }

    // --- Neighbours

    void* GetParent(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? m_tree.FindInTree(item->pParent) : nullptr;
    }
    UINT GetChildCount(void* hItem) const
    {
        const ITEM* item = ItemOf(hItem);
        return item ? m_tree.ChildCount(*item) : 0;
    }
    // Of a branch that goes, the next one that has been made.
    void* GetNextChild(void* hParent, void* hChild) const
    {
        ITEM* parent = IsRootByNull(hParent) ? m_tree.Root() : ItemOf(hParent);
        // A child that is none counts as the last one.
        const ITEM* child = m_tree.Find(hChild);
        const bool fKnown = parent && (child || !hChild);
        ITEM* next = !fKnown          ? nullptr
                     : parent->fGoing ? m_tree.NextChild(*parent, child)
                                      : m_tree.ChildAt(*parent, m_tree.IndexBehind(*parent, child));
        return next ? next : reinterpret_cast<void*>(RULES::NO_MORE_CHILDREN);
    }

    // --- Rows

    // The first row of an item; NO_INDEX for null and where it is not in view.
    UINT RowOf(void* hItem) const { return hItem ? m_rows.Find(ItemOf(hItem)) : NO_INDEX; }
    UINT FindRow(const void* hItem) const { return m_rows.Find(m_tree.Find(hItem)); }

protected:
    static bool IsRootByNull(const void* hParent) { return !hParent && RULES::NULL_PARENT_IS_ROOT; }
    static ITEM* OrMisuse(ITEM* item)
    {
        if (!item) {
            Misuse(RULES::BAD_HANDLE);
        }
        return item;
    }

    ItemTree<ITEM>& m_tree;
    ItemRows<ITEM>& m_rows;
};

} // namespace gesso
