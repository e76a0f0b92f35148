#include <gesso/containers/OStringEx.h>

#include <gesso/containers/Memory.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <utility>

static_assert(sizeof(OStringEx<wchar_t>) == sizeof(void*), "a string is one pointer");

namespace {

void MoveText(wchar_t* pTo, gesso::TextSpan text)
{
    if (!text.empty()) {
        std::memmove(pTo, text.data(), text.size_bytes());
    }
}

} // namespace

// Construction and assignment

template <class TYPE> OStringEx<TYPE>::OStringEx() : OStringEx(1u) {}

template <class TYPE>
OStringEx<TYPE>::OStringEx(UINT nBufferLength) : OStringEx(Allocate(std::max(nBufferLength, 1u)))
{}

template <class TYPE>
OStringEx<TYPE>::OStringEx(const OStringEx& str) : OStringEx(static_cast<const OString<TYPE>&>(str))
{}

template <class TYPE>
OStringEx<TYPE>::OStringEx(const OString<TYPE>& str) : OStringEx(Copy(SpanOf(str), CapacityOf(str)))
{}

template <class TYPE> OStringEx<TYPE>::OStringEx(OStringEx&& str) noexcept : OString<TYPE>(std::move(str)) {}

template <class TYPE> OStringEx<TYPE>::OStringEx(OString<TYPE>&& str) noexcept : OString<TYPE>(std::move(str))
{}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::operator=(const OStringEx& str)
{
    return *this = static_cast<const OString<TYPE>&>(str);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::operator=(const OString<TYPE>& str)
{
    Assign(SpanOf(str));
    return *this;
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::operator=(LPCWSTR psz)
{
    Assign(gesso::SpanOf(psz));
    return *this;
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::operator=(OStringEx&& str) noexcept
{
    OString<TYPE>::operator=(std::move(str));
    return *this;
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::operator=(OString<TYPE>&& str) noexcept
{
    OString<TYPE>::operator=(std::move(str));
    return *this;
}

template <class TYPE> bool OStringEx<TYPE>::Assign(gesso::TextSpan text)
{
    // A string that was moved from may be assigned to, and has no capacity.
    const _stcStringData* pData = this->d(m_psz);
    if (pData && pData->nBufferLength > text.size()) {
        MoveText(m_psz, text);
        SetLength(text.size());
        return true;
    }
    return Adopt(Copy(text));
}

// The block

template <class TYPE> UINT OStringEx<TYPE>::GetBufferLength() const
{
    return CapacityOf(*this);
}

template <class TYPE> TYPE* OStringEx<TYPE>::GetBuffer(UINT n)
{
    return Enlarge(n) ? m_psz : nullptr;
}

template <class TYPE> TYPE* OStringEx<TYPE>::SetBufferLength(UINT n)
{
    return GetBuffer(n);
}

template <class TYPE> bool OStringEx<TYPE>::Enlarge(size_t nBufferLength)
{
    const _stcStringData* pOld = this->d(Own());
    if (pOld->nBufferLength >= nBufferLength) {
        return true;
    }
    _stcStringData* pData = Allocate(nBufferLength);
    if (pData) {
        pData->nLength = pOld->nLength;
        MoveText(TextOf(pData), {m_psz, pOld->nBufferLength});
    }
    return Adopt(pData);
}

template <class TYPE> void OStringEx<TYPE>::ReleaseBuffer(UINT n)
{
    const UINT nRoom = this->d(Own())->nBufferLength;
    size_t nLength = n == UINT_MAX ? wcsnlen(m_psz, nRoom) : n;
    if (nLength >= nRoom) {
        gesso::Misuse("OStringEx::ReleaseBuffer: a text longer than the buffer");
        nLength = nRoom - 1;
    }
    SetLength(nLength);
}

template <class TYPE> void OStringEx<TYPE>::FreeEmpty(UINT nMin)
{
    _stcStringData* pData = this->d(Own());
    const UINT nNeed = pData->nLength + 1;
    if (nNeed == pData->nBufferLength) {
        return;
    }
    const UINT nBufferLength = std::max(nMin, nNeed);
    void* p = gesso::TryReallocate(pData, sizeof(_stcStringData) + nBufferLength * sizeof(TYPE));
    if (p) {
        pData = static_cast<_stcStringData*>(p);
        pData->nBufferLength = nBufferLength;
        m_psz = TextOf(pData);
    }
}

template <class TYPE> void OStringEx<TYPE>::SetLength(size_t nLength)
{
    this->d(m_psz)->nLength = static_cast<UINT>(nLength);
    m_psz[nLength] = 0;
}

template <class TYPE> bool OStringEx<TYPE>::Owns(gesso::TextSpan text) const
{
    return std::less<>{}(text.data(), m_psz + GetBufferLength()) &&
           std::less<>{}(m_psz, text.data() + text.size());
}

// Changes in place

template <class TYPE> UINT OStringEx<TYPE>::Delete(UINT nPos, UINT nCount)
{
    const gesso::TextSpan text = Span();
    if (nPos < text.size()) {
        const size_t nDeleted = std::min<size_t>(nCount, text.size() - nPos);
        MoveText(m_psz + nPos, text.subspan(nPos + nDeleted));
        SetLength(text.size() - nDeleted);
    }
    return this->GetLength();
}

template <class TYPE> UINT OStringEx<TYPE>::Remove(wchar_t c)
{
    return ReplaceText({&c, 1}, {});
}

template <class TYPE> UINT OStringEx<TYPE>::Remove(LPCWSTR psz)
{
    return ReplaceText(gesso::SpanOf(psz), {});
}

template <class TYPE> UINT OStringEx<TYPE>::Remove(const OString<TYPE>& str)
{
    return Remove(static_cast<LPCWSTR>(str));
}

template <class TYPE> UINT OStringEx<TYPE>::Replace(LPCWSTR pszOld, LPCWSTR pszNew)
{
    return ReplaceText(gesso::SpanOf(pszOld), gesso::SpanOf(pszNew));
}

template <class TYPE> UINT OStringEx<TYPE>::Replace(const OString<TYPE>& strOld, const OString<TYPE>& strNew)
{
    return Replace(static_cast<LPCWSTR>(strOld), static_cast<LPCWSTR>(strNew));
}

template <class TYPE> UINT OStringEx<TYPE>::ReplaceText(gesso::TextSpan what, gesso::TextSpan with)
{
    if (Owns(what) || Owns(with)) {
        const OStringEx strWhat(Copy(what));
        const OStringEx strWith(Copy(with));
        const bool fCopied = strWhat.GetLength() == what.size() && strWith.GetLength() == with.size();
        return fCopied ? ReplaceText(strWhat.Span(), strWith.Span()) : 0;
    }
    const size_t nOld = this->GetLength();
    const size_t nCount = gesso::CountMatches(Span(), what);
    if (nCount == 0) {
        return 0;
    }
    const size_t nNew = nOld - nCount * what.size() + nCount * with.size();
    if (!Enlarge(nNew + 1)) {
        return 0;
    }
    // A text that grows is first moved to where its tail will be, so that one pass from the left does it.
    TYPE* pText = m_psz + (nNew > nOld ? nNew - nOld : 0);
    MoveText(pText, {m_psz, nOld});
    gesso::CopyReplacing(m_psz, {pText, nOld}, what, with);
    SetLength(nNew);
    return static_cast<UINT>(nCount);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::Trim()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_BOTH);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::Trim(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_BOTH);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::Trim(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_BOTH);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimLeft()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_LEFT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimLeft(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_LEFT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimLeft(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_LEFT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimRight()
{
    return CutEnds(gesso::BlankSet(), gesso::TRIM_RIGHT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimRight(LPCWSTR pszSet)
{
    return CutEnds(gesso::SpanOf(pszSet), gesso::TRIM_RIGHT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::TrimRight(wchar_t c)
{
    return CutEnds({&c, 1}, gesso::TRIM_RIGHT);
}

template <class TYPE> OStringEx<TYPE>& OStringEx<TYPE>::CutEnds(gesso::TextSpan set, gesso::TrimEnds ends)
{
    Own();
    const gesso::TextSpan middle = gesso::Trimmed(Span(), set, ends);
    MoveText(m_psz, middle);
    SetLength(middle.size());
    return *this;
}

template <class TYPE> int OStringEx<TYPE>::Insert(UINT nPos, const OString<TYPE>& str)
{
    return InsertText(nPos, SpanOf(str));
}

template <class TYPE> int OStringEx<TYPE>::Insert(UINT nPos, LPCWSTR psz, UINT nMax)
{
    psz = gesso::OrEmpty(psz);
    return InsertText(nPos, {psz, wcsnlen(psz, nMax)});
}

template <class TYPE> int OStringEx<TYPE>::InsertText(UINT nPos, gesso::TextSpan text)
{
    const gesso::TextSpan present = Span();
    if (nPos > present.size()) {
        return -1;
    }
    const size_t nLength = present.size() + text.size();
    if (this->d(Own())->nBufferLength <= nLength) {
        if (!Adopt(Join(present.first(nPos), text, present.subspan(nPos)))) {
            return -1;
        }
    } else if (Owns(text)) {
        const OStringEx strText(Copy(text));
        return strText.GetLength() == text.size() ? InsertText(nPos, strText.Span()) : -1;
    } else {
        MoveText(m_psz + nPos + text.size(), present.subspan(nPos));
        MoveText(m_psz + nPos, text);
        SetLength(nLength);
    }
    return static_cast<int>(text.size());
}

// Parts of the text

template <class TYPE> OStringEx<TYPE> OStringEx<TYPE>::Mid(UINT nStart, UINT nCount, UINT nBufferLength) const
{
    return OStringEx(Copy(gesso::Middle(Span(), nStart, nCount), nBufferLength));
}

template <class TYPE> OStringEx<TYPE> OStringEx<TYPE>::Left(UINT nCount, UINT nBufferLength) const
{
    return Mid(0, nCount, nBufferLength);
}

template <class TYPE> OStringEx<TYPE> OStringEx<TYPE>::Right(UINT nCount, UINT nBufferLength) const
{
    const UINT nLength = this->GetLength();
    return Mid(nLength - std::min(nCount, nLength), nCount, nBufferLength);
}

// Formatting and resources

template <class TYPE> bool OStringEx<TYPE>::Format(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    const bool fDone = FormatV(pszFormat, args);
    va_end(args);
    return fDone;
}

template <class TYPE> bool OStringEx<TYPE>::FormatV(LPCWSTR pszFormat, va_list args)
{
    const gesso::FormattedText formatted(pszFormat, args);
    return formatted.IsMade() && Assign(formatted);
}

template <class TYPE> bool OStringEx<TYPE>::AppendFormat(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    const bool fDone = AppendFormatV(pszFormat, args);
    va_end(args);
    return fDone;
}

template <class TYPE> bool OStringEx<TYPE>::AppendFormatV(LPCWSTR pszFormat, va_list args)
{
    const gesso::FormattedText formatted(pszFormat, args);
    return formatted.IsMade() && InsertText(this->GetLength(), formatted) >= 0;
}

template <class TYPE> bool OStringEx<TYPE>::LoadStringW(UINT nId, HINSTANCE hInst)
{
    const gesso::TextSpan text = gesso::FindStringResource(nId, hInst);
    return text.data() && Assign(text);
}

template class GESSO_API_DEFINED OStringEx<wchar_t>;
