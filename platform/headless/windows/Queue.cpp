#include "Queue.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

constexpr auto NO_WINDOW = static_cast<intptr_t>(-1);

bool TakePosted(const Filter& filter, bool remove, MSG& message)
{
    auto& posted = TheDesktop().posted;
    const auto found = std::find_if(posted.begin(), posted.end(),
                                    [&](const MSG& m) { return filter.Takes(m.hwnd, m.message); });
    if (found == posted.end()) {
        return false;
    }
    message = *found;
    if (remove) {
        posted.erase(found);
    }
    return true;
}

bool TakeQuit(bool remove, MSG& message)
{
    auto& quit = TheDesktop().quit;
    if (!quit) {
        return false;
    }
    message = {
        nullptr, WM_QUIT, static_cast<WPARAM>(*quit), 0, static_cast<DWORD>(Now()), TheDesktop().pointer};
    if (remove) {
        quit.reset();
    }
    return true;
}

// The next message in the platform's order of kinds.
bool Take(const Filter& filter, bool remove, bool takeQuit, MSG& message)
{
    Serve();
    return TakePosted(filter, remove, message) || (takeQuit && TakeQuit(remove, message)) ||
           TakeInput(filter, remove, message) ||
           // Input that found no window may yet have told a window that the pointer left it.
           TakePosted(filter, remove, message) || TakePaint(filter, message) ||
           TakeTimer(filter, remove, message);
}

bool TakeAndNote(const Filter& filter, bool remove, bool takeQuit, MSG& message)
{
    if (!Take(filter, remove, takeQuit, message)) {
        return false;
    }
    TheDesktop().messageTime = message.time;
    TheDesktop().messagePoint = message.pt;
    return true;
}

void Dispatch(const MSG& message, HWND dialog)
{
    if (dialog && IsWindow(dialog) && IsDialogMessageW(dialog, const_cast<MSG*>(&message))) {
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

// A window that never validates, or one that posts to itself for ever, would keep the test for ever.
void StopIfEndless(int count)
{
    if (count > 100000) {
        std::fputs("headless: the message loop does not end; is a window painted without BeginPaint?\n",
                   stderr);
        std::abort();
    }
}

bool DispatchAll(HWND dialog, bool takeQuit)
{
    MSG message{};
    RetryPaints();
    for (int count = 0; TakeAndNote({}, true, takeQuit, message); ++count) {
        StopIfEndless(count);
        if (message.message == WM_QUIT) {
            return false;
        }
        Dispatch(message, dialog);
    }
    return true;
}

} // namespace

bool Filter::Takes(HWND window, UINT message) const
{
    if ((first != 0 || last != 0) && (message < first || message > last)) {
        return false;
    }
    if (!hwnd) {
        return true;
    }
    if (reinterpret_cast<intptr_t>(hwnd) == NO_WINDOW) {
        return !window;
    }
    return window == hwnd || IsChild(hwnd, window);
}

void Post(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowRef window = Peek(hwnd);
    PostTo(window && window->desktop ? *window->desktop : TheDesktop(), hwnd, message, wParam, lParam);
}

void PostTo(Desktop& desktop, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto time = static_cast<DWORD>(*desktop.clock);
    desktop.posted.push_back({hwnd, message, wParam, lParam, time, desktop.pointer});
    Wake(desktop);
}

void DispatchPending()
{
    DispatchAll(nullptr, false);
}

bool RunIdleAction()
{
    auto& actions = TheDesktop().idleActions;
    if (actions.empty()) {
        return false;
    }
    const auto action = std::move(actions.front());
    actions.pop_front();
    RetryPaints();
    const TableUnlock unlock;
    action();
    return true;
}

bool WaitForMessage(const Filter& filter, MSG& message)
{
    while (!TakeAndNote(filter, true, true, message)) {
        if (!RunIdleAction() && !WaitForOthers(true)) {
            TheDesktop().deadlocked = true;
            message = {nullptr, WM_QUIT, 0, 0, static_cast<DWORD>(Now()), TheDesktop().pointer};
            return false;
        }
    }
    return message.message != WM_QUIT;
}

void ForgetMessages(const Window& window)
{
    std::erase_if(window.desktop->posted, [&](const MSG& message) { return message.hwnd == window.handle; });
}

bool Pump()
{
    const TableLock lock;
    return DispatchAll(nullptr, true);
}

bool Pump(HWND dialog)
{
    const TableLock lock;
    return DispatchAll(dialog, true);
}

void WhenIdle(std::function<void()> action)
{
    const TableLock lock;
    TheDesktop().idleActions.push_back(std::move(action));
}

bool Deadlocked()
{
    const TableLock lock;
    return TheDesktop().deadlocked;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI PostMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    if (FaultFires("PostMessageW") || (hwnd && !Find(hwnd))) {
        return FALSE;
    }
    Post(hwnd, message, wParam, lParam);
    return TRUE;
}

BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    const auto desktop = DesktopOf(thread);
    if (!desktop) {
        SetLastError(ERROR_INVALID_THREAD_ID);
        return FALSE;
    }
    PostTo(*desktop, nullptr, message, wParam, lParam);
    return TRUE;
}

void WINAPI PostQuitMessage(int code)
{
    const TableLock lock;
    TheDesktop().quit = code;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND hwnd, UINT first, UINT last, UINT flags)
{
    const TableLock lock;
    return TakeAndNote({hwnd, first, last}, (flags & PM_REMOVE) != 0, true, *message);
}

BOOL WINAPI GetMessageW(LPMSG message, HWND hwnd, UINT first, UINT last)
{
    const TableLock lock;
    if (FaultFires("GetMessageW")) {
        return -1;
    }
    if (hwnd && reinterpret_cast<intptr_t>(hwnd) != NO_WINDOW && !Find(hwnd)) {
        return -1;
    }
    return WaitForMessage({hwnd, first, last}, *message);
}

BOOL WINAPI WaitMessage()
{
    const TableLock lock;
    MSG message{};
    while (!Take({}, false, true, message)) {
        if (!RunIdleAction() && !WaitForOthers(true)) {
            TheDesktop().deadlocked = true;
            PostQuitMessage(0);
        }
    }
    return TRUE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message)
{
    const TableLock lock;
    if (message->message == WM_TIMER && message->lParam) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        const auto time = static_cast<DWORD>(Now());
        const CallsBy program(Caller::Program);
        const TableUnlock unlock;
        procedure(message->hwnd, WM_TIMER, message->wParam, time);
        return 0;
    }
    const WindowRef window = message->hwnd ? Find(message->hwnd) : nullptr;
    return window && !IsForeign(*window)
               ? Deliver(*window, message->message, message->wParam, message->lParam)
               : 0;
}

DWORD WINAPI GetMessagePos()
{
    const TableLock lock;
    const POINT p = TheDesktop().messagePoint;
    return static_cast<DWORD>(MAKELONG(p.x, p.y));
}

LONG WINAPI GetMessageTime()
{
    const TableLock lock;
    return static_cast<LONG>(TheDesktop().messageTime);
}
}
