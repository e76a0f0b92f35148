#include <gesso/edit/ComboListPlace.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/BehaviorMark.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/ExplorerStyle.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScrollBarGeometry.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

#include <algorithm>
#include <optional>
#include <utility>

using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::PlainPart;
using gesso::Saturated;
using gesso::ThemePart;
namespace Metrics = gesso::Metrics;

namespace {

constexpr UINT ABOVE = static_cast<UINT>(-2);
constexpr UINT FIRST_NO_ITEM = 0xFFFFFFFD; // from here on an index stands for no item

constexpr int PAGE_ROWS = 10;                  // of the page keys
constexpr UINT MOST_WHEEL_LINES = WHEEL_DELTA; // "a page" a notch is more lines than a list shows

constexpr UINT MOST_HEIGHT =
    INT_MAX / 2; // of the window before it is shrunk: its bottom is a coordinate, too

constexpr LPCWSTR COMBO_CLASS = L"COMBOBOX"; // of the style
constexpr LPCWSTR LIST_CLASS = L"LISTVIEW";

constexpr DWORD LIST_STYLE = WS_POPUP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_BORDER;
constexpr DWORD LIST_EX_STYLE = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;

constinit ATOM s_aListClass = 0;

UINT KeysOf(WPARAM wKeys)
{
    return (wKeys & MK_CONTROL ? 2u : 0u) | (wKeys & MK_SHIFT ? 4u : 0u);
}

} // namespace

GComboBoxList::GComboBoxList() = default;

GComboBoxList::~GComboBoxList()
{
    if (IsOpen()) {
        DestroyWindow(m_hWnd);
    }
}

// --- Opening and closing

bool GComboBoxList::IsOpen() const
{
    return m_hWnd && Frame::IsAlive(m_hWnd, this);
}

bool GComboBoxList::Make(HWND hwndOwner, HFONT hFont, const gesso::Placement& place)
{
    m_hwndOwner = hwndOwner;
    m_hFont = hFont;
    m_rcHScroll = {};
    m_rcVScroll = {};
    const ATOM aClass = gesso::RegisterControlClass(s_aListClass, L"GComboBoxList", WindowProc,
                                                    CS_DROPSHADOW | CS_GLOBALCLASS);
    // A window that another one owns does not take its layout by itself.
    const DWORD dwExStyle = LIST_EX_STYLE | (gesso::IsMirrored(hwndOwner) ? WS_EX_LAYOUTRTL : 0);
    return Frame::CreateTagged(*this, aClass, place, 0, dwExStyle, LIST_STYLE) != nullptr;
}

void GComboBoxList::Open(HWND hwndOwner, HFONT hFont, UINT nHeight)
{
    RECT rc{};
    GetWindowRect(hwndOwner, &rc);
    const gesso::Placement place{static_cast<int>(rc.left), static_cast<int>(rc.bottom),
                                 static_cast<int>(rc.right - rc.left),
                                 static_cast<int>(std::min(nHeight, MOST_HEIGHT)), hwndOwner};
    if (!Make(hwndOwner, hFont, place)) {
        return;
    }
    ShrinkToItems();
    ShowRow(m_nHot);
}

// Shows the window, without the room that the items leave free.
void GComboBoxList::ShrinkToItems()
{
    RECT rcWindow{};
    RECT rcClient{};
    GetWindowRect(m_hWnd, &rcWindow);
    GetClientRect(m_hWnd, &rcClient);
    const auto nFree = static_cast<int>(std::max<LONGLONG>(0, rcClient.bottom - RowsHeight()));
    SetWindowPos(m_hWnd, HWND_TOP, 0, 0, rcWindow.right - rcWindow.left,
                 rcWindow.bottom - rcWindow.top - nFree, SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void GComboBoxList::Close()
{
    const HWND hwndOwner = m_hwndOwner;
    const GComboBox* pOwner = m_pOwner;
    DestroyWindow(m_hWnd);
    if (!Frame::IsAlive(hwndOwner, pOwner)) {
        return;
    }
    const HWND hwnd = m_hWnd;
    const bool fRemains = IsOpen();
    if (fRemains) {
        Frame::Abandon(*this);
    }
    m_hWnd = nullptr;
    if (fRemains) {
        ShowWindow(hwnd, SW_HIDE); // until it goes with its owner
    }
}

LRESULT GComboBoxList::OnNcCreate(const CREATESTRUCTW* pcs)
{
    if (!m_pOwner) {
        gesso::Misuse("GComboBoxList: the window has no combo box");
        return FALSE;
    }
    if (!gesso::TakeBehavior(m_hWnd, m_pOwner->GetHwnd())) {
        return FALSE;
    }
    gesso::TakeExplorerStyle(m_hWnd);
    Frame::SetState(*this, Frame::FirstState(*this));
    GWndScroll::m_hitDown = {};
    m_hitNow = {};
    GWndScroll::OnNcCreate(pcs);
    TakeRowHeight();
    m_hComboTheme.Open(m_hWnd, COMBO_CLASS);
    m_hListTheme.Open(m_hWnd, LIST_CLASS);
    SetUpScrolling(Saturated(pcs->cy - 2 * LONGLONG{FrameSize().cy}));
    m_hitDown = {{}, NO_INDEX, 0};
    m_hitMove = {{}, NO_INDEX};
    ChangeHot(m_pOwner->Selected());
    return TRUE;
}

// A height that a derived class has chosen stays.
void GComboBoxList::TakeRowHeight()
{
    UINT& nTaken = m_pOwner->m_inside->nRowHeight;
    if (m_nItemHeight == 0 || m_nItemHeight == nTaken) {
        m_nItemHeight = nTaken = static_cast<UINT>(Pixels(m_hWnd, Metrics::COMBO_ROW_HEIGHT));
    }
}

// Of an open list: it is placed as at its opening, with the first row in view where it was.
void GComboBoxList::OnScaling()
{
    m_hFont = m_pOwner->m_hFont;
    m_hComboTheme.Open(m_hWnd, COMBO_CLASS);
    if (GComboBox::Modern* pModern = m_pOwner->ModernPart()) {
        pModern->ArrangeIfOpen();
        return;
    }
    const UINT nFirst = RowAt(0);
    TakeRowHeight();
    RECT rc{};
    GetWindowRect(m_hwndOwner, &rc);
    const auto cy = static_cast<int>(std::min(m_pOwner->m_nDropdownHeight, MOST_HEIGHT));
    const int nPage = Saturated(cy - 2 * LONGLONG{FrameSize().cy});
    SetWindowPos(m_hWnd, nullptr, rc.left, rc.bottom, rc.right - rc.left, cy, SWP_NOZORDER | SWP_NOACTIVATE);
    SetUpScrolling(nPage);
    ShowScrollBar(SB_VERT, RowsHeight() > nPage);
    ShrinkToItems();
    ScrollTo(LONGLONG{nFirst} * ItemHeight());
}

void GComboBoxList::SetUpScrolling(int nPage)
{
    const int nMax = Saturated(RowsHeight() - 1);
    if (nMax <= nPage) {
        m_siV.nMin = m_siV.nMax = 0;
        m_siV.nPage = 0;
        SetScrollPos(SB_VERT, 0, FALSE);
        return;
    }
    const SCROLLINFO si{sizeof(SCROLLINFO),
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        nMax,
                        static_cast<UINT>(std::max(nPage, 0)),
                        0,
                        0};
    GWndScroll::SetScrollInfo(SB_VERT, &si, FALSE);
    ShowScrollBar(SB_VERT, m_siV.nMax > static_cast<int>(m_siV.nPage));
}

LRESULT GComboBoxList::OnNcDestroy()
{
    GWndScroll::OnNcDestroy();
    m_hComboTheme.Reset();
    m_hListTheme.Close();
    PostMessageW(nullptr, WM_NULL, 0, 0); // whoever destroyed it, the owner's loop is to see it now
    return Frame::Detach(*this);
}

LRESULT GComboBoxList::OnThemeChanged()
{
    if (gesso::MendExplorerStyle(m_hWnd)) {
        return 0;
    }
    m_hThemeScroll.Open(m_hWnd, L"SCROLLBAR");
    m_hComboTheme.Open(m_hWnd, COMBO_CLASS);
    m_hListTheme.Open(m_hWnd, LIST_CLASS);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    return 0;
}

// --- Frame

// What the frame takes off each side.
SIZE GComboBoxList::FrameSize() const
{
    return Frame::Style(*this) & WS_BORDER ? gesso::ComboListFrame(m_hComboTheme, m_hWnd) : SIZE{};
}

LRESULT GComboBoxList::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    const RECT rcWindow = pParams->rgrc[0];
    const SIZE frame = FrameSize();
    InflateRect(&pParams->rgrc[0], -frame.cx, -frame.cy);
    NcCalcSizeScroll(&rcWindow, &pParams->rgrc[0]);
    pParams->rgrc[0] = gesso::ClientAsAsked(m_hWnd, fValidRects, rcWindow, pParams->rgrc[0]);
    return 0;
}

void GComboBoxList::NcDraw(HDC hdc, const RECT& rcWindow)
{
    ThemePart(m_hComboTheme, hdc, CP_BORDER, CBXS_NORMAL, PlainPart::OpenList)
        .In(m_hWnd)
        .DrawBackground(rcWindow);
    DrawScrollBar(hdc, Frame::Style(*this));
}

LRESULT GComboBoxList::OnNcPaint(WPARAM wRegion)
{
    return Frame::OnNcPaint(*this, wRegion);
}

LRESULT GComboBoxList::OnPrintClient(HDC hdc, LPARAM lParam)
{
    return Frame::OnPrintWhole(*this, hdc, lParam);
}

// --- Rows

int GComboBoxList::ItemHeight() const
{
    return static_cast<int>(std::clamp(m_nItemHeight, 1u, UINT{INT_MAX}));
}

int GComboBoxList::ItemCount() const
{
    return static_cast<int>(m_pItems->GetLength());
}

LONGLONG GComboBoxList::RowsHeight() const
{
    return LONGLONG{ItemCount()} * ItemHeight();
}

// The program may have removed items since the list was opened.
bool GComboBoxList::IsRow(UINT nItem) const
{
    return nItem < FIRST_NO_ITEM && nItem < m_pItems->GetLength();
}

RECT GComboBoxList::RowRect(UINT nItem, int cx) const
{
    const LONGLONG nTop = LONGLONG{nItem} * ItemHeight() - m_siV.nPos;
    return {0, Saturated(nTop), cx, Saturated(nTop + ItemHeight())};
}

// Whether there is such a row or not.
UINT GComboBoxList::RowAt(int y) const
{
    return static_cast<UINT>((LONGLONG{m_siV.nPos} + y) / ItemHeight());
}

void GComboBoxList::Draw(HDC hdc)
{
    RECT rcClient{};
    if (!Frame::DrawParentBackground(*this, hdc, &rcClient)) {
        return;
    }
    RECT rcPanel = rcClient;
    const int nOverlap = Pixels(m_hWnd, Metrics::COMBO_PANEL_OVERLAP);
    InflateRect(&rcPanel, nOverlap, nOverlap);
    m_hListTheme.DrawBackground(m_hWnd, hdc, rcPanel);

    const gesso::SelectScope font(hdc, m_hFont);
    const gesso::TransparentScope mode(hdc);
    for (UINT nItem = RowAt(0); IsRow(nItem); ++nItem) {
        const RECT rc = RowRect(nItem, rcClient.right);
        if (rc.top >= rcClient.bottom) {
            break;
        }
        DrawRow(hdc, nItem, rc);
    }
}

void GComboBoxList::DrawRow(HDC hdc, UINT nItem, const RECT& rc) const
{
    gesso::LayoutOverlay::Add(hdc, rc);
    const bool fHot = nItem == m_nHot;
    if (fHot) {
        m_hListTheme.DrawRow(m_hWnd, hdc, LISS_HOTSELECTED, rc);
    }
    RECT rcText = rc;
    const int nInset = Pixels(m_hWnd, Metrics::COMBO_ROW_INSET);
    // In Modern the row is as high as the font needs.
    InflateRect(&rcText, -nInset, Has(*m_pOwner, gesso::Quirk::ComboListFixed) ? -nInset : 0);
    const ThemePart part(m_hListTheme, hdc, LVP_LISTITEM, fHot ? int{LISS_HOTSELECTED} : int{LISS_NORMAL},
                         PlainPart::Row);
    const LPCWSTR psz = (*m_pItems)[nItem]->pszText;
    if (auto* pModern = m_pOwner->ModernPart()) {
        pModern->Texts().Draw(hdc, psz, rcText, part.TextColor(), DT_VCENTER);
    } else {
        part.DrawString(psz, DT_SINGLELINE | DT_VCENTER | gesso::ItemPrefixFormat(*m_pOwner), rcText);
    }
}

// The row at a point in the client area: ABOVE or NO_INDEX where there is none.
UINT GComboBoxList::HitTest(POINTS pt) const
{
    RECT rcWindow{};
    RECT rcClient{};
    GetWindowRect(m_hWnd, &rcWindow);
    GetClientRect(m_hWnd, &rcClient);
    const POINTS ptScreen = gesso::ToScreen(m_hWnd, pt);
    if (!PtInRect(&rcWindow, {ptScreen.x, ptScreen.y}) || pt.y >= rcClient.bottom) {
        return NO_INDEX;
    }
    if (pt.y < 0) {
        return ABOVE;
    }
    const UINT nItem = RowAt(pt.y);
    return IsRow(nItem) ? nItem : NO_INDEX;
}

bool GComboBoxList::IsOverBar(POINTS ptScreen) const
{
    RECT rcBar = m_rcVScroll;
    RECT rcWindow{};
    GetWindowRect(m_hWnd, &rcWindow);
    if (gesso::IsMirrored(m_hWnd)) {
        rcBar = gesso::MirroredIn({0, 0, rcWindow.right - rcWindow.left, 0}, rcBar);
    }
    OffsetRect(&rcBar, rcWindow.left, rcWindow.top);
    return !(m_dwVStyle & GSB_HIDDEN) && PtInRect(&rcBar, {ptScreen.x, ptScreen.y});
}

// In Classic the base takes its bars to start in the corner of the client area, from which this frame parts
// them twice: once in the point, once in the bars.
POINTS GComboBoxList::BarPoint(POINTS ptScreen) const
{
    if (!Has(*this, gesso::Quirk::BarHitsBeside)) {
        return ptScreen;
    }
    const SIZE frame = FrameSize();
    return {static_cast<SHORT>(ptScreen.x + 2 * frame.cx), static_cast<SHORT>(ptScreen.y + 2 * frame.cy)};
}

LRESULT GComboBoxList::OnNcMouseMove(UINT uHit, POINTS ptScreen)
{
    return GWndScroll::OnNcMouseMove(uHit, BarPoint(ptScreen));
}

// --- Scrolling

void GComboBoxList::ScrollTo(LONGLONG nPos)
{
    if (!(m_dwVStyle & GSB_HIDDEN)) {
        SetScrollPos(SB_VERT, Saturated(nPos), FALSE);
    }
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

void GComboBoxList::ShowRow(UINT nItem)
{
    if (!IsRow(nItem)) {
        return;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const RECT rc = RowRect(nItem, rcClient.right);
    if (rc.top < 0) {
        ScrollTo(LONGLONG{m_siV.nPos} + rc.top);
    } else if (rc.bottom > rcClient.bottom) {
        ScrollTo(LONGLONG{m_siV.nPos} + rc.bottom - rcClient.bottom);
    } else {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
}

LRESULT GComboBoxList::OnMouseWheel(int nDelta)
{
    if (static_cast<int>(m_siV.nPage) < gesso::RangeOf(m_siV)) {
        const auto nLines = static_cast<int>(std::min(gesso::WheelLines(), MOST_WHEEL_LINES));
        ScrollTo(m_siV.nPos - LONGLONG{nDelta / WHEEL_DELTA} * ItemHeight() * nLines);
    }
    return 0;
}

// The message carries 16 bits of the position; all of it is at hand where the bar itself sent it.
int GComboBoxList::ThumbPos(WORD wPos) const
{
    return LOWORD(m_siV.nTrackPos) == wPos ? m_siV.nTrackPos : wPos;
}

LRESULT GComboBoxList::OnVScroll(WORD wCode, WORD wPos)
{
    const auto nThumb = static_cast<UINT>(ThumbPos(wPos));
    if (wCode == SB_TOP || wCode == SB_BOTTOM) {
        ScrollTo(wCode == SB_TOP ? m_siV.nMin : m_siV.nMax);
    } else if (const auto nTarget = gesso::ScrollTarget(m_siV, wCode, nThumb, ItemHeight())) {
        ScrollTo(*nTarget);
    }
    return 0;
}

// --- Keys

LRESULT GComboBoxList::OnKeyDown(UINT uKey)
{
    switch (uKey) {
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_F4: m_pOwner->ChangeExpansion(false); break;
    case VK_PRIOR: MoveBy(-PAGE_ROWS); break;
    case VK_NEXT: MoveBy(PAGE_ROWS); break;
    case VK_UP: MoveBy(-1); break;
    case VK_DOWN: MoveBy(1); break;
    default: break;
    }
    return 0;
}

// The one place where the row that looks selected changes.
void GComboBoxList::ChangeHot(UINT nItem)
{
    m_nHot = nItem;
}

// Fixed behaviour: the owner's text follows at once, so that Esc takes nothing back; a host that reads the
// selection after Esc would find the former item.
void GComboBoxList::MoveBy(int nRows)
{
    const LONGLONG nSelected = static_cast<int>(m_pOwner->Selected());
    const int nLast = ItemCount() - 1;
    const bool fAtEdge = nRows < 0 ? nSelected <= 0 : nSelected >= nLast;
    if (fAtEdge || nLast < 0) {
        return;
    }
    const auto nItem = static_cast<UINT>(std::clamp<LONGLONG>(nSelected + nRows, 0, nLast));
    if (m_pOwner->ChangeSelection(nItem)) {
        ChangeHot(nItem);
        ShowRow(nItem);
        m_pOwner->Update(false);
    }
}

// --- Mouse
//
// The owner has the capture, so that even presses on the bar come as client messages. The bar takes the
// capture while it is pressed, and leaves it to nobody.

LRESULT GComboBoxList::OnMouseMove(WPARAM, POINTS pt)
{
    const POINTS ptScreen = gesso::ToScreen(m_hWnd, pt);
    const bool fOnBar = (m_dwState & GWS_NCPRESSED) || IsOverBar(ptScreen);
    if (fOnBar || m_hitNow.wHit) {
        OnNcMouseMove(HTVSCROLL, ptScreen);
    }
    if (fOnBar) {
        return 0;
    }
    m_hitMove = {pt, HitTest(pt)};
    if (IsRow(m_hitMove.nItem) && m_hitMove.nItem != m_nHot) {
        ChangeHot(m_hitMove.nItem);
        Invalidate(0);
    }
    return 0;
}

// With the capture elsewhere the platform takes the pointer to be gone while it is still on the bar.
LRESULT GComboBoxList::OnNcMouseLeave()
{
    POINT pt{};
    GetCursorPos(&pt);
    if (IsOverBar({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)})) {
        Frame::ClearState(*this, GWS_NCTRACKING);
        return 0;
    }
    return GWndScroll::OnNcMouseLeave();
}

LRESULT GComboBoxList::OnLButtonDown(WPARAM wKeys, POINTS pt)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const POINTS ptScreen = gesso::ToScreen(m_hWnd, pt);
    if (IsOverBar(ptScreen)) {
        return GWndScroll::OnNcLButtonDown(HTVSCROLL, BarPoint(ptScreen));
    }
    if (PtInRect(&rcClient, {pt.x, pt.y})) {
        m_hitDown = {pt, HitTest(pt), KeysOf(wKeys)};
    } else {
        m_pOwner->ChangeExpansion(false);
    }
    return 0;
}

LRESULT GComboBoxList::OnNcLButtonDown(UINT uHit, POINTS ptScreen)
{
    if (IsOverBar(ptScreen)) {
        return GWndScroll::OnNcLButtonDown(uHit, BarPoint(ptScreen));
    }
    m_pOwner->ChangeExpansion(false);
    return 0;
}

LRESULT GComboBoxList::OnLButtonUp(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcLButtonUp(HTVSCROLL, gesso::ToScreen(m_hWnd, pt));
    }
    const UINT nPressed = std::exchange(m_hitDown.nItem, NO_INDEX);
    const UINT nItem = HitTest(pt);
    if (IsRow(nItem) && IsRow(nPressed)) {
        Pick(nItem);
    }
    return 0;
}

void GComboBoxList::Pick(UINT nItem)
{
    const HWND hwnd = m_hWnd;
    if (m_pOwner->ChangeSelection(nItem)) {
        Frame::SendCommand(*m_pOwner, CBN_SELCHANGE);
    }
    if (Frame::IsAlive(hwnd, this)) {
        m_pOwner->ChangeExpansion(false);
    }
}

LRESULT CALLBACK GComboBoxList::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GComboBoxList>(hwnd, uMsg, wParam, lParam);
}

LRESULT GComboBoxList::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    std::optional<GComboBox::Inside::Telling> telling;
    if (m_pOwner) {
        telling.emplace(*m_pOwner);
    }
    LRESULT lAnswer = 0;
    GComboBox::Modern* pModern = m_pOwner ? m_pOwner->ModernPart() : nullptr;
    if (pModern && pModern->OnListMessage(uMsg, wParam, lParam, &lAnswer)) {
        return lAnswer;
    }
    const POINTS pt = gesso::PointOf(lParam);
    switch (uMsg) {
    case WM_NCDESTROY: return OnNcDestroy();
    case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return OnNcHitTest(pt);
    case WM_NCPAINT: return OnNcPaint(wParam);
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND:
    case WM_NCACTIVATE: return 1;
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, pt);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: return OnLButtonDown(wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(wParam, pt);
    case WM_MOUSEWHEEL: return OnMouseWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    case WM_VSCROLL: return OnVScroll(LOWORD(wParam), HIWORD(wParam));
    case WM_NCMOUSEMOVE: return OnNcMouseMove(static_cast<UINT>(wParam), pt);
    case WM_NCMOUSELEAVE: return OnNcMouseLeave();
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: return OnNcLButtonDown(static_cast<UINT>(wParam), pt);
    case WM_NCLBUTTONUP: return OnNcLButtonUp(static_cast<UINT>(wParam), pt);
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
