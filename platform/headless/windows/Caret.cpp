#include "Desktop.h"

#include "../core/Faults.h"

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

CaretState Caret()
{
    return TheDesktop().caret;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI CreateCaret(HWND hwnd, HBITMAP, int width, int height)
{
    if (FaultFires("CreateCaret")) {
        return FALSE;
    }
    if (!Find(hwnd)) {
        return FALSE;
    }
    const auto orOne = [](int extent) { return extent > 0 ? extent : 1; };
    TheDesktop().caret = {hwnd, {}, {orOne(width), orOne(height)}, false};
    TheDesktop().caretHidden = 1; // until the first ShowCaret
    return TRUE;
}

BOOL WINAPI DestroyCaret()
{
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
    if (FaultFires("GetCaretPos")) {
        return FALSE;
    }
    *out = TheDesktop().caret.position;
    return TRUE;
}
}
