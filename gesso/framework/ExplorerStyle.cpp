#include <gesso/framework/ExplorerStyle.h>

#include <vector>

namespace gesso {
namespace {

// Windows without the style, of this thread.
thread_local std::vector<HWND> s_lacking;

} // namespace

bool TakeExplorerStyle(HWND hwnd)
{
    std::erase_if(s_lacking, [hwnd](HWND other) { return other == hwnd || !IsWindow(other); });
    if (SUCCEEDED(SetWindowTheme(hwnd, L"explorer", nullptr))) {
        return true;
    }
    s_lacking.push_back(hwnd);
    return false;
}

bool MendExplorerStyle(HWND hwnd)
{
    return std::erase(s_lacking, hwnd) != 0 && TakeExplorerStyle(hwnd);
}

} // namespace gesso
