// Sums of places and extents that a host may make as large as it likes: they stop at the ends of the numbers'
// range, so that what lies lower or further right never comes out above or to the left.
#pragma once

#include <gesso/api.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace gesso {

constexpr int Saturated(int64_t n)
{
    return static_cast<int>(std::clamp<int64_t>(n, INT_MIN, INT_MAX));
}

constexpr RECT Shifted(const RECT& rc, int64_t dx, int64_t dy)
{
    return {Saturated(rc.left + dx), Saturated(rc.top + dy), Saturated(rc.right + dx),
            Saturated(rc.bottom + dy)};
}

} // namespace gesso
