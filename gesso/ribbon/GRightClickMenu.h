// GRightClickMenu: the value menu, a small bordered pop-up window that lists texts in rows of 20 pixels, with
// the row under the mouse highlighted. The release of the left button in it ends it with a choice.
//
// Create's window runs on an object of its own, which it makes and frees: the object that Create is called on
// only keeps the handle. What the menu shows is put into the window's object, which FromHwnd gives. It starts
// without owner, font and colour, and the class has no setters for them; a subclass reaches them:
//
//     struct ValueMenu : GRightClickMenu
//     {
//         void Show(int x, int y, int cx, HWND hwndOwner, HFONT hFont)
//         {
//             if (const HWND hwnd = Create(x, y, cx, 2 * 20 + 2, hwndOwner, 0)) {
//                 auto& shown = static_cast<GRightClickMenu&>(*FromHwnd(hwnd));
//                 shown.*&ValueMenu::m_hwndOwner = hwndOwner;
//                 shown.*&ValueMenu::m_hFont = hFont;
//                 shown.*&ValueMenu::m_crText = RGB(0, 0, 0);
//                 shown.AddValue(L"First");
//                 shown.AddValue(L"Second");
//             }
//         }
//     };
//
// Track needs none of that: it shows the menu, waits for the choice and returns it.
//
//     const LPCWSTR values[] = {L"Open", L"Rename", L"Delete"};
//     const UINT nChoice = GRightClickMenu::Track(hwnd, x, y, values, 3, -1);
//
// Sends to its owner, but for Track: WM_COMMAND with the window's id in the low word of wParam, the row from
// 0 in the high word, and the window in lParam; the window then goes and the owner is shown. A row beyond the
// values is told as well. It takes no capture, no focus and no keys: the host destroys the window to dismiss
// it.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OString.h>
#include <gesso/framework/GWnd.h>

namespace gesso {

class TrackedMenu;

} // namespace gesso

class GESSO_API GRightClickMenu : public GWnd
{
public:
    GRightClickMenu() = default;

    // Makes the visible window; x and y in pixels on the screen, cx and cy in pixels with the border of one
    // pixel on each side. Nothing measures the rows. nId goes to the platform in the place of a menu, so that
    // there it must be 0: a pop-up window with any other number is refused. Returns the window, or null.
    HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId);
    // DestroyWindow. Returns 0 without a window.
    int Destroy();

    // Appends a copy of the text; null counts as empty. No repaint. Without memory, no row.
    virtual void AddValue(LPCWSTR pszText);
    // Replaces the text of a row, counted from 0; a row that is not there is ignored. No repaint.
    // Without memory the row stays as it was.
    virtual void SetValue(UINT nIndex, LPCWSTR pszText);
    // Valid until the row changes; the empty text for a row that is not there.
    LPCWSTR GetValue(UINT nIndex) const;
    UINT GetValueCount() const;

    // Shows a menu of nCount texts at a point of the screen, moved so that it is on the point's monitor, as
    // wide as the texts need, in g_hDefaultFont, and returns the index of the one that was chosen, by click
    // or by arrows and Enter; -1 for none: by Esc, by a click elsewhere, which goes on to where it was meant,
    // by another window that is activated, or where the owner goes. Messages are dispatched meanwhile; keys
    // go to the menu, and the focus stays where it is. uChecked is the row that is marked at first, or -1. In
    // both behaviours. -1 at once for no owner, for one that is not there or is another thread's, and for no
    // texts. A null among the texts counts as empty; an ampersand is shown as it is.
    static UINT Track(HWND hwndOwner, int x, int y, const LPCWSTR* ppszValues, UINT nCount, UINT uChecked);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    // Does nothing.
    void Init(void* pCreateData);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnPaint();
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    // Ends the menu without a choice: destroys the window and shows the owner. The object may be gone
    // afterwards.
    void Kill();

    HWND m_hwndOwner = nullptr; // gets the command and is shown at the end
    OArray<OString<wchar_t>, OString<wchar_t> const&> m_aValues;
    HFONT m_hFont = nullptr; // the host's; null for the context's own
    COLORREF m_crText = 0;
    int m_nHot = -1; // the row under the mouse

private:
    friend class gesso::Frame;
    friend class gesso::TrackedMenu;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void ChangeHot(int nRow);
    void DrawRows(HDC hdc, UINT nFirst, UINT uFormat) const;
};
