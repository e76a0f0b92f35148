// What the open list of a combo box says of itself: the same items as the combo box does.
#include <gesso/edit/GComboBoxAccess.h>
#include <gesso/framework/Frame.h>

using gesso::AccessibleAction;
using gesso::AccessibleChoice;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::COMBO_ITEM;
using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Role;
using gesso::WHOLE;

class GComboBoxList::Access final : public gesso::SideOf<GComboBoxList>
{
    using Items = GComboBox::Access;

public:
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        const GComboBox* combo = Of(wnd).m_pOwner;
        return combo &&
               (id == WHOLE || (id == AccessibleId{COMBO_ITEM, id.nIndex, 0} && combo->ItemAt(id.nIndex)));
    }
    Role RoleOf(const GWnd&, AccessibleId id) const override
    {
        return id == WHOLE ? Role::List : Role::ListItem;
    }
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override
    {
        const GComboBox& combo = *Of(wnd).m_pOwner;
        return id == WHOLE ? Items::OuterName(combo) : Items::NameOfItem(combo, id.nIndex);
    }
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? StateOfWindow(Frame::Handle(wnd), false)
                           : Items::StateOfItem(*Of(wnd).m_pOwner, id.nIndex);
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        return Items::ItemRect(*Of(wnd).m_pOwner, id.nIndex);
    }
    UINT CountOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? Of(wnd).m_pOwner->m_aItems.GetLength() : 0;
    }
    AccessibleId ChildOf(const GWnd&, AccessibleId, UINT nIndex) const override
    {
        return {COMBO_ITEM, nIndex, 0};
    }
    UINT IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const override
    {
        return outer == WHOLE && id.nKind == COMBO_ITEM && Has(wnd, id) ? id.nIndex : NO_INDEX;
    }
    UINT NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const override
    {
        const UINT nSelected = Of(wnd).m_pOwner->Selected();
        const bool fFirst = outer == WHOLE && nIndex == NO_INDEX;
        return fFirst && Of(wnd).m_pOwner->ItemAt(nSelected) ? nSelected : NO_INDEX;
    }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        const UINT nItem = Of(wnd).HitTest({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)});
        return Of(wnd).IsRow(nItem) ? AccessibleId{COMBO_ITEM, nItem, 0} : WHOLE;
    }
    AccessibleAction ActionOf(const GWnd&, AccessibleId id) const override
    {
        return id == WHOLE ? AccessibleAction::None : AccessibleAction::Select;
    }
    bool Act(GWnd& wnd, AccessibleId id) const override { return Choose(wnd, id, AccessibleChoice::Only); }
    bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const override
    {
        return id.nKind == COMBO_ITEM && choice != AccessibleChoice::Remove &&
               Items::PickItem(*Of(wnd).m_pOwner, id.nIndex);
    }
    bool Show(GWnd& wnd, AccessibleId id) const override
    {
        return id.nKind == COMBO_ITEM && Items::ShowItem(*Of(wnd).m_pOwner, id.nIndex);
    }
};

const gesso::AccessibleSide& GComboBoxList::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
