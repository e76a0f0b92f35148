#include <gesso/containers/OArray.h>
#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextInput.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace gesso {
namespace {

constexpr wchar_t CR = L'\r';
constexpr wchar_t LF = L'\n';

bool IsLineEnd(wchar_t ch)
{
    return ch == CR || ch == LF;
}

// What a number is read from: the digits of other scripts, which the platform's classes have too, no program
// that asks for a number of its field understands.
bool IsDigit(wchar_t ch)
{
    return ch >= L'0' && ch <= L'9';
}

// The number of characters from psz on that are no line end.
UINT LineLength(LPCWSTR psz, UINT n)
{
    return static_cast<UINT>(std::find_if(psz, psz + n, IsLineEnd) - psz);
}

// CR, LF and CR LF are one each.
UINT LineEndLength(LPCWSTR psz, UINT n)
{
    return n > 1 && psz[0] == CR && psz[1] == LF ? 2 : 1;
}

// How many characters the text has at most, prepared.
size_t MostPrepared(LPCWSTR psz, UINT n, const InputRules& rules)
{
    size_t nMost = 0;
    for (UINT i = 0; i < n;) {
        const UINT nLine = LineLength(psz + i, n - i);
        nMost += nLine;
        i += nLine;
        if (i < n) {
            nMost += rules.fOneLine ? 1 : 2;
            i += LineEndLength(psz + i, n - i);
        }
    }
    return nMost;
}

void AddLine(LPCWSTR psz, UINT n, const InputRules& rules, std::vector<wchar_t>& text)
{
    if (rules.fNumber) {
        std::copy_if(psz, psz + n, std::back_inserter(text), IsDigit);
    } else {
        text.insert(text.end(), psz, psz + n);
    }
}

void AddLineEnd(const InputRules& rules, std::vector<wchar_t>& text)
{
    if (!rules.fOneLine) {
        text.insert(text.end(), {CR, LF});
    } else if (!rules.fNumber) {
        text.push_back(L' ');
    }
}

// Whether a cut in front of n would go through a line end or a surrogate pair.
bool IsWithin(const std::vector<wchar_t>& text, UINT n)
{
    return n > 0 && ((text[n - 1] == CR && text[n] == LF) ||
                     (IS_HIGH_SURROGATE(text[n - 1]) && IS_LOW_SURROGATE(text[n])));
}

void ChangeCase(const InputRules& rules, std::vector<wchar_t>& text)
{
    const auto n = static_cast<DWORD>(text.size());
    if (rules.fUpper) {
        CharUpperBuffW(text.data(), n);
    } else if (rules.fLower) {
        CharLowerBuffW(text.data(), n);
    }
}

} // namespace

std::vector<wchar_t> PrepareInput(LPCWSTR psz, UINT n, const InputRules& rules, UINT nMost, bool* pfCut)
{
    std::vector<wchar_t> text;
    text.reserve(std::min<size_t>(MostPrepared(psz, n, rules), size_t{nMost} + 2));
    for (UINT i = 0; i < n && text.size() <= nMost;) {
        const UINT nLine = LineLength(psz + i, n - i);
        AddLine(psz + i, nLine, rules, text);
        i += nLine;
        if (i < n) {
            AddLineEnd(rules, text);
            i += LineEndLength(psz + i, n - i);
        }
    }
    *pfCut = text.size() > nMost;
    if (*pfCut) {
        text.resize(IsWithin(text, nMost) ? nMost - 1 : nMost);
    }
    ChangeCase(rules, text);
    return text;
}

bool IsPrepared(LPCWSTR psz, UINT n, const InputRules& rules)
{
    if (rules.fNumber || rules.fUpper || rules.fLower) {
        return n == 0;
    }
    UINT i = LineLength(psz, n);
    while (i < n && !rules.fOneLine && LineEndLength(psz + i, n - i) == 2) {
        i += 2;
        i += LineLength(psz + i, n - i);
    }
    return i == n;
}

// --- Finding

namespace {

constexpr UINT ALL_CHARACTERS = 0x10000;

// The upper case of every character, as the platform's comparison of ordinals has it.
const std::vector<wchar_t>& UpperCase()
{
    static const std::vector<wchar_t> UPPER = [] {
        std::vector<wchar_t> upper(ALL_CHARACTERS);
        std::iota(upper.begin(), upper.end(), L'\0');
        CharUpperBuffW(upper.data(), ALL_CHARACTERS);
        return upper;
    }();
    return UPPER;
}

// A search of one text in another after Knuth, Morris and Pratt, from either end: no character of the text
// is looked at twice, however much of what is sought it begins like.
class Search
{
public:
    Search(LPCWSTR psz, UINT n, UINT uFlags)
        : m_psz(psz), m_n(n), m_fUp((uFlags & GEF_UP) != 0),
          m_pUpper(uFlags & GEF_CASE ? nullptr : UpperCase().data())
    {}

    // False without memory.
    bool Prepare()
    {
        if (!m_aBorders.SetLength(m_n, -1)) {
            return false;
        }
        m_aBorders[0] = 0;
        for (UINT i = 1; i < m_n; ++i) {
            const wchar_t ch = Sought(i);
            const UINT nMatched = Shortened(m_aBorders[i - 1], ch);
            m_aBorders[i] = nMatched + (Sought(nMatched) == ch);
        }
        return true;
    }

    // The first match within the range, from the end that the search begins at, that is accepted; or -1.
    template <class ACCEPTS> int Find(const SplitText& text, const TextRange& range, ACCEPTS accepts) const
    {
        UINT nMatched = 0;
        for (UINT i = 0; i < range.Length(); ++i) {
            const wchar_t ch = Folded(text.At(m_fUp ? range.nTo - 1 - i : range.nFrom + i));
            nMatched = Shortened(nMatched == m_n ? m_aBorders[m_n - 1] : nMatched, ch);
            nMatched += Sought(nMatched) == ch;
            const UINT nFrom = m_fUp ? range.nTo - 1 - i : range.nFrom + i + 1 - m_n;
            if (nMatched == m_n && accepts(TextRange{nFrom, nFrom + m_n})) {
                return static_cast<int>(nFrom);
            }
        }
        return -1;
    }

private:
    wchar_t Folded(wchar_t ch) const { return m_pUpper ? m_pUpper[static_cast<WORD>(ch)] : ch; }
    wchar_t Sought(UINT i) const { return Folded(m_psz[m_fUp ? m_n - 1 - i : i]); }
    // The longest beginning of what is sought that ends as nMatched characters of it do and goes on with ch,
    // or none.
    UINT Shortened(UINT nMatched, wchar_t ch) const
    {
        while (nMatched > 0 && Sought(nMatched) != ch) {
            nMatched = m_aBorders[nMatched - 1];
        }
        return nMatched;
    }

    LPCWSTR m_psz;
    UINT m_n;
    bool m_fUp;
    const wchar_t* m_pUpper;
    // Of each beginning, the longest one that it also ends in.
    OArray<UINT, const UINT&> m_aBorders;
};

} // namespace

int FindText(const SplitText& text, LPCWSTR psz, int nFrom, UINT uFlags)
{
    const size_t n = psz ? wcslen(psz) : 0;
    const UINT nStart = std::min(static_cast<UINT>(std::max(nFrom, 0)), text.Length());
    const TextRange range = uFlags & GEF_UP ? TextRange{0, nStart} : TextRange{nStart, text.Length()};
    if (n == 0 || n > range.Length()) {
        return -1;
    }
    Search search(psz, static_cast<UINT>(n), uFlags);
    return search.Prepare() ? search.Find(text, range,
                                          [&](const TextRange& found) {
                                              return !(uFlags & GEF_WORD) || IsWholeWord(text, found);
                                          })
                            : -1;
}

} // namespace gesso
