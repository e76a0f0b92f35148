#include <gesso/framework/MenuLoop.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>
#include <utility>

namespace gesso {
namespace {

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

bool AreAlike(POINTS a, POINTS b)
{
    return a.x == b.x && a.y == b.y;
}

} // namespace

RECT PlaceMenu(POINT pt, SIZE size, bool fMirrored)
{
    const RECT rcArea = WorkAreaAt(pt);
    size = {std::min(size.cx, rcArea.right - rcArea.left), std::min(size.cy, rcArea.bottom - rcArea.top)};
    pt = {std::clamp(pt.x, rcArea.left, rcArea.right), std::clamp(pt.y, rcArea.top, rcArea.bottom)};
    const LONG nLowest = rcArea.bottom - size.cy;
    const bool fBelow = pt.y <= nLowest || pt.y - size.cy < rcArea.top;
    const LONG x = fMirrored ? std::max(pt.x - size.cx, rcArea.left) : std::min(pt.x, rcArea.right - size.cx);
    const LONG y = fBelow ? std::min(pt.y, nLowest) : pt.y - size.cy;
    return {x, y, x + size.cx, y + size.cy};
}

void MenuLoop::RunLoop(HWND hwndOwner)
{
    POINT ptPointer{};
    GetCursorPos(&ptPointer);
    m_ptPointer = {static_cast<SHORT>(ptPointer.x), static_cast<SHORT>(ptPointer.y)};
    ReleaseCapture(); // of a press that opened the menu: its moves would pass the menu by
    m_hwndOwner = hwndOwner;
    m_hwndForeground = GetForegroundWindow();
    m_fEnded = !IsWindow(hwndOwner) || !ShowMenu(hwndOwner);
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
}

void MenuLoop::End()
{
    m_fEnded = true;
    ShowWindow(LoopWindow(), SW_HIDE);
}

void MenuLoop::SeeEnd(UINT uMsg, WPARAM wParam)
{
    if (!m_fEnded && (uMsg == WM_DESTROY || !wParam)) {
        m_fEnded = true;
        PostMessageW(nullptr, WM_NULL, 0, 0); // wakes the loop, which waits for a message
    }
}

// False where the program is to end, as the loop around this one then learns, or no message can be had.
bool MenuLoop::TakeMessage(MSG* pMsg)
{
    const BOOL nGot = GetMessageW(pMsg, nullptr, 0, 0);
    if (nGot == 0) {
        PostQuitMessage(static_cast<int>(pMsg->wParam));
    }
    return nGot > 0;
}

// Whether the owner has gone, or the user to another window. None is in front while that changes.
bool MenuLoop::IsLeft()
{
    const HWND hwndNow = GetForegroundWindow();
    if (!m_hwndForeground) {
        m_hwndForeground = hwndNow;
    }
    return !IsWindow(m_hwndOwner) || (hwndNow && hwndNow != m_hwndForeground && hwndNow != LoopWindow());
}

bool MenuLoop::GoesOn(const MSG& msg)
{
    if (IsWithin(msg.message, WM_KEYDOWN, WM_SYSDEADCHAR)) {
        return TakesKey(msg);
    }
    if (msg.message == WM_MOUSEWHEEL || msg.message == WM_MOUSEHWHEEL) {
        OnMenuWheel(msg.message == WM_MOUSEWHEEL ? static_cast<SHORT>(HIWORD(msg.wParam)) : 0);
        return false;
    }
    if (msg.hwnd == LoopWindow()) {
        return true;
    }
    if (IsPress(msg.message)) {
        End(); // hides it first, since the press may lead to another menu
    }
    return msg.message != WM_MOUSEMOVE;
}

// A key that is held may be the one that opened the menu.
void MenuLoop::TakeKeyDown(const MSG& msg)
{
    const bool fRepeated = HIWORD(msg.lParam) & KF_REPEAT;
    if ((!fRepeated || msg.wParam != VK_RETURN) && OnMenuKey(msg.wParam)) {
        TranslateMessage(&msg);
    }
}

// Whether the focus gets a key too: what is let go was pressed before, or ends nothing.
bool MenuLoop::TakesKey(const MSG& msg)
{
    switch (msg.message) {
    case WM_KEYDOWN: TakeKeyDown(msg); return false;
    case WM_CHAR: OnMenuCharacter(static_cast<wchar_t>(msg.wParam)); return false;
    case WM_SYSKEYDOWN:
        if (!(HIWORD(msg.lParam) & KF_REPEAT)) {
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

bool MenuLoop::HasMovedTo(POINTS ptScreen)
{
    const POINTS ptFormer = std::exchange(m_ptPointer, ptScreen);
    m_fUsed = m_fUsed || !AreAlike(ptScreen, ptFormer);
    return m_fUsed;
}

bool MenuLoop::CountsReleaseAt(POINTS ptScreen)
{
    return std::exchange(m_fUsed, true) || !AreAlike(ptScreen, m_ptPointer);
}

} // namespace gesso
