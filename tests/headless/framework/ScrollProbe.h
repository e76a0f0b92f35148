// A control with nothing but the scroll bars of GWndScroll, which notes what they send it.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/NonClientPaint.h>
#include <gesso/framework/WindowClass.h>

#include <string>
#include <utility>
#include <vector>

namespace test {

class ScrollProbe : public GWndScroll
{
public:
    HWND Create(HWND hwndParent, DWORD dwStyle, int cx = 200, int cy = 150)
    {
        static ATOM s_aClass = 0;
        gesso::RegisterControlClass(s_aClass, L"GessoTestScroll", WindowProc, gesso::CLASS_SCROLLING);
        return gesso::Frame::CreateTagged(*this, s_aClass, {0, 0, cx, cy, hwndParent}, 1, 0,
                                          WS_CHILD | WS_VISIBLE | dwStyle);
    }

    // A range of 0 to 99 with a page of 10, shown.
    void ShowRange(int nBar, int nPos = 0)
    {
        SCROLLINFO si{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 99, 10, nPos, 0};
        SetScrollInfo(nBar, &si, FALSE);
        ShowScrollBar(nBar, TRUE);
    }

    // What was sent since the last call: "V 1" for WM_VSCROLL with SB_LINEDOWN, "H 5:40" for a thumb at 40.
    std::vector<std::string> TakeScrolls() { return std::exchange(m_scrolls, {}); }

    const RECT& VRect() const { return m_rcVScroll; }
    static DWORD Delay() { return s_dwScrollRepeatDelay; }
    static DWORD Speed() { return s_dwScrollRepeatSpeed; }
    static void LateTimer() { ScrollBarTimerCallback(nullptr, WM_TIMER, 0, 0); }
    static const GWndScroll* Last() { return s_pScrollingWindow; }
    static bool Repeats() { return s_dwTimer != 0; }
    WORD HitAt(int x, int y) const
    {
        ScrollBarHitTestInfo info{{static_cast<SHORT>(x), static_cast<SHORT>(y)}, 0};
        return ScrollBarHitTest(&info);
    }

    using GWndScroll::m_rcHScroll;
    using GWndScroll::m_siV;
    using GWndScroll::SetScrollInfo;

    bool fFollow = true; // answers by SetScrollPos, as a control does

private:
    friend class gesso::Frame;
    LRESULT OnCreate(const CREATESTRUCTW* pcs) { return OnNcCreate(pcs); }

    LRESULT OnScroll(int nBar, WORD wCode, WORD wPos)
    {
        m_scrolls.push_back(
            std::string(nBar == SB_VERT ? "V " : "H ") + std::to_string(wCode) +
            (wCode == SB_THUMBTRACK || wCode == SB_THUMBPOSITION ? ":" + std::to_string(wPos) : ""));
        if (fFollow && wCode == SB_LINEDOWN) {
            SetScrollPos(nBar, GetScrollPos(nBar) + 1, TRUE);
        }
        return 0;
    }

    LRESULT OnCaptured(UINT uMsg, LPARAM lParam)
    {
        POINT pt{gesso::PointOf(lParam).x, gesso::PointOf(lParam).y};
        ClientToScreen(m_hWnd, &pt);
        const POINTS pts{static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
        return uMsg == WM_MOUSEMOVE ? OnNcMouseMove(0, pts) : OnNcLButtonUp(0, pts);
    }

    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        auto* p = gesso::Frame::ObjectOf<ScrollProbe>(hwnd);
        if (!p) {
            return uMsg == WM_NCCREATE ? gesso::Frame::Attach<ScrollProbe>(hwnd, lParam)
                                       : DefWindowProcW(hwnd, uMsg, wParam, lParam);
        }
        switch (uMsg) {
        case WM_CREATE: return 0;
        case WM_NCDESTROY: p->OnNcDestroy(); return gesso::Frame::Detach(*p);
        case WM_NCCALCSIZE: return p->OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
        case WM_NCHITTEST: return p->OnNcHitTest(gesso::PointOf(lParam));
        case WM_NCPAINT: {
            gesso::NonClientPaint paint(hwnd, wParam);
            p->DrawScrollBar(paint.Context(), gesso::Frame::Style(*p));
            return 0;
        }
        case WM_NCLBUTTONDOWN: return p->OnNcLButtonDown(static_cast<UINT>(wParam), gesso::PointOf(lParam));
        case WM_NCMOUSEMOVE: return p->OnNcMouseMove(static_cast<UINT>(wParam), gesso::PointOf(lParam));
        case WM_NCMOUSELEAVE: return p->OnNcMouseLeave();
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP: return p->OnCaptured(uMsg, lParam);
        case WM_VSCROLL: return p->OnScroll(SB_VERT, LOWORD(wParam), HIWORD(wParam));
        case WM_HSCROLL: return p->OnScroll(SB_HORZ, LOWORD(wParam), HIWORD(wParam));
        default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
        }
    }

    std::vector<std::string> m_scrolls;
};

} // namespace test
