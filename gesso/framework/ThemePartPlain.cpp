// How the parts look where the style has none for them: edges and faces in the system's colours, as windows
// had them before there were styles.

#include <gesso/framework/Colors.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemeFont.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>

namespace gesso {
namespace {

// States repeat in fours for each check value: normal, hot, pressed, disabled, of no, a full and a mixed
// mark. A fifth, defaulted, exists for the push button and the command link alone.
constexpr int STATES_PER_CHECK = 4;

// Of an edit field's background.
constexpr int EDIT_DISABLED = 3;

int StateInFour(PlainPart plain, int nState)
{
    return HasCheck(plain) ? (nState - 1) % STATES_PER_CHECK + 1 : nState;
}

bool IsMixed(PlainPart plain, int nState)
{
    return plain == PlainPart::CheckBox && nState > 2 * STATES_PER_CHECK;
}

UINT PlainCheck(PlainPart plain, int nState)
{
    return HasCheck(plain) && nState > STATES_PER_CHECK && !IsMixed(plain, nState) ? DFCS_CHECKED : 0;
}

UINT PlainButtonState(PlainPart plain, int nState)
{
    const UINT uCheck = PlainCheck(plain, nState);
    switch (StateInFour(plain, nState)) {
    case PBS_PRESSED: return DFCS_PUSHED | uCheck;
    case PBS_DISABLED: return DFCS_INACTIVE | uCheck;
    default: return uCheck;
    }
}

// The arrows' states come in fours by direction, then the four hover states. Idle arrows are in the disabled
// state, and look normal here.
UINT PlainArrow(int nState)
{
    constexpr UINT KINDS[] = {DFCS_SCROLLUP, DFCS_SCROLLDOWN, DFCS_SCROLLLEFT, DFCS_SCROLLRIGHT};
    if (nState >= ABS_UPHOVER) {
        return KINDS[(nState - ABS_UPHOVER) % 4];
    }
    const auto nDirection = static_cast<unsigned>(nState - 1) / 4 % 4;
    return KINDS[nDirection] | ((nState - 1) % 4 == ABS_UPPRESSED - 1 ? DFCS_PUSHED : 0);
}

bool IsPressedHeader(int nState)
{
    return nState == HIS_PRESSED || nState == HIS_SORTEDPRESSED;
}

// The room that a part's edge and the air within it take at the sides, and above and below.
struct PlainInsets
{
    Measure cx, cy;
};

PlainInsets InsetsOf(PlainPart plain)
{
    switch (plain) {
    case PlainPart::PushButton: return {Metrics::PLAIN_BUTTON_CX, Metrics::PLAIN_BUTTON_CY};
    case PlainPart::CommandLink: return {Metrics::PLAIN_LINK, Metrics::PLAIN_LINK};
    case PlainPart::EntryField: return {Metrics::PLAIN_FIELD_CX, Measure{0}};
    case PlainPart::ProgressBar: return {Metrics::PLAIN_PROGRESS, Metrics::PLAIN_PROGRESS};
    default: return {Measure{0}, Measure{0}};
    }
}

RECT Inset(const RECT& rc, int64_t cx, int64_t cy)
{
    return {Wrapped(rc.left + cx), Wrapped(rc.top + cy), Wrapped(rc.right - cx), Wrapped(rc.bottom - cy)};
}

// Of an arrow in a rectangle.
int PlainReach(const RECT& rc)
{
    constexpr int64_t MOST = 256;
    return static_cast<int>(std::clamp((int64_t{rc.right} - rc.left) / 3, int64_t{0}, MOST));
}

int Middle(LONG a, LONG b)
{
    return static_cast<int>((int64_t{a} + b) / 2);
}

// So far on both sides of a point, and so much more on the far side.
RECT Around(int x, int y, int cx, int cy, int nMore)
{
    return {Wrapped(int64_t{x} - cx), Wrapped(int64_t{y} - cy), Wrapped(int64_t{x} + cx + nMore),
            Wrapped(int64_t{y} + cy + nMore)};
}

} // namespace

RECT ThemePart::PlainContentOf(const RECT& rc) const
{
    const auto [cx, cy] = InsetsOf(m_plain);
    return Inset(rc, cx.nPixels ? Pixels(m_hWnd, cx) : 0, cy.nPixels ? Pixels(m_hWnd, cy) : 0);
}

// A dialog's main instruction, in the place of the style's font for it. Null for a text in the context's
// font.
HFONT ThemePart::MakePlainFont() const
{
    LOGFONTW font{};
    const bool fInstruction =
        !m_hTheme && m_plain == PlainPart::DialogText && m_nPart == TDLG_MAININSTRUCTIONPANE;
    if (!fInstruction || GetObjectW(GetCurrentObject(m_hdc, OBJ_FONT), sizeof(font), &font) <= 0) {
        return nullptr;
    }
    font.lfHeight = MulDiv(font.lfHeight, TITLE_PERCENT, 100);
    return CreateFontIndirectW(&font);
}

void ThemePart::DrawPlainFrame(RECT rc, UINT uType, UINT uKind) const
{
    DrawFrameControl(m_hdc, &rc, uType, uKind);
}

// A dialog's default button has a dark line around it. The face of a combo box without a field looks like one
// with a field.
void ThemePart::DrawPlainButton(RECT rc, UINT uButton) const
{
    if (m_plain == PlainPart::PushButton && m_nPart == CP_READONLY) {
        return DrawPlainField(rc);
    }
    if (m_nState == PBS_DEFAULTED || (m_fDefault && m_nState != PBS_DISABLED)) {
        FrameRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_WINDOWFRAME));
        rc = Inset(rc, 1, 1);
    }
    DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH | uButton);
}

// A mixed mark is a dash: a grey tick, as the platform has it, is that of a disabled box.
void ThemePart::DrawPlainCheck(const RECT& rc, UINT uButton) const
{
    DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONCHECK | uButton);
    if (!IsMixed(m_plain, m_nState)) {
        return;
    }
    constexpr int BOX = 13, REACH = 3, THICK = 1; // to both sides of the middle, in the usual box
    const int64_t nSide = std::min(int64_t{rc.right} - rc.left, int64_t{rc.bottom} - rc.top);
    const auto share = [=](int n) { return static_cast<int>(std::max<int64_t>(nSide * n / BOX, 1)); };
    const RECT rcMark =
        Around(Middle(rc.left, rc.right), Middle(rc.top, rc.bottom), share(REACH), share(THICK), 1);
    FillRect(m_hdc, &rcMark, SystemBrush(m_hdc, uButton & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
}

void ThemePart::DrawPlainField(RECT rc) const
{
    FillRect(m_hdc, &rc, SystemBrush(m_hdc, m_nState == CBXS_DISABLED ? COLOR_BTNFACE : COLOR_WINDOW));
    DrawEdge(m_hdc, &rc, EDGE_SUNKEN, BF_RECT);
}

// Within the field's edge.
void ThemePart::DrawPlainDropDown(RECT rc, UINT uButton) const
{
    rc.top += PLAIN_EDGE;
    rc.bottom -= PLAIN_EDGE;
    rc.left += m_nPart == CP_DROPDOWNBUTTONLEFT ? PLAIN_EDGE : 0;
    rc.right -= m_nPart == CP_DROPDOWNBUTTONRIGHT ? PLAIN_EDGE : 0;
    DrawPlainFrame(rc, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | uButton);
}

void ThemePart::DrawPlainBackground(RECT rc) const
{
    const UINT uButton = PlainButtonState(m_plain, m_nState);
    switch (m_plain) {
    case PlainPart::PushButton:
    case PlainPart::CommandLink: DrawPlainButton(rc, uButton); break;
    case PlainPart::CheckBox: DrawPlainCheck(rc, uButton); break;
    case PlainPart::RadioButton: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONRADIO | uButton); break;
    case PlainPart::CommandLinkGlyph:
        DrawArrow(m_hdc, rc, Pointing::Right, {PlainReach(rc)},
                  SystemColor(uButton & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_HIGHLIGHT));
        break;
    case PlainPart::BackButton: DrawPlainFrame(rc, DFC_SCROLL, DFCS_SCROLLLEFT | uButton); break;
    case PlainPart::EntryField: DrawPlainField(rc); break;
    case PlainPart::OpenList:
        FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_WINDOW));
        FrameRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_WINDOWFRAME));
        break;
    case PlainPart::DropDownButton: DrawPlainDropDown(rc, uButton); break;
    case PlainPart::ProgressBar: DrawEdge(m_hdc, &rc, BDR_SUNKENOUTER, BF_RECT | BF_MIDDLE); break;
    case PlainPart::ProgressFill: FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_HIGHLIGHT)); break;
    case PlainPart::ScrollTrack: FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_SCROLLBAR)); break;
    case PlainPart::ScrollArrow: DrawPlainFrame(rc, DFC_SCROLL, PlainArrow(m_nState)); break;
    case PlainPart::ScrollThumb: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH); break;
    case PlainPart::DialogPanel: FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_WINDOW)); break;
    case PlainPart::DialogFooter: FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_BTNFACE)); break;
    case PlainPart::ItemView:
        FillRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_WINDOW));
        DrawEdge(m_hdc, &rc, EDGE_SUNKEN, BF_RECT);
        break;
    case PlainPart::Row: DrawPlainRow(rc); break;
    case PlainPart::HeaderItem:
        DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH | (IsPressedHeader(m_nState) ? DFCS_PUSHED : 0));
        break;
    case PlainPart::SortArrow: DrawPlainSortArrow(rc); break;
    case PlainPart::EditBackground:
        FillRect(m_hdc, &rc, SystemBrush(m_hdc, m_nState == EDIT_DISABLED ? COLOR_BTNFACE : COLOR_WINDOW));
        break;
    case PlainPart::EditBorder: DrawEdge(m_hdc, &rc, EDGE_SUNKEN, BF_RECT); break;
    case PlainPart::TreeGlyph: DrawPlainTreeGlyph(rc); break;
    case PlainPart::ScrollGripper:
    case PlainPart::DialogText: break;
    }
}

namespace {

// A text on a row keeps its colour, so that the row must stay light; but where each has that of its role.
int FillOfRow(int nState)
{
    return !IsDrawnInSystemColors()          ? COLOR_3DLIGHT
           : nState == LISS_SELECTEDNOTFOCUS ? COLOR_BTNFACE
                                             : COLOR_HIGHLIGHT;
}

} // namespace

void ThemePart::DrawPlainRow(const RECT& rc) const
{
    const bool fFilled = m_nState != LISS_NORMAL && m_nState != LISS_DISABLED && m_nState != LISS_HOT;
    if (fFilled) {
        FillRect(m_hdc, &rc, SystemBrush(m_hdc, FillOfRow(m_nState)));
    }
    if (m_nState == LISS_HOT || m_nState == LISS_SELECTED || m_nState == LISS_HOTSELECTED) {
        FrameRect(m_hdc, &rc, SystemBrush(m_hdc, COLOR_HIGHLIGHT));
    }
}

void ThemePart::DrawPlainSortArrow(RECT rc) const
{
    const int nHeight = rc.bottom - rc.top;
    const int x = Middle(rc.left, rc.right);
    rc.left = Wrapped(int64_t{x} - nHeight);
    rc.right = Wrapped(int64_t{x} + nHeight);
    DrawPlainFrame(rc, DFC_SCROLL, DFCS_FLAT | (m_nState == HSAS_SORTEDUP ? DFCS_SCROLLUP : DFCS_SCROLLDOWN));
}

// A small box with a plus or a minus.
void ThemePart::DrawPlainTreeGlyph(const RECT& rc) const
{
    const int nBox = Pixels(m_hWnd, Metrics::PLAIN_GLYPH_REACH);
    const int nMark = Pixels(m_hWnd, Metrics::PLAIN_GLYPH_MARK_REACH);
    const int x = Middle(rc.left, rc.right);
    const int y = Middle(rc.top, rc.bottom);
    const RECT rcBox = Around(x, y, nBox, nBox, 1);
    const RECT rcAcross = Around(x, y, nMark, 0, 1);
    const RECT rcDown = Around(x, y, 0, nMark, 1);
    FillRect(m_hdc, &rcBox, SystemBrush(m_hdc, COLOR_WINDOW));
    FrameRect(m_hdc, &rcBox, SystemBrush(m_hdc, COLOR_GRAYTEXT));
    FillRect(m_hdc, &rcAcross, SystemBrush(m_hdc, COLOR_WINDOWTEXT));
    if (m_nState == GLPS_CLOSED) {
        FillRect(m_hdc, &rcDown, SystemBrush(m_hdc, COLOR_WINDOWTEXT));
    }
}

COLORREF ThemePart::PlainTextColor() const
{
    if (m_plain == PlainPart::Row && IsDrawnInSystemColors()) {
        return FlatTextColor({m_plain, m_nPart, m_nState});
    }
    const bool fFace = m_plain == PlainPart::PushButton && m_nPart == CP_READONLY; // drawn as a field
    const bool fOnWindow = fFace || m_plain == PlainPart::DialogText || m_plain == PlainPart::Row;
    return SystemColor(StateInFour(m_plain, m_nState) == PBS_DISABLED ? COLOR_GRAYTEXT
                       : fOnWindow                                    ? COLOR_WINDOWTEXT
                                                                      : COLOR_BTNTEXT);
}

void ThemePart::DrawPlainText(LPCWSTR psz, UINT uFormat, RECT rc) const
{
    const TransparentScope mode(m_hdc);
    const TextColorScope color(m_hdc, m_hFont || IsDrawnFlat() ? TextColor() : PlainTextColor());
    FontHandle made;
    const SelectScope selected(m_hdc, FontOfText(made));
    DrawTextW(m_hdc, psz, -1, &rc, uFormat);
}

} // namespace gesso
