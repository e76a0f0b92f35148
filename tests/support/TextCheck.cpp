#include "TextCheck.h"

#include <sstream>

namespace test {
namespace {

constexpr UINT CLUSTER_RANGE = 0x10000;

class TextChecker
{
public:
    explicit TextChecker(const stcDrawTextBuffer& buffer) : m_buffer(buffer) {}

    void CheckGlyphs()
    {
        CheckCapacities();
        CheckRuns();
    }
    void CheckBreaks();
    std::string Found() const { return m_out.str(); }

private:
    template <class... PARTS> void Expect(bool holds, const PARTS&... parts)
    {
        if (!holds) {
            (m_out << ... << parts) << '\n';
        }
    }

    void CheckCapacities()
    {
        Expect(m_buffer.nItems == m_buffer.nItemsAlloc, "items do not fill their arrays");
        Expect(m_buffer.nChars == m_buffer.nCharsAlloc, "characters do not fill their arrays");
        Expect(m_buffer.nGlyphs == m_buffer.nGlyphsAlloc, "glyphs do not fill their arrays");
    }

    void CheckRuns()
    {
        UINT chars = 0;
        UINT glyphs = 0;
        for (UINT i = 0; i < m_buffer.nItems; ++i) {
            const stcDrawTextRun& run = m_buffer.pRuns[i];
            Expect(run.nChars > 0 && run.nGlyphs >= 0, "run ", i, " has no characters");
            Expect(m_buffer.pItems[i].iCharPos == static_cast<int>(chars), "item ", i, " is out of place");
            Expect(run.nFirstGlyph == glyphs, "the glyphs of run ", i, " are out of place");
            CheckClusters(i, chars);
            chars += static_cast<UINT>(run.nChars);
            glyphs += static_cast<UINT>(run.nGlyphs);
        }
        Expect(chars == m_buffer.nChars, "the runs have ", chars, " characters of ", m_buffer.nChars);
        Expect(glyphs == m_buffer.nGlyphs, "the runs have ", glyphs, " glyphs of ", m_buffer.nGlyphs);
    }

    void CheckClusters(UINT item, UINT firstChar)
    {
        const stcDrawTextRun& run = m_buffer.pRuns[item];
        for (UINT c = firstChar; run.nGlyphs > 0 && c < firstChar + static_cast<UINT>(run.nChars); ++c) {
            const UINT offset = (m_buffer.pLogClust[c] - run.nFirstGlyph) % CLUSTER_RANGE;
            Expect(offset < static_cast<UINT>(run.nGlyphs), "character ", c, " has another item's glyph");
        }
    }

    UINT FirstRunReaching(UINT glyph) const
    {
        UINT i = 0;
        while (i < m_buffer.nItems &&
               m_buffer.pRuns[i].nFirstGlyph + static_cast<UINT>(m_buffer.pRuns[i].nGlyphs) < glyph)
        {
            ++i;
        }
        return i;
    }

    UINT SumOfAdvances(UINT first) const
    {
        UINT sum = 0;
        for (UINT i = first; i < m_buffer.nGlyphs; ++i) {
            sum += static_cast<UINT>(m_buffer.pAdvance[i]);
        }
        return sum;
    }

    const stcDrawTextBuffer& m_buffer;
    std::ostringstream m_out;
};

void TextChecker::CheckBreaks()
{
    const stcDrawTextBreak* breaks = m_buffer.pBreaks;
    for (UINT i = 0; i < m_buffer.nBreaks; ++i) {
        const stcDrawTextBreak& record = breaks[i];
        Expect(record.nGlyph <= m_buffer.nGlyphs, "line ", i, " ends behind the text");
        Expect(i == 0 || record.nGlyph > breaks[i - 1].nGlyph || record.nGlyph == m_buffer.nGlyphs, "line ",
               i, " does not move on");
        Expect(record.nItem == FirstRunReaching(record.nGlyph), "line ", i, " ends in another item");
    }
    const stcDrawTextBreak& last = breaks[m_buffer.nBreaks];
    Expect(last.nItem == m_buffer.nItems - 1 && last.nGlyph == m_buffer.nGlyphs,
           "the last line does not end the text");
    Expect(m_buffer.nBreaks == 0 || last.nWidth == SumOfAdvances(breaks[m_buffer.nBreaks - 1].nGlyph),
           "the last line has another width than its glyphs");
}

} // namespace

std::string CheckText(const stcDrawTextBuffer& buffer)
{
    TextChecker checker(buffer);
    checker.CheckGlyphs();
    checker.CheckBreaks();
    return checker.Found();
}

std::string CheckLines(const stcDrawTextBuffer& buffer)
{
    TextChecker checker(buffer);
    checker.CheckBreaks();
    return checker.Found();
}

} // namespace test
