#include <gesso/edit/LongestRow.h>

namespace gesso {

void LongestRow::Take(UINT nStart, UINT nLength)
{
    m_nStart = nStart;
    m_nLength = nLength;
    m_cx = 0;
}

void LongestRow::Compare(const RowTable& rows, const TextRange& among)
{
    for (UINT nRow = among.nFrom; nRow < among.nTo; ++nRow) {
        const UINT nLength = rows.Length(nRow);
        if (nLength > m_nLength) {
            m_nOthers = std::max(m_nOthers, m_nLength);
            Take(rows.Start(nRow), nLength);
        } else {
            m_nOthers = std::max(m_nOthers, nLength);
        }
    }
}

void LongestRow::Follow(const RowTable& rows, const TextChange& change)
{
    const UINT nFrom = rows.Start(change.nRow);
    const UINT nBehind = rows.Start(change.nRow + change.nRowsInserted) - change.nInserted + change.nRemoved;
    if (m_nStart == nFrom || (m_nStart > nFrom && m_nStart < nBehind)) {
        Take(nFrom, 0);
    } else if (m_nStart > nFrom) {
        m_nStart = m_nStart - change.nRemoved + change.nInserted;
    }
    if (m_fKnown) {
        Compare(rows, {change.nRow, change.nRow + change.nRowsInserted});
        m_fKnown = m_nLength >= m_nOthers;
    }
}

UINT LongestRow::Find(const RowTable& rows)
{
    if (!m_fKnown) {
        Take(0, 0);
        m_nOthers = 0;
        Compare(rows, {0, rows.Count()});
        m_fKnown = true;
    }
    return rows.RowOf(m_nStart);
}

} // namespace gesso
