// The order in which items of a text stand from left to right, where their directions differ.
#pragma once

#include <gesso/text/CDrawText.h>

#include <array>

namespace gesso {

// pOrder[k] becomes the item that stands at place k from the left, of the nItems items from nFirstItem on,
// which are one line. Their own order if that cannot be found out.
void VisualOrderOf(const stcDrawTextBuffer& buffer, UINT nFirstItem, UINT nItems, UINT* pOrder);

// The same, kept while a line is painted.
class ItemOrder
{
public:
    ItemOrder(const stcDrawTextBuffer& buffer, UINT nFirstItem, UINT nItems);
    ~ItemOrder();
    ItemOrder(const ItemOrder&) = delete;
    ItemOrder& operator=(const ItemOrder&) = delete;

    UINT operator[](UINT nPlace) const { return m_pOrder ? m_pOrder[nPlace] : m_nFirstItem + nPlace; }

private:
    static constexpr UINT FEW = 32;

    UINT m_nFirstItem;
    std::array<UINT, FEW> m_few;
    UINT* m_pOrder; // null without memory
};

} // namespace gesso
