// What a point hits, and what the mouse does.

#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/list/GList.h>
#include <gesso/list/Saturate.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::Saturated;
using gesso::SystemMetric;
namespace Metrics = gesso::Metrics;

namespace {

constexpr WORD NO_PART = 0xFFFF;
constexpr UINT FIRST_MARK = static_cast<UINT>(-3); // from it on a hit's item is a mark and no index

void SetHit(GList::HitTestInfo* pInfo, UINT item, WORD subItem, WORD part)
{
    pInfo->item = item;
    pInfo->subItem = subItem;
    pInfo->part = part;
}

// Fixed behaviour: a place in the content has 16 bits: further down or right than that, a point hits what
// lies at the rest of the place. GetHotItem and the item of a click would else change in lists of many rows.
SHORT Wrap16(int64_t n)
{
    return static_cast<SHORT>(n);
}

} // namespace

// --- Hit-testing

void GList::HitTest(HitTestInfo* pInfo) const
{
    pInfo->reserved = NO_INDEX;
    SetHit(pInfo, NO_INDEX, NO_PART, NO_PART);
    const POINTS pt = pInfo->pt;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    if (items.GetLength() == 0 || pt.x < 0 || pt.y < 0 || pt.x > rc.right || pt.y > rc.bottom) {
        return;
    }
    const int x = Wrap16(int64_t{pt.x} + m_siH.nPos);
    if (static_cast<UINT>(pt.y) < headerArea) {
        HitTestHeader(pInfo, x);
    } else {
        HitTestRows(pInfo, x, Wrap16(int64_t{pt.y} + m_siV.nPos - headerArea));
    }
}

// The element at x, of which each ends where the next one, moved on by `reach`, begins.
WORD GList::CellAt(int x, int reach) const
{
    UINT cell = 0;
    while (cell + 1 < columnDraw.GetLength() && x > int64_t{columnDraw[cell + 1].rect.left} + reach) {
        ++cell;
    }
    return static_cast<WORD>(cell);
}

// Fixed behaviour: the far half of the last divider is out of reach, so that a click there does nothing.
void GList::HitTestHeader(HitTestInfo* pInfo, int x) const
{
    pInfo->item = LHI_HEADER;
    const UINT cells = columnDraw.GetLength();
    if (cells == 0 || x > columnDraw[cells - 1].rect.right) {
        return;
    }
    const int reach = Pixels(m_hWnd, Metrics::LIST_DIVIDER_REACH);
    const WORD cell = CellAt(x, reach);
    const int64_t right = columnDraw[cell].rect.right;
    const bool fDivider = x > right - reach && x < right + reach;
    SetHit(pInfo, LHI_HEADER, cell, fDivider ? LHP_DIVIDER : LHP_BODY);
}

void GList::HitTestRows(HitTestInfo* pInfo, int x, int y) const
{
    const auto holds = [y](const RECT& rc) { return rc.top < y && y <= rc.bottom; };
    for (UINT k = FirstRowReaching(y); k < elements.GetLength(); ++k) {
        const stcElementPosition& element = elements[k];
        if (m_fStacked && element.rect.top >= y) {
            return;
        }
        if (holds(element.rect) && HitTestRow(pInfo, k, x)) {
            return;
        }
    }
}

// Whether the row ends the search, with or without a hit.
bool GList::HitTestRow(HitTestInfo* pInfo, UINT row, int x) const
{
    const stcElementPosition& element = elements[row];
    const RECT& rc = element.rect;
    if (element.type == LET_GROUP) {
        // Fixed behaviour: the group's index stands where an item's does, so that the pointer on a group's
        // row acts on the item of that number. Clicks on group rows would else send no NM_CLICK.
        if (x <= rc.right && element.index < groups.GetLength()) {
            SetHit(pInfo, element.index, NO_PART, LHP_BODY);
        }
        return true;
    }
    const bool fItem = element.index < items.GetLength();
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS) {
        // Fixed behaviour: the comparisons let no icon be hit while it lies where its elements do, and beyond
        // the three elements of an icon nothing is hit. Icons would else light up, and clicks on them tell.
        const bool fHit =
            fItem && row < columnDraw.GetLength() && columnDraw[row].rect.left >= x && rc.right < x;
        if (fHit) {
            SetHit(pInfo, element.index, NO_PART, LHP_BODY);
        }
        return fHit;
    }
    if (x <= rc.right && fItem) {
        HitTestCell(pInfo, element.index, x);
    }
    return true;
}

void GList::HitTestCell(HitTestInfo* pInfo, UINT item, int x) const
{
    const UINT cells = columnDraw.GetLength();
    if ((listStyle & GLS_CHECKBOXES) && cells > 0 && x < columnDraw[0].rect.left) {
        SetHit(pInfo, item, NO_PART, LHP_CHECKBOX);
    } else {
        SetHit(pInfo, item, CellAt(x, 0), LHP_BODY);
    }
}

// --- Pressing

LRESULT GList::OnLButtonDown(WPARAM, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    SetFocus(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    SetCapture(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Frame::AddState(*this, GWS_PRESSED);
    Invalidate(0);
    hitPress.pt = pt;
    HitTest(&hitPress);
    if (hitPress.part == LHP_DIVIDER && hitPress.subItem < columns.GetLength()) {
        columnCxAtPress = columns[hitPress.subItem]->cx;
    }
    return 0;
}

LRESULT GList::OnLButtonUp(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcLButtonUp(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    if (!(m_dwState & GWS_PRESSED)) {
        return 0;
    }
    const HWND hwnd = m_hWnd;
    const HitTestInfo press = std::exchange(hitPress, HitTestInfo{});
    // Sends WM_CAPTURECHANGED, in which a host that subclassed the list may destroy it.
    ReleaseCapture();
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Invalidate(0);
    cursorItem = NO_INDEX;
    HitTestInfo hit{};
    hit.pt = pt;
    HitTest(&hit);
    if (hit.item == press.item && hit.subItem == press.subItem) {
        Click(hit, press.part);
    }
    return 0;
}

// The parent may do anything in the notification, so that it comes last.
void GList::Click(const HitTestInfo& hit, WORD pressedPart)
{
    const WORD mods = ModifierKeys();
    if (hit.item == LHI_HEADER) {
        if (hit.subItem != NO_PART && pressedPart != LHP_DIVIDER) {
            Sort(hit.subItem, hit.subItem != sortColumn || !sortAscending);
        }
    } else if (hit.item != NO_INDEX) {
        SelectByMouse(hit.item, mods);
        lastItem = hit.item;
        SendItemNotify(static_cast<UINT>(NM_CLICK), hit);
    } else if (mods == 0) {
        SelectNone();
        lastItem = NO_INDEX;
    }
}

// Fixed behaviour: a double click leaves the item selected alone, whatever the keys, so that what a host
// opens is the one selected item.
LRESULT GList::OnLButtonDblClk(WPARAM, POINTS pt)
{
    Invalidate(0);
    HitTestInfo hit{};
    hit.pt = pt;
    HitTest(&hit);
    if (hit.item < FIRST_MARK) {
        lastItem = hit.item;
        SelectOnly(hit.item);
        SendItemNotify(static_cast<UINT>(NM_DBLCLK), hit);
    }
    return 0;
}

WORD GList::ModifierKeys()
{
    return static_cast<WORD>(gesso::ModifierFlags() & (KEYMOD_CTRL | KEYMOD_SHIFT));
}

void GList::SelectByMouse(UINT item, WORD mods)
{
    if (mods & KEYMOD_SHIFT) {
        SelectRange(item, lastItem);
    } else if (mods & KEYMOD_CTRL) {
        InvertItem(item);
    } else {
        SelectOnly(item);
    }
}

// --- Moving

LRESULT GList::OnMouseMove(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcMouseMove(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    Frame::TrackLeave(*this);
    if (hitPress.part == LHP_DIVIDER && (m_dwState & GWS_PRESSED)) {
        SizeColumn(pt.x);
        return 0;
    }
    const HitTestInfo former = hitHot;
    hitHot.pt = pt;
    HitTest(&hitHot);
    if (hitHot.item != former.item || hitHot.subItem != former.subItem) {
        Invalidate(0);
        StartDrag(pt);
    }
    return 0;
}

// Fixed behaviour: elements count as columns here and in sorting, which they are but for check boxes and
// tiles. With check boxes a header click would else sort by another column.
void GList::SizeColumn(int x)
{
    Invalidate(0);
    if (hitPress.subItem < columns.GetLength()) {
        ListColumn& column = *columns[hitPress.subItem];
        const int64_t cx = int64_t{static_cast<int>(columnCxAtPress)} - hitPress.pt.x + x;
        column.cx = static_cast<UINT>(std::max(Saturated(cx), static_cast<int>(column.cxMin)));
    }
    SetListStyle(listStyle);
}

// Fixed behaviour: a drag starts where the pointer has left its place both across and down, and with it the
// element. A drag along a row would else start one.
void GList::StartDrag(POINTS pt)
{
    if (!(m_dwState & GWS_PRESSED) || (m_dwState & GWS_LISTDRAG)) {
        return;
    }
    const bool fOutside = std::abs(pt.x - hitPress.pt.x) > SystemMetric(m_hWnd, SM_CXDRAG) &&
                          std::abs(pt.y - hitPress.pt.y) > SystemMetric(m_hWnd, SM_CYDRAG);
    if (fOutside) {
        Frame::AddState(*this, GWS_LISTDRAG);
        GLISTNOTIFY notify{};
        notify.iItem = static_cast<int>(hitPress.item);
        Frame::SendNotify(*this, static_cast<UINT>(LVN_BEGINDRAG), &notify.hdr);
    }
}

LRESULT GList::OnMouseLeave()
{
    hitHot.item = NO_INDEX;
    hitHot.subItem = hitHot.part = NO_PART;
    return Frame::OnMouseLeave(*this);
}

LRESULT GList::OnCaptureChanged(HWND hwndNew)
{
    if (hwndNew != m_hWnd) {
        Frame::ClearState(*this, GWS_PRESSED | GWS_LISTDRAG);
        // Without its press a header cell does not look pressed, nor the pointer like sizing.
        hitPress = HitTestInfo{};
        Invalidate(0);
    }
    return 0;
}

LRESULT GList::OnSetCursor(HWND hwndUnder, LPARAM lParam)
{
    if (hitPress.part == LHP_DIVIDER || hitHot.part == LHP_DIVIDER) {
        SetCursor(s_hColumnSizing);
        return 1;
    }
    return Frame::Default(*this, WM_SETCURSOR, reinterpret_cast<WPARAM>(hwndUnder), lParam);
}

// --- Notifications

void GList::SendItemNotify(UINT code, const HitTestInfo& hit) const
{
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(hit.item);
    notify.iSubItem = static_cast<SHORT>(hit.subItem);
    notify.x = hit.pt.x;
    notify.y = hit.pt.y;
    notify.uKeyFlags = gesso::ModifierFlags();
    Frame::SendNotify(*this, code, &notify.hdr);
}
