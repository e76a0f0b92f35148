// String tables that lie about their lengths: nothing outside of the resource may be read. AddressSanitizer
// watches the blocks, which have no slack behind them.
#include <gesso/platform/headless/headless.h>

#include <tests/containers/StringTesting.h>

#include <memory>
#include <vector>

using namespace gesso::headless;

namespace {

std::string Load(std::vector<wchar_t> table, UINT nEntry)
{
    AddResource(HostModule(), reinterpret_cast<LPCWSTR>(RT_STRING), MAKEINTRESOURCEW(9),
                std::as_bytes(std::span(table)));
    OString<wchar_t> str = Str(L"kept");
    const bool fLoaded = str.LoadStringW(8 * 16 + nEntry, HostModule());
    RemoveResources(HostModule());
    return (fLoaded ? "loaded " : "") + Checked(str);
}

} // namespace

TEST(StringTable, ATableThatEndsEarlyHasNoMoreEntries)
{
    EXPECT_EQ(Load({1, L'a', 2, L'b', L'c'}, 1), "loaded bc");
    EXPECT_EQ(Load({1, L'a', 2, L'b', L'c'}, 2), "kept");
    EXPECT_EQ(Load({1, L'a', 2, L'b'}, 1), "kept");
    EXPECT_EQ(Load({5, L'a'}, 1), "kept");
    EXPECT_EQ(Load({0xFFFF}, 0), "kept");
    EXPECT_EQ(Load({0, 0, 0}, 15), "kept");
    EXPECT_EQ(Load({1, 0}, 0), "loaded ") << "an entry of a zero alone is there, and empty";
}
