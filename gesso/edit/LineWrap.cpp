#include <gesso/edit/LineWrap.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>

namespace gesso {
namespace {

bool IsSpace(wchar_t ch)
{
    constexpr wchar_t IDEOGRAPHIC_SPACE = 0x3000;
    return ch == L' ' || ch == L'\t' || ch == IDEOGRAPHIC_SPACE;
}

// Scripts that are written without spaces between words, as far as rows may end between any two of their
// characters.
bool IsIdeograph(wchar_t ch)
{
    return (ch >= 0x2E80 && ch < 0xA4D0) || (ch >= 0xF900 && ch < 0xFB00) || (ch >= 0xFF00 && ch < 0xFF61) ||
           (ch >= 0xD840 && ch < 0xD88E); // the higher halves of the planes of ideographs
}

// Closing punctuation and small kana stay with what is in front of them.
bool BeginsNoRow(wchar_t ch)
{
    static constexpr wchar_t CLOSING[] = {0x3001, 0x3002, 0x3009, 0x300B, 0x300D, 0x300F, 0x3011,
                                          0x3015, 0x30FC, 0xFF01, 0xFF09, 0xFF0C, 0xFF0E, 0xFF1A,
                                          0xFF1B, 0xFF1F, 0x2026, L')',   L',',   L'.',   L'!'};
    return std::find(std::begin(CLOSING), std::end(CLOSING), ch) != std::end(CLOSING);
}

bool MayEnd(const LineSource& source, UINT n)
{
    const wchar_t chBefore = source.At(n - 1);
    const wchar_t ch = source.At(n);
    const bool fBetween = (IsIdeograph(chBefore) || IsIdeograph(ch)) && !BeginsNoRow(ch);
    // The last question is the dearest.
    return !IsSpace(ch) && (IsSpace(chBefore) || fBetween) &&
           IsClusterBoundary(source.text, source.nStart + n);
}

// Where a row ends of which nFit of nLength characters fit.
UINT RowEnd(const LineSource& source, UINT nFit, UINT nLength)
{
    UINT n = nFit;
    while (n < nLength && IsSpace(source.At(n))) {
        ++n;
    }
    n = SnapToCluster(source.text, source.nStart + n) - source.nStart;
    if (n > nFit) {
        return n;
    }
    for (; n > 0; --n) {
        if (MayEnd(source, n)) {
            return n;
        }
    }
    return nFit > 0 ? nFit : ClusterEnd(source.text, source.nStart) - source.nStart;
}

} // namespace

std::vector<UINT> WrapRows(const LineSource& source, UINT nLength, int nWidth, int nAverage)
{
    const auto nGuess = static_cast<UINT>(std::max(nWidth, 1) / std::max(nAverage, 1)) * 5 / 4 + 16;
    std::vector<UINT> starts{0};
    for (;;) {
        const UINT nFrom = starts.back();
        const LineSource row{source.hdc, source.text, source.nStart + nFrom, source.style};
        const UINT nRest = nLength - nFrom;
        PreparedLine line;
        UINT nTaken = std::min(nGuess, nRest);
        line.Prepare(row, nTaken);
        while (nTaken < nRest && line.Width() <= nWidth) {
            nTaken = std::min(nTaken * 2, nRest);
            line.Prepare(row, nTaken);
        }
        const UINT nFit = line.Width() <= nWidth ? nTaken : line.CountFitting(row, nWidth);
        const UINT nEnd = nFit >= nRest ? nRest : RowEnd(row, nFit, nRest);
        if (nEnd >= nRest) {
            return starts;
        }
        starts.push_back(nFrom + nEnd);
    }
}

} // namespace gesso
