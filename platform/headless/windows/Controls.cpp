#include "Controls.h"
#include "Class.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

// The first extra word of a button: whether it is checked. Of an edit or a static: its font.
constexpr int CHECK_WORD = 0;
constexpr int FONT_WORD = 8;

LRESULT KeepFont(HWND hwnd, UINT message, WPARAM wParam)
{
    return message == WM_SETFONT ? SetWindowLongPtrW(hwnd, FONT_WORD, static_cast<LONG_PTR>(wParam)),
           0                     : GetWindowLongPtrW(hwnd, FONT_WORD);
}

LRESULT CALLBACK StaticProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CallsBy platform(Caller::Platform);
    switch (message) {
    case WM_NCHITTEST: return GetWindowLongW(hwnd, GWL_STYLE) & SS_NOTIFY ? HTCLIENT : HTTRANSPARENT;
    case WM_GETDLGCODE: return DLGC_STATIC;
    case WM_SETFONT:
    case WM_GETFONT: return KeepFont(hwnd, message, wParam);
    default: return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

void Append(HWND hwnd, WPARAM character)
{
    const TableLock lock;
    const WindowRef window = Find(hwnd);
    if (character == '\b') {
        if (!window->text.empty()) {
            window->text.pop_back();
        }
    } else if (character >= ' ') {
        window->text += static_cast<char16_t>(character);
    }
}

LRESULT CALLBACK EditProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CallsBy platform(Caller::Platform);
    switch (message) {
    case WM_GETDLGCODE: return DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
    case WM_CHAR: Append(hwnd, wParam); return 0;
    case WM_LBUTTONDOWN: SetFocus(hwnd); return 0;
    case WM_SETFONT:
    case WM_GETFONT: return KeepFont(hwnd, message, wParam);
    default: return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

DWORD KindOf(HWND hwnd)
{
    return static_cast<DWORD>(GetWindowLongW(hwnd, GWL_STYLE)) & BS_TYPEMASK;
}

LRESULT ButtonCode(HWND hwnd)
{
    switch (KindOf(hwnd)) {
    case BS_PUSHBUTTON: return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_DEFPUSHBUTTON: return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: return DLGC_BUTTON | DLGC_RADIOBUTTON;
    case BS_GROUPBOX: return DLGC_STATIC;
    default: return DLGC_BUTTON;
    }
}

void CheckAlone(HWND hwnd)
{
    const HWND dialog = GetParent(hwnd);
    SendMessageW(hwnd, BM_SETCHECK, BST_CHECKED, 0);
    const HWND first = GetNextDlgGroupItem(dialog, hwnd, FALSE);
    HWND other = first;
    do {
        if (other != hwnd && KindOf(other) == BS_AUTORADIOBUTTON) {
            SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
        }
        other = GetNextDlgGroupItem(dialog, other, FALSE);
    } while (other != first);
}

void Press(HWND hwnd)
{
    const DWORD kind = KindOf(hwnd);
    if (kind == BS_AUTOCHECKBOX) {
        SendMessageW(hwnd, BM_SETCHECK, !SendMessageW(hwnd, BM_GETCHECK, 0, 0), 0);
    } else if (kind == BS_AUTORADIOBUTTON) {
        CheckAlone(hwnd);
    }
    const WORD id = LOWORD(GetDlgCtrlID(hwnd));
    SendMessageW(GetParent(hwnd), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), Pointer(hwnd));
}

void Release(HWND hwnd, LPARAM lParam)
{
    if (GetCapture() != hwnd) {
        return;
    }
    ReleaseCapture();
    RECT client{};
    GetClientRect(hwnd, &client);
    if (PtInRect(&client, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) {
        Press(hwnd);
    }
}

LRESULT CALLBACK ButtonProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CallsBy platform(Caller::Platform);
    switch (message) {
    case WM_GETDLGCODE: return ButtonCode(hwnd);
    case WM_LBUTTONDOWN:
        SetFocus(hwnd);
        SetCapture(hwnd);
        return 0;
    case WM_LBUTTONUP: Release(hwnd, lParam); return 0;
    case WM_KEYUP:
        if (wParam == VK_SPACE) {
            Press(hwnd);
        }
        return 0;
    case BM_CLICK: Press(hwnd); return 0;
    case BM_GETCHECK: return GetWindowLongW(hwnd, CHECK_WORD);
    case BM_SETCHECK: SetWindowLongW(hwnd, CHECK_WORD, static_cast<LONG>(wParam)); return 0;
    case BM_SETSTYLE: {
        const TableLock lock;
        const WindowRef window = Find(hwnd);
        window->style = (window->style & ~DWORD{BS_TYPEMASK}) | (static_cast<DWORD>(wParam) & BS_TYPEMASK);
        return 0;
    }
    case WM_SETFONT:
    case WM_GETFONT: return KeepFont(hwnd, message, wParam);
    default: return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

} // namespace

void RegisterBuiltInControls()
{
    RegisterBuiltInClass(L"STATIC", CS_PARENTDC, StaticProc, 16);
    RegisterBuiltInClass(L"EDIT", CS_PARENTDC | CS_DBLCLKS, EditProc, 16);
    RegisterBuiltInClass(L"BUTTON", CS_PARENTDC, ButtonProc, 16);
}

} // namespace gesso::headless
