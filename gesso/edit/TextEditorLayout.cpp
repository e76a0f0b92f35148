// Rows, scrolling, and the caret.

#include <gesso/edit/TextEditorInside.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Saturate.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <utility>

namespace gesso {
namespace {

constexpr UINT TAB_DIALOG_UNITS = 32; // 8 average characters
constexpr int UNITS_PER_CHARACTER = 4;
// A line that is longer is not shaped to tell how wide it is.
constexpr UINT LONG_LINE = 20000;
// Rows above and below the view that stay prepared.
constexpr UINT SPARE_ROWS = 16;

} // namespace

HWND TextEditor::Inside::Window() const
{
    return Frame::Handle(site.Window());
}

bool TextEditor::Inside::HasFocus() const
{
    return Window() && GetFocus() == Window();
}

wchar_t TextEditor::Inside::Mask() const
{
    constexpr wchar_t BULLET = 0x25CF;
    if (!(Style() & ES_PASSWORD) || IsMultiLine()) {
        return 0;
    }
    return chPassword ? chPassword : BULLET;
}

// --- Style and rows

RECT TextEditor::Inside::Area() const
{
    RECT rc = site.TextRect();
    rc.left = Saturated(int64_t{rc.left} + nLeftMargin);
    rc.right = Saturated(int64_t{rc.right} - nRightMargin);
    // Of many lines a part of one at the bottom does not show.
    const int nHeight = rc.bottom - rc.top;
    if (IsMultiLine() && nRowHeight > 0 && nHeight > nRowHeight) {
        rc.bottom -= nHeight % nRowHeight;
    }
    return rc;
}

bool TextEditor::Inside::Wraps() const
{
    return IsMultiLine() && !(Style() & (ES_AUTOHSCROLL | WS_HSCROLL));
}

void TextEditor::Inside::NeedStyle(HDC hdc)
{
    style.fMirrored = IsMirrored(Window());
    if (fStyled) {
        return;
    }
    TEXTMETRICW metric{};
    GetTextMetricsW(hdc, &metric);
    nRowHeight = std::max<int>(metric.tmHeight + metric.tmExternalLeading, 1);
    nAverage = std::max<int>(metric.tmAveCharWidth, 1);
    style.chMask = Mask();
    style.tabs.clear();
    style.nTab = nAverage * static_cast<int>(TAB_DIALOG_UNITS) / UNITS_PER_CHARACTER;
    const auto pixels = [&](UINT nUnits) {
        return static_cast<int>(
            std::min<int64_t>(int64_t{nUnits} * nAverage / UNITS_PER_CHARACTER, SHRT_MAX));
    };
    for (const UINT nUnits : tabStops) {
        style.tabs.push_back(pixels(nUnits));
    }
    if (tabStops.empty()) {
        style.tabs.push_back(pixels(TAB_DIALOG_UNITS));
    }
    fStyled = true;
}

UINT TextEditor::Inside::RowsInView() const
{
    const RECT rc = Area();
    const int64_t nHeight = int64_t{rc.bottom} - rc.top;
    return static_cast<UINT>(std::max<int64_t>(nHeight / std::max(nRowHeight, 1), 1));
}

LineSource TextEditor::Inside::Source(HDC hdc, UINT nRow)
{
    return {hdc, model.Text(), model.Rows().Start(nRow), style};
}

TextEditor::Inside::CachedLine* TextEditor::Inside::FindLine(UINT nRow)
{
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const CachedLine& line) { return line.nRow == nRow; });
    return found == lines.end() ? nullptr : &*found;
}

PreparedLine& TextEditor::Inside::Line(HDC hdc, UINT nRow)
{
    NeedStyle(hdc);
    if (CachedLine* found = FindLine(nRow)) {
        return found->line;
    }
    const UINT nSpare = RowsInView() + SPARE_ROWS;
    std::erase_if(lines, [&](const CachedLine& line) {
        return line.nRow + SPARE_ROWS < nTop || line.nRow > uint64_t{nTop} + nSpare;
    });
    PreparedLine line;
    line.Prepare(Source(hdc, nRow), model.RowText(nRow).Length());
    nWidest = std::max(nWidest, line.Width());
    lines.push_back({nRow, std::move(line)});
    return lines.back().line;
}

void TextEditor::Inside::ForgetLines()
{
    lines.clear();
}

// Rows nRow up to nRow + nRows have become nNew other ones.
void TextEditor::Inside::FollowRows(UINT nRow, UINT nRows, UINT nNew)
{
    std::erase_if(lines,
                  [&](const CachedLine& line) { return line.nRow >= nRow && line.nRow - nRow < nRows; });
    for (CachedLine& line : lines) {
        line.nRow = line.nRow < nRow ? line.nRow : line.nRow - nRows + nNew;
    }
}

// What was prepared follows a change of the text: a row that has changed alone is changed, others go.
void TextEditor::Inside::FollowChange(const TextChange& change)
{
    const bool fOneRow = change.nRowsRemoved == 1 && change.nRowsInserted == 1;
    fRowsChanged = fRowsChanged || !fOneRow || (changedRows && changedRows->nFrom != change.nRow) ||
                   model.Length() == change.nInserted || model.Length() == 0;
    changedRows = {change.nRow, change.nRow + 1};
    const UINT nStart = model.Rows().Start(change.nRow);
    const int64_t nBy = int64_t{change.nInserted} - change.nRemoved;
    NoteUnwrapped({change.nFrom, change.nFrom + change.nInserted}, nBy);
    const CachedLine* former = fOneRow || change.nRowsRemoved > 1 ? nullptr : FindLine(change.nRow);
    const bool fNarrowParted = former && former->line.Width() < nWidest;
    if (!fOneRow) {
        FollowRows(change.nRow, change.nRowsRemoved, change.nRowsInserted);
    }
    // What comes in at the start of the view comes into view.
    if (nTopStart >= change.nFrom + change.nRemoved && nTopStart > change.nFrom) {
        nTopStart = static_cast<UINT>(nTopStart + nBy);
    } else {
        nTopStart = std::min(nTopStart, change.nFrom + change.nInserted);
    }
    FindTop();
    if (nWrapped >= change.nFrom) {
        nWrapped = static_cast<UINT>(std::max<int64_t>(int64_t{nWrapped} + nBy, change.nFrom));
    }
    if (nWrapWidth == 0) {
        longest.Follow(model.Rows(), change);
    }
    const HWND hwnd = Window();
    if (!hwnd) {
        ForgetLines();
        return;
    }
    if (CachedLine* line = fOneRow ? FindLine(change.nRow) : nullptr) {
        const EditContext hdc(hwnd, site.Font());
        const bool fWidest = line->line.Width() == nWidest;
        line->line.Change(Source(hdc, change.nRow), change.nFrom - nStart, change.nRemoved, change.nInserted);
        nWidest = fWidest && line->line.Width() < nWidest ? 0 : std::max(nWidest, line->line.Width());
    } else if (!fNarrowParted) {
        nWidest = 0; // the widest may have gone, or come
    }
}

void TextEditor::Inside::FindTop()
{
    nTop = model.Rows().RowOf(std::min(nTopStart, model.Length()));
}

// After another font, width or style.
void TextEditor::Inside::Relayout()
{
    fStyled = false;
    if (Window()) {
        const EditContext hdc(Window(), site.Font());
        NeedStyle(hdc);
        WrapAgain();
    }
    if (fCaret) {
        CreateTextCaret(Window(), site.Font()); // of another height, it may be
        ShowCaret(Window());
    }
    Rearrange();
}

// --- Scrolling

// Of a text that is not wrapped the longest line is taken for the widest, until wider ones have been seen.
void TextEditor::Inside::MeasureWidest(HDC hdc)
{
    if (nWidest > 0 || nWrapWidth > 0) {
        return;
    }
    const UINT nRow = longest.Find(model.Rows());
    if (longest.Width() == 0) {
        longest.SetWidth(WidthOf(hdc, nRow));
    }
    nWidest = longest.Width();
}

int TextEditor::Inside::WidthOf(HDC hdc, UINT nRow)
{
    const UINT nLength = model.RowText(nRow).Length();
    if (nLength > LONG_LINE) {
        return Saturated(int64_t{nLength} * nAverage);
    }
    PreparedLine line;
    line.Prepare(Source(hdc, nRow), nLength);
    return std::max(line.Width(), 1);
}

// Lines in view may be wider than the longest one.
void TextEditor::Inside::MeasureView(HDC hdc)
{
    const uint64_t nBehind = uint64_t{nTop} + RowsInView();
    for (UINT nRow = nTop; nWrapWidth == 0 && nRow < model.Rows().Count() && nRow < nBehind; ++nRow) {
        nWidest = std::max(nWidest, Line(hdc, nRow).Width());
    }
}

// Spaces that a wrapped row ends with hang beyond its edge.
int TextEditor::Inside::LeftOf(HDC hdc, UINT nRow)
{
    PreparedLine& line = Line(hdc, nRow);
    const LineSource source = Source(hdc, nRow);
    const bool fAligned = style.fMirrored || (Style() & (ES_CENTER | ES_RIGHT));
    const UINT nHanging =
        fAligned && !model.EndsParagraph(nRow) ? CountHangingSpaces(source, line.Length()) : 0;
    int nWidth = line.Width();
    for (const auto& stretch :
         line.Stretches(source, {line.Length() - nHanging, line.Length()}, 0, nHanging > 0 ? nWidth : 0))
    {
        nWidth -= stretch.nRight - stretch.nLeft;
    }
    // Of a mirrored line x begins with them.
    return LeftOf(nWidth) - (style.fMirrored ? line.Width() - nWidth : 0);
}

// Where a row begins, before scrolling: aligned while it fits.
int TextEditor::Inside::LeftOf(int nWidth) const
{
    const RECT rc = Area();
    const int nRoom = rc.right - rc.left - nWidth;
    if (nRoom <= 0 || !(Style() & (ES_CENTER | ES_RIGHT))) {
        return 0;
    }
    return Style() & ES_CENTER ? nRoom / 2 : nRoom - 1;
}

UINT TextEditor::Inside::LastTop() const
{
    const UINT nRows = model.Rows().Count();
    const UINT nView = RowsInView();
    return nRows > nView ? nRows - nView : 0;
}

// How far the text can move to the left; the caret has a pixel behind it.
int TextEditor::Inside::LastX()
{
    const RECT rc = Area();
    return std::max(Saturated(int64_t{nWidest} + 1 - (int64_t{rc.right} - rc.left)), 0);
}

bool TextEditor::Inside::ScrollTo(int64_t nRow, int64_t x)
{
    const auto nNewTop = static_cast<UINT>(std::clamp<int64_t>(nRow, 0, LastTop()));
    const int xNew = nWrapWidth > 0 ? 0 : Saturated(std::max<int64_t>(x, 0));
    if (nNewTop == nTop && xNew == xScroll) {
        return false;
    }
    nTop = nNewTop;
    nTopStart = model.Rows().Start(nTop);
    xScroll = xNew;
    return true;
}

void TextEditor::Inside::PlaceBars()
{
    const Watch watch(site.Window());
    const RECT rc = Area();
    site.SetRange(SB_VERT, static_cast<int>(model.Rows().Count()) - 1, RowsInView(), static_cast<int>(nTop));
    if (!watch) {
        return;
    }
    site.SetRange(SB_HORZ, std::max(nWidest, xScroll + 1),
                  static_cast<UINT>(std::max<int>(rc.right - rc.left, 1)), xScroll);
}

// Until its end, also where memory has run out.
class TextEditor::Inside::PlacingScope
{
public:
    explicit PlacingScope(Inside& own) : m_own(own), m_watch(own.site.Window()) { own.fPlacing = true; }
    ~PlacingScope()
    {
        if (m_watch) {
            m_own.fPlacing = false;
        }
    }
    PlacingScope(const PlacingScope&) = delete;
    PlacingScope& operator=(const PlacingScope&) = delete;
    explicit operator bool() const { return m_watch; }

private:
    Inside& m_own;
    Watch m_watch;
};

// Brings rows, view and bars in order after whatever may have changed them. A bar that comes or goes changes
// the width, which comes back here.
void TextEditor::Inside::Arrange()
{
    const HWND hwnd = Window();
    if (!hwnd || fPlacing) {
        return;
    }
    const PlacingScope placing(*this);
    for (int nRound = 0; nRound < 3; ++nRound) {
        const RECT rc = Area();
        {
            const EditContext hdc(hwnd, site.Font());
            NeedStyle(hdc);
            if (nWrapWidth != WidthToWrapAt()) {
                WrapAgain();
            }
            WrapChanged(hdc);
            WrapInView(hdc);
            MeasureWidest(hdc);
            MeasureView(hdc);
            if (ScrollTo(nTop, std::min(xScroll, IsMultiLine() ? LastX() : RoomBehindEnd(hdc)))) {
                WrapInView(hdc);
            }
        }
        PlaceBars();
        if (!placing) {
            return;
        }
        const RECT rcNow = Area();
        if (EqualRect(&rc, &rcNow)) {
            break;
        }
    }
}

// How far a single line can scroll, with a pixel for the caret behind its end.
int TextEditor::Inside::RoomBehindEnd(HDC hdc)
{
    const RECT rc = Area();
    return std::max<int>(Line(hdc, 0).Width() + 1 - std::max<int>(rc.right - rc.left, 1), 0);
}

// --- The caret

// While something is composed that row which it shows in.
UINT TextEditor::Inside::CaretRow() const
{
    if (composition.IsActive() && model.HasSelection()) {
        return model.Rows().RowOf(model.Selection().nFrom);
    }
    const UINT nRow = model.Rows().RowOf(model.Caret());
    const bool fBehindRow =
        fTrailing && nRow > 0 && model.Rows().Start(nRow) == model.Caret() && !model.EndsParagraph(nRow - 1);
    return fBehindRow ? nRow - 1 : nRow;
}

CaretPlace TextEditor::Inside::CaretInRow(UINT nRow) const
{
    return {model.Caret() - model.Rows().Start(nRow), fTrailing};
}

// Before scrolling, from the left end and the top of the text.
POINT TextEditor::Inside::CaretPoint(HDC hdc)
{
    const UINT nRow = CaretRow();
    if (composition.IsActive()) {
        const int xCaret = ComposedRow(*this, hdc).XOf(*this, hdc, composition.Caret());
        return {Saturated(int64_t{xCaret} - Area().left + xScroll), Saturated(int64_t{nRow} * nRowHeight)};
    }
    const int x = Line(hdc, nRow).XOf(Source(hdc, nRow), CaretInRow(nRow));
    return {LeftOf(hdc, nRow) + x, Saturated(int64_t{nRow} * nRowHeight)};
}

void TextEditor::Inside::BringCaretIntoView()
{
    const HWND hwnd = Window();
    if (!hwnd) {
        return;
    }
    const EditContext hdc(hwnd, site.Font());
    NeedStyle(hdc);
    WrapChanged(hdc);
    WrapAt(hdc, model.Caret());
    const UINT nView = RowsInView();
    const UINT nUnwrappedRow = CaretRow();
    // The rows that may come into view with it, which count for how far that is.
    WrapBetween(hdc, nUnwrappedRow, nUnwrappedRow - std::min(nUnwrappedRow, nView));
    const UINT nRow = CaretRow();
    int64_t nNewTop = nTop;
    if (nRow < nTop) {
        nNewTop = nRow;
    } else if (nRow >= uint64_t{nTop} + nView) {
        nNewTop = int64_t{nRow} - nView + 1;
    }
    const RECT rc = Area();
    const int nWidth = std::max<int>(rc.right - rc.left, 1);
    const int x = CaretPoint(hdc).x;
    int64_t xNew = xScroll;
    if (x < xScroll) {
        // In many lines further, so that who deletes sees what comes.
        xNew = IsMultiLine() ? std::max(x - nWidth / 3, 0) : x;
    } else if (x > int64_t{xScroll} + nWidth - 1) {
        xNew = int64_t{x} - nWidth + 1;
    }
    // A line that has become shorter leaves no room behind its end.
    if (!IsMultiLine()) {
        xNew = std::min<int64_t>(xNew, RoomBehindEnd(hdc));
    }
    ScrollTo(nNewTop, xNew);
}

bool TextEditor::Inside::IsCaretInView() const
{
    const UINT nRow = CaretRow();
    return nRow >= nTop && nRow < uint64_t{nTop} + RowsInView();
}

// Another window's caret stays where it is.
void TextEditor::Inside::UpdateCaret()
{
    const HWND hwnd = Window();
    if (!fCaret || !hwnd) {
        return;
    }
    // One that is scrolled away stands above the window. Its row need not be prepared for that.
    const int nAway = -2 * nRowHeight;
    if (!IsCaretInView()) {
        SetCaretPos(0, nAway);
        return;
    }
    const RECT rc = Area();
    const EditContext hdc(hwnd, site.Font());
    const POINT pt = CaretPoint(hdc);
    int64_t x = int64_t{rc.left} + pt.x - xScroll;
    if (nWrapWidth > 0) {
        x = std::min<int64_t>(x, int64_t{rc.right} - 1); // behind spaces that have no room in the row
    }
    const bool fShows = x >= rc.left && x <= rc.right;
    SetCaretPos(fShows ? static_cast<int>(x) : 0,
                fShows ? Saturated(rc.top + int64_t{pt.y} - int64_t{nTop} * nRowHeight) : nAway);
}

void TextEditor::Inside::Repaint() const
{
    if (const HWND hwnd = Window()) {
        InvalidateRect(hwnd, nullptr, FALSE);
    }
}

// What arranging wraps, or a bar that comes, may move the caret out of view again. False where the control is
// gone.
bool TextEditor::Inside::FollowCaret()
{
    const Watch watch(site.Window());
    for (int nRound = 0; nRound < 3; ++nRound) {
        BringCaretIntoView();
        const UINT nFormerTop = nTop;
        const UINT nFormerRow = CaretRow();
        const RECT rcFormer = Area();
        Arrange();
        if (!watch) {
            return false;
        }
        const RECT rc = Area();
        if (nTop == nFormerTop && CaretRow() == nFormerRow && EqualRect(&rc, &rcFormer)) {
            return true;
        }
    }
    BringCaretIntoView();
    return true;
}

void TextEditor::Inside::ShowChange()
{
    if (FollowCaret()) {
        UpdateCaret();
        Repaint();
    }
}

// The user has moved the caret, which may have scrolled. The control may be gone afterwards.
void TextEditor::Inside::ShowMove()
{
    const ViewPlace former = Place();
    const Watch watch(site.Window());
    ShowChange();
    if (watch) {
        TellScrolled(former);
    }
}

// After a change of what rows are like: the view stays.
void TextEditor::Inside::Rearrange()
{
    const Watch watch(site.Window());
    Arrange();
    if (watch) {
        UpdateCaret();
        Repaint();
    }
}

void TextEditor::Inside::RepaintRows(UINT nFirst, UINT nBehind) const
{
    RECT rc{};
    const HWND hwnd = Window();
    if (!hwnd || !GetClientRect(hwnd, &rc)) {
        return;
    }
    const int64_t nAreaTop = Area().top;
    rc.top = Saturated(nAreaTop + (int64_t{nFirst} - nTop) * nRowHeight);
    rc.bottom = Saturated(nAreaTop + (int64_t{nBehind} - nTop) * nRowHeight);
    InvalidateRect(hwnd, &rc, FALSE);
}

// After the user has moved one end of the selection: what lies between the two places of it.
void TextEditor::Inside::ShowSelection(UINT nFormerCaret)
{
    const ViewPlace former = Place();
    const UINT nFormerRow = model.Rows().RowOf(nFormerCaret);
    BringCaretIntoView();
    if (nTop != former.nTop || xScroll != former.x) {
        const Watch watch(site.Window());
        ShowChange();
        if (watch) {
            TellScrolled(former);
        }
        return;
    }
    UpdateCaret();
    const UINT nRow = CaretRow();
    RepaintRows(std::min(nFormerRow, nRow), std::max(nFormerRow, nRow) + 1);
}

// After an edit: the rows that changed, or all where others have moved.
void TextEditor::Inside::ShowEdit()
{
    const UINT nFormerTop = nTop;
    const int xFormer = xScroll;
    if (!FollowCaret()) {
        return;
    }
    UpdateCaret();
    const std::optional<TextRange> rows = std::exchange(changedRows, {});
    const bool fMoved = std::exchange(fRowsChanged, false) || nTop != nFormerTop || xScroll != xFormer;
    if (rows && !fMoved && !(Style() & (ES_CENTER | ES_RIGHT))) {
        RepaintRows(rows->nFrom, rows->nTo);
    } else {
        Repaint();
    }
}

// --- Points

UINT TextEditor::Inside::RowAt(int y) const
{
    const int64_t nBelow = int64_t{y} - Area().top;
    const int64_t nStep = nRowHeight > 0 ? nBelow / nRowHeight - (nBelow < 0 ? 1 : 0) : 0;
    return static_cast<UINT>(std::clamp<int64_t>(nTop + nStep, 0, int64_t{model.Rows().Count()} - 1));
}

UINT TextEditor::Inside::OffsetAt(POINT pt, bool* pfTrailing)
{
    const EditContext hdc(Window(), site.Font());
    NeedStyle(hdc);
    const UINT nRow = RowAt(pt.y);
    const int64_t x = int64_t{pt.x} - Area().left + xScroll - LeftOf(hdc, nRow);
    const CaretPlace place = Line(hdc, nRow).PlaceAt(Source(hdc, nRow), Saturated(x));
    *pfTrailing = place.fTrailing;
    return model.Rows().Start(nRow) + place.n;
}

} // namespace gesso
