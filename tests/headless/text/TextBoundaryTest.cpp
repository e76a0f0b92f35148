// Where clusters and words end: Unicode's own tests, and what they leave out.

#include <gesso/text/TextBoundary.h>

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace test {
namespace {

using namespace gesso;
using Offsets = std::vector<UINT>;

LPCWSTR Wide(const char16_t* psz)
{
    return reinterpret_cast<LPCWSTR>(psz);
}

// The text with a gap behind nFirst characters.
SplitText Split(std::u16string_view text, size_t nFirst)
{
    return {Wide(text.data()), static_cast<UINT>(nFirst), Wide(text.data() + nFirst),
            static_cast<UINT>(text.size() - nFirst)};
}

SplitText Whole(std::u16string_view text)
{
    return Split(text, text.size());
}

// One kind of boundary, with its walks in both directions.
struct Boundaries
{
    bool (&Is)(const SplitText&, UINT);
    UINT (&Behind)(const SplitText&, UINT);
    UINT (&Before)(const SplitText&, UINT);

    // The boundaries of a text, if all three operations agree on them from every place.
    Offsets Of(const SplitText& text) const
    {
        Offsets found;
        for (UINT n = 0; n <= text.Length(); ++n) {
            if (Is(text, n)) {
                found.push_back(n);
            }
        }
        for (UINT n = 0; n <= text.Length(); ++n) {
            const auto behind = std::upper_bound(found.begin(), found.end(), n);
            const auto before = std::lower_bound(found.begin(), found.end(), n);
            EXPECT_EQ(Behind(text, n), behind == found.end() ? text.Length() : *behind) << n;
            EXPECT_EQ(Before(text, n), before == found.begin() ? 0 : *(before - 1)) << n;
        }
        return found;
    }
};

const Boundaries CLUSTERS{IsClusterBoundary, ClusterEnd, ClusterStart};
const Boundaries WORDS{IsWordBoundary, WordBoundaryBehind, WordBoundaryBefore};

void Append(std::u16string& text, char32_t c)
{
    if (c >= 0x10000) {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        c = 0xDC00 + (c & 0x3FF);
    }
    text += static_cast<char16_t>(c);
}

// A line of Unicode's tests: code points in hexadecimal with ÷ where a boundary is and × where none is.
struct Line
{
    std::u16string text;
    Offsets boundaries;

    explicit Line(const std::string& line)
    {
        std::istringstream words(line.substr(0, line.find('#')));
        for (std::string word; words >> word;) {
            if (word == "÷") {
                boundaries.push_back(static_cast<UINT>(text.size()));
            } else if (word != "×") {
                Append(text, static_cast<char32_t>(std::stoul(word, nullptr, 16)));
            }
        }
    }
};

// All lines of one of the files, with the text in one piece and in two at every place.
void RunFile(const std::string& name, const Boundaries& boundaries, int atLeast)
{
    std::ifstream file(GESSO_UNICODE "/auxiliary/" + name);
    ASSERT_TRUE(file) << name << " of the package unicode-data is missing: run scripts/setup.sh test";
    int lines = 0;
    for (std::string text; std::getline(file, text);) {
        const Line line(text);
        if (line.text.empty()) {
            continue;
        }
        ++lines;
        for (size_t n = 0; n <= line.text.size(); ++n) {
            ASSERT_EQ(boundaries.Of(Split(line.text, n)), line.boundaries) << text << "\nsplit at " << n;
        }
    }
    EXPECT_GE(lines, atLeast);
}

Offsets WordStarts(std::u16string_view characters)
{
    const SplitText text = Whole(characters);
    Offsets starts{0};
    while (starts.back() < text.Length()) {
        starts.push_back(NextWordStart(text, starts.back()));
    }
    for (UINT n = 0; n <= text.Length(); ++n) {
        const auto next = std::upper_bound(starts.begin(), starts.end(), n);
        const auto previous = std::lower_bound(starts.begin(), starts.end(), n);
        EXPECT_EQ(NextWordStart(text, n), next == starts.end() ? text.Length() : *next) << n;
        EXPECT_EQ(PreviousWordStart(text, n), previous == starts.begin() ? 0 : *(previous - 1)) << n;
    }
    return starts;
}

std::u16string WordOf(std::u16string_view text, UINT n)
{
    const TextRange range = WordAt(Whole(text), n);
    return std::u16string(text.substr(range.nFrom, range.Length()));
}

bool IsWhole(std::u16string_view text, UINT nFrom, UINT nTo)
{
    return IsWholeWord(Whole(text), {nFrom, nTo});
}

class Stopwatch
{
public:
    double Seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace

TEST(TextBoundary, ClustersAreThoseOfUnicodesTests)
{
    RunFile("GraphemeBreakTest.txt", CLUSTERS, 600);
}

TEST(TextBoundary, WordsAreThoseOfUnicodesTests)
{
    RunFile("WordBreakTest.txt", WORDS, 1800);
}

TEST(TextBoundary, WhatUnicodesTestsLeaveOut)
{
    EXPECT_EQ(CLUSTERS.Of(Whole(u"")), Offsets{0});
    EXPECT_EQ(WORDS.Of(Whole(u"")), Offsets{0});
    const std::u16string lone{u'a', 0xDC00, 0xD83D, 0xD83D, 0xDE00, 0xD83D, 0x0301};
    EXPECT_EQ(CLUSTERS.Of(Whole(lone)), (Offsets{0, 1, 2, 3, 5, 7})) << "half a pair is a character";
    EXPECT_EQ(WORDS.Of(Whole(lone)), (Offsets{0, 1, 2, 3, 5, 7}));
    EXPECT_EQ(CLUSTERS.Of(Whole(u"\U0001F1E6\U0001F1E7\U0001F1E8\U0001F1E9\U0001F1EAa")),
              (Offsets{0, 4, 8, 10, 11}));
    EXPECT_EQ(CLUSTERS.Of(Whole(u"\U0001F468\u200D\U0001F469\U0001F3FD\u200D\U0001F467!")),
              (Offsets{0, 10, 11}));
    for (const UINT nBeyond : {4U, 5U, ~0U}) {
        const SplitText text = Whole(u"a b\u0301");
        EXPECT_TRUE(IsClusterBoundary(text, nBeyond));
        EXPECT_TRUE(IsWordBoundary(text, nBeyond));
        EXPECT_EQ(SnapToCluster(text, nBeyond), 4U);
        EXPECT_EQ(ClusterEnd(text, nBeyond), 4U);
        EXPECT_EQ(ClusterStart(text, nBeyond), 2U);
        EXPECT_EQ(CodePointStart(text, nBeyond), 3U);
        EXPECT_EQ(NextWordStart(text, nBeyond), 4U);
        EXPECT_EQ(PreviousWordStart(text, nBeyond), 2U);
        EXPECT_EQ(WordAt(text, nBeyond), (TextRange{2, 4}));
    }
}

TEST(TextBoundary, ACodePointEndsAtItsOwnStart)
{
    const SplitText text = Whole(u"a\u0301\U0001F600\r\n\n");
    Offsets starts;
    for (UINT n = text.Length(); n > 0;) {
        starts.push_back(n = CodePointStart(text, n));
    }
    EXPECT_EQ(starts, (Offsets{6, 4, 2, 1, 0}));
    EXPECT_EQ(CodePointStart(text, 0), 0U);
    EXPECT_EQ(SnapToCluster(text, 1), 0U);
    EXPECT_EQ(SnapToCluster(text, 3), 2U);
    EXPECT_EQ(SnapToCluster(text, 5), 4U);
    EXPECT_EQ(SnapToCluster(text, 2), 2U);
}

TEST(TextBoundary, MovingByWordsPassesSpacesAndStopsAtBothSidesOfALineEnd)
{
    EXPECT_EQ(WordStarts(u"one  two, can't 3.14"), (Offsets{0, 5, 8, 10, 16, 20}));
    EXPECT_EQ(WordStarts(u"a->b == (\"c\")"), (Offsets{0, 1, 3, 5, 8, 10, 11, 13})) << "punctuation in runs";
    EXPECT_EQ(WordStarts(u"one \t \r\n\r\n  two  "), (Offsets{0, 6, 8, 10, 12, 17}));
    EXPECT_EQ(WordStarts(u"  x\u3000\u65E5\u672C"), (Offsets{0, 2, 4, 5, 6})) << "an ideograph is a word";
    EXPECT_EQ(WordStarts(u"!\U0001F600\U0001F600!"), (Offsets{0, 1, 3, 5, 6})) << "and so is an emoji";
    EXPECT_EQ(WordStarts(u"\u0E01\u0E33"), (Offsets{0, 2})) << "none begins within a character";
    EXPECT_EQ(WordStarts(u"   "), (Offsets{0, 3}));
    EXPECT_EQ(WordStarts(u""), Offsets{0});
}

TEST(TextBoundary, AWordIsTakenWithoutTheSpaceBehindIt)
{
    const std::u16string text = u"  one== \r\ntwo\r\n\r\n";
    EXPECT_EQ(WordOf(text, 0), u"  ");
    EXPECT_EQ(WordOf(text, 2), u"one");
    EXPECT_EQ(WordOf(text, 4), u"one");
    EXPECT_EQ(WordOf(text, 5), u"==");
    EXPECT_EQ(WordOf(text, 6), u"==");
    EXPECT_EQ(WordOf(text, 8), u" ") << "what stands in front of the line end";
    EXPECT_EQ(WordOf(text, 9), u" ") << "and from within it";
    EXPECT_EQ(WordOf(text, 13), u"two");
    EXPECT_EQ(WordAt(Whole(text), 15), (TextRange{15, 15})) << "an empty line";
    EXPECT_EQ(WordAt(Whole(text), 17), (TextRange{17, 17}));
    EXPECT_EQ(WordOf(u"a+-/*=", 6), u"+-/*=");
    EXPECT_EQ(WordAt(Whole(u""), 0), (TextRange{0, 0}));
}

TEST(TextBoundary, AWholeWordBeginsAndEndsWhereWordsDo)
{
    EXPECT_TRUE(IsWhole(u"a cat, a dog", 2, 5));
    EXPECT_TRUE(IsWhole(u"a cat, a dog", 2, 12));
    EXPECT_FALSE(IsWhole(u"concat", 3, 6));
    EXPECT_FALSE(IsWhole(u"can't", 0, 3)) << "the apostrophe is in the word";
    EXPECT_FALSE(IsWhole(u"cats", 0, 3));
    EXPECT_FALSE(IsWhole(u"cat\u0301", 0, 3));
    EXPECT_TRUE(IsWhole(u"a==b", 1, 3));
    EXPECT_FALSE(IsWhole(u"a==b", 1, 2)) << "half a run of punctuation";
}

TEST(TextBoundary, WalksTakeTimeByWhatTheyPass)
{
    // Quadratic walks would take minutes here.
    const Stopwatch time;
    std::u16string marks(1 + 10000, u'\u0301');
    marks.front() = u'e';
    marks += u": e";
    const SplitText one = Whole(marks);
    for (UINT n = 1; n <= 10000; ++n) {
        ASSERT_FALSE(IsClusterBoundary(one, n));
        ASSERT_FALSE(IsWordBoundary(one, n));
    }
    EXPECT_EQ(ClusterEnd(one, 0), 10001U);
    EXPECT_EQ(WordBoundaryBehind(one, 0), 10001U);
    EXPECT_EQ(WordBoundaryBefore(one, 10001), 0U);

    std::u16string text;
    for (int n = 0; n < 1000; ++n) {
        text += u"word: \U0001F468\u200D\U0001F469" + std::u16string(100, u'=') + u'e' +
                std::u16string(100, u'\u0301');
    }
    for (const Boundaries& boundaries : {CLUSTERS, WORDS}) {
        UINT nSteps = 0;
        for (UINT n = 0; n < text.size(); n = boundaries.Behind(Whole(text), n)) {
            ++nSteps;
        }
        for (UINT n = Whole(text).Length(); n > 0; n = boundaries.Before(Whole(text), n)) {
            --nSteps;
        }
        EXPECT_EQ(nSteps, 0U);
    }
    const std::u16string run(1000000, u'=');
    EXPECT_EQ(NextWordStart(Whole(run), 0), 1000000U);
    EXPECT_EQ(PreviousWordStart(Whole(run), 1000000), 0U);
    EXPECT_EQ(WordAt(Whole(run), 500000), (TextRange{0, 1000000}));
    EXPECT_LT(time.Seconds(), 20.0);
}

} // namespace test
