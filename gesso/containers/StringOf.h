// A string of a text.
#pragma once

#include <gesso/containers/OString.h>

namespace gesso {

// Empty for a null text.
inline OString<wchar_t> StringOf(LPCWSTR psz)
{
    return OString<wchar_t>::Build(L"%s", psz ? psz : L"");
}

} // namespace gesso
