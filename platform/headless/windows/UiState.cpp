#include "UiState.h"
#include "Send.h"

namespace gesso::headless {
namespace {

// Initialising hides the signs from a user of the mouse and shows them to one of the keyboard.
WPARAM Resolved(WPARAM change)
{
    if (LOWORD(change) != UIS_INITIALIZE) {
        return change;
    }
    return MAKEWPARAM(TheDesktop().keyboardLast ? UIS_CLEAR : UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL);
}

WORD Applied(WORD state, WPARAM change)
{
    switch (LOWORD(change)) {
    case UIS_SET: return state | HIWORD(change);
    case UIS_CLEAR: return static_cast<WORD>(state & ~HIWORD(change));
    default: return state;
    }
}

// A change is asked for at any window and carried out from its top-level window down. It goes no further up
// than to a window for which it is none.
void OnChange(Window& window, WPARAM change)
{
    const WPARAM wanted = Resolved(change);
    if (Applied(window.uiState, wanted) == window.uiState) {
        return;
    }
    if (window.IsChild() && !IsRoot(window.parent)) {
        Send(*window.parent, WM_CHANGEUISTATE, wanted);
    } else {
        Send(window, WM_UPDATEUISTATE, wanted);
    }
}

void OnUpdate(Window& window, WPARAM change)
{
    window.uiState = Applied(window.uiState, change);
    std::vector<WindowRef> children;
    for (Window* child : window.children) {
        children.push_back(child->shared_from_this());
    }
    for (const WindowRef& child : children) {
        Send(*child, WM_UPDATEUISTATE, change);
    }
}

} // namespace

bool HandleUiState(Window& window, UINT message, WPARAM wParam, LRESULT& result)
{
    switch (message) {
    case WM_CHANGEUISTATE: OnChange(window, wParam); return true;
    case WM_UPDATEUISTATE: OnUpdate(window, Resolved(wParam)); return true;
    case WM_QUERYUISTATE: result = window.uiState; return true;
    default: return false;
    }
}

} // namespace gesso::headless
