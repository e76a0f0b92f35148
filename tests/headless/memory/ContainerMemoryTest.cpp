// Arrays and strings whose block is refused: each operation says so, and what was there before is there.
#include "MemoryLimit.h"

#include <gesso/containers/Index.h>
#include <gesso/containers/Memory.h>
#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

using test::MemoryLimit;

namespace {

using Numbers = OArray<int, int>;

constexpr UINT MANY = 100'000;

Numbers FirstNumbers(UINT n)
{
    Numbers a;
    EXPECT_TRUE(a.SetLength(n, -1));
    std::iota(a.begin(), a.end(), 0);
    return a;
}

std::vector<wchar_t> LongText()
{
    std::vector<wchar_t> text(MANY, L'x');
    text.push_back(0);
    return text;
}

} // namespace

TEST(ContainerMemoryTest, AnArrayWithoutMemoryStaysAsItWas)
{
    Numbers a = FirstNumbers(MANY / 2);
    a.FreeExtra(0);
    const Numbers many = FirstNumbers(MANY);
    const UINT nLength = a.GetLength();
    const MemoryLimit limit;
    EXPECT_EQ(a.Add(7), gesso::NO_INDEX);
    EXPECT_EQ(a.Add(many), gesso::NO_INDEX);
    EXPECT_EQ(a.Add(a.GetData(), nLength), gesso::NO_INDEX) << "a copy of its own elements comes first";
    EXPECT_FALSE(a.InsertAt(0, 7));
    EXPECT_EQ(a.InsertAt(nLength + 5, many), 0u);
    EXPECT_EQ(a.InsertAt(nLength + 5, a.GetData(), nLength), 0u);
    EXPECT_FALSE(a.SetAtGrow(MANY, 7));
    EXPECT_FALSE(a.SetLength(MANY, 10));
    EXPECT_FALSE(a.AllocExtra(MANY));
    EXPECT_FALSE(a.AllocExtra(MANY, 10));
    EXPECT_FALSE(a.Copy(many));
    a = many;
    EXPECT_EQ(Numbers(many).GetLength(), 0u);
    ASSERT_EQ(a.GetLength(), nLength);
    ASSERT_EQ(a.GetBufferLength(), nLength);
    for (UINT i = 0; i < nLength; ++i) {
        ASSERT_EQ(a[i], static_cast<int>(i));
    }
    EXPECT_EQ(limit.Refused(), 13u);
}

TEST(ContainerMemoryTest, AnArrayThatCannotShrinkKeepsItsBlock)
{
    Numbers a = FirstNumbers(MANY);
    const MemoryLimit limit;
    EXPECT_TRUE(a.SetLength(MANY / 2, -1));
    a.FreeExtra(0);
    EXPECT_EQ(a.GetBufferLength(), MANY);
    EXPECT_EQ(a[MANY / 2 - 1], static_cast<int>(MANY / 2 - 1));
}

TEST(ContainerMemoryTest, AStringWithoutMemoryStaysAsItWas)
{
    const std::vector<wchar_t> text = LongText();
    const auto strLong = OString<wchar_t>::Build(L"%ls", text.data());
    auto str = OString<wchar_t>::Build(L"one x two");
    const MemoryLimit limit;
    EXPECT_FALSE(str.Format(L"%ls", text.data()));
    EXPECT_FALSE(str.AppendFormat(L"%ls", text.data()));
    EXPECT_EQ(str.Replace(L"x", text.data()), 0u);
    str = strLong;
    EXPECT_TRUE(str == L"one x two");
    EXPECT_EQ(OString<wchar_t>(strLong).GetLength(), 0u);
    EXPECT_EQ(strLong.Mid(1, MANY).GetLength(), 0u);
    EXPECT_EQ(OString<wchar_t>::Build(L"%ls", text.data()).GetLength(), 0u);
    OString<wchar_t> strTaken(std::move(str));
    EXPECT_TRUE(strTaken == L"one x two");
}

TEST(ContainerMemoryTest, ATextThatIsEditedStaysAsItWasWithoutMemory)
{
    const std::vector<wchar_t> text = LongText();
    OStringEx<wchar_t> str;
    str = L"one x two";
    OStringEx<wchar_t> strLong;
    strLong = text.data();
    const MemoryLimit limit;
    EXPECT_EQ(str.Insert(0, text.data(), MANY), -1);
    EXPECT_EQ(str.Insert(0, strLong), -1);
    EXPECT_EQ(str.Replace(L"x", text.data()), 0u);
    EXPECT_FALSE(str.Format(L"%ls", text.data()));
    EXPECT_FALSE(str.AppendFormat(L"%ls", text.data()));
    EXPECT_EQ(str.GetBuffer(MANY), nullptr);
    EXPECT_EQ(str.SetBufferLength(MANY), nullptr);
    str = strLong;
    str = text.data();
    EXPECT_TRUE(str == L"one x two");
    EXPECT_EQ(OStringEx<wchar_t>(MANY).GetBufferLength(), 1u);
    EXPECT_EQ(strLong.Replace(static_cast<LPCWSTR>(strLong) + 1, L"y"), 0u) << "what it looks for is its own";
    strLong.ReleaseBuffer(MANY / 2);
    strLong.FreeEmpty(0);
    EXPECT_EQ(strLong.GetBufferLength(), MANY + 1);
    EXPECT_EQ(strLong.GetLength(), MANY / 2);
}

TEST(ContainerMemoryDeathTest, WhatNoOperationCouldGoOnWithoutEndsTheProgramWithAMessage)
{
    EXPECT_DEATH(
        {
            const MemoryLimit limit(0);
            gesso::Allocate(8);
        },
        "out of memory");
    EXPECT_DEATH(
        {
            void* p = gesso::Reallocate(gesso::Allocate(8), 16);
            const MemoryLimit limit(0);
            gesso::Reallocate(p, 32);
        },
        "out of memory");
    EXPECT_DEATH(
        {
            Numbers a;
            const MemoryLimit limit;
            a.GetAtGrow(MANY) = 1;
        },
        "out of memory");
}

#if !defined(NDEBUG)
TEST(MisuseDeathTest, AMistakeOfTheHostsEndsTheProgramWithItsName)
{
    EXPECT_DEATH(
        {
            const Numbers a = FirstNumbers(3);
            static_cast<void>(a.GetAt(3));
        },
        "misuse of OArray: an index beyond the length");
}
#endif
