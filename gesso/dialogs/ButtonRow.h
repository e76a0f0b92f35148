// The push buttons along a dialog's footer.
#pragma once

#include <gesso/controls/ControlStyles.h>

class GButton;

namespace gesso {

// Of the push buttons in the dialogs.
constexpr DWORD DIALOG_BUTTON_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP | GS_CENTER | GS_VCENTER;
static_assert(DIALOG_BUTTON_STYLE == 0x50010005);

// Buttons of one size, in places that count from 0 at the right. All lengths are pixels.
class ButtonRow
{
public:
    // With a font, the buttons get it.
    explicit ButtonRow(HWND hDlg, HFONT hFont = nullptr);

    // Widens the row's buttons for a label that they have no room for; those of the library's first texts
    // stand as they are.
    void FitLabel(LPCWSTR pszLabel);
    // What a button needs for a label; 0 for one of the first texts.
    int WidthOf(LPCWSTR pszLabel) const;

    int Width() const { return m_size.cx; }
    int Height() const { return m_size.cy; }
    int Gap() const { return m_nGap; }

    // Where the row's right edge and top are.
    void StandAt(int xRight, int y);
    // At the right of a footer, a gap from its edge, and in the middle of its height.
    void StandIn(const RECT& rcFooter);

    // Makes the window of a button that its dialog already holds.
    void Make(GButton& button, int nPlace, int nId, LPCWSTR pszLabel,
              DWORD dwStyle = DIALOG_BUTTON_STYLE) const;
    // The same of another width, with its left edge at x.
    void MakeAt(GButton& button, int x, int cx, int nId, LPCWSTR pszLabel,
                DWORD dwStyle = DIALOG_BUTTON_STYLE) const;

private:
    HWND m_hDlg;
    HFONT m_hFont;
    SIZE m_size;
    int m_nGap;
    int m_xRight = 0;
    int m_y = 0;
};

// An array of so many buttons, none there yet, for a dialog to keep.
GButton** MakeButtonArray(size_t nCount);
// Destroys the buttons that are there, windows and objects, and the array.
void EndButtonArray(GButton**& ppButtons, size_t nCount);

} // namespace gesso
