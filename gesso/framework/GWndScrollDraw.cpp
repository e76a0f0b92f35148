// Painting of the bars.

#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/ScrollBarLook.h>

using gesso::BARS;
using gesso::BarTraits;

void GWndScroll::DrawBar(HDC hdc, int nBar)
{
    const BarTraits& traits = BARS[nBar];
    const Bar bar = BarOf(nBar);
    if (!Shows(traits, bar.dwFlags)) {
        return;
    }
    const RECT& rc = RectOf(nBar);
    gesso::DrawBarParts(m_hWnd, hdc, m_hThemeScroll, traits,
                        gesso::LayOutBar(traits, rc, gesso::StopsOf(m_hWnd, traits, rc, bar.si)),
                        gesso::StatesOf(traits, {m_hitDown.wHit, m_hitNow.wHit}, bar.dwFlags, true));
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
void GWndScroll::DrawBarNow(HDC hdcWindow, int nBar)
{
    const RECT& rc = RectOf(nBar);
    if (!Shows(BARS[nBar], BarOf(nBar).dwFlags)) {
        return;
    }
    const int cx = rc.right - rc.left;
    const int cy = rc.bottom - rc.top;
    // The context goes first, so that it holds the bitmap no more, whatever failed.
    const gesso::BitmapScope bitmap(CreateCompatibleBitmap(hdcWindow, cx, cy));
    const gesso::MemoryContext hdcMemory(hdcWindow);
    const gesso::SelectScope selection(hdcMemory, bitmap);
    gesso::TakeLayout(hdcMemory, hdcWindow);
    gesso::ShiftOrigin(hdcMemory, {rc.left, rc.top});
    DrawBar(hdcMemory, nBar);
    BitBlt(hdcWindow, rc.left, rc.top, cx, cy, hdcMemory, rc.left, rc.top, SRCCOPY);
}

void GWndScroll::DrawScrollBar(int nWhich)
{
    // To the platform a null window means the screen.
    if (!m_hWnd || !gesso::Frame::Redraws(m_hWnd)) {
        return;
    }
    const gesso::FrameContext hdcWindow(m_hWnd);
    if (nWhich == SB_VERT || nWhich == SB_BOTH) {
        DrawBarNow(hdcWindow, SB_VERT);
    }
    if (nWhich == SB_HORZ || nWhich == SB_BOTH) {
        DrawBarNow(hdcWindow, SB_HORZ);
    }
}

void GWndScroll::DrawBarOfHit(WORD wHit)
{
    if (wHit) {
        DrawScrollBar(BarOfHit(wHit));
    }
}
