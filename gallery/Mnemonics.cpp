#include <gallery/Mnemonics.h>
#include <gallery/Report.h>

namespace gallery {
namespace {

wchar_t Upper(wchar_t ch)
{
    CharUpperBuffW(&ch, 1);
    return ch;
}

// The letter behind a text's single ampersand; 0 without one.
wchar_t MnemonicOf(const std::wstring& text)
{
    for (size_t i = 0; i + 1 < text.size(); i++) {
        if (text[i] == L'&' && text[++i] != L'&') {
            return Upper(text[i]);
        }
    }
    return 0;
}

struct Search
{
    wchar_t chMnemonic;
    HWND hwndFound;
};

BOOL CALLBACK Look(HWND hwnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<Search*>(lParam);
    const bool fCandidate = IsWindowVisible(hwnd) && IsWindowEnabled(hwnd) &&
                            (SendMessageW(hwnd, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON);
    if (!fCandidate || MnemonicOf(TextOf(hwnd)) != search.chMnemonic) {
        return TRUE;
    }
    search.hwndFound = hwnd;
    return FALSE;
}

} // namespace

bool PressMnemonic(HWND hwndTop, const MSG& msg)
{
    if (msg.message != WM_SYSCHAR) {
        return false;
    }
    Search search{Upper(static_cast<wchar_t>(msg.wParam)), nullptr};
    EnumChildWindows(hwndTop, &Look, reinterpret_cast<LPARAM>(&search));
    if (!search.hwndFound) {
        return false;
    }
    SetFocus(search.hwndFound);
    SendMessageW(search.hwndFound, WM_KEYDOWN, VK_SPACE, 0);
    SendMessageW(search.hwndFound, WM_KEYUP, VK_SPACE, 0);
    return true;
}

} // namespace gallery
