// The text of an edit field without a window: what is one step, and the limits of what is kept.

#include "../memory/MemoryLimit.h"
#include "ModelSupport.h"

namespace {

using namespace test;
using gesso::EditKind;
using gesso::EditModel;
using gesso::UndoStack;
using Texts = std::vector<std::string>;

class EditModelTest : public testing::Test
{
protected:
    EditModelTest() { listener.pModel = &model; }

    bool Put(const Characters& text, EditKind kind = EditKind::Step, bool fCanUndo = true)
    {
        return model.Replace(model.Selection(), text.data(), static_cast<UINT>(text.size()), kind, now,
                             fCanUndo);
    }
    void Type(const std::string& text)
    {
        for (const char c : text) {
            EXPECT_TRUE(Put(CharactersOf(std::string(1, c)), EditKind::Typing));
        }
    }
    void Erase(UINT nFrom, UINT nTo)
    {
        EXPECT_TRUE(model.Replace({nFrom, nTo}, L"", 0, EditKind::Erasing, now));
    }
    void Start(const std::string& text)
    {
        const Characters wide = CharactersOf(text);
        ASSERT_TRUE(model.SetText(wide.data(), static_cast<UINT>(wide.size())));
    }
    // A bar for the caret, and one for the anchor where it is elsewhere.
    std::string Now() const
    {
        std::string shown;
        for (UINT i = 0; i <= model.Length(); ++i) {
            shown += i == model.Caret() || i == model.Anchor() ? "|" : "";
            if (i < model.Length() && model.Text().At(i) != L'\r') {
                shown += model.Text().At(i) == L'\n' ? '/' : static_cast<char>(model.Text().At(i));
            }
        }
        return shown;
    }
    Texts TakeAllBack()
    {
        Texts texts;
        while (model.Undo()) {
            texts.push_back(Now());
        }
        return texts;
    }

    PlainListener listener;
    EditModel model{listener};
    DWORD now = 0xFFFFFF00; // the clock turns around
};

TEST_F(EditModelTest, TypingIsTakenBackByWordsAndLines)
{
    Type("one two  three//x");
    EXPECT_EQ(TakeAllBack(), (Texts{"one two  three//|", "one two  three/|", "one two  |", "one |", "|"}));
    EXPECT_FALSE(model.CanUndo());
    while (model.Redo()) {
    }
    EXPECT_EQ(Now(), "one two  three//x|");
}

TEST_F(EditModelTest, APauseOrAMovedCaretEndsWhatIsTyped)
{
    Type("ab");
    now += UndoStack::PAUSE - 1;
    Type("c");
    now += UndoStack::PAUSE;
    Type("d");
    model.Select(4, 4); // where it is
    Type("e");
    model.Select(0, 0);
    model.Select(5, 5);
    Type("f");
    EXPECT_EQ(TakeAllBack(), (Texts{"abcde|", "abc|", "|"}));
}

TEST_F(EditModelTest, WhatIsErasedIsTakenBackByWordsInBothDirections)
{
    Start("one two/three");
    model.Select(7, 7);
    for (UINT i = 7; i > 2; --i) {
        Erase(i - 1, i);
    }
    EXPECT_EQ(Now(), "on|/three");
    Erase(2, 4);
    Erase(2, 3);
    Erase(2, 3);
    EXPECT_EQ(Now(), "on|ree");
    Type("x");
    EXPECT_EQ(TakeAllBack(), (Texts{"on|ree", "on|three", "one|/three", "one two|/three"}));
    while (model.Redo()) {
    }
    EXPECT_EQ(Now(), "onx|ree");
}

TEST_F(EditModelTest, SelectionsComeBack)
{
    Start("one two");
    model.Select(7, 4);
    Type("abc");
    EXPECT_EQ(model.Caret(), 7u);
    model.Select(0, 2);
    EXPECT_TRUE(model.Undo());
    EXPECT_EQ(Now(), "one |two|");
    EXPECT_EQ(model.Caret(), 4u);
    EXPECT_TRUE(model.Redo());
    EXPECT_EQ(Now(), "one abc|");
    EXPECT_TRUE(model.IsModified());
    Type("d");
    EXPECT_FALSE(model.Redo());
    EXPECT_EQ(TakeAllBack(), (Texts{"one abc|", "one |two|"}));
}

TEST_F(EditModelTest, WhatIsMadeTogetherIsTakenBackTogether)
{
    Start("one two");
    model.BeginStep();
    model.EndStep();
    EXPECT_FALSE(model.CanUndo()) << "nothing was done";
    model.Select(0, 4);
    model.BeginStep();
    EXPECT_TRUE(Put({}));
    model.Select(3, 3);
    EXPECT_TRUE(Put(CharactersOf("/one")));
    model.Select(5, 8);
    model.EndStep();
    model.Select(0, 0);
    EXPECT_TRUE(model.Undo());
    EXPECT_EQ(Now(), "|one |two");
    EXPECT_TRUE(model.Redo());
    EXPECT_EQ(Now(), "two/|one|");
    EXPECT_FALSE(model.CanRedo());
}

TEST_F(EditModelTest, AnEditThatCannotBeTakenBackEmptiesTheStack)
{
    Type("ab ");
    EXPECT_TRUE(Put(CharactersOf("c"), EditKind::Step, false));
    EXPECT_FALSE(model.CanUndo());
    Type("d");
    EXPECT_EQ(TakeAllBack(), Texts{"ab c|"});
    EXPECT_TRUE(model.CanRedo());
    EXPECT_TRUE(Put({}, EditKind::Step, false)) << "nor one that changes nothing";
    EXPECT_FALSE(model.CanRedo());
}

TEST_F(EditModelTest, NoPlaceIsWithinALineEndOrAPair)
{
    const Characters text{L'a', L'\r', L'\n', 0xD83D, 0xDE00, 0xDE00};
    ASSERT_TRUE(model.SetText(text.data(), 6));
    model.Select(2, 4);
    EXPECT_EQ(model.Selection(), (gesso::TextRange{1, 3}));
    model.Select(5, 99);
    EXPECT_EQ(model.Selection(), (gesso::TextRange{5, 6}));
    Erase(2, 4);
    EXPECT_EQ(TextOf(model), (Characters{L'a', 0xD83D, 0xDE00, 0xDE00}));
    EXPECT_EQ(model.RowText(0), (gesso::TextRange{0, 4}));
}

TEST_F(EditModelTest, TheOldestStepsGoFirstAndTheNewestStays)
{
    for (UINT i = 0; i < UndoStack::MOST_STEPS + 5; ++i) {
        EXPECT_TRUE(Put(CharactersOf("x")));
    }
    EXPECT_EQ(TakeAllBack().size(), UndoStack::MOST_STEPS);
    EXPECT_EQ(Now(), "xxxxx|");
    listener.pModel = nullptr;
    const Characters half(UndoStack::MOST_BYTES / sizeof(wchar_t) / 2, L'x');
    Start("");
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Put(half));
    }
    EXPECT_TRUE(model.Undo() && model.Undo());
    EXPECT_FALSE(model.Undo()) << "two fill it";
    EXPECT_TRUE(model.Redo() && model.Redo());
    EXPECT_TRUE(Put(CharactersOf("y")));
    EXPECT_TRUE(model.Undo() && model.Undo());
    EXPECT_FALSE(model.Undo());
    EXPECT_TRUE(model.Redo() && model.Redo());
    model.Select(0, model.Length());
    EXPECT_TRUE(Put({}));
    EXPECT_TRUE(model.Undo());
    EXPECT_FALSE(model.Undo()) << "larger than all that may be kept";
    EXPECT_EQ(model.Length(), 3 * half.size() + 1);
}

TEST_F(EditModelTest, WhatThereIsNoMemoryForIsNotDone)
{
    const Characters many(100'000, L'x');
    const Characters lines(100'000, L'\n');
    Start("ab");
    EXPECT_TRUE(Put(many) && model.Undo());
    model.Select(0, 2);
    const std::string before = Now();
    const int nTold = listener.nTold;
    {
        const MemoryLimit limit;
        EXPECT_FALSE(model.SetText(many.data(), static_cast<UINT>(many.size())));
        EXPECT_FALSE(Put(lines)) << "its rows";
        EXPECT_EQ(limit.Refused(), 2u);
    }
    EXPECT_EQ(Now(), before);
    EXPECT_TRUE(model.CanRedo());
    EXPECT_TRUE(model.Redo());
    model.Select(0, 50'000);
    {
        const MemoryLimit limit;
        EXPECT_FALSE(Put(CharactersOf("a"))) << "the step to take back";
        EXPECT_FALSE(model.Undo()) << "what goes, to be done again";
        EXPECT_EQ(limit.Refused(), 2u);
    }
    EXPECT_EQ(model.Length(), 100'002u);
    EXPECT_EQ(model.Selection(), (gesso::TextRange{0, 50'000}));
    EXPECT_EQ(listener.nTold, nTold + 1);
    EXPECT_EQ(TextOf(model), listener.text);
    EXPECT_EQ(TakeAllBack(), Texts{"|ab"});
}

// What a program's data makes large is counted by the block.
TEST_F(EditModelTest, ALongTextTakesLittleMoreThanItself)
{
    Characters text;
    for (UINT i = 0; i < 50'000; ++i) {
        const Characters line = CharactersOf("18 characters a li/");
        text.insert(text.end(), line.begin(), line.end());
    }
    const size_t cbText = text.size() * sizeof(wchar_t);
    const MemoryLimit limit(cbText + cbText / 7);
    EXPECT_TRUE(model.SetText(text.data(), static_cast<UINT>(text.size())));
    EXPECT_EQ(model.Rows().Count(), 50'001u);
    EXPECT_EQ(model.RowText(50'000), (gesso::TextRange{1'000'000, 1'000'000}));
}

} // namespace
