// The ribbon by keyboard, in Modern: one Tab stop, in which arrows go over the tabs and over the active
// page's items. The item that the keyboard is on carries a mark, so that it keeps it where others come and
// go; where none has it, the keyboard is on the tabs.

#include <gesso/controls/ButtonLook.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/ribbon/ItemCode.h>
#include <gesso/ribbon/RibbonInside.h>

using gesso::Frame;
using gesso::ItemCode;
using gesso::Quirk;

namespace {

bool CanTakeFocus(HWND hwnd)
{
    return hwnd && IsWindowVisible(hwnd) && IsWindowEnabled(hwnd);
}

// Whether an item is seen, or takes the focus: groups of a fixed width draw no buttons.
bool IsReachable(const GRibbonPage::Group& group, const GRibbonPage::Item& item)
{
    switch (item.uType) {
    case RIT_WINDOW: return CanTakeFocus(item.hwnd) && (GetWindowLongW(item.hwnd, GWL_STYLE) & WS_TABSTOP);
    case RIT_BUTTON:
    case RIT_CHECKBOX: return !group.uFixedWidth && item.nRight > item.nLeft;
    default: return false;
    }
}

} // namespace

// --- The page

// None where it is out of sight by now.
UINT GRibbonPage::FocusItem() const
{
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        const auto& items = m_aGroups[i].aItems;
        for (UINT k = 0; k < items.GetLength(); k++) {
            if ((items[k].uFlags & gesso::ITEM_FOCUSED) && IsReachable(m_aGroups[i], items[k])) {
                return ItemCode(i, k);
            }
        }
    }
    return RIBBON_NONE;
}

void GRibbonPage::ChangeFocusItem(UINT uItem)
{
    for (Group& group : m_aGroups) {
        for (Item& item : group.aItems) {
            item.uFlags &= ~gesso::ITEM_FOCUSED;
        }
    }
    if (Item* pItem = ItemOfCode(uItem)) {
        pItem->uFlags |= gesso::ITEM_FOCUSED;
    }
}

UINT GRibbonPage::NextReachable(UINT uFrom, int nStep) const
{
    gesso::NextInOrder next(uFrom, nStep);
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        const auto& items = m_aGroups[i].aItems;
        for (UINT k = 0; k < items.GetLength(); k++) {
            if (IsReachable(m_aGroups[i], items[k])) {
                next.Offer(ItemCode(i, k));
            }
        }
    }
    return next.Found();
}

// Takes the focus into a hosted window.
void GRibbonPage::PressFocusItem()
{
    const UINT uItem = FocusItem();
    const Item* pItem = ItemOfCode(uItem);
    if (pItem && pItem->uType == RIT_WINDOW) {
        SetFocus(pItem->hwnd);
    } else if (pItem) {
        InvalidateRibbon();
        Click(uItem);
    }
}

// --- The ribbon

bool GRibbon::ShowsFocus() const
{
    return gesso::ShowsFocus(m_hWnd, m_dwState) && !Has(*this, Quirk::RibbonTakesNoKeys);
}

// The tab that the keyboard is on: the first where none is active. None where it is on an item.
UINT GRibbon::FocusTab() const
{
    if (FocusItem() != RIBBON_NONE) {
        return RIBBON_NONE;
    }
    UINT nTab = m_nActive < m_aTabs.GetLength() ? m_nActive : 0;
    while (nTab < m_aTabs.GetLength() && nTab != m_nActive && !IsVisible(nTab)) {
        nTab++;
    }
    return nTab;
}

UINT GRibbon::FocusItem() const
{
    const GRibbonPage* pPage = ActivePage();
    return pPage ? pPage->FocusItem() : RIBBON_NONE;
}

// Null where there is none to give the focus back to.
HWND GRibbon::WindowBefore() const
{
    const HWND hwnd = m_inside->hwndBefore;
    return CanTakeFocus(hwnd) ? hwnd : nullptr;
}

LRESULT GRibbon::OnKeyboardMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (Has(*this, Quirk::RibbonTakesNoKeys)) {
        return Frame::Default(*this, uMsg, wParam, lParam);
    }
    switch (uMsg) {
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return Frame::OnKillFocus(*this);
    default: return OnKeyDown(static_cast<UINT>(wParam), HIWORD(lParam) & KF_REPEAT);
    }
}

// Enter and Esc are the dialog's where the ribbon has no use for them.
LRESULT GRibbon::OnGetDlgCode(const MSG* pMessage) const
{
    const WPARAM wKey = pMessage && pMessage->message == WM_KEYDOWN ? pMessage->wParam : 0;
    const bool fOwn =
        (wKey == VK_RETURN && FocusItem() != RIBBON_NONE) || (wKey == VK_ESCAPE && WindowBefore());
    return DLGC_WANTARROWS | (fOwn ? DLGC_WANTMESSAGE : 0);
}

// Whether a window is another control around the ribbon, to which Esc may go back. A hosted window is not,
// nor one of another program or of a dialog that stood above, nor one that passes the focus on.
bool GRibbon::IsElsewhere(HWND hwnd) const
{
    return hwnd && !IsChild(m_hWnd, hwnd) && !IsChild(hwnd, m_hWnd) &&
           GetAncestor(hwnd, GA_ROOT) == GetAncestor(m_hWnd, GA_ROOT);
}

// From elsewhere the keyboard comes to the tabs; else it comes back to where it was.
LRESULT GRibbon::OnSetFocus(HWND hwndFormer)
{
    if (IsElsewhere(hwndFormer)) {
        m_inside->hwndBefore = hwndFormer;
        if (GRibbonPage* pPage = ActivePage()) {
            pPage->ChangeFocusItem(RIBBON_NONE);
        }
    }
    const gesso::Watch watch(*this);
    Invalidate(0);
    gesso::RibbonInside::TellFocus(*this);
    if (watch) {
        Frame::SendNotify(*this, static_cast<UINT>(NM_SETFOCUS));
    }
    return 0;
}

// The parent may do anything in what a key leads to: nothing is touched afterwards.
LRESULT GRibbon::OnKeyDown(UINT uKey, bool fRepeated)
{
    const bool fCtrl = GetKeyState(VK_CONTROL) < 0;
    switch (gesso::KeyInLayout(m_hWnd, uKey)) {
    case VK_LEFT: StepOnLevel(-1, false); break;
    case VK_RIGHT: StepOnLevel(1, false); break;
    case VK_HOME: StepOnLevel(1, true); break;
    case VK_END: StepOnLevel(-1, true); break;
    case VK_UP: LeaveItems(); break;
    case VK_DOWN:
        if (FocusItem() == RIBBON_NONE) {
            StepItem(RIBBON_NONE, 1);
        }
        break;
    case VK_PRIOR:
    case VK_NEXT:
        if (fCtrl) {
            StepTab(m_nActive, uKey == VK_NEXT ? 1 : -1);
        }
        break;
    case VK_RETURN:
    case VK_SPACE:
        if (!fRepeated) {
            PressFocusItem();
        }
        break;
    case VK_ESCAPE:
        if (const HWND hwndBefore = WindowBefore()) {
            SetFocus(hwndBefore);
        }
        break;
    default: break;
    }
    return 0;
}

// Among the items where the keyboard is on one, and else among the tabs.
void GRibbon::StepOnLevel(int nStep, bool fFromEnd)
{
    const UINT uItem = FocusItem();
    if (uItem != RIBBON_NONE) {
        StepItem(fFromEnd ? RIBBON_NONE : uItem, nStep);
    } else {
        StepTab(fFromEnd ? RIBBON_NONE : m_nActive, nStep);
    }
}

void GRibbon::StepTab(UINT nFrom, int nStep)
{
    gesso::NextInOrder next(nFrom, nStep);
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        if (IsVisible(i)) {
            next.Offer(i);
        }
    }
    if (next.Found() != RIBBON_NONE && next.Found() != m_nActive) {
        SetActive(next.Found());
    }
}

void GRibbon::StepItem(UINT uFrom, int nStep)
{
    GRibbonPage* pPage = ActivePage();
    const UINT uItem = pPage ? pPage->NextReachable(uFrom, nStep) : RIBBON_NONE;
    if (uItem != RIBBON_NONE) {
        pPage->ChangeFocusItem(uItem);
        Invalidate(0);
        gesso::RibbonInside::TellFocus(*this);
    }
}

void GRibbon::LeaveItems()
{
    if (GRibbonPage* pPage = ActivePage()) {
        const bool fLeaves = FocusItem() != RIBBON_NONE;
        pPage->ChangeFocusItem(RIBBON_NONE);
        Invalidate(0);
        if (fLeaves) {
            gesso::RibbonInside::TellFocus(*this);
        }
    }
}

void GRibbon::PressFocusItem()
{
    if (GRibbonPage* pPage = ActivePage()) {
        pPage->PressFocusItem();
    }
}
