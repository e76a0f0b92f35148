#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ScaledImage.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/Wrapped.h>
#include <gesso/ribbon/GRibbonPageWatch.h>
#include <gesso/ribbon/ItemCode.h>

#include <algorithm>
#include <climits>

using gesso::Color;
using gesso::ColorOf;
using gesso::Measure;
using gesso::Pixels;
using gesso::PlainPart;
using gesso::Quirk;
using gesso::ThemePart;
using Group = GRibbonPage::Group;
using Item = GRibbonPage::Item;
namespace Metrics = gesso::Metrics;

namespace {

// From the plain states of a check box to the checked ones.
//
// Fixed behaviour: a checked box is drawn one state beyond that of its plain counterpart, which the style
// draws hot where nothing is under the pointer. The counterpart itself would look unlike every ribbon so far.
// What the library draws by itself is in its true state.
constexpr int CHECKED_STATES = CBS_CHECKEDNORMAL - CBS_UNCHECKEDNORMAL;
constexpr int CHECKED_STATES_HOT = CHECKED_STATES + 1;

// Drawing has no coordinates beyond this, and what is added to one that is nearer stays in an int's range.
constexpr int FARTHEST = 0x7FFFFFF;

bool IsNear(int x)
{
    return x >= -FARTHEST && x <= FARTHEST;
}

// What begins right of this does not show in the context. An image may begin left of an item that is too
// narrow for it.
int64_t ShownEnd(HWND hwnd, HDC hdc)
{
    RECT rc{};
    const LONG nRight = GetClipBox(hdc, &rc) == ERROR ? INT_MAX : std::max(rc.left, rc.right);
    return int64_t{nRight} + Pixels(hwnd, Metrics::RIBBON_LARGE_IMAGE);
}

// Draws items of one page into one context, in the font that is selected there. Each rectangle is the item's,
// with x in the ribbon.
struct ItemPainter
{
    HWND hwnd; // the ribbon's
    HDC hdc;
    HTHEME hTheme;
    HIMAGELIST hLargeImages;
    HIMAGELIST hSmallImages;
    int nCheckedStates;
    bool fTwoLines; // there is room for them under a large image

    void Draw(const Item& item, const RECT& rc, int nState) const
    {
        switch (item.uType) {
        case RIT_BUTTON: return DrawButton(item, rc, nState);
        case RIT_CHECKBOX: return DrawCheckBox(item, rc, nState);
        default: break;
        }
    }

    int At(Measure measure) const { return Pixels(hwnd, measure); }

    // What a button fills.
    RECT Face(const RECT& rc) const
    {
        const int nNear = At(Metrics::RIBBON_FACE_LEFT_TOP), nFar = At(Metrics::RIBBON_FACE_RIGHT_BOTTOM);
        return {rc.left + nNear, rc.top + nNear, rc.right + nFar, rc.bottom + nFar};
    }

    void DrawFocus(const RECT& rc) const
    {
        RECT rcFocus = Face(rc);
        const int nInset = At(Metrics::RIBBON_FOCUS_INSET);
        InflateRect(&rcFocus, -nInset, -nInset);
        gesso::DrawFocusFrame(hwnd, hdc, rcFocus);
    }

    // Where a text ends in its item: one pixel beyond it.
    RECT TextRoom(const RECT& rc, int left, int top) const
    {
        return {left, top, rc.right + 1, rc.bottom + 1};
    }

    void DrawButton(const Item& item, const RECT& rc, int nState) const
    {
        ThemePart part(hTheme, hdc, BP_PUSHBUTTON, nState, PlainPart::PushButton);
        part.In(hwnd);
        if (nState > PBS_NORMAL) {
            part.DrawBackground(Face(rc));
        }
        switch (item.wSize) {
        case RIS_SMALL: return DrawSmallImage(item, rc);
        case RIS_MEDIUM: return DrawMedium(part, item, rc);
        case RIS_LARGE: return DrawLarge(part, item, rc);
        default: break;
        }
    }

    void DrawMedium(const ThemePart& part, const Item& item, const RECT& rc) const
    {
        DrawSmallImage(item, rc);
        const int nTextLeft =
            rc.left + At(item.nImage == -1 ? Metrics::RIBBON_CONTENT : Metrics::RIBBON_MEDIUM_TEXT);
        DrawItemText(part, item, TextRoom(rc, nTextLeft, rc.top + At(Metrics::RIBBON_CONTENT)),
                     DT_VCENTER | DT_SINGLELINE);
    }

    void DrawLarge(const ThemePart& part, const Item& item, const RECT& rc) const
    {
        RECT rcText =
            TextRoom(rc, rc.left + At(Metrics::RIBBON_CONTENT), rc.top + At(Metrics::RIBBON_LARGE_TEXT));
        if (item.nImage != -1) {
            const int cx = At(Metrics::RIBBON_LARGE_IMAGE);
            const int x = (rc.right - rc.left - cx) / 2 + rc.left + At(Metrics::RIBBON_LARGE_IMAGE_SHIFT);
            const Measure top = fTwoLines ? Metrics::RIBBON_LARGE_IMAGE_OVER_LINES : Metrics::RIBBON_CONTENT;
            DrawImage(hLargeImages, item.nImage, x, rc.top + At(top), cx);
            rcText.top = rc.top + At(fTwoLines ? Metrics::RIBBON_LARGE_TEXT_LINES
                                               : Metrics::RIBBON_LARGE_TEXT_UNDER_IMAGE);
            rcText.bottom = fTwoLines ? Face(rc).bottom : rcText.bottom;
        }
        if (fTwoLines) { // a pixel too few would break the text into three
            InflateRect(&rcText, At(Metrics::RIBBON_LARGE_TEXT_SPARE), 0);
        }
        DrawItemText(part, item, rcText, DT_CENTER | DT_WORDBREAK);
    }

    void DrawCheckBox(const Item& item, const RECT& rc, int nState) const
    {
        const int nBoxState = nState + (item.uFlags & RIF_CHECKED ? nCheckedStates : 0);
        ThemePart part(hTheme, hdc, BP_CHECKBOX, nBoxState, PlainPart::CheckBox);
        part.In(hwnd);
        const int nLeft = rc.left + At(Metrics::RIBBON_BOX_LEFT);
        const RECT rcBox{nLeft, rc.top + At(Metrics::RIBBON_BOX_TOP), nLeft + part.Size(hwnd, nullptr).cx,
                         rc.bottom + At(Metrics::RIBBON_BOX_BOTTOM)};
        part.DrawBackground(rcBox);
        const int nTextLeft = rcBox.right + At(Metrics::RIBBON_BOX_GAP);
        DrawItemText(part, item, TextRoom(rc, nTextLeft, rc.top + At(Metrics::RIBBON_CONTENT)),
                     DT_VCENTER | DT_SINGLELINE);
    }

    void DrawSmallImage(const Item& item, const RECT& rc) const
    {
        if (item.nImage != -1) {
            const int nContent = At(Metrics::RIBBON_CONTENT);
            DrawImage(hSmallImages, item.nImage, rc.left + nContent, rc.top + nContent,
                      At(Metrics::RIBBON_SMALL_IMAGE));
        }
    }

    void DrawImage(HIMAGELIST hImages, int nImage, int x, int y, int cx) const
    {
        {
            const gesso::UprightScope place(hdc, x, cx);
            if (gesso::DrawImageInPlace(hdc, hImages, nImage, {place.Left(), y}, cx)) {
                return;
            }
        }
        const gesso::UprightScope upright(hdc, x, gesso::WidthInPlace(hdc, hImages, cx));
        IsolationAwareImageList_DrawEx(hImages, nImage, hdc, upright.Left(), y, cx, cx);
    }

    static void DrawItemText(const ThemePart& part, const Item& item, const RECT& rc, UINT uFormat)
    {
        if (item.pszText) {
            part.DrawString(item.pszText, uFormat, rc);
        }
    }
};

// The group's title, and the line behind the group.
void DrawGroupFrame(HWND hwnd, HDC hdc, const Group& group, int nTitleLeft, int nClientBottom)
{
    const int nLineTop = Pixels(hwnd, Metrics::RIBBON_PAGE_TOP) + Pixels(hwnd, Metrics::RIBBON_LINE_TOP);
    MoveToEx(hdc, group.nRight, nLineTop, nullptr);
    LineTo(hdc, group.nRight, nClientBottom - Pixels(hwnd, Metrics::RIBBON_LINE_BOTTOM));
    const int nTitleTop = nClientBottom - Pixels(hwnd, Metrics::RIBBON_TITLE_TOP);
    RECT rcTitle{nTitleLeft, nTitleTop, group.nRight, nClientBottom - 1};
    gesso::LayoutOverlay::Add(hdc, rcTitle);
    DrawTextW(hdc, group.strTitle, -1, &rcTitle, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

} // namespace

void GRibbonPage::Draw(HDC hdc)
{
    const HWND hwnd = RibbonWindow();
    if (!hwnd) {
        return;
    }
    RECT rc{};
    GetClientRect(hwnd, &rc);
    const gesso::TransparentScope mode(hdc);
    RECT rcPage{0, Pixels(hwnd, Metrics::RIBBON_PAGE_TOP), rc.right, rc.bottom - 1};
    const Watch watch(*this);
    DrawThemeParentBackground(hwnd, hdc, &rcPage);
    if (!watch.IsAlive()) {
        return;
    }
    gesso::PenHandle flatPen;
    if (gesso::IsDrawnAs(gesso::ColorRole::Line)) {
        flatPen.Reset(CreatePen(PS_SOLID, Pixels(hwnd, Metrics::THIN_LINE), m_pRibbon->ColorOfPageLine()));
    }
    const gesso::SelectScope pen(hdc, flatPen ? HPEN(flatPen) : m_hPen);
    const gesso::SelectScope font(hdc, m_hGroupFont);
    SetTextColor(hdc, ColorOf(Color::RibbonGroupTitle));
    const int64_t nShownEnd = ShownEnd(hwnd, hdc);
    int nLeft = 0;
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        const Group& group = m_aGroups[i];
        if (std::min(nLeft, group.nRight) <= nShownEnd) {
            DrawGroupFrame(hwnd, hdc, group, nLeft, rc.bottom);
        }
        if (!group.uFixedWidth && group.nLeft <= nShownEnd) {
            DrawItems(hdc, i);
        }
        nLeft = group.nRight;
    }
    if (m_pRibbon->ShowsFocus() && m_pRibbon->ActivePage() == this) {
        DrawFocusOfWindow(hdc);
    }
    // Fixed behaviour: black afterwards, whatever it was before. What a host draws next into the context
    // would come out in the colour of the titles, or of its own text before.
    SetTextColor(hdc, ColorOf(Color::RibbonAfterPage));
}

// Around a hosted window that the keyboard has come to.
void GRibbonPage::DrawFocusOfWindow(HDC hdc) const
{
    const UINT uItem = FocusItem();
    if (uItem == RIBBON_NONE) {
        return;
    }
    const Item& item = m_aGroups[HIWORD(uItem)].aItems[LOWORD(uItem)];
    RECT rc{};
    if (item.uType == RIT_WINDOW && GetWindowRect(item.hwnd, &rc)) {
        MapWindowPoints(nullptr, m_hwndRibbon, reinterpret_cast<POINT*>(&rc), 2);
        const int nGap = Pixels(m_hwndRibbon, Metrics::RIBBON_FOCUS_INSET);
        InflateRect(&rc, nGap, nGap);
        gesso::DrawFocusFrame(m_hwndRibbon, hdc, rc);
    }
}

void GRibbonPage::DrawItems(HDC hdc, UINT nGroup) const
{
    const GRibbon& ribbon = *m_pRibbon;
    const bool fLooksHot = Has(ribbon, Quirk::RibbonCheckedLooksHot) && !gesso::IsDrawnFlat();
    const ItemPainter painter{RibbonWindow(),
                              hdc,
                              m_hTheme,
                              ribbon.LargeImages(),
                              ribbon.SmallImages(),
                              fLooksHot ? CHECKED_STATES_HOT : CHECKED_STATES,
                              !Has(ribbon, Quirk::RibbonTextCutOff)};
    const UINT uFocusItem = ribbon.ShowsFocus() && ribbon.ActivePage() == this ? FocusItem() : RIBBON_NONE;
    const gesso::TextColorScope color(hdc, Has(ribbon, Quirk::RibbonTextsGrey)
                                               ? ColorOf(Color::RibbonGroupTitle)
                                               : ColorOf(Color::RibbonItemText));
    // Once for all of them: a switch of fonts can cost more than the text.
    const gesso::SelectScope font(hdc, m_hItemFont);
    const Group& group = m_aGroups[nGroup];
    const int64_t nShownEnd = ShownEnd(RibbonWindow(), hdc);
    const bool fAsBefore = KeepsHot();
    for (UINT i = 0; i < group.aItems.GetLength(); i++) {
        const Item& item = group.aItems[i];
        const auto at = [&](int x) { return gesso::Wrapped(int64_t{group.nLeft} + x); };
        const RECT rc{at(item.nLeft), item.nTop, at(item.nRight), item.nBottom};
        if (!IsNear(rc.left) || !IsNear(rc.right) || std::min(rc.left, rc.right) > nShownEnd) {
            continue;
        }
        gesso::LayoutOverlay::Add(hdc, rc);
        const UINT uItem = gesso::ItemCode(nGroup, i);
        painter.Draw(item, rc, fAsBefore ? StateOf(uItem, item) : StateAsItIs(uItem, item));
        if (uItem == uFocusItem) {
            painter.DrawFocus(rc);
        }
    }
}

// Pressed is what was pressed, while the pointer is on it; nothing else is hot meanwhile.
int GRibbonPage::StateAsItIs(UINT uItem, const Item& item) const
{
    if (item.uFlags & RIF_DISABLED) {
        return PBS_DISABLED;
    }
    if (m_uState & GWS_PRESSED) {
        return uItem == m_press.item && uItem == m_hover.item ? PBS_PRESSED : PBS_NORMAL;
    }
    return uItem == m_uHotItem ? PBS_HOT : PBS_NORMAL;
}

int GRibbonPage::StateOf(UINT uItem, const Item& item) const
{
    if (uItem == m_uHotItem) {
        return m_uState & GWS_PRESSED ? PBS_PRESSED : PBS_HOT;
    }
    return item.uFlags & RIF_DISABLED ? PBS_DISABLED : PBS_NORMAL;
}
