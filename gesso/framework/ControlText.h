// The text that a control holds, and the operations on it that all text controls share.
#pragma once

#include <gesso/api.h>

#include <climits>

class GWnd;

namespace gesso {

GESSO_API void FreeText(LPWSTR psz) noexcept;

class TextCount;

// A heap block of exactly the text and its terminator, in characters of 16 bits; or none. Copies of a control
// share it, and it stays until the last of them lets it go, so that a copy may outlive its original. The
// copies may go on different threads.
class GESSO_API ControlText
{
public:
    constexpr ControlText() noexcept = default;
    ControlText(const ControlText& other) noexcept;
    ControlText& operator=(const ControlText& other) noexcept;
    ~ControlText();

    // Takes a text of CopyText, and then lets the former one go.
    void Reset(LPWSTR psz = nullptr);
    operator LPWSTR() const noexcept { return m_psz; }

private:
    LPWSTR m_psz = nullptr;
    TextCount* m_pCount = nullptr; // null without a text
};
static_assert(sizeof(ControlText) == 2 * sizeof(void*), "what follows it in a control keeps its place");

// A fresh heap copy of a text; of the empty text for a null pointer. Without memory null, and the last error
// is ERROR_NOT_ENOUGH_MEMORY.
LPWSTR CopyText(LPCWSTR psz);

// Holds a copy of a text; of the empty text for a null pointer. False, with nothing done, without memory.
[[nodiscard]] bool HoldText(ControlText& text, LPCWSTR psz);
// The same, but holds none for a null pointer.
[[nodiscard]] bool HoldTextOrNone(ControlText& text, LPCWSTR psz);

// SetText of all controls: holds a copy of the text, and repaints. Returns 1; 0, with nothing done, without
// memory.
int ReplaceText(GWnd& wnd, ControlText& text, LPCWSTR psz);

// A fresh heap copy of the text in a dialog template's creation data: a first word, which is skipped, and a
// terminated text. Without creation data, the empty text; null without memory.
LPWSTR CopyCreationText(const void* pCreateData);

inline LPCWSTR TextOrEmpty(LPCWSTR psz)
{
    return psz ? psz : L"";
}

// Characters before the terminator; 0 without a text.
int TextLength(LPCWSTR psz);

// GetText of all controls. *pnLength is the buffer's capacity in characters. With room for the text and its
// terminator: copies, sets *pnLength to the length, returns 1. Otherwise writes nothing to the buffer, sets
// *pnLength to the capacity needed, returns 0.
int ReadText(LPCWSTR psz, LPWSTR pszBuffer, int* pnLength);

// The truncated answer to WM_GETTEXT.
// Fixed behaviour: it returns the capacity, one more than the characters copied; a host that takes that for
// the size of what it got would cut its text by one.
LRESULT ReadTextTruncated(LPCWSTR psz, LPWSTR pszBuffer, UINT nCapacity);

// WM_GETTEXT of all controls, through the control's own virtual GetText.
template <class CONTROL> LRESULT ReplyGetText(CONTROL& control, LPCWSTR psz, UINT nCapacity, LPWSTR pszBuffer)
{
    int nLength = static_cast<int>(nCapacity <= INT_MAX ? nCapacity : INT_MAX);
    return control.GetText(pszBuffer, &nLength) ? nLength : ReadTextTruncated(psz, pszBuffer, nCapacity);
}

} // namespace gesso
