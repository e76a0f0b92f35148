// GProgressBar: a bar filled to so many thousandths, drawn through the visual style's "PROGRESS" class.
//
// A host makes a GProgressBar (or gets one from CreateControl(GCK_PROGRESSBAR)), calls Create with WS_CHILD |
// WS_VISIBLE, and SetProgress from then on; or names the class "GProgressBar" in a dialog template. It sends
// nothing, and answers WM_PRINTCLIENT.
#pragma once

#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

class GESSO_API GProgressBar : public GWnd
{
public:
    GProgressBar() = default;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    // Fixed behaviour: the id is not passed on, so that a progress bar's window id is 0. GetDlgItem would
    // find a progress bar where it finds another control of that id today.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // The whole window style; no repaint. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // Thousandths, 0 at first. A value above 1000 draws the fill beyond the bar's end. Repaints.
    virtual void SetProgress(UINT nProgress);

    // Draws the control at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnEnable(BOOL fEnable);

    gesso::ThemeHandle m_hTheme;
    UINT m_nProgress = 0;

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void ChangeProgress(UINT nProgress);
};
