#include <gesso/framework/Frame.h>
#include <gesso/framework/Press.h>

namespace gesso {

int HitTestClient(HWND hwnd, POINTS pt)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return pt.x >= 0 && pt.y >= 0 && pt.x <= rc.right && pt.y <= rc.bottom;
}

LRESULT OnButtonKeyDown(GWnd& wnd, UINT uKey)
{
    if (uKey == VK_SPACE) {
        Frame::AddState(wnd, GWS_KEYDOWN);
        wnd.Invalidate(0);
    }
    return 0;
}

LRESULT OnButtonKeyUp(GWnd& wnd, UINT uKey, Frame::ClickFunction pfnClick)
{
    if (uKey != VK_SPACE || !(Frame::State(wnd) & GWS_KEYDOWN)) {
        return 0;
    }
    Frame::ClearState(wnd, GWS_KEYDOWN);
    wnd.Invalidate(0);
    if (!(Frame::State(wnd) & GWS_PRESSED)) {
        pfnClick(wnd);
    }
    return 0;
}

bool TakePress(GWnd& wnd)
{
    const HWND hwnd = Frame::Handle(wnd);
    // The windows that lose the focus and the capture are told, and their parents, any of which may destroy
    // this one.
    SetFocus(hwnd);
    if (Frame::IsAlive(hwnd, &wnd)) {
        SetCapture(hwnd);
    }
    if (!Frame::IsAlive(hwnd, &wnd)) {
        return false;
    }
    Frame::AddState(wnd, GWS_PRESSED);
    return true;
}

bool EndPress(GWnd& wnd)
{
    const HWND hwnd = Frame::Handle(wnd);
    if (!(Frame::State(wnd) & GWS_PRESSED)) {
        return false;
    }
    // Sends WM_CAPTURECHANGED, which clears GWS_PRESSED, and which a host that subclassed the control may
    // answer by destroying it.
    ReleaseCapture();
    return Frame::IsAlive(hwnd, &wnd);
}

LRESULT OnButtonDown(GWnd& wnd)
{
    if (TakePress(wnd)) {
        wnd.Invalidate(0);
    }
    return 0;
}

LRESULT OnButtonUp(GWnd& wnd, POINTS pt, bool fKeyHolds, Frame::ClickFunction pfnClick)
{
    if (!EndPress(wnd)) {
        return 0;
    }
    wnd.Invalidate(0);
    if (!HitTestClient(Frame::Handle(wnd), pt)) {
        return 0;
    }
    Frame::AddState(wnd, GWS_HOT);
    if (!(fKeyHolds && (Frame::State(wnd) & GWS_KEYDOWN))) {
        pfnClick(wnd);
    }
    return 0;
}

LRESULT OnButtonMove(GWnd& wnd, POINTS pt)
{
    Frame::TrackLeave(wnd);
    const DWORD dwFormer = Frame::State(wnd);
    Frame::ChangeState(wnd, GWS_HOT, HitTestClient(Frame::Handle(wnd), pt));
    // A moving pointer must not repaint where nothing changed.
    if (Frame::State(wnd) != dwFormer) {
        wnd.Invalidate(0);
    }
    return 0;
}

} // namespace gesso
