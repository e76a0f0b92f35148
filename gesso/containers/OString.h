// OString<wchar_t>: a wide string whose block always fits its text exactly.
//
// Each change of the length builds a new block of length + 1 characters and frees the old one: there is no
// spare capacity to manage and nothing is shared. OStringEx is the same string with spare capacity, for text
// that is being edited.
//
//     auto strName = OString<wchar_t>::Build(L"%s (%d)", pszName, nCopy);
//     strName.Replace(L"_", L" ");
//     SetWindowTextW(hWnd, strName);
//
// Characters are 16-bit units; surrogates and combining marks are not looked at. Lengths, counts and
// positions are in characters. Positions and counts beyond the text are clipped. A null text, a caller's
// mistake, reads as empty. An argument may be the string itself or a piece of its text.
//
// Where there is no memory for the text that an operation would make, the string stays as it was and the
// operation answers as it says below, or by that text unchanged; a new string is then empty.
//
// A string that was moved from has no block. It may be destroyed or assigned to; that any other use finds it
// empty is a safeguard which stops the program in debug builds.
#pragma once

#include <gesso/api.h>
#include <gesso/containers/Misuse.h>
#include <gesso/containers/StringText.h>

#include <concepts>
#include <type_traits>

template <class TYPE> class OString
{
    static_assert(std::is_same_v<TYPE, wchar_t>, "the library has OString<wchar_t> alone");

public:
    // Stands in front of the text in the same block.
    struct _stcStringData
    {
        UINT nBufferLength; // characters that the block has room for, the terminator included
        UINT nLength;       // characters before the terminator
    };

    OString();
    OString(const OString& str);
    OString(OString&& str) noexcept;
    // The string resource `nId` of a module, or empty if there is none.
    OString(UINT nId, HINSTANCE hInst);
    ~OString();
    OString& operator=(const OString& str);
    OString& operator=(OString&& str) noexcept;

    // A new string of the formatted text, in the C runtime's wide format (%s is wide text).
    static OString Build(LPCWSTR pszFormat, ...);
    static OString Build(LPCWSTR pszFormat, va_list args);
    // Keeps a literal 0, nullptr or narrow text in quotes as the first argument from being taken for a
    // va_list.
    template <class FIRST, class... REST>
    requires std::is_integral_v<FIRST> || std::is_null_pointer_v<FIRST> || std::is_same_v<FIRST, const char*>
    static OString Build(LPCWSTR pszFormat, FIRST first, REST... rest)
    {
        return BuildArguments(pszFormat, first, rest...);
    }

    // The text with its terminator, valid until the string changes or goes.
    operator LPCWSTR() const;
    UINT GetLength() const;
    // The header of the text that starts at `p`.
    _stcStringData* d(void* p) const;

    // Comparison goes up to the terminator. Compare goes by unsigned units: -1, 0 or 1 for whole texts, the
    // difference of the first differing units for the first `nCount` ones. The others are the C runtime's
    // operations in its present locale: by default only A to Z fold, and collation is by units.
    int Compare(LPCWSTR psz) const;
    int Compare(const OString& str) const;
    int Compare(LPCWSTR psz, UINT nCount) const;
    int Compare(const OString& str, UINT nCount) const;
    int CompareNoCase(LPCWSTR psz) const;
    int CompareNoCase(const OString& str) const;
    int CompareNoCase(LPCWSTR psz, UINT nCount) const;
    int CompareNoCase(const OString& str, UINT nCount) const;
    int Collate(LPCWSTR psz) const;
    int Collate(const OString& str) const;
    int Collate(LPCWSTR psz, UINT nCount) const;
    int Collate(const OString& str, UINT nCount) const;
    int CollateNoCase(LPCWSTR psz) const;
    int CollateNoCase(const OString& str) const;
    int CollateNoCase(LPCWSTR psz, UINT nCount) const;
    int CollateNoCase(const OString& str, UINT nCount) const;

    bool operator==(LPCWSTR psz) const;
    bool operator==(const OString& str) const;
    bool operator!=(LPCWSTR psz) const;
    bool operator!=(const OString& str) const;
    bool operator<(LPCWSTR psz) const;
    bool operator<(const OString& str) const;
    bool operator<=(LPCWSTR psz) const;
    bool operator<=(const OString& str) const;
    bool operator>(LPCWSTR psz) const;
    bool operator>(const OString& str) const;
    bool operator>=(LPCWSTR psz) const;
    bool operator>=(const OString& str) const;

    // With the plain text on the left the language would compare two pointers.
    friend bool operator==(LPCWSTR psz, const OString& str) { return str.Compare(psz) == 0; }
    friend bool operator!=(LPCWSTR psz, const OString& str) { return str.Compare(psz) != 0; }
    friend bool operator<(LPCWSTR psz, const OString& str) { return str.Compare(psz) > 0; }
    friend bool operator<=(LPCWSTR psz, const OString& str) { return str.Compare(psz) >= 0; }
    friend bool operator>(LPCWSTR psz, const OString& str) { return str.Compare(psz) < 0; }
    friend bool operator>=(LPCWSTR psz, const OString& str) { return str.Compare(psz) <= 0; }

    // The position of the first occurrence that starts at or after `nStart`, or -1. Empty text is found
    // nowhere.
    int Find(wchar_t c, UINT nStart) const;
    int Find(LPCWSTR psz, UINT nStart) const;
    int Find(const OString& str, UINT nStart) const;
    // The position of the last occurrence that starts at or before `nStart`, or -1. The terminator counts as
    // a character here: it is what 0 and empty text are found at.
    int FindReverse(wchar_t c, UINT nStart) const;
    // A plain 0 would as soon be a null pointer.
    template <std::same_as<int> CHARACTER> int FindReverse(CHARACTER c, UINT nStart) const
    {
        return FindReverse(static_cast<wchar_t>(c), nStart);
    }
    int FindReverse(LPCWSTR psz, UINT nStart) const;
    int FindReverse(const OString& str, UINT nStart) const;
    // The position of the first (last) character of the set at or after (before) `nStart`, or -1.
    int FindOneOf(LPCWSTR pszSet, UINT nStart) const;
    int FindOneOfReverse(LPCWSTR pszSet, UINT nStart) const;

    // Removes `nCount` characters at `nPos`; returns the new length.
    UINT Delete(UINT nPos, UINT nCount);
    // Removes every occurrence, from left to right; what the removal brings together is not looked at again.
    // Returns the number removed, 0 without memory. Where there is none, as for empty text, the block stays.
    UINT Remove(wchar_t c);
    UINT Remove(LPCWSTR psz);
    UINT Remove(const OString& str);
    // Replaces every occurrence, from left to right, none overlapping; returns the number replaced, 0 without
    // memory. The form for characters works in place, and the block stays where there is nothing to replace.
    UINT Replace(wchar_t cOld, wchar_t cNew);
    UINT Replace(LPCWSTR pszOld, LPCWSTR pszNew);
    UINT Replace(const OString& strOld, const OString& strNew);
    // In place, by the C runtime in its present locale.
    OString& MakeLower();
    OString& MakeUpper();
    OString& MakeReverse();
    // Removes the characters of a set from the ends. Without one it is space, tab, carriage return, line
    // feed.
    OString& Trim();
    OString& Trim(LPCWSTR pszSet);
    OString& Trim(wchar_t c);
    OString& TrimLeft();
    OString& TrimLeft(LPCWSTR pszSet);
    OString& TrimLeft(wchar_t c);
    OString& TrimRight();
    OString& TrimRight(LPCWSTR pszSet);
    OString& TrimRight(wchar_t c);

    // A new string of a part of the text.
    OString Mid(UINT nStart, UINT nCount) const;
    OString Left(UINT nCount) const;
    OString Right(UINT nCount) const;

    // Replaces the text by, or adds, formatted text; false without memory. A format that the runtime rejects
    // yields an empty text.
    bool Format(LPCWSTR pszFormat, ...);
    bool FormatV(LPCWSTR pszFormat, va_list args);
    bool AppendFormat(LPCWSTR pszFormat, ...);
    bool AppendFormatV(LPCWSTR pszFormat, va_list args);

    // Takes the text of the string resource `nId` of a module. False, with the string as it was, if there is
    // none, it is empty, or there is no memory.
    bool LoadStringW(UINT nId, HINSTANCE hInst);

protected:
    // Adopts a block, or an empty one in the place of null.
    explicit OString(_stcStringData* pData);

    // A block for `nBufferLength` characters, with empty text in it. Like those below, null without memory.
    static _stcStringData* Allocate(size_t nBufferLength);
    // A block with `text` and room for `nBufferLength` characters, or for just the text if that is more.
    static _stcStringData* Copy(gesso::TextSpan text, size_t nBufferLength = 0);
    // An exact block with the pieces one behind the other.
    static _stcStringData* Join(gesso::TextSpan first, gesso::TextSpan second, gesso::TextSpan third = {});
    static TYPE* TextOf(_stcStringData* pData);

    // Of any string, since a derived class may look into those of its own kind only.
    static gesso::TextSpan SpanOf(const OString& str);
    static UINT CapacityOf(const OString& str);
    gesso::TextSpan Span() const;
    bool HasBlock() const;
    // The text for a change in place.
    TYPE* Own();
    // Puts a new block in the place of the old one, which is freed. False, with nothing done, for null.
    bool Adopt(_stcStringData* pData);

    TYPE* m_psz;

private:
    // A block of no characters, which there always is.
    static _stcStringData* Empty();
    static _stcStringData* StartBlock(void* p, size_t nBufferLength);
    static size_t BlockSize(size_t nBufferLength);
    static OString BuildArguments(LPCWSTR pszFormat, ...);
    OString& CutEnds(gesso::TextSpan set, gesso::TrimEnds ends);
    UINT ReplaceText(gesso::TextSpan what, gesso::TextSpan with);
};

// Outside of the class, since only then the DLL exports what hosts and the library may also inline.
template <class TYPE> OString<TYPE>::operator LPCWSTR() const
{
    return HasBlock() ? m_psz : L"";
}

template <class TYPE> UINT OString<TYPE>::GetLength() const
{
    return HasBlock() ? d(m_psz)->nLength : 0;
}

template <class TYPE> typename OString<TYPE>::_stcStringData* OString<TYPE>::d(void* p) const
{
    return reinterpret_cast<_stcStringData*>(reinterpret_cast<uintptr_t>(p) - sizeof(_stcStringData));
}

template <class TYPE> bool OString<TYPE>::HasBlock() const
{
    const bool fBlock = d(m_psz) != nullptr;
    if (!fBlock) {
        gesso::Misuse("OString: a string that was moved from");
    }
    return fBlock;
}

extern template class GESSO_API_DECLARED OString<wchar_t>;
