// The random source of one operation: it draws hostile values and tells, where that is asked for, what it
// drew. Each operation of a run has a source of its own, made from the seed and the operation's number, so
// that leaving operations out changes nothing of the others.
#pragma once

#include <platform/platform.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace attack {

// A text that is drawn: null, empty, short, with broken surrogates, or desk::LONGEST_TEXT long.
class Text
{
public:
    Text() = default;
    explicit Text(std::vector<wchar_t> characters);

    operator LPCWSTR() const { return m_characters.empty() ? nullptr : m_characters.data(); }
    // Without the terminator.
    UINT Length() const { return m_characters.empty() ? 0 : static_cast<UINT>(m_characters.size()) - 1; }

private:
    std::vector<wchar_t> m_characters; // with the terminator; none for a null text
};

class Source
{
public:
    Source(uint64_t nSeed, uint64_t nStream);

    uint64_t Next();
    // Below n, which is at least 1. Neither of these is noted.
    UINT Below(UINT n);
    bool Chance(UINT oneIn) { return Below(oneIn) == 0; }
    template <class T> const T& Any(std::span<const T> values)
    {
        return values[Below(static_cast<UINT>(values.size()))];
    }

    // Mostly what may be an index, a size or a position; else an end of int, 2^15, 2^16, 2^30 or their
    // neighbours. None beyond desk::LARGEST_NUMBER.
    int Integer();
    UINT Number() { return static_cast<UINT>(Integer()); }
    UINT NumberOrBits();
    // A number that asks for no more memory than a test has.
    UINT Count(UINT nMost);
    // A size: mostly a control's, else 0 or desk::LARGEST_SIZE.
    int Size();
    // Some bits.
    UINT Bits();
    bool Flag();
    Text AnyText();
    // Not null, and of 40 characters at most.
    Text ShortText();
    RECT Rect();

    // Prints what was drawn, as it happens, where all is to be told.
    void Note(const std::string& value);
    static void TellAll(bool fTell) { s_fTell = fTell; }

private:
    int Hostile();

    uint64_t m_state;
    static bool s_fTell;
};

} // namespace attack
