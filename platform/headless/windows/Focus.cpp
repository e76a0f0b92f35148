#include "Focus.h"
#include "Position.h"
#include "Send.h"

#include "../core/Faults.h"

#include <algorithm>

namespace gesso::headless {
namespace {

WPARAM Handle(const WindowRef& window)
{
    return window ? reinterpret_cast<WPARAM>(window->handle) : 0;
}

void TellAll(bool active)
{
    for (const HWND top : TopLevelWindows()) {
        if (const WindowRef window = Peek(top)) {
            Send(*window, WM_ACTIVATEAPP, active, 1);
        }
    }
}

bool Deactivate(Window& window, const WindowRef& next)
{
    const auto other = static_cast<LPARAM>(Handle(next));
    if (!Send(window, WM_NCACTIVATE, FALSE, other) && next) {
        return false;
    }
    if (window.alive) {
        Send(window, WM_ACTIVATE, WA_INACTIVE, other);
    }
    return true;
}

void FocusIntoActive(const WindowRef& active)
{
    const WindowRef focus = Peek(TheDesktop().focus);
    if (!focus || !IsWithin(*focus, *active)) {
        MoveFocus(active.get());
    }
}

// The messages to the window that has become the active one, in the former one's place.
bool Welcome(const WindowRef& window, HWND former, bool byMouse)
{
    Desktop& desktop = TheDesktop();
    if (window->parent->children.front() != window.get()) {
        Reposition(window->handle, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    }
    if (!former || desktop.elsewhere) {
        desktop.elsewhere = false;
        TellAll(true);
    }
    const auto other = reinterpret_cast<LPARAM>(former);
    Send(*window, WM_NCACTIVATE, TRUE, other);
    Send(*window, WM_ACTIVATE, byMouse ? WA_CLICKACTIVE : WA_ACTIVE, other);
    if (desktop.active == window->handle) {
        FocusIntoActive(window);
    }
    return desktop.active == window->handle;
}

bool CanBeActive(const Window& window)
{
    return window.Has(WS_VISIBLE) && !window.Has(WS_DISABLED) && !(window.exStyle & WS_EX_NOACTIVATE);
}

void SetCaptureTo(HWND next)
{
    Desktop& desktop = TheDesktop();
    const WindowRef former = Peek(desktop.capture);
    desktop.capture = next;
    if (former) {
        Send(*former, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(next));
    }
}

} // namespace

bool Activate(Window* window, bool byMouse)
{
    Desktop& desktop = TheDesktop();
    const HWND next = window ? window->handle : nullptr;
    if (desktop.active == next) {
        return true;
    }
    const HWND former = desktop.active;
    const WindowRef target = Peek(next);
    const WindowRef leaving = Peek(former);
    if (leaving && !Deactivate(*leaving, target)) {
        return false;
    }
    if (target && !target->alive) {
        return false;
    }
    desktop.active = next;
    if (!target) {
        TellAll(false);
        MoveFocus(nullptr);
        return true;
    }
    return Welcome(target, leaving && leaving->alive ? former : nullptr, byMouse);
}

void ActivateNext(Window& leaving)
{
    const WindowRef owner = Peek(leaving.owner);
    if (owner && CanBeActive(*owner)) {
        Activate(owner.get(), false);
        return;
    }
    for (const HWND top : TopLevelWindows()) {
        const WindowRef candidate = Peek(top);
        if (candidate.get() != &leaving && CanBeActive(*candidate)) {
            Activate(candidate.get(), false);
            return;
        }
    }
    Activate(nullptr, false);
}

void MoveFocus(Window* window)
{
    Desktop& desktop = TheDesktop();
    const HWND next = window ? window->handle : nullptr;
    const HWND former = desktop.focus;
    if (former == next) {
        return;
    }
    desktop.focus = next;
    if (const WindowRef leaving = Peek(former)) {
        Send(*leaving, WM_KILLFOCUS, reinterpret_cast<WPARAM>(next));
    }
    const WindowRef entering = Peek(next);
    if (entering && desktop.focus == next) {
        Send(*entering, WM_SETFOCUS, reinterpret_cast<WPARAM>(IsWindow(former) ? former : nullptr));
    }
}

void ForgetFocus(Window& window)
{
    Desktop& desktop = TheDesktop();
    for (HWND* held :
         {&desktop.active, &desktop.focus, &desktop.capture, &desktop.tracking.hwnd, &desktop.pointerWindow})
    {
        if (*held == window.handle) {
            *held = nullptr;
        }
    }
    desktop.pointerStale = true;
}

void SwitchAway()
{
    TheDesktop().elsewhere = true;
    Activate(nullptr, false);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HWND WINAPI GetFocus()
{
    return TheDesktop().focus;
}

HWND WINAPI SetFocus(HWND hwnd)
{
    if (FaultFires("SetFocus")) {
        return nullptr;
    }
    Desktop& desktop = TheDesktop();
    const HWND former = desktop.focus;
    if (!hwnd) {
        MoveFocus(nullptr);
        return former;
    }
    const WindowRef window = Find(hwnd);
    if (!window || !IsUsable(*window)) {
        return nullptr;
    }
    const WindowRef top = TopLevelOf(*window).shared_from_this();
    if (desktop.active != top->handle) {
        // The focus comes here and not to the top-level window, unless its WM_ACTIVATE has it so.
        if (!Activate(top.get(), false) || !window->alive) {
            return nullptr;
        }
    }
    MoveFocus(window.get());
    return former;
}

HWND WINAPI GetActiveWindow()
{
    return TheDesktop().active;
}

HWND WINAPI SetActiveWindow(HWND hwnd)
{
    const HWND former = TheDesktop().active;
    const WindowRef window = hwnd ? Find(hwnd) : nullptr;
    if (hwnd && (!window || window->IsChild())) {
        return nullptr;
    }
    return Activate(window.get(), false) ? former : nullptr;
}

HWND WINAPI GetForegroundWindow()
{
    return TheDesktop().elsewhere ? Root().handle : TheDesktop().active;
}

BOOL WINAPI SetForegroundWindow(HWND hwnd)
{
    const WindowRef window = Find(hwnd);
    return window && Activate(&TopLevelOf(*window), false);
}

HWND WINAPI GetCapture()
{
    return TheDesktop().capture;
}

HWND WINAPI SetCapture(HWND hwnd)
{
    const HWND former = TheDesktop().capture;
    if (hwnd && !Find(hwnd)) {
        return nullptr;
    }
    SetCaptureTo(hwnd);
    return former;
}

BOOL WINAPI ReleaseCapture()
{
    if (FaultFires("ReleaseCapture")) {
        return FALSE;
    }
    // The pointer may be over another window than the one that had all its moves.
    TheDesktop().pointerStale = TheDesktop().capture != nullptr;
    SetCaptureTo(nullptr);
    return TRUE;
}

BOOL WINAPI EnableWindow(HWND hwnd, BOOL enable)
{
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    const bool wasDisabled = window->Has(WS_DISABLED);
    if (enable && wasDisabled) {
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
        Send(*window, WM_ENABLE, TRUE);
    } else if (!enable && !wasDisabled) {
        Send(*window, WM_CANCELMODE);
        window->style |= WS_DISABLED;
        const WindowRef focus = Peek(TheDesktop().focus);
        if (focus.get() == window.get()) {
            MoveFocus(nullptr); // a disabled window hears no keys
        }
        Send(*window, WM_ENABLE, FALSE);
    }
    TheDesktop().pointerStale = true;
    return wasDisabled;
}
}
