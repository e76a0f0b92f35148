// What a window keeps: its long words, text, properties and relations.
#include "Desktop.h"
#include "Paint.h"
#include "Position.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

// A word of the window's extra bytes; null, with the last error set, outside them.
BYTE* ExtraBytes(Window& window, int index, size_t size)
{
    if (index < 0 || static_cast<size_t>(index) + size > window.extra.size()) {
        SetLastError(ERROR_INVALID_INDEX);
        return nullptr;
    }
    return window.extra.data() + index;
}

template <typename T> T ReadExtra(Window& window, int index)
{
    T value{};
    if (const BYTE* bytes = ExtraBytes(window, index, sizeof(T))) {
        std::memcpy(&value, bytes, sizeof(T));
    }
    return value;
}

template <typename T> T WriteExtra(Window& window, int index, T value)
{
    T former{};
    if (BYTE* bytes = ExtraBytes(window, index, sizeof(T))) {
        std::memcpy(&former, bytes, sizeof(T));
        std::memcpy(bytes, &value, sizeof(T));
    }
    return former;
}

HWND OwnerOrParent(const Window& window)
{
    if (window.IsChild()) {
        return window.parent && !IsRoot(window.parent) ? window.parent->handle : nullptr;
    }
    return window.owner;
}

LONG_PTR ReadWord(Window& window, int index)
{
    switch (index) {
    case GWL_STYLE: return static_cast<LONG>(window.style);
    case GWL_EXSTYLE: return static_cast<LONG>(window.exStyle);
    case GWLP_ID: return window.id;
    case GWLP_USERDATA: return window.userData;
    case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWLP_HINSTANCE: return reinterpret_cast<LONG_PTR>(window.instance);
    case GWLP_HWNDPARENT: return reinterpret_cast<LONG_PTR>(OwnerOrParent(window));
    default: return ReadExtra<LONG_PTR>(window, index);
    }
}

// A style changes between WM_STYLECHANGING, in which the window may alter it, and WM_STYLECHANGED.
LONG ChangeStyle(Window& window, int index, DWORD value)
{
    DWORD& style = index == GWL_STYLE ? window.style : window.exStyle;
    STYLESTRUCT change{style, value};
    Send(window, WM_STYLECHANGING, static_cast<WPARAM>(index), Pointer(&change));
    const auto former = static_cast<LONG>(style);
    if (window.alive) {
        style = change.styleNew;
        Send(window, WM_STYLECHANGED, static_cast<WPARAM>(index), Pointer(&change));
    }
    return former;
}

void SetOwner(Window& window, LONG_PTR value)
{
    if (window.IsChild()) {
        SetParent(window.handle, reinterpret_cast<HWND>(value));
    } else {
        window.owner = reinterpret_cast<HWND>(value);
    }
}

LONG_PTR WriteWord(Window& window, int index, LONG_PTR value)
{
    switch (index) {
    case GWL_STYLE:
    case GWL_EXSTYLE: return ChangeStyle(window, index, static_cast<DWORD>(value));
    case GWLP_ID: return std::exchange(window.id, value);
    case GWLP_USERDATA: return std::exchange(window.userData, value);
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(std::exchange(window.procedure, reinterpret_cast<WNDPROC>(value)));
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(std::exchange(window.instance, reinterpret_cast<HINSTANCE>(value)));
    case GWLP_HWNDPARENT: {
        const HWND former = OwnerOrParent(window);
        SetOwner(window, value);
        return reinterpret_cast<LONG_PTR>(former);
    }
    default: return WriteExtra<LONG_PTR>(window, index, value);
    }
}

bool HoldsPointer(int index)
{
    return index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT;
}

HWND SiblingBeside(const Window& window, int step)
{
    const auto& siblings = window.parent->children;
    const auto at = std::find(siblings.begin(), siblings.end(), &window) - siblings.begin() + step;
    const bool within = at >= 0 && at < static_cast<std::ptrdiff_t>(siblings.size());
    return within ? siblings[static_cast<size_t>(at)]->handle : nullptr;
}

HWND FirstOrNull(const std::vector<Window*>& windows, bool last = false)
{
    return windows.empty() ? nullptr : (last ? windows.back() : windows.front())->handle;
}

BOOL Show(HWND hwnd, WNDENUMPROC procedure, LPARAM param)
{
    const TableUnlock unlock;
    return procedure(hwnd, param);
}

BOOL EnumerateTree(const Window& window, WNDENUMPROC procedure, LPARAM param)
{
    std::vector<HWND> children;
    for (const Window* child : window.children) {
        children.push_back(child->handle);
    }
    for (const HWND hwnd : children) {
        const WindowRef child = Peek(hwnd);
        if (child && (!Show(hwnd, procedure, param) || !EnumerateTree(*child, procedure, param))) {
            return FALSE;
        }
    }
    return TRUE;
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

LONG_PTR WINAPI GetWindowLongPtrW(HWND hwnd, int index)
{
    const TableLock lock;
    if (FaultFires("GetWindowLongPtrW")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    return window ? ReadWord(*window, index) : 0;
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND hwnd, int index, LONG_PTR value)
{
    const TableLock lock;
    if (FaultFires("SetWindowLongPtrW")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    return window ? WriteWord(*window, index, value) : 0;
}

LONG WINAPI GetWindowLongW(HWND hwnd, int index)
{
    const TableLock lock;
    if (FaultFires("GetWindowLongW")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return 0;
    }
    if (HoldsPointer(index)) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    return index >= 0 ? ReadExtra<LONG>(*window, index) : static_cast<LONG>(ReadWord(*window, index));
}

LONG WINAPI SetWindowLongW(HWND hwnd, int index, LONG value)
{
    const TableLock lock;
    if (FaultFires("SetWindowLongW")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return 0;
    }
    if (HoldsPointer(index)) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    return index >= 0 ? WriteExtra(*window, index, value)
                      : static_cast<LONG>(WriteWord(*window, index, value));
}

LONG WINAPI SetWindowLongA(HWND hwnd, int index, LONG value)
{
    if (FaultFires("SetWindowLongA")) {
        return 0;
    }
    const CallsBy platform(Caller::Platform);
    return SetWindowLongW(hwnd, index, value);
}

BOOL WINAPI SetWindowTextW(HWND hwnd, LPCWSTR text)
{
    if (FaultFires("SetWindowTextW")) {
        return FALSE;
    }
    return static_cast<BOOL>(SendMessageW(hwnd, WM_SETTEXT, 0, Pointer(text)));
}

int WINAPI GetWindowTextW(HWND hwnd, LPWSTR buffer, int capacity)
{
    if (buffer && capacity > 0) {
        buffer[0] = 0; // whether it fails or not
    }
    if (FaultFires("GetWindowTextW")) {
        return 0;
    }
    return static_cast<int>(SendMessageW(hwnd, WM_GETTEXT, static_cast<WPARAM>(capacity), Pointer(buffer)));
}

int WINAPI GetWindowTextLengthW(HWND hwnd)
{
    return static_cast<int>(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0));
}

BOOL WINAPI SetPropW(HWND hwnd, LPCWSTR name, HANDLE value)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window || FaultFires("SetPropW")) {
        return FALSE;
    }
    window->properties[WideText(View(name))] = value;
    return TRUE;
}

HANDLE WINAPI GetPropW(HWND hwnd, LPCWSTR name)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window) {
        return nullptr;
    }
    const auto found = window->properties.find(WideText(View(name)));
    return found == window->properties.end() ? nullptr : found->second;
}

HANDLE WINAPI RemovePropW(HWND hwnd, LPCWSTR name)
{
    const TableLock lock;
    const HANDLE former = GetPropW(hwnd, name);
    if (const WindowRef window = Peek(hwnd)) {
        window->properties.erase(WideText(View(name)));
    }
    return former;
}

HWND WINAPI GetDesktopWindow()
{
    const TableLock lock;
    return Root().handle;
}

HWND WINAPI GetParent(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("GetParent")) {
        return nullptr;
    }
    const WindowRef window = Find(hwnd);
    return window ? OwnerOrParent(*window) : nullptr;
}

HWND WINAPI SetParent(HWND hwnd, HWND newParent)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    const WindowRef parent = newParent ? Find(newParent) : TheDesktop().root;
    if (!window || !parent || IsRoot(window.get())) {
        return nullptr;
    }
    if (IsForeign(*window)) {
        const auto ask = [=] { return reinterpret_cast<LRESULT>(SetParent(hwnd, newParent)); };
        return reinterpret_cast<HWND>(Ask(*window->desktop, ask));
    }
    if (IsWithin(*parent, *window)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const bool shown = ShowWindow(hwnd, SW_HIDE) != FALSE;
    if (!window->alive || !parent->alive || IsWithin(*parent, *window)) {
        return nullptr;
    }
    Window& former = *window->parent;
    const HWND formerHandle = former.handle;
    const RECT place = ToClient(former, window->frame);
    std::erase(former.children, window.get());
    parent->children.insert(parent->children.begin(), window.get());
    window->parent = parent.get();
    if (IsForeign(*parent)) {
        JoinInput(*parent->desktop, *window->desktop);
    }
    Reposition(hwnd, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (shown) {
        ShowWindow(hwnd, SW_SHOWNA);
    }
    return formerHandle;
}

HWND WINAPI GetAncestor(HWND hwnd, UINT which)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window || IsRoot(window.get()) || FaultFires("GetAncestor")) {
        return nullptr;
    }
    if (which == GA_PARENT) {
        return window->parent->handle;
    }
    Window* at = window.get();
    while (!IsRoot(at->parent)) {
        at = at->parent;
    }
    while (which == GA_ROOTOWNER && at->owner && Peek(at->owner)) {
        at = &TopLevelOf(*Peek(at->owner));
    }
    return at->handle;
}

HWND WINAPI GetWindow(HWND hwnd, UINT which)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (!window || FaultFires("GetWindow")) {
        return nullptr;
    }
    if (which == GW_CHILD) {
        return FirstOrNull(window->children);
    }
    if (IsRoot(window.get())) {
        return nullptr;
    }
    switch (which) {
    case GW_HWNDFIRST: return FirstOrNull(window->parent->children);
    case GW_HWNDLAST: return FirstOrNull(window->parent->children, true);
    case GW_HWNDNEXT: return SiblingBeside(*window, 1);
    case GW_HWNDPREV: return SiblingBeside(*window, -1);
    case GW_OWNER: return window->owner;
    default: SetLastError(ERROR_INVALID_PARAMETER); return nullptr;
    }
}

BOOL WINAPI IsChild(HWND parent, HWND hwnd)
{
    const TableLock lock;
    const WindowRef above = Peek(parent);
    const WindowRef window = Peek(hwnd);
    if (!above || !window) {
        return FALSE;
    }
    for (const Window* at = window.get(); at->IsChild(); at = at->parent) {
        if (at->parent == above.get()) {
            return TRUE;
        }
    }
    return FALSE;
}

BOOL WINAPI EnumChildWindows(HWND hwnd, WNDENUMPROC procedure, LPARAM param)
{
    const TableLock lock;
    const WindowRef window = hwnd ? Find(hwnd) : TheDesktop().root;
    return window && !FaultFires("EnumChildWindows") && EnumerateTree(*window, procedure, param);
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC procedure, LPARAM param)
{
    const TableLock lock;
    for (const HWND top : TopLevelWindows(thread)) {
        if (Peek(top) && !Show(top, procedure, param)) {
            return FALSE;
        }
    }
    return TRUE;
}

BOOL WINAPI IsWindowVisible(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    return window && IsShown(*window);
}

BOOL WINAPI IsWindowEnabled(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    return window && !window->Has(WS_DISABLED);
}

int WINAPI GetDlgCtrlID(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("GetDlgCtrlID")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    return window ? static_cast<int>(window->id) : 0;
}
}
