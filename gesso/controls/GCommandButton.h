// GCommandButton: a command link, that is a button with a glyph, a title and, if wanted, a note below the
// title, drawn through the visual style's "BUTTON" class. An icon, a bitmap or the system's shield may take
// the glyph's place.
//
// A host makes a GCommandButton (or gets one from CreateControl(GCK_COMMANDBUTTON)) and calls Create with
// WS_CHILD | WS_VISIBLE | WS_TABSTOP and style bits of GS_ICON, GS_BITMAP, GS_MULTILINE, GBS_DEFAULT and
// GCBS_SHIELD; or names the class "GCommandButton" in a dialog template, with two terminated texts in the
// control's creation data, the title and, directly behind it, the note.
//
// Sends to its parent: WM_COMMAND with the id and BN_CLICKED for each click; WM_NOTIFY with NM_SETFOCUS and
// NM_KILLFOCUS. Answers WM_GETTEXT, WM_SETTEXT and WM_GETTEXTLENGTH (for the title), WM_GETFONT, WM_SETFONT,
// WM_GETDLGCODE, BM_SETSTYLE (of which only BS_DEFPUSHBUTTON counts) and WM_PRINTCLIENT.
//
// The control makes its two fonts from the visual style when its window comes to life and when the style
// changes. Whatever fonts it holds when the window goes or the style changes it deletes, also those that the
// host gave it.
#pragma once

#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeFont.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {
class ButtonMessages;
class ThemePart;
} // namespace gesso

constexpr DWORD GCBS_SHIELD = 0x0200; // the system's shield at the glyph's place

class GESSO_API GCommandButton : public GWnd
{
public:
    GCommandButton() = default;

    // As GButton has it, with a note behind the title; null for none.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                        LPCWSTR pszNote, DWORD dwExStyle, DWORD dwStyle);
    // These are as GButton has them.
    virtual int Destroy();
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The title's font, handed over to the control. The former one is left to a host that gave it or got it
    // by GetFont, and deleted where nobody did. No repaint.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // The title; these are as GButton has them.
    virtual int SetText(LPCWSTR pszText);
    virtual int GetTextLength() const;
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;
    virtual HICON SetIcon(HICON hIcon);
    virtual HICON GetIcon() const;
    virtual HBITMAP SetBitmap(HBITMAP hBitmap);
    virtual HBITMAP GetBitmap() const;
    // The same for the note's font.
    virtual void SetNoteFont(HFONT hFont);
    virtual HFONT GetNoteFont() const;
    // Copies the note (null for none) and repaints. Returns 1; 0, with nothing done, without memory.
    virtual int SetNote(LPCWSTR pszNote);
    // In characters, without the terminator; 0 without a note.
    virtual int GetNoteLength() const;
    // As GetText; without a note, the empty text.
    virtual int GetNote(LPWSTR pszBuffer, int* pnLength) const;

    // Takes title and note from a dialog template's creation data; null gives an empty title and no note,
    // and so does no memory for either.
    void Init(void* pCreateData);
    // Draws the control at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT uKey, LPARAM lFlags);
    LRESULT OnKeyUp(UINT uKey, LPARAM lFlags);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnThemeChanged();
    LRESULT OnStyleChanged();
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnSetText(LPCWSTR pszText);
    LRESULT OnGetText(UINT nCapacity, LPWSTR pszBuffer) const;
    LRESULT OnGetTextLength() const;
    LRESULT OnGetDlgCode() const;
    LRESULT OnSetStyle(WPARAM wStyle, UINT uRedraw);
    // Non-zero inside the client rectangle, its right and bottom edges included.
    int HitTest(POINTS pt) const;

    gesso::ThemeHandle m_hTheme;
    gesso::ThemeFont m_hFont;
    gesso::ThemeFont m_hNoteFont;
    gesso::ControlText m_pszText;
    HANDLE m_hImage = nullptr;
    int m_cxImage = 0;
    int m_cyImage = 0;
    gesso::ControlText m_pszNote;

private:
    friend class gesso::ButtonMessages;
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void OpenTheme();
    void CloseTheme();
    // Returns the glyph's width.
    int DrawGlyph(HDC hdc, int nState, POINT pt, DWORD dwStyle) const;
    void DrawTexts(HDC hdc, const gesso::ThemePart& part, const RECT& rcRoom, DWORD dwStyle) const;
};
