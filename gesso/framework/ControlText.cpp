#include <gesso/containers/Memory.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWnd.h>

#include <algorithm>
#include <utility>

namespace gesso {
namespace {

LPWSTR CopyCharacters(LPCWSTR psz, size_t nLength)
{
    auto* pszCopy = static_cast<LPWSTR>(TryAllocate((nLength + 1) * sizeof(wchar_t)));
    if (!pszCopy) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    std::memcpy(pszCopy, psz, nLength * sizeof(wchar_t));
    pszCopy[nLength] = 0;
    return pszCopy;
}

} // namespace

// How many copies share a text, and the text.
// Fixed behaviour: the order of the virtual functions and of the counts is that of the C++ library's own
// shared pointer, which stood in ControlText's place. Hosts that were compiled against that release their
// copies by code of their own, and would crash over a block of another shape.
class TextCount
{
public:
    explicit TextCount(LPWSTR psz) : m_psz(psz) {}
    TextCount(const TextCount&) = delete;
    TextCount& operator=(const TextCount&) = delete;
    virtual ~TextCount() = default;
    // Nobody shares the text any more.
    virtual void FreeShared() noexcept { FreeText(m_psz); }
    // And nobody watches over it.
    virtual void DeleteCount() noexcept { delete this; }

    void AddSharer() { InterlockedIncrement(&m_nSharers); }
    void RemoveSharer()
    {
        if (InterlockedDecrement(&m_nSharers) == 0) {
            FreeShared();
            DeleteCount();
        }
    }

private:
    LONG m_nSharers = 1;
    [[maybe_unused]] LONG m_nWatchers = 1;
    LPWSTR m_psz;
};

ControlText::ControlText(const ControlText& other) noexcept : m_psz(other.m_psz), m_pCount(other.m_pCount)
{
    if (m_pCount) {
        m_pCount->AddSharer();
    }
}

ControlText& ControlText::operator=(const ControlText& other) noexcept
{
    ControlText copy(other);
    std::swap(m_psz, copy.m_psz);
    std::swap(m_pCount, copy.m_pCount);
    return *this;
}

ControlText::~ControlText()
{
    if (m_pCount) {
        m_pCount->RemoveSharer();
    }
}

void ControlText::Reset(LPWSTR psz)
{
    TextCount* pFormer = std::exchange(m_pCount, psz ? new TextCount(psz) : nullptr);
    m_psz = psz;
    if (pFormer) {
        pFormer->RemoveSharer();
    }
}

void FreeText(LPWSTR psz) noexcept
{
    Free(psz);
}

LPWSTR CopyText(LPCWSTR psz)
{
    return psz ? CopyCharacters(psz, wcslen(psz)) : CopyCharacters(L"", 0);
}

bool HoldText(ControlText& text, LPCWSTR psz)
{
    LPWSTR pszCopy = CopyText(psz);
    if (pszCopy) {
        text.Reset(pszCopy);
    }
    return pszCopy;
}

bool HoldTextOrNone(ControlText& text, LPCWSTR psz)
{
    if (!psz) {
        text.Reset();
    }
    return !psz || HoldText(text, psz);
}

int ReplaceText(GWnd& wnd, ControlText& text, LPCWSTR psz)
{
    if (!HoldText(text, psz)) {
        return 0;
    }
    const HWND hwnd = Frame::Handle(wnd);
    wnd.Invalidate(0);
    TellAccess(hwnd, EVENT_OBJECT_NAMECHANGE);
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
