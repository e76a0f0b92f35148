// Where scrolling leads: what the codes of WM_VSCROLL and WM_HSCROLL and the wheel ask for.
#pragma once

#include <gesso/framework/GWndScroll.h>

#include <cstdint>
#include <optional>

namespace gesso {

// The position that a code (SB_) leads to, unlimited; none for a code that leads nowhere. nThumb is the
// position that comes with the codes of the thumb.
std::optional<int64_t> ScrollTarget(const SCROLLINFO& si, UINT uCode, UINT nThumb, int64_t nLine);

// Where the thumb is of which a message tells 16 bits: in Modern all of it, if the bar itself has sent the
// message.
UINT TrackedPos(const GWnd& wnd, const SCROLLINFO& si, UINT nTold);
// The same in both behaviors.
UINT TrackedPos(const SCROLLINFO& si, UINT nTold);

// The same for the wheel. None where all is in sight.
// Fixed behaviour: 20 pixels a line, whatever a control's rows are high. A host that moves something along
// with the wheel by itself would part from the control.
std::optional<int64_t> WheelTarget(const GWnd& wnd, const SCROLLINFO& si, int nDelta);

// What a turn of the wheel moves a bar's position by, in pixels. In Modern what is less than a notch counts
// with the next turn of the same bar in the same direction.
int64_t WheelTravel(const GWnd& wnd, const SCROLLINFO& si, int nDelta);

// The whole notches of a turn; in Modern the rest counts as above.
int WheelNotches(const GWnd& wnd, const SCROLLINFO& si, int nDelta);

// How many lines a notch of the wheel is to scroll.
UINT WheelLines();

} // namespace gesso
