// The non-client counterpart of BufferedPaint: the frame and the scroll bars of a control are drawn off the
// screen and copied around the client area.
#pragma once

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/OffscreenSurface.h>

namespace gesso {

// WM_NCPAINT. wRegion is the message's wParam: 1 (or 0) for the whole frame, or a region on the screen.
class NonClientPaint
{
public:
    NonClientPaint(HWND hwnd, WPARAM wRegion);
    ~NonClientPaint();
    NonClientPaint(const NonClientPaint&) = delete;
    NonClientPaint& operator=(const NonClientPaint&) = delete;

    // What to draw into, in window coordinates.
    HDC Context() const { return m_surface.Context(); }
    // The whole window, from 0, 0.
    const RECT& WindowRect() const { return m_rcWindow; }

private:
    FrameContext m_context;
    RECT m_rcWindow;
    OffscreenSurface m_surface;
};

// WM_PRINTCLIENT with PRF_NONCLIENT: draws into the given context, whose origin is the client area's, and
// leaves its origin and clipping as they were.
class NonClientPrint
{
public:
    NonClientPrint(HWND hwnd, HDC hdc);
    ~NonClientPrint();
    NonClientPrint(const NonClientPrint&) = delete;
    NonClientPrint& operator=(const NonClientPrint&) = delete;

    HDC Context() const { return m_hdc; }
    const RECT& WindowRect() const { return m_rcWindow; }

private:
    HDC m_hdc;
    int m_nSaved;
    RECT m_rcWindow;
};

} // namespace gesso
