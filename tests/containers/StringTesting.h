// What the tests of the strings share.
#pragma once

#include <gesso/containers/OString.h>

#include <tests/support/AllowMisuse.h>

#include <gtest/gtest.h>

#include <string>

inline OString<wchar_t> Str(LPCWSTR psz)
{
    return OString<wchar_t>::Build(L"%s", psz);
}

// The whole text, zeros within it as well, for comparison and messages. Tests keep to Latin-1.
inline std::string Narrow(const OString<wchar_t>& str)
{
    const wchar_t* psz = str;
    return {psz, psz + str.GetLength()};
}

inline UINT Capacity(const OString<wchar_t>& str)
{
    return str.d(const_cast<wchar_t*>(static_cast<LPCWSTR>(str)))->nBufferLength;
}

// The text, after a look at what holds for every string: a terminator at its length, within the block.
inline std::string Checked(const OString<wchar_t>& str)
{
    EXPECT_EQ(static_cast<LPCWSTR>(str)[str.GetLength()], 0);
    EXPECT_GT(Capacity(str), str.GetLength());
    return Narrow(str);
}
