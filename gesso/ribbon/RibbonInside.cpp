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

} // namespace gesso
