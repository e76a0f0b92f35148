// What the mouse does with the bars.
//
// A press on an arrow or the track sends one scroll message at once and starts the repeat timer; a press on
// the thumb starts a drag. The window holds the capture meanwhile. Every message goes to the control's own
// window, whose handler may end in the control's destruction: it is sent last, or the window is looked at
// again.

#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ScrollRepeat.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <utility>

using gesso::BARS;
using gesso::BarTraits;
using gesso::Frame;
using gesso::Has;
using gesso::Quirk;

namespace {

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

// As MulDiv rounds, which is -1 where its number does not hold the result, and so far in a long range.
int64_t Scaled(int n, int nNumerator, int nDenominator)
{
    if (nDenominator == 0) {
        return -1;
    }
    const int64_t nProduct = int64_t{n} * nNumerator;
    const int64_t nDivisor = std::abs(int64_t{nDenominator});
    const int64_t nRounded = (std::abs(nProduct) + nDivisor / 2) / nDivisor;
    return (nProduct < 0) == (nDenominator < 0) ? nRounded : -nRounded;
}

// What the repeat and the end of a press on a part of a bar are sent as.
//
// Fixed behaviour: in Classic as vertical scrolling, of both bars. A host's content would move sideways where
// it moves up or down today, and one that settles its content at the end would not hear of it.
UINT MessageOfPart(const GWnd& wnd, WORD wHit)
{
    const bool fAcross = (wHit & SBH_HORIZONTAL) && !Has(wnd, Quirk::BarAcrossSpeaksDown);
    return fAcross ? WM_HSCROLL : WM_VSCROLL;
}

} // namespace

// --- Hit-testing

int GWndScroll::BarOfHit(WORD wHit) const
{
    return wHit & SBH_VERTICAL ? SB_VERT : SB_HORZ;
}

WORD GWndScroll::HitTestBar(int nBar, DWORD dwFlags, POINT pt) const
{
    if (dwFlags & (GSB_DISABLED | GSB_HIDDEN)) {
        return 0;
    }
    const BarTraits& traits = BARS[nBar];
    const RECT& rc = RectOf(nBar);
    gesso::BarStops stops = gesso::StopsOf(m_hWnd, traits, rc, PlatformScrollInfo(m_hWnd, nBar));
    stops.nArrow = gesso::SystemMetric(m_hWnd, traits.nHitArrowMetric);
    const int nAt = gesso::IsVertical(traits) ? pt.y - rc.top : pt.x - rc.left;
    const WORD wPart = gesso::PartAt(traits, stops, nAt);
    return dwFlags & gesso::RuleOf(traits, wPart).uDisabledBy ? WORD{0} : wPart;
}

WORD GWndScroll::ScrollBarHitTest(ScrollBarHitTestInfo* pInfo) const
{
    const POINT pt{pInfo->pt.x, pInfo->pt.y};
    pInfo->wHit = 0;
    if (PtInRect(&m_rcVScroll, pt)) {
        pInfo->wHit = HitTestBar(SB_VERT, m_dwVStyle, pt);
    } else if (PtInRect(&m_rcHScroll, pt)) {
        pInfo->wHit = HitTestBar(SB_HORZ, m_dwHStyle, pt);
    }
    return pInfo->wHit;
}

// In Modern of the window.
//
// Fixed behaviour: in Classic client coordinates, less the bars' own offset in the window. Flipped bars would
// be hit at other places than a host's own drawing of them shows.
POINTS GWndScroll::BarPoint(POINTS ptScreen) const
{
    if (!Has(*this, Quirk::BarHitsBeside)) {
        RECT rc{};
        GetWindowRect(m_hWnd, &rc);
        const int64_t x =
            gesso::IsMirrored(m_hWnd) ? int64_t{rc.right} - 1 - ptScreen.x : int64_t{ptScreen.x} - rc.left;
        return {Wrap16(gesso::Wrapped(x)), Wrap16(gesso::Wrapped(int64_t{ptScreen.y} - rc.top))};
    }
    POINT pt{ptScreen.x, ptScreen.y};
    ScreenToClient(m_hWnd, &pt);
    return {Wrap16(pt.x - m_rcHScroll.left), Wrap16(pt.y - m_rcVScroll.top)};
}

// --- The repeat timer

void GWndScroll::SendScroll(UINT uMessage, WORD wCode, WORD wPos)
{
    SendMessageW(m_hWnd, uMessage, MAKEWPARAM(wCode, wPos), reinterpret_cast<LPARAM>(m_hWnd));
}

gesso::ScrollRepeat<GWndScroll> GWndScroll::Repeat()
{
    static constinit thread_local gesso::RepeatState<GWndScroll> s_own;
    return {s_own, s_pScrollingWindow, s_dwTimer, s_ullTimerTime};
}

void GWndScroll::ScrollBarSetTimer()
{
    const DWORD dwDelay = std::atomic_ref(s_dwScrollRepeatDelay);
    Repeat().Start(*this, std::atomic_ref(s_dwScrollRepeatSpeed),
                   gesso::SystemTicks() + dwDelay * gesso::TICKS_PER_MILLISECOND, ScrollBarTimerCallback);
}

void CALLBACK GWndScroll::ScrollBarTimerCallback(HWND, UINT, UINT_PTR, DWORD)
{
    // A message of the timer that was waiting when the control went comes all the same.
    GWndScroll* pWindow = Repeat().own.pBar;
    if (!pWindow) {
        return;
    }
    // Where another window took the capture, the button is let go unseen: the bar would scroll on without
    // end.
    if (GetCapture() != pWindow->m_hWnd) {
        Repeat().Stop();
        return;
    }
    if (pWindow->m_hitDown.wHit != pWindow->m_hitNow.wHit || gesso::SystemTicks() <= Repeat().own.time) {
        return;
    }
    const HWND hwnd = pWindow->m_hWnd;
    const WORD wHit = pWindow->m_hitDown.wHit;
    const WORD wCode = gesso::RuleOf(BARS[pWindow->BarOfHit(wHit)], wHit).wScrollCode;
    if (wCode != gesso::NO_SCROLL_CODE) {
        pWindow->SendScroll(MessageOfPart(*pWindow, wHit), wCode);
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
    SendScroll(BARS[nBar].uMessage, gesso::RuleOf(BARS[nBar], m_hitDown.wHit).wScrollCode);
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
        if (Repeat().IsOf(*this)) {
            Repeat().Stop();
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
    const SCROLLINFO si = PlatformScrollInfo(m_hWnd, nBar);
    const int nMoved = nBar == SB_VERT ? pt.y - m_hitDown.pt.y : pt.x - m_hitDown.pt.x;
    const int nLength = gesso::LengthOf(BARS[nBar], RectOf(nBar));
    const int nTrack = gesso::ThumbOf(m_hWnd, BARS[nBar], nLength, si).nTrack;
    const int64_t nDelta = Scaled(nMoved, gesso::RangeOf(si), nTrack);
    const int nLimit = gesso::Wrapped(int64_t{gesso::RangeOf(si)} - static_cast<int>(si.nPage) + 1);
    const int64_t nPos = nDelta + m_nTrackStart;
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
        if (Frame::IsAlive(hwnd, this)) {
            SendScroll(MessageOfPart(*this, m_hitDown.wHit), SB_ENDSCROLL);
        }
    }
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Repeat().Stop();
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
