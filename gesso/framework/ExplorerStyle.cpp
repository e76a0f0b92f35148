#include <gesso/framework/ExplorerStyle.h>

#include <vector>

namespace gesso {
namespace {

// Windows without the style, of this thread.
thread_local std::vector<HWND> s_lacking;

} // namespace

void TakeExplorerStyle(HWND hwnd)
{
    if (FAILED(SetWindowTheme(hwnd, L"explorer", nullptr))) {
        s_lacking.push_back(hwnd);
    }
}

// The platform's call sends WM_THEMECHANGED itself.
void MendExplorerStyle(HWND hwnd)
{
    if (std::erase(s_lacking, hwnd)) {
        TakeExplorerStyle(hwnd);
    }
}

} // namespace gesso
