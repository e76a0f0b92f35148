// What a combo box says of itself to those who do not see it: its parts are the field, the button and the
// list, which is described whether it is open or not. The open list's own window says the same of the items.
#pragma once

#include <gesso/access/AccessibleSide.h>
#include <gesso/access/AccessibleThing.h>
#include <gesso/containers/StringOf.h>
#include <gesso/edit/GComboBoxInside.h>

#include <array>

namespace gesso {

// Kinds of things: the parts, in the order of the combo box's children, and the items, which are the list's.
inline constexpr UINT COMBO_FIELD = 1;
inline constexpr UINT COMBO_DROP_BUTTON = 2;
inline constexpr UINT COMBO_LIST = 3;
inline constexpr UINT COMBO_ITEM = 4;

inline bool HasComboList(DWORD dwKind)
{
    return dwKind == GCBS_DROPDOWN || dwKind == GCBS_DROPDOWNLIST;
}

// The parts that a kind has.
struct ComboParts
{
    explicit ComboParts(DWORD dwKind)
    {
        if (dwKind == GCBS_DROPDOWN) {
            kinds[count++] = COMBO_FIELD;
        }
        if (HasComboList(dwKind)) {
            kinds[count++] = COMBO_DROP_BUTTON;
            kinds[count++] = COMBO_LIST;
        }
    }
    // NO_INDEX for one that is not there.
    UINT IndexOf(UINT nKind) const
    {
        for (UINT n = 0; n < count; ++n) {
            if (kinds[n] == nKind) {
                return n;
            }
        }
        return NO_INDEX;
    }
    // The number by which events name it; the combo box's own for one that is not there.
    LONG ChildOf(UINT nKind) const
    {
        const UINT n = IndexOf(nKind);
        return n == NO_INDEX ? CHILDID_SELF : static_cast<LONG>(n) + 1;
    }

    std::array<UINT, 3> kinds{};
    UINT count = 0;
};

} // namespace gesso

class GComboBox::Access final : public gesso::SideOf<GComboBox>
{
public:
    bool Has(const GWnd& wnd, gesso::AccessibleId id) const override;
    gesso::Role RoleOf(const GWnd&, gesso::AccessibleId id) const override;
    gesso::AccessString NameOf(const GWnd& wnd, gesso::AccessibleId id) const override;
    gesso::AccessString ValueOf(const GWnd& wnd, gesso::AccessibleId id) const override
    {
        return HasValue(wnd, id) ? gesso::StringOf(Of(wnd).m_strText) : gesso::AccessString();
    }
    bool HasValue(const GWnd&, gesso::AccessibleId id) const override
    {
        return id == gesso::WHOLE || id.nKind == gesso::COMBO_FIELD;
    }
    UINT StateOf(const GWnd& wnd, gesso::AccessibleId id) const override;
    RECT RectOf(const GWnd& wnd, gesso::AccessibleId id) const override;
    bool TakesLabel() const override { return true; }

    UINT CountOf(const GWnd& wnd, gesso::AccessibleId id) const override;
    gesso::AccessibleId ChildOf(const GWnd& wnd, gesso::AccessibleId id, UINT nIndex) const override;
    UINT IndexOf(const GWnd& wnd, gesso::AccessibleId outer, gesso::AccessibleId id) const override;
    gesso::AccessibleId ParentOf(const GWnd&, gesso::AccessibleId id) const override
    {
        return id.nKind == gesso::COMBO_ITEM ? gesso::AccessibleId{gesso::COMBO_LIST, 0, 0} : gesso::WHOLE;
    }
    bool IsObject(const GWnd&, gesso::AccessibleId id) const override
    {
        return id == gesso::WHOLE || id.nKind == gesso::COMBO_LIST;
    }
    gesso::AccessibleId FocusOf(const GWnd& wnd) const override
    {
        return Of(wnd).Kind() == GCBS_DROPDOWN ? gesso::AccessibleId{gesso::COMBO_FIELD, 0, 0} : gesso::WHOLE;
    }
    UINT NextSelected(const GWnd& wnd, gesso::AccessibleId outer, UINT nIndex) const override
    {
        const UINT nSelected = Of(wnd).Selected();
        return outer.nKind == gesso::COMBO_LIST && nIndex == gesso::NO_INDEX && Of(wnd).ItemAt(nSelected)
                   ? nSelected
                   : gesso::NO_INDEX;
    }
    gesso::AccessibleId HitTest(const GWnd& wnd, POINT pt) const override;

    gesso::AccessibleAction ActionOf(const GWnd& wnd, gesso::AccessibleId id) const override;
    bool Act(GWnd& wnd, gesso::AccessibleId id) const override;
    bool Focus(GWnd& wnd, gesso::AccessibleId id) const override
    {
        return id.nKind != gesso::COMBO_ITEM && id.nKind != gesso::COMBO_LIST &&
               SideOf::Focus(wnd, gesso::WHOLE);
    }
    bool Choose(GWnd& wnd, gesso::AccessibleId id, gesso::AccessibleChoice choice) const override;
    bool Open(GWnd& wnd, gesso::AccessibleId id, bool fOpen) const override;
    bool Show(GWnd& wnd, gesso::AccessibleId id) const override;
    bool SetValue(GWnd& wnd, gesso::AccessibleId id, LPCWSTR pszValue) const override;

    // --- Of the items, for the open list as well

    static gesso::AccessString NameOfItem(const GComboBox& combo, UINT nItem)
    {
        const LPCWSTR psz = combo.m_aItems[nItem]->pszText;
        const bool fHidden = gesso::Has(combo, gesso::Quirk::ComboHidesAmpersands);
        return fHidden ? gesso::WithoutMnemonic(psz) : gesso::StringOf(psz);
    }
    static UINT StateOfItem(const GComboBox& combo, UINT nItem);
    // In the client area of the open list; empty where it is closed.
    static RECT ListRect(const GComboBox& combo);
    static RECT ItemRect(const GComboBox& combo, UINT nItem);
    static bool PickItem(GComboBox& combo, UINT nItem);
    static bool ShowItem(const GComboBox& combo, UINT nItem);
    // That of the combo box, also where it comes from the label or the host.
    static gesso::AccessString OuterName(const GComboBox& combo)
    {
        const auto thing = gesso::FindThing(combo.m_hWnd);
        return thing && thing->Check() == S_OK ? thing->Name() : gesso::AccessString();
    }

private:
    static void PressButton(const GComboBox& combo);
};
