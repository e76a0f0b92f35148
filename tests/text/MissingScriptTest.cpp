// Texts in a script that the font has no way to show.

#include "TextSupport.h"

#include <gtest/gtest.h>

#include <array>

namespace test {
namespace {

const std::u16string_view UNSHOWN = u"\u0928\u092E\u0938\u094D\u0924\u0947";

// The font is chosen for what it lacks; the test says so itself where a system's Tahoma has the script.
class TextMissingScript : public testing::Test
{
protected:
    void SetUp() override
    {
        std::array<SCRIPT_ITEM, 8> items{};
        int count = 0;
        const int length = static_cast<int>(UNSHOWN.size());
        ASSERT_EQ(ScriptItemize(Wide(UNSHOWN), length, 7, nullptr, nullptr, items.data(), &count), S_OK);
        std::array<WORD, 64> glyphs{};
        std::array<WORD, 64> clusters{};
        std::array<SCRIPT_VISATTR, 64> attributes{};
        SCRIPT_CACHE cache = nullptr;
        ASSERT_EQ(ScriptShape(hdc, &cache, Wide(UNSHOWN), length, 64, &items[0].a, glyphs.data(),
                              clusters.data(), attributes.data(), &count),
                  USP_E_SCRIPT_NOT_IN_FONT);
        ScriptFreeCache(&cache);
    }

    std::vector<WORD> GlyphsBehind(std::u16string_view former, std::u16string_view text)
    {
        Prepare(hdc, former, 0, DT_SINGLELINE);
        const Text prepared = Prepare(hdc, text, 0, DT_SINGLELINE);
        EXPECT_EQ(CheckText(*prepared), "");
        CDrawText::DrawTextW(hdc, prepared.get(), RECT{0, 0, 500, 50});
        return {prepared->pGlyphs, prepared->pGlyphs + prepared->nGlyphs};
    }

    const TextContext hdc{12, L"Tahoma"};
};

} // namespace

TEST_F(TextMissingScript, BoxesStandForItAndNoEarlierTextIsSeen)
{
    const auto boxes = GlyphsBehind(u"hunter2-secret", UNSHOWN);
    EXPECT_EQ(boxes, std::vector<WORD>(UNSHOWN.size(), WORD())) << "a missing glyph's index is zero";

    const Text text = Prepare(hdc, UNSHOWN, 0, DT_SINGLELINE);
    ASSERT_EQ(text->nItems, 1U);
    EXPECT_EQ(text->pItems[0].a.eScript, SCRIPT_UNDEFINED) << "it is painted as it was shaped";
    EXPECT_GT(text->pAdvance[0], 0) << "boxes are seen";
    EXPECT_GT(text->pRuns[0].abc.abcB, 0U);
}

TEST_F(TextMissingScript, TheTextAroundItIsShown)
{
    const std::u16string mixed = u"abc " + std::u16string(UNSHOWN) + u"\r\nxyz";
    const auto glyphs = GlyphsBehind(u"of quite another text", mixed);
    ASSERT_EQ(glyphs.size(), mixed.size());
    const auto latin = GlyphsBehind(u"", u"abc xyz");
    EXPECT_TRUE(std::equal(latin.begin(), latin.begin() + 3, glyphs.begin()));
    EXPECT_TRUE(std::equal(latin.end() - 3, latin.end(), glyphs.end() - 3));
    EXPECT_EQ(std::vector<WORD>(glyphs.begin() + 4, glyphs.begin() + 10), std::vector<WORD>(6, WORD()));

    HandMadeText own;
    CDrawText::PrepareBuffer(&own, 0, 0, 0);
    CDrawText::DrawText_Calculate(hdc, Wide(mixed), static_cast<UINT>(mixed.size()), &own);
    EXPECT_EQ(std::vector<WORD>(own.pGlyphs, own.pGlyphs + own.nGlyphs), glyphs);
}

} // namespace test
