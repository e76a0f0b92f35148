#include "TextSupport.h"

#include <tests/support/AllowMisuse.h>

#include <gtest/gtest.h>

namespace test {
namespace {

template <class T> std::vector<BYTE> Bytes(const T* array, UINT count)
{
    const auto* const bytes = reinterpret_cast<const BYTE*>(array);
    return array ? std::vector<BYTE>(bytes, bytes + count * sizeof(T)) : std::vector<BYTE>();
}

void ExpectSameText(const stcDrawTextBuffer& a, const stcDrawTextBuffer& b)
{
    ASSERT_EQ(a.nItems, b.nItems);
    ASSERT_EQ(a.nChars, b.nChars);
    ASSERT_EQ(a.nGlyphs, b.nGlyphs);
    EXPECT_EQ(Bytes(a.pItems, a.nItems), Bytes(b.pItems, b.nItems));
    EXPECT_EQ(Bytes(a.pRuns, a.nItems), Bytes(b.pRuns, b.nItems));
    EXPECT_EQ(Bytes(a.pLogClust, a.nChars), Bytes(b.pLogClust, b.nChars));
    EXPECT_EQ(Bytes(a.pGlyphs, a.nGlyphs), Bytes(b.pGlyphs, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pVisAttr, a.nGlyphs), Bytes(b.pVisAttr, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pAdvance, a.nGlyphs), Bytes(b.pAdvance, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pOffset, a.nGlyphs), Bytes(b.pOffset, b.nGlyphs));
}

const std::u16string_view MIXED = u"abc דג סקרן, def\r\nx";

class TextBuffer : public testing::Test
{
protected:
    const TextContext hdc;
};

} // namespace

TEST_F(TextBuffer, BothCalculationsFindTheSame)
{
    const auto length = static_cast<UINT>(MIXED.size());
    HandMadeText own;
    CDrawText::PrepareBuffer(&own, 0, 0, 0);
    CDrawText::DrawText_Calculate(hdc, Wide(MIXED), length, &own);
    HandMadeText published;
    CDrawText::DrawText_Calculate_Optimized(hdc, Wide(MIXED), length, &published);
    ExpectSameText(own, published);

    // Once more, in the same buffer: nothing is added up and nothing is lost.
    CDrawText::DrawText_Calculate_Optimized(hdc, Wide(MIXED), length, &published);
    ExpectSameText(own, published);
    CDrawText::DrawText_Break(Wide(MIXED), length, 30, &published);
    EXPECT_EQ(CheckText(published), "");
}

TEST_F(TextBuffer, OwnArraysGrowByTheirSteps)
{
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 0, 5, 70);
    EXPECT_EQ(text.nItemsAlloc, 3U);
    EXPECT_EQ(text.nCharsAlloc, 5U);
    EXPECT_EQ(text.nGlyphsAlloc, 70U);

    // Twenty items with the line ends, and a hundred letters in the first.
    std::u16string lines(100, u'a');
    for (int i = 0; i < 6; ++i) {
        lines += u"\r\nb";
    }
    const auto length = static_cast<UINT>(lines.size());
    CDrawText::DrawText_Calculate(hdc, Wide(lines), length, &text);
    EXPECT_EQ(text.nItems, 19U);
    EXPECT_EQ(text.nItemsAlloc, 3U + 2 * 16);
    EXPECT_EQ(text.nCharsAlloc, length);
    EXPECT_EQ(text.nGlyphsAlloc, 70U + 64);
}

TEST_F(TextBuffer, EachCalculationMeasuresInTheFontOfItsTime)
{
    const TextContext hdcLarge(48);
    HandMadeText own;
    CDrawText::PrepareBuffer(&own, 16, 64, 64);
    HandMadeText published;
    CDrawText::DrawText_Calculate(hdc, L"abc", 3, &own);
    CDrawText::DrawText_Calculate_Optimized(hdc, L"abc", 3, &published);
    const UINT width = own.pRuns[0].abc.abcB;
    CDrawText::DrawText_Calculate(hdcLarge, L"abc", 3, &own);
    CDrawText::DrawText_Calculate_Optimized(hdcLarge, L"abc", 3, &published);
    EXPECT_GT(own.pRuns[0].abc.abcB, 3 * width);
    EXPECT_EQ(own.pRuns[0].abc.abcB, published.pRuns[0].abc.abcB);
}

// A prepared text keeps its arrays otherwise than a buffer that is built by hand. A second calculation in own
// arrays counts double.
TEST_F(TextBuffer, BuildingByHandGoesOnFromAPreparedText)
{
    const auto length = static_cast<UINT>(MIXED.size());
    const Text text = Prepare(hdc, MIXED, 5000);
    const UINT count = text->nGlyphs;
    const auto glyphs = Bytes(text->pGlyphs, count);
    CDrawText::DrawText_Calculate(hdc, Wide(MIXED), length, text.get());
    ASSERT_EQ(text->nGlyphs, 2 * count);
    EXPECT_EQ(text->nChars, 2 * length);
    EXPECT_EQ(text->pRuns[0].nFirstGlyph, count);
    EXPECT_EQ(Bytes(text->pGlyphs, count), glyphs);
    EXPECT_EQ(Bytes(text->pGlyphs + count, count), glyphs);
    const std::u16string twice = std::u16string(MIXED) + std::u16string(MIXED);
    CDrawText::DrawText_Break(Wide(twice), 2 * length, 10, text.get());
    CDrawText::DrawText_TextOut_Break(hdc, {0, 0, 30, 30}, text.get());
    CDrawText::DrawText_Calculate_Optimized(hdc, Wide(MIXED), length, text.get());
    EXPECT_EQ(Bytes(text->pGlyphs, count), glyphs);
    CDrawText::OptimizeBuffer(text.get());
    EXPECT_EQ(Bytes(text->pGlyphs, count), glyphs);
}

TEST_F(TextBuffer, CalculatingWithoutArraysIsMisuseButMakesThem)
{
    HandMadeText text;
    const AllowMisuse allowed;
    CDrawText::DrawText_Calculate(hdc, L"abc", 3, &text);
    EXPECT_EQ(text.nChars, 3U);
    CDrawText::FreeBuffer(&text);
    CDrawText::DrawText_Calculate(hdc, L"abcd", 4, &text);
    EXPECT_EQ(text.nChars, 4U);
}

TEST_F(TextBuffer, OptimizingFitsTheArraysAndLosesItemsAndRuns)
{
    const auto length = static_cast<UINT>(MIXED.size());
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 40, 80, 90);
    CDrawText::DrawText_Calculate(hdc, Wide(MIXED), length, &text);
    const auto glyphs = Bytes(text.pGlyphs, text.nGlyphs);
    const auto advances = Bytes(text.pAdvance, text.nGlyphs);
    CDrawText::OptimizeBuffer(&text);
    EXPECT_EQ(text.nItemsAlloc, text.nItems);
    EXPECT_EQ(text.nCharsAlloc, text.nChars);
    EXPECT_EQ(text.nGlyphsAlloc, text.nGlyphs);
    EXPECT_EQ(Bytes(text.pGlyphs, text.nGlyphs), glyphs);
    EXPECT_EQ(Bytes(text.pAdvance, text.nGlyphs), advances);

    // Such a buffer is of no use, but no operation goes astray with it.
    CDrawText::DrawText_Break(Wide(MIXED), length, 30, &text);
    PaintInEveryWay(hdc, &text, 0, 100);
    CDrawText::OptimizeBuffer(&text);
    CDrawText::DrawText_Calculate_Optimized(hdc, Wide(MIXED), length, &text);
    EXPECT_EQ(Bytes(text.pGlyphs, text.nGlyphs), glyphs);
}

TEST_F(TextBuffer, AFreedBufferKeepsItsCountsButNothingIsReadOfIt)
{
    Text text = Prepare(hdc, u"some words on some lines", 50);
    const UINT glyphs = text->nGlyphs;
    CDrawText::FreeBuffer(text.get());
    EXPECT_EQ(text->nGlyphs, glyphs);
    EXPECT_EQ(text->nBreaks, 0U);
    EXPECT_EQ(text->scriptCache, nullptr);
    PaintInEveryWay(hdc, text.get(), 0, glyphs);
    CDrawText::OptimizeBuffer(text.get());
    CDrawText::DrawText_Break(L"some words", 10, 20, text.get());
    EXPECT_EQ(text->nBreaks, 0U);
    CDrawText::FreeBuffer(text.get());

    CDrawText::PrepareBuffer(text.get(), 0, 0, 0); // the number of items stands, the arrays are shorter
    PaintInEveryWay(hdc, text.get(), 0, 0);
}

TEST_F(TextBuffer, PaintingStaysInsideTheArraysForAnyArguments)
{
    const Text text = Prepare(hdc, u"one two three four דג סקרן five", 40);
    const UINT ends[] = {0,          1,         5, text->nGlyphs - 1, text->nGlyphs, text->nGlyphs + 1,
                         0x7FFFFFFF, 0xFFFFFFFF};
    const AllowMisuse allowed;
    for (const UINT a : ends) {
        for (const UINT b : ends) {
            PaintInEveryWay(hdc, text.get(), a, b);
        }
    }
    constexpr LONG MOST = 0x7FFFFFFF;
    for (const RECT rc : {RECT{0, 0, -5, -5}, RECT{MOST, MOST, -MOST, -MOST}, RECT{-MOST, -MOST, MOST, MOST}})
    {
        for (const UINT format :
             std::initializer_list<UINT>{DT_LEFT, DT_CENTER, DT_RIGHT | DT_BOTTOM, DT_VCENTER}) {
            text->uFormat = format;
            CDrawText::DrawTextW(hdc, text.get(), rc);
        }
    }
}

} // namespace test
