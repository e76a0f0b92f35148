#include <gesso/controls/GButton.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/edit/ClipboardText.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_CENTER | DS_SETFONT | DS_FIXEDSYS;

// A message's texts as the platform's box copies them.
class CopiedText
{
public:
    CopiedText() { AddRule(); }
    void Add(LPCWSTR psz)
    {
        if (psz) {
            m_text.insert(m_text.end(), psz, psz + wcslen(psz));
        }
    }
    void EndSection()
    {
        Add(L"\r\n");
        AddRule();
    }
    const std::vector<wchar_t>& Get() const { return m_text; }

private:
    void AddRule()
    {
        constexpr size_t HYPHENS = 27;
        m_text.insert(m_text.end(), HYPHENS, L'-');
        Add(L"\r\n");
    }

    std::vector<wchar_t> m_text;
};

} // namespace

MessageDialog::MessageDialog(MessageContent& content) : m_content(content)
{
    if (!m_content.pszContent) {
        m_content.pszContent = L"";
    }
}

MessageDialog::~MessageDialog() = default;

INT_PTR MessageDialog::Run(HWND hwndOwner, HINSTANCE hInstance)
{
    const EmptyDialogTemplate dialog(0, DIALOG_STYLE,
                                     m_content.cxWidth ? m_content.cxWidth : UINT{Metrics::TASK_DIALOG_WIDTH},
                                     Metrics::TASK_DIALOG_HEIGHT, m_content.pszCaption);
    if (!dialog.Get()) {
        return -1;
    }
    return IsolationAwareDialogBoxIndirectParamW(hInstance, dialog.Get(), hwndOwner, DialogProc,
                                                 reinterpret_cast<LPARAM>(static_cast<GDialog*>(this)));
}

DLGPROC MessageDialog::GetDialogProc()
{
    return DialogProc;
}

// --- Drawing

void MessageDialog::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const auto part = [&](int nPart, PlainPart plain) {
        return ThemePart(m_hTheme, hdc, nPart, 0, plain).In(m_hWnd);
    };
    const auto scrolled = [this](RECT rc) {
        OffsetRect(&rc, 0, -m_nPosition);
        return rc;
    };
    const SelectScope font(hdc, FontOf(m_hWnd));
    part(TDLG_PRIMARYPANEL, PlainPart::DialogPanel).DrawBackground(rcClient);
    if (m_content.hIcon) {
        DrawDialogIcon(m_hWnd, hdc, m_content.hIcon, {m_ptIcon.x, m_ptIcon.y - m_nPosition});
    }
    if (m_content.pszInstruction) {
        TextPane(m_hWnd, m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE)
            ->DrawString(m_content.pszInstruction, DT_WORDBREAK | DT_NOPREFIX, scrolled(m_rcInstruction));
    }
    TextPane(m_hWnd, m_hTheme, hdc, TDLG_CONTENTPANE)
        ->DrawString(m_content.pszContent, DT_WORDBREAK | DT_NOPREFIX, scrolled(m_rcContent));
    if (m_cyCheck) {
        const RECT rcStrip{0, ViewHeight(), rcClient.right, m_rcFooter.top};
        part(TDLG_PRIMARYPANEL, PlainPart::DialogPanel).DrawBackground(rcStrip);
    }
    part(TDLG_SECONDARYPANEL, PlainPart::DialogFooter).DrawBackground(m_rcFooter);
}

void MessageDialog::ScrollTo(int nPosition)
{
    nPosition = std::clamp(nPosition, 0, LastPosition());
    if (nPosition != m_nPosition) {
        m_nPosition = nPosition;
        Invalidate(0);
    }
}

// --- Keys

bool MessageDialog::TakesKey(WPARAM wKey)
{
    const int nLine = Pixels(m_hWnd, Metrics::WHEEL_LINE);
    switch (wKey) {
    case 'C': return GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0 && CopyTexts();
    case VK_UP: ScrollTo(m_nPosition - nLine); break;
    case VK_DOWN: ScrollTo(m_nPosition + nLine); break;
    case VK_PRIOR: ScrollTo(m_nPosition - ViewHeight()); break;
    case VK_NEXT: ScrollTo(m_nPosition + ViewHeight()); break;
    case VK_HOME: ScrollTo(0); break;
    case VK_END: ScrollTo(LastPosition()); break;
    default: return false;
    }
    return Scrolls();
}

bool MessageDialog::CopyTexts()
{
    CopiedText text;
    text.Add(m_content.pszCaption);
    text.EndSection();
    if (m_content.pszInstruction) {
        text.Add(m_content.pszInstruction);
        text.EndSection();
    }
    text.Add(m_content.pszContent);
    text.EndSection();
    for (const DialogButton& button : m_content.buttons) {
        text.Add(&button == &m_content.buttons.front() ? L"" : L"   ");
        text.Add(button.pszLabel);
    }
    text.EndSection();
    PutClipboardText(*this, text.Get().data(), static_cast<UINT>(text.Get().size()));
    return true;
}

// --- Messages

HWND MessageDialog::FirstFocus() const
{
    const HWND hwndDefault = ::GetDlgItem(m_hWnd, m_content.nDefaultId);
    if (m_content.nDefaultId && hwndDefault) {
        return hwndDefault;
    }
    return m_buttons.empty() ? m_hWnd : m_buttons.front()->GetHwnd();
}

INT_PTR MessageDialog::OnInitDialog()
{
    SetWindowLongPtrW(m_hWnd, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
    LayOut(nullptr);
    if (m_content.nDefaultId) {
        SendMessageW(m_hWnd, DM_SETDEFID, static_cast<WPARAM>(m_content.nDefaultId), 0);
    }
    RECT rc{};
    GetWindowRect(m_hWnd, &rc);
    const HWND hwndFocus = FirstFocus();
    const HWND hDlg = m_hWnd;
    // Last, since it makes the owner inactive, which may end the dialog then.
    CenterWindow(m_hWnd, ::GetParent(m_hWnd), {rc.right - rc.left, rc.bottom - rc.top});
    SetFocus(hwndFocus);
    TellAccess(hDlg, EVENT_SYSTEM_ALERT);
    return 0;
}

INT_PTR MessageDialog::OnCommand(int nId)
{
    const auto isIt = [nId](const DialogButton& button) { return button.nId == nId; };
    const bool fButton = std::ranges::any_of(m_content.buttons, isIt);
    if (nId == CHECK_ID && HasCheckBox()) {
        m_content.fChecked = !m_content.fChecked;
        m_check.SetCheck(m_content.fChecked ? BST_CHECKED : BST_UNCHECKED);
        return 1;
    }
    if (nId == IDHELP && fButton) {
        AskOwnerForHelp();
        return 1;
    }
    if (!fButton && !(nId == IDCANCEL && m_content.fEscEnds)) {
        return 0;
    }
    EndDialog(m_hWnd, nId);
    return 1;
}

void MessageDialog::AskOwnerForHelp()
{
    HELPINFO help{};
    help.cbSize = sizeof(help);
    help.iContextType = HELPINFO_WINDOW;
    help.iCtrlId = IDHELP;
    help.hItemHandle = m_hWnd;
    GetCursorPos(&help.MousePos);
    if (const HWND hwndOwner = ::GetParent(m_hWnd)) {
        SendMessageW(hwndOwner, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    }
}

INT_PTR MessageDialog::OnWheel(int nDelta)
{
    const UINT uLines = WheelLines();
    const int64_t nNotch = uLines == WHEEL_PAGESCROLL ? int64_t{ViewHeight()}
                                                      : int64_t{uLines} * Pixels(m_hWnd, Metrics::WHEEL_LINE);
    ScrollTo(Saturated(m_nPosition - nDelta * nNotch / WHEEL_DELTA));
    return 1;
}

INT_PTR MessageDialog::OnDestroy()
{
    SetWindowLongPtrW(m_hWnd, DWLP_USER, 0);
    for (const auto& pButton : m_buttons) {
        pButton->Destroy();
    }
    m_buttons.clear();
    if (HasCheckBox()) {
        m_check.Destroy();
    }
    m_hTheme.Reset();
    return 0;
}

INT_PTR CALLBACK MessageDialog::DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::RouteDialog<MessageDialog, WhiteDialogDefault>(hDlg, uMsg, wParam, lParam);
}

INT_PTR MessageDialog::OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_INITDIALOG: return OnInitDialog();
    case WM_COMMAND: return OnCommand(LOWORD(wParam));
    case WM_ACTIVATE: return OnDialogActivate(hDlg, wParam);
    case WM_PAINT: return PaintControl<Lifeline>(*this, hDlg);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_MOUSEWHEEL: return OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    case WM_NOTIFY: return 1;
    case WM_DESTROY: return OnDestroy();
    default: return WhiteDialogDefault(hDlg, uMsg, wParam, lParam);
    }
}

} // namespace gesso
