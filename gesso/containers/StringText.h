// What OString and OStringEx do to text, apart from where they keep it. Internal: hosts have no use for it.
#pragma once

#include <gesso/api.h>

#include <cstddef>

namespace gesso {

// Characters without a terminator of their own: two words, the same whatever compiler a host is built with.
class TextSpan
{
public:
    constexpr TextSpan() = default;
    constexpr TextSpan(LPCWSTR pText, size_t nLength) : m_pText(pText), m_nLength(nLength) {}

    constexpr LPCWSTR data() const { return m_pText; }
    constexpr size_t size() const { return m_nLength; }
    constexpr size_t size_bytes() const { return m_nLength * sizeof(wchar_t); }
    constexpr bool empty() const { return m_nLength == 0; }
    constexpr LPCWSTR begin() const { return m_pText; }
    constexpr LPCWSTR end() const { return m_pText + m_nLength; }
    constexpr wchar_t front() const { return *m_pText; }
    constexpr wchar_t back() const { return m_pText[m_nLength - 1]; }
    // The first `n` characters, and those from `nStart` on; neither number is beyond the length.
    constexpr TextSpan first(size_t n) const { return {m_pText, n}; }
    constexpr TextSpan subspan(size_t nStart) const { return {m_pText + nStart, m_nLength - nStart}; }

private:
    LPCWSTR m_pText = nullptr;
    size_t m_nLength = 0;
};
static_assert(sizeof(TextSpan) == 2 * sizeof(void*));

// Null, a caller's mistake, reads as empty text.
LPCWSTR OrEmpty(LPCWSTR psz);
// The text up to its terminator.
TextSpan SpanOf(LPCWSTR psz);

// The piece at `nStart`, both numbers clipped to the text.
TextSpan Middle(TextSpan text, size_t nStart, size_t nCount);

// The number of occurrences of `what` from left to right, none overlapping; 0 if `what` is empty.
size_t CountMatches(TextSpan text, TextSpan what);
// Writes `text` to `pTo` with `with` in the place of each occurrence of `what`, which is not empty; returns
// the end. `pTo` may be in front of `text` in the same block, as far as the result grows or at the same place
// if it does not: what is written then never overtakes what is still to be read.
wchar_t* CopyReplacing(wchar_t* pTo, TextSpan text, TextSpan what, TextSpan with);

enum TrimEnds : unsigned
{
    TRIM_LEFT = 1,
    TRIM_RIGHT = 2,
    TRIM_BOTH = TRIM_LEFT | TRIM_RIGHT
};
// `text` without the characters of `set` at the given ends.
TextSpan Trimmed(TextSpan text, TextSpan set, TrimEnds ends);
// The set of the forms that are given none: space, tab, carriage return, line feed.
TextSpan BlankSet();

// The entry `nId` of the module's string tables; without data if there is none or it is empty. The characters
// stay valid while the module is loaded.
TextSpan FindStringResource(UINT nId, HINSTANCE hInst);

// A text while it is made from a format. It stands apart from every string, so that a string that takes it
// over may have been among the arguments.
class FormattedText
{
public:
    // A format that the runtime rejects gives an empty text, as does one whose text there is no memory for.
    // `args` is left as it was.
    FormattedText(LPCWSTR pszFormat, va_list args);
    ~FormattedText();
    FormattedText(const FormattedText&) = delete;
    FormattedText& operator=(const FormattedText&) = delete;

    // False if there was no memory.
    bool IsMade() const { return m_fMade; }
    operator TextSpan() const { return {m_pszLong ? m_pszLong : m_szShort, m_nLength}; }

private:
    static constexpr size_t SHORT_LENGTH = 256;

    wchar_t m_szShort[SHORT_LENGTH];
    wchar_t* m_pszLong = nullptr;
    size_t m_nLength = 0;
    bool m_fMade = true;
};

} // namespace gesso
