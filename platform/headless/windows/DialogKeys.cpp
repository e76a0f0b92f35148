// The keyboard in a dialog box: IsDialogMessageW.
#include "Desktop.h"
#include "DialogItems.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

void ShowSigns(HWND dialog, WORD which)
{
    SendMessageW(dialog, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, which), 0);
}

// True for a window that goes on by WM_NEXTDLGCTL; any other one gets its focus moved from here.
bool IsDialogBox(HWND hwnd)
{
    const WindowRef window = Peek(hwnd);
    return window && window->dialog;
}

bool GoByTab(HWND dialog)
{
    const bool previous = (GetKeyState(VK_SHIFT) & 0x8000) != 0;
    ShowSigns(dialog, UISF_HIDEFOCUS);
    if (IsDialogBox(dialog)) {
        SendMessageW(dialog, WM_NEXTDLGCTL, previous, 0);
        return true;
    }
    const HWND focus = GetFocus();
    const HWND next = GetNextDlgTabItem(dialog, focus == dialog ? nullptr : focus, previous);
    if (next) {
        FocusControl(next);
    }
    return next != nullptr;
}

void GoByArrow(HWND dialog, HWND from, bool previous)
{
    const HWND next = GetNextDlgGroupItem(dialog, from, previous);
    ShowSigns(dialog, UISF_HIDEFOCUS);
    if (!next || DialogCode(next) != (DLGC_BUTTON | DLGC_RADIOBUTTON)) {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    SetFocus(next);
    const bool automatic = (GetWindowLongW(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    if (automatic && SendMessageW(next, BM_GETCHECK, 0, 0) != BST_CHECKED) {
        SendMessageW(next, BM_CLICK, TRUE, 0);
    }
}

void SendCommand(HWND dialog, int id, HWND control)
{
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), Pointer(control));
}

void PressDefault(HWND dialog)
{
    const HWND focus = GetFocus();
    if (IsChild(dialog, focus) && (DialogCode(focus) & DLGC_DEFPUSHBUTTON)) {
        SendCommand(dialog, GetDlgCtrlID(focus), focus);
        return;
    }
    const LRESULT known = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    const int id = HIWORD(known) == DC_HASDEFID ? LOWORD(known) : IDOK;
    const HWND button = GetDlgItem(dialog, id);
    if (!button || IsWindowEnabled(button)) {
        SendCommand(dialog, id, button);
    }
}

// True if the key was one of the dialog's and is done with.
bool OnKeyDown(HWND dialog, const MSG& message)
{
    const LRESULT code = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, Pointer(&message));
    if (code & DLGC_WANTMESSAGE) {
        return false;
    }
    switch (message.wParam) {
    case VK_TAB: return !(code & DLGC_WANTTAB) && GoByTab(dialog);
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (code & DLGC_WANTARROWS) {
            return false;
        }
        GoByArrow(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
        return true;
    case VK_CANCEL:
    case VK_ESCAPE: SendCommand(dialog, IDCANCEL, GetDlgItem(dialog, IDCANCEL)); return true;
    case VK_EXECUTE:
    case VK_RETURN: PressDefault(dialog); return true;
    default: return false;
    }
}

bool OnChar(HWND dialog, const MSG& message)
{
    const LRESULT code = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, Pointer(&message));
    const bool wanted = (code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) || message.wParam == ' ' ||
                        (message.wParam == '\t' && (code & DLGC_WANTTAB));
    return !wanted && PressMnemonic(dialog, message.hwnd, message.wParam);
}

bool IsDoneWith(HWND dialog, const MSG& message)
{
    switch (message.message) {
    case WM_KEYDOWN: return OnKeyDown(dialog, message);
    case WM_CHAR: return OnChar(dialog, message);
    case WM_SYSCHAR: return PressMnemonic(dialog, message.hwnd, message.wParam);
    case WM_SYSKEYDOWN:
        if (message.wParam == VK_MENU) {
            ShowSigns(dialog, UISF_HIDEACCEL | UISF_HIDEFOCUS);
        }
        return false;
    case WM_LBUTTONDOWN:
        if (message.hwnd != dialog) {
            ShowDefaultFor(dialog, message.hwnd);
        }
        return false;
    default: return false;
    }
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message)
{
    const TableLock lock;
    const CallsBy platform(Caller::Platform);
    if (!Peek(dialog) || (message->hwnd != dialog && !IsChild(dialog, message->hwnd))) {
        return FALSE;
    }
    if (!IsDoneWith(dialog, *message)) {
        TranslateMessage(message);
        DispatchMessageW(message);
    }
    return TRUE;
}
