// What a point hits, and what the mouse does.

#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::Quirk;
using gesso::Saturated;
using gesso::SystemMetric;
namespace Metrics = gesso::Metrics;

namespace {

constexpr WORD NO_PART = gesso::ListHit::NO_PART;
constexpr UINT FIRST_MARK = static_cast<UINT>(-3); // from it on a hit's item is a mark and no index

} // namespace

// --- Hit-testing

void GList::HitTest(HitTestInfo* pInfo) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const gesso::ListViewport view{{rc.right, rc.bottom}, {m_siH.nPos, m_siV.nPos}};
    const gesso::ListHit hit =
        Geometry().HitAt({pInfo->pt.x, pInfo->pt.y}, view, Pixels(m_hWnd, Metrics::LIST_DIVIDER_REACH));
    *pInfo = {pInfo->pt, NO_INDEX, hit.item, hit.subItem, hit.part};
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
    const UINT column = ColumnOf(hitPress.subItem);
    if (hitPress.part == LHP_DIVIDER && column < columns.GetLength()) {
        columnCxAtPress = columns[column]->cx;
    }
    if (hitPress.item == NO_INDEX && !Has(*this, Quirk::ListEmptyRoom)) {
        StartBand(pt);
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
    const bool fBand = m_inside->band.fOn;
    // Sends WM_CAPTURECHANGED, in which a host that subclassed the list may destroy it.
    ReleaseCapture();
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Invalidate(0);
    const bool fClassic = Has(*this, Quirk::ListKeyboard);
    if (fClassic) {
        MoveCursor(NO_INDEX);
    }
    HitTestInfo hit{};
    hit.pt = pt;
    HitTest(&hit);
    const bool fSame = hit.subItem == press.subItem;
    if (hit.item != press.item || (!fSame && (fClassic || hit.item == LHI_HEADER)) || fBand) {
        return 0;
    }
    if (!fSame) {
        hit.subItem = NO_PART; // of the item, and of none of its cells: a hand is not that steady
    }
    if (hit.item == LHI_HEADER) {
        ClickHeader(hit, press.part);
    } else if (fClassic) {
        Click(hit);
    } else {
        ModernClick(hit);
    }
    return 0;
}

// The parent may do anything in the notification, so that it comes last.
void GList::Click(const HitTestInfo& hit)
{
    const WORD mods = ModifierKeys();
    if (hit.item != NO_INDEX) {
        gesso::ListInside::ClickItem(*this, hit, mods);
    } else if (mods == 0) {
        SelectNone();
        ChangeCursor(cursorItem, NO_INDEX);
        TellSelection();
    }
}

void gesso::ListInside::ClickItem(GList& list, const GList::HitTestInfo& hit, WORD mods)
{
    if (Has(list, Quirk::ListKeyboard)) {
        list.SelectByMouse(hit.item, mods);
        list.ChangeCursor(list.cursorItem, hit.item);
    } else if (mods & KEYMOD_SHIFT) {
        list.MoveTo(hit.item, mods, false);
    } else if (mods & KEYMOD_CTRL) {
        list.InvertItem(hit.item);
        list.PutCursor(hit.item);
    } else {
        list.SelectOnly(hit.item);
        list.PutCursor(hit.item);
    }
    if (list.TellSelection()) {
        list.SendItemNotify(static_cast<UINT>(NM_CLICK), hit);
    }
}

// A non-zero answer to the notification keeps the list from sorting.
void GList::ClickHeader(const HitTestInfo& hit, WORD pressedPart)
{
    const UINT column = ColumnOf(hit.subItem);
    if (hit.subItem == NO_PART || pressedPart == LHP_DIVIDER || column == NO_INDEX ||
        (IsVirtual() && column >= columns.GetLength()))
    {
        return;
    }
    const gesso::Watch watch(*this);
    if (!IsVirtual() && !Has(*this, Quirk::ListHeaderSilent)) {
        HitTestInfo clicked = hit;
        clicked.item = NO_INDEX;
        clicked.subItem = static_cast<WORD>(column);
        if (SendItemNotify(static_cast<UINT>(LVN_COLUMNCLICK), clicked) || !watch) {
            return;
        }
    }
    const bool fAscending = column != sortColumn || !sortAscending;
    IsVirtual() ? AskToSort(hit, column, fAscending) : Sort(column, fAscending);
}

// The column that an element of the header stands for.
//
// Fixed behaviour: in Classic elements count as columns here, which they are but for check boxes and tiles.
// With check boxes a header click would else sort by another column. The host of a virtual list is told the
// column itself.
UINT GList::ColumnOf(WORD element) const
{
    if (!IsVirtual() && Has(*this, Quirk::ListElementsAreColumns)) {
        return element;
    }
    return element < columnDraw.GetLength() ? columnDraw[element].column : NO_INDEX;
}

// Fixed behaviour: a double click leaves the item selected alone, whatever the keys, so that what a host
// opens is the one selected item.
LRESULT GList::OnLButtonDblClk(WPARAM keys, POINTS pt)
{
    Invalidate(0);
    HitTestInfo hit{};
    hit.pt = pt;
    HitTest(&hit);
    if (hit.item == LHI_HEADER && hit.part == LHP_DIVIDER && !Has(*this, Quirk::ListDividerFitsNothing)) {
        const UINT column = ColumnOf(hit.subItem);
        if (column < columns.GetLength()) {
            FitColumn(column);
        }
        return 0;
    }
    if (hit.item >= FIRST_MARK) {
        // A click like the first in Modern.
        return Has(*this, Quirk::ListLosesSecondClicks) ? 0 : OnLButtonDown(keys, pt);
    }
    if (Has(*this, Quirk::ListKeyboard)) {
        ChangeCursor(cursorItem, hit.item);
    } else {
        PutCursor(hit.item);
    }
    SelectOnly(hit.item);
    if (TellSelection()) {
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
        ChangeSelection(item, lastItem, true);
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
    if (m_inside->band.fBegun) {
        MoveBand(pt);
        return 0;
    }
    const HitTestInfo former = hitHot;
    HitTestInfo hit{};
    hit.pt = pt;
    HitTest(&hit);
    ChangeHot(hit);
    if (hit.item != former.item || hit.subItem != former.subItem) {
        Invalidate(0);
        StartDrag(pt);
    }
    return 0;
}

void GList::SizeColumn(int x)
{
    Invalidate(0);
    const UINT index = ColumnOf(hitPress.subItem);
    if (index < columns.GetLength()) {
        ListColumn& column = *columns[index];
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
    if (hitPress.item >= LHI_HEADER && !Has(*this, Quirk::ListHeaderDrags)) {
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
    ChangeHot({hitHot.pt, hitHot.reserved, NO_INDEX, NO_PART, NO_PART});
    return Frame::OnMouseLeave(*this);
}

LRESULT GList::OnCaptureChanged(HWND hwndNew)
{
    if (hwndNew != m_hWnd) {
        Frame::ClearState(*this, GWS_PRESSED | GWS_LISTDRAG);
        // Without its press a header cell does not look pressed, nor the pointer like sizing.
        hitPress = HitTestInfo{};
        EndBand();
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

// Of an item that the host has removed meanwhile there is nothing to tell.
LRESULT GList::SendItemNotify(UINT code, const HitTestInfo& hit) const
{
    if (IsVirtual() && hit.item < LHI_HEADER && hit.item >= ItemCount()) {
        return 0;
    }
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(hit.item);
    notify.iSubItem = static_cast<SHORT>(hit.subItem);
    notify.x = hit.pt.x;
    notify.y = hit.pt.y;
    notify.uKeyFlags = gesso::ModifierFlags();
    return Frame::SendNotify(*this, code, &notify.hdr);
}
