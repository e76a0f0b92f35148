#include <gesso/framework/Behavior.h>
#include <gesso/framework/KeyboardCues.h>

namespace gesso {
namespace {

// The property of windows below which cues are shown: their UISF_ bits.
constexpr LPCWSTR CUES_MARK = L"gesso.cues";

WORD MarkOf(HWND hwnd)
{
    return LOWORD(reinterpret_cast<ULONG_PTR>(GetPropW(hwnd, CUES_MARK)));
}

WORD CuesOfKey(UINT uMsg, WPARAM wKey)
{
    if (uMsg == WM_SYSKEYDOWN) {
        return wKey == VK_MENU ? UISF_HIDEFOCUS | UISF_HIDEACCEL : 0;
    }
    const bool fGoes = wKey == VK_TAB || (wKey >= VK_LEFT && wKey <= VK_DOWN);
    return uMsg == WM_KEYDOWN && fGoes ? UISF_HIDEFOCUS : 0;
}

BOOL CALLBACK Tell(HWND hwnd, LPARAM lCues)
{
    SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, lCues), 0);
    return TRUE;
}

} // namespace

WORD CuesOfMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return CuesOfKey(uMsg, wParam);
    case WM_SETFOCUS: return GetKeyState(VK_TAB) < 0 ? UISF_HIDEFOCUS : 0;
    case WM_GETDLGCODE: {
        const auto* pMessage = reinterpret_cast<const MSG*>(lParam);
        return pMessage ? CuesOfKey(pMessage->message, pMessage->wParam) : WORD{0};
    }
    default: return 0;
    }
}

void ShowCues(HWND hwnd, WORD wCues)
{
    if (!hwnd) {
        return; // to the platform that means all windows
    }
    SetPropW(hwnd, CUES_MARK, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(MarkOf(hwnd) | wCues)));
    Tell(hwnd, wCues);
    EnumChildWindows(hwnd, Tell, wCues);
}

WORD CuesShownAround(HWND hwnd)
{
    WORD wCues = 0;
    for (; hwnd; hwnd = GetParent(hwnd)) {
        wCues |= MarkOf(hwnd);
    }
    return wCues;
}

void ShowKeyboardCues(HWND hwnd)
{
    if (IsWindow(hwnd)) {
        ShowCues(hwnd, UISF_HIDEFOCUS | UISF_HIDEACCEL);
    }
}

} // namespace gesso
