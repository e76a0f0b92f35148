// The window procedure of dialog boxes.
#include "Desktop.h"
#include "DialogItems.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

void SaveFocus(Window& window)
{
    const HWND focus = GetFocus();
    if (IsChild(window.handle, focus)) {
        window.dialog->focus = focus;
    }
}

// Gives the focus back to the control that had it. On activation alone none is chosen anew.
void RestoreFocus(Window& window, bool activation)
{
    HWND target = std::exchange(window.dialog->focus, nullptr);
    if (window.dialog->ended) {
        return;
    }
    if (!IsWindow(target)) {
        if (activation) {
            return;
        }
        target = GetNextDlgTabItem(window.handle, nullptr, FALSE);
    }
    if (!target) {
        return;
    }
    if (activation) {
        SetFocus(target);
    } else {
        FocusControl(target);
    }
}

LRESULT OnNextControl(HWND dialog, WPARAM wParam, LPARAM lParam)
{
    const HWND target =
        LOWORD(lParam) ? reinterpret_cast<HWND>(wParam) : GetNextDlgTabItem(dialog, GetFocus(), wParam != 0);
    if (target) {
        FocusControl(target);
        ShowDefaultFor(dialog, target);
    }
    return 0;
}

LRESULT OnGetDefaultId(const Window& window)
{
    if (window.dialog->defaultId) {
        return MAKELONG(window.dialog->defaultId, DC_HASDEFID);
    }
    const HWND button = FindDefaultButton(window.handle);
    return button ? MAKELONG(GetDlgCtrlID(button), DC_HASDEFID) : 0;
}

LRESULT OnErase(const Window& window, WPARAM hdc)
{
    const LRESULT brush = SendMessageW(window.handle, WM_CTLCOLORDLG, hdc, Pointer(window.handle));
    RECT client{};
    GetClientRect(window.handle, &client);
    FillRect(reinterpret_cast<HDC>(hdc), &client, reinterpret_cast<HBRUSH>(brush));
    return 1;
}

LRESULT OnClose(HWND dialog)
{
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), Pointer(GetDlgItem(dialog, IDCANCEL)));
    return 0;
}

void OnNcDestroy(Window& window)
{
    if (window.dialog->font) {
        DeleteObject(window.dialog->font);
        window.dialog->font = nullptr;
    }
}

// What the dialog does with a message that the program's procedure left to it.
LRESULT HandleOwn(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ERASEBKGND: return OnErase(window, wParam);
    case WM_ACTIVATE: wParam ? RestoreFocus(window, true) : SaveFocus(window); return 0;
    case WM_SETFOCUS: RestoreFocus(window, false); return 0;
    case DM_SETDEFID:
        if (!window.dialog->ended) {
            SetDefaultId(window, static_cast<UINT>(wParam));
        }
        return 1;
    case DM_GETDEFID: return OnGetDefaultId(window);
    case WM_NEXTDLGCTL: return OnNextControl(window.handle, wParam, lParam);
    case WM_GETFONT: return reinterpret_cast<LRESULT>(window.dialog->font);
    case WM_CLOSE: return OnClose(window.handle);
    case WM_SHOWWINDOW:
        if (!wParam) {
            SaveFocus(window);
        }
        break;
    case WM_NCDESTROY: OnNcDestroy(window); break;
    default: break;
    }
    return DefWindowProcW(window.handle, message, wParam, lParam);
}

// Some messages are answered by what the program's procedure returns, the others by DWLP_MSGRESULT.
bool AnswersItself(UINT message)
{
    return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) || message == WM_INITDIALOG ||
           message == WM_COMPAREITEM || message == WM_VKEYTOITEM || message == WM_CHARTOITEM ||
           message == WM_QUERYDRAGICON;
}

INT_PTR CallProgram(DLGPROC procedure, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CallsBy program(Caller::Program);
    const TableUnlock unlock;
    return procedure(hwnd, message, wParam, lParam);
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" LRESULT WINAPI DefDlgProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const TableLock lock;
    const CallsBy platform(Caller::Platform);
    const WindowRef window = Find(hwnd);
    if (!window) {
        return 0;
    }
    if (!window->dialog) {
        window->dialog = std::make_unique<DialogState>();
    }
    SetWindowLongPtrW(hwnd, DWLP_MSGRESULT, 0);
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(hwnd, DWLP_DLGPROC));
    const INT_PTR result = procedure ? CallProgram(procedure, hwnd, message, wParam, lParam) : FALSE;
    if (!window->alive) {
        return 0;
    }
    if (!result && message != WM_INITDIALOG) {
        return HandleOwn(*window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        OnNcDestroy(*window);
    }
    return AnswersItself(message) ? result : GetWindowLongPtrW(hwnd, DWLP_MSGRESULT);
}
