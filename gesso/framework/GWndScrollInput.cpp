// What the mouse does with the bars.
//
// A press on an arrow or the track sends one scroll message at once and starts the repeat timer; a press on
// the thumb starts a drag. The window holds the capture meanwhile. Every message goes to the control's own
// window, whose handler may end in the control's destruction: it is sent last, or the window is looked at
// again.

#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/SystemTime.h>

#include <algorithm>
#include <utility>

using gesso::BARS;
using gesso::BarTraits;
using gesso::Frame;

namespace {

constexpr WORD NO_CODE = 0xFFFF;

// The scroll code that a press on a part sends; none for a thumb.
WORD CodeOf(const BarTraits& traits, WORD wHit)
{
    if (wHit == traits.wFirst) {
        return SB_LINEUP;
    }
    if (wHit == traits.wLast) {
        return SB_LINEDOWN;
    }
    if (wHit == traits.wPageFirst) {
        return SB_PAGEUP;
    }
    return wHit == traits.wPageLast ? SB_PAGEDOWN : NO_CODE;
}

// The part, unless its flag makes it inactive.
WORD ActivePart(WORD wHit, DWORD dwFlags, UINT uDisabled)
{
    return dwFlags & uDisabled ? WORD{0} : wHit;
}

SHORT Wrap16(LONG n)
{
    return static_cast<SHORT>(n);
}

SCROLLINFO PlatformScrollInfo(HWND hwnd, int nBar)
{
    SCROLLINFO si{};
    si.cbSize = sizeof(si);
    si.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    ::GetScrollInfo(hwnd, nBar, &si);
    return si;
}

bool IsThumb(WORD wHit)
{
    return wHit == SBH_VTHUMB || wHit == SBH_HTHUMB;
}

} // namespace

// --- Hit-testing

int GWndScroll::BarOfHit(WORD wHit) const
{
    return wHit & SBH_VERTICAL ? SB_VERT : SB_HORZ;
}

WORD GWndScroll::HitTestBar(const BarTraits& traits, const RECT& rc, DWORD dwFlags, POINT pt) const
{
    if (dwFlags & (GSB_DISABLED | GSB_HIDDEN)) {
        return 0;
    }
    const bool fVertical = &traits == &BARS[SB_VERT];
    const int nStart = fVertical ? rc.top : rc.left;
    const int nEnd = fVertical ? rc.bottom : rc.right;
    const int n = fVertical ? pt.y : pt.x;
    const int nArrow = gesso::SystemMetric(m_hWnd, traits.nHitArrowMetric);
    if (n < nStart + nArrow) {
        return ActivePart(traits.wFirst, dwFlags, GSB_DISABLE_FIRST);
    }
    if (n > nEnd - nArrow) {
        return ActivePart(traits.wLast, dwFlags, GSB_DISABLE_LAST);
    }
    const SCROLLINFO si = PlatformScrollInfo(m_hWnd, fVertical ? SB_VERT : SB_HORZ);
    const gesso::Thumb thumb = gesso::ThumbOf(m_hWnd, traits, nEnd - nStart, si);
    const int nThumb = nStart + gesso::SystemMetric(m_hWnd, traits.nArrowMetric) + thumb.nOffset;
    if (n < nThumb) {
        return ActivePart(traits.wPageFirst, dwFlags, GSB_DISABLE_PAGEFIRST);
    }
    if (n <= nThumb + thumb.nLength) {
        return ActivePart(traits.wThumb, dwFlags, GSB_DISABLE_THUMB);
    }
    return ActivePart(traits.wPageLast, dwFlags, GSB_DISABLE_PAGELAST);
}

WORD GWndScroll::ScrollBarHitTest(ScrollBarHitTestInfo* pInfo) const
{
    const POINT pt{pInfo->pt.x, pInfo->pt.y};
    pInfo->wHit = 0;
    if (PtInRect(&m_rcVScroll, pt)) {
        pInfo->wHit = HitTestBar(BARS[SB_VERT], m_rcVScroll, m_dwVStyle, pt);
    } else if (PtInRect(&m_rcHScroll, pt)) {
        pInfo->wHit = HitTestBar(BARS[SB_HORZ], m_rcHScroll, m_dwHStyle, pt);
    }
    return pInfo->wHit;
}

// Fixed behaviour: client coordinates, less the bars' own offset in the window. Flipped bars would be hit at
// other places than a host's own drawing of them shows.
POINTS GWndScroll::BarPoint(POINTS ptScreen) const
{
    POINT pt{ptScreen.x, ptScreen.y};
    ScreenToClient(m_hWnd, &pt);
    return {Wrap16(pt.x - m_rcHScroll.left), Wrap16(pt.y - m_rcVScroll.top)};
}

// --- The repeat timer

void GWndScroll::SendScroll(UINT uMessage, WORD wCode, WORD wPos)
{
    SendMessageW(m_hWnd, uMessage, MAKEWPARAM(wCode, wPos), reinterpret_cast<LPARAM>(m_hWnd));
}

void GWndScroll::StopTimer()
{
    if (s_dwTimer) {
        KillTimer(nullptr, s_dwTimer);
        s_dwTimer = 0;
    }
}

void GWndScroll::ScrollBarSetTimer()
{
    StopTimer();
    s_pScrollingWindow = this;
    s_dwTimer = SetTimer(nullptr, 0, s_dwScrollRepeatSpeed, ScrollBarTimerCallback);
    s_ullTimerTime = gesso::SystemTicks() + s_dwScrollRepeatDelay * gesso::TICKS_PER_MILLISECOND;
}

void CALLBACK GWndScroll::ScrollBarTimerCallback(HWND, UINT, UINT_PTR, DWORD)
{
    // A message of the timer that was waiting when the control went comes all the same.
    GWndScroll* pWindow = s_pScrollingWindow;
    if (!pWindow) {
        return;
    }
    // Where another window took the capture, the button is let go unseen: the bar would scroll on without
    // end.
    if (GetCapture() != pWindow->m_hWnd) {
        pWindow->StopTimer();
        return;
    }
    if (pWindow->m_hitDown.wHit != pWindow->m_hitNow.wHit || gesso::SystemTicks() <= s_ullTimerTime) {
        return;
    }
    const HWND hwnd = pWindow->m_hWnd;
    const WORD wHit = pWindow->m_hitDown.wHit;
    const WORD wCode = CodeOf(BARS[pWindow->BarOfHit(wHit)], wHit);
    if (wCode != NO_CODE) {
        // Fixed behaviour: a held arrow or track of the horizontal bar repeats as vertical scrolling. A
        // host's content would move sideways where it moves up or down today.
        pWindow->SendScroll(WM_VSCROLL, wCode);
    }
    // The thumb may have moved under the pointer.
    if (Frame::IsAlive(hwnd, pWindow)) {
        pWindow->ScrollBarHitTest(&pWindow->m_hitNow);
    }
}

// --- Messages

LRESULT GWndScroll::OnNcLButtonDown(UINT, POINTS ptScreen)
{
    if (!(Frame::Style(*this) & (WS_HSCROLL | WS_VSCROLL))) {
        return 0;
    }
    const POINTS pt = BarPoint(ptScreen);
    const HWND hwnd = m_hWnd;
    // Who had the capture is told of its loss, and may have destroyed the control.
    SetCapture(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Frame::SetState(*this, (m_dwState & ~GWS_NCTRACKING) | GWS_NCPRESSED);
    m_hitDown.pt = pt;
    if (!ScrollBarHitTest(&m_hitDown)) {
        return 0;
    }
    const int nBar = BarOfHit(m_hitDown.wHit);
    DrawScrollBar(nBar);
    if (IsThumb(m_hitDown.wHit)) {
        m_nTrackStart = BarOf(nBar).si.nPos;
        return 0;
    }
    ScrollBarSetTimer();
    SendScroll(BARS[nBar].uMessage, CodeOf(BARS[nBar], m_hitDown.wHit));
    return 0;
}

LRESULT GWndScroll::OnNcLButtonDblClk(UINT uHit, POINTS ptScreen)
{
    return OnNcLButtonDown(uHit, ptScreen);
}

LRESULT GWndScroll::OnNcMouseMove(UINT, POINTS ptScreen)
{
    const POINTS pt = BarPoint(ptScreen);
    // A press that has lost its capture is over.
    if ((m_dwState & GWS_NCPRESSED) && GetCapture() != m_hWnd) {
        Frame::ClearState(*this, GWS_NCPRESSED);
        if (s_pScrollingWindow == this) {
            StopTimer();
        }
        DrawBarOfHit(std::exchange(m_hitDown.wHit, WORD{0}));
    }
    if (!(m_dwState & (GWS_NCPRESSED | GWS_NCTRACKING))) {
        TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE | TME_NONCLIENT, m_hWnd, 0};
        TrackMouseEvent(&track);
        Frame::AddState(*this, GWS_NCTRACKING);
    }
    const WORD wFormer = m_hitNow.wHit;
    m_hitNow.pt = pt;
    const WORD wHit = ScrollBarHitTest(&m_hitNow);
    DrawBarOfHit(wHit);
    if (wFormer && (!wHit || BarOfHit(wFormer) != BarOfHit(wHit)) &&
        (Frame::Style(*this) & BARS[BarOfHit(wFormer)].dwWindowStyle))
    {
        DrawBarOfHit(wFormer);
    }
    if (IsThumb(m_hitDown.wHit)) {
        DragThumb(pt);
    }
    return 0;
}

void GWndScroll::DragThumb(POINTS pt)
{
    const int nBar = BarOfHit(m_hitDown.wHit);
    const bool fVertical = nBar == SB_VERT;
    const SCROLLINFO si = PlatformScrollInfo(m_hWnd, nBar);
    const int nLength =
        fVertical ? m_rcVScroll.bottom - m_rcVScroll.top : m_rcHScroll.right - m_rcHScroll.left;
    const int nMoved = fVertical ? pt.y - m_hitDown.pt.y : pt.x - m_hitDown.pt.x;
    const int nDelta =
        MulDiv(nMoved, gesso::RangeOf(si), gesso::ThumbOf(m_hWnd, BARS[nBar], nLength, si).nTrack);
    const int nLimit = gesso::RangeOf(si) - static_cast<int>(si.nPage) + 1;
    const int64_t nPos = int64_t{nDelta} + m_nTrackStart;
    SCROLLINFO& siOwn = BarOf(nBar).si;
    siOwn.nTrackPos = nPos < 0 ? 0 : static_cast<int>(std::min<int64_t>(nPos, nLimit));
    SendScroll(BARS[nBar].uMessage, SB_THUMBTRACK, static_cast<WORD>(siOwn.nTrackPos));
}

LRESULT GWndScroll::OnNcLButtonUp(UINT, POINTS)
{
    const HWND hwnd = m_hWnd;
    if (m_dwState & GWS_NCPRESSED) {
        Frame::ClearState(*this, GWS_NCPRESSED);
        // Sends WM_CAPTURECHANGED, in which a host that subclassed the control may destroy it.
        ReleaseCapture();
        if (Frame::IsAlive(hwnd, this) && IsThumb(m_hitDown.wHit)) {
            const int nBar = BarOfHit(m_hitDown.wHit);
            SendScroll(BARS[nBar].uMessage, SB_THUMBPOSITION, static_cast<WORD>(BarOf(nBar).si.nTrackPos));
        }
        // Fixed behaviour: the end of scrolling is told as vertical for both bars. A host that settles its
        // content on it would not hear of the horizontal end.
        if (Frame::IsAlive(hwnd, this)) {
            SendScroll(WM_VSCROLL, SB_ENDSCROLL);
        }
    }
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    StopTimer();
    DrawBarOfHit(std::exchange(m_hitDown.wHit, WORD{0}));
    return 0;
}

LRESULT GWndScroll::OnNcMouseLeave()
{
    if (m_dwState & GWS_NCTRACKING) {
        Frame::ClearState(*this, GWS_NCTRACKING);
        DrawBarOfHit(std::exchange(m_hitNow.wHit, WORD{0}));
    }
    return 0;
}
