#include <gesso/framework/FoldCase.h>

namespace gesso {

wchar_t FoldCase(wchar_t c)
{
    constexpr wchar_t FIRST_FOREIGN = 0x80;
    if (c < FIRST_FOREIGN) {
        return static_cast<wchar_t>(c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c);
    }
    // A character in the place of the pointer stands for itself.
    return static_cast<wchar_t>(
        reinterpret_cast<UINT_PTR>(CharLowerW(reinterpret_cast<LPWSTR>(UINT_PTR{c}))));
}

LPCWSTR BehindStart(LPCWSTR psz, LPCWSTR pszStart)
{
    while (*pszStart && FoldCase(*psz) == FoldCase(*pszStart)) {
        ++psz;
        ++pszStart;
    }
    return *pszStart ? nullptr : psz;
}

} // namespace gesso
