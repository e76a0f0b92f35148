// The members of the pointer and key machine that all buttons have alike, GNavigationButton included.
// Included where the class is named `Control`.

#include <gesso/framework/Press.h>

LRESULT Control::OnSetFocus(HWND)
{
    return gesso::Frame::OnSetFocus(*this);
}

LRESULT Control::OnKillFocus(HWND)
{
    return gesso::Frame::OnKillFocus(*this);
}

LRESULT Control::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT Control::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT Control::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT Control::OnMouseLeave()
{
    return gesso::Frame::OnMouseLeave(*this);
}

LRESULT Control::OnCaptureChanged(HWND hwndNew)
{
    return gesso::Frame::OnCaptureChanged(*this, hwndNew);
}

int Control::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}
