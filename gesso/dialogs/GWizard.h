// GWizard: a page-by-page modal dialog with Back, Next, Finish and Cancel along the bottom.
//
// A host derives a class from GWizard, sets m_pConfig in its constructor, inserts its pages and calls
// DoModal. A page is a dialog template (type "RT_DLG", style WS_CHILD | DS_CONTROL, extended style
// WS_EX_CONTROLPARENT, so that Tab reaches its controls) with a procedure of the host's. All pages are made
// when the dialog starts; the dialog sizes itself to the first.
//
// A page takes part by WM_NOTIFY, with an stcWizardNotify as lParam: WZN_SETACTIVE before it is shown,
// WZN_KILLACTIVE before it is left or finished, WZN_FINISH at the end. The last two are allowed by setting
// nResult to non-zero; a page that does not answer refuses. Cancel, Esc and the close box ask nobody.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/containers/OArray.h>
#include <gesso/dialogs/GDialog.h>
#include <gesso/framework/Owned.h>
#include <gesso/framework/ThemeHandle.h>

class GButton;

// Notifications to a page.
constexpr UINT WZN_SETACTIVE = 2024;
constexpr UINT WZN_KILLACTIVE = 2025;
constexpr UINT WZN_FINISH = 2026;

// Messages to the wizard's window; SendMessageW gives 1 for each.
constexpr UINT WZM_SETCURPAGE = 0x465; // wParam: the index; lParam: an stcPage* to find instead, or null
constexpr UINT WZM_GETCURPAGE =
    0x466; // wParam: UINT* for the index, lParam: stcPage** for the page; either may be null
constexpr UINT WZM_SETBUTTONS = 0x467; // wParam: WZB_ mask to show, lParam: mask to enable

// The buttons: ids of their WM_COMMAND, and bits of the masks.
constexpr UINT WZB_FINISH = 1;
constexpr UINT WZB_CANCEL = 2;
constexpr UINT WZB_NEXT = 4;
constexpr UINT WZB_BACK = 8;

// One page. The records stay the host's, and must outlive the dialog.
struct stcPage
{
    HWND hwnd;           // written by the wizard
    HINSTANCE hInstance; // the module that holds the template
    LPCWSTR pszTemplate; // its id or name
    DLGPROC pfnDialog;
    LPARAM lParam; // of the page's WM_INITDIALOG
};

struct stcWizardNotify
{
    NMHDR hdr;
    int nResult;
};

struct GWIZARDCONFIG
{
    ULONGLONG ullUnused;
    LPCWSTR pszTitle; // the caption; null counts as empty
    ULONGLONG ullUnused2;
    UINT nDefaultId;   // the default button (WZB_) at the start
    LPCWSTR pszFinish; // the label of the Finish button; null for that of the language (SetLanguage)
};
static_assert(offsetof(GWIZARDCONFIG, pszTitle) == 8 && offsetof(GWIZARDCONFIG, nDefaultId) == 24 &&
              offsetof(GWIZARDCONFIG, pszFinish) == 32);

class GESSO_API GWizard : public GDialog
{
public:
    static constexpr UINT NO_PAGE = gesso::NO_INDEX;

    // A wizard without a configuration; a subclass sets m_pConfig.
    GWizard() = default;

    // Inserts a page at an index, the end for one beyond it. Takes effect for the next DoModal. A null page
    // is ignored.
    void InsertPage(UINT nIndex, stcPage* pPage);
    // Ignores an index beyond the end.
    void RemovePage(UINT nIndex);
    // Null for an index beyond the end.
    stcPage* GetPage(UINT nIndex) const;

    // Runs the wizard. The instance is not used. Returns WZB_FINISH or WZB_CANCEL; -1 where the platform
    // could not run the dialog, or no configuration was set.
    INT_PTR DoModal(HWND hwndParent, HINSTANCE hInstance) override;
    DLGPROC GetDialogProc() override;

    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    static void DeleteButton(GButton* pButton);
    using OwnedButton = gesso::Owned<GButton*, DeleteButton>;

    int OnInitDialog();
    int OnDestroy();
    int OnCommand(UINT uId);
    void OnActivate();
    // Asks the present page, switches the buttons, and shows the new one. The focus moves with the page, and
    // off a button that goes. An index beyond the end changes nothing, and so does any before the buttons are
    // there.
    void ActivatePage(UINT nIndex);
    void NextPage();
    void PreviousPage();
    int SetCurrentPage(UINT nIndex, const stcPage* pPage);
    int SetButtons(DWORD dwShow, DWORD dwEnable);
    // A header with the title, and the command area. The wizard itself does not paint them; a subclass may.
    void Draw(HDC hdc);

    // Set by the subclass before DoModal; stays the subclass's.
    const GWIZARDCONFIG* m_pConfig = nullptr;
    gesso::ThemeHandle m_hTheme;
    RECT m_rcClient{};
    OwnedButton m_pFinish;
    OwnedButton m_pCancel;
    OwnedButton m_pNext;
    OwnedButton m_pBack;
    RECT m_rcFooter{};
    OArray<stcPage*, stcPage*> m_aPages;
    UINT m_nCurrent = NO_PAGE;

private:
    friend class gesso::Frame;
    INT_PTR OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void MakePages();
    void FitFirstPage(int cyFooter);
    void MakeButtons();
    LPCWSTR FinishLabel() const;
    int WidthOfButtons() const;
    void OnScaling(const RECT* prcWanted);
    bool IsLast(UINT nIndex) const;
    bool Ask(UINT nIndex, UINT uCode);
    int OnFinish();
    int OnGetCurrentPage(UINT* pnIndex, stcPage** ppPage) const;
    void ChangePage(UINT nIndex);
    void SwitchButtons(UINT nIndex);
    void KeepFocus(HWND hwndFormer, const stcPage& page);
    LPCWSTR Title() const;
    void DrawTitle(HDC hdc, const RECT& rcClient) const;
};
