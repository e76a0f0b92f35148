#include <gesso/containers/Memory.h>
#include <gesso/edit/RowTable.h>

#include <cstring>
#include <utility>

namespace gesso {

RowTable::~RowTable()
{
    Free(m_p);
}

UINT RowTable::RowOf(UINT nOffset) const
{
    UINT nFirst = 0;
    UINT nEnd = m_nEntries;
    while (nFirst < nEnd) {
        const UINT nMiddle = nFirst + (nEnd - nFirst) / 2;
        if (Entry(nMiddle) <= nOffset) {
            nFirst = nMiddle + 1;
        } else {
            nEnd = nMiddle;
        }
    }
    return nFirst;
}

void RowTable::MoveGap(UINT nTo)
{
    const UINT nRoom = Room();
    for (; m_nGap > nTo; --m_nGap) {
        m_p[m_nGap - 1 + nRoom] = m_nLength - m_p[m_nGap - 1];
    }
    for (; m_nGap < nTo; ++m_nGap) {
        m_p[m_nGap] = m_nLength - m_p[m_nGap + nRoom];
    }
}

bool RowTable::Reserve(UINT nMore)
{
    const UINT nRoom = Room();
    if (nMore <= nRoom) {
        return true;
    }
    const UINT nCapacity = std::max(m_nEntries + nMore, m_nCapacity + m_nCapacity / 8 + 16);
    auto* p = static_cast<UINT*>(TryReallocate(m_p, size_t{nCapacity} * sizeof(UINT)));
    if (!p) {
        return false;
    }
    std::memmove(p + m_nGap + nCapacity - m_nEntries, p + m_nGap + nRoom,
                 (m_nEntries - m_nGap) * sizeof(UINT));
    m_p = p;
    m_nCapacity = nCapacity;
    return true;
}

UINT* RowTable::Open(UINT nRow, UINT nRows, UINT nNew)
{
    MoveGap(nRow + nRows - 1);
    m_nEntries = m_nEntries - nRows + nNew;
    m_nGap = nRow + nNew - 1;
    return m_p + nRow;
}

bool RowTable::Replace(UINT nRow, UINT nRows, const UINT* pStarts, UINT nNew)
{
    if (nNew > nRows && !Reserve(nNew - nRows)) {
        return false;
    }
    UINT* pTo = Open(nRow, nRows, nNew);
    if (nNew > 1) {
        std::memcpy(pTo, pStarts + 1, (nNew - 1) * sizeof(UINT));
    }
    return true;
}

void RowTable::Move(UINT nRow, int nBy)
{
    MoveGap(std::min(nRow, m_nEntries));
    m_nLength += static_cast<UINT>(nBy);
}

void RowTable::Clear(UINT nLength)
{
    Free(std::exchange(m_p, nullptr));
    m_nEntries = m_nGap = m_nCapacity = 0;
    m_nLength = nLength;
}

void RowTable::Swap(RowTable& other)
{
    std::swap(m_p, other.m_p);
    std::swap(m_nEntries, other.m_nEntries);
    std::swap(m_nGap, other.m_nGap);
    std::swap(m_nCapacity, other.m_nCapacity);
    std::swap(m_nLength, other.m_nLength);
}

} // namespace gesso
