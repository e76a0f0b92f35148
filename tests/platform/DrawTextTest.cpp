// How DrawTextW measures and breaks text, in the units of a font whose characters are equally wide.
#include "../support/Numbers.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

using test::Numbers;

namespace {

class TextDrawing : public testing::Test
{
protected:
    void SetUp() override
    {
        m_hdc = CreateCompatibleDC(nullptr);
        m_font = CreateFontW(-16, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, FIXED_PITCH | FF_MODERN,
                             L"Courier New");
        m_former = SelectObject(m_hdc, m_font);
        SIZE narrow;
        SIZE wide;
        GetTextExtentPoint32W(m_hdc, L"i", 1, &narrow);
        GetTextExtentPoint32W(m_hdc, L"WWWW", 4, &wide);
        ASSERT_EQ(wide.cx, narrow.cx * 4) << "the tests need a font of fixed width";
        m_unit = narrow;
    }

    void TearDown() override
    {
        SelectObject(m_hdc, m_former);
        DeleteObject(m_font);
        DeleteDC(m_hdc);
    }

    /// Measures in a rectangle `columns` wide and gives "columns x lines".
    std::string Measure(const wchar_t* text, int columns, UINT format) const
    {
        RECT rect = {10, 20, 10 + columns * m_unit.cx, 20};
        const int height = DrawTextW(m_hdc, text, -1, &rect, format | DT_CALCRECT);
        EXPECT_EQ(Numbers(rect.left, rect.top), "10,20");
        EXPECT_EQ(height, rect.bottom - rect.top);
        EXPECT_EQ((rect.right - rect.left) % m_unit.cx, 0);
        return std::to_string((rect.right - rect.left) / m_unit.cx) + " x " +
               std::to_string((rect.bottom - rect.top) / m_unit.cy);
    }

    /// Draws in a rectangle and gives what DrawTextW returns.
    int Draw(const wchar_t* text, int height, UINT format) const
    {
        RECT rect = {0, 100, 100 * m_unit.cx, 100 + height};
        return DrawTextW(m_hdc, text, -1, &rect, format);
    }

    HDC m_hdc = nullptr;
    HFONT m_font = nullptr;
    HGDIOBJ m_former = nullptr;
    SIZE m_unit{};
};

} // namespace

TEST_F(TextDrawing, HardBreaksMakeLines)
{
    EXPECT_EQ(Measure(L"one", 0, 0), "3 x 1");
    EXPECT_EQ(Measure(L"one\r\nthree", 0, 0), "5 x 2");
    EXPECT_EQ(Measure(L"one\nthree\rsix", 0, 0), "5 x 3");
    EXPECT_EQ(Measure(L"one\r\n", 0, 0), "3 x 1") << "a break at the end opens no line";
    EXPECT_EQ(Measure(L"\r\none", 0, 0), "3 x 2");
    EXPECT_EQ(Measure(L"a\n\nb", 0, 0), "1 x 3");
}

TEST_F(TextDrawing, WordsBreakOnlyWhenAsked)
{
    EXPECT_EQ(Measure(L"one two three", 8, 0), "13 x 1");
    EXPECT_EQ(Measure(L"one two three", 8, DT_WORDBREAK | DT_SINGLELINE), "13 x 1");
    EXPECT_EQ(Measure(L"one two three", 13, DT_WORDBREAK), "13 x 1");
    EXPECT_EQ(Measure(L"one two three", 8, DT_WORDBREAK), "8 x 2");
    EXPECT_EQ(Measure(L"one two three", 5, DT_WORDBREAK | DT_RIGHT), "5 x 3");
    EXPECT_EQ(Measure(L"one two\r\nthree", 5, DT_WORDBREAK | DT_CENTER), "5 x 3");
}

TEST_F(TextDrawing, AWordWiderThanTheLineIsCutOnlyInEditControls)
{
    EXPECT_EQ(Measure(L"longword", 3, DT_WORDBREAK | DT_EDITCONTROL), "3 x 3");
    EXPECT_EQ(Measure(L"longword", 3, DT_WORDBREAK), "8 x 1");
}

TEST_F(TextDrawing, AmpersandsMarkAccessKeysAndTakeNoRoom)
{
    EXPECT_EQ(Measure(L"&File", 0, 0), "4 x 1");
    EXPECT_EQ(Measure(L"A && B", 0, DT_SINGLELINE), "5 x 1");
    EXPECT_EQ(Measure(L"&File", 0, DT_NOPREFIX), "5 x 1");
    EXPECT_EQ(Measure(L"&File", 0, DT_HIDEPREFIX), "4 x 1");
    EXPECT_EQ(Measure(L"one&", 0, 0), "4 x 1") << "a last ampersand stands for itself";
}

TEST_F(TextDrawing, TabsReachTheNextStopWhenExpanded)
{
    EXPECT_EQ(Measure(L"ab\tc", 0, DT_EXPANDTABS), "9 x 1");
    EXPECT_EQ(Measure(L"\t\tc", 0, DT_EXPANDTABS), "17 x 1");
    DRAWTEXTPARAMS params = {sizeof(params), 4, 0, 0, 0};
    wchar_t text[] = L"ab\tc";
    RECT rect{};
    DrawTextExW(m_hdc, text, -1, &rect, DT_EXPANDTABS | DT_TABSTOP | DT_CALCRECT, &params);
    EXPECT_EQ(rect.right, 5 * m_unit.cx);
    EXPECT_EQ(params.uiLengthDrawn, 4u);
}

TEST_F(TextDrawing, AnEllipsisKeepsTheLineWithinItsRoom)
{
    EXPECT_EQ(Measure(L"abcdefgh", 6, DT_SINGLELINE | DT_END_ELLIPSIS), "6 x 1");
    EXPECT_EQ(Measure(L"abcdef", 6, DT_SINGLELINE | DT_END_ELLIPSIS), "6 x 1");
    EXPECT_EQ(Measure(L"abcdefgh", 6, DT_SINGLELINE), "8 x 1");
}

TEST_F(TextDrawing, EmptyTextHasAHeightButNoWidth)
{
    RECT rect = {5, 5, 90, 90};
    EXPECT_EQ(DrawTextW(m_hdc, L"", -1, &rect, DT_CALCRECT | DT_SINGLELINE), m_unit.cy);
    EXPECT_EQ(Numbers(rect), "5,5," + Numbers(5, 5 + m_unit.cy));
    rect = {5, 5, 90, 90};
    DrawTextW(m_hdc, L"", -1, &rect, DT_CALCRECT);
    EXPECT_EQ(Numbers(rect), "5,5,5,5");
    EXPECT_EQ(DrawTextW(m_hdc, nullptr, -1, &rect, 0), 0);
}

TEST_F(TextDrawing, RectanglesReachToTheEndsOfTheCoordinates)
{
    RECT rect = {INT_MIN, 0, INT_MAX, 10};
    EXPECT_EQ(DrawTextW(m_hdc, L"ab", 2, &rect, DT_CALCRECT | DT_WORDBREAK), m_unit.cy);
    EXPECT_EQ(rect.right, INT_MIN + 2 * m_unit.cx);
    rect = {INT_MAX - 2, INT_MAX - 2, INT_MAX, INT_MAX};
    EXPECT_EQ(DrawTextW(m_hdc, L"ab", 2, &rect, DT_CALCRECT), m_unit.cy);
    EXPECT_EQ(rect.right, INT_MIN + 2 * m_unit.cx - 3) << "it goes round";
    DRAWTEXTPARAMS wide{sizeof(wide), INT_MAX, INT_MAX, INT_MAX, 0};
    wchar_t text[] = L"a\tb";
    rect = {0, 0, 100, 100};
    EXPECT_EQ(DrawTextExW(m_hdc, text, 3, &rect, DT_CALCRECT | DT_EXPANDTABS | DT_TABSTOP, &wide), m_unit.cy);
}

TEST_F(TextDrawing, CountsAreHonoured)
{
    RECT rect{};
    DrawTextW(m_hdc, L"abcdef", 4, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.right, 4 * m_unit.cx);
}

TEST_F(TextDrawing, DrawingReturnsTheEndOfTheText)
{
    const int line = m_unit.cy;
    EXPECT_EQ(Draw(L"one\ntwo\nthree", 10 * line, 0), 3 * line);
    EXPECT_EQ(Draw(L"one\ntwo\nthree", 2 * line, 0), 2 * line + line) << "a line that is cut still counts";
    EXPECT_EQ(Draw(L"one\ntwo\nthree", line / 2, 0), line);
    EXPECT_EQ(Draw(L"one\ntwo\nthree", line / 2, DT_NOCLIP), 3 * line);
    EXPECT_EQ(Draw(L"one", 4 * line, DT_SINGLELINE | DT_BOTTOM), 4 * line);
    EXPECT_EQ(Draw(L"one", 5 * line, DT_SINGLELINE | DT_VCENTER), 5 * line / 2 - line / 2 + line);
}
