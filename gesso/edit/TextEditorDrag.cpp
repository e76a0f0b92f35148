// Selected text that is dragged: within a field, and to another one of the program.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/Frame.h>

#include <utility>

namespace gesso {

// The fields of a thread, so that one finds the other under the pointer.
constinit thread_local TextEditor* TextEditor::s_pFirst = nullptr;

TextEditor::TextEditor(EditorSite& site)
    : m_inside(new Inside(*this, site)), m_pNext(std::exchange(s_pFirst, this))
{}

TextEditor::~TextEditor()
{
    TextEditor** pp = &s_pFirst;
    while (*pp != this) {
        pp = &(*pp)->m_pNext;
    }
    *pp = m_pNext;
    delete m_inside;
}

namespace {

POINT ToField(HWND hwnd, POINT ptScreen)
{
    ScreenToClient(hwnd, &ptScreen);
    return ptScreen;
}

} // namespace

TextEditor* TextEditor::At(POINT ptScreen)
{
    const HWND hwnd = WindowFromPoint(ptScreen);
    TextEditor* pEditor = s_pFirst;
    while (pEditor && (!hwnd || pEditor->m_inside->Window() != hwnd)) {
        pEditor = pEditor->m_pNext;
    }
    const bool fTakes = pEditor && pEditor->m_inside->site.TakesDropAt(ToField(hwnd, ptScreen));
    return fTakes ? pEditor : nullptr;
}

void TextEditor::Inside::StartDrag()
{
    press = Press::Dragging;
}

// The field that would take what is dragged; null for none, also over one of another thread, whose text is
// that thread's own.
TextEditor::Inside* TextEditor::Inside::DropTarget(POINT ptScreen)
{
    TextEditor* const pTarget = TextEditor::At(ptScreen);
    return pTarget && pTarget->m_inside->MayChange() ? pTarget->m_inside : nullptr;
}

// The field under the pointer shows where the text would go.
void TextEditor::Inside::MoveDrag(POINT pt)
{
    if (press != Press::Dragging) {
        return;
    }
    POINT ptScreen = pt;
    ClientToScreen(Window(), &ptScreen);
    Inside* const pTarget = DropTarget(ptScreen);
    for (TextEditor* pEditor = TextEditor::s_pFirst; pEditor; pEditor = pEditor->m_pNext) {
        Inside& field = *pEditor->m_inside;
        bool fBehind = false;
        field.fDragInside = field.fDragInside && &field == pTarget;
        field.ShowDropAt(&field == pTarget
                             ? std::optional(field.OffsetAt(ToField(field.Window(), ptScreen), &fBehind))
                             : std::nullopt);
    }
    KeepScrolling(pTarget && pTarget->IsDragAtEdge(ToField(pTarget->Window(), ptScreen)));
    constexpr WORD ARROW_CURSOR = 32512;
    constexpr WORD NO_CURSOR = 32648;
    SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(pTarget ? ARROW_CURSOR : NO_CURSOR)));
}

// Whether what is dragged over this field is near its edge, after it was not.
bool TextEditor::Inside::IsDragAtEdge(POINT pt)
{
    const RECT rcInner = ScrollingEdge(true);
    const bool fInner = PtInRect(&rcInner, pt);
    fDragInside = fDragInside || fInner;
    return fDragInside && !fInner;
}

void TextEditor::Inside::ShowDropAt(std::optional<UINT> at)
{
    if (dropAt != at) {
        dropAt = at;
        Repaint();
    }
}

void TextEditor::Inside::EndDrag()
{
    for (TextEditor* pEditor = TextEditor::s_pFirst; pEditor; pEditor = pEditor->m_pNext) {
        pEditor->m_inside->ShowDropAt(std::nullopt);
        pEditor->m_inside->fDragInside = false;
    }
}

// With Ctrl the text stays where it was as well. Dropped on itself it stays as it is.
void TextEditor::Inside::Drop(POINT pt)
{
    POINT ptScreen = pt;
    ClientToScreen(Window(), &ptScreen);
    const Watch watch(site.Window());
    const bool fCopies = IsKeyDown(VK_CONTROL) || !MayChange();
    const TextRange range = model.Selection();
    std::vector<wchar_t> text(range.Length());
    model.Text().Copy(range, text.data());
    ReleaseCapture();
    TextEditor* const pTarget = watch ? TextEditor::At(ptScreen) : nullptr;
    if (!pTarget || !pTarget->m_inside->MayChange() || range != model.Selection() || range.Length() == 0) {
        return;
    }
    Inside& field = *pTarget->m_inside;
    bool fBehind = false;
    const UINT at = field.OffsetAt(ToField(field.Window(), ptScreen), &fBehind);
    if (&field == this) {
        DropWithin(range, at, text, fCopies);
        return;
    }
    const HWND hwndTarget = field.Window();
    const Watch watchTarget(field.site.Window());
    const bool fTaken = field.TakeDrop(at, text);
    if (watch && fTaken && !fCopies && MayChange() && IsSelected(range, text)) {
        Replace(range, L"", 0, EditKind::Step, Origin::User);
    }
    if (!watchTarget) {
        return;
    }
    const UINT nAnchor = field.model.Anchor();
    const UINT nCaret = field.model.Caret();
    SetFocus(hwndTarget); // by which a combo box selects all
    if (watchTarget) {
        field.Select(nAnchor, nCaret);
        field.ShowChange();
    }
}

// Whether a text is what is selected, still.
bool TextEditor::Inside::IsSelected(const TextRange& range, const std::vector<wchar_t>& text) const
{
    if (range != model.Selection()) {
        return false;
    }
    std::vector<wchar_t> now(range.Length());
    model.Text().Copy(range, now.data());
    return now == text;
}

// One step: what is taken out and put in, for which the first makes room.
void TextEditor::Inside::DropWithin(const TextRange& range, UINT at, const std::vector<wchar_t>& text,
                                    bool fCopies)
{
    if (at >= range.nFrom && at <= range.nTo) {
        if (!fCopies || at == range.nFrom || at == range.nTo) {
            return;
        }
    }
    if (fCopies) {
        TakeDrop(at, text);
        return;
    }
    const UINT nLength = range.Length();
    const ViewPlace former = Place();
    model.BeginStep();
    const DWORD dwNow = GetTickCount();
    const bool fTakenOut = model.Replace(range, L"", 0, EditKind::Step, dwNow);
    const UINT nStart = at > range.nTo ? at - nLength : at;
    const bool fDone =
        fTakenOut && model.Replace({nStart, nStart}, text.data(), nLength, EditKind::Step, dwNow);
    if (fDone) {
        model.Select(nStart, nStart + nLength);
    }
    model.EndStep();
    if (!fDone) {
        if (fTakenOut) {
            model.Revert();
        }
        Repaint();
        return;
    }
    fTrailing = false;
    model.SetModified(true);
    Changed(Origin::User, former);
}

// False unless all of it has come in.
bool TextEditor::Inside::TakeDrop(UINT at, const std::vector<wchar_t>& text)
{
    fRowsChanged = fRowsChanged || model.HasSelection();
    return InsertAt({at, at}, text.data(), static_cast<UINT>(text.size()), EditKind::Dropping, Origin::User);
}

} // namespace gesso
