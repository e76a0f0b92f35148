// The parts of scroll bars.

#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr int THUMB_CORNER = 6; // in half pixels

bool IsAcross(int nPart)
{
    return nPart == SBP_THUMBBTNHORZ || nPart == SBP_LOWERTRACKHORZ || nPart == SBP_UPPERTRACKHORZ;
}

int ThumbPress(int nState)
{
    switch (nState) {
    case SCRBS_HOT: return PBS_HOT;
    case SCRBS_PRESSED: return PBS_PRESSED;
    default: return PBS_NORMAL;
    }
}

Color ThumbColor(int nPress)
{
    return nPress == PBS_HOT       ? Color::BarHotThumb
           : nPress == PBS_PRESSED ? Color::BarPressedThumb
                                   : Color::BarThumb;
}

void DrawThumb(HDC hdc, const FlatPart& part, const RECT& rc)
{
    const int nPress = ThumbPress(part.nState);
    if (IsContrast()) {
        DrawContrastBox(hdc, rc, ColorOf(Color::ButtonFace), nPress, part.nLine);
        return;
    }
    const int nAcross = IsAcross(part.nPart) ? rc.bottom - rc.top : rc.right - rc.left;
    const int nInset = std::max(nAcross / (nPress == PBS_NORMAL ? 4 : 5), 0);
    const RECT rcThumb = IsAcross(part.nPart) ? Deflated(rc, 1, nInset) : Deflated(rc, nInset, 1);
    const COLORREF cr = ColorOf(ThumbColor(nPress));
    DrawRoundBox(hdc, rcThumb, {cr, cr, part.nLine}, THUMB_CORNER * part.nLine, ColorOf(Color::BarTrack));
}

// The states come in fours by direction, and then the four of a pointer elsewhere in the bar. Idle arrows are
// in the disabled state, and look normal here.
Pointing PointingOf(int nState)
{
    const int n = nState >= ABS_UPHOVER ? nState - ABS_UPHOVER : (nState - 1) / 4;
    constexpr Pointing BY_NUMBER[] = {Pointing::Up, Pointing::Down, Pointing::Left, Pointing::Right};
    return BY_NUMBER[static_cast<unsigned>(n) % 4];
}

int ArrowPress(int nState)
{
    return nState >= ABS_UPHOVER ? int{PBS_NORMAL} : (nState - 1) % 4 + 1;
}

void DrawBarArrow(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nPress = ArrowPress(part.nState);
    const bool fStands = nPress == PBS_HOT || nPress == PBS_PRESSED;
    if (IsContrast()) {
        DrawContrastBox(hdc, rc, ColorOf(Color::ButtonFace), fStands ? nPress : int{PBS_NORMAL}, part.nLine);
    } else {
        FillColor(hdc, rc, ColorOf(Color::BarTrack));
        if (fStands) {
            FillColor(hdc, Deflated(rc, part.nLine, part.nLine), ColorOf(Color::ButtonHotFace));
        }
    }
    const int nReach =
        std::clamp<int>(std::min(rc.right - rc.left, rc.bottom - rc.top) / 5, 2, 10 * part.nLine);
    DrawTriangle(hdc, rc, PointingOf(part.nState), nReach,
                 ColorOf(fStands ? Color::BarHotArrow : Color::BarArrow));
}

} // namespace

void DrawFlatBar(HDC hdc, const FlatPart& part, const RECT& rc)
{
    switch (part.plain) {
    case PlainPart::ScrollTrack:
        FillColor(hdc, rc, ColorOf(Color::BarTrack));
        if (IsContrast()) {
            FrameColor(hdc, rc, ColorOf(ColorRole::PanelText), part.nLine);
        }
        break;
    case PlainPart::ScrollArrow: DrawBarArrow(hdc, rc, part); break;
    case PlainPart::ScrollThumb: DrawThumb(hdc, part, rc); break;
    default: break; // the thumb has no gripper
    }
}

} // namespace gesso
