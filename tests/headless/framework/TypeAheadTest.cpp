// The word that is typed to find an item.

#include "../../support/User.h"

#include <gesso/framework/TypeAhead.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

using gesso::NO_INDEX;
using namespace test;

constexpr DWORD PAUSE = 1100;

class TypeAheadTest : public testing::Test
{
protected:
    // Types all of a text, and goes where it leads each time.
    UINT Type(LPCWSTR text)
    {
        for (; *text; ++text) {
            if (m_word.Add(*text)) {
                const UINT found = m_word.Find(m_at, static_cast<UINT>(m_items.size()),
                                               [this](UINT item) { return m_items[item]; });
                m_at = found == NO_INDEX ? m_at : found;
            }
        }
        return m_at;
    }
    UINT TypeAnew(LPCWSTR text, UINT from = NO_INDEX)
    {
        m_word.Forget();
        m_at = from;
        return Type(text);
    }

    gesso::TypeAhead m_word;
    std::vector<LPCWSTR> m_items;
    UINT m_at = NO_INDEX;
};

TEST_F(TypeAheadTest, AWordLeadsToWhatBeginsSoAndOneLetterSteps)
{
    m_items = {L"Bar", nullptr, L"bay leaf", L"Aaa", L"BAZ", L"\x0411\x0430\x0440", L"\x0431\x0430\x043D"};
    EXPECT_EQ(TypeAnew(L"b"), 0u);
    EXPECT_EQ(Type(L"a"), 0u) << "it fits still";
    EXPECT_EQ(Type(L"Y"), 2u);
    EXPECT_EQ(Type(L" L"), 2u) << "a blank belongs to a word that was begun";
    EXPECT_EQ(Type(L"q"), 2u) << "none begins so";
    EXPECT_EQ(TypeAnew(L"b", 0), 2u) << "from an item to the next";
    EXPECT_EQ(Type(L"b"), 4u);
    EXPECT_EQ(Type(L"B"), 0u) << "around the end";
    EXPECT_EQ(TypeAnew(L"\x0431"), 5u);
    EXPECT_EQ(Type(L"\x0411"), 6u);
    EXPECT_EQ(TypeAnew(L"\x0431\x0430\x043D"), 6u);
    EXPECT_EQ(TypeAnew(L"b", 99), 0u) << "an item that is not there is none";
    m_items.clear();
    EXPECT_EQ(TypeAnew(L"b"), NO_INDEX);
}

// Both halves of a pair are one letter.
TEST_F(TypeAheadTest, APairIsOneLetter)
{
    m_items = {L"\xD83D\xDE00 a", L"\xD83D\xDE01 b", L"\xD83D\xDE00 c"};
    EXPECT_EQ(TypeAnew(L"\xD83D\xDE01"), 1u);
    EXPECT_EQ(TypeAnew(L"\xD83D\xDE00\xD83D\xDE00"), 2u);
}

TEST_F(TypeAheadTest, APauseEndsTheWord)
{
    m_items = {L"ab", L"b"};
    EXPECT_EQ(TypeAnew(L"a"), 0u);
    EXPECT_TRUE(m_word.IsUnderWay());
    user::Wait(PAUSE);
    EXPECT_FALSE(m_word.IsUnderWay());
    EXPECT_EQ(Type(L"b"), 1u);
}

TEST_F(TypeAheadTest, WhatIsNoTextJoinsNoWord)
{
    for (const wchar_t c : {L'\b', L'\t', L'\r', L'\x1B', L'\x7F', L' '}) {
        EXPECT_FALSE(m_word.Add(c)) << static_cast<int>(c);
        EXPECT_FALSE(m_word.IsUnderWay());
    }
    std::vector<wchar_t> word;
    for (int i = 0; i < 200; ++i) {
        word.push_back(i % 2 ? L'a' : L'b');
    }
    word.push_back(0);
    for (int i = 0; i < 200; ++i) {
        EXPECT_TRUE(m_word.Add(i % 2 ? L'a' : L'b'));
    }
    m_items = {L"b", word.data()};
    EXPECT_EQ(TypeAnew(word.data()), 1u) << "what is longer than a word goes by its start";
}

} // namespace
