// From what a user did to the message that a window gets: done when a message loop takes it out.
#include "Input.h"
#include "Focus.h"
#include "Keyboard.h"
#include "Position.h"
#include "Queue.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

constexpr UINT NON_CLIENT_OFFSET = UINT{WM_NCMOUSEMOVE} - UINT{WM_MOUSEMOVE};

enum class Outcome
{
    Message,
    Dropped, // or another thread's
    NotWanted
};

struct Target
{
    WindowRef window; // null over the bare desktop
    LRESULT hit = HTCLIENT;
    bool captured = false;
};

bool IsPress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

WPARAM HeldKeys()
{
    const auto& keys = TheDesktop().keysSeen;
    WPARAM held = 0;
    const std::pair<int, WPARAM> bits[] = {{VK_LBUTTON, MK_LBUTTON},
                                           {VK_RBUTTON, MK_RBUTTON},
                                           {VK_MBUTTON, MK_MBUTTON},
                                           {VK_SHIFT, MK_SHIFT},
                                           {VK_CONTROL, MK_CONTROL}};
    for (const auto& [key, bit] : bits) {
        held |= (keys[static_cast<size_t>(key)] & 0x80) ? bit : 0;
    }
    return held;
}

// Of a mouse event that the user of another thread meant for a window of this one.
Target TargetOf(HWND hwnd, POINT point)
{
    Target target{Peek(hwnd), HTNOWHERE};
    if (target.window) {
        target.hit = HitIn(*target.window, point);
    }
    return target;
}

Target FindTarget(POINT point)
{
    if (WindowRef holder = Peek(TheDesktop().shared->capture)) {
        return {holder, HTCLIENT, true};
    }
    Target target;
    target.window = WindowAt(point, target.hit);
    return target;
}

// The pointer has left the window that wanted to hear of it.
void EndTracking(const Target& target)
{
    PointerTracking& tracking = TheDesktop().tracking;
    if (!tracking.hwnd) {
        return;
    }
    const bool inside = target.window && target.window->handle == tracking.hwnd &&
                        (target.hit != HTCLIENT) == tracking.nonClient;
    if (!inside) {
        Post(tracking.hwnd, tracking.nonClient ? WM_NCMOUSELEAVE : WM_MOUSELEAVE, 0, 0);
        tracking = {};
    }
}

// Gives an event to the queue of another thread, whose window it is for.
void PassOn(InputEvent event, Desktop& to)
{
    const Desktop& mine = TheDesktop();
    event.time = *to.clock;
    to.pointer = event.point;
    to.keysNow = mine.keysNow;
    to.keyboardLast = mine.keyboardLast;
    QueueInput(to, event);
    Wake(to);
}

// The pointer of this thread's user is over a window of that thread, or no longer over one of another thread.
void MovePointerTo(const std::shared_ptr<Desktop>& guest)
{
    const auto former = std::exchange(TheDesktop().pointerGuest, guest).lock();
    if (former && former != guest) {
        PassOn({WM_MOUSELEAVE, 0, TheDesktop().pointer, 0, false}, *former);
    }
}

Outcome PassOnMouse(InputEvent event, const Target& target)
{
    EndTracking(target);
    TheDesktop().pointerWindow = nullptr;
    TheDesktop().pointerStale = false;
    MovePointerTo(target.window->desktop);
    event.to = target.window->handle;
    PassOn(event, *target.window->desktop);
    return Outcome::Dropped;
}

// Asks by WM_MOUSEACTIVATE whether the press activates the window. False if the press is eaten.
bool ActivateByMouse(Window& window, LRESULT hit, UINT message)
{
    const WindowRef top = TopLevelOf(window).shared_from_this();
    if (window.handle == TheDesktop().shared->active) {
        return true;
    }
    const auto answer =
        Send(window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top->handle), MAKELPARAM(hit, message));
    if ((answer == 0 || answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT) && top->alive) {
        Activate(top.get(), true);
    }
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT && window.alive;
}

bool IsSecondPress(const InputEvent& event, HWND hwnd)
{
    const LastPress& last = TheDesktop().lastPress;
    const int dx = std::abs(event.point.x - last.point.x);
    const int dy = std::abs(event.point.y - last.point.y);
    return last.message == event.message && last.hwnd == hwnd &&
           event.time - last.time <= GetDoubleClickTime() && dx <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
           dy <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
}

// The message of a press: the second one of a pair is a double-click where the window wants those.
UINT PressMessage(const InputEvent& event, const Window& window, LRESULT hit, bool remove)
{
    if (!IsPress(event.message)) {
        return event.message;
    }
    const bool wanted = hit != HTCLIENT || (window.windowClass->data.style & CS_DBLCLKS);
    const bool second = wanted && !event.apart && IsSecondPress(event, window.handle);
    if (remove) {
        TheDesktop().lastPress =
            second ? LastPress{} : LastPress{event.message, window.handle, event.point, event.time};
    }
    return second ? event.message + (WM_LBUTTONDBLCLK - WM_LBUTTONDOWN) : event.message;
}

MSG MouseMessage(const InputEvent& event, const Target& target, UINT message)
{
    const POINT p = event.point;
    MSG out{target.window->handle, message, HeldKeys(), 0, static_cast<DWORD>(event.time), p};
    if (target.hit == HTCLIENT) {
        const POINT client = ToClient(*target.window, p);
        out.lParam = MAKELPARAM(client.x, client.y);
    } else {
        out.message += NON_CLIENT_OFFSET;
        out.wParam = static_cast<WPARAM>(target.hit);
        out.lParam = MAKELPARAM(p.x, p.y);
    }
    return out;
}

// What goes before a mouse message that was not captured. False if the message is dropped.
bool Announce(const Target& target, UINT message)
{
    Window& window = *target.window;
    if (IsPress(message)) {
        NotifyParentsOfPress(window, LOWORD(message), TheDesktop().messagePoint);
        if (!window.alive || (target.hit != HTERROR && !ActivateByMouse(window, target.hit, message))) {
            return false;
        }
    }
    Send(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window.handle), MAKELPARAM(target.hit, message));
    return window.alive && target.hit != HTERROR && target.hit != HTNOWHERE;
}

Outcome TranslateMouse(const InputEvent& event, const Filter& filter, bool remove, MSG& message)
{
    TheDesktop().messagePoint = event.point;
    const Target target = event.to ? TargetOf(event.to, event.point) : FindTarget(event.point);
    if (target.window && IsForeign(*target.window)) {
        return PassOnMouse(event, target);
    }
    if (remove) {
        MovePointerTo(nullptr);
        EndTracking(target);
        TheDesktop().pointerWindow = target.window ? target.window->handle : nullptr;
        TheDesktop().pointerStale = false;
    }
    if (!target.window) {
        return Outcome::Dropped;
    }
    const MSG found = MouseMessage(event, target, PressMessage(event, *target.window, target.hit, remove));
    if (!filter.Takes(found.hwnd, found.message)) {
        return Outcome::NotWanted;
    }
    const bool wanted = remove ? target.captured || Announce(target, event.message) : target.hit != HTERROR;
    message = found; // only now: a loop within those messages may use the same record
    return wanted ? Outcome::Message : Outcome::Dropped;
}

HWND FocusOf(const InputState& input)
{
    return input.focus ? input.focus : input.active;
}

// Where the keys of the user go. With a thread that never had a window the user's are those in the
// foreground.
HWND FocusOfUser()
{
    const auto foreground = TheDesktop().hadWindows ? nullptr : Foreground().lock();
    const HWND own = FocusOf(*TheDesktop().shared);
    return own || !foreground ? own : FocusOf(*foreground->shared);
}

Outcome TranslateWheel(const InputEvent& event, HWND focus, const Filter& filter, MSG& message)
{
    message = {focus,
               WM_MOUSEWHEEL,
               MAKEWPARAM(HeldKeys(), event.wParam),
               MAKELPARAM(event.point.x, event.point.y),
               static_cast<DWORD>(event.time),
               event.point};
    return filter.Takes(message.hwnd, message.message) ? Outcome::Message : Outcome::NotWanted;
}

Outcome TranslateKey(const InputEvent& event, const Filter& filter, MSG& message)
{
    if (!KeyMessage(event, message)) {
        return Outcome::Dropped;
    }
    return filter.Takes(message.hwnd, message.message) ? Outcome::Message : Outcome::NotWanted;
}

Outcome TranslateFocused(const InputEvent& event, const Filter& filter, MSG& message)
{
    const HWND focus = FocusOfUser();
    const WindowRef window = Peek(focus);
    if (!focus) {
        return Outcome::Dropped;
    }
    if (window && IsForeign(*window)) {
        PassOn(event, *window->desktop);
        return Outcome::Dropped;
    }
    return event.message == WM_KEYDOWN ? TranslateKey(event, filter, message)
                                       : TranslateWheel(event, focus, filter, message);
}

Outcome Translate(const InputEvent& event, const Filter& filter, bool remove, MSG& message)
{
    switch (event.message) {
    case WM_KEYDOWN:
    case WM_MOUSEWHEEL: return TranslateFocused(event, filter, message);
    case WM_MOUSELEAVE:
        EndTracking({});
        TheDesktop().pointerWindow = nullptr;
        return Outcome::Dropped;
    default: return TranslateMouse(event, filter, remove, message);
    }
}

// A window may have come or gone under a pointer that rests: the one that is there now hears of it.
void MoveStalePointer()
{
    Desktop& desktop = TheDesktop();
    if (!desktop.pointerStale || !desktop.input.empty()) {
        return;
    }
    desktop.pointerStale = false;
    const Target target = FindTarget(desktop.pointer);
    const HWND now = target.window ? target.window->handle : nullptr;
    const bool own = !target.window || !IsForeign(*target.window);
    if (own && now != desktop.pointerWindow) {
        QueueInput(desktop, {WM_MOUSEMOVE, 0, desktop.pointer, Now(), false});
    }
}

// The first event behind `serial` that no loop further out is at work on.
InputEvent* NextBehind(uint64_t serial)
{
    auto& input = TheDesktop().input;
    const auto next = std::find_if(input.begin(), input.end(), [serial](const InputEvent& event) {
        return event.serial > serial && !event.inWork;
    });
    return next == input.end() ? nullptr : &*next;
}

// Ends the work on an event. What was sent meanwhile may have changed the queue around it.
void Settle(uint64_t serial, bool remove)
{
    auto& input = TheDesktop().input;
    const auto at = std::find_if(input.begin(), input.end(),
                                 [serial](const InputEvent& event) { return event.serial == serial; });
    if (at != input.end()) {
        at->inWork = false;
        if (remove) {
            input.erase(at);
        }
    }
}

} // namespace

void QueueInput(Desktop& desktop, InputEvent event)
{
    auto& input = desktop.input;
    const bool moves =
        event.message == WM_MOUSEMOVE && !input.empty() && input.back().message == WM_MOUSEMOVE;
    if (moves && input.back().to == event.to && !input.back().inWork) {
        input.pop_back();
    }
    event.serial = ++desktop.lastInput;
    event.inWork = false;
    input.push_back(event);
}

bool TakeInput(const Filter& filter, bool remove, MSG& message)
{
    MoveStalePointer();
    uint64_t last = 0;
    bool first = true; // none in front of it is left
    while (InputEvent* next = NextBehind(last)) {
        const InputEvent event = *next;
        if (first) {
            SeeKeys(event, remove);
        }
        last = event.serial;
        next->inWork = true;
        const Outcome outcome = Translate(event, filter, remove, message);
        first = first && outcome == Outcome::Dropped;
        Settle(last, outcome == Outcome::Dropped || (remove && outcome == Outcome::Message));
        if (outcome == Outcome::Message) {
            return true;
        }
    }
    return false;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT request)
{
    const TableLock lock;
    if (FaultFires("TrackMouseEvent")) {
        return FALSE;
    }
    Desktop& desktop = TheDesktop();
    if (request->dwFlags == TME_QUERY) {
        request->hwndTrack = desktop.tracking.hwnd;
        request->dwFlags =
            desktop.tracking.hwnd ? TME_LEAVE | (desktop.tracking.nonClient ? TME_NONCLIENT : 0U) : 0U;
        return TRUE;
    }
    const WindowRef window = Find(request->hwndTrack);
    if (!window || DenyForeign(*window)) {
        return FALSE;
    }
    if (!(request->dwFlags & TME_LEAVE)) {
        return TRUE;
    }
    const bool nonClient = (request->dwFlags & TME_NONCLIENT) != 0;
    if (request->dwFlags & TME_CANCEL) {
        if (desktop.tracking.hwnd == request->hwndTrack && desktop.tracking.nonClient == nonClient) {
            desktop.tracking = {};
        }
        return TRUE;
    }
    if (desktop.pointerWindow != request->hwndTrack) {
        // The pointer is elsewhere already.
        Post(request->hwndTrack, nonClient ? WM_NCMOUSELEAVE : WM_MOUSELEAVE, 0, 0);
        return TRUE;
    }
    desktop.tracking = {request->hwndTrack, nonClient};
    return TRUE;
}

UINT WINAPI GetDoubleClickTime()
{
    return 500;
}

BOOL WINAPI GetCursorPos(LPPOINT point)
{
    const TableLock lock;
    if (FaultFires("GetCursorPos")) {
        return FALSE;
    }
    *point = TheDesktop().pointer;
    return TRUE;
}
}
