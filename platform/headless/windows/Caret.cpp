#include "Desktop.h"
#include "Focus.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

bool IsCaretOf(HWND hwnd)
{
    const HWND owner = TheDesktop().caret.hwnd;
    return owner && (!hwnd || hwnd == owner);
}

void UpdateVisible()
{
    TheDesktop().caret.visible = TheDesktop().caretHidden == 0;
}

} // namespace

void EndCaretOf(const Window& window)
{
    Desktop& desktop = *window.desktop;
    if (desktop.caret.hwnd == window.handle) {
        desktop.caret = {};
        desktop.caretHidden = 0;
    }
}

CaretState Caret()
{
    const TableLock lock;
    return TheDesktop().caret;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI CreateCaret(HWND hwnd, HBITMAP, int width, int height)
{
    const TableLock lock;
    if (FaultFires("CreateCaret")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window || DenyForeign(*window)) {
        return FALSE;
    }
    const auto orOne = [](int extent) { return extent > 0 ? extent : 1; };
    TheDesktop().caret = {hwnd, {}, {orOne(width), orOne(height)}, false};
    TheDesktop().caretHidden = 1; // until the first ShowCaret
    return TRUE;
}

BOOL WINAPI DestroyCaret()
{
    const TableLock lock;
    if (FaultFires("DestroyCaret")) {
        return FALSE;
    }
    if (!TheDesktop().caret.hwnd) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    TheDesktop().caret = {};
    TheDesktop().caretHidden = 0;
    return TRUE;
}

BOOL WINAPI ShowCaret(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("ShowCaret")) {
        return FALSE;
    }
    if (!IsCaretOf(hwnd)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    int& hidden = TheDesktop().caretHidden;
    hidden = hidden > 0 ? hidden - 1 : 0;
    UpdateVisible();
    return TRUE;
}

BOOL WINAPI HideCaret(HWND hwnd)
{
    const TableLock lock;
    if (!IsCaretOf(hwnd)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    ++TheDesktop().caretHidden;
    UpdateVisible();
    return TRUE;
}

BOOL WINAPI SetCaretPos(int x, int y)
{
    const TableLock lock;
    if (FaultFires("SetCaretPos")) {
        return FALSE;
    }
    if (!TheDesktop().caret.hwnd) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    TheDesktop().caret.position = {x, y};
    return TRUE;
}

BOOL WINAPI GetCaretPos(LPPOINT out)
{
    const TableLock lock;
    if (FaultFires("GetCaretPos")) {
        return FALSE;
    }
    *out = TheDesktop().caret.position;
    return TRUE;
}
}
