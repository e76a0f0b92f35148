// The scale of a scroll bar over rows whose pixels do not fit its numbers: its unit becomes a row, or as many
// pixels as it takes. Between two units the rows still lie at any pixel.
#pragma once

#include <gesso/framework/Saturate.h>

#include <algorithm>
#include <cstdint>

namespace gesso {

class RowScale
{
public:
    static bool IsNeeded(int64_t height) { return height > INT_MAX; }

    // A unit is a pixel.
    RowScale() = default;
    // Of so many pixels in all, so many of which show, with rows so high.
    RowScale(int64_t height, int64_t page, int64_t rowHeight)
        : m_unit(std::max({rowHeight, (height + MOST_UNITS - 1) / MOST_UNITS, int64_t{2}})),
          m_page(std::max<int64_t>(page, 0)), m_last(std::max<int64_t>(height - m_page, 0))
    {}

    bool IsScaled() const { return m_unit > 1; }
    int64_t PagePixels() const { return m_page; }
    // The last position, in pixels and in units.
    int64_t LastPixel() const { return m_last; }
    int LastUnit() const { return static_cast<int>((m_last + m_unit - 1) / m_unit); }
    UINT PageUnits() const { return static_cast<UINT>(std::max<int64_t>(m_page / m_unit, 1)); }

    // The last unit alone stands for the end.
    int UnitAt(int64_t pixel) const
    {
        if (!IsScaled()) {
            return Saturated(pixel);
        }
        return pixel >= m_last ? LastUnit() : static_cast<int>(std::max<int64_t>(pixel, 0) / m_unit);
    }
    int64_t PixelAt(int64_t unit) const
    {
        if (!IsScaled()) {
            return unit;
        }
        return unit >= LastUnit() ? m_last : std::max<int64_t>(unit, 0) * m_unit;
    }

private:
    // Half of what the numbers hold: a thumb that is dragged beyond its bar is reckoned with as well.
    static constexpr int64_t MOST_UNITS = int64_t{1} << 30;

    int64_t m_unit = 1;
    int64_t m_page = 0;
    int64_t m_last = 0;
};

} // namespace gesso
