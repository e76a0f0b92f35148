// A walk at random through the text model, beside a plain one that keeps the whole text of every step.

#include "ModelSupport.h"

#include <random>

namespace {

using namespace test;
using gesso::EditKind;
using gesso::EditModel;
using gesso::TextRange;

class Walk
{
public:
    explicit Walk(unsigned nSeed) : m_random(nSeed) { m_listener.pModel = &m_model; }

    void Step()
    {
        m_dwNow += Number(40) == 0 ? 2000 : 100;
        const UINT nLength = m_model.Length();
        switch (Number(nLength > 1500 ? 30 : 26)) {
        case 0: Select(Place(), Place()); break;
        case 1: GoTo(Place()); break;
        case 2: Replace(Range(200), Text(12), EditKind::Step); break;
        case 3: EXPECT_EQ(m_model.Undo(), plain.Undo()); break;
        case 4: EXPECT_EQ(m_model.Redo(), plain.Redo()); break;
        case 5: Wrap(); break;
        case 6: Hold(); break;
        case 7: Seldom(); break;
        case 8: EraseSome(); break;
        default:
            nLength > 1500 ? Replace(Range(200), {}, EditKind::Step)
                           : Replace(m_model.Selection(), Text(1), EditKind::Typing);
        }
        Compare();
    }
    void TakeAllBack()
    {
        while (m_model.Undo()) {
            EXPECT_TRUE(plain.Undo());
            Compare();
        }
        EXPECT_FALSE(plain.Undo());
    }

    PlainModel plain;

private:
    UINT Number(UINT n) { return static_cast<UINT>(m_random() % n); }
    bool IsWithin(UINT n) const
    {
        const Characters& text = plain.now.text;
        return n > 0 && n < text.size() && text[n] == L'\n';
    }
    UINT Place()
    {
        const UINT n = Number(m_model.Length() + 1);
        return IsWithin(n) ? n - 1 : n;
    }
    TextRange Range(UINT nMost)
    {
        const UINT nFrom = Place();
        const UINT nTo = std::min(nFrom + Number(nMost), m_model.Length());
        return {nFrom, std::max(nFrom, IsWithin(nTo) ? nTo - 1 : nTo)};
    }
    Characters Text(UINT nMost)
    {
        std::string text;
        for (UINT n = Number(nMost) + 1; n > 0; --n) {
            text += "abc  /"[Number(6)];
        }
        return CharactersOf(text);
    }
    void Select(UINT nAnchor, UINT nCaret)
    {
        m_model.Select(nAnchor, nCaret);
        plain.Select(nAnchor, nCaret);
    }
    void GoTo(UINT n) { Select(n, n); }
    void Replace(const TextRange& range, const Characters& text, EditKind kind)
    {
        EXPECT_TRUE(m_model.Replace(range, text.data(), static_cast<UINT>(text.size()), kind, m_dwNow));
        plain.Replace(range, text, kind, m_dwNow);
    }
    // Backspace and Delete, some times each.
    void EraseSome()
    {
        const bool fBack = Number(2) == 0;
        for (UINT n = Number(8); n > 0; --n) {
            const UINT nCaret = m_model.Caret();
            const UINT nOther =
                fBack ? nCaret - std::min(nCaret, 1u) : std::min(nCaret + 1, m_model.Length());
            const UINT nEnd = IsWithin(nOther) ? (fBack ? nOther - 1 : nOther + 1) : nOther;
            Replace({std::min(nCaret, nEnd), std::max(nCaret, nEnd)}, {}, EditKind::Erasing);
        }
    }
    void Hold()
    {
        m_fHeld = !m_fHeld;
        m_fHeld ? m_model.BeginStep() : m_model.EndStep();
        plain.Hold(m_fHeld);
    }
    void Seldom()
    {
        if (Number(400) == 0) {
            m_model.EmptyUndo();
            plain.EmptyUndo();
        } else if (Number(40) == 0) {
            EXPECT_TRUE(m_model.Unwrap());
            m_listener.starts = Paragraphs();
        }
    }
    std::vector<UINT> Paragraphs() const
    {
        std::vector<UINT> starts{0};
        const Characters& text = plain.now.text;
        for (UINT i = 0; i < text.size(); ++i) {
            if (text[i] == L'\n') {
                starts.push_back(i + 1);
            }
        }
        starts.push_back(static_cast<UINT>(text.size()));
        return starts;
    }
    // Wraps a paragraph at every third character.
    void Wrap()
    {
        const TextRange rows = m_model.ParagraphRows(Number(m_model.Rows().Count()));
        std::vector<UINT>& starts = m_listener.starts;
        std::vector<UINT> wrapped{starts[rows.nFrom]};
        while (wrapped.back() + 6 < starts[rows.nTo]) {
            wrapped.push_back(wrapped.back() + 3);
        }
        EXPECT_TRUE(
            m_model.Wrap(rows.nFrom, rows.Length(), wrapped.data(), static_cast<UINT>(wrapped.size())));
        starts.insert(starts.erase(starts.begin() + rows.nFrom, starts.begin() + rows.nTo), wrapped.begin(),
                      wrapped.end());
    }
    void Compare()
    {
        EXPECT_TRUE((Snapshot{TextOf(m_model), m_model.Anchor(), m_model.Caret()}) == plain.now);
        EXPECT_TRUE(m_listener.text == plain.now.text);
        EXPECT_EQ(StartsOf(m_model.Rows()), m_listener.starts);
        const UINT n = Number(m_model.Length() + 1);
        const std::vector<UINT>& starts = m_listener.starts;
        EXPECT_EQ(m_model.Rows().RowOf(n),
                  std::upper_bound(starts.begin(), starts.end() - 1, n) - starts.begin() - 1);
        const TextRange range = Range(20);
        EXPECT_TRUE(std::equal(plain.now.text.begin() + range.nFrom, plain.now.text.begin() + range.nTo,
                               m_model.Piece(range)));
    }

    std::mt19937 m_random;
    PlainListener m_listener;
    EditModel m_model{m_listener};
    DWORD m_dwNow = 0;
    bool m_fHeld = false;
};

class EditModelWalkTest : public testing::TestWithParam<unsigned>
{};

TEST_P(EditModelWalkTest, TextRowsSelectionAndStepsAreThoseOfThePlainModel)
{
    Walk walk(GetParam());
    for (int i = 0; i < 8000; ++i) {
        walk.Step();
        ASSERT_FALSE(HasFailure()) << "step " << i;
    }
    EXPECT_GT(walk.plain.nDropped, 0) << "more than are kept";
    walk.TakeAllBack();
    EXPECT_FALSE(HasFailure());
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditModelWalkTest, testing::Range(0u, 4u));

} // namespace
