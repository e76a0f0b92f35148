// Places in a text of lines, and edits.

#include <gesso/edit/EditLines.h>

#include <algorithm>
#include <climits>
#include <utility>

namespace gesso {
namespace {

constexpr wchar_t CR = L'\r';
constexpr wchar_t LF = L'\n';

// Goes through a text: character(ch) for each character, lineEnd() for each line end.
template <class CHARACTER, class LINE_END> void Walk(LPCWSTR psz, CHARACTER character, LINE_END lineEnd)
{
    for (LPCWSTR p = psz; *p; ++p) {
        if (*p != CR && *p != LF) {
            character(*p);
            continue;
        }
        if (*p == CR && p[1] == LF) {
            ++p;
        }
        lineEnd();
    }
}

} // namespace

LineText::LineText(LPCWSTR psz)
{
    UINT nText = 0;
    UINT nBreaks = 0;
    Walk(
        psz, [&](wchar_t) { ++nText; }, [&] { ++nBreaks; });
    const UINT nLength = nText + nBreaks * EditLines::BREAK_LENGTH;
    wchar_t* pszTo = str.GetBuffer(std::max(nLength + 1, EditLines::FIRST_CAPACITY));
    if (!pszTo || !aLines.AllocExtra(nBreaks + 1, 0)) {
        return;
    }
    UINT nLine = 0;
    const auto put = [&](wchar_t ch) {
        *pszTo++ = ch;
        ++nLine;
    };
    const auto endLine = [&] {
        aLines.Add(std::exchange(nLine, 0));
        *pszTo++ = CR;
        *pszTo++ = LF;
    };
    Walk(psz, put, endLine);
    aLines.Add(nLine);
    str.ReleaseBuffer(nLength);
}

// --- The text and its lines

wchar_t EditLines::CharAt(UINT nOffset) const
{
    return nOffset < TextLength() ? static_cast<LPCWSTR>(m_strText)[nOffset] : L'\0';
}

bool EditLines::IsLineEnd(UINT nOffset) const
{
    const wchar_t ch = CharAt(nOffset);
    return ch == 0 || ch == CR;
}

LPCWSTR EditLines::TextAt(UINT nOffset) const
{
    return static_cast<LPCWSTR>(m_strText) + std::min(nOffset, TextLength());
}

UINT EditLines::LengthWithin(UINT nLine, UINT nOffset) const
{
    return std::min(m_aLines[nLine], TextLength() - std::min(nOffset, TextLength()));
}

UINT EditLines::LengthWithBreak(UINT nLine, UINT nOffset) const
{
    const UINT nLength = m_aLines[nLine];
    return CharAt(nOffset + nLength) == CR ? nLength + BREAK_LENGTH : nLength;
}

UINT EditLines::OffsetOfLine(UINT nLine) const
{
    const UINT nEnd = std::min(nLine, Count());
    UINT nOffset = 0;
    for (UINT i = 0; i < nEnd; ++i) {
        nOffset += LengthWithBreak(i, nOffset);
    }
    return nOffset;
}

// --- Places

Place EditLines::End() const
{
    const UINT nLast = Count() - 1;
    return {nLast, m_aLines[nLast]};
}

UINT EditLines::OffsetOf(const Place& place) const
{
    return OffsetOfLine(place.nLine) + place.nChar;
}

// The line that a character of the text is in.
UINT EditLines::LineHolding(UINT nOffset) const
{
    const UINT nLast = Count() - 1;
    UINT nStart = 0;
    for (UINT i = 0; i < nLast; ++i) {
        if (nOffset < nStart + m_aLines[i]) {
            return i;
        }
        nStart += LengthWithBreak(i, nStart);
    }
    return nLast;
}

Place EditLines::PlaceAt(UINT nOffset) const
{
    const UINT nLast = Count() - 1;
    UINT nLine = 0;
    UINT nStart = 0;
    while (nLine < nLast && nStart + m_aLines[nLine] < nOffset) {
        nStart += LengthWithBreak(nLine, nStart);
        ++nLine;
    }
    const bool fWrapped = nLine < nLast && nStart + m_aLines[nLine] == nOffset && !IsLineEnd(nOffset);
    return fWrapped ? Place{nLine + 1, 0} : Limited({nLine, nOffset - std::min(nOffset, nStart)});
}

// Fixed behaviour: the values run down the lines only as long as they are below a line's length, and so
// become negative; the ends of a selection by EM_SETSEL would stand elsewhere in a text of several lines.
Place EditLines::PlaceOfSel(int n) const
{
    const UINT nLast = Count() - 1;
    LONGLONG nRest = n < 0 ? INT_MAX : n;
    UINT nLine = 0;
    while (nLine < nLast && nRest < m_aLines[nLine]) {
        nRest -= m_aLines[nLine++];
    }
    return {nLine, static_cast<UINT>(std::min<LONGLONG>(m_aLines[nLine], nRest))};
}

Place EditLines::Before(const Place& place) const
{
    if (place.nChar > 0) {
        return {place.nLine, place.nChar - 1};
    }
    if (place.nLine == 0) {
        return place;
    }
    const UINT nUpper = place.nLine - 1;
    const UINT nLength = m_aLines[nUpper];
    const bool fWrapped = !IsLineEnd(OffsetOfLine(nUpper) + nLength);
    return {nUpper, fWrapped && nLength > 0 ? nLength - 1 : nLength};
}

Place EditLines::Behind(const Place& place) const
{
    if (place.nChar < m_aLines[place.nLine]) {
        return {place.nLine, place.nChar + 1};
    }
    const UINT nLower = place.nLine + 1;
    if (nLower == Count()) {
        return place;
    }
    const bool fWrapped = !IsLineEnd(OffsetOf(place));
    return {nLower, fWrapped ? std::min(m_aLines[nLower], 1u) : 0};
}

// --- The table: every change of it while a character is being typed is noted

void EditLines::Note(TableChange::Kind kind, UINT nLine, UINT nFormer)
{
    if (m_pJournal) {
        m_pJournal->Add({kind, nLine, nFormer});
    }
}

bool EditLines::ReserveNotes(UINT nMore)
{
    return !m_pJournal || m_pJournal->AllocExtra(m_pJournal->GetLength() + nMore);
}

void EditLines::SetLength(UINT nLine, UINT nLength)
{
    if (m_aLines[nLine] != nLength) {
        Note(TableChange::SET, nLine, m_aLines[nLine]);
        m_aLines[nLine] = nLength;
    }
}

void EditLines::InsertLine(UINT nLine, UINT nLength)
{
    Note(TableChange::INSERTED, nLine, 0);
    m_aLines.InsertAt(nLine, nLength);
}

void EditLines::RemoveLines(UINT nLine, UINT nCount)
{
    for (UINT i = 0; i < nCount; ++i) {
        Note(TableChange::REMOVED, nLine, m_aLines[nLine + i]);
    }
    m_aLines.RemoveAt(nLine, nCount);
}

void EditLines::TakeBack(const Journal& aChanges)
{
    m_pJournal = nullptr;
    for (UINT i = aChanges.GetLength(); i-- > 0;) {
        const auto& [kind, nLine, nFormer] = aChanges[i];
        switch (kind) {
        case TableChange::SET: m_aLines[nLine] = nFormer; break;
        case TableChange::INSERTED: m_aLines.RemoveAt(nLine, 1); break;
        case TableChange::REMOVED: m_aLines.InsertAt(nLine, nFormer); break;
        }
    }
    m_nSettled = 0;
}

// The lines from nLine on are no longer known to be as long as fits, but those behind it still are.
void EditLines::Touch(UINT nLine)
{
    m_nSettled = std::min(m_nSettled, Count() - std::min(nLine + 1, Count()));
}

// --- Edits

void EditLines::BeOneLine()
{
    m_aLines.RemoveAll();
    m_aLines.GetAtGrow(0) = TextLength();
    m_nSettled = 0;
}

bool EditLines::Start(LPCWSTR psz)
{
    // What is of the text itself has room there.
    if (!m_strText.GetBuffer(static_cast<UINT>(wcslen(psz)) + 1)) {
        return false;
    }
    m_strText = psz;
    BeOneLine();
    return true;
}

Place EditLines::Replace(LineText&& text)
{
    m_strText = std::move(text.str);
    m_aLines = std::move(text.aLines);
    m_nSettled = 0;
    return End();
}

// The string itself grows to the exact need.
bool EditLines::Reserve(UINT nCharacters, UINT nLines)
{
    const UINT nNeed = TextLength() + nCharacters + 1;
    const bool fText = nNeed <= m_strText.GetBufferLength() || m_strText.GetBuffer(nNeed + nNeed / 4);
    return fText && m_aLines.AllocExtra(Count() + nLines);
}

// Where the text changes without being another one altogether.
void EditLines::ChangeText(UINT nOffset, UINT nRemoved, LPCWSTR psz, UINT nInserted)
{
    m_strText.Delete(nOffset, nRemoved);
    m_strText.Insert(std::min(nOffset, TextLength()), psz, nInserted);
}

Place EditLines::Insert(const Place& place, LineText&& text)
{
    InsertText(OffsetOf(place), text.str, text.str.GetLength());
    const UINT nLast = text.aLines.GetLength() - 1;
    const UINT nBehind = m_aLines[place.nLine] - place.nChar;
    text.aLines[0] += place.nChar;
    const Place caret{place.nLine + nLast, text.aLines[nLast]};
    text.aLines[nLast] += nBehind;
    m_aLines[place.nLine] = text.aLines[0];
    m_aLines.InsertAt(place.nLine + 1, text.aLines.GetData() + 1, nLast);
    Touch(place.nLine + nLast);
    return caret;
}

Place EditLines::InsertChar(const Place& place, wchar_t ch)
{
    InsertText(OffsetOf(place), &ch, 1);
    SetLength(place.nLine, m_aLines[place.nLine] + 1);
    Touch(place.nLine);
    return {place.nLine, place.nChar + 1};
}

Place EditLines::InsertBreak(const Place& place, UINT nOffset)
{
    InsertText(nOffset + place.nChar, L"\r\n", BREAK_LENGTH);
    InsertLine(place.nLine + 1, m_aLines[place.nLine] - place.nChar);
    SetLength(place.nLine, place.nChar);
    Touch(place.nLine + 1);
    return {place.nLine + 1, 0};
}

Place EditLines::Remove(const Place& first, const Place& last)
{
    const UINT nStart = OffsetOf(first);
    const UINT nEnd = OffsetOf(last);
    SetLength(first.nLine, m_aLines[last.nLine] - last.nChar + first.nChar);
    RemoveLines(first.nLine + 1, last.nLine - first.nLine);
    RemoveText(nStart, nEnd - nStart);
    Touch(first.nLine);
    Place caret = first;
    DropEmptied(first.nLine, nStart, &caret);
    return Limited(caret);
}

// The caret must stand where it is to be afterwards.
void EditLines::RemoveChar(UINT nLine, UINT nOffset, Place* pCaret)
{
    RemoveText(nOffset, 1);
    SetLength(nLine, m_aLines[nLine] - std::min(m_aLines[nLine], 1u));
    Touch(nLine);
    DropEmptied(nLine, nOffset, pCaret);
}

// A line that begins at nOffset and has lost all its characters is none any more if the line before was
// wrapped into it and nothing of the paragraph follows.
void EditLines::DropEmptied(UINT nLine, UINT nOffset, Place* pCaret)
{
    if (m_aLines[nLine] > 0 || nLine == 0 || !IsLineEnd(nOffset) ||
        OffsetOfLine(nLine - 1) + m_aLines[nLine - 1] != nOffset)
    {
        return;
    }
    RemoveLines(nLine, 1);
    Touch(nLine - 1);
    if (pCaret->nLine == nLine) {
        *pCaret = {nLine - 1, m_aLines[nLine - 1]};
    }
}

Place EditLines::RemoveBefore(const Place& place)
{
    if (place.nChar == 0) {
        return place.nLine > 0 ? JoinWithLineBefore(place.nLine) : place;
    }
    Place caret{place.nLine, place.nChar - 1};
    RemoveChar(caret.nLine, OffsetOf(caret), &caret);
    return caret;
}

bool EditLines::RemoveBehind(Place* pPlace)
{
    const UINT nLine = pPlace->nLine;
    const UINT nOffset = OffsetOfLine(nLine);
    const UINT nEnd = nOffset + m_aLines[nLine];
    const UINT nNext = nLine + 1;
    if (pPlace->nChar < m_aLines[nLine]) {
        RemoveChar(nLine, nOffset + pPlace->nChar, pPlace);
    } else if (nNext == Count()) {
        return false;
    } else if (IsLineEnd(nEnd)) {
        // Fixed behaviour: this is the next line's offset only where both lines are equally long; elsewhere
        // other characters than the line end go, and the text after the key would be another one.
        *pPlace = DeleteBreak(nNext, nOffset + LengthWithBreak(nNext, nOffset));
    } else {
        UINT nHolder = nLine;
        while (m_aLines[nHolder] == 0 && nHolder + 1 < Count()) {
            ++nHolder;
        }
        RemoveChar(nHolder, nEnd, pPlace);
        *pPlace = PlaceAt(nEnd);
    }
    return true;
}

Place EditLines::DeleteBreak(UINT nLine, UINT nOffset)
{
    const bool fOwnBreak = nOffset == OffsetOfLine(nLine);
    const UINT nBefore = m_aLines[nLine - 1];
    SetLength(nLine - 1, nBefore + m_aLines[nLine]);
    RemoveLines(nLine, 1);
    if (nOffset >= BREAK_LENGTH) {
        RemoveText(nOffset - BREAK_LENGTH, BREAK_LENGTH);
    }
    Touch(nLine - 1);
    if (!fOwnBreak) {
        m_nSettled = 0;
    }
    return {nLine - 1, nBefore};
}

// Takes away what stands between a line and the one before: the line end, or, where the upper line is
// wrapped, its last character.
Place EditLines::JoinWithLineBefore(UINT nLine)
{
    const UINT nOffset = OffsetOfLine(nLine);
    UINT nHolder = nLine - 1;
    const bool fWrapped = m_aLines[nHolder] > 0 && OffsetOfLine(nHolder) + m_aLines[nHolder] == nOffset;
    if (!fWrapped && nOffset >= BREAK_LENGTH && CharAt(nOffset - BREAK_LENGTH) == CR) {
        return DeleteBreak(nLine, nOffset);
    }
    while (nHolder > 0 && m_aLines[nHolder] == 0) {
        --nHolder;
    }
    Place caret{nHolder, m_aLines[nHolder] - std::min(m_aLines[nHolder], 1u)};
    if (nOffset > 0) {
        RemoveChar(nHolder, nOffset - 1, &caret);
    }
    return caret;
}

// --- A character that may be taken back

TypedChar::TypedChar(EditLines& lines, const Place& place, wchar_t ch)
    : m_lines(lines), m_place(place), m_nOffset(std::min(lines.OffsetOf(place), lines.TextLength()))
{
    lines.m_pJournal = &m_aChanges;
    m_behind = lines.InsertChar(place, ch);
}

Place TypedChar::TakeBack(wchar_t* pchRefused)
{
    m_lines.TakeBack(m_aChanges);
    const wchar_t ch = m_lines.CharAt(m_nOffset);
    *pchRefused = IS_HIGH_SURROGATE(ch) ? ch : L'\0';
    m_lines.RemoveText(m_nOffset, 1);
    if (!IS_LOW_SURROGATE(ch) || m_nOffset == 0 || !IS_HIGH_SURROGATE(m_lines.CharAt(m_nOffset - 1))) {
        return m_place;
    }
    m_lines.RemoveChar(m_lines.LineHolding(m_nOffset - 1), m_nOffset - 1, &m_place);
    return m_lines.PlaceAt(m_nOffset - 1);
}

} // namespace gesso
