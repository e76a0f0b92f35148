#include <gesso/containers/Memory.h>
#include <gesso/edit/TextBuffer.h>

#include <utility>

namespace gesso {
namespace {

constexpr UINT SLACK = 64;

constexpr size_t Bytes(size_t nCharacters)
{
    return nCharacters * sizeof(wchar_t);
}

} // namespace

TextBuffer::~TextBuffer()
{
    Free(m_psz);
}

SplitText TextBuffer::Text() const
{
    return {m_psz, m_nGap, m_psz + m_nGap + Room(), m_nLength - m_nGap};
}

LPCWSTR TextBuffer::Piece(const TextRange& range)
{
    if (range.Length() == 0) {
        return L"";
    }
    if (range.nFrom < m_nGap && m_nGap < range.nTo) {
        MoveGap(m_nGap - range.nFrom < range.nTo - m_nGap ? range.nFrom : range.nTo);
    }
    return m_psz + range.nFrom + (range.nFrom < m_nGap ? 0 : Room());
}

void TextBuffer::MoveGap(UINT nTo)
{
    const UINT nRoom = Room();
    if (nTo < m_nGap) {
        std::memmove(m_psz + nTo + nRoom, m_psz + nTo, Bytes(m_nGap - nTo));
    } else if (nTo > m_nGap) {
        std::memmove(m_psz + m_nGap, m_psz + m_nGap + nRoom, Bytes(nTo - m_nGap));
    }
    m_nGap = nTo;
}

bool TextBuffer::Reserve(UINT nMore)
{
    const UINT nRoom = Room();
    if (nMore <= nRoom) {
        return true;
    }
    if (nMore > MOST - m_nLength) {
        return false;
    }
    const UINT nNeed = m_nLength + nMore;
    const UINT nCapacity = nNeed + nNeed / 8 + SLACK;
    auto* psz = static_cast<wchar_t*>(TryReallocate(m_psz, Bytes(nCapacity)));
    if (!psz) {
        return false;
    }
    std::memmove(psz + m_nGap + nCapacity - m_nLength, psz + m_nGap + nRoom, Bytes(m_nLength - m_nGap));
    m_psz = psz;
    m_nCapacity = nCapacity;
    return true;
}

bool TextBuffer::Replace(const TextRange& range, LPCWSTR psz, UINT n)
{
    if (n > range.Length() && !Reserve(n - range.Length())) {
        return false;
    }
    // What goes is behind the gap then, and falls into it.
    if (range.nFrom > m_nGap || range.nTo < m_nGap) {
        MoveGap(range.nFrom);
    }
    m_nGap = range.nFrom;
    m_nLength -= range.Length();
    if (n > 0) {
        std::memcpy(m_psz + m_nGap, psz, Bytes(n));
    }
    m_nGap += n;
    m_nLength += n;
    return true;
}

bool TextBuffer::SetAll(LPCWSTR psz, UINT n)
{
    if (n > MOST) {
        return false;
    }
    const UINT nCapacity = n + n / 8 + SLACK; // so that the first edit need not move it all
    auto* pszNew = static_cast<wchar_t*>(TryAllocate(Bytes(nCapacity)));
    if (!pszNew) {
        return false;
    }
    if (n > 0) {
        std::memcpy(pszNew, psz, Bytes(n));
    }
    Free(std::exchange(m_psz, pszNew));
    m_nCapacity = nCapacity;
    m_nGap = m_nLength = n;
    return true;
}

} // namespace gesso
