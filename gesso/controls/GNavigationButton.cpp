#include <gesso/controls/GNavigationButton.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;

using Control = GNavigationButton;
#include <gesso/controls/PressMembers.inl>
#include <gesso/controls/StyleMembers.inl>

constinit ATOM GNavigationButton::s_aClass = 0;

namespace {

// One bit alone is hot: also a press from which the pointer was dragged away. A held space key does not show.
int ThemeState(DWORD dwState, DWORD dwStyle)
{
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

void GNavigationButton::Draw(HDC hdc)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int nState = ThemeState(m_dwState, Frame::Style(*this));
    gesso::ThemePart(m_hTheme, hdc, NAV_BACKBUTTON, nState, gesso::PlainPart::BackButton).DrawBackground(rc);
}

LRESULT GNavigationButton::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = 0;
    m_hTheme.Reset(OpenThemeData(m_hWnd, L"NAVIGATION"));
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
        m_dwState &= ~(GWS_HOT | GWS_PRESSED);
    }
    return 0;
}

// Asks for the repaint first here too.
LRESULT GNavigationButton::OnKeyUp(UINT uKey, LPARAM)
{
    if (uKey != VK_SPACE || !(m_dwState & GWS_KEYDOWN)) {
        return 0;
    }
    Invalidate(0);
    m_dwState &= ~GWS_KEYDOWN;
    if (!(m_dwState & GWS_PRESSED)) {
        Frame::SendClick(*this);
    }
    return 0;
}

// A held space key does not keep the mouse from clicking here.
LRESULT GNavigationButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt, false);
}

// Opens another class than at first, and goes on drawing its part of the same number: hosts rely on it.
LRESULT GNavigationButton::OnThemeChanged()
{
    return Frame::OnThemeChanged(*this, m_hTheme, L"BUTTON");
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
    auto* pButton = Frame::ObjectOf<GNavigationButton>(hwnd);
    if (!pButton) {
        return uMsg == WM_CREATE ? Frame::Attach<GNavigationButton>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GNavigationButton& button = *pButton;
    switch (uMsg) {
    case WM_DESTROY: return button.OnDestroy();
    case WM_ENABLE: return button.OnEnable(wParam != 0);
    case WM_SETFOCUS: return button.OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return button.OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_KEYDOWN: return button.OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_KEYUP: return button.OnKeyUp(static_cast<UINT>(wParam), lParam);
    case WM_LBUTTONDOWN: return button.OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return button.OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return button.OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return button.OnMouseLeave();
    case WM_CAPTURECHANGED: return button.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_PAINT: return gesso::PaintControl(button, hwnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(button, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return button.OnThemeChanged();
    case WM_STYLECHANGED: return button.OnStyleChanged();
    case WM_GETDLGCODE: return button.OnGetDlgCode();
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
