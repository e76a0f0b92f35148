// Rows of paragraphs that are wrapped: one by one, each from where it begins, so that an edit costs the rows
// that it changes, and a long text is wrapped in slices. Deep in a long paragraph rows begin about where they
// will be, until the slices have come there.

#include <gesso/edit/TextEditorInside.h>

#include <algorithm>

namespace gesso {
namespace {

// After an edit, and up to the place that is to show, so many rows are wrapped at once; the rest by and by.
constexpr UINT ROWS_AT_ONCE = 256;
constexpr UINT SLICE_PERIOD = 10; // milliseconds
constexpr DWORD SLICE_TIME = 8;
constexpr UINT SLICE_ROWS = 2048;
constexpr UINT SLICE_STEP = 32;  // rows between two looks at the clock
constexpr UINT SAMPLE_ROWS = 16; // that tell how long rows are about

} // namespace

// Text whose rows may end elsewhere now, nBy characters of it or in front of it having come.
void TextEditor::Inside::NoteUnwrapped(const TextRange& range, int64_t nBy)
{
    if (!unwrapped) {
        unwrapped = range;
        return;
    }
    const auto moved = [&](UINT n) {
        return n <= range.nFrom ? n : static_cast<UINT>(std::max<int64_t>(int64_t{n} + nBy, range.nFrom));
    };
    unwrapped = {std::min(moved(unwrapped->nFrom), range.nFrom), std::max(moved(unwrapped->nTo), range.nTo)};
}

bool TextEditor::Inside::MayBeUnwrapped(UINT nRow) const
{
    const UINT nStart = model.Rows().Start(nRow);
    const UINT nEnd = model.Rows().Start(nRow + 1);
    return nWrapWidth > 0 &&
           (nEnd > nWrapped || (unwrapped && nStart <= unwrapped->nTo && nEnd >= unwrapped->nFrom));
}

// Brings a row's end to its place. What is left of the row is in the next one then, which is to be wrapped
// itself; the view stays at the text that it shows. False where the row has changed.
bool TextEditor::Inside::WrapRow(HDC hdc, UINT nRow)
{
    NeedStyle(hdc);
    const RowTable& rows = model.Rows();
    const UINT nEnd = rows.Start(nRow) + RowLength(Source(hdc, nRow), nWrapWidth, nAverage);
    // Behind the text's end there is no row, unless a line end is in front of it.
    const bool fLast = nEnd == model.Length() && (nEnd == 0 || model.Text().At(nEnd - 1) != L'\n');
    UINT nRows = 1;
    while (nRow + nRows < rows.Count() && (fLast || rows.Start(nRow + nRows) < nEnd)) {
        ++nRows;
    }
    const bool fEndsThere = rows.Start(nRow + nRows) == nEnd;
    const UINT starts[] = {rows.Start(nRow), nEnd};
    const UINT nNew = fEndsThere ? 1 : 2;
    if ((fEndsThere && nRows == 1) || !model.Wrap(nRow, nRows, starts, nNew)) {
        return true;
    }
    NoteRows(nRow, nRows, nNew);
    if (unwrapped && !fEndsThere) {
        unwrapped->nTo = std::max(unwrapped->nTo, nEnd);
    }
    return false;
}

void TextEditor::Inside::NoteRows(UINT nRow, UINT nRows, UINT nNew)
{
    fViewWrapped = fViewWrapped || (nRow >= nTop && nRow <= uint64_t{nTop} + RowsInView());
    FollowRows(nRow, nRows, nNew);
    fRowsChanged = true;
    FindTop();
}

// Whether text is more than is wrapped at once.
bool TextEditor::Inside::IsLong(UINT nCharacters) const
{
    return uint64_t{nCharacters} * static_cast<UINT>(nAverage) >
           uint64_t{ROWS_AT_ONCE} * static_cast<UINT>(nWrapWidth);
}

// How long rows are about, from a row's start on.
UINT TextEditor::Inside::LikelyRowLength(HDC hdc, UINT nRow)
{
    LineSource source = Source(hdc, nRow);
    const UINT nFrom = source.nStart;
    for (UINT i = 0; i < SAMPLE_ROWS; ++i) {
        source.nStart += RowLength(source, nWrapWidth, nAverage);
    }
    return std::max((source.nStart - nFrom) / SAMPLE_ROWS, 1U);
}

// Parts a long row that is still to be wrapped where its rows may begin. They are to be wrapped as before.
void TextEditor::Inside::EstimateRows(HDC hdc, UINT nRow)
{
    NeedStyle(hdc);
    const TextRange row = model.RowText(nRow);
    if (!IsLong(row.Length()) || !MayBeUnwrapped(nRow)) {
        return;
    }
    const LineSource source = Source(hdc, nRow);
    const UINT nPerRow = LikelyRowLength(hdc, nRow);
    std::vector<UINT> starts{row.nFrom};
    for (UINT n = nPerRow; n < row.Length(); n += nPerRow) {
        const UINT nStart = row.nFrom + LikelyRowStart(source, n, nPerRow / 2);
        if (nStart > starts.back()) {
            starts.push_back(nStart);
        }
    }
    const auto nNew = static_cast<UINT>(starts.size());
    if (!model.Wrap(nRow, 1, starts.data(), nNew)) {
        return;
    }
    NoteRows(nRow, 1, nNew);
    const UINT nEnd = model.Rows().Start(nRow + nNew);
    if (nEnd > nWrapped) {
        nWrapped = std::min(nWrapped, row.nFrom);
    } else {
        NoteUnwrapped({row.nFrom, nEnd}, 0);
    }
    SetTimer(Window(), EDIT_TIMER_WRAP, SLICE_PERIOD, nullptr);
}

// The row that a place is in, and those in front of it in its paragraph, unless these are too many.
void TextEditor::Inside::WrapAt(HDC hdc, UINT nOffset)
{
    NeedStyle(hdc);
    const UINT nFirst = model.Rows().RowOf(nOffset);
    if (nWrapWidth > 0 && IsLong(nOffset - model.Rows().Start(nFirst))) {
        EstimateRows(hdc, nFirst);
    }
    for (;;) {
        const UINT nRow = model.Rows().RowOf(nOffset);
        if (!MayBeUnwrapped(nRow) || WrapRow(hdc, nRow)) {
            return;
        }
    }
}

// What edits have left unwrapped, up to where rows end as before: what is in view at once, and more of it by
// and by.
void TextEditor::Inside::WrapChanged(HDC hdc)
{
    if (!unwrapped || nWrapWidth <= 0) {
        unwrapped.reset();
        return;
    }
    const DWORD dwStart = GetTickCount();
    UINT nRow = model.Rows().RowOf(unwrapped->nFrom);
    // A word that has become shorter may go back to the row in front.
    nRow -= nRow > 0 && !model.EndsParagraph(nRow - 1) ? 1 : 0;
    for (UINT i = 1; nRow < model.Rows().Count(); ++i) {
        const bool fSame = WrapRow(hdc, nRow++);
        const UINT nNext = model.Rows().Start(nRow);
        if (fSame && nNext > unwrapped->nTo) {
            break;
        }
        const bool fInView = nRow >= nTop && nRow <= uint64_t{nTop} + RowsInView();
        if (!fInView && (i >= ROWS_AT_ONCE || GetTickCount() - dwStart >= SLICE_TIME)) {
            unwrapped = {nNext, std::max(nNext, unwrapped->nTo)};
            SetTimer(Window(), EDIT_TIMER_WRAP, SLICE_PERIOD, nullptr);
            return;
        }
    }
    unwrapped.reset();
}

// What the caret or the view passes over counts by its rows. Upwards, of a long paragraph, by its last ones.
void TextEditor::Inside::WrapBetween(HDC hdc, UINT nOne, UINT nOther)
{
    const RowTable& rows = model.Rows();
    const UINT nEnd = rows.Start(nOne);
    const UINT nAbove = nOne - std::min(nOne, nOther);
    for (UINT nBack = 1; nWrapWidth > 0 && nBack <= nAbove; ++nBack) {
        EstimateRows(hdc, rows.RowOf(nEnd) - nBack);
    }
    const UINT nRowOne = nAbove > 0 ? rows.RowOf(nEnd) : nOne;
    const auto isBetween = [&](UINT nRow) {
        return nRow < rows.Count() && (nAbove > 0 ? rows.Start(nRow) < nEnd : nRow <= nOther);
    };
    for (UINT nRow = nRowOne - nAbove; isBetween(nRow); ++nRow) {
        if (MayBeUnwrapped(nRow)) {
            WrapRow(hdc, nRow);
        }
    }
}

// The row that is to be the first in view, where that is within a view's height above it: the rows between
// are wrapped before they are counted.
int64_t TextEditor::Inside::RowAbove(int64_t nRow)
{
    const int64_t nBy = int64_t{nTop} - std::max<int64_t>(nRow, 0);
    if (nWrapWidth <= 0 || nBy <= 0 || nBy > RowsInView()) {
        return nRow;
    }
    const EditContext hdc(Window(), site.Font());
    WrapBetween(hdc, nTop, static_cast<UINT>(nTop - nBy));
    return nTop - nBy;
}

void TextEditor::Inside::WrapInView(HDC hdc)
{
    for (UINT nRow = nTop; nRow < model.Rows().Count() && nRow <= nTop + RowsInView(); ++nRow) {
        if (MayBeUnwrapped(nRow)) {
            WrapRow(hdc, nRow);
        }
    }
}

// 0 where lines do not wrap. A field without room, minimized or not laid out yet, keeps what it has: to wrap
// at each character would take long, and nobody sees it.
int TextEditor::Inside::WidthToWrapAt() const
{
    const RECT rc = Area();
    return !Wraps() ? 0 : rc.right > rc.left ? rc.right - rc.left : nWrapWidth;
}

// After a change of width, font or style: what is in view at once, the rest by and by.
void TextEditor::Inside::WrapAgain()
{
    const int nWidth = WidthToWrapAt();
    ForgetLines();
    nWidest = 0;
    longest.Forget();
    if (nWrapWidth > 0 && !model.Unwrap()) {
        return;
    }
    nWrapWidth = nWidth;
    nWrapped = 0;
    unwrapped.reset();
    FindTop();
    if (nWrapWidth > 0 && Window()) {
        const EditContext hdc(Window(), site.Font());
        WrapAt(hdc, std::min(nTopStart, model.Length()));
        WrapSlice();
    }
}

void TextEditor::Inside::WrapSlice()
{
    const HWND hwnd = Window();
    const EditContext hdc(hwnd, site.Font());
    const DWORD dwStart = GetTickCount();
    WrapChanged(hdc);
    UINT nRow = model.Rows().RowOf(nWrapped);
    for (UINT nDone = 1; nRow < model.Rows().Count() && nWrapWidth > 0; ++nDone) {
        WrapRow(hdc, nRow++);
        if (nDone >= SLICE_ROWS || (nDone % SLICE_STEP == 0 && GetTickCount() - dwStart >= SLICE_TIME)) {
            break;
        }
    }
    nWrapped = model.Rows().Start(nRow);
    if (nWrapWidth > 0 && (nRow < model.Rows().Count() || unwrapped)) {
        SetTimer(hwnd, EDIT_TIMER_WRAP, SLICE_PERIOD, nullptr);
    } else {
        KillTimer(hwnd, EDIT_TIMER_WRAP);
    }
}

} // namespace gesso
