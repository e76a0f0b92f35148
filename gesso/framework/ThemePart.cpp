#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DpiApi.h>
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

// Where all windows share one handle to a class, it may have been opened for other dots an inch meanwhile: a
// box is then much smaller or larger than a check mark.
bool IsAbout(int nSize, int nExpected)
{
    return 4 * nSize > 3 * nExpected && 3 * nSize < 4 * nExpected;
}

int LengthOf(LPCWSTR psz)
{
    return static_cast<int>(wcslen(psz));
}

} // namespace

ThemePart& ThemePart::WithFont(HFONT hFont)
{
    m_hFont = GetScaling() != Scaling::None ? hFont : nullptr;
    return *this;
}

HFONT ThemePart::FontOfText(FontHandle& made) const
{
    if (m_hFont) {
        return m_hFont;
    }
    made.Reset(MakePlainFont());
    return made;
}

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
    DrawFlatPart(m_hdc, {m_plain, m_nPart, m_nState, Pixels(m_hWnd, Metrics::THIN_LINE), m_fDefault}, rcPart);
}

bool ThemePart::IsOpaque() const
{
    return IsDrawnFlat() ? IsFlatOpaque({m_plain, m_nPart, m_nState})
                         : !IsThemeBackgroundPartiallyTransparent(m_hTheme, m_nPart, m_nState);
}

// Where the style has them for 96 dots alone, as large as the window asks for.
MARGINS ThemePart::ContentMargins(RECT rc) const
{
    MARGINS margins{};
    if (FAILED(GetThemeMargins(m_hTheme, m_hdc, m_nPart, m_nState, TMT_CONTENTMARGINS, &rc, &margins))) {
        return {};
    }
    if (GetScaling() != Scaling::None && !DoMarginsScale()) {
        for (int* pLength :
             {&margins.cxLeftWidth, &margins.cxRightWidth, &margins.cyTopHeight, &margins.cyBottomHeight})
        {
            *pLength = MulDiv(*pLength, static_cast<int>(DpiOf(m_hWnd)), USER_DEFAULT_SCREEN_DPI);
        }
    }
    return margins;
}

RECT ThemePart::ContentOf(const RECT& rc) const
{
    const MARGINS margins = ContentMargins(rc);
    const RECT rcContent = m_hTheme ? RECT{Wrapped(int64_t{rc.left} + margins.cxLeftWidth),
                                           Wrapped(int64_t{rc.top} + margins.cyTopHeight),
                                           Wrapped(int64_t{rc.right} - margins.cxRightWidth),
                                           Wrapped(int64_t{rc.bottom} - margins.cyBottomHeight)}
                                    : PlainContentOf(rc);
    LayoutOverlay::Add(m_hdc, rcContent);
    return rcContent;
}

SIZE ThemePart::Size(HWND hwnd, const RECT* prc) const
{
    SIZE size{};
    const bool fStyle = SUCCEEDED(CachedPartSize(m_hTheme, m_hdc, m_nPart, m_nState, prc, &size));
    if (fStyle && GetScaling() == Scaling::None) {
        return size;
    }
    if (m_plain == PlainPart::CommandLinkGlyph && (fStyle || !m_hTheme)) {
        const int nPlain = Pixels(hwnd, Metrics::PLAIN_LINK_GLYPH);
        return fStyle ? GlyphSize(hwnd, size) : SIZE{nPlain, nPlain};
    }
    const SIZE usual{SystemMetric(hwnd, SM_CXMENUCHECK), SystemMetric(hwnd, SM_CYMENUCHECK)};
    return !fStyle || !IsAbout(size.cx, usual.cx) ? usual : size;
}

// There is nothing of the system's that an arrow is as large as, but a box of the same class: where that is
// of other dots, so is the arrow, and the class is opened anew.
SIZE ThemePart::GlyphSize(HWND hwnd, SIZE size) const
{
    SIZE box{};
    const bool fBox = SUCCEEDED(
        GetThemePartSize(m_hTheme, m_hdc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr, TS_TRUE, &box));
    if (!fBox || IsAbout(box.cx, SystemMetric(hwnd, SM_CXMENUCHECK))) {
        return size;
    }
    if (const HTHEME hTheme = OpenPlatformTheme(hwnd, L"BUTTON", DpiOf(hwnd))) {
        ForgetPartSizes();
        GetThemePartSize(hTheme, m_hdc, m_nPart, m_nState, nullptr, TS_TRUE, &size);
        CloseThemeData(hTheme);
    }
    return size;
}

int ThemePart::BorderSize() const
{
    int nSize = 1;
    return SUCCEEDED(GetThemeInt(m_hTheme, m_nPart, m_nState, TMT_BORDERSIZE, &nSize)) ? nSize : 1;
}

int ThemePart::AverageCharWidth() const
{
    TEXTMETRICW metric{};
    if (m_hFont || FAILED(GetThemeTextMetrics(m_hTheme, m_hdc, m_nPart, m_nState, &metric))) {
        FontHandle made;
        const SelectScope selected(m_hdc, FontOfText(made));
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
    if (m_hFont ||
        FAILED(GetThemeTextExtent(m_hTheme, m_hdc, m_nPart, m_nState, psz, nLength, uFormat, &rcBounds, &rc)))
    {
        rc = rcBounds;
        FontHandle made;
        const SelectScope selected(m_hdc, FontOfText(made));
        DrawTextW(m_hdc, psz, nLength, &rc, uFormat | DT_CALCRECT);
    }
    return rc;
}

void ThemePart::DrawString(LPCWSTR psz, UINT uFormat, const RECT& rc) const
{
    LayoutOverlay::Add(m_hdc, rc);
    if (m_hFont || !DrawStyleText(psz, uFormat, rc)) {
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
    IsDrawnFlat() ? DrawFocusFrame(m_hWnd, m_hdc, rc, TextColor()) : DrawFocusFrame(m_hWnd, m_hdc, rc);
}

COLORREF ThemePart::TextColor() const
{
    if (IsDrawnFlat()) {
        return FlatTextColor({m_plain, m_nPart, m_nState});
    }
    COLORREF cr = 0;
    return SUCCEEDED(GetThemeColor(m_hTheme, m_nPart, m_nState, TMT_TEXTCOLOR, &cr)) ? cr : PlainTextColor();
}

} // namespace gesso
