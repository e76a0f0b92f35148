// The small services of the system: arithmetic, debug output, time, characters.
#include "../core/Clock.h"
#include "../core/Text.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cwctype>
#include <locale.h>
#include <sched.h>
#include <unistd.h>

using namespace gesso::headless;

namespace {

locale_t Unicode()
{
    static const locale_t UNICODE_LOCALE = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return UNICODE_LOCALE;
}

/// One character of the wide case operations, which keep a character whose other case needs more than one
/// unit.
wchar_t ChangeCase(wchar_t c, wint_t (*change)(wint_t, locale_t))
{
    const wint_t changed = change(c, Unicode());
    return changed <= 0xFFFF ? static_cast<wchar_t>(changed) : c;
}

/// A pointer with a zero high part is a single character, not a text.
LPWSTR ChangeCase(LPWSTR text, wint_t (*change)(wint_t, locale_t))
{
    const auto value = reinterpret_cast<uintptr_t>(text);
    if (value <= 0xFFFF) {
        return reinterpret_cast<LPWSTR>(uintptr_t{ChangeCase(static_cast<wchar_t>(value), change)});
    }
    std::transform(text, text + wcslen(text), text, [change](wchar_t c) { return ChangeCase(c, change); });
    return text;
}

} // namespace

// A lock is its pointer: null while nobody holds it.
BOOLEAN WINAPI TryAcquireSRWLockExclusive(RTL_SRWLOCK* lock)
{
    void* open = nullptr;
    return std::atomic_ref(lock->Ptr).compare_exchange_strong(open, lock);
}

void WINAPI AcquireSRWLockExclusive(RTL_SRWLOCK* lock)
{
    while (!TryAcquireSRWLockExclusive(lock)) {
        sched_yield();
    }
}

void WINAPI ReleaseSRWLockExclusive(RTL_SRWLOCK* lock)
{
    std::atomic_ref(lock->Ptr).store(nullptr);
}

INT WINAPI MulDiv(INT number, INT numerator, INT denominator)
{
    if (denominator == 0) {
        return -1;
    }
    int64_t product = int64_t{number} * numerator;
    int64_t divisor = denominator;
    if (divisor < 0) {
        product = -product;
        divisor = -divisor;
    }
    const int64_t half = divisor / 2;
    const int64_t result = (product + (product < 0 ? -half : half)) / divisor;
    return result > INT32_MAX || result < -int64_t{INT32_MAX} ? -1 : static_cast<INT>(result);
}

void WINAPI OutputDebugStringA(LPCSTR text)
{
    fputs(text, stderr);
}

DWORD WINAPI GetTickCount()
{
    return static_cast<DWORD>(Now());
}

ULONGLONG WINAPI GetTickCount64()
{
    return Now();
}

void WINAPI GetSystemTimeAsFileTime(LPFILETIME time)
{
    // The clock of the desktop starts on the first day of the year 2000.
    constexpr ULONGLONG START = 125911584000000000;
    constexpr ULONGLONG TICKS_OF_MILLISECOND = 10000;
    const ULONGLONG ticks = START + Now() * TICKS_OF_MILLISECOND;
    time->dwLowDateTime = static_cast<DWORD>(ticks);
    time->dwHighDateTime = static_cast<DWORD>(ticks >> 32);
}

void WINAPI Sleep(DWORD milliseconds)
{
    SetNow(Now() + milliseconds);
}

DWORD WINAPI GetCurrentThreadId()
{
    return static_cast<DWORD>(gettid());
}

DWORD WINAPI GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}

LPWSTR WINAPI CharLowerW(LPWSTR text)
{
    return ChangeCase(text, towlower_l);
}

LPWSTR WINAPI CharUpperW(LPWSTR text)
{
    return ChangeCase(text, towupper_l);
}

DWORD WINAPI CharLowerBuffW(LPWSTR text, DWORD length)
{
    std::transform(text, text + length, text, [](wchar_t c) { return ChangeCase(c, towlower_l); });
    return length;
}

DWORD WINAPI CharUpperBuffW(LPWSTR text, DWORD length)
{
    std::transform(text, text + length, text, [](wchar_t c) { return ChangeCase(c, towupper_l); });
    return length;
}

BOOL WINAPI IsCharAlphaW(WCHAR c)
{
    return iswalpha_l(c, Unicode()) != 0;
}

BOOL WINAPI IsCharAlphaNumericW(WCHAR c)
{
    return iswalnum_l(c, Unicode()) != 0;
}
