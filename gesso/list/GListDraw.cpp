// Painting. Nothing is measured or shaped here, and only the rows that show are visited.

#include <gesso/containers/Index.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScaledImage.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowDpi.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/PreparedText.h>
#include <gesso/text/CDrawText.h>

#include <algorithm>
#include <utility>

using gesso::Color;
using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::PlainPart;
using gesso::Quirk;
using gesso::Saturated;
using gesso::SelectScope;
using gesso::Shifted;
using gesso::ThemePart;
namespace Metrics = gesso::Metrics;

namespace {

constexpr UINT MOST_FRAMES = 100;
// Stands for what an item made with fewer columns does not have.
constexpr ListSubItem NO_SUB_ITEM{0, NO_INDEX, nullptr, nullptr};

void Inset(RECT& rc, int64_t left, int64_t top, int64_t right, int64_t bottom)
{
    rc = {Saturated(rc.left + left), Saturated(rc.top + top), Saturated(rc.right - right),
          Saturated(rc.bottom - bottom)};
}

// The font in the context, changed only where the next text needs another, and put back at the end.
class FontCursor
{
public:
    explicit FontCursor(HDC hdc) : m_hdc(hdc) {}
    ~FontCursor()
    {
        if (m_hFirst) {
            SelectObject(m_hdc, m_hFirst);
        }
    }
    FontCursor(const FontCursor&) = delete;
    FontCursor& operator=(const FontCursor&) = delete;

    void Select(HFONT hFont)
    {
        if (hFont && hFont != m_hNow) {
            const HGDIOBJ hFormer = SelectObject(m_hdc, hFont);
            m_hFirst = m_hFirst ? m_hFirst : hFormer;
            m_hNow = hFont;
        }
    }

private:
    HDC m_hdc;
    HGDIOBJ m_hFirst = nullptr;
    HFONT m_hNow = nullptr;
};

// A prepared text in another alignment than it was prepared in.
class AlignmentScope
{
public:
    AlignmentScope(stcDrawTextBuffer& buffer, UINT uAlignment) : m_buffer(buffer), m_uFormer(buffer.uFormat)
    {
        m_buffer.uFormat = (m_uFormer & ~UINT{DT_CENTER | DT_RIGHT}) | uAlignment;
    }
    ~AlignmentScope() { m_buffer.uFormat = m_uFormer; }
    AlignmentScope(const AlignmentScope&) = delete;
    AlignmentScope& operator=(const AlignmentScope&) = delete;

private:
    stcDrawTextBuffer& m_buffer;
    UINT m_uFormer;
};

// Draws a text in another alignment than its own, NO_INDEX for that; one that is too wide begins at the left.
void DrawAligned(HDC hdc, void* hText, const RECT& rc, UINT uAlignment)
{
    const bool fTooWide = gesso::PreparedSize(hText).cx > int64_t{rc.right} - rc.left;
    stcDrawTextBuffer* buffer = gesso::PreparedBuffer(hText);
    if (buffer) {
        const UINT uOwn = buffer->uFormat & (DT_CENTER | DT_RIGHT);
        const AlignmentScope alignment(*buffer, fTooWide                 ? DT_LEFT
                                                : uAlignment == NO_INDEX ? uOwn
                                                                         : uAlignment);
        CDrawText::DrawTextW(hdc, hText, rc);
    }
}

} // namespace

// One paint of items: what all of them need is asked once.
class GList::RowPainter
{
public:
    RowPainter(GList& list, HDC hdc);
    ~RowPainter();
    RowPainter(const RowPainter&) = delete;
    RowPainter& operator=(const RowPainter&) = delete;

    void DrawItem(UINT index, const RECT& rc);
    void DrawGroup(UINT index, RECT rc, int right);

private:
    int RowState(bool fSelected, bool fHot) const;
    void BeginRow(int nState, const RECT& rc);
    COLORREF CaptionColor() const;
    void DrawCheckBox(bool fChecked, const RECT& rc) const;
    int CheckBoxState(bool fChecked) const;
    RECT ContentOf(const stcColumnDrawInfo& element, const RECT& rcRow);
    void DrawElement(const stcColumnDrawInfo& element, const ListSubItem& sub, RECT rc);
    void DrawSubText(const ListSubItem& sub, bool fTitle, const RECT& rc);
    void DrawCaption(UINT column, const RECT& rc);
    void DrawImage(UINT image, const RECT& rc, SIZE size) const;
    void DrawIcon(UINT image, const RECT& rc) const;
    SIZE RoomFor(const RECT& rc) const;
    void DrawIn(HFONT hFont, void* hText, const RECT& rc);
    void DrawInCell(void* hText, const RECT& rc) const;

    GList& m_list;
    HDC m_hdc;
    FontCursor m_fonts;
    gesso::FlatTextScope m_textColor;
    int m_nRowState = LISS_NORMAL;
    bool m_fFocused;
    bool m_fDisabled;
    bool m_fContained;           // cells show no more than they have room for
    bool m_fAligned;             // texts that are too wide begin at the left, and icons' are centred
    UINT m_alignment = NO_INDEX; // of the text to be drawn; NO_INDEX for its own
    RECT m_rcRow{};
    RECT m_rcCell{};          // of the element
    UINT m_cursor = NO_INDEX; // the item with the focus rectangle
    RECT m_rcCursor{};
    COLORREF m_crCursor = 0;
    int m_border;
    UINT m_imageCount = 0;
    SIZE m_icon;
    int m_imageTimes = 1; // as often as an image of the list is in it
};

GList::RowPainter::RowPainter(GList& list, HDC hdc)
    : m_list(list), m_hdc(hdc), m_fonts(hdc),
      m_textColor(hdc, ColorOf(Color::ListText), gesso::ColorRole::WindowText),
      m_fFocused(list.IsFocusInside()), m_fDisabled(Frame::Style(list) & WS_DISABLED),
      m_fContained(!Has(list, Quirk::ListContentSpills)), m_fAligned(!Has(list, Quirk::ListTextsMisaligned)),
      m_border(list.themeList.BorderSize()), m_icon(list.IconSize())
{
    int count = 0;
    if (list.imageList) {
        reinterpret_cast<IImageList*>(list.imageList)->GetImageCount(&count);
    }
    m_imageCount = static_cast<UINT>(count);
    if (list.imageList && gesso::GetScaling() != gesso::Scaling::None) {
        int cx = 0, cy = 0;
        reinterpret_cast<IImageList*>(list.imageList)->GetIconSize(&cx, &cy);
        m_imageTimes = cx > 0 ? m_icon.cx / cx : 1;
    }
    const bool fSeen = gesso::IsDrawnFlat() || !Has(list, Quirk::ListCursorUnseen);
    if (m_fFocused && !(list.m_dwState & GWS_HIDEFOCUS) && fSeen) {
        m_cursor = list.GetCursorItem();
    }
}

// Over the grid, which may go through it.
GList::RowPainter::~RowPainter()
{
    if (!IsRectEmpty(&m_rcCursor)) {
        gesso::DrawFocusFrame(m_list.m_hWnd, m_hdc, m_rcCursor, m_crCursor);
    }
}

// A rectangle without width would give the text all the room that there is.
void GList::RowPainter::DrawIn(HFONT hFont, void* hText, const RECT& rc)
{
    if (!hText || (m_fContained && rc.right <= rc.left)) {
        return;
    }
    m_fonts.Select(hFont);
    if (m_fContained && gesso::PreparedSize(hText).cy > int64_t{m_rcRow.bottom} - m_rcRow.top) {
        const gesso::StateScope clip(m_hdc);
        IntersectClipRect(m_hdc, m_rcRow.left, m_rcRow.top, m_rcRow.right, m_rcRow.bottom);
        DrawInCell(hText, rc);
    } else {
        DrawInCell(hText, rc);
    }
}

void GList::RowPainter::DrawInCell(void* hText, const RECT& rc) const
{
    if (m_fAligned) {
        DrawAligned(m_hdc, hText, rc, m_alignment);
    } else {
        CDrawText::DrawTextW(m_hdc, hText, rc);
    }
}

// In Modern a title has the room beside the columns too.
void GList::RowPainter::DrawGroup(UINT index, RECT rc, int right)
{
    rc.right = m_list.HasExactPlaces() ? std::max<int>(rc.right, right) : rc.right;
    const RECT& format = m_list.rcGroupFormat;
    rc = {Saturated(int64_t{rc.left} + format.left), Saturated(int64_t{rc.top} + format.top),
          Saturated(int64_t{rc.right} + format.right), Saturated(int64_t{rc.bottom} + format.bottom)};
    gesso::LayoutOverlay::Add(m_hdc, rc);
    m_rcRow = rc;
    BeginRow(0, rc);
    if (const ListGroup* group = m_list.GroupAt(index)) {
        DrawIn(m_list.fontGroupTitle, group->prepared->second, rc);
    }
}

void GList::RowPainter::DrawItem(UINT index, const RECT& rc)
{
    // After an insertion into a list with groups a row may stand for no item until the next layout.
    const gesso::VirtualList* list = m_list.Virtual();
    ListItem* item = list ? list->cells.Find(index) : m_list.ItemAt(index);
    if (!item) {
        return;
    }
    gesso::LayoutOverlay::Add(m_hdc, rc);
    m_rcRow = rc;
    const auto& cells = m_list.columnDraw;
    const bool fCheckBoxes = m_list.listStyle & GLS_CHECKBOXES;
    const bool fSelected = list ? list->selected.Has(index) : (item->state & LIS_SELECTED) != 0;
    BeginRow(RowState(fSelected, m_list.hitHot.item == index), rc);
    if (fCheckBoxes && cells.GetLength() > 0) {
        const UINT state = list ? item->SubItems()->state : m_list.GetItemState(index, 0);
        DrawCheckBox(state & LSIS_CHECKED, Shifted(cells[0].rect, rc.left, rc.top));
    }
    for (UINT k = fCheckBoxes ? 1 : 0; k < cells.GetLength(); ++k) {
        const ListSubItem* sub = item->SubItem(cells[k].column);
        DrawElement(cells[k], sub ? *sub : NO_SUB_ITEM, ContentOf(cells[k], rc));
    }
    if (index == m_cursor) {
        m_rcCursor = rc;
        m_crCursor = gesso::RowTextColor(m_nRowState);
    }
}

// 0 for a row that is drawn like its list.
int GList::RowPainter::RowState(bool fSelected, bool fHot) const
{
    if (fSelected) {
        return !m_fFocused ? LISS_SELECTEDNOTFOCUS : fHot ? LISS_HOTSELECTED : LISS_SELECTED;
    }
    return fHot ? int{LISS_HOT} : m_fDisabled ? int{LISS_DISABLED} : 0;
}

void GList::RowPainter::BeginRow(int nState, const RECT& rc)
{
    m_nRowState = nState;
    if (nState) {
        m_list.themeList.DrawRow(m_list.m_hWnd, m_hdc, nState, rc);
    }
    if (gesso::AreTextsByRole()) {
        SetTextColor(m_hdc, gesso::RowTextColor(nState));
    }
}

// A caption stands back from its value, but on a row of a colour of its own.
COLORREF GList::RowPainter::CaptionColor() const
{
    return gesso::AreTextsByRole() && m_nRowState ? gesso::RowTextColor(m_nRowState)
                                                  : ColorOf(Color::ListTileCaption);
}

// Fixed behaviour: all check boxes of a list light up and press together, by the state of the control. With a
// state for each, every picture of a list with check boxes under the pointer would change.
int GList::RowPainter::CheckBoxState(bool fChecked) const
{
    constexpr DWORD HOT_AND_PRESSED = GWS_HOT | GWS_PRESSED;
    const DWORD dwState = m_list.m_dwState;
    const int nChecked = fChecked ? CBS_CHECKEDNORMAL - CBS_UNCHECKEDNORMAL : 0;
    if ((dwState & HOT_AND_PRESSED) == HOT_AND_PRESSED || (dwState & GWS_KEYDOWN)) {
        return CBS_UNCHECKEDPRESSED + nChecked;
    }
    if (dwState & GWS_HOT) {
        return CBS_UNCHECKEDHOT + nChecked;
    }
    return (m_fDisabled ? CBS_UNCHECKEDDISABLED : CBS_UNCHECKEDNORMAL) + nChecked;
}

void GList::RowPainter::DrawCheckBox(bool fChecked, const RECT& rc) const
{
    const int nState = CheckBoxState(fChecked);
    ThemePart(m_list.themeButton, m_hdc, BP_CHECKBOX, nState, PlainPart::CheckBox)
        .In(m_list.m_hWnd)
        .DrawBackground(rc);
}

RECT GList::ContentRect(const stcColumnDrawInfo& element, const RECT& rcRow, int border) const
{
    constexpr UINT VIEWS_WITH_MARGINS = 1; // details and icons
    RECT rc = Shifted(element.rect, rcRow.left, rcRow.top);
    Inset(rc, border, border, border, border);
    if ((listStyle & VIEWS_WITH_MARGINS) && element.column < columns.GetLength()) {
        const RECT margins = MarginsOf(*columns[element.column]);
        Inset(rc, margins.left, margins.top, margins.right, margins.bottom);
    }
    return rc;
}

// Where an element of a row shows its content.
RECT GList::RowPainter::ContentOf(const stcColumnDrawInfo& element, const RECT& rcRow)
{
    const RECT rc = m_list.ContentRect(element, rcRow, m_border);
    m_rcCell = Shifted(element.rect, rcRow.left, rcRow.top);
    gesso::LayoutOverlay::Add(m_hdc, rc);
    return rc;
}

void GList::RowPainter::DrawElement(const stcColumnDrawInfo& element, const ListSubItem& sub, RECT rc)
{
    switch (element.type) {
    case LCT_TEXT:
        if ((m_list.listStyle & GLS_VIEWMASK) != GLS_ICONS) {
            DrawSubText(sub, false, rc);
        }
        break;
    case LCT_ICONTEXT:
        m_alignment = m_fAligned ? DT_CENTER : NO_INDEX;
        DrawSubText(sub, false, rc);
        m_alignment = NO_INDEX;
        break;
    case LCT_TITLE: DrawSubText(sub, true, rc); break;
    case LCT_IMAGE: DrawImage(sub.image, rc, RoomFor(rc)); break;
    case LCT_ICONIMAGE: DrawIcon(sub.image, rc); break;
    case LCT_IMAGETEXT:
        DrawImage(sub.image, rc, RoomFor(rc));
        rc.left = Saturated(rc.left + int64_t{m_icon.cx} * 5 / 4);
        DrawSubText(sub, false, rc);
        break;
    case LCT_CAPTION: DrawCaption(element.column, rc); break;
    default: break;
    }
}

void GList::RowPainter::DrawSubText(const ListSubItem& sub, bool fTitle, const RECT& rc)
{
    if (!sub.text || !sub.prepared) {
        return;
    }
    if (fTitle) {
        DrawIn(m_list.fontLabelTitle, sub.prepared->second, rc);
    } else {
        DrawIn(m_list.fontLabelText, sub.prepared->first, rc);
    }
}

void GList::RowPainter::DrawCaption(UINT column, const RECT& rc)
{
    const ListColumn* c = column < m_list.columns.GetLength() ? m_list.columns[column] : nullptr;
    if (c && c->text && c->prepared) {
        SetTextColor(m_hdc, CaptionColor());
        DrawIn(m_list.fontLabelHeader, c->prepared->second, rc);
        SetTextColor(m_hdc,
                     gesso::AreTextsByRole() ? gesso::RowTextColor(m_nRowState) : ColorOf(Color::ListText));
    }
}

// What of an image in a rectangle its cell has room for.
SIZE GList::RowPainter::RoomFor(const RECT& rc) const
{
    if (!m_fContained) {
        return m_icon;
    }
    return {std::min<LONG>(m_icon.cx, Saturated(int64_t{m_rcCell.right} - rc.left)),
            std::min<LONG>(m_icon.cy, Saturated(int64_t{m_rcCell.bottom} - rc.top))};
}

// An icon's element is laid out around its image: an item has room for all of it.
void GList::RowPainter::DrawIcon(UINT image, const RECT& rc) const
{
    DrawImage(image, m_fContained ? m_rcCell : rc, m_icon);
}

// No size at all would be that of the whole image.
void GList::RowPainter::DrawImage(UINT image, const RECT& rc, SIZE size) const
{
    if (image >= m_imageCount || (m_fContained && (size.cx <= 0 || size.cy <= 0))) {
        return;
    }
    const gesso::UprightScope upright(m_hdc, rc.left, size.cx);
    if (m_imageTimes > 1) {
        const int nSaved = SaveDC(m_hdc);
        IntersectClipRect(m_hdc, upright.Left(), rc.top, Saturated(int64_t{upright.Left()} + size.cx),
                          Saturated(int64_t{rc.top} + size.cy));
        gesso::DrawImageTimes(m_hdc, m_list.imageList, static_cast<int>(image), {upright.Left(), rc.top},
                              m_imageTimes);
        RestoreDC(m_hdc, nSaved);
        return;
    }
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    params.himl = m_list.imageList;
    params.i = static_cast<int>(image);
    params.hdcDst = m_hdc;
    params.x = upright.Left();
    params.y = rc.top;
    params.cx = size.cx;
    params.cy = size.cy;
    params.rgbBk = CLR_NONE;
    params.fStyle = ILD_NORMAL;
    reinterpret_cast<IImageList*>(m_list.imageList)->Draw(&params);
}

// The margins of a column's cells, with the usual one where the column names none.
RECT GList::MarginsOf(const ListColumn& column) const
{
    const int usual = Pixels(m_hWnd, Metrics::LIST_MARGIN);
    const auto margin = [usual](LONG side) { return side == -1 ? usual : side; };
    const RECT& rc = column.rcFormat;
    return {margin(rc.left), margin(rc.top), margin(rc.right), margin(rc.bottom)};
}

void GList::DrawItem(HDC hdc, UINT item, RECT rc)
{
    if (IsVirtual() && (item >= ItemCount() || !AskForItems({{item}}))) {
        return;
    }
    RowPainter(*this, hdc).DrawItem(item, rc);
}

// --- The client area

void GList::Draw(HDC hdc)
{
    if (!m_inside->fAsked && !AskForView()) {
        return;
    }
    RECT rc{};
    const gesso::TransparentScope mode(hdc);
    if (!Frame::DrawParentBackground(*this, hdc, &rc)) {
        return;
    }
    RECT rcFrame = rc;
    const int overhang = Pixels(m_hWnd, Metrics::LIST_FRAME_OVERHANG);
    InflateRect(&rcFrame, overhang, overhang);
    themeList.DrawBackground(m_hWnd, hdc, rcFrame);
    DrawElements(hdc, rc);
    DrawBand(hdc);
    // Fixed behaviour: in Classic every view shows the header, over its first rows where it has no room for
    // one.
    if ((listStyle & GLS_HEADER) && ((listStyle & GLS_VIEWMASK) == GLS_DETAILS || !HasExactPlaces())) {
        rc.bottom = Saturated(int64_t{rc.top} + headerHeight);
        DrawDetailsHeader(hdc, rc);
    }
    if (gesso::VirtualList* list = Virtual()) {
        ++list->paints;
        list->ForgetOutdated();
    }
}

void GList::DrawElements(HDC hdc, const RECT& rcClient)
{
    const gesso::ListGeometry geometry = Geometry();
    const int64_t dx = int64_t{rcClient.left} - m_siH.nPos;
    const int64_t dy = int64_t{rcClient.top} - m_siV.nPos;
    const int64_t bottom = int64_t{headerArea} + rcClient.bottom - dy;
    // Rows that lie one below the other need no look once even a title that is moved up would be out of
    // sight.
    const int64_t end = bottom - std::min<int64_t>(rcGroupFormat.top, 0);
    const UINT count = geometry.RowCount();
    const bool fGridStays = Has(*this, Quirk::ListGridStays);
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    RowPainter painter(*this, hdc);
    UINT k = geometry.FirstRowReaching(int64_t{m_siV.nPos} + 1);
    while (k < count && !geometry.AreBelow(k, end)) {
        if (geometry.Row(k).type == LET_GROUP) {
            painter.DrawGroup(geometry.Row(k).index, geometry.RowRect(k, dx, dy), rcClient.right);
            ++k;
            continue;
        }
        const UINT first = k;
        for (const UINT runEnd = geometry.RunEnd(first, bottom); k < runEnd; ++k) {
            painter.DrawItem(geometry.Row(k).index, geometry.RowRect(k, dx, dy));
        }
        // Fixed behaviour: in Classic a run that reaches below the window ends the painting without its grid.
        // A list that is longer than its window would else get lines that it never had.
        const bool fBeyond = k < count && geometry.Row(k).type == LET_ITEM;
        if (fBeyond && fGridStays) {
            return;
        }
        // Fixed behaviour: in Classic the grid stays where it is when the list is scrolled, so that a
        // scrolled list shows its lines across the rows.
        if ((listStyle & GLS_GRIDLINES) && fGridStays) {
            DrawGrid(hdc, first, k - 1, {0, 0});
        } else if ((listStyle & GLS_GRIDLINES) && !fIcons) {
            DrawGrid(hdc, first, k - 1, {Saturated(dx), Saturated(dy)});
        }
        if (fBeyond) {
            return;
        }
    }
}

void GList::DrawGrid(HDC hdc, UINT first, UINT last, POINT shift) const
{
    gesso::PenHandle gridPen;
    gridPen.Reset(CreatePen(PS_SOLID, Pixels(m_hWnd, Metrics::THIN_LINE), themeList.GridColor()));
    const SelectScope pen(hdc, gridPen);
    const auto line = [hdc, shift](int x1, int y1, int x2, int y2) {
        MoveToEx(hdc, Saturated(int64_t{x1} + shift.x), Saturated(int64_t{y1} + shift.y), nullptr);
        LineTo(hdc, Saturated(int64_t{x2} + shift.x), Saturated(int64_t{y2} + shift.y));
    };
    const gesso::ListGeometry geometry = Geometry();
    const int top = geometry.RowRect(first).top;
    const int bottom = geometry.RowRect(last).bottom;
    const UINT cells = columnDraw.GetLength();
    line(0, top, 0, bottom);
    for (UINT cell = 0; cell < cells; ++cell) {
        line(columnDraw[cell].rect.right, top, columnDraw[cell].rect.right, bottom);
    }
    const int right = cells ? columnDraw[cells - 1].rect.right : 0;
    for (UINT k = first; k <= last; ++k) {
        const int y = geometry.RowRect(k).top;
        line(0, y, right, y);
    }
    line(0, bottom, right, bottom);
}

// --- The header

int GList::HeaderState(UINT cell, bool fSorted) const
{
    const auto isAt = [cell](const HitTestInfo& hit) {
        return hit.item == LHI_HEADER && hit.subItem == cell;
    };
    if (isAt(hitPress)) {
        return fSorted ? HIS_SORTEDPRESSED : HIS_PRESSED;
    }
    if (isAt(hitHot)) {
        return fSorted ? HIS_SORTEDHOT : HIS_HOT;
    }
    return fSorted ? HIS_SORTEDNORMAL : HIS_NORMAL;
}

void GList::DrawHeaderPart(HDC hdc, int nPart, int nState, const RECT& rc) const
{
    const PlainPart plain = nPart == HP_HEADERSORTARROW ? PlainPart::SortArrow : PlainPart::HeaderItem;
    ThemePart(themeHeader, hdc, nPart, nState, plain).In(m_hWnd).DrawBackground(rc);
}

void GList::DrawHeaderCell(HDC hdc, UINT cell, RECT rc, int nBorder) const
{
    const UINT column = columnDraw[cell].column;
    const ListColumn* c = column < columns.GetLength() ? columns[column] : nullptr;
    const UINT sorted = c ? c->state & (LCS_SORTUP | LCS_SORTDOWN) : 0;
    const int captionTop = Pixels(m_hWnd, Metrics::LIST_CAPTION_TOP);
    DrawHeaderPart(hdc, HP_HEADERITEM, HeaderState(cell, sorted != 0), rc);
    if (sorted) {
        const RECT rcArrow{rc.left, rc.top, rc.right, captionTop};
        DrawHeaderPart(hdc, HP_HEADERSORTARROW, sorted & LCS_SORTUP ? HSAS_SORTEDUP : HSAS_SORTEDDOWN,
                       rcArrow);
    }
    if (c && c->prepared && c->prepared->first) {
        const RECT margins = MarginsOf(*c);
        Inset(rc, int64_t{nBorder} + margins.left, nBorder, int64_t{nBorder} + margins.right, nBorder);
        rc.top = captionTop;
        if (rc.right <= rc.left && !Has(*this, Quirk::ListContentSpills)) {
            return;
        }
        const SelectScope font(hdc, fontLabelText);
        const gesso::FlatTextScope color(hdc, ColorOf(gesso::ColorRole::HeaderText),
                                         gesso::ColorRole::HeaderText);
        if (Has(*this, Quirk::ListTextsMisaligned)) {
            CDrawText::DrawTextW(hdc, c->prepared->first, rc);
        } else {
            DrawAligned(hdc, c->prepared->first, rc, NO_INDEX);
        }
    }
}

void GList::DrawDetailsHeader(HDC hdc, RECT rc)
{
    const int64_t x = int64_t{rc.left} - m_siH.nPos;
    const int nBorder = themeList.BorderSize();
    RECT rcCell{rc.left, rc.top, Saturated(x), Saturated(int64_t{rc.top} + headerHeight)};
    const bool fExact = HasExactPlaces();
    const UINT cells = columnDraw.GetLength();
    for (UINT cell = 0; cell < cells; ++cell) {
        // In Modern the room behind the check boxes is theirs.
        const bool fToNext = fExact && cell + 1 < cells && columnDraw[cell].column == NO_INDEX;
        rcCell.left = Saturated(columnDraw[cell].rect.left + x);
        rcCell.right =
            Saturated((fToNext ? columnDraw[cell + 1].rect.left : columnDraw[cell].rect.right) + x);
        DrawHeaderCell(hdc, cell, rcCell, nBorder);
    }
    const RECT rcRest{rcCell.right, rcCell.top, rc.right, rcCell.bottom};
    DrawHeaderPart(hdc, HP_HEADERITEMRIGHT, 0, rcRest);
}

// --- Messages

void GList::NcDraw(HDC hdc, RECT rc)
{
    themeList.DrawBackground(m_hWnd, hdc, rc);
    DrawScrollBar(hdc, Frame::Style(*this));
}

LRESULT GList::OnNcPaint(WPARAM wRegion)
{
    return Frame::OnNcPaint(*this, wRegion);
}

LRESULT GList::OnPrintClient(HDC hdc, LPARAM lParam)
{
    return Frame::OnPrintWhole(*this, hdc, lParam);
}

// The host is asked before the painting begins, so that what it changes in its answers is painted with it.
LRESULT GList::OnPaint()
{
    if (frameReplay) {
        ReplayFrame();
        return 0;
    }
    const gesso::Watch watch(*this);
    const gesso::Lifeline life(*this);
    if (!AskForView()) {
        return 0;
    }
    m_inside->fAsked = true;
    gesso::BufferedPaint paint(m_hWnd);
    if (watch) {
        Draw(paint.Context());
    }
    if (life) {
        m_inside->fAsked = false;
    }
    if (watch && frameRecord) {
        KeepFrame(paint.Context());
    }
    return 0;
}

// --- The paint history

// A copy, since the paint's own bitmap serves the next paint.
void GList::KeepFrame(HDC hdc)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hdc, rc.right, rc.bottom);
    {
        const gesso::MemoryContext frame;
        const SelectScope bitmap(frame, hBitmap);
        gesso::TakeLayout(frame, hdc);
        BitBlt(frame, 0, 0, rc.right, rc.bottom, hdc, 0, 0, SRCCOPY);
    }
    frames.GetAtGrow(frames.GetLength()) = reinterpret_cast<stcDrawItem*>(hBitmap);
    if (frames.GetLength() > MOST_FRAMES) {
        DeleteObject(reinterpret_cast<HBITMAP>(frames[0]));
        frames.RemoveAt(0, 1);
    }
}

void GList::ReplayFrame()
{
    const gesso::Watch watch(*this);
    const gesso::PaintContext context(m_hWnd);
    if (!watch) {
        return;
    }
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const auto frame = static_cast<UINT>(frameIndex);
    {
        const gesso::MemoryContext kept;
        const SelectScope bitmap(kept, frame < frames.GetLength() ? HGDIOBJ(frames[frame]) : nullptr);
        gesso::TakeLayout(kept, context);
        BitBlt(context, 0, 0, rc.right, rc.bottom, kept, 0, 0, SRCCOPY);
    }
    RECT rcNumber{0, 0, Pixels(m_hWnd, Metrics::LIST_FRAME_NUMBER_CX),
                  Pixels(m_hWnd, Metrics::LIST_FRAME_NUMBER_CY)};
    ::DrawTextW(context, OString<wchar_t>::Build(L"%i", frameIndex), -1, &rcNumber, 0);
}

void GList::ReleaseFrames()
{
    for (UINT frame = 0; frame < frames.GetLength(); ++frame) {
        DeleteObject(reinterpret_cast<HBITMAP>(frames[frame]));
    }
    frames.RemoveAll();
}
