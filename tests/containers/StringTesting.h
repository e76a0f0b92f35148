// What the tests of the strings share.
#pragma once

#include <gesso/containers/Check.h>

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

// The text, after a look at what holds for every string of its class.
template <class STRING> std::string Checked(const STRING& str)
{
    EXPECT_TRUE(gesso::Check(str));
    return Narrow(str);
}
