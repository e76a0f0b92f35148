// The C runtime's wide operations where the compiler's own differ from the platform's.
//
// The runtime of Microsoft's compiler needs none of this. mingw-w64 answers `swprintf` and `vswprintf`
// itself, with the C standard's meaning of %s (narrow). These go to the platform's runtime instead, where %s
// is wide, as in `_vsnwprintf` and `_vscwprintf`.
#pragma once

#if defined(__MINGW32__)

/// Always terminates; text that does not fit with its terminator gives -1.
inline int gesso_vswprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args)
{
    if (!to || n == 0) {
        return -1;
    }
    const int length = _vsnwprintf(to, n - 1, format, args);
    const bool fits = length >= 0;
    to[fits ? static_cast<size_t>(length) : n - 1] = 0;
    return fits ? length : -1;
}

inline int gesso_swprintf(wchar_t* to, size_t n, const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const int length = gesso_vswprintf(to, n, format, args);
    va_end(args);
    return length;
}

#undef vswprintf
#define vswprintf gesso_vswprintf
#undef swprintf
#define swprintf gesso_swprintf

#endif
