#include <gesso/containers/OStringEx.h>

#include "StringTesting.h"

#include <tests/support/TestStrings.h>

#include <utility>

namespace {

using String = OString<wchar_t>;
using StringEx = OStringEx<wchar_t>;

// A text in a block of the given capacity.
StringEx With(LPCWSTR psz, UINT nBufferLength)
{
    StringEx str(nBufferLength);
    str = psz;
    EXPECT_EQ(str.GetBufferLength(), nBufferLength);
    return str;
}

// "text/capacity"
std::string State(const StringEx& str)
{
    return Checked(str) + "/" + std::to_string(str.GetBufferLength());
}

// The state after a change that must stay in the block.
template <class CHANGE> std::string InPlace(StringEx str, CHANGE change)
{
    const LPCWSTR psz = str;
    change(str);
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz) << "the block was replaced";
    return State(str);
}

} // namespace

TEST(OStringEx, StartsWithTheCapacityThatItIsGiven)
{
    EXPECT_EQ(State(StringEx()), "/1");
    EXPECT_EQ(State(StringEx(0)), "/1");
    EXPECT_EQ(State(StringEx(50)), "/50");
}

TEST(OStringEx, ACopyHasRoomForWhatItsSourceHasRoomFor)
{
    const StringEx strSource = With(L"a text that is not short", 30);
    StringEx strCopy(strSource);
    EXPECT_EQ(State(strCopy), "a text that is not short/30");
    strCopy.Insert(24, L"12345", 5);
    EXPECT_EQ(State(strCopy), "a text that is not short12345/30");
    EXPECT_EQ(State(strSource), "a text that is not short/30");
    EXPECT_EQ(State(StringEx(Str(L"exact"))), "exact/6");
}

TEST(OStringEx, AssignmentCopiesIntoABlockThatHasRoom)
{
    const StringEx strEight = With(L"12345678", 100);
    const String strPlain = Str(L"plain");
    EXPECT_EQ(InPlace(With(L"", 9), [&](StringEx& str) { str = strEight; }), "12345678/9");
    EXPECT_EQ(InPlace(With(L"", 9), [&](StringEx& str) { str = strPlain; }), "plain/9");
    EXPECT_EQ(InPlace(With(L"", 9), [](StringEx& str) { str = L"12345678"; }), "12345678/9");
    EXPECT_EQ(InPlace(With(L"own text", 9), [](StringEx& str) { str = str + 4; }), "text/9");
    StringEx str = With(L"", 8);
    str = strEight;
    EXPECT_EQ(State(str), "12345678/9") << "replaced by a block that fits exactly";
    StringEx& strSame = str;
    str = strSame;
    EXPECT_EQ(State(str), "12345678/9");
}

TEST(OStringEx, MovingTakesTheBlockOfEitherKind)
{
    StringEx strSource = With(L"moved", 20);
    StringEx strTaken(std::move(strSource));
    EXPECT_EQ(State(strTaken), "moved/20");
    strSource = Str(L"plain");
    EXPECT_EQ(State(strSource), "plain/6");
    StringEx strOther(Str(L"other"));
    EXPECT_EQ(State(strOther), "other/6");
    strOther = std::move(strTaken);
    EXPECT_EQ(State(strOther), "moved/20");
    strTaken = strOther;
    EXPECT_EQ(State(strTaken), "moved/6") << "a string that was moved from has no capacity";
}

// NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a move leaves is looked at
TEST(OStringEx, ChangesToAMovedFromStringStartFromEmpty)
{
    const test::AllowMisuse allowed;
    const auto changed = [](auto change) {
        StringEx str = With(L"text", 20);
        const StringEx strTaken(std::move(str));
        change(str);
        return State(str);
    };
    EXPECT_EQ(changed([](StringEx& str) { str.GetBuffer(5); }), "/5");
    EXPECT_EQ(changed([](StringEx& str) { str.ReleaseBuffer(0); }), "/1");
    EXPECT_EQ(changed([](StringEx& str) { str.FreeEmpty(0); }), "/1");
    EXPECT_EQ(changed([](StringEx& str) { str.Delete(0, 1), str.GetBuffer(1); }), "/1");
    EXPECT_EQ(changed([](StringEx& str) { str.Replace(L"a", L"b"), str.GetBuffer(1); }), "/1");
    EXPECT_EQ(changed([](StringEx& str) { str.Trim(); }), "/1");
    EXPECT_EQ(changed([](StringEx& str) { str.Insert(0, L"ab", 2); }), "ab/3");
    EXPECT_EQ(changed([](StringEx& str) { str.AppendFormat(L"%d", 12); }), "12/3");
}
// NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)

TEST(OStringEx, BuffersGrowToWhatIsAskedFor)
{
    StringEx str = With(L"abc", 4);
    const LPCWSTR psz = str;
    EXPECT_EQ(str.GetBuffer(4), psz);
    EXPECT_EQ(str.GetBuffer(0), psz);
    EXPECT_EQ(State(str), "abc/4");
    wchar_t* pBuffer = str.GetBuffer(10);
    EXPECT_EQ(State(str), "abc/10");
    wcscpy(pBuffer, L"123456789");
    str.ReleaseBuffer(0xFFFFFFFF);
    EXPECT_EQ(State(str), "123456789/10");
    str.GetBuffer(0)[3] = L'x';
    str.ReleaseBuffer(4);
    EXPECT_EQ(State(str), "123x/10");
    str.SetBufferLength(5);
    str.SetBufferLength(12);
    EXPECT_EQ(State(str), "123x/12");
    // Before ReleaseBuffer the length is stale, and what was written must survive another growth.
    wcscpy(str.GetBuffer(0), L"written");
    str.GetBuffer(40);
    str.ReleaseBuffer(0xFFFFFFFF);
    EXPECT_EQ(State(str), "written/40");
}

TEST(OStringEx, ReleaseBufferStaysWithinTheBlock)
{
    const test::AllowMisuse allowed;
    StringEx str = With(L"abc", 4);
    str.ReleaseBuffer(4);
    EXPECT_EQ(str.GetLength(), 3u);
    str.GetBuffer(4)[3] = L'd';
    str.ReleaseBuffer(0xFFFFFFFF);
    EXPECT_EQ(State(str), "abc/4");
    str.ReleaseBuffer(0xFFFFFFFE);
    EXPECT_EQ(State(str), "abc/4");
}

TEST(OStringEx, FreeEmptyFitsTheBlock)
{
    StringEx str = With(L"1234567890", 11);
    EXPECT_EQ(str.Delete(3, 7), 3u);
    EXPECT_EQ(State(str), "123/11") << "deleting keeps the capacity";
    str.FreeEmpty(0);
    EXPECT_EQ(State(str), "123/4");
    str.FreeEmpty(0);
    EXPECT_EQ(State(str), "123/4");
    str.FreeEmpty(100);
    EXPECT_EQ(State(str), "123/4") << "a full block is left alone";
    str.GetBuffer(11);
    str.FreeEmpty(100);
    EXPECT_EQ(State(str), "123/100");
    str.FreeEmpty(6);
    EXPECT_EQ(State(str), "123/6");
}

TEST(OStringEx, DeletesRemovesAndTrimsInPlace)
{
    const StringEx str = With(L"--ab-ab--", 20);
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Delete(2, 3), 6u); }), "--ab--/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Delete(5, 0xFFFFFFFF), 5u); }), "--ab-/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Delete(9, 1), 9u); }), "--ab-ab--/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Remove(L'-'), 5u); }), "abab/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Remove(L"ab"), 2u); }), "-----/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Remove(Str(L"ab-")), 2u); }), "---/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { EXPECT_EQ(s.Remove(L""), 0u); }), "--ab-ab--/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Trim(L'-'); }), "ab-ab/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.TrimLeft(L"-a"); }), "b-ab--/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.TrimRight(L"-b"); }), "--ab-a/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Trim(L"-ab"); }), "/20");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.TrimLeft(L'-').TrimRight(L'-'); }), "ab-ab/20");
    EXPECT_EQ(InPlace(With(L" \t a \r\n", 9), [](StringEx& s) { s.Trim(); }), "a/9");
    EXPECT_EQ(InPlace(With(L" a ", 9), [](StringEx& s) { s.TrimLeft(); }), "a /9");
    EXPECT_EQ(InPlace(With(L" a ", 9), [](StringEx& s) { s.TrimRight(); }), " a/9");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.MakeUpper().Replace(L'-', L'+'); }), "++AB+AB++/20");
}

TEST(OStringEx, ReplaceGrowsTheBlockOnlyAsFarAsItMust)
{
    const auto replace = [](LPCWSTR pszOld, LPCWSTR pszNew, UINT nExpected) {
        return [=](StringEx& str) { EXPECT_EQ(str.Replace(pszOld, pszNew), nExpected); };
    };
    EXPECT_EQ(InPlace(With(L"ababab", 7), replace(L"ab", L"ba", 3)), "bababa/7");
    EXPECT_EQ(InPlace(With(L"xaxax", 20), replace(L"x", L"long", 3)), "longalongalong/20");
    EXPECT_EQ(InPlace(With(L"xaxax", 15), replace(L"x", L"long", 3)), "longalongalong/15");
    EXPECT_EQ(InPlace(With(L"longalong", 10), replace(L"long", L"xy", 2)), "xyaxy/10");
    EXPECT_EQ(InPlace(With(L"aaa", 4), replace(L"aa", L"x", 1)), "xa/4");
    EXPECT_EQ(InPlace(With(L"aaa", 4), replace(L"", L"x", 0)), "aaa/4");
    EXPECT_EQ(InPlace(With(L"", 4), replace(L"a", L"x", 0)), "/4");
    StringEx str = With(L"xaxax", 14);
    replace(L"x", L"long", 3)(str);
    EXPECT_EQ(State(str), "longalongalong/15");
    str = With(L".........", 10);
    EXPECT_EQ(str.Replace(Str(L"."), Str(L"12")), 9u);
    EXPECT_EQ(State(str), "121212121212121212/19");
}

TEST(OStringEx, InsertsUpToALimit)
{
    EXPECT_EQ(InPlace(With(L"ad", 5), [](StringEx& s) { EXPECT_EQ(s.Insert(1, Str(L"bc")), 2); }), "abcd/5");
    StringEx str = With(L"ad", 4);
    EXPECT_EQ(str.Insert(1, L"bcXX", 2), 2);
    EXPECT_EQ(State(str), "abcd/5") << "grown to exactly what was needed";
    const wchar_t aUnterminated[] = {L'x', L'y'};
    EXPECT_EQ(str.Insert(4, aUnterminated, 2), 2);
    EXPECT_EQ(State(str), "abcdxy/7");
    EXPECT_EQ(str.Insert(0, L"1", 0xFFFFFFFF), 1);
    EXPECT_EQ(str.Insert(8, L"z", 1), -1);
    EXPECT_EQ(str.Insert(0xFFFFFFFF, Str(L"z")), -1);
    EXPECT_EQ(str.Insert(3, L"", 5), 0);
    EXPECT_EQ(State(str), "1abcdxy/8");
    EXPECT_EQ(str.Insert(7, String::Build(L"%c", 0)), 1) << "a zero within a string counts";
    EXPECT_EQ(State(str), std::string("1abcdxy\0/9", 10));
}

TEST(OStringEx, FormatsInPlaceWhereThereIsRoom)
{
    EXPECT_EQ(InPlace(With(L"", 6), [](StringEx& s) { s.Format(L"%05d", 42); }), "00042/6");
    EXPECT_EQ(InPlace(With(L"ab", 6), [](StringEx& s) { s.AppendFormat(L"%03d", 4); }), "ab004/6");
    StringEx str = With(L"", 5);
    str.Format(L"%05d", 42);
    EXPECT_EQ(State(str), "00042/6");
    str.AppendFormat(L"%c", L'x');
    EXPECT_EQ(State(str), "00042x/7");
    str.Format(L"%s", L"");
    EXPECT_EQ(State(str), "/7");
}

TEST(OStringEx, TakesItsOwnTextAsAnArgument)
{
    const StringEx str = With(L"ab cd", 40);
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Insert(2, s); }), "abab cd cd/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Insert(0, s + 3, 5); }), "cdab cd/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Replace(s + 3, s); }), "ab ab cd/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Remove(s); }), "/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Trim(s); }), "/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.AppendFormat(L"%s%s", s + 3, s + 0); }), "ab cdcdab cd/40");
    EXPECT_EQ(InPlace(str, [](StringEx& s) { s.Format(L"%s-%s", s + 0, s + 0); }), "ab cd-ab cd/40");
    StringEx strFull = With(L"ab", 3);
    strFull.Insert(1, strFull);
    EXPECT_EQ(State(strFull), "aabb/5");
}

TEST(OStringEx, PartsHaveTheCapacityThatIsAskedFor)
{
    const StringEx str = With(L"abcdefgh", 30);
    EXPECT_EQ(State(str.Left(2, 50)), "ab/50");
    EXPECT_EQ(State(str.Left(2, 3)), "ab/3");
    EXPECT_EQ(State(str.Left(2, 0)), "ab/3");
    EXPECT_EQ(State(str.Mid(2, 3, 1)), "cde/4");
    EXPECT_EQ(State(str.Mid(100, 3, 0)), "/1");
    EXPECT_EQ(State(str.Right(100, 10)), "abcdefgh/10");
    EXPECT_EQ(State(str.Right(1, 0)), "h/2");
}

TEST(OStringEx, LoadsStringResourcesIntoItsBlock)
{
    const HINSTANCE hInst = TestStrings();
    EXPECT_EQ(InPlace(With(L"old", 6), [=](StringEx& s) { s.LoadStringW(TEST_STRING_FIRST, hInst); }),
              "first/6");
    StringEx str = With(L"old", 5);
    EXPECT_FALSE(str.LoadStringW(TEST_STRING_EMPTY, hInst));
    EXPECT_EQ(State(str), "old/5");
    EXPECT_TRUE(str.LoadStringW(TEST_STRING_FIRST, hInst));
    EXPECT_EQ(State(str), "first/6");
}

TEST(OStringEx, ReadsAndComparesAsItsBase)
{
    const StringEx str = With(L"abc", 10);
    EXPECT_EQ(str.GetLength(), 3u);
    EXPECT_EQ(str.Find(L'c', 0), 2);
    EXPECT_TRUE(str == With(L"abc", 4) && str == Str(L"abc") && str == L"abc" && L"abc" == str);
    EXPECT_TRUE(str < Str(L"abd") && str != L"ab");
    const String strExact = str;
    EXPECT_EQ(Capacity(strExact), 4u) << "a plain copy fits exactly";
}
