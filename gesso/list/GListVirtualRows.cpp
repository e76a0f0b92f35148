// The rows of items that are the host's, made for each look at them, and the bar that scrolls them.
//
// Rows and hits count from a place of their own, the origin, that lies so near to the view that they fit the
// platform's numbers: a row less the bar's position is where it lies in the window, whatever the bar's unit.

#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

#include <algorithm>

using gesso::Saturated;

namespace {

// What fits a rectangle with room for a window around it.
constexpr int64_t NEAR_THE_START = 0x40000000;

} // namespace

// With the position that the bar is at: whoever moves the bar moves the rows. A new scale is there before
// the bar has its new position.
gesso::VirtualList& GList::VirtualInStep() const
{
    gesso::VirtualList& list = *Virtual();
    if (list.barPos != m_siV.nPos && list.scale.UnitAt(list.top) != m_siV.nPos) {
        list.top = list.scale.PixelAt(m_siV.nPos);
    }
    list.barPos = m_siV.nPos;
    return list;
}

// Where the rows' places count from: the bar's position stands for that in pixels.
int64_t GList::Origin() const
{
    return IsVirtual() ? VirtualInStep().top - m_siV.nPos : 0;
}

int GList::PlaceVirtualRows()
{
    gesso::VirtualList& list = VirtualInStep();
    const bool fLines = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    list.rows.Place(Measures(), groups.GetLength());
    list.order = {true, !fLines, true, groups.GetLength()};
    list.viewHeight = -1;
    return Saturated(list.rows.End());
}

// A window's height above and below it too.
void GList::CutView() const
{
    gesso::VirtualList& list = VirtualInStep();
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int64_t origin = list.top - m_siV.nPos;
    if (list.viewHeight == rc.bottom && list.viewTop == list.top && list.view.origin == origin) {
        return;
    }
    list.viewTop = list.top;
    list.viewHeight = rc.bottom;
    list.view.origin = origin;
    list.rows.Cut(list.top - headerArea - rc.bottom, list.top + 2 * int64_t{rc.bottom}, origin,
                  list.view.rows);
}

// The rows around an item, as they count from cut.origin. Those of a list's own items are all there.
gesso::ListGeometry GList::GeometryAround(UINT item, int64_t reach, gesso::ListCut& cut) const
{
    const gesso::VirtualList* list = Virtual();
    if (!list) {
        return Geometry();
    }
    if (item < list->rows.Count()) {
        const auto place = list->rows.PlaceOf(item);
        cut.origin = place.top < NEAR_THE_START ? 0 : place.top;
        list->rows.Cut(place.top - reach, place.bottom + reach, cut.origin, cut.rows);
    }
    return {Measures(), items, groups, columnDraw, cut.rows, list->order};
}

// The same, as the rows in view count.
gesso::ListGeometry GList::GeometryInView(UINT item, gesso::ListCut& cut) const
{
    const gesso::VirtualList* list = Virtual();
    if (!list) {
        return Geometry();
    }
    if (item < list->rows.Count()) {
        const auto place = list->rows.PlaceOf(item);
        cut.origin = Origin();
        list->rows.Cut(place.top, place.bottom, cut.origin, cut.rows);
    }
    return {Measures(), items, groups, columnDraw, cut.rows, list->order};
}

// --- The bar

// The bar down with its page in pixels, as its position counts among the rows.
SCROLLINFO GList::BarInPixels() const
{
    SCROLLINFO si = m_siV;
    const gesso::VirtualList* list = Virtual();
    if (list && list->scale.IsScaled()) {
        si.nPage = static_cast<UINT>(list->scale.PagePixels());
    }
    return si;
}

// Where the pixels do not fit the bar's numbers, its unit becomes a row or more. The rows stay where they are
// when the unit changes.
void GList::ScaleBar(SCROLLINFO& si, int contentHeight)
{
    gesso::VirtualList& list = VirtualInStep();
    const bool fWasScaled = list.scale.IsScaled();
    const int64_t height = int64_t{headerArea} + list.rows.End();
    if (gesso::RowScale::IsNeeded(height) && contentHeight == INT_MAX) {
        list.scale = gesso::RowScale(height, si.nPage, list.rows.RowHeight());
        list.top = std::clamp<int64_t>(list.top, 0, list.scale.LastPixel());
        si.nPage = list.scale.PageUnits();
        si.nMax = Saturated(int64_t{list.scale.LastUnit()} + si.nPage - 1);
        si.nPos = list.scale.UnitAt(list.top);
        si.fMask |= SIF_POS;
    } else {
        list.scale = {};
        if (fWasScaled) {
            const int64_t last = std::max<int64_t>(int64_t{si.nMax} + 1 - si.nPage, 0);
            list.top = std::min(list.top, last);
            si.nPos = Saturated(list.top);
            si.fMask |= SIF_POS;
        }
    }
}

// Takes a position among the rows. Returns that of the bar.
int64_t GList::StoreTop(int64_t position)
{
    gesso::VirtualList* list = Virtual();
    if (!list || !list->scale.IsScaled()) {
        return position;
    }
    list->top = std::clamp<int64_t>(position + Origin(), 0, list->scale.LastPixel());
    return list->scale.UnitAt(list->top);
}

// Among the rows, of the position that a message tells 16 bits of.
int64_t GList::PlaceOfThumb(UINT position) const
{
    const bool fTold = LOWORD(m_siV.nTrackPos) == position && m_siV.nTrackPos >= 0;
    return VirtualInStep().scale.PixelAt(fTold ? m_siV.nTrackPos : position) - Origin();
}

void GList::BringVirtualCursorIntoView(bool fForward, UINT gap)
{
    const gesso::VirtualList& list = VirtualInStep();
    const auto place = list.rows.PlaceOf(cursorItem);
    const int64_t page = BarInPixels().nPage;
    const int64_t end = headerArea + place.bottom;
    const int64_t start = cursorItem == 0 ? 0 : place.top + gap;
    if (fForward && end > list.top + page) {
        ScrollTo(SB_VERT, end - page - Origin());
    } else if (!fForward && (cursorItem == 0 || start < list.top)) {
        ScrollTo(SB_VERT, start - Origin());
    }
}
