#include "Desktop.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/GlobalMemory.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

bool IsOpen()
{
    const bool open = TheClipboard().open && TheClipboard().thread == GetCurrentThreadId();
    if (!open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
    }
    return open;
}

void FreeData()
{
    const CallsBy platform(Caller::Platform);
    for (const auto& [format, data] : TheClipboard().data) {
        GlobalFree(data);
    }
    TheClipboard().data.clear();
}

HANDLE DataOf(UINT format)
{
    const auto& data = TheClipboard().data;
    const auto found = data.find(format);
    return found == data.end() ? nullptr : found->second;
}

} // namespace

std::string ClipboardText()
{
    const TableLock lock;
    const HANDLE text = DataOf(CF_UNICODETEXT);
    return text ? ToUtf8(View(static_cast<LPCWSTR>(BlockOf(text)))) : std::string();
}

void SetClipboardText(std::string_view text)
{
    const TableLock lock;
    const CallsBy platform(Caller::Platform);
    FreeData();
    TheClipboard().owner = nullptr; // of another program
    if (text.empty()) {
        return;
    }
    const WideText wide = FromUtf8(text);
    const size_t size = (wide.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(BlockOf(block), wide.c_str(), size);
    TheClipboard().data[CF_UNICODETEXT] = block;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI OpenClipboard(HWND hwnd)
{
    const TableLock lock;
    Clipboard& clipboard = TheClipboard();
    if (FaultFires("OpenClipboard")) {
        return FALSE;
    }
    if (clipboard.open) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    clipboard.open = true;
    clipboard.opener = hwnd;
    clipboard.thread = GetCurrentThreadId();
    return TRUE;
}

BOOL WINAPI CloseClipboard()
{
    const TableLock lock;
    if (FaultFires("CloseClipboard")) {
        return FALSE;
    }
    if (!IsOpen()) {
        return FALSE;
    }
    TheClipboard().open = false;
    return TRUE;
}

BOOL WINAPI EmptyClipboard()
{
    const TableLock lock;
    if (FaultFires("EmptyClipboard")) {
        return FALSE;
    }
    if (!IsOpen()) {
        return FALSE;
    }
    Clipboard& clipboard = TheClipboard();
    if (const WindowRef owner = Find(clipboard.owner)) {
        Notify(*owner, WM_DESTROYCLIPBOARD); // a thread that is busy keeps nobody from copying
    }
    FreeData();
    clipboard.owner = clipboard.opener;
    return TRUE;
}

HANDLE WINAPI SetClipboardData(UINT format, HANDLE data)
{
    const TableLock lock;
    if (FaultFires("SetClipboardData") || !IsOpen()) {
        return nullptr;
    }
    if (!TheClipboard().owner) { // emptied by no window, or not at all
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    const CallsBy platform(Caller::Platform);
    HANDLE& kept = TheClipboard().data[format];
    if (kept && kept != data) {
        GlobalFree(kept);
    }
    kept = data;
    return data;
}

HANDLE WINAPI GetClipboardData(UINT format)
{
    const TableLock lock;
    if (FaultFires("GetClipboardData") || !IsOpen()) {
        return nullptr;
    }
    // What was put there as null is made when it is wanted.
    const Clipboard& clipboard = TheClipboard();
    if (clipboard.data.contains(format) && !DataOf(format) && Find(clipboard.owner)) {
        SendMessageW(clipboard.owner, WM_RENDERFORMAT, format, 0);
    }
    return DataOf(format);
}

BOOL WINAPI IsClipboardFormatAvailable(UINT format)
{
    const TableLock lock;
    return TheClipboard().data.contains(format);
}
}
