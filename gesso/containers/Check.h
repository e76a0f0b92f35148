// What holds of a string and of an array after any operation. Internal: for tests and fuzzers, which call it
// after each step.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>

namespace gesso {

// The text ends inside its block, with the terminator behind it. A string that was moved from has no block.
inline bool Check(const OStringEx<wchar_t>& str)
{
    const LPCWSTR psz = str;
    const auto* const pData = str.d(const_cast<wchar_t*>(psz));
    return pData->nLength < pData->nBufferLength && psz[pData->nLength] == 0;
}

// The block fits the text.
inline bool Check(const OString<wchar_t>& str)
{
    const LPCWSTR psz = str;
    const auto* const pData = str.d(const_cast<wchar_t*>(psz));
    return pData->nBufferLength == pData->nLength + 1 && psz[pData->nLength] == 0;
}

// Elements that are strings or arrays hold by themselves; of others there is nothing to say. Check itself
// does not take them, so that a call for what has no check does not build.
template <class TYPE> constexpr bool CheckElement(const TYPE&)
{
    return true;
}
inline bool CheckElement(const OStringEx<wchar_t>& str)
{
    return Check(str);
}
inline bool CheckElement(const OString<wchar_t>& str)
{
    return Check(str);
}
template <class TYPE, class ARG_TYPE> bool CheckElement(const OArray<TYPE, ARG_TYPE>& a);

// The elements lie inside the block, and there is one just where there is capacity; each holds by itself. Not
// of an array that was moved from, which keeps its capacity without a block.
template <class TYPE, class ARG_TYPE> bool Check(const OArray<TYPE, ARG_TYPE>& a)
{
    const bool fBlock =
        a.GetLength() <= a.GetBufferLength() && (a.GetData() != nullptr) == (a.GetBufferLength() > 0);
    return fBlock &&
           std::all_of(a.begin(), a.end(), [](const TYPE& element) { return CheckElement(element); });
}

template <class TYPE, class ARG_TYPE> bool CheckElement(const OArray<TYPE, ARG_TYPE>& a)
{
    return Check(a);
}

} // namespace gesso
