// What the mouse does in Modern besides: the right button, and the rectangle that a drag from empty room
// draws.

#include <gesso/containers/Index.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::LIS_KEPT;
using gesso::LIS_TOUCHED;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::Saturated;
using gesso::SystemMetric;

namespace {

constexpr UINT BAND_PERIOD = 50; // milliseconds between the steps of a drag that rests beyond the rows

// A number that no host's timer has.
UINT_PTR TimerOf(const gesso::ListBand& band)
{
    return reinterpret_cast<UINT_PTR>(&band);
}

gesso::VirtualRows::Area BandArea(const gesso::ListBand& band)
{
    return {std::min(band.start.x, band.end.x), std::min(band.start.y, band.end.y),
            std::max(band.start.x, band.end.x) + 1, std::max(band.start.y, band.end.y) + 1};
}

} // namespace

// --- Clicks

void GList::ModernClick(const HitTestInfo& hit)
{
    const WORD mods = ModifierKeys();
    if (hit.item != NO_INDEX) {
        gesso::ListInside::ClickItem(*this, hit, mods);
        return;
    }
    if (mods == 0) {
        SelectNone();
    }
    TellSelection();
}

// What a menu is for: the item under the pointer, with those selected besides if it is one of them. With Ctrl
// nothing is unselected.
void GList::SelectForMenu(const HitTestInfo& hit)
{
    const bool fKeep = ModifierKeys() & KEYMOD_CTRL;
    if (hit.item == NO_INDEX && !fKeep) {
        SelectNone();
    }
    if (hit.item < LHI_HEADER) {
        if (!GetSelected(hit.item)) {
            fKeep ? Select(hit.item) : SelectOnly(hit.item);
        }
        PutCursor(hit.item);
    }
    Invalidate(0);
}

// The press selects; the release tells, and asks for a menu if the parent has none of its own.
LRESULT GList::OnRightButton(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const HWND hwnd = m_hWnd;
    if (Has(*this, Quirk::ListRightClickIgnored)) {
        return Frame::Default(hwnd, uMsg, wParam, lParam);
    }
    const gesso::Watch watch(*this);
    if (uMsg != WM_RBUTTONUP) {
        SetFocus(hwnd);
    }
    if (!watch) {
        return 0;
    }
    HitTestInfo hit{};
    hit.pt = gesso::PointOf(lParam);
    HitTest(&hit);
    SelectForMenu(hit);
    if (!TellSelection() || uMsg == WM_RBUTTONDOWN) {
        return 0;
    }
    hit.item = hit.item == LHI_HEADER ? NO_INDEX : hit.item;
    const bool fDouble = uMsg == WM_RBUTTONDBLCLK;
    if (SendItemNotify(static_cast<UINT>(fDouble ? NM_RDBLCLK : NM_RCLICK), hit) || fDouble || !watch) {
        return 0;
    }
    return Frame::Default(hwnd, uMsg, wParam, lParam);
}

// --- The wheel that tilts

LRESULT GList::OnMouseHWheel(int delta)
{
    if (!Has(*this, Quirk::ListTiltIgnored)) {
        ScrollByWheel(SB_HORZ, -delta);
        TellSelection();
    }
    return 0;
}

// --- The rectangle

// A point of the client area among the rows.
gesso::ListPlace GList::InRows(POINTS pt) const
{
    return {int64_t{pt.x} + m_siH.nPos, int64_t{pt.y} + m_siV.nPos + Origin() - headerArea};
}

void GList::StartBand(POINTS pt)
{
    const gesso::ListPlace start = InRows(pt);
    m_inside->band = {true, false, start, start, pt};
    const bool fKeep = ModifierKeys() & KEYMOD_CTRL;
    if (gesso::VirtualList* list = Virtual()) {
        list->kept = {};
        m_inside->band.fBegun = !fKeep || list->kept.Copy(list->selected);
    }
    for (ListItem* item : items) {
        const bool fKept = fKeep && (item->state & LIS_SELECTED);
        item->state = fKept ? item->state | LIS_KEPT : item->state & ~LIS_KEPT;
    }
}

void GList::MoveBand(POINTS pt)
{
    gesso::ListBand& band = m_inside->band;
    band.fOn = band.fOn || std::abs(pt.x - hitPress.pt.x) > SystemMetric(m_hWnd, SM_CXDRAG) ||
               std::abs(pt.y - hitPress.pt.y) > SystemMetric(m_hWnd, SM_CYDRAG);
    if (!band.fOn) {
        return;
    }
    band.pt = pt;
    ScrollToward(pt);
    RenewBand();
    RedrawAll();
    TellSelection();
}

// After a scroll the pointer, where it rests, is over other rows.
void GList::RenewBand()
{
    gesso::ListBand& band = m_inside->band;
    if (band.fOn) {
        band.end = InRows(band.pt);
        SelectInBand();
    }
}

void GList::EndBand()
{
    if (m_inside->band.fOn) {
        KillTimer(m_hWnd, TimerOf(m_inside->band));
    }
    m_inside->band = {};
}

// Whether the timer is the drag's own. A pointer that rests beyond the rows scrolls on.
bool GList::TakesTimer(WPARAM timer)
{
    const gesso::ListBand& band = m_inside->band;
    if (timer != TimerOf(band)) {
        return false;
    }
    if (band.fOn) {
        MoveBand(band.pt);
    }
    return true;
}

// A line toward a pointer that has left the rows.
void GList::ScrollToward(POINTS pt)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const auto step = [this](int at, int64_t first, int64_t end) {
        return at < first ? -int64_t{itemHeight} : at >= end ? int64_t{itemHeight} : 0;
    };
    const int64_t down = step(pt.y, headerArea, rc.bottom);
    const int64_t across = step(pt.x, 0, rc.right);
    if (down || across) {
        SetTimer(m_hWnd, TimerOf(m_inside->band), BAND_PERIOD, nullptr);
    } else {
        KillTimer(m_hWnd, TimerOf(m_inside->band));
    }
    if (down) {
        ScrollTo(SB_VERT, m_siV.nPos + down);
    }
    if (across) {
        ScrollTo(SB_HORZ, m_siH.nPos + across);
    }
}

void GList::SelectInBand()
{
    const gesso::VirtualRows::Area area = BandArea(m_inside->band);
    if (gesso::VirtualList* list = Virtual()) {
        gesso::IndexRanges wanted;
        if (!wanted.Copy(list->kept)) {
            return;
        }
        if (!list->rows.VisitTouched(area, [&wanted](UINT first, UINT end) { wanted.Add(first, end); })) {
            return; // more ranges than a drag is worth: what was selected last stays
        }
        const auto change = list->selected.DifferenceTo(wanted);
        list->selected = std::move(wanted);
        m_inside->selection.Note(change);
        return;
    }
    for (const stcElementPosition& row : elements) {
        const bool fTouched = row.rect.left < area.right && area.left < row.rect.right &&
                              row.rect.top < area.bottom && area.top < row.rect.bottom;
        if (ListItem* item = fTouched && row.type == LET_ITEM ? ItemAt(row.index) : nullptr) {
            item->state |= LIS_TOUCHED;
        }
    }
    for (UINT i = 0; i < items.GetLength(); ++i) {
        ChangeSelection(i, i, (items[i]->state & (LIS_KEPT | LIS_TOUCHED)) != 0);
        items[i]->state &= ~LIS_TOUCHED;
    }
}

void GList::DrawBand(HDC hdc) const
{
    const gesso::ListBand& band = m_inside->band;
    if (!band.fOn) {
        return;
    }
    const gesso::VirtualRows::Area area = BandArea(band);
    const int64_t dx = -int64_t{m_siH.nPos};
    const int64_t dy = int64_t{headerArea} - m_siV.nPos - Origin();
    const RECT rc{Saturated(area.left + dx), Saturated(area.top + dy), Saturated(area.right + dx),
                  Saturated(area.bottom + dy)};
    gesso::DrawFocusFrame(m_hWnd, hdc, rc, ColorOf(gesso::ColorRole::WindowText));
}
