// Text between character sets, and the case of characters.
#include <platform/platform.h>

#include <gtest/gtest.h>

TEST(Characters, TextGoesToUtf8AndBack)
{
    const wchar_t text[] = {L'a', 0xE4, 0x20AC, 0xD83D, 0xDE00, 0xD800, 0};
    const char utf8[] = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD";
    char bytes[32];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr), 14);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, 32, nullptr, nullptr), 14);
    EXPECT_STREQ(bytes, utf8);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, 13, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    wchar_t back[16];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, utf8, -1, back, 16), 7);
    EXPECT_EQ(wmemcmp(back, text, 5), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xFFz", 2, back, 16), 2);
    EXPECT_EQ(back[0], 0xFFFD);
    EXPECT_EQ(back[1], L'z');
}

TEST(Characters, CaseChangesBeyondAscii)
{
    wchar_t text[] = {L'a', 0xE4, L'1', 0};
    CharUpperW(text);
    EXPECT_EQ(text[0], L'A');
    EXPECT_EQ(text[1], 0xC4);
    EXPECT_EQ(CharLowerW(reinterpret_cast<LPWSTR>(uintptr_t{0xC4})),
              reinterpret_cast<LPWSTR>(uintptr_t{0xE4}));
    EXPECT_TRUE(IsCharAlphaW(0xE4) && IsCharAlphaNumericW(L'1'));
    EXPECT_FALSE(IsCharAlphaW(L'1') || IsCharAlphaNumericW(L'-'));
}
