// A list's layout in its window: the rows follow the records, and the content and the scroll bars follow the
// rows.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

#include <utility>

using gesso::SystemMetric;

gesso::ListMeasures GList::Measures() const
{
    return {listStyle & GLS_VIEWMASK,
            (listStyle & GLS_CHECKBOXES) != 0,
            ColumnsWidth(),
            itemWidth,
            itemHeight,
            itemSpacingX,
            itemSpacingY,
            groupHeight,
            headerArea};
}

gesso::ListGeometry GList::Geometry() const
{
    return {Measures(), items, groups, columnDraw, elements, m_inside->rowOrder};
}

gesso::ListLayout GList::Layout()
{
    return {Measures(), items, groups, columnDraw, elements, m_inside->rowOrder};
}

void GList::Calculate()
{
    if (SetContentHeight(Layout().Place())) {
        Invalidate(1);
    }
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
    if ((listStyle & GLS_VIEWMASK) == GLS_ICONS) {
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
    const gesso::ListGeometry geometry = Geometry();
    const UINT row = geometry.RowOf(item);
    if (row >= elements.GetLength() || subItem >= columnDraw.GetLength()) {
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
    // Fixed behaviour: room is added for the bars that do not show. The pages of the bars would else change.
    RECT rc{};
    GetClientRectNoScroll(&rc);
    CalcScrollbars(static_cast<int>(contentCx), static_cast<int>(contentCy), rc.right, rc.bottom);
    return life;
}

void GList::CalcScrollbars(int contentWidth, int contentHeight, int clientWidth, int clientHeight)
{
    const gesso::ListBars bars =
        gesso::BarsOf({contentWidth, contentHeight}, {clientWidth, clientHeight},
                      {SystemMetric(m_hWnd, SM_CXVSCROLL), SystemMetric(m_hWnd, SM_CYHSCROLL)});
    constexpr UINT MASK = SIF_RANGE | SIF_PAGE;
    const SCROLLINFO siH{sizeof(SCROLLINFO), MASK, 0, static_cast<int>(bars.lastX), bars.pageX, 0, 0};
    const SCROLLINFO siV{sizeof(SCROLLINFO), MASK, 0, static_cast<int>(bars.lastY), bars.pageY, 0, 0};
    const gesso::Lifeline life(*this);
    GWndScroll::SetScrollInfo(SB_HORZ, &siH);
    if (life) {
        GWndScroll::SetScrollInfo(SB_VERT, &siV);
    }
}

LRESULT GList::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
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
    return GWndScroll::OnNcCalcSize(fValidRects, pParams);
}
