// The text and the table of its lines.

#include <gesso/edit/GEdit.h>

#include <algorithm>
#include <climits>
#include <utility>

using gesso::Misuse;

namespace {

constexpr wchar_t CR = L'\r';
constexpr wchar_t LF = L'\n';

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
    Invalidate(0);
    return 1;
}

void GEdit::SetSel(int nStart, int nEnd)
{
    PutAnchor(PlaceOfSel(nStart));
    PutCaret(PlaceOfSel(nEnd));
    UpdateCursorPos();
    Invalidate(0);
}
