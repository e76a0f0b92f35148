// The parts of a scroll bar, as both kinds of bar describe them: those in a control's frame, and GScrollbar.
#pragma once

#include <gesso/access/AccessibleSide.h>
#include <gesso/framework/ScrollBarGeometry.h>

namespace gesso {

// In order from the bar's start.
enum class BarPart : UINT
{
    LineFirst,
    PageFirst,
    Thumb,
    PageLast,
    LineLast,
    Count
};

Role RoleOfPart(BarPart part);
// "line up", or "line left" of a bar that lies.
LPCWSTR NameOfPart(const BarTraits& traits, BarPart part);
// The scroll code (SB_) that a press of it sends; NO_SCROLL_CODE of the thumb.
WORD ScrollCodeOf(BarPart part);
// Within the bar, in the coordinates of its rectangle; empty for a part that has no room.
RECT RectOfPart(const BarTraits& traits, const RECT& rcBar, const BarStops& stops, BarPart part);
// "50%" of the way from the first position to the last; "0%" where there is none to go.
AccessString PercentOf(LONGLONG nDone, LONGLONG nAll);

} // namespace gesso
