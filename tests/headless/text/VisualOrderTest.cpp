// Where the items of texts that mix directions are painted in Modern. Each character is one glyph of 6
// pixels.

#include "../memory/MemoryLimit.h"
#include "PaintedSlices.h"
#include "tests/support/WithBehavior.h"
#include "tests/text/TextSupport.h"

#include <gesso/text/VisualOrder.h>

#include <array>
#include <tests/headless/FreshDesktop.h>

namespace test {
namespace {

using Lines = std::vector<std::string>;

class TextVisualOrder : public testing::Test
{
protected:
    Lines PaintedIn(int width, std::u16string_view text, UINT format = 0)
    {
        const Text prepared = Prepare(context, text, width, format);
        EXPECT_EQ(CheckText(*prepared), "");
        return PaintedSlices([&](HDC hdc) {
            CDrawText::DrawTextW(hdc, prepared.get(), RECT{0, 0, width ? width : 500, 100});
        });
    }

    FreshDesktop desktop;
    TextContext context;
    Modern modern;
};

} // namespace

TEST_F(TextVisualOrder, ItemsStandAsTheirDirectionsSay)
{
    EXPECT_EQ(PaintedIn(0, u"a אב c"), (Lines{"\"a \" (0,0) cx=12 latin", "\"בא\" (12,0) cx=12 hebrew rtl",
                                              "\" c\" (24,0) cx=12 latin"}))
        << "the space behind the right-to-left word stays to the right of it";
    EXPECT_EQ(PaintedIn(0, u"אב 12 גד"), (Lines{"\"דג \" (0,0) cx=18 hebrew rtl", "\"12\" (18,0) cx=12 latin",
                                                "\" בא\" (30,0) cx=18 hebrew rtl"}));
    EXPECT_EQ(PaintedIn(0, u"אב גד"), Lines{"\"דג בא\" (0,0) cx=30 hebrew rtl"});
}

TEST_F(TextVisualOrder, TheOrderOfItemsIsTold)
{
    const Text text = Prepare(context, u"x אב 12 גד y", 0);
    ASSERT_EQ(text->nItems, 5U);
    std::array<UINT, 5> order{};
    gesso::VisualOrderOf(*text, 0, 5, order.data());
    EXPECT_EQ(order, (std::array<UINT, 5>{0, 3, 2, 1, 4}));
    gesso::VisualOrderOf(*text, 1, 2, order.data());
    EXPECT_EQ(order[0], 2U);
    EXPECT_EQ(order[1], 1U);
    desk::Fail("ScriptLayout");
    gesso::VisualOrderOf(*text, 0, 5, order.data());
    EXPECT_EQ(order, (std::array<UINT, 5>{0, 1, 2, 3, 4})) << "their own without the script processor";
    gesso::VisualOrderOf(*text, 3, 5, order.data());
    EXPECT_EQ(order[4], 7U) << "items that there are not stay as they are";
}

TEST_F(TextVisualOrder, RangesShowWhatTheyNameWhereverItStands)
{
    const Text text = Prepare(context, u"a אב 12 גד", 0);
    const auto range = [&](UINT start, UINT count) {
        return PaintedSlices(
            [&](HDC hdc) { CDrawText::DrawText_TextOut_Start_Glyph(hdc, 1, 2, text.get(), start, count); });
    };
    EXPECT_EQ(range(1, 2), (Lines{"\" \" (1,2) cx=6 latin", "\" \" (7,2) cx=6 hebrew rtl"}));
    EXPECT_EQ(range(5, 5), (Lines{"\"דג \" (1,2) cx=18 hebrew rtl", "\"12\" (19,2) cx=12 latin"}));
    EXPECT_EQ(range(99, 1), Lines{});
}

TEST_F(TextVisualOrder, ALineThatIsTooWideIsCutWhereItIsSeenToEnd)
{
    const Text text = Prepare(context, u"a אב גד c", 0, DT_SINGLELINE);
    EXPECT_EQ(PaintedSlices([&](HDC hdc) {
                  CDrawText::DrawTextW(hdc, text.get(), RECT{0, 0, 40, 20});
              }),
              (Lines{"\"a \" (0,0) cx=12 latin", "\"דג ב\" (12,0) cx=24 hebrew rtl"}));
}

TEST_F(TextVisualOrder, EachLineHasItsOwnWordsAndItsOwnOrder)
{
    EXPECT_EQ(PaintedIn(31, u"אבג דהו זח"),
              (Lines{"\"גבא\" (0,0) cx=18 hebrew rtl", "\" \" (18,0) cx=6 hebrew rtl",
                     "\"והד\" (0,20) cx=18 hebrew rtl", "\" \" (18,20) cx=6 hebrew rtl",
                     "\"חז\" (0,40) cx=12 hebrew rtl"}))
        << "the space at a line's end stands there as the whole text goes";
    EXPECT_EQ(
        PaintedIn(45, u"ab אבג דהו c"),
        (Lines{"\"ab \" (0,0) cx=18 latin", "\"גבא\" (18,0) cx=18 hebrew rtl", "\" \" (36,0) cx=6 hebrew rtl",
               "\"והד\" (0,20) cx=18 hebrew rtl", "\" c\" (18,20) cx=12 latin"}));
    EXPECT_EQ(PaintedIn(31, u"אבגדהוזח"),
              (Lines{"\"הדגבא\" (0,0) cx=30 hebrew rtl", "\"חזו\" (0,20) cx=18 hebrew rtl"}))
        << "a word that is wider than the line is split";
    EXPECT_EQ(PaintedIn(100, u"אב\r\nגד"),
              (Lines{"\"בא\" (0,0) cx=12 hebrew rtl", "\"\\r\" (12,0) cx=6 control",
                     "\"\\n\" (0,20) cx=6 control", "\"דג\" (6,20) cx=12 hebrew rtl"}));
}

TEST_F(TextVisualOrder, SpacesAtALinesEndAreWithinTheLineAgainOnceThereIsRoom)
{
    constexpr std::u16string_view TEXT = u"אבג  דהו";
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 0, 0, 0);
    CDrawText::DrawText_Calculate(context, Wide(TEXT), 8, &text);
    const auto paintedIn = [&](int width) {
        CDrawText::DrawText_Break(Wide(TEXT), 8, static_cast<UINT>(width), &text);
        EXPECT_EQ(CheckLines(text), "");
        std::string shown;
        for (const std::string& line : PaintedSlices([&](HDC hdc) {
                 CDrawText::DrawText_TextOut_Break(hdc, {0, 0, width, 90}, &text);
             }))
        {
            shown += line.substr(1, line.find('"', 1) - 1) + '|';
        }
        return shown;
    };
    EXPECT_EQ(paintedIn(500), "והד  גבא|");
    EXPECT_EQ(paintedIn(32), "גבא|  |והד|");
    EXPECT_EQ(paintedIn(500), "והד|  |גבא|");
}

TEST_F(TextVisualOrder, LinesThatAreRefusedStayAsTheyWere)
{
    const std::u16string text(4000, u'\x5D0');
    const Text prepared = Prepare(context, text, 0);
    const auto before = BreaksOf(*prepared);
    {
        const MemoryLimit limit(10'000);
        CDrawText::DrawText_Break(Wide(text), 4000, 100, prepared.get());
        EXPECT_GT(limit.Refused(), 0U);
    }
    EXPECT_EQ(BreaksOf(*prepared), before);
    CDrawText::DrawText_Break(Wide(text), 4000, 100, prepared.get());
    EXPECT_EQ(CheckText(*prepared), "");
    EXPECT_GT(prepared->nItems, 100U);
}

TEST_F(TextVisualOrder, ClassicKeepsTheOrderOfTheText)
{
    const WithBehavior classic(gesso::Behavior::Classic);
    EXPECT_EQ(PaintedIn(0, u"אב 12 גד"), Lines{"\"דג 21 בא\" (0,0) cx=48 hebrew rtl"});
    EXPECT_EQ(Prepare(context, u"a אב", 0)->fOneBlock, 1U);
}

TEST_F(TextVisualOrder, WithoutTheResultByDirectionThePlainOneServes)
{
    desk::Fail("ScriptItemize", 1, 0x80004005);
    EXPECT_EQ(Prepare(context, u"a אב c", 0)->nItems, 3U);
}

} // namespace test
