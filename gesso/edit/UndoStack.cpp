#include <gesso/edit/UndoStack.h>

#include <cwctype>
#include <new>

namespace gesso {
namespace {

size_t Bytes(const UndoEdit& edit)
{
    return (size_t{edit.nRemoved} + edit.nInserted) * sizeof(wchar_t);
}

size_t Bytes(const UndoStep& step)
{
    size_t cb = 0;
    for (const UndoEdit& edit : step.aEdits) {
        cb += Bytes(edit);
    }
    return cb;
}

UndoStep* NewStep()
{
    void* p = TryAllocate(sizeof(UndoStep));
    return p ? new (p) UndoStep() : nullptr;
}

void Delete(UndoStep* pStep)
{
    pStep->~UndoStep();
    Free(pStep);
}

bool IsSpace(wchar_t ch)
{
    return iswspace(static_cast<wint_t>(ch)) != 0;
}

// Whether an edit begins where the last one left off.
bool Adjoins(const UndoEdit& last, const UndoEdit& edit, EditKind kind)
{
    if (kind == EditKind::Typing) {
        return edit.nRemoved == 0 && edit.nFrom == last.nFrom + last.nInserted;
    }
    return edit.nInserted == 0 && (edit.nFrom == last.nFrom || edit.nFrom + edit.nRemoved == last.nFrom);
}

// Makes two edits one where the second only adds to what the first has at its end.
bool Merge(UndoEdit& last, const UndoEdit& edit)
{
    const bool fBehind = edit.nFrom == last.nFrom + last.nInserted;
    if (!fBehind || (edit.nRemoved > 0 && last.nInserted > 0)) {
        return false;
    }
    last.nRemoved += edit.nRemoved;
    last.nInserted += edit.nInserted;
    return true;
}

} // namespace

UndoStep::Need UndoStep::NeedOf(bool fBack) const
{
    const UINT nEdits = aEdits.GetLength();
    Need need{0, 0};
    LONGLONG nMore = 0;
    for (UINT i = 0; i < nEdits; ++i) {
        const UndoEdit& edit = aEdits[fBack ? nEdits - 1 - i : i];
        const UINT nGoing = fBack ? edit.nInserted : edit.nRemoved;
        const UINT nComing = fBack ? edit.nRemoved : edit.nInserted;
        need.nGoing += nGoing;
        nMore += LONGLONG{nComing} - nGoing;
        need.nMoreMost = static_cast<UINT>(std::max<LONGLONG>(need.nMoreMost, nMore));
    }
    return need;
}

bool UndoStack::Joins(const UndoEdit& edit, EditKind kind, DWORD dwNow, bool fSpace) const
{
    if (!m_fOpen || m_fHeld) {
        return m_fOpen;
    }
    if (kind == EditKind::Completing) {
        return Adjoins(LastEdit(), edit, EditKind::Typing);
    }
    const bool fSameWord = fSpace || !m_fBehindSpace;
    const bool fGoesOn = Adjoins(LastEdit(), edit, kind) || TakesPlaceOfCompletion(edit);
    const bool fSameKind = (kind == EditKind::Typing || kind == EditKind::Erasing) && kind == m_kind;
    return fSameKind && fSameWord && dwNow - m_dwLast < PAUSE && fGoesOn;
}

// Of the newest step.
const UndoEdit& UndoStack::LastEdit() const
{
    const UndoStep::Edits& edits = m_aSteps[m_nDone - 1]->aEdits;
    return edits[edits.GetLength() - 1];
}

bool UndoStack::TakesPlaceOfCompletion(const UndoEdit& edit) const
{
    const UndoEdit& last = LastEdit();
    return m_nCompleted > 0 && edit.nRemoved == m_nCompleted &&
           edit.nFrom + edit.nRemoved == last.nFrom + last.nInserted;
}

// A step with memory for one more edit: the newest, or one that is not in the stack yet. Null without.
UndoStep* UndoStack::Prepared(bool fJoins, UINT nRemoved)
{
    if (!fJoins && !m_aSteps.AllocExtra(m_nDone + 1)) {
        return nullptr;
    }
    UndoStep* pStep = fJoins ? ToUndo() : NewStep();
    if (!pStep) {
        return nullptr;
    }
    if (pStep->aEdits.AllocExtra(pStep->aEdits.GetLength() + 1) &&
        (nRemoved == 0 || pStep->text.AllocExtra(pStep->text.GetLength() + nRemoved)))
    {
        return pStep;
    }
    if (!fJoins) {
        Delete(pStep);
    }
    return nullptr;
}

bool UndoStack::Note(const UndoEdit& edit, const SplitText& before, LPCWSTR pszInserted, EditKind kind,
                     DWORD dwNow, const Marks& marks)
{
    const wchar_t chFirst = edit.nInserted > 0 ? pszInserted[0] : before.At(edit.nFrom);
    const wchar_t chLast =
        edit.nInserted > 0 ? pszInserted[edit.nInserted - 1] : before.At(edit.nFrom + edit.nRemoved - 1);
    const bool fJoins = Joins(edit, kind, dwNow, IsSpace(chFirst));
    UndoStep* pStep = Prepared(fJoins, edit.nRemoved);
    if (!pStep) {
        return false;
    }
    ForgetUndone();
    if (!fJoins) {
        pStep->before = marks;
        m_aSteps.Add(pStep);
        ++m_nDone;
    }
    const UINT nText = pStep->text.GetLength();
    pStep->text.SetLength(nText + edit.nRemoved, -1);
    before.Copy({edit.nFrom, edit.nFrom + edit.nRemoved}, pStep->text.GetData() + nText);
    const UINT nEdits = pStep->aEdits.GetLength();
    if (nEdits == 0 || !Merge(pStep->aEdits[nEdits - 1], edit)) {
        pStep->aEdits.Add(edit);
    }
    m_cb += Bytes(edit);
    m_nCompleted = kind == EditKind::Completing && fJoins ? edit.nInserted : 0;
    if (m_nCompleted == 0) {
        m_kind = kind;
        m_dwLast = dwNow;
        m_fBehindSpace = IsSpace(chLast);
    }
    m_fOpen = m_fHeld || chLast != L'\n';
    Trim();
    return true;
}

void UndoStack::SetAfter(const Marks& marks)
{
    if (UndoStep* pStep = ToUndo()) {
        pStep->after = marks;
    }
}

void UndoStack::Close()
{
    m_fOpen = m_fOpen && m_fHeld;
}

void UndoStack::Begin()
{
    Close();
    m_fHeld = true;
}

void UndoStack::End(const Marks& marks)
{
    if (m_fHeld && m_fOpen) {
        SetAfter(marks);
    }
    m_fHeld = m_fOpen = false;
}

void UndoStack::Empty()
{
    Drop(0, m_aSteps.GetLength());
    m_nDone = 0;
    m_fOpen = false;
}

void UndoStack::Drop(UINT nFrom, UINT n)
{
    for (UINT i = nFrom; i < nFrom + n; ++i) {
        m_cb -= Bytes(*m_aSteps[i]);
        Delete(m_aSteps[i]);
    }
    m_aSteps.RemoveAt(nFrom, n);
}

// The newest stays, whatever its size.
void UndoStack::Trim()
{
    while (m_nDone > MOST_STEPS || (m_nDone > 1 && m_cb > MOST_BYTES)) {
        Drop(0, 1);
        --m_nDone;
    }
}

} // namespace gesso
