// The wide formatter, with the platform's meaning of %s (wide) and %S (narrow) and of the sizes (long is 32
// bits).
#include <platform/platform.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <string>

namespace {

/// One conversion as the format spells it.
struct Conversion
{
    enum class Size
    {
        Default,
        Char,
        Short,
        Long,
        Wide,
        LongLong,
        LongDouble
    };

    std::string flags;
    int width = -1;
    int precision = -1;
    Size size = Size::Default;
    wchar_t type = 0;

    bool Has(char flag) const { return flags.find(flag) != std::string::npos; }
};

class Formatter
{
public:
    Formatter(wchar_t* to, size_t room, va_list args) : m_to(to), m_room(room) { va_copy(m_args, args); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;
    ~Formatter() { va_end(m_args); }

    /// Returns the whole length, however much of it had room.
    size_t Run(const wchar_t* format);

private:
    const wchar_t* Parse(const wchar_t* at, Conversion& conversion);
    const wchar_t* ParseNumber(const wchar_t* at, int& number);
    static const wchar_t* ParseSize(const wchar_t* at, Conversion::Size& size);
    void Convert(const Conversion& conversion);
    void ConvertCharacter(const Conversion& conversion);
    void ConvertString(const Conversion& conversion);
    void ConvertInteger(const Conversion& conversion);
    void ConvertDouble(const Conversion& conversion);
    void ConvertPointer(const Conversion& conversion);
    template <typename VALUE> void PutNumber(const Conversion& conversion, const char* size, VALUE value);
    template <typename CHAR_TYPE>
    void PutText(const Conversion& conversion, const CHAR_TYPE* text, size_t length);
    void Pad(size_t length, const Conversion& conversion, bool before);
    void Put(wchar_t c);
    static bool IsNarrow(const Conversion& conversion);

    wchar_t* m_to;
    size_t m_room;
    size_t m_length = 0;
    va_list m_args;
};

size_t Formatter::Run(const wchar_t* format)
{
    while (*format != 0) {
        if (*format != L'%') {
            Put(*format++);
            continue;
        }
        Conversion conversion;
        format = Parse(format + 1, conversion);
        if (conversion.type != 0) {
            Convert(conversion);
        }
    }
    return m_length;
}

const wchar_t* Formatter::Parse(const wchar_t* at, Conversion& conversion)
{
    for (; *at != 0 && wcschr(L"-+ #0", *at); ++at) {
        conversion.flags += static_cast<char>(*at);
    }
    at = ParseNumber(at, conversion.width);
    if (conversion.width < -1) {
        conversion.flags += '-';
        conversion.width = -conversion.width;
    }
    if (*at == L'.') {
        conversion.precision = 0;
        at = ParseNumber(at + 1, conversion.precision);
    }
    at = ParseSize(at, conversion.size);
    conversion.type = *at;
    return *at != 0 ? at + 1 : at;
}

/// Reads digits or takes the argument of `*`; leaves `number` alone where there is neither.
const wchar_t* Formatter::ParseNumber(const wchar_t* at, int& number)
{
    if (*at == L'*') {
        number = va_arg(m_args, int);
        return at + 1;
    }
    if (*at >= L'0' && *at <= L'9') {
        wchar_t* end = nullptr;
        number = static_cast<int>(wcstol(at, &end, 10));
        return end;
    }
    return at;
}

const wchar_t* Formatter::ParseSize(const wchar_t* at, Conversion::Size& size)
{
    static constexpr struct
    {
        const wchar_t* spelling;
        Conversion::Size size;
    } SIZES[] = {
        {L"I64", Conversion::Size::LongLong}, {L"I32", Conversion::Size::Default},
        {L"I", Conversion::Size::LongLong},   {L"ll", Conversion::Size::LongLong},
        {L"l", Conversion::Size::Long},       {L"hh", Conversion::Size::Char},
        {L"h", Conversion::Size::Short},      {L"w", Conversion::Size::Wide},
        {L"z", Conversion::Size::LongLong},   {L"j", Conversion::Size::LongLong},
        {L"t", Conversion::Size::LongLong},   {L"L", Conversion::Size::LongDouble},
    };
    for (const auto& candidate : SIZES) {
        const size_t length = wcslen(candidate.spelling);
        if (wcsncmp(at, candidate.spelling, length) == 0) {
            size = candidate.size;
            return at + length;
        }
    }
    return at;
}

void Formatter::Convert(const Conversion& conversion)
{
    switch (conversion.type) {
    case L'c':
    case L'C': ConvertCharacter(conversion); break;
    case L's':
    case L'S': ConvertString(conversion); break;
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X': ConvertInteger(conversion); break;
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A': ConvertDouble(conversion); break;
    case L'p': ConvertPointer(conversion); break;
    default: Put(conversion.type); break;
    }
}

bool Formatter::IsNarrow(const Conversion& conversion)
{
    switch (conversion.size) {
    case Conversion::Size::Short: return true;
    case Conversion::Size::Long:
    case Conversion::Size::Wide: return false;
    default: return conversion.type == L'S' || conversion.type == L'C';
    }
}

void Formatter::ConvertCharacter(const Conversion& conversion)
{
    const int argument = va_arg(m_args, int);
    const auto c =
        IsNarrow(conversion) ? static_cast<unsigned char>(argument) : static_cast<wchar_t>(argument);
    Conversion whole = conversion;
    whole.precision = -1;
    PutText(whole, &c, 1);
}

void Formatter::ConvertString(const Conversion& conversion)
{
    const size_t limit = conversion.precision < 0 ? INT_MAX : static_cast<size_t>(conversion.precision);
    const void* text = va_arg(m_args, const void*);
    if (!text) {
        PutText(conversion, L"(null)", std::min<size_t>(limit, 6));
    } else if (IsNarrow(conversion)) {
        const auto* narrow = static_cast<const char*>(text);
        PutText(conversion, narrow, strnlen(narrow, limit));
    } else {
        const auto* wide = static_cast<const wchar_t*>(text);
        size_t length = 0;
        while (length < limit && wide[length] != 0) {
            ++length;
        }
        PutText(conversion, wide, length);
    }
}

void Formatter::ConvertInteger(const Conversion& conversion)
{
    switch (conversion.size) {
    case Conversion::Size::LongLong: PutNumber(conversion, "ll", va_arg(m_args, long long)); break;
    case Conversion::Size::Short: PutNumber(conversion, "h", va_arg(m_args, int)); break;
    case Conversion::Size::Char: PutNumber(conversion, "hh", va_arg(m_args, int)); break;
    default: PutNumber(conversion, "", va_arg(m_args, int)); break;
    }
}

void Formatter::ConvertDouble(const Conversion& conversion)
{
    if (conversion.size == Conversion::Size::LongDouble) {
        PutNumber(conversion, "L", va_arg(m_args, long double));
    } else {
        PutNumber(conversion, "", va_arg(m_args, double));
    }
}

void Formatter::ConvertPointer(const Conversion& conversion)
{
    Conversion digits = conversion;
    digits.type = L'X';
    digits.precision = 16;
    PutNumber(digits, "ll", reinterpret_cast<long long>(va_arg(m_args, void*)));
}

/// Lets the narrow formatter do one number and widens what it wrote.
template <typename VALUE>
void Formatter::PutNumber(const Conversion& conversion, const char* size, VALUE value)
{
    std::string format = "%" + conversion.flags;
    if (conversion.width >= 0) {
        format += std::to_string(conversion.width);
    }
    if (conversion.precision >= 0) {
        format += "." + std::to_string(conversion.precision);
    }
    format += size;
    format += static_cast<char>(conversion.type);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int length = snprintf(nullptr, 0, format.c_str(), value);
    std::string text(static_cast<size_t>(std::max(length, 0)) + 1, '\0');
    snprintf(text.data(), text.size(), format.c_str(), value);
#pragma GCC diagnostic pop
    std::for_each(text.begin(), text.end() - 1, [this](char c) { Put(static_cast<unsigned char>(c)); });
}

template <typename CHAR_TYPE>
void Formatter::PutText(const Conversion& conversion, const CHAR_TYPE* text, size_t length)
{
    Pad(length, conversion, true);
    for (size_t i = 0; i < length; ++i) {
        Put(static_cast<wchar_t>(static_cast<std::make_unsigned_t<CHAR_TYPE>>(text[i])));
    }
    Pad(length, conversion, false);
}

void Formatter::Pad(size_t length, const Conversion& conversion, bool before)
{
    if (conversion.Has('-') == before) {
        return;
    }
    const wchar_t filler = before && conversion.Has('0') ? L'0' : L' ';
    for (size_t i = length; conversion.width > 0 && i < static_cast<size_t>(conversion.width); ++i) {
        Put(filler);
    }
}

void Formatter::Put(wchar_t c)
{
    if (m_length < m_room) {
        m_to[m_length] = c;
    }
    ++m_length;
}

} // namespace

int _vscwprintf(const wchar_t* format, va_list args)
{
    return static_cast<int>(Formatter(nullptr, 0, args).Run(format));
}

int _scwprintf(const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const int length = _vscwprintf(format, args);
    va_end(args);
    return length;
}

int _vsnwprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args)
{
    const size_t length = Formatter(to, to ? n : 0, args).Run(format);
    if (to && length < n) {
        to[length] = 0;
    }
    return to && length > n ? -1 : static_cast<int>(length);
}

int _snwprintf(wchar_t* to, size_t n, const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const int length = _vsnwprintf(to, n, format, args);
    va_end(args);
    return length;
}

int gesso_vswprintf(wchar_t* to, size_t n, const wchar_t* format, va_list args)
{
    if (!to || n == 0) {
        return -1;
    }
    const size_t length = Formatter(to, n - 1, args).Run(format);
    to[std::min(length, n - 1)] = 0;
    return length < n ? static_cast<int>(length) : -1;
}

int gesso_swprintf(wchar_t* to, size_t n, const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const int length = gesso_vswprintf(to, n, format, args);
    va_end(args);
    return length;
}
