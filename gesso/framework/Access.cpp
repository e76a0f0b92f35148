#include <gesso/framework/Access.h>

namespace gesso {

void TellAccess(HWND hwnd, DWORD dwEvent, LONG nChild)
{
    if (hwnd) {
        NotifyWinEvent(dwEvent, hwnd, OBJID_CLIENT, nChild);
    }
}

void TellItemFocus(HWND hwnd, LONG nChild)
{
    if (nChild) {
        TellAccess(hwnd, EVENT_OBJECT_FOCUS, nChild);
    }
}

} // namespace gesso
