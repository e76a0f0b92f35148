// What the scroll bars and the wheel do with the view.

#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/list/GList.h>

#include <optional>

using gesso::Saturated;

namespace {

// Where a code leads: the thumb counts while it is dragged alone.
std::optional<int64_t> Target(const SCROLLINFO& si, UINT code, UINT position, UINT line)
{
    return code == SB_THUMBPOSITION ? std::nullopt : gesso::ScrollTarget(si, code, position, line);
}

} // namespace

void GList::ScrollTo(int nBar, int64_t position)
{
    GWndScroll::SetScrollPos(nBar, Saturated(position), 1);
    PlaceRenaming();
}

void GList::RedrawAll()
{
    // To the platform a null window means the desktop.
    if (m_hWnd) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
    PlaceRenaming();
}

LRESULT GList::OnVScroll(UINT code, UINT position, HWND)
{
    if (const auto target = Target(m_siV, code, position, itemHeight + headerArea)) {
        ScrollTo(SB_VERT, *target);
    }
    Invalidate(0);
    return 0;
}

// Fixed behaviour: a line across is as wide as an item is high. Positions after a click on an arrow would
// else change.
LRESULT GList::OnHScroll(UINT code, UINT position, HWND)
{
    if (const auto target = Target(m_siH, code, position, itemHeight)) {
        ScrollTo(SB_HORZ, *target);
    }
    Invalidate(0);
    return 0;
}

LRESULT GList::OnMouseWheel(UINT, int delta, POINTS)
{
    const auto target = gesso::WheelTarget(m_hWnd, m_siV, delta);
    if (!target) {
        return 0;
    }
    ScrollTo(SB_VERT, *target);
    RedrawAll();
    RenewHot();
    return 0;
}

// The rows have moved under the pointer.
void GList::RenewHot()
{
    if (m_dwState & GWS_TRACKING) {
        HitTestInfo hit = hitHot;
        HitTest(&hit);
        ChangeHot(hit);
    }
}
