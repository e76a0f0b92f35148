// The text, the table of its lines, and how they wrap.

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <climits>
#include <utility>

using gesso::Frame;
using gesso::Misuse;

namespace {

constexpr wchar_t CR = L'\r';
constexpr wchar_t LF = L'\n';
constexpr UINT BREAK_LENGTH = 2; // CR LF

// A text with its line ends made CR LF, and the length of each line.
struct SplitText
{
    explicit SplitText(LPCWSTR psz)
    {
        const auto nLength = static_cast<UINT>(wcslen(psz));
        // A lone CR or LF becomes two characters.
        wchar_t* pszTo = str.GetBuffer(2 * nLength + 1);
        UINT nTo = 0;
        UINT nLineStart = 0;
        for (LPCWSTR p = psz; *p; ++p) {
            if (*p != CR && *p != LF) {
                pszTo[nTo++] = *p;
                continue;
            }
            if (*p == CR && p[1] == LF) {
                ++p;
            }
            aLines.Add(nTo - nLineStart);
            pszTo[nTo++] = CR;
            pszTo[nTo++] = LF;
            nLineStart = nTo;
        }
        aLines.Add(nTo - nLineStart);
        str.ReleaseBuffer(nTo);
    }

    OStringEx<wchar_t> str;
    OArray<UINT, UINT const&> aLines;
};

} // namespace

// --- Places
// -------------------------------------------------------------------------------------------------------

wchar_t GEdit::CharAt(UINT nOffset) const
{
    return nOffset < m_strText.GetLength() ? static_cast<LPCWSTR>(m_strText)[nOffset] : L'\0';
}

// Of the text or of a paragraph.
bool GEdit::IsLineEnd(UINT nOffset) const
{
    const wchar_t ch = CharAt(nOffset);
    return ch == 0 || ch == CR;
}

LPCWSTR GEdit::TextAt(UINT nOffset) const
{
    return static_cast<LPCWSTR>(m_strText) + std::min(nOffset, m_strText.GetLength());
}

// The line's characters that the text really has: a deleted line end may leave the table at odds with it.
UINT GEdit::LengthWithin(UINT nLine, UINT nOffset) const
{
    const UINT nLength = m_strText.GetLength();
    return std::min(m_aLines[nLine], nLength - std::min(nOffset, nLength));
}

UINT GEdit::LengthOfLine(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::LengthOfLine: no such line");
        return 0;
    }
    const UINT nLength = m_aLines[nLine];
    return CharAt(nOffset + nLength) == CR ? nLength + BREAK_LENGTH : nLength;
}

UINT GEdit::OffsetOfLine(UINT nLine) const
{
    const UINT nEnd = std::min(nLine, m_aLines.GetLength());
    UINT nOffset = 0;
    for (UINT i = 0; i < nEnd; ++i) {
        nOffset += LengthOfLine(i, nOffset);
    }
    return nOffset;
}

// SetSel may store a negative character, which counts as 0.
GEdit::Place GEdit::Limited(UINT nLine, UINT nChar) const
{
    const UINT nLimited = std::min(nLine, m_aLines.GetLength() - 1);
    return {nLimited, nChar > INT_MAX ? 0 : std::min(nChar, m_aLines[nLimited])};
}

GEdit::Place GEdit::Caret() const
{
    return Limited(m_nCaretLine, m_nCaretChar);
}

GEdit::Place GEdit::Anchor() const
{
    return Limited(m_nAnchorLine, m_nAnchorChar);
}

GEdit::Place GEdit::End() const
{
    const UINT nLast = m_aLines.GetLength() - 1;
    return {nLast, m_aLines[nLast]};
}

UINT GEdit::OffsetOf(const Place& place) const
{
    return OffsetOfLine(place.nLine) + place.nChar;
}

// The line that a character of the text is in.
UINT GEdit::LineHolding(UINT nOffset) const
{
    const UINT nLast = m_aLines.GetLength() - 1;
    UINT nStart = 0;
    for (UINT i = 0; i < nLast; ++i) {
        if (nOffset < nStart + m_aLines[i]) {
            return i;
        }
        nStart += LengthOfLine(i, nStart);
    }
    return nLast;
}

void GEdit::PutCaret(const Place& place)
{
    m_nCaretLine = place.nLine;
    m_nCaretChar = place.nChar;
}

void GEdit::PutAnchor(const Place& place)
{
    m_nAnchorLine = place.nLine;
    m_nAnchorChar = place.nChar;
}

// Where a line is wrapped, the caret stands at the start of the lower one.
void GEdit::PutCaretAt(UINT nOffset)
{
    const UINT nLast = m_aLines.GetLength() - 1;
    UINT nLine = 0;
    UINT nStart = 0;
    while (nLine < nLast && nStart + m_aLines[nLine] < nOffset) {
        nStart += LengthOfLine(nLine, nStart);
        ++nLine;
    }
    const bool fWrapped = nLine < nLast && nStart + m_aLines[nLine] == nOffset && !IsLineEnd(nOffset);
    PutCaret(fWrapped ? Place{nLine + 1, 0} : Limited(nLine, nOffset - std::min(nOffset, nStart)));
}

bool GEdit::HasSelection() const
{
    return Caret() != Anchor();
}

// The values run down the lines only as long as they are below a line's length, and so become negative: hosts
// know the selection of several lines so.
GEdit::Place GEdit::PlaceOfSel(int n) const
{
    const UINT nLast = m_aLines.GetLength() - 1;
    LONGLONG nRest = n < 0 ? INT_MAX : n;
    UINT nLine = 0;
    while (nLine < nLast && nRest < m_aLines[nLine]) {
        nRest -= m_aLines[nLine++];
    }
    return {nLine, static_cast<UINT>(std::min<LONGLONG>(m_aLines[nLine], nRest))};
}

void GEdit::CalcHighliteOfLine(int& nFrom, int& nTo, UINT nLine) const
{
    const Place first = std::min(Caret(), Anchor());
    const Place last = std::max(Caret(), Anchor());
    if (nLine < first.nLine || nLine > last.nLine) {
        nFrom = nTo = 0;
        return;
    }
    nFrom = static_cast<int>(nLine == first.nLine ? first.nChar : 0);
    nTo = static_cast<int>(nLine == last.nLine ? last.nChar : m_aLines[nLine]);
}

// --- Editing
// ------------------------------------------------------------------------------------------------------

// The lines from nLine on are no longer known to be as long as fits, but those behind it still are.
void GEdit::Touch(UINT nLine)
{
    const UINT nBehind = m_aLines.GetLength() - std::min(nLine + 1, m_aLines.GetLength());
    m_nSettled = std::min(m_nSettled, nBehind);
}

// A text that came with the window is one line, line ends and all.
void GEdit::BeOneLine()
{
    m_aLines.RemoveAll();
    m_aLines.Add(m_strText.GetLength());
    PutCaret({0, 0});
    PutAnchor({0, 0});
    m_nSettled = 0;
}

// The string itself grows to the exact need.
void GEdit::Reserve(UINT nMore)
{
    const UINT nNeed = m_strText.GetLength() + nMore + 1;
    if (nNeed > m_strText.GetBufferLength()) {
        m_strText.GetBuffer(nNeed + nNeed / 4);
    }
}

// At the caret, which goes behind it.
void GEdit::InsertText(LPCWSTR pszText)
{
    SplitText text(pszText);
    const Place caret = Caret();
    const UINT nOffset = std::min(OffsetOf(caret), m_strText.GetLength());
    Reserve(text.str.GetLength());
    m_strText.Insert(nOffset, text.str);

    const UINT nLast = text.aLines.GetLength() - 1;
    const UINT nBehind = m_aLines[caret.nLine] - caret.nChar;
    text.aLines[0] += caret.nChar;
    PutCaret({caret.nLine + nLast, text.aLines[nLast]});
    text.aLines[nLast] += nBehind;
    m_aLines[caret.nLine] = text.aLines[0];
    m_aLines.InsertAt(caret.nLine + 1, text.aLines.GetData() + 1, nLast);
    Touch(caret.nLine + nLast);
}

// At the caret, which goes behind it. Returns the character's place in the text.
UINT GEdit::InsertChar(wchar_t ch)
{
    const Place caret = Caret();
    const UINT nOffset = std::min(OffsetOf(caret), m_strText.GetLength());
    Reserve(1);
    m_strText.Insert(nOffset, &ch, 1);
    ++m_aLines[caret.nLine];
    PutCaret({caret.nLine, caret.nChar + 1});
    Touch(caret.nLine);
    return nOffset;
}

// The caret must stand where it is to be afterwards.
void GEdit::RemoveChar(UINT nLine, UINT nOffset)
{
    m_strText.Delete(nOffset, 1);
    m_aLines[nLine] -= std::min(m_aLines[nLine], 1u);
    Touch(nLine);
    DropEmptied(nLine, nOffset);
}

void GEdit::DeleteSelection()
{
    const Place first = std::min(Caret(), Anchor());
    const Place last = std::max(Caret(), Anchor());
    const UINT nStart = OffsetOf(first);
    const UINT nEnd = OffsetOf(last);
    m_aLines[first.nLine] = m_aLines[last.nLine] - last.nChar + first.nChar;
    m_aLines.RemoveAt(first.nLine + 1, last.nLine - first.nLine);
    m_strText.Delete(nStart, nEnd - nStart);
    PutCaret(first);
    Touch(first.nLine);
    DropEmptied(first.nLine, nStart);
    PutAnchor(Caret());
}

// A line that begins at nOffset and has lost all its characters is none any more if the line before was
// wrapped into it and nothing of the paragraph follows.
void GEdit::DropEmptied(UINT nLine, UINT nOffset)
{
    if (m_aLines[nLine] > 0 || nLine == 0 || !IsLineEnd(nOffset) ||
        OffsetOfLine(nLine - 1) + m_aLines[nLine - 1] != nOffset)
    {
        return;
    }
    m_aLines.RemoveAt(nLine, 1);
    Touch(nLine - 1);
    if (m_nCaretLine == nLine) {
        PutCaret({nLine - 1, m_aLines[nLine - 1]});
    }
}

void GEdit::InsertBreak(UINT, UINT nOffset)
{
    const Place caret = Caret();
    Reserve(BREAK_LENGTH);
    m_strText.Insert(std::min(nOffset + caret.nChar, m_strText.GetLength()), L"\r\n", BREAK_LENGTH);
    m_aLines.InsertAt(caret.nLine + 1, m_aLines[caret.nLine] - caret.nChar);
    m_aLines[caret.nLine] = caret.nChar;
    PutCaret({caret.nLine + 1, 0});
    Touch(caret.nLine + 1);
}

void GEdit::DeleteBreak(UINT, UINT nOffset)
{
    const UINT nLine = Caret().nLine;
    if (nLine == 0) {
        Misuse("GEdit::DeleteBreak: the caret is in the first line");
        return;
    }
    const bool fOwnBreak = nOffset == OffsetOfLine(nLine);
    const UINT nBefore = m_aLines[nLine - 1];
    m_aLines[nLine - 1] += m_aLines[nLine];
    m_aLines.RemoveAt(nLine, 1);
    if (nOffset >= BREAK_LENGTH) {
        m_strText.Delete(nOffset - BREAK_LENGTH, BREAK_LENGTH);
    }
    PutCaret({nLine - 1, nBefore});
    Touch(nLine - 1);
    if (!fOwnBreak) {
        m_nSettled = 0;
    }
}

// Takes away what stands between the caret's line and the one before: the line end, or, where the upper line
// is wrapped, its last character.
void GEdit::JoinWithLineBefore()
{
    const UINT nLine = Caret().nLine;
    const UINT nOffset = OffsetOfLine(nLine);
    UINT nHolder = nLine - 1;
    const bool fWrapped = m_aLines[nHolder] > 0 && OffsetOfLine(nHolder) + m_aLines[nHolder] == nOffset;
    if (!fWrapped && nOffset >= BREAK_LENGTH && CharAt(nOffset - BREAK_LENGTH) == CR) {
        DeleteBreak(nLine, nOffset);
        return;
    }
    while (nHolder > 0 && m_aLines[nHolder] == 0) {
        --nHolder;
    }
    PutCaret({nHolder, m_aLines[nHolder] - std::min(m_aLines[nHolder], 1u)});
    if (nOffset > 0) {
        RemoveChar(nHolder, nOffset - 1);
    }
}

int GEdit::SetText(LPCWSTR pszText)
{
    // The text given may be the control's own, which goes on in here.
    const OStringEx<wchar_t> strFormer = std::exchange(m_strText, OStringEx<wchar_t>(FIRST_CAPACITY));
    BeOneLine();
    InsertText(pszText ? pszText : L"");
    WrapAll();
    PutAnchor(Caret());
    UpdateCursorPos();
    Refresh();
    return 1;
}

void GEdit::SetSel(int nStart, int nEnd)
{
    PutAnchor(PlaceOfSel(nStart));
    PutCaret(PlaceOfSel(nEnd));
    UpdateCursorPos();
    Refresh();
}

// --- Wrapping
// -----------------------------------------------------------------------------------------------------

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
    return static_cast<int>(LongerByWord(nOffset, nLength) - nLength);
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
    if (CharAt(nNewEnd) == CR) {
        nRest -= std::min(nRest, BREAK_LENGTH);
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
