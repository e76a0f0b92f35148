// Tells, after a call in which the host may have ended a page or its ribbon, whether the page is still there.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/ribbon/GRibbonPage.h>

class GRibbonPage::Watch
{
public:
    explicit Watch(const GRibbonPage& page)
        : m_life(&page), m_hWnd(page.RibbonWindow()), m_pRibbon(page.m_pRibbon), m_pPage(&page),
          m_fListed(IsListed())
    {}

    // Reads nothing of the page; where it is false, nothing of it may be touched. A page that was in no
    // ribbon before the call, a copy for one, is its caller's, and there while it and its ribbon are.
    bool IsAlive() const
    {
        return m_life && gesso::Frame::IsAlive(m_hWnd, m_pRibbon) && (!m_fListed || IsListed());
    }

private:
    bool IsListed() const { return m_hWnd && m_pRibbon->IndexOf(m_pPage) != RIBBON_NONE; }

    gesso::Lifeline m_life;
    HWND m_hWnd;
    const GRibbon* m_pRibbon;
    const GRibbonPage* m_pPage;
    bool m_fListed;
};
