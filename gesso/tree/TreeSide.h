// What both trees say of themselves to those who do not see them: rows, flat, by their numbers. What one row
// is costs the same whatever the number of rows; a navigation bar goes over its chunks for it.
#pragma once

#include <gesso/access/AccessibleSide.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

namespace gesso {

template <class CONTROL> class TreeInput::Side : public SideOf<CONTROL>
{
public:
    // A child that is only counted is asked for here, before anything of it is told: the host may do anything
    // in it, and what is false is not asked on.
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        if (id == WHOLE) {
            return true;
        }
        if (id.nKind != ROW || ToldIndex(RowsOf(wnd), id.nIndex) == NO_INDEX) {
            return false;
        }
        if constexpr (requires(CONTROL & tree) { tree.AskForRow(NO_INDEX); }) {
            if (!const_cast<CONTROL&>(this->Of(wnd)).AskForRow(id.nIndex)) {
                return false;
            }
        }
        return RowsOf(wnd)[id.nIndex] != nullptr;
    }
    Role RoleOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? Role::Outline : RoleOfItem(ItemOf(wnd, id));
    }
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override
    {
        // A separator's is not painted.
        const bool fShown = !(id == WHOLE) && RoleOf(wnd, id) != Role::Separator;
        return fShown ? AccessString::Build(L"%s", static_cast<LPCWSTR>(ItemOf(wnd, id).strName))
                      : AccessString();
    }
    bool HasValue(const GWnd& wnd, AccessibleId id) const override
    {
        return RoleOf(wnd, id) == Role::OutlineItem;
    }
    // The level; where the root shows, that is 0 and its children's is 1.
    AccessString ValueOf(const GWnd& wnd, AccessibleId id) const override
    {
        if (!HasValue(wnd, id)) {
            return {};
        }
        const CONTROL& tree = this->Of(wnd);
        const bool fRoot = tree.Items().FindRow(tree.m_pRoot) != NO_INDEX;
        return AccessString::Build(L"%d", ItemOf(wnd, id).nLevel + (fRoot ? 1 : 0));
    }
    bool TakesLabel() const override { return true; }

    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const HWND hwnd = Frame::Handle(wnd);
        if (id == WHOLE) {
            return AccessibleSide::StateOfWindow(hwnd, true);
        }
        const bool fSelectable = IsSelectableRow(RowsOf(wnd), id.nIndex);
        const bool fSelected = fSelectable && id.nIndex == this->Of(wnd).m_nSelected;
        UINT uState = AccessibleSide::StateOfWindow(hwnd, fSelectable);
        uState &= fSelected ? ~0U : ~UINT{STATE_SYSTEM_FOCUSED};
        uState |= fSelectable ? STATE_SYSTEM_SELECTABLE : 0;
        uState |= fSelected ? STATE_SYSTEM_SELECTED : 0;
        uState |= IsInView(wnd, id) ? 0 : STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
        return uState | StateOfItem(wnd, id);
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        RECT rcClient{};
        GetClientRect(Frame::Handle(wnd), &rcClient);
        return gesso::RectOf(PlaceOf(this->Of(wnd), id.nIndex), this->Of(wnd).m_siV.nPos, rcClient.right);
    }

    UINT CountOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? CountTold(RowsOf(wnd)) : 0;
    }
    AccessibleId ChildOf(const GWnd& wnd, AccessibleId, UINT nIndex) const override
    {
        return {ROW, ToldRow(RowsOf(wnd), nIndex), 0};
    }
    UINT IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const override
    {
        return outer == WHOLE && id.nKind == ROW ? ToldIndex(RowsOf(wnd), id.nIndex) : NO_INDEX;
    }
    AccessibleId FocusOf(const GWnd& wnd) const override
    {
        const UINT row = this->Of(wnd).m_nSelected;
        return IsSelectableRow(RowsOf(wnd), row) ? AccessibleId{ROW, row, 0} : WHOLE;
    }
    UINT NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const override
    {
        return nIndex == NO_INDEX ? IndexOf(wnd, outer, FocusOf(wnd)) : NO_INDEX;
    }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        RECT rcClient{};
        GetClientRect(Frame::Handle(wnd), &rcClient);
        const UINT row = PtInRect(&rcClient, pt) ? RowAt(this->Of(wnd), pt.y) : NO_INDEX;
        return ToldIndex(RowsOf(wnd), row) == NO_INDEX ? WHOLE : AccessibleId{ROW, row, 0};
    }

    AccessibleAction ActionOf(const GWnd& wnd, AccessibleId id) const override
    {
        if (id == WHOLE || !IsSelectableRow(RowsOf(wnd), id.nIndex)) {
            return AccessibleAction::None;
        }
        const auto& item = ItemOf(wnd, id);
        return !HasExpander(item) ? AccessibleAction::Select
               : IsExpanded(item) ? AccessibleAction::Collapse
                                  : AccessibleAction::Expand;
    }
    bool Act(GWnd& wnd, AccessibleId id) const override
    {
        const auto& item = ItemOf(wnd, id);
        return HasExpander(item) ? Open(wnd, id, !IsExpanded(item)) : Choose(wnd, id, AccessibleChoice::Only);
    }
    // As an arrow key would: the focus is where the selection is.
    bool Focus(GWnd& wnd, AccessibleId id) const override
    {
        if (id == WHOLE) {
            return SideOf<CONTROL>::Focus(wnd, id);
        }
        CONTROL& tree = this->Of(wnd);
        const Watch watch(tree);
        if (!IsSelectableRow(RowsOf(wnd), id.nIndex) || !TakeFocus(tree, &id.nIndex)) {
            return false;
        }
        if (id.nIndex != tree.m_nSelected) {
            tree.StepTo(id.nIndex);
            if (watch && TreeActions::TellSelection(tree)) {
                TreeActions::TellScrolled(tree);
            }
        }
        return true;
    }
    // By a click on the row, which the user scrolls into view first. With Ctrl or Shift that does the same,
    // and nothing takes the selection away.
    bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const override
    {
        if (id == WHOLE || choice == AccessibleChoice::Remove || !IsSelectableRow(RowsOf(wnd), id.nIndex)) {
            return false;
        }
        CONTROL& tree = this->Of(wnd);
        const auto hold = tree.View().Hold(RowsOf(wnd)[id.nIndex]);
        if (!ShowRow(tree, &id.nIndex) || !TakeFocus(tree, &id.nIndex)) {
            return false;
        }
        const RECT rc = RectOf(wnd, id);
        Click(tree, id.nIndex,
              {static_cast<SHORT>((rc.left + rc.right) / 2), static_cast<SHORT>((rc.top + rc.bottom) / 2)});
        return true;
    }
    // True also where it is so already.
    bool Open(GWnd& wnd, AccessibleId id, bool fOpen) const override
    {
        if (id == WHOLE || !IsSelectableRow(RowsOf(wnd), id.nIndex) || !HasExpander(ItemOf(wnd, id))) {
            return false;
        }
        CONTROL& tree = this->Of(wnd);
        auto* item = RowsOf(wnd)[id.nIndex];
        if (IsExpanded(*item) == fOpen) {
            return true;
        }
        const auto hold = tree.View().Hold(item);
        const Watch watch(tree);
        Toggle(tree, id.nIndex);
        return !watch || IsExpanded(*item) == fOpen;
    }
    bool Show(GWnd& wnd, AccessibleId id) const override
    {
        if (id == WHOLE) {
            return false;
        }
        CONTROL& tree = this->Of(wnd);
        const auto hold = tree.View().Hold(RowsOf(wnd)[id.nIndex]);
        ShowRow(tree, &id.nIndex);
        return true;
    }

protected:
    static constexpr UINT ROW = 1;
    ~Side() = default;

    static const auto& RowsOf(const GWnd& wnd) { return static_cast<const CONTROL&>(wnd).m_aVisible; }
    // Of a row that is there.
    static const auto& ItemOf(const GWnd& wnd, AccessibleId id) { return *RowsOf(wnd)[id.nIndex]; }

private:
    using Item = std::remove_pointer_t<decltype(CONTROL::m_pRoot)>;

    static bool IsExpanded(const Item& item) { return item.uState & TreeRules<CONTROL>::EXPANDED; }
    virtual Role RoleOfItem(const Item&) const { return Role::OutlineItem; }
    // What is checked.
    virtual UINT MarksOf(const CONTROL&, const Item&) const { return 0; }
    virtual RowPlace PlaceOf(const CONTROL& tree, UINT row) const = 0; // as it is painted
    virtual UINT RowAt(const CONTROL& tree, int y) const = 0;
    virtual void Click(CONTROL& tree, UINT row, POINTS pt) const = 0;
    virtual void Toggle(CONTROL& tree, UINT row) const = 0;

    UINT StateOfItem(const GWnd& wnd, AccessibleId id) const
    {
        const Item& item = ItemOf(wnd, id);
        const bool fOpens = HasExpander(item) && IsSelectableRow(RowsOf(wnd), id.nIndex);
        const UINT uOpen = IsExpanded(item) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
        return (fOpens ? uOpen : 0) | MarksOf(this->Of(wnd), item);
    }
    bool IsInView(const GWnd& wnd, AccessibleId id) const
    {
        RECT rcClient{}, rcBoth{};
        const RECT rc = RectOf(wnd, id);
        return GetClientRect(Frame::Handle(wnd), &rcClient) && IntersectRect(&rcBoth, &rc, &rcClient);
    }

    // Of a row whose item is held. False where there is nothing to go on with, or the row has gone; it may
    // have moved.
    static bool TakeFocus(CONTROL& tree, UINT* pRow)
    {
        Item* item = tree.m_aVisible[*pRow];
        const auto hold = tree.View().Hold(item);
        const HWND hwnd = tree.m_hWnd;
        const Watch watch(tree);
        SetFocus(hwnd);
        return watch && GetFocus() == hwnd && FollowRow(tree, item, pRow);
    }
    bool ShowRow(CONTROL& tree, UINT* pRow) const
    {
        Item* item = tree.m_aVisible[*pRow];
        RECT rcClient{};
        GetClientRect(tree.m_hWnd, &rcClient);
        const RowPlace place = PlaceOf(tree, *pRow);
        const int64_t nPos = tree.m_siV.nPos;
        const bool fAbove = place.nTop < nPos;
        if (!fAbove && place.nBottom <= nPos + rcClient.bottom) {
            return true;
        }
        ScrollTo(tree, SB_VERT, fAbove ? place.nTop : std::min(place.nTop, place.nBottom - rcClient.bottom));
        tree.Invalidate(0);
        return TreeActions::TellScrolled(tree) && FollowRow(tree, item, pRow);
    }
    static bool FollowRow(CONTROL& tree, Item* item, UINT* pRow)
    {
        if (tree.m_aVisible[*pRow] != item) {
            *pRow = tree.View().FindRow(item);
        }
        return *pRow != NO_INDEX;
    }
};

} // namespace gesso
