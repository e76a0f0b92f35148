#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/GNavigationButton.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::Quirk;

constinit ATOM GNavigationButton::s_aClass = 0;

namespace {

constexpr LPCWSTR STYLE_CLASS = L"NAVIGATION";

// One bit alone is hot: also a press from which the pointer was dragged away. A held space key does not show.
int ThemeState(DWORD dwState, DWORD dwStyle)
{
    if (dwState & gesso::SHOWN_PRESSED) {
        return NAV_BB_PRESSED;
    }
    switch (dwState & (GWS_HOT | GWS_PRESSED)) {
    case GWS_HOT | GWS_PRESSED: return NAV_BB_PRESSED;
    case 0: return dwStyle & WS_DISABLED ? NAV_BB_DISABLED : NAV_BB_NORMAL;
    default: return NAV_BB_HOT;
    }
}

} // namespace

ATOM GNavigationButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GNavigationButton", WindowProc, gesso::CLASS_CONTROL);
}

HWND GNavigationButton::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                               DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GNavigationButton::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GNavigationButton::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GNavigationButton::GetStyle() const
{
    return Frame::Style(*this);
}

// --- Drawing

void GNavigationButton::Draw(HDC hdc)
{
    RECT rc{};
    if (Has(*this, Quirk::BackButtonOnBlack)) {
        GetClientRect(m_hWnd, &rc);
    } else if (!Frame::DrawParentBackground(*this, hdc, &rc)) {
        return;
    }
    const int nState = ThemeState(m_dwState, Frame::Style(*this));
    gesso::ThemePart part(m_hTheme, hdc, NAV_BACKBUTTON, nState, gesso::PlainPart::BackButton);
    part.In(m_hWnd);
    part.DrawBackground(rc);
    if (gesso::IsDrawnFlat() && gesso::ShowsFocus(m_hWnd, m_dwState)) { // in Light nothing tells
        part.DrawFocus(rc);
    }
}

// --- Messages

LRESULT GNavigationButton::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, 0);
    m_hTheme.Open(m_hWnd, STYLE_CLASS);
    return 0;
}

LRESULT GNavigationButton::OnDestroy()
{
    m_hTheme.Reset();
    return Frame::Detach(*this);
}

// Clears no held space key, and asks for the repaint first: the paint comes later.
LRESULT GNavigationButton::OnEnable(BOOL fEnable)
{
    Invalidate(0);
    if (!fEnable) {
        Frame::ClearState(*this, GWS_HOT | GWS_PRESSED);
    }
    return 0;
}

LRESULT GNavigationButton::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GNavigationButton::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GNavigationButton::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

// Asks for the repaint first here too.
LRESULT GNavigationButton::OnKeyUp(UINT uKey, LPARAM)
{
    if (uKey != VK_SPACE || !(m_dwState & GWS_KEYDOWN)) {
        return 0;
    }
    Invalidate(0);
    Frame::ClearState(*this, GWS_KEYDOWN);
    if (!(m_dwState & GWS_PRESSED)) {
        Frame::SendClick(*this);
    }
    return 0;
}

LRESULT GNavigationButton::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

// A held space key does not keep the mouse from clicking here.
LRESULT GNavigationButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt, false);
}

LRESULT GNavigationButton::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GNavigationButton::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GNavigationButton::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

int GNavigationButton::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

// Fixed behaviour: opens another class than at first, and goes on drawing its part of the same number. A host
// that changes the style at run time would see another button from then on.
LRESULT GNavigationButton::OnThemeChanged()
{
    return Frame::OnThemeChanged(
        *this, m_hTheme, Has(*this, Quirk::BackButtonChangesStyle) ? gesso::BUTTON_THEME : STYLE_CLASS);
}

LRESULT GNavigationButton::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GNavigationButton::OnGetDlgCode() const
{
    return DLGC_BUTTON;
}

LRESULT CALLBACK GNavigationButton::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GNavigationButton>(hwnd, uMsg, wParam, lParam);
}

LRESULT GNavigationButton::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    LRESULT lAnswer = 0;
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_KEYUP: return OnKeyUp(static_cast<UINT>(wParam), lParam);
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_STYLECHANGED: return OnStyleChanged();
    case WM_GETDLGCODE: return OnGetDlgCode();
    default:
        return gesso::AnswersPlatformButton(*this, uMsg, wParam, Frame::SendClick, &lAnswer)
                   ? lAnswer
                   : Frame::Default(*this, uMsg, wParam, lParam);
    }
}
