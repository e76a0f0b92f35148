#include "Source.h"

#include "Desktop.h"

#include <algorithm>
#include <climits>
#include <cstdio>

namespace attack {

bool Source::s_fTell = false;

Text::Text(std::vector<wchar_t> characters) : m_characters(std::move(characters))
{
    m_characters.push_back(0);
}

Source::Source(uint64_t nSeed, uint64_t nStream) : m_state(nSeed * 0x9E3779B97F4A7C15u + nStream)
{
    Next();
    m_state ^= nStream << 32;
}

uint64_t Source::Next()
{
    m_state += 0x9E3779B97F4A7C15u;
    uint64_t z = m_state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

UINT Source::Below(UINT n)
{
    return static_cast<UINT>((Next() >> 32) % n);
}

void Source::Note(const std::string& value)
{
    if (s_fTell) {
        std::printf(" %s", value.c_str());
        std::fflush(stdout);
    }
}

int Source::Hostile()
{
    static constexpr int ENDS[] = {INT_MIN, INT_MIN + 1,   INT_MAX,       INT_MAX - 1, -1,
                                   -2,      -0x8000,       -0x8001,       0x7FFF,      0x8000,
                                   0x8001,  0xFFFF,        0x10000,       0x10001,     -0x10000,
                                   1 << 30, (1 << 30) - 1, (1 << 30) + 1, -(1 << 30),  0xFFFE};
    return Any(std::span<const int>(ENDS));
}

namespace {

int Bounded(int n)
{
    return std::clamp(n, desk::SMALLEST_NUMBER, desk::LARGEST_NUMBER);
}

} // namespace

int Source::Integer()
{
    int n;
    switch (Below(20)) {
    case 0:
    case 1:
    case 2: n = Hostile(); break;
    case 3: n = static_cast<int>(Next()); break;
    case 4:
    case 5: n = static_cast<int>(Below(1000)); break;
    case 6:
    case 7:
    case 8:
    case 9: n = static_cast<int>(Below(40)); break;
    case 10: n = -static_cast<int>(Below(200)); break;
    default: n = static_cast<int>(Below(6)); break;
    }
    n = Bounded(n);
    Note(std::to_string(n));
    return n;
}

UINT Source::NumberOrBits()
{
    return Chance(4) ? static_cast<UINT>(Bounded(static_cast<int>(Bits()))) : Number();
}

UINT Source::Count(UINT nMost)
{
    const UINT n = Below(Chance(8) ? nMost + 1 : std::min(nMost + 1, 12u));
    Note(std::to_string(n));
    return n;
}

int Source::Size()
{
    static constexpr int ODD[] = {0, 1, 2, 5, 30000, 32767, 16, 3000};
    const int nDrawn = Chance(5) ? Any(std::span<const int>(ODD)) : static_cast<int>(Below(300));
    const int n = std::min(nDrawn, desk::LARGEST_SIZE);
    Note(std::to_string(n));
    return n;
}

UINT Source::Bits()
{
    UINT bits = Chance(10) ? static_cast<UINT>(Next()) : 0;
    for (UINT n = Below(4); n > 0; --n) {
        bits |= 1u << Below(32);
    }
    Note(std::to_string(bits));
    return bits;
}

bool Source::Flag()
{
    const bool f = Chance(2);
    Note(f ? "true" : "false");
    return f;
}

namespace {

// Letters, ends of words and lines, an ampersand, a combining mark, other scripts, halves of surrogates, what
// is no character.
constexpr wchar_t CHARACTERS[] = {L'a',   L'b',   L'W',   L' ',   L' ',   L'\r',  L'\n',  L'\t',  L'&',
                                  L'.',   0x0301, 0x05D0, 0x0627, 0x0E01, 0x0915, 0xD83D, 0xDE00, 0xDC00,
                                  0xD800, 0xFFFF, 0xFFFE, 0x200B, 0x00AD, L'9',   L'%',   0x4E00, 0x202E};

wchar_t AnyCharacter(Source& source)
{
    return source.Chance(2) ? static_cast<wchar_t>(L'a' + source.Below(26))
                            : source.Any(std::span<const wchar_t>(CHARACTERS));
}

Text Made(Source& source, UINT nLength)
{
    std::vector<wchar_t> characters(nLength);
    for (UINT i = 0; i < nLength; ++i) {
        characters[i] = i < 64 ? AnyCharacter(source) : characters[i % 61];
    }
    return Text(std::move(characters));
}

std::string Told(const Text& text)
{
    if (!static_cast<LPCWSTR>(text)) {
        return "null";
    }
    std::string told = "\"";
    for (UINT i = 0; i < std::min(text.Length(), 40u); ++i) {
        const wchar_t c = static_cast<LPCWSTR>(text)[i];
        char code[8];
        std::snprintf(code, sizeof(code), c >= 32 && c < 127 ? "%c" : "\\x%X", c);
        told += code;
    }
    return told + "\"" + (text.Length() > 40 ? " of " + std::to_string(text.Length()) : "");
}

} // namespace

Text Source::AnyText()
{
    const UINT nKind = Below(1000);
    Text text;
    if (nKind == 0) {
        text = Made(*this, Chance(10) ? desk::LONGEST_TEXT : 3000);
    } else if (nKind < 10) {
        text = Made(*this, Below(400));
    } else if (nKind >= 50) {
        text = Made(*this, Below(14));
    }
    Note(attack::Told(text));
    return text;
}

Text Source::ShortText()
{
    Text text = Made(*this, Below(41));
    Note(attack::Told(text));
    return text;
}

RECT Source::Rect()
{
    const auto one = [this] { return static_cast<LONG>(Integer()); };
    RECT rc{};
    rc.left = one();
    rc.top = one();
    rc.right = Chance(2) ? rc.left : one();
    rc.bottom = one();
    return rc;
}

} // namespace attack
