// What the scroll bars and the wheel do with the view.

#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
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
    const auto now = [&] { return nBar == SB_VERT ? m_siV.nPos + Origin() : int64_t{m_siH.nPos}; };
    const int64_t former = now();
    if (nBar == SB_VERT) {
        position = StoreTop(position);
    }
    if (HasExactBars()) {
        const POINT& last = m_inside->lastPos;
        position = std::min<int64_t>(position, nBar == SB_VERT ? last.y : last.x);
    }
    GWndScroll::SetScrollPos(nBar, Saturated(position), 1);
    m_inside->untold.fScrolled = m_inside->untold.fScrolled || now() != former;
    PlaceRenaming();
    if (HasExactPlaces()) {
        RenewHot();
    }
    RenewBand();
}

void GList::RedrawAll()
{
    // To the platform a null window means the desktop.
    if (m_hWnd) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
    PlaceRenaming();
}

// A drag that selects goes on meanwhile.
LRESULT GList::OnVScroll(UINT code, UINT position, HWND)
{
    if (IsVirtual() && code == SB_THUMBTRACK) {
        ScrollTo(SB_VERT, PlaceOfThumb(position));
    } else if (const auto target = Target(BarInPixels(), code, gesso::TrackedPos(*this, m_siV, position),
                                          itemHeight + headerArea))
    {
        ScrollTo(SB_VERT, *target);
    }
    Invalidate(0);
    TellSelection();
    return 0;
}

// Fixed behaviour: a line across is as wide as an item is high. Positions after a click on an arrow would
// else change.
LRESULT GList::OnHScroll(UINT code, UINT position, HWND)
{
    const bool fTold = IsVirtual() && LOWORD(m_siH.nTrackPos) == position && m_siH.nTrackPos >= 0;
    const UINT thumb = fTold ? static_cast<UINT>(m_siH.nTrackPos) : gesso::TrackedPos(*this, m_siH, position);
    if (const auto target = Target(m_siH, code, thumb, itemHeight)) {
        ScrollTo(SB_HORZ, *target);
    }
    Invalidate(0);
    TellSelection();
    return 0;
}

LRESULT GList::OnMouseWheel(UINT, int delta, POINTS)
{
    ScrollByWheel(SB_VERT, delta);
    TellSelection();
    return 0;
}

void GList::ScrollByWheel(int nBar, int delta)
{
    const SCROLLINFO& si = nBar == SB_VERT ? m_siV : m_siH;
    const auto target = HasExactBars() ? si.nPos - gesso::WheelTravel(*this, si, delta)
                                       : gesso::WheelTarget(*this, si, delta);
    if (target && *target != si.nPos) {
        ScrollTo(nBar, *target);
        RedrawAll();
        RenewHot();
    }
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
