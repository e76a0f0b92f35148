#include <gesso/text/TextArrays.h>

#include <utility>

namespace gesso {
namespace {

// Hands out each array that a calculation fills, with its like in another buffer and how many elements that
// has; those of the strictest alignment first.
template <class VISIT>
void VisitCalculated(stcDrawTextBuffer& buffer, const stcDrawTextBuffer& from, const VISIT& visit)
{
    visit(buffer.pItems, from.pItems, from.nItems);
    visit(buffer.pRuns, from.pRuns, from.nItems);
    visit(buffer.pAdvance, from.pAdvance, from.nGlyphs);
    visit(buffer.pOffset, from.pOffset, from.nGlyphs);
    visit(buffer.pGlyphs, from.pGlyphs, from.nGlyphs);
    visit(buffer.pLogClust, from.pLogClust, from.nChars);
    visit(buffer.pVisAttr, from.pVisAttr, from.nGlyphs);
    visit(buffer.pLogAttr, from.pLogAttr, from.nChars);
}

} // namespace

UINT FindRun(const stcDrawTextBuffer& buffer, UINT nGlyph)
{
    const stcDrawTextRun* const pRuns = buffer.pRuns;
    const auto endsBefore = [](const stcDrawTextRun& run, UINT n) { return RunEnd(run) < n; };
    return static_cast<UINT>(std::lower_bound(pRuns, pRuns + UsableItems(buffer), nGlyph, endsBefore) -
                             pRuns);
}

int SumAdvances(const stcDrawTextBuffer& buffer, UINT nFirst, UINT nEnd)
{
    int cx = 0;
    nEnd = std::min(nEnd, UsableGlyphs(buffer));
    for (UINT n = nFirst; n < nEnd; ++n) {
        cx = WrapAdd(cx, buffer.pAdvance[n]);
    }
    return cx;
}

bool CopyCalculated(stcDrawTextBuffer& buffer, const stcDrawTextBuffer& from)
{
    if (from.nItems == 0) {
        FreeCalculated(buffer);
        return true;
    }
    size_t cb = 0;
    VisitCalculated(buffer, from, [&cb](auto*&, const auto* pFrom, UINT n) { cb += n * sizeof(*pFrom); });
    auto* pNext = static_cast<std::byte*>(TryAllocate(cb));
    if (!pNext) {
        return false;
    }
    FreeCalculated(buffer);
    VisitCalculated(buffer, from, [&pNext]<class T>(T*& p, const T* pFrom, UINT n) {
        p = n != 0 ? static_cast<T*>(std::memcpy(pNext, pFrom, n * sizeof(T))) : nullptr;
        pNext += n * sizeof(T);
    });
    buffer.fOneBlock = ONE_BLOCK | (from.fOneBlock & IN_VISUAL_ORDER);
    return true;
}

void MoveCalculated(stcDrawTextBuffer& buffer, stcDrawTextBuffer& from)
{
    FreeCalculated(buffer);
    VisitCalculated(buffer, from, []<class T>(T*& p, T* pFrom, UINT) { p = pFrom; });
    VisitCalculated(from, buffer, [](auto*& p, const auto*, UINT) { p = nullptr; });
    buffer.fOneBlock = std::exchange(from.fOneBlock, 0);
}

void FreeCalculated(stcDrawTextBuffer& buffer)
{
    const bool fOneBlock = buffer.fOneBlock & ONE_BLOCK;
    if (fOneBlock) {
        Free(buffer.pItems);
    }
    VisitCalculated(buffer, buffer, [fOneBlock](auto*& p, const auto*, UINT) {
        if (!fOneBlock) {
            Free(p);
        }
        p = nullptr;
    });
    buffer.fOneBlock = 0;
}

bool PartCalculated(stcDrawTextBuffer& buffer)
{
    stcDrawTextBuffer parts{};
    bool fAll = true;
    VisitCalculated(parts, buffer, [&fAll]<class T>(T*& p, const T* pFrom, UINT n) {
        const bool fAny = pFrom && n != 0;
        p = fAny ? static_cast<T*>(TryAllocate(n * sizeof(T))) : nullptr;
        fAll = fAll && (p || !fAny);
        if (p) {
            std::memcpy(p, pFrom, n * sizeof(T));
        }
    });
    if (!fAll) {
        FreeCalculated(parts);
        return false;
    }
    FreeCalculated(buffer);
    VisitCalculated(buffer, parts, []<class T>(T*& p, T* pPart, UINT) { p = pPart; });
    return true;
}

void FreeCache(SCRIPT_CACHE& cache)
{
    if (cache) {
        ScriptFreeCache(&cache);
        cache = nullptr;
    }
}

} // namespace gesso
