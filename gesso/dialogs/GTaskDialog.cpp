#include <gesso/containers/Misuse.h>
#include <gesso/controls/GButton.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>
#include <bit>

namespace Metrics = gesso::Metrics;
using gesso::DIALOG_BUTTON_STYLE;
using gesso::MapUnits;
using gesso::PlainPart;
using gesso::ThemePart;

namespace {

constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_CENTER | DS_SETFONT | DS_FIXEDSYS;
static_assert(DIALOG_STYLE == 0x80C80848);

// Columns of text, in average characters of each pane, that the dialog is wide enough for.
constexpr int INSTRUCTION_COLUMNS = 40;
constexpr int CONTENT_COLUMNS = 58;

// In the order of creation, which is the order on the screen from the right.
struct CommonButton
{
    DWORD dwBit;
    LPCWSTR pszLabel;
    int nId;
};
constexpr CommonButton COMMON_BUTTONS[] = {
    {TDCBF_CANCEL_BUTTON, L"Abbrechen", IDCANCEL},
    {TDCBF_OK_BUTTON, L"OK", IDOK},
    {TDCBF_NO_BUTTON, L"Nein", IDNO},
    {TDCBF_YES_BUTTON, L"Ja", IDYES},
    {TDCBF_RETRY_BUTTON, L"Wiederholen", IDRETRY},
    {TDCBF_CLOSE_BUTTON, L"Schliessen", IDCLOSE},
};

// --- What the message box's type asks for ---

struct MessageType
{
    DWORD dwButtons, dwFirst, dwSecond, dwThird; // the buttons, and the default for each MB_DEFBUTTON
};

// By the low four bits. Abort, retry and ignore are not offered.
constexpr MessageType MESSAGE_TYPES[] = {
    {TDCBF_OK_BUTTON, TDCBF_OK_BUTTON, TDCBF_OK_BUTTON, TDCBF_OK_BUTTON},
    {TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_OK_BUTTON, TDCBF_CANCEL_BUTTON, TDCBF_OK_BUTTON},
    {TDCBF_OK_BUTTON, 0, 0, 0},
    {TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_YES_BUTTON, TDCBF_NO_BUTTON,
     TDCBF_CANCEL_BUTTON},
    {TDCBF_YES_BUTTON | TDCBF_NO_BUTTON, TDCBF_YES_BUTTON, TDCBF_NO_BUTTON, TDCBF_YES_BUTTON},
    {TDCBF_RETRY_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_RETRY_BUTTON, TDCBF_CANCEL_BUTTON, TDCBF_RETRY_BUTTON},
};
constexpr MessageType OTHER_TYPE = {TDCBF_OK_BUTTON, 0, 0, 0};

const MessageType& TypeOf(UINT uType)
{
    const UINT uButtons = uType & MB_TYPEMASK;
    return uButtons < std::size(MESSAGE_TYPES) ? MESSAGE_TYPES[uButtons] : OTHER_TYPE;
}

DWORD DefaultOf(const MessageType& type, UINT uType)
{
    if (uType & MB_DEFBUTTON2) {
        return type.dwSecond;
    }
    return uType & MB_DEFBUTTON3 ? type.dwThird : type.dwFirst;
}

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

// Runs the dialog, and frees the icon that was loaded for it.
HRESULT RunWithIcon(const GTASKDIALOGCONFIG& config, UINT* puButton)
{
    const HRESULT hr = GTaskDialog::IsolationAwareTaskDialogIndirect(&config, puButton);
    if (config.hMainIcon) {
        DestroyIcon(config.hMainIcon);
    }
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
    const gesso::EmptyDialogTemplate dialog(0, DIALOG_STYLE,
                                            pConfig->cxWidth ? pConfig->cxWidth : Metrics::TASK_DIALOG_WIDTH,
                                            Metrics::TASK_DIALOG_HEIGHT, pConfig->pszWindowTitle);
    GTaskDialog object(pConfig);
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
    const MessageType& type = TypeOf(uType);
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwndParent;
    config.hInstance = GetModuleHandleW(nullptr);
    config.pszWindowTitle = pszCaption;
    config.hMainIcon = LoadSystemIcon(hwndParent, IconOf(uType));
    config.pszContent = pszText;
    config.dwCommonButtons = type.dwButtons;
    config.dwDefaultButton = DefaultOf(type, uType);
    UINT uButton = 0;
    RunWithIcon(config, &uButton);
    return uButton;
}

GTaskDialog::GTaskDialog(const GTASKDIALOGCONFIG* pConfig) : m_pConfig(pConfig)
{
    if (pConfig->pszMainInstruction) {
        m_pszMainInstruction.Reset(gesso::CopyText(pConfig->pszMainInstruction));
    }
    m_pszContent.Reset(gesso::CopyText(pConfig->pszContent));
}

DLGPROC GTaskDialog::GetDialogProc()
{
    return DialogProc;
}

// --- Layout ---

// Where texts end on the right: 35 units for the icon, and the columns of the wider pane.
int GTaskDialog::TextLimit(HDC hdc) const
{
    const int cxIcon = MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, 0, 0, 0).left;
    const ThemePart instruction(m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE, 0, PlainPart::DialogText);
    const ThemePart content(m_hTheme, hdc, TDLG_CONTENTPANE, 0, PlainPart::DialogText);
    return cxIcon + std::max(INSTRUCTION_COLUMNS * instruction.AverageCharWidth(),
                             CONTENT_COLUMNS * content.AverageCharWidth());
}

// Places icon and texts, and returns the right edge of the widest text.
int GTaskDialog::MeasureTexts(HDC hdc)
{
    const int xLimit = TextLimit(hdc);
    m_rcIcon = MapUnits(m_hWnd, Metrics::TASK_DIALOG_ICON, Metrics::TASK_DIALOG_ICON, 0,
                        Metrics::DIALOG_FOOTER_HEIGHT);
    RECT rcRoom = MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, Metrics::TASK_DIALOG_TEXT_TOP, 0,
                           Metrics::TASK_DIALOG_TEXT_GAP);
    const int cyGap = rcRoom.bottom;
    int xWidest = 0;
    m_rcMainInstruction.bottom = rcRoom.top;
    if (m_pszMainInstruction) {
        rcRoom.right = xLimit;
        m_rcMainInstruction = ThemePart(m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE, 0, PlainPart::DialogText)
                                  .TextExtent(m_pszMainInstruction, DT_WORDBREAK, rcRoom);
        m_rcMainInstruction.bottom += cyGap;
        xWidest = std::max<int>(m_rcMainInstruction.right, 0);
    }
    rcRoom = MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, 0, 0, Metrics::TASK_DIALOG_TEXT_GAP);
    rcRoom.top += m_rcMainInstruction.bottom;
    rcRoom.right = xLimit;
    m_rcContent = ThemePart(m_hTheme, hdc, TDLG_CONTENTPANE, 0, PlainPart::DialogText)
                      .TextExtent(m_pszContent, DT_WORDBREAK, rcRoom);
    return std::max<int>(m_rcContent.right, xWidest);
}

// Grows the window until texts and footer have room.
void GTaskDialog::FitTexts(int cxNeeded)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    if (cxNeeded > rcClient.right) {
        gesso::GrowWindow(m_hWnd, cxNeeded - rcClient.right, 0);
    }
    CalculateFooter(&m_rcFooter);
    if (m_rcContent.bottom > m_rcFooter.top) {
        const int cyMargin = MapUnits(m_hWnd, 0, Metrics::TASK_DIALOG_TEXT_GAP, 0, 0).top;
        gesso::GrowWindow(m_hWnd, 0, m_rcContent.bottom - m_rcFooter.top + cyMargin);
        CalculateFooter(&m_rcFooter);
    }
}

void GTaskDialog::CalculateFooter(RECT* prc) const
{
    const int cyFooter = MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
    GetClientRect(m_hWnd, prc);
    prc->top = prc->bottom - cyFooter;
}

void GTaskDialog::MakeButtons()
{
    const DWORD dwButtons = m_pConfig->dwCommonButtons;
    const int nButtons = std::popcount(dwButtons);
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::DIALOG_BUTTON_WIDTH, Metrics::DIALOG_BUTTON_HEIGHT,
                                  Metrics::DIALOG_BUTTON_GAP, 0);
    const int cx = rcUnits.left, cy = rcUnits.top, cxGap = rcUnits.right;
    const int cyFooter = MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const int cxNeeded = (cx + cxGap) * nButtons + cxGap;
    if (rcClient.right < cxNeeded) {
        rcClient = gesso::GrowWindow(m_hWnd, cxNeeded - rcClient.right, 0);
    }
    const int y = rcClient.bottom - cyFooter + (cyFooter >> 1) - (cy >> 1);
    const HFONT hFont = gesso::FontOf(m_hWnd);
    int x = rcClient.right - cxGap - cx;
    m_ppButtons = new GButton* [std::size(COMMON_BUTTONS)] {};
    GButton** ppNext = m_ppButtons;
    for (const CommonButton& common : COMMON_BUTTONS) {
        if (!(dwButtons & common.dwBit)) {
            continue;
        }
        GButton* pButton = *ppNext++ = new GButton;
        pButton->Create(x, y, cx, cy, m_hWnd, common.nId, common.pszLabel, 0, DIALOG_BUTTON_STYLE);
        if (hFont) {
            SendMessageW(*pButton, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
        }
        x -= cxGap + cx;
    }
}

LRESULT GTaskDialog::OnInitDialog()
{
    m_hTheme.Open(m_hWnd, L"TASKDIALOG");
    const HDC hdc = GetDC(m_hWnd);
    const int nSaved = SaveDC(hdc);
    // For a style whose panes have no font of their own.
    SelectObject(hdc, gesso::FontOf(m_hWnd));
    FitTexts(MeasureTexts(hdc) + m_rcIcon.left);
    RestoreDC(hdc, nSaved);
    ReleaseDC(m_hWnd, hdc);

    MakeButtons();
    // The buttons may have widened the dialog.
    CalculateFooter(&m_rcFooter);
    for (const CommonButton& common : COMMON_BUTTONS) {
        if (m_pConfig->dwDefaultButton == common.dwBit && (m_pConfig->dwCommonButtons & common.dwBit)) {
            SendMessageW(m_hWnd, DM_SETDEFID, static_cast<WPARAM>(common.nId), 0);
        }
    }
    // Last, since it makes the owner inactive, which may end the dialog then.
    if (GetWindowLongW(m_hWnd, GWL_STYLE) & DS_CENTER) {
        RECT rc{};
        GetWindowRect(m_hWnd, &rc);
        gesso::CenterWindow(m_hWnd, ::GetParent(m_hWnd), {rc.right - rc.left, rc.bottom - rc.top});
    }
    return 1;
}

// --- Drawing ---

void GTaskDialog::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const auto part = [&](int nPart, PlainPart plain) { return ThemePart(m_hTheme, hdc, nPart, 0, plain); };
    const gesso::SelectScope font(hdc, gesso::FontOf(m_hWnd));
    part(TDLG_PRIMARYPANEL, PlainPart::DialogPanel).DrawBackground(rcClient);
    DrawIcon(hdc, m_rcIcon.left, m_rcIcon.top, m_pConfig->hMainIcon);
    part(TDLG_SECONDARYPANEL, PlainPart::DialogFooter).DrawBackground(m_rcFooter);
    if (m_pszMainInstruction) {
        // Fixed behaviour: measured with its lines broken at words, but drawn without. Broken lines would run
        // into the text below where the style draws larger than it measures.
        part(TDLG_MAININSTRUCTIONPANE, PlainPart::DialogText)
            .DrawString(m_pszMainInstruction, 0, m_rcMainInstruction);
    }
    part(TDLG_CONTENTPANE, PlainPart::DialogText).DrawString(m_pszContent, DT_WORDBREAK, m_rcContent);
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
    for (GButton** ppButton = m_ppButtons; ppButton && ppButton < m_ppButtons + std::size(COMMON_BUTTONS);
         ++ppButton)
    {
        if (*ppButton) {
            (*ppButton)->Destroy();
            delete *ppButton;
        }
    }
    delete[] m_ppButtons;
    m_ppButtons = nullptr;
    m_hTheme.Reset();
    return 0;
}

INT_PTR CALLBACK GTaskDialog::DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pDialog = static_cast<GTaskDialog*>(ObjectOf(hDlg, uMsg, lParam));
    if (!pDialog) {
        return gesso::OnWhiteDialogColor(uMsg, lParam);
    }
    switch (uMsg) {
    case WM_INITDIALOG: return pDialog->OnInitDialog();
    case WM_COMMAND: return pDialog->OnCommand(LOWORD(wParam));
    case WM_ACTIVATE: return gesso::OnDialogActivate(hDlg, wParam);
    case WM_PAINT: return gesso::PaintControl(*pDialog, hDlg);
    case WM_PRINTCLIENT: return gesso::Frame::OnPrintClient(*pDialog, reinterpret_cast<HDC>(wParam), lParam);
    case WM_NOTIFY: return 1;
    case WM_DESTROY: return pDialog->OnDestroy();
    default: return gesso::OnWhiteDialogColor(uMsg, lParam);
    }
}
