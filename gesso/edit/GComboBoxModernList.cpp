// The open list of a combo box that was made in Modern. The list has the capture, so that a press elsewhere
// closes it, and the control keeps the focus; no loop waits for either.

#include <gesso/edit/ComboListPlace.h>
#include <gesso/edit/ComboText.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>
#include <array>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::Lifeline;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

constexpr UINT_PTR PLACE_TIMER = 1;
constexpr UINT_PTR ARRANGE_TIMER = 2;
constexpr UINT_PTR SCROLL_TIMER = 3;
constexpr UINT PLACE_PERIOD = 100; // milliseconds; a list that is left behind goes after it
constexpr UINT ARRANGE_DELAY = 10; // for items that come or go one after the other
constexpr UINT SCROLL_PERIOD = 50; // a row each

constexpr gesso::Measure ROW_MARGIN{2}; // above and below the font of a row, at least

constexpr int TALL = 1000; // more than frames are high: in a window so much higher than its rows no bar shows

POINTS PointerPos()
{
    POINT pt{};
    GetCursorPos(&pt);
    return {static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
}

bool IsSame(POINTS a, POINTS b)
{
    return a.x == b.x && a.y == b.y;
}

bool IsAnyButtonDown()
{
    return std::ranges::any_of(std::array{VK_LBUTTON, VK_RBUTTON, VK_MBUTTON, VK_XBUTTON1, VK_XBUTTON2},
                               gesso::IsKeyDown);
}

void SetArrowCursor()
{
    constexpr WORD ARROW_CURSOR = 32512; // IDC_ARROW
    SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(ARROW_CURSOR)));
}

} // namespace

// --- Opening

void GComboBox::Modern::Open()
{
    if (m_phase != Phase::Closed || !HasList()) {
        return;
    }
    m_phase = Phase::Opening;
    const UINT nOpening = ++m_nOpenings;
    // What the parent opens when it is told stands in the place of this one.
    if (!Report(CBN_DROPDOWN) || nOpening != m_nOpenings) {
        return;
    }
    if (m_phase == Phase::Opening && Show()) {
        return;
    }
    m_phase = Phase::Closed;
    Report(CBN_CLOSEUP);
}

// False where there is no window to show. The control may be gone otherwise.
bool GComboBox::Modern::Show()
{
    const HWND hwnd = m_combo.m_hWnd;
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    List().m_nItemHeight = static_cast<UINT>(RowHeight());
    const int nTall = gesso::Saturated(List().RowsHeight() + TALL);
    if (!List().Make(hwnd, m_combo.m_hFont, {rc.left, rc.bottom, rc.right - rc.left, nTall, hwnd})) {
        return false;
    }
    m_phase = Phase::Open;
    m_place = PlaceNow();
    m_fStepped = false;
    m_ptSeen = PointerPos();
    m_fHeld = m_fHeld && GetKeyState(VK_LBUTTON) < 0;
    m_fDrawn = false;
    Arrange();
    List().ScrollTo(LONGLONG{m_nTop} * List().ItemHeight());
    HighlightText();
    const HWND hwndList = List().m_hWnd;
    SetWindowPos(hwndList, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    SetTimer(hwndList, PLACE_TIMER, PLACE_PERIOD, nullptr);
    SetArrowCursor();
    m_combo.Invalidate(0);
    SetCapture(hwndList);
    return true;
}

GComboBox::Modern::Place GComboBox::Modern::PlaceNow() const
{
    const HWND hwnd = m_combo.m_hWnd;
    Place place{{}, GetForegroundWindow(), IsWindowVisible(hwnd) != 0, false};
    GetWindowRect(hwnd, &place.rcControl);
    place.fEnabled = IsWindowEnabled(hwnd) && IsWindowEnabled(GetAncestor(hwnd, GA_ROOT));
    return place;
}

// What the frame of the list takes off each side, also before there is a list.
SIZE GComboBox::Modern::ListFrame() const
{
    return List().IsOpen() ? List().FrameSize() : gesso::ComboListFrame(m_combo.m_hTheme, m_combo.m_hWnd);
}

int GComboBox::Modern::WidestItem()
{
    if (m_nWidest >= 0) {
        return m_nWidest;
    }
    const gesso::WindowContext hdc(m_combo.m_hWnd);
    const gesso::SelectScope font(hdc, m_combo.m_hFont);
    m_nWidest = 0;
    for (const ComboItem* pItem : m_combo.m_aItems) {
        m_nWidest = std::max(m_nWidest, gesso::ComboTextWidth(hdc, pItem->pszText));
    }
    return m_nWidest;
}

RECT GComboBox::Modern::PlaceOfList()
{
    const HWND hwnd = m_combo.m_hWnd;
    MONITORINFO monitor{sizeof(MONITORINFO), {}, {}, 0};
    const BOOL fKnown = GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &monitor);
    gesso::ComboListRoom room{};
    GetWindowRect(hwnd, &room.rcControl);
    room.fMirrored = gesso::IsMirrored(hwnd);
    room.rcWork = fKnown ? monitor.rcWork : RECT{};
    room.cxLeast = m_nDroppedWidth;
    room.cxWidest =
        gesso::Saturated(LONGLONG{WidestItem()} + 2 * gesso::Pixels(hwnd, gesso::Metrics::COMBO_ROW_INSET));
    room.cxBar = gesso::SystemMetric(hwnd, SM_CXVSCROLL);
    room.frame = ListFrame();
    room.cyRow = RowHeight();
    room.nItems = m_combo.GetItemCount();
    room.nMostRows = m_nMinVisible;
    room.cyMost = m_combo.m_nDropdownHeight;
    return gesso::PlaceComboList(room);
}

int GComboBox::Modern::RowHeight() const
{
    if (m_nRowHeight) {
        return m_nRowHeight;
    }
    const HWND hwnd = m_combo.m_hWnd;
    const int nFont = gesso::WindowMeasure(hwnd, m_combo.m_hFont, false).FontMetric().tmHeight;
    return std::max(gesso::Pixels(hwnd, gesso::Metrics::COMBO_ROW_HEIGHT),
                    nFont + 2 * gesso::Pixels(hwnd, ROW_MARGIN));
}

// Also where the list is closed.
UINT GComboBox::Modern::TopRow() const
{
    const UINT nCount = m_combo.GetItemCount();
    return nCount == 0 ? 0 : std::min(List().IsOpen() ? List().RowAt(0) : m_nTop, nCount - 1);
}

// What is in view stays there as far as it can.
void GComboBox::Modern::Arrange()
{
    const LONGLONG nFormerPos = List().m_siV.nPos;
    const int nFormerHeight = List().ItemHeight();
    List().m_nItemHeight = static_cast<UINT>(RowHeight());
    const int nHeight = List().ItemHeight();
    const RECT rc = PlaceOfList();
    const int nPage = rc.bottom - rc.top - 2 * static_cast<int>(List().FrameSize().cy);
    SetWindowPos(List().m_hWnd, nullptr, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    List().SetUpScrolling(nPage);
    List().ShowScrollBar(SB_VERT, List().RowsHeight() > nPage);
    List().ScrollTo(nHeight == nFormerHeight ? nFormerPos : nFormerPos / nFormerHeight * nHeight);
}

void GComboBox::Modern::ArrangeIfOpen()
{
    if (!IsOpen()) {
        return;
    }
    Arrange();
    const UINT nHot = List().m_nHot;
    if (nHot == m_nShown && nHot != RowOfText()) {
        HighlightText();
    }
}

// That the selection or the typed text leads to.
UINT GComboBox::Modern::RowOfText() const
{
    const UINT nSelected = m_combo.Selected();
    return m_combo.ItemAt(nSelected) ? nSelected : MatchOfText();
}

// The row of the text is highlighted, and comes into view.
void GComboBox::Modern::HighlightText()
{
    m_nShown = RowOfText();
    List().ChangeHot(m_nShown);
    List().ShowRow(m_nShown);
    List().Invalidate(0);
}

// --- Closing

void GComboBox::Modern::Toggle()
{
    if (IsOpen()) {
        Close(Ending::Take);
    } else {
        m_fHeld = false;
        Open();
    }
}

void GComboBox::Modern::Close(Ending ending)
{
    if (m_phase == Phase::Opening) {
        m_phase = Phase::Closed; // Open sees to it
    }
    if (!IsOpen()) {
        return;
    }
    m_phase = Phase::Closing;
    const UINT nHot = List().m_nHot;
    const bool fTakes = ending == Ending::Take && List().IsRow(nHot) && nHot != m_nShown;
    const Choice choice = fTakes ? Choose(nHot) : Choice::Same;
    const bool fGivenBack = ending == Ending::GiveBack && GiveBack();
    Finish(ending == Ending::Take && choice != Choice::Failed ? CBN_SELENDOK : CBN_SELENDCANCEL,
           fGivenBack || choice == Choice::Changed);
}

void GComboBox::Modern::Finish(UINT uCode, bool fChanged)
{
    if (Report(uCode) && Hide() && Report(CBN_CLOSEUP) && fChanged) {
        Report(CBN_SELCHANGE);
    }
}

// False where the control is gone.
bool GComboBox::Modern::Hide()
{
    const Lifeline life = Life();
    m_phase = Phase::Closed;
    if (List().IsOpen()) {
        m_nTop = TopRow();
        m_combo.ChangeExpansion(false);
    }
    if (life) {
        m_combo.Invalidate(0);
    }
    return life;
}

// Closes with what was chosen last, which the parent knows; false where the control is gone.
bool GComboBox::Modern::Leave()
{
    const Lifeline life = Life();
    Close(Ending::Leave);
    return life;
}

bool GComboBox::Modern::LeaveIfMoved()
{
    if (!IsOpen()) {
        return true;
    }
    const Place now = PlaceNow();
    const bool fStays = EqualRect(&now.rcControl, &m_place.rcControl) && now.fShown == m_place.fShown &&
                        now.fEnabled == m_place.fEnabled && now.hwndForeground == m_place.hwndForeground;
    return fStays || Leave();
}

// Whether another item is selected now.
bool GComboBox::Modern::GiveBack()
{
    if (!std::exchange(m_fStepped, false)) {
        return false;
    }
    const UINT nLast = m_combo.Selected();
    gesso::ControlText strLast;
    if (!gesso::HoldText(strLast, m_combo.m_strText) || !m_combo.ChangeSelection(m_nFormer)) {
        return false;
    }
    if (!GiveTextOrItemBack()) {
        Field::Mark(m_combo, nLast);
        return false;
    }
    m_combo.Invalidate(0);
    return nLast != m_nFormer || wcscmp(strLast, m_combo.m_strText) != 0;
}

bool GComboBox::Modern::GiveTextOrItemBack()
{
    if (!HasField()) {
        return Field::ShowItem(m_combo); // whose text may be another one now
    }
    return m_combo.ChangeText([&](gesso::TextField& field) {
        const bool fStarted = field.Lines().Start(gesso::TextOrEmpty(m_strFormer));
        field.SelectAll();
        return fStarted;
    });
}

// The selection goes with its item, and so does what Esc gives back.
void GComboBox::Modern::OnItemsChanged(UINT nIndex, int nDelta)
{
    if (nDelta < 0 && m_nFormer == nIndex) {
        m_nFormer = NO_INDEX;
    } else if (m_nFormer != NO_INDEX && m_nFormer >= nIndex) {
        m_nFormer += static_cast<UINT>(nDelta);
    }
    m_nWidest = -1;
    const auto moved = [&](UINT n) {
        const bool fGone = nDelta < 0 && n == nIndex;
        return fGone || n == NO_INDEX ? NO_INDEX : n >= nIndex ? n + static_cast<UINT>(nDelta) : n;
    };
    m_nShown = moved(m_nShown);
    if (IsOpen()) {
        KeepView(nIndex, nDelta);
        List().ChangeHot(moved(List().m_nHot)); // a key may come before the rows are arranged anew
        SetTimer(List().m_hWnd, ARRANGE_TIMER, ARRANGE_DELAY, nullptr);
    }
}

// The rows in view stay where the pointer is when others come or go in front of them.
void GComboBox::Modern::KeepView(UINT nIndex, int nDelta)
{
    GComboBoxList& list = List();
    const LONGLONG nPos = list.m_siV.nPos;
    const UINT nTop = list.RowAt(0);
    if (nPos > 0 && (nDelta > 0 ? nIndex <= nTop : nIndex < nTop)) {
        list.SetUpScrolling(static_cast<int>(list.m_siV.nPage));
        list.ScrollTo(nPos + LONGLONG{nDelta} * list.ItemHeight());
    }
}

// --- Messages of the list's window

bool GComboBox::Modern::OnListMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const POINTS pt = gesso::PointOf(lParam);
    *plAnswer = 0;
    switch (uMsg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDOWN:
    case WM_XBUTTONDBLCLK: return OnListPress(uMsg, pt);
    case WM_LBUTTONUP: OnListRelease(pt); return true;
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
    case WM_XBUTTONUP: return true;
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: return !List().IsOverBar(pt);
    case WM_MOUSEMOVE: OnListMove(wParam, pt); return true;
    case WM_MOUSEWHEEL: OnWheel(GET_WHEEL_DELTA_WPARAM(wParam)); return true;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_CHAR: SendMessageW(m_combo.m_hWnd, uMsg, wParam, lParam); return true;
    case WM_TIMER: OnListTimer(wParam); return true;
    case WM_CANCELMODE: Leave(); return true;
    case WM_CAPTURECHANGED:
        if (!m_fReleasing && reinterpret_cast<HWND>(lParam) != List().m_hWnd) {
            Leave();
        }
        return true;
    case WM_NCDESTROY: m_phase = Phase::Closed; return false;
    default: return false;
    }
}

// False for a press on a row or the bar with the left button, which is the list's own.
bool GComboBox::Modern::OnListPress(UINT uMsg, POINTS pt)
{
    const POINTS ptScreen = gesso::ToScreen(List().m_hWnd, pt);
    RECT rcWindow{};
    RECT rcClient{};
    GetWindowRect(List().m_hWnd, &rcWindow);
    GetClientRect(List().m_hWnd, &rcClient);
    m_fHeld = false;
    if (!PtInRect(&rcWindow, {ptScreen.x, ptScreen.y})) {
        CloseByPress();
        return true;
    }
    const bool fLeft = uMsg == WM_LBUTTONDOWN || uMsg == WM_LBUTTONDBLCLK;
    return !fLeft || !(List().IsOverBar(ptScreen) || PtInRect(&rcClient, {pt.x, pt.y}));
}

// The press is used up, and so is its release, for which another window might show its menu.
void GComboBox::Modern::CloseByPress()
{
    const Lifeline life = Life();
    Close(Ending::GiveBack);
    if (life && m_phase == Phase::Closed && !GetCapture() && IsAnyButtonDown()) {
        SetCapture(m_combo.m_hWnd);
        m_fUsedUp = true;
    }
}

// False where no press that closed the list lasts.
bool GComboBox::Modern::EndPress()
{
    if (!std::exchange(m_fUsedUp, false)) {
        return false;
    }
    ReleaseCapture();
    return true;
}

// A row is chosen that was pressed too, or that the press on the control was drawn to.
void GComboBox::Modern::OnListRelease(POINTS pt)
{
    const Lifeline life = Life();
    if (Frame::State(List()) & GWS_NCPRESSED) {
        m_fReleasing = true;
        List().OnNcLButtonUp(HTVSCROLL, gesso::ToScreen(List().m_hWnd, pt));
        if (life) {
            m_fReleasing = false;
            if (IsOpen()) {
                SetCapture(List().m_hWnd);
            }
        }
        return;
    }
    m_fDrawn = false;
    KillTimer(List().m_hWnd, SCROLL_TIMER);
    const UINT nPressed = std::exchange(List().m_hitDown.nItem, NO_INDEX);
    const bool fDrawn = std::exchange(m_fHeld, false);
    const UINT nItem = List().HitTest(pt);
    if (List().IsRow(nItem) && (fDrawn || List().IsRow(nPressed))) {
        Pick(nItem);
    }
}

void GComboBox::Modern::Pick(UINT nIndex)
{
    m_typed.Forget();
    if (IsOpen()) {
        m_phase = Phase::Closing;
        const Choice choice = Choose(nIndex);
        Finish(choice == Choice::Failed ? CBN_SELENDCANCEL : CBN_SELENDOK, choice == Choice::Changed);
    }
}

// The platform sends moves of a pointer that rests, too, where a window comes up below it.
void GComboBox::Modern::OnListMove(WPARAM wKeys, POINTS pt)
{
    const POINTS ptScreen = gesso::ToScreen(List().m_hWnd, pt);
    if (IsSame(ptScreen, m_ptSeen)) {
        return;
    }
    m_ptSeen = ptScreen;
    const Lifeline life = Life();
    List().OnMouseMove(wKeys, pt);
    if (!life) {
        return;
    }
    if (IsSame(List().m_hitMove.pt, pt) && List().IsRow(List().m_hitMove.nItem)) {
        m_nShown = NO_INDEX;
    }
    KeepScrolling(pt);
}

// A press that is drawn from the rows beyond their edge scrolls them until it comes back.
void GComboBox::Modern::KeepScrolling(POINTS pt)
{
    RECT rcClient{};
    GetClientRect(List().m_hWnd, &rcClient);
    const bool fBeyond = pt.y < 0 || pt.y >= rcClient.bottom;
    const bool fPressed = m_fHeld || List().IsRow(List().m_hitDown.nItem);
    m_fDrawn = fPressed && (m_fDrawn || PtInRect(&rcClient, {pt.x, pt.y}) || !m_fHeld);
    if (m_fDrawn && fBeyond) {
        SetTimer(List().m_hWnd, SCROLL_TIMER, SCROLL_PERIOD, nullptr);
    } else {
        KillTimer(List().m_hWnd, SCROLL_TIMER);
    }
}

// The row at the edge is highlighted.
void GComboBox::Modern::ScrollByRow()
{
    GComboBoxList& list = List();
    RECT rcClient{};
    GetClientRect(list.m_hWnd, &rcClient);
    POINT pt{m_ptSeen.x, m_ptSeen.y};
    ScreenToClient(list.m_hWnd, &pt);
    const bool fUp = pt.y < 0;
    list.ScrollTo(list.m_siV.nPos + (fUp ? -1 : 1) * LONGLONG{list.ItemHeight()});
    const UINT nEdge = list.RowAt(fUp ? 0 : static_cast<int>(rcClient.bottom) - 1);
    if (list.IsRow(nEdge)) {
        list.ChangeHot(nEdge);
        m_nShown = NO_INDEX;
    }
}

void GComboBox::Modern::OnListTimer(WPARAM wTimer)
{
    if (wTimer == PLACE_TIMER) {
        LeaveIfMoved();
    } else if (wTimer == ARRANGE_TIMER) {
        KillTimer(List().m_hWnd, ARRANGE_TIMER);
        ArrangeIfOpen();
    } else if (wTimer == SCROLL_TIMER) {
        ScrollByRow();
    }
}
