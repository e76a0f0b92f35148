// The bases of hosts' classes, each with a class as a host derives one.

#include "../ControlWorld.h"
#include "../Plain.h"

#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/NonClientPaint.h>
#include <gesso/framework/WindowClass.h>

namespace attack {

// A control with nothing but what GWnd has.
class HostWindow : public GWnd
{
public:
    HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle, DWORD dwStyle)
    {
        return gesso::Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent},
                                          nId, dwExStyle, dwStyle);
    }
    static ATOM IsolationAwareRegisterClassW()
    {
        static ATOM s_aClass = 0;
        return gesso::RegisterControlClass(s_aClass, L"attack::HostWindow", WindowProc, gesso::CLASS_CONTROL);
    }
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        return gesso::Frame::Route<HostWindow>(hwnd, uMsg, wParam, lParam);
    }
    void Draw(HDC hdc)
    {
        RECT rc{};
        gesso::Frame::DrawParentBackground(*this, hdc, &rc);
    }

private:
    friend class gesso::Frame;
    LRESULT OnCreate(const CREATESTRUCTW*) { return 0; }
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        switch (uMsg) {
        case WM_DESTROY: return gesso::Frame::Detach(*this);
        case WM_SETFOCUS: return gesso::Frame::OnSetFocus(*this);
        case WM_KILLFOCUS: return gesso::Frame::OnKillFocus(*this);
        case WM_UPDATEUISTATE: return gesso::Frame::OnUpdateUIState(*this, wParam, lParam);
        case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
        default: return gesso::Frame::Default(*this, uMsg, wParam, lParam);
        }
    }
};

// A control with nothing but the scroll bars of GWndScroll.
class HostScroll : public GWndScroll
{
public:
    HostScroll() = default;

    HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle, DWORD dwStyle)
    {
        return gesso::Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent},
                                          nId, dwExStyle, dwStyle);
    }
    static ATOM IsolationAwareRegisterClassW()
    {
        static ATOM s_aClass = 0;
        return gesso::RegisterControlClass(s_aClass, L"attack::HostScroll", WindowProc,
                                           gesso::CLASS_SCROLLING);
    }
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        return gesso::Frame::Route<HostScroll>(hwnd, uMsg, wParam, lParam);
    }

private:
    friend class gesso::Frame;
    LRESULT OnNcPaint(WPARAM wRegion) { return gesso::Frame::OnNcPaint(*this, wRegion); }
    void NcDraw(HDC hdc, RECT) { DrawScrollBar(hdc, WS_HSCROLL | WS_VSCROLL); }

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        const POINTS pt = gesso::PointOf(lParam);
        const auto uHit = static_cast<UINT>(wParam);
        switch (uMsg) {
        case WM_NCDESTROY: return OnNcDestroy();
        case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
        case WM_NCHITTEST: return OnNcHitTest(pt);
        case WM_NCPAINT: return OnNcPaint(wParam);
        case WM_WINDOWPOSCHANGED: return OnWindowPosChanged(reinterpret_cast<const WINDOWPOS*>(lParam));
        case WM_NCLBUTTONDOWN: return OnNcLButtonDown(uHit, pt);
        case WM_NCLBUTTONDBLCLK: return OnNcLButtonDblClk(uHit, pt);
        case WM_NCLBUTTONUP: return OnNcLButtonUp(uHit, pt);
        case WM_NCMOUSEMOVE: return OnNcMouseMove(uHit, pt);
        case WM_NCMOUSELEAVE: return OnNcMouseLeave();
        case WM_LBUTTONUP: return OnNcLButtonUp(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
        case WM_MOUSEMOVE: return OnNcMouseMove(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
        default: return gesso::Frame::Default(*this, uMsg, wParam, lParam);
        }
    }
};

template <> void AddOperations<HostWindow>(Table& table)
{
    table.push_back(Making(OP(HostWindow, Create)));
}

template <> void AddOperations<HostScroll>(Table& table)
{
    table.push_back(Making(OP(HostScroll, Create)));
}

void AddHostBases(std::vector<AttackedClass>& classes)
{
    classes.push_back(OfWorld<ControlWorld<HostWindow>>("GWnd"));
    classes.push_back(OfWorld<ControlWorld<HostScroll>>("GWndScroll"));
}

} // namespace attack
