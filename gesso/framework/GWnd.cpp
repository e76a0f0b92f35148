#include <gesso/framework/Frame.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/Lifeline.h>

GWnd& GWnd::operator=(const GWnd& other)
{
    if (m_hWnd != other.m_hWnd) {
        gesso::Frame::Abandon(*this);
    }
    m_hWnd = other.m_hWnd;
    gesso::Frame::SetState(*this, other.m_dwState);
    return *this;
}

GWnd::~GWnd()
{
    gesso::Lifeline::Cut(this);
    gesso::Frame::Abandon(*this);
}

void GWnd::Delete(void* p)
{
    delete static_cast<GWnd*>(p);
}

GWnd::operator HWND() const
{
    return m_hWnd;
}

HWND GWnd::GetParent() const
{
    return ::GetParent(m_hWnd);
}

void GWnd::Invalidate(int bErase)
{
    // To the platform a null window means all windows.
    if (m_hWnd) {
        InvalidateRect(m_hWnd, nullptr, bErase);
    }
}

int GWnd::MoveWindow(int x, int y, int cx, int cy)
{
    return ::MoveWindow(m_hWnd, x, y, cx, cy, TRUE);
}

int GWnd::SetVisible(int bShow)
{
    return ShowWindow(m_hWnd, bShow ? SW_SHOW : SW_HIDE);
}

int GWnd::GetPos(RECT* prc) const
{
    return GetWindowRect(m_hWnd, prc);
}

HWND GWnd::GetHwnd() const
{
    return m_hWnd;
}

GWnd* GWnd::FromHwnd(HWND hwnd)
{
    return reinterpret_cast<GWnd*>(GetWindowLongPtrW(hwnd, gesso::Frame::OBJECT_WORD));
}

LRESULT CALLBACK GWnd::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return gesso::Frame::Default(hwnd, uMsg, wParam, lParam);
}

void GWnd::OnUpdateUIState(UINT action, UINT state)
{
    const DWORD dwBits = (state & (UISF_HIDEFOCUS | UISF_HIDEACCEL)) << 5;
    using gesso::Frame;
    switch (action) {
    case UIS_SET: Frame::AddState(*this, dwBits); break;
    case UIS_CLEAR: Frame::ClearState(*this, dwBits); break;
    case UIS_INITIALIZE:
        Frame::SetState(*this, (m_dwState & ~(GWS_HIDEFOCUS | GWS_HIDEACCEL)) | dwBits);
        break;
    default: break;
    }
    Invalidate(0);
}
