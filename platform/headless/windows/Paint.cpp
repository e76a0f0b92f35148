#include "Paint.h"
#include "Queue.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../gdi/DeviceContext.h"
#include "../gdi/Objects.h"

namespace gesso::headless {

std::vector<WindowRef> VisibleChildren(const Window& window)
{
    std::vector<WindowRef> children;
    for (Window* child : window.children) {
        if (child->Has(WS_VISIBLE)) {
            children.push_back(child->shared_from_this());
        }
    }
    return children;
}

namespace {

// The part of a window that its ancestors leave to be seen, in its client coordinates.
RECT VisiblePart(const Window& window)
{
    RECT part = window.frame;
    for (const Window* above = window.parent; above; above = above->parent) {
        IntersectRect(&part, &part, &above->client);
    }
    return ToClient(window, part);
}

RECT ClientRect(const Window& window)
{
    return {0, 0, SizeOf(window.client).cx, SizeOf(window.client).cy};
}

DWORD LayoutOf(const Window& window)
{
    return IsMirrored(window) ? LAYOUT_RTL : 0;
}

HDC ClientContext(const Window& window)
{
    return CreateWindowContext(window.handle, SizeOf(window.client), false, LayoutOf(window));
}

Area AreaOf(HRGN region)
{
    const auto* known = Find<Region>(region);
    return known ? known->area : Area();
}

// What a call means that gives a region, a rectangle, or null for everything.
Area WantedArea(const Window& window, const RECT* rect, HRGN region)
{
    return region ? AreaOf(region) : Area(rect ? *rect : ClientRect(window));
}

bool ReachesChildren(const Window& window, UINT flags)
{
    return !(flags & RDW_NOCHILDREN) && ((flags & RDW_ALLCHILDREN) || !window.Has(WS_CLIPCHILDREN));
}

Area WithinChild(const Window& parent, const Window& child, const Area& area)
{
    return ToClient(child, ToScreen(parent, area));
}

void ExcludeChildren(const Window& window, Area& area)
{
    for (const Window* child : window.children) {
        if (child->Has(WS_VISIBLE)) {
            area.Subtract(ToClient(window, child->frame));
        }
    }
}

void InvalidateChildren(const Window& window, const Area& area, UINT flags)
{
    for (Window* child : window.children) {
        Area within = WithinChild(window, *child, area);
        within.Intersect(ToClient(*child, child->frame));
        if (!within.IsEmpty()) {
            Invalidate(*child, within, flags | RDW_FRAME | RDW_ERASE);
        }
    }
}

void Validate(Window& window, const Area& area, UINT flags)
{
    window.invalid.Subtract(area);
    if (window.invalid.IsEmpty()) {
        window.eraseInvalid = false;
    }
    if (flags & RDW_NOFRAME) {
        window.frameInvalid = false;
    }
    if (ReachesChildren(window, flags)) {
        for (Window* child : window.children) {
            Validate(*child, WithinChild(window, *child, area), flags);
        }
    }
}

bool NeedsPaint(const Window& window)
{
    return !window.invalid.IsEmpty() || window.frameInvalid;
}

// A window that cannot begin its paint stays invalid. It is asked a few times, so that one failure passes;
// then the loop goes on to what else there is.
bool IsGivenUp(const Window& window)
{
    constexpr int TRIES = 10;
    return window.failedPaints >= TRIES;
}

Window* FirstToPaint(Window& window, const Filter& filter)
{
    if (!window.Has(WS_VISIBLE)) {
        return nullptr;
    }
    if (window.desktop.get() == &TheDesktop() && NeedsPaint(window) && !IsGivenUp(window) &&
        filter.Takes(window.handle, WM_PAINT))
    {
        return &window;
    }
    for (Window* child : window.children) {
        if (Window* found = FirstToPaint(*child, filter)) {
            return found;
        }
    }
    return nullptr;
}

// The first window of this thread: in its own top-level windows, or within those of other threads.
Window* FirstToPaint(const Filter& filter)
{
    Window* found = FirstToPaint(Root(), filter);
    for (const auto& desktop : AllDesktops()) {
        if (!found && desktop->root.get() != &Root()) {
            found = FirstToPaint(*desktop->root, filter);
        }
    }
    return found;
}

void PaintNow(Window& window, bool children)
{
    if (window.alive && IsShown(window) && NeedsPaint(window)) {
        Send(window, WM_PAINT);
    }
    if (window.alive && children) {
        for (const WindowRef& child : VisibleChildren(window)) {
            if (!IsForeign(*child)) { // whose thread paints in its own time
                PaintNow(*child, true);
            }
        }
    }
}

void PaintFrame(Window& window)
{
    if (window.frameInvalid) {
        window.frameInvalid = false;
        Send(window, WM_NCPAINT, 1);
    }
}

// True if the background is still to be erased by the caller.
bool PaintBackground(Window& window, HDC hdc)
{
    if (!window.eraseInvalid) {
        return false;
    }
    window.eraseInvalid = false;
    return Send(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc)) == 0;
}

HDC ContextClippedTo(const Window& window, const Area& area)
{
    const HDC hdc = ClientContext(window);
    if (hdc) {
        SetVisibleArea(hdc, area);
    }
    return hdc;
}

} // namespace

void Invalidate(Window& window, Area area, UINT flags)
{
    const RECT visible = VisiblePart(window);
    if (!IsShown(window) || IsRectEmpty(&visible)) {
        return;
    }
    const bool children = ReachesChildren(window, flags);
    area.Intersect(ClientRect(window));
    area.Intersect(visible);
    if (children) {
        InvalidateChildren(window, area, flags);
    } else if (!(flags & RDW_NOCHILDREN)) {
        ExcludeChildren(window, area);
    }
    window.frameInvalid = window.frameInvalid || (flags & RDW_FRAME);
    window.eraseInvalid = window.eraseInvalid || ((flags & RDW_ERASE) && !area.IsEmpty());
    window.invalid.Add(area);
    if (IsForeign(window)) {
        Wake(*window.desktop);
    }
}

void InvalidateWhole(Window& window, UINT flags)
{
    Invalidate(window, Area(ClientRect(window)), flags);
}

void EraseNow(Window& window)
{
    const WindowRef keep = window.shared_from_this();
    const bool own = !IsForeign(window);
    if (own) {
        PaintFrame(window);
    }
    if (own && window.alive && window.eraseInvalid && !window.invalid.IsEmpty()) {
        const HDC hdc = ContextClippedTo(window, window.invalid);
        const bool open = PaintBackground(window, hdc);
        window.eraseInvalid = open;
        DeleteWindowContext(hdc);
    }
    for (const WindowRef& child : VisibleChildren(window)) {
        if (child->alive) {
            EraseNow(*child);
        }
    }
}

void Uncover(Window& window, const RECT& screen)
{
    if (!window.parent || IsRoot(window.parent)) {
        return;
    }
    Area area(screen);
    if (window.Has(WS_VISIBLE)) {
        area.Subtract(window.frame);
    }
    Invalidate(*window.parent, ToClient(*window.parent, area), RDW_ERASE | RDW_ALLCHILDREN);
}

void RetryPaints()
{
    for (const auto& [handle, window] : Windows()) {
        window->failedPaints = IsForeign(*window) ? window->failedPaints : 0;
    }
}

bool TakePaint(const Filter& filter, MSG& message)
{
    const Window* window = FirstToPaint(filter);
    if (!window) {
        return false;
    }
    message = {window->handle, WM_PAINT, 0, 0, static_cast<DWORD>(Now()), TheDesktop().pointer};
    return true;
}

namespace {

BOOL Redraw(HWND hwnd, const RECT* rect, HRGN region, UINT flags)
{
    const WindowRef window = hwnd ? Find(hwnd) : TheDesktop().root;
    if (!window) {
        return FALSE;
    }
    if (flags & RDW_INVALIDATE) {
        Invalidate(*window, WantedArea(*window, rect, region), flags);
    } else if (flags & RDW_VALIDATE) {
        Validate(*window, WantedArea(*window, rect, region), flags);
    }
    if (flags & RDW_UPDATENOW) {
        PaintNow(*window, !(flags & RDW_NOCHILDREN));
    } else if (flags & RDW_ERASENOW) {
        EraseNow(*window);
    }
    return TRUE;
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI RedrawWindow(HWND hwnd, const RECT* rect, HRGN region, UINT flags)
{
    const TableLock lock;
    return FaultFires("RedrawWindow") ? FALSE : Redraw(hwnd, rect, region, flags);
}

BOOL WINAPI InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase)
{
    const TableLock lock;
    if (FaultFires("InvalidateRect")) {
        return FALSE;
    }
    return Redraw(hwnd, rect, nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0U));
}

BOOL WINAPI InvalidateRgn(HWND hwnd, HRGN region, BOOL erase)
{
    const TableLock lock;
    return Redraw(hwnd, nullptr, region, RDW_INVALIDATE | (erase ? RDW_ERASE : 0U));
}

BOOL WINAPI ValidateRect(HWND hwnd, const RECT* rect)
{
    const TableLock lock;
    return Redraw(hwnd, rect, nullptr, RDW_VALIDATE | (rect ? 0U : UINT{RDW_NOFRAME}));
}

BOOL WINAPI UpdateWindow(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("UpdateWindow")) {
        return FALSE;
    }
    return hwnd && Redraw(hwnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

BOOL WINAPI GetUpdateRect(HWND hwnd, LPRECT out, BOOL erase)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    if (erase) {
        EraseNow(*window);
    }
    if (out) {
        *out = window->invalid.Bounds();
    }
    return !window->invalid.IsEmpty();
}

int WINAPI GetUpdateRgn(HWND hwnd, HRGN region, BOOL erase)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return ERROR;
    }
    if (erase) {
        EraseNow(*window);
    }
    if (auto* out = Find<Region>(region)) {
        out->area = window->invalid;
    }
    RECT bounds{};
    return GetRgnBox(region, &bounds);
}

HDC WINAPI BeginPaint(HWND hwnd, LPPAINTSTRUCT paint)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return nullptr;
    }
    if (FaultFires("BeginPaint")) {
        ++window->failedPaints;
        return nullptr;
    }
    window->failedPaints = 0;
    if (TheDesktop().caret.hwnd == hwnd) {
        HideCaret(hwnd);
    }
    PaintFrame(*window);
    if (!window->alive) {
        return nullptr;
    }
    *paint = {};
    const Area area = std::exchange(window->invalid, Area());
    paint->rcPaint = area.Bounds();
    paint->hdc = ContextClippedTo(*window, area);
    paint->fErase = PaintBackground(*window, paint->hdc);
    return paint->hdc;
}

BOOL WINAPI EndPaint(HWND hwnd, const PAINTSTRUCT* paint)
{
    const TableLock lock;
    const CallsBy platform(Caller::Platform);
    if (paint->hdc) {
        DeleteWindowContext(paint->hdc);
    }
    if (TheDesktop().caret.hwnd == hwnd) {
        ShowCaret(hwnd);
    }
    return TRUE;
}

HDC WINAPI GetDCEx(HWND hwnd, HRGN region, DWORD flags)
{
    const TableLock lock;
    const WindowRef window = hwnd ? Find(hwnd) : TheDesktop().root;
    if (!window) {
        return nullptr;
    }
    const bool whole = (flags & DCX_WINDOW) != 0;
    const RECT& r = whole ? window->frame : window->client;
    const HDC hdc = CreateWindowContext(window->handle, SizeOf(r), whole, LayoutOf(*window));
    if (hdc && region && (flags & DCX_INTERSECTRGN)) {
        SetVisibleArea(hdc, AreaOf(region));
        RemoveObject(region); // the context has taken it over
    }
    return hdc;
}

HDC WINAPI GetDC(HWND hwnd)
{
    return FaultFires("GetDC") ? nullptr : GetDCEx(hwnd, nullptr, 0);
}

HDC WINAPI GetWindowDC(HWND hwnd)
{
    return FaultFires("GetWindowDC") ? nullptr : GetDCEx(hwnd, nullptr, DCX_WINDOW);
}

int WINAPI ReleaseDC(HWND, HDC hdc)
{
    const TableLock lock;
    if (FaultFires("ReleaseDC")) {
        return 0;
    }
    if (!WindowOfContext(hdc)) {
        return 0;
    }
    DeleteWindowContext(hdc);
    return 1;
}
}
