// The text of an edit field: characters with a gap where the last edit was, so that typing moves nothing.
//
// Offsets are in characters of 16 bits. What is false without memory has then done nothing.
#pragma once

#include <gesso/text/SplitText.h>

namespace gesso {

class TextBuffer
{
public:
    TextBuffer() = default;
    ~TextBuffer();
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    // No more characters than this.
    static constexpr UINT MOST = 0x3FFFFFFF;

    UINT Length() const { return m_nLength; }
    wchar_t At(UINT n) const { return Text().At(n); }
    SplitText Text() const;
    // A range in one piece, valid until the next edit. May move the gap.
    LPCWSTR Piece(const TextRange& range);

    // Makes room for so many characters more.
    [[nodiscard]] bool Reserve(UINT nMore);
    // Puts n characters in the place of a range. psz is not in this buffer.
    [[nodiscard]] bool Replace(const TextRange& range, LPCWSTR psz, UINT n);
    // Replaces everything, with no more room than that needs.
    [[nodiscard]] bool SetAll(LPCWSTR psz, UINT n);

private:
    UINT Room() const { return m_nCapacity - m_nLength; }
    void MoveGap(UINT nTo);

    wchar_t* m_psz = nullptr;
    UINT m_nLength = 0;
    UINT m_nGap = 0;      // where it begins
    UINT m_nCapacity = 0; // with the gap
};

} // namespace gesso
