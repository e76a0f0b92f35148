// What the window manager is asked to show around a window.
#include "Desktop.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../headless.h"

#include <dwmapi.h>

namespace gesso::headless {

bool HasDarkCaption(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    return window && window->darkCaption;
}

} // namespace gesso::headless

using namespace gesso::headless;

HRESULT WINAPI DwmSetWindowAttribute(HWND hwnd, DWORD attribute, LPCVOID value, DWORD size)
{
    constexpr DWORD USE_IMMERSIVE_DARK_MODE = 20;
    const TableLock lock;
    if (FaultFires("DwmSetWindowAttribute")) {
        return FaultResult();
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return E_HANDLE;
    }
    if (attribute != USE_IMMERSIVE_DARK_MODE || size != sizeof(BOOL)) {
        return E_INVALIDARG;
    }
    window->darkCaption = *static_cast<const BOOL*>(value);
    return S_OK;
}
