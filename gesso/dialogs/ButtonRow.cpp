#include <gesso/controls/GButton.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowDpi.h>
#include <gesso/language/LanguageTable.h>

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

namespace gesso {

ButtonRow::ButtonRow(HWND hDlg, HFONT hFont) : m_hDlg(hDlg), m_hFont(hFont)
{
    const RECT rcUnits = MapUnits(hDlg, Metrics::DIALOG_BUTTON_WIDTH, Metrics::DIALOG_BUTTON_HEIGHT,
                                  Metrics::DIALOG_BUTTON_GAP, 0);
    m_size = {rcUnits.left, rcUnits.top};
    m_nGap = rcUnits.right;
}

void ButtonRow::FitLabel(LPCWSTR pszLabel)
{
    m_size.cx = std::max<int>(m_size.cx, WidthOf(pszLabel));
}

int ButtonRow::WidthOf(LPCWSTR pszLabel) const
{
    if (!HasOtherTexts() || !pszLabel) {
        return 0;
    }
    const WindowContext context(m_hDlg);
    const SelectScope font(context, m_hFont ? m_hFont : DefaultFontOf(m_hDlg));
    RECT rc{};
    DrawTextW(context, pszLabel, -1, &rc, DT_CALCRECT | DT_SINGLELINE);
    return rc.right - rc.left + 2 * m_nGap;
}

void ButtonRow::StandAt(int xRight, int y)
{
    m_xRight = xRight;
    m_y = y;
}

void ButtonRow::StandIn(const RECT& rcFooter)
{
    const int cyFooter = rcFooter.bottom - rcFooter.top;
    StandAt(rcFooter.right - m_nGap, rcFooter.top + cyFooter / 2 - m_size.cy / 2);
}

void ButtonRow::Make(GButton& button, int nPlace, int nId, LPCWSTR pszLabel, DWORD dwStyle) const
{
    const int x = m_xRight - nPlace * (m_nGap + m_size.cx) - m_size.cx;
    MakeAt(button, x, m_size.cx, nId, pszLabel, dwStyle);
}

void ButtonRow::MakeAt(GButton& button, int x, int cx, int nId, LPCWSTR pszLabel, DWORD dwStyle) const
{
    // Tells the dialog, which may end there and delete the button.
    HWND hwnd = button.GetHwnd();
    if (hwnd) {
        button.MoveWindow(x, m_y, cx, m_size.cy);
    } else {
        hwnd = button.Create(x, m_y, cx, m_size.cy, m_hDlg, nId, pszLabel, 0, dwStyle);
    }
    if (m_hFont) {
        SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont), 0);
    }
}

GButton** MakeButtonArray(size_t nCount)
{
    return std::make_unique<GButton*[]>(nCount).release();
}

void EndButtonArray(GButton**& ppButtons, size_t nCount)
{
    const std::unique_ptr<GButton*[]> apButtons(std::exchange(ppButtons, nullptr));
    for (GButton* pButton : std::span(apButtons.get(), apButtons ? nCount : 0)) {
        if (pButton) {
            pButton->Destroy();
            delete pButton;
        }
    }
}

} // namespace gesso
