#include "Area.h"
#include "Arithmetic.h"

#include <algorithm>

namespace gesso::headless {
namespace {

bool HasExtent(const RECT& r)
{
    return r.left < r.right && r.top < r.bottom;
}

RECT Overlap(const RECT& a, const RECT& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

void Keep(std::vector<RECT>& rects, const RECT& rect)
{
    if (HasExtent(rect)) {
        rects.push_back(rect);
    }
}

// Adds what is left of `from` without `hole`: the strips above and below it, and those beside it.
void KeepWithout(std::vector<RECT>& rects, const RECT& from, const RECT& hole)
{
    const RECT cut = Overlap(from, hole);
    if (!HasExtent(cut)) {
        rects.push_back(from);
        return;
    }
    Keep(rects, {from.left, from.top, from.right, cut.top});
    Keep(rects, {from.left, cut.top, cut.left, cut.bottom});
    Keep(rects, {cut.right, cut.top, from.right, cut.bottom});
    Keep(rects, {from.left, cut.bottom, from.right, from.bottom});
}

} // namespace

Area::Area(const RECT& rect)
{
    Keep(m_rects, rect);
}

RECT Area::Bounds() const
{
    if (m_rects.empty()) {
        return {};
    }
    RECT bounds = m_rects.front();
    for (const RECT& r : m_rects) {
        bounds = {std::min(bounds.left, r.left), std::min(bounds.top, r.top), std::max(bounds.right, r.right),
                  std::max(bounds.bottom, r.bottom)};
    }
    return bounds;
}

bool Area::Contains(POINT point) const
{
    return std::any_of(m_rects.begin(), m_rects.end(), [&](const RECT& r) {
        return point.x >= r.left && point.x < r.right && point.y >= r.top && point.y < r.bottom;
    });
}

void Area::Add(const RECT& rect)
{
    Subtract(rect);
    Keep(m_rects, rect);
}

void Area::Add(const Area& other)
{
    const std::vector<RECT> rects = other.m_rects;
    for (const RECT& r : rects) {
        Add(r);
    }
}

void Area::Subtract(const RECT& rect)
{
    std::vector<RECT> rest;
    for (const RECT& r : m_rects) {
        KeepWithout(rest, r, rect);
    }
    m_rects = std::move(rest);
}

void Area::Subtract(const Area& other)
{
    const std::vector<RECT> rects = other.m_rects;
    for (const RECT& r : rects) {
        Subtract(r);
    }
}

void Area::Intersect(const RECT& rect)
{
    std::vector<RECT> rest;
    for (const RECT& r : m_rects) {
        Keep(rest, Overlap(r, rect));
    }
    m_rects = std::move(rest);
}

void Area::Intersect(const Area& other)
{
    std::vector<RECT> rest;
    for (const RECT& a : m_rects) {
        for (const RECT& b : other.m_rects) {
            Keep(rest, Overlap(a, b));
        }
    }
    m_rects = std::move(rest);
}

void Area::Offset(int64_t dx, int64_t dy)
{
    for (RECT& r : m_rects) {
        r = Shifted(r, dx, dy);
    }
    std::erase_if(m_rects, [](const RECT& r) { return !HasExtent(r); });
}

void Area::Mirror(int64_t end)
{
    for (RECT& r : m_rects) {
        r = Mirrored(end, r);
    }
}

} // namespace gesso::headless
