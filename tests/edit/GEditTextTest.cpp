// The text, the table of its lines, and how they wrap.

#include "../support/AllowMisuse.h"
#include "EditFixture.h"

namespace {

using namespace test;

class GEditTextTest : public EditFixture
{
protected:
    std::string LinesOf(LPCWSTR psz)
    {
        edit.SetText(psz);
        EXPECT_EQ(edit.Fault(), "");
        return edit.Lines();
    }
    std::pair<int, int> Highlight(UINT nLine) const
    {
        int nFrom = -1;
        int nTo = -1;
        edit.CalcHighliteOfLine(nFrom, nTo, nLine);
        return {nFrom, nTo};
    }
};

TEST_F(GEditTextTest, TextOfCreationIsOneLineUntilItIsSet)
{
    EXPECT_EQ(edit.Lines(), "|") << "a new object has one empty line";
    edit.Create(0, 0, 50, 50, host, ID, L"a\r\nb c", WS_CHILD, 0);
    EXPECT_EQ(edit.Lengths(), std::vector<UINT>{6});
    EXPECT_EQ(edit.Caret(), "0,0");
    edit.SetText(L"a\r\nb");
    EXPECT_EQ(edit.Lines(), "a/|b|");
    edit.Destroy();
    EXPECT_EQ(edit.GetTextLength(), 0) << "the text goes with the window";
    edit.Create(0, 0, 50, 50, host, ID, nullptr, WS_CHILD, 0);
    EXPECT_EQ(edit.Lines(), "|");
}

TEST_F(GEditTextTest, EveryKindOfLineEndIsStoredAsTwoCharacters)
{
    Make(20);
    EXPECT_EQ(LinesOf(L"a\nb"), "a/|b|");
    EXPECT_EQ(edit.GetTextLength(), 4);
    EXPECT_EQ(TextOf(edit), "a\r\nb");
    EXPECT_EQ(LinesOf(L"a\rb\n\rc\r\n"), "a/|b/|/|c/||");
    EXPECT_EQ(edit.Caret(), "4,0");
    EXPECT_EQ(LinesOf(nullptr), "|");
    EXPECT_EQ(LinesOf(L"own text\n"), "own text/||");
    EXPECT_EQ(LinesOf(edit.Text()), "own text/||") << "its own text, too";
    EXPECT_EQ(host.TakeReports(), Reports{}) << "setting is not told";
}

TEST_F(GEditTextTest, LinesWrapBehindTheLastSpaceThatFits)
{
    Make(10);
    EXPECT_EQ(LinesOf(L"one two three four"), "one two |three four|");
    EXPECT_EQ(LinesOf(L"a\tb\tcdefghijkl"), "a\tb\tcdefgh|ijkl|") << "only the space is one";
    Resize(10, 0);
    EXPECT_EQ(LinesOf(L"abcdefghij klm"), "abcdefghij| klm|")
        << "exactly as wide fits, and the space does not";
}

TEST_F(GEditTextTest, PopupKeepsItsLines)
{
    Make(5, 3, WS_POPUP | ES_MULTILINE);
    SetWindowLongW(edit, GWL_STYLE, GetWindowLongW(edit, GWL_STYLE) | static_cast<LONG>(WS_POPUP));
    EXPECT_EQ(LinesOf(L"one two three\nfour"), "one two three/|four|");
    EXPECT_EQ(edit.RecalculateLine(0), 0);
}

TEST_F(GEditTextTest, ALineTooNarrowForACharacterKeepsAllTextAndEnds)
{
    Make(10);
    edit.MoveWindow(0, 0, Column() - 1, 100);
    EXPECT_EQ(LinesOf(L"abc\nde"), "|abc/||de|");
    EXPECT_EQ(TextOf(edit), "abc\r\nde");
    Type(L"xy");
    Char(VK_BACK);
    Char(VK_RETURN);
    Type(L"z");
    EXPECT_EQ(edit.Fault(), "");
    EXPECT_EQ(TextOf(edit), "abc\r\ndex\r\nz");
    EXPECT_LE(edit.Lengths().size(), 7u) << "edits do not pile up empty lines";
    edit.MoveWindow(0, 0, 0, 100);
    EXPECT_EQ(LinesOf(L"abc\nde"), "|abc/||de|");
    Resize(10);
    EXPECT_EQ(LinesOf(edit.Text()), "abc/|de|");
}

TEST_F(GEditTextTest, OneLineHandsOnWhatDoesNotFitAndTakesWhatDoes)
{
    Make(10);
    edit.SetText(L"abcd efgh\nij");
    Resize(6);
    EXPECT_EQ(edit.RecalculateLine(0), 1);
    EXPECT_EQ(edit.Lines(), "abcd |efgh/|ij|") << "the end of a paragraph gets a line of its own";
    EXPECT_EQ(edit.RecalculateLine(0), 1) << "it has room, though nothing moves";
    Resize(5, 0);
    EXPECT_EQ(edit.RecalculateLine(0), 0) << "exactly as wide";
    Resize(2);
    EXPECT_EQ(edit.RecalculateLine(0), 1);
    EXPECT_EQ(edit.Lines(), "ab|cd efgh/|ij|") << "otherwise the next line gets it";
    Resize(20);
    EXPECT_EQ(edit.RecalculateLine(0), 1);
    EXPECT_EQ(edit.Lines(), "abcd efgh/|ij|");
    // A single character that does not fit moves on.
    edit.SetText(L"a");
    edit.MoveWindow(0, 0, Column() - 1, 100);
    EXPECT_EQ(edit.RecalculateLine(0), 1);
    EXPECT_EQ(edit.Lines(), "|a|");
    EXPECT_EQ(edit.Caret(), "0,1-1,1") << "the caret moves with its character, the anchor stays";
}

TEST_F(GEditTextTest, WordBreaksCountFromTheLineEnd)
{
    Make(30);
    for (const auto& [pszText, nStep] :
         {std::pair(L"one two three", -5), {L"one ", -1}, {L"word", -1}, {L" word", -4}, {L"w", -1}})
    {
        edit.SetText(pszText);
        EXPECT_EQ(edit.LeftWordBreak(0, 0), nStep) << Narrow(pszText);
    }
    edit.SetText(L"one two three");
    Resize(5);
    edit.SetText(edit.Text());
    ASSERT_EQ(edit.Lines(), "one |two |three|");
    EXPECT_EQ(edit.RightWordBreak(0, 0), 4) << "\"two \"";
    EXPECT_EQ(edit.RightWordBreak(1, 4), 5) << "\"three\"";
    edit.SetText(L"one  x");
    ASSERT_EQ(edit.Lines(), "one  |x|");
    EXPECT_EQ(edit.RightWordBreak(0, 0), 1);
    edit.SetText(L"one two\nx y");
    EXPECT_EQ(edit.RightWordBreak(0, 0), 7) << "the word goes on behind a line end";
}

TEST_F(GEditTextTest, LengthsAndOffsetsCountLineEndsOnce)
{
    Make(5);
    edit.SetText(L"one two\n\nx");
    ASSERT_EQ(edit.Lines(), "one |two/|/|x|");
    EXPECT_EQ(edit.LengthOfLine(0, 0), 4u);
    EXPECT_EQ(edit.LengthOfLine(1, 4), 5u);
    EXPECT_EQ(edit.OffsetOfLine(3), 11u);
    EXPECT_EQ(edit.OffsetOfLine(0), 0u);
}

TEST_F(GEditTextTest, EditsOfADerivedClassAreMadeAtTheCaret)
{
    Make(20);
    edit.SetText(L"first\nsecond");
    edit.Select(0, 1, 0, 3);
    edit.DeleteSelection();
    EXPECT_EQ(edit.Lines() + edit.Caret(), "fst/|second|0,1");
    edit.InsertBreak(0, 0);
    EXPECT_EQ(edit.Lines() + edit.Caret(), "f/|st/|second|0,1-1,0");
    edit.DeleteBreak(1, 3);
    EXPECT_EQ(edit.Lines() + edit.Caret(), "fst/|second|0,1");
    const AllowMisuse allowed;
    edit.DeleteBreak(0, 0);
    EXPECT_EQ(edit.LengthOfLine(2, 0), 0u);
    EXPECT_EQ(edit.DoesFitLine(2), 0);
    EXPECT_EQ(edit.LeftWordBreak(2, 0), 0);
    EXPECT_EQ(edit.RightWordBreak(2, 0), 0);
    EXPECT_EQ(edit.RecalculateLine(2), 0);
    EXPECT_EQ(edit.Lines(), "fst/|second|") << "where there is no such line nothing is done";
    const ProbeEdit& self = edit;
    edit = self;
    EXPECT_EQ(edit.Lines(), "fst/|second|");
}

TEST_F(GEditTextTest, SetSelSelectsInOneLineAndRunsDownSeveral)
{
    Make(20);
    edit.SetText(L"hello");
    edit.SetSel(1, 3);
    EXPECT_EQ(edit.Caret(), "0,1-0,3");
    edit.SetSel(0, -1);
    EXPECT_EQ(edit.Caret(), "0,0-0,5");
    SendMessageW(edit, EM_SETSEL, 9, 2);
    EXPECT_EQ(edit.Caret(), "0,5-0,2");
    // With several lines, numbers below the first line's length run down the lines and become negative.
    edit.SetText(L"hello\nbye\nx");
    edit.SetSel(5, 99);
    EXPECT_EQ(edit.Caret(), "0,5");
    edit.SetSel(2, -1);
    EXPECT_EQ(edit.Caret(), "2,-6-0,5");
    EXPECT_EQ(Highlight(2), std::pair(0, 0)) << "where text is touched they count as 0";
    Char(L'!');
    EXPECT_EQ(TextOf(edit), "hello!x");
}

TEST_F(GEditTextTest, HighlightCoversWhatLiesBetweenBothEnds)
{
    Make(20);
    edit.SetText(L"first\nsecond\nthird");
    edit.Select(0, 2, 2, 3);
    EXPECT_EQ(Highlight(0), std::pair(2, 5));
    EXPECT_EQ(Highlight(1), std::pair(0, 6));
    EXPECT_EQ(Highlight(2), std::pair(0, 3));
    edit.Select(1, 4, 1, 1);
    EXPECT_EQ(Highlight(0), std::pair(0, 0));
    EXPECT_EQ(Highlight(1), std::pair(1, 4)) << "the caret may come first";
    EXPECT_EQ(Highlight(2), std::pair(0, 0));
}

TEST_F(GEditTextTest, FitIsBelowTheClientAreaAndNotUpToIt)
{
    Make(5, 2);
    edit.SetText(L"abcd");
    EXPECT_TRUE(edit.DoesFitLine(0));
    Resize(4, 0);
    EXPECT_FALSE(edit.DoesFitLine(0));
    Resize(5, 1, 2);
    edit.SetText(L"a\nb");
    EXPECT_TRUE(edit.DoesFitHeight());
    edit.MoveWindow(0, 0, 100, 2 * Row());
    EXPECT_FALSE(edit.DoesFitHeight());
}

} // namespace
