// Tells whether an object is still there after something in which a host may have deleted it, or ended its
// window.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

// Lives on the stack. An object belongs to one thread, and so do those that watch it.
class Lifeline
{
public:
    explicit Lifeline(const GWnd& wnd) : Lifeline(&wnd) {}
    // Of an object that is no window's, and cuts its lifelines itself.
    explicit Lifeline(const void* pObject);
    ~Lifeline();
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;

    operator bool() const { return m_pObject != nullptr; }

    // From the object's destructor.
    static void Cut(const void* pObject);

private:
    const void* m_pObject;
    Lifeline* m_pOuter;

    static constinit thread_local Lifeline* s_pInnermost;
};

// Whether to go on with an object: it is still there, and so is whatever its window was attached to. A copy
// of a control draws and expands too, with records that go with the control's window, and so does an object
// that has parted from its window; neither is what that window finds. Reads nothing of the object.
class Watch
{
public:
    explicit Watch(const GWnd& wnd);

    operator bool() const;

private:
    Lifeline m_life;
    HWND m_hWnd;
    const GWnd* m_pAttached;
};

} // namespace gesso
