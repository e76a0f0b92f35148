#include <gesso/controls/GSeparator.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;

constinit ATOM GSeparator::s_aClass = 0;
constinit HCURSOR GSeparator::s_hColumnSizing = nullptr;

namespace {

constexpr WORD SIZING_CURSOR = 32644; // IDC_SIZEWE, whose macro depends on how the narrow names are mapped
constexpr DWORD UNUSED_STATE = 0x08;  // nothing sets it; a change of the capture clears it all the same
constexpr int NO_BACKGROUND = 0;

// Separators of all threads share the cursor; whichever comes first loads it.
HCURSOR SizingCursor(HCURSOR& hShared)
{
    auto* ppShared = reinterpret_cast<void**>(&hShared);
    void* pCursor = InterlockedCompareExchangePointer(ppShared, nullptr, nullptr);
    if (!pCursor) {
        pCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(SIZING_CURSOR));
        InterlockedExchangePointer(ppShared, pCursor);
    }
    return static_cast<HCURSOR>(pCursor);
}

} // namespace

GSeparator::GSeparator()
{
    SizingCursor(s_hColumnSizing);
}

ATOM GSeparator::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GSeparator", WindowProc, gesso::CLASS_CONTROL,
                                       NO_BACKGROUND);
}

HWND GSeparator::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GSeparator::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GSeparator::SendDrag(UINT uCode, POINTS pt) const
{
    stcSeparatorNotify notify{};
    notify.pt = {pt.x, pt.y};
    Frame::SendNotify(*this, uCode, &notify.hdr);
}

// A drag that a former window of this object did not see the end of does not go on in the new one.
LRESULT GSeparator::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, 0);
    return 0;
}

LRESULT GSeparator::OnDestroy()
{
    return Frame::Detach(*this);
}

LRESULT GSeparator::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GSeparator::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GSeparator::OnLButtonDown(WPARAM, POINTS pt)
{
    if (gesso::TakePress(*this)) {
        SendDrag(GSN_BEGINDRAG, pt);
    }
    return 0;
}

LRESULT GSeparator::OnLButtonUp(WPARAM, POINTS pt)
{
    if (gesso::EndPress(*this)) {
        SendDrag(GSN_ENDDRAG, pt);
    }
    return 0;
}

LRESULT GSeparator::OnMouseMove(WPARAM, POINTS pt)
{
    Frame::TrackLeave(*this);
    if (m_dwState & GWS_PRESSED) {
        SendDrag(GSN_DRAG, pt);
    }
    return 0;
}

LRESULT GSeparator::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GSeparator::OnCaptureChanged(HWND hwndNew)
{
    if (hwndNew != m_hWnd) {
        Frame::ClearState(*this, GWS_PRESSED | UNUSED_STATE);
    }
    return 0;
}

LRESULT GSeparator::OnSetCursor()
{
    SetCursor(SizingCursor(s_hColumnSizing));
    return 1;
}

LRESULT CALLBACK GSeparator::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GSeparator>(hwnd, uMsg, wParam, lParam);
}

LRESULT GSeparator::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR: return OnSetCursor();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(*this, wParam, lParam);
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
