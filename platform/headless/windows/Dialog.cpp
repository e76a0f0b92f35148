// Dialog boxes: made of templates, and run.
#include "Desktop.h"
#include "DialogItems.h"
#include "DialogTemplate.h"
#include "Focus.h"
#include "Position.h"
#include "Queue.h"
#include "Requests.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

// The dialog base units of a common 9 point font at 96 dots an inch. They are the same for every font, and
// grow with the screen's dots.
constexpr SIZE BASE_UNITS = {7, 15};

int ToPixels(int units, int base, int parts)
{
    return MulDiv(units, base * static_cast<int>(GetDpiForSystem()), parts * USER_DEFAULT_SCREEN_DPI);
}

int ToPixelsX(int units)
{
    return ToPixels(units, BASE_UNITS.cx, 4);
}

int ToPixelsY(int units)
{
    return ToPixels(units, BASE_UNITS.cy, 8);
}

HFONT MakeFont(LOGFONTW font)
{
    const HDC screen = GetDC(nullptr);
    font.lfHeight = -MulDiv(font.lfHeight, GetDeviceCaps(screen, LOGPIXELSY), 72);
    ReleaseDC(nullptr, screen);
    return CreateFontIndirectW(&font);
}

RECT WorkArea()
{
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return work;
}

POINT CornerOf(const DialogTemplate& source, HWND owner, const SIZE& size)
{
    const RECT work = WorkArea();
    if (source.style & DS_CENTER) {
        return {(work.left + work.right - size.cx) / 2, (work.top + work.bottom - size.cy) / 2};
    }
    POINT corner = {ToPixelsX(source.corner.x), ToPixelsY(source.corner.y)};
    if (source.style & WS_CHILD) {
        return corner;
    }
    if (owner && !(source.style & DS_ABSALIGN)) {
        ClientToScreen(owner, &corner);
    }
    corner.x = std::max(std::min(corner.x, work.right - size.cx), work.left);
    corner.y = std::max(std::min(corner.y, work.bottom - size.cy), work.top);
    return corner;
}

void CompleteStyles(DialogTemplate& source)
{
    if (source.style & DS_MODALFRAME) {
        source.exStyle |= WS_EX_DLGMODALFRAME;
    }
    if (source.style & DS_CONTROL) {
        source.style &= ~static_cast<DWORD>(WS_CAPTION | WS_SYSMENU);
        source.exStyle |= WS_EX_CONTROLPARENT;
    }
}

HWND MakeBox(const DialogTemplate& source, HINSTANCE instance, HWND owner)
{
    // A dialog without a window that it wants is one of the program's failures.
    const CallsBy program(Caller::Program);
    RECT r = {0, 0, ToPixelsX(source.size.cx), ToPixelsY(source.size.cy)};
    AdjustWindowRectEx(&r, source.style, FALSE, source.exStyle);
    const SIZE size = SizeOf(r);
    const POINT corner = CornerOf(source, owner, size);
    const LPCWSTR className = source.className ? source.className : L"#32770";
    return CreateWindowExW(source.exStyle, className, source.text,
                           source.style & ~static_cast<DWORD>(WS_VISIBLE), corner.x, corner.y, size.cx,
                           size.cy, owner, nullptr, instance, nullptr);
}

HWND MakeControl(const DialogItem& item, HWND dialog, HINSTANCE instance)
{
    // A dialog without a window that it wants is one of the program's failures.
    const CallsBy program(Caller::Program);
    const DWORD style = (item.style | WS_CHILD) & ~static_cast<DWORD>(WS_POPUP);
    const LPCWSTR text = IS_INTRESOURCE(item.text) ? nullptr : item.text;
    return CreateWindowExW(
        item.exStyle | WS_EX_NOPARENTNOTIFY, item.className, text, style, ToPixelsX(item.place.left),
        ToPixelsY(item.place.top), ToPixelsX(item.place.right), ToPixelsY(item.place.bottom), dialog,
        reinterpret_cast<HMENU>(static_cast<uintptr_t>(item.id)), instance, item.creationData);
}

// The last control that calls itself the default button is it; the ones before are told that they are not.
void NoteDefault(DialogState& state, HWND control, HWND& known)
{
    if (!(DialogCode(control) & DLGC_DEFPUSHBUTTON)) {
        return;
    }
    if (known) {
        SendMessageW(known, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    }
    known = control;
    state.defaultId = static_cast<UINT>(GetDlgCtrlID(control));
}

bool MakeControls(const DialogTemplate& source, Window& dialog, HINSTANCE instance)
{
    HWND defaultButton = nullptr;
    for (const DialogItem& item : source.items) {
        const HWND control = MakeControl(item, dialog.handle, instance);
        if (!control) {
            if (source.style & DS_NOFAILCREATE) {
                continue;
            }
            return false;
        }
        if (dialog.dialog->font) {
            SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(dialog.dialog->font), FALSE);
        }
        NoteDefault(*dialog.dialog, control, defaultButton);
    }
    return true;
}

HWND FirstControl(HWND dialog)
{
    const HWND byTab = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return byTab ? byTab : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

// Hands the dialog to the program. A true answer leaves the focus to the platform.
void Initialize(Window& dialog, LPARAM param)
{
    const HWND hwnd = dialog.handle;
    const bool chooses =
        SendMessageW(hwnd, WM_INITDIALOG, reinterpret_cast<WPARAM>(FirstControl(hwnd)), param) != 0;
    if (!dialog.alive) {
        return;
    }
    if (chooses && (!dialog.Has(DS_CONTROL) || dialog.Has(WS_VISIBLE))) {
        const HWND first = FirstControl(hwnd);
        SetFocus(first ? first : hwnd);
    }
    if (dialog.alive) {
        SendMessageW(hwnd, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    }
}

WindowRef MakeDialog(HINSTANCE instance, const DLGTEMPLATE* memory, HWND owner, DLGPROC procedure,
                     LPARAM param)
{
    const CallsBy platform(Caller::Platform);
    DialogTemplate source = ReadTemplate(memory);
    CompleteStyles(source);
    const HWND hwnd = MakeBox(source, instance, owner);
    WindowRef dialog = hwnd ? Find(hwnd) : nullptr;
    if (!dialog) {
        return nullptr;
    }
    if (!dialog->dialog) {
        dialog->dialog = std::make_unique<DialogState>();
    }
    if (source.hasFont) {
        dialog->dialog->font = MakeFont(source.font);
    }
    SetWindowLongPtrW(hwnd, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (dialog->dialog->font) {
        SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(dialog->dialog->font), FALSE);
    }
    if (!MakeControls(source, *dialog, instance)) {
        DestroyWindow(hwnd);
        return nullptr;
    }
    Initialize(*dialog, param);
    if (dialog->alive && (source.style & WS_VISIBLE) && !dialog->dialog->ended) {
        ShowWindow(hwnd, SW_SHOWNORMAL);
        UpdateWindow(hwnd);
    }
    return dialog;
}

// Runs until EndDialog, the dialog's end, or WM_QUIT, which is left to the loops outside.
void RunModal(const WindowRef& dialog)
{
    MSG message{};
    bool shown = false;
    while (dialog->alive && !dialog->dialog->ended) {
        if (!shown && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            ShowWindow(dialog->handle, SW_SHOW); // at the latest when there is nothing else to do
            shown = true;
        }
        if (!WaitForMessage({}, message)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!IsDialogMessageW(dialog->handle, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

HWND TopLevelOwner(HWND owner)
{
    const WindowRef window = Peek(owner);
    return window ? TopLevelOf(*window).handle : nullptr;
}

// The owner is disabled while the dialog runs, if it was not before.
bool DisableOwner(HWND owner)
{
    return owner && IsWindowEnabled(owner) && !EnableWindow(owner, FALSE);
}

INT_PTR RunBox(HINSTANCE instance, const DLGTEMPLATE* source, HWND parent, DLGPROC procedure, LPARAM param)
{
    const HWND owner = TopLevelOwner(parent);
    const bool disabled = DisableOwner(owner);
    const WindowRef dialog = MakeDialog(instance, source, owner, procedure, param);
    INT_PTR result = -1;
    if (dialog) {
        dialog->dialog->ownerDisabled = disabled;
        RunModal(dialog);
        result = dialog->dialog->ended ? dialog->dialog->result : 0;
    }
    if (disabled && IsWindow(owner)) {
        EnableWindow(owner, TRUE);
    }
    if (dialog && dialog->alive) {
        const CallsBy platform(Caller::Platform);
        DestroyWindow(dialog->handle);
    }
    return result;
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW source, HWND owner,
                                       DLGPROC procedure, LPARAM param)
{
    const TableLock lock;
    if (FaultFires("CreateDialogIndirectParamW")) {
        return nullptr;
    }
    if (!source) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const WindowRef dialog = MakeDialog(instance, source, owner, procedure, param);
    return dialog && dialog->alive ? dialog->handle : nullptr;
}

INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW source, HWND owner,
                                       DLGPROC procedure, LPARAM param)
{
    const TableLock lock;
    if (FaultFires("DialogBoxIndirectParamW")) {
        return -1;
    }
    if (!source) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if (owner && !Find(owner)) {
        return 0;
    }
    return RunBox(instance, source, owner, procedure, param);
}

BOOL WINAPI EndDialog(HWND hwnd, INT_PTR result)
{
    const TableLock lock;
    if (FaultFires("EndDialog")) {
        return FALSE;
    }
    const CallsBy platform(Caller::Platform);
    const WindowRef window = Find(hwnd);
    if (!window || !window->dialog) {
        return FALSE;
    }
    if (IsForeign(*window)) {
        return Ask(*window->desktop, [=]() -> LRESULT { return EndDialog(hwnd, result); }) != 0;
    }
    DialogState& state = *window->dialog;
    state.result = result;
    state.ended = true;
    if (state.ownerDisabled && IsWindow(window->owner)) {
        EnableWindow(window->owner, TRUE);
    }
    if (IsChild(hwnd, GetFocus())) {
        SetFocus(hwnd);
    }
    Reposition(hwnd, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    if (GetActiveWindow() == hwnd) {
        ActivateNext(*window);
    }
    PostMessageW(hwnd, WM_NULL, 0, 0); // the loop has to see that it is over
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND hwnd, LPRECT r)
{
    const TableLock lock;
    if (FaultFires("MapDialogRect")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window || !window->dialog) {
        return FALSE;
    }
    *r = {ToPixelsX(r->left), ToPixelsY(r->top), ToPixelsX(r->right), ToPixelsY(r->bottom)};
    return TRUE;
}
}
