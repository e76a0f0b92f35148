#include "Position.h"
#include "Focus.h"
#include "Paint.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>
#include <climits>

namespace gesso::headless {
namespace {

constexpr UINT CLIENT_FLAGS = SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE;

RECT FromParent(const Window& window, const RECT& r)
{
    return ToScreen(*window.parent, r);
}

RECT ToParent(const Window& window, const RECT& r)
{
    return ToClient(*window.parent, r);
}

// Whether two places on the screen begin at the same point of the window's parent.
bool SameCorner(const Window& window, const RECT& a, const RECT& b)
{
    const POINT first = Corner(ToParent(window, a));
    const POINT second = Corner(ToParent(window, b));
    return first.x == second.x && first.y == second.y;
}

// Places and sizes are asked for in 16 bits, and no size is below zero.
WINDOWPOS Bounded(WINDOWPOS pos)
{
    pos.x = std::clamp(pos.x, SHRT_MIN, SHRT_MAX);
    pos.y = std::clamp(pos.y, SHRT_MIN, SHRT_MAX);
    pos.cx = std::clamp(pos.cx, 0, SHRT_MAX);
    pos.cy = std::clamp(pos.cy, 0, SHRT_MAX);
    return pos;
}

// A client area never reaches out of its window's frame by being turned inside out.
RECT Upright(RECT r)
{
    r.right = std::max(r.left, r.right);
    r.bottom = std::max(r.top, r.bottom);
    return r;
}

void MoveTree(Window& window, int64_t dx, int64_t dy)
{
    window.frame = Shifted(window.frame, dx, dy);
    window.client = Shifted(window.client, dx, dy);
    for (Window* child : window.children) {
        MoveTree(*child, dx, dy);
    }
}

void MoveChildren(Window& window, int64_t dx, int64_t dy)
{
    for (Window* child : window.children) {
        MoveTree(*child, dx, dy);
    }
}

// Gives the window a frame and a client area; its children go with the client area.
void Place(Window& window, const RECT& frame, const RECT& client)
{
    const int64_t dx = IsMirrored(window) ? int64_t{client.right} - window.client.right
                                          : int64_t{client.left} - window.client.left;
    const int64_t dy = int64_t{client.top} - window.client.top;
    window.frame = frame;
    window.client = client;
    if (dx != 0 || dy != 0) {
        MoveChildren(window, dx, dy);
    }
}

bool IsLast(const Window& window)
{
    return window.parent->children.back() == &window;
}

// The place among its siblings that a z-order argument means; nothing if that is no change.
void Reorder(Window& window, HWND after)
{
    auto& siblings = window.parent->children;
    if (after == HWND_BOTTOM && IsLast(window)) {
        return;
    }
    const WindowRef above = after == window.handle ? nullptr : Peek(after);
    const bool sibling = above && above->parent == window.parent;
    if (!sibling && after != HWND_TOP && after != HWND_BOTTOM && after != HWND_TOPMOST &&
        after != HWND_NOTOPMOST) {
        return;
    }
    std::erase(siblings, &window);
    auto at = siblings.begin();
    if (after == HWND_BOTTOM) {
        at = siblings.end();
    } else if (sibling) {
        at = std::find(siblings.begin(), siblings.end(), above.get()) + 1;
    }
    siblings.insert(at, &window);
}

// Drops the flags that ask for what is so already.
UINT Reduced(const Window& window, const WINDOWPOS& pos, const RECT& frame)
{
    UINT flags = pos.flags;
    if (window.Has(WS_VISIBLE)) {
        flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    } else {
        flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
        if (!(flags & SWP_SHOWWINDOW)) {
            flags |= SWP_NOREDRAW;
        }
    }
    const SIZE now = SizeOf(window.frame);
    const SIZE next = SizeOf(frame);
    if (now.cx == next.cx && now.cy == next.cy) {
        flags |= SWP_NOSIZE;
    }
    if (SameCorner(window, frame, window.frame)) {
        flags |= SWP_NOMOVE;
    }
    const bool atTop = window.parent->children.front() == &window;
    if ((pos.hwndInsertAfter == HWND_TOP && atTop) || (pos.hwndInsertAfter == HWND_BOTTOM && IsLast(window)))
    {
        flags |= SWP_NOZORDER;
    }
    return flags;
}

RECT WantedFrame(const Window& window, const WINDOWPOS& pos)
{
    RECT frame = ToParent(window, window.frame);
    SIZE size = SizeOf(frame);
    if (!(pos.flags & SWP_NOMOVE)) {
        frame.left = pos.x;
        frame.top = pos.y;
    }
    if (!(pos.flags & SWP_NOSIZE)) {
        size = {std::max(pos.cx, 0), std::max(pos.cy, 0)};
    }
    return FromParent(window, {frame.left, frame.top, Saturated(int64_t{frame.left} + size.cx),
                               Saturated(int64_t{frame.top} + size.cy)});
}

// The client area within a new frame: asked of the window if the size or the frame changes.
RECT WantedClient(Window& window, WINDOWPOS& pos, const RECT& frame)
{
    if ((pos.flags & (SWP_FRAMECHANGED | SWP_NOSIZE)) == SWP_NOSIZE) {
        return Shifted(window.client, int64_t{frame.left} - window.frame.left,
                       int64_t{frame.top} - window.frame.top);
    }
    NCCALCSIZE_PARAMS params{
        {ToParent(window, frame), ToParent(window, window.frame), ToParent(window, window.client)}, &pos};
    Send(window, WM_NCCALCSIZE, TRUE, Pointer(&params));
    return window.alive ? Upright(FromParent(window, params.rgrc[0])) : window.client;
}

UINT ClientChanges(const Window& window, const RECT& client)
{
    UINT flags = 0;
    const SIZE now = SizeOf(window.client);
    const SIZE next = SizeOf(client);
    if (now.cx == next.cx && now.cy == next.cy) {
        flags |= SWP_NOCLIENTSIZE;
    }
    // Relative to the parent's client area, which does not move here.
    if (SameCorner(window, client, window.client)) {
        flags |= SWP_NOCLIENTMOVE;
    }
    return flags;
}

// Invalidates what a change of size or frame leaves to paint in the window itself.
void InvalidateChanges(Window& window, const SIZE& former, UINT flags)
{
    const SIZE now = SizeOf(window.client);
    const UINT classStyle = window.windowClass->data.style;
    const bool whole = (flags & (SWP_SHOWWINDOW | SWP_NOCOPYBITS)) ||
                       ((classStyle & CS_HREDRAW) && now.cx != former.cx) ||
                       ((classStyle & CS_VREDRAW) && now.cy != former.cy);
    UINT redraw = RDW_ERASE;
    if (!(flags & SWP_NOSIZE) || (flags & (SWP_FRAMECHANGED | SWP_SHOWWINDOW))) {
        redraw |= RDW_FRAME;
    }
    if (whole) {
        InvalidateWhole(window, redraw | RDW_ALLCHILDREN);
        return;
    }
    Area gained(RECT{0, 0, now.cx, now.cy});
    gained.Subtract(RECT{0, 0, former.cx, former.cy});
    if (!gained.IsEmpty() || (redraw & RDW_FRAME)) {
        Invalidate(window, gained, redraw);
    }
}

void Repaint(Window& window, const RECT& formerFrame, const SIZE& formerClient, UINT flags)
{
    if (flags & SWP_HIDEWINDOW) {
        window.invalid.Clear();
        Uncover(window, formerFrame);
        return;
    }
    if (!IsShown(window) || (flags & SWP_NOREDRAW)) {
        return;
    }
    if (!SameRect(formerFrame, window.frame) && !(flags & SWP_SHOWWINDOW)) {
        Uncover(window, formerFrame);
    }
    InvalidateChanges(window, formerClient, flags);
}

// The frames and backgrounds that a change has invalidated are painted before it is reported.
void EraseChanges(Window& window, UINT flags)
{
    if (flags & SWP_NOREDRAW) {
        return;
    }
    if (!IsRoot(window.parent)) {
        EraseNow(*window.parent);
    } else if (window.Has(WS_VISIBLE)) {
        EraseNow(window);
    }
}

void ChangeVisibility(Window& window, UINT flags)
{
    if (flags & SWP_SHOWWINDOW) {
        window.style |= WS_VISIBLE;
    } else if (flags & SWP_HIDEWINDOW) {
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
}

bool IsNoChange(UINT flags)
{
    constexpr UINT NOTHING = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | CLIENT_FLAGS;
    constexpr UINT SOMETHING = SWP_FRAMECHANGED | SWP_SHOWWINDOW | SWP_HIDEWINDOW;
    return (flags & (NOTHING | SOMETHING)) == NOTHING;
}

void ActivateAsAsked(Window& window, UINT flags)
{
    if (flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) {
        return;
    }
    if (window.IsChild()) {
        Send(window, WM_CHILDACTIVATE);
    } else {
        Activate(&window, false);
    }
}

void Report(Window& window, WINDOWPOS pos)
{
    if (IsNoChange(pos.flags)) {
        return;
    }
    const RECT frame = ToParent(window, window.frame);
    const SIZE size = SizeOf(frame);
    pos = {pos.hwnd, pos.hwndInsertAfter, frame.left, frame.top, size.cx, size.cy, pos.flags};
    Send(window, WM_WINDOWPOSCHANGED, 0, Pointer(&pos));
}

// Carries out a change of place that the window has agreed to, up to the messages that report it.
bool Change(Window& window, WINDOWPOS& pos)
{
    const RECT frame = WantedFrame(window, pos);
    pos.flags = Reduced(window, pos, frame);
    const RECT client = WantedClient(window, pos, frame);
    if (!window.alive) {
        return false;
    }
    pos.flags |= ClientChanges(window, client);
    const RECT formerFrame = window.frame;
    const SIZE formerClient = SizeOf(window.client);
    if (!(pos.flags & SWP_NOZORDER)) {
        Reorder(window, pos.hwndInsertAfter);
    }
    Place(window, frame, client);
    ChangeVisibility(window, pos.flags);
    TheDesktop().pointerStale = TheDesktop().pointerStale || !IsNoChange(pos.flags);
    Repaint(window, formerFrame, formerClient, pos.flags);
    return window.alive;
}

UINT ShowFlags(const Window& window, int command)
{
    UINT flags = SWP_NOSIZE | SWP_NOMOVE | (command == SW_HIDE ? SWP_HIDEWINDOW : SWP_SHOWWINDOW);
    const bool quiet = command == SW_SHOWNA || command == SW_SHOWNOACTIVATE || command == SW_SHOWMINNOACTIVE;
    if (quiet || window.IsChild()) {
        flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    }
    return flags;
}

// A window that was hidden does not stay the active one, and its parent takes the focus that it had. The
// focus of a window within it stays where it is.
void LeaveHidden(Window& window)
{
    const CallsBy platform(Caller::Platform);
    if (TheDesktop().shared->active == window.handle) {
        ActivateNext(window);
    } else if (window.IsChild() && TheDesktop().shared->focus == window.handle) {
        SetFocus(IsRoot(window.parent) ? nullptr : window.parent->handle);
    }
}

void FinishShow(Window& window, bool show)
{
    if (!show) {
        LeaveHidden(window);
    } else if (window.sizePending) {
        window.sizePending = false;
        SendSizeAndMove(window);
    }
}

} // namespace

void CalculateClient(Window& window)
{
    RECT r = window.frame; // this form of the message counts as the screen does
    Send(window, WM_NCCALCSIZE, FALSE, Pointer(&r));
    if (window.alive) {
        Place(window, window.frame, Upright(r));
    }
}

void SendSizeAndMove(Window& window)
{
    const SIZE size = SizeOf(window.client);
    Send(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    if (window.alive) {
        const RECT client = ToParent(window, window.client);
        Send(window, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
    }
}

void RaiseToTop(Window& window)
{
    Reorder(window, HWND_TOP);
}

BOOL Reposition(HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags)
{
    const WindowRef window = Find(hwnd);
    if (!window || IsRoot(window.get())) {
        return FALSE;
    }
    if (IsForeign(*window)) {
        return Ask(*window->desktop,
                   [=]() -> LRESULT { return Reposition(hwnd, after, x, y, cx, cy, flags); }) != 0;
    }
    WINDOWPOS pos = Bounded({hwnd, after, x, y, cx, cy, flags});
    if (!(flags & SWP_NOSENDCHANGING)) {
        Send(*window, WM_WINDOWPOSCHANGING, 0, Pointer(&pos));
    }
    if (!window->alive || !Change(*window, pos)) {
        return FALSE;
    }
    ActivateAsAsked(*window, pos.flags);
    if (window->alive) {
        EraseChanges(*window, pos.flags);
    }
    if (window->alive) {
        Report(*window, pos);
    }
    return TRUE;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI SetWindowPos(HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags)
{
    const TableLock lock;
    return FaultFires("SetWindowPos") ? FALSE : Reposition(hwnd, after, x, y, cx, cy, flags);
}

BOOL WINAPI MoveWindow(HWND hwnd, int x, int y, int cx, int cy, BOOL repaint)
{
    const TableLock lock;
    if (FaultFires("MoveWindow")) {
        return FALSE;
    }
    const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0U : UINT{SWP_NOREDRAW});
    return Reposition(hwnd, nullptr, x, y, cx, cy, flags);
}

BOOL WINAPI ShowWindow(HWND hwnd, int command)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    if (IsForeign(*window)) {
        return Ask(*window->desktop, [=]() -> LRESULT { return ShowWindow(hwnd, command); }) != 0;
    }
    const bool wasVisible = window->Has(WS_VISIBLE);
    const bool show = command != SW_HIDE;
    const bool nothingToDo = show == wasVisible && command != SW_SHOWNA;
    if (nothingToDo) {
        return wasVisible;
    }
    Send(*window, WM_SHOWWINDOW, show, 0);
    if (window->alive && window->IsChild() && !IsShown(*window->parent)) {
        window->style = show ? window->style | WS_VISIBLE : window->style & ~static_cast<DWORD>(WS_VISIBLE);
    } else if (window->alive) {
        Reposition(hwnd, HWND_TOP, 0, 0, 0, 0, ShowFlags(*window, command));
    }
    if (window->alive) {
        FinishShow(*window, show);
    }
    return wasVisible;
}

BOOL WINAPI BringWindowToTop(HWND hwnd)
{
    const TableLock lock;
    return Reposition(hwnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

HDWP WINAPI BeginDeferWindowPos(int)
{
    if (FaultFires("BeginDeferWindowPos")) {
        return nullptr;
    }
    return static_cast<HDWP>(static_cast<void*>(new std::vector<WINDOWPOS>));
}

HDWP WINAPI DeferWindowPos(HDWP batch, HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags)
{
    const TableLock lock;
    auto* moves = static_cast<std::vector<WINDOWPOS>*>(batch);
    if (!moves || !Find(hwnd)) {
        delete moves;
        return nullptr;
    }
    moves->push_back({hwnd, after, x, y, cx, cy, flags});
    return batch;
}

BOOL WINAPI EndDeferWindowPos(HDWP batch)
{
    const TableLock lock;
    const std::unique_ptr<std::vector<WINDOWPOS>> moves(static_cast<std::vector<WINDOWPOS>*>(batch));
    if (!moves) {
        return FALSE;
    }
    for (const WINDOWPOS& m : *moves) {
        Reposition(m.hwnd, m.hwndInsertAfter, m.x, m.y, m.cx, m.cy, m.flags);
    }
    return TRUE;
}
}
