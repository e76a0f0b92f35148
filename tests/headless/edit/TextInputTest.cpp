// What comes into an edit field from outside, and what is found in it.

#include "ModelSupport.h"

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextInput.h>

#include <chrono>

namespace {

using namespace test;
using gesso::InputRules;
using gesso::SplitText;

constexpr InputRules MANY_LINES{};
constexpr InputRules ONE_LINE{true, false, false, false};
constexpr UINT NO_LIMIT = 1000;

struct Prepared
{
    Characters text;
    bool fCut;
    bool operator==(const Prepared&) const = default;
};

Prepared Prepare(LPCWSTR psz, const InputRules& rules, UINT nMost = NO_LIMIT)
{
    Prepared prepared{};
    prepared.text = gesso::PrepareInput(psz, static_cast<UINT>(wcslen(psz)), rules, nMost, &prepared.fCut);
    return prepared;
}

TEST(TextInput, EveryLineEndBecomesOneOrASpace)
{
    EXPECT_EQ(Prepare(L"\ra\nb\r\nc\n\r\r\n\r", MANY_LINES), (Prepared{CharactersOf("/a/b/c////"), false}));
    EXPECT_EQ(Prepare(L"\ra\nb\r\nc\n\r\r\n\r", ONE_LINE), (Prepared{CharactersOf(" a b c    "), false}));
    EXPECT_EQ(Prepare(L"", MANY_LINES), (Prepared{{}, false}));
}

TEST(TextInput, OnlyWhatMayBeStoredCounts)
{
    EXPECT_EQ(Prepare(L"-12 a\r\n3", {true, true, false, false}, 3), (Prepared{CharactersOf("123"), false}));
    EXPECT_EQ(Prepare(L"-12 a\r\n3", {false, true, false, false}), (Prepared{CharactersOf("12/3"), false}));
    EXPECT_EQ(Prepare(L"x1", {true, true, false, false}, 0), (Prepared{{}, true}));
    EXPECT_EQ(Prepare(L"x", {true, true, false, false}, 0), (Prepared{{}, false}));
}

TEST(TextInput, CaseIsChangedBeyondAscii)
{
    EXPECT_EQ(Prepare(L"aB\x00E4", {true, false, true, false}).text, (Characters{L'A', L'B', 0xC4}));
    EXPECT_EQ(Prepare(L"aB\x00C4", {true, false, false, true}).text, (Characters{L'a', L'b', 0xE4}));
}

TEST(TextInput, ACutGoesThroughNoLineEndAndNoPair)
{
    EXPECT_EQ(Prepare(L"ab\ncd", MANY_LINES, 3), (Prepared{CharactersOf("ab"), true}));
    EXPECT_EQ(Prepare(L"ab\ncd", MANY_LINES, 4), (Prepared{CharactersOf("ab/"), true}));
    EXPECT_EQ(Prepare(L"a\xD83D\xDE00", MANY_LINES, 2), (Prepared{CharactersOf("a"), true}));
    EXPECT_EQ(Prepare(L"a\xD83D\xDE00", MANY_LINES, 3).fCut, false);
    EXPECT_EQ(Prepare(L"\xDE00\xDE00", MANY_LINES, 1), (Prepared{{0xDE00}, true})) << "no pair";
}

TEST(TextInput, WhatIsPreparedStaysAsItIs)
{
    const auto is = [](LPCWSTR psz, const InputRules& rules) {
        const UINT n = static_cast<UINT>(wcslen(psz));
        const bool fPrepared = gesso::IsPrepared(psz, n, rules);
        EXPECT_EQ(fPrepared, Prepare(psz, rules).text == Characters(psz, psz + n));
        return fPrepared;
    };
    EXPECT_TRUE(is(L"", MANY_LINES) && is(L"a\r\nb\r\n\r\n", MANY_LINES) && is(L"ab", ONE_LINE));
    EXPECT_FALSE(is(L"a\r\n", ONE_LINE) || is(L"a\r\n\r", MANY_LINES) || is(L"a\n\r\n", MANY_LINES));
    EXPECT_FALSE(gesso::IsPrepared(L"x", 1, {true, true, false, false}));
}

// The text in two pieces, at each place.
int Find(LPCWSTR pszText, LPCWSTR psz, int nFrom, UINT uFlags = 0)
{
    const UINT n = static_cast<UINT>(wcslen(pszText));
    const int nFound = gesso::FindText({pszText, n}, psz, nFrom, uFlags);
    for (UINT i = 0; i <= n; ++i) {
        EXPECT_EQ(gesso::FindText({pszText, i, pszText + i, n - i}, psz, nFrom, uFlags), nFound);
    }
    return nFound;
}

TEST(FindText, FindsFromAnOffsetOnOrInFrontOfIt)
{
    constexpr LPCWSTR TEXT = L"abab aabab";
    EXPECT_EQ(Find(TEXT, L"aba", 0), 0);
    EXPECT_EQ(Find(TEXT, L"aba", 1), 6);
    EXPECT_EQ(Find(TEXT, L"aba", 7), -1) << "turns around";
    EXPECT_EQ(Find(TEXT, L"aba", -5), 0);
    EXPECT_EQ(Find(TEXT, L"aba", 99), -1);
    EXPECT_EQ(Find(TEXT, L"aba", 99, GEF_UP), 6);
    EXPECT_EQ(Find(TEXT, L"aba", 9, GEF_UP), 6);
    EXPECT_EQ(Find(TEXT, L"aba", 8, GEF_UP), 0);
    EXPECT_EQ(Find(TEXT, L"aba", -1, GEF_UP), -1);
    EXPECT_EQ(Find(TEXT, L"abab aababx", 0), -1);
    EXPECT_EQ(Find(TEXT, L"", 0), -1);
    EXPECT_EQ(Find(TEXT, nullptr, 0), -1);
    EXPECT_EQ(Find(L"", L"a", 0), -1);
}

TEST(FindText, CaseCountsWhereItIsAskedFor)
{
    EXPECT_EQ(Find(L"xA\x00C4", L"a\x00E4", 0), 1);
    EXPECT_EQ(Find(L"xA\x00C4", L"a\x00E4", 0, GEF_CASE), -1);
    EXPECT_EQ(Find(L"xA\x00C4", L"A\x00C4", 9, GEF_CASE | GEF_UP), 1);
}

TEST(FindText, WholeWordsAloneWhereTheyAreAskedFor)
{
    EXPECT_EQ(Find(L"sand and, an", L"and", 0, GEF_WORD), 5);
    EXPECT_EQ(Find(L"sand and, an", L"an", 0, GEF_WORD), 10);
    EXPECT_EQ(Find(L"and sand", L"and", 99, GEF_WORD | GEF_UP), 0);
    EXPECT_EQ(Find(L"aaa aa", L"aa", 0, GEF_WORD), 4) << "behind matches that overlap";
    EXPECT_EQ(Find(L"aaa aa", L"aa", 2, GEF_WORD | GEF_UP), -1);
}

// Each search looks for what is nearly there everywhere.
TEST(FindText, TakesTimeInProportion)
{
    const Characters text(200'000, L'a');
    Characters sought(20'000, L'a');
    sought.front() = sought[sought.size() - 2] = L'b';
    sought.back() = 0;
    const auto start = std::chrono::steady_clock::now();
    for (const UINT uFlags : {0u, GEF_UP, GEF_CASE}) {
        EXPECT_EQ(
            gesso::FindText({text.data(), 200'000}, sought.data(), 200'000 * (uFlags == GEF_UP), uFlags), -1);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2))
        << "some 10^10 steps otherwise";
}

} // namespace
