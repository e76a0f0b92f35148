// The state of the bars and their place in the window.

#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ScrollRepeat.h>

#include <atomic>
#include <utility>

using gesso::BARS;

constinit DWORD GWndScroll::s_dwScrollRepeatDelay = 0;
constinit DWORD GWndScroll::s_dwScrollRepeatSpeed = 0;
constinit ULONGLONG GWndScroll::s_ullTimerTime = 0;
constinit UINT_PTR GWndScroll::s_dwTimer = 0;
constinit GWndScroll* GWndScroll::s_pScrollingWindow = nullptr;

namespace {

constexpr int NO_SUCH_BAR = static_cast<int>(0x80000000);
constexpr UINT ENABLE_BITS = 0x7F;
constexpr int KEYBOARD_DELAY_UNIT = 250;

bool IsBar(int nBar)
{
    return nBar == SB_HORZ || nBar == SB_VERT;
}

SCROLLINFO FirstScrollInfo()
{
    SCROLLINFO si{};
    si.cbSize = sizeof(si);
    si.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;
    return si;
}

// The two are the process's, and any thread may read them anew.
void ReadKeyboardRepeat(DWORD& dwDelay, DWORD& dwRepeat)
{
    int nDelay = 0;
    SystemParametersInfoW(SPI_GETKEYBOARDDELAY, 0, &nDelay, 0);
    std::atomic_ref(dwDelay).store(static_cast<DWORD>((nDelay + 1) * KEYBOARD_DELAY_UNIT));
    DWORD dwSpeed = 0;
    SystemParametersInfoW(SPI_GETKEYBOARDSPEED, 0, &dwSpeed, 0);
    std::atomic_ref(dwRepeat).store(2000 / static_cast<DWORD>(MulDiv(static_cast<int>(dwSpeed), 55, 31) + 5));
}

} // namespace

GWndScroll::GWndScroll() : m_siH(FirstScrollInfo()), m_siV(FirstScrollInfo()) {}

GWndScroll::~GWndScroll()
{
    OnNcDestroy();
}

GWndScroll::Bar GWndScroll::BarOf(int nBar)
{
    return nBar == SB_VERT ? Bar{m_siV, m_dwVStyle} : Bar{m_siH, m_dwHStyle};
}

const RECT& GWndScroll::RectOf(int nBar) const
{
    return nBar == SB_VERT ? m_rcVScroll : m_rcHScroll;
}

// --- Range, page and position

// Every change of a position goes through here. Limits it to the range.
void GWndScroll::ChangePos(int nBar, int nPos)
{
    SCROLLINFO& si = BarOf(nBar).si;
    si.nPos = gesso::ClampPos(si, nPos);
}

void GWndScroll::LimitPage(int nBar, UINT nPage)
{
    SCROLLINFO& si = BarOf(nBar).si;
    const int nRange = gesso::RangeOf(si);
    si.nPage = static_cast<int>(nPage) < nRange ? nPage : static_cast<UINT>(nRange);
    ChangePos(nBar, si.nPos);
}

void GWndScroll::Update(int nBar, const SCROLLINFO& siNew)
{
    const Bar bar = BarOf(nBar);
    if (siNew.fMask & SIF_RANGE) {
        bar.si.nMin = siNew.nMin;
        bar.si.nMax = siNew.nMax;
        LimitPage(nBar, bar.si.nPage);
    }
    if (siNew.fMask & SIF_PAGE) {
        LimitPage(nBar, siNew.nPage);
    }
    if (siNew.fMask & SIF_POS) {
        ChangePos(nBar, siNew.nPos);
    }
    // Fixed behaviour: the limits above keep the page within the range, so that setting a range or a page
    // shows the bar. A control that hides it by ShowScrollBar, and sets a range again to show it, would lose
    // it.
    if (static_cast<int>(bar.si.nPage) > gesso::RangeOf(bar.si)) {
        bar.dwFlags |= siNew.fMask & SIF_DISABLENOSCROLL ? GSB_DISABLED : GSB_HIDDEN;
    } else {
        bar.dwFlags &= ~(GSB_DISABLED | GSB_HIDDEN);
    }
}

void GWndScroll::SetScrollInfo(int nBar, const SCROLLINFO* psi)
{
    Update(nBar, *psi);
    // The platform may show or hide its bar, which changes the window's style and comes back as
    // WM_NCCALCSIZE and WM_NCPAINT: in the corner between two bars the parent draws, and may destroy the
    // control.
    ::SetScrollInfo(m_hWnd, nBar, psi, FALSE);
}

void GWndScroll::Redraw(bool fFlagsChanged, int nBar)
{
    // To the platform a null window means the desktop.
    if (!m_hWnd) {
        return;
    }
    if (fFlagsChanged) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    } else {
        DrawScrollBar(nBar);
    }
}

int GWndScroll::SetScrollInfo(int nBar, const SCROLLINFO* psi, int bRedraw)
{
    if (!IsBar(nBar) || !psi || psi->cbSize != sizeof(SCROLLINFO)) {
        return 0;
    }
    const Bar bar = BarOf(nBar);
    const DWORD dwFormer = bar.dwFlags;
    const gesso::Lifeline life(*this);
    SetScrollInfo(nBar, psi);
    if (!life) {
        return 0;
    }
    if (bRedraw) {
        Redraw(bar.dwFlags != dwFormer, nBar);
    }
    return bar.si.nPos;
}

void GWndScroll::SetScrollInfo(const SCROLLINFO* psiH, const SCROLLINFO* psiV, int bRedraw)
{
    const DWORD dwFormerH = m_dwHStyle;
    const DWORD dwFormerV = m_dwVStyle;
    const gesso::Lifeline life(*this);
    SetScrollInfo(SB_HORZ, psiH);
    if (life) {
        SetScrollInfo(SB_VERT, psiV);
    }
    if (life && bRedraw) {
        Redraw(m_dwHStyle != dwFormerH || m_dwVStyle != dwFormerV, SB_BOTH);
    }
}

int GWndScroll::SetScrollPos(int nBar, int nPos, int bRedraw)
{
    if (!IsBar(nBar)) {
        return NO_SUCH_BAR;
    }
    ChangePos(nBar, nPos);
    // The platform gets the position as it came.
    ::SetScrollPos(m_hWnd, nBar, nPos, FALSE);
    if (bRedraw) {
        DrawScrollBar(nBar);
    }
    return BarOf(nBar).si.nPos;
}

int GWndScroll::GetScrollInfo(int nBar, SCROLLINFO* psi) const
{
    if (!IsBar(nBar) || !psi || psi->cbSize != sizeof(SCROLLINFO)) {
        return 0;
    }
    *psi = nBar == SB_VERT ? m_siV : m_siH;
    return 1;
}

int GWndScroll::GetScrollPos(int nBar) const
{
    if (!IsBar(nBar)) {
        return NO_SUCH_BAR;
    }
    return nBar == SB_VERT ? m_siV.nPos : m_siH.nPos;
}

// --- Flags

UINT GWndScroll::SetScrollBarStyle(int nBar, UINT uStyle)
{
    return IsBar(nBar) ? std::exchange(BarOf(nBar).dwFlags, uStyle) : static_cast<UINT>(-1);
}

UINT GWndScroll::GetScrollBarStyle(int nBar) const
{
    if (!IsBar(nBar)) {
        return static_cast<UINT>(-1);
    }
    return nBar == SB_VERT ? m_dwVStyle : m_dwHStyle;
}

int GWndScroll::ShowScrollBar(int nBar, int bShow)
{
    if (!IsBar(nBar)) {
        return 0;
    }
    DWORD& dwFlags = BarOf(nBar).dwFlags;
    dwFlags = bShow ? dwFlags & ~GSB_HIDDEN : dwFlags | GSB_HIDDEN;
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return 1;
}

int GWndScroll::EnableScrollBar(int nBar, UINT uFlags)
{
    if (!IsBar(nBar)) {
        return 0;
    }
    DWORD& dwFlags = BarOf(nBar).dwFlags;
    dwFlags = (dwFlags & ~ENABLE_BITS) | (uFlags & ENABLE_BITS);
    DrawScrollBar(nBar);
    return 1;
}

// --- Place in the window

void GWndScroll::GetClientRectNoScroll(RECT* prc) const
{
    GetClientRect(m_hWnd, prc);
    if (m_dwVStyle & GSB_HIDDEN) {
        prc->right = gesso::Saturated(int64_t{prc->right} + gesso::SystemMetric(m_hWnd, SM_CXVSCROLL));
    }
    if (m_dwHStyle & GSB_HIDDEN) {
        prc->bottom = gesso::Saturated(int64_t{prc->bottom} + gesso::SystemMetric(m_hWnd, SM_CYHSCROLL));
    }
}

bool GWndScroll::Shows(const gesso::BarTraits& traits, DWORD dwFlags) const
{
    return (gesso::Frame::Style(*this) & traits.dwWindowStyle) && !(dwFlags & GSB_HIDDEN);
}

// Fixed behaviour: a flipped bar lies at the client edge that was already moved in for it, and the corner
// between two bars stays empty. Where a host lays its own frame around the bars, they would lie elsewhere.
void GWndScroll::NcCalcSizeScroll(const RECT* prcWindow, RECT* prcClient)
{
    const int cxV = gesso::SystemMetric(m_hWnd, SM_CXVSCROLL);
    const int cyH = gesso::SystemMetric(m_hWnd, SM_CYHSCROLL);
    const bool fFlippedV = m_dwVStyle & GSB_FLIPPED;
    const bool fFlippedH = m_dwHStyle & GSB_FLIPPED;
    if (Shows(BARS[SB_VERT], m_dwVStyle)) {
        LONG& nEdge = fFlippedV ? prcClient->left : prcClient->right;
        nEdge = gesso::Saturated(int64_t{nEdge} + (fFlippedV ? cxV : -cxV));
    }
    if (Shows(BARS[SB_HORZ], m_dwHStyle)) {
        LONG& nEdge = fFlippedH ? prcClient->top : prcClient->bottom;
        nEdge = gesso::Saturated(int64_t{nEdge} + (fFlippedH ? cyH : -cyH));
    }
    const RECT rc = gesso::Shifted(*prcClient, -int64_t{prcWindow->left}, -int64_t{prcWindow->top});
    const int yH = fFlippedH ? rc.top : rc.bottom;
    const int xV = fFlippedV ? rc.left : rc.right;
    m_rcHScroll = {rc.left, yH, rc.right, gesso::Saturated(int64_t{yH} + cyH)};
    m_rcVScroll = {xV, rc.top, gesso::Saturated(int64_t{xV} + cxV), rc.bottom};
}

// --- Messages

LRESULT GWndScroll::OnNcCreate(const CREATESTRUCTW* pcs)
{
    ReadKeyboardRepeat(s_dwScrollRepeatDelay, s_dwScrollRepeatSpeed);
    OpenBarTheme();
    ::SetScrollInfo(m_hWnd, SB_HORZ, &m_siH, FALSE);
    ::SetScrollInfo(m_hWnd, SB_VERT, &m_siV, FALSE);
    const auto dwStyle = static_cast<DWORD>(pcs->style);
    m_dwHStyle = GSB_HIDDEN | (dwStyle & GSS_FLIPHORZ ? GSB_FLIPPED : 0);
    m_dwVStyle = GSB_HIDDEN | (dwStyle & GSS_FLIPVERT ? GSB_FLIPPED : 0);
    return 1;
}

void GWndScroll::OpenBarTheme()
{
    m_hThemeScroll.Open(m_hWnd, L"SCROLLBAR");
}

LRESULT GWndScroll::OnNcDestroy()
{
    Repeat().Forget(*this);
    m_hThemeScroll.Reset();
    return 0;
}

LRESULT GWndScroll::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    // Both forms of the message start with the proposed rectangle.
    const RECT rcWindow = pParams->rgrc[0];
    NcCalcSizeScroll(&rcWindow, &pParams->rgrc[0]);
    pParams->rgrc[0] = gesso::ClientAsAsked(m_hWnd, fValidRects, rcWindow, pParams->rgrc[0]);
    return 0;
}

// Fixed behaviour: in Classic client coordinates meet bar rectangles that are relative to the window, and the
// client area is a pixel larger. A host that goes by the answers along the bars' edges would get others
// there.
LRESULT GWndScroll::OnNcHitTest(POINTS ptScreen) const
{
    POINT pt{ptScreen.x, ptScreen.y};
    ScreenToClient(m_hWnd, &pt);
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    if (!gesso::Has(*this, gesso::Quirk::BarHitsBeside)) {
        const POINT ptBar{BarPoint(ptScreen).x, BarPoint(ptScreen).y};
        const auto isAt = [&](int nBar, DWORD dwFlags) {
            return Shows(BARS[nBar], dwFlags) && PtInRect(&RectOf(nBar), ptBar);
        };
        const POINT ptPixel = gesso::ClientPixelAt(m_hWnd, {ptScreen.x, ptScreen.y});
        return PtInRect(&rcClient, ptPixel) ? HTCLIENT
               : isAt(SB_VERT, m_dwVStyle)  ? HTVSCROLL
               : isAt(SB_HORZ, m_dwHStyle)  ? HTHSCROLL
                                            : HTBORDER;
    }
    if (pt.x >= 0 && pt.y >= 0 && pt.x <= rcClient.right && pt.y <= rcClient.bottom) {
        return HTCLIENT;
    }
    if (pt.x < m_rcVScroll.left && pt.y < m_rcHScroll.top) {
        return HTBORDER;
    }
    if (pt.x >= m_rcVScroll.right && pt.y >= m_rcHScroll.bottom) {
        return pt.x == m_rcVScroll.right && pt.y == m_rcHScroll.bottom ? HTSIZE : HTBORDER;
    }
    if (pt.x >= m_rcHScroll.left && pt.y >= m_rcVScroll.top) {
        return pt.x > m_rcVScroll.left ? HTVSCROLL : HTHSCROLL;
    }
    return HTBORDER;
}

LRESULT GWndScroll::OnWindowPosChanged(const WINDOWPOS*)
{
    return 0;
}
