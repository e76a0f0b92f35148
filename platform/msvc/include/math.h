#include_next <math.h>
#if defined(__cplusplus) && !defined(GESSO_MATH)
#define GESSO_MATH
// Microsoft's header gives C++ functions here, not macros.
#undef fpclassify
#undef signbit
#undef isfinite
#undef isinf
#undef isnan
#undef isnormal
#undef isgreater
#undef isgreaterequal
#undef isless
#undef islessequal
#undef islessgreater
#undef isunordered
extern "C++" {
template <class T> constexpr bool isfinite(T x) noexcept
{
    return __builtin_isfinite((double)x);
}
template <class T> constexpr bool isinf(T x) noexcept
{
    return __builtin_isinf((double)x);
}
template <class T> constexpr bool isnan(T x) noexcept
{
    return __builtin_isnan((double)x);
}
template <class T> constexpr bool isnormal(T x) noexcept
{
    return __builtin_isnormal((double)x);
}
template <class T, class U> bool isgreater(T x, U y) noexcept
{
    return __builtin_isgreater((double)x, (double)y);
}
template <class T, class U> bool isgreaterequal(T x, U y) noexcept
{
    return __builtin_isgreaterequal((double)x, (double)y);
}
template <class T, class U> bool isless(T x, U y) noexcept
{
    return __builtin_isless((double)x, (double)y);
}
template <class T, class U> bool islessequal(T x, U y) noexcept
{
    return __builtin_islessequal((double)x, (double)y);
}
template <class T, class U> bool islessgreater(T x, U y) noexcept
{
    return __builtin_islessgreater((double)x, (double)y);
}
template <class T, class U> bool isunordered(T x, U y) noexcept
{
    return __builtin_isunordered((double)x, (double)y);
}
}
#endif
