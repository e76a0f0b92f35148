#include <gesso/edit/ShownLines.h>

#include <algorithm>

namespace gesso {

void ShownLines::Add(LPCWSTR psz, UINT nLength, UINT nFrom, UINT nTo)
{
    m_strText.Insert(m_strText.GetLength(), psz, nLength);
    for (const UINT n : {nLength, nFrom, nTo}) {
        m_lines.Add(n);
    }
}

bool ShownLines::IsLineAt(UINT nLine, UINT nOffset, const ShownLines& other, UINT nOtherOffset) const
{
    if (nLine >= Count() || nLine >= other.Count()) {
        return false;
    }
    const UINT* pLine = m_lines.GetData() + nLine * FIELDS;
    const UINT* pOther = other.m_lines.GetData() + nLine * FIELDS;
    return std::equal(pLine, pLine + FIELDS, pOther) &&
           std::equal(static_cast<LPCWSTR>(m_strText) + nOffset,
                      static_cast<LPCWSTR>(m_strText) + nOffset + *pLine,
                      static_cast<LPCWSTR>(other.m_strText) + nOtherOffset);
}

ShownLines::Range ShownLines::DifferenceFrom(const ShownLines& former) const
{
    Range range{0, 0};
    UINT nOffset = 0;
    UINT nFormerOffset = 0;
    for (UINT i = 0; i < std::max(Count(), former.Count()); ++i) {
        if (!IsLineAt(i, nOffset, former, nFormerOffset)) {
            range = {range.nEnd == 0 ? i : range.nFirst, i + 1};
        }
        nOffset += LengthOf(i);
        nFormerOffset += former.LengthOf(i);
    }
    return range;
}

} // namespace gesso
