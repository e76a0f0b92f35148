#include <gesso/containers/StringText.h>

#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>

#include <algorithm>
#include <iterator>

namespace gesso {
namespace {

wchar_t* Put(wchar_t* pTo, TextSpan text)
{
    if (!text.empty()) {
        std::memmove(pTo, text.data(), text.size_bytes());
    }
    return pTo + text.size();
}

bool Contains(TextSpan set, wchar_t c)
{
    return std::find(set.begin(), set.end(), c) != set.end();
}

int CountFormatted(LPCWSTR pszFormat, va_list args)
{
    va_list copy;
    va_copy(copy, args);
    const int nCount = _vscwprintf(pszFormat, copy);
    va_end(copy);
    return nCount;
}

int WriteFormatted(wchar_t* pTo, size_t cch, LPCWSTR pszFormat, va_list args)
{
    va_list copy;
    va_copy(copy, args);
    const int nCount = _vsnwprintf(pTo, cch, pszFormat, copy);
    va_end(copy);
    return nCount;
}

// A string table holds 16 entries: a count each, then as many characters. One that ends early has no more.
TextSpan TableEntry(TextSpan table, UINT iEntry)
{
    for (;; --iEntry) {
        if (table.empty() || table.front() >= table.size()) {
            return {};
        }
        if (iEntry == 0) {
            return table.subspan(1).first(table.front());
        }
        table = table.subspan(1u + table.front());
    }
}

} // namespace

LPCWSTR OrEmpty(LPCWSTR psz)
{
    if (!psz) {
        Misuse("OString: null text");
        return L"";
    }
    return psz;
}

TextSpan SpanOf(LPCWSTR psz)
{
    psz = OrEmpty(psz);
    return {psz, wcslen(psz)};
}

TextSpan Middle(TextSpan text, size_t nStart, size_t nCount)
{
    const TextSpan tail = text.subspan(std::min(nStart, text.size()));
    return tail.first(std::min(nCount, tail.size()));
}

size_t CountMatches(TextSpan text, TextSpan what)
{
    size_t nCount = 0;
    if (what.empty()) {
        return nCount;
    }
    for (auto at = text.begin();; ++nCount) {
        at = std::search(at, text.end(), what.begin(), what.end());
        if (at == text.end()) {
            return nCount;
        }
        at += static_cast<ptrdiff_t>(what.size());
    }
}

wchar_t* CopyReplacing(wchar_t* pTo, TextSpan text, TextSpan what, TextSpan with)
{
    for (;;) {
        const auto match = std::search(text.begin(), text.end(), what.begin(), what.end());
        const auto nBefore = static_cast<size_t>(match - text.begin());
        const bool fLast = match == text.end();
        pTo = Put(pTo, text.first(nBefore));
        if (fLast) {
            return pTo;
        }
        text = text.subspan(nBefore + what.size());
        pTo = Put(pTo, with);
    }
}

TextSpan Trimmed(TextSpan text, TextSpan set, TrimEnds ends)
{
    while ((ends & TRIM_RIGHT) && !text.empty() && Contains(set, text.back())) {
        text = text.first(text.size() - 1);
    }
    while ((ends & TRIM_LEFT) && !text.empty() && Contains(set, text.front())) {
        text = text.subspan(1);
    }
    return text;
}

TextSpan BlankSet()
{
    static constexpr wchar_t BLANKS[] = {L' ', L'\t', L'\r', L'\n'};
    return {BLANKS, std::size(BLANKS)};
}

TextSpan FindStringResource(UINT nId, HINSTANCE hInst)
{
    const HRSRC hResource =
        FindResourceW(hInst, MAKEINTRESOURCEW((nId >> 4) + 1), reinterpret_cast<LPCWSTR>(RT_STRING));
    const HGLOBAL hData = hResource ? LoadResource(hInst, hResource) : nullptr;
    const void* pTable = hData ? LockResource(hData) : nullptr;
    if (!pTable) {
        return {};
    }
    const size_t cch = SizeofResource(hInst, hResource) / sizeof(wchar_t);
    const TextSpan entry = TableEntry({static_cast<const wchar_t*>(pTable), cch}, nId & 15);
    if (entry.empty()) {
        return {};
    }
    return entry.back() == 0 ? entry.first(entry.size() - 1) : entry;
}

FormattedText::FormattedText(LPCWSTR pszFormat, va_list args)
{
    pszFormat = OrEmpty(pszFormat);
    int nLength = WriteFormatted(m_szShort, SHORT_LENGTH, pszFormat, args);
    if (nLength < 0) {
        nLength = std::max(CountFormatted(pszFormat, args), 0);
        const size_t cch = static_cast<size_t>(nLength) + 1;
        m_pszLong = static_cast<wchar_t*>(TryAllocate(cch * sizeof(wchar_t)));
        m_fMade = m_pszLong != nullptr;
        if (!m_fMade) {
            return;
        }
        WriteFormatted(m_pszLong, cch, pszFormat, args);
    }
    m_nLength = static_cast<size_t>(nLength);
}

FormattedText::~FormattedText()
{
    Free(m_pszLong);
}

} // namespace gesso
