// What shows of a branch, in the order of display: items, and between them runs of children that the host has
// only counted, of which nothing but their number is known.
#pragma once

#include <gesso/api.h>

#include <cstddef>
#include <vector>

namespace gesso {

// Children of one item that follow each other.
template <class ITEM> struct RowRun
{
    ITEM* parent;
    UINT iFirst;
    UINT nCount;
};

template <class ITEM> struct RowBranch
{
    // In front of the item with an index.
    struct PlacedRun
    {
        size_t iItem;
        RowRun<ITEM> run;
    };

    // Both throw without memory.
    void Add(ITEM* item) { items.push_back(item); }
    void Add(const RowRun<ITEM>& run)
    {
        if (run.nCount > 0) {
            runs.push_back({items.size(), run});
        }
    }
    UINT64 GetLength() const
    {
        UINT64 n = items.size();
        for (const PlacedRun& placed : runs) {
            n += placed.run.nCount;
        }
        return n;
    }

    std::vector<ITEM*> items;
    std::vector<PlacedRun> runs;
};

} // namespace gesso
