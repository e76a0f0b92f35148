// The quicksort of the list. Which items it swaps is fixed, since the order of equal items depends on it: the
// middle item is the pivot, items equal to it stop both scans, and what is left of the meeting point is one
// part and the rest the other.
//
// The larger part is left for last, so that the stack stays logarithmic. An order that makes the parts very
// uneven would still take quadratic time: once that shows, a part without equal items, whose result is the
// same by any method, is merged instead. Nothing outside the array is read, and the sort ends, also where
// `order` is not consistent.
#pragma once

#include <gesso/list/MergeSort.h>

#include <algorithm>
#include <bit>
#include <utility>
#include <vector>

namespace gesso {

// ORDER is a function of two values: negative, 0 or positive, as the first is to stand before the second, may
// stand on either side of it, or is to stand behind it.
template <class VALUE, class ORDER> class PartitionSort
{
public:
    static void Sort(std::vector<VALUE>& values, ORDER order)
    {
        const size_t n = values.size();
        PartitionSort(order).SortPart(values.data(), n, 2 * static_cast<int>(std::bit_width(n)));
    }

private:
    explicit PartitionSort(ORDER order) : m_order(order) {}

    // `depth` is how many more partings are fair.
    void SortPart(VALUE* a, size_t n, int depth)
    {
        while (n > 1) {
            if (depth-- == 0 && MergeDistinct(a, n)) {
                return;
            }
            const size_t left = Part(a, n);
            const bool fLeftIsSmaller = left < n - left;
            SortPart(fLeftIsSmaller ? a : a + left, fLeftIsSmaller ? left : n - left, depth);
            a = fLeftIsSmaller ? a + left : a;
            n = fLeftIsSmaller ? n - left : left;
        }
    }

    // Returns the length of the left part, which is neither nothing nor all.
    size_t Part(VALUE* a, size_t n)
    {
        const VALUE pivot = a[n >> 1];
        size_t i = 0;
        size_t j = n - 1;
        while (true) {
            while (i + 1 < n && m_order(a[i], pivot) < 0) {
                ++i;
            }
            while (j > 0 && m_order(a[j], pivot) > 0) {
                --j;
            }
            if (i >= j) {
                return std::max<size_t>(i, 1);
            }
            std::swap(a[i], a[j]);
            ++i;
            --j;
        }
    }

    // Sorts a part, unless it turns out to have equal items: then it is left as it was.
    bool MergeDistinct(VALUE* a, size_t n)
    {
        std::vector<VALUE> from(a, a + n);
        MergeSort(from, m_order);
        for (size_t i = 1; i < n; ++i) {
            if (m_order(from[i - 1], from[i]) >= 0) {
                return false;
            }
        }
        std::copy(from.begin(), from.end(), a);
        return true;
    }

    ORDER m_order;
};

} // namespace gesso
