// How the lines of a text wrap.

#include <gesso/edit/EditLines.h>

#include <algorithm>
#include <utility>

namespace gesso {

// --- Words. Only the character 32 is a space.

// The length without the last word, with the space before it; one character less where there is no space.
UINT EditLines::ShorterByWord(UINT nOffset, UINT nLength) const
{
    for (UINT i = nLength - std::min(nLength, 1u); i > 0; --i) {
        if (CharAt(nOffset + i - 1) == L' ') {
            return i;
        }
    }
    return nLength - std::min(nLength, 1u);
}

// The length with the next word and the space behind it, or to the end of the paragraph.
UINT EditLines::LongerByWord(UINT nOffset, UINT nLength) const
{
    UINT i = nLength + 1;
    while (!IsLineEnd(nOffset + i) && CharAt(nOffset + i - 1) != L' ') {
        ++i;
    }
    return i;
}

// --- One line

// Word by word, but what is wider than the line anyway goes at once.
UINT EditLines::Shortened(const LineMeasure& measure, UINT nOffset, UINT nLength) const
{
    const LPCWSTR psz = TextAt(nOffset);
    const UINT nFitting = std::min(measure.CountFitting(psz, nLength), nLength - 1);
    UINT n = nFitting;
    while (n > 0 && psz[n - 1] != L' ') {
        --n;
    }
    if (n == 0) {
        n = nFitting;
    }
    while (n > 0 && measure.Compare(psz, n) > 0) {
        n = ShorterByWord(nOffset, n);
    }
    return n;
}

UINT EditLines::Lengthened(const LineMeasure& measure, UINT nOffset, UINT nLength) const
{
    while (!IsLineEnd(nOffset + nLength)) {
        const UINT nLonger = LongerByWord(nOffset, nLength);
        if (measure.Compare(TextAt(nOffset), nLonger) >= 0) {
            break;
        }
        nLength = nLonger;
    }
    return nLength;
}

// The characters from nNewEnd to nOldEnd go to the following line, or to one of their own if they are the end
// of a paragraph.
void EditLines::PushToNextLine(UINT nLine, UINT nOldEnd, UINT nNewEnd)
{
    UINT nRest = nOldEnd - nNewEnd;
    // A line of the text that came with the window may be cut in front of a line end within it.
    if (CharAt(nNewEnd) == L'\r') {
        nRest -= std::min(nRest, UINT{BREAK_LENGTH});
    }
    if (IsLineEnd(nOldEnd) || nLine + 1 == Count()) {
        InsertLine(nLine + 1, nRest);
    } else {
        SetLength(nLine + 1, m_aLines[nLine + 1] + nRest);
    }
    Touch(nLine + 1);
}

// The characters from nOldEnd to nNewEnd came from the following lines of the paragraph. What is left of
// those that they came from, and of as many more as are no longer than that, is one line, which is fitted in
// turn. False, with nothing changed, where so much could not be taken back.
bool EditLines::PullFromNextLine(UINT nLine, UINT nOldEnd, UINT nNewEnd)
{
    const UINT nFirst = nLine + 1;
    UINT nNext = nFirst;
    while (nNext < Count() && !IsLineEnd(nOldEnd) && nOldEnd <= m_aLines[nNext] + nNewEnd) {
        nOldEnd += m_aLines[nNext++];
    }
    if (!ReserveNotes(nNext - nFirst + 2)) {
        return false;
    }
    RemoveLines(nFirst, nNext - nFirst);
    if (nOldEnd > nNewEnd) {
        InsertLine(nFirst, nOldEnd - nNewEnd);
    }
    Touch(nFirst);
    return true;
}

// For a line that is new, and the notes of three changes.
bool EditLines::HasRoomToFit()
{
    constexpr UINT MOST_CHANGES = 3;
    return m_aLines.AllocExtra(Count() + 1) && ReserveNotes(MOST_CHANGES);
}

int EditLines::FitLine(const LineMeasure& measure, UINT nLine, UINT nOffset)
{
    const UINT nFormer = LengthWithin(nLine, nOffset);
    const int nCompared = measure.Compare(TextAt(nOffset), nFormer);
    // Without memory it stays as if it were exactly as wide.
    if (nCompared == 0 || !HasRoomToFit()) {
        return 0;
    }
    const UINT nLength =
        nCompared > 0 ? Shortened(measure, nOffset, nFormer) : Lengthened(measure, nOffset, nFormer);
    if (nLength > nFormer && !PullFromNextLine(nLine, nOffset + nFormer, nOffset + nLength)) {
        return 0;
    }
    if (nLength < nFormer) {
        PushToNextLine(nLine, nOffset + nFormer, nOffset + nLength);
    }
    SetLength(nLine, nLength);
    return 1;
}

int EditLines::Refit(const LineMeasure& measure, UINT nLine, Place* pCaret)
{
    const UINT nCaret = OffsetOf(*pCaret);
    const int nChanged = FitLine(measure, nLine, OffsetOfLine(nLine));
    *pCaret = PlaceAt(nCaret);
    return nChanged;
}

// --- One line after the other

// Whether the line before is wrapped and empty: not even one character fitted there.
bool EditLines::IsBehindEmpty(UINT nLine) const
{
    return nLine > 0 && m_aLines[nLine - 1] == 0 && OffsetOfLine(nLine - 1) == OffsetOfLine(nLine);
}

// Where not even one character fits, a line hands on all that it has. The next one keeps it, or there would
// be no end.
bool EditLines::IsStuck(const LineMeasure& measure, UINT nLine, UINT nOffset, bool fBehindEmpty) const
{
    return fBehindEmpty && LengthWithin(nLine, nOffset) > 0 && measure.Compare(TextAt(nOffset), 1) > 0;
}

// Up to a line that is exactly as wide as the field, or to the end; the rest is looked at no more where it is
// known to fit.
void EditLines::FitFrom(const LineMeasure& measure, UINT nFirst, bool fAll)
{
    UINT nOffset = OffsetOfLine(nFirst);
    UINT nSettledFrom = nFirst;
    bool fBehindEmpty = IsBehindEmpty(nFirst);
    for (UINT i = nFirst; Count() - i > m_nSettled; ++i) {
        if (!HasRoomToFit()) {
            return;
        }
        if (IsStuck(measure, i, nOffset, fBehindEmpty)) {
            // Only as long as the line before is empty.
            nSettledFrom = i + 1;
        } else if (!FitLine(measure, i, nOffset) && !fAll) {
            return;
        }
        const UINT nLength = LengthWithBreak(i, nOffset);
        fBehindEmpty = nLength == 0;
        nOffset += nLength;
    }
    m_nSettled = std::max(m_nSettled, Count() - nSettledFrom);
}

// The line before, which may have room for the caret's first word now, and the lines from there on.
Place EditLines::Repair(const LineMeasure& measure, const Place& caret)
{
    if (std::exchange(m_cxSettled, measure.Width()) != measure.Width()) {
        m_nSettled = 0;
    }
    const UINT nCaret = OffsetOf(caret);
    UINT nFirst = caret.nLine;
    if (nFirst > 0) {
        const UINT nUpper = nFirst - 1;
        const UINT nUpperOffset = OffsetOfLine(nUpper);
        if (!IsStuck(measure, nUpper, nUpperOffset, IsBehindEmpty(nUpper))) {
            FitLine(measure, nUpper, nUpperOffset);
        }
        // At a wrap the caret goes to the line below the edited one.
        nFirst = std::min(nFirst, PlaceAt(nCaret).nLine);
    }
    FitFrom(measure, nFirst, false);
    return PlaceAt(nCaret);
}

Place EditLines::WrapAll(const LineMeasure& measure, const Place& caret)
{
    m_nSettled = 0;
    m_cxSettled = measure.Width();
    const UINT nCaret = OffsetOf(caret);
    FitFrom(measure, 0, true);
    return PlaceAt(nCaret);
}

} // namespace gesso
