#include <gesso/framework/Access.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/ribbon/RibbonInside.h>

namespace gesso {

static_assert(sizeof(RibbonInsideHold) == sizeof(OwnedSet<GRibbonPage*, nullptr>),
              "classes that were derived from GRibbon in other programs have their fields behind it");

RibbonInsideHold::RibbonInsideHold(const RibbonInsideHold& other)
{
    *this = other;
}

RibbonInsideHold& RibbonInsideHold::operator=(const RibbonInsideHold& other)
{
    if (this != &other && ((m_word | other.m_word) & OWN)) {
        (*this)->hLargeImages = other->hLargeImages;
        (*this)->hSmallImages = other->hSmallImages;
    }
    return *this;
}

RibbonInsideHold::~RibbonInsideHold()
{
    if (m_word & OWN) {
        delete &**this;
    }
}

RibbonInside& RibbonInsideHold::operator*() const
{
    if (!(m_word & OWN)) {
        m_word = reinterpret_cast<UINT_PTR>(new RibbonInside) | OWN;
    }
    return *reinterpret_cast<RibbonInside*>(m_word & ~OWN);
}

// --- What assistive technology hears

namespace {

// A copy, which is not its window's, tells nothing.
void Tell(const GRibbon& ribbon, DWORD dwEvent, LONG nChild)
{
    const HWND hwnd = Frame::Handle(ribbon);
    if (Frame::IsAlive(hwnd, &ribbon)) {
        TellAccess(hwnd, dwEvent, nChild);
    }
}

} // namespace

LONG RibbonInside::NumberOfTab(const GRibbon& ribbon, UINT nIndex)
{
    if (nIndex >= ribbon.m_aTabs.GetLength() || !ribbon.IsVisible(nIndex)) {
        return 0;
    }
    LONG nNumber = 1;
    for (UINT i = 0; i < nIndex; i++) {
        nNumber += ribbon.IsVisible(i);
    }
    return nNumber;
}

void RibbonInside::TellTab(const GRibbon& ribbon, UINT nIndex, DWORD dwEvent)
{
    if (const LONG nNumber = NumberOfTab(ribbon, nIndex)) {
        Tell(ribbon, dwEvent, nNumber);
    }
}

// It stands behind the tabs.
void RibbonInside::TellPage(const GRibbon* pRibbon, const GRibbonPage* pPage, DWORD dwEvent)
{
    if (!pRibbon || pRibbon->ActivePage() != pPage) {
        return;
    }
    LONG nNumber = 1;
    for (UINT i = 0; i < pRibbon->m_aTabs.GetLength(); i++) {
        nNumber += pRibbon->IsVisible(i);
    }
    Tell(*pRibbon, dwEvent, nNumber);
}

void RibbonInside::TellFocus(const GRibbon& ribbon)
{
    if (ribbon.FocusItem() != RIBBON_NONE) {
        TellPage(&ribbon, ribbon.ActivePage(), EVENT_OBJECT_FOCUS);
    } else {
        Tell(ribbon, EVENT_OBJECT_FOCUS, NumberOfTab(ribbon, ribbon.FocusTab()));
    }
}

void RibbonInside::TellTurn(const GRibbon& ribbon)
{
    const UINT nActive = ribbon.m_nActive;
    const Watch watch(ribbon);
    if (GetFocus() == Frame::Handle(ribbon)) {
        TellFocus(ribbon);
    }
    if (watch && ribbon.m_nActive == nActive) {
        TellTab(ribbon, nActive, EVENT_OBJECT_SELECTION);
    }
    if (watch && ribbon.m_nActive == nActive) {
        Tell(ribbon, EVENT_OBJECT_REORDER, 0); // another page is there
    }
}

void RibbonInside::TellAdded(const GRibbon& ribbon, UINT nIndex)
{
    if (ribbon.m_nActive == nIndex) {
        Tell(ribbon, EVENT_OBJECT_REORDER, 0); // its page as well
    } else {
        TellTab(ribbon, nIndex, EVENT_OBJECT_CREATE);
    }
}

void RibbonInside::TellRemoved(const GRibbon& ribbon, LONG nFormer, const GRibbonPage* pShown)
{
    if (ribbon.ActivePage() != pShown) {
        Tell(ribbon, EVENT_OBJECT_REORDER, 0);
    } else if (nFormer) {
        Tell(ribbon, EVENT_OBJECT_DESTROY, nFormer);
    }
}

void RibbonInside::TellStatus(const GRibbon& ribbon, UINT nIndex, LONG nFormer)
{
    const LONG nNow = NumberOfTab(ribbon, nIndex);
    if (!nFormer && nNow) {
        Tell(ribbon, EVENT_OBJECT_CREATE, nNow);
    } else if (nFormer && !nNow) {
        Tell(ribbon, EVENT_OBJECT_DESTROY, nFormer);
    }
}

void RibbonInside::TellTitle(const GRibbon* pRibbon, const GRibbonPage* pPage)
{
    if (!pRibbon) {
        return;
    }
    const Watch watch(*pRibbon);
    TellTab(*pRibbon, pRibbon->IndexOf(pPage), EVENT_OBJECT_NAMECHANGE);
    if (watch) {
        TellPage(pRibbon, pPage, EVENT_OBJECT_NAMECHANGE);
    }
}

} // namespace gesso
