#include <gesso/containers/OString.h>

#include <gesso/containers/Memory.h>

#include <algorithm>
#include <climits>

namespace {

int FirstOf(gesso::TextSpan text, gesso::TextSpan set, UINT nStart)
{
    if (nStart >= text.size()) {
        return -1;
    }
    const auto at = std::find_first_of(text.begin() + nStart, text.end(), set.begin(), set.end());
    return at == text.end() ? -1 : static_cast<int>(at - text.begin());
}

// The last position at or before `nStart`, the terminator's included, where `fMatches` holds.
template <class PREDICATE> int LastWhere(gesso::TextSpan text, UINT nStart, PREDICATE fMatches)
{
    for (size_t i = std::min<size_t>(nStart, text.size()) + 1; i-- > 0;) {
        if (fMatches(text.data() + i)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace

static_assert(sizeof(OString<wchar_t>) == sizeof(void*), "a string is one pointer");
static_assert(sizeof(OString<wchar_t>::_stcStringData) == 8, "the text stands behind two words");

// Blocks and ownership

template <class TYPE> typename OString<TYPE>::_stcStringData* OString<TYPE>::Allocate(size_t nBufferLength)
{
    void* p = nBufferLength <= UINT_MAX ? gesso::TryAllocate(BlockSize(nBufferLength)) : nullptr;
    return p ? StartBlock(p, nBufferLength) : nullptr;
}

template <class TYPE> typename OString<TYPE>::_stcStringData* OString<TYPE>::Empty()
{
    return StartBlock(gesso::Allocate(BlockSize(1)), 1);
}

template <class TYPE>
typename OString<TYPE>::_stcStringData* OString<TYPE>::StartBlock(void* p, size_t nBufferLength)
{
    auto* pData = static_cast<_stcStringData*>(p);
    *pData = {static_cast<UINT>(nBufferLength), 0};
    *TextOf(pData) = 0;
    return pData;
}

template <class TYPE> size_t OString<TYPE>::BlockSize(size_t nBufferLength)
{
    return sizeof(_stcStringData) + nBufferLength * sizeof(TYPE);
}

template <class TYPE>
typename OString<TYPE>::_stcStringData* OString<TYPE>::Join(gesso::TextSpan first, gesso::TextSpan second,
                                                            gesso::TextSpan third)
{
    const size_t nLength = first.size() + second.size() + third.size();
    _stcStringData* pData = Allocate(nLength + 1);
    if (!pData) {
        return nullptr;
    }
    pData->nLength = static_cast<UINT>(nLength);
    TYPE* pEnd = std::copy(first.begin(), first.end(), TextOf(pData));
    pEnd = std::copy(second.begin(), second.end(), pEnd);
    *std::copy(third.begin(), third.end(), pEnd) = 0;
    return pData;
}

template <class TYPE>
typename OString<TYPE>::_stcStringData* OString<TYPE>::Copy(gesso::TextSpan text, size_t nBufferLength)
{
    _stcStringData* pData = Allocate(std::max(text.size() + 1, nBufferLength));
    if (!pData) {
        return nullptr;
    }
    pData->nLength = static_cast<UINT>(text.size());
    *std::copy(text.begin(), text.end(), TextOf(pData)) = 0;
    return pData;
}

// Integers, because for a string that was moved from the header is null.
template <class TYPE> TYPE* OString<TYPE>::TextOf(_stcStringData* pData)
{
    return reinterpret_cast<TYPE*>(reinterpret_cast<uintptr_t>(pData) + sizeof(_stcStringData));
}

template <class TYPE> gesso::TextSpan OString<TYPE>::SpanOf(const OString& str)
{
    return {static_cast<LPCWSTR>(str), str.GetLength()};
}

template <class TYPE> UINT OString<TYPE>::CapacityOf(const OString& str)
{
    return str.HasBlock() ? str.d(str.m_psz)->nBufferLength : 0;
}

template <class TYPE> gesso::TextSpan OString<TYPE>::Span() const
{
    return SpanOf(*this);
}

template <class TYPE> TYPE* OString<TYPE>::Own()
{
    if (!HasBlock()) {
        m_psz = TextOf(Empty());
    }
    return m_psz;
}

template <class TYPE> bool OString<TYPE>::Adopt(_stcStringData* pData)
{
    if (!pData) {
        return false;
    }
    gesso::Free(d(m_psz));
    m_psz = TextOf(pData);
    return true;
}

template <class TYPE> OString<TYPE>::OString() : OString(Empty()) {}

template <class TYPE> OString<TYPE>::OString(_stcStringData* pData) : m_psz(TextOf(pData ? pData : Empty()))
{}

template <class TYPE> OString<TYPE>::OString(const OString& str) : OString(Copy(str.Span())) {}

template <class TYPE> OString<TYPE>::OString(OString&& str) noexcept : m_psz(str.m_psz)
{
    str.m_psz = TextOf(nullptr);
}

template <class TYPE>
OString<TYPE>::OString(UINT nId, HINSTANCE hInst) : OString(Copy(gesso::FindStringResource(nId, hInst)))
{}

template <class TYPE> OString<TYPE>::~OString()
{
    gesso::Free(d(m_psz));
}

template <class TYPE> OString<TYPE>& OString<TYPE>::operator=(const OString& str)
{
    if (this != &str) {
        Adopt(Copy(str.Span()));
    }
    return *this;
}

template <class TYPE> OString<TYPE>& OString<TYPE>::operator=(OString&& str) noexcept
{
    if (this != &str) {
        gesso::Free(d(m_psz));
        m_psz = str.m_psz;
        str.m_psz = TextOf(nullptr);
    }
    return *this;
}

// Comparison

template <class TYPE> int OString<TYPE>::Compare(LPCWSTR psz) const
{
    const int nOrder = wcscmp(*this, gesso::OrEmpty(psz));
    return (nOrder > 0) - (nOrder < 0);
}

template <class TYPE> int OString<TYPE>::Compare(LPCWSTR psz, UINT nCount) const
{
    return wcsncmp(*this, gesso::OrEmpty(psz), nCount);
}

template <class TYPE> int OString<TYPE>::CompareNoCase(LPCWSTR psz) const
{
    return _wcsicmp(*this, gesso::OrEmpty(psz));
}

template <class TYPE> int OString<TYPE>::CompareNoCase(LPCWSTR psz, UINT nCount) const
{
    return _wcsnicmp(*this, gesso::OrEmpty(psz), nCount);
}

template <class TYPE> int OString<TYPE>::Collate(LPCWSTR psz) const
{
    return wcscoll(*this, gesso::OrEmpty(psz));
}

template <class TYPE> int OString<TYPE>::Collate(LPCWSTR psz, UINT nCount) const
{
    return _wcsncoll(*this, gesso::OrEmpty(psz), nCount);
}

template <class TYPE> int OString<TYPE>::CollateNoCase(LPCWSTR psz) const
{
    return _wcsicoll(*this, gesso::OrEmpty(psz));
}

template <class TYPE> int OString<TYPE>::CollateNoCase(LPCWSTR psz, UINT nCount) const
{
    return _wcsnicoll(*this, gesso::OrEmpty(psz), nCount);
}

template <class TYPE> int OString<TYPE>::Compare(const OString& str) const
{
    return Compare(static_cast<LPCWSTR>(str));
}

template <class TYPE> int OString<TYPE>::Compare(const OString& str, UINT nCount) const
{
    return Compare(static_cast<LPCWSTR>(str), nCount);
}

template <class TYPE> int OString<TYPE>::CompareNoCase(const OString& str) const
{
    return CompareNoCase(static_cast<LPCWSTR>(str));
}

template <class TYPE> int OString<TYPE>::CompareNoCase(const OString& str, UINT nCount) const
{
    return CompareNoCase(static_cast<LPCWSTR>(str), nCount);
}

template <class TYPE> int OString<TYPE>::Collate(const OString& str) const
{
    return Collate(static_cast<LPCWSTR>(str));
}

template <class TYPE> int OString<TYPE>::Collate(const OString& str, UINT nCount) const
{
    return Collate(static_cast<LPCWSTR>(str), nCount);
}

template <class TYPE> int OString<TYPE>::CollateNoCase(const OString& str) const
{
    return CollateNoCase(static_cast<LPCWSTR>(str));
}

template <class TYPE> int OString<TYPE>::CollateNoCase(const OString& str, UINT nCount) const
{
    return CollateNoCase(static_cast<LPCWSTR>(str), nCount);
}

template <class TYPE> bool OString<TYPE>::operator==(LPCWSTR psz) const
{
    return Compare(psz) == 0;
}

template <class TYPE> bool OString<TYPE>::operator==(const OString& str) const
{
    return Compare(str) == 0;
}

template <class TYPE> bool OString<TYPE>::operator!=(LPCWSTR psz) const
{
    return Compare(psz) != 0;
}

template <class TYPE> bool OString<TYPE>::operator!=(const OString& str) const
{
    return Compare(str) != 0;
}

template <class TYPE> bool OString<TYPE>::operator<(LPCWSTR psz) const
{
    return Compare(psz) < 0;
}

template <class TYPE> bool OString<TYPE>::operator<(const OString& str) const
{
    return Compare(str) < 0;
}

template <class TYPE> bool OString<TYPE>::operator<=(LPCWSTR psz) const
{
    return Compare(psz) <= 0;
}

template <class TYPE> bool OString<TYPE>::operator<=(const OString& str) const
{
    return Compare(str) <= 0;
}

template <class TYPE> bool OString<TYPE>::operator>(LPCWSTR psz) const
{
    return Compare(psz) > 0;
}

template <class TYPE> bool OString<TYPE>::operator>(const OString& str) const
{
    return Compare(str) > 0;
}

template <class TYPE> bool OString<TYPE>::operator>=(LPCWSTR psz) const
{
    return Compare(psz) >= 0;
}

template <class TYPE> bool OString<TYPE>::operator>=(const OString& str) const
{
    return Compare(str) >= 0;
}

// Searching

template <class TYPE> int OString<TYPE>::Find(wchar_t c, UINT nStart) const
{
    return FirstOf(Span(), {&c, 1}, nStart);
}

template <class TYPE> int OString<TYPE>::Find(LPCWSTR psz, UINT nStart) const
{
    const gesso::TextSpan text = Span();
    if (gesso::SpanOf(psz).empty() || nStart >= text.size()) {
        return -1;
    }
    LPCWSTR pszFound = wcsstr(text.data() + nStart, psz);
    return pszFound ? static_cast<int>(pszFound - text.data()) : -1;
}

template <class TYPE> int OString<TYPE>::Find(const OString& str, UINT nStart) const
{
    return Find(static_cast<LPCWSTR>(str), nStart);
}

template <class TYPE> int OString<TYPE>::FindReverse(wchar_t c, UINT nStart) const
{
    return LastWhere(Span(), nStart, [c](LPCWSTR p) { return *p == c; });
}

template <class TYPE> int OString<TYPE>::FindReverse(LPCWSTR psz, UINT nStart) const
{
    const gesso::TextSpan what = gesso::SpanOf(psz);
    const wchar_t cFirst = what.empty() ? L'\0' : what.front();
    return LastWhere(Span(), nStart, [what, cFirst](LPCWSTR p) {
        return *p == cFirst && wcsncmp(p, what.data(), what.size()) == 0;
    });
}

template <class TYPE> int OString<TYPE>::FindReverse(const OString& str, UINT nStart) const
{
    return FindReverse(static_cast<LPCWSTR>(str), nStart);
}

template <class TYPE> int OString<TYPE>::FindOneOf(LPCWSTR pszSet, UINT nStart) const
{
    return FirstOf(Span(), gesso::SpanOf(pszSet), nStart);
}

template <class TYPE> int OString<TYPE>::FindOneOfReverse(LPCWSTR pszSet, UINT nStart) const
{
    const gesso::TextSpan set = gesso::SpanOf(pszSet);
    return LastWhere(Span(), nStart,
                     [set](LPCWSTR p) { return std::find(set.begin(), set.end(), *p) != set.end(); });
}

// Changes of the text

template <class TYPE> UINT OString<TYPE>::Delete(UINT nPos, UINT nCount)
{
    const gesso::TextSpan text = Span();
    if (nPos < text.size() && nCount > 0) {
        Adopt(Join(text.first(nPos), text.subspan(nPos + std::min<size_t>(nCount, text.size() - nPos))));
    }
    return GetLength();
}

template <class TYPE> UINT OString<TYPE>::Remove(wchar_t c)
{
    return ReplaceText({&c, 1}, {});
}

template <class TYPE> UINT OString<TYPE>::Remove(LPCWSTR psz)
{
    return ReplaceText(gesso::SpanOf(psz), {});
}

template <class TYPE> UINT OString<TYPE>::Remove(const OString& str)
{
    return Remove(static_cast<LPCWSTR>(str));
}

template <class TYPE> UINT OString<TYPE>::Replace(wchar_t cOld, wchar_t cNew)
{
    if (cOld == cNew) {
        return 0;
    }
    TYPE* const pText = Own();
    TYPE* const pEnd = pText + GetLength();
    const auto nCount = std::count(pText, pEnd, cOld);
    std::replace(pText, pEnd, cOld, cNew);
    return static_cast<UINT>(nCount);
}

template <class TYPE> UINT OString<TYPE>::Replace(LPCWSTR pszOld, LPCWSTR pszNew)
{
    return ReplaceText(gesso::SpanOf(pszOld), gesso::SpanOf(pszNew));
}

template <class TYPE> UINT OString<TYPE>::Replace(const OString& strOld, const OString& strNew)
{
    return Replace(static_cast<LPCWSTR>(strOld), static_cast<LPCWSTR>(strNew));
}

template <class TYPE> UINT OString<TYPE>::ReplaceText(gesso::TextSpan what, gesso::TextSpan with)
{
    const gesso::TextSpan text = Span();
    const size_t nCount = gesso::CountMatches(text, what);
    if (nCount > 0) {
        const size_t nLength = text.size() - nCount * what.size() + nCount * with.size();
        _stcStringData* pData = Allocate(nLength + 1);
        if (!pData) {
            return 0;
        }
        pData->nLength = static_cast<UINT>(nLength);
        *gesso::CopyReplacing(TextOf(pData), text, what, with) = 0;
        Adopt(pData);
    }
    return static_cast<UINT>(nCount);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::MakeLower()
{
    _wcslwr(Own());
    return *this;
}

template <class TYPE> OString<TYPE>& OString<TYPE>::MakeUpper()
{
    _wcsupr(Own());
    return *this;
}

template <class TYPE> OString<TYPE>& OString<TYPE>::MakeReverse()
{
    _wcsrev(Own());
    return *this;
}

template <class TYPE> OString<TYPE>& OString<TYPE>::Trim()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_BOTH);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::Trim(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_BOTH);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::Trim(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_BOTH);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimLeft()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_LEFT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimLeft(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_LEFT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimLeft(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_LEFT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimRight()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_RIGHT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimRight(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_RIGHT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::TrimRight(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_RIGHT);
}

template <class TYPE> OString<TYPE>& OString<TYPE>::CutEnds(gesso::TextSpan set, gesso::TrimEnds ends)
{
    const gesso::TextSpan text = Span();
    const gesso::TextSpan middle = gesso::Trimmed(text, set, ends);
    if (middle.size() != text.size()) {
        Adopt(Copy(middle));
    }
    return *this;
}

// Parts of the text

template <class TYPE> OString<TYPE> OString<TYPE>::Mid(UINT nStart, UINT nCount) const
{
    return OString(Copy(gesso::Middle(Span(), nStart, nCount)));
}

template <class TYPE> OString<TYPE> OString<TYPE>::Left(UINT nCount) const
{
    return Mid(0, nCount);
}

template <class TYPE> OString<TYPE> OString<TYPE>::Right(UINT nCount) const
{
    const UINT nLength = GetLength();
    return Mid(nLength - std::min(nCount, nLength), nCount);
}

// Formatting and resources

template <class TYPE> OString<TYPE> OString<TYPE>::Build(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    OString str(Copy(gesso::FormattedText(pszFormat, args)));
    va_end(args);
    return str;
}

template <class TYPE> OString<TYPE> OString<TYPE>::BuildArguments(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    OString str(Copy(gesso::FormattedText(pszFormat, args)));
    va_end(args);
    return str;
}

template <class TYPE> OString<TYPE> OString<TYPE>::Build(LPCWSTR pszFormat, va_list args)
{
    return OString(Copy(gesso::FormattedText(pszFormat, args)));
}

template <class TYPE> bool OString<TYPE>::Format(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    const bool fDone = FormatV(pszFormat, args);
    va_end(args);
    return fDone;
}

template <class TYPE> bool OString<TYPE>::FormatV(LPCWSTR pszFormat, va_list args)
{
    const gesso::FormattedText formatted(pszFormat, args);
    return formatted.IsMade() && Adopt(Copy(formatted));
}

template <class TYPE> bool OString<TYPE>::AppendFormat(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    const bool fDone = AppendFormatV(pszFormat, args);
    va_end(args);
    return fDone;
}

template <class TYPE> bool OString<TYPE>::AppendFormatV(LPCWSTR pszFormat, va_list args)
{
    const gesso::FormattedText formatted(pszFormat, args);
    return formatted.IsMade() && Adopt(Join(Span(), formatted));
}

template <class TYPE> bool OString<TYPE>::LoadStringW(UINT nId, HINSTANCE hInst)
{
    const gesso::TextSpan text = gesso::FindStringResource(nId, hInst);
    return text.data() && Adopt(Copy(text));
}

template class GESSO_API_DEFINED OString<wchar_t>;
