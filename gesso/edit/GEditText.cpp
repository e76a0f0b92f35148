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
void GEdit::ChangeSelection(const TextField& field)
{
    m_nCaretLine = field.GivenCaret().nLine;
    m_nCaretChar = field.GivenCaret().nChar;
    m_nAnchorLine = field.GivenAnchor().nLine;
    m_nAnchorChar = field.GivenAnchor().nChar;
}

void GEdit::Show(const TextField& field)
{
    ChangeSelection(field);
    ShowChange();
}

void GEdit::ShowChange()
{
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

bool GEdit::StartText(LPCWSTR pszText)
{
    return ChangeText([&](TextField& field) {
        field.Select({}, {});
        return field.Lines().Start(pszText);
    });
}

// With the caret and the anchor. False, with nothing changed, without memory.
bool GEdit::CopyTextOf(const GEdit& other)
{
    OStringEx<wchar_t> strText(other.m_strText);
    gesso::LineTable aLines(other.m_aLines);
    if (strText.GetLength() < other.m_strText.GetLength() || aLines.GetLength() < other.m_aLines.GetLength())
    {
        return false;
    }
    m_strText = std::move(strText);
    m_aLines = std::move(aLines);
    ChangeSelection(other.Field());
    return true;
}

int GEdit::SetText(LPCWSTR pszText)
{
    const bool fSet = ChangeText([&](TextField& field) {
        const bool fReplaced = field.Replace(pszText ? pszText : L"");
        if (fReplaced) {
            WrapAll(field);
            field.Collapse();
        }
        return fReplaced;
    });
    if (fSet) {
        ShowChange();
    }
    return fSet;
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
    ChangeText([](TextField& field) {
        field.MoveTo(field.Lines().Remove(field.First(), field.Last()), false);
        return true;
    });
}

void GEdit::InsertBreak(UINT, UINT nOffset)
{
    ChangeText([&](TextField& field) {
        const bool fRoom = field.Lines().Reserve(EditLines::BREAK_LENGTH, 1);
        if (fRoom) {
            field.PutCaret(field.Lines().InsertBreak(field.Caret(), nOffset));
        }
        return fRoom;
    });
}

void GEdit::DeleteBreak(UINT, UINT nOffset)
{
    const UINT nLine = Field().Caret().nLine;
    if (nLine == 0) {
        Misuse("GEdit::DeleteBreak: the caret is in the first line");
        return;
    }
    ChangeText([&](TextField& field) {
        field.PutCaret(field.Lines().DeleteBreak(nLine, nOffset));
        return true;
    });
}
