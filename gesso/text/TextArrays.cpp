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

// The fonts lie behind the arrays, as their number and so many pointers, each with a share in its font.
constexpr size_t FONT_ALIGNMENT = 8;
static_assert(sizeof(uint64_t) == FONT_ALIGNMENT && sizeof(RunFont*) == FONT_ALIGNMENT);

constexpr size_t Aligned(size_t cb)
{
    return (cb + FONT_ALIGNMENT - 1) / FONT_ALIGNMENT * FONT_ALIGNMENT;
}

size_t CostOf(std::span<const RunFontRef> fonts)
{
    return sizeof(uint64_t) + fonts.size() * sizeof(RunFont*);
}

void StoreFonts(std::byte* pTable, std::span<const RunFontRef> fonts)
{
    *reinterpret_cast<uint64_t*>(pTable) = fonts.size();
    auto* pNext = reinterpret_cast<RunFont**>(pTable + sizeof(uint64_t));
    for (const RunFontRef& font : fonts) {
        *pNext++ = RunFontRef(font).Release();
    }
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

bool CopyCalculated(stcDrawTextBuffer& buffer, const stcDrawTextBuffer& from,
                    std::span<const RunFontRef> fonts)
{
    if (from.nItems == 0) {
        FreeCalculated(buffer);
        return true;
    }
    size_t cb = 0;
    VisitCalculated(buffer, from, [&cb](auto*&, const auto* pFrom, UINT n) { cb += n * sizeof(*pFrom); });
    const size_t cbArrays = Aligned(cb);
    if (!fonts.empty() && cbArrays > FONTS_OFFSET) {
        return false;
    }
    auto* const pBlock = static_cast<std::byte*>(TryAllocate(fonts.empty() ? cb : cbArrays + CostOf(fonts)));
    if (!pBlock) {
        return false;
    }
    FreeCalculated(buffer);
    std::byte* pNext = pBlock;
    VisitCalculated(buffer, from, [&pNext]<class T>(T*& p, const T* pFrom, UINT n) {
        p = n != 0 ? static_cast<T*>(std::memcpy(pNext, pFrom, n * sizeof(T))) : nullptr;
        pNext += n * sizeof(T);
    });
    buffer.fOneBlock |= ONE_BLOCK | (from.fOneBlock & PAINTED_AS_READ);
    if (!fonts.empty()) {
        StoreFonts(pBlock + cbArrays, fonts);
        buffer.fOneBlock |= static_cast<UINT>(cbArrays);
    }
    return true;
}

size_t BlockSize(const stcDrawTextBuffer& buffer)
{
    stcDrawTextBuffer asMade = buffer;
    asMade.nItems = buffer.nItemsAlloc;
    asMade.nChars = buffer.nCharsAlloc;
    asMade.nGlyphs = buffer.nGlyphsAlloc;
    const auto* const pBlock = reinterpret_cast<const std::byte*>(buffer.pItems);
    bool fAsMade = buffer.fOneBlock & ONE_BLOCK && pBlock;
    size_t cb = 0;
    VisitCalculated(asMade, asMade, [&](auto*& p, const auto* pArray, UINT n) {
        const auto* const pHere = reinterpret_cast<const std::byte*>(pArray);
        fAsMade = fAsMade &&
                  (n == 0 ? !pHere
                          : reinterpret_cast<uintptr_t>(pHere) == reinterpret_cast<uintptr_t>(pBlock) + cb);
        cb += n * sizeof(*p);
    });
    return fAsMade ? Aligned(cb) : 0;
}

void MoveCalculated(stcDrawTextBuffer& buffer, stcDrawTextBuffer& from)
{
    FreeCalculated(buffer);
    VisitCalculated(buffer, from, []<class T>(T*& p, T* pFrom, UINT) { p = pFrom; });
    VisitCalculated(from, buffer, [](auto*& p, const auto*, UINT) { p = nullptr; });
    buffer.fOneBlock |= std::exchange(from.fOneBlock, 0);
}

void FreeCalculated(stcDrawTextBuffer& buffer)
{
    const bool fOneBlock = buffer.fOneBlock & ONE_BLOCK;
    for (RunFont* const pFont : FontsOf(buffer)) {
        const RunFontRef share(pFont); // which ends here
    }
    if (fOneBlock) {
        Free(buffer.pItems);
    }
    VisitCalculated(buffer, buffer, [fOneBlock](auto*& p, const auto*, UINT) {
        if (!fOneBlock) {
            Free(p);
        }
        p = nullptr;
    });
    buffer.fOneBlock &= STANDS_IN_BLOCK;
}

bool Unshare(stcDrawTextBuffer& buffer)
{
    if (!IsShared(buffer)) {
        return true;
    }
    stcDrawTextBuffer own{};
    auto* pBreaks = AllocateArray<stcDrawTextBreak>(buffer.nBreaks + 1);
    if (!pBreaks || !CopyCalculated(own, buffer, {})) {
        Free(pBreaks);
        return false;
    }
    std::copy_n(buffer.pBreaks, buffer.nBreaks + 1, pBreaks);
    LeaveShared(buffer);
    MoveCalculated(buffer, own);
    buffer.pBreaks = pBreaks;
    return true;
}

void LeaveShared(stcDrawTextBuffer& buffer)
{
    VisitCalculated(buffer, buffer, [](auto*& p, const auto*, UINT) { p = nullptr; });
    buffer.pBreaks = nullptr;
    buffer.scriptCache = nullptr;
    buffer.fOneBlock = STANDS_IN_BLOCK;
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
    buffer.nItemsAlloc = buffer.nItems;
    buffer.nCharsAlloc = buffer.nChars;
    buffer.nGlyphsAlloc = buffer.nGlyphs;
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
