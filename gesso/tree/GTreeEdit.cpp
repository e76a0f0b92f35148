// Renaming an item of a tree in place.

#include <gesso/edit/LabelEdit.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::LabelEdit;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;

bool GTree::EditLabel(void* hItem)
{
    TreeItem* item = Items().ItemOf(hItem);
    if (!item || !Items().IsInTree(item) || item == m_pRoot || item->fGoing || !Frame::IsAlive(m_hWnd, this))
    {
        return false;
    }
    const auto hold = Items().Hold(item);
    const gesso::Watch watch(*this);
    LabelEdit::End(m_aVisible.Inside().edit.hwnd, true);
    if (!watch || !Ask(*item) || !ShowWholeLabel(item)) {
        return false;
    }
    const LRESULT lRefused =
        TreeActions::SendItem(*this, TVN_BEGINLABELEDITW, Items().FindRow(item), 0, -1, -1);
    // The parent may have begun an edit itself.
    return watch && lRefused == 0 && Items().IsInTree(item) && !m_aVisible.Inside().edit.hwnd &&
           BeginEdit(item);
}

// False where it has no row, or there is nothing to go on with.
bool GTree::ShowWholeLabel(TreeItem* item)
{
    if (!Items().IsInTree(item)) {
        return false;
    }
    const UINT row = TreeActions::OpenAbove(*this, item);
    if (row == NO_INDEX) {
        return false;
    }
    const gesso::Watch watch(*this);
    // It may be wider than all that have shown.
    if (Widen(*item) && (!UpdateScrollbars() || !watch)) {
        return false;
    }
    TreeInput::ScrollRowIntoView(*this, row, true, true);
    RECT rcClient{}, rc{};
    GetClientRect(m_hWnd, &rcClient);
    GetItemRect(item, true, &rc);
    if (rc.left < 0 || rc.right > rcClient.right) {
        TreeInput::ScrollTo(*this, SB_HORZ,
                            m_siH.nPos + std::min(int64_t{rc.left}, int64_t{rc.right} - rcClient.right));
    }
    Invalidate(0);
    return true;
}

bool GTree::BeginEdit(TreeItem* item)
try {
    auto pHold = std::make_unique<gesso::ItemHold<TreeItem>>(m_aVisible.Inside().tree.Store(), item);
    RECT rc{};
    GetItemRect(item, true, &rc);
    // The parent hears of the new window, and then that the tree loses the focus, and may do anything.
    const gesso::Watch watch(*this);
    const HWND hwnd = LabelEdit::Make(m_hWnd, rc, m_hFont, item->strName, OnEditEnded);
    if (!watch) {
        return false;
    }
    auto& edit = m_aVisible.Inside().edit;
    if (edit.hwnd) { // the parent has begun another one meanwhile
        LabelEdit::Forget(hwnd);
        DestroyWindow(hwnd);
        return false;
    }
    edit.hwnd = hwnd;
    edit.item = item;
    edit.pHold = std::move(pHold);
    if (!hwnd) {
        EndEdit(nullptr); // the parent has allowed it
        return false;
    }
    return LabelEdit::Begin(hwnd);
} catch (const std::bad_alloc&) {
    return false;
}

void GTree::OnEditEnded(HWND hwndTree, LPCWSTR pszText)
{
    if (auto* tree = Frame::ObjectOf<GTree>(hwndTree)) {
        tree->EndEdit(pszText);
    }
}

void GTree::EndEdit(LPCWSTR pszText)
{
    auto& edit = m_aVisible.Inside().edit;
    edit.hwnd = nullptr;
    TreeItem* item = std::exchange(edit.item, nullptr);
    const auto pHold = std::move(edit.pHold);
    if (!item) {
        return; // the tree was assigned another one meanwhile
    }
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(Items().FindRow(item));
    notify.iSubItem = -1;
    notify.pItem = item;
    notify.pszText = Items().IsInTree(item) ? pszText : nullptr;
    const gesso::Watch watch(*this);
    const bool fTaken = Frame::SendNotify(*this, TVN_ENDLABELEDITW, &notify.hdr) != 0;
    if (watch && fTaken && notify.pszText && Items().IsInTree(item)) {
        SetItemName(item, pszText);
        if (watch) {
            RowsChanged();
        }
    }
}

// After a removal.
void GTree::EndLostEdit()
{
    const auto& edit = m_aVisible.Inside().edit;
    if (edit.hwnd && !Items().IsInTree(edit.item)) {
        LabelEdit::End(edit.hwnd, false);
    }
}

// After rows have moved.
void GTree::PlaceEdit()
{
    const auto& edit = m_aVisible.Inside().edit;
    RECT rc{};
    if (edit.hwnd && Items().IsInTree(edit.item) && GetItemRect(edit.item, true, &rc)) {
        LabelEdit::Place(edit.hwnd, rc);
    }
}

void GTree::ForgetEdit()
{
    auto& edit = m_aVisible.Inside().edit;
    LabelEdit::Forget(edit.hwnd);
    edit.hwnd = nullptr;
    edit.item = nullptr;
    edit.pHold.reset();
}
