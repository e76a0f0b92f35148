// A part of the plane as a list of rectangles that do not overlap: update regions, and what regions are made
// of.
#pragma once

#include "../headless.h"

namespace gesso::headless {

class Area
{
public:
    Area() = default;
    explicit Area(const RECT& rect);

    bool IsEmpty() const { return m_rects.empty(); }
    const std::vector<RECT>& Rects() const { return m_rects; }
    RECT Bounds() const; // (0,0,0,0) if empty
    bool Contains(POINT point) const;

    void Clear() { m_rects.clear(); }
    void Add(const RECT& rect);
    void Add(const Area& other);
    void Subtract(const RECT& rect);
    void Subtract(const Area& other);
    void Intersect(const RECT& rect);
    void Intersect(const Area& other);
    // What would lie beyond the last coordinate is cut off.
    void Offset(int64_t dx, int64_t dy);
    // Counts it from the other side of an axis whose far end is at `end`.
    void Mirror(int64_t end);

private:
    std::vector<RECT> m_rects;
};

} // namespace gesso::headless
