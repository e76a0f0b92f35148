// What the text fields have in common under keys and the pointer.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

// Characters that stand for keys.
constexpr wchar_t CHAR_BACKSPACE = 8;
constexpr wchar_t CHAR_TAB = 9;
constexpr wchar_t CHAR_LINE_FEED = 10; // Ctrl+Enter
constexpr wchar_t CHAR_RETURN = 13;
constexpr wchar_t CHAR_ESCAPE = 27;

inline bool IsKeyDown(int nKey)
{
    return GetKeyState(nKey) < 0;
}

// A Tab that came as a character leaves the field, with Shift backwards. The control may be gone afterwards.
inline void SendTab(const GWnd& wnd)
{
    constexpr int DOWN = 0x8000;
    SendMessageW(wnd.GetParent(), WM_NEXTDLGCTL, static_cast<WPARAM>(GetKeyState(VK_SHIFT) & DOWN), 0);
}

// IDC_IBEAM, whose macro depends on how the narrow names are mapped.
inline HCURSOR LoadIBeam()
{
    constexpr WORD IBEAM_CURSOR = 32513;
    return LoadCursorW(nullptr, MAKEINTRESOURCEW(IBEAM_CURSOR));
}

} // namespace gesso
