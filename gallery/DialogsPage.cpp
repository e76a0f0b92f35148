#include <gallery/DemoWizard.h>
#include <gallery/Fonts.h>
#include <gallery/OtherThread.h>
#include <gallery/Pages.h>
#include <gallery/Report.h>

#include <functional>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 28};
constexpr SIZE ICON_CELL = {88, 28};
constexpr DWORD PUSH_BUTTON = GS_CENTER | GS_VCENTER | WS_TABSTOP;

constexpr LPCWSTR QUESTION = L"Do you want to save the changes to the gallery?";
constexpr LPCWSTR LONG_TEXT = L"The dialog measures its text and grows until all of it fits: it is as wide "
                              L"as the columns of its text allow, "
                              L"and as high as the lines need.\n\nA paragraph of its own follows here, so "
                              L"that the footer with the buttons "
                              L"moves down a good way below it.";
constexpr LPCWSTR SUBJECT = L"mail.example.com";

// --- What was answered ---

std::wstring NameOfButton(UINT uId)
{
    constexpr LPCWSTR NAMES[] = {L"IDOK",     L"IDCANCEL", L"IDABORT", L"IDRETRY",
                                 L"IDIGNORE", L"IDYES",    L"IDNO",    L"IDCLOSE"};
    return uId >= IDOK && uId <= IDCLOSE ? NAMES[uId - IDOK] : L"no button";
}

std::wstring Describe(UINT uId)
{
    return NameOfButton(uId) + L" (" + std::to_wstring(static_cast<int>(uId)) + L")";
}

std::wstring RunTaskDialog(const GTASKDIALOGCONFIG& config)
{
    UINT uButton = 0;
    const HRESULT hr = GTaskDialog::IsolationAwareTaskDialogIndirect(&config, &uButton);
    return SUCCEEDED(hr) ? Describe(uButton) : L"the dialog could not run";
}

std::wstring RunWizard(HWND hwnd, UINT nPages)
{
    const INT_PTR nResult = DemoWizard(nPages).DoModal(hwnd, nullptr);
    return nResult == WZB_FINISH ? L"WZB_FINISH (1)" : L"WZB_CANCEL (2)";
}

// The certificate itself is the host's to show.
int ShowCertificate(HWND hDlg, void* pData)
{
    return static_cast<int>(GTaskDialog::MessageBoxW(hDlg, static_cast<LPCWSTR>(pData), L"Certificate",
                                                     MB_OK | MB_ICONINFORMATION));
}

std::wstring RunCertificate(HWND hwnd, DWORD dwType, DWORD dwFailures)
{
    DWORD dwResult = 0;
    auto* pData = const_cast<wchar_t*>(L"The certificate of mail.example.com would be shown here.");
    const HRESULT hr = GWndCertFailure::WndCertFailure(&dwResult, hwnd, &ShowCertificate, pData, dwType,
                                                       dwFailures, L"Connection", SUBJECT);
    return FAILED(hr) ? L"the dialog could not run"
                      : Describe(LOWORD(dwResult)) + (dwResult & CFR_DONTASK ? L", don't ask again" : L"");
}

BOOL CALLBACK TickVisibleBox(HWND hwnd, LPARAM)
{
    if (ClassOf(hwnd) == L"GCheckBox" && IsWindowVisible(hwnd)) {
        SendMessageW(hwnd, BM_CLICK, 0, 0);
    }
    return TRUE;
}

// Goes on so many pages; the second page's box is ticked on the way.
std::function<void(HWND)> GoOn(int nPages)
{
    return [nPages](HWND hDlg) {
        for (int i = 0; i < nPages; i++) {
            EnumChildWindows(hDlg, &TickVisibleBox, 0);
            SendMessageW(hDlg, WM_COMMAND, WZB_NEXT, 0);
        }
    };
}

// --- The page ---

class DialogsPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        m_hwnd = canvas.Window();
        canvas.Title(L"Dialogs", L"Each button opens a dialog of the library's; what the dialog gives back "
                                 L"appears below.");
        const int nIcons = MakeMessageBoxes(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        const int nAnswer = MakeIconBoxes(canvas, {LEFT_BLOCK, nIcons});
        MakeAnswer(canvas, {LEFT_BLOCK, nAnswer});
        const int nWizards = MakeTaskDialogs(canvas, {RIGHT_BLOCK, FIRST_BLOCK});
        const int nCertificates = MakeWizards(canvas, {RIGHT_BLOCK, nWizards});
        MakeCertificates(canvas, {RIGHT_BLOCK, nCertificates});
    }

    LRESULT OnCommand(UINT, UINT, HWND hwndFrom) override
    {
        for (const Opener& opener : m_openers) {
            if (opener.pButton->GetHwnd() == hwndFrom) {
                m_pAnswer->SetText(L"The dialog is open.");
                m_pAnswer->SetText(opener.open().c_str());
                break;
            }
        }
        return 0;
    }

    std::vector<Exhibit> Exhibits() override
    {
        std::vector<Exhibit> exhibits;
        for (const Opener& opener : m_openers) {
            if (opener.pszPicture) {
                exhibits.push_back({opener.pszPicture, [&opener] { opener.open(); }, opener.prepare});
            }
        }
        for (const int nPage : {1, 2, 3}) {
            exhibits.push_back({L"dialog-wizard-" + std::to_wstring(nPage + 1),
                                [this] { RunWizard(m_hwnd, DemoWizard::PAGE_COUNT); }, GoOn(nPage)});
        }
        return exhibits;
    }

private:
    using Open = std::function<std::wstring()>;

    // A button that opens a dialog, which has a picture where a name is given for it.
    struct Opener
    {
        GButton* pButton;
        LPCWSTR pszPicture;
        Open open;
        std::function<void(HWND)> prepare;
    };

    void Add(Grid& grid, LPCWSTR pszCaption, LPCWSTR pszText, LPCWSTR pszPicture, Open open)
    {
        m_openers.push_back(
            {&grid.Add<GButton>(pszCaption, pszText, PUSH_BUTTON), pszPicture, std::move(open), {}});
    }

    void AddMessageBox(Grid& grid, LPCWSTR pszCaption, LPCWSTR pszText, UINT uType, LPCWSTR pszPicture)
    {
        Add(grid, pszCaption, pszText, pszPicture, [this, uType] {
            return Describe(GTaskDialog::MessageBoxW(m_hwnd, QUESTION, L"Gallery", uType));
        });
    }

    int MakeMessageBoxes(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Message boxes: every type", 3, CELL);
        AddMessageBox(grid, L"MB_OK", L"OK", MB_OK, L"dialog-ok");
        AddMessageBox(grid, L"MB_OKCANCEL", L"OK, cancel", MB_OKCANCEL, L"dialog-okcancel");
        AddMessageBox(grid, L"..ABORTRETRYIGNORE", L"Abort, retry, ...", MB_ABORTRETRYIGNORE,
                      L"dialog-abortretryignore");
        AddMessageBox(grid, L"MB_YESNOCANCEL", L"Yes, no, cancel", MB_YESNOCANCEL | MB_ICONQUESTION,
                      L"dialog-yesnocancel");
        AddMessageBox(grid, L"MB_YESNO", L"Yes, no", MB_YESNO | MB_ICONQUESTION, L"dialog-yesno");
        AddMessageBox(grid, L"MB_RETRYCANCEL", L"Retry, cancel", MB_RETRYCANCEL | MB_ICONERROR,
                      L"dialog-retrycancel");
        AddMessageBox(grid, L"MB_DEFBUTTON2", L"Cancel is default", MB_OKCANCEL | MB_DEFBUTTON2, nullptr);
        AddMessageBox(grid, L"MB_DEFBUTTON2", L"No is default", MB_YESNOCANCEL | MB_DEFBUTTON2, nullptr);
        AddMessageBox(grid, L"MB_DEFBUTTON3", L"Third is default", MB_YESNOCANCEL | MB_DEFBUTTON3, nullptr);
        return grid.Bottom();
    }

    int MakeIconBoxes(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Message boxes: every icon", 4, ICON_CELL);
        AddMessageBox(grid, L"..ICONERROR", L"Error", MB_ICONERROR, L"dialog-error");
        AddMessageBox(grid, L"..ICONQUESTION", L"Question", MB_ICONQUESTION, L"dialog-question");
        AddMessageBox(grid, L"..ICONWARNING", L"Warning", MB_ICONWARNING, L"dialog-warning");
        AddMessageBox(grid, L"..INFORMATION", L"Information", MB_ICONINFORMATION, L"dialog-information");
        return grid.Bottom();
    }

    void MakeAnswer(Canvas& canvas, POINT pt)
    {
        canvas.Text({pt.x, pt.y, pt.x + BLOCK_WIDTH, pt.y + Grid::HEADING_HEIGHT}, L"The answer",
                    HeadingFont(), Shade::Text);
        const int yText = pt.y + Grid::HEADING_HEIGHT;
        m_pAnswer = &canvas.Text({pt.x, yText, pt.x + BLOCK_WIDTH, yText + 34}, L"Nothing was asked so far.",
                                 TitleFont(), Shade::Answer);
    }

    int MakeTaskDialogs(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Task dialogs", 3, CELL);
        const auto add = [&](LPCWSTR pszCaption, LPCWSTR pszText, LPCWSTR pszPicture,
                             const GTASKDIALOGCONFIG& config) {
            Add(grid, pszCaption, pszText, pszPicture, [config] { return RunTaskDialog(config); });
        };
        GTASKDIALOGCONFIG config{};
        config.hwndParent = m_hwnd;
        config.pszWindowTitle = L"Gallery";
        config.pszMainInstruction = L"Save the gallery?";
        config.pszContent = L"What you have changed since the last time would be lost.";
        config.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON;
        config.dwDefaultButton = TDCBF_YES_BUTTON;
        add(L"main instruction", L"Instruction", L"dialog-instruction", config);
        config.pszContent = LONG_TEXT;
        add(L"text over several lines", L"Long text", L"dialog-long-text", config);
        config.pszMainInstruction = nullptr;
        config.pszContent = L"Short.";
        config.dwCommonButtons = 0x3F;
        config.dwDefaultButton = TDCBF_RETRY_BUTTON;
        add(L"wider for its buttons", L"All six buttons", L"dialog-six-buttons", config);
        config.dwCommonButtons = 0;
        config.pszContent = L"Only Esc or the close box ends this.";
        add(L"Esc gives IDCANCEL", L"No button", L"dialog-no-button", config);
        config.dwCommonButtons = TDCBF_CLOSE_BUTTON;
        config.pszContent = L"As wide as it was asked to be: 320 dialog units.";
        config.cxWidth = 320;
        add(L"320 units wide", L"Wide", L"dialog-wide", config);
        Add(grid, L"not in front", L"Behind another", nullptr, [this] {
            const OtherThread window;
            return Describe(GTaskDialog::MessageBoxW(m_hwnd, L"Another thread's window was in front.",
                                                     L"Gallery", MB_OK));
        });
        return grid.Bottom();
    }

    int MakeWizards(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Wizards", 3, CELL);
        const auto add = [&](LPCWSTR pszCaption, LPCWSTR pszText, LPCWSTR pszPicture, UINT nPages) {
            Add(grid, pszCaption, pszText, pszPicture, [this, nPages] { return RunWizard(m_hwnd, nPages); });
        };
        add(L"one refuses to be left", L"Four pages", L"dialog-wizard-1", DemoWizard::PAGE_COUNT);
        add(L"Finish at once", L"One page", L"dialog-wizard-single", 1);
        add(L"nothing but buttons", L"No page", nullptr, 0);
        return grid.Bottom();
    }

    int MakeCertificates(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"The state of a certificate", 3, CELL);
        const auto add = [&](LPCWSTR pszCaption, LPCWSTR pszText, LPCWSTR pszPicture, DWORD dwType,
                             DWORD dwFailures) {
            Add(grid, pszCaption, pszText, pszPicture,
                [this, dwType, dwFailures] { return RunCertificate(m_hwnd, dwType, dwFailures); });
        };
        add(L"CFT_SECURE", L"Secure", L"dialog-cert-secure", CFT_SECURE, 0x001);
        add(L"CFT_UNTRUSTED", L"Untrusted", L"dialog-cert-untrusted", CFT_UNTRUSTED, 0x02A);
        add(L"CFT_INVALID", L"Invalid", L"dialog-cert-invalid", CFT_INVALID, 0x320);
        add(L"no line at all", L"No failure", L"dialog-cert-no-failure", CFT_UNTRUSTED, 0);
        add(L"all eleven lines", L"Every failure", L"dialog-cert-every-failure", CFT_INVALID, 0x7FF);
        return grid.Bottom();
    }

    HWND m_hwnd = nullptr;
    std::vector<Opener> m_openers;
    GLabel* m_pAnswer = nullptr;
};

} // namespace

std::unique_ptr<Page> MakeDialogsPage()
{
    return std::make_unique<DialogsPage>();
}

} // namespace gallery
