#include <gesso/controls/ButtonLook.h>
#include <gesso/framework/GWnd.h>

namespace gesso {

int PressState(DWORD dwState, DWORD dwStyle)
{
    constexpr DWORD HOT_AND_PRESSED = GWS_HOT | GWS_PRESSED;
    if ((dwState & (GWS_KEYDOWN | SHOWN_PRESSED)) || (dwState & HOT_AND_PRESSED) == HOT_AND_PRESSED) {
        return PBS_PRESSED;
    }
    if (dwState & GWS_HOT) {
        return PBS_HOT;
    }
    return dwStyle & WS_DISABLED ? PBS_DISABLED : PBS_NORMAL;
}

int PressStateOfDefault(DWORD dwState, DWORD dwStyle)
{
    const int nState = PressState(dwState, dwStyle);
    return nState == PBS_NORMAL && (dwStyle & GBS_DEFAULT) ? PBS_DEFAULTED : nState;
}

bool ShowsFocus(HWND hwnd, DWORD dwState)
{
    return !(dwState & GWS_HIDEFOCUS) && ::GetFocus() == hwnd;
}

} // namespace gesso
