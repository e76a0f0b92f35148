#include <gesso/containers/Memory.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/GWnd.h>

#include <algorithm>

namespace gesso {
namespace {

LPWSTR CopyCharacters(LPCWSTR psz, size_t nLength)
{
    auto* pszCopy = static_cast<LPWSTR>(Allocate((nLength + 1) * sizeof(wchar_t)));
    std::memcpy(pszCopy, psz, nLength * sizeof(wchar_t));
    pszCopy[nLength] = 0;
    return pszCopy;
}

} // namespace

void FreeText(LPWSTR psz) noexcept
{
    Free(psz);
}

LPWSTR CopyText(LPCWSTR psz)
{
    return psz ? CopyCharacters(psz, wcslen(psz)) : CopyCharacters(L"", 0);
}

LPWSTR CopyTextOrNone(LPCWSTR psz)
{
    return psz ? CopyText(psz) : nullptr;
}

int ReplaceText(GWnd& wnd, ControlText& text, LPCWSTR psz)
{
    text.Reset(CopyText(psz));
    wnd.Invalidate(0);
    return 1;
}

LPWSTR CopyCreationText(const void* pCreateData)
{
    return CopyText(pCreateData ? static_cast<LPCWSTR>(pCreateData) + 1 : nullptr);
}

int TextLength(LPCWSTR psz)
{
    return psz ? static_cast<int>(wcslen(psz)) : 0;
}

int ReadText(LPCWSTR psz, LPWSTR pszBuffer, int* pnLength)
{
    if (!pnLength) {
        return 0;
    }
    const int nLength = TextLength(psz);
    if (nLength + 1 > *pnLength || !pszBuffer) {
        *pnLength = nLength + 1;
        return 0;
    }
    std::memcpy(pszBuffer, TextOrEmpty(psz), (static_cast<size_t>(nLength) + 1) * sizeof(wchar_t));
    *pnLength = nLength;
    return 1;
}

LRESULT ReadTextTruncated(LPCWSTR psz, LPWSTR pszBuffer, UINT nCapacity)
{
    if (nCapacity == 0 || !pszBuffer || !psz) {
        return 0;
    }
    const UINT nCopied = std::min(nCapacity - 1, static_cast<UINT>(TextLength(psz)));
    std::memcpy(pszBuffer, psz, nCopied * sizeof(wchar_t));
    pszBuffer[nCopied] = 0;
    return nCapacity;
}

} // namespace gesso
