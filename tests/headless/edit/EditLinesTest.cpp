// The text of an edit field, its lines and how they wrap, without a window.

#include "LineModel.h"

#include <gesso/edit/GEdit.h>
#include <gesso/edit/LineRows.h>

#include <cstring>

namespace {

using namespace test;
using gesso::Place;

TEST(EditLines, WrapBehindTheLastSpaceThatFits)
{
    const struct
    {
        LPCWSTR pszText;
        int nMore; // pixels beyond ten columns
        const char* pszLines;
        const char* pszWhy;
    } rows[] = {
        {L"one two three four five\nsix", 1, "one two |three |four five/|six|", "words"},
        {L"abcdefghijklmno pq", 1, "abcdefghij|klmno pq|", "a word wider than the line"},
        {L"abc     defghijk", 1, "abc     |defghijk|", "spaces stay with the word before"},
        {L"abc defghi jkl", 1, "abc |defghi jkl|", "the space at the end counts as wide as any character"},
        {L"abcdefghij klm", 0, "abcdefghij| klm|", "exactly as wide fits, and the space does not"},
        {L"abcdefghijk", 0, "abcdefghij|k|", "one more does not"},
        {L"a\rb\n\rc\r\n", 1, "a/|b/|/|c/||", "every kind of line end is one"},
    };
    for (const auto& row : rows) {
        const LineModel model(row.pszText, Columns(10, row.nMore));
        EXPECT_EQ(model.Shown(), row.pszLines) << row.pszWhy;
    }
    EXPECT_EQ(LineModel(L"abc\nde", Columns(0)).Shown(), "|abc/||de|") << "not even one character fits";
}

TEST(EditLines, EditsWrapTheirParagraphAnew)
{
    const struct
    {
        LPCWSTR pszText;
        Place caret;
        LPCWSTR pszTyped; // \b is Backspace, \x7F Delete
        const char* pszNow;
        const char* pszWhy;
    } rows[] = {
        {L"one two three four five six seven",
         {0, 3},
         L"xxx",
         "onexxx |two three |four five |six seven| 0,6",
         "words move on from line to line"},
        {L"one two three four five six seven",
         {0, 3},
         L"xxx\b\b\b",
         "one two |three |four five |six seven| 0,3",
         "and back again"},
        {L"one twothree", {1, 3}, L" ", "one two |three| 1,0", "the head of a long word moves up"},
        {L"", {0, 0}, L"one two thr", "one two |thr| 1,3", "the caret stands on the lower line"},
        {L"one two thr", {1, 0}, L"\b", "one twothr| 0,7", "the wrapped line's last character goes"},
        {L"aaa bbbbb ccc", {0, 10}, L"x", "aaa bbbbb |xccc| 1,1", "typed at the end of a wrapped line"},
        {L"one two three", {0, 8}, L"\x7F", "one two |hree| 1,0", "at a wrap, the lower line's first one"},
        {L"aaaa bbbb cc\ndd ee\nff",
         {0, 5},
         L"\x7F\x7F\x7F\x7F\x7F",
         "aaaa cc/|dd ee/|ff| 0,5",
         "paragraphs do not run into one another"},
        {L"aaaa bbbb c\nd", {1, 1}, L"\b", "aaaa bbbb /|d| 0,10", "a wrapped line without characters goes"},
        {L"aaaa bbbb c\nd", {1, 0}, L"\x7F", "aaaa bbbb /|d| 0,10", "the caret stays in its paragraph"},
        {L"ab\ncd", {1, 0}, L"\b", "abcd| 0,2", "Backspace joins lines"},
        {L"ab\ncd\nef", {0, 2}, L"\x7F", "abcd/|ef| 0,2", "as Delete does, if they are equally long"},
        {L"abc", {0, 1}, L"\x7F", "ac| 0,1", "the next character"},
    };
    const Columns columns(10);
    for (const auto& row : rows) {
        LineModel model(row.pszText, columns);
        Place caret = row.caret;
        for (LPCWSTR psz = row.pszTyped; *psz; ++psz) {
            if (*psz == 0x7F) {
                model.lines.RemoveBehind(&caret);
            } else {
                caret = *psz == L'\b' ? model.lines.RemoveBefore(caret) : model.lines.InsertChar(caret, *psz);
            }
            caret = model.lines.Repair(columns, caret);
        }
        EXPECT_EQ(model.Shown() + " " + Shown(caret), row.pszNow) << row.pszWhy;
    }
}

TEST(EditLines, AWrapHasTwoPlacesAndStepsPassItAsOne)
{
    const LineModel model(L"one two three\nx", Columns(10)); // "one two |three/|x|"
    const gesso::EditLines& lines = model.lines;
    EXPECT_EQ(lines.OffsetOf({0, 8}), lines.OffsetOf({1, 0}));
    EXPECT_EQ(Shown(lines.PlaceAt(8)), "1,0") << "the lower one";
    EXPECT_EQ(Shown(lines.PlaceAt(13)), "1,5") << "a line end is no wrap";
    EXPECT_EQ(Shown(lines.Behind({0, 8})), "1,1");
    EXPECT_EQ(Shown(lines.Before({1, 0})), "0,7");
    EXPECT_EQ(Shown(lines.Behind({1, 5})), "2,0");
    EXPECT_EQ(Shown(lines.Before({2, 0})), "1,5");
    EXPECT_EQ(Shown(lines.Behind(lines.End())), "2,1");
    EXPECT_EQ(Shown(lines.Before({0, 0})), "0,0");
    EXPECT_EQ(Shown(lines.Limited({7, 9})), "2,1");
    EXPECT_EQ(Shown(lines.Limited({1, static_cast<UINT>(-6)})), "1,0") << "a negative character is the first";
}

// Whatever the line gave to the next ones or took from them, all of it is back.
TEST(EditLines, ACharacterThatIsTakenBackLeavesEveryLineAsItWas)
{
    for (const LPCWSTR pszText : {L"one two three four five six", L"abcdefghijklmnopq", L"aa bb\ncc dd\n\nee",
                                  L"a b c d e f g h i j k l m n", L""})
    {
        for (UINT nColumns = 0; nColumns < 12; ++nColumns) {
            const LineModel before(pszText, Columns(nColumns));
            for (UINT nOffset = 0; nOffset <= before.lines.TextLength(); ++nOffset) {
                LineModel model(pszText, Columns(nColumns));
                const Place place = model.lines.PlaceAt(nOffset);
                // Narrower, so that there is more to do.
                gesso::TypedChar typed(model.lines, place, nOffset % 2 ? L' ' : L'x');
                model.lines.Repair(Columns(nColumns - nColumns / 2), typed.Behind());
                wchar_t chRefused = L'?';
                EXPECT_EQ(Shown(typed.TakeBack(&chRefused)), Shown(place));
                EXPECT_EQ(model.Shown(), before.Shown()) << nColumns << " columns, at " << nOffset;
                EXPECT_EQ(chRefused, 0);
            }
        }
    }
}

TEST(EditLines, ACharacterOfTwoHalvesIsTakenBackAsAWhole)
{
    LineModel model(L"ab");
    const Place place = model.lines.InsertChar({0, 1}, 0xD83D);
    wchar_t chRefused = 0;
    EXPECT_EQ(Shown(gesso::TypedChar(model.lines, place, 0xDE00).TakeBack(&chRefused)), "0,1");
    EXPECT_EQ(model.Shown(), "ab|");
    EXPECT_EQ(chRefused, 0) << "both halves came";
    EXPECT_EQ(Shown(gesso::TypedChar(model.lines, {0, 1}, 0xD83D).TakeBack(&chRefused)), "0,1");
    EXPECT_EQ(model.Shown(), "ab|");
    EXPECT_EQ(chRefused, 0xD83D) << "the second half is still to come";
}

TEST(EditLines, AnEditMeasuresTheLinesThatItChanges)
{
    OStringEx<wchar_t> text;
    for (int i = 0; i < 1000; ++i) {
        text.Insert(text.GetLength(), L"one two three\n", 14);
    }
    const Columns columns(10);
    LineModel model(text, columns);
    ASSERT_EQ(model.lines.Count(), 2001u);
    columns.nMeasured = 0;
    const Place caret = model.lines.Repair(columns, model.lines.InsertChar({4, 1}, L'x'));
    EXPECT_EQ(Shown(caret), "4,2");
    EXPECT_LT(columns.nMeasured, 20);
    const Columns narrower(8);
    model.lines.Repair(narrower, caret);
    EXPECT_GT(narrower.nMeasured, 2000) << "in another width all that follows is measured";
    EXPECT_EQ(model.lines.Length(4), 5u);
}

TEST(EditLines, CheckFindsLinesThatAreNotTheText)
{
    LineModel model(L"ab\ncd");
    EXPECT_TRUE(model.lines.Check());
    ++model.table[1];
    EXPECT_FALSE(model.lines.Check()) << "longer than the text";
    model.table[1] = 1;
    EXPECT_FALSE(model.lines.Check()) << "shorter";
    model.table.RemoveAll();
    EXPECT_FALSE(model.lines.Check()) << "no line";
    model.table.Add(UINT(-1));
    EXPECT_FALSE(model.lines.Check()) << "beyond all";
}

TEST(EditLines, RowsFollowOneAnotherAsFarAsNumbersGo)
{
    const gesso::LineRows rows{3, 15};
    for (const UINT nLine : {0u, 1u, 7u}) {
        EXPECT_EQ(rows.LineAt(rows.TopOf(nLine), 8), nLine);
        EXPECT_EQ(rows.LineAt(rows.TopOf(nLine + 1) - 1, 8), nLine);
    }
    EXPECT_EQ(rows.LineAt(INT64_C(-1) << 40, 8), 0u);
    EXPECT_EQ(rows.LineAt(INT64_C(1) << 40, 8), 7u);
    EXPECT_EQ(rows.TopOf(1u << 31), INT_MAX);
    EXPECT_EQ((gesso::LineRows{0, 0}.LineAt(9, 8)), 0u) << "without a height all is the first";
}

// As a program copies an edit control that was built when plain values stood where the pointer is: all bytes
// of it but one, and what stands behind it.
TEST(EditLines, AnEditControlKeepsItsLinesApartFromACopyMadeByOlderCode)
{
    constexpr size_t PLACE = 264;
    GEdit edit;
    edit.SetText(L"original");
    GEdit copy;
    auto* pTo = reinterpret_cast<unsigned char*>(static_cast<void*>(&copy)) + PLACE;
    const auto* pFrom = reinterpret_cast<const unsigned char*>(static_cast<const void*>(&edit)) + PLACE;
    std::memcpy(pTo, pFrom, 12);
    pTo[1] = 0xcd;
    copy.SetText(L"copy");
    EXPECT_EQ(copy.GetTextLength(), 4);
    EXPECT_EQ(edit.GetTextLength(), 8);
}

TEST(EditLines, AnEditControlThatIsAssignedAnotherHasItsText)
{
    GEdit edit;
    edit.SetText(L"one\r\ntwo");
    GEdit other;
    other.SetText(L"other");
    other = edit;
    EXPECT_EQ(other.GetTextLength(), edit.GetTextLength());
}

} // namespace
