#include "StringTesting.h"

#include <tests/support/TestStrings.h>

#include <utility>

namespace {

using String = OString<wchar_t>;

// The text of a string whose block must fit it exactly.
std::string Exact(const String& str)
{
    EXPECT_EQ(Capacity(str), str.GetLength() + 1) << Narrow(str);
    return Checked(str);
}

} // namespace

TEST(OString, BlocksFitExactlyHoweverTheyAreMade)
{
    EXPECT_EQ(Exact(String()), "");
    EXPECT_EQ(Exact(Str(L"text")), "text");
    EXPECT_EQ(Exact(String(Str(L"copied"))), "copied");
    String str = Str(L"short");
    str = Str(L"something longer");
    EXPECT_EQ(Exact(str), "something longer");
    const String other = Str(L"s");
    str = other;
    EXPECT_EQ(Exact(str), "s");
    EXPECT_NE(static_cast<LPCWSTR>(str), static_cast<LPCWSTR>(other)) << "shares a block";
    EXPECT_EQ(Exact(other), "s");
}

TEST(OString, MovingHandsTheBlockOver)
{
    String strSource = Str(L"moved");
    const LPCWSTR psz = strSource;
    String strTaken(std::move(strSource));
    EXPECT_EQ(static_cast<LPCWSTR>(strTaken), psz);
    strSource = Str(L"again");
    EXPECT_EQ(Exact(strSource), "again") << "a string that was moved from can be assigned to";
    strSource = std::move(strTaken);
    EXPECT_EQ(static_cast<LPCWSTR>(strSource), psz);
    const String strCopied = Str(L"copy");
    strTaken = strCopied;
    EXPECT_EQ(Exact(strTaken), "copy");
    std::swap(strSource, strTaken);
    EXPECT_EQ(Exact(strSource), "copy");
    EXPECT_EQ(Exact(strTaken), "moved");
}

// NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a move leaves is looked at
TEST(OString, UseAfterAMoveFindsAnEmptyString)
{
    const test::AllowMisuse allowed;
    const auto moved = [] {
        String str = Str(L"x");
        const String strTaken(std::move(str));
        return str;
    };
    EXPECT_EQ(moved().GetLength(), 0u);
    EXPECT_EQ(moved().Compare(L""), 0);
    EXPECT_EQ(moved().Find(L'x', 0), -1);
    EXPECT_EQ(moved().Delete(0, 5), 0u);
    EXPECT_EQ(Exact(moved().Mid(0, 5)), "");
    EXPECT_EQ(Exact(moved().MakeLower()), "");
    String str = moved();
    str.AppendFormat(L"%d", 5);
    EXPECT_EQ(Exact(str), "5");
}
// NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)

TEST(OString, AssignmentToItselfKeepsTheText)
{
    String str = Str(L"itself");
    String& strSame = str;
    str = strSame;
    EXPECT_EQ(Exact(str), "itself");
    str = std::move(strSame);
    EXPECT_EQ(Exact(str), "itself");
}

TEST(OString, ComparesByUnsignedUnits)
{
    const String str = Str(L"bc");
    EXPECT_EQ(str.Compare(L"bc"), 0);
    EXPECT_EQ(str.Compare(L"bd"), -1);
    EXPECT_EQ(str.Compare(L"a\xFFFF"), 1);
    EXPECT_EQ(str.Compare(L"b\xFFFF"), -1);
    EXPECT_EQ(str.Compare(Str(L"b")), 1);
    EXPECT_EQ(str.Compare(L"bx", 1), 0);
    EXPECT_EQ(str.Compare(L"zz", 0), 0);
    EXPECT_EQ(str.Compare(L"bx", 2), L'c' - L'x');
    EXPECT_EQ(str.Compare(Str(L"b"), 5), L'c');
    // An embedded zero ends the comparison.
    EXPECT_EQ(String::Build(L"b%cx", 0).Compare(L"b"), 0);
}

TEST(OString, TheRuntimesComparisonsFoldAToZOnly)
{
    const String str = Str(L"aB\xC4");
    EXPECT_EQ(str.CompareNoCase(L"Ab\xC4"), 0);
    EXPECT_NE(str.CompareNoCase(L"Ab\xE4"), 0);
    EXPECT_LT(str.CompareNoCase(Str(L"AC")), 0);
    EXPECT_LT(Str(L"_").CompareNoCase(L"A"), 0) << "letters fold downward";
    EXPECT_EQ(str.CompareNoCase(L"AX", 1), 0);
    EXPECT_NE(str.CompareNoCase(Str(L"AX"), 2), 0);
    EXPECT_EQ(str.Collate(Str(L"aB\xC4")), 0);
    EXPECT_GT(str.Collate(L"AB\xC4"), 0);
    EXPECT_EQ(str.Collate(L"aX", 1), 0);
    EXPECT_GT(Str(L"a").Collate(L"B"), 0);
    EXPECT_LT(str.Collate(Str(L"aX"), 2), 0);
    EXPECT_EQ(str.CollateNoCase(L"AB\xC4"), 0);
    EXPECT_LT(str.CollateNoCase(Str(L"ac")), 0);
    EXPECT_EQ(str.CollateNoCase(L"AX", 1), 0);
    EXPECT_NE(str.CollateNoCase(Str(L"AX"), 2), 0);
}

TEST(OString, OperatorsCompareTextOnEitherSide)
{
    const String a = Str(L"a");
    const String b = Str(L"b");
    EXPECT_TRUE(a == Str(L"a") && a == L"a" && L"a" == a && a != b && a != L"b" && L"b" != a);
    EXPECT_FALSE(a == b || a == L"b" || L"b" == a || a != L"a" || L"a" != a);
    EXPECT_TRUE(a < b && a < L"b" && L"a" < b && a <= a && a <= L"a" && L"a" <= a);
    EXPECT_FALSE(b < a || b < L"a" || L"b" < a || b <= a || b <= L"a" || L"b" <= a);
    EXPECT_TRUE(b > a && b > L"a" && L"b" > a && b >= b && b >= L"b" && L"b" >= b);
    EXPECT_FALSE(a > b || a > L"b" || L"a" > b || a >= b || a >= L"b" || L"a" >= b);
}

TEST(OString, FindsForward)
{
    const String str = Str(L"abcabc");
    EXPECT_EQ(str.Find(L'b', 0), 1);
    EXPECT_EQ(str.Find(L'b', 2), 4);
    EXPECT_EQ(str.Find(L'b', 5), -1);
    EXPECT_EQ(str.Find(L'b', 1000), -1);
    EXPECT_EQ(str.Find(L'\0', 0), -1);
    EXPECT_EQ(str.Find(L"bc", 0), 1);
    EXPECT_EQ(str.Find(Str(L"bc"), 2), 4);
    EXPECT_EQ(str.Find(L"bca", 2), -1);
    EXPECT_EQ(str.Find(L"abcabcd", 0), -1);
    EXPECT_EQ(str.Find(L"", 0), -1);
    EXPECT_EQ(str.Find(L"", 6), -1);
    EXPECT_EQ(str.Find(L"a", 0xFFFFFFFF), -1);
    EXPECT_EQ(Str(L"aab").Find(L"ab", 0), 1);
    EXPECT_EQ(str.FindOneOf(L"xcb", 0), 1);
    EXPECT_EQ(str.FindOneOf(L"xcb", 3), 4);
    EXPECT_EQ(str.FindOneOf(L"x", 0), -1);
    EXPECT_EQ(str.FindOneOf(L"", 0), -1);
    EXPECT_EQ(str.FindOneOf(L"a", 6), -1);
}

TEST(OString, FindsBackwardFromTheTerminatorOn)
{
    const String str = Str(L"abcabc");
    EXPECT_EQ(str.FindReverse(L'b', 0xFFFFFFFF), 4);
    EXPECT_EQ(str.FindReverse(L'b', 4), 4);
    EXPECT_EQ(str.FindReverse(L'b', 3), 1);
    EXPECT_EQ(str.FindReverse(L'b', 0), -1);
    EXPECT_EQ(str.FindReverse(L'\0', 100), 6);
    EXPECT_EQ(str.FindReverse(0, 5), -1);
    EXPECT_EQ(str.FindReverse(L"bc", 0xFFFFFFFF), 4);
    EXPECT_EQ(str.FindReverse(L"bc", 4), 4) << "only the start is bounded";
    EXPECT_EQ(str.FindReverse(Str(L"bc"), 3), 1);
    EXPECT_EQ(str.FindReverse(L"abcd", 6), -1);
    EXPECT_EQ(str.FindReverse(L"", 100), 6);
    EXPECT_EQ(str.FindReverse(L"", 5), -1);
    EXPECT_EQ(str.FindOneOfReverse(L"ab", 100), 4);
    EXPECT_EQ(str.FindOneOfReverse(L"ab", 3), 3);
    EXPECT_EQ(str.FindOneOfReverse(L"c", 1), -1);
    EXPECT_EQ(str.FindOneOfReverse(L"", 100), -1) << "the terminator is in no set";
    EXPECT_EQ(String().FindReverse(L'x', 0), -1);
}

TEST(OString, DeleteClipsToTheText)
{
    String str = Str(L"abcde");
    const LPCWSTR psz = str;
    EXPECT_EQ(str.Delete(5, 1), 5u);
    EXPECT_EQ(str.Delete(0xFFFFFFFF, 0xFFFFFFFF), 5u);
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz);
    EXPECT_EQ(str.Delete(1, 2), 3u);
    EXPECT_EQ(Exact(str), "ade");
    EXPECT_EQ(str.Delete(1, 0xFFFFFFFF), 1u);
    EXPECT_EQ(Exact(str), "a");
    EXPECT_EQ(str.Delete(0, 1000), 0u);
    EXPECT_EQ(Exact(str), "");
}

TEST(OString, RemoveGoesOnBehindWhatItRemoved)
{
    const auto removed = [](LPCWSTR pszText, LPCWSTR pszWhat) {
        String str = Str(pszText);
        const UINT nCount = str.Remove(pszWhat);
        return std::to_string(nCount) + " " + Exact(str);
    };
    EXPECT_EQ(removed(L"aabb", L"ab"), "1 ab");
    EXPECT_EQ(removed(L"ababab", L"ab"), "3 ");
    EXPECT_EQ(removed(L"aaa", L"aa"), "1 a");
    EXPECT_EQ(removed(L"xaby", L"ab"), "1 xy");
    EXPECT_EQ(removed(L"aab", L"ab"), "1 a");
    EXPECT_EQ(removed(L"text", L""), "0 text");
    EXPECT_EQ(removed(L"text", L"texts"), "0 text");
    String str = Str(L"a-b--c-");
    EXPECT_EQ(str.Remove(L'-'), 4u);
    EXPECT_EQ(Exact(str), "abc");
    EXPECT_EQ(str.Remove(Str(L"bc")), 1u);
    EXPECT_EQ(Exact(str), "a");
    const LPCWSTR psz = str;
    EXPECT_EQ(str.Remove(L'x') + str.Remove(L"x"), 0u);
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz) << "the block stays where there is nothing to remove";
}

TEST(OString, ReplaceTakesMatchesFromLeftToRight)
{
    const auto replaced = [](LPCWSTR pszText, LPCWSTR pszOld, LPCWSTR pszNew) {
        String str = Str(pszText);
        const UINT nCount = str.Replace(pszOld, pszNew);
        return std::to_string(nCount) + " " + Exact(str);
    };
    EXPECT_EQ(replaced(L"ababab", L"ab", L"ba"), "3 bababa");
    EXPECT_EQ(replaced(L"aaa", L"aa", L"x"), "1 xa");
    EXPECT_EQ(replaced(L"aXaX", L"X", L"long"), "2 alongalong");
    EXPECT_EQ(replaced(L"XaX", L"X", L""), "2 a");
    EXPECT_EQ(replaced(L"abc", L"", L"x"), "0 abc");
    EXPECT_EQ(replaced(L"abc", L"d", L"x"), "0 abc");
    EXPECT_EQ(replaced(L"", L"d", L"x"), "0 ");
    EXPECT_EQ(replaced(L".........", L".", L"12"), "9 121212121212121212");
    String str = Str(L"aXa");
    EXPECT_EQ(str.Replace(Str(L"X"), Str(L"bc")), 1u);
    EXPECT_EQ(Exact(str), "abca");
    const LPCWSTR psz = str;
    EXPECT_EQ(str.Replace(L'a', L'z'), 2u);
    EXPECT_EQ(str.Replace(L'b', L'b'), 0u);
    EXPECT_EQ(Exact(str), "zbcz");
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz) << "characters are replaced in place";
}

TEST(OString, CaseAndOrderChangeInPlace)
{
    String str = Str(L"aBc\xC4");
    const LPCWSTR psz = str;
    EXPECT_EQ(Exact(str.MakeUpper()), "ABC\xC4");
    EXPECT_EQ(Exact(str.MakeLower()), "abc\xC4");
    EXPECT_EQ(Exact(str.MakeReverse()), "\xC4"
                                        "cba");
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz);
}

TEST(OString, TrimTakesASetFromTheEndsAlone)
{
    EXPECT_EQ(Exact(Str(L" \t\r\na b \r\n").Trim()), "a b");
    EXPECT_EQ(Exact(Str(L"  a ").TrimLeft()), "a ");
    EXPECT_EQ(Exact(Str(L"  a ").TrimRight()), "  a");
    EXPECT_EQ(Exact(Str(L"   ").Trim()), "");
    EXPECT_EQ(Exact(Str(L"   ").TrimLeft()), "");
    EXPECT_EQ(Exact(Str(L"xyaxb yx").Trim(L"yx")), "axb ");
    EXPECT_EQ(Exact(Str(L"xyay").TrimLeft(L"xy")), "ay");
    EXPECT_EQ(Exact(Str(L"xyay").TrimRight(L"xy")), "xya");
    EXPECT_EQ(Exact(Str(L"--a-").Trim(L'-')), "a");
    EXPECT_EQ(Exact(Str(L"--a-").TrimLeft(L'-')), "a-");
    EXPECT_EQ(Exact(Str(L"--a-").TrimRight(L'-')), "--a");
    String str = Str(L"\x2020 a \x200D");
    const LPCWSTR psz = str;
    str.Trim().Trim(L"").Trim(L'x');
    EXPECT_EQ(static_cast<LPCWSTR>(str), psz) << "the block stays where neither end moves";
    EXPECT_EQ(str, L"\x2020 a \x200D") << "the low byte of a wide character is no blank";
}

TEST(OString, PartsAreClippedToTheText)
{
    const String str = Str(L"abcde");
    EXPECT_EQ(Exact(str.Mid(1, 3)), "bcd");
    EXPECT_EQ(Exact(str.Mid(3, 0xFFFFFFFF)), "de");
    EXPECT_EQ(Exact(str.Mid(100, 5)), "");
    EXPECT_EQ(Exact(str.Left(2)), "ab");
    EXPECT_EQ(Exact(str.Left(0xFFFFFFFF)), "abcde");
    EXPECT_EQ(Exact(str.Right(2)), "de");
    EXPECT_EQ(Exact(str.Right(100)), "abcde");
    EXPECT_EQ(Exact(str.Right(0)), "");
}

TEST(OString, FormatsTextOfAnyLength)
{
    EXPECT_EQ(Exact(String::Build(L"%d%%, %s", 5, L"five")), "5%, five");
    EXPECT_EQ(Exact(String::Build(L"%d", 0)), "0") << "a literal 0 is a number, not a va_list";
    EXPECT_EQ(Exact(String::Build(L"%c|", 0)), std::string("\0|", 2));
    EXPECT_EQ(Exact(String::Build(L"%hs", "narrow")), "narrow") << "nor are quotes";
    EXPECT_EQ(Exact(String::Build(L"%p", nullptr)), std::string(16, '0'));
    String str = Str(L"old");
    for (const int n : {0, 1, 254, 255, 256, 257, 5000}) {
        str.Format(L"%*s", n, L"");
        EXPECT_EQ(Exact(str), std::string(static_cast<size_t>(n), ' '));
        str.AppendFormat(L"%*s|", n, L"");
        EXPECT_EQ(Exact(str), std::string(2 * static_cast<size_t>(n), ' ') + "|");
    }
}

TEST(OString, FormatsFromAnArgumentList)
{
    const auto build = [](LPCWSTR pszFormat, ...) {
        va_list args;
        va_start(args, pszFormat);
        String str = String::Build(pszFormat, args);
        va_end(args);
        return str;
    };
    const auto formatted = [](String str, LPCWSTR pszFormat, ...) {
        va_list args;
        va_start(args, pszFormat);
        str.FormatV(pszFormat, args);
        va_end(args);
        va_start(args, pszFormat);
        str.AppendFormatV(pszFormat, args);
        va_end(args);
        return str;
    };
    EXPECT_EQ(Exact(build(L"%s %d", L"a", 1)), "a 1");
    EXPECT_EQ(Exact(formatted(Str(L"old"), L"%s %d;", L"a", 1)), "a 1;a 1;");
}

TEST(OString, TakesItsOwnTextAsAnArgument)
{
    String str = Str(L"ab");
    str.AppendFormat(L"-%s", static_cast<LPCWSTR>(str));
    EXPECT_EQ(Exact(str), "ab-ab");
    str.Format(L"%s+%s", static_cast<LPCWSTR>(str) + 3, static_cast<LPCWSTR>(str));
    EXPECT_EQ(Exact(str), "ab+ab-ab");
    EXPECT_EQ(str.Replace(static_cast<LPCWSTR>(str) + 6, str), 3u);
    EXPECT_EQ(Exact(str), "ab+ab-ab+ab+ab-ab-ab+ab-ab");
    EXPECT_EQ(Exact(str.TrimRight(str)), "");
    str = Str(L"again");
    EXPECT_EQ(str.Remove(str), 1u);
    EXPECT_EQ(Exact(str), "");
}

TEST(OString, NullTextReadsAsEmpty)
{
    const test::AllowMisuse allowed;
    const LPCWSTR pszNull = nullptr;
    String str = Str(L"a");
    EXPECT_EQ(str.Compare(pszNull), 1);
    EXPECT_EQ(str.Find(pszNull, 0), -1);
    EXPECT_EQ(str.FindOneOf(pszNull, 0), -1);
    EXPECT_EQ(str.Replace(L"a", pszNull), 1u);
    EXPECT_EQ(str.Remove(pszNull), 0u);
    str.Trim(pszNull).Format(pszNull);
    EXPECT_EQ(Exact(str), "");
}

TEST(OString, LoadsStringResources)
{
    const HINSTANCE hInst = TestStrings();
    EXPECT_EQ(Exact(String(TEST_STRING_FIRST, hInst)), "first");
    EXPECT_EQ(Exact(String(TEST_STRING_EMPTY, hInst)), "");
    EXPECT_EQ(Exact(String(0x7FF0, hInst)), "");
    String str = Str(L"kept");
    EXPECT_FALSE(str.LoadStringW(TEST_STRING_EMPTY, hInst));
    EXPECT_FALSE(str.LoadStringW(0x7FF0, hInst));
    EXPECT_EQ(Exact(str), "kept");
    EXPECT_TRUE(str.LoadStringW(TEST_STRING_LAST, hInst));
    EXPECT_EQ(Exact(str), "last");
    EXPECT_TRUE(str.LoadStringW(TEST_STRING_ZERO, hInst));
    EXPECT_EQ(Exact(str), "ends in zero") << "a zero at the end is not counted";
}
