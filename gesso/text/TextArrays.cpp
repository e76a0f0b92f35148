#include <gesso/text/TextArrays.h>

namespace gesso {

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

void FreeCache(SCRIPT_CACHE& cache)
{
    if (cache) {
        ScriptFreeCache(&cache);
        cache = nullptr;
    }
}

} // namespace gesso
