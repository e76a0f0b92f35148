// What preparing makes of a platform that fails, and that it leaves nothing behind.

#include "tests/text/TextSupport.h"

#include <tests/headless/FreshDesktop.h>

namespace test {
namespace {

using Breaks = std::vector<stcDrawTextBreak>;

constexpr DWORD OUT_OF_ROOM = 0x8007000E; // E_OUTOFMEMORY
constexpr DWORD OTHER_FAILURE = 0x80004005;
constexpr int FOREVER = 1 << 30;

class TextFault : public testing::Test
{
protected:
    void SetUp() override { Prepare(context, u"an earlier text, of which nothing may be seen", 0); }
    void TearDown() override { EndFaults(); }

    // "aa βββ" at 30 pixels with a fault, checked for order.
    Text PrepareFailing(const char* operation, DWORD error, int times = 1)
    {
        desk::Fail(operation, times, error);
        Text text = Prepare(context, u"aa βββ", 30);
        EXPECT_EQ(CheckText(*text), "") << operation;
        CDrawText::DrawTextW(context, text.get(), RECT{0, 0, 20, 20});
        EndFaults();
        return text;
    }

    FreshDesktop desktop;
    TextContext context;
};

const Breaks UNHARMED = {{0, 3, 18}, {1, 6, 18}};

} // namespace

TEST_F(TextFault, ShortRoomIsAskedForAgain)
{
    for (const char* operation : {"ScriptItemize", "ScriptShape"}) {
        EXPECT_EQ(BreaksOf(*PrepareFailing(operation, OUT_OF_ROOM, 1)), UNHARMED) << operation;
        EXPECT_EQ(BreaksOf(*PrepareFailing(operation, OUT_OF_ROOM, 40)), UNHARMED) << operation;
    }
}

TEST_F(TextFault, RoomThatIsNeverEnoughIsGivenUp)
{
    EXPECT_EQ(PrepareFailing("ScriptItemize", OUT_OF_ROOM, FOREVER)->nItems, 0U);
    EXPECT_EQ(PrepareFailing("ScriptShape", OUT_OF_ROOM, FOREVER)->nGlyphs, 0U);
}

TEST_F(TextFault, OtherFailuresCostNoMoreThanTheirItem)
{
    EXPECT_EQ(BreaksOf(*PrepareFailing("ScriptItemize", OTHER_FAILURE)), (Breaks{{0xFFFFFFFF, 0, 0}}));

    const Text unshaped = PrepareFailing("ScriptShape", OTHER_FAILURE);
    EXPECT_EQ(unshaped->nItems, 2U);
    EXPECT_EQ(unshaped->pRuns[0].nGlyphs, 0);
    EXPECT_EQ(unshaped->nGlyphs, 3U);
    EXPECT_EQ(BreaksOf(*unshaped), (Breaks{{1, 3, 18}}));

    const Text unplaced = PrepareFailing("ScriptPlace", OTHER_FAILURE);
    EXPECT_EQ(unplaced->pAdvance[0], 0);
    EXPECT_EQ(unplaced->pRuns[0].abc.abcB, 0U);
    EXPECT_EQ(BreaksOf(*unplaced), (Breaks{{1, 6, 18}}));

    EXPECT_EQ(BreaksOf(*PrepareFailing("ScriptBreak", OTHER_FAILURE)), (Breaks{{1, 4, 24}, {1, 6, 12}}))
        << "the space is not known as white";
    EXPECT_EQ(BreaksOf(*PrepareFailing("ScriptTextOut", OTHER_FAILURE, 9)), UNHARMED);
}

// The processor sets a count and writes no glyph: the space holds those of an earlier text.
TEST_F(TextFault, ARunThatIsShapedInNoWayShowsNothing)
{
    const TextContext tahoma(12, L"Tahoma");
    for (const DWORD error : {DWORD{OTHER_FAILURE}, static_cast<DWORD>(USP_E_SCRIPT_NOT_IN_FONT)}) {
        Prepare(tahoma, u"hunter2-secret", 0);
        desk::Fail("ScriptShape", 1, error, 1); // the second try of the run that the font cannot show
        const Text text = Prepare(tahoma, u"\u0928\u092E abc", 0, DT_SINGLELINE);
        EXPECT_EQ(CheckText(*text), "");
        EXPECT_EQ(text->nGlyphs, 3U);
        EXPECT_EQ(text->pRuns[0].nGlyphs, 0);
        EXPECT_EQ(text->pRuns[0].abc.abcB, 0U);
    }
}

TEST_F(TextFault, NothingIsLeftOfTextsThatAreClosedMeasuredOrDrawnAtOnce)
{
    Prepare(context, u"closed", 30);
    Prepare(context, u"measured only", 30, DT_CALCRECT);
    CDrawText::DrawTextW(context, L"drawn at once", -1, RECT{0, 0, 40, 40}, 0, 20, nullptr);
    CDrawText::DrawTextW(context, L"measured only", -1, RECT{0, 0, 40, 40}, DT_CALCRECT, 20, nullptr);

    HandMadeText twice;
    CDrawText::DrawText_Calculate_Optimized(context, L"abc", 3, &twice);
    CDrawText::DrawText_Calculate_Optimized(context, L"abc", 3, &twice);
    EXPECT_EQ(desk::Live()[desk::Kind::ScriptCache], 1) << "the former cache of a text is freed with it";
}

} // namespace test
