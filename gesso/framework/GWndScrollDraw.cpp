// Painting of the bars.

#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ThemePart.h>

using gesso::BARS;
using gesso::BarTraits;
using gesso::PlainPart;
using gesso::ThemePart;

namespace {

// Arrow states follow one another as normal, hot, pressed, disabled.
constexpr int ARROW_HOT = 1;
constexpr int ARROW_PRESSED = 2;
constexpr int ARROW_DISABLED = 3;

// The rectangles of a bar's elements, in the bar's own system of coordinates.
struct BarLayout
{
    RECT rcTrack, rcFirst, rcLast, rcThumb;
};

// A stretch of the bar from one distance to another along its axis.
RECT Stretch(const RECT& rc, bool fVertical, int nFrom, int nTo)
{
    return fVertical ? RECT{rc.left, rc.top + nFrom, rc.right, rc.top + nTo}
                     : RECT{rc.left + nFrom, rc.top, rc.left + nTo, rc.bottom};
}

BarLayout LayOut(HWND hwnd, const BarTraits& traits, const RECT& rc, const SCROLLINFO& si)
{
    const bool fVertical = &traits == &BARS[SB_VERT];
    const int nLength = fVertical ? rc.bottom - rc.top : rc.right - rc.left;
    const int nArrow = gesso::SystemMetric(hwnd, traits.nArrowMetric);
    const gesso::Thumb thumb = gesso::ThumbOf(hwnd, traits, nLength, si);
    const int nThumb = nArrow + thumb.nOffset;
    return {Stretch(rc, fVertical, nArrow, nLength - nArrow), Stretch(rc, fVertical, 0, nArrow),
            Stretch(rc, fVertical, nLength - nArrow, nLength),
            Stretch(rc, fVertical, nThumb, nThumb + thumb.nLength)};
}

} // namespace

// An idle bar draws its arrows as disabled; they come up when the pointer enters the bar.
int GWndScroll::ArrowState(int nBar, bool fLast) const
{
    const BarTraits& traits = BARS[nBar];
    const DWORD dwFlags = nBar == SB_VERT ? m_dwVStyle : m_dwHStyle;
    const WORD wArrow = fLast ? traits.wLast : traits.wFirst;
    const int nNormal = fLast ? traits.nLastArrowState : traits.nFirstArrowState;
    const bool fDownInBar = m_hitDown.wHit & traits.wMask;
    const bool fNowInBar = m_hitNow.wHit & traits.wMask;
    if ((!fDownInBar && !fNowInBar) ||
        (dwFlags & (GSB_DISABLED | (fLast ? GSB_DISABLE_LAST : GSB_DISABLE_FIRST))))
    {
        return nNormal + ARROW_DISABLED;
    }
    if (m_hitDown.wHit == wArrow) {
        return nNormal + (m_hitNow.wHit == wArrow ? ARROW_PRESSED : ARROW_HOT);
    }
    if (m_hitNow.wHit == wArrow && !fDownInBar) {
        return nNormal + ARROW_HOT;
    }
    if (fNowInBar) {
        return fLast ? traits.nLastHoverState : traits.nFirstHoverState;
    }
    return nNormal;
}

int GWndScroll::ThumbState(int nBar) const
{
    const BarTraits& traits = BARS[nBar];
    const DWORD dwFlags = nBar == SB_VERT ? m_dwVStyle : m_dwHStyle;
    const bool fDownInBar = m_hitDown.wHit & traits.wMask;
    const bool fNowInBar = m_hitNow.wHit & traits.wMask;
    if ((!fDownInBar && !fNowInBar) || (dwFlags & (GSB_DISABLED | GSB_DISABLE_THUMB))) {
        return SCRBS_NORMAL;
    }
    if (m_hitDown.wHit == traits.wThumb) {
        return SCRBS_PRESSED;
    }
    if (m_hitNow.wHit == traits.wThumb && !fDownInBar) {
        return SCRBS_HOT;
    }
    return fNowInBar ? SCRBS_HOVER : SCRBS_NORMAL;
}

void GWndScroll::DrawBar(HDC hdc, int nBar)
{
    const BarTraits& traits = BARS[nBar];
    const Bar bar = BarOf(nBar);
    if (!Shows(traits, bar.dwFlags)) {
        return;
    }
    const BarLayout layout = LayOut(m_hWnd, traits, nBar == SB_VERT ? m_rcVScroll : m_rcHScroll, bar.si);
    const auto draw = [&](int nPart, int nState, PlainPart plain, const RECT& rc) {
        ThemePart(m_hThemeScroll, hdc, nPart, nState, plain).DrawBackground(rc);
    };
    draw(traits.nTrackPart, bar.dwFlags & GSB_DISABLED ? SCRBS_DISABLED : SCRBS_NORMAL,
         PlainPart::ScrollTrack, layout.rcTrack);
    draw(SBP_ARROWBTN, ArrowState(nBar, false), PlainPart::ScrollArrow, layout.rcFirst);
    draw(SBP_ARROWBTN, ArrowState(nBar, true), PlainPart::ScrollArrow, layout.rcLast);
    draw(traits.nThumbPart, ThumbState(nBar), PlainPart::ScrollThumb, layout.rcThumb);
    draw(traits.nGripperPart, ThumbState(nBar), PlainPart::ScrollGripper, layout.rcThumb);
}

void GWndScroll::DrawHScrollBar(HDC hdc)
{
    DrawBar(hdc, SB_HORZ);
}

void GWndScroll::DrawVScrollBar(HDC hdc)
{
    DrawBar(hdc, SB_VERT);
}

void GWndScroll::DrawScrollBar(HDC hdc, DWORD dwStyle)
{
    if (dwStyle & WS_VSCROLL) {
        DrawVScrollBar(hdc);
    }
    if (dwStyle & WS_HSCROLL) {
        DrawHScrollBar(hdc);
    }
    if ((dwStyle & WS_VSCROLL) && (dwStyle & WS_HSCROLL)) {
        RECT rcCorner{m_rcVScroll.left, m_rcHScroll.top, m_rcVScroll.right, m_rcHScroll.bottom};
        DrawThemeParentBackground(m_hWnd, hdc, &rcCorner);
    }
}

// Draws into a bitmap of the bar's size, and copies that to the bar's place.
void GWndScroll::DrawBarNow(HDC hdcWindow, HDC hdcMemory, int nBar)
{
    const RECT& rc = nBar == SB_VERT ? m_rcVScroll : m_rcHScroll;
    if (!Shows(BARS[nBar], BarOf(nBar).dwFlags)) {
        return;
    }
    const int cx = rc.right - rc.left;
    const int cy = rc.bottom - rc.top;
    const HGDIOBJ hFormer = SelectObject(hdcMemory, CreateCompatibleBitmap(hdcWindow, cx, cy));
    SetWindowOrgEx(hdcMemory, rc.left, rc.top, nullptr);
    DrawBar(hdcMemory, nBar);
    BitBlt(hdcWindow, rc.left, rc.top, cx, cy, hdcMemory, rc.left, rc.top, SRCCOPY);
    DeleteObject(SelectObject(hdcMemory, hFormer));
}

void GWndScroll::DrawScrollBar(int nWhich)
{
    // To the platform a null window means the screen.
    if (!m_hWnd) {
        return;
    }
    const HDC hdcWindow = GetWindowDC(m_hWnd);
    const HDC hdcMemory = CreateCompatibleDC(hdcWindow);
    if (nWhich == SB_VERT || nWhich == SB_BOTH) {
        DrawBarNow(hdcWindow, hdcMemory, SB_VERT);
    }
    if (nWhich == SB_HORZ || nWhich == SB_BOTH) {
        DrawBarNow(hdcWindow, hdcMemory, SB_HORZ);
    }
    DeleteDC(hdcMemory);
    ReleaseDC(m_hWnd, hdcWindow);
}

void GWndScroll::DrawBarOfHit(WORD wHit)
{
    if (wHit) {
        DrawScrollBar(BarOfHit(wHit));
    }
}
