#include <gesso/framework/Lifeline.h>

namespace gesso {

constinit thread_local Lifeline* Lifeline::s_pInnermost = nullptr;

Lifeline::Lifeline(const GWnd& wnd) : m_pWnd(&wnd), m_pOuter(s_pInnermost)
{
    s_pInnermost = this;
}

Lifeline::~Lifeline()
{
    s_pInnermost = m_pOuter;
}

void Lifeline::Cut(const GWnd& wnd)
{
    for (Lifeline* p = s_pInnermost; p; p = p->m_pOuter) {
        if (p->m_pWnd == &wnd) {
            p->m_pWnd = nullptr;
        }
    }
}

} // namespace gesso
