// The text, its lines and its selection, as hosts and derived classes know them.

#include <gesso/edit/GEditInside.h>

#include <utility>

using gesso::EditLines;
using gesso::Misuse;
using gesso::Place;
using gesso::TextField;

// --- Caret and anchor

TextField GEdit::Field() const
{
    return {Own().lines, {m_nCaretLine, m_nCaretChar}, {m_nAnchorLine, m_nAnchorChar}};
}

// The one place that changes the selection, after every edit as well.
void GEdit::ChangeField(const TextField& field)
{
    m_nCaretLine = field.GivenCaret().nLine;
    m_nCaretChar = field.GivenCaret().nChar;
    m_nAnchorLine = field.GivenAnchor().nLine;
    m_nAnchorChar = field.GivenAnchor().nChar;
}

void GEdit::Show(const TextField& field)
{
    ChangeField(field);
    UpdateCursorPos();
    Invalidate(0);
}

void GEdit::SetSel(int nStart, int nEnd)
{
    TextField field = Field();
    field.Select(field.Lines().PlaceOfSel(nStart), field.Lines().PlaceOfSel(nEnd));
    Show(field);
}

void GEdit::CalcHighliteOfLine(int& nFrom, int& nTo, UINT nLine) const
{
    const TextField field = Field();
    const Place first = field.First();
    const Place last = field.Last();
    if (nLine < first.nLine || nLine > last.nLine) {
        nFrom = nTo = 0;
        return;
    }
    nFrom = static_cast<int>(nLine == first.nLine ? first.nChar : 0);
    nTo = static_cast<int>(nLine == last.nLine ? last.nChar : m_aLines[nLine]);
}

// --- The text as a whole

void GEdit::BeOneLine()
{
    Own().lines.BeOneLine();
    ChangeField({Own().lines, {}, {}});
}

void GEdit::StartText(LPCWSTR pszText)
{
    m_strText = pszText;
    BeOneLine();
}

int GEdit::SetText(LPCWSTR pszText)
{
    TextField field = Field();
    field.PutCaret(field.Lines().Replace(pszText ? pszText : L""));
    WrapAll(field);
    field.Collapse();
    Show(field);
    return 1;
}

// --- Lines

UINT GEdit::LengthOfLine(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::LengthOfLine: no such line");
        return 0;
    }
    return Own().lines.LengthWithBreak(nLine, nOffset);
}

UINT GEdit::OffsetOfLine(UINT nLine) const
{
    return Own().lines.OffsetOfLine(nLine);
}

// --- Edits

void GEdit::DeleteSelection()
{
    TextField field = Field();
    field.MoveTo(field.Lines().Remove(field.First(), field.Last()), false);
    ChangeField(field);
}

void GEdit::InsertBreak(UINT, UINT nOffset)
{
    TextField field = Field();
    field.PutCaret(field.Lines().InsertBreak(field.Caret(), nOffset));
    ChangeField(field);
}

void GEdit::DeleteBreak(UINT, UINT nOffset)
{
    TextField field = Field();
    const UINT nLine = field.Caret().nLine;
    if (nLine == 0) {
        Misuse("GEdit::DeleteBreak: the caret is in the first line");
        return;
    }
    field.PutCaret(field.Lines().DeleteBreak(nLine, nOffset));
    ChangeField(field);
}
