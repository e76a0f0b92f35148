// What a value menu says of itself to those who do not see it: its rows.
#include <gesso/access/AccessibleSide.h>
#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/ribbon/TrackedMenu.h>

#include <algorithm>

using gesso::AccessibleAction;
using gesso::AccessibleChoice;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Role;
using gesso::TrackedMenu;
using gesso::WHOLE;

class GRightClickMenu::Access final : public gesso::SideOf<GRightClickMenu>
{
public:
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE || (id.nKind == ROW && id.nIndex < Of(wnd).m_aValues.GetLength());
    }
    Role RoleOf(const GWnd&, AccessibleId id) const override
    {
        return id == WHOLE ? Role::MenuPopup : Role::MenuItem;
    }
    // A menu that is tracked shows an ampersand as it is.
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override
    {
        if (id == WHOLE) {
            return {};
        }
        const LPCWSTR pszText = Of(wnd).m_aValues[id.nIndex];
        return Tracked(wnd) ? AccessString::Build(L"%s", pszText) : gesso::WithoutMnemonic(pszText);
    }
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        UINT uState = StateOfWindow(Frame::Handle(wnd), false);
        return id == WHOLE ? uState : uState | StateOfRow(wnd, id);
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        RECT rc{};
        GetClientRect(Frame::Handle(wnd), &rc);
        const int cyRow = RowHeight(wnd);
        const int nTop = (static_cast<int>(id.nIndex) - static_cast<int>(FirstRow(wnd))) * cyRow;
        return {rc.left, nTop, rc.right, nTop + cyRow};
    }
    UINT CountOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? Of(wnd).m_aValues.GetLength() : 0;
    }
    AccessibleId ChildOf(const GWnd&, AccessibleId, UINT nIndex) const override { return {ROW, nIndex, 0}; }
    UINT IndexOf(const GWnd&, AccessibleId outer, AccessibleId id) const override
    {
        return outer == WHOLE && id.nKind == ROW ? id.nIndex : NO_INDEX;
    }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        RECT rc{};
        GetClientRect(Frame::Handle(wnd), &rc);
        if (!PtInRect(&rc, pt)) {
            return WHOLE;
        }
        const AccessibleId id{ROW, FirstRow(wnd) + static_cast<UINT>(pt.y / RowHeight(wnd)), 0};
        return Has(wnd, id) ? id : WHOLE;
    }

    AccessibleAction ActionOf(const GWnd&, AccessibleId id) const override
    {
        return id == WHOLE ? AccessibleAction::None : AccessibleAction::Select;
    }
    // As a release of the button on the row: the menu ends.
    bool Act(GWnd& wnd, AccessibleId id) const override
    {
        if (TrackedMenu* pTracked = Tracked(wnd)) {
            pTracked->Choose(id.nIndex);
            PostMessageW(nullptr, WM_NULL, 0, 0); // wakes the loop, which waits for a message
        } else {
            const int cyRow = RowHeight(wnd);
            Of(wnd).OnLButtonUp(0, {0, static_cast<SHORT>(static_cast<int>(id.nIndex) * cyRow + cyRow / 2)});
        }
        return true;
    }
    bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const override
    {
        return !(id == WHOLE) && choice == AccessibleChoice::Only && Act(wnd, id);
    }
    // As an arrow key would; a menu that is not tracked has none.
    bool Focus(GWnd& wnd, AccessibleId id) const override
    {
        TrackedMenu* pTracked = id == WHOLE ? nullptr : Tracked(wnd);
        if (pTracked) {
            pTracked->Mark(id.nIndex);
        }
        return pTracked;
    }
    bool Show(GWnd& wnd, AccessibleId id) const override
    {
        TrackedMenu* pTracked = id == WHOLE ? nullptr : Tracked(wnd);
        if (!pTracked) {
            return false;
        }
        const UINT nLowest = id.nIndex + 1 - std::min(id.nIndex + 1, pTracked->VisibleRows());
        pTracked->m_nFirst = std::clamp(pTracked->m_nFirst, nLowest, id.nIndex);
        pTracked->Invalidate(0);
        return true;
    }

private:
    static constexpr UINT ROW = 1;

    static const TrackedMenu* Tracked(const GWnd& wnd) { return dynamic_cast<const TrackedMenu*>(&wnd); }
    static TrackedMenu* Tracked(GWnd& wnd) { return dynamic_cast<TrackedMenu*>(&wnd); }
    static int RowHeight(const GWnd& wnd)
    {
        return gesso::Pixels(Frame::Handle(wnd), gesso::Metrics::VALUE_MENU_ROW_HEIGHT);
    }
    static UINT FirstRow(const GWnd& wnd)
    {
        const TrackedMenu* pTracked = Tracked(wnd);
        return pTracked ? pTracked->m_nFirst : 0;
    }
    // Where keys go to the menu, the marked row is the one that they are on.
    UINT StateOfRow(const GWnd& wnd, AccessibleId id) const
    {
        const TrackedMenu* pTracked = Tracked(wnd);
        const bool fHot = static_cast<int>(id.nIndex) == Of(wnd).m_nHot;
        UINT uState = fHot ? STATE_SYSTEM_HOTTRACKED : 0;
        if (pTracked) {
            uState |= STATE_SYSTEM_FOCUSABLE | (fHot ? STATE_SYSTEM_FOCUSED : 0);
            uState |= id.nIndex == pTracked->m_nChecked ? STATE_SYSTEM_CHECKED : 0;
        }
        RECT rcClient{}, rcBoth{};
        const RECT rc = RectOf(wnd, id);
        GetClientRect(Frame::Handle(wnd), &rcClient);
        const bool fInView = IntersectRect(&rcBoth, &rc, &rcClient);
        return fInView ? uState : uState | STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    }
};

const gesso::AccessibleSide& GRightClickMenu::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
