#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/ribbon/RibbonInside.h>

#include <algorithm>
#include <utility>

using gesso::Frame;

namespace {

constexpr LPCWSTR THEME_CLASS = L"BUTTON";

// Null without memory.
UINT* CopyOptions(const UINT* puOptions, size_t nCount)
{
    void* pCopy = gesso::TryAllocate(nCount * sizeof(UINT));
    return pCopy ? static_cast<UINT*>(std::memcpy(pCopy, puOptions, nCount * sizeof(UINT))) : nullptr;
}

// The index of the first group or item with that id; their count where there is none.
template <class RECORDS> UINT IndexOfId(const RECORDS& records, DWORD dwId)
{
    UINT i = 0;
    while (i < records.GetLength() && records[i].nId != dwId) {
        i++;
    }
    return i;
}

} // namespace

GRibbonPage::GRibbonPage(DWORD dwId, LPCWSTR pszTitle) : m_dwId(dwId), m_hItemFont(g_hDefaultFont)
{
    m_pszTitle.Reset(gesso::CopyText(pszTitle));
}

GRibbonPage::~GRibbonPage()
{
    gesso::Lifeline::Cut(this);
}

void GRibbonPage::Delete(void* p)
{
    delete static_cast<GRibbonPage*>(p);
}

void GRibbonPage::FreeBlock(void* p)
{
    gesso::Free(p);
}

// --- The ribbon

void GRibbonPage::Create(GRibbon* pRibbon)
{
    if (!pRibbon) {
        return gesso::Misuse("GRibbonPage::Create: no ribbon");
    }
    m_press.group = m_press.item = RIBBON_NONE;
    m_hover.group = m_hover.item = RIBBON_NONE;
    ChangeHot(RIBBON_NONE);
    ChangeFocusItem(RIBBON_NONE);
    m_pRibbon = pRibbon;
    m_hwndRibbon = pRibbon->GetHwnd();
    m_hItemFont = gesso::DefaultFontOf(m_hwndRibbon);
    m_hwndTarget = pRibbon->GetParent();
    TakeStyle();
    ChangeState(~0u, false);
}

void GRibbonPage::TakeStyle()
{
    m_pRibbon->GetPageDrawInfo(&m_hBrush, &m_hPen, &m_hGroupFont);
    m_hTheme.Open(m_hwndRibbon, THEME_CLASS);
}

// A font that a derived class has chosen stays.
void GRibbonPage::OnScaling()
{
    if (gesso::IsDefaultFont(m_hItemFont)) {
        m_hItemFont = gesso::DefaultFontOf(m_hwndRibbon);
    }
    TakeStyle();
    for (Group& group : m_aGroups) {
        for (Item& item : group.aItems) {
            if (item.uType != RIT_WINDOW) {
                Measure(item);
            }
        }
        if (!group.uFixedWidth) {
            CalculateGroupSize(&group);
        }
    }
    RecalcWidth();
}

void GRibbonPage::Destroy()
{
    m_hTheme.Reset();
}

HWND GRibbonPage::RibbonWindow() const
{
    return m_pRibbon && Frame::IsAlive(m_hwndRibbon, m_pRibbon) ? m_hwndRibbon : nullptr;
}

void GRibbonPage::SetTitle(LPCWSTR pszTitle)
{
    const bool fOther = OString<wchar_t>::Build(L"%s", Title()) != gesso::TextOrEmpty(pszTitle);
    if (gesso::HoldText(m_pszTitle, pszTitle) && fOther) {
        gesso::RibbonInside::TellTitle(RibbonWindow() ? m_pRibbon : nullptr, this);
    }
}

LPCWSTR GRibbonPage::Title() const
{
    return gesso::TextOrEmpty(m_pszTitle);
}

LRESULT GRibbonPage::OnActivate()
{
    return 0;
}

LRESULT GRibbonPage::OnDeactivate()
{
    return 0;
}

// --- Groups

int GRibbonPage::InsertGroup(DWORD dwAfterId, DWORD dwId, LPCWSTR pszTitle, UINT uFixedWidth)
{
    const UINT nCount = m_aGroups.GetLength();
    const UINT nIndex = dwAfterId ? std::min(IndexOfId(m_aGroups, dwAfterId) + 1, nCount) : 0;
    const int nWidth = gesso::Pixels(RibbonWindow(), gesso::Metrics::RIBBON_EMPTY_GROUP_WIDTH);
    OString<wchar_t> strTitle;
    if (!strTitle.Format(L"%s", gesso::TextOrEmpty(pszTitle)) ||
        !m_aGroups.InsertAt(nIndex, Group{dwId, {}, {}, 0, nWidth, uFixedWidth, 0}))
    {
        return 0;
    }
    m_aGroups[nIndex].strTitle = std::move(strTitle);
    RecalcWidth();
    gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_REORDER);
    return 1;
}

void GRibbonPage::SetGroupName(DWORD dwId, LPCWSTR pszTitle)
{
    if (Group* pGroup = FindGroup(dwId)) {
        pGroup->strTitle.Format(L"%s", gesso::TextOrEmpty(pszTitle));
        gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_NAMECHANGE);
    }
}

int GRibbonPage::RemoveGroup(DWORD dwId)
{
    const UINT nIndex = IndexOfId(m_aGroups, dwId);
    if (nIndex == m_aGroups.GetLength()) {
        return 0;
    }
    m_aGroups.RemoveAt(nIndex, 1);
    gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_REORDER);
    return 1;
}

GRibbonPage::Group* GRibbonPage::FindGroup(DWORD dwId)
{
    const UINT nIndex = IndexOfId(m_aGroups, dwId);
    return nIndex < m_aGroups.GetLength() ? &m_aGroups[nIndex] : nullptr;
}

// --- Items

void GRibbonPage::InsertItem(DWORD dwGroupId, DWORD dwBeforeId, ItemInfo* pInfo)
{
    Group* pGroup = FindGroup(dwGroupId);
    if (!pInfo) {
        return gesso::Misuse("GRibbonPage::InsertItem: no info");
    }
    if (!pGroup) {
        return;
    }
    Item item{};
    item.uType = pInfo->uType;
    item.nId = pInfo->nId;
    if (!pGroup->aItems.AllocExtra(pGroup->aItems.GetLength() + 1) || !TakeInfo(item, *pInfo)) {
        return;
    }
    Measure(item);
    const UINT nIndex = IndexOfId(pGroup->aItems, dwBeforeId);
    pGroup->aItems.InsertAt(nIndex, item);
    OnItemsChanged(*pGroup, nIndex);
    gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_REORDER);
}

void GRibbonPage::SetItemInfo(DWORD dwGroupId, DWORD dwItemId, ItemInfo* pInfo)
{
    Group* pGroup = FindGroup(dwGroupId);
    if (!pInfo) {
        return gesso::Misuse("GRibbonPage::SetItemInfo: no info");
    }
    if (!pGroup) {
        return;
    }
    const UINT nIndex = IndexOfId(pGroup->aItems, dwItemId);
    if (nIndex == pGroup->aItems.GetLength()) {
        return gesso::Misuse("GRibbonPage::SetItemInfo: an item that is not in the group");
    }
    Item& item = pGroup->aItems[nIndex];
    const UINT uFormer = item.uFlags;
    const auto strFormer = OString<wchar_t>::Build(L"%s", gesso::TextOrEmpty(item.pszText));
    if (item.uType != pInfo->uType || !TakeInfo(item, *pInfo)) {
        return;
    }
    Measure(item);
    OnItemsChanged(*pGroup, nIndex);
    if (item.uFlags != uFormer || strFormer != gesso::TextOrEmpty(item.pszText)) {
        gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this,
                                      item.uFlags != uFormer ? EVENT_OBJECT_STATECHANGE
                                                             : EVENT_OBJECT_NAMECHANGE);
    }
}

void GRibbonPage::GetItemInfo(DWORD dwGroupId, DWORD dwItemId, ItemInfo* pInfo)
{
    const Group* pGroup = FindGroup(dwGroupId);
    if (!pInfo) {
        return gesso::Misuse("GRibbonPage::GetItemInfo: no info");
    }
    const UINT nIndex = pGroup ? IndexOfId(pGroup->aItems, dwItemId) : 0;
    if (!pGroup || nIndex == pGroup->aItems.GetLength()) {
        return;
    }
    const Item& item = pGroup->aItems[nIndex];
    if (item.uType != pInfo->uType) {
        pInfo->uType = item.uType;
        pInfo->nId = item.nId;
    } else if (item.uType == RIT_BUTTON) {
        pInfo->nId = item.nId;
        pInfo->nOptions = item.wOptions;
        pInfo->puOptions = item.puOptions;
        pInfo->nImage = item.nImage;
        pInfo->pszText = item.pszText;
    } else if (item.uType == RIT_CHECKBOX) {
        pInfo->nId = item.nId;
        pInfo->bChecked = item.uFlags & RIF_CHECKED ? 1 : 0;
        pInfo->pszCheckText = item.pszText;
    }
}

void GRibbonPage::RemoveItem(DWORD dwGroupId, DWORD dwItemId)
{
    Group* pGroup = FindGroup(dwGroupId);
    const UINT nIndex = pGroup ? IndexOfId(pGroup->aItems, dwItemId) : 0;
    if (!pGroup || nIndex == pGroup->aItems.GetLength()) {
        return;
    }
    const Item& item = pGroup->aItems[nIndex];
    m_ownBlocks.Free(item.pszText);
    m_ownBlocks.Free(item.puOptions);
    pGroup->aItems.RemoveAt(nIndex, 1);
    OnItemsChanged(*pGroup, nIndex);
    gesso::RibbonInside::TellPage(RibbonWindow() ? m_pRibbon : nullptr, this, EVENT_OBJECT_REORDER);
}

// False, with nothing done, without memory.
bool GRibbonPage::TakeInfo(Item& item, const ItemInfo& info)
{
    const bool fButton = item.uType == RIT_BUTTON;
    if (!fButton && item.uType != RIT_CHECKBOX) {
        return true;
    }
    const LPCWSTR pszText = fButton ? info.pszText : info.pszCheckText;
    const bool fOptions = fButton && info.puOptions && info.nOptions > 1;
    LPWSTR pszCopy = pszText ? gesso::CopyText(pszText) : nullptr;
    UINT* puCopy = fOptions ? CopyOptions(info.puOptions, static_cast<size_t>(info.nOptions)) : nullptr;
    if ((pszText && !pszCopy) || (fOptions && !puCopy) || !m_ownBlocks.Reserve(2)) {
        FreeBlock(pszCopy);
        FreeBlock(puCopy);
        return false;
    }
    item.nId = info.nId;
    if (fButton) {
        item.nImage = info.nImage;
        TakeOptions(item, info, puCopy);
    } else {
        item.nImage = -1;
        ChangeCheck(item, info.bChecked);
    }
    TakeText(item, pszCopy);
    return true;
}

// Fixed behaviour: of several sizes only the last is used, and a single one is not kept. To use the first
// would change every item that names several, and a kept one would be told by GetItemInfo.
void GRibbonPage::TakeOptions(Item& item, const ItemInfo& info, UINT* puCopy)
{
    const int nOptions = info.puOptions ? info.nOptions : 0;
    UINT* puFormer = item.puOptions;
    item.puOptions = puCopy;
    item.wOptions = 0;
    if (puCopy) {
        m_ownBlocks.Add(puCopy);
        item.wOptions = static_cast<WORD>(nOptions);
    }
    if (nOptions != 0) {
        item.wSize = HIWORD(info.puOptions[std::max(nOptions, 1) - 1]);
    }
    // Last, since the info may hold what GetItemInfo gave.
    m_ownBlocks.Free(puFormer);
}

void GRibbonPage::TakeText(Item& item, LPWSTR pszCopy)
{
    if (pszCopy) {
        m_ownBlocks.Add(pszCopy);
        m_ownBlocks.Free(std::exchange(item.pszText, pszCopy));
    }
}
