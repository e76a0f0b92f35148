// How check boxes and radio buttons look: a box of the style's "BUTTON" class, and beside it the text and an
// image. The two controls differ in the box's part alone.
#pragma once

#include <gesso/framework/ThemePart.h>

namespace gesso {

// What a control brings to its drawing.
struct CheckContent
{
    HWND hwnd;
    DWORD dwStyle;
    DWORD dwState; // the check value stands in the upper half
    HTHEME hTheme;
    HFONT hFont;
    LPCWSTR pszText;
    HANDLE hImage;
    bool fImageBesideItsPlace;
};

// The check value, in the upper half of a control's m_dwState.
constexpr int CheckOf(DWORD dwState)
{
    return HIWORD(dwState);
}
// Keeps the low eight bits of the state; clears those between them and the check value.
constexpr DWORD WithCheck(DWORD dwState, int nCheck)
{
    return (dwState & 0xFF) | static_cast<DWORD>(nCheck) << 16;
}

// Draws the control into a rectangle, over the parent's background, with its box by the part and, without a
// style, by plain.
void DrawCheck(HDC hdc, RECT rc, const CheckContent& content, int nPart, PlainPart plain);

} // namespace gesso
