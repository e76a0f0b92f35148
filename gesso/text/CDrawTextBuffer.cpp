#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>

#include <utility>

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

// Of a buffer without any. False, with what there is of them, without memory for all.
bool MakeArrays(stcDrawTextBuffer& buffer, UINT nItems, UINT nChars, UINT nGlyphs)
{
    buffer.nItemsAlloc = std::max(nItems, MIN_ITEMS);
    buffer.pItems = AllocateArray<SCRIPT_ITEM>(buffer.nItemsAlloc);
    buffer.pRuns = AllocateArray<stcDrawTextRun>(buffer.nItemsAlloc);
    buffer.nCharsAlloc = nChars;
    buffer.pLogClust = AllocateArray<WORD>(nChars);
    buffer.pLogAttr = AllocateArray<SCRIPT_LOGATTR>(nChars);
    buffer.nGlyphsAlloc = nGlyphs;
    buffer.pGlyphs = AllocateArray<WORD>(nGlyphs);
    buffer.pVisAttr = AllocateArray<SCRIPT_VISATTR>(nGlyphs);
    buffer.pAdvance = AllocateArray<int>(nGlyphs);
    buffer.pOffset = AllocateArray<GOFFSET>(nGlyphs);
    return buffer.pItems && buffer.pRuns && buffer.pLogClust && buffer.pLogAttr && buffer.pGlyphs &&
           buffer.pVisAttr && buffer.pAdvance && buffer.pOffset;
}

} // namespace

void CDrawText::PrepareBuffer(stcDrawTextBuffer* pBuffer, UINT nItems, UINT nChars, UINT nGlyphs)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    if (IsShared(*pBuffer)) {
        FreeBuffer(pBuffer);
    }
    pBuffer->scriptCache = nullptr;
    pBuffer->fOneBlock &= STANDS_IN_BLOCK;
    pBuffer->nChars = 0;
    pBuffer->nGlyphs = 0;
    if (MakeArrays(*pBuffer, nItems, nChars, nGlyphs)) {
        return;
    }
    FreeCalculated(*pBuffer);
    if (!MakeArrays(*pBuffer, 0, 0, 0)) {
        OutOfMemory();
    }
}

void CDrawText::OptimizeBuffer(stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer) || !pBuffer->pItems || !Unshare(*pBuffer)) {
        return;
    }
    // The items and runs are not carried over, as they stand. Zeros in their place keep every operation that
    // meets the buffer afterwards inside the arrays.
    auto* pItems = AllocateArray<SCRIPT_ITEM>(pBuffer->nItems);
    auto* pRuns = AllocateArray<stcDrawTextRun>(pBuffer->nItems);
    if (pItems && pRuns && PartCalculated(*pBuffer)) {
        std::swap(pBuffer->pItems, pItems);
        std::swap(pBuffer->pRuns, pRuns);
        pBuffer->nItemsAlloc = pBuffer->nItems;
        pBuffer->nCharsAlloc = pBuffer->nChars;
        pBuffer->nGlyphsAlloc = pBuffer->nGlyphs;
    }
    Free(pItems);
    Free(pRuns);
}

void CDrawText::FreeBuffer(stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    if (IsShared(*pBuffer)) {
        LeaveShared(*pBuffer);
    }
    FreeCache(pBuffer->scriptCache);
    FreeCalculated(*pBuffer);
    FreeArray(pBuffer->pBreaks);
    pBuffer->nBreaks = 0;
}
