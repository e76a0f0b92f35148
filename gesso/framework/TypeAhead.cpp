#include <gesso/framework/FoldCase.h>
#include <gesso/framework/TypeAhead.h>

namespace gesso {
namespace {

constexpr ULONGLONG LONGEST_PAUSE = 1000 * TICKS_PER_MILLISECOND;
constexpr wchar_t FIRST_PRINTABLE = L' ';
constexpr wchar_t DELETE_CHARACTER = 0x7F; // Ctrl+Backspace

bool IsLetter(wchar_t c)
{
    return c >= FIRST_PRINTABLE && c != DELETE_CHARACTER;
}

} // namespace

bool TypeAhead::Add(wchar_t c)
{
    if (!IsLetter(c) || (c == L' ' && !IsUnderWay())) {
        return false;
    }
    m_length = IsUnderWay() ? m_length : 0;
    m_lastTime = SystemTicks();
    if (m_length == 0) {
        m_letterLength = IS_HIGH_SURROGATE(c) ? 2 : 1;
    }
    if (m_length < MOST) {
        m_word[m_length++] = FoldCase(c);
    }
    return !IS_HIGH_SURROGATE(c);
}

bool TypeAhead::IsUnderWay() const
{
    return m_length > 0 && SystemTicks() - m_lastTime <= LONGEST_PAUSE;
}

// Whether it is the same letter again and again.
bool TypeAhead::IsOneLetter() const
{
    UINT i = m_letterLength;
    while (i < m_length && m_word[i] == m_word[i - m_letterLength]) {
        ++i;
    }
    return i >= m_length && m_length % m_letterLength == 0;
}

bool TypeAhead::IsStartOf(LPCWSTR text, UINT length) const
{
    UINT i = 0;
    while (text && i < length && text[i] && FoldCase(text[i]) == m_word[i]) {
        ++i;
    }
    return length > 0 && i == length;
}

} // namespace gesso
