// How a list follows the dots an inch of its window and the user's text size.

#include <gesso/edit/LabelEdit.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/WindowDpi.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/PreparedText.h>

#include <algorithm>
#include <utility>

using gesso::ListGiven;
using gesso::NO_INDEX;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;

namespace {

// The first row in view, which stays there.
struct FirstRow
{
    UINT row;  // among the rows laid out
    UINT item; // of it, or the next one
};

template <class VALUE> void TakeLength(VALUE& length, HWND hwnd, gesso::Measure measure, bool fGiven)
{
    if (!fGiven) {
        length = static_cast<VALUE>(Pixels(hwnd, measure));
    }
}

} // namespace

// As often as an image fits into a row, and no more often than the dots ask for. An icon that stands by
// itself has the room of the system's icons, or grows with the dots from where its host gave it. Images that
// fit, as those do that a host gives after a change of the dots, stay as they are.
int gesso::ListInside::ImageTimes(const GList& list, SIZE image)
{
    if (GetScaling() == Scaling::None || image.cx <= 0 || image.cy <= 0) {
        return 1;
    }
    const HWND hwnd = list.m_hWnd;
    const int nMost = std::max(static_cast<int>(DpiOf(hwnd) / USER_DEFAULT_SCREEN_DPI), 1);
    if ((list.listStyle & GLS_VIEWMASK) == GLS_ICONS) {
        const int nFitting = std::min<int>(SystemMetric(hwnd, SM_CXICON) / image.cx, nMost);
        return std::max(nFitting, ImageFactor(hwnd));
    }
    return std::clamp(Saturated(list.itemHeightBase) / static_cast<int>(image.cy), 1, nMost);
}

bool GList::IsGiven(ListGiven given) const
{
    return m_inside->given & given;
}

void GList::NoteGiven(ListGiven given)
{
    m_inside->given |= given;
}

// What the host gave stays as it is.
void GList::TakeMeasures()
{
    TakeLength(headerHeight, m_hWnd, Metrics::LIST_HEADER_HEIGHT, IsGiven(gesso::LIST_HEADER_HEIGHT_GIVEN));
    TakeLength(headerItemSpacing, m_hWnd, Metrics::LIST_HEADER_GAP, IsGiven(gesso::LIST_HEADER_GAP_GIVEN));
    TakeLength(groupHeight, m_hWnd, Metrics::LIST_GROUP_HEIGHT, IsGiven(gesso::LIST_GROUP_HEIGHT_GIVEN));
    TakeLength(itemWidthBase, m_hWnd, Metrics::LIST_ITEM_WIDTH, IsGiven(gesso::LIST_ITEM_WIDTH_GIVEN));
    TakeLength(itemHeightBase, m_hWnd, Metrics::LIST_ITEM_HEIGHT, IsGiven(gesso::LIST_ITEM_HEIGHT_GIVEN));
    itemWidth = itemWidthBase;
    itemHeight = itemHeightBase;
    lineHeight = Pixels(m_hWnd, Metrics::LIST_LINE_HEIGHT);
}

// One that could not be made leaves the former one.
void GList::RenewFont(HFONT& hField, gesso::Measure height, int nWeight, ListGiven given)
{
    if (!hField || IsGiven(given)) {
        return;
    }
    if (const HFONT hFont = MakeFont(Pixels(m_hWnd, height), nWeight)) {
        gesso::LabelEdit::ReplaceFont(m_inside->renaming.hwnd, hField, hFont);
        DeleteObject(std::exchange(hField, hFont));
    }
}

void GList::RenewFonts()
{
    RenewFont(fontLabelTitle, Metrics::LIST_TITLE_FONT, 0, gesso::LIST_TITLE_FONT_GIVEN);
    RenewFont(fontLabelHeader, Metrics::LIST_FONT, 0, gesso::LIST_HEADER_FONT_GIVEN);
    RenewFont(fontGroupTitle, Metrics::LIST_TITLE_FONT, FW_BOLD, gesso::LIST_GROUP_FONT_GIVEN);
    if (!(listStyle & GLS_OWNFONT)) {
        RenewFont(fontLabelText, Metrics::LIST_FONT, FW_NORMAL, gesso::LIST_TEXT_FONT_GIVEN);
    } else if (gesso::IsDefaultFont(fontLabelText)) {
        const HFONT hFormer = std::exchange(fontLabelText, gesso::DefaultFontOf(m_hWnd));
        gesso::LabelEdit::ReplaceFont(m_inside->renaming.hwnd, hFormer, fontLabelText);
    }
}

// All texts that have been prepared, in the fonts that there are now.
void GList::PrepareAll()
{
    ForgetCells();
    const gesso::WindowContext context(m_hWnd);
    for (UINT column = 0; column < columns.GetLength(); ++column) {
        ListColumn& record = *columns[column];
        if (record.prepared && record.text) {
            ListTextPair* prepared =
                PrepareText(context, LTM_COLUMN, record.text, nullptr, record.format, lineHeight);
            FreeText(std::exchange(record.prepared, prepared));
        }
        PrepareColumn(column);
    }
    if (columns.GetLength() == 0) {
        PrepareColumn(0);
    }
    for (ListGroup* group : groups) {
        ListTextPair* prepared =
            PrepareText(context, LTM_GROUP, group->name, nullptr, group->format, lineHeight);
        FreeText(std::exchange(group->prepared, prepared));
    }
}

void GList::OnScaling()
{
    const gesso::Watch watch(*this);
    const FirstRow first = [this] {
        const gesso::ListGeometry geometry = Geometry();
        const UINT row = geometry.FirstRowReaching(int64_t{m_siV.nPos} + 1);
        UINT next = row;
        while (next < geometry.RowCount() && geometry.Row(next).type != LET_ITEM) {
            ++next;
        }
        return FirstRow{row, next < geometry.RowCount() ? geometry.Row(next).index : NO_INDEX};
    }();
    TakeMeasures();
    RenewFonts();
    PrepareAll();
    if (columns.GetLength() > 0) {
        SetListStyle(listStyle);
    } else {
        Calculate();
    }
    if (watch) {
        ShowFirst(first.row, first.item);
    }
}

void GList::ShowFirst(UINT row, UINT item)
{
    if (IsVirtual()) {
        gesso::ListCut cut;
        const gesso::ListGeometry geometry = GeometryInView(item, cut);
        row = item == NO_INDEX ? NO_INDEX : geometry.RowOf(item);
        if (row < geometry.RowCount()) {
            ScrollTo(SB_VERT, int64_t{geometry.RowRect(row).top} - headerArea);
        }
        return;
    }
    const gesso::ListGeometry geometry = Geometry();
    if (row < geometry.RowCount()) {
        ScrollTo(SB_VERT, int64_t{geometry.RowRect(row).top} - headerArea);
    }
}
