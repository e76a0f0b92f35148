#include "Desktop.h"

#include "../core/Faults.h"
#include "../core/GlobalMemory.h"

namespace gesso::headless {
namespace {

bool IsOpen()
{
    if (!TheDesktop().clipboard.open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
    }
    return TheDesktop().clipboard.open;
}

void FreeData()
{
    const CallsBy platform(Caller::Platform);
    for (const auto& [format, data] : TheDesktop().clipboard.data) {
        GlobalFree(data);
    }
    TheDesktop().clipboard.data.clear();
}

HANDLE DataOf(UINT format)
{
    const auto& data = TheDesktop().clipboard.data;
    const auto found = data.find(format);
    return found == data.end() ? nullptr : found->second;
}

} // namespace

std::string ClipboardText()
{
    const HANDLE text = DataOf(CF_UNICODETEXT);
    return text ? ToUtf8(View(static_cast<LPCWSTR>(BlockOf(text)))) : std::string();
}

void SetClipboardText(std::string_view text)
{
    const CallsBy platform(Caller::Platform);
    FreeData();
    TheDesktop().clipboard.owner = nullptr; // of another program
    if (text.empty()) {
        return;
    }
    const WideText wide = FromUtf8(text);
    const size_t size = (wide.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(BlockOf(block), wide.c_str(), size);
    TheDesktop().clipboard.data[CF_UNICODETEXT] = block;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI OpenClipboard(HWND hwnd)
{
    Clipboard& clipboard = TheDesktop().clipboard;
    if (FaultFires("OpenClipboard")) {
        return FALSE;
    }
    if (clipboard.open) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    clipboard.open = true;
    clipboard.opener = hwnd;
    return TRUE;
}

BOOL WINAPI CloseClipboard()
{
    if (FaultFires("CloseClipboard")) {
        return FALSE;
    }
    if (!IsOpen()) {
        return FALSE;
    }
    TheDesktop().clipboard.open = false;
    return TRUE;
}

BOOL WINAPI EmptyClipboard()
{
    if (FaultFires("EmptyClipboard")) {
        return FALSE;
    }
    if (!IsOpen()) {
        return FALSE;
    }
    Clipboard& clipboard = TheDesktop().clipboard;
    if (Find(clipboard.owner)) {
        SendMessageW(clipboard.owner, WM_DESTROYCLIPBOARD, 0, 0);
    }
    FreeData();
    clipboard.owner = clipboard.opener;
    return TRUE;
}

HANDLE WINAPI SetClipboardData(UINT format, HANDLE data)
{
    if (FaultFires("SetClipboardData") || !IsOpen()) {
        return nullptr;
    }
    if (!TheDesktop().clipboard.owner) { // emptied by no window, or not at all
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    const CallsBy platform(Caller::Platform);
    HANDLE& kept = TheDesktop().clipboard.data[format];
    if (kept && kept != data) {
        GlobalFree(kept);
    }
    kept = data;
    return data;
}

HANDLE WINAPI GetClipboardData(UINT format)
{
    if (FaultFires("GetClipboardData") || !IsOpen()) {
        return nullptr;
    }
    // What was put there as null is made when it is wanted.
    const Clipboard& clipboard = TheDesktop().clipboard;
    if (clipboard.data.contains(format) && !DataOf(format) && Find(clipboard.owner)) {
        SendMessageW(clipboard.owner, WM_RENDERFORMAT, format, 0);
    }
    return DataOf(format);
}

BOOL WINAPI IsClipboardFormatAvailable(UINT format)
{
    return TheDesktop().clipboard.data.contains(format);
}
}
