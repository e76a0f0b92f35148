#include <gesso/edit/GEditModern.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Watch;

namespace {

constexpr int BACKGROUND_NORMAL = 1;
constexpr int BACKGROUND_DISABLED = 3;
constexpr int BACKGROUND_READ_ONLY = 5;
constexpr DWORD BARS = WS_VSCROLL | WS_HSCROLL;

int BackgroundState(DWORD dwStyle)
{
    if (dwStyle & WS_DISABLED) {
        return BACKGROUND_DISABLED;
    }
    return dwStyle & ES_READONLY ? BACKGROUND_READ_ONLY : BACKGROUND_NORMAL;
}

} // namespace

GEdit::Modern::Modern(GEdit& owner, DWORD dwStyle) : edit(owner), editor(*this), m_dwBars(dwStyle & BARS)
{
    KeepStyle();
}

// The platform takes the style's bit away with a bar that has no range. The host would miss it in what it
// asks for, and gives back changed.
void GEdit::Modern::KeepStyle()
{
    const DWORD dwStyle = Frame::Style(edit);
    if ((dwStyle & BARS) != m_dwBars) {
        const bool fOuter = std::exchange(m_fOwnStyle, true);
        SetWindowLongW(edit.m_hWnd, GWL_STYLE, static_cast<LONG>((dwStyle & ~BARS) | m_dwBars));
        m_fOwnStyle = fOuter;
    }
}

// --- What the field asks its control for

DWORD GEdit::Modern::EditStyle() const
{
    return (Frame::Style(edit) & ~BARS) | m_dwBars;
}

LRESULT GEdit::Modern::Tell(UINT uCode)
{
    if (uCode == EN_UPDATE) {
        ++edit.Own().nTextChanges;
    }
    return Send(uCode);
}

LRESULT GEdit::Modern::Send(UINT uCode) const
{
    const WPARAM wParam = MAKEWPARAM(GetDlgCtrlID(edit.m_hWnd), uCode);
    return SendMessageW(edit.GetParent(), WM_COMMAND, wParam, reinterpret_cast<LPARAM>(edit.m_hWnd));
}

// A bar that the host has not asked for stays away. One that comes or goes sizes the window.
void GEdit::Modern::SetRange(int nBar, int nMax, UINT nPage, int nPos)
{
    const DWORD dwBit = nBar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
    if (!(m_dwBars & dwBit)) {
        return;
    }
    const SCROLLINFO& siNow = nBar == SB_VERT ? edit.m_siV : edit.m_siH;
    const DWORD& dwFlags = nBar == SB_VERT ? edit.m_dwVStyle : edit.m_dwHStyle;
    const bool fFits = int64_t{nMax} < int64_t{nPage};
    const bool fHidden = dwFlags & GSB_HIDDEN;
    if (fFits && fHidden) {
        return;
    }
    const UINT nShown = std::min(nPage, static_cast<UINT>(nMax) + 1);
    if (!fHidden && !fFits && siNow.nMax == nMax && siNow.nPage == nShown && siNow.nPos == nPos) {
        return;
    }
    const Watch watch(edit);
    const bool fOuter = std::exchange(m_fOwnStyle, true);
    if (!fFits) {
        const SCROLLINFO si{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, nMax, nPage, nPos, 0};
        edit.SetScrollInfo(nBar, &si, TRUE);
    }
    if (watch && fFits != fHidden) {
        edit.ShowScrollBar(nBar, !fFits);
    }
    if (watch) {
        m_fOwnStyle = fOuter;
    }
}

// --- The control

bool GEdit::Modern::StartText(LPCWSTR psz)
{
    return editor.SetText(psz);
}

LRESULT GEdit::Modern::SetTextAndTell(LPCWSTR psz)
{
    const Watch watch(edit);
    const int nDone = edit.SetText(psz);
    const bool fTell = watch && nDone && !(EditStyle() & ES_MULTILINE);
    if (fTell) {
        Send(EN_UPDATE);
    }
    if (fTell && watch) {
        Send(EN_CHANGE);
    }
    return nDone;
}

void GEdit::Modern::Draw(HDC hdc, const RECT& rcShown)
{
    // The fills below cost by what they cover.
    const gesso::StateScope state(hdc);
    IntersectClipRect(hdc, rcShown.left, rcShown.top, rcShown.right, rcShown.bottom);
    RECT rcClient{};
    GetClientRect(edit.m_hWnd, &rcClient);
    // The plain one is opaque too. To ask the parent takes longer than to draw a row.
    const gesso::ThemePart background(edit.m_hTheme, hdc, EP_BACKGROUND, BackgroundState(EditStyle()),
                                      gesso::PlainPart::EditBackground);
    if (!background.IsOpaque() && !Frame::DrawParentBackground(edit, hdc, &rcClient)) {
        return;
    }
    {
        const gesso::TransparentScope mode(hdc);
        background.DrawBackground(rcClient);
    }
    editor.Draw(hdc, rcShown);
}

bool GEdit::Modern::TakesDropAt(POINT pt) const
{
    RECT rc{};
    GetClientRect(edit.m_hWnd, &rc);
    return PtInRect(&rc, pt);
}

LRESULT GEdit::Modern::Paint()
{
    const Watch watch(edit);
    const HWND hwnd = edit.m_hWnd;
    gesso::BufferedPaint paint(hwnd);
    if (watch) {
        Draw(paint.Context(), paint.Shown());
    }
    return 0;
}

void GEdit::Modern::OnFocus(bool fGained)
{
    const Watch watch(edit);
    RedrawWindow(edit.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    LRESULT lAnswer = 0;
    editor.OnMessage(fGained ? WM_SETFOCUS : WM_KILLFOCUS, 0, 0, &lAnswer);
    if (watch) {
        Frame::SendNotify(edit, static_cast<UINT>(fGained ? NM_SETFOCUS : NM_KILLFOCUS));
    }
    if (watch) {
        Tell(fGained ? EN_SETFOCUS : EN_KILLFOCUS);
    }
}

void GEdit::Modern::OnStyleChanged(WPARAM wWhich, const STYLESTRUCT& styles)
{
    constexpr DWORD LAYS_OUT = BARS | ES_MULTILINE | ES_AUTOHSCROLL | ES_PASSWORD | ES_CENTER | ES_RIGHT;
    if (m_fOwnStyle || wWhich != static_cast<WPARAM>(GWL_STYLE)) {
        return;
    }
    const DWORD dwFormer = std::exchange(m_dwBars, styles.styleNew & BARS);
    const Watch watch(edit);
    if (dwFormer != m_dwBars) {
        const bool fOuter = std::exchange(m_fOwnStyle, true);
        SetWindowPos(edit.m_hWnd, nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        if (!watch) {
            return;
        }
        m_fOwnStyle = fOuter;
    }
    const DWORD dwChanged = styles.styleOld ^ styles.styleNew;
    if (dwChanged & LAYS_OUT) {
        editor.Reflow();
    }
    if (watch && (dwChanged & (ES_READONLY | ES_PASSWORD))) {
        gesso::TellAccess(edit.m_hWnd, EVENT_OBJECT_STATECHANGE);
    }
}

bool GEdit::Modern::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const bool fInBar = edit.m_dwState & GWS_NCPRESSED;
    switch (uMsg) {
    case WM_PAINT: *plAnswer = Paint(); return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        *plAnswer = 0;
        OnFocus(uMsg == WM_SETFOCUS);
        return true;
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        if (fInBar) {
            return false;
        }
        if (uMsg == WM_MOUSEMOVE) {
            Frame::TrackLeave(edit);
        }
        break;
    case WM_VSCROLL:
    case WM_HSCROLL: {
        const SCROLLINFO& si = uMsg == WM_VSCROLL ? edit.m_siV : edit.m_siH;
        const UINT nThumb = gesso::TrackedPos(edit, si, HIWORD(wParam));
        editor.ScrollByBar(uMsg == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam), nThumb);
        *plAnswer = 0;
        return true;
    }
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        // What there is nothing to scroll for is the parent's.
        if (!editor.OnMessage(uMsg, wParam, lParam, plAnswer)) {
            *plAnswer = Frame::Default(edit, uMsg, wParam, lParam);
        }
        return true;
    case WM_CAPTURECHANGED: editor.OnMessage(uMsg, wParam, lParam, plAnswer); return false;
    case WM_STYLECHANGED:
    case WM_THEMECHANGED: {
        const Watch watch(edit);
        if (uMsg == WM_THEMECHANGED) {
            editor.Reflow();
        } else {
            OnStyleChanged(wParam, *reinterpret_cast<const STYLESTRUCT*>(lParam));
        }
        *plAnswer = 0;
        return !watch;
    }
    case WM_SETCURSOR:
        if (LOWORD(lParam) != HTCLIENT) {
            *plAnswer = Frame::Default(edit, uMsg, wParam, lParam);
            return true;
        }
        break;
    case WM_KEYDOWN:
        *plAnswer = 0;
        editor.OnMessage(uMsg, wParam, lParam, plAnswer);
        return true;
    case WM_WINDOWPOSCHANGED: *plAnswer = Frame::Default(edit, uMsg, wParam, lParam); return true;
    default: break;
    }
    return editor.OnMessage(uMsg, wParam, lParam, plAnswer);
}
