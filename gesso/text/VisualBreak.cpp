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
    bool HasChanges() const { return m_fChanged; }
    bool Apply(stcDrawTextBuffer& buffer) const;

private:
    // What is left of an item.
    struct Rest
    {
        UINT nItem;
        SCRIPT_ITEM item;
        stcDrawTextRun run;
        bool fSpaces; // as the end of a line

        UINT FirstChar() const { return static_cast<UINT>(item.iCharPos); }
        UINT EndChar() const { return FirstChar() + static_cast<UINT>(run.nChars); }
    };

    void TurnBack(SCRIPT_ANALYSIS& analysis);
    void CutAt(Rest& rest, UINT nChar, UINT nGlyph);
    void CutAtLineEnd(Rest& rest, UINT nGlyph);
    void Append(const Rest& rest);
    static void Turn(stcDrawTextBuffer& buffer, const Cut& cut);

    const stcDrawTextBuffer& m_logical;
    std::vector<RunFontRef> m_fontsBefore;
    std::vector<SCRIPT_ITEM> m_items;
    std::vector<stcDrawTextRun> m_runs;
    std::vector<RunFontRef> m_fonts;
    std::vector<Cut> m_cuts;
    bool m_fChanged = false;
};

void Parting::Append(const Rest& rest)
{
    m_items.push_back(rest.item);
    if (rest.fSpaces) {
        m_fChanged = m_fChanged || rest.item.a.s.uBidiLevel != 0;
        m_items.back().a.s.uBidiLevel = 0;
    }
    m_runs.push_back(rest.run);
    if (rest.nItem < m_fontsBefore.size()) {
        m_fonts.push_back(m_fontsBefore[rest.nItem]);
    }
}

// White space that ended a line of the breaks before goes with what it follows again.
void Parting::TurnBack(SCRIPT_ANALYSIS& analysis)
{
    const auto isLevelOf = [](const SCRIPT_ANALYSIS& a) { return a.s.uBidiLevel % 2 == a.fRTL; };
    if (!isLevelOf(analysis)) {
        const bool fFollows = !m_items.empty() && m_items.back().a.fRTL && isLevelOf(m_items.back().a);
        analysis.s.uBidiLevel = fFollows ? m_items.back().a.s.uBidiLevel : 1;
        m_fChanged = true;
    }
}

// Nothing where the rest begins or ends there.
void Parting::CutAt(Rest& rest, UINT nChar, UINT nGlyph)
{
    if (nChar <= rest.FirstChar() || nChar >= rest.EndChar() || nGlyph <= rest.run.nFirstGlyph) {
        return;
    }
    const UINT nEndGlyph = RunEnd(rest.run);
    m_cuts.push_back({rest.run.nFirstGlyph, nGlyph, nEndGlyph, rest.FirstChar(), nChar, rest.EndChar()});
    m_fChanged = true;
    Rest part = rest;
    part.run = {static_cast<int>(nChar - rest.FirstChar()),
                static_cast<int>(nGlyph - rest.run.nFirstGlyph),
                rest.run.nFirstGlyph,
                {}};
    rest.run = {rest.run.nChars - part.run.nChars, static_cast<int>(nEndGlyph - nGlyph), nGlyph, {}};
    rest.item.iCharPos += part.run.nChars;
    Append(part);
}

// White space at a line's end stands there in the direction of the whole text, behind what it follows.
void Parting::CutAtLineEnd(Rest& rest, UINT nGlyph)
{
    const WORD* const pClusters = m_logical.pLogClust;
    const UINT nEndChar = rest.EndChar();
    const UINT nChar = static_cast<UINT>(
        std::lower_bound(pClusters + rest.FirstChar(), pClusters + nEndChar, nGlyph) - pClusters);
    UINT nSpaces = nChar;
    while (nSpaces > rest.FirstChar() && m_logical.pLogAttr[nSpaces - 1].fWhiteSpace) {
        --nSpaces;
    }
    if (nSpaces < nChar) {
        CutAt(rest, nSpaces, pClusters[nSpaces]);
        rest.fSpaces = rest.FirstChar() == nSpaces;
    }
    CutAt(rest, nChar, nGlyph);
    rest.fSpaces = rest.fSpaces && rest.EndChar() == nChar;
}

// The line ends are those within the item, and at its end.
void Parting::Add(UINT nItem, std::span<const stcDrawTextBreak> breaks)
{
    Rest rest{nItem, m_logical.pItems[nItem], m_logical.pRuns[nItem], false};
    if (rest.item.a.fRTL) {
        TurnBack(rest.item.a);
    }
    for (const stcDrawTextBreak& record : breaks) {
        if (record.nGlyph > rest.run.nFirstGlyph) {
            CutAtLineEnd(rest, record.nGlyph);
        }
    }
    Append(rest);
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
        const size_t nAtEnd = nBreak < breaks.size() && breaks[nBreak].nGlyph == nEnd ? 1 : 0;
        const bool fTurned = IsToBeTurned(buffer, n);
        parting.Add(n, fTurned ? breaks.subspan(nFirst, nBreak + nAtEnd - nFirst) : breaks.first(0));
    }
    return !parting.HasChanges() || parting.Apply(buffer);
}

} // namespace gesso
