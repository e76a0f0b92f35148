// The visual style of a control whose rows are drawn by it, as those of "LISTVIEW" and "TREEVIEW" are. Where
// the style has the class but no rows in it, those of "TREEVIEW", whose states have the same numbers, stand
// in; without these too a row is drawn plainly. With a complete style every operation is the theme service's
// own.
#pragma once

#include <gesso/framework/ThemeHandle.h>

namespace gesso {

class GESSO_API ItemTheme
{
public:
    // Closes what was open first.
    void Open(HWND hwnd, LPCWSTR pszClass);
    void Close();

    operator HTHEME() const { return m_hTheme; }

    // A row in a state (LISS_, TREIS_).
    void DrawRow(HDC hdc, int nState, const RECT& rc) const;
    // The control's frame and background.
    void DrawBackground(HDC hdc, const RECT& rc) const;
    // Both for a window, whose dots an inch tell how wide their lines are.
    void DrawRow(HWND hwnd, HDC hdc, int nState, const RECT& rc) const;
    void DrawBackground(HWND hwnd, HDC hdc, const RECT& rc) const;
    COLORREF GridColor() const;
    // Of the control's frame, in pixels.
    int BorderSize() const;

private:
    ThemeHandle m_hTheme;
    ThemeHandle m_hStandIn;   // open where the class has no rows
    HTHEME m_hRows = nullptr; // whichever of the two has them
};

} // namespace gesso
