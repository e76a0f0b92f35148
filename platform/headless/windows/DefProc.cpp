// What the platform itself does with a message.
#include "Desktop.h"
#include "Focus.h"
#include "InputMethod.h"
#include "Paint.h"
#include "Position.h"
#include "Send.h"
#include "UiState.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>
#include <new>

namespace gesso::headless {
namespace {

bool HasParent(const Window& window)
{
    return window.IsChild() && window.parent && !IsRoot(window.parent);
}

RECT Inset(const RECT& r, const RECT& widths)
{
    return {Saturated(int64_t{r.left} + widths.left), Saturated(int64_t{r.top} + widths.top),
            Saturated(int64_t{r.right} - widths.right), Saturated(int64_t{r.bottom} - widths.bottom)};
}

// Takes the room of the standard scroll bars off a client area, which the message may count from the other
// side than the window does.
void ExcludeBars(const Window& window, bool mirroredRect, RECT& r)
{
    const bool leftOfWindow = (window.exStyle & WS_EX_LEFTSCROLLBAR) != 0;
    const bool left = leftOfWindow == (IsMirrored(window) == mirroredRect);
    const int width = GetSystemMetrics(SM_CXVSCROLL);
    if (window.Has(WS_VSCROLL) && SizeOf(r).cx >= width) {
        if (left) {
            r.left += width;
        } else {
            r.right -= width;
        }
    }
    const int height = GetSystemMetrics(SM_CYHSCROLL);
    if (window.Has(WS_HSCROLL) && SizeOf(r).cy >= height) {
        r.bottom -= height;
    }
}

LRESULT OnNcCalcSize(const Window& window, WPARAM withParams, LPARAM lParam)
{
    RECT& r =
        withParams ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : *reinterpret_cast<RECT*>(lParam);
    const RECT widths = FrameWidths(window.style, window.exStyle, false);
    r = Inset(r, widths);
    r.right = std::max(r.left, r.right);
    r.bottom = std::max(r.top, r.bottom);
    // Without parameters the rectangle counts as the screen does, else as the parent does.
    ExcludeBars(window, withParams && window.parent && IsMirrored(*window.parent), r);
    return 0;
}

LRESULT OnNcHitTest(const Window& window, POINT point)
{
    if (!PtInRect(&window.frame, point)) {
        return HTNOWHERE;
    }
    if (PtInRect(&window.client, point)) {
        return HTCLIENT;
    }
    const RECT widths = FrameWidths(window.style, window.exStyle, false);
    const RECT inner = Inset(window.frame, {widths.left, widths.left, widths.right, widths.bottom});
    if (!PtInRect(&inner, point)) {
        return HTBORDER;
    }
    if (point.y < int64_t{window.frame.top} + widths.top) {
        return HTCAPTION;
    }
    const bool below = point.y >= window.client.bottom;
    const bool beside = point.x >= window.client.right || point.x < window.client.left;
    return below && beside ? HTSIZE : below ? HTHSCROLL : HTVSCROLL;
}

LRESULT OnEraseBackground(const Window& window, HDC hdc)
{
    const HBRUSH brush = window.windowClass->data.hbrBackground;
    if (!brush) {
        return 0;
    }
    const SIZE size = SizeOf(window.client);
    const RECT r = {0, 0, size.cx, size.cy};
    FillRect(hdc, &r, brush);
    return 1;
}

LRESULT OnPaint(const Window& window)
{
    PAINTSTRUCT paint;
    if (BeginPaint(window.handle, &paint)) {
        EndPaint(window.handle, &paint);
    }
    return 0;
}

void PrintChildren(Window& window, HDC hdc, LPARAM flags)
{
    const std::vector<WindowRef> children = VisibleChildren(window);
    for (auto at = children.rbegin(); at != children.rend(); ++at) {
        const POINT step = Difference({}, Corner(ToClient(window, (*at)->client)));
        POINT former{};
        OffsetWindowOrgEx(hdc, step.x, step.y, &former);
        Send(**at, WM_PRINT, reinterpret_cast<WPARAM>(hdc), flags);
        SetWindowOrgEx(hdc, former.x, former.y, nullptr);
    }
}

LRESULT OnPrint(Window& window, WPARAM hdc, LPARAM flags)
{
    if ((flags & PRF_CHECKVISIBLE) && !IsShown(window)) {
        return 0;
    }
    if (flags & PRF_ERASEBKGND) {
        Send(window, WM_ERASEBKGND, hdc);
    }
    if (flags & PRF_CLIENT) {
        Send(window, WM_PRINTCLIENT, hdc, flags);
    }
    if (window.alive && (flags & PRF_CHILDREN)) {
        PrintChildren(window, reinterpret_cast<HDC>(hdc), flags);
    }
    return 0;
}

// A window with a sizing frame bounds its own size.
LRESULT OnWindowPosChanging(Window& window, WINDOWPOS& pos)
{
    const bool bounded = window.Has(WS_THICKFRAME) || !(window.style & (WS_POPUP | WS_CHILD));
    if ((pos.flags & SWP_NOSIZE) || !bounded) {
        return 0;
    }
    const SIZE screen = SizeOf(Root().frame);
    MINMAXINFO info{{},
                    {screen.cx, screen.cy},
                    {},
                    {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)},
                    {screen.cx + 8, screen.cy + 8}};
    Send(window, WM_GETMINMAXINFO, 0, Pointer(&info));
    pos.cx = std::clamp<int>(pos.cx, info.ptMinTrackSize.x,
                             std::max(info.ptMinTrackSize.x, info.ptMaxTrackSize.x));
    pos.cy = std::clamp<int>(pos.cy, info.ptMinTrackSize.y,
                             std::max(info.ptMinTrackSize.y, info.ptMaxTrackSize.y));
    return 0;
}

LRESULT OnWindowPosChanged(Window& window, const WINDOWPOS& pos)
{
    const UINT flags = pos.flags;
    if (!(flags & SWP_NOCLIENTMOVE)) {
        const POINT corner = Corner(window.parent ? ToClient(*window.parent, window.client) : window.client);
        Send(window, WM_MOVE, 0, MAKELPARAM(corner.x, corner.y));
    }
    if (window.alive && !(flags & SWP_NOCLIENTSIZE)) {
        const SIZE size = SizeOf(window.client);
        Send(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    }
    return 0;
}

LRESULT OnMouseActivate(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (HasParent(window)) {
        if (const LRESULT answer = Send(*window.parent, WM_MOUSEACTIVATE, wParam, lParam)) {
            return answer;
        }
    }
    return MA_ACTIVATE;
}

LRESULT OnSetCursor(Window& window, WPARAM wParam, LPARAM lParam)
{
    const int hit = static_cast<SHORT>(LOWORD(lParam));
    if (HasParent(window) && hit != HTERROR) {
        if (Send(*window.parent, WM_SETCURSOR, wParam, lParam)) {
            return TRUE;
        }
    }
    const WindowRef under = Peek(reinterpret_cast<HWND>(wParam));
    if (under.get() != &window) {
        return FALSE;
    }
    const HCURSOR own =
        hit == HTCLIENT ? window.windowClass->data.hCursor : LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    if (!own) {
        return FALSE;
    }
    SetCursor(own);
    return TRUE;
}

bool IsEditColor(UINT message)
{
    return message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
}

LRESULT OnControlColor(UINT message, HDC hdc)
{
    const int background = IsEditColor(message) ? COLOR_WINDOW : COLOR_BTNFACE;
    SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(hdc, GetSysColor(background));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(background));
}

LRESULT OnSysCommand(const Window& window, WPARAM command)
{
    if ((command & 0xFFF0) == SC_CLOSE) {
        return SendMessageW(window.handle, WM_CLOSE, 0, 0);
    }
    return 0;
}

// The keyboard asks for the menu at no place: the coordinates are -1.
LRESULT AskForContextMenu(Window& window)
{
    return Send(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle), -1);
}

LRESULT OnSysKeyDown(Window& window, WPARAM vk, LPARAM lParam)
{
    if (vk == VK_F10 && GetKeyState(VK_SHIFT) < 0) {
        return AskForContextMenu(window);
    }
    const bool alt = (lParam & (1 << 29)) != 0;
    if (alt && vk == VK_F4) {
        Window& top = TopLevelOf(window);
        if (!(top.windowClass->data.style & CS_NOCLOSE)) {
            PostMessageW(top.handle, WM_SYSCOMMAND, SC_CLOSE, 0);
        }
    }
    return 0;
}

LRESULT OnRightButtonUp(Window& window, LPARAM lParam)
{
    POINT p = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ClientToScreen(window.handle, &p);
    return Send(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle), MAKELPARAM(p.x, p.y));
}

LRESULT PassToParent(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return HasParent(window) ? Send(*window.parent, message, wParam, lParam) : 0;
}

LRESULT OnSetText(Window& window, LPARAM lParam)
{
    try {
        window.text = View(reinterpret_cast<LPCWSTR>(lParam));
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
    return TRUE;
}

LRESULT OnActivate(const Window& window, WPARAM wParam)
{
    if (LOWORD(wParam) != WA_INACTIVE) {
        SetFocus(window.handle);
    }
    return 0;
}

void SetRedraw(Window& window, bool on)
{
    window.style = on ? window.style | WS_VISIBLE : window.style & ~static_cast<DWORD>(WS_VISIBLE);
}

// The messages that tell the window what it is: creation, text, geometry.
bool HandleState(Window& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_NCCREATE: {
        const LPCWSTR text = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName;
        window.text = IS_INTRESOURCE(text) ? WideText() : WideText(View(text));
        result = TRUE;
        return true;
    }
    case WM_NCDESTROY: window.text.clear(); return true;
    case WM_SETTEXT: result = OnSetText(window, lParam); return true;
    case WM_GETTEXT:
        result = CopyText(window.text, reinterpret_cast<LPWSTR>(lParam), static_cast<int>(wParam));
        return true;
    case WM_GETTEXTLENGTH: result = static_cast<LRESULT>(window.text.size()); return true;
    case WM_NCCALCSIZE: result = OnNcCalcSize(window, wParam, lParam); return true;
    case WM_NCHITTEST:
        result = OnNcHitTest(window, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return true;
    case WM_WINDOWPOSCHANGING:
        result = OnWindowPosChanging(window, *reinterpret_cast<WINDOWPOS*>(lParam));
        return true;
    case WM_WINDOWPOSCHANGED:
        result = OnWindowPosChanged(window, *reinterpret_cast<WINDOWPOS*>(lParam));
        return true;
    case WM_SETREDRAW: SetRedraw(window, wParam != 0); return true;
    case WM_CLOSE: DestroyWindow(window.handle); return true;
    case WM_NOTIFYFORMAT: result = NFR_UNICODE; return true;
    default: return false;
    }
}

bool HandlePaint(Window& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    const auto hdc = reinterpret_cast<HDC>(wParam);
    switch (message) {
    case WM_PAINT: result = OnPaint(window); return true;
    case WM_ERASEBKGND:
    case WM_ICONERASEBKGND: result = OnEraseBackground(window, hdc); return true;
    case WM_PRINT: result = OnPrint(window, wParam, lParam); return true;
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORSCROLLBAR: result = OnControlColor(message, hdc); return true;
    default: return false;
    }
}

bool HandleInput(Window& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_MOUSEACTIVATE: result = OnMouseActivate(window, wParam, lParam); return true;
    case WM_SETCURSOR: result = OnSetCursor(window, wParam, lParam); return true;
    case WM_MOUSEWHEEL:
    case WM_CONTEXTMENU: result = PassToParent(window, message, wParam, lParam); return true;
    case WM_RBUTTONUP: result = OnRightButtonUp(window, lParam); return true;
    case WM_SYSCOMMAND: result = OnSysCommand(window, wParam); return true;
    case WM_SYSKEYDOWN: result = OnSysKeyDown(window, wParam, lParam); return true;
    case WM_KEYUP: result = wParam == VK_APPS ? AskForContextMenu(window) : 0; return true;
    case WM_ACTIVATE: result = OnActivate(window, wParam); return true;
    case WM_NCACTIVATE: result = TRUE; return true;
    case WM_IME_COMPOSITION: TypeResult(window, lParam); return true;
    case WM_IME_CHAR: PostMessageW(window.handle, WM_CHAR, wParam, lParam); return true;
    case WM_CANCELMODE:
        if (TheDesktop().shared->capture == window.handle) {
            ReleaseCapture();
        }
        return true;
    default: return false;
    }
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" LRESULT WINAPI DefWindowProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    const CallsBy platform(Caller::Platform);
    const WindowRef window = Find(hwnd);
    LRESULT result = 0;
    if (window && (HandleState(*window, message, wParam, lParam, result) ||
                   HandlePaint(*window, message, wParam, lParam, result) ||
                   HandleInput(*window, message, wParam, lParam, result) ||
                   HandleUiState(*window, message, wParam, result)))
    {
        return result;
    }
    return 0;
}
