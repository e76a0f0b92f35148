// The tabs and their pages: which there are, which one is active, and which shows instead of a hidden one.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/GRibbonPage.h>

#include <memory>

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
    if (!m_aTabs.AllocExtra(m_aTabs.GetLength() + 1) || !m_ownPages.Reserve(1)) {
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
        m_ownPages.Forget(pPage);
    }
    m_ownPages.Add(pPage);
    const UINT uWidth = MeasureTitle(pszTitle ? pszTitle : pPage->Title());
    const UINT nIndex = m_aTabs.Add({uWidth, RIBBON_TAB_VISIBLE, pPage});
    pPage->Create(this);
    Invalidate(0);
    return nIndex;
}

void GRibbon::RemovePage(GRibbonPage* pPage)
{
    const UINT nIndex = IndexOf(pPage);
    if (nIndex == RIBBON_NONE) {
        return;
    }
    m_ownPages.Forget(pPage);
    m_aTabs.RemoveAt(nIndex, 1);
    Invalidate(0);
    if (m_nActive >= m_aTabs.GetLength()) {
        ChangeActive(m_aTabs.GetLength() - 1);
    }
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
    pPage->SetTitle(title);
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
    Invalidate(0);
}

// The one place where the active tab changes.
void GRibbon::ChangeActive(UINT nIndex)
{
    m_nActive = nIndex;
}

void GRibbon::SetStatus(UINT nIndex, UINT uStatus)
{
    if (nIndex >= m_aTabs.GetLength()) {
        return gesso::Misuse("GRibbon::SetStatus: an index beyond the tabs");
    }
    m_aTabs[nIndex].uStatus = uStatus;
    if (nIndex == m_nActive && !IsVisible(nIndex)) {
        ChangeActive(TabToShowInsteadOf(nIndex));
    }
    Invalidate(0);
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
