// The record of an item, alike in both trees.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OString.h>

namespace gesso {

template <class ITEM> struct RowChunk;

constexpr int NOT_MEASURED = -1;

// Where an item stands, which only the tree's own structures read and write.
template <class ITEM> struct TreePlace
{
    ITEM* pHolder = nullptr;          // whose child the item is: null for the root and once it is removed
    RowChunk<ITEM>* pChunk = nullptr; // where its row is, if it has just one
    UINT nRows = 0;                   // how many rows show it: after some operations more than one do
    UINT nStrays = 0;                 // how many items name it as their parent without being its children
    UINT iChild = 0;                  // where it was last seen among its holder's children
    int nTextWidth = NOT_MEASURED;    // of its name, in pixels
};

// A string of its own; empty for null.
GESSO_API OString<wchar_t> NameOf(LPCWSTR pszName);

template <class ITEM> struct TreeRecord
{
    explicit TreeRecord(LPCWSTR pszName) : strName(NameOf(pszName)) {}

    int nLevel = 0; // the parent's and 1; -1 for the root
    UINT uState = 0;
    OString<wchar_t> strName;
    UINT nImage = 0;           // in the image list
    bool fGoing = false;       // in a branch that is being removed, of whose items the parent is told
    bool fTold = false;        // and the parent has been told of it
    bool fCounted = false;     // its children are the host's, which has only counted them
    bool fAsked : 1 = false;   // one of those: the host has told what it is
    bool fWidened : 1 = false; // and its width counts among the rows'
    ITEM* pParent = nullptr;
    OArray<ITEM*, ITEM*> aChildren; // in the order of display
    void* pCustomData = nullptr;    // the host's
    TreePlace<ITEM> place;
};

// The bit by which both trees show an expander before there is a child.
constexpr UINT SHOWS_EXPANDER = 0x10;

template <class ITEM> bool HasChildren(const ITEM& item)
{
    return item.aChildren.GetLength() > 0 || item.fCounted;
}

template <class ITEM> bool HasExpander(const ITEM& item)
{
    return HasChildren(item) || (item.uState & SHOWS_EXPANDER);
}

} // namespace gesso
