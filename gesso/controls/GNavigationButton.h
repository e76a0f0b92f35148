// GNavigationButton: a round back button, drawn through the visual style's "NAVIGATION" class, without text
// or image.
//
// A host makes a GNavigationButton and calls Create with WS_CHILD | WS_VISIBLE | WS_TABSTOP; or names the
// class "GNavigationButton" in a dialog template. The parent's background is not painted behind it.
//
// Sends to its parent: WM_COMMAND with the id and BN_CLICKED for each click; WM_NOTIFY with NM_SETFOCUS and
// NM_KILLFOCUS. Answers WM_GETDLGCODE and WM_PRINTCLIENT.
#pragma once

#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

class GESSO_API GNavigationButton : public GWnd
{
public:
    GNavigationButton() = default;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;

    // Draws the control at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT uKey, LPARAM lFlags);
    LRESULT OnKeyUp(UINT uKey, LPARAM lFlags);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnThemeChanged();
    LRESULT OnStyleChanged();
    LRESULT OnGetDlgCode() const;
    // Non-zero inside the client rectangle, its right and bottom edges included.
    int HitTest(POINTS pt) const;

    gesso::ThemeHandle m_hTheme;

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
};
