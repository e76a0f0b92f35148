#include <gesso/text/FontSplit.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr bool IsHigh(wchar_t c)
{
    return (c & 0xFC00) == 0xD800;
}

constexpr bool IsLow(wchar_t c)
{
    return (c & 0xFC00) == 0xDC00;
}

constexpr bool IsSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

constexpr bool IsSpace(char32_t c)
{
    return c == L' ' || c == 0xA0 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F || c == 0x205F ||
           c == 0x3000;
}

// Letters that change with their neighbours, so that a word of them is torn where its font changes: from
// Arabic to Myanmar, Khmer to Mongolian, and others up to Meetei Mayek.
constexpr bool IsJoined(wchar_t c)
{
    return (c >= 0x0600 && c <= 0x109F) || (c >= 0x1700 && c <= 0x1AFF) || (c >= 0xA800 && c <= 0xABFF);
}

struct Letters
{
    wchar_t first;
    wchar_t last;
};

bool IsOneOf(std::span<const Letters> ranges, wchar_t c)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const Letters& range) { return c >= range.first && c <= range.last; });
}

// Of the Arabic letters: those that join the one in front of them, and those of them that join no other.
bool JoinsFormer(wchar_t c)
{
    static constexpr Letters JOIN[] = {{0x0622, 0x064A}, {0x066E, 0x066F}, {0x0671, 0x0673},
                                       {0x0675, 0x06D3}, {0x06D5, 0x06D5}, {0x06EE, 0x06EF},
                                       {0x06FA, 0x06FC}, {0x06FF, 0x06FF}, {0x0750, 0x077F}};
    return IsOneOf(JOIN, c);
}

bool JoinsNext(wchar_t c)
{
    static constexpr Letters DO_NOT[] = {
        {0x0622, 0x0625}, {0x0627, 0x0627}, {0x0629, 0x0629}, {0x062F, 0x0632}, {0x0648, 0x0648},
        {0x0671, 0x0673}, {0x0675, 0x0677}, {0x0688, 0x0699}, {0x06C0, 0x06C0}, {0x06C3, 0x06CB},
        {0x06CD, 0x06CD}, {0x06CF, 0x06CF}, {0x06D2, 0x06D5}, {0x06EE, 0x06EF}, {0x0759, 0x075B},
        {0x076B, 0x076C}, {0x0771, 0x0771}, {0x0773, 0x0774}, {0x0778, 0x0779}};
    return JoinsFormer(c) && !IsOneOf(DO_NOT, c);
}

bool IsArabicMark(wchar_t c)
{
    static constexpr Letters MARKS[] = {{0x064B, 0x065F}, {0x0670, 0x0670}, {0x06D6, 0x06DC},
                                        {0x06DF, 0x06E4}, {0x06E7, 0x06E8}, {0x06EA, 0x06ED}};
    return IsOneOf(MARKS, c);
}

// The glyph of each character, counted from the item's first. In the values of 16 bits the count starts again
// at zero, and within an item from right to left it goes down.
std::vector<size_t> CountClusters(const WORD* pLogClust, WORD wFirst, size_t nChars, bool fRightToLeft)
{
    constexpr size_t AGAIN = 0x10000;
    std::vector<size_t> clusters(nChars);
    size_t nFormer = 0;
    for (size_t i = 0; i < nChars; ++i) {
        const size_t n = fRightToLeft ? nChars - 1 - i : i;
        size_t nValue = nFormer / AGAIN * AGAIN + static_cast<WORD>(pLogClust[n] - wFirst);
        if (nValue + AGAIN / 2 < nFormer) {
            nValue += AGAIN;
        }
        clusters[n] = nFormer = nValue;
    }
    return clusters;
}

// Marks the characters of which a glyph is the one that stands for what is missing.
void MarkDefaults(std::span<const WORD> glyphs, const WORD* pLogClust, WORD wFirst, bool fRightToLeft,
                  WORD wDefault, std::span<char> missing)
{
    const std::vector<size_t> clusters = CountClusters(pLogClust, wFirst, missing.size(), fRightToLeft);
    const auto clusterOf = [&](size_t n) { return clusters[n]; };
    for (size_t n = 0, nNext = 0; n < missing.size(); n = nNext) {
        const size_t nOwn = clusterOf(n);
        for (nNext = n + 1; nNext < missing.size() && clusterOf(nNext) == nOwn;) {
            ++nNext;
        }
        // The cluster's glyphs reach up to the next one's: to the left of it, or to the right.
        const bool fLast = nNext == missing.size();
        size_t nFrom = nOwn;
        size_t nTo = nOwn + 1;
        if (fRightToLeft) {
            nFrom = fLast ? 0 : std::min<size_t>(clusterOf(nNext) + size_t{1}, nOwn);
        } else {
            nTo = fLast ? glyphs.size() : std::max<size_t>(clusterOf(nNext), nOwn + 1);
        }
        nTo = std::min(nTo, glyphs.size());
        for (size_t g = nFrom; g < nTo; ++g) {
            if (glyphs[g] == wDefault) {
                std::fill(missing.begin() + static_cast<ptrdiff_t>(n),
                          missing.begin() + static_cast<ptrdiff_t>(nNext), char{1});
            }
        }
    }
}

} // namespace

template <class VISIT> void FontSplitter::VisitMissing(const Part& part, const VISIT& visit) const
{
    for (UINT n = part.nFrom; n < part.nTo; ++n) {
        const UINT nStart = n;
        while (n < part.nTo && m_missing[n]) {
            ++n;
        }
        if (n > nStart) {
            visit(Part{nStart, n});
        }
    }
}

bool FontSplitter::ReadBase()
{
    if (!m_fBaseRead) {
        m_fBaseRead = m_base.Read(m_hdc) && m_base.HasLetters();
        m_style = HanStyleOf(m_pszText, m_nChars);
    }
    return m_fBaseRead;
}

char32_t FontSplitter::CodePoint(UINT nChar) const
{
    const wchar_t c = m_psz[nChar];
    if (!IsHigh(c) || nChar + 1 >= m_nLength || !IsLow(m_psz[nChar + 1])) {
        return c;
    }
    return 0x10000 + ((char32_t{c} & 0x3FF) << 10) + (char32_t{m_psz[nChar + 1]} & 0x3FF);
}

// Whether there would be something to see. Not of the second half of a pair, nor of a lone one.
bool FontSplitter::ShowsSomething(UINT nChar) const
{
    const char32_t c = CodePoint(nChar);
    return !IsSpace(c) && !IsSurrogate(c) && !IsIgnorable(c);
}

// Whether it is to show nothing, or a space, but not a control: the font that has it shows no box.
bool FontSplitter::IsFormat(UINT nChar) const
{
    const char32_t c = CodePoint(nChar);
    const bool fControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    return !fControl && (IsIgnorable(c) || (IsSpace(c) && c != L' '));
}

bool FontSplitter::IsSeen(const Part& unit) const
{
    bool fSeen = false;
    for (UINT n = unit.nFrom; n < unit.nTo; ++n) {
        fSeen = fSeen || ShowsSomething(n);
    }
    return fSeen;
}

void FontSplitter::Split(const ShapedItem& shaped, WORD wDefault, std::vector<FontStretch>& stretches)
{
    const auto nFirst = static_cast<UINT>(shaped.item.iCharPos);
    m_psz = m_pszText + nFirst;
    m_nLength = shaped.nChars;
    m_fontOf.assign(m_nLength, nullptr);
    m_plain.assign(m_nLength, char{0});
    m_fonts.clear();
    m_parts.clear();
    Mark(shaped, wDefault);
    FindFonts(shaped);
    const size_t nBefore = stretches.size();
    for (UINT n = 0, nNext = 0; n < m_nLength; n = nNext) {
        for (nNext = n + 1;
             nNext < m_nLength && m_fontOf[nNext] == m_fontOf[n] && m_plain[nNext] == m_plain[n];) {
            ++nNext;
        }
        const auto font = std::find_if(m_fonts.begin(), m_fonts.end(),
                                       [&](const RunFontRef& ref) { return ref.Get() == m_fontOf[n]; });
        stretches.push_back(
            {nFirst + n, nFirst + nNext, shaped.item.a, font == m_fonts.end() ? RunFontRef() : *font});
        if (m_plain[n]) {
            stretches.back().analysis.eScript = SCRIPT_UNDEFINED;
        }
    }
    LinkStretches(std::span(stretches).subspan(nBefore));
}

// Letters that join are shaped so where their font changes too.
void FontSplitter::LinkStretches(std::span<FontStretch> stretches) const
{
    for (size_t i = 1; i < stretches.size(); ++i) {
        const UINT nSeam = stretches[i].nFrom;
        UINT nFormer = nSeam - 1;
        while (nFormer > stretches.front().nFrom && IsArabicMark(m_pszText[nFormer])) {
            --nFormer;
        }
        stretches[i].analysis.fLinkBefore = JoinsNext(m_pszText[nFormer]) && JoinsFormer(m_pszText[nSeam]);
    }
    for (size_t i = 0; i + 1 < stretches.size(); ++i) {
        stretches[i].analysis.fLinkAfter = stretches[i + 1].analysis.fLinkBefore;
    }
}

void FontSplitter::UniteClusters(std::vector<FontStretch>& stretches)
{
    m_psz = m_pszText;
    m_nLength = m_nChars;
    m_nProbes = MostProbes();
    const SplitText text(m_pszText, m_nChars);
    std::vector<Cluster> clusters;
    UINT nEnd = 0; // of the last one that was looked at
    for (size_t i = 1; i < stretches.size() && m_nProbes > 0; ++i) {
        const UINT nSeam = stretches[i].nFrom;
        const bool fParted = stretches[i].font.Get() != stretches[i - 1].font.Get() &&
                             stretches[i].analysis.eScript != stretches[i - 1].analysis.eScript;
        if (nSeam < nEnd || !fParted || IsClusterBoundary(text, nSeam)) {
            continue;
        }
        const Part part{ClusterStart(text, nSeam), ClusterEnd(text, nSeam)};
        nEnd = part.nTo;
        RunFontRef font = FontOfAll(stretches, part);
        if (font) {
            clusters.push_back({part, std::move(font)});
        }
    }
    if (!clusters.empty()) {
        GiveFonts(clusters, stretches);
    }
}

// Parts the stretches where the clusters begin and end.
void FontSplitter::GiveFonts(std::span<const Cluster> clusters, std::vector<FontStretch>& stretches)
{
    std::vector<FontStretch> parted;
    auto cluster = clusters.begin();
    for (const FontStretch& stretch : stretches) {
        for (UINT n = stretch.nFrom; n < stretch.nTo; n = parted.back().nTo) {
            while (cluster != clusters.end() && cluster->part.nTo <= n) {
                ++cluster;
            }
            parted.push_back(stretch);
            FontStretch& part = parted.back();
            part.nFrom = n;
            if (cluster != clusters.end() && cluster->part.nFrom <= n) {
                part.font = cluster->font;
                part.nTo = std::min(part.nTo, cluster->part.nTo);
            } else if (cluster != clusters.end()) {
                part.nTo = std::min(part.nTo, cluster->part.nFrom);
            }
            part.analysis.fLinkBefore = part.analysis.fLinkBefore && n == stretch.nFrom;
            part.analysis.fLinkAfter = part.analysis.fLinkAfter && part.nTo == stretch.nTo;
        }
    }
    stretches.swap(parted);
}

void FontSplitter::Mark(const ShapedItem& shaped, WORD wDefault)
{
    m_missing.assign(m_nLength, shaped.glyphs.empty());
    if (!shaped.glyphs.empty()) {
        MarkDefaults(shaped.glyphs, shaped.pLogClust, shaped.wFirst, shaped.item.a.fRTL, wDefault, m_missing);
    }
}

void FontSplitter::FindFonts(const ShapedItem& shaped)
{
    const SCRIPT_ANALYSIS& analysis = shaped.item.a;
    UINT nFirst = 0;
    while (nFirst < m_nLength && !IsDecisive(nFirst)) {
        ++nFirst;
    }
    if (nFirst == m_nLength || !ReadBase() || !(shaped.glyphs.empty() || m_base.TellsOfMissing())) {
        return;
    }
    m_lacking = m_missing;
    const Part all{0, m_nLength};
    MarkWholeClusters(all);
    MarkJoinedLetters(all);
    FindFontsOfMissing(analysis);
    if (analysis.eScript != SCRIPT_UNDEFINED) {
        TryWithoutScript(analysis);
    }
}

uint64_t FontSplitter::MostProbes() const
{
    constexpr uint64_t ROUNDS = 64;
    constexpr uint64_t ANYWAY = 4096;
    return ROUNDS * m_nLength + ANYWAY;
}

void FontSplitter::FindFontsOfMissing(const SCRIPT_ANALYSIS& analysis)
{
    m_nProbes = MostProbes();
    VisitMissing({0, m_nLength}, [this](const Part& part) { m_parts.push_back(part); });
    while (!m_parts.empty()) {
        const Part part = m_parts.back();
        m_parts.pop_back();
        FindFontsOf(part, analysis);
    }
}

// Where each font that has the characters lacks what their script needs, they are better seen one by one than
// not at all.
void FontSplitter::TryWithoutScript(SCRIPT_ANALYSIS analysis)
{
    const std::vector<RunFont*> shown = m_fontOf;
    for (UINT n = 0; n < m_nLength; ++n) {
        m_missing[n] = m_lacking[n] && !shown[n];
    }
    analysis.eScript = SCRIPT_UNDEFINED;
    FindFontsOfMissing(analysis);
    for (UINT n = 0; n < m_nLength; ++n) {
        m_plain[n] = m_fontOf[n] != shown[n];
    }
}

// A cluster of which a part is missing is to be shown by one font.
void FontSplitter::MarkWholeClusters(const Part& part)
{
    for (UINT n = part.nFrom, nNext = n; n < part.nTo; n = nNext) {
        // From here on, since a row of flags is counted from where the text begins.
        nNext = n + std::max(ClusterEnd(SplitText(m_psz + n, part.nTo - n), 0), 1U);
        bool fMissing = false;
        for (UINT i = n; i < nNext; ++i) {
            fMissing = fMissing || (m_missing[i] && ShowsSomething(i));
        }
        if (fMissing) {
            std::fill(m_missing.begin() + n, m_missing.begin() + nNext, char{1});
        }
    }
}

void FontSplitter::MarkJoinedLetters(const Part& part)
{
    const auto join = [this](UINT nMarked, UINT n) {
        m_missing[n] = m_missing[n] || (m_missing[nMarked] && IsJoined(m_psz[nMarked]) && IsJoined(m_psz[n]));
    };
    for (UINT n = part.nFrom + 1; n < part.nTo; ++n) {
        join(n - 1, n);
    }
    for (UINT n = part.nTo - 1; n > part.nFrom; --n) {
        join(n, n - 1);
    }
}

// The first cluster, or word of letters that join, that a font is looked for; but the first that is not of
// the letters and signs that all fonts have, if there is one: where a font lacks the whole script, those are
// missing too. Empty if there is none.
FontSplitter::Part FontSplitter::UnitOf(const Part& part) const
{
    constexpr wchar_t IN_ALL_FONTS = 0x80;
    UINT nFound = part.nTo;
    for (UINT n = part.nFrom; n < part.nTo; ++n) {
        if (IsDecisive(n) && (nFound == part.nTo || m_psz[n] >= IN_ALL_FONTS)) {
            nFound = n;
        }
        if (nFound < part.nTo && m_psz[nFound] >= IN_ALL_FONTS) {
            break;
        }
    }
    if (nFound == part.nTo) {
        return {nFound, nFound};
    }
    const SplitText text(m_psz + part.nFrom, part.nTo - part.nFrom);
    const UINT nInPart = nFound - part.nFrom;
    Part unit{part.nFrom + SnapToCluster(text, nInPart), part.nFrom + ClusterEnd(text, nInPart)};
    while (unit.nTo < part.nTo && IsJoined(m_psz[unit.nTo]) && IsJoined(m_psz[unit.nTo - 1])) {
        ++unit.nTo;
    }
    return unit;
}

// What is looked for: the characters to be seen, or where there are none those that show nothing.
std::vector<char32_t> FontSplitter::Wanted(const Part& unit) const
{
    constexpr size_t MOST = 16; // what a longer cluster has behind them is left to luck
    const bool fSeen = IsSeen(unit);
    std::vector<char32_t> characters;
    for (UINT n = unit.nFrom; n < unit.nTo && characters.size() < MOST; ++n) {
        if (fSeen ? ShowsSomething(n) : IsFormat(n)) {
            characters.push_back(CodePoint(n));
        }
    }
    return characters;
}

template <class SHOWS>
RunFontRef FontSplitter::FontFor(const Part& unit, const SCRIPT_ANALYSIS& analysis,
                                 std::span<const char32_t> told, const SHOWS& shows)
{
    constexpr size_t MOST_TOLD = 64;
    const std::vector<char32_t> characters = Wanted(unit);
    RunFontRef font;
    const auto accept = [&](LPCWSTR pszFace) {
        RunFontRef next;
        Told answer = OpenRunFont(m_hdc, m_base, pszFace, &next);
        if (answer == Told::Yes) {
            answer = shows(*next.Get());
        }
        if (answer == Told::Yes) {
            font = std::move(next);
        }
        return answer;
    };
    if (!characters.empty()) {
        FindFallbackFace({m_hdc, m_base, analysis, characters, m_style,
                          told.size() > MOST_TOLD ? std::span<const char32_t>() : told},
                         accept);
    }
    return font;
}

// What the answer of a font depends on, besides its script.
void FontSplitter::Tell(const Part& part, std::vector<char32_t>& told) const
{
    told.insert(told.end(), m_psz + part.nFrom, m_psz + part.nTo);
}

RunFontRef FontSplitter::FontFor(const Part& unit, const SCRIPT_ANALYSIS& analysis)
{
    std::vector<char32_t> told;
    Tell(unit, told);
    return FontFor(unit, analysis, told, [&](RunFont& font) { return Shows(font, unit, analysis); });
}

// One that some of the cluster is shown in, or else any.
RunFontRef FontSplitter::FontOfAll(std::span<const FontStretch> stretches, const Part& cluster)
{
    const auto endsBefore = [](const FontStretch& stretch, UINT n) { return stretch.nTo <= n; };
    const auto first = std::lower_bound(stretches.begin(), stretches.end(), cluster.nFrom, endsBefore);
    auto last = first;
    while (last != stretches.end() && last->nFrom < cluster.nTo) {
        ++last;
    }
    const auto within = [&](const FontStretch& stretch) {
        return Part{std::max(stretch.nFrom, cluster.nFrom), std::min(stretch.nTo, cluster.nTo)};
    };
    const auto shows = [&](RunFont& font) {
        Told answer = Told::Yes;
        for (auto stretch = first; stretch != last && answer == Told::Yes; ++stretch) {
            answer = Shows(font, within(*stretch), stretch->analysis);
        }
        return answer;
    };
    const auto shown = std::find_if(first, last, [&](const FontStretch& stretch) {
        return stretch.font && shows(*stretch.font.Get()) == Told::Yes;
    });
    if (shown != last) {
        return shown->font;
    }
    constexpr char32_t NO_CHARACTER = 0x110000;
    std::vector<char32_t> told;
    for (auto stretch = first; stretch != last; ++stretch) {
        told.push_back(NO_CHARACTER + stretch->analysis.eScript);
        Tell(within(*stretch), told);
    }
    return FontFor(cluster, first->analysis, told, shows);
}

// Looks for a font for the first unit that needs one, and takes all from it that it has. What is left of the
// part has a turn of its own.
void FontSplitter::FindFontsOf(Part part, const SCRIPT_ANALYSIS& analysis)
{
    std::vector<char> lacking;
    while (part.nFrom < part.nTo && m_nProbes > 0) {
        const Part unit = UnitOf(part);
        if (unit.nFrom == unit.nTo) {
            return;
        }
        RunFontRef font = FontFor(unit, analysis);
        if (font && Probe(*font.Get(), part, analysis, lacking) == Told::Yes) {
            std::copy(lacking.begin(), lacking.end(), m_missing.begin() + part.nFrom);
            MarkWholeClusters(part);
            MarkJoinedLetters(part);
            CountAsShown(unit);
            TakeShown(std::move(font), part);
            return;
        }
        if (font) {
            Use(std::move(font), unit);
        } else {
            FindFontsOneByOne(unit, analysis);
        }
        part.nFrom = unit.nTo;
    }
}

// Of a unit for which a font was found. What shows nothing, and the font lacks, may be in another one.
void FontSplitter::CountAsShown(const Part& unit)
{
    const bool fSeen = IsSeen(unit);
    for (UINT n = unit.nFrom; n < unit.nTo; ++n) {
        const bool fSecondHalf = n > unit.nFrom && IsLow(m_psz[n]) && IsHigh(m_psz[n - 1]);
        if (!fSeen || !IsFormat(fSecondHalf ? n - 1 : n)) {
            m_missing[n] = 0;
        }
    }
}

// No font has all of a cluster: what the text's font has of it stays there.
void FontSplitter::FindFontsOneByOne(const Part& cluster, const SCRIPT_ANALYSIS& analysis)
{
    for (UINT n = cluster.nFrom; n < cluster.nTo; ++n) {
        if (m_lacking[n] && IsWanted(n)) {
            const Part character{n, n + (CodePoint(n) > 0xFFFF ? 2U : 1U)};
            RunFontRef font = FontFor(character, analysis);
            if (font) {
                Use(std::move(font), character);
            }
        }
    }
}

void FontSplitter::TakeShown(RunFontRef font, const Part& part)
{
    UINT nShown = part.nFrom;
    VisitMissing(part, [&](const Part& missing) {
        Use(font, {nShown, missing.nFrom});
        nShown = missing.nTo;
        m_parts.push_back(missing);
    });
    Use(std::move(font), {nShown, part.nTo});
}

// Tells of each character of a part whether the font lacks it. No if it has not the tables to shape the part.
Told FontSplitter::Probe(RunFont& font, const Part& part, SCRIPT_ANALYSIS analysis,
                         std::vector<char>& lacking)
{
    const UINT nLength = part.nTo - part.nFrom;
    m_nProbes -= std::min<uint64_t>(m_nProbes, nLength);
    constexpr UINT PER_CHAR = 4;
    constexpr UINT ANYWAY = 64;
    std::vector<WORD> glyphs(size_t{PER_CHAR} * nLength + ANYWAY);
    std::vector<WORD> clusters(nLength);
    std::vector<SCRIPT_VISATTR> attributes(glyphs.size());
    const RunFontScope scope(m_hdc, font);
    int nGlyphs = 0;
    if (!scope.IsSelected()) {
        return Told::Nothing;
    }
    const HRESULT hr = ScriptShape(m_hdc, &scope.Cache(), m_psz + part.nFrom, static_cast<int>(nLength),
                                   static_cast<int>(glyphs.size()), &analysis, glyphs.data(), clusters.data(),
                                   attributes.data(), &nGlyphs);
    if (FAILED(hr)) {
        return hr == USP_E_SCRIPT_NOT_IN_FONT ? Told::No : Told::Nothing;
    }
    glyphs.resize(static_cast<size_t>(std::clamp(nGlyphs, 0, static_cast<int>(glyphs.size()))));
    lacking.assign(nLength, char{0});
    MarkDefaults(glyphs, clusters.data(), 0, analysis.fRTL, scope.DefaultGlyph(), lacking);
    return Told::Yes;
}

Told FontSplitter::Shows(RunFont& font, const Part& unit, const SCRIPT_ANALYSIS& analysis)
{
    std::vector<char> lacking;
    const Told told = Probe(font, unit, analysis, lacking);
    if (told != Told::Yes) {
        return told;
    }
    const bool fSeen = IsSeen(unit);
    bool fAll = true;
    for (UINT n = unit.nFrom; n < unit.nTo; ++n) {
        fAll = fAll && !(lacking[n - unit.nFrom] && (fSeen ? ShowsSomething(n) : IsFormat(n)));
    }
    return fAll ? Told::Yes : Told::No;
}

void FontSplitter::Use(RunFontRef font, const Part& part)
{
    std::fill(m_fontOf.begin() + part.nFrom, m_fontOf.begin() + part.nTo, font.Get());
    const auto isSame = [&](const RunFontRef& other) { return other.Get() == font.Get(); };
    if (std::none_of(m_fonts.begin(), m_fonts.end(), isSame)) {
        m_fonts.push_back(std::move(font));
    }
}

} // namespace gesso
