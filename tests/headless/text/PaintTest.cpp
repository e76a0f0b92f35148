// What painting a prepared text hands to the platform, slice by slice. Each character is one glyph of 6
// pixels, a line of the font is 15 high and lines are 20 apart.

#include "tests/support/Host.h"
#include "tests/text/TextSupport.h"

#include <tests/headless/FreshDesktop.h>
#include <tests/support/AllowMisuse.h>

#include <functional>

namespace test {
namespace {

using Lines = std::vector<std::string>;

class TextPaint : public testing::Test
{
protected:
    // The slices that are painted: "text" (x,y) width script.
    Lines Painted(const std::function<void(HDC)>& paint)
    {
        const Host host;
        desk::ClearDrawing(host);
        const HDC hdc = GetDC(host);
        paint(hdc);
        ReleaseDC(host, hdc);
        Lines lines = desk::Drawing(host);
        for (std::string& line : lines) {
            constexpr std::string_view OPERATION = "ScriptTextOut ";
            EXPECT_TRUE(line.starts_with(OPERATION)) << line;
            line = line.substr(OPERATION.size(), line.find(" font=") - OPERATION.size());
        }
        return lines;
    }

    Lines PaintedIn(const RECT& rc, const Text& text)
    {
        return Painted([&](HDC hdc) { CDrawText::DrawTextW(hdc, text.get(), rc); });
    }

    // Where the text "ab" starts in a rectangle, by the flags.
    std::string PlaceOf(UINT format, const RECT& rc)
    {
        const Lines lines = PaintedIn(rc, Prepare(context, u"ab", 0, format));
        EXPECT_EQ(lines.size(), 1U);
        return lines.empty() ? "" : lines[0].substr(5, lines[0].find(')') - 4);
    }

    FreshDesktop desktop;
    TextContext context;
};

} // namespace

TEST_F(TextPaint, OneLineIsAlignedInBothDirections)
{
    const RECT rc = {10, 20, 110, 60};
    EXPECT_EQ(PaintedIn(rc, Prepare(context, u"ab αβ", 0)),
              (Lines{"\"ab \" (10,20) cx=18 latin", "\"αβ\" (28,20) cx=12 greek"}));
    EXPECT_EQ(PlaceOf(DT_RIGHT, rc), "(98,20)");
    EXPECT_EQ(PlaceOf(DT_CENTER, rc), "(54,20)");
    EXPECT_EQ(PlaceOf(DT_CENTER, {10, 20, 111, 60}), "(54,20)") << "the odd pixel goes to the right";
    EXPECT_EQ(PlaceOf(DT_CENTER | DT_RIGHT, rc), "(54,20)");
    EXPECT_EQ(PlaceOf(DT_BOTTOM, rc), "(10,45)");
    EXPECT_EQ(PlaceOf(DT_VCENTER, rc), "(10,32)");
    EXPECT_EQ(PlaceOf(DT_BOTTOM | DT_VCENTER, rc), "(10,45)");
    EXPECT_EQ(PlaceOf(DT_VCENTER, {10, 20, 110, 24}), "(10,14)") << "a taller text starts above, rounded up";
    EXPECT_EQ(PlaceOf(DT_BOTTOM, {10, 20, 110, 24}), "(10,9)");
}

TEST_F(TextPaint, OneLineThatIsTooWideIsCutBeforeTheGlyphThatReachesTheSide)
{
    const Text wide = Prepare(context, u"ab αβγ", 0);
    EXPECT_EQ(PaintedIn({0, 0, 36, 15}, wide).back(), "\"αβγ\" (18,0) cx=18 greek") << "it just fits";
    EXPECT_EQ(PaintedIn({0, 0, 30, 15}, wide),
              (Lines{"\"ab \" (0,0) cx=18 latin", "\"α\" (18,0) cx=6 greek"}));
    EXPECT_EQ(PaintedIn({0, 0, 6, 15}, wide), Lines{});
    EXPECT_EQ(PaintedIn({0, 0, 0, 15}, wide), Lines{});
    EXPECT_EQ(PaintedIn({0, 0, -10, 15}, wide).size(), 2U) << "a negative width counts as a very large one";

    const Text right = Prepare(context, u"aaaaaa", 0, DT_RIGHT);
    EXPECT_EQ(PaintedIn({0, 0, 20, 15}, right), Lines{"\"aaa\" (0,0) cx=18 latin"});
    const Text centred = Prepare(context, u"aaaaaa", 0, DT_CENTER);
    EXPECT_EQ(PaintedIn({0, 0, 20, 15}, centred), Lines{"\"aaa\" (2147483640,0) cx=18 latin"});
    EXPECT_EQ(PaintedIn({10, 0, 30, 15}, centred), Lines{"\"aaa\" (10,0) cx=18 latin"});
}

TEST_F(TextPaint, LinesWithinAnItemRepeatItsBeginningAndItsEnd)
{
    EXPECT_EQ(PaintedIn({5, 7, 35, 100}, Prepare(context, u"aaa bbb ccc", 30)),
              (Lines{"\"aaa \" (5,7) cx=24 latin", "\"bbb ccc\" (5,27) cx=42 latin",
                     "\"aaa bbb \" (47,27) cx=48 latin", "\"ccc\" (5,47) cx=18 latin",
                     "\"aaa bbb ccc\" (23,47) cx=66 latin"}));
}

TEST_F(TextPaint, LinesBetweenItemsAreGoneThroughItemByItem)
{
    EXPECT_EQ(
        PaintedIn({0, 0, 100, 100}, Prepare(context, u"aα\r\nβ", 100)),
        (Lines{"\"a\" (0,0) cx=6 latin", "\"α\" (6,0) cx=6 greek", "\"\\r\" (12,0) cx=6 control",
               "\"\\r\" (0,20) cx=6 control", "\"\\n\" (6,20) cx=6 control", "\"β\" (12,20) cx=6 greek"}));
}

TEST_F(TextPaint, EachLineIsAlignedByItsOwnWidthAndAllByTheTextsHeight)
{
    const RECT rc = {0, 0, 40, 100};
    EXPECT_EQ(PaintedIn(rc, Prepare(context, u"aaa bbb", 30, DT_RIGHT | DT_BOTTOM)),
              (Lines{"\"aaa \" (16,60) cx=24 latin", "\"bbb\" (22,80) cx=18 latin",
                     "\"aaa bbb\" (40,80) cx=42 latin"}));
    const auto tops = [&](int lineHeight) {
        Lines lines = PaintedIn(rc, Prepare(context, u"aaa bbb", 30, DT_CENTER, lineHeight));
        for (std::string& line : lines) {
            line = line.substr(line.find('('), line.find(')') - line.find('(') + 1);
        }
        return lines;
    };
    EXPECT_EQ(tops(0), (Lines{"(8,0)", "(11,0)", "(29,0)"}));
    EXPECT_EQ(tops(-20), (Lines{"(8,0)", "(11,-20)", "(29,-20)"}));
}

TEST_F(TextPaint, ALineThatIsTooWideIsCutAndTheNextOneGoesOn)
{
    EXPECT_EQ(PaintedIn({0, 0, 20, 100}, Prepare(context, u"aaa bbb", 30)),
              (Lines{"\"aaa\" (0,0) cx=18 latin", "\"aaa bbb\" (0,20) cx=42 latin"}));
    EXPECT_EQ(PaintedIn({0, 0, 30, 100}, Prepare(context, u"a bbbbbb", 40)),
              (Lines{"\"a \" (0,0) cx=12 latin", "\"bbbb\" (0,20) cx=24 latin"}))
        << "behind the last line there is no width to align by";

    const Text negative = Prepare(context, u"aaa bbb", 30);
    negative->pBreaks[0].nWidth = static_cast<UINT>(-6);
    EXPECT_EQ(PaintedIn({0, 0, 100, 100}, negative).front(), "\"aaa \" (0,0) cx=24 latin")
        << "a negative width is too wide, but all of the line fits";
}

TEST_F(TextPaint, RightToLeftItemsStandInLogicalOrder)
{
    EXPECT_EQ(
        PaintedIn({0, 0, 100, 20}, Prepare(context, u"a אב c", 0)),
        (Lines{"\"a \" (0,0) cx=12 latin", "\" בא\" (12,0) cx=18 hebrew rtl", "\"c\" (30,0) cx=6 latin"}));
}

TEST_F(TextPaint, RangesOfGlyphsRunOverTheItemThatTheyStartIn)
{
    const Text text = Prepare(context, u"ab αβ", 0);
    const auto range = [&](UINT start, UINT count) {
        return Painted(
            [&](HDC hdc) { CDrawText::DrawText_TextOut_Start_Glyph(hdc, 1, 2, text.get(), start, count); });
    };
    EXPECT_EQ(range(0, 5), (Lines{"\"ab \" (1,2) cx=18 latin", "\"αβ\" (19,2) cx=12 greek"}));
    EXPECT_EQ(range(1, 2), Lines{"\"b \" (1,2) cx=12 latin"});
    EXPECT_EQ(range(1, 3), Lines{"\"b α\" (1,2) cx=18 latin"}) << "into the next item, with its own analysis";
    EXPECT_EQ(range(3, 2), Lines{"\"αβ\" (1,2) cx=12 latin"}) << "an item's end belongs to it";
    EXPECT_EQ(range(4, 1), Lines{"\"β\" (1,2) cx=6 greek"});
    EXPECT_EQ(range(2, 0), Lines{});
    EXPECT_EQ(range(4, 100), Lines{"\"β\" (1,2) cx=6 greek"});
    EXPECT_EQ(range(9, 1), Lines{});
    EXPECT_EQ(range(3, 0xFFFFFFFF), Lines{}) << "an end before the start";
}

TEST_F(TextPaint, TheLowerPaintersTakeTheirGlyphsAsTheyStand)
{
    const Text text = Prepare(context, u"ab αβ", 0);
    const auto items = [&](UINT first) {
        return Painted([&](HDC hdc) { CDrawText::DrawText_TextOut_Item(hdc, 1, 2, text.get(), first, 9); });
    };
    EXPECT_EQ(items(0), (Lines{"\"ab \" (1,2) cx=18 latin", "\"αβ\" (19,2) cx=12 greek"}));
    EXPECT_EQ(items(1), Lines{"\"ab\" (1,2) cx=12 greek"}) << "glyphs from the start of the text";
    EXPECT_EQ(items(2), Lines{});
    const Text none = Prepare(context, u"ab", 0);
    none->nItems = 0xFFFFFFFF;
    EXPECT_EQ(Painted([&](HDC hdc) { CDrawText::DrawText_TextOut(hdc, 1, 2, none.get()); }), Lines{})
        << "the count of items is a signed number";

    const auto glyphs = [&](UINT count) {
        return Painted([&](HDC hdc) { CDrawText::DrawText_TextOut_Char(hdc, 1, 2, text.get(), count); });
    };
    EXPECT_EQ(glyphs(0), Lines{});
    EXPECT_EQ(glyphs(2), Lines{"\"ab\" (1,2) cx=12 latin"});
    EXPECT_EQ(glyphs(4), (Lines{"\"ab \" (1,2) cx=18 latin", "\"α\" (19,2) cx=6 greek"}));
    EXPECT_EQ(glyphs(99).size(), 2U);

    const Text wrapped = Prepare(context, u"aaa bbb", 30);
    const auto line = [&](UINT index, UINT cxMax) {
        return Painted(
            [&](HDC hdc) { CDrawText::DrawText_TextOut_cxMax(hdc, 1, 2, wrapped.get(), index, cxMax); });
    };
    EXPECT_EQ(line(0, 100), Lines{"\"aaa \" (1,2) cx=24 latin"});
    EXPECT_EQ(line(1, 18), Lines{"\"bb\" (1,2) cx=12 latin"});
    const AllowMisuse allowed;
    EXPECT_EQ(line(2, 100), Lines{});
}

TEST_F(TextPaint, DrawingAtOnceAlignsInTheCallersRectangle)
{
    const Lines lines = Painted([&](HDC hdc) {
        const HGDIOBJ former = SelectObject(hdc, GetCurrentObject(context, OBJ_FONT));
        CDrawText::DrawTextW(hdc, L"a\r\nb", -1, RECT{10, 20, 110, 120}, DT_BOTTOM, 20, nullptr);
        SelectObject(hdc, former);
    });
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "\"a\" (10,80) cx=6 latin");
}

} // namespace test
