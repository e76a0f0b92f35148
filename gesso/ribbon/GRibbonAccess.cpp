// What a ribbon says of itself to those who do not see it: its tabs, and behind them the page that shows,
// with its groups and their items. A hosted window stands for itself.
#include <gesso/access/AccessibleSide.h>
#include <gesso/containers/Index.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/ribbon/ItemCode.h>
#include <gesso/ribbon/RibbonInside.h>
#include <gesso/ribbon/VisitTabs.h>

using gesso::AccessibleAction;
using gesso::AccessibleChoice;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Role;
using gesso::WHOLE;

// Kinds of things: a tab by its index; the page, a group by its index, and an item by its code, with the
// index of the page's tab behind each. So nothing of a page is there once another one shows.
class GRibbon::Access final : public gesso::SideOf<GRibbon>
{
public:
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        const GRibbon& ribbon = Of(wnd);
        switch (id.nKind) {
        case TAB: return id.nIndex < ribbon.m_aTabs.GetLength() && ribbon.IsVisible(id.nIndex);
        case PAGE: return PageOf(ribbon, id) != nullptr;
        case GROUP: return GroupOf(ribbon, id) != nullptr;
        case ITEM: return ItemOf(ribbon, id) != nullptr;
        default: return id == WHOLE;
        }
    }
    Role RoleOf(const GWnd& wnd, AccessibleId id) const override
    {
        switch (id.nKind) {
        case TAB: return Role::PageTab;
        case PAGE: return Role::PropertyPage;
        case GROUP: return Role::Grouping;
        case ITEM: return IsCheckBox(*ItemOf(Of(wnd), id)) ? Role::CheckButton : Role::PushButton;
        default: return Role::PageTabList;
        }
    }
    // All of them are drawn with their ampersands as marks.
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override
    {
        const GRibbon& ribbon = Of(wnd);
        switch (id.nKind) {
        case TAB: return gesso::WithoutMnemonic(ribbon.m_aTabs[id.nIndex].pPage->Title());
        case PAGE: return gesso::WithoutMnemonic(PageOf(ribbon, id)->Title());
        case GROUP: return gesso::WithoutMnemonic(GroupOf(ribbon, id)->strTitle);
        case ITEM: return gesso::WithoutMnemonic(gesso::TextOrEmpty(ItemOf(ribbon, id)->pszText));
        default: return {};
        }
    }
    bool TakesLabel() const override { return true; }

    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const GRibbon& ribbon = Of(wnd);
        const bool fKeys = !IsSilent(ribbon) && (id == WHOLE || id.nKind == TAB || id.nKind == ITEM);
        UINT uState = StateOfWindow(Frame::Handle(wnd), fKeys);
        if (id == WHOLE) {
            return uState;
        }
        uState &= id == FocusOf(wnd) ? ~0U : ~UINT{STATE_SYSTEM_FOCUSED};
        uState |= IsInView(wnd, id) ? 0 : STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
        return uState | (id.nKind == TAB    ? StateOfTab(ribbon, id)
                         : id.nKind == ITEM ? StateOfItem(ribbon, id)
                                            : 0);
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        const GRibbon& ribbon = Of(wnd);
        if (id.nKind == TAB) {
            return RectOfTab(ribbon, id.nIndex);
        }
        RECT rc{};
        GetClientRect(Frame::Handle(wnd), &rc);
        rc.top = PageTop(wnd);
        rc.bottom -= 1; // the line below the page
        if (id.nKind == PAGE) {
            return rc;
        }
        const GRibbonPage::Group& group = *GroupOf(ribbon, id);
        if (id.nKind == GROUP) {
            return {group.nLeft, rc.top, group.nRight, rc.bottom};
        }
        const GRibbonPage::Item& item = *ItemOf(ribbon, id);
        return {group.nLeft + item.nLeft, item.nTop, group.nLeft + item.nRight, item.nBottom};
    }

    UINT CountOf(const GWnd& wnd, AccessibleId id) const override
    {
        UINT nCount = 0;
        ForEachChild(Of(wnd), id, [&](AccessibleId) {
            ++nCount;
            return true;
        });
        return nCount;
    }
    AccessibleId ChildOf(const GWnd& wnd, AccessibleId id, UINT nIndex) const override
    {
        AccessibleId found = WHOLE;
        ForEachChild(Of(wnd), id, [&](AccessibleId child) {
            found = child;
            return nIndex-- > 0;
        });
        return found;
    }
    UINT IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const override
    {
        UINT nIndex = 0;
        UINT nFound = NO_INDEX;
        ForEachChild(Of(wnd), outer, [&](AccessibleId child) {
            nFound = child == id ? nIndex : NO_INDEX;
            ++nIndex;
            return nFound == NO_INDEX;
        });
        return nFound;
    }
    AccessibleId ParentOf(const GWnd&, AccessibleId id) const override
    {
        switch (id.nKind) {
        case GROUP: return {PAGE, id.nOuter, id.nOuter};
        case ITEM: return {GROUP, HIWORD(id.nIndex), id.nOuter};
        default: return WHOLE;
        }
    }
    bool IsObject(const GWnd&, AccessibleId id) const override { return id.nKind != TAB; }
    // A hosted window that the keyboard has come to stands in its group.
    AccessibleId FocusOf(const GWnd& wnd) const override
    {
        const GRibbon& ribbon = Of(wnd);
        if (IsSilent(ribbon)) {
            return WHOLE;
        }
        const UINT uItem = ribbon.FocusItem();
        if (uItem != RIBBON_NONE) {
            const AccessibleId id{ITEM, uItem, ribbon.m_nActive};
            return ItemOf(ribbon, id) ? id : ParentOf(wnd, id);
        }
        const AccessibleId id{TAB, ribbon.FocusTab(), 0};
        return Has(wnd, id) ? id : WHOLE;
    }
    UINT NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const override
    {
        const AccessibleId id{TAB, Of(wnd).m_nActive, 0};
        return nIndex == NO_INDEX && outer == WHOLE ? IndexOf(wnd, WHOLE, id) : NO_INDEX;
    }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        const GRibbon& ribbon = Of(wnd);
        RECT rc{};
        GetClientRect(Frame::Handle(wnd), &rc);
        const POINTS at{static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
        if (!PtInRect(&rc, pt)) {
            return WHOLE;
        }
        if (pt.y < PageTop(wnd)) {
            const UINT nTab = ribbon.HitTest(at);
            return nTab == RIBBON_NONE ? WHOLE : AccessibleId{TAB, nTab, 0};
        }
        const AccessibleId page{PAGE, ribbon.m_nActive, ribbon.m_nActive};
        const GRibbonPage* pPage = PageOf(ribbon, page);
        return pPage ? HitPage(ribbon, *pPage, page, at) : WHOLE;
    }

    AccessibleAction ActionOf(const GWnd& wnd, AccessibleId id) const override
    {
        if (id.nKind == TAB) {
            return AccessibleAction::Select;
        }
        const GRibbonPage::Item* pItem = id.nKind == ITEM ? ItemOf(Of(wnd), id) : nullptr;
        return !pItem                        ? AccessibleAction::None
               : !IsCheckBox(*pItem)         ? AccessibleAction::Press
               : pItem->uFlags & RIF_CHECKED ? AccessibleAction::Uncheck
                                             : AccessibleAction::Check;
    }
    bool Act(GWnd& wnd, AccessibleId id) const override
    {
        if (id.nKind == TAB) {
            return Choose(wnd, id, AccessibleChoice::Only);
        }
        GRibbonPage* pPage = PageOf(Of(wnd), id);
        pPage->InvalidateRibbon();
        pPage->Click(id.nIndex);
        return true;
    }
    // As a click on the tab.
    bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const override
    {
        if (id.nKind != TAB || choice == AccessibleChoice::Remove) {
            return false;
        }
        if (id.nIndex != Of(wnd).m_nActive) {
            Of(wnd).SetActive(id.nIndex);
        }
        return true;
    }
    // As arrow keys would: a tab becomes active.
    bool Focus(GWnd& wnd, AccessibleId id) const override
    {
        GRibbon& ribbon = Of(wnd);
        const gesso::Watch watch(ribbon);
        if (!SideOf<GRibbon>::Focus(wnd, WHOLE) || !watch || !Has(wnd, id) || id.nKind == PAGE ||
            id.nKind == GROUP) {
            return false;
        }
        if (GRibbonPage* pPage = id == WHOLE ? nullptr : ribbon.ActivePage()) {
            pPage->ChangeFocusItem(id.nKind == ITEM ? id.nIndex : RIBBON_NONE);
            ribbon.Invalidate(0);
        }
        if (id.nKind == TAB && id.nIndex != ribbon.m_nActive) {
            ribbon.SetActive(id.nIndex);
        } else if (!(id == WHOLE)) {
            gesso::RibbonInside::TellFocus(ribbon);
        }
        return true;
    }

private:
    static constexpr UINT TAB = 1;
    static constexpr UINT PAGE = 2;
    static constexpr UINT GROUP = 3;
    static constexpr UINT ITEM = 4;

    static bool IsSilent(const GRibbon& ribbon)
    {
        return gesso::Has(ribbon, gesso::Quirk::RibbonTakesNoKeys);
    }
    static int PageTop(const GWnd& wnd)
    {
        return gesso::Pixels(Frame::Handle(wnd), gesso::Metrics::RIBBON_PAGE_TOP);
    }
    static bool IsCheckBox(const GRibbonPage::Item& item) { return item.uType == RIT_CHECKBOX; }

    // Of a thing that is the page or in it; null where that does not show.
    static GRibbonPage* PageOf(const GRibbon& ribbon, AccessibleId id)
    {
        return id.nOuter == ribbon.m_nActive ? ribbon.ActivePage() : nullptr;
    }
    static const GRibbonPage::Group* GroupOf(const GRibbon& ribbon, AccessibleId id)
    {
        const GRibbonPage* pPage = PageOf(ribbon, id);
        const UINT nGroup = id.nKind == ITEM ? HIWORD(id.nIndex) : id.nIndex;
        return pPage && nGroup < pPage->m_aGroups.GetLength() ? &pPage->m_aGroups[nGroup] : nullptr;
    }
    static const GRibbonPage::Item* ItemOf(const GRibbon& ribbon, AccessibleId id)
    {
        const GRibbonPage::Group* pGroup = GroupOf(ribbon, id);
        const UINT nItem = LOWORD(id.nIndex);
        const bool fThere =
            pGroup && nItem < pGroup->aItems.GetLength() && IsShown(*pGroup, pGroup->aItems[nItem]);
        return fThere ? &pGroup->aItems[nItem] : nullptr;
    }
    // Groups of a fixed width draw no buttons, and buttons without a size do not show.
    static bool IsShown(const GRibbonPage::Group& group, const GRibbonPage::Item& item)
    {
        return item.uType != RIT_WINDOW && !group.uFixedWidth && item.nRight > item.nLeft;
    }

    // Until `visit` answers false.
    template <class VISIT>
    static void ForEachChild(const GRibbon& ribbon, AccessibleId id, const VISIT& visit)
    {
        switch (id.nKind) {
        case PAGE: return ForEachGroup(ribbon, id, visit);
        case GROUP: return ForEachItem(ribbon, id, visit);
        case ITEM:
        case TAB: return;
        default: break;
        }
        for (UINT i = 0; i < ribbon.m_aTabs.GetLength(); i++) {
            if (ribbon.IsVisible(i) && !visit(AccessibleId{TAB, i, 0})) {
                return;
            }
        }
        if (ribbon.ActivePage()) {
            visit(AccessibleId{PAGE, ribbon.m_nActive, ribbon.m_nActive});
        }
    }
    template <class VISIT>
    static void ForEachGroup(const GRibbon& ribbon, AccessibleId id, const VISIT& visit)
    {
        const UINT nGroups = PageOf(ribbon, id)->m_aGroups.GetLength();
        UINT i = 0;
        while (i < nGroups && visit(AccessibleId{GROUP, i, id.nOuter})) {
            i++;
        }
    }
    template <class VISIT> static void ForEachItem(const GRibbon& ribbon, AccessibleId id, const VISIT& visit)
    {
        const GRibbonPage::Group& group = *GroupOf(ribbon, id);
        for (UINT i = 0; i < group.aItems.GetLength(); i++) {
            if (IsShown(group, group.aItems[i]) &&
                !visit(AccessibleId{ITEM, gesso::ItemCode(id.nIndex, i), id.nOuter})) {
                return;
            }
        }
    }

    static RECT RectOfTab(const GRibbon& ribbon, UINT nTab)
    {
        RECT rc{0, 0, 0, gesso::Pixels(ribbon.m_hWnd, gesso::Metrics::RIBBON_TAB_BASE_LINE)};
        ribbon.VisitTabs([&](UINT nIndex, int nLeft, int nRight) {
            rc.left = nLeft;
            rc.right = nRight;
            return nIndex != nTab;
        });
        return rc;
    }
    AccessibleId HitPage(const GRibbon& ribbon, const GRibbonPage& page, AccessibleId id, POINTS pt) const
    {
        GRibbonPage::HitTestInfo hit{pt, RIBBON_NONE, RIBBON_NONE};
        page.HitTest(&hit);
        const AccessibleId item{ITEM, hit.item, id.nOuter};
        if (hit.item != RIBBON_NONE && ItemOf(ribbon, item)) {
            return item;
        }
        const bool fGroup = hit.group != RIBBON_NONE && page.m_aGroups[hit.group].nLeft <= pt.x;
        return fGroup ? AccessibleId{GROUP, hit.group, id.nOuter} : id;
    }

    bool IsInView(const GWnd& wnd, AccessibleId id) const
    {
        RECT rcClient{}, rcBoth{};
        const RECT rc = RectOf(wnd, id);
        return GetClientRect(Frame::Handle(wnd), &rcClient) && IntersectRect(&rcBoth, &rc, &rcClient);
    }
    static UINT StateOfTab(const GRibbon& ribbon, AccessibleId id)
    {
        UINT uState = STATE_SYSTEM_SELECTABLE;
        uState |= id.nIndex == ribbon.m_nActive ? STATE_SYSTEM_SELECTED : 0;
        uState |= id.nIndex == ribbon.m_nHot ? STATE_SYSTEM_HOTTRACKED : 0;
        return uState;
    }
    // As it is painted.
    static UINT StateOfItem(const GRibbon& ribbon, AccessibleId id)
    {
        const GRibbonPage& page = *PageOf(ribbon, id);
        const GRibbonPage::Item& item = *ItemOf(ribbon, id);
        UINT uState = item.uFlags & RIF_CHECKED ? STATE_SYSTEM_CHECKED : 0;
        uState |= item.uFlags & RIF_DISABLED ? STATE_SYSTEM_UNAVAILABLE : 0;
        const int nPainted =
            page.KeepsHot() ? page.StateOf(id.nIndex, item) : page.StateAsItIs(id.nIndex, item);
        uState |= nPainted == PBS_HOT ? STATE_SYSTEM_HOTTRACKED : 0;
        uState |= nPainted == PBS_PRESSED ? STATE_SYSTEM_PRESSED : 0;
        return uState;
    }
};

const gesso::AccessibleSide& GRibbon::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
