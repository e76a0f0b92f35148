// Prepared texts whose arrays are refused.
#include "../FreshDesktop.h"
#include "LongText.h"

#include <gesso/framework/DrawScope.h>
#include <gesso/text/CDrawText.h>

#include <gtest/gtest.h>

using test::LongText;
using test::MemoryLimit;

namespace {

constexpr LPCWSTR SHORT_TEXT = L"short text";
constexpr UINT SHORT_LENGTH = 10;

class DrawTextMemoryTest : public testing::Test
{
protected:
    // One that was built by hand, of the short text in one line.
    stcDrawTextBuffer ShortBuffer() const
    {
        stcDrawTextBuffer buffer{};
        CDrawText::PrepareBuffer(&buffer, 3, SHORT_LENGTH, SHORT_LENGTH);
        CDrawText::DrawText_Calculate(m_hdc, SHORT_TEXT, SHORT_LENGTH, &buffer);
        CDrawText::DrawText_Break(SHORT_TEXT, SHORT_LENGTH, 1000, &buffer);
        return buffer;
    }
    void Paint(stcDrawTextBuffer& buffer) const
    {
        CDrawText::DrawText_TextOut_Break(m_hdc, {0, 0, 100, 100}, &buffer);
        CDrawText::DrawText_TextOut(m_hdc, 0, 0, &buffer);
    }

    test::FreshDesktop m_desktop;
    gesso::MemoryContext m_hdc;
};

} // namespace

TEST_F(DrawTextMemoryTest, ATextThatCannotBePreparedHasNoHandle)
{
    // The longest needs more than the working space has of any text before.
    for (const UINT nLength : {LongText::LENGTH, 20 * LongText::LENGTH}) {
        const LongText text(nLength);
        for (const UINT uFormat : {UINT{DT_LEFT}, UINT{DT_SINGLELINE}}) {
            RECT rc{0, 0, 200, 100};
            UINT nLines = 7;
            const MemoryLimit limit;
            void* hText = CDrawText::DrawText_Prepare(m_hdc, text, -1, &rc, uFormat, 18, &nLines);
            EXPECT_EQ(hText, reinterpret_cast<void*>(intptr_t{-1}));
            EXPECT_EQ(CDrawText::DrawTextW(m_hdc, text, -1, rc, uFormat, 18, &nLines), E_FAIL);
            EXPECT_EQ(rc.right, 200);
            EXPECT_EQ(rc.bottom, 100);
            EXPECT_EQ(nLines, 7u);
            EXPECT_GT(limit.Refused(), 0u);
        }
    }
    void* hText = CDrawText::DrawText_Prepare(m_hdc, LongText(), -1, nullptr, 0, 18, nullptr);
    EXPECT_EQ(static_cast<stcDrawTextBuffer*>(hText)->nChars, LongText::LENGTH);
    CDrawText::DrawText_CloseHandle(hText);
}

TEST_F(DrawTextMemoryTest, ABufferOfALongTextHasNoItemsAndTakesAnother)
{
    const LongText text;
    stcDrawTextBuffer buffer{};
    {
        const MemoryLimit limit;
        CDrawText::PrepareBuffer(&buffer, 3, LongText::LENGTH, LongText::LENGTH);
        EXPECT_EQ(buffer.nCharsAlloc, 0u);
        CDrawText::DrawText_Calculate(m_hdc, text, LongText::LENGTH, &buffer);
        EXPECT_EQ(buffer.nItems, 0u);
        EXPECT_EQ(buffer.nChars, 0u);
        EXPECT_EQ(buffer.nGlyphs, 0u);
        Paint(buffer);
        CDrawText::DrawText_Calculate(m_hdc, SHORT_TEXT, SHORT_LENGTH, &buffer);
        EXPECT_EQ(buffer.nChars, SHORT_LENGTH);
    }
    Paint(buffer);
    CDrawText::FreeBuffer(&buffer);
}

TEST_F(DrawTextMemoryTest, ABufferKeepsWhatItHoldsWithoutMemoryForAnother)
{
    const LongText text;
    stcDrawTextBuffer buffer = ShortBuffer();
    {
        const MemoryLimit limit;
        CDrawText::DrawText_Calculate_Optimized(m_hdc, text, LongText::LENGTH, &buffer);
        EXPECT_EQ(buffer.nItems, 1u);
        EXPECT_EQ(buffer.nChars, SHORT_LENGTH);
    }
    Paint(buffer);
    CDrawText::DrawText_Calculate_Optimized(m_hdc, text, LongText::LENGTH, &buffer);
    EXPECT_EQ(buffer.nChars, LongText::LENGTH);
    {
        const MemoryLimit limit;
        CDrawText::DrawText_Break(text, LongText::LENGTH, 1, &buffer);
        EXPECT_EQ(buffer.nBreaks, 0u) << "those of the short text";
        const WORD* pGlyphs = buffer.pGlyphs;
        CDrawText::OptimizeBuffer(&buffer);
        EXPECT_EQ(buffer.pGlyphs, pGlyphs);
        EXPECT_EQ(buffer.pItems[0].iCharPos, 0);
        CDrawText::DrawText_Calculate(m_hdc, SHORT_TEXT, SHORT_LENGTH, &buffer);
        EXPECT_EQ(buffer.nItems, 0u) << "its arrays cannot be parted to grow";
        EXPECT_EQ(buffer.nChars, LongText::LENGTH);
        Paint(buffer);
    }
    CDrawText::DrawText_Break(text, LongText::LENGTH, 1, &buffer);
    CDrawText::OptimizeBuffer(&buffer);
    CDrawText::FreeBuffer(&buffer);
}

TEST_F(DrawTextMemoryTest, WhicheverArrayIsRefusedTheBufferTakesAnotherText)
{
    static constexpr wchar_t MIXED[] = L"a \x05D0 b \x05D1 c \x05D2 d e f g h i j \x05D3 k l m n";
    constexpr UINT LENGTH = std::size(MIXED) - 1;
    struct
    {
        UINT nItems, nChars, nGlyphs;
    } const rows[] = {{3, 1, 1}, {3, LENGTH, LENGTH}, {200, 1, 1}, {3, 200, 1}, {3, 1, 200}};
    for (size_t cbLargest = 72; cbLargest < 2400; cbLargest += 12) {
        for (const auto& row : rows) {
            stcDrawTextBuffer buffer{};
            {
                const MemoryLimit limit(cbLargest);
                CDrawText::PrepareBuffer(&buffer, row.nItems, row.nChars, row.nGlyphs);
                CDrawText::DrawText_Calculate(m_hdc, MIXED, LENGTH, &buffer);
                CDrawText::DrawText_Break(MIXED, LENGTH, 1, &buffer);
                CDrawText::OptimizeBuffer(&buffer);
                EXPECT_TRUE(buffer.nChars == 0 || buffer.nChars == LENGTH) << cbLargest;
            }
            Paint(buffer);
            CDrawText::FreeBuffer(&buffer);
            CDrawText::PrepareBuffer(&buffer, row.nItems, row.nChars, row.nGlyphs);
            CDrawText::DrawText_Calculate(m_hdc, SHORT_TEXT, SHORT_LENGTH, &buffer);
            EXPECT_EQ(buffer.nChars, SHORT_LENGTH) << cbLargest;
            CDrawText::FreeBuffer(&buffer);
        }
    }
    stcDrawTextBuffer buffer{};
    CDrawText::PrepareBuffer(&buffer, 3, 1, 1);
    CDrawText::DrawText_Calculate(m_hdc, MIXED, LENGTH, &buffer);
    for (size_t cbLargest = 12; cbLargest < 2400; cbLargest += 12) {
        for (UINT nChars = 1; nChars <= LENGTH; ++nChars) {
            const MemoryLimit limit(cbLargest);
            CDrawText::DrawText_Break(MIXED, nChars, 1, &buffer);
            CDrawText::OptimizeBuffer(&buffer);
        }
        Paint(buffer);
        EXPECT_EQ(buffer.nChars, LENGTH) << cbLargest;
    }
    CDrawText::FreeBuffer(&buffer);
}