#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/LiveControls.h>

namespace gesso {
namespace {

// The outermost of the windows that a window stands in.
HWND OutermostOf(HWND hwnd)
{
    HWND hwndAround = hwnd;
    while (hwndAround && (GetWindowLongW(hwndAround, GWL_STYLE) & WS_CHILD)) {
        hwnd = hwndAround;
        hwndAround = GetParent(hwndAround);
    }
    return hwndAround ? hwndAround : hwnd;
}

} // namespace

// What shows through a control is what it stands in, and the platform's controls beside it are drawn as their
// parent answers. No lock is held while the platform works, and no memory is needed.
void RepaintControls()
{
    HWND hwndFormer = nullptr;
    for (HWND hwnd = NextLibraryWindow(nullptr); hwnd; hwnd = NextLibraryWindow(hwnd)) {
        const HWND hwndAll = OutermostOf(hwnd);
        if (hwndAll != hwndFormer) { // mostly one after the other
            RedrawWindow(hwndAll, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        }
        hwndFormer = hwndAll;
    }
}

} // namespace gesso
