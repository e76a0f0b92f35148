// Where the task dialog's texts and buttons stand, and how large it is for them; worked out at WM_INITDIALOG.

#include <gesso/controls/GButton.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/TaskDialogContent.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>
#include <bit>

using gesso::COMMON_BUTTONS;
using gesso::CommonButton;
using gesso::MapUnits;
namespace Metrics = gesso::Metrics;

int GTaskDialog::TextLimit(HDC hdc) const
{
    return gesso::TaskTextLimit(m_hWnd, m_hTheme, hdc);
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
        m_rcMainInstruction = gesso::TextPane(m_hWnd, m_hTheme, hdc, TDLG_MAININSTRUCTIONPANE)
                                  ->TextExtent(m_pszMainInstruction, DT_WORDBREAK, rcRoom);
        m_rcMainInstruction.bottom += cyGap;
        xWidest = std::max<int>(m_rcMainInstruction.right, 0);
    }
    rcRoom = MapUnits(m_hWnd, Metrics::TASK_DIALOG_TEXT_LEFT, 0, 0, Metrics::TASK_DIALOG_TEXT_GAP);
    rcRoom.top += m_rcMainInstruction.bottom;
    rcRoom.right = xLimit;
    m_rcContent = gesso::TextPane(m_hWnd, m_hTheme, hdc, TDLG_CONTENTPANE)
                      ->TextExtent(m_pszContent, DT_WORDBREAK, rcRoom);
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
    gesso::ButtonRow row(m_hWnd, gesso::FontOf(m_hWnd));
    for (const CommonButton& common : COMMON_BUTTONS) {
        if (dwButtons & common.dwBit) {
            row.FitLabel(gesso::TextOf(common.label));
        }
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const int cxNeeded = (row.Width() + row.Gap()) * std::popcount(dwButtons) + row.Gap();
    if (rcClient.right < cxNeeded) {
        gesso::GrowWindow(m_hWnd, cxNeeded - rcClient.right, 0);
    }
    CalculateFooter(&m_rcFooter);
    row.StandIn(m_rcFooter);
    if (!m_ppButtons) {
        m_ppButtons = gesso::MakeButtonArray(std::size(COMMON_BUTTONS));
    }
    int nPlace = 0;
    for (const CommonButton& common : COMMON_BUTTONS) {
        // A dialog that ends while a button is made has no place for more.
        if (m_ppButtons && (dwButtons & common.dwBit)) {
            if (!m_ppButtons[nPlace]) {
                m_ppButtons[nPlace] = new GButton;
            }
            row.Make(*m_ppButtons[nPlace], nPlace, common.nId, gesso::TextOf(common.label));
            nPlace++;
        }
    }
}

void GTaskDialog::SetDefaultButton()
{
    for (const CommonButton& common : COMMON_BUTTONS) {
        if (m_pConfig->dwDefaultButton == common.dwBit && (m_pConfig->dwCommonButtons & common.dwBit)) {
            SendMessageW(m_hWnd, DM_SETDEFID, static_cast<WPARAM>(common.nId), 0);
        }
    }
}

// Also of a dialog whose dots an inch are others now: its buttons move.
void GTaskDialog::LayOut(const RECT* prcWanted)
{
    const auto cx = static_cast<LONG>(m_pConfig->cxWidth ? m_pConfig->cxWidth : Metrics::TASK_DIALOG_WIDTH);
    gesso::FitDialog(m_hWnd, prcWanted, {cx, Metrics::TASK_DIALOG_HEIGHT});
    m_hTheme.Open(m_hWnd, L"TASKDIALOG");
    {
        const gesso::WindowContext context(m_hWnd);
        // For a style whose panes have no font of their own.
        const gesso::SelectScope font(context, gesso::FontOf(m_hWnd));
        FitTexts(MeasureTexts(context) + m_rcIcon.left);
    }
    MakeButtons();
}

void GTaskDialog::OnScaling(const RECT* prcWanted)
{
    LayOut(prcWanted);
    Invalidate(0);
}

LRESULT GTaskDialog::OnInitDialog()
{
    const HWND hDlg = m_hWnd;
    LayOut(nullptr);
    SetDefaultButton();
    // Last, since it makes the owner inactive, which may end the dialog then.
    if (GetWindowLongW(m_hWnd, GWL_STYLE) & DS_CENTER) {
        RECT rc{};
        GetWindowRect(m_hWnd, &rc);
        gesso::CenterWindow(m_hWnd, ::GetParent(m_hWnd), {rc.right - rc.left, rc.bottom - rc.top});
    }
    gesso::TellAccess(hDlg, EVENT_SYSTEM_ALERT);
    return 1;
}
