// How a scroll bar looks: the state of each part, by where the pointer is and what it presses, and the
// drawing.
#pragma once

#include <gesso/framework/ScrollBarGeometry.h>

namespace gesso {

// The parts (SBH_) that the pointer pressed and that it is over, of any bar; 0 for none.
struct BarInput
{
    WORD wDown, wNow;
};

struct BarStates
{
    int nTrack, nFirst, nLast, nThumb;
};

// An idle bar draws its arrows as disabled; they come up when the pointer enters the bar. A bar that hovers
// also shows on its other parts that the pointer is in it.
BarStates StatesOf(const BarTraits& traits, const BarInput& input, DWORD dwFlags, bool fHovers);

void DrawBarParts(HWND hwnd, HDC hdc, HTHEME hTheme, const BarTraits& traits, const BarLayout& layout,
                  const BarStates& states);

} // namespace gesso
