#include <gesso/edit/EditModel.h>

namespace gesso {
namespace {

UINT CountLineEnds(LPCWSTR psz, UINT n)
{
    return static_cast<UINT>(std::count(psz, psz + n, L'\n'));
}

// Puts down where rows begin behind the line ends of a text that stands at nOffset.
void NoteStarts(LPCWSTR psz, UINT n, UINT nOffset, UINT* pTo)
{
    for (UINT i = 0; i < n; ++i) {
        if (psz[i] == L'\n') {
            *pTo++ = nOffset + i + 1;
        }
    }
}

} // namespace

TextRange EditModel::Selection() const
{
    return {std::min(m_nAnchor, m_nCaret), std::max(m_nAnchor, m_nCaret)};
}

UINT EditModel::Snapped(UINT n) const
{
    const UINT nLength = Length();
    if (n == 0 || n >= nLength) {
        return std::min(n, nLength);
    }
    const wchar_t chBefore = m_text.At(n - 1);
    const wchar_t ch = m_text.At(n);
    const bool fWithin =
        (chBefore == L'\r' && ch == L'\n') || (IS_HIGH_SURROGATE(chBefore) && IS_LOW_SURROGATE(ch));
    return fWithin ? n - 1 : n;
}

void EditModel::SetMarks(const UndoStack::Marks& marks)
{
    m_nAnchor = Snapped(marks.nAnchor);
    m_nCaret = Snapped(marks.nCaret);
}

void EditModel::Select(UINT nAnchor, UINT nCaret)
{
    const UndoStack::Marks former = Marks();
    SetMarks({nAnchor, nCaret});
    if (m_nAnchor != former.nAnchor || m_nCaret != former.nCaret) {
        m_undo.Close();
    }
}

// --- Changes

bool EditModel::SetText(LPCWSTR psz, UINT n)
{
    const UINT nLineEnds = CountLineEnds(psz, n);
    RowTable rows;
    rows.Clear(n);
    if (!rows.Reserve(nLineEnds) || !m_text.SetAll(psz, n)) {
        return false;
    }
    NoteStarts(psz, n, 0, rows.Open(0, 1, nLineEnds + 1));
    const TextChange change{0, m_rows.Start(m_rows.Count()), n, 0, m_rows.Count(), nLineEnds + 1};
    m_rows.Swap(rows);
    m_undo.Empty();
    m_fModified = false;
    m_nAnchor = m_nCaret = 0;
    m_listener.OnTextChange(change);
    return true;
}

// For a text that becomes nCharacters longer in all, with the line ends of another one.
bool EditModel::MakeRoom(UINT nCharacters, LPCWSTR psz, UINT n)
{
    return m_text.Reserve(nCharacters) && m_rows.Reserve(CountLineEnds(psz, n));
}

bool EditModel::Replace(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, DWORD dwNow,
                        bool fCanUndo)
{
    const UINT nFrom = Snapped(range.nFrom);
    const TextRange taken{nFrom, std::max(nFrom, Snapped(range.nTo))};
    const UINT nRemoved = taken.Length();
    const bool fChanges = nRemoved > 0 || n > 0;
    if (fChanges && (!MakeRoom(n - std::min(n, nRemoved), psz, n) ||
                     (fCanUndo && !m_undo.Note({nFrom, nRemoved, n}, Text(), psz, kind, dwNow, Marks()))))
    {
        m_fRefused = true;
        return false;
    }
    if (!fCanUndo) {
        EmptyUndo();
    }
    if (!fChanges) {
        Select(nFrom, nFrom);
        return true;
    }
    m_fModified = true;
    Change(taken, psz, n);
    if (kind == EditKind::Completing || kind == EditKind::Dropping) {
        SetMarks({nFrom, nFrom + n});
    }
    m_undo.SetAfter(Marks());
    return true;
}

// Room for it was made.
void EditModel::Change(const TextRange& range, LPCWSTR psz, UINT n)
{
    const UINT nRow = m_rows.RowOf(range.nFrom);
    const UINT nRows = m_rows.RowOf(range.nTo) + 1 - nRow;
    const UINT nNew = CountLineEnds(psz, n) + 1;
    static_cast<void>(m_text.Replace(range, psz, n));
    m_rows.Move(nRow + nRows - 1, static_cast<int>(n) - static_cast<int>(range.Length()));
    NoteStarts(psz, n, range.nFrom, m_rows.Open(nRow, nRows, nNew));
    SetMarks({range.nFrom + n, range.nFrom + n});
    m_listener.OnTextChange({range.nFrom, range.Length(), n, nRow, nRows, nNew});
}

void EditModel::BeginStep()
{
    m_undo.Begin();
}

void EditModel::EndStep()
{
    m_undo.End(Marks());
}

// --- Undo

// Each text that leaves the buffer takes the place of one that comes back into it.
bool EditModel::Play(UndoStep& step, bool fBack)
{
    const UndoStep::Need need = step.NeedOf(fBack);
    const UINT nEdits = step.aEdits.GetLength();
    const UINT nComing = step.text.GetLength();
    UndoStep::Characters gone;
    if (!gone.SetLength(need.nGoing, -1) || !MakeRoom(need.nMoreMost, step.text.GetData(), nComing)) {
        return false;
    }
    UINT nIn = fBack ? nComing : 0;
    UINT nOut = fBack ? need.nGoing : 0;
    for (UINT i = 0; i < nEdits; ++i) {
        const UndoEdit edit = step.aEdits[fBack ? nEdits - 1 - i : i];
        const UINT nLeaves = fBack ? edit.nInserted : edit.nRemoved;
        const UINT nEnters = fBack ? edit.nRemoved : edit.nInserted;
        nIn -= fBack ? nEnters : 0;
        nOut -= fBack ? nLeaves : 0;
        const TextRange leaves{edit.nFrom, edit.nFrom + nLeaves};
        Text().Copy(leaves, gone.GetData() + nOut);
        Change(leaves, step.text.GetData() + nIn, nEnters);
        nIn += fBack ? 0 : nEnters;
        nOut += fBack ? 0 : nLeaves;
    }
    step.text = std::move(gone);
    return true;
}

bool EditModel::GoTo(UndoStep* pStep, bool fBack)
{
    if (!pStep || !Play(*pStep, fBack)) {
        return false;
    }
    m_fModified = true;
    SetMarks(fBack ? pStep->before : pStep->after);
    return true;
}

bool EditModel::Undo()
{
    EndStep();
    const bool fDone = GoTo(m_undo.ToUndo(), true);
    if (fDone) {
        m_undo.Undone();
    }
    return fDone;
}

void EditModel::Revert()
{
    if (Undo()) {
        m_undo.ForgetUndone();
    }
}

bool EditModel::Redo()
{
    EndStep();
    const bool fDone = GoTo(m_undo.ToRedo(), false);
    if (fDone) {
        m_undo.Redone();
    }
    return fDone;
}

// --- Rows

bool EditModel::EndsParagraph(UINT nRow) const
{
    const UINT nEnd = m_rows.Start(nRow + 1);
    return nRow + 1 >= m_rows.Count() || (nEnd > 0 && m_text.At(nEnd - 1) == L'\n');
}

TextRange EditModel::RowText(UINT nRow) const
{
    const UINT nFrom = m_rows.Start(nRow);
    UINT nTo = m_rows.Start(nRow + 1);
    nTo -= nTo > nFrom && m_text.At(nTo - 1) == L'\n' ? 1 : 0;
    nTo -= nTo > nFrom && nTo < m_rows.Start(nRow + 1) && m_text.At(nTo - 1) == L'\r' ? 1 : 0;
    return {nFrom, nTo};
}

TextRange EditModel::ParagraphRows(UINT nRow) const
{
    UINT nFrom = nRow;
    while (nFrom > 0 && !EndsParagraph(nFrom - 1)) {
        --nFrom;
    }
    UINT nTo = nRow;
    while (!EndsParagraph(nTo)) {
        ++nTo;
    }
    return {nFrom, nTo + 1};
}

bool EditModel::Wrap(UINT nRow, UINT nRows, const UINT* pStarts, UINT nNew)
{
    return m_rows.Replace(nRow, nRows, pStarts, nNew);
}

bool EditModel::Unwrap()
{
    m_rows.Keep([this](UINT nStart) { return m_text.At(nStart - 1) == L'\n'; });
    return true;
}

} // namespace gesso
