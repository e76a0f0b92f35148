// Where Wine does not do as Windows does.
#pragma once

#include <platform/platform.h>

#include <gtest/gtest.h>

namespace test {

inline bool IsWine()
{
#if defined(_WIN32)
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

// What Windows does, and what Wine is known to do instead: the mark fails when the difference goes away.
template <class VALUE> void ExpectButForWine(const VALUE& got, const VALUE& windows, const VALUE& wine)
{
    EXPECT_NE(windows, wine) << "no difference";
    EXPECT_EQ(got, IsWine() ? wine : windows);
}

} // namespace test
