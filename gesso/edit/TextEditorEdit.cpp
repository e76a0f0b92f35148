// Changes of a field's text: what is typed, removed, pasted and taken back, and who is told.

#include <gesso/edit/ClipboardText.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/TextEditorInside.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <new>

namespace gesso {
namespace {

constexpr wchar_t LINE_END[] = {CHAR_RETURN, CHAR_LINE_FEED};

} // namespace

// --- The one road of changes

bool TextEditor::Inside::Replace(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, Origin origin,
                                 bool fCanUndo)
{
    if (range.Length() == 0 && n == 0) {
        return true;
    }
    const ViewPlace former = Place();
    if (!site.HasRoomFor(model.Length() - range.Length() + n) ||
        !model.Replace(range, psz, n, kind, GetTickCount(), fCanUndo))
    {
        return false;
    }
    fTrailing = n > 0 && kind != EditKind::Dropping;
    model.SetModified(true);
    Changed(origin, former);
    return true;
}

// The parent may do anything in either, destroying the control included. What the user has changed shows
// between the two.
void TextEditor::Inside::Changed(Origin origin, const ViewPlace& former)
{
    const Watch watch(site.Window());
    nColumn = -1;
    try {
        ShowEdit();
    } catch (const std::bad_alloc&) {
        ForgetLines(); // what has changed is told all the same
        Repaint();
    }
    if (!watch) {
        return;
    }
    Tell(EN_UPDATE);
    if (watch && origin == Origin::User) {
        UpdateWindow(Window());
    }
    if (watch) {
        Tell(EN_CHANGE);
    }
    if (watch && origin == Origin::User) {
        TellScrolled(former);
    }
}

// How many characters may come in the place of a range.
UINT TextEditor::Inside::RoomFor(const TextRange& range) const
{
    const UINT nKept = model.Length() - range.Length();
    const UINT nMost = std::min(nLimit, TextBuffer::MOST);
    return nMost > nKept ? nMost - nKept : 0;
}

// A field of one line that does not scroll takes what fits in it, and so does one of many.
UINT TextEditor::Inside::CountThatFits(const TextRange& range, const std::vector<wchar_t>& text)
{
    const auto nAll = static_cast<UINT>(text.size());
    const bool fScrolls =
        IsMultiLine() ? (Style() & (ES_AUTOVSCROLL | WS_VSCROLL)) : (Style() & ES_AUTOHSCROLL);
    if (fScrolls || !Window()) {
        return nAll;
    }
    const EditContext hdc(Window(), site.Font());
    NeedStyle(hdc);
    const RECT rc = Area();
    const auto fits = [&](UINT n) {
        if (IsMultiLine()) {
            const UINT nMost = std::max(RowsInView(), model.Rows().Count());
            return RowsWith(range, text.data(), n, nMost) <= nMost;
        }
        std::vector<wchar_t> line(model.Length() - range.Length() + n);
        model.Text().Copy({0, range.nFrom}, line.data());
        std::copy_n(text.data(), n, line.data() + range.nFrom);
        model.Text().Copy({range.nTo, model.Length()}, line.data() + range.nFrom + n);
        PreparedLine prepared;
        const LineSource source{hdc, {line.data(), static_cast<UINT>(line.size())}, 0, style};
        prepared.Prepare(source, static_cast<UINT>(line.size()));
        return prepared.Width() < rc.right - rc.left || n <= range.Length();
    };
    constexpr UINT FIRST_TRY = 64;
    UINT nFit = 0;
    UINT nEnd = std::min(nAll, FIRST_TRY);
    while (fits(nEnd)) {
        if (nEnd == nAll) {
            return nAll;
        }
        nFit = nEnd;
        nEnd = static_cast<UINT>(std::min<uint64_t>(nAll, 2 * uint64_t{nEnd}));
    }
    while (nEnd - nFit > 1) {
        const UINT nMiddle = nFit + (nEnd - nFit) / 2;
        (fits(nMiddle) ? nFit : nEnd) = nMiddle;
    }
    return SnapToCluster({text.data(), nAll}, nFit);
}

// How many rows the text would have, as far as they are no more than nMost.
UINT TextEditor::Inside::RowsWith(const TextRange& range, const wchar_t* psz, UINT n, UINT nMost)
{
    const RowTable& rows = model.Rows();
    const UINT nFirst = model.ParagraphRows(rows.RowOf(range.nFrom)).nFrom;
    const UINT nBehind = model.ParagraphRows(rows.RowOf(range.nTo)).nTo;
    const UINT nStart = rows.Start(nFirst);
    const UINT nEnd = model.RowText(nBehind - 1).nTo;
    std::vector<wchar_t> text(nEnd - nStart - range.Length() + n);
    model.Text().Copy({nStart, range.nFrom}, text.data());
    std::copy_n(psz, n, text.data() + (range.nFrom - nStart));
    model.Text().Copy({range.nTo, nEnd}, text.data() + (range.nFrom - nStart) + n);
    const EditContext hdc(Window(), site.Font());
    const SplitText whole(text.data(), static_cast<UINT>(text.size()));
    const UINT nOthers = rows.Count() - (nBehind - nFirst);
    if (nWrapWidth <= 0) {
        return nOthers + 1 + static_cast<UINT>(std::count(text.begin(), text.end(), L'\n'));
    }
    UINT nRows = text.empty() || text.back() == L'\n' ? 1 : 0;
    for (UINT nFrom = 0; nFrom < whole.Length() && nOthers + nRows <= nMost; ++nRows) {
        nFrom += RowLength({hdc, whole, nFrom, style}, nWrapWidth, nAverage);
    }
    return nOthers + nRows;
}

// What comes in takes the selection's place.
bool TextEditor::Inside::Insert(LPCWSTR psz, UINT n, EditKind kind, Origin origin, bool fCanUndo)
{
    return InsertAt(model.Selection(), psz, n, kind, origin, fCanUndo);
}

// As far as it is allowed and there is room. False unless all of it has come in.
bool TextEditor::Inside::InsertAt(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, Origin origin,
                                  bool fCanUndo)
{
    const Watch watch(site.Window());
    // What a program puts in need not be a number.
    const bool fNumber = (Style() & ES_NUMBER) && origin == Origin::User;
    const InputRules rules{!IsMultiLine(), fNumber, (Style() & ES_UPPERCASE) != 0,
                           (Style() & ES_LOWERCASE) != 0};
    bool fCut = false;
    std::vector<wchar_t> text = PrepareInput(psz, n, rules, RoomFor(range), &fCut);
    const bool fFiltered = fNumber && text.size() < n;
    const UINT nFit = CountThatFits(range, text);
    fCut = fCut || nFit < text.size();
    const bool fChanges = nFit > 0 || range.Length() > 0;
    // What has no room, or is filtered out, leaves the selection.
    const bool fRefused = n > 0 && nFit == 0;
    bool fDone = true;
    if (fChanges && !fRefused) {
        fDone = Replace(range, text.data(), nFit, kind, origin, fCanUndo);
    } else if (!fCanUndo) {
        model.EmptyUndo();
    }
    if (watch && fCut) {
        Tell(EN_MAXTEXT);
    }
    return fDone && !fCut && !fRefused && !fFiltered;
}

bool TextEditor::Inside::TakeBack(bool (EditModel::*pfnStep)())
{
    const auto pfnBack = pfnStep == &EditModel::Undo ? &EditModel::Redo : &EditModel::Undo;
    const bool fMarked = model.HasSelection() || composition.IsActive();
    const UINT nAnchor = model.Anchor();
    const UINT nCaret = model.Caret();
    const bool fModified = model.IsModified();
    const ViewPlace former = Place();
    if (!MayChange() || !(model.*pfnStep)()) {
        return false;
    }
    if (!site.HasRoomFor(model.Length())) {
        static_cast<void>((model.*pfnBack)());
        model.Select(nAnchor, nCaret);
        model.SetModified(fModified);
        return false;
    }
    fRowsChanged = fRowsChanged || fMarked || model.HasSelection();
    fTrailing = false;
    model.SetModified(true);
    Changed(Origin::User, former);
    return true;
}

// --- Keys

bool TextEditor::Inside::HasRoomForPair(wchar_t chHigh)
{
    constexpr wchar_t ANY_LOW = 0xDC00;
    const TextRange range = model.Selection();
    return RoomFor(range) >= 2 && CountThatFits(range, {chHigh, ANY_LOW}) == 2;
}

// The halves of a character come one after the other: the second one shares the first one's fate.
void TextEditor::Inside::Type(wchar_t ch)
{
    if (!MayChange()) {
        return;
    }
    const wchar_t chFormer = std::exchange(chRefused, L'\0');
    if (IS_LOW_SURROGATE(ch) && chFormer) {
        return;
    }
    if (IS_HIGH_SURROGATE(ch) && !HasRoomForPair(ch)) {
        chRefused = ch;
        Tell(EN_MAXTEXT);
        return;
    }
    Insert(&ch, 1, EditKind::Typing, Origin::User);
}

void TextEditor::Inside::TypeBreak()
{
    if (MayChange()) {
        Insert(LINE_END, static_cast<UINT>(std::size(LINE_END)), EditKind::Typing, Origin::User);
    }
}

void TextEditor::Inside::Erase(const TextRange& range)
{
    if (MayChange() && range.Length() > 0) {
        Replace(range, L"", 0, model.HasSelection() ? EditKind::Step : EditKind::Erasing, Origin::User);
    }
}

// A character of several code points is built, and taken apart, one by one.
void TextEditor::Inside::Backspace(bool fWord)
{
    if (model.HasSelection()) {
        Erase(model.Selection());
        return;
    }
    const UINT n = model.Caret();
    Erase({fWord ? WordStart(n) : CodePointStart(model.Text(), n), n});
}

void TextEditor::Inside::Delete(bool fWord)
{
    if (model.HasSelection()) {
        Erase(model.Selection());
        return;
    }
    const UINT n = model.Caret();
    Erase({n, fWord ? WordEnd(n) : ClusterEnd(model.Text(), n)});
}

// --- Clipboard. It tells the window whose content it had, and in that the program may change the field or
// destroy the control.

// False where nothing was copied, what was is selected no more, or the control is gone. What is masked is not
// given away.
bool TextEditor::Inside::Copy() const
{
    const TextRange range = model.Selection();
    if (range.Length() == 0 || Mask()) {
        return false;
    }
    std::vector<wchar_t> text(range.Length());
    model.Text().Copy(range, text.data());
    return PutClipboardText(site.Window(), text.data(), range.Length()) && IsSelected(range, text);
}

void TextEditor::Inside::Cut()
{
    if (MayChange() && Copy()) {
        Replace(model.Selection(), L"", 0, EditKind::Step, Origin::User);
    }
}

void TextEditor::Inside::Paste()
{
    OStringEx<wchar_t> strText;
    if (MayChange() && GetClipboardText(site.Window(), &strText) && MayChange()) {
        Insert(strText, strText.GetLength(), EditKind::Step, Origin::User);
    }
}

} // namespace gesso
