// Windows of the host's in a page's groups. In Modern they are seen while their page is.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Quirks.h>
#include <gesso/ribbon/GRibbonPageWatch.h>
#include <gesso/ribbon/ItemCode.h>

namespace {

// By itself, whatever is hidden around it.
bool IsShown(HWND hwnd)
{
    return GetWindowLongW(hwnd, GWL_STYLE) & WS_VISIBLE;
}

} // namespace

void GRibbonPage::AddWindow(DWORD dwGroupId, HWND hwnd)
{
    AddWindow(dwGroupId, &hwnd, 1);
}

void GRibbonPage::AddWindow(DWORD dwGroupId, HWND* phwnd, UINT nCount)
{
    Group* pGroup = FindGroup(dwGroupId);
    if (!phwnd) {
        return gesso::Misuse("GRibbonPage::AddWindow: no windows");
    }
    if (!pGroup || !pGroup->aItems.AllocExtra(pGroup->aItems.GetLength() + nCount)) {
        return;
    }
    const bool fAway = WindowsFollow() && m_pRibbon->ActivePage() != this;
    for (UINT i = 0; i < nCount; i++) {
        Item item{};
        item.hwnd = phwnd[i];
        item.uFlags = fAway ? gesso::ITEM_AWAY : 0;
        pGroup->aItems.Add(item);
    }
    // Last, since the host may answer the messages of this by changing the page.
    for (UINT i = 0; i < nCount; i++) {
        ShowWindow(phwnd[i], fAway ? SW_HIDE : SW_SHOW);
    }
}

bool GRibbonPage::WindowsFollow() const
{
    return RibbonWindow() && !Has(*m_pRibbon, gesso::Quirk::RibbonWindowsStay);
}

// Shows the windows that were hidden with the page where it is the active one, and else hides those that are
// seen. Whoever hears of it may do anything: activate another page, or end this one.
void GRibbonPage::UpdateWindows()
{
    if (!WindowsFollow()) {
        return;
    }
    const Watch watch(*this);
    while (watch.IsAlive()) {
        const bool fShow = m_pRibbon->ActivePage() == this;
        const HWND hwnd = NextWindow(fShow);
        if (!hwnd) {
            return;
        }
        ShowWindow(hwnd, fShow ? SW_SHOWNA : SW_HIDE);
    }
}

// A window that is to be shown or hidden, and counts as such now; null for none. One that the host has hidden
// itself stays so.
HWND GRibbonPage::NextWindow(bool fShow)
{
    for (Group& group : m_aGroups) {
        for (Item& item : group.aItems) {
            const bool fAway = item.uFlags & gesso::ITEM_AWAY;
            const bool fDue = fShow ? fAway : !fAway && IsShown(item.hwnd);
            if (item.uType == RIT_WINDOW && item.hwnd && fDue) {
                item.uFlags ^= gesso::ITEM_AWAY;
                return item.hwnd;
            }
        }
    }
    return nullptr;
}
