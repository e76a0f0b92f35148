#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/LiveControls.h>

namespace gesso {
namespace {

void Repaint(HWND hwnd, UINT uChildren)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | uChildren);
}

} // namespace

// What shows through a control is what it stands in. No lock is held while the platform works, and no memory
// is needed.
void RepaintControls()
{
    for (HWND hwnd = NextLibraryWindow(nullptr); hwnd; hwnd = NextLibraryWindow(hwnd)) {
        Repaint(hwnd, RDW_ALLCHILDREN);
        HWND hwndAround = hwnd;
        while (hwndAround && (GetWindowLongW(hwndAround, GWL_STYLE) & WS_CHILD)) {
            hwndAround = GetParent(hwndAround);
            if (hwndAround) { // a null one would mean the desktop
                Repaint(hwndAround, RDW_NOCHILDREN);
            }
        }
    }
}

} // namespace gesso
