#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>

namespace gesso {

constinit thread_local Lifeline* Lifeline::s_pInnermost = nullptr;

Lifeline::Lifeline(const void* pObject) : m_pObject(pObject), m_pOuter(s_pInnermost)
{
    s_pInnermost = this;
}

Lifeline::~Lifeline()
{
    s_pInnermost = m_pOuter;
}

void Lifeline::Cut(const void* pObject)
{
    for (Lifeline* p = s_pInnermost; p; p = p->m_pOuter) {
        if (p->m_pObject == pObject) {
            p->m_pObject = nullptr;
        }
    }
}

Watch::Watch(const GWnd& wnd)
    : m_life(wnd), m_hWnd(Frame::Handle(wnd)), m_pAttached(Frame::ObjectOf<GWnd>(m_hWnd))
{}

Watch::operator bool() const
{
    return m_life && Frame::IsAlive(m_hWnd, m_pAttached);
}

} // namespace gesso
