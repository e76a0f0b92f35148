// What GTree and GNavigationBar have alike of their items and rows, as TreeMembers.inl has of their windows;
// a source of each class names it `Control` and includes this. Where their rules part stands in TreeRules.h.

#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/ItemNotify.h>
#include <gesso/tree/NameSort.h>
#include <gesso/tree/TreeRules.h>

#include <vector>

using Rules = gesso::TreeRules<Control>;
using Item = Rules::Item;

namespace {

constexpr UINT HIDDEN_STATE = 0xFF00; // bits of the state that the getter and setter leave alone

} // namespace

// --- Items

Item* Control::ItemOf(void* hItem) const
{
    Item* item = m_tree.Find(hItem);
    if (!item) {
        gesso::Misuse(Rules::BAD_HANDLE);
    }
    return item;
}

Item* Control::ItemOrNone(void* hItem) const
{
    return hItem ? ItemOf(hItem) : nullptr;
}

void* Control::GetRootItem() const
{
    return m_pRoot;
}

int Control::GetItemLevel(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? item->nLevel : 0;
}

UINT Control::GetItemState(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? item->uState & ~HIDDEN_STATE : 0;
}

LPCWSTR Control::GetItemName(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? static_cast<LPCWSTR>(item->strName) : nullptr;
}

UINT Control::GetItemImage(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? item->nImage : 0;
}

void* Control::GetItemParent(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? m_tree.FindInTree(item->pParent) : nullptr;
}

UINT Control::GetItemChildCount(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? item->aChildren.GetLength() : 0;
}

void* Control::GetItemNextChild(void* hParent, void* hChild) const
{
    const Item* parent = !hParent && Rules::NULL_PARENT_IS_ROOT ? m_pRoot : ItemOf(hParent);
    // A child that is none counts as the last one.
    const Item* child = m_tree.Find(hChild);
    const bool fKnown = parent && (child || !hChild);
    Item* next = fKnown ? m_tree.NextChild(*parent, child) : nullptr;
    return next ? next : reinterpret_cast<void*>(Rules::NO_MORE_CHILDREN);
}

void* Control::GetItemCustomData(void* hItem) const
{
    const Item* item = ItemOf(hItem);
    return item ? item->pCustomData : nullptr;
}

// Fixed behaviour: the bits to set are not limited by the mask; hosts that give a mask of 0 would set
// nothing.
void Control::SetItemState(void* hItem, UINT uState, UINT uMask)
{
    if (Item* item = ItemOf(hItem)) {
        item->uState = (item->uState & ~(uMask & ~HIDDEN_STATE)) | (uState & ~HIDDEN_STATE);
    }
}

void Control::SetItemName(void* hItem, LPCWSTR pszName)
{
    if (Item* item = ItemOf(hItem)) {
        item->strName = gesso::NameOf(pszName);
        item->place.nTextWidth = gesso::NOT_MEASURED;
        m_aVisible.Changed(*item);
    }
}

void Control::SetItemImage(void* hItem, UINT nImage)
{
    if (Item* item = ItemOf(hItem)) {
        item->nImage = nImage;
    }
}

void Control::SetItemCustomData(void* hItem, void* pData)
{
    if (Item* item = ItemOf(hItem)) {
        item->pCustomData = pData;
    }
}

void* Control::InsertItem(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState, void* pData)
{
    Item* parent = !hParent && Rules::NULL_PARENT_IS_ROOT ? m_pRoot : m_tree.FindInTree(hParent);
    if (!parent) {
        gesso::Misuse(Rules::BAD_HANDLE);
        return nullptr;
    }
    const Item* after = m_tree.FindInTree(hAfter);
    UINT i = parent->aChildren.GetLength();
    if (m_tree.IsChildOf(after, *parent)) {
        i = m_tree.IndexOf(*after) + 1;
    } else if (hAfter ? Rules::PARENT_IS_FRONT && after == parent : Rules::NULL_CHILD_IS_FRONT) {
        i = 0;
    }
    Item* item = m_tree.Insert(*parent, i, pszName);
    item->uState = uState;
    item->nImage = nImage;
    item->pCustomData = pData;
    const UINT row = parent->uState & Rules::EXPANDED ? RowForNew(*item) : gesso::NO_INDEX;
    if (row != gesso::NO_INDEX) {
        m_aVisible.Insert(row, item);
    }
    ItemInserted(*item, row != gesso::NO_INDEX);
    return item;
}

void Control::RemoveItem(void* hItem)
{
    Item* item = m_tree.FindInTree(hItem);
    if (!item || item == m_pRoot) {
        gesso::Misuse(Rules::BAD_HANDLE);
        return;
    }
    const UINT row = m_aVisible.Find(item);
    if (row != gesso::NO_INDEX) {
        const UINT rowEnd = m_aVisible.EndOfBranch(row);
        const UINT rowFirst = Rules::REMOVED_ROW_STAYS ? row + 1 : row;
        m_aVisible.Remove(rowFirst, rowEnd - rowFirst);
        // Fixed behaviour: a selection below keeps its number, though its row has moved; hosts that remove an
        // item above it and select again would repaint nothing.
        if (m_nSelected >= row && m_nSelected < rowEnd) {
            m_pSelected = nullptr;
            m_nSelected = gesso::NO_INDEX;
        }
        if (!UpdateScrollbars()) {
            return;
        }
        RedrawAll();
    }
    DeleteItem(item);
}

void Control::RemoveAllItems()
{
    m_aVisible.RemoveAll();
    m_tree.RemoveChildren(*m_pRoot, [](const Item*) {});
    m_pSelected = nullptr;
    m_nSelected = gesso::NO_INDEX;
    if (UpdateScrollbars()) {
        RedrawAll();
    }
}

void Control::DeleteItem(Item* item)
{
    m_tree.Remove(*item, [this](const Item* gone) {
        if (gone == m_pSelected) {
            m_pSelected = nullptr;
        }
    });
}

void Control::SortChildren(void* hItem)
{
    Invalidate(0);
    Item* item = ItemOf(hItem);
    if (!item) {
        return;
    }
    gesso::SortByName(item->aChildren.GetData(), item->aChildren.GetLength());
    const UINT row = m_aVisible.Find(item);
    const bool fPlaced = row != gesso::NO_INDEX || item == m_pRoot || !Rules::SORT_NEEDS_ROW;
    if (fPlaced && (item->uState & Rules::EXPANDED)) {
        // Of no row the number is -1, so that its children begin at 0.
        // Fixed behaviour: open branches among the children are not reckoned with; the rows of hosts that
        // sort with open branches would come out in another order.
        const UINT rowFirst = row + 1;
        const UINT nRows = m_aVisible.GetLength();
        for (UINT i = 0; i < item->aChildren.GetLength() && i < nRows - rowFirst && rowFirst < nRows; ++i) {
            m_aVisible.Set(rowFirst + i, item->aChildren[i]);
        }
    }
    if (m_pSelected || Rules::SELECTION_FOLLOWS_ITEM) {
        FindSelectedRow();
    }
}

void* Control::GetSelectedItem() const
{
    return m_aVisible[m_nSelected];
}

void Control::SetSelectedItem(void* hItem)
{
    Item* item = m_tree.FindInTree(hItem);
    if (hItem && !item) {
        gesso::Misuse(Rules::BAD_HANDLE);
        return;
    }
    if (item == m_pSelected) {
        return;
    }
    m_pSelected = item;
    FindSelectedRow();
    if (Rules::SELECTING_REPAINTS) {
        Invalidate(0);
    }
}

// --- Rows

UINT Control::FindVisibleIndex(Item* item) const
{
    return m_aVisible.Find(m_tree.Find(item));
}

void Control::FindSelectedRow()
{
    m_nSelected = FindVisibleIndex(m_pSelected);
}

// A removed item cannot be selected: of its row only the number is.
void Control::SelectRow(UINT row)
{
    m_nSelected = row;
    m_pSelected = m_tree.FindInTree(m_aVisible[row]);
}

void Control::Expand(void* hItem)
{
    Expand(m_aVisible.Find(ItemOrNone(hItem)));
}

void Control::Collapse(void* hItem)
{
    Collapse(m_aVisible.Find(ItemOrNone(hItem)));
}

void Control::EnsureVisible(void* hItem)
{
    const UINT row = m_aVisible.Find(ItemOrNone(hItem));
    if (row != gesso::NO_INDEX) {
        EnsureVisible(row);
    }
}

void Control::Expand(UINT row)
{
    Item* item = m_aVisible[row];
    const bool fClosed = item && !(item->uState & Rules::EXPANDED);
    if (!fClosed || !gesso::HasExpander(*item) || !AskExpansion(&row, TVE_EXPAND)) {
        return;
    }
    if (item->aChildren.GetLength() == 0 && !Rules::EXPANDS_WITHOUT_CHILDREN) {
        return;
    }
    item->uState |= Rules::EXPANDED;
    std::vector<Item*> branch;
    m_tree.AddOpenBranch(*item, Rules::EXPANDED, branch);
    m_aVisible.Insert(row + 1, branch);
    if (RowsChanged()) {
        SendItem(TVN_ITEMEXPANDEDW, row, TVE_EXPAND, -1, 0);
    }
}

// What is expanded below stays so, and comes back with the next expansion.
void Control::Collapse(UINT row)
{
    Item* item = m_aVisible[row];
    if (!item || !(item->uState & Rules::EXPANDED) || !AskExpansion(&row, TVE_COLLAPSE)) {
        return;
    }
    item->uState &= ~Rules::EXPANDED;
    m_aVisible.Remove(row + 1, m_aVisible.EndOfBranch(row) - row - 1);
    if (RowsChanged()) {
        SendItem(TVN_ITEMEXPANDEDW, row, TVE_COLLAPSE, -1, 0);
    }
}

// Tells the parent what is to come. False where that leaves nothing to do: the parent has destroyed the
// control, taken the row away, or expanded or collapsed it itself. The row may have moved.
bool Control::AskExpansion(UINT* pRow, UINT uAction)
{
    const HWND hwnd = m_hWnd;
    // Not necessarily this object: a copy may be expanded too, and a tree that has no window any more.
    const GWnd* pAttached = gesso::Frame::ObjectOf<GWnd>(hwnd);
    Item* item = m_aVisible[*pRow];
    const gesso::ItemHold hold(m_tree.Store(), item);
    SendItem(TVN_ITEMEXPANDINGW, *pRow, uAction, -1, 0);
    if (!gesso::Frame::IsAlive(hwnd, pAttached)) {
        return false;
    }
    if (m_aVisible[*pRow] != item) {
        *pRow = m_aVisible.Find(item);
    }
    const bool fExpanded = item->uState & Rules::EXPANDED;
    return *pRow != gesso::NO_INDEX && fExpanded == (uAction == TVE_COLLAPSE);
}

LRESULT Control::SendItem(UINT uCode, UINT row, UINT uAction, int x, int y) const
{
    return gesso::SendItemNotify(*this, uCode, m_aVisible[row], row, uAction, x, y);
}
