#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>

using namespace gesso;

// Fixed behaviour: programs read the records at these places, as their compiler laid them out.
static_assert(sizeof(stcDrawTextBreak) == 12);
static_assert(sizeof(stcDrawTextRun) == 24 && offsetof(stcDrawTextRun, abc) == 12);
static_assert(sizeof(stcDrawTextBuffer) == 144 && offsetof(stcDrawTextBuffer, scriptCache) == 32);
static_assert(offsetof(stcDrawTextBuffer, pItems) == 48 && offsetof(stcDrawTextBuffer, pLogClust) == 72);
static_assert(offsetof(stcDrawTextBuffer, pGlyphs) == 96 && offsetof(stcDrawTextBuffer, pBreaks) == 136);
static_assert(sizeof(SCRIPT_LOGATTR) == 1 && sizeof(SCRIPT_VISATTR) == 2 && sizeof(GOFFSET) == 8);

namespace {

// ScriptItemize takes no less room than two items and the end marker.
constexpr UINT MIN_ITEMS = 3;

} // namespace

void CDrawText::PrepareBuffer(stcDrawTextBuffer* pBuffer, UINT nItems, UINT nChars, UINT nGlyphs)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    pBuffer->scriptCache = nullptr;
    pBuffer->fOneBlock = FALSE;
    pBuffer->nItemsAlloc = std::max(nItems, MIN_ITEMS);
    pBuffer->pItems = AllocateArray<SCRIPT_ITEM>(pBuffer->nItemsAlloc);
    pBuffer->pRuns = AllocateArray<stcDrawTextRun>(pBuffer->nItemsAlloc);
    pBuffer->nChars = 0;
    pBuffer->nCharsAlloc = nChars;
    pBuffer->pLogClust = AllocateArray<WORD>(nChars);
    pBuffer->pLogAttr = AllocateArray<SCRIPT_LOGATTR>(nChars);
    pBuffer->nGlyphs = 0;
    pBuffer->nGlyphsAlloc = nGlyphs;
    pBuffer->pGlyphs = AllocateArray<WORD>(nGlyphs);
    pBuffer->pVisAttr = AllocateArray<SCRIPT_VISATTR>(nGlyphs);
    pBuffer->pAdvance = AllocateArray<int>(nGlyphs);
    pBuffer->pOffset = AllocateArray<GOFFSET>(nGlyphs);
}

void CDrawText::OptimizeBuffer(stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer) || !pBuffer->pItems) {
        return;
    }
    PartCalculated(*pBuffer);
    // The items and runs are not carried over, as they stand. Zeros in their place keep every operation that
    // meets the buffer afterwards inside the arrays.
    pBuffer->nItemsAlloc = pBuffer->nItems;
    FreeArray(pBuffer->pItems);
    FreeArray(pBuffer->pRuns);
    pBuffer->pItems = AllocateArray<SCRIPT_ITEM>(pBuffer->nItems);
    pBuffer->pRuns = AllocateArray<stcDrawTextRun>(pBuffer->nItems);

    pBuffer->nCharsAlloc = pBuffer->nChars;
    ReplaceArray(pBuffer->pLogClust, pBuffer->pLogClust, pBuffer->nChars);
    ReplaceArray(pBuffer->pLogAttr, pBuffer->pLogAttr, pBuffer->nChars);
    pBuffer->nGlyphsAlloc = pBuffer->nGlyphs;
    ReplaceArray(pBuffer->pGlyphs, pBuffer->pGlyphs, pBuffer->nGlyphs);
    ReplaceArray(pBuffer->pVisAttr, pBuffer->pVisAttr, pBuffer->nGlyphs);
    ReplaceArray(pBuffer->pAdvance, pBuffer->pAdvance, pBuffer->nGlyphs);
    ReplaceArray(pBuffer->pOffset, pBuffer->pOffset, pBuffer->nGlyphs);
}

void CDrawText::FreeBuffer(stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    FreeCache(pBuffer->scriptCache);
    FreeCalculated(*pBuffer);
    FreeArray(pBuffer->pBreaks);
    pBuffer->nBreaks = 0;
}
