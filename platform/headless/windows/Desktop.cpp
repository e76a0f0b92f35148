#include "Desktop.h"
#include "Class.h"
#include "Focus.h"
#include "Requests.h"
#include "Window.h"

#include "../access/Events.h"
#include "../access/Objects.h"
#include "../core/Accounting.h"
#include "../core/Clock.h"
#include "../core/Faults.h"
#include "../gdi/DeviceContext.h"
#include "../kernel/Registry.h"

#include <algorithm>

namespace gesso::headless {
namespace {

const auto ROOT_HANDLE = reinterpret_cast<HWND>(uintptr_t{0x10000});

using DesktopRef = std::shared_ptr<Desktop>;

std::vector<DesktopRef>& Desktops()
{
    static std::vector<DesktopRef> s_desktops;
    return s_desktops;
}

WindowRef MakeRoot()
{
    RegisterBuiltInClasses();
    auto root = std::make_shared<Window>();
    root->handle = ROOT_HANDLE;
    root->windowClass = FindClass(MAKEINTRESOURCEW(0x8001), nullptr);
    root->procedure = DefWindowProcW;
    root->style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
    root->frame = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    root->client = root->frame;
    return root;
}

DesktopRef FreshDesktop()
{
    const TableLock lock;
    auto desktop = std::make_shared<Desktop>();
    desktop->thread = GetCurrentThreadId();
    desktop->clock = &ClockOfThread();
    desktop->root = MakeRoot();
    desktop->pointer = {desktop->root->frame.right - 1, desktop->root->frame.bottom - 1};
    desktop->messagePoint = desktop->pointer;
    Desktops().push_back(desktop);
    return desktop;
}

std::vector<WindowRef> WindowsOf(const Desktop& desktop)
{
    std::vector<WindowRef> windows;
    for (const auto& [handle, window] : Windows()) {
        if (window->desktop.get() == &desktop) {
            windows.push_back(window);
        }
    }
    return windows;
}

void KillTimersLeft(Desktop& desktop)
{
    for (const Timer& timer : desktop.timers) {
        Untrack(Kind::Timer, &timer);
    }
    desktop.timers.clear();
}

// Takes a desktop out of the list; whoever waits for it is answered.
void Retire(Desktop& desktop)
{
    KillTimersLeft(desktop);
    DropEventHooks(desktop);
    DropUntaken(desktop);
    std::erase_if(Desktops(), [&](const DesktopRef& known) { return known.get() == &desktop; });
    AnswerAll(desktop);
}

// The desktop of the calling thread, which ends with it. A thread that ends says nothing to its windows, as
// on Windows: they are gone.
class ThreadsOwn
{
public:
    ThreadsOwn() : m_desktop(FreshDesktop()) {}
    ~ThreadsOwn()
    {
        const TableLock lock;
        for (const WindowRef& window : WindowsOf(*m_desktop)) {
            Abandon(*window);
        }
        if (TheClipboard().open && TheClipboard().thread == m_desktop->thread) {
            TheClipboard().open = false;
        }
        Retire(*m_desktop);
        WakeAll(); // whoever waits may wait in vain from now on
    }
    ThreadsOwn(const ThreadsOwn&) = delete;
    ThreadsOwn& operator=(const ThreadsOwn&) = delete;

    const DesktopRef& Get() const { return m_desktop; }
    void Renew()
    {
        const TableLock lock;
        Retire(*m_desktop);
        m_desktop = FreshDesktop();
    }

private:
    DesktopRef m_desktop;
};

ThreadsOwn& Own()
{
    static thread_local ThreadsOwn s_own;
    return s_own;
}

void DestroyAllWindows()
{
    while (!Root().children.empty()) {
        DestroyWindow(Root().children.front()->handle);
    }
    for (const WindowRef& window : WindowsOf(TheDesktop())) { // within windows of other threads
        if (window->alive) {
            DestroyWindow(window->handle);
        }
    }
}

} // namespace

Desktop& TheDesktop()
{
    return *Own().Get();
}

std::shared_ptr<Desktop> TheDesktopRef()
{
    return Own().Get();
}

const std::vector<std::shared_ptr<Desktop>>& AllDesktops()
{
    return Desktops();
}

std::shared_ptr<Desktop> DesktopOf(DWORD thread)
{
    for (const DesktopRef& desktop : Desktops()) {
        if (desktop->thread == thread) {
            return desktop;
        }
    }
    return nullptr;
}

bool IsForeign(const Window& window)
{
    return window.desktop && window.desktop.get() != &TheDesktop();
}

bool DenyForeign(const Window& window)
{
    if (IsForeign(window)) {
        SetLastError(ERROR_ACCESS_DENIED);
    }
    return IsForeign(window);
}

std::weak_ptr<Desktop>& Foreground()
{
    static std::weak_ptr<Desktop> s_foreground;
    return s_foreground;
}

void JoinInput(Desktop& kept, Desktop& other)
{
    const auto former = other.shared;
    const auto shared = kept.shared->active || !former->active ? kept.shared : former;
    const auto replaced = shared == former ? kept.shared : former;
    for (const DesktopRef& desktop : Desktops()) {
        if (desktop->shared == replaced) {
            desktop->shared = shared;
        }
    }
}

bool AreJoined(const Desktop& a, const Desktop& b)
{
    return a.shared == b.shared;
}

Clipboard& TheClipboard()
{
    static Clipboard s_clipboard;
    return s_clipboard;
}

std::unordered_map<HWND, WindowRef>& Windows()
{
    static std::unordered_map<HWND, WindowRef> s_windows;
    return s_windows;
}

void Reset()
{
    const TableLock lock;
    ClearFaults();
    DestroyAllWindows();
    SetClipboardText("");
    TheClipboard() = {};
    ResetGraphics();
    DefaultLayout() = 0;
    ClearRegistry();
    SetNow(0);
    Own().Renew();
}

std::vector<HWND> TopLevelsOf(const Desktop& desktop)
{
    std::vector<HWND> handles;
    for (const Window* window : desktop.root->children) {
        handles.push_back(window->handle);
    }
    return handles;
}

std::vector<HWND> OwnTopLevels()
{
    return TopLevelsOf(TheDesktop());
}

std::vector<HWND> TopLevelWindows()
{
    const TableLock lock;
    return OwnTopLevels();
}

std::vector<HWND> TopLevelWindows(DWORD thread)
{
    const TableLock lock;
    const auto desktop = DesktopOf(thread);
    return desktop ? TopLevelsOf(*desktop) : std::vector<HWND>();
}

WindowRef Peek(HWND hwnd)
{
    if (hwnd == ROOT_HANDLE) {
        return TheDesktop().root;
    }
    const auto found = Windows().find(hwnd);
    return found == Windows().end() ? nullptr : found->second;
}

WindowRef Find(HWND hwnd)
{
    WindowRef window = Peek(hwnd);
    if (!window) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    }
    return window;
}

Window& Root()
{
    return *TheDesktop().root;
}

bool IsRoot(const Window* window)
{
    return window && window->handle == ROOT_HANDLE;
}

Window& TopLevelOf(Window& window)
{
    Window* top = &window;
    while (top->IsChild() && top->parent && !IsRoot(top->parent)) {
        top = top->parent;
    }
    return *top;
}

bool IsWithin(const Window& window, const Window& ancestor)
{
    for (const Window* at = &window; at; at = at->parent) {
        if (at == &ancestor) {
            return true;
        }
    }
    return false;
}

bool IsShown(const Window& window)
{
    for (const Window* at = &window; at; at = at->parent) {
        if (!at->Has(WS_VISIBLE)) {
            return false;
        }
    }
    return true;
}

bool IsUsable(const Window& window)
{
    for (const Window* at = &window; at; at = at->parent) {
        if (at->Has(WS_DISABLED)) {
            return false;
        }
    }
    return true;
}

} // namespace gesso::headless
