#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/Library.h>

namespace gesso {

LRESULT OnButtonCreate(GWnd& wnd, ThemeHandle& theme, HFONT& hFont)
{
    Frame::SetState(wnd, Frame::FirstState(wnd));
    theme.Open(Frame::Handle(wnd), BUTTON_THEME);
    hFont = g_hDefaultFont;
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

} // namespace gesso
