// GCheckBox: a box with a check mark, a text and, if wanted, an icon or a bitmap between them, drawn through
// the visual style's "BUTTON" class.
//
// A host makes a GCheckBox (or gets one from CreateControl(GCK_CHECKBOX)) and calls Create with WS_CHILD |
// WS_VISIBLE | WS_TABSTOP and the GS_ and GCS_ bits in the style; or names the class "GCheckBox" in a dialog
// template, with the text in the control's creation data.
//
// Sends to its parent: WM_COMMAND with the id and BN_CLICKED for each click; WM_NOTIFY with NM_SETFOCUS and
// NM_KILLFOCUS. A click does not change the mark: the parent decides what it becomes, and calls SetCheck. In
// Modern (framework/Behavior.h) GBS_AUTO has a click change it first, to checked and back, or with GBS_3STATE
// on to indeterminate in between; BM_CLICK, BM_GETSTATE and BM_SETSTATE are answered as well. Answers
// WM_GETTEXT, WM_SETTEXT, WM_GETTEXTLENGTH, WM_GETFONT, WM_SETFONT, WM_GETDLGCODE, BM_GETCHECK, BM_SETCHECK
// and WM_PRINTCLIENT.
#pragma once

#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {
class ButtonMessages;
}

class GESSO_API GCheckBox : public GWnd
{
public:
    GCheckBox() = default;

    // These are as GButton has them.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                        DWORD dwExStyle, DWORD dwStyle);
    virtual int Destroy();
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    virtual int SetText(LPCWSTR pszText);
    virtual int GetTextLength() const;
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;
    virtual HICON SetIcon(HICON hIcon);
    virtual HICON GetIcon() const;
    virtual HBITMAP SetBitmap(HBITMAP hBitmap);
    virtual HBITMAP GetBitmap() const;

    // The mark: BST_UNCHECKED (at first), BST_CHECKED or BST_INDETERMINATE. Of any other value the low 16
    // bits are kept, and the style draws what it has for it. Repaints; sends nothing.
    virtual void SetCheck(int nCheck);
    virtual int GetCheck() const;

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
    LRESULT OnGetCheck() const;
    LRESULT OnSetCheck(int nCheck);
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
    void ChangeCheck(int nCheck);
    // The mark that a click leads to.
    int NextCheck() const;
    // What a click does: the next mark by itself, with GBS_AUTO, and BN_CLICKED.
    static void Click(GWnd& wnd);
};
