// Windows come and go.
#include "Window.h"
#include "Class.h"
#include "Desktop.h"
#include "Focus.h"
#include "Paint.h"
#include "Position.h"
#include "Queue.h"
#include "Requests.h"
#include "Send.h"
#include "Timer.h"

#include "../access/Events.h"
#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../gdi/DeviceContext.h"

#include <algorithm>
#include <atomic>

namespace gesso::headless {
namespace {

HWND NextHandle()
{
    // Never used again, so that a stale handle is always found out.
    static constinit std::atomic<uintptr_t> s_next = 0x10004;
    return reinterpret_cast<HWND>(s_next.fetch_add(2));
}

DWORD CompletedStyle(DWORD style)
{
    if (!(style & WS_CHILD)) {
        style |= WS_CLIPSIBLINGS;
        if (!(style & WS_POPUP)) {
            style |= WS_CAPTION;
        }
    }
    return style;
}

DWORD CompletedExStyle(DWORD exStyle, DWORD style)
{
    const bool raised = (exStyle & WS_EX_DLGMODALFRAME) ||
                        (!(exStyle & WS_EX_STATICEDGE) && ((style & (WS_DLGFRAME | WS_THICKFRAME)) != 0));
    return raised ? exStyle | WS_EX_WINDOWEDGE : exStyle & ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
}

// A child takes its parent's layout, unless that keeps it to itself; a window without a parent or an owner
// takes the process's.
DWORD LaidOut(DWORD exStyle, DWORD style, const Window* parentOrOwner)
{
    if (!parentOrOwner) {
        return exStyle | (DefaultLayout() & LAYOUT_RTL ? WS_EX_LAYOUTRTL : 0);
    }
    const bool child = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    const bool inherits =
        child && IsMirrored(*parentOrOwner) && !(parentOrOwner->exStyle & WS_EX_NOINHERITLAYOUT);
    return exStyle | (inherits ? WS_EX_LAYOUTRTL : 0);
}

// Where a top-level window goes that leaves it to the platform: the screen's corner, three quarters of its
// size.
void ReplaceDefaults(CREATESTRUCTW& create)
{
    const bool overlapped = !(static_cast<DWORD>(create.style) & (WS_CHILD | WS_POPUP));
    if (create.x == static_cast<int>(CW_USEDEFAULT)) {
        create.x = 0;
        create.y = 0;
    }
    if (create.cx == static_cast<int>(CW_USEDEFAULT)) {
        const SIZE screen = SizeOf(Root().frame);
        create.cx = overlapped ? screen.cx * 3 / 4 : 0;
        create.cy = overlapped ? screen.cy * 3 / 4 : 0;
    }
    create.cx = std::max(create.cx, 0);
    create.cy = std::max(create.cy, 0);
}

void Link(Window& window, Window& parent)
{
    window.parent = &parent;
    // A new child goes below its siblings, a new top-level window above them.
    if (window.IsChild()) {
        parent.children.push_back(&window);
    } else {
        parent.children.insert(parent.children.begin(), &window);
    }
}

void Unlink(Window& window)
{
    if (window.parent) {
        std::erase(window.parent->children, &window);
        window.parent = nullptr;
    }
}

void PlaceFirst(Window& window, const CREATESTRUCTW& create)
{
    window.frame = ToScreen(*window.parent, Spanned(create.x, create.y, create.cx, create.cy));
    window.client = window.frame;
}

WindowRef MakeWindow(const CREATESTRUCTW& create, WindowClass& windowClass, Window* parentOrOwner)
{
    auto window = std::make_shared<Window>();
    window->handle = NextHandle();
    window->desktop = TheDesktopRef();
    window->desktop->hadWindows = true;
    window->windowClass = &windowClass;
    window->procedure = windowClass.data.lpfnWndProc;
    window->style = static_cast<DWORD>(create.style) & ~static_cast<DWORD>(WS_VISIBLE);
    window->exStyle = create.dwExStyle;
    window->instance = create.hInstance;
    window->extra.resize(static_cast<size_t>(windowClass.data.cbWndExtra));
    Window* parent = window->IsChild() ? parentOrOwner : nullptr;
    if (window->style & WS_CHILD) {
        window->id = reinterpret_cast<LONG_PTR>(create.hMenu);
    }
    if (!parent && parentOrOwner) {
        window->owner = TopLevelOf(*parentOrOwner).handle;
    }
    Link(*window, parent ? *parent : Root());
    window->uiState = parentOrOwner ? parentOrOwner->uiState : WORD{0};
    PlaceFirst(*window, create);
    std::atomic_ref(windowClass.windows).fetch_add(1);
    Track(Kind::Window, window->handle);
    Windows().emplace(window->handle, window);
    if (parentOrOwner && IsForeign(*parentOrOwner)) {
        JoinInput(*parentOrOwner->desktop, TheDesktop());
    }
    return window;
}

// The window may bound the size that it is made with.
void ApplyMinMaxInfo(Window& window, CREATESTRUCTW& create)
{
    if (!(window.style & WS_THICKFRAME) && (window.style & (WS_POPUP | WS_CHILD))) {
        return;
    }
    const SIZE screen = SizeOf(Root().frame);
    const POINT least = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    MINMAXINFO info{{}, {screen.cx, screen.cy}, {}, least, {screen.cx + 8, screen.cy + 8}};
    Send(window, WM_GETMINMAXINFO, 0, Pointer(&info));
    create.cx = std::clamp<LONG>(create.cx, info.ptMinTrackSize.x,
                                 std::max(info.ptMinTrackSize.x, info.ptMaxTrackSize.x));
    create.cy = std::clamp<LONG>(create.cy, info.ptMinTrackSize.y,
                                 std::max(info.ptMinTrackSize.y, info.ptMaxTrackSize.y));
    PlaceFirst(window, create);
}

void Release(Window& window)
{
    ForgetFocus(window);
    ForgetMessages(window);
    KillTimersOf(window);
    Windows().erase(window.handle);
    Unlink(window);
    ForgetDrawing(window.handle);
    std::atomic_ref(window.windowClass->windows).fetch_sub(1);
    Untrack(Kind::Window, window.handle);
    window.alive = false;
}

void FreeTree(Window& window);

void FreeChildren(const Window& window)
{
    while (window.alive && !window.children.empty()) {
        const WindowRef child = window.children.front()->shared_from_this();
        child->beingDestroyed = true;
        FreeTree(*child);
    }
}

// Children go before their parent's WM_NCDESTROY, and those that it makes in there after it.
void FreeTree(Window& window)
{
    FreeChildren(window);
    if (window.alive) {
        Send(window, WM_NCDESTROY);
    }
    FreeChildren(window);
    if (window.alive) {
        Release(window);
    }
}

std::vector<WindowRef> ChildrenOf(const Window& window)
{
    std::vector<WindowRef> children;
    for (Window* child : window.children) {
        children.push_back(child->shared_from_this());
    }
    return children;
}

// The parent hears WM_DESTROY before its children do.
void SendDestroy(Window& window)
{
    EndCaretOf(window);
    if (window.desktop->shared->active == window.handle) {
        ActivateNext(window);
    }
    Send(window, WM_DESTROY);
    for (const WindowRef& child : ChildrenOf(window)) {
        if (child->alive && child->parent == &window) {
            child->beingDestroyed = true;
            SendDestroy(*child);
        }
    }
}

void DestroyOwned(const Window& owner)
{
    const CallsBy platform(Caller::Platform);
    for (const HWND top : OwnTopLevels()) {
        const WindowRef window = Peek(top);
        if (window && window->owner == owner.handle) {
            DestroyWindow(top);
        }
    }
    for (const auto& [handle, window] : Windows()) {
        if (window->owner == owner.handle && IsForeign(*window)) {
            window->owner = nullptr; // another thread's goes on without an owner
        }
    }
}

void HideForDestruction(Window& window)
{
    if (window.Has(WS_VISIBLE)) {
        if (window.IsChild()) {
            ShowWindow(window.handle, SW_HIDE);
        } else {
            Reposition(window.handle, nullptr, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
        }
    }
}

// What a window gets while it is made, up to the point where it may be shown. False if it refused.
bool Introduce(Window& window, CREATESTRUCTW& create)
{
    ApplyMinMaxInfo(window, create);
    if (window.alive && !Send(window, WM_NCCREATE, 0, Pointer(&create))) {
        if (window.alive) {
            FreeTree(window);
        }
        return false;
    }
    if (window.alive) {
        CalculateClient(window);
    }
    if (window.alive && Send(window, WM_CREATE, 0, Pointer(&create)) == -1) {
        if (window.alive) {
            const CallsBy platform(Caller::Platform);
            DestroyWindow(window.handle);
        }
        return false;
    }
    if (window.alive) {
        TellEvent(EVENT_OBJECT_CREATE, window, OBJID_WINDOW);
    }
    return window.alive;
}

// Sends what follows WM_CREATE: overlapped windows hear of their size when they are shown.
void Settle(Window& window)
{
    window.sizePending = !(window.style & (WS_CHILD | WS_POPUP));
    if (!window.sizePending) {
        SendSizeAndMove(window);
    }
    if (window.alive) {
        NotifyParents(window, WM_CREATE);
    }
}

bool IsUsableParent(const CREATESTRUCTW& create, const WindowRef& parent)
{
    if (create.hwndParent && !parent) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    const auto style = static_cast<DWORD>(create.style);
    const bool child = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    if (child && !parent) {
        SetLastError(ERROR_TLW_WITH_WSCHILD);
        return false;
    }
    // There are no menus: what stands in the menu's place of a top-level window can be none.
    if (!(style & WS_CHILD) && create.hMenu) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return false;
    }
    return true;
}

HWND Create(CREATESTRUCTW& create)
{
    WindowClass* windowClass = FindClass(create.lpszClass, create.hInstance);
    if (!windowClass) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    const WindowRef parent = Peek(create.hwndParent);
    if (!IsUsableParent(create, parent)) {
        return nullptr;
    }
    const bool visible = (create.style & WS_VISIBLE) != 0;
    create.style = static_cast<LONG>(CompletedStyle(static_cast<DWORD>(create.style)));
    create.dwExStyle = CompletedExStyle(create.dwExStyle, static_cast<DWORD>(create.style));
    ReplaceDefaults(create);
    Window* above = IsRoot(parent.get()) ? nullptr : parent.get();
    create.dwExStyle = LaidOut(create.dwExStyle, static_cast<DWORD>(create.style), above);
    const WindowRef window = MakeWindow(create, *windowClass, above);
    if (!Introduce(*window, create)) {
        return nullptr;
    }
    Settle(*window);
    if (visible && window->alive) {
        ShowWindow(window->handle, SW_SHOW);
    }
    return window->alive ? window->handle : nullptr;
}

// Another thread's child of a window that goes: hidden at once, and for that thread to destroy.
void Orphan(Window& child)
{
    Unlink(child);
    child.style &= ~static_cast<DWORD>(WS_VISIBLE);
    child.parent = child.desktop->root.get();
    child.parent->children.push_back(&child);
    Tell(*child.desktop, [hwnd = child.handle]() -> LRESULT {
        const CallsBy platform(Caller::Platform);
        return DestroyWindow(hwnd);
    });
}

} // namespace

void Abandon(Window& window)
{
    const CallsBy platform(Caller::Platform);
    for (const WindowRef& child : ChildrenOf(window)) {
        if (child->desktop != window.desktop) {
            Orphan(*child);
        }
    }
    Uncover(window, window.frame);
    EndCaretOf(window);
    if (window.dialog && window.dialog->font) {
        DeleteObject(window.dialog->font);
    }
    Release(window);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int cx,
                            int cy, HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param)
{
    const TableLock lock;
    if (FaultFires("CreateWindowExW")) {
        return nullptr;
    }
    CREATESTRUCTW create{param, instance ? instance : HostModule(), menuOrId, parent,    cy,     cx, y,
                         x,     static_cast<LONG>(style),           text,     className, exStyle};
    return Create(create);
}

BOOL WINAPI DestroyWindow(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("DestroyWindow")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window || IsRoot(window.get()) || DenyForeign(*window)) {
        return FALSE;
    }
    if (window->beingDestroyed) {
        return TRUE;
    }
    window->beingDestroyed = true;
    if (window->IsChild()) {
        NotifyParents(*window, WM_DESTROY);
    }
    if (window->alive) {
        HideForDestruction(*window);
    }
    if (window->alive && !window->IsChild()) {
        DestroyOwned(*window);
    }
    if (window->alive) {
        SendDestroy(*window);
    }
    if (window->alive) {
        FreeTree(*window);
    }
    return TRUE;
}

DWORD WINAPI GetWindowThreadProcessId(HWND hwnd, LPDWORD process)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (window && process) {
        *process = GetCurrentProcessId();
    }
    return window && window->desktop ? window->desktop->thread : 0;
}

BOOL WINAPI IsWindow(HWND hwnd)
{
    const TableLock lock;
    return Peek(hwnd) != nullptr;
}
}
