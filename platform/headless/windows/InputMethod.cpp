// Input methods: each thread has one, with a context that all its windows share. Nobody types into it but the
// program itself.
#include "InputMethod.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

HIMC ContextOf(Desktop& desktop)
{
    return reinterpret_cast<HIMC>(&desktop.inputMethod);
}

// Null, with the last error set, for a context that is not the calling thread's.
InputMethod* MethodOf(HIMC context)
{
    if (context && context == ContextOf(TheDesktop())) {
        return &TheDesktop().inputMethod;
    }
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

// To the window with the focus, or else to the one that had it and does not know better yet.
void TellWindow(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    const HWND focus = TheDesktop().shared->focus;
    const WindowRef window = Peek(focus ? focus : TheDesktop().inputMethod.window);
    if (window && !window->noInputContext) {
        Send(*window, message, wParam, lParam);
    }
}

WPARAM First(const WideText& text)
{
    return text.empty() ? 0 : text.front();
}

void Compose(InputMethod& method, WideText text)
{
    if (!method.composing) {
        method.composing = true;
        TellWindow(WM_IME_STARTCOMPOSITION);
    }
    method.result.clear();
    method.composed = std::move(text);
    const LPARAM what = GCS_COMPSTR | GCS_COMPATTR | GCS_COMPCLAUSE | GCS_DELTASTART;
    TellWindow(WM_IME_COMPOSITION, First(method.composed),
               method.composed.empty() ? LPARAM{GCS_COMPSTR} : what);
}

void End(InputMethod& method)
{
    if (method.composing) {
        method.composing = false;
        TellWindow(WM_IME_ENDCOMPOSITION);
    }
}

void Complete(InputMethod& method)
{
    if (!method.composed.empty()) {
        method.result = std::exchange(method.composed, {});
        TellWindow(WM_IME_COMPOSITION, 0, GCS_COMPSTR);
        TellWindow(WM_IME_COMPOSITION, First(method.result), GCS_RESULTSTR | GCS_RESULTCLAUSE);
    }
    End(method);
}

void Cancel(InputMethod& method)
{
    method.composed.clear();
    method.result.clear();
    End(method);
}

LONG CopyBytes(const void* from, size_t size, void* to, DWORD capacity)
{
    if (capacity == 0) {
        return static_cast<LONG>(size);
    }
    size = std::min<size_t>(size, capacity);
    if (size > 0) {
        std::memcpy(to, from, size);
    }
    return static_cast<LONG>(size);
}

LONG CopyCharacters(const WideText& text, void* to, DWORD capacity)
{
    return CopyBytes(text.data(), text.size() * sizeof(wchar_t), to, capacity);
}

} // namespace

void TellInputMethod(Window& window, bool active)
{
    HWND& current = window.desktop->inputMethod.window;
    if (active) {
        current = window.handle;
    } else if (current == window.handle) {
        current = nullptr;
    }
    Send(window, WM_IME_SETCONTEXT, active, static_cast<LPARAM>(ISC_SHOWUIALL));
}

void TypeResult(Window& window, LPARAM what)
{
    if (!(what & GCS_RESULTSTR)) {
        return;
    }
    const WideText result = window.desktop->inputMethod.result;
    for (const char16_t character : result) {
        Send(window, WM_IME_CHAR, character, 1);
    }
}

void AcceptAndCompose(std::u16string_view accepted, std::u16string_view composed)
{
    const TableLock lock;
    InputMethod& method = TheDesktop().inputMethod;
    method.composing = true;
    method.result = accepted;
    method.composed = composed;
    TellWindow(WM_IME_COMPOSITION, First(method.result),
               GCS_RESULTSTR | GCS_RESULTCLAUSE | GCS_COMPSTR | GCS_COMPATTR | GCS_COMPCLAUSE);
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HIMC WINAPI ImmGetContext(HWND hwnd)
{
    const TableLock lock;
    if (FaultFires("ImmGetContext")) {
        return nullptr;
    }
    const WindowRef window = Find(hwnd);
    return window && !IsForeign(*window) && !window->noInputContext ? ContextOf(TheDesktop()) : nullptr;
}

// The thread's context or none: there are no others.
HIMC WINAPI ImmAssociateContext(HWND hwnd, HIMC context)
{
    const TableLock lock;
    const WindowRef window = FaultFires("ImmAssociateContext") ? nullptr : Find(hwnd);
    if (!window || IsForeign(*window) || (context && !MethodOf(context))) {
        return nullptr;
    }
    const bool none = std::exchange(window->noInputContext, context == nullptr);
    return none ? nullptr : ContextOf(TheDesktop());
}

BOOL WINAPI ImmReleaseContext(HWND, HIMC)
{
    const TableLock lock;
    return !FaultFires("ImmReleaseContext");
}

LONG WINAPI ImmGetCompositionStringW(HIMC context, DWORD what, LPVOID to, DWORD size)
{
    const TableLock lock;
    if (FaultFires("ImmGetCompositionStringW")) {
        return IMM_ERROR_GENERAL;
    }
    const InputMethod* method = MethodOf(context);
    if (!method) {
        return 0;
    }
    switch (what) {
    case GCS_COMPSTR: return CopyCharacters(method->composed, to, size);
    case GCS_RESULTSTR: return CopyCharacters(method->result, to, size);
    case GCS_CURSORPOS: return static_cast<LONG>(method->composed.size());
    case GCS_COMPATTR: {
        const std::vector<BYTE> attributes(method->composed.size(), ATTR_INPUT);
        return CopyBytes(attributes.data(), attributes.size(), to, size);
    }
    default: return 0;
    }
}

BOOL WINAPI ImmSetCompositionStringW(HIMC context, DWORD what, LPCVOID composed, DWORD size, LPCVOID, DWORD)
{
    const TableLock lock;
    InputMethod* const method = MethodOf(context);
    if (!method || what != SCS_SETSTR) {
        return FALSE;
    }
    const auto* const text = static_cast<const char16_t*>(composed);
    Compose(*method, text ? WideText(text, size / sizeof(wchar_t)) : WideText());
    return TRUE;
}

BOOL WINAPI ImmNotifyIME(HIMC context, DWORD action, DWORD index, DWORD)
{
    const TableLock lock;
    if (FaultFires("ImmNotifyIME")) {
        return FALSE;
    }
    InputMethod* const method = MethodOf(context);
    if (!method || action != NI_COMPOSITIONSTR || (index != CPS_COMPLETE && index != CPS_CANCEL)) {
        return FALSE;
    }
    (index == CPS_COMPLETE ? Complete : Cancel)(*method);
    return TRUE;
}

BOOL WINAPI ImmSetCompositionWindow(HIMC context, LPCOMPOSITIONFORM place)
{
    const TableLock lock;
    InputMethod* const method = MethodOf(context);
    if (FaultFires("ImmSetCompositionWindow") || !method) {
        return FALSE;
    }
    method->place = *place;
    TellWindow(WM_IME_NOTIFY, IMN_SETCOMPOSITIONWINDOW);
    return TRUE;
}

BOOL WINAPI ImmGetCompositionWindow(HIMC context, LPCOMPOSITIONFORM place)
{
    const TableLock lock;
    const InputMethod* const method = MethodOf(context);
    if (!method) {
        return FALSE;
    }
    *place = method->place;
    return TRUE;
}

BOOL WINAPI ImmSetCandidateWindow(HIMC context, LPCANDIDATEFORM place)
{
    const TableLock lock;
    InputMethod* const method = MethodOf(context);
    if (FaultFires("ImmSetCandidateWindow") || !method || place->dwIndex >= method->candidates.size()) {
        return FALSE;
    }
    method->candidates[place->dwIndex] = *place;
    TellWindow(WM_IME_NOTIFY, IMN_SETCANDIDATEPOS, LPARAM{1} << place->dwIndex);
    return TRUE;
}

BOOL WINAPI ImmGetCandidateWindow(HIMC context, DWORD index, LPCANDIDATEFORM place)
{
    const TableLock lock;
    const InputMethod* const method = MethodOf(context);
    if (!method || index >= method->candidates.size()) {
        return FALSE;
    }
    *place = method->candidates[index];
    return TRUE;
}

BOOL WINAPI ImmSetCompositionFontW(HIMC context, LPLOGFONTW font)
{
    const TableLock lock;
    InputMethod* const method = MethodOf(context);
    if (FaultFires("ImmSetCompositionFontW") || !method) {
        return FALSE;
    }
    method->font = *font;
    TellWindow(WM_IME_NOTIFY, IMN_SETCOMPOSITIONFONT);
    return TRUE;
}
}
