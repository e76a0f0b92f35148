#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Scaling.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/ThemePartCache.h>
#include <gesso/framework/Wrapped.h>

#include <optional>

namespace gesso {
namespace {

// States repeat in fours for each check value: normal, hot, pressed, disabled, of no, a full and a mixed
// mark. A fifth, defaulted, exists for the push button and the command link alone.
constexpr int STATES_PER_CHECK = 4;

// Of an edit field's background.
constexpr int EDIT_DISABLED = 3;

bool HasCheck(PlainPart plain)
{
    return plain == PlainPart::CheckBox || plain == PlainPart::RadioButton;
}

int StateInFour(PlainPart plain, int nState)
{
    return HasCheck(plain) ? (nState - 1) % STATES_PER_CHECK + 1 : nState;
}

UINT PlainCheck(PlainPart plain, int nState)
{
    if (!HasCheck(plain) || nState <= STATES_PER_CHECK) {
        return 0;
    }
    const bool fMixed = plain == PlainPart::CheckBox && nState > 2 * STATES_PER_CHECK;
    return DFCS_CHECKED | (fMixed ? DFCS_BUTTON3STATE : 0);
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

// Where all windows share one handle to a class, it may have been opened for other dots an inch meanwhile: a
// box is then much smaller or larger than a check mark.
bool IsAbout(int nSize, int nExpected)
{
    return 4 * nSize > 3 * nExpected && 3 * nSize < 4 * nExpected;
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

int LengthOf(LPCWSTR psz)
{
    return static_cast<int>(wcslen(psz));
}

} // namespace

// A tick is a sign that is written: mirrored it would be none.
void ThemePart::DrawBackground(const RECT& rc) const
{
    LayoutOverlay::Add(m_hdc, rc);
    std::optional<UprightScope> upright;
    if (m_plain == PlainPart::CheckBox) {
        upright.emplace(m_hdc, rc.left, Wrapped(int64_t{rc.right} - rc.left));
    }
    const RECT rcPart = upright ? upright->Placed(rc) : rc;
    if (IsDrawnFlat()) {
        DrawFlatBackground(rcPart);
    } else if (!DrawCachedPart(m_hTheme, m_hdc, m_nPart, m_nState, rcPart) &&
               FAILED(DrawThemeBackground(m_hTheme, m_hdc, m_nPart, m_nState, &rcPart, nullptr)))
    {
        DrawPlainBackground(rcPart);
    }
}

// A box is as large as the style's, whatever room there is.
void ThemePart::DrawFlatBackground(const RECT& rc) const
{
    const RECT rcPart = HasCheck(m_plain) ? SquareIn(rc, Size(m_hWnd, nullptr).cx) : rc;
    DrawFlatPart(m_hdc, {m_plain, m_nPart, m_nState}, rcPart);
}

bool ThemePart::IsOpaque() const
{
    return IsDrawnFlat() ? IsFlatOpaque({m_plain, m_nPart, m_nState})
                         : !IsThemeBackgroundPartiallyTransparent(m_hTheme, m_nPart, m_nState);
}

RECT ThemePart::ContentOf(const RECT& rc) const
{
    MARGINS margins{};
    RECT rcBounds = rc;
    if (FAILED(GetThemeMargins(m_hTheme, m_hdc, m_nPart, m_nState, TMT_CONTENTMARGINS, &rcBounds, &margins)))
    {
        margins = {};
    }
    rcBounds = {Wrapped(int64_t{rc.left} + margins.cxLeftWidth),
                Wrapped(int64_t{rc.top} + margins.cyTopHeight),
                Wrapped(int64_t{rc.right} - margins.cxRightWidth),
                Wrapped(int64_t{rc.bottom} - margins.cyBottomHeight)};
    LayoutOverlay::Add(m_hdc, rcBounds);
    return rcBounds;
}

SIZE ThemePart::Size(HWND hwnd, const RECT* prc) const
{
    SIZE size{};
    RECT rcBounds = prc ? *prc : RECT{};
    const HRESULT hr =
        GetThemePartSize(m_hTheme, m_hdc, m_nPart, m_nState, prc ? &rcBounds : nullptr, TS_TRUE, &size);
    if (SUCCEEDED(hr) && GetScaling() == Scaling::None) {
        return size;
    }
    // A glyph is about as large as a small icon.
    const bool fGlyph = SUCCEEDED(hr) && !HasCheck(m_plain);
    const SIZE usual{SystemMetric(hwnd, fGlyph ? SM_CXSMICON : SM_CXMENUCHECK),
                     SystemMetric(hwnd, fGlyph ? SM_CYSMICON : SM_CYMENUCHECK)};
    return FAILED(hr) || !IsAbout(size.cx, usual.cx) ? usual : size;
}

int ThemePart::BorderSize() const
{
    int nSize = 1;
    return SUCCEEDED(GetThemeInt(m_hTheme, m_nPart, m_nState, TMT_BORDERSIZE, &nSize)) ? nSize : 1;
}

int ThemePart::AverageCharWidth() const
{
    TEXTMETRICW metric{};
    if (FAILED(GetThemeTextMetrics(m_hTheme, m_hdc, m_nPart, m_nState, &metric))) {
        GetTextMetricsW(m_hdc, &metric);
    }
    return metric.tmAveCharWidth;
}

RECT ThemePart::TextExtent(LPCWSTR psz, UINT uFormat, const RECT& rcBounds) const
{
    return TextExtent(psz, LengthOf(psz), uFormat, rcBounds);
}

RECT ThemePart::TextExtent(LPCWSTR psz, int nLength, UINT uFormat, const RECT& rcBounds) const
{
    RECT rc = rcBounds;
    if (FAILED(GetThemeTextExtent(m_hTheme, m_hdc, m_nPart, m_nState, psz, nLength, uFormat, &rcBounds, &rc)))
    {
        rc = rcBounds;
        DrawTextW(m_hdc, psz, nLength, &rc, uFormat | DT_CALCRECT);
    }
    return rc;
}

void ThemePart::DrawString(LPCWSTR psz, UINT uFormat, const RECT& rc) const
{
    LayoutOverlay::Add(m_hdc, rc);
    if (!DrawStyleText(psz, uFormat, rc)) {
        DrawPlainText(psz, uFormat, rc);
    }
}

// In the style's font, and in its colour in Light.
bool ThemePart::DrawStyleText(LPCWSTR psz, UINT uFormat, const RECT& rc) const
{
    if (!IsDrawnFlat()) {
        return SUCCEEDED(
            DrawThemeText(m_hTheme, m_hdc, m_nPart, m_nState, psz, LengthOf(psz), uFormat, 0, &rc));
    }
    DTTOPTS options{};
    options.dwSize = sizeof(options);
    options.dwFlags = DTT_TEXTCOLOR;
    options.crText = TextColor();
    RECT rcText = rc;
    return SUCCEEDED(
        DrawThemeTextEx(m_hTheme, m_hdc, m_nPart, m_nState, psz, LengthOf(psz), uFormat, &rcText, &options));
}

void ThemePart::DrawFocus(const RECT& rc) const
{
    IsDrawnFlat() ? DrawFocusFrame(m_hdc, rc, TextColor()) : DrawFocusFrame(m_hdc, rc);
}

COLORREF ThemePart::TextColor() const
{
    if (IsDrawnFlat()) {
        return FlatTextColor({m_plain, m_nPart, m_nState});
    }
    COLORREF cr = 0;
    return SUCCEEDED(GetThemeColor(m_hTheme, m_nPart, m_nState, TMT_TEXTCOLOR, &cr)) ? cr : PlainTextColor();
}

void ThemePart::DrawPlainFrame(RECT rc, UINT uType, UINT uKind) const
{
    DrawFrameControl(m_hdc, &rc, uType, uKind);
}

void ThemePart::DrawPlainBackground(RECT rc) const
{
    const UINT uButton = PlainButtonState(m_plain, m_nState);
    switch (m_plain) {
    case PlainPart::PushButton:
    case PlainPart::CommandLink: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH | uButton); break;
    case PlainPart::CheckBox: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONCHECK | uButton); break;
    case PlainPart::RadioButton: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONRADIO | uButton); break;
    case PlainPart::CommandLinkGlyph:
        DrawPlainFrame(rc, DFC_SCROLL, DFCS_SCROLLRIGHT | DFCS_FLAT | uButton);
        break;
    case PlainPart::BackButton: DrawPlainFrame(rc, DFC_SCROLL, DFCS_SCROLLLEFT | uButton); break;
    case PlainPart::EntryField:
        FillRect(m_hdc, &rc, SystemBrush(m_nState == CBXS_DISABLED ? COLOR_BTNFACE : COLOR_WINDOW));
        DrawEdge(m_hdc, &rc, EDGE_SUNKEN, BF_RECT);
        break;
    case PlainPart::DropDownButton: DrawPlainFrame(rc, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | uButton); break;
    case PlainPart::ProgressBar: DrawEdge(m_hdc, &rc, BDR_SUNKENOUTER, BF_RECT | BF_MIDDLE); break;
    case PlainPart::ProgressFill: FillRect(m_hdc, &rc, SystemBrush(COLOR_HIGHLIGHT)); break;
    case PlainPart::ScrollTrack: FillRect(m_hdc, &rc, SystemBrush(COLOR_SCROLLBAR)); break;
    case PlainPart::ScrollArrow: DrawPlainFrame(rc, DFC_SCROLL, PlainArrow(m_nState)); break;
    case PlainPart::ScrollThumb: DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH); break;
    case PlainPart::DialogPanel: FillRect(m_hdc, &rc, SystemBrush(COLOR_WINDOW)); break;
    case PlainPart::DialogFooter: FillRect(m_hdc, &rc, SystemBrush(COLOR_BTNFACE)); break;
    case PlainPart::ItemView:
        FillRect(m_hdc, &rc, SystemBrush(COLOR_WINDOW));
        DrawEdge(m_hdc, &rc, BDR_SUNKENOUTER, BF_RECT);
        break;
    case PlainPart::Row: DrawPlainRow(rc); break;
    case PlainPart::HeaderItem:
        DrawPlainFrame(rc, DFC_BUTTON, DFCS_BUTTONPUSH | (IsPressedHeader(m_nState) ? DFCS_PUSHED : 0));
        break;
    case PlainPart::SortArrow: DrawPlainSortArrow(rc); break;
    case PlainPart::EditBackground:
        FillRect(m_hdc, &rc, SystemBrush(m_nState == EDIT_DISABLED ? COLOR_BTNFACE : COLOR_WINDOW));
        break;
    case PlainPart::EditBorder: DrawEdge(m_hdc, &rc, EDGE_SUNKEN, BF_RECT); break;
    case PlainPart::TreeGlyph: DrawPlainTreeGlyph(rc); break;
    case PlainPart::ScrollGripper:
    case PlainPart::DialogText: break;
    }
}

// The text on the row keeps its colour, so that the row must stay light.
void ThemePart::DrawPlainRow(const RECT& rc) const
{
    const bool fFilled = m_nState != LISS_NORMAL && m_nState != LISS_DISABLED && m_nState != LISS_HOT;
    if (fFilled) {
        FillRect(m_hdc, &rc, SystemBrush(COLOR_3DLIGHT));
    }
    if (m_nState == LISS_HOT || m_nState == LISS_SELECTED || m_nState == LISS_HOTSELECTED) {
        FrameRect(m_hdc, &rc, SystemBrush(COLOR_HIGHLIGHT));
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
    FillRect(m_hdc, &rcBox, SystemBrush(COLOR_WINDOW));
    FrameRect(m_hdc, &rcBox, SystemBrush(COLOR_GRAYTEXT));
    FillRect(m_hdc, &rcAcross, SystemBrush(COLOR_WINDOWTEXT));
    if (m_nState == GLPS_CLOSED) {
        FillRect(m_hdc, &rcDown, SystemBrush(COLOR_WINDOWTEXT));
    }
}

COLORREF ThemePart::PlainTextColor() const
{
    return SystemColor(StateInFour(m_plain, m_nState) == PBS_DISABLED ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

void ThemePart::DrawPlainText(LPCWSTR psz, UINT uFormat, RECT rc) const
{
    const TransparentScope mode(m_hdc);
    const TextColorScope color(m_hdc, IsDrawnFlat() ? TextColor() : PlainTextColor());
    DrawTextW(m_hdc, psz, LengthOf(psz), &rc, uFormat);
}

} // namespace gesso
