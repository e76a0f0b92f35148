// The wizard's pages: which there are, which one shows, and what each is asked.

#include <gesso/containers/Misuse.h>
#include <gesso/controls/GButton.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/framework/Lifeline.h>

#include <algorithm>
#include <utility>

void GWizard::InsertPage(UINT nIndex, stcPage* pPage)
{
    if (!pPage) {
        gesso::Misuse("GWizard::InsertPage: no page");
        return;
    }
    const UINT nCount = m_aPages.GetLength();
    m_aPages.GetAtGrow(nCount) = pPage;
    std::rotate(m_aPages.begin() + std::min(nIndex, nCount), m_aPages.begin() + nCount, m_aPages.end());
}

void GWizard::RemovePage(UINT nIndex)
{
    if (nIndex < m_aPages.GetLength()) {
        m_aPages.RemoveAt(nIndex, 1);
    }
}

stcPage* GWizard::GetPage(UINT nIndex) const
{
    return nIndex < m_aPages.GetLength() ? m_aPages[nIndex] : nullptr;
}

bool GWizard::IsLast(UINT nIndex) const
{
    return nIndex + 1 == m_aPages.GetLength();
}

// Whether the page allows a step. A page without a window has nobody to refuse.
bool GWizard::Ask(UINT nIndex, UINT uCode)
{
    const stcPage* pPage = GetPage(nIndex);
    if (!pPage || !pPage->hwnd) {
        return true;
    }
    stcWizardNotify notify{{m_hWnd, 0, uCode}, 0};
    SendMessageW(pPage->hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notify));
    return notify.nResult != 0;
}

void GWizard::ActivatePage(UINT nIndex)
{
    // The buttons are the last that is made.
    if (!GetPage(nIndex) || !m_pBack) {
        return;
    }
    // A page may end the dialog in its answer, delete the wizard, or activate another page.
    const gesso::Lifeline life(*this);
    const auto isThere = [&life, hwnd = m_hWnd] { return life && IsWindow(hwnd); };
    const HWND hwndFormer = GetFocus();
    if (m_nCurrent != NO_PAGE && (!Ask(m_nCurrent, WZN_KILLACTIVE) || !isThere())) {
        return;
    }
    if (const stcPage* pCurrent = GetPage(m_nCurrent)) {
        ShowWindow(pCurrent->hwnd, SW_HIDE);
    }
    if (!isThere()) {
        return;
    }
    SwitchButtons(nIndex);
    const HWND hwndFocus = GetFocus();
    Ask(nIndex, WZN_SETACTIVE);
    if (!isThere() || m_nCurrent != nIndex || !GetPage(nIndex)) {
        return;
    }
    const stcPage& page = *GetPage(nIndex);
    ShowWindow(page.hwnd, SW_SHOW);
    if (isThere() && GetFocus() == hwndFocus) { // or else the page chose
        KeepFocus(hwndFormer, page);
    }
}

// The one place where the page changes.
void GWizard::ChangePage(UINT nIndex)
{
    m_nCurrent = nIndex;
}

void GWizard::SwitchButtons(UINT nIndex)
{
    if (m_nCurrent != NO_PAGE && IsLast(m_nCurrent)) {
        m_pFinish->SetVisible(0);
        m_pNext->SetVisible(1);
    }
    ChangePage(nIndex);
    if (IsLast(nIndex)) {
        m_pNext->SetVisible(0);
        m_pFinish->SetVisible(1);
        EnableWindow(*m_pFinish, TRUE);
    }
    EnableWindow(*m_pBack, nIndex != 0);
}

// What had the focus may be hidden or disabled by now: then the new page's first control gets it if it was in
// a page, or else the button that leads on. Without that the keyboard would end at nothing, or at Cancel.
void GWizard::KeepFocus(HWND hwndFormer, const stcPage& page)
{
    if (!IsWindowVisible(m_hWnd) || !IsChild(m_hWnd, hwndFormer) ||
        (IsWindowVisible(hwndFormer) && IsWindowEnabled(hwndFormer)))
    {
        return;
    }
    const bool fWasInPage = ::GetParent(hwndFormer) != m_hWnd;
    HWND hwndNew = fWasInPage ? GetNextDlgTabItem(page.hwnd, nullptr, FALSE) : nullptr;
    if (!hwndNew) {
        hwndNew = IsLast(m_nCurrent) ? *m_pFinish : *m_pNext;
    }
    SendMessageW(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(hwndNew), TRUE);
}

void GWizard::NextPage()
{
    ActivatePage(m_nCurrent + 1);
}

void GWizard::PreviousPage()
{
    ActivatePage(m_nCurrent - 1);
}

int GWizard::SetCurrentPage(UINT nIndex, const stcPage* pPage)
{
    if (pPage) {
        for (nIndex = 0; nIndex < m_aPages.GetLength() && m_aPages[nIndex] != pPage;) {
            ++nIndex;
        }
    }
    ActivatePage(nIndex);
    return 1;
}

int GWizard::SetButtons(DWORD dwShow, DWORD dwEnable)
{
    const std::pair<DWORD, GButton*> buttons[] = {
        {WZB_FINISH, m_pFinish}, {WZB_CANCEL, m_pCancel}, {WZB_NEXT, m_pNext}, {WZB_BACK, m_pBack}};
    for (const auto& [dwBit, pButton] : buttons) {
        if (pButton) {
            pButton->SetVisible((dwShow & dwBit) != 0);
            EnableWindow(*pButton, (dwEnable & dwBit) != 0);
        }
    }
    return 1;
}
