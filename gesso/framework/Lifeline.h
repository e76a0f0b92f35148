// Tells whether an object is still there after something in which a host may have deleted it, where there is
// no window to ask: see Frame::IsAlive for where there is one.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

// Lives on the stack. An object belongs to one thread, and so do those that watch it.
class Lifeline
{
public:
    explicit Lifeline(const GWnd& wnd);
    ~Lifeline();
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;

    operator bool() const { return m_pWnd != nullptr; }

    // From the destructor of GWnd.
    static void Cut(const GWnd& wnd);

private:
    const GWnd* m_pWnd;
    Lifeline* m_pOuter;

    static thread_local Lifeline* s_pInnermost;
};

} // namespace gesso
