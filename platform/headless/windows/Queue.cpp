#include "Queue.h"
#include "Send.h"

#include "../core/Faults.h"

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
    TheDesktop().posted.push_back(
        {hwnd, message, wParam, lParam, static_cast<DWORD>(Now()), TheDesktop().pointer});
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
    action();
    return true;
}

bool WaitForMessage(const Filter& filter, MSG& message)
{
    while (!TakeAndNote(filter, true, true, message)) {
        if (!RunIdleAction()) {
            TheDesktop().deadlocked = true;
            message = {nullptr, WM_QUIT, 0, 0, static_cast<DWORD>(Now()), TheDesktop().pointer};
            return false;
        }
    }
    return message.message != WM_QUIT;
}

void ForgetMessages(HWND hwnd)
{
    std::erase_if(TheDesktop().posted, [&](const MSG& message) { return message.hwnd == hwnd; });
}

bool Pump()
{
    return DispatchAll(nullptr, true);
}

bool Pump(HWND dialog)
{
    return DispatchAll(dialog, true);
}

void WhenIdle(std::function<void()> action)
{
    TheDesktop().idleActions.push_back(std::move(action));
}

bool Deadlocked()
{
    return TheDesktop().deadlocked;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI PostMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (FaultFires("PostMessageW") || (hwnd && !Find(hwnd))) {
        return FALSE;
    }
    Post(hwnd, message, wParam, lParam);
    return TRUE;
}

void WINAPI PostQuitMessage(int code)
{
    TheDesktop().quit = code;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND hwnd, UINT first, UINT last, UINT flags)
{
    return TakeAndNote({hwnd, first, last}, (flags & PM_REMOVE) != 0, true, *message);
}

BOOL WINAPI GetMessageW(LPMSG message, HWND hwnd, UINT first, UINT last)
{
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
    MSG message{};
    while (!Take({}, false, true, message)) {
        if (!RunIdleAction()) {
            TheDesktop().deadlocked = true;
            PostQuitMessage(0);
        }
    }
    return TRUE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        const CallsBy program(Caller::Program);
        procedure(message->hwnd, WM_TIMER, message->wParam, static_cast<DWORD>(Now()));
        return 0;
    }
    const WindowRef window = message->hwnd ? Find(message->hwnd) : nullptr;
    return window ? Deliver(*window, message->message, message->wParam, message->lParam) : 0;
}

DWORD WINAPI GetMessagePos()
{
    const POINT p = TheDesktop().messagePoint;
    return static_cast<DWORD>(MAKELONG(p.x, p.y));
}

LONG WINAPI GetMessageTime()
{
    return static_cast<LONG>(TheDesktop().messageTime);
}
}
