#include <gesso/containers/Misuse.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/DialogAccess.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/dialogs/TaskDialogContent.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>

namespace Metrics = gesso::Metrics;
using gesso::COMMON_BUTTONS;
using gesso::CommonButton;
using gesso::Frame;
using gesso::PlainPart;
using gesso::ThemePart;
using gesso::WhiteDialogDefault;

namespace {

constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_CENTER | DS_SETFONT | DS_FIXEDSYS;
static_assert(DIALOG_STYLE == 0x80C80848);

// The name of the system icon, null for none.
LPCWSTR IconOf(UINT uType)
{
    constexpr WORD FIRST_ICON = 32513; // hand, question, exclamation, asterisk
    const UINT uIcon = (uType & MB_ICONMASK) >> 4;
    return uIcon >= 1 && uIcon <= 4 ? MAKEINTRESOURCEW(FIRST_ICON - 1 + uIcon) : nullptr;
}

HICON LoadSystemIcon(HWND hwnd, LPCWSTR pszIcon)
{
    HICON hIcon = nullptr;
    if (pszIcon) {
        IsolationAwareLoadIconWithScaleDown(nullptr, pszIcon, gesso::SystemMetric(hwnd, SM_CXICON),
                                            gesso::SystemMetric(hwnd, SM_CYICON), &hIcon);
    }
    return hIcon;
}

HRESULT GiveButton(INT_PTR nResult, UINT* puButton)
{
    if (puButton) {
        *puButton = static_cast<UINT>(nResult);
    }
    return static_cast<int>(nResult) == -1 ? E_FAIL : S_OK;
}

void FreeIcon(const GTASKDIALOGCONFIG& config)
{
    if (config.hMainIcon) {
        DestroyIcon(config.hMainIcon);
    }
}

// Runs the dialog, and frees the icon that was loaded for it.
HRESULT RunWithIcon(const GTASKDIALOGCONFIG& config, UINT* puButton)
{
    const HRESULT hr = GTaskDialog::IsolationAwareTaskDialogIndirect(&config, puButton);
    FreeIcon(config);
    return hr;
}

} // namespace

// --- The static functions ---

HRESULT GTaskDialog::IsolationAwareTaskDialogIndirect(const GTASKDIALOGCONFIG* pConfig, UINT* puButton)
{
    if (!pConfig) {
        gesso::Misuse("GTaskDialog: no configuration");
        return GiveButton(-1, puButton);
    }
    if (!gesso::WillHave(gesso::Quirk::TaskDialogAsItWas)) {
        gesso::MessageContent content = gesso::ContentOf(*pConfig);
        return GiveButton(gesso::MessageDialog(content).Run(pConfig->hwndParent, pConfig->hInstance),
                          puButton);
    }
    const gesso::EmptyDialogTemplate dialog(0, DIALOG_STYLE,
                                            pConfig->cxWidth ? pConfig->cxWidth : Metrics::TASK_DIALOG_WIDTH,
                                            Metrics::TASK_DIALOG_HEIGHT, pConfig->pszWindowTitle);
    GTaskDialog object(pConfig);
    if (!dialog.Get() || !object.HasTexts()) {
        return GiveButton(-1, puButton);
    }
    return GiveButton(IsolationAwareDialogBoxIndirectParamW(pConfig->hInstance, dialog.Get(),
                                                            pConfig->hwndParent, DialogProc,
                                                            reinterpret_cast<LPARAM>(&object)),
                      puButton);
}

HRESULT GTaskDialog::IsolationAwareTaskDialog(HWND hwndParent, HINSTANCE hInstance, LPCWSTR pszTitle,
                                              LPCWSTR pszMainInstruction, LPCWSTR pszContent,
                                              DWORD dwCommonButtons, LPCWSTR pszIcon, UINT* puButton)
{
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwndParent;
    config.hInstance = hInstance;
    config.pszWindowTitle = pszTitle;
    config.hMainIcon = LoadSystemIcon(hwndParent, pszIcon);
    const gesso::NamedIcon icon(config.hMainIcon, pszIcon);
    config.pszMainInstruction = pszMainInstruction;
    config.pszContent = pszContent;
    config.dwCommonButtons = dwCommonButtons;
    for (const DWORD dwDefault : {TDCBF_OK_BUTTON, TDCBF_YES_BUTTON}) {
        if (!config.dwDefaultButton) {
            config.dwDefaultButton = dwCommonButtons & dwDefault;
        }
    }
    return RunWithIcon(config, puButton);
}

UINT GTaskDialog::MessageBoxW(HWND hwndParent, LPCWSTR pszText, LPCWSTR pszCaption, UINT uType)
{
    const gesso::MessageType& type = gesso::TypeOf(uType);
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwndParent;
    config.hInstance = GetModuleHandleW(nullptr);
    config.pszWindowTitle = pszCaption;
    config.hMainIcon = LoadSystemIcon(hwndParent, IconOf(uType));
    const gesso::NamedIcon icon(config.hMainIcon, IconOf(uType));
    config.pszContent = pszText;
    config.dwCommonButtons = type.dwButtons;
    config.dwDefaultButton = DefaultOf(type, uType);
    UINT uButton = 0;
    if (gesso::WillHave(gesso::Quirk::TaskDialogAsItWas)) {
        RunWithIcon(config, &uButton);
        return uButton;
    }
    gesso::MessageContent content = gesso::ContentOf(config);
    gesso::TakeMessageType(uType, &content);
    GiveButton(gesso::MessageDialog(content).Run(hwndParent, config.hInstance), &uButton);
    FreeIcon(config);
    return uButton;
}

HRESULT GTaskDialog::Ask(const GTASKDIALOGCONFIG* pConfig, LPCWSTR pszVerification, bool* pfChecked,
                         UINT* puButton)
{
    if (!pConfig) {
        gesso::Misuse("GTaskDialog::Ask: no configuration");
        return GiveButton(-1, puButton);
    }
    gesso::MessageContent content = gesso::ContentOf(*pConfig);
    content.pszVerification = pszVerification;
    content.fChecked = pfChecked && *pfChecked;
    const INT_PTR nResult = gesso::MessageDialog(content).Run(pConfig->hwndParent, pConfig->hInstance);
    if (pfChecked) {
        *pfChecked = content.fChecked;
    }
    return GiveButton(nResult, puButton);
}

GTaskDialog::GTaskDialog(const GTASKDIALOGCONFIG* pConfig) : m_pConfig(pConfig)
{
    if (pConfig->pszMainInstruction) {
        m_pszMainInstruction.Reset(gesso::CopyText(pConfig->pszMainInstruction));
    }
    m_pszContent.Reset(gesso::CopyText(pConfig->pszContent));
}

// Whether there was memory for the texts.
bool GTaskDialog::HasTexts() const
{
    return m_pszContent && (m_pszMainInstruction || !m_pConfig->pszMainInstruction);
}

DLGPROC GTaskDialog::GetDialogProc()
{
    return DialogProc;
}

// --- Drawing ---

void GTaskDialog::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const auto part = [&](int nPart, PlainPart plain) {
        return ThemePart(m_hTheme, hdc, nPart, 0, plain).In(m_hWnd);
    };
    const gesso::SelectScope font(hdc, gesso::FontOf(m_hWnd));
    part(TDLG_PRIMARYPANEL, PlainPart::DialogPanel).DrawBackground(rcClient);
    gesso::DrawDialogIcon(m_hWnd, hdc, m_pConfig->hMainIcon, {m_rcIcon.left, m_rcIcon.top});
    part(TDLG_SECONDARYPANEL, PlainPart::DialogFooter).DrawBackground(m_rcFooter);
    if (m_pszMainInstruction) {
        // Fixed behaviour: measured with its lines broken at words, but drawn without. Broken lines would run
        // into the text below where the style draws larger than it measures.
        gesso::TextPane(m_hWnd, m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE)
            ->DrawString(m_pszMainInstruction, 0, m_rcMainInstruction);
    }
    gesso::TextPane(m_hWnd, m_hTheme, hdc, TDLG_CONTENTPANE)
        ->DrawString(m_pszContent, DT_WORDBREAK, m_rcContent);
}

// --- Messages ---

INT_PTR GTaskDialog::OnCommand(UINT uId)
{
    const auto isEnd = [uId](const CommonButton& common) { return static_cast<UINT>(common.nId) == uId; };
    if (!std::any_of(std::begin(COMMON_BUTTONS), std::end(COMMON_BUTTONS), isEnd)) {
        return 0;
    }
    EndDialog(m_hWnd, static_cast<INT_PTR>(uId));
    return 1;
}

LRESULT GTaskDialog::OnDestroy()
{
    gesso::EndButtonArray(m_ppButtons, std::size(COMMON_BUTTONS));
    m_hTheme.Reset();
    return 0;
}

INT_PTR CALLBACK GTaskDialog::DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::RouteDialog<GTaskDialog, WhiteDialogDefault>(hDlg, uMsg, wParam, lParam);
}

INT_PTR GTaskDialog::OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_INITDIALOG: return OnInitDialog();
    case WM_COMMAND: return OnCommand(LOWORD(wParam));
    case WM_ACTIVATE: return gesso::OnDialogActivate(hDlg, wParam);
    case WM_PAINT: return gesso::PaintControl<gesso::Lifeline>(*this, hDlg);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_NOTIFY: return 1;
    case WM_DESTROY: return OnDestroy();
    default: return WhiteDialogDefault(hDlg, uMsg, wParam, lParam);
    }
}
