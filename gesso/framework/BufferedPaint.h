// The paint path of every control: the whole client area is drawn off the screen and copied to the window at
// the end, so that nothing flickers.
#pragma once

#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/OffscreenSurface.h>

namespace gesso {

class BufferedPaint
{
public:
    explicit BufferedPaint(HWND hwnd);
    ~BufferedPaint();
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;

    // What to draw into, in client coordinates.
    HDC Context() const { return m_surface.Context(); }
    // What shows of it in the end.
    const RECT& Shown() const { return m_paint.rcPaint; }

private:
    HWND m_hWnd;
    PAINTSTRUCT m_paint;
    RECT m_rcClient;
    OffscreenSurface m_surface;
    LayoutOverlay m_overlay;
};

// WM_PAINT of a control with a Draw(HDC). The paint begins with the frame, in whose corner the parent draws
// and may destroy the control. A dialog's window is not found by what a Watch asks: it takes a Lifeline.
template <class WATCH = Watch, class CONTROL> LRESULT PaintControl(CONTROL& control, HWND hwnd)
{
    const WATCH watch(control);
    BufferedPaint paint(hwnd);
    if (watch) {
        control.Draw(paint.Context());
    }
    return 0;
}

} // namespace gesso
