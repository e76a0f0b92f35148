// The text colour of a context outside of Light; in Light it keeps its own, or takes the host's shade, or is
// in the system's colours as all is.
#pragma once

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatPart.h>

namespace gesso {

class FlatTextScope
{
public:
    FlatTextScope(HDC hdc, COLORREF cr)
        : m_hdc(AreTextsByRole() ? hdc : nullptr), m_crFormer(m_hdc ? SetTextColor(hdc, cr) : 0)
    {}
    // In Light the shade that the host has set for the role, if any.
    FlatTextScope(HDC hdc, COLORREF cr, ColorRole role)
        : m_hdc(IsDrawnAs(role) ? hdc : nullptr),
          m_crFormer(m_hdc ? SetTextColor(hdc, AreTextsByRole() ? cr : ColorOf(role)) : 0)
    {}
    ~FlatTextScope()
    {
        if (m_hdc) {
            SetTextColor(m_hdc, m_crFormer);
        }
    }
    FlatTextScope(const FlatTextScope&) = delete;
    FlatTextScope& operator=(const FlatTextScope&) = delete;

private:
    HDC m_hdc;
    COLORREF m_crFormer;
};

// Of a row in a state (LISS_, TREIS_).
inline COLORREF RowTextColor(int nState)
{
    return FlatTextColor({PlainPart::Row, LVP_LISTITEM, nState});
}

} // namespace gesso
