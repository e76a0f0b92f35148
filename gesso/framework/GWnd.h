// GWnd: the root of all window objects.
//
// A control object and its window find each other through the window's extra bytes. A host makes the object
// first and calls its Create, or names a registered class in a dialog template, in which case the window
// makes the object and deletes it again. The host that made an object owns it; destroying the object does not
// destroy the window, and destroying the window does not delete the object.
//
// Every control sends WM_NOTIFY with NM_SETFOCUS and NM_KILLFOCUS to its parent; what else it sends stands in
// its own header. Notifications are synchronous, and the parent may do anything in them, destroying the
// control included.
#pragma once

#include <gesso/containers/LibraryMemory.h>

namespace gesso {
class AccessibleSide;
class Frame;
} // namespace gesso

// State bits that all controls share, in m_dwState.
constexpr DWORD GWS_HOT = 0x01;       // the mouse is over the control
constexpr DWORD GWS_PRESSED = 0x02;   // the left button went down on the control, which holds the capture
constexpr DWORD GWS_KEYDOWN = 0x04;   // the space key is down on the control
constexpr DWORD GWS_TRACKING = 0x10;  // a TrackMouseEvent request is outstanding
constexpr DWORD GWS_HIDEFOCUS = 0x20; // the focus rectangle is not drawn
constexpr DWORD GWS_HIDEACCEL = 0x40; // the underlines of mnemonics are not drawn

class GESSO_API GWnd : public gesso::LibraryMemory
{
public:
    // Copies share the window and take no ownership of anything. A window that was attached to the object
    // that is assigned to goes on without it.
    GWnd(const GWnd& other) = default;
    GWnd& operator=(const GWnd& other);
    // Leaves the window as it is. A window that is still attached to this object goes on without it.
    virtual ~GWnd();

    // Destroys and frees the object at p, a GWnd*; null is ignored. The usual call is pWnd->Delete(pWnd).
    virtual void Delete(void* p);
    virtual operator HWND() const;
    // The window that notifications go to; null without a window.
    virtual HWND GetParent() const;
    // Asks for a repaint of the whole client area; bErase as for InvalidateRect. Nothing without a window.
    virtual void Invalidate(int bErase);
    // Position and size in pixels, in the parent's client area; repaints. Returns 0 without a window.
    virtual int MoveWindow(int x, int y, int cx, int cy);
    // Shows or hides the window. Returns non-zero if it was visible before.
    virtual int SetVisible(int bShow);
    // The window's rectangle in screen coordinates. Returns 0, leaving *prc as it is, without a window.
    virtual int GetPos(RECT* prc) const;
    virtual HWND GetHwnd() const;

    // The object attached to a window of this library: null before attachment. For a window of any other
    // class the result has no meaning.
    static GWnd* FromHwnd(HWND hwnd);

    // DefWindowProcW; no class registers it.
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    GWnd() = default;

    // WM_UPDATEUISTATE: action is UIS_SET, UIS_CLEAR or UIS_INITIALIZE, state a set of UISF_HIDEFOCUS and
    // UISF_HIDEACCEL. Repaints.
    void OnUpdateUIState(UINT action, UINT state);

    HWND m_hWnd = nullptr;
    DWORD m_dwState = 0;

private:
    friend class gesso::Frame;
};
