// GButton: a push button with a text and, if wanted, an icon or a bitmap beside it, drawn through the visual
// style's "BUTTON" class.
//
// A host makes a GButton (or gets one from CreateControl(GCK_BUTTON)) and calls Create with WS_CHILD |
// WS_VISIBLE | WS_TABSTOP and the GS_ and GBS_ bits in the style; or names the class "GButton" in a dialog
// template, with the text in the control's creation data.
//
// Sends to its parent: WM_COMMAND with the id and BN_CLICKED for each click; WM_NOTIFY with NM_SETFOCUS and
// NM_KILLFOCUS. Answers WM_GETTEXT, WM_SETTEXT, WM_GETTEXTLENGTH, WM_GETFONT, WM_SETFONT, WM_GETDLGCODE,
// BM_SETSTYLE (of which only BS_DEFPUSHBUTTON counts) and WM_PRINTCLIENT.
#pragma once

#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {
class ButtonMessages;
}

// Where the image stands; left of the text without any of them.
constexpr DWORD GBS_IMAGERIGHT = 0x0040;
constexpr DWORD GBS_IMAGETOP = 0x0080;
constexpr DWORD GBS_IMAGEBOTTOM = 0x00C0;

class GESSO_API GButton : public GWnd
{
public:
    GButton() = default;

    // Makes the window; position and size in pixels in the parent's client area. The text is copied; a null
    // one counts as empty. The style is used as it is: WS_CHILD is the caller's to give. Returns the window,
    // or null where it could not be made; where there is no memory for the text, the control stays as it was.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                        DWORD dwExStyle, DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The font stays the host's, and must live as long as the control uses it. No repaint. Null: the font
    // that the drawing context happens to have.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // Copies the text (an ampersand marks the mnemonic; null counts as empty) and repaints. Returns 1; 0,
    // with nothing done, without memory.
    virtual int SetText(LPCWSTR pszText);
    // In characters, without the terminator.
    virtual int GetTextLength() const;
    // *pnLength is the buffer's capacity in characters. With room for the text and its terminator, copies it,
    // sets *pnLength to the length and returns 1; otherwise writes no text, sets *pnLength to the capacity
    // needed and returns 0.
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;
    // The image to show with GS_ICON or GS_BITMAP; it stays the host's. Repaints. Returns the former image,
    // whichever kind it was; so do the getters.
    virtual HICON SetIcon(HICON hIcon);
    virtual HICON GetIcon() const;
    virtual HBITMAP SetBitmap(HBITMAP hBitmap);
    virtual HBITMAP GetBitmap() const;

    // Takes the text from a dialog template's creation data; null, or no memory, gives the empty
    // text.
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
    HFONT m_hFont = nullptr;
    gesso::ControlText m_pszText;
    HANDLE m_hImage = nullptr;
    int m_cxImage = 0;
    int m_cyImage = 0;

private:
    friend class gesso::ButtonMessages;
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
};
