// Sums of coordinates and sizes that a program may have set to anything: none of them overflows.
#pragma once

#include "../headless.h"

#include <algorithm>
#include <cstdint>

namespace gesso::headless {

// The low 32 bits, which is what the platform's own sums leave.
constexpr LONG Wrapped(int64_t value)
{
    return static_cast<LONG>(static_cast<uint32_t>(value));
}

constexpr POINT Sum(const POINT& a, const POINT& b)
{
    return {Wrapped(int64_t{a.x} + b.x), Wrapped(int64_t{a.y} + b.y)};
}
constexpr POINT Difference(const POINT& a, const POINT& b)
{
    return {Wrapped(int64_t{a.x} - b.x), Wrapped(int64_t{a.y} - b.y)};
}

// The nearest coordinate that there is.
constexpr LONG Saturated(int64_t value)
{
    return static_cast<LONG>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

constexpr RECT Shifted(const RECT& r, int64_t dx, int64_t dy)
{
    return {Saturated(r.left + dx), Saturated(r.top + dy), Saturated(r.right + dx), Saturated(r.bottom + dy)};
}

constexpr RECT Spanned(int x, int y, int cx, int cy)
{
    return {x, y, Saturated(int64_t{x} + cx), Saturated(int64_t{y} + cy)};
}

constexpr POINT Corner(const RECT& r)
{
    return {r.left, r.top};
}

// The rectangle in the coordinates of an area whose corner is at `origin`, and back.
constexpr RECT Within(const POINT& origin, const RECT& r)
{
    return Shifted(r, -int64_t{origin.x}, -int64_t{origin.y});
}
constexpr RECT OutOf(const POINT& origin, const RECT& r)
{
    return Shifted(r, origin.x, origin.y);
}

// What is counted from the other side of an axis whose far end is at `end`.
constexpr POINT Mirrored(int64_t end, const POINT& p)
{
    return {Wrapped(end - p.x), p.y};
}
constexpr RECT Mirrored(int64_t end, const RECT& r)
{
    return {Saturated(end - r.right), r.top, Saturated(end - r.left), r.bottom};
}

} // namespace gesso::headless
