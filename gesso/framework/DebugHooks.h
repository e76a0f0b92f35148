// Where the debug aids hang: on the road of every message, and on every buffered paint. Nothing in a release
// build.
#pragma once

#include <gesso/api.h>

namespace gesso {

#if defined(NDEBUG)

class MessageTrace
{
public:
    MessageTrace(HWND, UINT, WPARAM, LPARAM) {}
    LRESULT Returned(LRESULT lResult) { return lResult; }
};

class LayoutOverlay
{
public:
    LayoutOverlay(HWND, HDC) {}
    void Show() {}
    static void Add(HDC, const RECT&) {}
};

#else

// One message on its way through a control.
class MessageTrace
{
public:
    MessageTrace(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    ~MessageTrace();
    MessageTrace(const MessageTrace&) = delete;
    MessageTrace& operator=(const MessageTrace&) = delete;
    LRESULT Returned(LRESULT lResult);

private:
    UINT m_uMsg;
    bool m_fTraced;
};

// One paint of a control: gathers the rectangles that are drawn by, where that control is to be shown, and
// outlines them over the finished picture. A paint within it, of another control or into the same context,
// has one of its own.
class LayoutOverlay
{
public:
    LayoutOverlay(HWND hwnd, HDC hdc);
    ~LayoutOverlay();
    LayoutOverlay(const LayoutOverlay&) = delete;
    LayoutOverlay& operator=(const LayoutOverlay&) = delete;

    // Outlines what was gathered, at the end of the paint.
    void Show();

    // A rectangle of whatever is painted into this context now.
    static void Add(HDC hdc, const RECT& rc);

private:
    LayoutOverlay* m_pOuter;
    HDC m_hdc;
    struct Rectangles* m_pRectangles; // null where the control is not to be shown
};

#endif

} // namespace gesso
