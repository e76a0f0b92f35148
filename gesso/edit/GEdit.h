// GEdit: a text box of one line or many, drawn through the visual style's "EDIT" class.
//
// In Classic it shows what fits and nothing more. Made in Modern it is a text field that a person can write
// in: it scrolls, with bars of its own, wraps unless ES_AUTOHSCROLL or WS_HSCROLL says not, takes edits back,
// and has the platform's styles, messages (EM_, WM_CUT and its like, WM_UNDO) and notifications: EN_UPDATE,
// EN_CHANGE, EN_MAXTEXT, EN_SETFOCUS, EN_KILLFOCUS, EN_HSCROLL, EN_VSCROLL, and EN_CONTEXTMENU below.
// docs/edit.md tells the two apart. What follows is Classic where it does not say otherwise.
//
// A host makes a GEdit and calls Create with WS_CHILD | WS_VISIBLE | WS_TABSTOP, the platform's ES_ bits and
// WS_BORDER; or names the class "GEdit" in a dialog template, with the text in the control's creation data.
// Of the ES_ bits ES_MULTILINE, ES_PASSWORD, ES_AUTOVSCROLL, ES_AUTOHSCROLL and ES_WANTRETURN count;
// ES_READONLY, ES_NUMBER, a text limit and undo are Modern's.
//
// The text is one string; a line end in it is CR LF. Lines wrap at the width of the client area, whatever the
// style, as soon as the text is set or edited; with WS_POPUP they stay as they are. An edit field that is not
// to wrap needs neither style nor room: with neither ES_MULTILINE nor ES_AUTOHSCROLL a typed character that
// would not fit is refused. Positions are a line and a character in it, or an offset in the text, in
// characters of 16 bits.
//
// Where there is no memory for what a key or the clipboard would put in, nothing is done and nothing sent.
// Lines that there is no memory for stay part of those that they are in until the next edit.
//
// Sends to its parent: WM_COMMAND with the id and EN_CHANGE for each edit by the keyboard, a refused one too;
// WM_NOTIFY with NM_SETFOCUS and NM_KILLFOCUS; WM_NEXTDLGCTL for a Tab that reaches it. Answers WM_GETTEXT,
// WM_SETTEXT, WM_GETTEXTLENGTH, WM_GETFONT, WM_SETFONT, WM_GETDLGCODE, WM_PRINTCLIENT and EM_SETSEL.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>
#include <gesso/framework/GWndScroll.h>

namespace gesso {
class LabelEdit;
class TextField;
} // namespace gesso

// Notification of an edit field made in Modern, by WM_COMMAND: its context menu is about to open. An answer
// other than 0 keeps it closed.
constexpr UINT EN_CONTEXTMENU = 0x0900;

// Flags of GEdit::Find.
constexpr UINT GEF_CASE = 0x1; // upper and lower case differ
constexpr UINT GEF_WORD = 0x2; // whole words alone
constexpr UINT GEF_UP = 0x4;   // towards the start

class GESSO_API GEdit : public GWndScroll
{
public:
    // A point in client coordinates and the line and character that are there.
    struct HitTestInfo
    {
        POINTS pt;
        UINT nLine;
        UINT nChar;
    };

    GEdit();
    // A copy shares window, theme and font, and has a text and a caret of its own. Without memory for the
    // text both are those of a new control, and stay as they are in an assignment.
    GEdit(const GEdit& other);
    GEdit& operator=(const GEdit& other);
    ~GEdit() override;

    // Makes the window; position and size in pixels in the parent's client area. The text is copied and shown
    // as one line until it is set or edited; a null one counts as empty. Note the order of the styles.
    // Returns the window, or null where it could not be made or there is no memory for the text.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                        DWORD dwStyle, DWORD dwExStyle);
    // The font stays the host's, and must live as long as the control uses it. Neither repaints nor wraps
    // anew in Classic; in Modern both. Null: the font that the drawing context happens to have.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // Replaces the text (null counts as empty), with the caret at its end, in Modern at its start. CR, LF and
    // CR LF each are one line end, and are stored as CR LF. Wraps and repaints; sends nothing. Returns 1, or
    // 0 with nothing done where there is no memory for the text.
    virtual int SetText(LPCWSTR pszText);
    // In characters, without the terminator; a line end counts as two.
    virtual int GetTextLength() const;
    // *pnLength is the buffer's capacity in characters. With room for the text and its terminator, copies it,
    // sets *pnLength to the length and returns 1; otherwise writes no text, sets *pnLength to the capacity
    // needed and returns 0.
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;
    // Selects from nStart to nEnd, where the caret goes; a negative number is the end. Repaints. In Modern
    // both are offsets in the text; in Classic they are offsets in a text of one line. Fixed behaviour: with
    // several lines, one that is at or beyond the length of the first line is that line's end, and any
    // smaller one ends up at the start of the last line; a host that selects by such numbers would select
    // something else.
    virtual void SetSel(int nStart, int nEnd);

    // The selection's ends as offsets in the text, the lower one first; both are the caret's where nothing is
    // selected. A null pointer is left out.
    void GetSel(int* pnStart, int* pnEnd) const;
    // Puts a text (null counts as empty) in the place of the selection, with the caret behind it, wraps and
    // repaints. A line end is as in SetText. Sends nothing in Classic; in Modern EN_UPDATE and EN_CHANGE
    // where the text changed, as EM_REPLACESEL does, whose limit of the length holds here too. Without
    // bCanUndo, of Modern, there is nothing to take back afterwards, of former edits neither. Without memory
    // for the text nothing is done.
    void ReplaceSel(LPCWSTR pszText, bool bCanUndo);
    // Whether the user, ReplaceSel or a step taken back has changed the text since it was set, or SetModified
    // has said so.
    bool IsModified() const;
    void SetModified(bool bModified);
    // Does again what was taken back last (by EM_UNDO or a key). False where there is nothing, and in
    // Classic.
    bool Redo();
    bool CanRedo() const;
    // Finds a text from the offset nFrom on, without turning around at the end; with GEF_UP the last place
    // that ends at nFrom or before it. Returns the offset of its first character, or -1 where it is not
    // found, null or empty. nFrom below 0 counts as 0, and beyond the text as its end. Selects nothing.
    int Find(LPCWSTR pszText, int nFrom, UINT uFlags) const;

    // DestroyWindow. Returns 0 without a window.
    int Destroy();
    // Takes the text from a dialog template's creation data; null gives the empty text. Without memory for it
    // the text stays as it is.
    void Init(void* pCreateData);
    // Draws the client area at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;
    static HCURSOR s_hIbeam;

protected:
    // --- The text and its lines, of Classic: in Modern they are one empty line. nOffset is where line nLine
    // begins in the text.

    // Characters of the line, with its line end if it has one.
    UINT LengthOfLine(UINT nLine, UINT nOffset) const;
    UINT OffsetOfLine(UINT nLine) const;
    // The selected stretch of a line; both 0 for a line outside of the selection.
    void CalcHighliteOfLine(int& nFrom, int& nTo, UINT nLine) const;
    void DeleteSelection();
    // Puts a line end at the caret, whose line begins at nOffset; the caret goes behind it. nLine is not
    // read. Does nothing without memory.
    void InsertBreak(UINT nLine, UINT nOffset);
    // Joins the caret's line with the one before, where the caret goes, and takes the two characters in front
    // of nOffset out of the text. nLine is not read.
    void DeleteBreak(UINT nLine, UINT nOffset);
    // Whether the line is narrower than the client area, and all lines together are lower.
    int DoesFitLine(UINT nLine) const;
    int DoesFitHeight() const;
    // By how many characters the line is to shrink, to the end of the word before, or to grow, by the next
    // word with its space. A word that is a line of its own shrinks by one character.
    int LeftWordBreak(UINT nLine, UINT nOffset) const;
    int RightWordBreak(UINT nLine, UINT nOffset) const;
    // Makes the line as long as fits, at the cost or to the gain of the following one. Returns 0 if it was
    // exactly as wide as the client area, and 1 if it had room or was changed.
    int RecalculateLine(UINT nLine);

    // --- Messages

    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnNcDestroy();
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetText(LPCWSTR pszText);
    LRESULT OnGetText(UINT nCapacity, LPWSTR pszBuffer) const;
    LRESULT OnGetTextLength() const;
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnStyleChanged();
    LRESULT OnThemeChanged();
    LRESULT OnSetCursor() const;
    LRESULT OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams);
    LRESULT OnNcHitTest(POINTS ptScreen) const;
    LRESULT OnNcPaint(WPARAM wRegion);
    LRESULT OnPrintClient(HDC hdc, LPARAM lParam);
    LRESULT OnGetDlgCode(const MSG* pMsg) const;
    LRESULT OnSetSel(int nStart, int nEnd);
    LRESULT OnKeyDown(UINT uKey, UINT nRepeat, UINT uFlags);
    LRESULT OnChar(UINT uChar, UINT nRepeat, UINT uFlags);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonDblClk(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);

    // Draws the frame and the scroll bars over rc, in window coordinates.
    void NcDraw(HDC hdc, RECT rc);
    // Writes the line and the character in front of the one at pInfo->pt.
    void HitTest(HitTestInfo* pInfo) const;
    // Moves the platform's caret to the own one, scrolling sideways to it.
    void UpdateCursorPos();

    gesso::ThemeHandle m_hTheme;
    HFONT m_hFont = nullptr;
    int m_nMargin = 0;
    OStringEx<wchar_t> m_strText;
    // The length of each line without its line end; one that no line end follows is wrapped, or the last.
    OArray<UINT, UINT const&> m_aLines;
    HitTestInfo m_hitDown{};
    HitTestInfo m_hitMove{};
    UINT m_nCaretLine = 0;
    UINT m_nCaretChar = 0;
    UINT m_nAnchorLine = 0;
    UINT m_nAnchorChar = 0;

private:
    friend class gesso::Frame;
    friend class gesso::LabelEdit;
    class ClientMeasure;
    struct Inside; // what the library keeps for itself
    struct Layout;
    struct Modern;

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    Modern* AsModern() const;
    bool AnswersContextMenu(LPARAM lParam);
    bool BeModern(DWORD dwStyle);
    void LeaveModern();
    LRESULT OnClassicMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);

    // Text. All that changes it and caret and anchor goes through the two that say so.
    gesso::TextField Field() const;
    template <class EDIT> bool ChangeText(EDIT edit);
    void ChangeSelection(const gesso::TextField& field);
    bool StartText(LPCWSTR pszText);
    bool CopyTextOf(const GEdit& other);
    void Show(const gesso::TextField& field);
    void ShowChange();

    // Wrapping
    bool IsMasked() const;
    bool KeepsLines() const;
    void Repair(gesso::TextField& field) const;
    void WrapAll(gesso::TextField& field) const;

    // View
    bool HasBorder() const;
    int FrameState() const;
    RECT TextRect() const;
    void DrawLines(HDC hdc, const RECT& rcClient) const;
    int PosThatShows(LONGLONG x, const RECT& rcText) const;

    // Input
    void Moved(gesso::TextField& field);
    template <class EDIT> LRESULT Edit(EDIT edit);
    void ClickAt(POINTS pt, HitTestInfo* pInfo, bool fExtend);
    bool MoveByKey(UINT uKey, gesso::TextField& field) const;
    void MoveUp(gesso::TextField& field) const;
    void MoveDown(gesso::TextField& field) const;
    void MoveToRow(LONGLONG x, LONGLONG y, gesso::TextField& field) const;
    void SelectAll();
    LRESULT OnControlKey(UINT uKey);
    LRESULT OnDelete();
    LRESULT OnBackspace();
    LRESULT OnEnter();
    LRESULT OnTyped(wchar_t ch);
    void InsertIfRoom(gesso::TextField& field, wchar_t ch);
    bool WrapsWhenTyped() const;
    bool HasRoomForTyped(gesso::TextField& field) const;

    // Made when it is first asked for. A copy has one of its own.
    //
    // Fixed behaviour: the pointer counts only with the mark of this object behind it. Programs that were
    // built when plain values stood here copy them by code of their own, and such a copy has the pointer of
    // the other, in part; it would write into what is another's, and release it.
    Inside& Own() const;
    bool HasOwn() const;
    mutable Inside* m_inside = nullptr;
    mutable UINT m_nInsideMark = 0;
};
