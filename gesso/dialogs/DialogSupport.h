// What the library's dialogs share: templates, dialog units, centring, and the common rows of their
// procedures.
#pragma once

#include <gesso/dialogs/GDialog.h>
#include <gesso/framework/ThemePart.h>

#include <vector>

namespace gesso {

// Finds, loads and locks a template of the type "RT_DLG". Null, with the platform's last error, where a step
// fails.
const DLGTEMPLATE* LoadDialogTemplate(HINSTANCE hInstance, LPCWSTR pszTemplate);

// The extended style of a dialog of the library's own: laid out as its language reads, whatever its owner is.
// The platform gives no owned window the layout of its owner either.
DWORD LayoutOfTexts();

// An extended template without items, in the library's dialog font and the layout of its texts, for a dialog
// that makes its controls itself.
class EmptyDialogTemplate
{
public:
    // cx and cy in dialog units.
    EmptyDialogTemplate(DWORD dwExStyle, DWORD dwStyle, UINT cx, UINT cy, LPCWSTR pszTitle);
    // Null without memory for the title.
    const DLGTEMPLATE* Get() const
    {
        return m_words.empty() ? nullptr : reinterpret_cast<const DLGTEMPLATE*>(m_words.data());
    }

private:
    void Build(DWORD dwExStyle, DWORD dwStyle, UINT cx, UINT cy, LPCWSTR pszTitle);
    void AddDouble(DWORD dw);
    void AddText(LPCWSTR psz);

    std::vector<WORD> m_words;
};

// A rectangle of dialog units in pixels.
RECT MapUnits(HWND hDlg, int left, int top, int right, int bottom);

// Centres a window of a size in the work area of the monitor nearest to hwndNear, and gives it that size.
void CenterWindow(HWND hwnd, HWND hwndNear, SIZE size);

// A pane of a task dialog (TDLG_). With scaling its texts are measured and drawn in a font of the dialog's
// own, which is that of the style for the dialog's dots and the user's text size.
class TextPane
{
public:
    TextPane(HWND hDlg, HTHEME hTheme, HDC hdc, int nPart);
    const ThemePart* operator->() const { return &m_part; }

private:
    FontHandle m_font; // null without scaling
    ThemePart m_part;
};

// The same measuring what the dialog's controls show, which are in the dialog's font.
ThemePart ControlTexts(HWND hDlg, HTHEME hTheme, HDC hdc);

// Where the texts of a task dialog end on the right, in pixels: the icon's room, and the columns of the wider
// pane.
int TaskTextLimit(HWND hDlg, HTHEME hTheme, HDC hdc);

// The font that the dialog's template asked for; with scaling that of the dialog's dots an inch.
HFONT FontOf(HWND hDlg);

// A dialog's main icon, as large as the system's icons are in the dialog, and never mirrored.
void DrawDialogIcon(HWND hDlg, HDC hdc, HICON hIcon, POINT pt);

// Gives a dialog the rectangle that the platform wants for its dots an inch, or else, with scaling, a client
// area of its template's size, in dialog units.
void FitDialog(HWND hDlg, const RECT* prcWanted, SIZE units);

// All of a dialog whose parts have moved, frame and controls included, is to be painted.
void RedrawAll(HWND hDlg);

// The client rectangle's growth by cx and cy pixels, with no repaint, and then the client rectangle anew.
RECT GrowWindow(HWND hwnd, int cx, int cy);

// The tail of the white dialogs' switches: WM_CTLCOLOR..., and then what all dialogs answer alike.
INT_PTR WhiteDialogDefault(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);

// WM_ACTIVATE: keeps GDialog::s_hActiveDlg.
INT_PTR OnDialogActivate(HWND hDlg, WPARAM wParam);

} // namespace gesso
