// The longest row of a text that is not wrapped, kept through edits: it is looked for among all rows only
// where it has become shorter than another one may be.
#pragma once

#include <gesso/edit/EditModel.h>

namespace gesso {

class LongestRow
{
public:
    // The rows are other ones.
    void Forget() { m_fKnown = false; }
    void Follow(const RowTable& rows, const TextChange& change);
    // Of those that are equally long, one.
    UINT Find(const RowTable& rows);

    // Its width in pixels, as far as it was told since the row has changed; 0 where it was not.
    int Width() const { return m_cx; }
    void SetWidth(int cx) { m_cx = cx; }

private:
    void Compare(const RowTable& rows, const TextRange& among);
    void Take(UINT nStart, UINT nLength);

    bool m_fKnown = false;
    UINT m_nStart = 0;
    UINT m_nLength = 0;
    UINT m_nOthers = 0; // no other row is longer
    int m_cx = 0;
};

} // namespace gesso
