#include <gesso/containers/Misuse.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/Metrics.h>
#include <gesso/ribbon/TrackedMenu.h>

#include <algorithm>
#include <utility>

namespace gesso {
namespace {

constexpr DWORD EX_STYLE = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
constexpr DWORD STYLE = WS_POPUP | WS_BORDER;
constexpr UINT TEXT_FORMAT = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

} // namespace

TrackedMenu::TrackedMenu(const LPCWSTR* ppszValues, UINT nCount, UINT uChecked)
{
    for (UINT i = 0; i < nCount; i++) {
        AddValue(ppszValues[i]);
    }
    m_hFont = g_hDefaultFont;
    m_nChecked = uChecked < nCount ? uChecked : NO_INDEX;
    ChangeHot(static_cast<int>(m_nChecked));
}

SIZE TrackedMenu::SizeOfRows(HWND hwndOwner) const
{
    const MemoryContext context;
    const SelectScope font(context, m_hFont);
    int cxText = 0;
    for (UINT i = 0; i < GetValueCount(); i++) {
        RECT rcText{};
        DrawTextW(context, GetValue(i), -1, &rcText, DT_CALCRECT | TEXT_FORMAT);
        cxText = std::max<int>(cxText, rcText.right);
    }
    return {cxText + 2 * Pixels(hwndOwner, Metrics::VALUE_MENU_INDENT),
            static_cast<int>(GetValueCount()) * Pixels(hwndOwner, Metrics::VALUE_MENU_ROW_HEIGHT)};
}

bool TrackedMenu::ShowMenu(HWND hwndOwner)
{
    m_hFont = DefaultFontOf(hwndOwner);
    const SIZE rows = SizeOfRows(hwndOwner);
    const SIZE size{rows.cx + 2 * SystemMetric(hwndOwner, SM_CXBORDER),
                    rows.cy + 2 * SystemMetric(hwndOwner, SM_CYBORDER)};
    const bool fMirrored = IsMirrored(hwndOwner); // which a window that it owns does not take by itself
    const RECT rc = PlaceMenu(m_ptPlace, size, fMirrored);
    const Placement place{static_cast<int>(rc.left), static_cast<int>(rc.top),
                          static_cast<int>(rc.right - rc.left), static_cast<int>(rc.bottom - rc.top),
                          hwndOwner};
    const DWORD dwExStyle = EX_STYLE | (fMirrored ? WS_EX_LAYOUTRTL : 0);
    if (!Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), place, 0, dwExStyle, STYLE)) {
        return false;
    }
    TakeDpi(m_hWnd, hwndOwner);
    SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc));
    Mark(static_cast<UINT>(m_nHot));
    ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
    TellAccess(m_hWnd, EVENT_SYSTEM_MENUPOPUPSTART);
    TellMark();
    return IsWindow(m_hWnd);
}

UINT TrackedMenu::Run(HWND hwndOwner, POINT pt)
{
    m_ptPlace = pt;
    RunLoop(hwndOwner);
    if (Of(m_hWnd) == this) {
        DestroyWindow(m_hWnd);
    }
    return m_nChoice;
}

bool TrackedMenu::OnMenuKey(WPARAM wKey)
{
    const UINT nCount = GetValueCount();
    const auto nHot = static_cast<UINT>(m_nHot);
    switch (wKey) {
    case VK_DOWN: Mark(nHot + 1 < nCount ? nHot + 1 : 0); break;
    case VK_UP: Mark(nHot - 1 < nCount ? nHot - 1 : nCount - 1); break;
    case VK_HOME: Mark(0); break;
    case VK_END: Mark(nCount - 1); break;
    case VK_RETURN: Choose(nHot); break;
    case VK_ESCAPE: End(); break;
    default: break;
    }
    return false;
}

// NO_INDEX marks none.
void TrackedMenu::Mark(UINT nRow)
{
    const bool fOther = nRow != static_cast<UINT>(m_nHot);
    ChangeHot(static_cast<int>(nRow));
    if (nRow < m_nFirst) {
        m_nFirst = nRow;
    } else if (nRow < GetValueCount() && nRow >= m_nFirst + VisibleRows()) {
        m_nFirst = nRow + 1 - VisibleRows();
    }
    Invalidate(0);
    if (fOther) {
        TellMark();
    }
}

// To assistive technology: what is marked is where the keys are. The object outlives its window.
void TrackedMenu::TellMark() const
{
    if (static_cast<UINT>(m_nHot) < GetValueCount()) {
        TellAccess(m_hWnd, EVENT_OBJECT_FOCUS, m_nHot + 1);
    }
}

UINT TrackedMenu::VisibleRows() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    return std::max<UINT>(static_cast<UINT>(rc.bottom / Pixels(m_hWnd, Metrics::VALUE_MENU_ROW_HEIGHT)), 1);
}

void TrackedMenu::OnMenuWheel(int nDelta)
{
    m_nWheel -= nDelta;
    const int nSteps = m_nWheel / WHEEL_DELTA;
    m_nWheel -= nSteps * WHEEL_DELTA;
    const int nLast = std::max(static_cast<int>(GetValueCount()) - static_cast<int>(VisibleRows()), 0);
    const auto nFirst = static_cast<UINT>(std::clamp(static_cast<int>(m_nFirst) + nSteps, 0, nLast));
    if (std::exchange(m_nFirst, nFirst) != nFirst) {
        POINT pt{};
        GetCursorPos(&pt);
        ScreenToClient(m_hWnd, &pt);
        ChangeHot(static_cast<int>(RowAt({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)})));
        Invalidate(0);
        TellMark();
    }
}

UINT TrackedMenu::RowAt(POINTS pt) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    if (!PtInRect(&rc, {pt.x, pt.y})) {
        return NO_INDEX;
    }
    const UINT nRow = m_nFirst + static_cast<UINT>(pt.y / Pixels(m_hWnd, Metrics::VALUE_MENU_ROW_HEIGHT));
    return nRow < GetValueCount() ? nRow : NO_INDEX;
}

void TrackedMenu::OnPointer(POINTS pt)
{
    Frame::TrackLeave(*this);
    const UINT nRow = RowAt(pt);
    if (HasMovedTo(ToScreen(m_hWnd, pt)) && nRow != static_cast<UINT>(m_nHot)) {
        ChangeHot(static_cast<int>(nRow));
        Invalidate(0);
        TellMark();
    }
}

void TrackedMenu::OnRelease(POINTS pt)
{
    const UINT nRow = RowAt(pt);
    if (CountsReleaseAt(ToScreen(m_hWnd, pt)) && nRow != NO_INDEX) {
        Choose(nRow);
    }
}

void TrackedMenu::Choose(UINT nRow)
{
    m_nChoice = nRow < GetValueCount() ? nRow : NO_INDEX;
    End();
}

// --- The window

TrackedMenu* TrackedMenu::Of(HWND hwnd)
{
    return hwnd ? static_cast<TrackedMenu*>(Frame::ObjectOf<GRightClickMenu>(hwnd)) : nullptr;
}

LRESULT CALLBACK TrackedMenu::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    TrackedMenu* pMenu = Of(hwnd);
    return pMenu ? pMenu->OnTrackMessage(hwnd, uMsg, wParam, lParam)
                 : GRightClickMenu::WindowProc(hwnd, uMsg, wParam, lParam);
}

LRESULT TrackedMenu::OnTrackMessage(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_PAINT: {
        const BufferedPaint paint(hwnd);
        DrawRows(paint.Context(), m_nFirst, TEXT_FORMAT);
        return 0;
    }
    case WM_MOUSEMOVE: OnPointer(PointOf(lParam)); return 0;
    case WM_MOUSELEAVE:
        Frame::OnMouseLeave(*this);
        ChangeHot(-1);
        return 0;
    case WM_LBUTTONDOWN: NotePress(); return 0;
    case WM_LBUTTONUP: OnRelease(PointOf(lParam)); return 0;
    case WM_ACTIVATEAPP:
    case WM_DESTROY: SeeEnd(uMsg, wParam); break;
    default: break;
    }
    return GRightClickMenu::WindowProc(hwnd, uMsg, wParam, lParam);
}

} // namespace gesso
