// Where windows are: rectangles, coordinates, and what lies under a point.
#include "Desktop.h"
#include "Position.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

// Children under the point first, each before what it lies in; disabled children are looked through.
void Collect(const std::vector<Window*>& windows, POINT point, std::vector<WindowRef>& found)
{
    for (Window* window : windows) {
        const bool passedOver = window->IsChild() && window->Has(WS_DISABLED);
        if (!window->Has(WS_VISIBLE) || passedOver || !PtInRect(&window->frame, point)) {
            continue;
        }
        if (PtInRect(&window->client, point)) {
            Collect(window->children, point, found);
        }
        found.push_back(window->shared_from_this());
    }
}

// Puts the top-level windows of another thread behind those that are there, but before their owners.
void PutBehind(const Desktop& other, std::vector<Window*>& windows)
{
    for (Window* window : other.root->children) {
        const auto owner = std::find_if(windows.begin(), windows.end(),
                                        [&](const Window* w) { return w->handle == window->owner; });
        windows.insert(owner, window);
    }
}

// What the user of this thread acts on: its windows, and those of the threads whose input is joined with its
// own. A user whose thread never had a window acts on those of all.
std::vector<Window*> TopLevelsInReach()
{
    const Desktop& mine = TheDesktop();
    std::vector<Window*> windows = Root().children;
    for (const auto& other : AllDesktops()) {
        if (other.get() != &mine && (!mine.hadWindows || AreJoined(*other, mine))) {
            PutBehind(*other, windows);
        }
    }
    return windows;
}

// What MapWindowPoints answers: the sum that it makes, signed as the side that it is counted from.
POINT StepBetween(const Window& source, const Window& target)
{
    const auto originOf = [](const Window& w) { return IsMirrored(w) ? w.client.right : w.client.left; };
    const int64_t dx = int64_t{originOf(source)} - originOf(target);
    const int64_t dy = int64_t{source.client.top} - target.client.top;
    return {Wrapped(IsMirrored(source) ? -dx : dx), Wrapped(dy)};
}

} // namespace

POINT ToScreen(const Window& window, POINT client)
{
    const POINT within = IsMirrored(window) ? Mirrored(SizeOf(window.client).cx, client) : client;
    return Sum(within, Corner(window.client));
}

RECT ToScreen(const Window& window, const RECT& client)
{
    return OutOf(Corner(window.client),
                 IsMirrored(window) ? Mirrored(SizeOf(window.client).cx, client) : client);
}

Area ToScreen(const Window& window, const Area& client)
{
    Area area = client;
    if (IsMirrored(window)) {
        area.Mirror(SizeOf(window.client).cx);
    }
    area.Offset(window.client.left, window.client.top);
    return area;
}

POINT ToClient(const Window& window, POINT screen)
{
    const POINT within = Difference(screen, Corner(window.client));
    return IsMirrored(window) ? Mirrored(SizeOf(window.client).cx, within) : within;
}

RECT ToClient(const Window& window, const RECT& screen)
{
    const RECT within = Within(Corner(window.client), screen);
    return IsMirrored(window) ? Mirrored(SizeOf(window.client).cx, within) : within;
}

Area ToClient(const Window& window, const Area& screen)
{
    Area area = screen;
    area.Offset(-int64_t{window.client.left}, -int64_t{window.client.top});
    if (IsMirrored(window)) {
        area.Mirror(SizeOf(window.client).cx);
    }
    return area;
}

DWORD& DefaultLayout()
{
    static constinit DWORD s_layout = 0;
    return s_layout;
}

RECT FrameWidths(DWORD style, DWORD exStyle, bool menu)
{
    int border = 0;
    if (style & WS_THICKFRAME) {
        border = GetSystemMetrics(SM_CXSIZEFRAME);
    } else if ((style & WS_DLGFRAME) || (exStyle & WS_EX_DLGMODALFRAME)) {
        border = GetSystemMetrics(SM_CXFIXEDFRAME);
    } else if (style & WS_BORDER) {
        border = GetSystemMetrics(SM_CXBORDER);
    }
    if (exStyle & WS_EX_CLIENTEDGE) {
        border += GetSystemMetrics(SM_CXEDGE);
    }
    if (exStyle & WS_EX_STATICEDGE) {
        border += GetSystemMetrics(SM_CXBORDER);
    }
    RECT widths = {border, border, border, border};
    if ((style & WS_CAPTION) == WS_CAPTION) {
        widths.top += GetSystemMetrics(exStyle & WS_EX_TOOLWINDOW ? SM_CYSMCAPTION : SM_CYCAPTION);
    }
    widths.top += menu ? GetSystemMetrics(SM_CYMENU) : 0;
    return widths;
}

WindowRef WindowAt(POINT point, LRESULT& hit)
{
    std::vector<WindowRef> found;
    Collect(TopLevelsInReach(), point, found);
    for (const WindowRef& window : found) {
        hit = HitIn(*window, point);
        if (hit != HTTRANSPARENT && window->alive) {
            return window;
        }
    }
    hit = HTNOWHERE;
    return nullptr;
}

LRESULT HitIn(Window& window, POINT point)
{
    if (IsForeign(window)) {
        return HTCLIENT; // its own thread asks it
    }
    return window.Has(WS_DISABLED) ? HTERROR : Send(window, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI GetWindowRect(HWND hwnd, LPRECT out)
{
    const TableLock lock;
    if (FaultFires("GetWindowRect")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    *out = window->frame;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND hwnd, LPRECT out)
{
    const TableLock lock;
    if (FaultFires("GetClientRect")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    *out = {0, 0, SizeOf(window->client).cx, SizeOf(window->client).cy};
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    const TableLock lock;
    if (FaultFires("MapWindowPoints")) {
        return 0;
    }
    const WindowRef source = from ? Find(from) : TheDesktop().root;
    const WindowRef target = to ? Find(to) : TheDesktop().root;
    if (!source || !target) {
        return 0;
    }
    for (UINT i = 0; i < count; ++i) {
        points[i] = ToClient(*target, ToScreen(*source, points[i]));
    }
    // The two points of a rectangle stay its corners.
    if (count == 2 && IsMirrored(*source) != IsMirrored(*target)) {
        std::swap(points[0].x, points[1].x);
    }
    const POINT step = StepBetween(*source, *target);
    return static_cast<int>(MAKELONG(step.x, step.y));
}

BOOL WINAPI ClientToScreen(HWND hwnd, LPPOINT point)
{
    const TableLock lock;
    if (FaultFires("ClientToScreen")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    *point = ToScreen(*window, *point);
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND hwnd, LPPOINT point)
{
    const TableLock lock;
    if (FaultFires("ScreenToClient")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    *point = ToClient(*window, *point);
    return TRUE;
}

BOOL WINAPI AdjustWindowRectEx(LPRECT r, DWORD style, BOOL menu, DWORD exStyle)
{
    const RECT w = FrameWidths(style, exStyle, menu);
    *r = {Wrapped(int64_t{r->left} - w.left), Wrapped(int64_t{r->top} - w.top),
          Wrapped(int64_t{r->right} + w.right), Wrapped(int64_t{r->bottom} + w.bottom)};
    return TRUE;
}

BOOL WINAPI AdjustWindowRect(LPRECT r, DWORD style, BOOL menu)
{
    return AdjustWindowRectEx(r, style, menu, 0);
}

HWND WINAPI WindowFromPoint(POINT point)
{
    const TableLock lock;
    LRESULT hit = 0;
    const WindowRef window = WindowAt(point, hit);
    return window ? window->handle : Root().handle;
}

BOOL WINAPI SetProcessDefaultLayout(DWORD layout)
{
    const TableLock lock;
    DefaultLayout() = layout;
    return TRUE;
}

BOOL WINAPI GetProcessDefaultLayout(DWORD* layout)
{
    const TableLock lock;
    *layout = DefaultLayout();
    return TRUE;
}

// No window of this desktop is ever made an icon.
BOOL WINAPI IsIconic(HWND)
{
    return FALSE;
}
}
