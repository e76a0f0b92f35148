// How the lines of a text wrap at the width of the client area.

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Misuse;

// Measures lines against the width of the client area.
class GEdit::LineFitter
{
public:
    explicit LineFitter(const GEdit& edit) : m_measure(edit.m_hWnd, edit.m_hFont, edit.IsMasked())
    {
        RECT rc{};
        GetClientRect(edit.m_hWnd, &rc);
        m_cx = rc.right;
    }

    int Width() const { return m_cx; }
    int LineHeight() const { return m_measure->LineHeight(); }
    // Below, equal or above 0 for a line narrower than the client area, as wide, or wider.
    int Compare(LPCWSTR psz, UINT nLength) const { return m_measure->CompareWidth(psz, nLength, m_cx); }
    UINT CountFitting(LPCWSTR psz, UINT nLength) const { return m_measure->CountFitting(psz, nLength, m_cx); }

private:
    gesso::WindowMeasure m_measure;
    int m_cx;
};

bool GEdit::IsMasked() const
{
    return Frame::Style(*this) & ES_PASSWORD;
}

// A popup's lines end where the text says so.
bool GEdit::KeepsLines() const
{
    return !m_hWnd || (Frame::Style(*this) & WS_POPUP);
}

int GEdit::DoesFitLine(UINT nLine) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::DoesFitLine: no such line");
        return 0;
    }
    const UINT nOffset = OffsetOfLine(nLine);
    return LineFitter(*this).Compare(TextAt(nOffset), LengthWithin(nLine, nOffset)) < 0;
}

int GEdit::DoesFitHeight() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    return LONGLONG{LineFitter(*this).LineHeight()} * m_aLines.GetLength() < rc.bottom;
}

// The length without the last word, with the space before it; one character less where there is no space.
// Only the character 32 is one.
UINT GEdit::ShorterByWord(UINT nOffset, UINT nLength) const
{
    for (UINT i = nLength - std::min(nLength, 1u); i > 0; --i) {
        if (CharAt(nOffset + i - 1) == L' ') {
            return i;
        }
    }
    return nLength - std::min(nLength, 1u);
}

// The length with the next word and the space behind it, or to the end of the paragraph.
UINT GEdit::LongerByWord(UINT nOffset, UINT nLength) const
{
    UINT i = nLength + 1;
    while (!IsLineEnd(nOffset + i) && CharAt(nOffset + i - 1) != L' ') {
        ++i;
    }
    return i;
}

int GEdit::LeftWordBreak(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::LeftWordBreak: no such line");
        return 0;
    }
    const UINT nLength = m_aLines[nLine];
    return -static_cast<int>(nLength - ShorterByWord(nOffset, nLength));
}

int GEdit::RightWordBreak(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::RightWordBreak: no such line");
        return 0;
    }
    const UINT nLength = m_aLines[nLine];
    UINT i = LongerByWord(nOffset, nLength);
    // A line end is no space here, though wrapping stops at it: hosts know the step so.
    while (CharAt(nOffset + i) != 0 && CharAt(nOffset + i - 1) != L' ') {
        ++i;
    }
    return static_cast<int>(i - nLength);
}

// Word by word, but what is wider than the line anyway goes at once.
UINT GEdit::Shortened(const LineFitter& fitter, UINT nOffset, UINT nLength) const
{
    const LPCWSTR psz = TextAt(nOffset);
    const UINT nFitting = std::min(fitter.CountFitting(psz, nLength), nLength - 1);
    UINT n = nFitting;
    while (n > 0 && psz[n - 1] != L' ') {
        --n;
    }
    if (n == 0) {
        n = nFitting;
    }
    while (n > 0 && fitter.Compare(psz, n) > 0) {
        n = ShorterByWord(nOffset, n);
    }
    return n;
}

UINT GEdit::Lengthened(const LineFitter& fitter, UINT nOffset, UINT nLength) const
{
    while (!IsLineEnd(nOffset + nLength)) {
        const UINT nLonger = LongerByWord(nOffset, nLength);
        if (fitter.Compare(TextAt(nOffset), nLonger) >= 0) {
            break;
        }
        nLength = nLonger;
    }
    return nLength;
}

// The characters from nNewEnd to nOldEnd go to the following line, or to one of their own if they are the end
// of a paragraph.
void GEdit::HandOn(UINT nLine, UINT nOldEnd, UINT nNewEnd)
{
    UINT nRest = nOldEnd - nNewEnd;
    // A line of the text that came with the window may be cut in front of a line end within it.
    if (CharAt(nNewEnd) == L'\r') {
        nRest -= std::min(nRest, UINT{BREAK_LENGTH});
    }
    if (IsLineEnd(nOldEnd) || nLine + 1 == m_aLines.GetLength()) {
        m_aLines.InsertAt(nLine + 1, nRest);
    } else {
        m_aLines[nLine + 1] += nRest;
    }
    Touch(nLine + 1);
}

// The characters from nOldEnd to nNewEnd came from the following lines of the paragraph. What is left of
// those that they came from, and of as many more as are no longer than that, is one line, which is fitted in
// turn.
void GEdit::TakeOver(UINT nLine, UINT nOldEnd, UINT nNewEnd)
{
    const UINT nFirst = nLine + 1;
    UINT nNext = nFirst;
    while (nNext < m_aLines.GetLength() && !IsLineEnd(nOldEnd) && nOldEnd <= m_aLines[nNext] + nNewEnd) {
        nOldEnd += m_aLines[nNext++];
    }
    m_aLines.RemoveAt(nFirst, nNext - nFirst);
    if (nOldEnd > nNewEnd) {
        m_aLines.InsertAt(nFirst, nOldEnd - nNewEnd);
    }
    Touch(nFirst);
}

int GEdit::FitLine(const LineFitter& fitter, UINT nLine, UINT nOffset)
{
    const UINT nFormer = LengthWithin(nLine, nOffset);
    const int nCompared = fitter.Compare(TextAt(nOffset), nFormer);
    if (nCompared == 0) {
        return 0;
    }
    const UINT nLength =
        nCompared > 0 ? Shortened(fitter, nOffset, nFormer) : Lengthened(fitter, nOffset, nFormer);
    m_aLines[nLine] = nLength;
    if (nLength < nFormer) {
        HandOn(nLine, nOffset + nFormer, nOffset + nLength);
    } else if (nLength > nFormer) {
        TakeOver(nLine, nOffset + nFormer, nOffset + nLength);
    }
    return 1;
}

// Whether the line before is wrapped and empty: not even one character fitted there.
bool GEdit::IsBehindEmpty(UINT nLine) const
{
    return nLine > 0 && m_aLines[nLine - 1] == 0 && OffsetOfLine(nLine - 1) == OffsetOfLine(nLine);
}

// Where not even one character fits, a line hands on all that it has. The next one keeps it, or there would
// be no end.
bool GEdit::IsStuck(const LineFitter& fitter, UINT nLine, UINT nOffset, bool fBehindEmpty) const
{
    return fBehindEmpty && LengthWithin(nLine, nOffset) > 0 && fitter.Compare(TextAt(nOffset), 1) > 0;
}

// Fits one line after the other, up to one that is exactly as wide as the client area, or to the end; the
// rest is looked at no more where it is known to fit.
void GEdit::FitFrom(const LineFitter& fitter, UINT nFirst, bool fAll)
{
    UINT nOffset = OffsetOfLine(nFirst);
    UINT nSettledFrom = nFirst;
    bool fBehindEmpty = IsBehindEmpty(nFirst);
    for (UINT i = nFirst; m_aLines.GetLength() - i > m_nSettled; ++i) {
        if (IsStuck(fitter, i, nOffset, fBehindEmpty)) {
            // Only as long as the line before is empty.
            nSettledFrom = i + 1;
        } else if (!FitLine(fitter, i, nOffset) && !fAll) {
            return;
        }
        const UINT nLength = LengthOfLine(i, nOffset);
        fBehindEmpty = nLength == 0;
        nOffset += nLength;
    }
    m_nSettled = std::max(m_nSettled, m_aLines.GetLength() - nSettledFrom);
}

int GEdit::RecalculateLine(UINT nLine)
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::RecalculateLine: no such line");
        return 0;
    }
    if (KeepsLines()) {
        return 0;
    }
    const LineFitter fitter(*this);
    const UINT nCaret = OffsetOf(Caret());
    const int nChanged = FitLine(fitter, nLine, OffsetOfLine(nLine));
    PutCaretAt(nCaret);
    return nChanged;
}

// What an edit at the caret may have changed: the line before, which may have room for the caret's first word
// now, and the lines from there on.
void GEdit::RepairLines()
{
    if (KeepsLines()) {
        return;
    }
    const LineFitter fitter(*this);
    if (std::exchange(m_cxSettled, fitter.Width()) != fitter.Width()) {
        m_nSettled = 0;
    }
    const Place caret = Caret();
    const UINT nCaret = OffsetOf(caret);
    if (caret.nLine > 0) {
        const UINT nUpper = caret.nLine - 1;
        const UINT nUpperOffset = OffsetOfLine(nUpper);
        if (!IsStuck(fitter, nUpper, nUpperOffset, IsBehindEmpty(nUpper))) {
            FitLine(fitter, nUpper, nUpperOffset);
        }
        PutCaretAt(nCaret);
    }
    // At a wrap the caret has gone to the line below the edited one.
    FitFrom(fitter, std::min(caret.nLine, m_nCaretLine), false);
    PutCaretAt(nCaret);
}

void GEdit::WrapAll()
{
    if (KeepsLines()) {
        return;
    }
    const LineFitter fitter(*this);
    m_nSettled = 0;
    m_cxSettled = fitter.Width();
    const UINT nCaret = OffsetOf(Caret());
    FitFrom(fitter, 0, true);
    PutCaretAt(nCaret);
}
