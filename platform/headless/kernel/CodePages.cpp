// The conversions between code pages and 16-bit text; UTF-8 is the only code page.
#include "../core/Text.h"

#include <algorithm>

using namespace gesso::headless;

namespace {

// The contract that both conversions share: a size of 0 asks for the need, too small a buffer fails.
template <typename UNIT> int Deliver(const UNIT* from, size_t length, UNIT* to, int size)
{
    if (size == 0) {
        return static_cast<int>(length);
    }
    if (static_cast<size_t>(size) < length) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy(from, from + length, to);
    return static_cast<int>(length);
}

bool Refuses(UINT codePage, const void* from, int length)
{
    if (codePage == CP_UTF8 && from && length != 0) {
        return false;
    }
    SetLastError(ERROR_INVALID_PARAMETER);
    return true;
}

} // namespace

// With a length of -1 the text runs to its terminator, which is converted and counted as well.

INT WINAPI MultiByteToWideChar(UINT codePage, DWORD, LPCSTR from, INT length, LPWSTR to, INT size)
{
    if (Refuses(codePage, from, length)) {
        return 0;
    }
    const size_t bytes = length < 0 ? strlen(from) : static_cast<size_t>(length);
    const WideText units = FromUtf8({from, bytes});
    return Deliver(Characters(units), units.size() + (length < 0 ? 1 : 0), to, size);
}

INT WINAPI WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR from, INT length, LPSTR to, INT size, LPCSTR,
                               LPBOOL)
{
    if (Refuses(codePage, from, length)) {
        return 0;
    }
    const size_t units = length < 0 ? wcslen(from) : static_cast<size_t>(length);
    const std::string bytes = ToUtf8(WideView(reinterpret_cast<const char16_t*>(from), units));
    return Deliver(bytes.c_str(), bytes.size() + (length < 0 ? 1 : 0), to, size);
}
