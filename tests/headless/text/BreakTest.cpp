// Where lines break, to the glyph and the pixel. Each character is one glyph of 6 pixels.

#include "tests/text/TextSupport.h"

#include <gtest/gtest.h>

namespace test {
namespace {

using Breaks = std::vector<stcDrawTextBreak>;

Breaks BreaksAt(int width, std::u16string_view text)
{
    const TextContext hdc;
    const Text prepared = Prepare(hdc, text, width);
    EXPECT_EQ(CheckText(*prepared), "");
    return BreaksOf(*prepared);
}

} // namespace

TEST(TextBreak, ALineStaysNarrowerThanTheAreaAndBreaksBehindWhiteSpaceOrAtIt)
{
    EXPECT_EQ(BreaksAt(31, u"aaaaa"), (Breaks{{0, 5, 30}}));
    EXPECT_EQ(BreaksAt(30, u"aaa bbb"), (Breaks{{0, 4, 24}, {0, 7, 18}})) << "in the word behind the space";
    EXPECT_EQ(BreaksAt(24, u"aaa bbb"), (Breaks{{0, 3, 18}, {0, 7, 24}})) << "the space overflows";
    EXPECT_EQ(BreaksAt(12, u"a bb"), (Breaks{{0, 1, 6}, {0, 2, 0}, {0, 4, 12}})) << "a space at index 1";
}

TEST(TextBreak, LinesBetweenBreaksAreMeasuredWithoutTheirFirstGlyph)
{
    EXPECT_EQ(BreaksAt(30, u"aaa bbb ccc ddd"), (Breaks{{0, 4, 24}, {0, 8, 18}, {0, 12, 18}, {0, 15, 18}}));
}

TEST(TextBreak, AWordWiderThanTheLineIsSplitWhereItOverflows)
{
    EXPECT_EQ(BreaksAt(30, u"aaaaaaaaaaaa"), (Breaks{{0, 4, 24}, {0, 9, 24}, {0, 12, 18}})) << "at the start";
    EXPECT_EQ(BreaksAt(30, u" bbbbbbbb"), (Breaks{{0, 4, 24}, {0, 9, 30}})) << "index 1 is never taken";
    EXPECT_EQ(BreaksAt(30, u"ab cccccccccc"), (Breaks{{0, 3, 18}, {0, 8, 24}, {0, 13, 30}}))
        << "behind white space, where the search must not find the line's own start for ever";
    EXPECT_EQ(BreaksAt(30, u"ab ccccccccccccccc dd"),
              (Breaks{{0, 3, 18}, {0, 8, 24}, {0, 13, 24}, {0, 18, 24}, {0, 21, 18}}));
}

TEST(TextBreak, AWidthBelowTheFirstGlyphStartsWithAnEmptyLine)
{
    const Breaks oneEach = {{0, 0, 0}, {0, 1, 0}, {0, 2, 0}, {0, 3, 6}};
    EXPECT_EQ(BreaksAt(6, u"abc"), oneEach);
    EXPECT_EQ(BreaksAt(1, u"abc"), oneEach);
    EXPECT_EQ(BreaksAt(-40, u"abc"), oneEach);
}

TEST(TextBreak, ALastWhiteSpaceNeverOpensALineAndIsNotMeasured)
{
    EXPECT_EQ(BreaksAt(30, u"aaaa "), (Breaks{{0, 5, 24}}));
    EXPECT_EQ(BreaksAt(30, u"aaaa  "), (Breaks{{0, 4, 24}, {0, 6, 12}})) << "one before the last does";
    EXPECT_EQ(BreaksAt(5, u" "), (Breaks{{0, 1, 0}}));
}

TEST(TextBreak, CarriageReturnAndLineFeedBreakTogetherAndNotAtTheEnd)
{
    EXPECT_EQ(BreaksAt(100, u"a\r\nb"), (Breaks{{1, 2, 12}, {3, 4, 12}}));
    EXPECT_EQ(BreaksAt(100, u"a\r\n"), (Breaks{{2, 3, 18}}));
    EXPECT_EQ(BreaksAt(100, u"\r\nx"), (Breaks{{0, 0, 0}, {2, 3, 18}}));
    EXPECT_EQ(BreaksAt(100, u"a\r\n\r\nb"), (Breaks{{1, 2, 12}, {3, 4, 6}, {5, 6, 12}}));
    EXPECT_EQ(BreaksAt(100, u"a\rb\nc\n\rd"), (Breaks{{7, 8, 48}})) << "lone ones and the other order do not";
    EXPECT_EQ(BreaksAt(30, u"ab\r\ncccccccc"), (Breaks{{1, 3, 18}, {3, 8, 24}, {3, 12, 24}}))
        << "the search in the long word goes back over the break";
    EXPECT_EQ(BreaksAt(30, u"x ab\r\ncccccccc"), (Breaks{{0, 4, 24}, {3, 9, 24}, {3, 14, 30}}))
        << "and must not stop at a place before the line";
}

TEST(TextBreak, SoftBreaksAreTakenWithoutWhiteSpace)
{
    EXPECT_EQ(BreaksAt(30, u"aa-bbbb"), (Breaks{{0, 3, 18}, {0, 7, 24}}));
    EXPECT_EQ(BreaksAt(30, u"日本語日本語"), (Breaks{{0, 4, 24}, {0, 6, 12}}));
}

TEST(TextBreak, ABreakAtAnItemsEndBelongsToThatItem)
{
    EXPECT_EQ(BreaksAt(30, u"aaa βββ"), (Breaks{{0, 4, 24}, {1, 7, 18}}));
    EXPECT_EQ(BreaksAt(30, u"aαa βββ"), (Breaks{{2, 4, 24}, {3, 7, 18}}));
}

TEST(TextBreak, ARightToLeftItemIsTakenUpToItsFirstCharactersGlyph)
{
    EXPECT_EQ(BreaksAt(30, u"אבגדהוזח"), (Breaks{{0, 7, 24}, {0, 8, 6}}));
    EXPECT_EQ(BreaksAt(30, u"ab אבגדהוזח"), (Breaks{{1, 10, 24}, {1, 11, 6}}));
}

TEST(TextBreak, TheGlyphsOfTheLastCharacterStayTogether)
{
    const TextContext hdc;
    for (const UINT cxMax : {100U, 10U}) {
        HandMadeText text;
        CDrawText::DrawText_Calculate_Optimized(hdc, L"ab", 2, &text);
        text.pLogClust[1] = 0; // as for a letter with its mark
        CDrawText::DrawText_Break(L"ab", 2, cxMax, &text);
        EXPECT_EQ(BreaksOf(text), (Breaks{{0, 2, 12}})) << cxMax;
    }
}

TEST(TextBreak, AWordBehindALineEndOfSeveralCharactersBreaksWhereItMayButNotAtItsStart)
{
    const TextContext hdc;
    const auto breaks = [&](std::u16string_view lines) {
        const Text text = Prepare(hdc, lines, 30);
        std::fill_n(text->pLogClust, 4, WORD());
        CDrawText::DrawText_Break(Wide(lines), static_cast<UINT>(lines.size()), 30, text.get());
        return BreaksOf(*text);
    };
    EXPECT_EQ(breaks(u"a\r\n-bbbbbb"), (Breaks{{1, 2, 12}, {3, 4, 6}, {3, 9, 24}, {3, 10, 6}}))
        << "the place lies behind the last record, so the guard against endless lines leaves it";
    EXPECT_EQ(breaks(u"a\r\nbbbbbbb"), (Breaks{{1, 2, 12}, {3, 7, 24}, {3, 10, 18}}))
        << "the search goes on in front of the line's start";
}

TEST(TextBreak, WhatIsBrokenAgainReplacesTheFormerLines)
{
    const TextContext hdc;
    const Text text = Prepare(hdc, u"aaa bbb", 30);
    CDrawText::DrawText_Break(L"aaa bbb", 7, 100, text.get());
    EXPECT_EQ(BreaksOf(*text), (Breaks{{0, 7, 42}}));
    CDrawText::DrawText_Break(L"aaa bbb and more than was calculated", 36, 30, text.get());
    EXPECT_EQ(BreaksOf(*text), (Breaks{{0, 4, 24}, {0, 7, 18}}));
    CDrawText::DrawText_Break(nullptr, 7, 30, text.get());
    EXPECT_EQ(BreaksOf(*text), (Breaks{{0, 7, 0}}));
}

} // namespace test
