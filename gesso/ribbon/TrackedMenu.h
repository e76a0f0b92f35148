// A value menu that runs until a choice: a message loop in which the keys, and the mouse over the menu, are
// the menu's. It takes neither focus nor activation, so that what the user was at stays as it is.
#pragma once

#include <gesso/ribbon/GRightClickMenu.h>

namespace gesso {

class TrackedMenu final : public GRightClickMenu
{
public:
    TrackedMenu(const LPCWSTR* ppszValues, UINT nCount, UINT uChecked);

    // The index of the choice, or NO_INDEX. The owner may be gone afterwards.
    UINT Run(HWND hwndOwner, POINT pt);

private:
    static TrackedMenu* Of(HWND hwnd);
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnTrackMessage(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    bool Show(HWND hwndOwner, POINT pt);
    SIZE SizeOfRows(HWND hwndOwner) const;
    // Whether a message of the loop goes to its window.
    bool GoesOn(const MSG& msg);
    static bool TakeMessage(MSG* pMsg);
    bool IsLeft();
    bool TakesKey(const MSG& msg);
    void OnKey(WPARAM wKey);
    void OnPointer(POINTS pt);
    void OnRelease(POINTS pt);
    void OnWheel(int nDelta);
    void Mark(UINT nRow);
    UINT RowAt(POINTS pt) const;
    UINT VisibleRows() const;
    void Choose(UINT nRow);
    void End();

    HWND m_hwndTrackOwner = nullptr;
    HWND m_hwndForeground = nullptr;
    UINT m_nChoice = NO_INDEX;
    bool m_fEnded = false;
    UINT m_nFirst = 0;    // the row at the top, where the monitor is too low for all
    POINTS m_ptPointer{}; // on the screen, where it was last
    bool m_fUsed = false; // the pointer has moved, or was pressed in the menu
    int m_nWheel = 0;     // of a wheel's notch, so far
};

} // namespace gesso
