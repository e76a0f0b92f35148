// What a TextEditor keeps, and what its sources share. Each concern has a source of its own: TextEditorLayout
// (rows, scrolling, caret), ...Wrap, ...Draw, ...Compose (input methods), ...Edit (changes, clipboard, undo),
// ...Keys, ...Mouse, ...Drag, ...Menu and ...Messages (EM_).
#pragma once

#include <gesso/edit/Composition.h>
#include <gesso/edit/LineWrap.h>
#include <gesso/edit/LongestRow.h>
#include <gesso/edit/TextEditor.h>
#include <gesso/edit/TextInput.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>

#include <optional>
#include <vector>

namespace gesso {

// The context of the field's window with its font, and what lines are prepared from.
class EditContext
{
public:
    EditContext(HWND hwnd, HFONT hFont) : m_hdc(hwnd), m_font(m_hdc, hFont) {}
    operator HDC() const { return m_hdc; }

private:
    WindowContext m_hdc;
    SelectScope m_font;
};

struct TextEditor::Inside final : private CompositionTarget
{
    Inside(TextEditor& editor, EditorSite& owner) : site(owner), model(editor) {}

    static constexpr UINT NO_LIMIT = 0x7FFFFFFE; // as the platform tells it

    // What a drag with the pressed button selects by.
    enum class DragUnit
    {
        Characters,
        Words,
        Paragraphs
    };
    // What a press has begun.
    enum class Press
    {
        None,
        Selecting,
        OnSelection, // which a move drags away, and a release collapses
        Dragging
    };
    // What the view shows.
    struct ViewPlace
    {
        UINT nTop;
        UINT nTopStart;
        int x;
    };
    class PlacingScope;
    struct CachedLine
    {
        UINT nRow;
        PreparedLine line;
    };
    // The caret's row with what is composed in it, as it shows. For one context, and until the next change.
    struct ComposedRow
    {
        ComposedRow(Inside& own, HDC hdc);
        LineSource Source(Inside& own, HDC hdc) const;
        // Of a place in the composed text, in client coordinates.
        int XOf(Inside& own, HDC hdc, UINT nComposed);

        std::vector<wchar_t> characters;
        PreparedLine line;
        TextRange composed{0, 0}; // within the characters
        int xLeft = 0;            // of the line, in client coordinates
        int y = 0;
    };

    EditorSite& site;
    EditModel model;
    Composition composition{*this};

    // --- View
    std::vector<CachedLine> lines; // of the rows in view, in no order
    LineStyle style;
    std::vector<UINT> tabStops; // in dialog units; none for the first ones
    UINT nTop = 0;              // the first row in view
    UINT nTopStart = 0;         // text in it, by which it is found again where rows have changed
    int xScroll = 0;
    int nColumn = -1; // the x that Up and Down keep; -1 before the first of them
    bool fTrailing = false;
    int nWidest = 0;                      // the widest line so far, for the bar; 0 to be measured
    LongestRow longest;                   // of rows that are not wrapped
    int nWrapWidth = 0;                   // what rows are wrapped at; 0 where they are not
    UINT nWrapped = 0;                    // text up to here is wrapped
    std::optional<TextRange> unwrapped{}; // but what edits have changed here
    int nRowHeight = 0;
    int nAverage = 0;
    int nLeftMargin = 0;
    int nRightMargin = 0;
    int nWheelRests[2] = {};                // of turns across and down
    std::optional<TextRange> changedRows{}; // since the last ShowEdit; none for all of them
    bool fRowsChanged = false;
    bool fStyled = false; // the five above are of the present font
    bool fPlacing = false;
    bool fScrolling = false;   // the timer of a drag beyond the edge runs
    bool fDragInside = false;  // what is dragged was away from the edges once
    bool fViewWrapped = false; // rows in view have been wrapped anew
    bool fCaret = false;       // the platform's caret is this window's

    // --- Input
    Press press = Press::None;
    DragUnit unit = DragUnit::Characters;
    TextRange pressed{0, 0}; // what the press selected, from which a drag goes on
    POINT ptPressed{};
    LONG nClickTime = 0; // of the double click, which a third one may follow
    bool fDoubleClicked = false;
    WPARAM wAsked = 0; // the key that a dialog manager has asked for last, before it comes
    bool fKeyOfDialog = false;
    wchar_t chRefused = 0;        // the first half of a character for which there was no room
    std::optional<UINT> dropAt{}; // where what is dragged would go
    UINT nLimit = NO_LIMIT;
    std::vector<wchar_t> cue{};
    bool fCueWithFocus = false;
    wchar_t chPassword = 0;

    // --- The window
    HWND Window() const;
    DWORD Style() const { return site.EditStyle(); }
    bool IsMultiLine() const { return Style() & ES_MULTILINE; }
    bool IsReadOnly() const { return Style() & ES_READONLY; }
    bool IsEnabled() const { return !(Style() & WS_DISABLED); }
    bool HasFocus() const;
    wchar_t Mask() const;

    // --- Layout
    RECT Area() const; // the room for text, without the margins
    bool Wraps() const;
    void NeedStyle(HDC hdc);
    UINT RowsInView() const;
    LineSource Source(HDC hdc, UINT nRow);
    PreparedLine& Line(HDC hdc, UINT nRow);
    CachedLine* FindLine(UINT nRow);
    void ForgetLines();
    void FollowRows(UINT nRow, UINT nRows, UINT nNew);
    void FollowChange(const TextChange& change);
    void NoteUnwrapped(const TextRange& range, int64_t nBy);
    void WrapChanged(HDC hdc);
    bool MayBeUnwrapped(UINT nRow) const;
    bool WrapRow(HDC hdc, UINT nRow);
    void NoteRows(UINT nRow, UINT nRows, UINT nNew);
    bool IsLong(UINT nCharacters) const;
    UINT LikelyRowLength(HDC hdc, UINT nRow);
    void EstimateRows(HDC hdc, UINT nRow);
    void WrapAt(HDC hdc, UINT nOffset);
    void WrapBetween(HDC hdc, UINT nOne, UINT nOther);
    int64_t RowAbove(int64_t nRow);
    void WrapInView(HDC hdc);
    int WidthToWrapAt() const;
    void WrapAgain();
    void WrapSlice();
    UINT WordEnd(UINT n) const;
    UINT WordStart(UINT n) const;
    void MeasureWidest(HDC hdc);
    int WidthOf(HDC hdc, UINT nRow);
    void MeasureView(HDC hdc);
    int LeftOf(HDC hdc, UINT nRow);
    int LeftOf(int nWidth) const;
    UINT LastTop() const;
    int LastX();
    void FindTop();
    int RoomBehindEnd(HDC hdc);
    bool FollowCaret();
    void Relayout();
    bool ScrollTo(int64_t nRow, int64_t x);
    void PlaceBars();
    void Arrange();
    CaretPlace CaretInRow(UINT nRow) const;
    UINT CaretRow() const;
    POINT CaretPoint(HDC hdc);
    bool IsCaretInView() const;
    void BringCaretIntoView();
    void UpdateCaret();
    void ShowChange();
    void Repaint() const;
    void RepaintRows(UINT nFirst, UINT nBehind) const;
    ViewPlace Place() const { return {nTop, nTopStart, xScroll}; }
    void ShowMove();
    void ShowSelection(UINT nFormerCaret);
    void ShowEdit();
    void Rearrange();
    // The offset at a point; beyond the text the nearest one.
    UINT OffsetAt(POINT pt, bool* pfTrailing);
    UINT RowAt(int y) const;

    // --- Selection
    void MoveTo(UINT n, bool fTrailing, bool fExtend);
    void Select(UINT nAnchor, UINT nCaret);
    void SelectAll();

    // --- Changes
    bool MayChange() const { return !IsReadOnly(); }
    enum class Origin
    {
        User,   // is told, and painted at once
        Program // is told
    };
    bool Replace(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, Origin origin,
                 bool fCanUndo = true);
    bool Insert(LPCWSTR psz, UINT n, EditKind kind, Origin origin, bool fCanUndo = true);
    bool InsertAt(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, Origin origin,
                  bool fCanUndo = true);
    UINT RoomFor(const TextRange& range) const;
    UINT CountThatFits(const TextRange& range, const std::vector<wchar_t>& text);
    UINT RowsWith(const TextRange& range, const wchar_t* psz, UINT n, UINT nMost);
    void Changed(Origin origin, const ViewPlace& former);
    bool TakeBack(bool (EditModel::*pfnStep)());
    bool HasRoomForPair(wchar_t chHigh);
    void Type(wchar_t ch);
    void TypeBreak();
    void Erase(const TextRange& range);
    void Backspace(bool fWord);
    void Delete(bool fWord);
    bool Copy() const;
    void Cut();
    void Paste();
    LRESULT Tell(UINT uCode) { return site.Tell(uCode); }

    // --- Input
    bool OnKey(UINT uKey);
    // To the control's own window, where a host's subclass may see to it. The control may be gone afterwards.
    void SendOwn(UINT uMsg) const { SendMessageW(Window(), uMsg, 0, 0); }
    bool OnEditKey(UINT uKey, bool fControl, bool fShift);
    bool OnControlKey(UINT uKey, bool fShift);
    bool IsOfDialog(wchar_t ch) const;
    bool OnChar(wchar_t ch, LRESULT* plAnswer);
    bool MoveByKey(UINT uKey, bool fControl, bool fExtend);
    void MoveAcross(bool fRight, bool fWord, bool fExtend);
    void MoveByRows(int64_t nRows, bool fExtend);
    void MoveToEnd(bool fRight);
    void NeedCaretRow();
    void MovePage(bool fDown, bool fExtend);
    void ScrollByKey(int nRows);
    void TellScrolled(const ViewPlace& former);
    bool WantsKey(WPARAM wKey) const;
    LRESULT DialogCode(const MSG* pMsg);

    void OnButtonDown(WPARAM wKeys, POINT pt);
    void OnDoubleClick(POINT pt);
    bool CharAt(POINT pt, UINT* pnChar);
    TextRange ParagraphAt(UINT n) const;
    TextRange UnitAt(UINT n) const;
    void SelectUnit(DragUnit unitPressed, UINT n);
    void OnButtonUp(POINT pt);
    void OnMove(POINT pt);
    void DragSelection(POINT pt);
    UINT UnitOffset(POINT pt);
    void ExtendTo(POINT pt);
    void WrapByTimer();
    bool OnTimer(UINT_PTR uId);
    void KeepScrolling(bool fScrolls);
    RECT ScrollingEdge(bool fDragging) const;
    void ScrollOn();
    void ScrollToward(POINT ptScreen, bool fDragging);
    void OnCaptureLost(HWND hwndNew);
    bool ScrollByUser(int64_t nRow, int64_t x);
    bool OnWheel(int nDelta, bool fAcross);
    void OnScroll(int nBar, UINT uCode, UINT nThumb);
    bool SetsCursor(UINT uHit);

    void StartDrag();
    static Inside* DropTarget(POINT ptScreen);
    void MoveDrag(POINT pt);
    bool IsDragAtEdge(POINT pt);
    void Drop(POINT pt);
    void EndDrag();
    void ShowDropAt(std::optional<UINT> at);
    bool IsSelected(const TextRange& range, const std::vector<wchar_t>& text) const;
    void DropWithin(const TextRange& range, UINT at, const std::vector<wchar_t>& text, bool fCopies);
    bool TakeDrop(UINT at, const std::vector<wchar_t>& text);

    bool OnContextMenu(LPARAM lParam);
    bool CanRun(UINT uCommand) const;
    UINT RunMenu(POINT ptScreen, bool fByKey) const;
    void RunMenuCommand(UINT uCommand);

    // --- Messages
    bool OnEditMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    LRESULT GetSel(DWORD* pdwStart, DWORD* pdwEnd) const;
    void SetSel(int nStart, int nEnd);
    void SelectionSet();
    void ReplaceByMessage(LPCWSTR psz, bool fCanUndo);
    LRESULT GetLine(UINT nLine, LPWSTR pszTo) const;
    LRESULT LineFromChar(WPARAM wChar) const;
    LRESULT LineIndex(WPARAM wLine) const;
    LRESULT LineLength(WPARAM wChar) const;
    LRESULT CharFromPos(POINTS pt);
    LRESULT PosFromChar(UINT n);
    LRESULT FirstVisibleChar();
    LRESULT LineScroll(int nCharacters, int nLines);
    LRESULT ScrollByCode(UINT uCode);
    LRESULT Undo();
    LRESULT ChangeStyle(DWORD dwBit, bool fOn);
    void SetMargins(WPARAM wWhich, UINT nLeft, UINT nRight);
    void SetPasswordChar(wchar_t ch);
    LRESULT SetTabStops(UINT n, const UINT* pnUnits);
    LRESULT SetCueBanner(LPCWSTR psz, bool fWithFocus);
    LRESULT GetCueBanner(LPWSTR pszTo, UINT nCapacity) const;
    bool OnInput(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnClipboardMessage(UINT uMsg, LRESULT* plAnswer);
    void OnFocus(bool fGained);
    bool EndInput();

    // --- Input methods
    const GWnd& ComposedWindow() const override { return site.Window(); }
    HFONT ComposedFont() const override { return site.Font(); }
    bool MayCompose() const override { return !IsReadOnly() && !IsSecret(); }
    bool IsSecret() const override { return Mask() != 0; }
    void ShowComposition() override;
    RECT ComposedRect() override;
    bool Accept(LPCWSTR psz, UINT n) override;
    void HoldStep(bool fHold) override;
    void AcceptCharacter(wchar_t ch) override;
    std::optional<TextRange> Reconvertible() const override;
    void Reconvert(const TextRange& range, wchar_t* pszTo) override;

    // --- Drawing
    static void Fill(HDC hdc, const RECT& rc, COLORREF cr);
    void DrawComposedRow(HDC hdc, const RECT& rcArea);
    void DrawRows(HDC hdc, const RECT& rcShown);
    void DrawRow(HDC hdc, UINT nRow, int y, const RECT& rcArea);
    bool ShowsSelection() const;
    bool ShowsCue() const;
    void DrawCue(HDC hdc);
    void DrawDropMark(HDC hdc);
};

// The timers of a field's window.
constexpr UINT_PTR EDIT_TIMER_SCROLL = 0x6501; // a drag beyond the edge
constexpr UINT_PTR EDIT_TIMER_WRAP = 0x6502;   // the rest of a long text

} // namespace gesso
