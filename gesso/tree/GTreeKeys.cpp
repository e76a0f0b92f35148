// What the keyboard does in a tree: movement, expansion, and the search for what is typed.

#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/SystemTime.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;

namespace {

// A pause longer than this ends what is typed.
constexpr ULONGLONG TYPING_PAUSE = 250 * gesso::TICKS_PER_MILLISECOND;

bool GoesUp(UINT uKey)
{
    return uKey == VK_PRIOR || uKey == VK_HOME || uKey == VK_LEFT || uKey == VK_UP;
}

bool TakesPartInSearch(UINT ch)
{
    return (ch >= '0' && ch <= '9') || (ch >= 'A' && ch <= 'Z') || (ch >= 'a' && ch <= 'z');
}

} // namespace

// Any row can be.
UINT GTree::SelectableFrom(UINT row, bool) const
{
    return row;
}

LRESULT GTree::OnKeyDown(UINT uKey, UINT, UINT uFlags)
{
    if (TreeInput::GoesOnWithWord(*this, uKey)) {
        return 0;
    }
    if (uKey == VK_RETURN || uKey == VK_SPACE) {
        m_ftLastChar = 0;
        if (uKey != VK_RETURN || Has(*this, Quirk::TreeEnterClicks)) {
            ClickSelected();
        } else if (!(uFlags & KF_REPEAT)) { // nor the one that is held since it ended an edit
            TreeActions::SendItem(*this, static_cast<UINT>(NM_RETURN), m_nSelected, 0, -1, -1);
        }
        return 0;
    }
    if (uKey == VK_F2 && m_aVisible[m_nSelected] && !Has(*this, Quirk::TreeF2IsIdle)) {
        EditLabel(m_pSelected);
        return 0;
    }
    if (uKey < VK_PRIOR || uKey > VK_DOWN) {
        return 0;
    }
    const HWND hwnd = m_hWnd;
    m_ftLastChar = 0;
    uKey = gesso::KeyInLayout(hwnd, uKey);
    StepByKey(uKey);
    if (Frame::IsAlive(hwnd, this)) {
        if (m_nSelected < m_aVisible.GetLength()) {
            TreeInput::ScrollRowIntoView(*this, m_nSelected, GoesUp(uKey), !GoesUp(uKey));
        }
        TreeActions::RedrawAll(*this);
        if (TreeActions::TellSelection(*this)) {
            TreeActions::TellScrolled(*this);
        }
    }
    return 0;
}

void GTree::ClickSelected()
{
    if (TreeItem* item = m_aVisible[m_nSelected]) {
        const gesso::Watch watch(*this);
        if (m_uTreeStyle & GTS_CHECKBOXES) {
            Tick(*item);
        }
        if (watch) {
            TreeActions::SendItem(*this, static_cast<UINT>(NM_CLICK), m_nSelected, 0, -1, -1);
        }
    }
}

// May end in the control's destruction.
void GTree::StepByKey(UINT uKey)
{
    const UINT nRows = m_aVisible.GetLength();
    switch (uKey) {
    case VK_PRIOR: PageUp(); break;
    case VK_NEXT: PageDown(); break;
    case VK_HOME: StepToStart(); break;
    case VK_END: StepTo(nRows - 1); break;
    case VK_LEFT: StepOut(); break;
    case VK_RIGHT: StepIn(); break;
    case VK_UP:
        if (m_nSelected > 0) {
            StepTo(m_nSelected < nRows ? m_nSelected - 1 : 0);
        }
        break;
    case VK_DOWN:
        if (m_nSelected + 1 != nRows) {
            StepTo(m_nSelected < nRows ? m_nSelected + 1 : 0);
        }
        break;
    default: break;
    }
}

// Nothing without such a row.
void GTree::StepTo(UINT row)
{
    if (row < m_aVisible.GetLength()) {
        View().SelectRow(row);
        EnsureVisible(row);
        Invalidate(0);
    }
}

// Fixed behaviour: the number moves alone, and no item is selected; hosts that insert afterwards would find
// the first row still selected.
void GTree::StepToStart()
{
    if (!Has(*this, Quirk::TreeSelectsByNumber)) {
        return StepTo(0);
    }
    View().ChangeSelection(nullptr, 0);
    EnsureVisible(m_nSelected);
    Invalidate(0);
}

void GTree::PageUp()
{
    if (static_cast<int>(m_siV.nPage) >= m_siV.nMax || m_nItemHeight == 0) {
        StepToStart();
        return;
    }
    const UINT rowTop = (static_cast<UINT>(m_siV.nPos) - 1 + m_nItemHeight) / m_nItemHeight;
    const UINT nRowsOfPage = m_siV.nPage / m_nItemHeight;
    const UINT row = rowTop != m_nSelected ? rowTop : rowTop - std::min(rowTop, nRowsOfPage);
    StepTo(std::min(row, m_aVisible.GetLength() - 1));
}

void GTree::PageDown()
{
    const UINT rowLast = m_aVisible.GetLength() - 1;
    if (static_cast<int>(m_siV.nPage) >= m_siV.nMax || m_nItemHeight == 0) {
        StepTo(rowLast);
        return;
    }
    const int64_t nEnd = int64_t{m_siV.nPos} + m_siV.nPage + 1 - m_nItemHeight;
    const auto rowBottom = static_cast<UINT>(std::max<int64_t>(nEnd, 0) / m_nItemHeight);
    const UINT row = rowBottom != m_nSelected ? rowBottom : rowBottom + m_siV.nPage / m_nItemHeight;
    StepTo(std::min(row, rowLast));
}

// Collapses, or goes out to the parent, but never to the root.
void GTree::StepOut()
{
    const TreeItem* item = m_aVisible[m_nSelected];
    if (!item) {
        return;
    }
    if (item->uState & TIS_EXPANDED) {
        const HWND hwnd = m_hWnd;
        Collapse(m_nSelected);
        if (Frame::IsAlive(hwnd, this)) {
            Invalidate(0);
        }
        return;
    }
    if (item->pParent && item->pParent != m_pRoot) {
        StepTo(m_aVisible.Inside().rows.FindAbove(m_nSelected, *item->pParent));
    }
}

// Expands, or goes in to the first child.
void GTree::StepIn()
{
    const TreeItem* item = m_aVisible[m_nSelected];
    if (!item) {
        return;
    }
    if (!(item->uState & TIS_EXPANDED)) {
        const HWND hwnd = m_hWnd;
        Expand(m_nSelected);
        if (Frame::IsAlive(hwnd, this)) {
            EnsureVisible(m_nSelected);
            Invalidate(0);
        }
    } else if (gesso::HasChildren(*item)) {
        StepTo(m_nSelected + 1);
    }
}

// --- Type-ahead

LRESULT GTree::OnChar(UINT ch, UINT, UINT)
{
    if (!Has(*this, Quirk::TreeTypesLatinWords)) {
        return TreeInput::OnTyped(*this, static_cast<wchar_t>(ch));
    }
    const ULONGLONG ftNow = gesso::SystemTicks();
    if (m_ftLastChar + TYPING_PAUSE < ftNow) {
        m_szSearch[0] = 0;
    }
    if (!TakesPartInSearch(ch)) {
        return 0;
    }
    const UINT row = FindTyped(static_cast<wchar_t>(ch));
    m_ftLastChar = ftNow;
    if (row != NO_INDEX) {
        View().SelectRow(row);
        EnsureVisible(row);
        TreeActions::RedrawAll(*this);
        if (TreeActions::TellSelected(*this, true)) {
            TreeActions::TellScrolled(*this);
        }
    }
    return 0;
}

// The row that what is typed leads to, now with `ch` behind it. One letter again and again goes from row to
// row; what begins otherwise is sought from the selected row itself.
UINT GTree::FindTyped(wchar_t ch)
{
    const auto nTyped = static_cast<UINT>(wcslen(m_szSearch));
    const UINT rowSelected = m_nSelected < m_aVisible.GetLength() ? m_nSelected : 0;
    const bool fRepeated = nTyped == 1 && m_szSearch[0] == ch;
    if (nTyped == 0 || fRepeated) {
        m_szSearch[0] = ch;
        m_szSearch[1] = 0;
        return FindByPrefix(rowSelected + StartsWith(m_nSelected, 1), 1);
    }
    if (nTyped + 1 >= std::size(m_szSearch)) {
        return NO_INDEX;
    }
    m_szSearch[nTyped] = ch;
    m_szSearch[nTyped + 1] = 0;
    return FindByPrefix(rowSelected, nTyped + 1);
}

bool GTree::StartsWith(UINT row, UINT nLength) const
{
    const TreeItem* item = m_aVisible[row];
    return item && item->strName.CompareNoCase(m_szSearch, nLength) == 0;
}

// The first row, from one on and around once, whose name starts with what is typed.
UINT GTree::FindByPrefix(UINT rowFrom, UINT nLength) const
{
    const UINT nRows = m_aVisible.GetLength();
    rowFrom = rowFrom < nRows ? rowFrom : 0;
    const UINT row = FindByPrefix(rowFrom, nRows, nLength);
    return row != NO_INDEX ? row : FindByPrefix(0, rowFrom, nLength);
}

// What has not been shown has no name yet.
UINT GTree::FindByPrefix(UINT row, UINT rowEnd, UINT nLength) const
{
    const auto& rows = m_aVisible.Inside().rows;
    while ((row = rows.NextKnown(row)) < rowEnd) {
        if (StartsWith(row, nLength)) {
            return row;
        }
        ++row;
    }
    return NO_INDEX;
}
