// What the mouse does in a text field: selecting by characters, words and paragraphs, and scrolling.

#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <cstdlib>

namespace gesso {
namespace {

constexpr UINT SCROLL_PERIOD = 50;   // milliseconds, of a drag beyond the edge
constexpr int SCROLL_CHARACTERS = 3; // across, of such a step and of a notch that tilts

bool AreNear(HWND hwnd, POINT a, POINT b, int nAcross, int nDown)
{
    return std::abs(a.x - b.x) <= SystemMetric(hwnd, nAcross) &&
           std::abs(a.y - b.y) <= SystemMetric(hwnd, nDown);
}

} // namespace

// --- Pressing

// A third press soon after a double click takes the paragraph.
void TextEditor::Inside::OnButtonDown(WPARAM wKeys, POINT pt)
{
    const Watch watch(site.Window());
    const HWND hwnd = Window();
    const bool fShown = ShowsSelection() && !Mask();
    const bool fTriple = fDoubleClicked &&
                         static_cast<DWORD>(GetMessageTime() - nClickTime) <= GetDoubleClickTime() &&
                         AreNear(hwnd, pt, ptPressed, SM_CXDOUBLECLK, SM_CYDOUBLECLK);
    fDoubleClicked = false;
    SetFocus(hwnd);
    if (!watch) {
        return;
    }
    SetCapture(hwnd); // tells the window that had it
    if (!watch || GetCapture() != hwnd) {
        return;
    }
    ptPressed = pt;
    press = Press::Selecting;
    bool fBehind = false;
    const UINT n = OffsetAt(pt, &fBehind);
    const TextRange selected = model.Selection();
    UINT nChar = 0;
    const bool fPlain = !(wKeys & MK_SHIFT);
    if (fTriple) {
        SelectUnit(DragUnit::Paragraphs, n);
    } else if (fShown && fPlain && CharAt(pt, &nChar) && nChar >= selected.nFrom && nChar < selected.nTo) {
        press = Press::OnSelection;
        Repaint(); // the view stays, from which the text may be dragged
        return;
    } else {
        MoveTo(n, fBehind, wKeys & MK_SHIFT);
        unit = DragUnit::Characters;
        nColumn = -1;
    }
    ShowMove();
}

// Whether a point is on a character, and on which.
bool TextEditor::Inside::CharAt(POINT pt, UINT* pnChar)
{
    const RECT rc = Area();
    if (!PtInRect(&rc, pt) || pt.y >= rc.top + (int64_t{model.Rows().Count()} - nTop) * nRowHeight) {
        return false;
    }
    const EditContext hdc(Window(), site.Font());
    const UINT nRow = RowAt(pt.y);
    const int x = pt.x - rc.left + xScroll - LeftOf(hdc, nRow);
    const bool fOn = Line(hdc, nRow).CharAt(Source(hdc, nRow), x, pnChar);
    *pnChar += model.Rows().Start(nRow);
    return fOn;
}

void TextEditor::Inside::OnDoubleClick(POINT pt)
{
    const Watch watch(site.Window());
    const HWND hwnd = Window();
    SetFocus(hwnd);
    if (!watch) {
        return;
    }
    SetCapture(hwnd);
    if (!watch || GetCapture() != hwnd) {
        return;
    }
    press = Press::Selecting;
    ptPressed = pt;
    fDoubleClicked = true;
    nClickTime = GetMessageTime();
    SelectUnit(DragUnit::Words, UnitOffset(pt));
    ShowMove();
}

// The paragraph without its end.
TextRange TextEditor::Inside::ParagraphAt(UINT n) const
{
    const TextRange rows = model.ParagraphRows(model.Rows().RowOf(n));
    return {model.Rows().Start(rows.nFrom), model.RowText(rows.nTo - 1).nTo};
}

TextRange TextEditor::Inside::UnitAt(UINT n) const
{
    switch (unit) {
    case DragUnit::Words: return Mask() ? ParagraphAt(n) : WordAt(model.Text(), n);
    case DragUnit::Paragraphs: return ParagraphAt(n);
    default: return {n, n};
    }
}

void TextEditor::Inside::SelectUnit(DragUnit unitPressed, UINT n)
{
    unit = unitPressed;
    pressed = UnitAt(n);
    Select(pressed.nFrom, pressed.nTo);
    fTrailing = true;
}

void TextEditor::Inside::OnButtonUp(POINT pt)
{
    if (press == Press::None) {
        return;
    }
    const Watch watch(site.Window());
    const Press former = press;
    if (former == Press::Dragging) {
        Drop(pt);
        return;
    }
    if (former == Press::OnSelection) {
        bool fBehind = false;
        const UINT n = OffsetAt(ptPressed, &fBehind);
        MoveTo(n, fBehind, false);
        nColumn = -1;
    }
    ReleaseCapture();
    if (watch) {
        ShowMove();
    }
}

void TextEditor::Inside::OnCaptureLost(HWND hwndNew)
{
    if (hwndNew == Window() || press == Press::None) {
        return;
    }
    EndDrag();
    press = Press::None;
    fScrolling = false;
    if (const HWND hwnd = Window()) {
        KillTimer(hwnd, EDIT_TIMER_SCROLL);
    }
}

// --- Dragging

void TextEditor::Inside::OnMove(POINT pt)
{
    switch (press) {
    case Press::Selecting: DragSelection(pt); break;
    case Press::OnSelection:
        if (!AreNear(Window(), pt, ptPressed, SM_CXDRAG, SM_CYDRAG)) {
            StartDrag();
            MoveDrag(pt);
        }
        break;
    case Press::Dragging: MoveDrag(pt); break;
    default: break;
    }
}

// Beyond an edge the text moves by and by.
void TextEditor::Inside::DragSelection(POINT pt)
{
    const RECT rc = Area();
    const bool fBeyondSide = nWrapWidth == 0 && (pt.x < rc.left || pt.x >= rc.right);
    KeepScrolling(fBeyondSide || (IsMultiLine() && (pt.y < rc.top || pt.y >= rc.bottom)));
    const POINT ptIn{std::clamp(pt.x, rc.left, std::max(rc.left, rc.right - 1)),
                     IsMultiLine() ? std::clamp(pt.y, rc.top, std::max(rc.top, rc.bottom - 1)) : pt.y};
    ExtendTo(ptIn);
}

void TextEditor::Inside::KeepScrolling(bool fScrolls)
{
    if (fScrolls && !fScrolling) {
        SetTimer(Window(), EDIT_TIMER_SCROLL, SCROLL_PERIOD, nullptr);
    } else if (!fScrolls && fScrolling) {
        KillTimer(Window(), EDIT_TIMER_SCROLL);
    }
    fScrolling = fScrolls;
}

// What the pointer has to leave for the text to scroll. Text that is dragged may go elsewhere too, so that it
// scrolls just within the edges.
RECT TextEditor::Inside::ScrollingEdge(bool fDragging) const
{
    RECT rc = Area();
    if (fDragging) {
        const int nDown = std::min<int>(nRowHeight / 2, (rc.bottom - rc.top) / 4);
        InflateRect(&rc, nWrapWidth > 0 ? 0 : -nAverage, IsMultiLine() && RowsInView() > 1 ? -nDown : 0);
    }
    return rc;
}

// The character that a point is on, or the one in front of the place that it is next to.
UINT TextEditor::Inside::UnitOffset(POINT pt)
{
    UINT nChar = 0;
    bool fBehind = false;
    const UINT n = OffsetAt(pt, &fBehind);
    return CharAt(pt, &nChar) ? nChar : fBehind && n > 0 ? ClusterStart(model.Text(), n) : n;
}

void TextEditor::Inside::ExtendTo(POINT pt)
{
    bool fBehind = false;
    const UINT n = unit == DragUnit::Characters ? OffsetAt(pt, &fBehind) : UnitOffset(pt);
    const UINT nFormer = model.Caret();
    const UINT nFormerAnchor = model.Anchor();
    if (unit == DragUnit::Characters) {
        MoveTo(n, fBehind, true);
    } else {
        const TextRange to = UnitAt(n);
        const bool fBefore = n < pressed.nFrom;
        Select(fBefore ? pressed.nTo : pressed.nFrom, fBefore ? to.nFrom : std::max(to.nTo, pressed.nTo));
        fTrailing = !fBefore;
    }
    nColumn = -1;
    if (model.Caret() != nFormer || model.Anchor() != nFormerAnchor) {
        ShowSelection(nFormer);
    }
}

// The view stays, and the caret in it.
void TextEditor::Inside::WrapByTimer()
{
    fViewWrapped = false;
    const UINT nFormerStart = model.Rows().Start(nTop);
    const bool fCaretInView = fCaret && IsCaretInView();
    const Watch watch(site.Window());
    WrapSlice();
    Arrange();
    if (!watch || (!fViewWrapped && model.Rows().Start(nTop) == nFormerStart)) {
        return;
    }
    if (fCaretInView && !IsCaretInView()) {
        ShowChange();
    } else {
        UpdateCaret();
        Repaint();
    }
}

bool TextEditor::Inside::OnTimer(UINT_PTR uId)
{
    if (uId == EDIT_TIMER_WRAP) {
        WrapByTimer();
    } else if (uId == EDIT_TIMER_SCROLL) {
        ScrollOn();
    } else {
        return false;
    }
    return true;
}

// The field that is pressed, or the one that what is dragged is over.
void TextEditor::Inside::ScrollOn()
{
    const bool fDragging = press == Press::Dragging;
    POINT ptScreen{};
    GetCursorPos(&ptScreen);
    Inside* const pField = fDragging ? DropTarget(ptScreen) : press == Press::Selecting ? this : nullptr;
    if (!pField) {
        KillTimer(Window(), EDIT_TIMER_SCROLL);
        fScrolling = false;
        return;
    }
    const Watch watch(site.Window());
    pField->ScrollToward(ptScreen, fDragging);
    if (!watch) {
        return;
    }
    POINT pt = ptScreen;
    ScreenToClient(Window(), &pt);
    if (press == Press::Selecting) {
        DragSelection(pt);
    } else {
        MoveDrag(pt);
    }
}

// A step toward a pointer that is beyond the edge. The control may be gone afterwards.
void TextEditor::Inside::ScrollToward(POINT ptScreen, bool fDragging)
{
    POINT pt = ptScreen;
    ScreenToClient(Window(), &pt);
    const RECT rc = ScrollingEdge(fDragging);
    const int nDown = !IsMultiLine() ? 0 : pt.y < rc.top ? -1 : pt.y >= rc.bottom ? 1 : 0;
    const int nAcross = pt.x < rc.left ? -1 : pt.x >= rc.right ? 1 : 0;
    ScrollByUser(int64_t{nTop} + nDown,
                 std::min<int64_t>(int64_t{xScroll} + int64_t{nAcross} * SCROLL_CHARACTERS * nAverage,
                                   std::max(LastX(), xScroll)));
}

// --- Scrolling

// What the user asks for, by whatever means; the caret stays. The control may be gone afterwards.
bool TextEditor::Inside::ScrollByUser(int64_t nRow, int64_t x)
{
    nRow = RowAbove(nRow);
    const ViewPlace former = Place();
    if (!ScrollTo(nRow, x)) {
        return false;
    }
    const Watch watch(site.Window());
    Arrange();
    if (watch) {
        UpdateCaret();
        Repaint();
        TellScrolled(former);
    }
    return true;
}

// False where there is nothing to scroll: the wheel is the parent's then.
bool TextEditor::Inside::OnWheel(int nDelta, bool fAcross)
{
    if (!IsMultiLine() || (fAcross ? nWrapWidth > 0 || LastX() == 0 : LastTop() == 0)) {
        return false;
    }
    int& nRest = nWheelRests[fAcross ? 0 : 1];
    if ((nDelta < 0) != (nRest < 0)) {
        nRest = 0;
    }
    const UINT nLines = WheelLines();
    const int64_t nStep = fAcross                      ? int64_t{SCROLL_CHARACTERS} * nAverage
                          : nLines == WHEEL_PAGESCROLL ? std::max<int64_t>(int64_t{RowsInView()} - 1, 1)
                                                       : int64_t{nLines};
    const int64_t nTurn = int64_t{nRest} + nDelta * nStep;
    nRest = static_cast<int>(nTurn % WHEEL_DELTA);
    const int64_t nBy = nTurn / WHEEL_DELTA;
    if (fAcross) {
        ScrollByUser(nTop, std::min<int64_t>(xScroll + nBy, LastX()));
    } else {
        ScrollByUser(nTop - nBy, xScroll);
    }
    return true;
}

void TextEditor::Inside::OnScroll(int nBar, UINT uCode, UINT nThumb)
{
    const bool fDown = nBar == SB_VERT;
    const RECT rc = Area();
    const int64_t nPage =
        fDown ? std::max<int64_t>(int64_t{RowsInView()} - 1, 1) : std::max<int>(rc.right - rc.left, 1);
    const int64_t nLine = fDown ? 1 : nAverage;
    const int64_t nLast = fDown ? int64_t{LastTop()} : LastX();
    int64_t nPos = fDown ? int64_t{nTop} : xScroll;
    switch (uCode) {
    case SB_LINEUP: nPos -= nLine; break;
    case SB_LINEDOWN: nPos += nLine; break;
    case SB_PAGEUP: nPos -= nPage; break;
    case SB_PAGEDOWN: nPos += nPage; break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: nPos = nThumb; break;
    case SB_TOP: nPos = 0; break;
    case SB_BOTTOM: nPos = nLast; break;
    default: return;
    }
    nPos = std::clamp<int64_t>(nPos, 0, std::max<int64_t>(nLast, 0));
    ScrollByUser(fDown ? nPos : int64_t{nTop}, fDown ? int64_t{xScroll} : nPos);
}

// Over selected text, which can be dragged, the arrow. False where the control's own cursor is to show.
bool TextEditor::Inside::SetsCursor(UINT uHit)
{
    if (uHit != HTCLIENT) {
        return false;
    }
    POINT pt{};
    GetCursorPos(&pt);
    ScreenToClient(Window(), &pt);
    UINT nChar = 0;
    const TextRange selected = model.Selection();
    if (press == Press::Selecting || !ShowsSelection() || Mask() || !CharAt(pt, &nChar) ||
        nChar < selected.nFrom || nChar >= selected.nTo)
    {
        return false;
    }
    constexpr WORD ARROW_CURSOR = 32512;
    SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(ARROW_CURSOR)));
    return true;
}

} // namespace gesso
