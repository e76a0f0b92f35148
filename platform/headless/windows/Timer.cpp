#include "Timer.h"
#include "Queue.h"
#include "Send.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

std::list<Timer>::iterator FindTimer(HWND hwnd, UINT_PTR id)
{
    auto& timers = TheDesktop().timers;
    return std::find_if(timers.begin(), timers.end(),
                        [&](const Timer& timer) { return timer.hwnd == hwnd && timer.id == id; });
}

Timer* FirstDue(const Filter& filter)
{
    Timer* first = nullptr;
    for (Timer& timer : TheDesktop().timers) {
        const bool due = timer.due <= Now() && filter.Takes(timer.hwnd, WM_TIMER);
        if (due && (!first || timer.due < first->due)) {
            first = &timer;
        }
    }
    return first;
}

} // namespace

void KillTimersOf(const Window& window)
{
    window.desktop->timers.remove_if(
        [&](const Timer& timer) { return timer.hwnd == window.handle && Untrack(Kind::Timer, &timer); });
}

std::optional<uint64_t> NextDue(const Desktop& desktop)
{
    std::optional<uint64_t> next;
    for (const Timer& timer : desktop.timers) {
        next = next ? std::min(*next, timer.due) : timer.due;
    }
    return next;
}

bool TakeTimer(const Filter& filter, bool remove, MSG& message)
{
    Timer* timer = FirstDue(filter);
    if (!timer) {
        return false;
    }
    if (remove) {
        timer->due = Now() + timer->period;
    }
    message = {timer->hwnd,
               WM_TIMER,
               timer->id,
               reinterpret_cast<LPARAM>(timer->procedure),
               static_cast<DWORD>(Now()),
               TheDesktop().pointer};
    return true;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

UINT_PTR WINAPI SetTimer(HWND hwnd, UINT_PTR id, UINT period, TIMERPROC procedure)
{
    const TableLock lock;
    if (FaultFires("SetTimer")) {
        return 0;
    }
    const WindowRef window = hwnd ? Find(hwnd) : nullptr;
    if ((hwnd && !window) || (window && DenyForeign(*window))) {
        return 0;
    }
    auto& timers = TheDesktop().timers;
    auto found = FindTimer(hwnd, id);
    if (found == timers.end()) {
        if (!hwnd) {
            id = TheDesktop().nextTimer++;
        }
        found = timers.insert(timers.end(), Timer{});
        Track(Kind::Timer, &*found);
    }
    const UINT clamped = std::clamp<UINT>(period, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    *found = {hwnd, id, clamped, Now() + clamped, procedure};
    return hwnd && id == 0 ? 1 : id;
}

BOOL WINAPI KillTimer(HWND hwnd, UINT_PTR id)
{
    const TableLock lock;
    if (FaultFires("KillTimer")) {
        return FALSE;
    }
    const auto found = FindTimer(hwnd, id);
    if (found == TheDesktop().timers.end()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Untrack(Kind::Timer, &*found);
    TheDesktop().timers.erase(found);
    return TRUE;
}
}
