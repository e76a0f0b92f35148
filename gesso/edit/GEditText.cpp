// The text, its lines and its selection, as hosts and derived classes know them.

#include <gesso/edit/GEditModern.h>
#include <gesso/edit/TextInput.h>

#include <new>
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
    const Inside::Telling telling(*this);
    if (Modern* modern = AsModern()) {
        const UINT nLength = modern->editor.Text().Length();
        const auto place = [&](int n) { return n < 0 ? nLength : static_cast<UINT>(n); };
        modern->editor.Select(place(nStart), place(nEnd));
        return;
    }
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
    if (const Modern* modern = other.AsModern()) {
        const gesso::SplitText text = modern->editor.Text();
        OStringEx<wchar_t> strText;
        if (!strText.GetBuffer(text.Length() + 1)) {
            return false;
        }
        text.Copy({0, text.Length()}, strText.GetBuffer(text.Length() + 1));
        strText.ReleaseBuffer(text.Length());
        return StartText(strText);
    }
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
    const Inside::Telling telling(*this);
    const bool fSame = Inside::Shows(*this, pszText);
    const UINT nChanges = Own().nTextChanges;
    if (Modern* modern = AsModern()) {
        const gesso::Lifeline life(*this);
        const bool fTaken = modern->editor.SetText(pszText);
        if (life && fTaken && !fSame) {
            ++Own().nTextChanges;
        }
        return fTaken;
    }
    const bool fSet = ChangeText([&](TextField& field) {
        const bool fReplaced = field.Replace(pszText ? pszText : L"");
        if (fReplaced) {
            WrapAll(field);
            field.Collapse();
        }
        return fReplaced;
    });
    if (fSame) {
        Own().nTextChanges = nChanges;
    }
    if (fSet) {
        Own().fModified = false;
        ShowChange();
    }
    return fSet;
}

// --- What both behaviours have for the platform's messages

void GEdit::GetSel(int* pnStart, int* pnEnd) const
{
    gesso::TextRange range{};
    if (const Modern* modern = AsModern()) {
        range = modern->editor.Selection();
    } else {
        const TextField field = Field();
        range = {field.Lines().OffsetOf(field.First()), field.Lines().OffsetOf(field.Last())};
    }
    if (pnStart) {
        *pnStart = static_cast<int>(range.nFrom);
    }
    if (pnEnd) {
        *pnEnd = static_cast<int>(range.nTo);
    }
}

void GEdit::ReplaceSel(LPCWSTR pszText, bool bCanUndo)
{
    const Inside::Telling telling(*this);
    if (Modern* modern = AsModern()) {
        modern->editor.ReplaceSelection(pszText, bCanUndo);
        return;
    }
    const bool fDone = ChangeText([&](TextField& field) {
        const bool fInserted = field.Insert(pszText ? pszText : L"");
        if (fInserted) {
            WrapAll(field);
            field.Collapse();
        }
        return fInserted;
    });
    if (fDone) {
        Own().fModified = true;
        ShowChange();
    }
}

bool GEdit::IsModified() const
{
    const Modern* modern = AsModern();
    return modern ? modern->editor.IsModified() : Own().fModified;
}

void GEdit::SetModified(bool bModified)
{
    Own().fModified = bModified;
    if (Modern* modern = AsModern()) {
        modern->editor.SetModified(bModified);
    }
}

bool GEdit::Redo()
{
    const Inside::Telling telling(*this);
    Modern* modern = AsModern();
    return modern && modern->editor.Redo();
}

bool GEdit::CanRedo() const
{
    const Modern* modern = AsModern();
    return modern && modern->editor.CanRedo();
}

int GEdit::Find(LPCWSTR pszText, int nFrom, UINT uFlags) const
try {
    const Modern* modern = AsModern();
    const gesso::SplitText text =
        modern ? modern->editor.Text() : gesso::SplitText(m_strText, m_strText.GetLength());
    return gesso::FindText(text, pszText, nFrom, uFlags);
} catch (const std::bad_alloc&) {
    return -1;
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
