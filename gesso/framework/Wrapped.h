// Sums of places that a host may set to anything, a scroll position or a width for one: they go round at the
// ends of the numbers' range, so that the difference of two places stays the extent between them. See
// Saturate.h for sums that stop there.
#pragma once

#include <cstdint>

namespace gesso {

constexpr int Wrapped(int64_t n)
{
    return static_cast<int>(static_cast<uint32_t>(n));
}

} // namespace gesso
