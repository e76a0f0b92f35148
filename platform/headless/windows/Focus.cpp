#include "Focus.h"
#include "InputMethod.h"
#include "Position.h"
#include "Requests.h"
#include "Send.h"

#include "../access/Events.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

WPARAM Handle(const WindowRef& window)
{
    return window ? reinterpret_cast<WPARAM>(window->handle) : 0;
}

void TellAll(bool active)
{
    for (const HWND top : OwnTopLevels()) {
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
    const WindowRef focus = Peek(TheDesktop().shared->focus);
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
    if (!former || desktop.shared->elsewhere) {
        desktop.shared->elsewhere = false;
        TellAll(true);
    }
    const auto other = reinterpret_cast<LPARAM>(former);
    Send(*window, WM_NCACTIVATE, TRUE, other);
    Send(*window, WM_ACTIVATE, byMouse ? WA_CLICKACTIVE : WA_ACTIVE, other);
    if (desktop.shared->active == window->handle) {
        FocusIntoActive(window);
    }
    return desktop.shared->active == window->handle;
}

bool CanBeActive(const Window& window)
{
    return window.Has(WS_VISIBLE) && !window.Has(WS_DISABLED) && !(window.exStyle & WS_EX_NOACTIVATE);
}

// For a window that the calling thread may not make active, with the last error set.
bool DenyUnjoined(const Window& window)
{
    if (IsRoot(&window)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return true;
    }
    return !AreJoined(*window.desktop, TheDesktop()) && DenyForeign(window);
}

void SetCaptureTo(HWND next)
{
    Desktop& desktop = TheDesktop();
    const WindowRef former = Peek(desktop.shared->capture);
    desktop.shared->capture = next;
    if (former) {
        Send(*former, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(next));
    }
}

} // namespace

bool Activate(Window* window, bool byMouse)
{
    Desktop& desktop = TheDesktop();
    const HWND next = window ? window->handle : nullptr;
    if (desktop.shared->active == next) {
        return true;
    }
    const HWND former = desktop.shared->active;
    const WindowRef target = Peek(next);
    const WindowRef leaving = Peek(former);
    if (leaving && !Deactivate(*leaving, target)) {
        return false;
    }
    if (target && !target->alive) {
        return false;
    }
    desktop.shared->active = next;
    if (!target) {
        TellAll(false);
        MoveFocus(nullptr);
        return true;
    }
    Foreground() = target->desktop;
    return Welcome(target, leaving && leaving->alive ? former : nullptr, byMouse);
}

void ActivateNext(Window& leaving)
{
    const WindowRef owner = Peek(leaving.owner);
    if (owner && CanBeActive(*owner)) {
        Activate(owner.get(), false);
        return;
    }
    for (const HWND top : OwnTopLevels()) {
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
    const HWND former = desktop.shared->focus;
    if (former == next) {
        return;
    }
    desktop.shared->focus = next;
    if (const WindowRef leaving = Peek(former)) {
        Send(*leaving, WM_KILLFOCUS, reinterpret_cast<WPARAM>(next));
        TellInputMethod(*leaving, false);
    }
    const WindowRef entering = Peek(next);
    if (entering && desktop.shared->focus == next) {
        TellInputMethod(*entering, true);
    }
    if (entering && desktop.shared->focus == next) {
        TellEvent(EVENT_OBJECT_FOCUS, *entering, OBJID_CLIENT);
    }
    if (entering && desktop.shared->focus == next) {
        Send(*entering, WM_SETFOCUS, reinterpret_cast<WPARAM>(IsWindow(former) ? former : nullptr));
    }
}

void ForgetFocus(Window& window)
{
    Desktop& desktop = *window.desktop;
    InputState& shared = *desktop.shared;
    for (HWND* held :
         {&shared.active, &shared.focus, &shared.capture, &desktop.tracking.hwnd, &desktop.pointerWindow})
    {
        if (*held == window.handle) {
            *held = nullptr;
        }
    }
    if (desktop.inputMethod.window == window.handle) {
        desktop.inputMethod.window = nullptr;
    }
    desktop.pointerStale = true;
}

void SwitchAway()
{
    const TableLock lock;
    TheDesktop().shared->elsewhere = true;
    Activate(nullptr, false);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HWND WINAPI GetFocus()
{
    const TableLock lock;
    return TheDesktop().shared->focus;
}

HWND WINAPI SetFocus(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("SetFocus")) {
        return nullptr;
    }
    Desktop& desktop = TheDesktop();
    const HWND former = desktop.shared->focus;
    if (!hwnd) {
        MoveFocus(nullptr);
        return former;
    }
    const WindowRef window = Find(hwnd);
    if (!window || !IsUsable(*window) || DenyUnjoined(*window)) {
        return nullptr;
    }
    const WindowRef top = TopLevelOf(*window).shared_from_this();
    if (desktop.shared->active != top->handle) {
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
    const TableLock lock;
    return TheDesktop().shared->active;
}

HWND WINAPI SetActiveWindow(HWND hwnd)
{
    const TableLock lock;
    const HWND former = TheDesktop().shared->active;
    const WindowRef window = hwnd ? Find(hwnd) : nullptr;
    if (hwnd && (!window || window->IsChild())) {
        return nullptr;
    }
    if (window && DenyUnjoined(*window)) {
        return nullptr;
    }
    return Activate(window.get(), false) ? former : nullptr;
}

HWND WINAPI GetForegroundWindow()
{
    const TableLock lock;
    const InputState& shared = *TheDesktop().shared;
    const auto foreground = shared.active ? nullptr : Foreground().lock();
    return shared.elsewhere ? Root().handle : foreground ? foreground->shared->active : shared.active;
}

BOOL WINAPI SetForegroundWindow(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window || IsRoot(window.get())) {
        return FALSE;
    }
    if (!AreJoined(*window->desktop, TheDesktop())) {
        return Ask(*window->desktop, [hwnd]() -> LRESULT { return SetForegroundWindow(hwnd); }) != 0;
    }
    return Activate(&TopLevelOf(*window), false);
}

HWND WINAPI GetCapture()
{
    const TableLock lock;
    return TheDesktop().shared->capture;
}

HWND WINAPI SetCapture(HWND hwnd)
{
    const TableLock lock;
    const HWND former = TheDesktop().shared->capture;
    const WindowRef window = hwnd ? Find(hwnd) : nullptr;
    if ((hwnd && !window) || (window && DenyForeign(*window))) {
        return nullptr;
    }
    SetCaptureTo(hwnd);
    return former;
}

BOOL WINAPI ReleaseCapture()
{
    const TableLock lock;
    if (FaultFires("ReleaseCapture")) {
        return FALSE;
    }
    // The pointer may be over another window than the one that had all its moves.
    TheDesktop().pointerStale = TheDesktop().shared->capture != nullptr;
    SetCaptureTo(nullptr);
    return TRUE;
}

BOOL WINAPI EnableWindow(HWND hwnd, BOOL enable)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    if (IsForeign(*window)) {
        return Ask(*window->desktop, [=]() -> LRESULT { return EnableWindow(hwnd, enable); }) != 0;
    }
    const bool wasDisabled = window->Has(WS_DISABLED);
    if (enable && wasDisabled) {
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
        Send(*window, WM_ENABLE, TRUE);
    } else if (!enable && !wasDisabled) {
        Send(*window, WM_CANCELMODE);
        window->style |= WS_DISABLED;
        const WindowRef focus = Peek(TheDesktop().shared->focus);
        if (focus.get() == window.get()) {
            MoveFocus(nullptr); // a disabled window hears no keys
        }
        Send(*window, WM_ENABLE, FALSE);
    }
    TheDesktop().pointerStale = true;
    return wasDisabled;
}
}
