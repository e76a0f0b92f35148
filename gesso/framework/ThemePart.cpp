#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePart.h>

namespace gesso {
namespace {

// States repeat in fours for each check value: normal, hot, pressed, disabled. A fifth, defaulted, exists for
// the push button and the command link alone.
constexpr int STATES_PER_CHECK = 4;

bool HasCheck(PlainPart plain)
{
    return plain == PlainPart::CheckBox || plain == PlainPart::RadioButton;
}

int StateInFour(PlainPart plain, int nState)
{
    return HasCheck(plain) ? (nState - 1) % STATES_PER_CHECK + 1 : nState;
}

UINT PlainKind(PlainPart plain)
{
    switch (plain) {
    case PlainPart::CheckBox: return DFCS_BUTTONCHECK;
    case PlainPart::RadioButton: return DFCS_BUTTONRADIO;
    default: return DFCS_BUTTONPUSH;
    }
}

UINT PlainState(PlainPart plain, int nState)
{
    UINT uState = 0;
    switch (StateInFour(plain, nState)) {
    case PBS_PRESSED: uState = DFCS_PUSHED; break;
    case PBS_DISABLED: uState = DFCS_INACTIVE; break;
    default: break;
    }
    if (HasCheck(plain) && nState > STATES_PER_CHECK) {
        uState |= DFCS_CHECKED;
    }
    return uState;
}

int LengthOf(LPCWSTR psz)
{
    return static_cast<int>(wcslen(psz));
}

} // namespace

void ThemePart::DrawBackground(const RECT& rc) const
{
    if (FAILED(DrawThemeBackground(m_hTheme, m_hdc, m_nPart, m_nState, &rc, nullptr))) {
        DrawPlainBackground(rc);
    }
}

RECT ThemePart::ContentOf(const RECT& rc) const
{
    MARGINS margins{};
    RECT rcBounds = rc;
    if (FAILED(GetThemeMargins(m_hTheme, m_hdc, m_nPart, m_nState, TMT_CONTENTMARGINS, &rcBounds, &margins)))
    {
        margins = {};
    }
    return {rc.left + margins.cxLeftWidth, rc.top + margins.cyTopHeight, rc.right - margins.cxRightWidth,
            rc.bottom - margins.cyBottomHeight};
}

SIZE ThemePart::Size(const RECT* prc) const
{
    SIZE size{};
    RECT rcBounds = prc ? *prc : RECT{};
    if (FAILED(GetThemePartSize(m_hTheme, m_hdc, m_nPart, m_nState, prc ? &rcBounds : nullptr, TS_TRUE,
                                &size))) {
        size = {GetSystemMetrics(SM_CXMENUCHECK), GetSystemMetrics(SM_CYMENUCHECK)};
    }
    return size;
}

RECT ThemePart::TextExtent(LPCWSTR psz, UINT uFormat, const RECT& rcBounds) const
{
    RECT rc = rcBounds;
    if (FAILED(GetThemeTextExtent(m_hTheme, m_hdc, m_nPart, m_nState, psz, LengthOf(psz), uFormat, &rcBounds,
                                  &rc)))
    {
        rc = rcBounds;
        DrawTextW(m_hdc, psz, LengthOf(psz), &rc, uFormat | DT_CALCRECT);
    }
    return rc;
}

void ThemePart::DrawString(LPCWSTR psz, UINT uFormat, const RECT& rc) const
{
    if (FAILED(DrawThemeText(m_hTheme, m_hdc, m_nPart, m_nState, psz, LengthOf(psz), uFormat, 0, &rc))) {
        DrawPlainText(psz, uFormat, rc);
    }
}

void ThemePart::DrawPlainBackground(RECT rc) const
{
    DrawFrameControl(m_hdc, &rc, DFC_BUTTON, PlainKind(m_plain) | PlainState(m_plain, m_nState));
}

void ThemePart::DrawPlainText(LPCWSTR psz, UINT uFormat, RECT rc) const
{
    const bool fDisabled = StateInFour(m_plain, m_nState) == PBS_DISABLED;
    const TransparentScope mode(m_hdc);
    const TextColorScope color(m_hdc, GetSysColor(fDisabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    DrawTextW(m_hdc, psz, LengthOf(psz), &rc, uFormat);
}

} // namespace gesso
