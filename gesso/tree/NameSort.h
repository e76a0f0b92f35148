// The sort of a tree's children by name, in which capitals and small letters are alike.
//
// Which items it swaps is fixed, since the order of equal names depends on it: the middle item is the pivot,
// names equal to it stop both scans, and parts of 16 items or fewer are left to an insertion sort.
#pragma once

#include <cstddef>
#include <utility>

namespace gesso {

constexpr size_t INSERTION_SORTED = 16;

template <class ITEM> int CompareNames(const ITEM* a, const ITEM* b)
{
    return a->strName.CompareNoCase(b->strName);
}

template <class ITEM> void SortFewByName(ITEM** a, size_t n)
{
    for (size_t i = 1; i < n; ++i) {
        ITEM* item = a[i];
        size_t k = i;
        for (; k > 0 && CompareNames(a[k - 1], item) > 0; --k) {
            a[k] = a[k - 1];
        }
        a[k] = item;
    }
}

// Returns where the part of the greater names begins, which is neither at the start nor at the end.
template <class ITEM> size_t PartByName(ITEM** a, size_t n)
{
    const ITEM* pPivot = a[n / 2];
    size_t i = 0;
    size_t j = n - 1;
    while (true) {
        while (CompareNames<ITEM>(a[i], pPivot) < 0) {
            ++i;
        }
        while (CompareNames<ITEM>(a[j], pPivot) > 0) {
            --j;
        }
        if (i >= j) {
            return i;
        }
        std::swap(a[i++], a[j--]);
    }
}

template <class ITEM> void SortByName(ITEM** a, size_t n)
{
    while (n > INSERTION_SORTED) {
        const size_t nLeft = PartByName(a, n);
        const bool fLeftIsSmaller = nLeft < n - nLeft;
        // The larger part is left for the loop, so that the stack stays low.
        SortByName(fLeftIsSmaller ? a : a + nLeft, fLeftIsSmaller ? nLeft : n - nLeft);
        a = fLeftIsSmaller ? a + nLeft : a;
        n = fLeftIsSmaller ? n - nLeft : nLeft;
    }
    SortFewByName(a, n);
}

} // namespace gesso
