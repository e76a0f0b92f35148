#include <gesso/text/TextArrays.h>
#include <gesso/text/VisualBreak.h>

namespace gesso {
namespace {

// Of a buffer that was made by hand, items may lie anywhere.
bool IsToBeTurned(const stcDrawTextBuffer& buffer, UINT nItem)
{
    const SCRIPT_ITEM& item = buffer.pItems[nItem];
    const stcDrawTextRun& run = buffer.pRuns[nItem];
    return item.a.fRTL && item.iCharPos >= 0 && run.nChars > 0 && run.nGlyphs > 0 &&
           uint64_t{run.nFirstGlyph} + static_cast<UINT>(run.nGlyphs) <= UsableGlyphs(buffer) &&
           int64_t{item.iCharPos} + run.nChars <= int64_t{UsableChars(buffer)};
}

// One cut through an item: of its glyphs, those of the characters in front of it are the last.
struct Cut
{
    UINT nFirstGlyph;
    UINT nGlyph; // where the second part's glyphs are to begin
    UINT nEndGlyph;
    UINT nFirstChar;
    UINT nChar;
    UINT nEndChar;
};

// The items of a text as they are once they are parted.
class Parting
{
public:
    Parting(const stcDrawTextBuffer& buffer, const stcDrawTextBuffer& logical) : m_logical(logical)
    {
        for (RunFont* const pFont : FontsOf(buffer)) {
            m_fontsBefore.push_back(RunFontRef::Share(pFont));
        }
    }

    void Add(UINT nItem, std::span<const stcDrawTextBreak> breaks);
    bool HasCuts() const { return !m_cuts.empty(); }
    bool Apply(stcDrawTextBuffer& buffer) const;

private:
    void Append(const SCRIPT_ITEM& item, const stcDrawTextRun& run, UINT nItem);
    static void Turn(stcDrawTextBuffer& buffer, const Cut& cut);

    const stcDrawTextBuffer& m_logical;
    std::vector<RunFontRef> m_fontsBefore;
    std::vector<SCRIPT_ITEM> m_items;
    std::vector<stcDrawTextRun> m_runs;
    std::vector<RunFontRef> m_fonts;
    std::vector<Cut> m_cuts;
};

void Parting::Append(const SCRIPT_ITEM& item, const stcDrawTextRun& run, UINT nItem)
{
    m_items.push_back(item);
    m_runs.push_back(run);
    if (nItem < m_fontsBefore.size()) {
        m_fonts.push_back(m_fontsBefore[nItem]);
    }
}

// The line ends are those within the item.
void Parting::Add(UINT nItem, std::span<const stcDrawTextBreak> breaks)
{
    SCRIPT_ITEM item = m_logical.pItems[nItem];
    stcDrawTextRun rest = m_logical.pRuns[nItem];
    for (const stcDrawTextBreak& record : breaks) {
        const auto nFirstChar = static_cast<UINT>(item.iCharPos);
        const UINT nEndChar = nFirstChar + static_cast<UINT>(rest.nChars);
        const WORD* const pClusters = m_logical.pLogClust;
        const UINT nChar = static_cast<UINT>(
            std::lower_bound(pClusters + nFirstChar, pClusters + nEndChar, record.nGlyph) - pClusters);
        if (record.nGlyph <= rest.nFirstGlyph || nChar == nFirstChar || nChar == nEndChar) {
            continue;
        }
        m_cuts.push_back({rest.nFirstGlyph, record.nGlyph, RunEnd(rest), nFirstChar, nChar, nEndChar});
        const auto nGlyphs = static_cast<int>(record.nGlyph - rest.nFirstGlyph);
        const auto nChars = static_cast<int>(nChar - nFirstChar);
        Append(item, {nChars, nGlyphs, rest.nFirstGlyph, {}}, nItem);
        item.iCharPos += nChars;
        rest = {rest.nChars - nChars, rest.nGlyphs - nGlyphs, record.nGlyph, {}};
    }
    Append(item, rest, nItem);
}

// Brings the last glyphs to the front.
void Parting::Turn(stcDrawTextBuffer& buffer, const Cut& cut)
{
    const UINT nMoved = cut.nGlyph - cut.nFirstGlyph;
    const UINT nMiddle = cut.nEndGlyph - nMoved;
    const auto turn = [&](auto* p) { std::rotate(p + cut.nFirstGlyph, p + nMiddle, p + cut.nEndGlyph); };
    turn(buffer.pGlyphs);
    turn(buffer.pVisAttr);
    turn(buffer.pAdvance);
    turn(buffer.pOffset);
    for (UINT n = cut.nFirstChar; n < cut.nEndChar; ++n) {
        const UINT nValue = buffer.pLogClust[n];
        const bool fFirst = n < cut.nChar;
        buffer.pLogClust[n] =
            static_cast<WORD>(fFirst ? std::max(nValue, nMiddle) - (nMiddle - cut.nFirstGlyph)
                                     : std::min(nValue + nMoved, cut.nEndGlyph - 1));
    }
}

bool Parting::Apply(stcDrawTextBuffer& buffer) const
{
    stcDrawTextBuffer wanted = buffer;
    wanted.nItems = static_cast<UINT>(m_items.size());
    wanted.pItems = const_cast<SCRIPT_ITEM*>(m_items.data());
    wanted.pRuns = const_cast<stcDrawTextRun*>(m_runs.data());
    wanted.nChars = UsableChars(buffer);
    wanted.nGlyphs = UsableGlyphs(buffer);
    stcDrawTextBuffer parted{};
    if (!CopyCalculated(parted, wanted, m_fonts)) {
        return false;
    }
    MoveCalculated(buffer, parted);
    buffer.nItems = buffer.nItemsAlloc = wanted.nItems;
    buffer.nCharsAlloc = buffer.nChars = wanted.nChars;
    buffer.nGlyphsAlloc = buffer.nGlyphs = wanted.nGlyphs;
    for (const Cut& cut : m_cuts) {
        Turn(buffer, cut);
    }
    for (const Cut& cut : m_cuts) {
        for (const UINT nGlyph : {cut.nFirstGlyph + 1, cut.nGlyph + 1}) {
            stcDrawTextRun& run = buffer.pRuns[FindRun(buffer, nGlyph)];
            run.abc = {0, static_cast<UINT>(SumAdvances(buffer, run.nFirstGlyph, RunEnd(run))), 0};
        }
    }
    return true;
}

} // namespace

LogicalGlyphs::LogicalGlyphs(const stcDrawTextBuffer& buffer)
    : m_advances(buffer.pAdvance, buffer.pAdvance + UsableGlyphs(buffer)),
      m_clusters(buffer.pLogClust, buffer.pLogClust + UsableChars(buffer)), m_view(buffer)
{
    const UINT nItems = UsableItems(buffer);
    for (UINT n = 0; n < nItems; ++n) {
        if (IsToBeTurned(buffer, n)) {
            Turn(buffer, buffer.pItems[n], buffer.pRuns[n]);
        }
    }
    m_view.pAdvance = m_advances.data();
    m_view.pLogClust = m_clusters.data();
}

// Values that lead out of the item, or back, are made to stay: lines are found by going forward.
void LogicalGlyphs::Turn(const stcDrawTextBuffer& buffer, const SCRIPT_ITEM& item, const stcDrawTextRun& run)
{
    const UINT nLast = RunEnd(run) - 1;
    std::reverse(m_advances.begin() + run.nFirstGlyph, m_advances.begin() + RunEnd(run));
    UINT nFormer = run.nFirstGlyph;
    for (auto n = static_cast<UINT>(item.iCharPos); n < static_cast<UINT>(item.iCharPos + run.nChars); ++n) {
        const UINT nValue = std::clamp<UINT>(buffer.pLogClust[n], run.nFirstGlyph, nLast);
        nFormer = std::max(nFormer, run.nFirstGlyph + (nLast - nValue));
        m_clusters[n] = static_cast<WORD>(nFormer);
    }
}

bool PartAtLineEnds(stcDrawTextBuffer& buffer, const LogicalGlyphs& logical,
                    std::span<const stcDrawTextBreak> breaks)
{
    Parting parting(buffer, logical.Buffer());
    const UINT nItems = UsableItems(buffer);
    size_t nBreak = 0;
    for (UINT n = 0; n < nItems; ++n) {
        const UINT nEnd = RunEnd(buffer.pRuns[n]);
        const size_t nFirst = nBreak;
        while (nBreak < breaks.size() && breaks[nBreak].nGlyph < nEnd) {
            ++nBreak;
        }
        const bool fTurned = IsToBeTurned(buffer, n);
        parting.Add(n, fTurned ? breaks.subspan(nFirst, nBreak - nFirst) : breaks.first(0));
    }
    return !parting.HasCuts() || parting.Apply(buffer);
}

} // namespace gesso
