// What GTree and GNavigationBar have alike of their windows: creation, scrolling, the pointer, and the
// messages. ItemMembers.inl has what they have alike of their items; where their rules part stands in
// TreeRules.h.
//
// The interface gives each class members of its own, straight behind GWndScroll, so that no base class can
// hold them. They are written once here instead; the source of each class names it `Control` and includes
// this.

#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/NonClientPaint.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <climits>

using Rules = gesso::TreeRules<Control>;

ATOM Control::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, Rules::CLASS_NAME, WindowProc, gesso::CLASS_SCROLLING);
}

HWND Control::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle, DWORD dwStyle)
{
    return gesso::Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                                      dwExStyle, dwStyle);
}

int Control::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD Control::SetStyle(DWORD dwStyle)
{
    return gesso::Frame::SetStyle(*this, dwStyle);
}

DWORD Control::GetStyle() const
{
    return gesso::Frame::Style(*this);
}

HFONT Control::GetFont() const
{
    return m_hFont;
}

UINT Control::GetItemHeight() const
{
    return m_nItemHeight;
}

void Control::SetItemHeight(UINT nHeight)
{
    m_nItemHeight = nHeight;
    if (UpdateScrollbars()) {
        RedrawAll();
    }
}

HIMAGELIST Control::GetImageList() const
{
    return m_hImageList;
}

void Control::SetImageList(HIMAGELIST hImageList)
{
    m_hImageList = hImageList;
}

// --- Scrolling

void Control::RedrawAll()
{
    // To the platform a null window means the desktop.
    if (m_hWnd) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
}

void Control::ScrollTo(int nBar, int64_t nPos)
{
    const auto nLimited = static_cast<int>(std::clamp<int64_t>(nPos, INT_MIN, INT_MAX));
    GWndScroll::SetScrollPos(nBar, nLimited, 1);
}

// By the height of an item, whatever height the rows have. False where there is nothing to do.
bool Control::ScrollRowIntoView(UINT row, bool fFromAbove, bool fFromBelow)
{
    const int64_t nTop = int64_t{row} * m_nItemHeight;
    const int64_t nBottom = nTop + m_nItemHeight;
    const auto nPage = static_cast<int>(m_siV.nPage);
    if (fFromAbove && nTop < m_siV.nPos) {
        ScrollTo(SB_VERT, nTop);
        return true;
    }
    if (fFromBelow && nBottom > int64_t{m_siV.nPos} + nPage) {
        ScrollTo(SB_VERT, nBottom - nPage);
        return true;
    }
    return false;
}

LRESULT Control::OnVScroll(UINT uCode, UINT nPos, HWND)
{
    const bool fKnown = uCode != SB_THUMBPOSITION || Rules::THUMB_POSITION_SCROLLS;
    const int64_t nLine = Rules::LINE_IS_FIXED ? gesso::Pixels(m_hWnd, gesso::Metrics::TREE_SCROLL_LINE)
                                               : int64_t{m_nItemHeight};
    if (const auto nTarget = gesso::ScrollTarget(m_siV, uCode, nPos, nLine); nTarget && fKnown) {
        ScrollTo(SB_VERT, *nTarget);
    }
    Invalidate(0);
    return 0;
}

LRESULT Control::OnMouseWheel(UINT, int nDelta, POINTS)
{
    const auto nTarget = gesso::WheelTarget(m_siV, nDelta);
    if (!nTarget) {
        return 0;
    }
    ScrollTo(SB_VERT, *nTarget);
    if (m_dwState & GWS_TRACKING) {
        HitTest(&m_hitMove);
    }
    RedrawAll();
    return 0;
}

// --- The pointer

LRESULT Control::OnLButtonDown(WPARAM, POINTS pt)
{
    if (gesso::TakePress(*this)) {
        Invalidate(0);
        m_hitDown.pt = pt;
        HitTest(&m_hitDown);
    }
    return 0;
}

// Fixed behaviour: GWS_HOT is set where the pointer is over nothing, and cleared over a row; derived classes
// that read the bit would take the one for the other.
LRESULT Control::OnMouseMove(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcMouseMove(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    gesso::Frame::TrackLeave(*this);
    const HitTestInfo former = m_hitMove;
    m_hitMove.pt = pt;
    HitTest(&m_hitMove);
    gesso::Frame::ChangeState(*this, GWS_HOT, m_hitMove.nPart == 0);
    if (m_hitMove.nItem != former.nItem || m_hitMove.nPart != former.nPart) {
        Invalidate(0);
    }
    return 0;
}

LRESULT Control::OnMouseLeave()
{
    m_hitMove.nItem = gesso::NO_INDEX;
    return gesso::Frame::OnMouseLeave(*this);
}

LRESULT Control::OnCaptureChanged(HWND hwndNew)
{
    return gesso::Frame::OnCaptureChanged(*this, hwndNew);
}

// --- Other messages

LRESULT Control::OnNcCreate(const CREATESTRUCTW* pcs)
{
    SetWindowTheme(m_hWnd, L"explorer", nullptr);
    GWndScroll::OnNcCreate(pcs);
    gesso::Frame::SetState(*this, gesso::Frame::FIRST_STATE);
    m_hTheme.Open(m_hWnd);
    return 1;
}

LRESULT Control::OnNcDestroy()
{
    GWndScroll::OnNcDestroy();
    m_hTheme.Close();
    return gesso::Frame::Detach(*this);
}

void Control::NcDraw(HDC hdc, RECT rc)
{
    m_hTheme.Items().DrawBackground(hdc, rc);
    DrawScrollBar(hdc, gesso::Frame::Style(*this));
}

LRESULT Control::OnNcPaint(WPARAM wRegion)
{
    return gesso::Frame::OnNcPaint(*this, wRegion);
}

LRESULT Control::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT Control::OnKillFocus(HWND)
{
    return gesso::Frame::OnKillFocus(*this);
}

// What the class's WindowProc does not take for itself.
LRESULT Control::OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const auto uHit = static_cast<UINT>(wParam);
    const POINTS pt = gesso::PointOf(lParam);
    switch (uMsg) {
    case WM_CREATE: return OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_DESTROY: return OnDestroy();
    case WM_NCDESTROY: return OnNcDestroy();
    case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return OnNcHitTest(pt);
    case WM_NCPAINT: return OnNcPaint(wParam);
    case WM_NCMOUSEMOVE: return OnNcMouseMove(uHit, pt);
    case WM_NCMOUSELEAVE: return OnNcMouseLeave();
    case WM_NCLBUTTONDOWN: return OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return OnNcLButtonUp(uHit, pt);
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_STYLECHANGED: return gesso::Frame::OnStyleChanged(*this);
    case WM_UPDATEUISTATE: return gesso::Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(wParam, pt);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(wParam, pt);
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_MOUSEWHEEL: return OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
    case WM_VSCROLL: return OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    default: return gesso::Frame::Default(*this, uMsg, wParam, lParam);
    }
}
