// GWindow2: a plain top-level window for hosts. Make one, call Create, run a message loop: destroying the
// window posts the quit message. It sends no notifications; what its children send goes to DefWindowProcW.
#pragma once

#include <gesso/framework/GWnd.h>

class GESSO_API GWindow2 : public GWnd
{
public:
    GWindow2() = default;

    // Makes a visible overlapped window, position and size in pixels, and returns it; null where that failed.
    // The window runs on an object that it makes itself: the object that Create is called on keeps a null
    // window. The other outlives its window, and nobody frees it but a host that got it by FromHwnd, with
    // Delete.
    // Fixed behaviour: a host that keeps the pointer of FromHwnd past the window's end would read freed
    // memory if the window deleted its object, and one that calls Create twice would lose its first window if
    // the object took it.
    HWND Create(int x, int y, int cx, int cy, HWND hwndParent);
    // DestroyWindow on the object's own window. Returns 0 without one.
    int Destroy();
    // Does nothing.
    void Init(void* pCreateData);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();

    DWORD m_dwReserved = 0;
};
