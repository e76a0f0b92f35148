// The C runtime's wide operations for 16-bit characters, under the platform's names.
//
// The Linux runtime reads wide characters as 32 bits. Each operation that the library uses is therefore
// defined here with the meaning of the platform's runtime in its default locale: case folds for A to Z only,
// collation compares units. Names that the Linux runtime has as well are redirected; the rest are declared as
// they are.
#pragma once

size_t gesso_wcslen(const wchar_t* s);
size_t gesso_wcsnlen(const wchar_t* s, size_t limit);
/// -1, 0 or 1.
int gesso_wcscmp(const wchar_t* a, const wchar_t* b);
/// The difference of the first units that differ.
int gesso_wcsncmp(const wchar_t* a, const wchar_t* b, size_t n);
wchar_t* gesso_wcscpy(wchar_t* to, const wchar_t* from);
wchar_t* gesso_wcsncpy(wchar_t* to, const wchar_t* from, size_t n);
wchar_t* gesso_wcscat(wchar_t* to, const wchar_t* from);
const wchar_t* gesso_wcschr(const wchar_t* s, wchar_t c);
wchar_t* gesso_wcschr(wchar_t* s, wchar_t c);
const wchar_t* gesso_wcsrchr(const wchar_t* s, wchar_t c);
wchar_t* gesso_wcsrchr(wchar_t* s, wchar_t c);
const wchar_t* gesso_wcsstr(const wchar_t* s, const wchar_t* part);
wchar_t* gesso_wcsstr(wchar_t* s, const wchar_t* part);
const wchar_t* gesso_wcspbrk(const wchar_t* s, const wchar_t* set);
wchar_t* gesso_wcspbrk(wchar_t* s, const wchar_t* set);
size_t gesso_wcsspn(const wchar_t* s, const wchar_t* set);
size_t gesso_wcscspn(const wchar_t* s, const wchar_t* set);
wchar_t* gesso_wmemcpy(wchar_t* to, const wchar_t* from, size_t n);
wchar_t* gesso_wmemmove(wchar_t* to, const wchar_t* from, size_t n);
wchar_t* gesso_wmemset(wchar_t* to, wchar_t c, size_t n);
int gesso_wmemcmp(const wchar_t* a, const wchar_t* b, size_t n);
int gesso_wcscoll(const wchar_t* a, const wchar_t* b);
long gesso_wcstol(const wchar_t* s, wchar_t** end, int base);

wint_t gesso_towlower(wint_t c);
wint_t gesso_towupper(wint_t c);
int gesso_iswalnum(wint_t c);
int gesso_iswalpha(wint_t c);
int gesso_iswdigit(wint_t c);
int gesso_iswspace(wint_t c);

/// A copy that the caller frees with `free`.
wchar_t* _wcsdup(const wchar_t* s);
/// The difference of the first units that differ once folded.
int _wcsicmp(const wchar_t* a, const wchar_t* b);
int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t n);
int _wcsncoll(const wchar_t* a, const wchar_t* b, size_t n);
int _wcsicoll(const wchar_t* a, const wchar_t* b);
int _wcsnicoll(const wchar_t* a, const wchar_t* b, size_t n);
wchar_t* _wcslwr(wchar_t* s);
wchar_t* _wcsupr(wchar_t* s);
wchar_t* _wcsrev(wchar_t* s);
int _wtoi(const wchar_t* s);

/// The length that the formatted text has, its terminator not counted.
int _vscwprintf(const wchar_t* format, va_list args);
int _scwprintf(const wchar_t* format, ...);
/// Writes at most `n` characters and terminates where there is room. Returns the length, or -1 if it exceeds
/// `n`; a null buffer with `n` 0 only counts.
int _vsnwprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args);
int _snwprintf(wchar_t* to, size_t n, const wchar_t* format, ...);
/// As `_vsnwprintf`, but always terminates; text that does not fit with its terminator gives -1.
int gesso_vswprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args);
int gesso_swprintf(wchar_t* to, size_t n, const wchar_t* format, ...);

#undef wcslen
#define wcslen gesso_wcslen
#undef wcsnlen
#define wcsnlen gesso_wcsnlen
#undef wcscmp
#define wcscmp gesso_wcscmp
#undef wcsncmp
#define wcsncmp gesso_wcsncmp
#undef wcscpy
#define wcscpy gesso_wcscpy
#undef wcsncpy
#define wcsncpy gesso_wcsncpy
#undef wcscat
#define wcscat gesso_wcscat
#undef wcschr
#define wcschr gesso_wcschr
#undef wcsrchr
#define wcsrchr gesso_wcsrchr
#undef wcsstr
#define wcsstr gesso_wcsstr
#undef wcspbrk
#define wcspbrk gesso_wcspbrk
#undef wcsspn
#define wcsspn gesso_wcsspn
#undef wcscspn
#define wcscspn gesso_wcscspn
#undef wmemcpy
#define wmemcpy gesso_wmemcpy
#undef wmemmove
#define wmemmove gesso_wmemmove
#undef wmemset
#define wmemset gesso_wmemset
#undef wmemcmp
#define wmemcmp gesso_wmemcmp
#undef wcscoll
#define wcscoll gesso_wcscoll
#undef wcstol
#define wcstol gesso_wcstol
#undef towlower
#define towlower gesso_towlower
#undef towupper
#define towupper gesso_towupper
#undef iswalnum
#define iswalnum gesso_iswalnum
#undef iswalpha
#define iswalpha gesso_iswalpha
#undef iswdigit
#define iswdigit gesso_iswdigit
#undef iswspace
#define iswspace gesso_iswspace
#undef vswprintf
#define vswprintf gesso_vswprintf
#undef swprintf
#define swprintf gesso_swprintf
