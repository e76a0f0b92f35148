#include <gesso/containers/Memory.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/TextSpace.h>

#include <array>
#include <atomic>

namespace gesso {
namespace {

constexpr UINT FIRST_ITEMS = 16;
constexpr UINT FIRST_CHARS = 64;
constexpr UINT FIRST_GLYPHS = 64;

constinit std::array<std::atomic<stcDrawTextBuffer*>, 2> s_spares{};

stcDrawTextBuffer* TakeSpare()
{
    for (auto& spare : s_spares) {
        if (stcDrawTextBuffer* const pArrays = spare.exchange(nullptr)) {
            return pArrays;
        }
    }
    return nullptr;
}

stcDrawTextBuffer* MakeArrays()
{
    auto* const pArrays = static_cast<stcDrawTextBuffer*>(Allocate(sizeof(stcDrawTextBuffer)));
    *pArrays = {};
    CDrawText::PrepareBuffer(pArrays, FIRST_ITEMS, FIRST_CHARS, FIRST_GLYPHS);
    return pArrays;
}

} // namespace

TextSpace::TextSpace() : m_pArrays(TakeSpare())
{
    if (!m_pArrays) {
        m_pArrays = MakeArrays();
    }
    m_pArrays->nItems = 0;
    m_pArrays->nChars = 0;
    m_pArrays->nGlyphs = 0;
}

TextSpace::~TextSpace()
{
    for (auto& spare : s_spares) {
        m_pArrays = spare.exchange(m_pArrays);
        if (!m_pArrays) {
            return;
        }
    }
    CDrawText::FreeBuffer(m_pArrays);
    Free(m_pArrays);
}

} // namespace gesso
