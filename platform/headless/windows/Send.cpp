#include "Send.h"
#include "Requests.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

bool IsTraced(const Desktop& by, HWND hwnd)
{
    return by.tracing && (by.traced ? by.traced == hwnd : &by == &TheDesktop());
}

// A thread traces its own windows, or one window of whichever thread.
void Note(const Message& message)
{
    for (const auto& desktop : AllDesktops()) {
        if (IsTraced(*desktop, message.hwnd)) {
            desktop->trace.push_back(message);
        }
    }
}

LRESULT Call(Window& window, UINT message, WPARAM wParam, LPARAM lParam, bool posted)
{
    if (!window.alive || !window.procedure) {
        return 0;
    }
    Note({window.handle, message, wParam, lParam, posted});
    const WindowRef keep = window.shared_from_this();
    const CallsBy program(Caller::Program);
    const HWND hwnd = window.handle;
    const WNDPROC procedure = window.procedure;
    const TableUnlock unlock;
    return procedure(hwnd, message, wParam, lParam);
}

std::function<LRESULT()> CallLater(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return [keep = window.shared_from_this(), message, wParam, lParam] {
        return Call(*keep, message, wParam, lParam, false);
    };
}

std::vector<HWND> TopLevelsOfAll()
{
    std::vector<HWND> handles;
    for (const auto& desktop : AllDesktops()) {
        const auto tops = TopLevelsOf(*desktop);
        handles.insert(handles.end(), tops.begin(), tops.end());
    }
    return handles;
}

template <typename PARAM> void TellParents(Window& window, WPARAM wParam, PARAM paramFor)
{
    WindowRef at = window.shared_from_this();
    while (at->IsChild() && !(at->exStyle & WS_EX_NOPARENTNOTIFY) && at->parent && !IsRoot(at->parent)) {
        at = at->parent->shared_from_this();
        Send(*at, WM_PARENTNOTIFY, wParam, paramFor(*at));
    }
}

} // namespace

LRESULT Send(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!IsForeign(window)) {
        return Call(window, message, wParam, lParam, false);
    }
    return window.alive ? Ask(*window.desktop, CallLater(window, message, wParam, lParam)) : 0;
}

void Notify(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!IsForeign(window)) {
        Call(window, message, wParam, lParam, false);
    } else if (window.alive) {
        Tell(*window.desktop, CallLater(window, message, wParam, lParam));
    }
}

LRESULT Deliver(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return Call(window, message, wParam, lParam, true);
}

void NotifyParents(Window& window, WORD event)
{
    TellParents(window, MAKEWPARAM(event, LOWORD(window.id)),
                [child = Pointer(window.handle)](const Window&) { return child; });
}

void NotifyParentsOfPress(Window& window, WORD event, POINT point)
{
    TellParents(window, event, [point](const Window& parent) {
        const POINT within = ToClient(parent, point);
        return MAKELPARAM(within.x, within.y);
    });
}

void StartTrace(HWND hwnd)
{
    const TableLock lock;
    TheDesktop().trace.clear();
    TheDesktop().traced = hwnd;
    TheDesktop().tracing = true;
}

std::vector<Message> StopTrace()
{
    const TableLock lock;
    TheDesktop().tracing = false;
    return std::move(TheDesktop().trace);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

LRESULT WINAPI SendMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    if (hwnd == HWND_BROADCAST) {
        for (const HWND top : TopLevelsOfAll()) {
            SendMessageW(top, message, wParam, lParam);
        }
        return 1;
    }
    const WindowRef window = Find(hwnd);
    return window ? Send(*window, message, wParam, lParam) : 0;
}

BOOL WINAPI SendNotifyMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (window) {
        Notify(*window, message, wParam, lParam);
    }
    return window != nullptr;
}

// The time is the user's, not the clock's: another thread is busy for as long as it takes.
LRESULT WINAPI SendMessageTimeoutW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT, UINT limit,
                                   PDWORD_PTR result)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return 0;
    }
    LRESULT answer = 0;
    bool answered = true;
    if (IsForeign(*window)) {
        answered = AskWithin(std::chrono::milliseconds(limit), *window->desktop,
                             CallLater(*window, message, wParam, lParam), answer);
    } else {
        answer = Call(*window, message, wParam, lParam, false);
    }
    if (result) {
        *result = static_cast<DWORD_PTR>(answer);
    }
    return answered;
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(hwnd, message, wParam, lParam) : 0;
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR name)
{
    const TableLock lock;
    static std::map<WideText, UINT> s_messages;
    const auto next = static_cast<UINT>(0xC000 + s_messages.size());
    return s_messages.emplace(View(name), next).first->second;
}
}
