#include <gesso/containers/Misuse.h>
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

bool IsWithin(UINT n, UINT nFirst, UINT nLast)
{
    return n >= nFirst && n <= nLast;
}

bool IsPress(UINT uMsg)
{
    switch (uMsg) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDBLCLK:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
    case WM_NCXBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
    case WM_NCRBUTTONDBLCLK:
    case WM_NCMBUTTONDBLCLK:
    case WM_NCXBUTTONDBLCLK: return true;
    default: return false;
    }
}

// A menu that the keyboard asked for, and that waits.
void DropContextMenu(HWND hwnd)
{
    MSG msg{};
    while (PeekMessageW(&msg, hwnd, WM_CONTEXTMENU, WM_CONTEXTMENU, PM_REMOVE)) {
        if (msg.message == WM_QUIT) {
            return PostQuitMessage(static_cast<int>(msg.wParam));
        }
    }
}

// The whole monitor where its work area is not known.
RECT WorkAreaAt(POINT pt)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (GetMonitorInfoW(MonitorFromPoint(pt, MONITOR_DEFAULTTONEAREST), &monitor)) {
        return monitor.rcWork;
    }
    return {0, 0, SystemMetric(nullptr, SM_CXSCREEN), SystemMetric(nullptr, SM_CYSCREEN)};
}

// Right of and below the point, for a mirrored owner left of it; where there is no room below, above it. The
// size fits into the area.
POINT PlaceBeside(POINT pt, SIZE size, const RECT& rcArea, bool fMirrored)
{
    pt = {std::clamp(pt.x, rcArea.left, rcArea.right), std::clamp(pt.y, rcArea.top, rcArea.bottom)};
    const LONG nLowest = rcArea.bottom - size.cy;
    const bool fBelow = pt.y <= nLowest || pt.y - size.cy < rcArea.top;
    const LONG x = fMirrored ? std::max(pt.x - size.cx, rcArea.left) : std::min(pt.x, rcArea.right - size.cx);
    return {x, fBelow ? std::min(pt.y, nLowest) : pt.y - size.cy};
}

} // namespace

TrackedMenu::TrackedMenu(const LPCWSTR* ppszValues, UINT nCount, UINT uChecked)
{
    for (UINT i = 0; i < nCount; i++) {
        AddValue(ppszValues[i]);
    }
    m_hFont = g_hDefaultFont;
    ChangeHot(uChecked < nCount ? static_cast<int>(uChecked) : -1);
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

bool TrackedMenu::Show(HWND hwndOwner, POINT pt)
{
    const RECT rcArea = WorkAreaAt(pt);
    m_hFont = DefaultFontOf(hwndOwner);
    const SIZE rows = SizeOfRows(hwndOwner);
    const SIZE size{std::min(rows.cx + 2 * SystemMetric(hwndOwner, SM_CXBORDER), rcArea.right - rcArea.left),
                    std::min(rows.cy + 2 * SystemMetric(hwndOwner, SM_CYBORDER), rcArea.bottom - rcArea.top)};
    const bool fMirrored = IsMirrored(hwndOwner); // which a window that it owns does not take by itself
    const POINT ptPlace = PlaceBeside(pt, size, rcArea, fMirrored);
    const Placement place{static_cast<int>(ptPlace.x), static_cast<int>(ptPlace.y), static_cast<int>(size.cx),
                          static_cast<int>(size.cy), hwndOwner};
    const DWORD dwExStyle = EX_STYLE | (fMirrored ? WS_EX_LAYOUTRTL : 0);
    if (!Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), place, 0, dwExStyle, STYLE)) {
        return false;
    }
    TakeDpi(m_hWnd, hwndOwner);
    SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc));
    Mark(static_cast<UINT>(m_nHot));
    ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
    return IsWindow(m_hWnd);
}

UINT TrackedMenu::Run(HWND hwndOwner, POINT pt)
{
    POINT ptPointer{};
    GetCursorPos(&ptPointer);
    m_ptPointer = {static_cast<SHORT>(ptPointer.x), static_cast<SHORT>(ptPointer.y)};
    ReleaseCapture(); // of a press that opened the menu: its moves would pass the menu by
    m_hwndTrackOwner = hwndOwner;
    m_hwndForeground = GetForegroundWindow();
    m_fEnded = !IsWindow(hwndOwner) || !Show(hwndOwner, pt);
    MSG msg{};
    while (!m_fEnded && TakeMessage(&msg)) {
        if (IsLeft()) {
            End();
        }
        if (m_fEnded || GoesOn(msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
        m_fEnded = m_fEnded || !IsWindow(hwndOwner); // a child, whose end ends no pop-up
    }
    m_fEnded = true;
    if (Of(m_hWnd) == this) {
        DestroyWindow(m_hWnd);
    }
    return m_nChoice;
}

// False where the program is to end, as the loop around this one then learns, or no message can be had.
bool TrackedMenu::TakeMessage(MSG* pMsg)
{
    const BOOL nGot = GetMessageW(pMsg, nullptr, 0, 0);
    if (nGot == 0) {
        PostQuitMessage(static_cast<int>(pMsg->wParam));
    }
    return nGot > 0;
}

// Whether the owner has gone, or the user to another window. None is in front while that changes.
bool TrackedMenu::IsLeft()
{
    const HWND hwndNow = GetForegroundWindow();
    if (!m_hwndForeground) {
        m_hwndForeground = hwndNow;
    }
    return !IsWindow(m_hwndTrackOwner) || (hwndNow && hwndNow != m_hwndForeground && hwndNow != m_hWnd);
}

bool TrackedMenu::GoesOn(const MSG& msg)
{
    if (IsWithin(msg.message, WM_KEYDOWN, WM_SYSDEADCHAR)) {
        return TakesKey(msg);
    }
    if (msg.message == WM_MOUSEWHEEL || msg.message == WM_MOUSEHWHEEL) {
        OnWheel(msg.message == WM_MOUSEWHEEL ? static_cast<SHORT>(HIWORD(msg.wParam)) : 0);
        return false;
    }
    if (msg.hwnd == m_hWnd) {
        return true;
    }
    if (IsPress(msg.message)) {
        End(); // hides it first, since the press may lead to another menu
    }
    return msg.message != WM_MOUSEMOVE;
}

// Whether the focus gets a key too: what is let go was pressed before, or ends nothing. A key that is held
// may be the one that opened the menu.
bool TrackedMenu::TakesKey(const MSG& msg)
{
    const bool fRepeated = HIWORD(msg.lParam) & KF_REPEAT;
    switch (msg.message) {
    case WM_KEYDOWN:
        if (!fRepeated || msg.wParam != VK_RETURN) {
            OnKey(msg.wParam);
        }
        return false;
    case WM_SYSKEYDOWN:
        if (!fRepeated) {
            End();
        }
        return false;
    case WM_KEYUP:
        if (msg.wParam == VK_APPS) {
            DropContextMenu(msg.hwnd);
            End();
        }
        return msg.wParam != VK_APPS;
    default: return msg.message == WM_SYSKEYUP;
    }
}

void TrackedMenu::OnKey(WPARAM wKey)
{
    const UINT nCount = GetValueCount();
    const auto nHot = static_cast<UINT>(m_nHot);
    switch (wKey) {
    case VK_DOWN: return Mark(nHot + 1 < nCount ? nHot + 1 : 0);
    case VK_UP: return Mark(nHot - 1 < nCount ? nHot - 1 : nCount - 1);
    case VK_HOME: return Mark(0);
    case VK_END: return Mark(nCount - 1);
    case VK_RETURN: return Choose(nHot);
    case VK_ESCAPE: return End();
    default: break;
    }
}

// NO_INDEX marks none.
void TrackedMenu::Mark(UINT nRow)
{
    ChangeHot(static_cast<int>(nRow));
    if (nRow < m_nFirst) {
        m_nFirst = nRow;
    } else if (nRow < GetValueCount() && nRow >= m_nFirst + VisibleRows()) {
        m_nFirst = nRow + 1 - VisibleRows();
    }
    Invalidate(0);
}

UINT TrackedMenu::VisibleRows() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    return std::max<UINT>(static_cast<UINT>(rc.bottom / Pixels(m_hWnd, Metrics::VALUE_MENU_ROW_HEIGHT)), 1);
}

void TrackedMenu::OnWheel(int nDelta)
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

// The window may have come under a pointer that rests: the mark then stays where it is.
void TrackedMenu::OnPointer(POINTS pt)
{
    Frame::TrackLeave(*this);
    const POINTS ptScreen = ToScreen(m_hWnd, pt);
    const POINTS ptFormer = std::exchange(m_ptPointer, ptScreen);
    const UINT nRow = RowAt(pt);
    m_fUsed = m_fUsed || ptScreen.x != ptFormer.x || ptScreen.y != ptFormer.y;
    if (m_fUsed && nRow != static_cast<UINT>(m_nHot)) {
        ChangeHot(static_cast<int>(nRow));
        Invalidate(0);
    }
}

// The first release may be that of the press that opened the menu under a pointer that rests.
void TrackedMenu::OnRelease(POINTS pt)
{
    const POINTS ptScreen = ToScreen(m_hWnd, pt);
    const UINT nRow = RowAt(pt);
    if (nRow != NO_INDEX && (m_fUsed || ptScreen.x != m_ptPointer.x || ptScreen.y != m_ptPointer.y)) {
        Choose(nRow);
    }
    m_fUsed = true;
}

void TrackedMenu::Choose(UINT nRow)
{
    m_nChoice = nRow < GetValueCount() ? nRow : NO_INDEX;
    End();
}

void TrackedMenu::End()
{
    m_fEnded = true;
    ShowWindow(m_hWnd, SW_HIDE);
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
    case WM_LBUTTONDOWN: m_fUsed = true; return 0;
    case WM_LBUTTONUP: OnRelease(PointOf(lParam)); return 0;
    case WM_ACTIVATEAPP:
    case WM_DESTROY:
        if (!m_fEnded && (uMsg == WM_DESTROY || !wParam)) {
            m_fEnded = true;
            PostMessageW(nullptr, WM_NULL, 0, 0); // wakes the loop, which waits for a message
        }
        break;
    default: break;
    }
    return GRightClickMenu::WindowProc(hwnd, uMsg, wParam, lParam);
}

} // namespace gesso
