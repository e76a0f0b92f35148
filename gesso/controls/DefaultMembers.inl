// The members that GButton and GCommandButton have alike beyond those of ButtonMembers.inl, since each may be
// a dialog's default button. Included where the class is named `Control`.

#include <gesso/controls/ButtonMembers.inl>

LRESULT Control::OnGetDlgCode() const
{
    const DWORD dwStyle = gesso::Frame::Style(*this);
    return DLGC_BUTTON | (dwStyle & GBS_DEFAULT ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

LRESULT Control::OnSetStyle(WPARAM wStyle, UINT uRedraw)
{
    const HWND hwnd = m_hWnd;
    const DWORD dwStyle = gesso::Frame::Style(*this);
    // Tells whoever subclassed the control of the new style.
    gesso::Frame::SetStyle(*this, wStyle & BS_DEFPUSHBUTTON ? dwStyle | GBS_DEFAULT : dwStyle & ~GBS_DEFAULT);
    if (uRedraw && gesso::Frame::IsAlive(hwnd, this)) {
        Invalidate(0);
    }
    return 0;
}

LRESULT CALLBACK Control::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pButton = gesso::Frame::ObjectOf<Control>(hwnd);
    if (!pButton) {
        return uMsg == WM_CREATE ? gesso::Frame::Attach<Control>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    switch (uMsg) {
    case BM_SETSTYLE: return pButton->OnSetStyle(wParam, LOWORD(lParam));
    default: return pButton->OnButtonMessage(uMsg, wParam, lParam);
    }
}
