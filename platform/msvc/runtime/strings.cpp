// The strings of the C++ library's headers, which leave these to its compiled part.
#include <stdio.h>
#include <string>

_LIBCPP_BEGIN_NAMESPACE_STD

template class basic_string<char>;
template class basic_string<wchar_t>;

wstring to_wstring(int value)
{
    wchar_t text[16];
    _snwprintf(text, 16, L"%d", value);
    return text;
}

wstring to_wstring(unsigned value)
{
    wchar_t text[16];
    _snwprintf(text, 16, L"%u", value);
    return text;
}

_LIBCPP_END_NAMESPACE_STD
