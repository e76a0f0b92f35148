// OStringEx<wchar_t>: the string of text that is being edited, an OString with spare capacity.
//
// It changes in place wherever the text fits its block, grows to exactly what is needed and never shrinks
// unless FreeEmpty is called. To append piece by piece without a new block each time, reserve first:
//
//     OStringEx<wchar_t> strText(256);
//     strText.ReleaseBuffer(static_cast<UINT>(GetWindowTextW(hWnd, strText.GetBuffer(256), 256)));
//     strText.Insert(0, L"> ", 2);
//
// All that reads is OString's, as are MakeLower, MakeUpper, MakeReverse and the Replace of characters.
// Capacities are in characters and count the terminator.
#pragma once

#include <gesso/containers/OString.h>

#include <concepts>

template <class TYPE> class OStringEx : public OString<TYPE>
{
public:
    using typename OString<TYPE>::_stcStringData;

    // Empty, with a capacity of 1 or as given, which is 1 at least; of 1 if there is no memory for more.
    OStringEx();
    explicit OStringEx(UINT nBufferLength);
    // A copy has the capacity of its source.
    OStringEx(const OStringEx& str);
    OStringEx(const OString<TYPE>& str);
    OStringEx(OStringEx&& str) noexcept;
    OStringEx(OString<TYPE>&& str) noexcept;
    // What fits is copied into the present block; otherwise a new one fits exactly.
    OStringEx& operator=(const OStringEx& str);
    OStringEx& operator=(const OString<TYPE>& str);
    OStringEx& operator=(LPCWSTR psz);
    OStringEx& operator=(OStringEx&& str) noexcept;
    OStringEx& operator=(OString<TYPE>&& str) noexcept;

    UINT GetBufferLength() const;
    // The text for writing, in a block of `n` characters at least; valid until an operation that may need
    // another block. GetLength is stale until ReleaseBuffer. Null, with nothing done, without memory.
    TYPE* GetBuffer(UINT n);
    TYPE* SetBufferLength(UINT n);
    // Ends the writing: the text is `n` characters long, or up to its terminator with 0xFFFFFFFF. A text
    // longer than the block has room for is a mistake and is cut off there.
    void ReleaseBuffer(UINT n);
    // Makes the capacity `nMin`, or just enough for the text if that is more. A full block is left as it is.
    void FreeEmpty(UINT nMin);

    // As in OString, in place.
    UINT Delete(UINT nPos, UINT nCount);
    UINT Remove(wchar_t c);
    UINT Remove(LPCWSTR psz);
    UINT Remove(const OString<TYPE>& str);
    using OString<TYPE>::Replace;
    UINT Replace(LPCWSTR pszOld, LPCWSTR pszNew);
    UINT Replace(const OString<TYPE>& strOld, const OString<TYPE>& strNew);
    OStringEx& Trim();
    OStringEx& Trim(LPCWSTR pszSet);
    OStringEx& Trim(wchar_t c);
    OStringEx& TrimLeft();
    OStringEx& TrimLeft(LPCWSTR pszSet);
    OStringEx& TrimLeft(wchar_t c);
    OStringEx& TrimRight();
    OStringEx& TrimRight(LPCWSTR pszSet);
    OStringEx& TrimRight(wchar_t c);
    bool Format(LPCWSTR pszFormat, ...);
    bool FormatV(LPCWSTR pszFormat, va_list args);
    bool AppendFormat(LPCWSTR pszFormat, ...);
    bool AppendFormatV(LPCWSTR pszFormat, va_list args);
    bool LoadStringW(UINT nId, HINSTANCE hInst);

    // As in OString; the new string's capacity is `nBufferLength`, or just enough if that is more.
    OStringEx Mid(UINT nStart, UINT nCount, UINT nBufferLength) const;
    OStringEx Left(UINT nCount, UINT nBufferLength) const;
    OStringEx Right(UINT nCount, UINT nBufferLength) const;

    // Inserts a text, of which the second form takes `nMax` characters at most and needs no terminator within
    // them. Returns the number inserted, or -1, with nothing done, if `nPos` is beyond the length or there is
    // no memory.
    int Insert(UINT nPos, const OString<TYPE>& str);
    int Insert(UINT nPos, LPCWSTR psz, UINT nMax);

protected:
    // Adopts a block. A template, so that the capacity 0 is not taken for a null block.
    template <std::same_as<_stcStringData> DATA> explicit OStringEx(DATA* pData) : OString<TYPE>(pData) {}

    using OString<TYPE>::Allocate;
    using OString<TYPE>::Copy;
    using OString<TYPE>::Join;
    using OString<TYPE>::TextOf;
    using OString<TYPE>::SpanOf;
    using OString<TYPE>::CapacityOf;
    using OString<TYPE>::Span;
    using OString<TYPE>::Own;
    using OString<TYPE>::Adopt;
    using OString<TYPE>::m_psz;

private:
    bool Owns(gesso::TextSpan text) const;
    bool Assign(gesso::TextSpan text);
    int InsertText(UINT nPos, gesso::TextSpan text);
    UINT ReplaceText(gesso::TextSpan what, gesso::TextSpan with);
    OStringEx& CutEnds(gesso::TextSpan set, gesso::TrimEnds ends);
    // Puts the terminator, too.
    void SetLength(size_t nLength);
    // Keeps all that the old block holds, what stands behind the terminator as well. False without memory.
    bool Enlarge(size_t nBufferLength);
};

extern template class GESSO_API_DECLARED OStringEx<wchar_t>;
