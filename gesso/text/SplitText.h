// A text that lies in two pieces, as a buffer with a gap in it has it, or in one. Positions are offsets in
// characters of 16 bits.
#pragma once

#include <gesso/api.h>

#include <algorithm>
#include <cstring>

namespace gesso {

struct TextRange
{
    UINT nFrom;
    UINT nTo; // behind the last character

    UINT Length() const { return nTo - nFrom; }
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

class SplitText
{
public:
    SplitText(LPCWSTR psz, UINT nLength) : SplitText(psz, nLength, nullptr, 0) {}
    SplitText(LPCWSTR pszFirst, UINT nFirst, LPCWSTR pszSecond, UINT nSecond)
        : m_pszFirst(pszFirst), m_pszSecond(pszSecond), m_nFirst(nFirst), m_nSecond(nSecond)
    {}

    UINT Length() const { return m_nFirst + m_nSecond; }
    // n is below the length.
    wchar_t At(UINT n) const { return n < m_nFirst ? m_pszFirst[n] : m_pszSecond[n - m_nFirst]; }
    // Copies a range that is in the text, without a terminator.
    void Copy(const TextRange& range, wchar_t* pszTo) const
    {
        const UINT nInFirst = std::min(range.nTo, m_nFirst) - std::min(range.nFrom, m_nFirst);
        const UINT nInSecond = range.Length() - nInFirst;
        if (nInFirst > 0) {
            std::memcpy(pszTo, m_pszFirst + range.nFrom, nInFirst * sizeof(wchar_t));
        }
        if (nInSecond > 0) {
            std::memcpy(pszTo + nInFirst, m_pszSecond + (range.nTo - nInSecond - m_nFirst),
                        nInSecond * sizeof(wchar_t));
        }
    }

private:
    LPCWSTR m_pszFirst;
    LPCWSTR m_pszSecond;
    UINT m_nFirst;
    UINT m_nSecond;
};

} // namespace gesso
