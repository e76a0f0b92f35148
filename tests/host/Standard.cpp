// What a host uses of its own C++ library, as containers, algorithms and errors, beside the DLL's. Compiled
// without optimization nothing of it is the compiler's to leave out.
#include "Checks.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <numeric>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace {

template <class NUMBER> void CheckSort(const char* pszName)
{
    std::vector<NUMBER> numbers(1000);
    std::iota(numbers.begin(), numbers.end(), NUMBER{});
    std::reverse(numbers.begin(), numbers.end());
    std::sort(numbers.begin(), numbers.end());
    Check(std::is_sorted(numbers.begin(), numbers.end()), pszName);
    std::ranges::sort(numbers, std::greater<>());
    Check(std::is_sorted(numbers.rbegin(), numbers.rend()), pszName);
}

void CheckContainersOfHost()
{
    Group("the host's C++ library: containers");
    std::vector<std::wstring> texts;
    std::map<std::wstring, int> places;
    std::unordered_map<std::string, std::vector<int>> lists;
    std::set<int> numbers;
    for (int i = 0; i < 200; ++i) {
        texts.push_back(L"a text of some length, " + std::to_wstring(i));
        places[texts.back()] = i;
        lists["list " + std::to_string(i % 7)].push_back(i);
        numbers.insert(-i);
    }
    Check(places.at(texts[150]) == 150 && lists.size() == 7 && *numbers.begin() == -199, "they find");
    std::sort(texts.begin(), texts.end(), std::greater<>());
    Check(texts.front() == L"a text of some length, 99", "and sort");
    Same(std::to_wstring(-9223372036854775807LL - 1).c_str(), L"-9223372036854775808", "the least number");
    Check(std::to_string(18446744073709551615ULL) == "18446744073709551615", "and the largest");
}

void CheckAlgorithms()
{
    Group("the host's C++ library: numbers sorted");
    CheckSort<int>("of int");
    CheckSort<unsigned long>("of unsigned long");
    CheckSort<long long>("of long long");
    CheckSort<float>("of float");
    CheckSort<double>("of double");
}

void CheckOwners()
{
    Group("the host's C++ library: owners");
    auto shared = std::make_shared<GButton>();
    const std::weak_ptr<GWnd> watched = shared;
    Check(watched.lock() == shared, "a shared control");
    shared.reset();
    Check(watched.expired(), "which goes");
    auto unique = std::make_unique<GList>();
    std::function<UINT()> count = [&] { return unique->GetItemCount(); };
    Same(count(), 0, "a function that asks a control");
    struct alignas(64) Wide
    {
        char c[64]{};
    };
    std::vector<Wide> wide(9);
    Check(reinterpret_cast<size_t>(wide.data()) % 64 == 0, "blocks that are aligned to more");
}

template <class ERROR_CLASS, class WORK> void CheckError(const char* pszWhat, WORK work)
{
    bool fCaught = false;
    try {
        work();
    } catch (const ERROR_CLASS& error) {
        fCaught = *error.what();
    }
    Check(fCaught, pszWhat);
}

void CheckErrors()
{
    Group("the host's C++ library: errors");
    CheckError<std::bad_optional_access>("nothing in an optional", [] { std::optional<int>().value(); });
    CheckError<std::bad_variant_access>("another kind in a variant", [] {
        std::variant<int, std::string> either("text");
        std::get<int>(either);
    });
    CheckError<std::out_of_range>("no such place", [] { std::vector<int>().at(3); });
    CheckError<std::out_of_range>("no such place in a text", [] { std::wstring().at(1); });
    CheckError<std::length_error>("a text too long", [] { std::wstring().resize(std::wstring::npos); });
    CheckError<std::bad_function_call>("no function", [] { std::function<void()>()(); });
    CheckError<std::bad_weak_ptr>("nobody has it", [] { std::shared_ptr<int>(std::weak_ptr<int>()); });
    CheckError<std::runtime_error>("thrown by the host",
                                   [] { throw std::runtime_error(std::string("own")); });
    CheckError<std::exception>("a range", [] { throw std::range_error("range"); });
}

} // namespace

void CheckStandard()
{
    CheckContainersOfHost();
    CheckAlgorithms();
    CheckOwners();
    CheckErrors();
}
