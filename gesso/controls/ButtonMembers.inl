// The members that GButton, GCheckBox, GRadioButton and GCommandButton have alike: what ContentMembers.inl
// and PressMembers.inl bring, and the rows of the window procedure for both. Included where the class is
// named `Control`.

#include <gesso/controls/ContentMembers.inl>
#include <gesso/controls/PressMembers.inl>
#include <gesso/framework/BufferedPaint.h>

LRESULT Control::OnEnable(BOOL fEnable)
{
    return gesso::Frame::OnEnable(*this, fEnable);
}

LRESULT Control::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT Control::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt);
}

// What the class's WindowProc does not take for itself.
LRESULT Control::OnButtonMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
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
    case WM_PRINTCLIENT: return gesso::Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_STYLECHANGED: return OnStyleChanged();
    case WM_UPDATEUISTATE: return gesso::Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_SETTEXT: return OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return OnGetTextLength();
    case WM_GETDLGCODE: return OnGetDlgCode();
    default: return DefWindowProcW(m_hWnd, uMsg, wParam, lParam);
    }
}
