// GTaskDialog: the library's task dialog and message box. A host calls one of the three static functions;
// each runs a modal dialog and gives back the id of the button that ended it. Esc and the close box end it
// with IDCANCEL, also where no Cancel button is shown. The button labels are the library's (Language.h). In
// Modern texts are shown as they are, ampersands too, Ctrl+C copies them, and a dialog grows no larger than
// its monitor's work area: what is beyond scrolls by wheel and keys.
#pragma once

#include <gesso/dialogs/GDialog.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/ThemeHandle.h>

class GButton;

// Zero it, and fill what is wanted.
struct GTASKDIALOGCONFIG
{
    ULONGLONG ullUnused;
    HWND hwndParent;     // the owner, which is disabled meanwhile; may be null
    HINSTANCE hInstance; // for the platform's dialog
    ULONGLONG ullUnused2;
    LPCWSTR pszWindowTitle;     // the caption; null counts as empty
    HICON hMainIcon;            // at the top left; stays the caller's; may be null
    LPCWSTR pszMainInstruction; // a large line on top; may be null
    LPCWSTR pszContent;         // the text; null counts as empty
    ULONGLONG aullUnused3[2];
    DWORD dwCommonButtons; // TDCBF_ bits: OK, Yes, No, Cancel, Retry, Close
    DWORD dwDefaultButton; // one of these bits, or 0
    ULONGLONG aullUnused4[5];
    UINT cxWidth; // in dialog units; 0 means 100. The dialog grows beyond it as its texts need
};
static_assert(offsetof(GTASKDIALOGCONFIG, pszWindowTitle) == 32 &&
              offsetof(GTASKDIALOGCONFIG, dwCommonButtons) == 80 &&
              offsetof(GTASKDIALOGCONFIG, cxWidth) == 128);

class GESSO_API GTaskDialog : public GDialog
{
public:
    // Runs the dialog that the record describes. Returns S_OK, and in *puButton the id of the button; E_FAIL,
    // and -1, where the dialog could not run, as without memory for its texts. puButton may be null.
    static HRESULT IsolationAwareTaskDialogIndirect(const GTASKDIALOGCONFIG* pConfig, UINT* puButton);
    // The same for the usual case. The default button is OK, or else Yes. pszIcon names a system icon (IDI_
    // as for LoadIconWithScaleDown without a module), or is null.
    static HRESULT IsolationAwareTaskDialog(HWND hwndParent, HINSTANCE hInstance, LPCWSTR pszTitle,
                                            LPCWSTR pszMainInstruction, LPCWSTR pszContent,
                                            DWORD dwCommonButtons, LPCWSTR pszIcon, UINT* puButton);
    // A message box, with uType as the platform's. Returns the button's id, or (UINT)-1 where the dialog
    // could not run. In Classic MB_ABORTRETRYIGNORE shows an OK button; in Modern (framework/Behavior.h)
    // every type has its own buttons, Esc does nothing where they are Abort, Retry and Ignore, and MB_HELP
    // shows one that sends WM_HELP to the owner and ends nothing.
    static UINT MessageBoxW(HWND hwndParent, LPCWSTR pszText, LPCWSTR pszCaption, UINT uType);
    // The dialog that the record describes with a check box below its texts, in either behaviour as Modern
    // shows it. *pfChecked is its mark at first, and then the one that the dialog was left with, whatever
    // ended it. A null or empty pszVerification, in which an ampersand marks the mnemonic, shows no box;
    // pfChecked may be null. All else as with IsolationAwareTaskDialogIndirect.
    static HRESULT Ask(const GTASKDIALOGCONFIG* pConfig, LPCWSTR pszVerification, bool* pfChecked,
                       UINT* puButton);

    DLGPROC GetDialogProc() override;
    // Draws the dialog at the origin of a context.
    void Draw(HDC hdc);

    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    // The record outlives the object.
    explicit GTaskDialog(const GTASKDIALOGCONFIG* pConfig);

    LRESULT OnInitDialog();
    LRESULT OnDestroy();
    INT_PTR OnCommand(UINT uId);
    void CalculateFooter(RECT* prc) const;

    const GTASKDIALOGCONFIG* m_pConfig;
    gesso::ThemeHandle m_hTheme;
    RECT m_rcIcon{};
    RECT m_rcMainInstruction{};
    RECT m_rcContent{};
    RECT m_rcFooter{};
    gesso::ControlText m_pszMainInstruction;
    gesso::ControlText m_pszContent;
    GButton** m_ppButtons = nullptr;

private:
    friend class gesso::Frame;
    INT_PTR OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void OnScaling(const RECT* prcWanted);
    void LayOut(const RECT* prcWanted);
    int MeasureTexts(HDC hdc);
    void FitTexts(int cxNeeded);
    void MakeButtons();
    void SetDefaultButton();
    bool HasTexts() const;
    int TextLimit(HDC hdc) const;
};
