// Each dialog run modally: a timer looks at it and answers, and the result comes back to the host.
#include "Checks.h"

namespace {

using Step = void (*)(HWND hDlg);

Step s_pfnStep = nullptr;
bool s_fSeen = false; // a step found its dialog

// The dialog is the active window of the thread, whose owner is the host's window.
void CALLBACK RunStep(HWND, UINT, UINT_PTR uTimer, DWORD)
{
    const HWND hDlg = GetActiveWindow();
    wchar_t szClass[16]{};
    if (!hDlg || !GetClassNameW(hDlg, szClass, 16) || lstrcmpW(szClass, L"#32770") != 0) {
        return; // not there yet
    }
    KillTimer(nullptr, uTimer);
    s_fSeen = true;
    s_pfnStep(hDlg);
}

void WhenOpen(Step pfnStep)
{
    s_pfnStep = pfnStep;
    s_fSeen = false;
    SetTimer(nullptr, 0, 50, RunStep);
}

void Press(HWND hDlg, int nId)
{
    SendMessageW(hDlg, WM_COMMAND, static_cast<WPARAM>(nId), 0);
}

void CheckMessageBoxes(HWND hwnd)
{
    Group("message box");
    WhenOpen([](HWND hDlg) {
        Check(GetDlgItem(hDlg, IDYES) && GetDlgItem(hDlg, IDNO) && !GetDlgItem(hDlg, IDOK),
              "it has its buttons");
        Check(dynamic_cast<GButton*>(GWnd::FromHwnd(GetDlgItem(hDlg, IDNO))) != nullptr,
              "which are the library's");
        Check(GDialog::s_hActiveDlg == hDlg, "the host sees that it is active");
        Press(hDlg, IDNO);
    });
    Same(GTaskDialog::MessageBoxW(hwnd, L"Text", L"Caption", MB_YESNO), IDNO, "No is the answer");
    Check(s_fSeen, "it was open");
    Check(IsWindowEnabled(hwnd), "its owner is enabled again");

    gesso::SetLanguage(L"fr");
    WhenOpen([](HWND hDlg) {
        wchar_t sz[40]{};
        GetWindowTextW(GetDlgItem(hDlg, IDCANCEL), sz, 40);
        Same(sz, L"Annuler", "a button in the host's language");
        Press(hDlg, IDCANCEL);
    });
    Same(GTaskDialog::MessageBoxW(hwnd, L"Text", L"Caption", MB_OKCANCEL), IDCANCEL, "Cancel is the answer");
}

void CheckTaskDialogs(HWND hwnd)
{
    Group("task dialog");
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwnd;
    config.pszWindowTitle = L"Title";
    config.pszMainInstruction = L"Instruction";
    config.pszContent = L"Content";
    config.dwCommonButtons = TDCBF_OK_BUTTON | TDCBF_RETRY_BUTTON;
    UINT uButton = 0;
    WhenOpen([](HWND hDlg) {
        wchar_t sz[40]{};
        GetWindowTextW(hDlg, sz, 40);
        Same(sz, L"Title", "the record's title");
        Press(hDlg, IDRETRY);
    });
    Same(GTaskDialog::IsolationAwareTaskDialogIndirect(&config, &uButton), S_OK, "by a record");
    Same(uButton, IDRETRY, "Retry is the answer");

    for (const bool fFirst : {false, true}) {
        bool fChecked = fFirst;
        WhenOpen([](HWND hDlg) {
            Press(hDlg, 100); // the check box
            Press(hDlg, IDOK);
        });
        Same(GTaskDialog::Ask(&config, L"Do so always", &fChecked, &uButton), S_OK, "with a check box");
        Check(uButton == IDOK && fChecked == !fFirst, "its mark comes back, changed");
    }

    WhenOpen([](HWND hDlg) { Press(hDlg, IDCANCEL); });
    Same(GTaskDialog::IsolationAwareTaskDialog(hwnd, nullptr, L"Title", L"Main", L"Content",
                                               TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON, nullptr, &uButton),
         S_OK, "by single values");
    Same(uButton, IDCANCEL, "Cancel is the answer");
}

// The host's class over the library's.
class HostsTaskDialog : public GTaskDialog
{
public:
    explicit HostsTaskDialog(const GTASKDIALOGCONFIG* pConfig) : GTaskDialog(pConfig) {}
    ~HostsTaskDialog() override { ++s_nDestroyed; }
    DLGPROC GetDialogProc() override
    {
        ++nAsked;
        return GTaskDialog::GetDialogProc();
    }
    const GTASKDIALOGCONFIG* Config() const { return m_pConfig; }

    int nAsked = 0;
    static int s_nDestroyed;
};
int HostsTaskDialog::s_nDestroyed = 0;

void CheckOwnTaskDialog(HWND hwnd)
{
    Group("a task dialog of the host's own");
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwnd;
    config.pszMainInstruction = L"Instruction";
    config.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON;
    static constexpr struct
    {
        DLGTEMPLATE head;
        WORD wMenu, wClass, wTitle;
    } TEMPLATE{{WS_POPUP | WS_CAPTION, 0, 0, 0, 0, 200, 50}, 0, 0, 0};
    auto* pDialog = new HostsTaskDialog(&config);
    Check(pDialog->Config() == &config, "its record");
    Same(pDialog->CreateIndirect(hwnd, nullptr, &TEMPLATE.head), 1, "it is made");
    Same(pDialog->nAsked, 1, "the library asks for the host's procedure");
    const HWND hDlg = pDialog->GetHwnd();
    Check(GetDlgItem(hDlg, IDYES) && GetDlgItem(hDlg, IDNO), "which makes its buttons");
    DestroyWindow(hDlg);
    GWnd* pWnd = pDialog;
    Check(dynamic_cast<HostsTaskDialog*>(pWnd) == pDialog && !dynamic_cast<GWizard*>(pWnd),
          "it is recognised");
    delete pWnd;
    Same(HostsTaskDialog::s_nDestroyed, 1, "the host deletes it by the base");
    pWnd = new HostsTaskDialog(&config);
    pWnd->Delete(pWnd);
    Same(HostsTaskDialog::s_nDestroyed, 2, "the library deletes it");
}

int s_nShown = 0;

void CheckCertificates(HWND hwnd)
{
    Group("certificate dialog");
    DWORD dwResult = 0;
    const auto show = [](HWND, void* pData) {
        s_nShown += *static_cast<int*>(pData);
        return 0;
    };
    int nData = 3;
    WhenOpen([](HWND hDlg) {
        Press(hDlg, 2000); // shows the certificate, by the host's function
        Press(hDlg, IDYES);
    });
    Same(GWndCertFailure::WndCertFailure(&dwResult, hwnd, show, &nData, CFT_UNTRUSTED, 1, L"Caption",
                                         L"subject"),
         S_OK, "it runs");
    Same(dwResult, IDYES, "Yes is the answer");
    Same(s_nShown, 3, "the host's function is called with its data");

    const GWNDCERTFAILURECONFIG config{CFT_INVALID, 4, L"Caption", L"subject", nullptr, nullptr};
    WhenOpen([](HWND hDlg) { Press(hDlg, IDOK); });
    Same(GWndCertFailure::WndCertFailureIndirect(&dwResult, hwnd, &config), S_OK, "by a record");
    Same(dwResult, IDNO, "what is invalid is not accepted");
    GWNDCERTFAILURECONFIG bad = config;
    bad.dwType = 99;
    Same(GWndCertFailure::WndCertFailureIndirect(&dwResult, hwnd, &bad), E_INVALIDARG, "a wrong record");
}

// The host's wizard over the library's, whose fields it reads and sets.
class HostsWizard : public GWizard
{
public:
    HostsWizard() { m_pConfig = &m_config; }
    UINT Current() const { return m_nCurrent; }
    // Into the block of the library's, or makes it larger.
    void AddByHost(stcPage* pPage) { m_aPages.Add(pPage); }
    OArray<stcPage*, stcPage*> Pages() const { return m_aPages; }

private:
    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, L"Done"};
};

int s_nPagesMade = 0;
int s_nFinished = 0;
HostsWizard* s_pWizard = nullptr;

INT_PTR CALLBACK PageProc(HWND hwnd, UINT uMsg, WPARAM, LPARAM lParam)
{
    if (uMsg == WM_INITDIALOG) {
        wchar_t sz[20]{};
        GetDlgItemTextW(hwnd, 900, sz, 20);
        Same(sz, L"Field", "a control's text from its creation data");
        s_nPagesMade += static_cast<int>(lParam);
    }
    if (uMsg != WM_NOTIFY || reinterpret_cast<const NMHDR*>(lParam)->code < WZN_SETACTIVE ||
        reinterpret_cast<const NMHDR*>(lParam)->code > WZN_FINISH)
    {
        return FALSE;
    }
    auto& notify = *reinterpret_cast<stcWizardNotify*>(lParam);
    s_nFinished += notify.hdr.code == WZN_FINISH;
    notify.nResult = 1;
    return TRUE;
}

void CheckWizardPages()
{
    Group("an array of the wizard's that the host fills as well");
    constexpr UINT COUNT = 40;
    stcPage pages[COUNT]{};
    HostsWizard wizard;
    for (UINT i = 0; i < COUNT; ++i) {
        if (i % 2) {
            wizard.AddByHost(&pages[i]);
        } else {
            wizard.InsertPage(0xFFFF, &pages[i]);
        }
    }
    const OArray<stcPage*, stcPage*> copy = wizard.Pages();
    bool fAll = copy.GetLength() == COUNT;
    for (UINT i = 0; fAll && i < COUNT; ++i) {
        fAll = copy[i] == &pages[i] && wizard.GetPage(i) == &pages[i];
    }
    Check(fAll, "both sides find each other's pages");
    wizard.RemovePage(COUNT - 1);
    Check(!wizard.GetPage(COUNT - 1) && copy.GetLength() == COUNT, "the host's copy keeps what it has");
}

void CheckWizard(HWND hwnd)
{
    Group("wizard");
    const HINSTANCE hInstance = GetModuleHandleW(nullptr);
    stcPage pages[3];
    HostsWizard wizard;
    s_pWizard = &wizard;
    for (stcPage& page : pages) {
        page = {nullptr, hInstance, MAKEINTRESOURCEW(210), PageProc, 1};
        wizard.InsertPage(0xFFFF, &page);
    }
    Check(wizard.GetPage(1) == &pages[1], "its pages");
    wizard.RemovePage(2);
    Check(!wizard.GetPage(2), "one page less");
    WhenOpen([](HWND hDlg) {
        Same(s_pWizard->Current(), 0, "the first page is shown");
        Press(hDlg, WZB_NEXT);
        Same(s_pWizard->Current(), 1, "the host reads the field of its base");
        UINT nIndex = 0;
        SendMessageW(hDlg, WZM_GETCURPAGE, reinterpret_cast<WPARAM>(&nIndex), 0);
        Same(nIndex, 1, "and asks by message");
        wchar_t sz[20]{};
        GetWindowTextW(GetDlgItem(hDlg, WZB_FINISH), sz, 20);
        Same(sz, L"Done", "the label of the host's record");
        Press(hDlg, WZB_FINISH);
    });
    wizard.DoModal(hwnd, hInstance);
    Check(s_fSeen, "it was open");
    Same(s_nPagesMade, 2, "each page got the host's value");
    Same(s_nFinished, 1, "the page was asked whether to finish");
}

// The host's dialog over the library's abstract one.
class HostsDialog : public GDialog
{
public:
    using GDialog::GDialog;
    ~HostsDialog() override { ++s_nDestroyed; }
    DLGPROC GetDialogProc() override { return Procedure; }
    static int s_nDestroyed;
    static HostsDialog* s_pFound; // at the last message

private:
    static INT_PTR CALLBACK Procedure(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        s_pFound = dynamic_cast<HostsDialog*>(ObjectOf(hDlg, uMsg, lParam));
        if (uMsg == WM_COMMAND) {
            EndDialog(hDlg, LOWORD(wParam));
        }
        return FALSE;
    }
};
int HostsDialog::s_nDestroyed = 0;
HostsDialog* HostsDialog::s_pFound = nullptr;

void CheckOwnDialog(HWND hwnd)
{
    Group("a dialog of the host's own");
    auto* const pDialog = new HostsDialog(211u);
    static HostsDialog* s_pExpected;
    s_pExpected = pDialog;
    WhenOpen([](HWND hDlg) {
        HostsDialog::s_pFound = nullptr;
        SendMessageW(hDlg, WM_APP, 0, 0);
        Check(HostsDialog::s_pFound == s_pExpected, "its procedure, the host's, finds the object");
        Press(hDlg, 17);
    });
    Same(pDialog->DoModal(hwnd, GetModuleHandleW(nullptr)), 17, "modal, by a template of the host's");
    Check(s_fSeen, "it was open");
    Same(pDialog->Create(hwnd, GetModuleHandleW(nullptr)), 1, "modeless");
    Check(IsWindow(pDialog->GetHwnd()), "it has its window");
    pDialog->SetText(L"Changed");
    Same(pDialog->GetTextLength(), 7, "its text");
    pDialog->Destroy();
    pDialog->Delete(pDialog);
    Same(HostsDialog::s_nDestroyed, 1, "the library deletes it");
}

} // namespace

void CheckDialogs()
{
    HostWindow host;
    CheckMessageBoxes(host.hwnd);
    CheckTaskDialogs(host.hwnd);
    CheckOwnTaskDialog(host.hwnd);
    CheckCertificates(host.hwnd);
    CheckWizardPages();
    CheckWizard(host.hwnd);
    CheckOwnDialog(host.hwnd);
}
