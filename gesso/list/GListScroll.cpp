// What the scroll bars and the wheel do with the view.

#include <gesso/list/GList.h>
#include <gesso/list/Saturate.h>

#include <algorithm>

using gesso::Saturated;

namespace {

constexpr int WHEEL_NOTCH = 120;
constexpr int WHEEL_LINE = 20; // pixels, whatever the items' height: hosts rely on it

// The position that a scroll code leads to; false for a code that leads nowhere.
bool Target(const SCROLLINFO& si, UINT code, UINT position, UINT lineStep, int64_t* target)
{
    const int64_t page = int64_t{si.nPage} * 5 / 6;
    switch (code) {
    case SB_LINEUP: *target = si.nPos - int64_t{lineStep}; return true;
    case SB_LINEDOWN: *target = si.nPos + int64_t{lineStep}; return true;
    case SB_PAGEUP: *target = si.nPos - page; return true;
    case SB_PAGEDOWN: *target = si.nPos + page; return true;
    case SB_THUMBTRACK: *target = position; return true;
    default: return false;
    }
}

UINT WheelLines()
{
    UINT lines = 1;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines;
}

} // namespace

void GList::ScrollTo(int nBar, int64_t position)
{
    GWndScroll::SetScrollPos(nBar, Saturated(position), 1);
}

void GList::RedrawAll()
{
    // To the platform a null window means the desktop.
    if (m_hWnd) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
}

LRESULT GList::OnVScroll(UINT code, UINT position, HWND)
{
    int64_t target = 0;
    if (Target(m_siV, code, position, itemHeight + headerArea, &target)) {
        ScrollTo(SB_VERT, target);
    }
    Invalidate(0);
    return 0;
}

// A line across is as wide as an item is high: hosts rely on it.
LRESULT GList::OnHScroll(UINT code, UINT position, HWND)
{
    int64_t target = 0;
    if (Target(m_siH, code, position, itemHeight, &target)) {
        ScrollTo(SB_HORZ, target);
    }
    Invalidate(0);
    return 0;
}

LRESULT GList::OnMouseWheel(UINT, int delta, POINTS)
{
    if (int64_t{m_siV.nPage} >= int64_t{m_siV.nMax} - m_siV.nMin) {
        return 0;
    }
    ScrollTo(SB_VERT, m_siV.nPos - int64_t{delta / WHEEL_NOTCH} * WheelLines() * WHEEL_LINE);
    RedrawAll();
    if (m_dwState & GWS_TRACKING) {
        HitTest(&hitHot);
    }
    return 0;
}
