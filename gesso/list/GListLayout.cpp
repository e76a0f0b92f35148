// A list's layout in its window: the rows follow the records, and the content and the scroll bars follow the
// rows.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

#include <algorithm>
#include <utility>

using gesso::Has;
using gesso::Quirk;
using gesso::Saturated;
using gesso::SystemMetric;

namespace {

// Of a range that starts at 0.
LONG LastPosOf(const SCROLLINFO& si)
{
    return static_cast<LONG>(std::max<int64_t>(int64_t{si.nMax} + 1 - si.nPage, 0));
}

bool AreAlike(const SCROLLINFO& a, const SCROLLINFO& b)
{
    return a.nMax == b.nMax && a.nPage == b.nPage && a.nPos == b.nPos;
}

} // namespace

gesso::ListMeasures GList::Measures() const
{
    gesso::ListMeasures measures{listStyle & GLS_VIEWMASK,
                                 (listStyle & GLS_CHECKBOXES) != 0,
                                 ColumnsWidth(),
                                 itemWidth,
                                 itemHeight,
                                 itemSpacingX,
                                 itemSpacingY,
                                 groupHeight,
                                 headerArea};
    measures.fExact = HasExactPlaces();
    if (measures.fExact) {
        const bool fHeader = measures.view == GLS_DETAILS && (listStyle & GLS_HEADER);
        measures.columnsWidth = CellWidth();
        measures.headerHeight = fHeader ? headerHeight : 0;
        measures.linesWidth = m_inside->linesWidth;
    }
    if (IsVirtual()) {
        measures.fVirtual = true;
        measures.count = ItemCount();
        measures.itemHeight = std::max(measures.itemHeight, 1U);
    }
    return measures;
}

// Whether hits and rectangles are those of what is drawn. Icons without records are never heaped up: all of
// them would be drawn.
bool GList::HasExactPlaces() const
{
    return !Has(*this, Quirk::ListPlaces) || (IsVirtual() && (listStyle & GLS_VIEWMASK) == GLS_ICONS);
}

// Whether the bars are those of what does not fit, and are painted when they change.
bool GList::HasExactBars() const
{
    return !Has(*this, Quirk::ListBars);
}

// Fixed behaviour: in Classic without the check box, by whose width the bar across falls short of the last
// column. The bar would else show in lists whose columns just fill the window.
UINT GList::RowsWidth() const
{
    return HasExactPlaces() ? CellWidth() : ColumnsWidth();
}

// Of what an item shows.
UINT GList::CellWidth() const
{
    const UINT view = listStyle & GLS_VIEWMASK;
    LONG right = view == GLS_TILES ? Saturated(itemWidth) : 0;
    for (const stcColumnDrawInfo& cell : columnDraw) {
        right = std::max(right, cell.rect.right);
    }
    return static_cast<UINT>(view == GLS_ICONS ? Saturated(int64_t{itemSpacingX} + itemWidth) : right);
}

gesso::ListGeometry GList::Geometry() const
{
    if (IsVirtual()) {
        CutView();
        const gesso::VirtualList& list = *Virtual();
        return {Measures(), items, groups, columnDraw, list.view.rows, list.order};
    }
    return {Measures(), items, groups, columnDraw, elements, m_inside->rowOrder};
}

gesso::ListLayout GList::Layout()
{
    return {Measures(), items, groups, columnDraw, elements, m_inside->rowOrder};
}

void GList::Calculate()
{
    if (SetContentHeight(PlaceRows())) {
        Invalidate(1);
    }
}

// Returns where the rows end. In lines, which are as long as the window is wide, they end higher up without
// the bar that goes down.
int GList::PlaceRows()
{
    const auto place = [this] { return IsVirtual() ? PlaceVirtualRows() : Layout().Place(); };
    if ((listStyle & GLS_VIEWMASK) != GLS_ICONS || !HasExactPlaces()) {
        return place();
    }
    const SIZE room = m_inside->linesRoom = RoomOfBarsAndClient();
    m_inside->linesWidth = room.cx;
    int end = place();
    if (end > room.cy) {
        m_inside->linesWidth = Saturated(int64_t{room.cx} - SystemMetric(m_hWnd, SM_CXVSCROLL));
        end = place();
    }
    return end;
}

// Lines are broken anew. A larger window may show what lies further up.
LRESULT GList::OnSize(WPARAM wParam, LPARAM lParam)
{
    const HWND hwnd = m_hWnd;
    const gesso::Watch watch(*this);
    const SIZE room = m_inside->linesRoom;
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS && HasExactPlaces()) {
        const SIZE now = RoomOfBarsAndClient();
        if (now.cx != room.cx || now.cy != room.cy) {
            Calculate();
        }
    }
    if (watch) {
        RedrawMoved();
    }
    return gesso::Frame::Default(hwnd, WM_SIZE, wParam, lParam);
}

SIZE GList::RoomOfBarsAndClient() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const DWORD dwStyle = gesso::Frame::Style(*this);
    const bool fDown = (dwStyle & WS_VSCROLL) && !(m_dwVStyle & GSB_HIDDEN);
    const bool fAcross = (dwStyle & WS_HSCROLL) && !(m_dwHStyle & GSB_HIDDEN);
    return {Saturated(int64_t{rc.right} + (fDown ? SystemMetric(m_hWnd, SM_CXVSCROLL) : 0)),
            Saturated(int64_t{rc.bottom} + (fAcross ? SystemMetric(m_hWnd, SM_CYHSCROLL) : 0))};
}

// Calculate, of a change that moves no row. A bulk fill lays out at its end.
void GList::RefreshLayout()
{
    if (bulkInsert) {
        return;
    }
    const gesso::RowOrder& order = m_inside->rowOrder;
    if (!order.fCurrent || !order.fStacked) {
        Calculate();
        return;
    }
    if (SetContentHeight(Geometry().RowsEnd())) {
        Invalidate(1);
    }
}

// The records are others than those that the rows were placed by.
void GList::ForgetLayout()
{
    m_inside->rowOrder.fCurrent = false;
}

void GList::CalculateU(UINT item, bool inserted)
{
    if (IsVirtual()) {
        Calculate();
        return;
    }
    if (!inserted && HasExactPlaces()) {
        RefreshLayout();
        return;
    }
    const bool fGrouped = groups.GetLength() > 0 && HasExactPlaces();
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS || fGrouped) {
        Calculate();
        return;
    }
    gesso::ListLayout layout = Layout();
    const UINT row = inserted ? layout.Insert(item) : layout.RowFrom(item);
    const bool fMoved = row < elements.GetLength() && layout.Fit(row);
    if (!fMoved || SetContentHeight(layout.RowsEnd())) {
        RedrawAll();
    }
}

void GList::GetItemRect(RECT* rc, UINT item, UINT subItem)
{
    if (!rc) {
        gesso::Misuse("GList::GetItemRect: no rectangle");
        return;
    }
    *rc = {};
    gesso::ListCut cut;
    const gesso::ListGeometry geometry = GeometryInView(item, cut);
    const UINT row = geometry.RowOf(item);
    if (row >= geometry.RowCount() || subItem >= columnDraw.GetLength()) {
        gesso::Misuse("GList::GetItemRect: no such item or element");
        return;
    }
    *rc = geometry.CellRect(row, subItem);
}

// --- The content and the scroll bars

// False where the list is gone: a bar that comes or goes repaints the frame, in whose corner the parent
// draws.
bool GList::SetContentHeight(int rowsEnd)
{
    const gesso::Lifeline life(*this);
    contentCy = headerArea + static_cast<UINT>(rowsEnd);
    // Fixed behaviour: in Classic room is added for the bars that do not show. The pages of the bars would
    // else change.
    if (IsVirtual()) {
        contentCy = static_cast<UINT>(Saturated(int64_t{headerArea} + rowsEnd));
    }
    RECT rc{};
    if (!HasExactBars()) {
        GetClientRectNoScroll(&rc);
    } else {
        contentCy = static_cast<UINT>(Saturated(int64_t{headerArea} + rowsEnd));
        const SIZE room = RoomOfBarsAndClient();
        rc = {0, 0, room.cx, room.cy};
    }
    CalcScrollbars(static_cast<int>(contentCx), static_cast<int>(contentCy), rc.right, rc.bottom);
    if (life) {
        PlaceRenaming();
        RedrawMoved();
    }
    return life;
}

// A change of a bar shows with the next paint.
void GList::RedrawMoved()
{
    if (std::exchange(m_inside->fBarsMoved, false)) {
        RedrawAll();
    }
}

void GList::CalcScrollbars(int contentWidth, int contentHeight, int clientWidth, int clientHeight)
{
    const bool fExact = HasExactBars();
    const auto barsOf = fExact ? gesso::ExactBarsOf : gesso::BarsOf;
    const gesso::ListBars bars =
        barsOf({contentWidth, contentHeight}, {clientWidth, clientHeight},
               {SystemMetric(m_hWnd, SM_CXVSCROLL), SystemMetric(m_hWnd, SM_CYHSCROLL)});
    const UINT uMask = SIF_RANGE | SIF_PAGE | (fExact ? SIF_POS : 0);
    SCROLLINFO siH{sizeof(SCROLLINFO), uMask, 0, static_cast<int>(bars.lastX), bars.pageX, 0, 0};
    SCROLLINFO siV{sizeof(SCROLLINFO), uMask, 0, static_cast<int>(bars.lastY), bars.pageY, 0, 0};
    if (fExact) {
        // The bars themselves have a position 1 where all is in sight.
        m_inside->lastPos = {LastPosOf(siH), LastPosOf(siV)};
        siH.nPos = std::min<int>(m_siH.nPos, m_inside->lastPos.x);
        siV.nPos = std::min<int>(m_siV.nPos, m_inside->lastPos.y);
    }
    if (IsVirtual()) {
        ScaleBar(siV, contentHeight);
        m_inside->lastPos.y = fExact ? LastPosOf(siV) : m_inside->lastPos.y;
    }
    const SCROLLINFO formerH = m_siH;
    const SCROLLINFO formerV = m_siV;
    const gesso::Lifeline life(*this);
    GWndScroll::SetScrollInfo(SB_HORZ, &siH);
    if (life) {
        GWndScroll::SetScrollInfo(SB_VERT, &siV);
    }
    if (life && fExact && !(AreAlike(formerH, m_siH) && AreAlike(formerV, m_siV))) {
        m_inside->fBarsMoved = true;
    }
}

LRESULT GList::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    const RECT rcWindow = pParams->rgrc[0];
    RECT& rc = pParams->rgrc[0];
    const bool fBorder =
        (gesso::Frame::Style(*this) & WS_BORDER) || (GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    if (fBorder) {
        const int nBorder = themeList.BorderSize();
        InflateRect(&rc, -nBorder, -nBorder);
    }
    // A bar that comes or goes sends this message again from within, with the size that the window had
    // before.
    if (!std::exchange(m_inside->fSizing, true)) {
        const gesso::Lifeline life(*this);
        CalcScrollbars(static_cast<int>(contentCx), static_cast<int>(contentCy),
                       gesso::Saturated(int64_t{rc.right} - rc.left),
                       gesso::Saturated(int64_t{rc.bottom} - rc.top));
        if (!life) {
            return 0;
        }
        m_inside->fSizing = false;
    }
    if (!Has(*this, Quirk::BarHitsBeside)) {
        NcCalcSizeScroll(&rcWindow, &rc);
        return 0;
    }
    // Without the border: the bars lie as far up and to the left as it is wide.
    return GWndScroll::OnNcCalcSize(fValidRects, pParams);
}
