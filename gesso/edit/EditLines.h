// EditLines: the text of an edit field and the table of its lines: places in it, edits, and how the lines
// wrap. It knows no window and no device context; who wraps brings a LineMeasure.
//
// The text and the table are members of the control, where derived classes find them by name and place:
// EditLines refers to them and has no copy, so that whatever is written there counts at once. Its own is only
// what it remembers of the wrapping, and forgetting that changes no result.
//
// A line end in the text is CR LF and does not count in its line's length. A line that none follows is
// wrapped into the next one, or is the last. There is always a line. The end of a wrapped line and the start
// of the next are two places of one offset.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>

#include <algorithm>
#include <climits>
#include <compare>

namespace gesso {

// The length of each line, in characters.
using LineTable = OArray<UINT, UINT const&>;

// A line and a character in it.
struct Place
{
    UINT nLine = 0;
    UINT nChar = 0;
    auto operator<=>(const Place&) const = default;
};

// What wrapping has to know of the font and the field.
class LineMeasure
{
public:
    // The width that lines wrap at, in pixels.
    virtual int Width() const = 0;
    // Below, equal or above 0 for a piece of one line narrower than that, as wide, or wider.
    virtual int Compare(LPCWSTR psz, UINT nLength) const = 0;
    // How many characters of the piece fit into that width, near enough for a first guess.
    virtual UINT CountFitting(LPCWSTR psz, UINT nLength) const = 0;

protected:
    ~LineMeasure() = default;
};

// A text with its line ends made CR LF, and the length of each line. CR, LF and CR LF each are one line end.
struct LineText
{
    explicit LineText(LPCWSTR psz);

    // False where there was no memory for it: then there is not even a line.
    explicit operator bool() const { return aLines.GetLength() > 0; }

    OStringEx<wchar_t> str;
    LineTable aLines;
};

class EditLines
{
public:
    static constexpr UINT FIRST_CAPACITY = 32; // of the text, in characters
    static constexpr UINT BREAK_LENGTH = 2;    // CR LF

    EditLines(OStringEx<wchar_t>& strText, LineTable& aLines) : m_strText(strText), m_aLines(aLines) {}
    EditLines(const EditLines&) = delete;
    EditLines& operator=(const EditLines&) = delete;

    // --- The text and its lines. A line must be there; nOffset is where it begins in the text.

    UINT Count() const { return m_aLines.GetLength(); }
    UINT Length(UINT nLine) const { return m_aLines[nLine]; }
    // With its line end, if it has one.
    UINT LengthWithBreak(UINT nLine, UINT nOffset) const;
    // The line's characters that the text really has: a deleted line end may leave the table at odds with it.
    UINT LengthWithin(UINT nLine, UINT nOffset) const;
    // Of a line beyond the last: the text's end.
    UINT OffsetOfLine(UINT nLine) const;
    UINT TextLength() const { return m_strText.GetLength(); }
    // 0 at the text's end and beyond.
    wchar_t CharAt(UINT nOffset) const;
    LPCWSTR TextAt(UINT nOffset) const;
    // Of the text or of a paragraph.
    bool IsLineEnd(UINT nOffset) const;

    // --- Places

    bool Has(const Place& place) const { return Limited(place) == place; }
    // The nearest place that there is. A negative character, as SetSel may leave it, counts as 0.
    Place Limited(const Place& place) const;
    Place End() const;
    UINT OffsetOf(const Place& place) const;
    // Where a line is wrapped, the start of the lower one.
    Place PlaceAt(UINT nOffset) const;
    // The place that a number of GEdit::SetSel stands for; the character may be negative.
    Place PlaceOfSel(int n) const;
    // One step to the left and to the right; at the text's ends the place itself.
    Place Before(const Place& place) const;
    Place Behind(const Place& place) const;

    // --- Edits. Each takes a place that there is, and returns where the caret goes. Those that insert need
    // room, which is made before anything is changed.

    // Room for so many characters and lines more. False, with nothing changed, without memory.
    bool Reserve(UINT nCharacters, UINT nLines);
    // The whole text becomes one line, line ends and all.
    void BeOneLine();
    // Replaces the text, which psz may be, by one that is one line, line ends and all. False, with nothing
    // changed, without memory.
    bool Start(LPCWSTR psz);
    // Replaces the text, which `text` may have been made from.
    Place Replace(LineText&& text);
    Place Insert(const Place& place, LineText&& text);
    Place InsertChar(const Place& place, wchar_t ch);
    // nOffset is where the place's line begins.
    Place InsertBreak(const Place& place, UINT nOffset);
    Place Remove(const Place& first, const Place& last);
    // The character or line end in front of the place; nothing at the text's start.
    Place RemoveBefore(const Place& place);
    // The character behind the place. False, with nothing changed, at the text's end.
    bool RemoveBehind(Place* pPlace);
    // Joins a line with the one before, and takes the two characters in front of nOffset out of the text.
    Place DeleteBreak(UINT nLine, UINT nOffset);
    void RemoveChar(UINT nLine, UINT nOffset, Place* pCaret);
    UINT LineHolding(UINT nOffset) const;

    // --- Wrapping. Each returns where the place is afterwards. Lines that there is no memory for stay part
    // of those that they are in.

    // What an edit at the caret may have changed.
    Place Repair(const LineMeasure& measure, const Place& caret);
    Place WrapAll(const LineMeasure& measure, const Place& caret);
    // One line, at the cost or to the gain of the next. 0 if it was exactly as wide as the field,
    // otherwise 1.
    int Refit(const LineMeasure& measure, UINT nLine, Place* pCaret);
    // The length without the line's last word, and with the next one and its space.
    UINT ShorterByWord(UINT nOffset, UINT nLength) const;
    UINT LongerByWord(UINT nOffset, UINT nLength) const;
    // Font or width may be others now.
    void ForgetWrapping() { m_nSettled = 0; }

    // Whether the lines, with their line ends, are the whole text.
    bool Check() const { return m_nSettled <= Count() && Check(m_strText, m_aLines); }
    static bool Check(const OStringEx<wchar_t>& strText, const LineTable& aLines);

private:
    friend class TypedChar;

    // A change of the table, as it is taken back.
    struct TableChange
    {
        enum Kind
        {
            SET,
            INSERTED,
            REMOVED
        } kind;
        UINT nLine;
        UINT nFormer; // the line's length before
    };
    using Journal = OArray<TableChange, const TableChange&>;

    void SetLength(UINT nLine, UINT nLength);
    void InsertLine(UINT nLine, UINT nLength);
    void RemoveLines(UINT nLine, UINT nCount);
    void Note(TableChange::Kind kind, UINT nLine, UINT nFormer);
    void TakeBack(const Journal& aChanges);

    void ChangeText(UINT nOffset, UINT nRemoved, LPCWSTR psz, UINT nInserted);
    void InsertText(UINT nOffset, LPCWSTR psz, UINT nLength) { ChangeText(nOffset, 0, psz, nLength); }
    void RemoveText(UINT nOffset, UINT nLength) { ChangeText(nOffset, nLength, L"", 0); }
    bool ReserveNotes(UINT nMore);
    void Touch(UINT nLine);
    void DropEmptied(UINT nLine, UINT nOffset, Place* pCaret);
    Place JoinWithLineBefore(UINT nLine);

    bool HasRoomToFit();
    bool IsBehindEmpty(UINT nLine) const;
    bool IsStuck(const LineMeasure& measure, UINT nLine, UINT nOffset, bool fBehindEmpty) const;
    void FitFrom(const LineMeasure& measure, UINT nFirst, bool fAll);
    int FitLine(const LineMeasure& measure, UINT nLine, UINT nOffset);
    UINT Shortened(const LineMeasure& measure, UINT nOffset, UINT nLength) const;
    UINT Lengthened(const LineMeasure& measure, UINT nOffset, UINT nLength) const;
    void PushToNextLine(UINT nLine, UINT nOldEnd, UINT nNewEnd);
    bool PullFromNextLine(UINT nLine, UINT nOldEnd, UINT nNewEnd);

    OStringEx<wchar_t>& m_strText;
    LineTable& m_aLines;
    // So many lines, counted from the end, are known to be as long as fits into this width.
    UINT m_nSettled = 0;
    int m_cxSettled = 0;
    Journal* m_pJournal = nullptr; // of the character that is being typed
};

// A character that is put into the text, which has memory for it, and may be taken back, for want of room.
// The lines are what they were then, and only what has changed of them is remembered.
class TypedChar
{
public:
    TypedChar(EditLines& lines, const Place& place, wchar_t ch);
    ~TypedChar() { m_lines.m_pJournal = nullptr; }
    TypedChar(const TypedChar&) = delete;
    TypedChar& operator=(const TypedChar&) = delete;

    // The place behind it, before anything is wrapped.
    Place Behind() const { return m_behind; }
    // Returns the place that it was put at. A character of two halves goes as a whole, whichever of them had
    // no room; *pchRefused is the first half if the second is still to come, and otherwise 0.
    Place TakeBack(wchar_t* pchRefused);

private:
    EditLines& m_lines;
    EditLines::Journal m_aChanges;
    Place m_place;
    UINT m_nOffset;
    Place m_behind;
};

inline Place EditLines::Limited(const Place& place) const
{
    const UINT nLine = std::min(place.nLine, Count() - 1);
    return {nLine, place.nChar > INT_MAX ? 0 : std::min(place.nChar, m_aLines[nLine])};
}

inline bool EditLines::Check(const OStringEx<wchar_t>& strText, const LineTable& aLines)
{
    const LPCWSTR psz = strText;
    const UINT nLength = strText.GetLength();
    UINT nOffset = 0;
    for (const UINT nLine : aLines) {
        if (nLine > nLength - nOffset) {
            return false;
        }
        nOffset += nLine;
        nOffset += nOffset < nLength && psz[nOffset] == L'\r' ? BREAK_LENGTH : 0;
    }
    return aLines.GetLength() > 0 && nOffset == nLength && wcslen(psz) == nLength &&
           strText.GetBufferLength() > nLength;
}

} // namespace gesso
