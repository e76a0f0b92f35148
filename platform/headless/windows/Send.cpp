#include "Send.h"
#include "../core/TableLock.h"

#include "../core/Faults.h"

namespace gesso::headless {
namespace {

LRESULT Call(Window& window, UINT message, WPARAM wParam, LPARAM lParam, bool posted)
{
    if (!window.alive || !window.procedure) {
        return 0;
    }
    Desktop& desktop = TheDesktop();
    if (desktop.tracing && (!desktop.traced || desktop.traced == window.handle)) {
        desktop.trace.push_back({window.handle, message, wParam, lParam, posted});
    }
    const WindowRef keep = window.shared_from_this();
    const CallsBy program(Caller::Program);
    return window.procedure(window.handle, message, wParam, lParam);
}

template <typename PARAM> void TellParents(Window& window, WPARAM wParam, PARAM paramFor)
{
    WindowRef at = window.shared_from_this();
    while (at->IsChild() && !(at->exStyle & WS_EX_NOPARENTNOTIFY) && at->parent && at->parent != &Root()) {
        at = at->parent->shared_from_this();
        Send(*at, WM_PARENTNOTIFY, wParam, paramFor(*at));
    }
}

} // namespace

LRESULT Send(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return Call(window, message, wParam, lParam, false);
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
        const POINT within = Difference(point, Corner(parent.client));
        return MAKELPARAM(within.x, within.y);
    });
}

void StartTrace(HWND hwnd)
{
    TheDesktop().trace.clear();
    TheDesktop().traced = hwnd;
    TheDesktop().tracing = true;
}

std::vector<Message> StopTrace()
{
    TheDesktop().tracing = false;
    return std::move(TheDesktop().trace);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

LRESULT WINAPI SendMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (hwnd == HWND_BROADCAST) {
        for (const HWND top : TopLevelWindows()) {
            SendMessageW(top, message, wParam, lParam);
        }
        return 1;
    }
    const WindowRef window = Find(hwnd);
    return window ? Send(*window, message, wParam, lParam) : 0;
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
