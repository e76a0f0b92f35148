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

// Closing punctuation, small kana and signs of iteration stay with what is in front of them.
bool BeginsNoRow(wchar_t ch)
{
    static constexpr wchar_t CLOSING[] = {
        0x3001, 0x3002, 0x3005, 0x3009, 0x300B, 0x300D, 0x300F, 0x3011, 0x3015, 0x3041, 0x3043, 0x3045,
        0x3047, 0x3049, 0x3063, 0x3083, 0x3085, 0x3087, 0x308E, 0x309D, 0x309E, 0x30A1, 0x30A3, 0x30A5,
        0x30A7, 0x30A9, 0x30C3, 0x30E3, 0x30E5, 0x30E7, 0x30EE, 0x30FC, 0x30FD, 0x30FE, 0xFF01, 0xFF09,
        0xFF0C, 0xFF0E, 0xFF1A, 0xFF1B, 0xFF1F, 0x2026, L')',   L',',   L'.',   L'!'};
    return std::find(std::begin(CLOSING), std::end(CLOSING), ch) != std::end(CLOSING);
}

bool EndsNoRow(wchar_t ch)
{
    static constexpr wchar_t OPENING[] = {0x3008, 0x300A, 0x300C, 0x300E, 0x3010, 0x3014, 0xFF08, L'('};
    return std::find(std::begin(OPENING), std::end(OPENING), ch) != std::end(OPENING);
}

bool MayEnd(const LineSource& source, UINT n)
{
    const wchar_t chLast = source.At(n - 1);
    const wchar_t chBefore = IS_LOW_SURROGATE(chLast) && n > 1 ? source.At(n - 2) : chLast;
    const wchar_t ch = source.At(n);
    const bool fBetween =
        (IsIdeograph(chBefore) || IsIdeograph(ch)) && !BeginsNoRow(ch) && !EndsNoRow(chBefore);
    // The last question is the dearest.
    return !IsSpace(ch) && (IsSpace(chBefore) || fBetween) &&
           IsClusterBoundary(source.text, source.nStart + n);
}

// Whether the paragraph ends in front of a character.
bool IsEnd(const LineSource& source, UINT n)
{
    const UINT nAt = source.nStart + n;
    const UINT nLength = source.text.Length();
    return nAt >= nLength || source.At(n) == L'\n' ||
           (source.At(n) == L'\r' && nAt + 1 < nLength && source.At(n + 1) == L'\n');
}

// The characters up to the paragraph's end, from a place that is in front of it; nMost of them at most.
UINT CountToEnd(const LineSource& source, UINT nFrom, UINT nMost)
{
    UINT n = nFrom;
    while (n < nMost && !IsEnd(source, n)) {
        ++n;
    }
    return n;
}

UINT BehindEnd(const LineSource& source, UINT n)
{
    while (source.nStart + n < source.text.Length()) {
        if (source.At(n++) == L'\n') {
            break;
        }
    }
    return n;
}

// Where a row ends of which nFit characters fit, and others follow.
UINT RowEnd(const LineSource& source, UINT nFit)
{
    UINT n = nFit;
    while (!IsEnd(source, n) && IsSpace(source.At(n))) {
        ++n;
    }
    // A row whose start is not settled yet may begin within a character.
    n = std::max(SnapToCluster(source.text, source.nStart + n), source.nStart) - source.nStart;
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

UINT RowLength(const LineSource& source, int nWidth, int nAverage)
{
    UINT nMost = static_cast<UINT>(std::max(nWidth, 1) / std::max(nAverage, 1)) * 5 / 4 + 16;
    UINT nTaken = CountToEnd(source, 0, nMost);
    PreparedLine line;
    line.Prepare(source, nTaken);
    while (!IsEnd(source, nTaken) && line.Width() <= nWidth) {
        nMost *= 2;
        nTaken = CountToEnd(source, nTaken, nMost);
        line.Prepare(source, nTaken);
    }
    const UINT nFit = line.Width() <= nWidth ? nTaken : line.CountFitting(source, nWidth);
    const UINT nEnd = IsEnd(source, nFit) ? nFit : RowEnd(source, nFit);
    return IsEnd(source, nEnd) ? BehindEnd(source, nEnd) : nEnd;
}

UINT LikelyRowStart(const LineSource& source, UINT n, UINT nMostBack)
{
    for (UINT nStart = n; nStart > 0 && n - nStart <= nMostBack; --nStart) {
        if (MayEnd(source, nStart)) {
            return nStart;
        }
    }
    return n - (n > 0 && IS_HIGH_SURROGATE(source.At(n - 1)) && IS_LOW_SURROGATE(source.At(n)) ? 1 : 0);
}

UINT CountHangingSpaces(const LineSource& source, UINT nLength)
{
    UINT n = 0;
    while (n < nLength && IsSpace(source.At(nLength - n - 1))) {
        ++n;
    }
    return n;
}

} // namespace gesso
