// Other fonts show in Modern what a text's font lacks. Each character is one glyph of 6 pixels, in every font
// of twelve.

#include "../memory/MemoryLimit.h"
#include "PaintedSlices.h"
#include "tests/support/WithBehavior.h"
#include "tests/text/TextSupport.h"

#include <gesso/framework/DrawScope.h>
#include <gesso/text/FallbackFonts.h>

#include <chrono>
#include <tests/headless/FreshDesktop.h>

namespace test {
namespace {

using Lines = std::vector<std::string>;

constexpr desk::CodeRange LATIN{0x20, 0x24F};
constexpr desk::CodeRange HAN{0x3000, 0x9FFF};
constexpr desk::CodeRange GREEK{0x370, 0x3FF};
constexpr std::string_view LINKS = R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink)";

class TextFallback : public testing::Test
{
protected:
    TextFallback()
    {
        gesso::ForgetFallbackFonts();
        desk::InstallFont("Segoe UI", {LATIN});
    }
    ~TextFallback() override { gesso::ForgetFallbackFonts(); }

    Lines Painted(stcDrawTextBuffer& text, const RECT& rc = {0, 0, 500, 100})
    {
        return PaintedSlices(
            [&](HDC hdc) {
                const gesso::SelectScope font(hdc, GetCurrentObject(context, OBJ_FONT));
                CDrawText::DrawTextW(hdc, &text, rc);
            },
            true);
    }
    Lines Painted(std::u16string_view text)
    {
        const Text prepared = Prepare(context, text, 0);
        EXPECT_EQ(CheckText(*prepared), "");
        return Painted(*prepared);
    }
    // The font of the last slice.
    std::string FontOf(std::u16string_view text)
    {
        const std::string last = Painted(text).back();
        const size_t font = last.find("font=\"") + 6;
        return last.substr(font, last.find('"', font) - font);
    }

    FreshDesktop desktop;
    TextContext context;
    Modern modern;
};

} // namespace

TEST_F(TextFallback, WhatTheFontLacksIsAnItemOfItsOwnInAnotherFont)
{
    desk::InstallFont("Sim Han", {HAN});
    desk::InstallFont("Sim Signs", {{0x2600, 0x26FF}, {0x1F300, 0x1FAFF}});
    EXPECT_EQ(Painted(u"ab 日本 c"), (Lines{"\"ab \" (0,0) cx=18 latin font=\"Segoe UI\" 12",
                                            "\"日本\" (18,0) cx=12 han font=\"Sim Han\" 12",
                                            "\" \" (30,0) cx=6 han font=\"Segoe UI\" 12",
                                            "\"c\" (36,0) cx=6 latin font=\"Segoe UI\" 12"}));
    EXPECT_EQ(Painted(u"a☕b"), (Lines{"\"a\" (0,0) cx=6 latin font=\"Segoe UI\" 12",
                                      "\"☕\" (6,0) cx=6 latin font=\"Sim Signs\" 12",
                                      "\"b\" (12,0) cx=6 latin font=\"Segoe UI\" 12"}));
    EXPECT_EQ(FontOf(u"a\U0001F600"), "Sim Signs");
    const WithBehavior classic(gesso::Behavior::Classic);
    EXPECT_EQ(Painted(u"a☕"), Lines{"\"a□\" (0,0) cx=12 latin font=\"Segoe UI\" 12"});
}

TEST_F(TextFallback, TheLinkedFontComesFirstThenTheScriptsThenAny)
{
    EXPECT_EQ(FontOf(u"日"), "Segoe UI") << "no font has it";
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Any Han", {HAN});
    EXPECT_EQ(FontOf(u"日"), "Any Han");
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Malgun Gothic", {HAN});
    desk::InstallFont("Yu Gothic UI", {HAN});
    EXPECT_EQ(FontOf(u"日"), "Any Han") << "of the fonts for Chinese there is none";
    EXPECT_EQ(FontOf(u"の日"), "Yu Gothic UI");
    EXPECT_EQ(FontOf(u"한日"), "Malgun Gothic");
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Linked", {HAN});
    desk::SetRegistryTexts(LINKS, "Segoe UI", {"NOFACE.TTF", "G.TTF,Gone", "L.TTC,Linked,128,96"});
    EXPECT_EQ(FontOf(u"日"), "Linked");
}

TEST_F(TextFallback, WhatWasFoundOutIsRemembered)
{
    desk::InstallFont("Sim Han", {HAN});
    Painted(u"日 \u0915 \U0001F600");
    for (const char* operation : {"RegGetValueW", "EnumFontFamiliesExW", "GetFontUnicodeRanges"}) {
        desk::Fail(operation, 1 << 30);
    }
    EXPECT_EQ(FontOf(u"本"), "Sim Han");
    EXPECT_EQ(FontOf(u"\u0915"), "Segoe UI");
    EXPECT_EQ(FontOf(u"\u0916"), "Segoe UI");
    EXPECT_EQ(FontOf(u"\U0001F601"), "Segoe UI");
    EXPECT_EQ(desk::PendingFaults().size(), 3U) << "none of them was asked again";
    desk::ClearFaults();
}

TEST_F(TextFallback, ATallerFontIsMadeToFitAndStandsOnTheSameLine)
{
    desk::InstallFont("Tall", {HAN}, {150, 50});
    desk::InstallFont("Low", {GREEK}, {80, 10});
    EXPECT_EQ(Painted(u"a日"),
              (Lines{"\"a\" (0,0) cx=6 latin font=\"Segoe UI\" 12", "\"日\" (6,3) cx=3 han font=\"Tall\" 6"}))
        << "9 above the base line, which the line has at 12, and 3 below it, as the line";
    EXPECT_EQ(Painted(u"aβ").back(), "\"β\" (6,3) cx=6 greek font=\"Low\" 12");
    desk::InstallFont("Deep", {{0x2600, 0x26FF}}, {1, 5000});
    EXPECT_EQ(FontOf(u"☕"), "Segoe UI") << "no size of that one fits";
    const gesso::SelectScope byCell(context, CreateFontW(15, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                                         DEFAULT_CHARSET, 0, 0, 0, 0, L"Segoe UI"));
    EXPECT_EQ(Painted(u"aβ").back(), "\"β\" (6,3) cx=6 greek font=\"Low\" 12")
        << "the em height, not the cell's";
    DeleteObject(GetCurrentObject(context, OBJ_FONT));
}

TEST_F(TextFallback, LinesStandWhereTheContextAlignsThem)
{
    desk::InstallFont("Low", {GREEK}, {80, 10});
    const Text text = Prepare(context, u"aβ", 0);
    const auto paintedAt = [&](UINT align) {
        return PaintedSlices([&](HDC hdc) {
                   SetTextAlign(hdc, align);
                   CDrawText::DrawText_TextOut(hdc, 0, 20, text.get());
               })
            .back();
    };
    EXPECT_EQ(paintedAt(TA_TOP), "\"β\" (6,23) cx=6 greek");
    EXPECT_EQ(paintedAt(TA_BASELINE), "\"β\" (6,20) cx=6 greek");
    EXPECT_EQ(paintedAt(TA_BOTTOM), "\"β\" (6,18) cx=6 greek") << "2 less below the base line";
    EXPECT_EQ(Prepare(context, u"a日", 0)->nFontHeight, 15);
}

TEST_F(TextFallback, ACharacterAsAReaderSeesItIsShownByOneFontIfOneHasAllOfIt)
{
    constexpr auto KEYCAP = u"a1\uFE0F\u20E3";
    desk::InstallFont("Marks", {{0x20D0, 0x20FF}});
    EXPECT_EQ(Painted(KEYCAP), (Lines{"\"a1□\" (0,0) cx=18 latin font=\"Segoe UI\" 12",
                                      "\"\u20E3\" (18,0) cx=6 latin font=\"Marks\" 12"}));
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Keys", {{0x20, 0x7E}, {0x20D0, 0x20FF}, {0xFE0F, 0xFE0F}});
    EXPECT_EQ(Painted(KEYCAP), (Lines{"\"a\" (0,0) cx=6 latin font=\"Segoe UI\" 12",
                                      "\"1\uFE0F\u20E3\" (6,0) cx=18 latin font=\"Keys\" 12"}));
    desk::InstallFont("Half", {{0x627, 0x628}});
    desk::InstallFont("Whole", {{0x20, 0x20}, {0x600, 0x6FF}});
    gesso::ForgetFallbackFonts();
    const Lines word = Painted(u"ابپ ا");
    ASSERT_EQ(word.size(), 3U);
    EXPECT_EQ(word[2], "\"پبا\" (12,0) cx=18 arabic rtl font=\"Whole\" 12")
        << "letters that join are not torn";
    EXPECT_EQ(Painted(u"اب☕بپ"), (Lines{"\"پب\" (0,0) cx=12 arabic rtl font=\"Whole\" 12",
                                        "\"□\" (12,0) cx=6 arabic rtl font=\"Segoe UI\" 12",
                                        "\"با\" (18,0) cx=12 arabic rtl font=\"Half\" 12"}))
        << "nor those of a later word";
}

TEST_F(TextFallback, ACharacterThatLiesInTwoItemsIsShownByOneFontToo)
{
    desk::InstallFont("Points", {{0x5B0, 0x5EA}});
    EXPECT_EQ(Painted(u"xa\u05B0"), (Lines{"\"xa\" (0,0) cx=12 latin font=\"Segoe UI\" 12",
                                           "\"\u05B0\" (12,0) cx=6 hebrew rtl font=\"Points\" 12"}));
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Both", {{0x20, 0x7E}, {0x5B0, 0x5EA}});
    EXPECT_EQ(Painted(u"xa\u05B0b"),
              (Lines{"\"x\" (0,0) cx=6 latin font=\"Segoe UI\" 12", "\"a\" (6,0) cx=6 latin font=\"Both\" 12",
                     "\"\u05B0\" (12,0) cx=6 hebrew rtl font=\"Both\" 12",
                     "\"b\" (18,0) cx=6 latin font=\"Segoe UI\" 12"}));
}

TEST_F(TextFallback, LettersThatJoinAreShapedSoWhereTheirFontChanges)
{
    desk::InstallFont("Half", {{0x627, 0x628}});
    desk::InstallFont("Other", {{0x67E, 0x67E}});
    const auto linked = [&](std::u16string_view word) {
        const Text text = Prepare(context, word, 0);
        EXPECT_EQ(text->nItems, 2U);
        EXPECT_EQ(text->pItems[0].a.fLinkAfter, text->pItems[1].a.fLinkBefore);
        return text->pItems[0].a.fLinkAfter && !text->pItems[0].a.fLinkBefore;
    };
    EXPECT_TRUE(linked(u"بپ"));
    EXPECT_FALSE(linked(u"اپ")) << "alef joins nothing behind it";
}

TEST_F(TextFallback, AScriptThatTheFontHasNoTablesForIsShown)
{
    const TextContext tahoma(12, L"Tahoma");
    desk::InstallFont("Tahoma", {LATIN});
    desk::InstallFont("Nirmala UI", {{0x20, 0x20}, {0x900, 0x97F}});
    const Text text = Prepare(tahoma, u"abc \u0928\u092E", 0);
    EXPECT_EQ(Painted(*text).back(), "\"\u0928\u092E\" (24,0) cx=12 devanagari font=\"Nirmala UI\" 12");
}

TEST_F(TextFallback, CharactersThatShowNothingShowNoBox)
{
    desk::InstallFont("Sim Signs", {{0x200B, 0x200F}, {0x2600, 0x26FF}});
    EXPECT_EQ(Painted(u"a\u200Bb").size(), 3U);
    EXPECT_EQ(Painted(u"a\u200Bb")[1], "\"\u200B\" (6,0) cx=6 latin font=\"Sim Signs\" 12");
    EXPECT_EQ(Painted(u"☕\uFE0F")[0], "\"☕\" (0,0) cx=6 latin font=\"Sim Signs\" 12")
        << "a selector that no font has does not keep the sign from its font";
}

TEST_F(TextFallback, AScriptThatNoFontHasTheTablesForIsShownLetterByLetter)
{
    desk::InstallFont("Letters", {{0x901, 0x914}, {0x2600, 0x26FF}});
    EXPECT_EQ(Painted(u"\u0905"), Lines{"\"\u0905\" (0,0) cx=6 neutral font=\"Letters\" 12"});
    EXPECT_EQ(Painted(u"\u0905☕").size(), 1U);
    EXPECT_EQ(Painted(u"a☕").back(), "\"☕\" (6,0) cx=6 latin font=\"Letters\" 12")
        << "what a font cannot do for one script it can for another";
}

TEST_F(TextFallback, AFontIsInstalledByEitherOfItsNames)
{
    desk::InstallFont("Any Han", {HAN});
    desk::InstallFont("Sim Gothic|シム ゴシック", {HAN});
    desk::SetRegistryTexts(LINKS, "Segoe UI", {"G.TTC,Sim Gothic", "N.TTF,Not there"});
    EXPECT_EQ(FontOf(u"日"), "Sim Gothic");
}

TEST_F(TextFallback, TheSignsOfASymbolFontStayItsOwn)
{
    desk::InstallFont("Sim Han", {HAN});
    const gesso::SelectScope symbols(context, CreateFontW(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                                          SYMBOL_CHARSET, 0, 0, 0, 0, L"Segoe UI"));
    EXPECT_EQ(Painted(u"a日").back(), "\"□\" (6,0) cx=6 han font=\"Segoe UI\" 12");
    DeleteObject(GetCurrentObject(context, OBJ_FONT));
}

TEST_F(TextFallback, FontsThatComeAreFoundOnceAControlHears)
{
    const Host host;
    GLabel label;
    label.Create(0, 0, 10, 10, host, 1, L"", 0, WS_CHILD);
    EXPECT_EQ(FontOf(u"日"), "Segoe UI");
    desk::InstallFont("Sim Han", {HAN});
    EXPECT_EQ(FontOf(u"日"), "Segoe UI");
    SendMessageW(label.GetHwnd(), WM_FONTCHANGE, 0, 0);
    EXPECT_EQ(FontOf(u"日"), "Sim Han");
    DestroyWindow(label.GetHwnd());
}

TEST_F(TextFallback, ATextOfWhichNothingIsMissingIsAsInClassic)
{
    constexpr auto PLAIN = u"Plain text, caf\u00E9\r\nand a second line";
    const WithBehavior classic(gesso::Behavior::Classic);
    const Text old = Prepare(context, PLAIN, 60);
    gesso::SetBehavior(gesso::Behavior::Modern);
    const desk::Census before = desk::Live();
    const Text text = Prepare(context, PLAIN, 60);
    EXPECT_EQ(Painted(*text), Painted(*old));
    EXPECT_EQ(BreaksOf(*text), BreaksOf(*old));
    EXPECT_EQ(text->fOneBlock, old->fOneBlock);
    EXPECT_EQ(desk::Live()[desk::Kind::Font], before[desk::Kind::Font]);
}

TEST_F(TextFallback, TextsShareFontsAndAFewAreKeptForTheNextText)
{
    desk::InstallFont("Sim Han", {HAN});
    const desk::Census before = desk::Live();
    const auto fonts = [&] { return desk::Live()[desk::Kind::Font] - before[desk::Kind::Font]; };
    {
        const Text first = Prepare(context, u"日本", 0);
        EXPECT_EQ(fonts(), 1);
        const Text second = Prepare(context, u"語 and 語", 0);
        EXPECT_EQ(fonts(), 1);
        const TextContext larger(20);
        const Text third = Prepare(larger, u"語", 0);
        EXPECT_EQ(fonts(), 3) << "with that of the larger context";
        Painted(*second);
    }
    EXPECT_EQ(fonts(), 2);
    Prepare(context, u"語", 0, DT_CALCRECT);
    EXPECT_EQ(fonts(), 2);
    for (int height = 10; height < 30; ++height) {
        const TextContext other(height);
        Prepare(other, u"語", 0);
    }
    EXPECT_EQ(fonts(), 8);
    desk::Fail("CreateFontIndirectW", 1 << 30);
    const TextContext last(29);
    EXPECT_EQ(Prepare(last, u"a日", 0)->nItems, 2U);
    EXPECT_TRUE(Prepare(last, u"a日", 0)->fOneBlock & ~7U) << "in the font that is still there";
    desk::ClearFaults();
    gesso::ForgetFallbackFonts();
    EXPECT_EQ(fonts(), 1) << "that of the last context";
}

TEST_F(TextFallback, BuffersThatAreMadeByHandHaveTheFontsToo)
{
    desk::InstallFont("Sim Han", {HAN});
    const int fonts = desk::Live()[desk::Kind::Font];
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 0, 0, 0);
    for (const auto* again : {u"a日b", u"日a日"}) {
        text.nChars = text.nGlyphs = 0;
        CDrawText::DrawText_Calculate(context, Wide(again), 3, &text);
        CDrawText::DrawText_Break(Wide(again), 3, 100, &text);
        EXPECT_EQ(CheckText(text), "") << Narrow(Wide(again));
        EXPECT_EQ(text.nItems, 3U);
    }
    const Lines lines = PaintedSlices([&](HDC hdc) { CDrawText::DrawText_TextOut(hdc, 0, 0, &text); }, true);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "\"日\" (0,0) cx=6 han font=\"Sim Han\" 12");
    CDrawText::DrawText_Calculate(context, L"plain", 5, &text);
    EXPECT_EQ(text.nItems, 1U);
    CDrawText::OptimizeBuffer(&text);
    gesso::ForgetFallbackFonts();
    EXPECT_EQ(desk::Live()[desk::Kind::Font], fonts) << "nobody has those of the former text";
}

TEST_F(TextFallback, WithoutMemoryForFontsABufferMadeByHandHasItsOwn)
{
    desk::InstallFont("Sim Han", {HAN});
    const std::u16string mixed = u"日" + std::u16string(400, u'a');
    Prepare(context, mixed, 0); // so that the font is known, and there
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 8, 500, 500);
    {
        const MemoryLimit limit(6'000);
        CDrawText::DrawText_Calculate(context, Wide(mixed), 401, &text);
        EXPECT_GT(limit.Refused(), 0U);
    }
    EXPECT_EQ(text.nChars, 401U);
    EXPECT_EQ(text.nGlyphs, 401U);
    EXPECT_EQ(text.nItems, 2U);
    EXPECT_EQ(text.fOneBlock, 0U);
    text.nChars = text.nGlyphs = 0;
    CDrawText::DrawText_Calculate(context, Wide(mixed), 401, &text);
    EXPECT_NE(text.fOneBlock, 0U) << "once there is memory again";
}

// What a program leaves in the library's own field must not lead behind its arrays.
TEST_F(TextFallback, ArraysThatAProgramMadeHaveNoFontsBehindThem)
{
    HandMadeText text;
    CDrawText::PrepareBuffer(&text, 3, 4, 4);
    CDrawText::DrawText_Calculate(context, L"abcd", 4, &text);
    for (const UINT stray : {8U, 0x48U, 0x1000U, 0x49U}) {
        text.fOneBlock = stray;
        CDrawText::DrawText_TextOut(context, 0, 0, &text);
    }
    text.fOneBlock = 0;
}

TEST_F(TextFallback, LinesMayBreakWhereTheyWouldInOneFont)
{
    desk::InstallFont("Sim Han", {HAN});
    constexpr std::u16string_view TEXT = u"日☕本語 a-☕b 語☕日本";
    const auto softBreaks = [&] {
        const Text text = Prepare(context, TEXT, 31);
        EXPECT_EQ(CheckText(*text), "");
        std::string marks;
        for (UINT n = 0; n < text->nChars; ++n) {
            marks += text->pLogAttr[n].fSoftBreak ? '|' : '.';
        }
        return marks;
    };
    const std::string inParts = softBreaks();
    const WithBehavior classic(gesso::Behavior::Classic);
    EXPECT_EQ(inParts, softBreaks());
    EXPECT_EQ(inParts.substr(0, 4), "..||") << "between ideographs, whichever font the sign beside them has";
}

TEST_F(TextFallback, LinesBreakAcrossFonts)
{
    desk::InstallFont("Sim Han", {HAN});
    desk::InstallFont("Sim Hebrew", {{0x5D0, 0x5EA}});
    const Text text = Prepare(context, u"aa 日本語 bb אבג דהו", 30);
    EXPECT_EQ(CheckText(*text), "");
    EXPECT_EQ(text->nBreaks, 4U);
    const Lines lines = Painted(*text, {0, 0, 30, 100});
    EXPECT_EQ(lines.front(), "\"aa \" (0,0) cx=18 latin font=\"Segoe UI\" 12");
    EXPECT_EQ(lines.back(), "\"והד\" (0,80) cx=18 hebrew rtl font=\"Sim Hebrew\" 12");
}

TEST_F(TextFallback, AnythingMayFailAndTextsStayInOrder)
{
    desk::InstallFont("Sim Han", {{0x20, 0x20}, HAN});
    desk::SetRegistryTexts(LINKS, "Segoe UI", {"L.TTC,Linked"});
    for (const char* operation :
         {"RegGetValueW", "EnumFontFamiliesExW", "GetFontUnicodeRanges", "CreateFontIndirectW",
          "SelectObject", "GetObjectW", "GetCurrentObject", "GetTextFaceW", "GetTextMetricsW",
          "ScriptGetFontProperties", "ScriptShape", "ScriptPlace", "ScriptItemize"})
    {
        for (int skip = 0;; ++skip) {
            gesso::ForgetFallbackFonts();
            const TextContext own; // whose font may be lost
            desk::Fail(operation, 1, 0x80004005, skip);
            const Text text = Prepare(own, u"ab 日本 \U0001F600", 0);
            const bool fired = desk::PendingFaults().empty();
            desk::ClearFaults();
            if (text) {
                EXPECT_EQ(CheckText(*text), "") << operation << skip;
                CDrawText::DrawTextW(own, text.get(), RECT{0, 0, 100, 100});
            }
            if (!fired) {
                EXPECT_GT(skip, 0) << operation << " is never asked";
                break;
            }
            EXPECT_EQ(FontOf(u"日"), "Sim Han")
                << operation << skip << ": a failure that passes is forgotten";
        }
    }
    const Text text = Prepare(context, u"日", 0);
    EXPECT_EQ(PaintedSlices([&](HDC hdc) {
                  desk::Fail("SelectObject");
                  CDrawText::DrawTextW(hdc, text.get(), RECT{0, 0, 90, 90});
              }),
              Lines{})
        << "its glyphs would be others in another font";
}

TEST_F(TextFallback, WithoutMemoryToLookForFontsThereAreBoxes)
{
    desk::InstallFont("Sim Han", {HAN});
    const Text whole = Prepare(context, u"a日", 0); // so that the working space is there
    UINT refused = 0;
    for (size_t largest = 1200; largest > 150; largest -= 50) {
        gesso::ForgetFallbackFonts();
        const MemoryLimit limit(largest);
        const Text text = Prepare(context, u"b日", 0);
        if (text) {
            EXPECT_EQ(CheckText(*text), "");
            refused += text->nItems == 2 && text->fOneBlock == 1;
        }
    }
    EXPECT_GT(refused, 0U);
    EXPECT_EQ(FontOf(u"日"), "Sim Han") << "once there is memory again";
}

TEST_F(TextFallback, WithoutMemoryForFontsATextHasAtLeastItsOwn)
{
    desk::InstallFont("Sim Han", {HAN});
    std::u16string mixed;
    for (int n = 0; n < 20; ++n) {
        mixed += u"b日";
    }
    const Text whole = Prepare(context, mixed, 0); // so that the working space is there
    UINT boxes = 0;
    for (size_t largest = 12000; largest > 1000; largest -= 250) {
        const MemoryLimit limit(largest);
        const auto made = [&](gesso::Behavior behavior) {
            const WithBehavior scope(behavior);
            return Prepare(context, mixed, 0);
        };
        const Text linked = made(gesso::Behavior::Modern);
        const Text plain = made(gesso::Behavior::Classic);
        ASSERT_TRUE(linked || !plain) << largest;
        boxes += linked && linked->fOneBlock == 1;
    }
    EXPECT_GT(boxes, 0U);
}

// A device that does not tell what it is is none of those that do.
TEST_F(TextFallback, WhatOneDeviceHasIsNotLookedUpForAnother)
{
    desk::InstallFont("Sim Han", {HAN});
    EXPECT_EQ(FontOf(u"日"), "Sim Han");
    desk::Fail("GetDeviceCaps", 1000);
    desk::Fail("EnumFontFamiliesExW", 1000);
    EXPECT_NE(FontOf(u"日"), "Sim Han");
    EXPECT_TRUE(desk::PendingFaults().empty());
    desk::ClearFaults();
    EXPECT_EQ(FontOf(u"日"), "Sim Han");
}

TEST_F(TextFallback, AFontThatWasForgottenStaysWithItsTextAlone)
{
    desk::InstallFont("Sim Han", {HAN});
    const Text former = Prepare(context, u"日", 0);
    gesso::ForgetFallbackFonts();
    const Text text = Prepare(context, u"日", 0);
    EXPECT_NE(gesso::FontOfItem(*text, 0), gesso::FontOfItem(*former, 0));
    EXPECT_EQ(Painted(*former), Painted(*text));
}

TEST_F(TextFallback, AMarkThatNoFontHasHidesNoOtherCluster)
{
    constexpr size_t MARKS = 15;
    desk::InstallFont("Marks", {{0x20D0, 0x20D0}});
    desk::InstallFont("Whole", {{0x20D0, 0x20D0}, {0x2615, 0x2615}});
    const std::u16string cluster = u"☕" + std::u16string(MARKS, u'\x20D0');
    EXPECT_GT(Painted(cluster + u'\x20D1').size(), 1U);
    EXPECT_EQ(Painted(cluster).size(), 1U);
    EXPECT_EQ(FontOf(cluster), "Whole");
}

TEST_F(TextFallback, LinesBreakByTheScriptOfEachItem)
{
    desk::InstallFont("Letters", {{0x901, 0x914}, {0x3000, 0x9FFF}});
    desk::Fail("ScriptBreak", 1, ERROR_NOT_ENOUGH_MEMORY, 1);
    const Text text = Prepare(context, u"aअ日", 500);
    ASSERT_EQ(text->nItems, 3U);
    EXPECT_EQ(text->pItems[1].a.eScript, SCRIPT_UNDEFINED);
    EXPECT_EQ(desk::PendingFaults().size(), 0U) << "one for the letter of no script, one behind it";
    desk::ClearFaults();
}

TEST_F(TextFallback, LongTextsOfManyFontsAreDoneInTime)
{
    desk::InstallFont("Sim Han", {HAN});
    desk::InstallFont("Sim Greek", {GREEK});
    std::u16string mixed;
    while (mixed.size() < 60'000) {
        mixed += u"日\u2600β\u2601";
    }
    const std::u16string marks = u"e" + std::u16string(10'000, u'\x0301') + std::u16string(10'000, u'\x20E3');
    std::u16string flags;
    while (flags.size() < 80'000) {
        flags += u"\U0001F1E9\U0001F1EA";
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(CheckText(*Prepare(context, flags, 0, DT_SINGLELINE)), "");
    EXPECT_EQ(CheckText(*Prepare(context, mixed, 0)), "");
    EXPECT_EQ(CheckText(*Prepare(context, marks, 0)), "");
    EXPECT_EQ(CheckText(*Prepare(context, std::u16string(20'000, u'\xD83D'), 0)), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(TextFallback, WhatIsMissingIsFoundBehindGlyphsThatAreNoLongerCounted)
{
    desk::InstallFont("Sim Signs", {{0x2600, 0x26FF}});
    std::u16string text(70'000, u'a');
    text += u"☕a";
    const Text prepared = Prepare(context, text, 0, DT_SINGLELINE);
    ASSERT_EQ(prepared->nItems, 3U);
    EXPECT_EQ(prepared->pItems[1].iCharPos, 70'000);
}

TEST_F(TextFallback, AListShowsWhatItsFontLacks)
{
    desk::InstallFont("Sim Han", {HAN});
    const Host host;
    GList list;
    list.Create(0, 0, 200, 100, host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    list.InsertColumn(0, 0, DT_SINGLELINE, 100, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.InsertItem(0, 0, nullptr, 0, L"x\x65E5", 0);
    const Lines lines = NextPaint(list.GetHwnd(), "ScriptTextOut \"日");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find("font=\"Sim Han\""), std::string::npos) << lines[0];
    DestroyWindow(list.GetHwnd());
}

} // namespace test
