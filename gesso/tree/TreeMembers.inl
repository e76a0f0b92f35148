// The members that GTree and GNavigationBar have alike; where their rules part stands in TreeRules.h.
//
// The interface gives each class members of its own, straight behind GWndScroll, so that no base class can
// hold them. They are written once here instead; the source of each class names it `Control` and includes
// this.

#include <gesso/containers/Misuse.h>
#include <gesso/controls/ButtonInput.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/tree/ItemHold.h>
#include <gesso/tree/NameSort.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <climits>
#include <utility>
#include <vector>

using Rules = gesso::TreeRules<Control>;
using Item = Rules::Item;

namespace {

constexpr UINT HIDDEN_STATE = 0xFF00; // bits of the state that the getter and setter leave alone

} // namespace

ATOM Control::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, Rules::CLASS_NAME, WindowProc, gesso::CLASS_SCROLLING);
}

HWND Control::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle, DWORD dwStyle)
{
    return gesso::Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                                      dwExStyle, dwStyle);
}

int Control::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD Control::SetStyle(DWORD dwStyle)
{
    return gesso::Frame::SetStyle(*this, dwStyle);
}

DWORD Control::GetStyle() const
{
    return gesso::Frame::Style(*this);
}

HFONT Control::GetFont() const
{
    return m_hFont;
}

UINT Control::GetItemHeight() const
{
    return m_nItemHeight;
}

void Control::SetItemHeight(UINT nHeight)
{
    m_nItemHeight = nHeight;
    UpdateScrollbars();
    RedrawAll();
}

HIMAGELIST Control::GetImageList() const
{
    return m_hImageList;
}

void Control::SetImageList(HIMAGELIST hImageList)
{
    m_hImageList = hImageList;
}

// --- Items
// --------------------------------------------------------------------------------------------------------

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

// The bits to set are not limited by the mask: hosts rely on it.
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
    const UINT row = parent->uState & Rules::EXPANDED ? RowForNew(*item) : gesso::NO_ROW;
    if (row != gesso::NO_ROW) {
        m_aVisible.Insert(row, item);
    }
    ItemInserted(*item, row != gesso::NO_ROW);
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
    if (row != gesso::NO_ROW) {
        const UINT rowEnd = m_aVisible.EndOfBranch(row);
        const UINT rowFirst = Rules::REMOVED_ROW_STAYS ? row + 1 : row;
        m_aVisible.Remove(rowFirst, rowEnd - rowFirst);
        // A selection below keeps its number, though its row has moved: hosts rely on it.
        if (m_nSelected >= row && m_nSelected < rowEnd) {
            m_pSelected = nullptr;
            m_nSelected = gesso::NO_ROW;
        }
        UpdateScrollbars();
        RedrawAll();
    }
    DeleteItem(item);
}

void Control::RemoveAllItems()
{
    m_aVisible.RemoveAll();
    m_tree.RemoveChildren(*m_pRoot, [](const Item*) {});
    m_pSelected = nullptr;
    m_nSelected = gesso::NO_ROW;
    UpdateScrollbars();
    RedrawAll();
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
    const bool fPlaced = row != gesso::NO_ROW || item == m_pRoot || !Rules::SORT_NEEDS_ROW;
    if (fPlaced && (item->uState & Rules::EXPANDED)) {
        // Of no row the number is -1, so that its children begin at 0. Open branches among them are not
        // reckoned with: hosts rely on it.
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
// ---------------------------------------------------------------------------------------------------------

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
    if (row != gesso::NO_ROW) {
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
    RowsChanged();
    SendItem(TVN_ITEMEXPANDEDW, row, TVE_EXPAND, -1, 0);
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
    RowsChanged();
    SendItem(TVN_ITEMEXPANDEDW, row, TVE_COLLAPSE, -1, 0);
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
    return *pRow != gesso::NO_ROW && fExpanded == (uAction == TVE_COLLAPSE);
}

LRESULT Control::SendItem(UINT uCode, UINT row, UINT uAction, int x, int y) const
{
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(row);
    notify.iSubItem = -1;
    notify.uAction = uAction;
    notify.x = x;
    notify.y = y;
    notify.pItem = m_aVisible[row];
    notify.uKeyFlags = gesso::ModifierFlags();
    return gesso::Frame::SendNotify(*this, uCode, &notify.hdr);
}

// --- Scrolling
// ----------------------------------------------------------------------------------------------------

void Control::RedrawAll()
{
    // To the platform a null window means the desktop.
    if (m_hWnd) {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
}

void Control::ScrollTo(int nBar, int64_t nPos)
{
    const auto nLimited = static_cast<int>(std::clamp<int64_t>(nPos, INT_MIN, INT_MAX));
    GWndScroll::SetScrollPos(nBar, nLimited, 1);
}

// By the height of an item, whatever height the rows have. False where there is nothing to do.
bool Control::ScrollRowIntoView(UINT row, bool fFromAbove, bool fFromBelow)
{
    const int64_t nTop = int64_t{row} * m_nItemHeight;
    const int64_t nBottom = nTop + m_nItemHeight;
    const auto nPage = static_cast<int>(m_siV.nPage);
    if (fFromAbove && nTop < m_siV.nPos) {
        ScrollTo(SB_VERT, nTop);
        return true;
    }
    if (fFromBelow && nBottom > int64_t{m_siV.nPos} + nPage) {
        ScrollTo(SB_VERT, nBottom - nPage);
        return true;
    }
    return false;
}

LRESULT Control::OnVScroll(UINT uCode, UINT nPos, HWND)
{
    const bool fKnown = uCode != SB_THUMBPOSITION || Rules::THUMB_POSITION_SCROLLS;
    const int64_t nLine = Rules::LINE ? Rules::LINE : int64_t{m_nItemHeight};
    if (const auto nTarget = gesso::ScrollTarget(m_siV, uCode, nPos, nLine); nTarget && fKnown) {
        ScrollTo(SB_VERT, *nTarget);
    }
    Invalidate(0);
    return 0;
}

LRESULT Control::OnMouseWheel(UINT, int nDelta, POINTS)
{
    const auto nTarget = gesso::WheelTarget(m_siV, nDelta);
    if (!nTarget) {
        return 0;
    }
    ScrollTo(SB_VERT, *nTarget);
    if (m_dwState & GWS_TRACKING) {
        HitTest(&m_hitMove);
    }
    RedrawAll();
    return 0;
}

// --- The pointer
// --------------------------------------------------------------------------------------------------

// A press in a bar holds the capture, so that the bar's moves come as the client area's.
POINTS Control::ToScreen(POINTS pt) const
{
    POINT ptScreen{pt.x, pt.y};
    ClientToScreen(m_hWnd, &ptScreen);
    return {static_cast<SHORT>(ptScreen.x), static_cast<SHORT>(ptScreen.y)};
}

LRESULT Control::OnLButtonDown(WPARAM, POINTS pt)
{
    if (gesso::TakePress(*this)) {
        Invalidate(0);
        m_hitDown.pt = pt;
        HitTest(&m_hitDown);
    }
    return 0;
}

// GWS_HOT is set where the pointer is over nothing, and cleared over a row: hosts know the bit so.
LRESULT Control::OnMouseMove(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcMouseMove(HTCLIENT, ToScreen(pt));
    }
    gesso::Frame::TrackLeave(*this);
    const HitTestInfo former = m_hitMove;
    m_hitMove.pt = pt;
    HitTest(&m_hitMove);
    m_dwState = m_hitMove.nPart ? m_dwState & ~GWS_HOT : m_dwState | GWS_HOT;
    if (m_hitMove.nItem != former.nItem || m_hitMove.nPart != former.nPart) {
        Invalidate(0);
    }
    return 0;
}

LRESULT Control::OnMouseLeave()
{
    m_hitMove.nItem = gesso::NO_ROW;
    return gesso::Frame::OnMouseLeave(*this);
}

LRESULT Control::OnCaptureChanged(HWND hwndNew)
{
    return gesso::Frame::OnCaptureChanged(*this, hwndNew);
}

// --- Other messages
// -----------------------------------------------------------------------------------------------

LRESULT Control::OnNcCreate(const CREATESTRUCTW* pcs)
{
    SetWindowTheme(m_hWnd, L"explorer", nullptr);
    GWndScroll::OnNcCreate(pcs);
    m_dwState = gesso::Frame::FIRST_STATE;
    m_hTheme.Open(m_hWnd);
    return 1;
}

LRESULT Control::OnNcDestroy()
{
    GWndScroll::OnNcDestroy();
    m_hTheme.Close();
    return gesso::Frame::Detach(*this);
}

void Control::NcDraw(HDC hdc, RECT rc)
{
    m_hTheme.Items().DrawBackground(hdc, rc);
    DrawScrollBar(hdc, gesso::Frame::Style(*this));
}

LRESULT Control::OnNcPaint(WPARAM wRegion)
{
    return gesso::Frame::OnNcPaint(*this, wRegion);
}

LRESULT Control::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT Control::OnKillFocus(HWND)
{
    return gesso::Frame::OnKillFocus(*this);
}

// What the class's WindowProc does not take for itself.
LRESULT Control::OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const auto uHit = static_cast<UINT>(wParam);
    const POINTS pt = gesso::PointOf(lParam);
    switch (uMsg) {
    case WM_CREATE: return OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_DESTROY: return OnDestroy();
    case WM_NCDESTROY: return OnNcDestroy();
    case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return OnNcHitTest(pt);
    case WM_NCPAINT: return OnNcPaint(wParam);
    case WM_NCMOUSEMOVE: return OnNcMouseMove(uHit, pt);
    case WM_NCMOUSELEAVE: return OnNcMouseLeave();
    case WM_NCLBUTTONDOWN: return OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return OnNcLButtonUp(uHit, pt);
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_STYLECHANGED: return gesso::Frame::OnStyleChanged(*this);
    case WM_UPDATEUISTATE: return gesso::Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(wParam, pt);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(wParam, pt);
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_MOUSEWHEEL: return OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
    case WM_VSCROLL: return OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    default: return DefWindowProcW(m_hWnd, uMsg, wParam, lParam);
    }
}
