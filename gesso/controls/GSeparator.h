// GSeparator: an invisible strip between two panes that the user drags. It draws nothing and moves nothing:
// it tells the parent where the pointer is, and the parent moves the panes and the strip.
//
// A host makes a GSeparator (or gets one from CreateControl(GCK_SEPARATOR)) and calls Create with WS_CHILD |
// WS_VISIBLE. The class is registered by the first Create, and can be named in dialog templates from then on.
//
// Sends to its parent WM_NOTIFY with a stcSeparatorNotify: GSN_BEGINDRAG when the left button goes down,
// GSN_DRAG for each move until it goes up, then GSN_ENDDRAG; and NM_SETFOCUS and NM_KILLFOCUS with a plain
// header. A drag that ends because another window takes the capture has no GSN_ENDDRAG.
#pragma once

#include <gesso/framework/GWnd.h>

constexpr UINT GSN_BEGINDRAG = static_cast<UINT>(-101);
constexpr UINT GSN_ENDDRAG = static_cast<UINT>(-102);
constexpr UINT GSN_DRAG = static_cast<UINT>(-103);

struct stcSeparatorNotify
{
    NMHDR hdr;
    DWORD dwReserved1[6]; // zero
    POINT pt;             // the pointer, in pixels in the separator's client area
    DWORD dwReserved2[6]; // zero
};
static_assert(sizeof(stcSeparatorNotify) == 80 && offsetof(stcSeparatorNotify, pt) == 48);

class GESSO_API GSeparator : public GWnd
{
public:
    // Loads the cursor, if no separator has done so before.
    GSeparator();

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;
    static HCURSOR s_hColumnSizing; // what the pointer becomes over a separator

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnSetCursor();

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void SendDrag(UINT uCode, POINTS pt) const;
};
