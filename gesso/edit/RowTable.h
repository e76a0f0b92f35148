// Where the rows of a text begin: its paragraphs, and the parts that these are wrapped into. An edit moves no
// more entries than those between it and the edit before.
//
// The first row begins at 0 and has no entry. Entries behind the gap count from the text's end, so that an
// edit in front of them leaves them as they are.
//
// What is false without memory has then done nothing.
#pragma once

#include <gesso/api.h>

#include <algorithm>
#include <functional>

namespace gesso {

class RowTable
{
public:
    RowTable() = default;
    ~RowTable();
    RowTable(const RowTable&) = delete;
    RowTable& operator=(const RowTable&) = delete;

    // 1 at least.
    UINT Count() const { return m_nEntries + 1; }
    // Of the row behind the last one: the text's length.
    UINT Start(UINT nRow) const { return nRow == 0 ? 0 : nRow > m_nEntries ? m_nLength : Entry(nRow - 1); }
    UINT Length(UINT nRow) const { return Start(nRow + 1) - Start(nRow); } // with its line end
    // The last row that begins at nOffset or in front of it.
    UINT RowOf(UINT nOffset) const;

    [[nodiscard]] bool Reserve(UINT nMore);
    // Rows nRow up to nRow + nRows become nNew ones that begin at pStarts, of which the first is where nRow
    // begins. nNew is 1 or more.
    [[nodiscard]] bool Replace(UINT nRow, UINT nRows, const UINT* pStarts, UINT nNew);
    // Everything behind the row's start moves by so many characters.
    void Move(UINT nRow, int nBy);
    // The same where room for them was reserved: returns where the starts of the new ones but the first are
    // to be put.
    UINT* Open(UINT nRow, UINT nRows, UINT nNew);
    // One row of so many characters.
    void Clear(UINT nLength);
    void Swap(RowTable& other);
    // Rows whose start `keeps` is false for join the one in front of them.
    template <class KEEPS> void Keep(KEEPS keeps)
    {
        MoveGap(m_nEntries);
        m_nEntries = static_cast<UINT>(std::remove_if(m_p, m_p + m_nEntries, std::not_fn(keeps)) - m_p);
        m_nGap = m_nEntries;
    }

private:
    UINT Entry(UINT n) const { return n < m_nGap ? m_p[n] : m_nLength - m_p[n + Room()]; }
    UINT Room() const { return m_nCapacity - m_nEntries; }
    void MoveGap(UINT nTo);

    UINT* m_p = nullptr;
    UINT m_nEntries = 0;
    UINT m_nGap = 0;
    UINT m_nCapacity = 0;
    UINT m_nLength = 0; // of the text
};

} // namespace gesso
