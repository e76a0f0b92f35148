// Measuring a text for the host: CalcSizeText and the wrapping at 48 columns that it may be given.

#include <gesso/controls/GLabel.h>
#include <gesso/framework/DrawScope.h>

#include <new>
#include <vector>

namespace {

constexpr UINT COLUMNS = 48;
constexpr LONG UNBOUNDED = 10000;

bool Exceeds(DWORD dwFlags, DWORD dwFree, LONG nExtent, UINT nMax)
{
    return (dwFlags & dwFree) && nMax && static_cast<UINT>(nExtent) > nMax;
}

// Where a line that grew beyond its columns at p is to end. Spacing at the break stays on the upper line. A
// word that started at or before the former break is cut at p.
UINT FindBreak(LPCWSTR psz, UINT p, UINT nFormer)
{
    if (psz[p] == L' ') {
        return p + 1;
    }
    UINT i = p - 1;
    while (i > 0 && psz[i] != L' ' && psz[i] != L'\t') {
        --i;
    }
    const UINT nCandidate = i + 1;
    return nCandidate >= 2 && nCandidate > nFormer ? nCandidate : p;
}

std::vector<UINT> FindBreaks(LPCWSTR psz)
{
    std::vector<UINT> breaks;
    UINT nColumn = 0;
    for (UINT p = 0; psz[p];) {
        const bool fLineEnd = psz[p + 1] == L'\r';
        nColumn = fLineEnd ? 0 : nColumn + 1;
        p += fLineEnd ? 2 : 1;
        if (nColumn > COLUMNS) {
            p = FindBreak(psz, p, breaks.empty() ? 0 : breaks.back());
            breaks.push_back(p);
            nColumn = 0;
        }
    }
    return breaks;
}

// With its terminator.
std::vector<wchar_t> Wrapped(LPCWSTR psz, UINT nLength)
{
    std::vector<wchar_t> text;
    UINT nStart = 0;
    for (const UINT nBreak : FindBreaks(psz)) {
        text.insert(text.end(), psz + nStart, psz + nBreak);
        text.insert(text.end(), {L'\r', L'\n'});
        nStart = nBreak;
    }
    text.insert(text.end(), psz + nStart, psz + nLength + 1);
    return text;
}

// False, with nothing done, without memory.
bool TryWrapText(OString<wchar_t>& out, const OString<wchar_t>& in)
{
    try {
        return out.Format(L"%s", Wrapped(in, in.GetLength()).data());
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

void GLabel::WrapText(OString<wchar_t>& out, const OString<wchar_t>& in)
{
    TryWrapText(out, in);
}

HRESULT GLabel::CalcSizeText(RECT* prc, DWORD dwFlags, LPCWSTR pszText, UINT bWrap, UINT cxMax,
                             UINT cyMax) const
{
    OString<wchar_t> text;
    if (!text.Format(L"%s", gesso::TextOrEmpty(pszText)) || (bWrap && !TryWrapText(text, text))) {
        return E_OUTOFMEMORY;
    }
    RECT rc{0, 0, dwFlags & GLC_FREEWIDTH ? UNBOUNDED : static_cast<LONG>(cxMax),
            dwFlags & GLC_FREEHEIGHT ? UNBOUNDED : static_cast<LONG>(cyMax)};
    const gesso::MemoryContext hdc;
    const gesso::SelectScope font(hdc, m_hFont);
    const int nHeight = DrawTextW(hdc, text, -1, &rc, DT_CALCRECT | DT_WORDBREAK);
    if (prc) {
        *prc = rc;
    }
    const bool fFits = !Exceeds(dwFlags, GLC_FREEHEIGHT, rc.bottom, cyMax) &&
                       !Exceeds(dwFlags, GLC_FREEWIDTH, rc.right, cxMax);
    return nHeight && fFits ? S_OK : E_FAIL;
}
