// What GButton, GCheckBox, GRadioButton and GCommandButton answer alike. Press and release stand in
// framework/Press.h, since other controls are pressed too.
#pragma once

#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>

namespace gesso {

// The class of the style that all four are drawn by.
inline constexpr LPCWSTR BUTTON_THEME = L"BUTTON";

// WM_CREATE and WM_DESTROY of a button with one text and the default font.
LRESULT OnButtonCreate(GWnd& wnd, ThemeHandle& theme, HFONT& hFont);
LRESULT OnButtonDestroy(GWnd& wnd, ThemeHandle& theme, ControlText& text);

// WM_GETDLGCODE and BM_SETSTYLE of a button that may be a dialog's default. The second tells whoever
// subclassed the control of the new style.
LRESULT CodeOfDefaultButton(const GWnd& wnd);
LRESULT OnSetDefaultButton(GWnd& wnd, WPARAM wStyle, UINT uRedraw);

// BM_CLICK, BM_GETSTATE and BM_SETSTATE, which buttons made in Modern answer as the platform's do: whether it
// was one of them, and the answer.
bool AnswersPlatformButton(GWnd& wnd, UINT uMsg, WPARAM wParam, Frame::ClickFunction pfnClick,
                           LRESULT* plAnswer);

// The rows of the four classes' switches that are the same.
class ButtonMessages
{
public:
    template <class BUTTON> static LRESULT Answer(BUTTON& button, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        LRESULT lAnswer = 0;
        if (AnswersPlatformButton(button, uMsg, wParam, ClickOf<BUTTON>(), &lAnswer)) {
            return lAnswer;
        }
        switch (uMsg) {
        case WM_DESTROY: return button.OnDestroy();
        case WM_ENABLE: return button.OnEnable(wParam != 0);
        case WM_SETFOCUS: return button.OnSetFocus(reinterpret_cast<HWND>(wParam));
        case WM_KILLFOCUS: return button.OnKillFocus(reinterpret_cast<HWND>(wParam));
        case WM_KEYDOWN: return button.OnKeyDown(static_cast<UINT>(wParam), lParam);
        case WM_KEYUP: return button.OnKeyUp(static_cast<UINT>(wParam), lParam);
        case WM_LBUTTONDOWN: return button.OnLButtonDown(wParam, PointOf(lParam));
        case WM_LBUTTONUP: return button.OnLButtonUp(wParam, PointOf(lParam));
        case WM_MOUSEMOVE: return button.OnMouseMove(wParam, PointOf(lParam));
        case WM_MOUSELEAVE: return button.OnMouseLeave();
        case WM_CAPTURECHANGED: return button.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
        case WM_PAINT: return PaintControl(button, button.m_hWnd);
        case WM_PRINTCLIENT: return Frame::OnPrintClient(button, reinterpret_cast<HDC>(wParam), lParam);
        case WM_ERASEBKGND: return 1;
        case WM_THEMECHANGED: return button.OnThemeChanged();
        case WM_STYLECHANGED: return button.OnStyleChanged();
        case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(button, wParam, lParam);
        case WM_SETFONT: return button.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
        case WM_GETFONT: return button.OnGetFont();
        case WM_SETTEXT: return button.OnSetText(reinterpret_cast<LPCWSTR>(lParam));
        case WM_GETTEXT: return button.OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
        case WM_GETTEXTLENGTH: return button.OnGetTextLength();
        case WM_GETDLGCODE: return button.OnGetDlgCode();
        default: return Frame::Default(button, uMsg, wParam, lParam);
        }
    }

private:
    // What a click does to a button of the class, its own mark included where it has one.
    template <class BUTTON> static constexpr Frame::ClickFunction ClickOf()
    {
        if constexpr (requires { &BUTTON::Click; }) {
            return BUTTON::Click;
        } else {
            return Frame::SendClick;
        }
    }
};

} // namespace gesso
