// What keys and characters do in a text field.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/TextEditorInside.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <climits>

namespace gesso {

// --- Selection

void TextEditor::Inside::Select(UINT nAnchor, UINT nCaret)
{
    model.Select(nAnchor, nCaret);
    fTrailing = false;
    nColumn = -1;
}

void TextEditor::Inside::MoveTo(UINT n, bool fBehind, bool fExtend)
{
    model.Select(fExtend ? model.Anchor() : n, n);
    fTrailing = fBehind;
}

void TextEditor::Inside::SelectAll()
{
    Select(0, model.Length());
    UpdateCaret();
    Repaint();
}

// --- Moving

// A program may have put the caret where nothing is wrapped yet.
void TextEditor::Inside::NeedCaretRow()
{
    if (nWrapWidth > 0) {
        const EditContext hdc(Window(), site.Font());
        WrapAt(hdc, model.Caret());
    }
}

// Ctrl+Home and Ctrl+End lead to the ends of the text. False for a key that moves nothing.
bool TextEditor::Inside::MoveByKey(UINT uKey, bool fControl, bool fExtend)
{
    if (!IsMultiLine() && (uKey == VK_UP || uKey == VK_DOWN)) {
        uKey = uKey == VK_UP ? VK_LEFT : VK_RIGHT; // as the platform's field of one line
    }
    NeedCaretRow();
    const UINT nRow = CaretRow();
    switch (uKey) {
    case VK_LEFT: MoveAcross(false, fControl, fExtend); break;
    case VK_RIGHT: MoveAcross(true, fControl, fExtend); break;
    case VK_HOME: MoveTo(fControl ? 0 : model.Rows().Start(nRow), false, fExtend); break;
    case VK_END: MoveTo(fControl ? model.Length() : model.RowText(nRow).nTo, true, fExtend); break;
    case VK_UP: MoveByRows(-1, fExtend); return true;
    case VK_DOWN: MoveByRows(1, fExtend); return true;
    case VK_PRIOR: MovePage(false, fExtend); return true;
    case VK_NEXT: MovePage(true, fExtend); return true;
    default: return false;
    }
    nColumn = -1;
    return true;
}

// Masked text does not show where its words are.
UINT TextEditor::Inside::WordEnd(UINT n) const
{
    return Mask() ? model.Length() : NextWordStart(model.Text(), n);
}

UINT TextEditor::Inside::WordStart(UINT n) const
{
    return Mask() ? 0 : PreviousWordStart(model.Text(), n);
}

// To the end of the selection that is shown at that side, if both are in one row.
void TextEditor::Inside::MoveToEnd(bool fRight)
{
    const TextRange range = model.Selection();
    const UINT nRow = model.Rows().RowOf(range.nFrom);
    bool fLast = fRight;
    if (nRow == model.Rows().RowOf(range.nTo)) {
        const EditContext hdc(Window(), site.Font());
        const UINT nStart = model.Rows().Start(nRow);
        PreparedLine& line = Line(hdc, nRow);
        const LineSource source = Source(hdc, nRow);
        const int xFrom = line.XOf(source, {range.nFrom - nStart, false});
        const int xTo = line.XOf(source, {range.nTo - nStart, true});
        const bool fTurned = style.fMirrored ? xFrom < xTo : xFrom > xTo;
        fLast = fRight != fTurned;
    }
    MoveTo(fLast ? range.nTo : range.nFrom, fLast, false);
}

// By words in the order of the text, by characters as they are shown. From a row's end on it goes to the next
// row, and from a selection to its end on that side.
void TextEditor::Inside::MoveAcross(bool fRight, bool fWord, bool fExtend)
{
    const SplitText text = model.Text();
    if (fWord) {
        const UINT n = model.Caret();
        MoveTo(fRight ? WordEnd(n) : WordStart(n), false, fExtend);
        return;
    }
    if (model.HasSelection() && !fExtend) {
        MoveToEnd(fRight);
        return;
    }
    const UINT nRow = CaretRow();
    const EditContext hdc(Window(), site.Font());
    PreparedLine& line = Line(hdc, nRow);
    CaretPlace place = CaretInRow(nRow);
    if (line.Step(Source(hdc, nRow), fRight, &place)) {
        MoveTo(model.Rows().Start(nRow) + place.n, place.fTrailing, fExtend);
    } else if (fRight && nRow + 1 < model.Rows().Count()) {
        const UINT nNext = model.Rows().Start(nRow + 1);
        if (model.EndsParagraph(nRow)) {
            place = Line(hdc, nRow + 1).PlaceAt(Source(hdc, nRow + 1), style.fMirrored ? INT_MAX : -1);
            MoveTo(nNext + place.n, place.fTrailing, fExtend);
        } else {
            MoveTo(ClusterEnd(text, nNext), false, fExtend);
        }
    } else if (!fRight && nRow > 0) {
        if (model.EndsParagraph(nRow - 1)) {
            place = Line(hdc, nRow - 1).PlaceAt(Source(hdc, nRow - 1), style.fMirrored ? -1 : INT_MAX);
            MoveTo(model.Rows().Start(nRow - 1) + place.n, place.fTrailing, fExtend);
        } else {
            MoveTo(ClusterStart(text, model.RowText(nRow - 1).nTo), false, fExtend);
        }
    } else if (!fExtend) {
        MoveTo(model.Caret(), fTrailing, false);
    }
}

// The caret keeps its column, also across rows that are shorter.
void TextEditor::Inside::MoveByRows(int64_t nRows, bool fExtend)
{
    const EditContext hdc(Window(), site.Font());
    if (nColumn < 0) {
        nColumn = CaretPoint(hdc).x;
    }
    const auto target = [&](UINT nFrom) {
        return static_cast<UINT>(
            std::clamp<int64_t>(int64_t{nFrom} + nRows, 0, int64_t{model.Rows().Count()} - 1));
    };
    WrapBetween(hdc, CaretRow(), target(CaretRow()));
    const UINT nFormer = CaretRow();
    const UINT nRow = target(nFormer);
    if (nRow == nFormer) {
        MoveTo(model.Caret(), fTrailing, fExtend);
        return;
    }
    const CaretPlace place = Line(hdc, nRow).PlaceAt(Source(hdc, nRow), nColumn - LeftOf(hdc, nRow));
    MoveTo(model.Rows().Start(nRow) + place.n, place.fTrailing, fExtend);
}

// The view moves by as many rows as the caret does.
void TextEditor::Inside::MovePage(bool fDown, bool fExtend)
{
    const int64_t nPage = std::max<int64_t>(int64_t{RowsInView()} - 1, 1);
    const int64_t nBy = fDown ? nPage : -nPage;
    const int64_t nBelowTop = int64_t{CaretRow()} - nTop;
    const UINT nFormer = CaretRow();
    MoveByRows(nBy, fExtend);
    const bool fMoved = CaretRow() != nFormer;
    ScrollTo(fMoved ? CaretRow() - nBelowTop : nTop + nBy, xScroll);
}

void TextEditor::Inside::ScrollByKey(int nRows)
{
    const ViewPlace former = Place();
    ScrollTo(RowAbove(int64_t{nTop} + nRows), xScroll);
    const Watch watch(site.Window());
    Arrange();
    if (watch) {
        UpdateCaret();
        Repaint();
        TellScrolled(former);
    }
}

// Rows that are wrapped, or edited, in front of the view move it without scrolling.
void TextEditor::Inside::TellScrolled(const ViewPlace& former)
{
    const Watch watch(site.Window());
    const bool fAcross = former.x != xScroll;
    if (former.nTop != nTop && former.nTopStart != nTopStart) {
        Tell(EN_VSCROLL);
    }
    if (watch && fAcross) {
        Tell(EN_HSCROLL);
    }
}

// --- Keys

bool TextEditor::Inside::OnKey(UINT uKey)
{
    const bool fControl = IsKeyDown(VK_CONTROL);
    const bool fShift = IsKeyDown(VK_SHIFT);
    fKeyOfDialog = std::exchange(wAsked, 0) == uKey;
    if (press == Press::Dragging) {
        if (uKey == VK_ESCAPE) {
            ReleaseCapture();
        }
        return true;
    }
    if (IsKeyDown(VK_MENU)) {
        const bool fUndo = uKey == VK_BACK && !fControl && !fShift;
        return fUndo && (TakeBack(&EditModel::Undo), true);
    }
    if (fControl && IsMultiLine() && (uKey == VK_UP || uKey == VK_DOWN)) {
        ScrollByKey(uKey == VK_UP ? -1 : 1);
        return true;
    }
    if (!IsMultiLine() && (uKey == VK_PRIOR || uKey == VK_NEXT)) {
        return true;
    }
    const ViewPlace former = Place();
    if (MoveByKey(uKey, fControl, fShift)) {
        const Watch watch(site.Window());
        ShowChange();
        if (watch) {
            TellScrolled(former);
        }
        return true;
    }
    return OnEditKey(uKey, fControl, fShift);
}

bool TextEditor::Inside::OnEditKey(UINT uKey, bool fControl, bool fShift)
{
    switch (uKey) {
    case VK_DELETE:
        if (fShift && !fControl) {
            SendOwn(WM_CUT);
        } else {
            Delete(fControl);
        }
        return true;
    case VK_INSERT:
        if (fControl && !fShift) {
            SendOwn(WM_COPY);
        } else if (fShift && !fControl) {
            SendOwn(WM_PASTE);
        }
        return true;
    default: return fControl && OnControlKey(uKey, fShift);
    }
}

bool TextEditor::Inside::OnControlKey(UINT uKey, bool fShift)
{
    switch (uKey) {
    case 'A': SelectAll(); return true;
    case 'C': SendOwn(WM_COPY); return true;
    case 'X': SendOwn(WM_CUT); return true;
    case 'V': SendOwn(WM_PASTE); return true;
    case 'Y': TakeBack(&EditModel::Redo); return true;
    case 'Z':
        if (fShift) {
            TakeBack(&EditModel::Redo);
        } else {
            SendOwn(WM_UNDO);
        }
        return true;
    case VK_BACK: Backspace(!model.HasSelection()); return true;
    default: return false;
    }
}

// Whether a dialog manager has asked for the key that a character is of, or for the character itself. It may
// be asked of other keys than those that come, such as the Tab that has led here.
bool TextEditor::Inside::IsOfDialog(wchar_t ch) const
{
    return fKeyOfDialog || wAsked == ch;
}

// Ctrl with Alt is AltGr, which types.
bool TextEditor::Inside::OnChar(wchar_t ch, LRESULT* plAnswer)
{
    constexpr wchar_t CHAR_DELETED_WORD = 127; // Ctrl+Backspace, which the key has done
    *plAnswer = 0;
    if (press == Press::Dragging) {
        return true;
    }
    const bool fControl = IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
    switch (ch) {
    case CHAR_BACKSPACE:
        if (!fControl) {
            Backspace(false);
        }
        return true;
    case CHAR_TAB:
        if (!IsMultiLine()) {
            SendTab(site.Window());
        } else if (!IsOfDialog(ch) || fControl) {
            Type(ch);
        }
        return true;
    case CHAR_LINE_FEED: // Ctrl+Enter
        if (IsMultiLine()) {
            TypeBreak();
        }
        return true;
    case CHAR_RETURN:
        if (IsMultiLine() && !fControl && (!IsOfDialog(ch) || (Style() & ES_WANTRETURN))) {
            TypeBreak();
        }
        return true;
    default:
        if (ch >= L' ' && ch != CHAR_DELETED_WORD && !fControl) {
            Type(ch);
        }
        return true;
    }
}

// In a dialog Enter is the field's where it has ES_WANTRETURN, and Ctrl+Enter and Ctrl+Tab always are, of
// many lines; Esc where it ends a drag.
bool TextEditor::Inside::WantsKey(WPARAM wKey) const
{
    const bool fControl = IsKeyDown(VK_CONTROL);
    switch (wKey) {
    case VK_RETURN: return IsMultiLine() && (fControl || (Style() & ES_WANTRETURN));
    case VK_TAB: return IsMultiLine() && fControl;
    case VK_ESCAPE: return press == Press::Dragging;
    default: return false;
    }
}

LRESULT TextEditor::Inside::DialogCode(const MSG* pMsg)
{
    constexpr LRESULT CODE = DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL;
    wAsked = pMsg ? pMsg->wParam : wAsked;
    if (!pMsg) {
        return IsMultiLine() ? CODE | DLGC_WANTALLKEYS : CODE;
    }
    return pMsg->message == WM_KEYDOWN && WantsKey(pMsg->wParam) ? CODE | DLGC_WANTMESSAGE : CODE;
}

} // namespace gesso
