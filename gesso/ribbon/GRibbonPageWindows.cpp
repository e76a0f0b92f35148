// Windows of the host's in a page's groups. In Modern they are seen while their page is.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Quirks.h>
#include <gesso/ribbon/GRibbonPageWatch.h>
#include <gesso/ribbon/ItemCode.h>

#include <utility>

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
    const bool fFollow = WindowsFollow();
    for (UINT i = 0; i < nCount; i++) {
        Item item{};
        item.hwnd = phwnd[i];
        item.uFlags = fFollow ? gesso::ITEM_AWAY : 0;
        pGroup->aItems.Add(item);
    }
    // Last, since the host may answer the messages of this by changing the page.
    if (fFollow) {
        return UpdateWindows();
    }
    for (UINT i = 0; i < nCount; i++) {
        ShowWindow(phwnd[i], SW_SHOW);
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
    const auto isActive = [this] { return m_pRibbon->ActivePage() == this; };
    bool fShow = isActive();
    for (UINT uItem = NextWindow(RIBBON_NONE, fShow); uItem != RIBBON_NONE;) {
        Item& item = *ItemOfCode(uItem);
        item.uFlags = fShow ? item.uFlags & ~gesso::ITEM_AWAY : item.uFlags | gesso::ITEM_AWAY;
        ShowWindow(item.hwnd, fShow ? SW_SHOWNA : SW_HIDE);
        if (!watch.IsAlive()) {
            return;
        }
        const bool fTurned = std::exchange(fShow, isActive()) != fShow;
        uItem = NextWindow(fTurned ? RIBBON_NONE : uItem, fShow);
    }
}

// The next item, behind one or from the first on, whose window is to be shown or hidden. One that the host
// has hidden itself stays so.
UINT GRibbonPage::NextWindow(UINT uFrom, bool fShow) const
{
    gesso::NextInOrder next(uFrom, 1);
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        const auto& items = m_aGroups[i].aItems;
        for (UINT k = 0; k < items.GetLength(); k++) {
            const Item& item = items[k];
            const bool fDue = fShow ? (item.uFlags & gesso::ITEM_AWAY) != 0 : IsShown(item.hwnd);
            if (item.uType == RIT_WINDOW && item.hwnd && fDue) {
                next.Offer(gesso::ItemCode(i, k));
            }
        }
    }
    return next.Found();
}
