// Where the message dialog's texts and controls stand; worked out at WM_INITDIALOG.

#include <gesso/controls/GButton.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr UINT TEXT_FORMAT = DT_WORDBREAK | DT_NOPREFIX;

// Beyond any message, so that the rest of the arithmetic has room; a longer one ends there.
constexpr LONG TALLEST = 0x3FFFFFFF;

// The largest client area that a window may have on its monitor.
SIZE LargestClient(HWND hwnd)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (!GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &monitor)) {
        return {TALLEST, TALLEST};
    }
    RECT rcWindow{};
    RECT rcClient{};
    GetWindowRect(hwnd, &rcWindow);
    GetClientRect(hwnd, &rcClient);
    const RECT& rcWork = monitor.rcWork;
    return {rcWork.right - rcWork.left - (rcWindow.right - rcWindow.left - rcClient.right),
            rcWork.bottom - rcWork.top - (rcWindow.bottom - rcWindow.top - rcClient.bottom)};
}

// A button or check box of the dialog, whose keys the dialog sees first.
template <class CONTROL> LRESULT CALLBACK KeyedProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* const pDialog = reinterpret_cast<MessageDialog*>(GetWindowLongPtrW(GetParent(hwnd), DWLP_USER));
    if (pDialog && uMsg == WM_KEYDOWN && pDialog->TakesKey(wParam)) {
        return 0;
    }
    const LRESULT lAnswer = CONTROL::WindowProc(hwnd, uMsg, wParam, lParam);
    const bool fAcross = uMsg == WM_GETDLGCODE && (wParam == VK_UP || wParam == VK_DOWN);
    return pDialog && fAcross && pDialog->Scrolls() ? lAnswer | DLGC_WANTARROWS : lAnswer;
}

template <class CONTROL> void TakeKeysOf(HWND hwnd)
{
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(KeyedProc<CONTROL>));
}

} // namespace

// Returns the right edge of the widest text.
int MessageDialog::PlaceTexts(HDC hdc, int xLimit)
{
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, Metrics::TASK_DIALOG_TEXT_TOP,
                                  Metrics::TASK_DIALOG_ICON, Metrics::TASK_DIALOG_TEXT_GAP);
    const int cyGap = rcUnits.bottom;
    m_ptIcon = {rcUnits.right, rcUnits.top};
    RECT rcRoom{rcUnits.left, rcUnits.top, xLimit, TALLEST};
    m_rcInstruction = {rcRoom.left, rcRoom.top, rcRoom.left, rcRoom.top};
    if (m_content.pszInstruction) {
        m_rcInstruction = TextPane(m_hWnd, m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE)
                              ->TextExtent(m_content.pszInstruction, TEXT_FORMAT, rcRoom);
        rcRoom.top = m_rcInstruction.bottom + cyGap;
    }
    m_rcContent = TextPane(m_hWnd, m_hTheme, hdc, TDLG_CONTENTPANE)
                      ->TextExtent(m_content.pszContent, TEXT_FORMAT, rcRoom);
    m_cyTexts = m_rcContent.bottom + cyGap;
    return std::max(m_rcInstruction.right, m_rcContent.right);
}

int MessageDialog::ButtonWidth(HDC hdc) const
{
    const ThemePart label = ControlTexts(m_hWnd, m_hTheme, hdc);
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::DIALOG_BUTTON_WIDTH, 0, Metrics::DIALOG_BUTTON_GAP, 0);
    int cxWidest = rcUnits.left;
    for (const DialogButton& button : m_content.buttons) {
        const RECT rc = label.TextExtent(button.pszLabel, DT_SINGLELINE, {});
        cxWidest = std::max<int>(cxWidest, rc.right - rc.left + 2 * rcUnits.right);
    }
    return cxWidest;
}

// The box is about as wide as a footer's button is high.
int MessageDialog::CheckWidth(HDC hdc) const
{
    const RECT rc =
        ControlTexts(m_hWnd, m_hTheme, hdc).TextExtent(m_content.pszVerification, DT_SINGLELINE, {});
    return rc.right - rc.left + MapUnits(m_hWnd, 2 * Metrics::DIALOG_BUTTON_HEIGHT, 0, 0, 0).left;
}

void MessageDialog::Resize(SIZE needed, SIZE most)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const LONG cx = std::min(std::max(rc.right, needed.cx), most.cx);
    const LONG cy = std::min(std::max(rc.bottom, needed.cy), most.cy);
    m_rcFooter = GrowWindow(m_hWnd, cx - rc.right, cy - rc.bottom);
    m_rcFooter.top = m_rcFooter.bottom - MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
}

void MessageDialog::MakeButtons(int cxButton)
{
    ButtonRow row(m_hWnd, FontOf(m_hWnd));
    row.StandIn(m_rcFooter);
    const int nCount = static_cast<int>(m_content.buttons.size());
    int x = m_rcFooter.right - nCount * (cxButton + row.Gap());
    size_t nPlace = 0;
    for (const DialogButton& button : m_content.buttons) {
        const bool fNew = nPlace == m_buttons.size();
        if (fNew) {
            m_buttons.emplace_back(std::make_unique<GButton>());
        }
        // Tells the dialog, which may end there, and its buttons with it.
        row.MakeAt(*m_buttons[nPlace], x, cxButton, button.nId, button.pszLabel);
        if (!IsWindow(m_hWnd)) {
            return;
        }
        if (fNew) {
            TakeKeysOf<GButton>(m_buttons[nPlace]->GetHwnd());
        }
        ++nPlace;
        x += cxButton + row.Gap();
    }
}

void MessageDialog::MakeCheckBox()
{
    const RECT rcUnits =
        MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, Metrics::DIALOG_BUTTON_HEIGHT, 0, 0);
    const int y = m_rcFooter.top - m_cyCheck;
    const int cx = m_rcFooter.right - rcUnits.left;
    const HFONT hFont = FontOf(m_hWnd);
    if (m_check.GetHwnd()) {
        m_check.MoveWindow(rcUnits.left, y, cx, rcUnits.top);
        SendMessageW(m_check, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
        return;
    }
    m_check.Create(rcUnits.left, y, cx, rcUnits.top, m_hWnd, CHECK_ID, m_content.pszVerification, 0,
                   WS_CHILD | WS_VISIBLE | WS_TABSTOP | GS_VCENTER);
    m_check.SetCheck(m_content.fChecked ? BST_CHECKED : BST_UNCHECKED);
    SendMessageW(m_check, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
    TakeKeysOf<GCheckBox>(m_check);
}

void MessageDialog::OnScaling(const RECT* prcWanted)
{
    LayOut(prcWanted);
    m_nPosition = std::min(m_nPosition, LastPosition());
    Invalidate(0);
}

// Also of a dialog whose dots an inch are others now: its controls move.
void MessageDialog::LayOut(const RECT* prcWanted)
{
    const auto cx =
        static_cast<LONG>(m_content.cxWidth ? m_content.cxWidth : UINT{Metrics::TASK_DIALOG_WIDTH});
    FitDialog(m_hWnd, prcWanted, {cx, Metrics::TASK_DIALOG_HEIGHT});
    m_hTheme.Open(m_hWnd, L"TASKDIALOG");
    const SIZE most = LargestClient(m_hWnd);
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::DIALOG_BUTTON_GAP, Metrics::DIALOG_BUTTON_HEIGHT, 0,
                                  Metrics::DIALOG_FOOTER_HEIGHT);
    SIZE needed{};
    int cxButton = 0;
    {
        const WindowContext context(m_hWnd);
        // For a style whose panes have no font of their own.
        const SelectScope font(context, FontOf(m_hWnd));
        const int cxMargin = MapUnits(m_hWnd, Metrics::TASK_DIALOG_ICON, 0, 0, 0).left;
        cxButton = ButtonWidth(context);
        needed.cx =
            PlaceTexts(context, std::min<int>(TaskTextLimit(m_hWnd, m_hTheme, context), most.cx - cxMargin)) +
            cxMargin;
        if (HasCheckBox()) {
            m_cyCheck = rcUnits.top + rcUnits.left;
            needed.cx = std::max<LONG>(needed.cx, m_rcContent.left + CheckWidth(context) + cxMargin);
        }
    }
    const int nButtons = static_cast<int>(m_content.buttons.size());
    needed.cx = std::max<LONG>(needed.cx, nButtons * (cxButton + rcUnits.left) + rcUnits.left);
    needed.cy = m_cyTexts + m_cyCheck + rcUnits.bottom;
    Resize(needed, most);
    MakeButtons(cxButton);
    if (HasCheckBox()) {
        MakeCheckBox();
    }
}

} // namespace gesso
