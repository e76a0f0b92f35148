// How many dots an inch each window has.
#include "Window.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <vector>

namespace gesso::headless {
namespace {

// A property that no program can name by chance.
constexpr wchar_t DPI[] = L"\x1"
                          L"dpi";

std::vector<HWND> Below(HWND hwnd)
{
    std::vector<HWND> windows;
    EnumChildWindows(
        hwnd,
        [](HWND child, LPARAM param) {
            reinterpret_cast<std::vector<HWND>*>(param)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

RECT Scaled(const RECT& rect, int dpi, int former)
{
    return {rect.left, rect.top, rect.left + MulDiv(rect.right - rect.left, dpi, former),
            rect.top + MulDiv(rect.bottom - rect.top, dpi, former)};
}

} // namespace

void SetWindowDpi(HWND hwnd, int dpi)
{
    const TableLock lock;
    if (const WindowRef window = Find(hwnd)) {
        window->properties[WideText(View(DPI))] = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(dpi));
    }
}

void ChangeDpi(HWND hwnd, int dpi)
{
    const auto former = static_cast<int>(GetDpiForWindow(hwnd));
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    rect = Scaled(rect, dpi, former);
    SetWindowDpi(hwnd, dpi);
    const std::vector<HWND> below = Below(hwnd);
    for (size_t i = below.size(); i-- > 0;) {
        SendMessageW(below[i], WM_DPICHANGED_BEFOREPARENT, 0, 0);
    }
    SendMessageW(hwnd, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&rect));
    for (const HWND child : below) {
        if (IsWindow(child)) {
            SendMessageW(child, WM_DPICHANGED_AFTERPARENT, 0, 0);
        }
    }
}

} // namespace gesso::headless

using namespace gesso::headless;

UINT WINAPI GetDpiForWindow(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("GetDpiForWindow")) {
        return 0;
    }
    if (!IsWindow(hwnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    for (HWND outer = hwnd; outer; outer = GetAncestor(outer, GA_PARENT)) {
        if (const HANDLE dpi = GetPropW(outer, DPI)) {
            return static_cast<UINT>(reinterpret_cast<INT_PTR>(dpi));
        }
    }
    return GetDpiForSystem();
}
