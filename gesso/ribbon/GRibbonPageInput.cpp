// The mouse, in the ribbon's client coordinates. It comes from the ribbon, while the page is the active one.

#include <gesso/framework/Quirks.h>
#include <gesso/ribbon/GRibbonPageWatch.h>
#include <gesso/ribbon/RibbonInside.h>

#include <utility>

// The one place where the hot item changes.
void GRibbonPage::ChangeHot(UINT uItem)
{
    m_uHotItem = uItem;
}

// The one place where the page's state, GWS_PRESSED and its like, changes.
void GRibbonPage::ChangeState(UINT uBits, bool fOn)
{
    m_uState = fOn ? m_uState | uBits : m_uState & ~uBits;
}

// The one place where a check mark changes.
void GRibbonPage::ChangeCheck(Item& item, bool fChecked)
{
    item.uFlags = fChecked ? item.uFlags | RIF_CHECKED : item.uFlags & ~RIF_CHECKED;
}

LRESULT GRibbonPage::OnLButtonDown(WPARAM, POINTS pt)
{
    if (m_aGroups.GetLength() == 0) {
        return 0;
    }
    ChangeState(GWS_PRESSED, true);
    InvalidateRibbon();
    m_press.pt = pt;
    HitTest(&m_press);
    ChangeHot(m_press.item);
    if (!KeepsHot()) {
        m_hover = m_press; // the pointer may have come without a move
    }
    SetCapture(RibbonWindow());
    return 0;
}

LRESULT GRibbonPage::OnMouseMove(WPARAM, POINTS pt)
{
    TrackLeave();
    const UINT uFormer = m_hover.item;
    m_hover.pt = pt;
    HitTest(&m_hover);
    const bool fOnOther =
        m_hover.item != RIBBON_NONE && m_press.item != RIBBON_NONE && m_press.item != m_hover.item;
    if (!fOnOther) {
        ChangeState(GWS_HOT, m_hover.item != RIBBON_NONE);
        ChangeHot(m_hover.item);
    }
    if (m_hover.item != uFormer) {
        InvalidateRibbon();
    }
    return 0;
}

// A click is a press and a release on the same item.
LRESULT GRibbonPage::OnLButtonUp(WPARAM, POINTS pt)
{
    if (!(m_uState & GWS_PRESSED)) {
        return 0;
    }
    const Watch watch(*this);
    if (!KeepsHot()) {
        ChangeState(GWS_PRESSED, false); // it is not lost
    }
    ReleaseCapture();
    if (!watch.IsAlive()) {
        return 0;
    }
    InvalidateRibbon();
    HitTestInfo release{pt, RIBBON_NONE, RIBBON_NONE};
    HitTest(&release);
    if (!KeepsHot()) {
        m_hover = release;
        ChangeHot(release.item);
    }
    m_press.group = RIBBON_NONE;
    if (std::exchange(m_press.item, RIBBON_NONE) == release.item) {
        Click(release.item);
    }
    return 0;
}

// The parent may do anything in its command, so that the page touches nothing afterwards.
void GRibbonPage::Click(UINT uItem)
{
    Item* pItem = ItemOfCode(uItem);
    if (!pItem) {
        return;
    }
    LPARAM lChecked = 0;
    const WPARAM wId = LOWORD(pItem->nId);
    const HWND hwndTarget = m_hwndTarget;
    if (pItem->uType == RIT_CHECKBOX) {
        ChangeCheck(*pItem, !(pItem->uFlags & RIF_CHECKED));
        lChecked = pItem->uFlags & RIF_CHECKED ? 1 : 0;
        gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_STATECHANGE);
    }
    SendMessageW(hwndTarget, WM_COMMAND, wId, lChecked); // also where a listener has ended the page
}

// Null for the code of no item, and where the item has gone meanwhile.
GRibbonPage::Item* GRibbonPage::ItemOfCode(UINT uItem)
{
    const UINT nGroup = HIWORD(uItem);
    const UINT nItem = LOWORD(uItem);
    if (uItem == RIBBON_NONE || nGroup >= m_aGroups.GetLength() ||
        nItem >= m_aGroups[nGroup].aItems.GetLength()) {
        return nullptr;
    }
    return &m_aGroups[nGroup].aItems[nItem];
}

// Fixed behaviour: the hot item stays as it is until the next move. The item that a click opened something
// over would otherwise lose its highlight while that is open.
bool GRibbonPage::KeepsHot() const
{
    return !RibbonWindow() || Has(*m_pRibbon, gesso::Quirk::RibbonHotStays);
}

LRESULT GRibbonPage::OnMouseLeave()
{
    ChangeState(GWS_HOT | GWS_TRACKING, false);
    m_hover.group = m_hover.item = RIBBON_NONE;
    if (!KeepsHot()) {
        ChangeHot(RIBBON_NONE);
    }
    InvalidateRibbon();
    return 0;
}

// The pointer is over the tabs.
void GRibbonPage::ForgetPointer()
{
    if (m_hover.item != RIBBON_NONE && !KeepsHot()) {
        m_hover.group = m_hover.item = RIBBON_NONE;
        ChangeHot(RIBBON_NONE);
        InvalidateRibbon();
    }
}

// Another page is active now.
void GRibbonPage::Settle()
{
    ChangeState(GWS_HOT | GWS_PRESSED, false);
    m_press.group = m_press.item = RIBBON_NONE;
    m_hover.group = m_hover.item = RIBBON_NONE;
    ChangeHot(RIBBON_NONE);
    ChangeFocusItem(RIBBON_NONE);
}

LRESULT GRibbonPage::OnCaptureChanged(HWND hwndNew)
{
    if (hwndNew != RibbonWindow()) {
        const bool fLost = (m_uState & GWS_PRESSED) && !KeepsHot();
        ChangeState(GWS_PRESSED, false);
        if (fLost) {
            m_press.group = m_press.item = RIBBON_NONE;
            InvalidateRibbon();
        }
    }
    return 0;
}

void GRibbonPage::TrackLeave()
{
    if (!(m_uState & GWS_TRACKING)) {
        TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, RibbonWindow(), 0};
        TrackMouseEvent(&track);
        ChangeState(GWS_TRACKING, true);
    }
}

void GRibbonPage::InvalidateRibbon() const
{
    if (RibbonWindow()) {
        m_pRibbon->Invalidate(0);
    }
}
