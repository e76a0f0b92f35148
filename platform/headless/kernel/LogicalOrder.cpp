// The shell's order of names, and that of the user's language.

#include "../core/Text.h"

#include <platform/platform.h>

extern "C" int WINAPI StrCmpLogicalW(LPCWSTR psz1, LPCWSTR psz2);

namespace gesso::headless {
namespace {

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// Takes the digits that a text begins with, without zeros in front.
WideView TakeNumber(WideView& text)
{
    size_t begin = 0;
    while (begin + 1 < text.size() && text[begin] == u'0' && IsDigit(text[begin + 1])) {
        ++begin;
    }
    size_t end = begin;
    while (end < text.size() && IsDigit(text[end])) {
        ++end;
    }
    const WideView number = text.substr(begin, end - begin);
    text.remove_prefix(end);
    return number;
}

int CompareNumbers(WideView a, WideView b)
{
    return a.size() != b.size() ? (a.size() < b.size() ? -1 : 1) : a.compare(b);
}

int CompareCharacters(char16_t a, char16_t b)
{
    return static_cast<int>(towupper(a)) - static_cast<int>(towupper(b));
}

// Digits stand before all else.
int CompareNext(WideView& a, WideView& b)
{
    const bool digitA = IsDigit(a.front());
    const bool digitB = IsDigit(b.front());
    if (digitA && digitB) {
        const WideView number = TakeNumber(a);
        return CompareNumbers(number, TakeNumber(b));
    }
    if (digitA != digitB) {
        return digitA ? -1 : 1;
    }
    const int order = CompareCharacters(a.front(), b.front());
    a.remove_prefix(1);
    b.remove_prefix(1);
    return order;
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

int WINAPI StrCmpLogicalW(LPCWSTR psz1, LPCWSTR psz2)
{
    WideView a = View(psz1);
    WideView b = View(psz2);
    while (!a.empty() && !b.empty()) {
        if (const int order = CompareNext(a, b)) {
            return order < 0 ? -1 : 1;
        }
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}

int WINAPI lstrcmpiW(LPCWSTR psz1, LPCWSTR psz2)
{
    WideView a = View(psz1);
    WideView b = View(psz2);
    while (!a.empty() && !b.empty()) {
        if (const int order = CompareCharacters(a.front(), b.front())) {
            return order < 0 ? -1 : 1;
        }
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}
