// What the two bars of GWndScroll have in common, as data, and the arithmetic of their thumbs.
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

// nMax - nMin, which may wrap.
int RangeOf(const SCROLLINFO& si);

// The position limited to the range, up to nMax - nPage + 1.
int ClampPos(const SCROLLINFO& si, int nPos);

// In a bar of a length in pixels. A range of zero gives the smallest thumb.
Thumb ThumbOf(HWND hwnd, const BarTraits& traits, int nBarLength, const SCROLLINFO& si);

} // namespace gesso
