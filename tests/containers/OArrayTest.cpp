#include <gesso/containers/OArray.h>

#include "StringTesting.h"

#include <numeric>
#include <vector>

namespace {

using Numbers = OArray<unsigned int, unsigned int const&>;
using Strings = OArray<OString<wchar_t>, OString<wchar_t> const&>;

Numbers Make(std::vector<unsigned int> values)
{
    return {values.data(), static_cast<UINT>(values.size())};
}

std::vector<unsigned int> Values(const Numbers& a)
{
    EXPECT_TRUE(gesso::Check(a));
    return {a.begin(), a.end()};
}

using List = std::vector<unsigned int>;

Strings MakeStrings(std::initializer_list<LPCWSTR> texts)
{
    Strings a;
    for (LPCWSTR psz : texts) {
        a.Add(Str(psz));
    }
    return a;
}

std::string Joined(const Strings& a)
{
    EXPECT_TRUE(gesso::Check(a));
    std::string result;
    for (const OString<wchar_t>& str : a) {
        result += Narrow(str) + ",";
    }
    return result;
}

// The capacities that an array goes through while elements are added one at a time.
List CapacitiesOfAdding(Numbers& a, UINT nUpTo)
{
    List capacities;
    while (a.GetLength() < nUpTo) {
        a.Add(0);
        if (capacities.empty() || capacities.back() != a.GetBufferLength()) {
            capacities.push_back(a.GetBufferLength());
        }
    }
    return capacities;
}

} // namespace

TEST(OArray, GrowsByAnEighthWithinItsBounds)
{
    Numbers a;
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.GetLength() + a.GetBufferLength(), 0u);
    EXPECT_EQ(CapacitiesOfAdding(a, 65), (List{4, 8, 12, 16, 20, 24, 28, 32, 36, 40, 45, 50, 56, 63, 70}));
    Numbers aLong;
    aLong.SetLength(9000, 0);
    EXPECT_EQ(aLong.GetBufferLength(), 9000u);
    aLong.SetLength(9000, -1);
    aLong.FreeExtra(0);
    aLong.Add(1);
    EXPECT_EQ(aLong.GetBufferLength(), 10024u);
}

TEST(OArray, AStepOfItsOwnRaisesTheAdaptiveOne)
{
    Numbers a;
    a.SetLength(0, 100);
    a.Add(1);
    EXPECT_EQ(a.GetBufferLength(), 100u);
    Numbers aSmall;
    aSmall.AllocExtra(50, 0);
    EXPECT_EQ(aSmall.GetBufferLength(), 50u) << "a step of 0 grows exactly";
    aSmall.AllocExtra(51, 1);
    EXPECT_EQ(aSmall.GetBufferLength(), 51u) << "a given step stands alone";
    aSmall.AllocExtra(52);
    EXPECT_EQ(aSmall.GetBufferLength(), 55u) << "a smaller step yields to the adaptive one";
    aSmall.AllocExtra(1, 20);
    aSmall.AllocExtra(56, -1);
    EXPECT_EQ(aSmall.GetBufferLength(), 75u) << "a negative step leaves the one before";
    aSmall.AllocExtra(200, -1);
    EXPECT_EQ(aSmall.GetBufferLength(), 200u);
}

TEST(OArray, LengthNeverGivesCapacityUp)
{
    Numbers a = Make({1, 2, 3});
    const UINT* pData = a.GetData();
    a.SetLength(0, -1);
    EXPECT_EQ(a.GetLength(), 0u);
    EXPECT_EQ(a.GetData(), pData);
    a.SetLength(2, 10);
    EXPECT_EQ(Values(a), (List{1, 2})) << "plain elements are neither cleared nor initialised";
    a.RemoveAll();
    EXPECT_EQ(a.GetData(), pData);
    a.SetLength(5, -1);
    EXPECT_EQ(a.GetBufferLength(), 14u) << "the step that SetLength was given is kept";
}

TEST(OArray, FreeExtraFitsTheBlock)
{
    Numbers a = Make({1, 2, 3});
    EXPECT_EQ(a.GetBufferLength(), 4u);
    a.FreeExtra(6);
    EXPECT_EQ(a.GetBufferLength(), 6u) << "it can grow as well";
    a.FreeExtra(0);
    EXPECT_EQ(a.GetBufferLength(), 3u);
    a.FreeExtra(100);
    EXPECT_EQ(a.GetBufferLength(), 3u) << "a full array is left alone";
    EXPECT_EQ(Values(a), (List{1, 2, 3}));
    a.RemoveAll();
    a.FreeExtra(0);
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.GetBufferLength(), 0u);
    a.Add(7);
    EXPECT_EQ(Values(a), (List{7}));
}

TEST(OArray, InsertsAndRemovesInTheMiddle)
{
    Numbers a = Make({1, 2});
    a.InsertAt(1, 9);
    EXPECT_EQ(Values(a), (List{1, 9, 2}));
    const List more{5, 6, 7};
    EXPECT_EQ(a.InsertAt(0, more.data(), 3), 3u);
    EXPECT_EQ(Values(a), (List{5, 6, 7, 1, 9, 2}));
    EXPECT_EQ(a.InsertAt(6, Make({8, 8})), 2u);
    EXPECT_EQ(Values(a), (List{5, 6, 7, 1, 9, 2, 8, 8}));
    a.RemoveAt(1, 3);
    EXPECT_EQ(Values(a), (List{5, 9, 2, 8, 8}));
    a.RemoveAt(3, 2);
    a.RemoveAt(0, 0);
    EXPECT_EQ(Values(a), (List{5, 9, 2}));
    EXPECT_EQ(a.Add(Make({4, 3})), 3u);
    EXPECT_EQ(a.Add(more.data(), 0), 5u);
    EXPECT_EQ(a.Add(1), 5u);
    EXPECT_EQ(Values(a), (List{5, 9, 2, 4, 3, 1}));
}

TEST(OArray, InsertingBehindTheEndLeavesAGap)
{
    Numbers a = Make({1, 2});
    a.InsertAt(5, 9);
    EXPECT_EQ(a.GetLength(), 6u);
    EXPECT_EQ(a[5], 9u);
    EXPECT_EQ(a.InsertAt(8, Make({3, 4})), 2u);
    EXPECT_EQ(a.GetLength(), 10u);
    EXPECT_EQ(a[9], 4u);
    EXPECT_EQ(a.InsertAt(12, nullptr, 0), 0u);
    EXPECT_EQ(a.GetLength(), 12u) << "the gap opens even for no elements";
    a.SetAtGrow(20, 7);
    a.SetAtGrow(0, 8);
    EXPECT_EQ(a.GetLength(), 21u);
    EXPECT_EQ(a[20], 7u);
    EXPECT_EQ(a[0], 8u);
    Numbers aGrown;
    aGrown.GetAtGrow(10) = 3;
    EXPECT_EQ(aGrown.GetLength(), 11u);
    aGrown.SetAt(10, 4);
    EXPECT_EQ(aGrown.GetAtGrow(10), 4u);
}

TEST(OArray, CopiesKeepSpareCapacityAndTheirOwnStep)
{
    Numbers aSource;
    aSource.SetLength(0, 100);
    aSource.Add(Make({1, 2, 3}));
    const Numbers aCopied(aSource);
    EXPECT_EQ(Values(aCopied), (List{1, 2, 3}));
    EXPECT_EQ(aCopied.GetBufferLength(), 4u);
    Numbers aTarget;
    aTarget.SetLength(50, 0);
    aTarget = aCopied;
    EXPECT_EQ(Values(aTarget), (List{1, 2, 3}));
    EXPECT_EQ(aTarget.GetBufferLength(), 50u);
    aTarget.Copy(nullptr, 0);
    EXPECT_EQ(aTarget.GetLength(), 0u);
}

// NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a move leaves is looked at
TEST(OArray, AMovedFromArrayKeepsItsNumbersAndCanBeAssignedTo)
{
    Strings aSource = MakeStrings({L"a", L"b"});
    const Strings aTaken(std::move(aSource));
    EXPECT_EQ(Joined(aTaken), "a,b,");
    EXPECT_EQ(aSource.GetData(), nullptr);
    EXPECT_EQ(aSource.GetLength(), 2u);
    EXPECT_EQ(aSource.GetBufferLength(), 4u);
    aSource = aTaken;
    EXPECT_EQ(Joined(aSource), "a,b,");
    Strings aOther = MakeStrings({L"x", L"y", L"z"});
    aOther = std::move(aSource);
    EXPECT_EQ(Joined(aOther), "a,b,");
    aSource = std::move(aOther);
    EXPECT_EQ(Joined(aSource), "a,b,");
    Strings& aSame = aSource;
    aSource = std::move(aSame);
    EXPECT_EQ(Joined(aSource), "a,b,");
}

TEST(OArray, ChangesToAMovedFromArrayStartFromEmpty)
{
    const test::AllowMisuse allowed;
    const auto changed = [](auto change) {
        Strings a = MakeStrings({L"a", L"b"});
        const Strings aTaken(std::move(a));
        change(a);
        return Joined(a);
    };
    const OString<wchar_t> x = Str(L"x");
    EXPECT_EQ(changed([&](Strings& a) { a.Add(x); }), "x,");
    EXPECT_EQ(changed([&](Strings& a) { a.InsertAt(1, x); }), ",x,");
    EXPECT_EQ(changed([&](Strings& a) { a.SetAtGrow(0, x); }), "x,");
    EXPECT_EQ(changed([&](Strings& a) { a.GetAtGrow(0) = x; }), "x,");
    EXPECT_EQ(changed([&](Strings& a) { a.Add(&x, 1); }), "x,");
    EXPECT_EQ(changed([](Strings& a) { a.SetLength(1, -1); }), ",");
    EXPECT_EQ(changed([](Strings& a) { a.SetLength(1, 0); }), ",");
    EXPECT_EQ(changed([](Strings& a) { a.RemoveAt(0, 1); }), "");
    EXPECT_EQ(changed([](Strings& a) { a.RemoveAll(); }), "");
    EXPECT_EQ(changed([](Strings& a) { a.FreeExtra(3); }), "");
    EXPECT_EQ(changed([](Strings& a) { a.AllocExtra(1); }), "");
}
// NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)

TEST(OArray, ConstructsAndDestroysStrings)
{
    Strings a;
    a.GetAtGrow(10);
    EXPECT_EQ(Joined(a), ",,,,,,,,,,,");
    a.SetLength(1, -1);
    a[0] = Str(L"zero");
    a.SetAtGrow(3, Str(L"three"));
    EXPECT_EQ(Joined(a), "zero,,,three,");
    a.InsertAt(1, Str(L"one"));
    a.InsertAt(6, Str(L"six"));
    EXPECT_EQ(Joined(a), "zero,one,,,three,,six,");
    a.RemoveAt(2, 2);
    EXPECT_EQ(Joined(a), "zero,one,three,,six,");
    a.SetAt(3, Str(L"five"));
    EXPECT_EQ(a.InsertAt(1, MakeStrings({L"p", L"q"})), 2u);
    EXPECT_EQ(Joined(a), "zero,p,q,one,three,five,six,");
    a.SetLength(2, -1);
    a.FreeExtra(0);
    a.SetLength(4, -1);
    EXPECT_EQ(Joined(a), "zero,p,,,");
    a.Copy(MakeStrings({L"u", L"v", L"w", L"x", L"y"}));
    EXPECT_EQ(Joined(a), "u,v,w,x,y,");
    a.Copy(MakeStrings({L"only"}));
    EXPECT_EQ(Joined(a), "only,");
    a.RemoveAll();
    EXPECT_EQ(Joined(a), "");
}

TEST(OArray, TakesItsOwnElementsAsArguments)
{
    Strings a = MakeStrings({L"a", L"b", L"c", L"d"});
    a.Add(a[0]);
    a.InsertAt(1, a[2]);
    EXPECT_EQ(Joined(a), "a,c,b,c,d,a,");
    a.InsertAt(2, a.GetData() + 1, 3);
    EXPECT_EQ(Joined(a), "a,c,c,b,c,b,c,d,a,");
    a.Copy(a.GetData() + 5, 3);
    EXPECT_EQ(Joined(a), "b,c,d,");
    a.Add(a);
    EXPECT_EQ(Joined(a), "b,c,d,b,c,d,");
    Strings& aSame = a;
    a = aSame;
    EXPECT_EQ(Joined(a), "b,c,d,b,c,d,");
    a.SetAtGrow(7, a[1]);
    EXPECT_EQ(Joined(a), "b,c,d,b,c,d,,c,");
}

TEST(OArray, RemovalBeyondTheLengthIsClipped)
{
    const test::AllowMisuse allowed;
    Numbers a = Make({1, 2, 3});
    a.RemoveAt(2, 5);
    EXPECT_EQ(Values(a), (List{1, 2}));
    a.RemoveAt(9, 1);
    a.RemoveAt(1, 0xFFFFFFFF);
    EXPECT_EQ(Values(a), (List{1}));
}

// A record that shares no code with the pointers, and pointers that are not owned.
TEST(OArray, TakesRecordsAndPointersAsBits)
{
    struct Record
    {
        int n = 1;
        double f = 2;
    };
    OArray<Record, Record const&> aRecords;
    aRecords.Add({3, 4});
    aRecords.InsertAt(0, {5, 6});
    EXPECT_EQ(aRecords[0].n + aRecords[1].n, 8);

    int n = 0;
    OArray<void*, void* const&> aPointers;
    aPointers.Add(&n);
    aPointers.RemoveAt(0, 1);
    OArray<HFONT, HFONT> aFonts;
    aFonts.SetAtGrow(2, nullptr);
    EXPECT_EQ(aFonts.GetLength(), 3u);
    static_assert(!gesso::IsRelocatable<std::unique_ptr<int>>, "classes must say that they are");
}
