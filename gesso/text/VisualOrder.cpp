#include <gesso/text/TextArrays.h>
#include <gesso/text/VisualOrder.h>

#include <numeric>

namespace gesso {
namespace {

constexpr UINT FEW_LEVELS = 64;

// The levels of items; null without memory.
class Levels
{
public:
    Levels(const SCRIPT_ITEM* pItems, UINT n)
        : m_pLevels(n <= FEW_LEVELS ? m_few.data() : static_cast<BYTE*>(TryAllocate(n)))
    {
        for (UINT i = 0; m_pLevels && i < n; ++i) {
            m_pLevels[i] = pItems[i].a.s.uBidiLevel;
            m_fAny = m_fAny || m_pLevels[i] != 0;
        }
    }
    ~Levels()
    {
        if (m_pLevels != m_few.data()) {
            Free(m_pLevels);
        }
    }
    Levels(const Levels&) = delete;
    Levels& operator=(const Levels&) = delete;

    const BYTE* Get() const { return m_fAny ? m_pLevels : nullptr; }

private:
    std::array<BYTE, FEW_LEVELS> m_few;
    BYTE* m_pLevels;
    bool m_fAny = false;
};

} // namespace

void VisualOrderOf(const stcDrawTextBuffer& buffer, UINT nFirstItem, UINT nItems, UINT* pOrder)
{
    std::iota(pOrder, pOrder + nItems, nFirstItem);
    const UINT nUsable = UsableItems(buffer);
    if (nItems < 2 || nFirstItem >= nUsable || nItems > nUsable - nFirstItem) {
        return;
    }
    const Levels levels(buffer.pItems + nFirstItem, nItems);
    if (!levels.Get()) {
        return;
    }
    if (FAILED(ScriptLayout(static_cast<int>(nItems), levels.Get(), reinterpret_cast<int*>(pOrder), nullptr)))
    {
        std::iota(pOrder, pOrder + nItems, nFirstItem);
        return;
    }
    for (UINT n = 0; n < nItems; ++n) {
        pOrder[n] += nFirstItem;
    }
}

ItemOrder::ItemOrder(const stcDrawTextBuffer& buffer, UINT nFirstItem, UINT nItems)
    : m_nFirstItem(nFirstItem),
      m_pOrder(nItems <= FEW ? m_few.data() : static_cast<UINT*>(TryAllocate(nItems * sizeof(UINT))))
{
    if (m_pOrder) {
        VisualOrderOf(buffer, nFirstItem, nItems, m_pOrder);
    }
}

ItemOrder::~ItemOrder()
{
    if (m_pOrder != m_few.data()) {
        Free(m_pOrder);
    }
}

} // namespace gesso
