#include "TextSupport.h"

#include <tests/support/AllowMisuse.h>

#include <gtest/gtest.h>

#include <numeric>

namespace test {
namespace {

const HANDLE INVALID = INVALID_HANDLE_VALUE;

struct Measured
{
    RECT rc;
    UINT lines;
    void* handle;
};

Measured Measure(HDC hdc, std::u16string_view text, RECT rc, UINT format, int lineHeight)
{
    Measured measured = {rc, 0, nullptr};
    measured.handle =
        CDrawText::DrawText_Prepare(hdc, Wide(text), static_cast<int>(text.size()), &measured.rc,
                                    format | DT_CALCRECT, lineHeight, &measured.lines);
    return measured;
}

void ExpectRect(const RECT& rc, const RECT& expected)
{
    EXPECT_TRUE(EqualRect(&rc, &expected)) << rc.left << ' ' << rc.top << ' ' << rc.right << ' ' << rc.bottom;
}

int SumOfAdvances(const stcDrawTextBuffer& text)
{
    return std::accumulate(text.pAdvance, text.pAdvance + text.nGlyphs, 0);
}

// One of each kind of text that the engine treats in its own way.
const std::u16string_view SAMPLES[] = {
    u"a",
    u"The quick brown fox jumps over the lazy dog",
    u"e\u0301 o\u0308 a\u0308\u0301 combining marks",
    u"Съешь же ещё этих мягких французских булок",
    u"Ξεσκεπάζω την ψυχοφθόρα βδελυγμία",
    u"דג סקרן שט בים מאוכזב",
    u"نص حكيم له سر قاطع",
    u"abc דג סקרן 123 def نص حكيم ghi",
    u"ऋषियों को सताने वाले दुष्ट राक्षसों",
    u"เป็นมนุษย์สุดประเสริฐเลิศคุณค่า น้ำ",
    u"いろはにほへと、ちりぬるを。日本語",
    u"\U0001F600 \U0001F468\u200D\U0001F469 emoji",
    u"a\r\nb\r\n\r\nc\rd\ne\tf\r\n",
    u"\xD800 unpaired \xDC00\xDC00 surrogates \xD800",
    std::u16string_view(u"zeros\0in\0between", 16),
    u"                    ",
    u"a                    ",
    u"word andaverylongwordthatislongerthananyline word",
};

class TextPrepare : public testing::Test
{
protected:
    const TextContext hdc;
};

} // namespace

TEST_F(TextPrepare, MeasurementGivesNoHandleButTheRectangleAndTheLines)
{
    const Measured wrapped = Measure(hdc, u"a\r\nb", {5, 7, 1005, 9}, 0, 20);
    EXPECT_EQ(wrapped.handle, INVALID);
    EXPECT_EQ(wrapped.lines, 2U);
    ExpectRect(wrapped.rc, {5, 7, 1005, 47});

    const Measured single = Measure(hdc, u"a\r\nb", {5, 7, 1005, 9}, DT_SINGLELINE, 20);
    EXPECT_EQ(single.lines, 1U);
    const Text same = Prepare(hdc, u"a\r\nb", 0, DT_SINGLELINE);
    ExpectRect(single.rc, {5, 7, 5 + SumOfAdvances(*same), 9});
}

TEST_F(TextPrepare, OneLineIsAsTallAsTheFontAndMoreAreCountedLines)
{
    const int font = hdc.FontHeight();
    ExpectRect(Measure(hdc, u"one", {0, 10, 500, 20}, 0, 50).rc, {0, 10, 500, 10 + font});
    ExpectRect(Measure(hdc, u"one", {0, 10, 500, 20}, 0, -50).rc, {0, 10, 500, 10 - font});
    ExpectRect(Measure(hdc, u"a\r\nb\r\nc", {0, 10, 500, 20}, 0, 50).rc, {0, 10, 500, 160});
    ExpectRect(Measure(hdc, u"a\r\nb\r\nc", {0, 10, 500, 20}, 0, -50).rc, {0, 10, 500, -140});
    ExpectRect(Measure(hdc, u"a\r\nb", {0, 10, 500, 20}, 0, 0).rc, {0, 10, 500, 10});

    EXPECT_EQ(Prepare(hdc, u"one", 500, DT_SINGLELINE, -50)->rcText.bottom, -font);
}

TEST_F(TextPrepare, ARectangleEmptyInOneDirectionIsUnlimitedInBoth)
{
    for (const RECT rc : {RECT{5, 7, 5, 90}, RECT{5, 7, 90, 7}, RECT{5, 7, 5, 7}}) {
        RECT area = rc;
        const Text text(CDrawText::DrawText_Prepare_Int(hdc, L"some words that would wrap at 90", -1, &area,
                                                        0, 20, nullptr));
        EXPECT_EQ(text->nBreaks, 0U);
        ExpectRect(text->rcText, {5, 7, 5 + 32768, 7 + hdc.FontHeight()});
        ExpectRect(area, {rc.left, rc.top, rc.right, 7 + hdc.FontHeight()});
    }
    const Text none(CDrawText::DrawText_Prepare_Int(hdc, L"text", -1, nullptr, DT_RIGHT, 20, nullptr));
    ASSERT_TRUE(none);
    ExpectRect(none->rcText, {0, 0, 32768, hdc.FontHeight()});
}

TEST_F(TextPrepare, TheBufferKeepsWhatItWasGiven)
{
    const UINT format = DT_SINGLELINE | DT_CENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
    const Text text = Prepare(hdc, u"a\r\nb & c\t", 10, format, -3);
    EXPECT_EQ(text->uFormat, format);
    EXPECT_EQ(text->nLineHeight, -3);
    EXPECT_EQ(text->nFontHeight, hdc.FontHeight());
    EXPECT_NE(text->scriptCache, nullptr);
    EXPECT_EQ(text->nChars, 9U);
    EXPECT_EQ(text->rcText.right, SumOfAdvances(*text));
    const stcDrawTextBreak whole = {text->nItems - 1, text->nGlyphs, static_cast<UINT>(SumOfAdvances(*text))};
    EXPECT_EQ(BreaksOf(*text), std::vector{whole});
}

TEST_F(TextPrepare, LengthsCountToTheTerminatorOrAreTakenAsGiven)
{
    const auto chars = [&](LPCWSTR text, int length) {
        const Text prepared(CDrawText::DrawText_Prepare_Int(hdc, text, length, nullptr, 0, 20, nullptr));
        EXPECT_EQ(CheckText(*prepared), "");
        return prepared->nChars;
    };
    EXPECT_EQ(chars(L"four", -1), 4U);
    EXPECT_EQ(chars(L"four", 2), 2U);
    constexpr wchar_t ZERO_WITHIN[] = {L't', L'o', 0, L'b', L'e', L'y', L'o', L'n', L'd', 0};
    EXPECT_EQ(chars(ZERO_WITHIN, 9), 9U);
    EXPECT_EQ(chars(ZERO_WITHIN, -1), 2U);
    EXPECT_EQ(chars(L"", -1), 0U);
    EXPECT_EQ(chars(nullptr, -1), 0U);
    EXPECT_EQ(chars(nullptr, 3), 0U);
    const AllowMisuse allowed;
    EXPECT_EQ(chars(L"four", -2), 0U);
}

TEST_F(TextPrepare, AnEmptyTextIsOneLine)
{
    for (const UINT format : {0U, static_cast<UINT>(DT_SINGLELINE)}) {
        UINT lines = 7;
        RECT rc = {0, 0, 100, 100};
        const Text text(CDrawText::DrawText_Prepare_Int(hdc, L"", 0, &rc, format, -20, &lines));
        EXPECT_EQ(lines, 1U);
        EXPECT_EQ(text->nItems, 0U);
        EXPECT_EQ(BreaksOf(*text), (std::vector<stcDrawTextBreak>{{0xFFFFFFFF, 0, 0}}));
        EXPECT_EQ(text->rcText.bottom, -hdc.FontHeight());
        CDrawText::DrawTextW(hdc, text.get(), rc);
    }
}

TEST_F(TextPrepare, AContextWithoutAFontGivesNoHandleAndChangesNothing)
{
    UINT lines = 7;
    RECT rc = {1, 2, 3, 4};
    EXPECT_EQ(CDrawText::DrawText_Prepare(nullptr, L"text", -1, &rc, 0, 20, &lines), INVALID);
    EXPECT_EQ(CDrawText::DrawText_Prepare_Int(nullptr, L"text", -1, &rc, 0, 20, &lines), nullptr);
    EXPECT_EQ(CDrawText::DrawTextW(nullptr, L"text", -1, rc, 0, 20, &lines), E_FAIL);
    EXPECT_EQ(lines, 7U);
    ExpectRect(rc, {1, 2, 3, 4});
}

TEST_F(TextPrepare, DrawingAtOnceFailsForAMeasurement)
{
    UINT lines = 7;
    EXPECT_EQ(CDrawText::DrawTextW(hdc, L"a\r\nb", -1, {0, 0, 100, 100}, 0, 20, &lines), 0);
    EXPECT_EQ(lines, 2U);
    EXPECT_EQ(CDrawText::DrawTextW(hdc, L"a\r\nb", -1, {0, 0, 100, 100}, DT_CALCRECT, 20, nullptr), E_FAIL);
}

TEST_F(TextPrepare, NullAndTheInvalidHandleAreSafeEverywhere)
{
    for (void* handle : {static_cast<void*>(nullptr), static_cast<void*>(INVALID)}) {
        auto* const buffer = static_cast<stcDrawTextBuffer*>(handle);
        CDrawText::DrawText_CloseHandle(handle);
        EXPECT_EQ(CDrawText::DrawTextW(hdc, handle, RECT{0, 0, 9, 9}), 0);
        CDrawText::PrepareBuffer(buffer, 1, 1, 1);
        CDrawText::OptimizeBuffer(buffer);
        CDrawText::FreeBuffer(buffer);
        CDrawText::DrawText_Calculate(hdc, L"a", 1, buffer);
        CDrawText::DrawText_Calculate_Optimized(hdc, L"a", 1, buffer);
        CDrawText::DrawText_Break(L"a", 1, 10, buffer);
        PaintInEveryWay(hdc, buffer, 0, 1);
    }
}

TEST_F(TextPrepare, EveryScriptKeepsTheRecordsInOrderAtEveryWidth)
{
    for (const std::u16string_view& sample : SAMPLES) {
        for (const int width : {-50, 0, 1, 7, 20, 60, 200}) {
            for (const UINT format : {0U, static_cast<UINT>(DT_SINGLELINE)}) {
                const Text text = Prepare(hdc, sample, width, format);
                EXPECT_EQ(CheckText(*text), "") << "sample " << &sample - SAMPLES << " at " << width;
                EXPECT_EQ(text->nChars, sample.size());
                CDrawText::DrawTextW(hdc, text.get(), RECT{0, 0, width, 50});
            }
        }
    }
}

TEST_F(TextPrepare, ALineWithoutItsFirstGlyphStaysNarrowerThanTheArea)
{
    constexpr int WIDTH = 80;
    const Text text =
        Prepare(hdc, u"Several words, a fewofthemratherlonger than the others, in a narrow column", WIDTH);
    ASSERT_GT(text->nBreaks, 3U);
    for (UINT i = 0; i < text->nBreaks; ++i) {
        EXPECT_LT(static_cast<int>(text->pBreaks[i].nWidth), WIDTH) << "line " << i;
        const UINT first = i == 0 ? 0 : text->pBreaks[i - 1].nGlyph + 1;
        EXPECT_EQ(static_cast<int>(text->pBreaks[i].nWidth),
                  std::accumulate(text->pAdvance + first, text->pAdvance + text->pBreaks[i].nGlyph, 0))
            << "line " << i;
    }
}

TEST_F(TextPrepare, ALongTextWrapsItsClusterValuesAndStaysInItsArrays)
{
    const std::u16string words = [] {
        std::u16string text;
        while (text.size() < 70'000) {
            text += u"seven  ";
        }
        return text;
    }();
    for (const int width : {0, 50, 400}) {
        const Text text = Prepare(hdc, words, width);
        EXPECT_EQ(CheckText(*text), "");
        ASSERT_EQ(text->nGlyphs, words.size());
        EXPECT_EQ(text->pLogClust[65'535], 65'535);
        EXPECT_EQ(text->pLogClust[65'536 + 5], 5);
        EXPECT_GT(text->nBreaks, 0U);
    }
    EXPECT_EQ(CheckText(*Prepare(hdc, u"short again", 50)), "");
}

} // namespace test
