// What a horizontal and a vertical bar have in common, as data, and where the parts of a bar lie: of those of
// GWndScroll, and of GScrollbar, which is a vertical one.
#pragma once

#include <gesso/framework/GWndScroll.h>

namespace gesso {

struct BarTraits
{
    DWORD dwWindowStyle;
    UINT uMessage;
    WORD wMask, wFirst, wLast, wPageFirst, wPageLast, wThumb;
    int nTrackPart, nThumbPart, nGripperPart;
    int nArrowMetric; // the extent of an arrow, in painting and thumb arithmetic
    // Fixed behaviour: the extent of an arrow in hit-testing is the other direction's metric. Where the two
    // differ, a press near an arrow would do something else.
    int nHitArrowMetric;
    int nThumbMetric;
    int nFirstArrowState, nLastArrowState; // normal, followed by hot, pressed and disabled
    int nFirstHoverState, nLastHoverState;
};

inline constexpr BarTraits BARS[] = {
    {WS_HSCROLL, WM_HSCROLL, SBH_HORIZONTAL, SBH_LEFT, SBH_RIGHT, SBH_BEFORE, SBH_BEHIND, SBH_HTHUMB,
     SBP_UPPERTRACKHORZ, SBP_THUMBBTNHORZ, SBP_GRIPPERHORZ, SM_CXHSCROLL, SM_CYHSCROLL, SM_CXHTHUMB,
     ABS_LEFTNORMAL, ABS_RIGHTNORMAL, ABS_LEFTHOVER, ABS_RIGHTHOVER},
    {WS_VSCROLL, WM_VSCROLL, SBH_VERTICAL, SBH_UP, SBH_DOWN, SBH_ABOVE, SBH_BELOW, SBH_VTHUMB,
     SBP_UPPERTRACKVERT, SBP_THUMBBTNVERT, SBP_GRIPPERVERT, SM_CYVSCROLL, SM_CXVSCROLL, SM_CYVTHUMB,
     ABS_UPNORMAL, ABS_DOWNNORMAL, ABS_UPHOVER, ABS_DOWNHOVER},
};

struct Thumb
{
    int nTrack;  // the length that the thumb moves in, less what the thumb was enlarged by
    int nLength; // of the thumb
    int nOffset; // of the thumb's start from the end of the first arrow
};

// Where along a bar, from its start, the parts lie; in pixels.
struct BarStops
{
    int nLength; // of the bar
    int nArrow;  // of each arrow
    int nThumb;  // the thumb's start
    int nThumbLength;
};

// The rectangles that are painted.
struct BarLayout
{
    RECT rcTrack, rcFirst, rcLast, rcThumb;
};

constexpr WORD NO_SCROLL_CODE = 0xFFFF;

// What there is to a part of a bar.
struct PartRule
{
    WORD wScrollCode; // that a press on it sends (SB_); NO_SCROLL_CODE for the thumb, which is dragged
    UINT uDisabledBy; // the flag (GSB_) that makes it inactive
};

constexpr bool IsVertical(const BarTraits& traits)
{
    return traits.wMask == SBH_VERTICAL;
}

// Of a bar that fills a rectangle.
int LengthOf(const BarTraits& traits, const RECT& rc);

PartRule RuleOf(const BarTraits& traits, WORD wPart);

// The part at a distance from the bar's start; the ends of the thumb belong to it.
WORD PartAt(const BarTraits& traits, const BarStops& stops, int nAt);

// In a bar that fills a rectangle.
BarLayout LayOutBar(const BarTraits& traits, const RECT& rc, const BarStops& stops);

// Makes a thumb large enough to take hold of: what it lacks comes off the track.
void EnlargeThumb(int nSmallest, int* pnTrack, int* pnLength);

// nMax - nMin, which may wrap.
int RangeOf(const SCROLLINFO& si);

// The position limited to the range, up to nMax - nPage + 1.
int ClampPos(const SCROLLINFO& si, int nPos);

// In a bar of a length in pixels. A range of zero gives the smallest thumb.
Thumb ThumbOf(HWND hwnd, const BarTraits& traits, int nBarLength, const SCROLLINFO& si);

// Of a bar of GWndScroll that fills a rectangle, as it is painted.
BarStops StopsOf(HWND hwnd, const BarTraits& traits, const RECT& rc, const SCROLLINFO& si);

} // namespace gesso
