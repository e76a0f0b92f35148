#include "Class.h"
#include "Controls.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <atomic>
#include <list>

namespace gesso::headless {
namespace {

constexpr ATOM FIRST_ATOM = 0xC000;
constexpr ATOM DESKTOP_ATOM = 0x8001;
constexpr ATOM DIALOG_ATOM = 0x8002;

std::list<WindowClass>& Classes()
{
    static std::list<WindowClass> s_classes;
    return s_classes;
}

bool IsNamed(const WindowClass& candidate, LPCWSTR nameOrAtom)
{
    return IS_INTRESOURCE(nameOrAtom) ? candidate.atom == LOWORD(nameOrAtom)
                                      : EqualIgnoringCase(candidate.name, View(nameOrAtom));
}

// The atom of a name, the same for every class of that name.
ATOM AtomOf(LPCWSTR name)
{
    const TableLock lock;
    static std::map<WideText, ATOM> s_atoms;
    for (const WindowClass& known : Classes()) {
        if (IsNamed(known, name)) {
            return known.atom;
        }
    }
    const auto next = static_cast<ATOM>(FIRST_ATOM + s_atoms.size());
    return s_atoms.emplace(View(name), next).first->second;
}

bool IsSeenFrom(const WindowClass& candidate, HINSTANCE instance)
{
    return (candidate.data.style & CS_GLOBALCLASS) || candidate.data.hInstance == instance;
}

bool IsTaken(LPCWSTR name, HINSTANCE instance)
{
    const TableLock lock;
    for (const WindowClass& known : Classes()) {
        if (IsNamed(known, name) && known.data.hInstance == instance) {
            return true;
        }
    }
    return false;
}

bool IsValid(const WNDCLASSEXW& data)
{
    return data.cbSize == sizeof(WNDCLASSEXW) && data.cbClsExtra >= 0 && data.cbWndExtra >= 0 &&
           data.lpfnWndProc && data.lpszClassName && !IS_INTRESOURCE(data.lpszClassName);
}

ATOM AddClass(const WNDCLASSEXW& data, ATOM atom)
{
    const TableLock lock;
    WindowClass added{atom, WideText(View(data.lpszClassName)), data};
    if (!added.data.hInstance) {
        added.data.hInstance = HostModule();
    }
    Classes().push_back(std::move(added));
    return atom;
}

} // namespace

WindowClass* FindClass(LPCWSTR nameOrAtom, HINSTANCE instance)
{
    const TableLock lock;
    if (!nameOrAtom) {
        return nullptr;
    }
    const HINSTANCE module = instance ? instance : HostModule();
    WindowClass* global = nullptr;
    for (WindowClass& candidate : Classes()) {
        if (!IsNamed(candidate, nameOrAtom) || !IsSeenFrom(candidate, module)) {
            continue;
        }
        if (!(candidate.data.style & CS_GLOBALCLASS)) {
            return &candidate;
        }
        global = global ? global : &candidate;
    }
    return global;
}

void RegisterBuiltInClass(LPCWSTR name, UINT style, WNDPROC procedure, int extraBytes)
{
    WNDCLASSEXW data{};
    data.cbSize = sizeof(data);
    data.style = style | CS_GLOBALCLASS;
    data.lpfnWndProc = procedure;
    data.cbWndExtra = extraBytes;
    data.lpszClassName = name;
    AddClass(data, EqualIgnoringCase(View(name), u"#32769")   ? DESKTOP_ATOM
                   : EqualIgnoringCase(View(name), u"#32770") ? DIALOG_ATOM
                                                              : AtomOf(name));
}

void RegisterBuiltInClasses()
{
    const TableLock lock;
    if (!Classes().empty()) {
        return;
    }
    RegisterBuiltInClass(L"#32769", CS_DBLCLKS, DefWindowProcW, 0);
    RegisterBuiltInClass(L"#32770", CS_DBLCLKS | CS_SAVEBITS, DefDlgProcW, DLGWINDOWEXTRA);
    RegisterBuiltInControls();
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* data)
{
    const TableLock lock;
    RegisterBuiltInClasses();
    if (FaultFires("RegisterClassExW")) {
        return 0;
    }
    if (!data || !IsValid(*data)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (IsTaken(data->lpszClassName, data->hInstance ? data->hInstance : HostModule())) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    return AddClass(*data, AtomOf(data->lpszClassName));
}

ATOM WINAPI RegisterClassW(const WNDCLASSW* data)
{
    if (FaultFires("RegisterClassW")) {
        return 0;
    }
    const CallsBy platform(Caller::Platform);
    const WNDCLASSEXW extended{sizeof(WNDCLASSEXW), data->style,        data->lpfnWndProc,   data->cbClsExtra,
                               data->cbWndExtra,    data->hInstance,    data->hIcon,         data->hCursor,
                               data->hbrBackground, data->lpszMenuName, data->lpszClassName, nullptr};
    return RegisterClassExW(&extended);
}

BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE instance)
{
    const TableLock lock;
    WindowClass* found = FindClass(name, instance);
    if (!found) {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    if (std::atomic_ref(found->windows) > 0) {
        SetLastError(ERROR_CLASS_HAS_WINDOWS);
        return FALSE;
    }
    Classes().remove_if([&](const WindowClass& c) { return &c == found; });
    return TRUE;
}

BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR name, WNDCLASSEXW* out)
{
    const TableLock lock;
    const WindowClass* found = FindClass(name, instance);
    if (!found) {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    *out = found->data;
    out->lpszClassName = name;
    return found->atom;
}

int WINAPI GetClassNameW(HWND hwnd, LPWSTR buffer, int capacity)
{
    const TableLock lock;
    if (FaultFires("GetClassNameW")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    return window ? CopyText(window->windowClass->name, buffer, capacity) : 0;
}
}
