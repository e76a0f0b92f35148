#include <gesso/framework/ScrollBarLook.h>
#include <gesso/framework/ThemePart.h>

namespace gesso {
namespace {

// Arrow states follow one another as normal, hot, pressed, disabled.
constexpr int ARROW_HOT = 1;
constexpr int ARROW_PRESSED = 2;
constexpr int ARROW_DISABLED = 3;

struct Arrow
{
    WORD wPart;
    int nNormal;
    int nHover; // while the pointer is elsewhere in the bar
};

bool IsIdle(const BarInput& input)
{
    return !input.wDown && !input.wNow;
}

int ArrowState(const Arrow& arrow, const BarInput& input, bool fDisabled)
{
    if (IsIdle(input) || fDisabled) {
        return arrow.nNormal + ARROW_DISABLED;
    }
    if (input.wDown == arrow.wPart) {
        return arrow.nNormal + (input.wNow == arrow.wPart ? ARROW_PRESSED : ARROW_HOT);
    }
    if (input.wNow == arrow.wPart && !input.wDown) {
        return arrow.nNormal + ARROW_HOT;
    }
    return input.wNow ? arrow.nHover : arrow.nNormal;
}

int ThumbState(WORD wThumb, const BarInput& input, bool fDisabled, int nHover)
{
    if (IsIdle(input) || fDisabled) {
        return SCRBS_NORMAL;
    }
    if (input.wDown == wThumb) {
        return SCRBS_PRESSED;
    }
    if (input.wNow == wThumb && !input.wDown) {
        return SCRBS_HOT;
    }
    return input.wNow ? nHover : SCRBS_NORMAL;
}

} // namespace

BarStates StatesOf(const BarTraits& traits, const BarInput& input, DWORD dwFlags, bool fHovers)
{
    const BarInput own{static_cast<WORD>(input.wDown & traits.wMask),
                       static_cast<WORD>(input.wNow & traits.wMask)};
    const auto disabled = [dwFlags](UINT uFlag) { return (dwFlags & (GSB_DISABLED | uFlag)) != 0; };
    const Arrow first{traits.wFirst, traits.nFirstArrowState,
                      fHovers ? traits.nFirstHoverState : traits.nFirstArrowState};
    const Arrow last{traits.wLast, traits.nLastArrowState,
                     fHovers ? traits.nLastHoverState : traits.nLastArrowState};
    return {
        disabled(0) ? SCRBS_DISABLED : SCRBS_NORMAL, ArrowState(first, own, disabled(GSB_DISABLE_FIRST)),
        ArrowState(last, own, disabled(GSB_DISABLE_LAST)),
        ThumbState(traits.wThumb, own, disabled(GSB_DISABLE_THUMB), fHovers ? SCRBS_HOVER : SCRBS_NORMAL)};
}

void DrawBarParts(HWND hwnd, HDC hdc, HTHEME hTheme, const BarTraits& traits, const BarLayout& layout,
                  const BarStates& states)
{
    const auto draw = [&](int nPart, int nState, PlainPart plain, const RECT& rc) {
        ThemePart(hTheme, hdc, nPart, nState, plain).In(hwnd).DrawBackground(rc);
    };
    draw(traits.nTrackPart, states.nTrack, PlainPart::ScrollTrack, layout.rcTrack);
    draw(SBP_ARROWBTN, states.nFirst, PlainPart::ScrollArrow, layout.rcFirst);
    draw(SBP_ARROWBTN, states.nLast, PlainPart::ScrollArrow, layout.rcLast);
    draw(traits.nThumbPart, states.nThumb, PlainPart::ScrollThumb, layout.rcThumb);
    draw(traits.nGripperPart, states.nThumb, PlainPart::ScrollGripper, layout.rcThumb);
}

} // namespace gesso
