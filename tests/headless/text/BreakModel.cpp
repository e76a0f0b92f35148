#include "BreakModel.h"

namespace test {
namespace {

struct Model
{
    std::u16string_view text;
    int cxMax;
    const stcDrawTextBuffer& buffer;
    std::vector<size_t> hard;
    std::vector<stcDrawTextBreak> records;

    void FindHardBreaks()
    {
        for (size_t i = 0; i + 1 < text.size(); ++i) {
            if (text[i] == u'\r' && text[i + 1] == u'\n' && i + 2 < text.size()) {
                hard.push_back(i);
            }
        }
        hard.push_back(text.size());
    }

    bool IsWhite(size_t c) const { return buffer.pLogAttr[c].fWhiteSpace; }
    bool IsSoft(size_t c) const { return buffer.pLogAttr[c].fSoftBreak; }
    UINT GlyphOf(size_t c) const { return buffer.pLogClust[c]; }

    void Record(UINT glyph, int width)
    {
        UINT item = 0;
        while (buffer.pRuns[item].nFirstGlyph + static_cast<UINT>(buffer.pRuns[item].nGlyphs) < glyph) {
            ++item;
        }
        records.push_back({item, glyph, static_cast<UINT>(width)});
    }

    int Sum(UINT from, UINT to) const
    {
        int sum = 0;
        for (UINT g = from; g < to; ++g) {
            sum += buffer.pAdvance[g];
        }
        return sum;
    }

    // Far more lines than glyphs: the text breaks for ever.
    bool IsEndless() const { return records.size() > 2 * buffer.nGlyphs + 100; }

    std::vector<stcDrawTextBreak> MovingOn() const
    {
        size_t end = 1;
        while (records[end].nGlyph > records[end - 1].nGlyph) {
            ++end;
        }
        return {records.begin(), records.begin() + static_cast<ptrdiff_t>(end)};
    }

    std::vector<stcDrawTextBreak> Run()
    {
        int w = 0;
        UINT g = 0;
        size_t c = 0;
        size_t h = 0;
        FindHardBreaks();
        for (;;) {
            w = 0;
            while (g < buffer.nGlyphs && w + buffer.pAdvance[g] < cxMax && c < hard[h]) {
                while (GlyphOf(c) < g) {
                    ++c;
                }
                w += buffer.pAdvance[g];
                ++g;
            }
            while (c < text.size() && GlyphOf(c) < g) {
                ++c;
            }
            if (c >= hard[h] && c < text.size()) {
                Record(g, w);
                ++g;
                ++h;
                continue;
            }
            if (g >= buffer.nGlyphs || (IsWhite(c) && c == text.size() - 1)) {
                break;
            }
            if (!IsWhite(c)) {
                const size_t kept = c;
                while (c > 1 && !IsWhite(c - 1) && !IsSoft(c)) {
                    --c;
                }
                c = c == 1 ? kept : c;
            }
            const UINT b = GlyphOf(c);
            Record(b, w - Sum(b, g));
            g = b + 1;
            if (IsEndless()) {
                return MovingOn();
            }
        }
        const int last = records.empty() ? w : Sum(records.back().nGlyph, buffer.nGlyphs);
        records.push_back({buffer.nItems - 1, buffer.nGlyphs, static_cast<UINT>(last)});
        return records;
    }
};

} // namespace

std::vector<stcDrawTextBreak> ModelBreaks(std::u16string_view text, int cxMax,
                                          const stcDrawTextBuffer& buffer)
{
    return Model{text, cxMax, buffer, {}, {}}.Run();
}

} // namespace test
