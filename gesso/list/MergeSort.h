// A sort that leaves equal values in their order. It ends, and reads nothing outside the array, also where
// `order` is not consistent, which the C++ library does not promise.
#pragma once

#include <algorithm>
#include <vector>

namespace gesso {

// ORDER is a function of two values: negative, 0 or positive, as the first is to stand before the second, may
// stand on either side of it, or is to stand behind it.
template <class VALUE, class ORDER> void MergeSort(std::vector<VALUE>& values, const ORDER& order)
{
    const auto mergeRuns = [&order](const VALUE* left, const VALUE* middle, const VALUE* end, VALUE* to) {
        const VALUE* right = middle;
        while (left != middle && right != end) {
            *to++ = order(*right, *left) < 0 ? *right++ : *left++;
        }
        std::copy(right, end, std::copy(left, middle, to));
    };
    const size_t n = values.size();
    std::vector<VALUE> to(n);
    for (size_t run = 1; run < n; run *= 2) {
        for (size_t start = 0; start < n; start += 2 * run) {
            const size_t middle = std::min(start + run, n);
            const size_t end = std::min(start + 2 * run, n);
            mergeRuns(values.data() + start, values.data() + middle, values.data() + end, to.data() + start);
        }
        values.swap(to);
    }
}

} // namespace gesso
