#include <platform/platform.h>

#include <algorithm>
#include <climits>

namespace {

wchar_t FoldLower(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

wchar_t FoldUpper(wchar_t c)
{
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - (L'a' - L'A')) : c;
}

wchar_t Same(wchar_t c)
{
    return c;
}

/// Compares up to the terminator, at most `n` units, each after `fold`; the difference decides.
int CompareUnits(const wchar_t* a, const wchar_t* b, size_t n, wchar_t (*fold)(wchar_t))
{
    for (; n > 0; --n, ++a, ++b) {
        const int difference = fold(*a) - fold(*b);
        if (difference != 0 || *a == 0) {
            return difference;
        }
    }
    return 0;
}

int Sign(int n)
{
    return (n > 0) - (n < 0);
}

bool InSet(wchar_t c, const wchar_t* set)
{
    return c != 0 && gesso_wcschr(set, c) != nullptr;
}

int DigitValue(wchar_t c)
{
    if (c >= L'0' && c <= L'9') {
        return c - L'0';
    }
    const wchar_t lower = FoldLower(c);
    return lower >= L'a' && lower <= L'z' ? lower - L'a' + 10 : INT_MAX;
}

/// Skips the "0x" of base 16, and settles base 0.
const wchar_t* SkipBasePrefix(const wchar_t* s, int& base)
{
    const bool hex = s[0] == L'0' && FoldLower(s[1]) == L'x' && DigitValue(s[2]) < 16;
    if (base == 0) {
        base = hex ? 16 : s[0] == L'0' ? 8 : 10;
    }
    return hex && base == 16 ? s + 2 : s;
}

} // namespace

size_t gesso_wcslen(const wchar_t* s)
{
    const wchar_t* end = s;
    while (*end != 0) {
        ++end;
    }
    return static_cast<size_t>(end - s);
}

size_t gesso_wcsnlen(const wchar_t* s, size_t limit)
{
    return static_cast<size_t>(std::find(s, s + limit, L'\0') - s);
}

int gesso_wcscmp(const wchar_t* a, const wchar_t* b)
{
    return Sign(CompareUnits(a, b, SIZE_MAX, Same));
}

int gesso_wcsncmp(const wchar_t* a, const wchar_t* b, size_t n)
{
    return CompareUnits(a, b, n, Same);
}

wchar_t* gesso_wcscpy(wchar_t* to, const wchar_t* from)
{
    return gesso_wmemcpy(to, from, gesso_wcslen(from) + 1);
}

wchar_t* gesso_wcsncpy(wchar_t* to, const wchar_t* from, size_t n)
{
    const size_t length = gesso_wcsnlen(from, n);
    gesso_wmemcpy(to, from, length);
    std::fill(to + length, to + n, L'\0');
    return to;
}

wchar_t* gesso_wcscat(wchar_t* to, const wchar_t* from)
{
    gesso_wcscpy(to + gesso_wcslen(to), from);
    return to;
}

const wchar_t* gesso_wcschr(const wchar_t* s, wchar_t c)
{
    while (*s != c) {
        if (*s++ == 0) {
            return nullptr;
        }
    }
    return s;
}

wchar_t* gesso_wcschr(wchar_t* s, wchar_t c)
{
    return const_cast<wchar_t*>(gesso_wcschr(static_cast<const wchar_t*>(s), c));
}

const wchar_t* gesso_wcsrchr(const wchar_t* s, wchar_t c)
{
    const wchar_t* last = nullptr;
    for (;; ++s) {
        if (*s == c) {
            last = s;
        }
        if (*s == 0) {
            return last;
        }
    }
}

wchar_t* gesso_wcsrchr(wchar_t* s, wchar_t c)
{
    return const_cast<wchar_t*>(gesso_wcsrchr(static_cast<const wchar_t*>(s), c));
}

const wchar_t* gesso_wcsstr(const wchar_t* s, const wchar_t* part)
{
    const wchar_t* end = s + gesso_wcslen(s);
    const size_t length = gesso_wcslen(part);
    const wchar_t* found = std::search(s, end, part, part + length);
    return found == end && length > 0 ? nullptr : found;
}

wchar_t* gesso_wcsstr(wchar_t* s, const wchar_t* part)
{
    return const_cast<wchar_t*>(gesso_wcsstr(static_cast<const wchar_t*>(s), part));
}

const wchar_t* gesso_wcspbrk(const wchar_t* s, const wchar_t* set)
{
    s += gesso_wcscspn(s, set);
    return *s != 0 ? s : nullptr;
}

wchar_t* gesso_wcspbrk(wchar_t* s, const wchar_t* set)
{
    return const_cast<wchar_t*>(gesso_wcspbrk(static_cast<const wchar_t*>(s), set));
}

size_t gesso_wcsspn(const wchar_t* s, const wchar_t* set)
{
    size_t n = 0;
    while (InSet(s[n], set)) {
        ++n;
    }
    return n;
}

size_t gesso_wcscspn(const wchar_t* s, const wchar_t* set)
{
    size_t n = 0;
    while (s[n] != 0 && !InSet(s[n], set)) {
        ++n;
    }
    return n;
}

wchar_t* gesso_wmemcpy(wchar_t* to, const wchar_t* from, size_t n)
{
    return n == 0 ? to : static_cast<wchar_t*>(memcpy(to, from, n * sizeof(wchar_t)));
}

wchar_t* gesso_wmemmove(wchar_t* to, const wchar_t* from, size_t n)
{
    return n == 0 ? to : static_cast<wchar_t*>(memmove(to, from, n * sizeof(wchar_t)));
}

wchar_t* gesso_wmemset(wchar_t* to, wchar_t c, size_t n)
{
    std::fill(to, to + n, c);
    return to;
}

int gesso_wmemcmp(const wchar_t* a, const wchar_t* b, size_t n)
{
    const auto [atA, atB] = std::mismatch(a, a + n, b);
    return atA == a + n ? 0 : *atA < *atB ? -1 : 1;
}

int gesso_wcscoll(const wchar_t* a, const wchar_t* b)
{
    return gesso_wcscmp(a, b);
}

long gesso_wcstol(const wchar_t* s, wchar_t** end, int base)
{
    const wchar_t* digit = s;
    while (gesso_iswspace(*digit)) {
        ++digit;
    }
    const bool negative = *digit == L'-';
    if (negative || *digit == L'+') {
        ++digit;
    }
    digit = SkipBasePrefix(digit, base);
    const wchar_t* first = digit;
    int64_t value = 0;
    for (; DigitValue(*digit) < base; ++digit) {
        value = std::min<int64_t>(value * base + DigitValue(*digit), int64_t{INT_MAX} + 1);
    }
    if (end) {
        *end = const_cast<wchar_t*>(digit == first ? s : digit);
    }
    // The platform's long is 32 bits wide.
    return negative ? static_cast<long>(-value) : static_cast<long>(std::min<int64_t>(value, INT_MAX));
}

wint_t gesso_towlower(wint_t c)
{
    return FoldLower(static_cast<wchar_t>(c));
}

wint_t gesso_towupper(wint_t c)
{
    return FoldUpper(static_cast<wchar_t>(c));
}

wchar_t* _wcsdup(const wchar_t* s)
{
    const size_t size = gesso_wcslen(s) + 1;
    auto* copy = static_cast<wchar_t*>(malloc(size * sizeof(wchar_t)));
    return copy ? gesso_wmemcpy(copy, s, size) : nullptr;
}

int _wcsicmp(const wchar_t* a, const wchar_t* b)
{
    return CompareUnits(a, b, SIZE_MAX, FoldLower);
}

int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t n)
{
    return CompareUnits(a, b, n, FoldLower);
}

int _wcsncoll(const wchar_t* a, const wchar_t* b, size_t n)
{
    return gesso_wcsncmp(a, b, n);
}

int _wcsicoll(const wchar_t* a, const wchar_t* b)
{
    return _wcsicmp(a, b);
}

int _wcsnicoll(const wchar_t* a, const wchar_t* b, size_t n)
{
    return _wcsnicmp(a, b, n);
}

wchar_t* _wcslwr(wchar_t* s)
{
    std::transform(s, s + gesso_wcslen(s), s, FoldLower);
    return s;
}

wchar_t* _wcsupr(wchar_t* s)
{
    std::transform(s, s + gesso_wcslen(s), s, FoldUpper);
    return s;
}

wchar_t* _wcsrev(wchar_t* s)
{
    std::reverse(s, s + gesso_wcslen(s));
    return s;
}

int _wtoi(const wchar_t* s)
{
    return static_cast<int>(gesso_wcstol(s, nullptr, 10));
}
