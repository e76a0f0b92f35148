#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/VisualBreak.h>

#include <new>
#include <optional>
#include <utility>
#include <vector>

using namespace gesso;

namespace {

constexpr wchar_t CR = 13;
constexpr wchar_t LF = 10;

// The characters' glyphs are counted in 16 bits.
constexpr UINT MOST_COUNTED = 0xFFFF;

// Walks a calculated text and finds its line breaks. Two cursors move together: m_nGlyph, the next glyph to
// be measured, and m_nChar, the first character that no measured glyph stands for.
class LineBreaker
{
public:
    LineBreaker(LPCWSTR pszText, UINT nChars, UINT cxMax, const stcDrawTextBuffer& buffer)
        : m_pszText(pszText), m_nChars(nChars), m_cxMax(static_cast<int>(cxMax)), m_buffer(buffer),
          m_nGlyphs(UsableGlyphs(buffer)), m_fWholeWidths(IsPaintedAsRead(buffer))
    {}

    void Run();
    const std::vector<stcDrawTextBreak>& Breaks() const { return m_breaks; }
    UINT LastWidth() const;

private:
    void FillLine();
    void CatchUp();
    bool AtHardBreak() const { return m_nChar >= m_nHard && m_nChar < m_nChars; }
    void BreakHard();
    bool BreakOverflow();
    UINT FindOpportunity(UINT nOverflow) const;
    UINT NextHardBreak(UINT nFrom) const;
    bool IsWhiteSpace(UINT nChar) const { return nChar < m_nChars && m_buffer.pLogAttr[nChar].fWhiteSpace; }
    bool MayBreakBefore(UINT nChar) const
    {
        return IsWhiteSpace(nChar - 1) || (nChar < m_nChars && m_buffer.pLogAttr[nChar].fSoftBreak);
    }
    UINT GlyphOf(UINT nChar) const
    {
        return nChar < m_nChars ? std::min<UINT>(m_buffer.pLogClust[nChar], m_nGlyphs) : m_nGlyphs;
    }
    void Append(UINT nGlyph, int cx);

    const LPCWSTR m_pszText;
    const UINT m_nChars;
    const int m_cxMax;
    const stcDrawTextBuffer& m_buffer;
    const UINT m_nGlyphs;
    const bool m_fWholeWidths;

    UINT m_nGlyph = 0;
    UINT m_nChar = 0;
    UINT m_nHard = 0;      // the next CR LF
    UINT m_nLineStart = 0; // where m_nChar stood at the last break
    int m_cx = 0;          // width of the line so far
    std::vector<stcDrawTextBreak> m_breaks;
};

void LineBreaker::Run()
{
    if (m_nChars == 0) {
        return;
    }
    m_nHard = NextHardBreak(0);
    for (;;) {
        FillLine();
        if (AtHardBreak()) {
            BreakHard();
        } else if (m_nGlyph >= m_nGlyphs || !BreakOverflow()) {
            return;
        }
    }
}

// Takes glyphs while the line stays narrower than m_cxMax.
void LineBreaker::FillLine()
{
    m_cx = m_fWholeWidths && !m_breaks.empty() ? SumAdvances(m_buffer, m_breaks.back().nGlyph, m_nGlyph) : 0;
    while (m_nGlyph < m_nGlyphs) {
        const int cx = WrapAdd(m_cx, m_buffer.pAdvance[m_nGlyph]);
        if (cx >= m_cxMax || AtHardBreak()) {
            break;
        }
        CatchUp();
        ++m_nGlyph;
        m_cx = cx;
    }
    CatchUp();
}

void LineBreaker::CatchUp()
{
    while (m_nChar < m_nChars && m_buffer.pLogClust[m_nChar] < m_nGlyph) {
        ++m_nChar;
    }
}

// The line ends behind the glyph of the CR, which it shows; the LF's glyph starts the next line.
void LineBreaker::BreakHard()
{
    Append(m_nGlyph, m_cx);
    ++m_nGlyph;
    m_nHard = NextHardBreak(m_nHard + 1);
}

// A CR LF that ends the text breaks nothing, and neither does a lone CR or LF.
UINT LineBreaker::NextHardBreak(UINT nFrom) const
{
    for (UINT n = nFrom; n + 2 < m_nChars; ++n) {
        if (m_pszText[n] == CR && m_pszText[n + 1] == LF) {
            return n;
        }
    }
    return m_nChars;
}

// Breaks a line at which the next glyph reaches m_cxMax. False if the rest of the text stays on the line.
bool LineBreaker::BreakOverflow()
{
    if (!IsWhiteSpace(m_nChar)) {
        m_nChar = FindOpportunity(m_nChar);
    } else if (m_nChar == m_nChars - 1) {
        return false; // a last white-space character never opens a line
    }
    if (m_nChar >= m_nChars) {
        m_cx = WrapAdd(m_cx, SumAdvances(m_buffer, m_nGlyph, m_nGlyphs));
        return false; // the last character's glyphs stay together
    }
    // Fixed behaviour: the glyph at the break starts the next line, but the measure of that line starts one
    // glyph later. With it measured, lines would break and align elsewhere. What is painted as it is read is
    // new in Modern, and measured whole.
    const UINT nGlyph = GlyphOf(m_nChar);
    Append(nGlyph, WrapSubtract(m_cx, SumAdvances(m_buffer, nGlyph, m_nGlyph)));
    m_nGlyph = nGlyph + 1;
    return true;
}

// Goes back from an overflow within a word to where the line may break: behind white space or at a soft
// break. A word with no such place before it is split at the overflow, and since the search ends at index 1,
// a place there is never taken.
//
// The guard: a word that is wider than the line and follows white space leads the search back to where the
// line began, and breaking there would make the same record for ever. Where the place that is found does not
// lie behind the last break, the word is split at the overflow as well. The search need not look in front of
// the line's start, where nothing lies behind that break.
UINT LineBreaker::FindOpportunity(UINT nOverflow) const
{
    UINT nChar = nOverflow;
    while (nChar > 1 && nChar >= m_nLineStart && !MayBreakBefore(nChar)) {
        --nChar;
    }
    const bool fNone = nChar == 1;
    const bool fNoProgress = !m_breaks.empty() && GlyphOf(nChar) <= m_breaks.back().nGlyph;
    return fNone || fNoProgress ? nOverflow : nChar;
}

void LineBreaker::Append(UINT nGlyph, int cx)
{
    nGlyph = std::min(nGlyph, m_nGlyphs);
    m_breaks.push_back({FindRun(m_buffer, nGlyph), nGlyph, static_cast<UINT>(cx)});
    m_nLineStart = m_nChar;
}

// The last line is measured with its first glyph, unless it is the only one.
UINT LineBreaker::LastWidth() const
{
    return static_cast<UINT>(m_breaks.empty() ? m_cx
                                              : SumAdvances(m_buffer, m_breaks.back().nGlyph, m_nGlyphs));
}

// Whether what is of one script goes on with an item: only fonts or the end of a line have parted them.
bool GoesOn(const stcDrawTextBuffer& buffer, const SCRIPT_ANALYSIS& a, UINT nItem)
{
    const SCRIPT_ANALYSIS& b = buffer.pItems[nItem].a;
    return IsPaintedAsRead(buffer) && a.fRTL == b.fRTL &&
           (a.eScript == b.eScript || a.eScript == SCRIPT_UNDEFINED || b.eScript == SCRIPT_UNDEFINED);
}

// Fills pLogAttr, item by item, as they were before they were parted. What a failing call does not write is
// zero: no white space and no soft break.
void FindBreakAttributes(LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& buffer)
{
    std::fill_n(buffer.pLogAttr, nChars, SCRIPT_LOGATTR());
    const UINT nItems = UsableItems(buffer);
    for (UINT n = 0, nNext = 0; n < nItems; n = nNext) {
        const int nFrom = buffer.pItems[n].iCharPos;
        SCRIPT_ANALYSIS analysis = buffer.pItems[n].a;
        int nItemChars = buffer.pRuns[n].nChars;
        for (nNext = n + 1; nNext < nItems && GoesOn(buffer, analysis, nNext); ++nNext) {
            nItemChars = buffer.pItems[nNext].iCharPos + buffer.pRuns[nNext].nChars - nFrom;
            if (analysis.eScript == SCRIPT_UNDEFINED) {
                analysis = buffer.pItems[nNext].a;
            }
        }
        nItemChars = std::min(nItemChars, static_cast<int>(nChars) - nFrom);
        if (nItemChars > 0) {
            ScriptBreak(pszText + nFrom, nItemChars, &analysis, buffer.pLogAttr + nFrom);
        }
    }
}

// Lets each line have its glyphs, and its end the item that it then lies in.
bool PartLines(stcDrawTextBuffer& buffer, const LogicalGlyphs& logical, std::span<stcDrawTextBreak> lines)
try {
    if (!PartAtLineEnds(buffer, logical, lines)) {
        return false;
    }
    for (stcDrawTextBreak& line : lines) {
        line.nItem = FindRun(buffer, line.nGlyph);
    }
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace

bool gesso::BreakText(LPCWSTR pszText, UINT nChars, UINT cxMax, stcDrawTextBuffer& buffer)
try {
    if (!Unshare(buffer)) {
        return false;
    }
    nChars = pszText ? std::min(nChars, UsableChars(buffer)) : 0;
    FindBreakAttributes(pszText, nChars, buffer);
    std::optional<LogicalGlyphs> logical;
    if (IsPaintedAsRead(buffer) && UsableGlyphs(buffer) <= MOST_COUNTED) {
        logical.emplace(buffer);
    }
    LineBreaker breaker(pszText, nChars, cxMax, logical ? logical->Buffer() : buffer);
    breaker.Run();

    const UINT nBreaks = static_cast<UINT>(breaker.Breaks().size());
    auto* const pBreaks = AllocateArray<stcDrawTextBreak>(nBreaks + 1);
    if (!pBreaks) {
        return false;
    }
    std::copy(breaker.Breaks().begin(), breaker.Breaks().end(), pBreaks);
    const UINT nLastWidth = breaker.LastWidth();
    if (logical && !PartLines(buffer, *logical, {pBreaks, nBreaks})) {
        Free(pBreaks);
        return false;
    }
    pBreaks[nBreaks] = {buffer.nItems - 1, buffer.nGlyphs, nLastWidth};
    Free(std::exchange(buffer.pBreaks, pBreaks));
    buffer.nBreaks = nBreaks;
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void CDrawText::DrawText_Break(LPCWSTR pszText, UINT nChars, UINT cxMax, stcDrawTextBuffer* pBuffer)
{
    if (IsBuffer(pBuffer)) {
        static_cast<void>(BreakText(pszText, nChars, cxMax, *pBuffer));
    }
}
