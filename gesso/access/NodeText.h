// A node as a line of text.
#pragma once

#include <gesso/access/NodeBody.h>

namespace gesso {

// Writes what fits into a buffer, and counts all.
class TextSink
{
public:
    TextSink(LPWSTR pszBuffer, UINT nCapacity) : m_pszBuffer(pszBuffer), m_nCapacity(nCapacity) {}

    void Put(wchar_t ch);
    void Put(LPCWSTR psz);
    // Puts the terminator; returns the whole length without it.
    UINT End();

private:
    LPWSTR m_pszBuffer;
    UINT m_nCapacity;
    UINT m_nLength = 0;
};

// "push button"; a number that is none is "unknown".
LPCWSTR WordOf(Role role);
// The line of one node, without indent and line end.
void PutNode(TextSink& sink, const AccessibleNode& node);

} // namespace gesso
