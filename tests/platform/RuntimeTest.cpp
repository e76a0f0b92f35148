// What the library takes from the C runtime's wide operations, on either platform.
#include <platform/platform.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Narrow(const wchar_t* s)
{
    return {s, s + wcslen(s)};
}

/// Formats in the two passes that a caller with an exact block needs.
std::string Format(const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int length = _vscwprintf(format, args);
    wchar_t text[200] = {};
    EXPECT_EQ(_vsnwprintf(text, 0x7FFFFFFF, format, again), length);
    va_end(again);
    va_end(args);
    EXPECT_EQ(wcslen(text), static_cast<size_t>(length));
    return Narrow(text);
}

} // namespace

TEST(Runtime, FormatsStringsInThePlatformsWidths)
{
    EXPECT_EQ(Format(L"%s|%S|%hs|%ls|%ws", L"wide", "narrow", "h", L"l", L"w"), "wide|narrow|h|l|w");
    EXPECT_EQ(Format(L"[%5s][%-5s][%.2s][%*s]", L"ab", L"cd", L"efg", 3, L"x"), "[   ab][cd   ][ef][  x]");
    EXPECT_EQ(Format(L"%c%C%hc%lc|%3c|%%|%s", L'a', 'b', 'c', L'd', L'e', static_cast<wchar_t*>(nullptr)),
              "abcd|  e|%|(null)");
}

TEST(Runtime, FormatsNumbersInThePlatformsSizes)
{
    EXPECT_EQ(Format(L"%d %i %u %x %X %o", -1, 2, 0xFFFFFFFFu, 255, 255, 8), "-1 2 4294967295 ff FF 10");
    EXPECT_EQ(Format(L"%05d|%+d|%-4d|%.3d|%#x", 42, 42, 42, 7, 16), "00042|+42|42  |007|0x10");
    EXPECT_EQ(Format(L"%I64d %lld %I64x %ld %hd", -(1LL << 40), 1LL << 40, 1LL << 40, LONG{-5}, 65537),
              "-1099511627776 1099511627776 10000000000 -5 1");
    EXPECT_EQ(Format(L"%.2f %g %5.1f", 1.005, 0.5, 2.5), "1.00 0.5   2.5");
    EXPECT_EQ(Format(L"%p", reinterpret_cast<void*>(uintptr_t{0xAB})), "00000000000000AB");
}

TEST(Runtime, BoundedFormattingTellsWhatDidNotFit)
{
    wchar_t text[4] = {L'?', L'?', L'?', L'?'};
    EXPECT_EQ(_snwprintf(text, 3, L"%s", L"abcd"), -1);
    EXPECT_EQ(text[3], L'?') << "wrote past the bound";
    EXPECT_EQ(_snwprintf(text, 3, L"abc"), 3);
    EXPECT_EQ(text[3], L'?') << "an exact fit has no terminator";
#if defined(_MSC_VER)
    EXPECT_LT(swprintf(text, 3, L"%s", L"abc"), 0); // the C runtime's own, some versions of which tell -2
#else
    EXPECT_EQ(swprintf(text, 3, L"%s", L"abc"), -1);
#endif
    EXPECT_EQ(Narrow(text), "ab");
    EXPECT_EQ(swprintf(text, 4, L"%s", L"abc"), 3);
    EXPECT_EQ(Narrow(text), "abc");
}

TEST(Runtime, FindsCharactersAndParts)
{
    const wchar_t* text = L"one two one";
    EXPECT_EQ(wcschr(text, L'o'), text);
    EXPECT_EQ(wcsrchr(text, L'o'), text + 8);
    EXPECT_EQ(wcschr(text, L'\0'), text + 11);
    EXPECT_EQ(wcsrchr(text, L'z'), nullptr);
    EXPECT_EQ(wcsstr(text, L"two"), text + 4);
    EXPECT_EQ(wcsstr(text, L"three"), nullptr);
    EXPECT_EQ(wcsstr(text, L""), text);
    EXPECT_EQ(wcspbrk(text, L"wt"), text + 4);
    EXPECT_EQ(wcsspn(text, L"neo"), 3u);
    EXPECT_EQ(wcscspn(text, L" "), 3u);
    EXPECT_EQ(wcsnlen(text, 5), 5u);
    EXPECT_EQ(wcsnlen(text, 50), 11u);
}

TEST(Runtime, ChangesTextInPlace)
{
    wchar_t text[16] = L"ab";
    wcscat(text, L"Cd");
    EXPECT_EQ(Narrow(_wcsupr(text)), "ABCD");
    EXPECT_EQ(Narrow(_wcslwr(text)), "abcd");
    EXPECT_EQ(Narrow(_wcsrev(text)), "dcba");
    wcsncpy(text, L"xy", 4);
    EXPECT_EQ(wmemcmp(text, L"xy\0\0", 5), 0) << "pads with zeros and stops at the count";
    wmemmove(text + 1, text, 2);
    EXPECT_EQ(Narrow(text), "xxy");
    wmemset(text, L'-', 2);
    EXPECT_EQ(Narrow(text), "--y");
}

TEST(Runtime, ReadsNumbers)
{
    wchar_t* end = nullptr;
    const wchar_t* text = L" -12px";
    EXPECT_EQ(wcstol(text, &end, 10), -12);
    EXPECT_EQ(end, text + 4);
    EXPECT_EQ(wcstol(L"0x1F", nullptr, 0), 31);
    EXPECT_EQ(wcstol(L"99999999999", nullptr, 10), 0x7FFFFFFF);
    EXPECT_EQ(_wtoi(L"42"), 42);
    EXPECT_EQ(wcstol(L"none", &end, 10), 0);
    EXPECT_EQ(Narrow(end), "none");
}

TEST(Runtime, KnowsTheKindsOfCharacters)
{
    EXPECT_TRUE(iswalnum(L'7') && iswalnum(L'z') && iswalnum(0xE4));
    EXPECT_FALSE(iswalnum(L'_') || iswalnum(L' '));
    EXPECT_TRUE(iswspace(L'\t') && iswspace(L' '));
    EXPECT_FALSE(iswspace(L'a'));
    EXPECT_EQ(towupper(L'q'), static_cast<wint_t>(L'Q'));
    EXPECT_EQ(towlower(L'Q'), static_cast<wint_t>(L'q'));
}
