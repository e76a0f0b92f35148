// Sums of places and extents in a list, which a host may make as large as it likes: they stop at the ends of
// the numbers' range, so that what lies lower in the list never comes out above.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>

namespace gesso {

constexpr int Saturated(int64_t n)
{
    return static_cast<int>(std::clamp<int64_t>(n, INT_MIN, INT_MAX));
}

} // namespace gesso
