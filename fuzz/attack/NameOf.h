// Names of classes, from the compiler's own.
#pragma once

#include <string_view>
#include <vector>

namespace attack {

template <class CLASS> constexpr std::string_view NameOf()
{
    constexpr std::string_view NAME = __PRETTY_FUNCTION__;
    constexpr size_t FIRST = NAME.find("CLASS = ") + 8;
    return NAME.substr(FIRST, NAME.find_first_of(";]", FIRST) - FIRST);
}

template <class CLASS> std::vector<wchar_t> WideNameOf()
{
    std::vector<wchar_t> name(NameOf<CLASS>().begin(), NameOf<CLASS>().end());
    name.push_back(0);
    return name;
}

} // namespace attack
