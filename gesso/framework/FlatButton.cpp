// Push buttons, command links, and the boxes of check boxes and radio buttons.

#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr int STATES_PER_CHECK = 4;
constexpr int CORNER = 7; // of buttons, in half pixels
constexpr int BOX_CORNER = 5;

enum class Check
{
    None,
    Full,
    Mixed
};

Check CheckOfState(int nState)
{
    return static_cast<Check>(std::clamp((nState - 1) / STATES_PER_CHECK, 0, 2));
}

int PressOfState(int nState)
{
    return (nState - 1) % STATES_PER_CHECK + 1;
}

BoxLook ButtonLook(const FlatPart& part)
{
    const int nLine = part.nLine;
    switch (part.nState) {
    case PBS_HOT: return {ColorOf(Color::ButtonHotFace), ColorOf(Color::ButtonEdge), nLine};
    case PBS_PRESSED: return {ColorOf(Color::ButtonPressedFace), ColorOf(Color::ButtonEdge), nLine};
    case PBS_DISABLED: return {ColorOf(Color::ButtonDisabledFace), ColorOf(Color::ButtonDisabledEdge), nLine};
    case PBS_DEFAULTED: return {ColorOf(Color::ButtonFace), ColorOf(ColorRole::Accent), 2 * nLine};
    default: return {ColorOf(Color::ButtonFace), ColorOf(Color::ButtonEdge), nLine};
    }
}

void DrawPushButton(HDC hdc, const RECT& rc, const FlatPart& part)
{
    if (IsContrast()) {
        DrawContrastBox(hdc, rc, ColorOf(Color::ButtonFace), part.nState, part.nLine, part.fDefault);
    } else {
        DrawRoundBox(hdc, rc, ButtonLook(part), CORNER * part.nLine, CLR_DEFAULT);
    }
}

// A link has no face before the pointer comes.
void DrawLink(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const bool fFace = nState == PBS_HOT || nState == PBS_PRESSED || nState == PBS_DEFAULTED;
    if (IsContrast() || fFace) {
        DrawPushButton(hdc, rc, part);
    }
}

void DrawLinkGlyph(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const COLORREF cr = nState == PBS_DISABLED ? ColorOf(ColorRole::DisabledText)
                        : IsContrast()         ? ColorOf(ColorRole::PanelText)
                                               : ColorOf(ColorRole::Accent);
    DrawArrow(hdc, rc, Pointing::Right,
              {std::clamp<int>((rc.right - rc.left) / 3, 3, 14 * part.nLine), part.nLine}, cr);
}

void DrawBack(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const RECT rcDisc = SquareIn(rc, std::min(rc.right - rc.left, rc.bottom - rc.top));
    if (IsContrast()) {
        DrawContrastBox(hdc, rcDisc, ColorOf(Color::ButtonFace), nState, part.nLine);
    } else if (nState != PBS_DISABLED) {
        DrawRoundBox(hdc, rcDisc, ButtonLook(part), rcDisc.right - rcDisc.left, CLR_DEFAULT);
    }
    DrawArrow(hdc, rcDisc, Pointing::Left,
              {std::clamp<int>((rcDisc.right - rcDisc.left) / 4, 2, 14 * part.nLine), part.nLine},
              ColorOf(nState == PBS_DISABLED ? ColorRole::DisabledText : ColorRole::PanelText));
}

// The faces of a box by how far it is pressed, without a mark and with one.
BoxLook LookOfBox(Check check, int nPress, int nLine)
{
    if (nPress == PBS_DISABLED) {
        const bool fMark = check != Check::None && !IsContrast();
        return {ColorOf(fMark ? Color::MarkDisabledFace : Color::BoxFace), ColorOf(Color::BoxDisabledEdge),
                nLine};
    }
    if (check != Check::None && !IsContrast()) {
        const COLORREF cr = ColorOf(nPress == PBS_HOT       ? Color::MarkHotFace
                                    : nPress == PBS_PRESSED ? Color::MarkPressedFace
                                                            : Color::MarkFace);
        return {cr, cr, nLine};
    }
    const int nLines = !IsContrast() ? 1 : nPress == PBS_PRESSED ? 3 : nPress == PBS_HOT ? 2 : 1;
    return {ColorOf(nPress == PBS_HOT       ? Color::BoxHotFace
                    : nPress == PBS_PRESSED ? Color::BoxPressedFace
                                            : Color::BoxFace),
            ColorOf(Color::BoxEdge), nLines * nLine};
}

COLORREF MarkColor(int nPress)
{
    if (nPress == PBS_DISABLED) {
        return ColorOf(Color::MarkDisabled);
    }
    return IsContrast() ? ColorOf(ColorRole::WindowText) : ColorOf(Color::Mark);
}

void DrawCheckBox(HDC hdc, const RECT& rc, Check check, int nPress, int nLine)
{
    const BoxLook look = LookOfBox(check, nPress, nLine);
    const BoxSign sign = check == Check::Full    ? BoxSign::Tick
                         : check == Check::Mixed ? BoxSign::Dash
                                                 : BoxSign::None;
    if (!IsContrast()) {
        return DrawRoundBox(hdc, rc, look, BOX_CORNER * nLine, CLR_DEFAULT, sign, MarkColor(nPress));
    }
    FillColor(hdc, rc, look.crFace);
    nPress == PBS_DISABLED ? DashFrameColor(hdc, rc, look.crEdge, nLine)
                           : FrameColor(hdc, rc, look.crEdge, look.nEdge);
    DrawBoxSign(hdc, rc, sign, MarkColor(nPress));
}

// As the dashes of a box do it.
void BreakRing(HDC hdc, const RECT& rc, COLORREF cr, int nLine)
{
    const int nGap = (rc.right - rc.left) / 3;
    FillColor(hdc, {rc.left + nGap, rc.top, rc.right - nGap, rc.top + nLine}, cr);
    FillColor(hdc, {rc.left + nGap, rc.bottom - nLine, rc.right - nGap, rc.bottom}, cr);
    FillColor(hdc, {rc.left, rc.top + nGap, rc.left + nLine, rc.bottom - nGap}, cr);
    FillColor(hdc, {rc.right - nLine, rc.top + nGap, rc.right, rc.bottom - nGap}, cr);
}

void DrawRadio(HDC hdc, const RECT& rc, Check check, int nPress, int nLine)
{
    const BoxLook look = LookOfBox(check, nPress, nLine);
    const int nSide = rc.right - rc.left;
    const COLORREF crDot = MarkColor(nPress);
    if (!IsContrast()) {
        const BoxSign sign = check == Check::None ? BoxSign::None : BoxSign::Dot;
        return DrawRoundBox(hdc, rc, look, nSide, CLR_DEFAULT, sign, crDot);
    }
    DrawPlainDisc(hdc, rc, look);
    if (nPress == PBS_DISABLED) {
        BreakRing(hdc, rc, look.crFace, nLine);
    }
    if (check != Check::None) {
        DrawPlainDisc(hdc, Deflated(rc, (nSide + 1) / 3, (nSide + 1) / 3), {crDot, crDot});
    }
}

} // namespace

void DrawFlatButton(HDC hdc, const FlatPart& part, const RECT& rc)
{
    switch (part.plain) {
    case PlainPart::CommandLink: DrawLink(hdc, rc, part); break;
    case PlainPart::CommandLinkGlyph: DrawLinkGlyph(hdc, rc, part); break;
    case PlainPart::BackButton: DrawBack(hdc, rc, part); break;
    default: DrawPushButton(hdc, rc, part); break;
    }
}

void DrawFlatCheck(HDC hdc, const FlatPart& part, const RECT& rc)
{
    const RECT rcBox = SquareIn(rc, std::min(rc.right - rc.left, rc.bottom - rc.top));
    const Check check = CheckOfState(part.nState);
    const int nPress = PressOfState(part.nState);
    part.plain == PlainPart::CheckBox ? DrawCheckBox(hdc, rcBox, check, nPress, part.nLine)
                                      : DrawRadio(hdc, rcBox, check, nPress, part.nLine);
}

} // namespace gesso
