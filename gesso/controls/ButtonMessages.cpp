#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/FirstFont.h>
#include <gesso/framework/Quirks.h>

namespace gesso {

LRESULT OnButtonCreate(GWnd& wnd, ThemeHandle& theme, HFONT& hFont)
{
    // The mark is the host's.
    const DWORD dwMark = Has(wnd, Quirk::MarkEndsWithWindow) ? 0 : Frame::State(wnd) & ~0xFFFFU;
    Frame::SetState(wnd, Frame::FirstState(wnd) | dwMark);
    theme.Open(Frame::Handle(wnd), BUTTON_THEME);
    TakeFirstFont(wnd, hFont);
    return 0;
}

LRESULT OnButtonDestroy(GWnd& wnd, ThemeHandle& theme, ControlText& text)
{
    theme.Reset();
    text.Reset();
    return Frame::Detach(wnd);
}

LRESULT CodeOfDefaultButton(const GWnd& wnd)
{
    const DWORD dwStyle = Frame::Style(wnd);
    return DLGC_BUTTON | (dwStyle & GBS_DEFAULT ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

LRESULT OnSetDefaultButton(GWnd& wnd, WPARAM wStyle, UINT uRedraw)
{
    const HWND hwnd = Frame::Handle(wnd);
    const DWORD dwStyle = Frame::Style(wnd);
    Frame::SetStyle(wnd, wStyle & BS_DEFPUSHBUTTON ? dwStyle | GBS_DEFAULT : dwStyle & ~GBS_DEFAULT);
    if (uRedraw && Frame::IsAlive(hwnd, &wnd)) {
        wnd.Invalidate(0);
    }
    return 0;
}

namespace {

LRESULT StateOf(const GWnd& wnd)
{
    const HWND hwnd = Frame::Handle(wnd);
    const DWORD dwState = Frame::State(wnd);
    return SendMessageW(hwnd, BM_GETCHECK, 0, 0) |
           (dwState & (GWS_PRESSED | GWS_KEYDOWN | SHOWN_PRESSED) ? BST_PUSHED : 0) |
           (dwState & GWS_HOT ? BST_HOT : 0) | (GetFocus() == hwnd ? BST_FOCUS : 0);
}

void ClickByMessage(GWnd& wnd, Frame::ClickFunction pfnClick)
{
    if (!(Frame::Style(wnd) & WS_DISABLED)) {
        pfnClick(wnd);
    }
}

void ShowPressed(GWnd& wnd, bool fPressed)
{
    if (fPressed != ((Frame::State(wnd) & SHOWN_PRESSED) != 0)) {
        Frame::ChangeState(wnd, SHOWN_PRESSED, fPressed);
        wnd.Invalidate(0);
    }
}

} // namespace

bool AnswersPlatformButton(GWnd& wnd, UINT uMsg, WPARAM wParam, Frame::ClickFunction pfnClick,
                           LRESULT* plAnswer)
{
    const bool fOne = uMsg == BM_CLICK || uMsg == BM_GETSTATE || uMsg == BM_SETSTATE;
    if (!fOne || Has(wnd, Quirk::NoPlatformButton)) {
        return false;
    }
    switch (uMsg) {
    case BM_CLICK: ClickByMessage(wnd, pfnClick); break;
    case BM_GETSTATE: *plAnswer = StateOf(wnd); break;
    default: ShowPressed(wnd, wParam != 0); break;
    }
    return true;
}

} // namespace gesso
