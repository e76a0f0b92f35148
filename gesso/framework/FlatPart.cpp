#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>

namespace gesso {
namespace {

// Nothing shows so far away, and what is added to a place that is nearer stays in its range.
constexpr LONG FARTHEST = 0xFFFFFF;

RECT Near(const RECT& rc)
{
    const auto bounded = [](LONG n) { return std::clamp(n, -FARTHEST, FARTHEST); };
    return {bounded(rc.left), bounded(rc.top), bounded(rc.right), bounded(rc.bottom)};
}

void DrawField(HDC hdc, const RECT& rc, const FlatPart& part, bool fFace)
{
    const int nState = part.nState;
    const bool fDisabled = nState == CBXS_DISABLED;
    if (fFace) {
        FillColor(hdc, rc, ColorOf(fDisabled ? Color::FieldDisabledFace : Color::FieldFace));
    }
    const Color edge = fDisabled                ? Color::FieldDisabledEdge
                       : nState == CBXS_PRESSED ? Color::FieldFocusEdge
                       : nState == CBXS_HOT     ? Color::FieldHotEdge
                                                : Color::FieldEdge;
    if (IsContrast() && fDisabled) {
        DashFrameColor(hdc, rc, ColorOf(edge), part.nLine);
    } else {
        const int nLines = !IsContrast() ? 1 : nState == CBXS_PRESSED ? 3 : nState == CBXS_HOT ? 2 : 1;
        FrameColor(hdc, rc, ColorOf(edge), nLines * part.nLine);
    }
}

bool IsDisabledBackground(const FlatPart& part)
{
    constexpr int BACKGROUND_DISABLED = 3;
    return part.nState == (part.nPart == EP_BACKGROUND ? BACKGROUND_DISABLED : int{EPSN_DISABLED});
}

// In the colour of the field's text, which the context has.
void DrawDropDown(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const bool fDisabled = nState == CBXS_DISABLED;
    if (!IsContrast() && (nState == CBXS_HOT || nState == CBXS_PRESSED)) {
        FillColor(hdc, Deflated(rc, part.nLine, part.nLine),
                  ColorOf(nState == CBXS_HOT ? Color::ButtonHotFace : Color::ButtonPressedFace));
    }
    const int nReach = std::clamp<int>((rc.right - rc.left) / 4, 2, 12 * part.nLine);
    DrawChevron(hdc, rc, Pointing::Down, {nReach, part.nLine},
                fDisabled ? ColorOf(ColorRole::DisabledText) : GetTextColor(hdc));
}

// Which row states have which of a ground, a mark and a frame.
struct RowLook
{
    bool fSelected, fFocused, fHot;
};

RowLook LookOfRow(int nState)
{
    return {nState == LISS_SELECTED || nState == LISS_HOTSELECTED || nState == LISS_SELECTEDNOTFOCUS,
            nState != LISS_SELECTEDNOTFOCUS, nState == LISS_HOT || nState == LISS_HOTSELECTED};
}

ColorRole TextOfRow(int nState)
{
    const RowLook look = LookOfRow(nState);
    if (look.fSelected) {
        return look.fFocused ? ColorRole::SelectionText : ColorRole::InactiveSelectionText;
    }
    return nState == LISS_DISABLED ? ColorRole::DisabledText : ColorRole::WindowText;
}

void DrawRow(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const RowLook look = LookOfRow(nState);
    if (look.fSelected) {
        FillColor(hdc, rc,
                  look.fHot       ? ColorOf(Color::RowHotSelection)
                  : look.fFocused ? ColorOf(ColorRole::Selection)
                                  : ColorOf(ColorRole::InactiveSelection));
    } else if (look.fHot) {
        FillColor(hdc, rc, ColorOf(ColorRole::HotRow));
    }
    const int nMark = std::clamp<int>((rc.bottom - rc.top) / 7, 2, 8 * part.nLine);
    if (!IsContrast()) {
        if (look.fSelected && look.fFocused) {
            FillColor(hdc, {rc.left, rc.top, rc.left + nMark, rc.bottom}, ColorOf(ColorRole::Accent));
        }
        return;
    }
    const COLORREF crText = ColorOf(TextOfRow(nState));
    if (look.fSelected) {
        FillColor(hdc, {rc.left, rc.top, rc.left + nMark, rc.bottom}, crText);
    }
    if (look.fHot) {
        FrameColor(hdc, rc, crText, part.nLine);
    } else if (look.fSelected && !look.fFocused) {
        DashFrameColor(hdc, rc, crText, part.nLine);
    }
}

void DrawHeaderItem(HDC hdc, const RECT& rc, const FlatPart& part)
{
    const int nState = part.nState;
    const bool fPressed = nState == HIS_PRESSED || nState == HIS_SORTEDPRESSED;
    const bool fHot = nState == HIS_HOT || nState == HIS_SORTEDHOT;
    FillColor(hdc, rc,
              fPressed ? ColorOf(Color::HeaderPressedFace)
              : fHot   ? ColorOf(Color::HeaderHotFace)
                       : ColorOf(ColorRole::Header));
    const COLORREF crLine = ColorOf(Color::HeaderLine);
    FillColor(hdc, {rc.left, rc.bottom - part.nLine, rc.right, rc.bottom}, crLine);
    if (nState != 0) { // the rest behind the last column
        FillColor(hdc, {rc.right - part.nLine, rc.top, rc.right, rc.bottom - part.nLine}, crLine);
    }
    if (IsContrast() && (fHot || fPressed)) {
        FrameColor(hdc, rc, ColorOf(ColorRole::HeaderText), (fPressed ? 3 : 2) * part.nLine);
    }
}

// Broken in Contrast around what is disabled.
void DrawOutline(HDC hdc, const RECT& rc, bool fDisabled, COLORREF cr, int nLine)
{
    if (IsContrast() && fDisabled) {
        DashFrameColor(hdc, rc, ColorOf(ColorRole::DisabledText), nLine);
    } else {
        FrameColor(hdc, rc, cr, nLine);
    }
}

void DrawPane(HDC hdc, const RECT& rc, const FlatPart& part)
{
    FillColor(hdc, rc, ColorOf(ColorRole::Window));
    DrawOutline(hdc, rc, part.nState == LISS_DISABLED, ColorOf(Color::PaneEdge), part.nLine);
}

void DrawProgress(HDC hdc, const RECT& rc, const FlatPart& part)
{
    FillColor(hdc, rc, ColorOf(Color::ProgressTrack));
    DrawOutline(hdc, rc, part.nState == PBS_DISABLED, ColorOf(ColorRole::Border), part.nLine);
}

COLORREF ColorOfProgress(const FlatPart& part)
{
    return ColorOf(part.nState == PBS_DISABLED ? Color::ProgressDisabledFill : Color::ProgressFill);
}

void DrawFooter(HDC hdc, const RECT& rc, int nLine)
{
    FillColor(hdc, rc, ColorOf(Color::DialogFooter));
    FillColor(hdc, {rc.left, rc.top, rc.right, rc.top + nLine}, ColorOf(Color::PanelLine));
}

// In the colour of the row's text, which the context has.
void DrawTreeGlyph(HDC hdc, const FlatPart& part, const RECT& rc)
{
    const bool fOpen = part.nState == GLPS_OPENED;
    const int nReach =
        std::clamp<int>(std::min(rc.right - rc.left, rc.bottom - rc.top) / 5, 2, 12 * part.nLine);
    const bool fAccent = part.nPart == TVP_HOTGLYPH && !IsContrast();
    const COLORREF cr = fAccent ? ColorOf(ColorRole::Accent) : GetTextColor(hdc);
    DrawChevron(hdc, rc, fOpen ? Pointing::Down : Pointing::Right, {nReach, part.nLine}, cr);
    if (part.nPart == TVP_HOTGLYPH && IsContrast()) {
        FrameColor(hdc, SquareIn(rc, 4 * nReach), cr, part.nLine);
    }
}

} // namespace

void DrawContrastBox(HDC hdc, const RECT& rc, COLORREF crFace, int nState, int nLine, bool fDefault)
{
    FillColor(hdc, rc, crFace);
    if (nState == PBS_DISABLED) {
        DashFrameColor(hdc, rc, ColorOf(ColorRole::DisabledText), nLine);
        return;
    }
    const int nWidth = nState == PBS_PRESSED ? 3 * nLine : nState == PBS_HOT ? 2 * nLine : nLine;
    if (fDefault || nState == PBS_DEFAULTED) {
        const int nInset = nWidth + nLine;
        FrameColor(hdc, Deflated(rc, nInset, nInset), ColorOf(ColorRole::PanelText), nLine);
    }
    FrameColor(hdc, rc, ColorOf(ColorRole::PanelText), nWidth);
}

void DrawFlatPart(HDC hdc, const FlatPart& part, const RECT& rcPart)
{
    const RECT rc = Near(rcPart);
    switch (part.plain) {
    case PlainPart::PushButton:
    case PlainPart::CommandLink:
    case PlainPart::CommandLinkGlyph:
    case PlainPart::BackButton: DrawFlatButton(hdc, part, rc); break;
    case PlainPart::CheckBox:
    case PlainPart::RadioButton: DrawFlatCheck(hdc, part, rc); break;
    case PlainPart::ScrollTrack:
    case PlainPart::ScrollArrow:
    case PlainPart::ScrollThumb:
    case PlainPart::ScrollGripper: DrawFlatBar(hdc, part, rc); break;
    case PlainPart::EntryField:
    case PlainPart::OpenList: DrawField(hdc, rc, part, true); break;
    case PlainPart::EditBorder: DrawField(hdc, rc, part, false); break;
    case PlainPart::EditBackground:
        FillColor(hdc, rc, ColorOf(IsDisabledBackground(part) ? Color::FieldDisabledFace : Color::FieldFace));
        break;
    case PlainPart::DropDownButton: DrawDropDown(hdc, rc, part); break;
    case PlainPart::ProgressBar: DrawProgress(hdc, rc, part); break;
    case PlainPart::ProgressFill: FillColor(hdc, rc, ColorOfProgress(part)); break;
    case PlainPart::ItemView: DrawPane(hdc, rc, part); break;
    case PlainPart::Row: DrawRow(hdc, rc, part); break;
    case PlainPart::TreeGlyph: DrawTreeGlyph(hdc, part, rc); break;
    case PlainPart::HeaderItem: DrawHeaderItem(hdc, rc, part); break;
    case PlainPart::SortArrow:
        DrawTriangle(hdc, rc, part.nState == HSAS_SORTEDUP ? Pointing::Up : Pointing::Down,
                     std::clamp<int>((rc.bottom - rc.top) / 2 + 1, 2, 8 * part.nLine),
                     ColorOf(ColorRole::HeaderText));
        break;
    case PlainPart::DialogPanel: FillColor(hdc, rc, ColorOf(Color::DialogPane)); break;
    case PlainPart::DialogFooter: DrawFooter(hdc, rc, part.nLine); break;
    case PlainPart::DialogText: break;
    }
}

COLORREF FlatTextColor(const FlatPart& part)
{
    constexpr int STATES_PER_CHECK = 4;
    switch (part.plain) {
    case PlainPart::CheckBox:
    case PlainPart::RadioButton:
        return ColorOf(part.nState % STATES_PER_CHECK == 0 ? ColorRole::DisabledText : ColorRole::PanelText);
    case PlainPart::PushButton:
    case PlainPart::CommandLink:
        return part.nState == PBS_DISABLED  ? ColorOf(ColorRole::DisabledText)
               : part.nState == PBS_PRESSED ? ColorOf(Color::ButtonPressedText)
                                            : ColorOf(ColorRole::PanelText);
    case PlainPart::Row: return ColorOf(TextOfRow(part.nState));
    case PlainPart::HeaderItem: return ColorOf(ColorRole::HeaderText);
    default: return ColorOf(ColorRole::PanelText);
    }
}

bool IsFlatOpaque(const FlatPart& part)
{
    switch (part.plain) {
    case PlainPart::EntryField:
    case PlainPart::OpenList:
    case PlainPart::EditBackground:
    case PlainPart::ItemView:
    case PlainPart::ProgressBar:
    case PlainPart::ProgressFill:
    case PlainPart::ScrollTrack:
    case PlainPart::HeaderItem:
    case PlainPart::DialogPanel:
    case PlainPart::DialogFooter: return true;
    default: return false;
    }
}

void DrawFocusFrame(HWND hwnd, HDC hdc, const RECT& rc, COLORREF crText)
{
    if (IsDrawnFlat()) {
        FrameColor(hdc, Near(rc), crText, (IsContrast() ? 2 : 1) * Pixels(hwnd, Metrics::THIN_LINE));
    } else {
        DrawFocusRect(hdc, &rc);
    }
}

void DrawFocusFrame(HWND hwnd, HDC hdc, const RECT& rc)
{
    DrawFocusFrame(hwnd, hdc, rc, IsDrawnFlat() ? ColorOf(Color::FocusFrame) : 0);
}

void DrawDisabledEdge(HWND hwnd, HDC hdc, const RECT& rc)
{
    if (IsContrast()) {
        DashFrameColor(hdc, Near(rc), ColorOf(ColorRole::DisabledText), Pixels(hwnd, Metrics::THIN_LINE));
    }
}

} // namespace gesso
