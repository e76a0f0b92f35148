#include "Desktop.h"
#include "Class.h"

#include "../core/Accounting.h"
#include "../core/Clock.h"
#include "../gdi/DeviceContext.h"

namespace gesso::headless {
namespace {

WindowRef MakeRoot()
{
    RegisterBuiltInClasses();
    auto root = std::make_shared<Window>();
    root->handle = reinterpret_cast<HWND>(0x10000);
    root->windowClass = FindClass(MAKEINTRESOURCEW(0x8001), nullptr);
    root->procedure = DefWindowProcW;
    root->style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
    root->frame = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    root->client = root->frame;
    return root;
}

Desktop FreshDesktop()
{
    Desktop desktop;
    desktop.root = MakeRoot();
    desktop.windows.emplace(desktop.root->handle, desktop.root);
    desktop.pointer = {desktop.root->frame.right - 1, desktop.root->frame.bottom - 1};
    desktop.messagePoint = desktop.pointer;
    return desktop;
}

void DestroyAllWindows()
{
    while (!Root().children.empty()) {
        DestroyWindow(Root().children.front()->handle);
    }
}

} // namespace

Desktop& TheDesktop()
{
    static thread_local Desktop s_desktop = FreshDesktop();
    return s_desktop;
}

void Reset()
{
    ClearFaults();
    DestroyAllWindows();
    SetClipboardText("");
    while (!TheDesktop().timers.empty()) {
        const Timer& timer = TheDesktop().timers.front();
        KillTimer(timer.hwnd, timer.id);
    }
    ResetGraphics();
    SetNow(0);
    TheDesktop() = FreshDesktop();
}

std::vector<HWND> TopLevelWindows()
{
    std::vector<HWND> handles;
    for (const Window* window : Root().children) {
        handles.push_back(window->handle);
    }
    return handles;
}

WindowRef Peek(HWND hwnd)
{
    const auto found = TheDesktop().windows.find(hwnd);
    return found == TheDesktop().windows.end() ? nullptr : found->second;
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

Window& TopLevelOf(Window& window)
{
    Window* top = &window;
    while (top->IsChild() && top->parent && top->parent != &Root()) {
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

bool IsTopLevel(const Window& window)
{
    return window.parent == &Root();
}

} // namespace gesso::headless
