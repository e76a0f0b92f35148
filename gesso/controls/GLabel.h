// GLabel: a text, an icon, a bitmap or an etched line over the parent's background.
//
// A host makes a GLabel (or gets one from CreateControl(GCK_LABEL)) and calls Create with WS_CHILD |
// WS_VISIBLE and the GS_ and GLS_ bits in the style; or names the class "GLabel" in a dialog template, with
// the text in the control's creation data. A label takes no focus and sends nothing. It answers WM_GETTEXT,
// WM_SETTEXT, WM_GETTEXTLENGTH, WM_GETFONT, WM_SETFONT, WM_GETDLGCODE (DLGC_STATIC, so that a mnemonic goes
// on to the next control) and WM_PRINTCLIENT.
#pragma once

#include <gesso/containers/OString.h>
#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/GWnd.h>

constexpr DWORD GLS_INSET = 0x0800; // keep the text one pixel away from every edge
constexpr DWORD GLS_ETCHEDVERT =
    0x1000; // an etched line on the left edge instead of content; wins over the other
constexpr DWORD GLS_ETCHEDHORZ = 0x2000; // an etched line on the top edge instead of content
constexpr DWORD GLS_NOPREFIX = 0x4000;   // an ampersand stands for itself
constexpr DWORD GLS_EMPTY = 0x8000;      // paint only the parent's background

// What CalcSizeText is to leave free.
constexpr DWORD GLC_FREEHEIGHT = 0x200; // any height; fail where it exceeds cyMax
constexpr DWORD GLC_FREEWIDTH = 0x400;  // any width; fail where it exceeds cxMax

class GESSO_API GLabel : public GWnd
{
public:
    GLabel() = default;

    // Makes the window; position and size in pixels in the parent's client area. The text is copied; a null
    // one counts as empty. The style is used as it is. Returns the window, or null where it could not be
    // made; where there is no memory for the text, the label stays as it was.
    // Fixed behaviour: the id is not passed on, so that a label's window id is 0. GetDlgItem would find a
    // label where it finds another control of that id today.
    HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwExStyle,
                DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    int Destroy();

    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The font stays the host's, and must live as long as the label uses it. No repaint. Null: the font that
    // the drawing context happens to have.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // Copies the text (null counts as empty) and repaints. Returns 1; 0, with nothing done, without memory.
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
    // The text's colour, black at first. No repaint. Returns the former colour. In Dark a label without a
    // colour of its own is drawn in that of the scheme, in Contrast every label.
    virtual COLORREF SetTextColor(COLORREF cr);
    virtual COLORREF GetTextColor() const;

    // Measures a text in the label's font, wrapped at words, into *prc (pixels, from 0, 0). Without flags,
    // cxMax and cyMax (pixels) are the rectangle and nothing is checked; with a GLC_ flag that direction is
    // free, and the result is E_FAIL where its limit is exceeded, a limit of 0 being none. bWrap breaks lines
    // hard at 48 columns first. *prc holds the measure in either case; E_FAIL also where the platform could
    // not measure. Without memory for the text E_OUTOFMEMORY, and *prc is as it was.
    HRESULT CalcSizeText(RECT* prc, DWORD dwFlags, LPCWSTR pszText, UINT bWrap, UINT cxMax, UINT cyMax) const;
    // Inserts CR LF so that no line is longer than 48 columns, at a space where there is one. Without memory
    // `out` stays as it was.
    static void WrapText(OString<wchar_t>& out, const OString<wchar_t>& in);

    // Takes the text from a dialog template's creation data; null, or no memory, gives the empty
    // text.
    void Init(void* pCreateData);
    // Draws the label at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnStyleChanged();
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnSetText(LPCWSTR pszText);
    LRESULT OnGetText(UINT nCapacity, LPWSTR pszBuffer) const;
    LRESULT OnGetTextLength() const;

    HFONT m_hFont = nullptr;
    COLORREF m_crText = 0;
    bool m_fColorSet = false; // by SetTextColor
    gesso::ControlText m_pszText;
    HANDLE m_hImage = nullptr;
    int m_cxImage = 0;
    int m_cyImage = 0;

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    static void DrawEtchedLine(HDC hdc, RECT rc, bool fDown);
    COLORREF ColorOfText(DWORD dwStyle) const;
    void DrawContentImage(HDC hdc, const RECT& rc, DWORD dwStyle) const;
    void DrawContentText(HDC hdc, RECT rc, DWORD dwStyle) const;
};
