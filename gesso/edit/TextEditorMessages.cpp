// The platform's messages of edit fields.

#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr LRESULT NO_POSITION = -1;
constexpr UINT HIGHEST_WORD = 0xFFFF;

// Of a place that does not fit, the word says so.
LRESULT PackedSelection(const TextRange& range)
{
    return range.nTo > HIGHEST_WORD ? NO_POSITION : MAKELONG(range.nFrom, range.nTo);
}

} // namespace

bool TextEditor::Inside::OnEditMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    LRESULT& lAnswer = *plAnswer;
    lAnswer = 0;
    switch (uMsg) {
    case EM_GETSEL:
        lAnswer = GetSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
        break;
    case EM_SETSEL: SetSel(static_cast<int>(wParam), static_cast<int>(lParam)); break;
    case EM_REPLACESEL: ReplaceByMessage(reinterpret_cast<LPCWSTR>(lParam), wParam != 0); break;
    case EM_GETLINE: lAnswer = GetLine(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam)); break;
    case EM_GETLINECOUNT: lAnswer = model.Rows().Count(); break;
    case EM_LINEFROMCHAR: lAnswer = LineFromChar(wParam); break;
    case EM_LINEINDEX: lAnswer = LineIndex(wParam); break;
    case EM_LINELENGTH: lAnswer = LineLength(wParam); break;
    case EM_CHARFROMPOS: lAnswer = CharFromPos(PointOf(lParam)); break;
    case EM_POSFROMCHAR: lAnswer = PosFromChar(static_cast<UINT>(wParam)); break;
    case EM_SCROLLCARET: ShowChange(); break;
    case EM_LINESCROLL: lAnswer = LineScroll(static_cast<int>(wParam), static_cast<int>(lParam)); break;
    case EM_SCROLL: lAnswer = ScrollByCode(static_cast<UINT>(wParam)); break;
    case EM_GETFIRSTVISIBLELINE:
        lAnswer = IsMultiLine() ? static_cast<LRESULT>(nTop) : FirstVisibleChar();
        break;
    case EM_GETMODIFY: lAnswer = model.IsModified(); break;
    case EM_SETMODIFY: model.SetModified(wParam != 0); break;
    case EM_SETMARGINS: SetMargins(wParam, LOWORD(lParam), HIWORD(lParam)); break;
    case EM_GETMARGINS: lAnswer = MAKELONG(nLeftMargin, nRightMargin); break;
    case EM_GETRECT:
        if (auto* prc = reinterpret_cast<RECT*>(lParam)) {
            *prc = Area();
        }
        break;
    case EM_FMTLINES: lAnswer = static_cast<LRESULT>(wParam); break;
    case EM_LIMITTEXT:
        nLimit = wParam == 0 || wParam > NO_LIMIT ? NO_LIMIT : static_cast<UINT>(wParam);
        break;
    case EM_GETLIMITTEXT: lAnswer = nLimit; break;
    case EM_CANUNDO: lAnswer = model.CanUndo(); break;
    case EM_UNDO:
    case WM_UNDO: lAnswer = Undo(); break;
    case EM_EMPTYUNDOBUFFER: model.EmptyUndo(); break;
    case EM_SETREADONLY: lAnswer = ChangeStyle(ES_READONLY, wParam != 0); break;
    case EM_SETPASSWORDCHAR: SetPasswordChar(static_cast<wchar_t>(wParam)); break;
    case EM_GETPASSWORDCHAR: lAnswer = Mask(); break;
    case EM_SETTABSTOPS:
        lAnswer = SetTabStops(static_cast<UINT>(wParam), reinterpret_cast<const UINT*>(lParam));
        break;
    case EM_SETCUEBANNER: lAnswer = SetCueBanner(reinterpret_cast<LPCWSTR>(lParam), wParam != 0); break;
    case EM_GETCUEBANNER:
        lAnswer = GetCueBanner(reinterpret_cast<LPWSTR>(wParam), static_cast<UINT>(lParam));
        break;
    default: return false;
    }
    return true;
}

// --- The selection

LRESULT TextEditor::Inside::GetSel(DWORD* pdwStart, DWORD* pdwEnd) const
{
    const TextRange range = model.Selection();
    if (pdwStart) {
        *pdwStart = range.nFrom;
    }
    if (pdwEnd) {
        *pdwEnd = range.nTo;
    }
    return PackedSelection(range);
}

// A negative start selects nothing, with the caret where it is; a negative end is the text's.
void TextEditor::Inside::SetSel(int nStart, int nEnd)
{
    if (nStart < 0) {
        Select(model.Caret(), model.Caret());
    } else {
        Select(static_cast<UINT>(nStart), nEnd < 0 ? model.Length() : static_cast<UINT>(nEnd));
    }
    SelectionSet();
}

// Whether the caret is to come into view is EM_SCROLLCARET's to say, but in one line it always does.
void TextEditor::Inside::SelectionSet()
{
    if (IsMultiLine()) {
        UpdateCaret();
        Repaint();
    } else {
        ShowChange();
    }
}

void TextEditor::Inside::ReplaceByMessage(LPCWSTR psz, bool fCanUndo)
{
    const LPCWSTR pszText = psz ? psz : L"";
    const auto n = static_cast<UINT>(wcslen(pszText));
    Insert(pszText, n, EditKind::Step, Origin::Program, fCanUndo);
}

// --- Lines, which are rows where the text is wrapped

LRESULT TextEditor::Inside::GetLine(UINT nLine, LPWSTR pszTo) const
{
    if (!IsMultiLine()) {
        nLine = 0; // whatever is asked for
    }
    if (nLine >= model.Rows().Count() || !pszTo) {
        return 0;
    }
    const UINT nCapacity = *reinterpret_cast<const WORD*>(pszTo);
    TextRange row = model.RowText(nLine);
    row.nTo = std::min(row.nTo, row.nFrom + nCapacity);
    model.Text().Copy(row, pszTo);
    if (row.Length() < nCapacity) {
        pszTo[row.Length()] = 0;
    }
    return row.Length();
}

// -1 is the line of the selection's start, and in LineIndex that of the caret.
LRESULT TextEditor::Inside::LineFromChar(WPARAM wChar) const
{
    const bool fOfCaret = static_cast<int>(wChar) == -1;
    const UINT n = fOfCaret ? model.Selection().nFrom : static_cast<UINT>(wChar);
    return model.Rows().RowOf(std::min(n, model.Length()));
}

LRESULT TextEditor::Inside::LineIndex(WPARAM wLine) const
{
    if (!IsMultiLine()) {
        return 0;
    }
    const bool fOfCaret = static_cast<int>(wLine) == -1;
    const UINT nRow = fOfCaret ? CaretRow() : static_cast<UINT>(wLine);
    return nRow < model.Rows().Count() ? static_cast<LRESULT>(model.Rows().Start(nRow)) : NO_POSITION;
}

// With -1 how much of the selection's lines is not selected.
LRESULT TextEditor::Inside::LineLength(WPARAM wChar) const
{
    if (!IsMultiLine()) {
        return model.Length();
    }
    if (static_cast<int>(wChar) != -1) {
        const auto n = static_cast<UINT>(wChar);
        return n > model.Length() ? 0 : model.RowText(model.Rows().RowOf(n)).Length();
    }
    const TextRange range = model.Selection();
    const UINT nFirst = model.Rows().RowOf(range.nFrom);
    const UINT nLast = model.Rows().RowOf(range.nTo);
    return (range.nFrom - model.Rows().Start(nFirst)) +
           (model.RowText(nLast).nTo - std::min(range.nTo, model.RowText(nLast).nTo));
}

// --- Points

LRESULT TextEditor::Inside::CharFromPos(POINTS pt)
{
    RECT rc{};
    GetClientRect(Window(), &rc);
    if (!PtInRect(&rc, {pt.x, pt.y})) {
        return NO_POSITION;
    }
    bool fBehind = false;
    const UINT n = OffsetAt({pt.x, pt.y}, &fBehind);
    const UINT nRow = RowAt(pt.y);
    return MAKELONG(n, IsMultiLine() ? nRow : 0);
}

// The character's left upper corner; -1 where there is none.
LRESULT TextEditor::Inside::PosFromChar(UINT n)
{
    if (n >= model.Length()) {
        return NO_POSITION;
    }
    const EditContext hdc(Window(), site.Font());
    NeedStyle(hdc);
    WrapAt(hdc, n);
    const UINT nRow = model.Rows().RowOf(n);
    const CaretPlace place{n - model.Rows().Start(nRow), false};
    const RECT rc = Area();
    const int x = rc.left + LeftOf(hdc, nRow) + Line(hdc, nRow).XOf(Source(hdc, nRow), place) - xScroll;
    const int y = Saturated(rc.top + (int64_t{nRow} - nTop) * nRowHeight);
    return MAKELONG(static_cast<WORD>(x), static_cast<WORD>(y));
}

LRESULT TextEditor::Inside::FirstVisibleChar()
{
    const EditContext hdc(Window(), site.Font());
    UINT n = 0;
    Line(hdc, 0).CharAt(Source(hdc, 0), xScroll, &n);
    return n;
}

// --- Scrolling. The caret stays.

LRESULT TextEditor::Inside::LineScroll(int nCharacters, int nLines)
{
    if (!IsMultiLine()) {
        return FALSE;
    }
    const int64_t x = std::clamp<int64_t>(int64_t{xScroll} + int64_t{nCharacters} * nAverage, 0, LastX());
    ScrollTo(RowAbove(int64_t{nTop} + nLines), x);
    const Watch watch(site.Window());
    Arrange();
    if (watch) {
        UpdateCaret();
        Repaint();
    }
    return TRUE;
}

LRESULT TextEditor::Inside::ScrollByCode(UINT uCode)
{
    const bool fKnown =
        uCode == SB_LINEUP || uCode == SB_LINEDOWN || uCode == SB_PAGEUP || uCode == SB_PAGEDOWN;
    if (!IsMultiLine() || !fKnown) {
        return FALSE;
    }
    const int nFormer = static_cast<int>(nTop);
    const Watch watch(site.Window());
    OnScroll(SB_VERT, uCode, 0);
    return watch ? MAKELONG(static_cast<WORD>(static_cast<int>(nTop) - nFormer), TRUE) : FALSE;
}

// --- What the field is like

// One line always says that it has.
LRESULT TextEditor::Inside::Undo()
{
    const bool fOneLine = !IsMultiLine();
    return TakeBack(&EditModel::Undo) || fOneLine;
}

LRESULT TextEditor::Inside::ChangeStyle(DWORD dwBit, bool fOn)
{
    const HWND hwnd = Window();
    const auto dwStyle = static_cast<DWORD>(GetWindowLongW(hwnd, GWL_STYLE));
    SetWindowLongW(hwnd, GWL_STYLE, static_cast<LONG>(fOn ? dwStyle | dwBit : dwStyle & ~dwBit));
    return TRUE;
}

void TextEditor::Inside::SetMargins(WPARAM wWhich, UINT nLeft, UINT nRight)
{
    const EditContext hdc(Window(), site.Font());
    NeedStyle(hdc);
    const auto margin = [&](UINT n) { return n == EC_USEFONTINFO ? nAverage / 2 : static_cast<int>(n); };
    if (wWhich == EC_USEFONTINFO) {
        nLeft = nRight = EC_USEFONTINFO;
    }
    if (wWhich & EC_LEFTMARGIN) {
        nLeftMargin = margin(nLeft);
    }
    if (wWhich & EC_RIGHTMARGIN) {
        nRightMargin = margin(nRight);
    }
    Relayout();
}

// 0 shows the characters themselves.
void TextEditor::Inside::SetPasswordChar(wchar_t ch)
{
    if (IsMultiLine()) {
        return;
    }
    chPassword = ch;
    const Watch watch(site.Window());
    ChangeStyle(ES_PASSWORD, ch != 0);
    if (watch) {
        Relayout();
    }
}

LRESULT TextEditor::Inside::SetTabStops(UINT n, const UINT* pnUnits)
{
    if (!IsMultiLine() || (n > 0 && !pnUnits)) {
        return FALSE;
    }
    tabStops.assign(pnUnits, pnUnits + n);
    Relayout();
    return TRUE;
}

LRESULT TextEditor::Inside::SetCueBanner(LPCWSTR psz, bool fWithFocus)
{
    std::vector<wchar_t> text;
    if (psz) {
        text.assign(psz, psz + wcslen(psz) + 1);
    }
    cue.swap(text);
    fCueWithFocus = fWithFocus;
    Repaint();
    return TRUE;
}

LRESULT TextEditor::Inside::GetCueBanner(LPWSTR pszTo, UINT nCapacity) const
{
    if (!pszTo || nCapacity == 0) {
        return FALSE;
    }
    const UINT n = std::min<UINT>(cue.empty() ? 0 : static_cast<UINT>(cue.size()) - 1, nCapacity - 1);
    std::copy_n(cue.begin(), n, pszTo);
    pszTo[n] = 0;
    return !cue.empty();
}

} // namespace gesso
