#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWindow2.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;

constinit ATOM GWindow2::s_aClass = 0;

namespace {

LRESULT Repaint(GWindow2& window)
{
    window.Invalidate(0);
    return 0;
}

LRESULT Quit(HWND hwnd)
{
    PostQuitMessage(0);
    return Frame::Default(hwnd, WM_DESTROY, 0, 0);
}

// The platform finds the window already gone.
LRESULT Close(HWND hwnd, WPARAM wParam, LPARAM lParam)
{
    DestroyWindow(hwnd);
    return Frame::Default(hwnd, WM_CLOSE, wParam, lParam);
}

// The object stays, although the window made it: who got it by FromHwnd may still use it.
LRESULT End(GWindow2& window, WPARAM wParam, LPARAM lParam)
{
    Frame::Abandon(window);
    return Frame::Default(window, WM_NCDESTROY, wParam, lParam);
}

} // namespace

ATOM GWindow2::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GWindow2", WindowProc, gesso::CLASS_HOST);
}

HWND GWindow2::Create(int x, int y, int cx, int cy, HWND hwndParent)
{
    // The parameter is this object itself and no tag, so that the window makes an object of its own.
    return IsolationAwareCreateWindowExW(0, MAKEINTRESOURCEW(IsolationAwareRegisterClassW()), L"",
                                         WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, cx, cy, hwndParent, nullptr,
                                         nullptr, this);
}

int GWindow2::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GWindow2::Init(void*) {}

LRESULT GWindow2::OnCreate(const CREATESTRUCTW*)
{
    return 0;
}

LRESULT CALLBACK GWindow2::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GWindow2>(hwnd, uMsg, wParam, lParam);
}

LRESULT GWindow2::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return Quit(m_hWnd);
    case WM_NCDESTROY: return End(*this, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS: return Repaint(*this);
    case WM_CLOSE: return Close(m_hWnd, wParam, lParam);
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
