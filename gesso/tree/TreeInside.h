// What a tree has behind its VisibleRows: the items, shared with its copies, and the upkeep of its own rows.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/framework/TypeAhead.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/ItemRows.h>
#include <gesso/tree/ItemTree.h>

#include <memory>
#include <utility>

namespace gesso {

// A renaming in progress.
template <class ITEM> struct ItemEdit
{
    HWND hwnd = nullptr; // of the field; null for none
    ITEM* item = nullptr;
    std::unique_ptr<ItemHold<ITEM>> pHold;
};

// A selection: the item, which is only compared, or without one the row.
struct HeardSelection
{
    const void* pItem = nullptr;
    UINT row = NO_INDEX;

    bool operator==(const HeardSelection&) const = default;
};

template <class ITEM> struct TreeInside
{
    explicit TreeInside(VisibleRows<ITEM>& shown) : rows(tree.Store(), shown) {}
    TreeInside(const TreeInside& other, VisibleRows<ITEM>& shown)
        : tree(other.tree), rows(tree.Store(), shown)
    {
        rows.InsertAll(other.rows);
    }
    TreeInside(const TreeInside&) = delete;
    TreeInside& operator=(const TreeInside&) = delete;

    ItemTree<ITEM> tree;
    ItemRows<ITEM> rows;
    const ITEM* pToldSelection = nullptr; // the selected item that the parent knows of; only compared
    HeardSelection heard;                 // what assistive technology knows of
    POINT ptHeard{};                      // and of the scroll positions
    bool fHadWindow = false;
    bool fHeightGiven = false; // the item height is the host's
    ItemEdit<ITEM> edit;
    TypeAhead typed;
    // The host is asked for what is to be painted, or has been: who paints now asks for nothing.
    bool fAsking = false;
    UINT nAsked = 0; // how often it was asked, and the tree painted
    UINT nPainted = 0;
};

// Made once the record itself is there, into which the rows are published.
template <class ITEM> VisibleRows<ITEM>::VisibleRows() : m_pOwner(this)
{
    m_inside = std::make_unique<TreeInside<ITEM>>(*this).release();
}

template <class ITEM> VisibleRows<ITEM>::VisibleRows(const VisibleRows& other) : m_pOwner(this)
{
    m_inside = std::make_unique<TreeInside<ITEM>>(other.Inside(), *this).release();
}

template <class ITEM> VisibleRows<ITEM>& VisibleRows<ITEM>::operator=(const VisibleRows& other)
{
    if (this != &other) {
        TreeInside<ITEM>& inside = other.Inside();
        Inside(); // of its own, to be deleted
        delete std::exchange(m_inside, nullptr);
        m_inside = std::make_unique<TreeInside<ITEM>>(inside, *this).release();
    }
    return *this;
}

template <class ITEM> VisibleRows<ITEM>::~VisibleRows()
{
    if (HasOwn()) {
        delete m_inside;
    }
}

// Of a copy that another program's code has made: the items of the tree that it was made from, which must
// still be there, and the rows that it has now.
template <class ITEM> void VisibleRows<ITEM>::MakeOwn() const
{
    m_ppFirst = m_ppEnd = nullptr;
    m_pOwner = this;
    m_inside = std::make_unique<TreeInside<ITEM>>(*m_inside, const_cast<VisibleRows&>(*this)).release();
}

} // namespace gesso
