// std::sort of numbers, which the C++ library compiles once.
#include <algorithm>
#include <functional>

_LIBCPP_BEGIN_NAMESPACE_STD

// The compiled library's own, which this header alone does not bring.
template <class COMPARE, class ITERATOR> void __sort(ITERATOR begin, ITERATOR end, COMPARE)
{
    __introsort<_ClassicAlgPolicy, ranges::less, ITERATOR,
                __use_branchless_sort<ranges::less, ITERATOR>::value>(begin, end, ranges::less{},
                                                                      2 * std::__log2i(end - begin));
}

template void __sort<__less<char>&, char*>(char*, char*, __less<char>&);
template void __sort<__less<wchar_t>&, wchar_t*>(wchar_t*, wchar_t*, __less<wchar_t>&);
template void __sort<__less<signed char>&, signed char*>(signed char*, signed char*, __less<signed char>&);
template void __sort<__less<unsigned char>&, unsigned char*>(unsigned char*, unsigned char*,
                                                             __less<unsigned char>&);
template void __sort<__less<short>&, short*>(short*, short*, __less<short>&);
template void __sort<__less<unsigned short>&, unsigned short*>(unsigned short*, unsigned short*,
                                                               __less<unsigned short>&);
template void __sort<__less<int>&, int*>(int*, int*, __less<int>&);
template void __sort<__less<unsigned>&, unsigned*>(unsigned*, unsigned*, __less<unsigned>&);
template void __sort<__less<long>&, long*>(long*, long*, __less<long>&);
template void __sort<__less<unsigned long>&, unsigned long*>(unsigned long*, unsigned long*,
                                                             __less<unsigned long>&);
template void __sort<__less<long long>&, long long*>(long long*, long long*, __less<long long>&);
template void __sort<__less<unsigned long long>&, unsigned long long*>(unsigned long long*,
                                                                       unsigned long long*,
                                                                       __less<unsigned long long>&);
template void __sort<__less<float>&, float*>(float*, float*, __less<float>&);
template void __sort<__less<double>&, double*>(double*, double*, __less<double>&);
template void __sort<__less<long double>&, long double*>(long double*, long double*, __less<long double>&);

_LIBCPP_END_NAMESPACE_STD
