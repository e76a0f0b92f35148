#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "Resources.h"

#include <dwmapi.h>

#include <algorithm>
#include <iterator>

// The library's entry point.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

using namespace gesso::headless;

namespace {

struct Export
{
    const char* name;
    FARPROC address;
};

struct Module
{
    const wchar_t* name;
    const wchar_t* path;
    // What is looked up by name; all else is linked.
    const Export* exports;
    size_t exportCount;
    int references;
};

template <typename OPERATION> FARPROC Address(OPERATION operation)
{
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(operation));
}

const Export COMMON_CONTROLS[] = {
    {"ImageList_Add", Address(ImageList_Add)},
    {"ImageList_Create", Address(ImageList_Create)},
    {"ImageList_Destroy", Address(ImageList_Destroy)},
    {"ImageList_DrawEx", Address(ImageList_DrawEx)},
    {"LoadIconWithScaleDown", Address(LoadIconWithScaleDown)},
};

const Export USER[] = {
    {"GetDpiForSystem", Address(GetDpiForSystem)},
    {"GetDpiForWindow", Address(GetDpiForWindow)},
    {"GetSystemMetricsForDpi", Address(GetSystemMetricsForDpi)},
    {"SystemParametersInfoForDpi", Address(SystemParametersInfoForDpi)},
};

const Export THEMES[] = {
    {"OpenThemeDataForDpi", Address(OpenThemeDataForDpi)},
};

const Export WINDOW_MANAGER[] = {
    {"DwmSetWindowAttribute", Address(DwmSetWindowAttribute)},
};

const Export ACCESSIBILITY[] = {
    {"AccessibleChildren", Address(AccessibleChildren)},
    {"AccessibleObjectFromEvent", Address(AccessibleObjectFromEvent)},
    {"AccessibleObjectFromPoint", Address(AccessibleObjectFromPoint)},
    {"AccessibleObjectFromWindow", Address(AccessibleObjectFromWindow)},
    {"CreateStdAccessibleObject", Address(CreateStdAccessibleObject)},
    {"LresultFromObject", Address(LresultFromObject)},
    {"ObjectFromLresult", Address(ObjectFromLresult)},
    {"WindowFromAccessibleObject", Address(WindowFromAccessibleObject)},
};

const Export OBJECTS[] = {
    {"CoDisconnectObject", Address(CoDisconnectObject)},
};

const Export AUTOMATION[] = {
    {"LoadRegTypeLib", Address(LoadRegTypeLib)},
    {"SysAllocString", Address(SysAllocString)},
    {"SysAllocStringLen", Address(SysAllocStringLen)},
    {"SysFreeString", Address(SysFreeString)},
    {"SysStringLen", Address(SysStringLen)},
    {"VariantClear", Address(VariantClear)},
    {"VariantCopy", Address(VariantCopy)},
    {"VariantInit", Address(VariantInit)},
};

Module s_modules[] = {
    {L"host.exe", L"C:\\Program Files\\Host\\host.exe", nullptr, 0, 1},
    {L"gesso.dll", L"C:\\Program Files\\Host\\gesso.dll", nullptr, 0, 1},
    {L"comctl32.dll", L"C:\\Windows\\System32\\comctl32.dll", COMMON_CONTROLS, std::size(COMMON_CONTROLS), 0},
    {L"user32.dll", L"C:\\Windows\\System32\\user32.dll", USER, std::size(USER), 1},
    {L"uxtheme.dll", L"C:\\Windows\\System32\\uxtheme.dll", THEMES, std::size(THEMES), 1},
    {L"dwmapi.dll", L"C:\\Windows\\System32\\dwmapi.dll", WINDOW_MANAGER, std::size(WINDOW_MANAGER), 0},
    {L"oleacc.dll", L"C:\\Windows\\System32\\oleacc.dll", ACCESSIBILITY, std::size(ACCESSIBILITY), 0},
    {L"ole32.dll", L"C:\\Windows\\System32\\ole32.dll", OBJECTS, std::size(OBJECTS), 0},
    {L"oleaut32.dll", L"C:\\Windows\\System32\\oleaut32.dll", AUTOMATION, std::size(AUTOMATION), 0},
};

HMODULE HandleOf(Module& module)
{
    return reinterpret_cast<HMODULE>(&module);
}

Module* ModuleOf(HMODULE handle)
{
    const auto found = std::find_if(std::begin(s_modules), std::end(s_modules),
                                    [handle](Module& module) { return HandleOf(module) == handle; });
    return found != std::end(s_modules) ? found : nullptr;
}

Module* FindByName(LPCWSTR name)
{
    const auto found = std::find_if(std::begin(s_modules), std::end(s_modules),
                                    [name](Module& module) { return _wcsicmp(module.name, name) == 0; });
    return found != std::end(s_modules) ? found : nullptr;
}

HMODULE Load(LPCWSTR name)
{
    Module* module = FindByName(name);
    if (!module) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    ++module->references;
    return HandleOf(*module);
}

// The loader maps the library and runs its entry point once, before the program starts.
BOOL AttachLibrary()
{
    AddLibraryResources();
    return DllMain(LibraryModule(), DLL_PROCESS_ATTACH, nullptr);
}

const BOOL ATTACHED = AttachLibrary();

} // namespace

namespace gesso::headless {

HMODULE HostModule()
{
    return HandleOf(s_modules[0]);
}

HMODULE LibraryModule()
{
    return HandleOf(s_modules[1]);
}

} // namespace gesso::headless

HMODULE WINAPI GetModuleHandleW(LPCWSTR name)
{
    if (FaultFires("GetModuleHandleW")) {
        return nullptr;
    }
    const TableLock lock;
    Module* module = name ? FindByName(name) : &s_modules[0];
    if (!module || module->references == 0) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    return HandleOf(*module);
}

BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module)
{
    const TableLock lock;
    if (FaultFires("GetModuleHandleExW")) {
        *module = nullptr;
        return FALSE;
    }
    const CallsBy platform(Caller::Platform);
    // Only the library asks by address, for its own module.
    *module = flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS ? LibraryModule() : GetModuleHandleW(name);
    if (*module && !(flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT)) {
        ++ModuleOf(*module)->references;
    }
    return *module != nullptr;
}

DWORD WINAPI GetModuleFileNameW(HMODULE handle, LPWSTR path, DWORD size)
{
    if (FaultFires("GetModuleFileNameW")) {
        return 0;
    }
    const Module* module = handle ? ModuleOf(handle) : &s_modules[0];
    if (!module) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const size_t length = wcslen(module->path);
    if (length >= size) {
        // A path that does not fit is cut, and fills the buffer whole.
        wcsncpy(path, module->path, size);
        if (size > 0) {
            path[size - 1] = 0;
        }
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return size;
    }
    wcscpy(path, module->path);
    return static_cast<DWORD>(length);
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name)
{
    const TableLock lock;
    return FaultFires("LoadLibraryW") ? nullptr : Load(name);
}

// The flags say where to look; each module is in one place here.
HMODULE WINAPI LoadLibraryExW(LPCWSTR name, HANDLE, DWORD)
{
    const TableLock lock;
    return FaultFires("LoadLibraryExW") ? nullptr : Load(name);
}

BOOL WINAPI FreeLibrary(HMODULE handle)
{
    const TableLock lock;
    Module* module = ModuleOf(handle);
    if (!module || module->references == 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    --module->references;
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE handle, LPCSTR name)
{
    if (FaultFires("GetProcAddress")) {
        return nullptr;
    }
    const Module* module = ModuleOf(handle);
    const Export* first = module ? module->exports : nullptr;
    const Export* last = module ? first + module->exportCount : nullptr;
    const Export* found =
        std::find_if(first, last, [name](const Export& e) { return strcmp(e.name, name) == 0; });
    if (found == last) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return nullptr;
    }
    return found->address;
}
