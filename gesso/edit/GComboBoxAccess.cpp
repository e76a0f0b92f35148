#include <gesso/edit/GComboBoxAccess.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>

using gesso::AccessibleAction;
using gesso::AccessibleChoice;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::COMBO_DROP_BUTTON;
using gesso::COMBO_FIELD;
using gesso::COMBO_ITEM;
using gesso::COMBO_LIST;
using gesso::ComboParts;
using gesso::Frame;
using gesso::HasComboList;
using gesso::NO_INDEX;
using gesso::Role;
using gesso::StringOf;
using gesso::Watch;
using gesso::WHOLE;

namespace {

constexpr UINT OUT_OF_VIEW = STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
// What holds for all that is in a window, of that window's state.
constexpr UINT SHARED_STATE = STATE_SYSTEM_UNAVAILABLE | OUT_OF_VIEW;

} // namespace

const gesso::AccessibleSide& GComboBox::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// --- What there is

bool GComboBox::Access::Has(const GWnd& wnd, AccessibleId id) const
{
    const GComboBox& combo = Of(wnd);
    if (id.nKind == COMBO_ITEM) {
        return HasComboList(combo.Kind()) && combo.ItemAt(id.nIndex) && id.nOuter == 0;
    }
    return id == WHOLE ||
           (id == AccessibleId{id.nKind, 0, 0} && ComboParts(combo.Kind()).IndexOf(id.nKind) != NO_INDEX);
}

Role GComboBox::Access::RoleOf(const GWnd&, AccessibleId id) const
{
    switch (id.nKind) {
    case COMBO_FIELD: return Role::Text;
    case COMBO_DROP_BUTTON: return Role::PushButton;
    case COMBO_LIST: return Role::List;
    case COMBO_ITEM: return Role::ListItem;
    default: return Role::ComboBox;
    }
}

AccessString GComboBox::Access::NameOf(const GWnd& wnd, AccessibleId id) const
{
    const GComboBox& combo = Of(wnd);
    switch (id.nKind) {
    case COMBO_FIELD:
    case COMBO_LIST: return OuterName(combo);
    case COMBO_DROP_BUTTON: return StringOf(combo.IsDropped() ? L"Close" : L"Open");
    case COMBO_ITEM: return NameOfItem(combo, id.nIndex);
    default: return {};
    }
}

UINT GComboBox::Access::StateOfItem(const GComboBox& combo, UINT nItem)
{
    const UINT uWindow = StateOfWindow(combo.m_hWnd, true);
    UINT uState = STATE_SYSTEM_SELECTABLE | (uWindow & (STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_FOCUSABLE));
    uState |= combo.Selected() == nItem ? STATE_SYSTEM_SELECTED : 0;
    if (!combo.IsDropped()) {
        return uState | STATE_SYSTEM_INVISIBLE;
    }
    const bool fHot = combo.m_pList->m_nHot == nItem && (uWindow & STATE_SYSTEM_FOCUSED);
    const RECT rc = ItemRect(combo, nItem);
    const RECT rcView = ListRect(combo);
    RECT rcShown{};
    return uState | (fHot ? STATE_SYSTEM_FOCUSED : 0U) |
           (IntersectRect(&rcShown, &rc, &rcView) ? 0U : OUT_OF_VIEW);
}

UINT GComboBox::Access::StateOf(const GWnd& wnd, AccessibleId id) const
{
    const GComboBox& combo = Of(wnd);
    const UINT uWindow = StateOfWindow(Frame::Handle(wnd), true);
    switch (id.nKind) {
    case COMBO_FIELD: return uWindow;
    case COMBO_DROP_BUTTON: return (uWindow & SHARED_STATE) | (combo.IsDropped() ? STATE_SYSTEM_PRESSED : 0U);
    case COMBO_LIST:
        return (uWindow & STATE_SYSTEM_UNAVAILABLE) | (combo.IsDropped() ? 0U : STATE_SYSTEM_INVISIBLE);
    case COMBO_ITEM: return StateOfItem(combo, id.nIndex);
    default: break;
    }
    if (!HasComboList(combo.Kind())) {
        return uWindow;
    }
    return uWindow | (combo.IsDropped() ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
}

// --- Places

RECT GComboBox::Access::ListRect(const GComboBox& combo)
{
    RECT rc{};
    if (combo.IsDropped()) {
        GetClientRect(combo.m_pList->m_hWnd, &rc);
    }
    return rc;
}

RECT GComboBox::Access::ItemRect(const GComboBox& combo, UINT nItem)
{
    return combo.IsDropped() ? combo.m_pList->RowRect(nItem, ListRect(combo).right) : RECT{};
}

RECT GComboBox::Access::RectOf(const GWnd& wnd, AccessibleId id) const
{
    const GComboBox& combo = Of(wnd);
    RECT rc{};
    switch (id.nKind) {
    case COMBO_FIELD: return combo.TextRect(gesso::WindowContext(combo.m_hWnd), 0);
    case COMBO_DROP_BUTTON: GetClientRect(combo.m_hWnd, &rc); return combo.ButtonRect(rc);
    case COMBO_LIST: rc = ListRect(combo); break;
    case COMBO_ITEM: rc = ItemRect(combo, id.nIndex); break;
    default: break;
    }
    if (!IsRectEmpty(&rc)) {
        MapWindowPoints(combo.m_pList->m_hWnd, combo.m_hWnd, reinterpret_cast<POINT*>(&rc), 2);
    }
    return rc;
}

AccessibleId GComboBox::Access::HitTest(const GWnd& wnd, POINT pt) const
{
    for (const UINT nKind : {COMBO_DROP_BUTTON, COMBO_FIELD}) {
        const AccessibleId id{nKind, 0, 0};
        const RECT rc = Has(wnd, id) ? RectOf(wnd, id) : RECT{};
        if (PtInRect(&rc, pt)) {
            return id;
        }
    }
    return WHOLE;
}

// --- Children

UINT GComboBox::Access::CountOf(const GWnd& wnd, AccessibleId id) const
{
    if (id.nKind == COMBO_LIST) {
        return Of(wnd).m_aItems.GetLength();
    }
    return id == WHOLE ? ComboParts(Of(wnd).Kind()).count : 0;
}

AccessibleId GComboBox::Access::ChildOf(const GWnd& wnd, AccessibleId id, UINT nIndex) const
{
    return id.nKind == COMBO_LIST ? AccessibleId{COMBO_ITEM, nIndex, 0}
                                  : AccessibleId{ComboParts(Of(wnd).Kind()).kinds[nIndex], 0, 0};
}

UINT GComboBox::Access::IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const
{
    if (!Has(wnd, id) || id == WHOLE || !(outer == ParentOf(wnd, id))) {
        return NO_INDEX;
    }
    return id.nKind == COMBO_ITEM ? id.nIndex : ComboParts(Of(wnd).Kind()).IndexOf(id.nKind);
}

// --- Actions

AccessibleAction GComboBox::Access::ActionOf(const GWnd& wnd, AccessibleId id) const
{
    const GComboBox& combo = Of(wnd);
    if (id.nKind == COMBO_ITEM) {
        return AccessibleAction::Select;
    }
    if (id.nKind == COMBO_FIELD || id.nKind == COMBO_LIST || !HasComboList(combo.Kind())) {
        return AccessibleAction::None;
    }
    return combo.IsDropped() ? AccessibleAction::Close : AccessibleAction::Open;
}

bool GComboBox::Access::Act(GWnd& wnd, AccessibleId id) const
{
    return id.nKind == COMBO_ITEM ? PickItem(Of(wnd), id.nIndex) : Open(wnd, id, !Of(wnd).IsDropped());
}

// In Classic the list has a message loop of its own: whoever asks for it is not to wait for its end, and the
// press comes from the queue.
void GComboBox::Access::PressButton(const GComboBox& combo)
{
    RECT rc{};
    GetClientRect(combo.m_hWnd, &rc);
    rc = combo.ButtonRect(rc);
    const LPARAM lPoint = MAKELPARAM((rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2);
    PostMessageW(combo.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, lPoint);
    PostMessageW(combo.m_hWnd, WM_LBUTTONUP, 0, lPoint);
}

bool GComboBox::Access::Open(GWnd& wnd, AccessibleId id, bool fOpen) const
{
    GComboBox& combo = Of(wnd);
    const bool fOwn = id == WHOLE || id.nKind == COMBO_DROP_BUTTON;
    if (!fOwn || !HasComboList(combo.Kind())) {
        return false;
    }
    if (combo.IsDropped() == fOpen) {
        return true;
    }
    const Watch watch(combo);
    if (!SideOf::Focus(wnd, WHOLE) || !watch) {
        return false;
    }
    if (combo.ModernPart()) {
        SendMessageW(combo.m_hWnd, WM_SYSKEYDOWN, VK_DOWN, 0);
        return watch && combo.IsDropped() == fOpen;
    }
    if (fOpen) {
        PressButton(combo);
    } else {
        SendMessageW(combo.m_pList->m_hWnd, WM_KEYDOWN, VK_F4, 0);
    }
    return true;
}

bool GComboBox::Access::PickItem(GComboBox& combo, UINT nItem)
{
    const Watch watch(combo);
    const HWND hwnd = combo.m_hWnd;
    SetFocus(hwnd);
    if (!watch || GetFocus() != hwnd || !combo.ItemAt(nItem)) {
        return false;
    }
    Inside::PickItem(combo, nItem);
    return true;
}

// One is selected at a time, and none is unselected.
bool GComboBox::Access::Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const
{
    return id.nKind == COMBO_ITEM && choice != AccessibleChoice::Remove && PickItem(Of(wnd), id.nIndex);
}

bool GComboBox::Access::ShowItem(const GComboBox& combo, UINT nItem)
{
    if (!combo.IsDropped()) {
        return false;
    }
    combo.m_pList->ShowRow(nItem);
    return true;
}

bool GComboBox::Access::Show(GWnd& wnd, AccessibleId id) const
{
    return id.nKind == COMBO_ITEM && ShowItem(Of(wnd), id.nIndex);
}

bool GComboBox::Access::SetValue(GWnd& wnd, AccessibleId id, LPCWSTR pszValue) const
{
    GComboBox& combo = Of(wnd);
    return HasValue(wnd, id) && combo.Kind() == GCBS_DROPDOWN && Inside::TypeOver(combo, pszValue);
}
