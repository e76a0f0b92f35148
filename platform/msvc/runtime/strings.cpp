// The strings of the C++ library's headers, which leave these to its compiled part.
#include <string>

_LIBCPP_BEGIN_NAMESPACE_STD

template class basic_string<char>;
template class basic_string<wchar_t>;

template <class TEXT> static TEXT Digits(unsigned long long n, bool fNegative)
{
    typename TEXT::value_type digits[24];
    auto* const pEnd = digits + 24;
    auto* p = pEnd;
    do {
        *--p = static_cast<typename TEXT::value_type>('0' + n % 10);
    } while (n /= 10);
    if (fNegative) {
        *--p = '-';
    }
    return TEXT(p, pEnd);
}

template <class TEXT> static TEXT Signed(long long n)
{
    return Digits<TEXT>(n < 0 ? 0 - static_cast<unsigned long long>(n) : n, n < 0);
}

string to_string(int n)
{
    return Signed<string>(n);
}

string to_string(unsigned n)
{
    return Digits<string>(n, false);
}

string to_string(long n)
{
    return Signed<string>(n);
}

string to_string(unsigned long n)
{
    return Digits<string>(n, false);
}

string to_string(long long n)
{
    return Signed<string>(n);
}

string to_string(unsigned long long n)
{
    return Digits<string>(n, false);
}

wstring to_wstring(int n)
{
    return Signed<wstring>(n);
}

wstring to_wstring(unsigned n)
{
    return Digits<wstring>(n, false);
}

wstring to_wstring(long n)
{
    return Signed<wstring>(n);
}

wstring to_wstring(unsigned long n)
{
    return Digits<wstring>(n, false);
}

wstring to_wstring(long long n)
{
    return Signed<wstring>(n);
}

wstring to_wstring(unsigned long long n)
{
    return Digits<wstring>(n, false);
}

_LIBCPP_END_NAMESPACE_STD
