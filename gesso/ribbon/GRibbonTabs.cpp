// The tabs and their pages: which there are, which one is active, which shows instead of a hidden one, and
// what comes with a change.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/GListNotify.h>
#include <gesso/ribbon/RibbonInside.h>

#include <memory>
#include <utility>

using gesso::Quirk;

namespace {

template <class HANDLE_TYPE> void GiveHandle(HANDLE_TYPE* pHandle, HANDLE_TYPE handle)
{
    if (!pHandle) {
        return gesso::Misuse("GRibbon::GetPageDrawInfo: a null pointer");
    }
    *pHandle = handle;
}

} // namespace

void GRibbon::DeletePage(GRibbonPage* pPage)
{
    delete pPage;
}

UINT GRibbon::AddPage(GRibbonPage* pPage, DWORD dwId, LPCWSTR pszTitle)
{
    if (!m_aTabs.AllocExtra(m_aTabs.GetLength() + 1) || !m_inside->ownPages.Reserve(1)) {
        return RIBBON_NONE;
    }
    if (!pPage) {
        pPage = MakePage(dwId, pszTitle);
    } else if (dwId) {
        pPage->m_dwId = dwId;
    }
    if (!pPage) {
        return RIBBON_NONE;
    }
    if (IndexOf(pPage) != RIBBON_NONE) {
        gesso::Misuse("GRibbon::AddPage: a page that is in the ribbon already");
        m_inside->ownPages.Forget(pPage);
    }
    m_inside->ownPages.Add(pPage);
    const UINT uWidth = MeasureTitle(pszTitle ? pszTitle : pPage->Title());
    const UINT nIndex = m_aTabs.Add({uWidth, RIBBON_TAB_VISIBLE, pPage});
    const gesso::Watch watch(*this);
    pPage->Create(this);
    Invalidate(0);
    pPage->UpdateWindows();
    if (watch) {
        gesso::RibbonInside::TellAdded(*this, nIndex);
    }
    return nIndex;
}

void GRibbon::RemovePage(GRibbonPage* pPage)
{
    const UINT nIndex = IndexOf(pPage);
    if (nIndex == RIBBON_NONE) {
        return;
    }
    const LONG nFormer = gesso::RibbonInside::NumberOfTab(*this, nIndex);
    const GRibbonPage* pShown = ActivePage();
    const gesso::Watch watch(*this);
    m_inside->ownPages.Forget(pPage);
    m_aTabs.RemoveAt(nIndex, 1);
    Invalidate(0);
    if (!Has(*this, Quirk::RibbonActiveStaysByIndex)) {
        OnPageRemoved(pPage, nIndex);
    } else if (m_nActive >= m_aTabs.GetLength()) {
        m_nActive = m_aTabs.GetLength() - 1;
    }
    if (watch) {
        gesso::RibbonInside::TellRemoved(*this, nFormer, pShown);
    }
}

// The active page has another number now, or is the one that went. The parent may do anything here.
void GRibbon::OnPageRemoved(GRibbonPage* pPage, UINT nIndex)
{
    if (nIndex == m_nActive) {
        m_nActive = RIBBON_NONE;
        return TurnPages(pPage);
    }
    if (m_nActive != RIBBON_NONE && nIndex < m_nActive) {
        m_nActive--;
    }
    pPage->UpdateWindows();
}

void GRibbon::RenamePage(GRibbonPage* pPage, LPCWSTR pszTitle)
{
    if (!pPage) {
        return gesso::Misuse("GRibbon::RenamePage: no page");
    }
    // A copy: the title may be the page's own, which goes.
    gesso::ControlText title;
    if (!gesso::HoldText(title, pszTitle)) {
        return;
    }
    const gesso::Watch watch(*this);
    pPage->SetTitle(title);
    if (!watch) {
        return;
    }
    const UINT nIndex = IndexOf(pPage);
    if (nIndex == RIBBON_NONE) {
        return gesso::Misuse("GRibbon::RenamePage: a page that is not in the ribbon");
    }
    m_aTabs[nIndex].uTextWidth = MeasureTitle(title);
}

GRibbonPage* GRibbon::MakePage(DWORD dwId, LPCWSTR pszTitle)
{
    auto pPage = std::make_unique<GRibbonPage>(dwId, pszTitle);
    return gesso::TextLength(pszTitle) > 0 && !*pPage->Title() ? nullptr : pPage.release();
}

GRibbonPage* GRibbon::GetPage(DWORD dwId)
{
    for (const RibbonTab& tab : m_aTabs) {
        if (tab.pPage->m_dwId == dwId) {
            return tab.pPage;
        }
    }
    return nullptr;
}

void GRibbon::SetActive(UINT nIndex)
{
    ChangeActive(nIndex);
}

// The one place where another tab becomes active. The parent may do anything here.
void GRibbon::ChangeActive(UINT nIndex)
{
    const bool fSilent = Has(*this, Quirk::RibbonTabsSilent);
    if (!fSilent && nIndex >= m_aTabs.GetLength()) {
        nIndex = RIBBON_NONE;
    }
    GRibbonPage* pFormer = ActivePage();
    const UINT nFormer = std::exchange(m_nActive, nIndex);
    Invalidate(0);
    if (nIndex == nFormer) {
        return;
    }
    const gesso::Watch watch(*this);
    if (!fSilent) {
        TurnPages(pFormer);
    }
    if (watch && m_nActive == nIndex) {
        gesso::RibbonInside::TellTurn(*this);
    }
}

// What comes with another active tab: a press ends, the hosted windows change, and the parent is told. A copy
// shows nothing, and is told of by nobody.
void GRibbon::TurnPages(GRibbonPage* pFormer)
{
    if (!gesso::Frame::IsAlive(m_hWnd, this)) {
        return;
    }
    const UINT nTurn = ++m_inside->nTurns;
    const gesso::Watch watch(*this);
    if (pFormer) {
        pFormer->Settle();
        pFormer->UpdateWindows();
    }
    if (watch && GetCapture() == m_hWnd) {
        ReleaseCapture();
    }
    if (GRibbonPage* pPage = watch ? ActivePage() : nullptr) {
        pPage->UpdateWindows();
    }
    if (watch && m_inside->nTurns == nTurn) {
        GLISTNOTIFY record{};
        record.iItem = static_cast<int>(m_nActive);
        gesso::Frame::SendNotify(*this, GRN_TABCHANGED, &record.hdr);
    }
}

void GRibbon::SetStatus(UINT nIndex, UINT uStatus)
{
    if (nIndex >= m_aTabs.GetLength()) {
        return gesso::Misuse("GRibbon::SetStatus: an index beyond the tabs");
    }
    const LONG nFormer = gesso::RibbonInside::NumberOfTab(*this, nIndex);
    const gesso::Watch watch(*this);
    m_aTabs[nIndex].uStatus = uStatus;
    if (nIndex == m_nActive && !IsVisible(nIndex)) {
        ChangeActive(TabToShowInsteadOf(nIndex));
    } else {
        Invalidate(0);
    }
    if (watch) {
        gesso::RibbonInside::TellStatus(*this, nIndex, nFormer);
    }
}

UINT GRibbon::TabToShowInsteadOf(UINT nIndex) const
{
    for (UINT i = nIndex; i < m_aTabs.GetLength(); i++) {
        if (IsVisible(i)) {
            return i;
        }
    }
    while (nIndex != 0 && !IsVisible(nIndex)) {
        nIndex--;
    }
    return nIndex;
}

void GRibbon::GetPageDrawInfo(HBRUSH* phBrush, HPEN* phPen, HFONT* phFont) const
{
    GiveHandle<HBRUSH>(phBrush, m_hActiveBrush);
    GiveHandle<HPEN>(phPen, m_hPagePen);
    GiveHandle<HFONT>(phFont, m_hPageFont);
}

bool GRibbon::IsVisible(UINT nIndex) const
{
    return m_aTabs[nIndex].uStatus & RIBBON_TAB_VISIBLE;
}

UINT GRibbon::IndexOf(const GRibbonPage* pPage) const
{
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        if (m_aTabs[i].pPage == pPage) {
            return i;
        }
    }
    return RIBBON_NONE;
}

GRibbonPage* GRibbon::ActivePage() const
{
    return m_nActive < m_aTabs.GetLength() ? m_aTabs[m_nActive].pPage : nullptr;
}

UINT GRibbon::MeasureTitle(LPCWSTR pszTitle) const
{
    const gesso::MemoryContext context;
    const gesso::SelectScope font(context, m_hTabFont);
    SIZE size{};
    GetTextExtentPointW(context, pszTitle, gesso::TextLength(pszTitle), &size);
    return static_cast<UINT>(size.cx);
}
