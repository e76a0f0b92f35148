// Caret, anchor and what edits do to them, without a window.

#include "LineModel.h"

namespace {

using namespace test;
using gesso::Place;
using gesso::TextField;

std::string EndsOf(const TextField& field)
{
    return Shown(field.Anchor()) + "-" + Shown(field.Caret());
}

// As they are after any operation.
std::string Ends(const TextField& field)
{
    EXPECT_TRUE(field.Check());
    return EndsOf(field);
}

TEST(TextField, TheAnchorFollowsUnlessTheSelectionIsExtended)
{
    LineModel model(L"one\ntwo");
    TextField field(model.lines, {0, 1}, {0, 1});
    EXPECT_FALSE(field.HasSelection());
    field.MoveTo({1, 2}, true);
    EXPECT_EQ(Ends(field), "0,1-1,2");
    field.MoveTo({0, 0}, true);
    EXPECT_EQ(Ends(field), "0,1-0,0") << "the caret may come first";
    EXPECT_EQ(Shown(field.First()) + " " + Shown(field.Last()), "0,0 0,1");
    field.MoveTo({0, 2}, false);
    EXPECT_EQ(Ends(field), "0,2-0,2");
    field.SelectAll();
    EXPECT_EQ(Ends(field), "0,0-1,3");
    field.Collapse();
    EXPECT_EQ(Ends(field), "1,3-1,3");
}

TEST(TextField, PlacesThatTheTextNoLongerHasCountAsTheNearest)
{
    LineModel model(L"ab");
    TextField field(model.lines, {3, 7}, {0, static_cast<UINT>(-2)});
    EXPECT_EQ(EndsOf(field), "0,0-0,2");
    EXPECT_FALSE(field.Check());
    EXPECT_EQ(Shown(field.GivenCaret()), "3,7") << "as derived classes see it";
    field.Insert(L"x");
    EXPECT_EQ(model.Shown(), "x|");
    EXPECT_EQ(Shown(field.GivenAnchor()), "0,1");
}

TEST(TextField, EditsTakeTheSelectionFirst)
{
    const struct
    {
        const char* pszWhat;
        void (*edit)(TextField&);
        const char* pszText; // from "ab/|cd|" with "b/c" selected
        const char* pszCaret;
    } rows[] = {
        {"text", [](TextField& field) { field.Insert(L"1\n2"); }, "a1/|2d|", "1,1"},
        {"break", [](TextField& field) { field.InsertBreak(); }, "a/|d|", "1,0"},
        {"before", [](TextField& field) { EXPECT_TRUE(field.RemoveBefore()); }, "ad|", "0,1"},
        {"behind", [](TextField& field) { EXPECT_TRUE(field.RemoveBehind()); }, "ad|", "0,1"},
        {"itself", [](TextField& field) { field.RemoveSelection(); }, "ad|", "0,1"},
    };
    for (const auto& row : rows) {
        for (const bool fCaretFirst : {false, true}) {
            LineModel model(L"ab\ncd");
            const Place first{0, 1};
            const Place last{1, 1};
            TextField field(model.lines, fCaretFirst ? first : last, fCaretFirst ? last : first);
            row.edit(field);
            EXPECT_EQ(model.Shown(), row.pszText) << row.pszWhat;
            EXPECT_EQ(Ends(field), row.pszCaret + std::string("-") + row.pszCaret) << row.pszWhat;
        }
    }
}

TEST(TextField, NothingIsRemovedBeyondTheTextsEnds)
{
    LineModel model(L"ab");
    TextField field(model.lines, {0, 0}, {0, 0});
    EXPECT_FALSE(field.RemoveBefore());
    EXPECT_TRUE(field.RemoveBehind());
    field.MoveTo(model.lines.End(), false);
    EXPECT_FALSE(field.RemoveBehind());
    EXPECT_TRUE(field.RemoveBefore());
    EXPECT_EQ(model.Shown(), "|");
}

} // namespace
