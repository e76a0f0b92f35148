// The platform's messages to a combo box, as one that was made in Modern answers them.

#include <gesso/edit/ComboSearch.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>

using gesso::Frame;
using gesso::NO_INDEX;

namespace {

constexpr int MOST_ROW_HEIGHT = 255; // as the platform's lists have it
constexpr int MOST_FIELD_HEIGHT = 32767;
constexpr LRESULT DONE = 1;
constexpr UINT MOST_STORAGE = 1 << 22; // items that room is made for at once

// A new item's index, or that there is no memory for it.
LRESULT Added(UINT nIndex)
{
    return nIndex == NO_INDEX ? CB_ERRSPACE : static_cast<int>(nIndex);
}

LPCWSTR TextArgument(LPARAM lParam)
{
    return gesso::TextOrEmpty(reinterpret_cast<LPCWSTR>(lParam));
}

int WidthOf(const RECT& rc)
{
    return rc.right - rc.left;
}

} // namespace

bool GComboBox::Modern::OnComboMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    return OnItemQuery(uMsg, wParam, lParam, plAnswer) || OnFieldQuery(uMsg, wParam, lParam, plAnswer) ||
           OnListQuery(uMsg, wParam, lParam, plAnswer);
}

// --- Items

bool GComboBox::Modern::OnItemQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    ComboItem* pItem = m_combo.ItemAt(static_cast<UINT>(wParam));
    switch (uMsg) {
    case CB_ADDSTRING:
        *plAnswer = Added(m_combo.InsertItem(NO_INDEX, 0, TextArgument(lParam), 0, nullptr));
        return true;
    case CB_INSERTSTRING:
        *plAnswer = InsertString(static_cast<int>(wParam), TextArgument(lParam));
        return true;
    case CB_INITSTORAGE: *plAnswer = InitStorage(static_cast<UINT>(wParam)); return true;
    case CB_RESETCONTENT:
        m_combo.RemoveAllItems();
        m_combo.SetText(nullptr);
        *plAnswer = CB_OKAY;
        return true;
    case CB_GETITEMDATA: *plAnswer = pItem ? reinterpret_cast<LRESULT>(pItem->pData) : CB_ERR; return true;
    case CB_SETITEMDATA:
        if (pItem) {
            pItem->pData = reinterpret_cast<void*>(lParam);
        }
        *plAnswer = pItem ? DONE : CB_ERR;
        return true;
    default: return false;
    }
}

// -1 is the end, also where the items are sorted.
LRESULT GComboBox::Modern::InsertString(int nIndex, LPCWSTR psz)
{
    const UINT nCount = m_combo.GetItemCount();
    const UINT nAt = nIndex == -1 ? nCount : static_cast<UINT>(nIndex);
    return nAt > nCount ? CB_ERR : Added(m_combo.InsertItem(nAt, 0, psz, 0, nullptr));
}

// How many items there is room for then.
LRESULT GComboBox::Modern::InitStorage(UINT nItems)
{
    if (nItems > MOST_STORAGE || !m_combo.m_aItems.AllocExtra(m_combo.GetItemCount() + nItems)) {
        return CB_ERRSPACE;
    }
    return m_combo.m_aItems.GetBufferLength();
}

// --- The field

bool GComboBox::Modern::OnFieldQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    switch (uMsg) {
    case CB_GETEDITSEL:
        if (!HasField()) {
            *plAnswer = CB_ERR;
            return true;
        }
        return m_editor.OnMessage(EM_GETSEL, wParam, lParam, plAnswer);
    case CB_SETEDITSEL: *plAnswer = SetEditSelection(LOWORD(lParam), HIWORD(lParam)); return true;
    case CB_LIMITTEXT:
        *plAnswer = m_combo.OnLimitText(static_cast<UINT>(wParam));
        SetLimit();
        return true;
    case CB_SETCUEBANNER: *plAnswer = SetCue(reinterpret_cast<LPCWSTR>(lParam)); return true;
    case CB_GETCUEBANNER:
        *plAnswer = CopyCue(reinterpret_cast<LPWSTR>(wParam), static_cast<int>(lParam));
        return true;
    default: return false;
    }
}

// 16 bits are all that is told of either end: the highest number is the text's end, or for the start that
// nothing is to be selected.
LRESULT GComboBox::Modern::SetEditSelection(UINT nStart, UINT nEnd)
{
    constexpr UINT NO_START = 0xFFFF;
    if (!HasField()) {
        return CB_ERR;
    }
    const UINT nTo = nEnd == NO_START ? TextLength() : nEnd;
    const UINT nCaret = m_editor.Caret();
    nStart == NO_START ? m_editor.Select(nCaret, nCaret) : m_editor.Select(nStart, nTo);
    CopySelection();
    return DONE;
}

LRESULT GComboBox::Modern::SetCue(LPCWSTR psz)
{
    gesso::ControlText cue;
    LRESULT lAnswer = FALSE;
    if (gesso::HoldTextOrNone(cue, psz)) {
        m_editor.OnMessage(EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(psz), &lAnswer);
    }
    if (!lAnswer) {
        return FALSE;
    }
    m_cue = cue;
    m_combo.Invalidate(0);
    return TRUE;
}

// As much as fits, with its terminator.
LRESULT GComboBox::Modern::CopyCue(LPWSTR pszBuffer, int nCapacity) const
{
    if (!pszBuffer || nCapacity <= 0) {
        return FALSE;
    }
    const int nLength = std::min(gesso::TextLength(m_cue), nCapacity - 1);
    std::copy_n(gesso::TextOrEmpty(m_cue), nLength, pszBuffer);
    pszBuffer[nLength] = 0;
    return m_cue ? TRUE : FALSE;
}

// --- The list

bool GComboBox::Modern::OnListQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const auto nArgument = static_cast<int>(wParam);
    switch (uMsg) {
    case CB_SHOWDROPDOWN:
        ShowDropDown(wParam != 0);
        *plAnswer = TRUE;
        return true;
    case CB_GETDROPPEDSTATE: *plAnswer = List().IsOpen(); return true;
    case CB_GETDROPPEDCONTROLRECT: *plAnswer = DroppedRect(reinterpret_cast<RECT*>(lParam)); return true;
    case CB_SETITEMHEIGHT: *plAnswer = SetItemHeight(nArgument, static_cast<int>(lParam)); return true;
    case CB_GETITEMHEIGHT: *plAnswer = ItemHeight(nArgument); return true;
    case CB_SETMINVISIBLE: *plAnswer = SetMinVisible(static_cast<UINT>(wParam)); return true;
    case CB_GETMINVISIBLE: *plAnswer = static_cast<int>(m_nMinVisible); return true;
    case CB_SETDROPPEDWIDTH:
        m_nDroppedWidth = std::max(0, nArgument);
        ArrangeIfOpen();
        [[fallthrough]];
    case CB_GETDROPPEDWIDTH: *plAnswer = DroppedWidth(); return true;
    case CB_GETTOPINDEX: *plAnswer = TopRow(); return true;
    case CB_SETTOPINDEX: *plAnswer = SetTopIndex(static_cast<UINT>(wParam)); return true;
    case CB_SETEXTENDEDUI:
        m_fExtended = wParam && HasList();
        *plAnswer = HasList() ? CB_OKAY : CB_ERR;
        return true;
    case CB_GETEXTENDEDUI: *plAnswer = m_fExtended; return true;
    case CB_GETCOMBOBOXINFO: *plAnswer = Info(reinterpret_cast<COMBOBOXINFO*>(lParam)); return true;
    default: return false;
    }
}

void GComboBox::Modern::ShowDropDown(bool fShow)
{
    if (fShow) {
        m_fHeld = false;
        Open();
    } else {
        Close(Ending::Leave);
    }
}

int GComboBox::Modern::DroppedWidth() const
{
    RECT rc{};
    GetWindowRect(m_combo.m_hWnd, &rc);
    return std::max(m_nDroppedWidth, WidthOf(rc));
}

// The control and its list, if it has one, which need not be open.
LRESULT GComboBox::Modern::DroppedRect(RECT* prc)
{
    if (!prc) {
        return FALSE;
    }
    if (!HasList()) {
        return GetWindowRect(m_combo.m_hWnd, prc);
    }
    RECT rcList = PlaceOfList();
    if (List().IsOpen()) {
        GetWindowRect(List().m_hWnd, &rcList);
    }
    GetWindowRect(m_combo.m_hWnd, prc);
    *prc = {std::min(prc->left, rcList.left), std::min(prc->top, rcList.top),
            std::max(prc->right, rcList.right), std::max(prc->bottom, rcList.bottom)};
    return TRUE;
}

int GComboBox::Modern::FieldHeight() const
{
    const RECT rc = TextRect();
    return rc.bottom - rc.top;
}

LRESULT GComboBox::Modern::ItemHeight(int nIndex) const
{
    if (nIndex < -1) {
        return CB_ERR;
    }
    if (nIndex == -1) {
        return FieldHeight();
    }
    return RowHeight();
}

// Of the field: the control becomes as much higher or lower.
LRESULT GComboBox::Modern::SetItemHeight(int nIndex, int nHeight)
{
    const int nMost = nIndex == -1 ? MOST_FIELD_HEIGHT : MOST_ROW_HEIGHT;
    if (nIndex < -1 || nIndex > 0 || nHeight < 1 || nHeight > nMost) {
        return CB_ERR;
    }
    if (nIndex == 0) {
        m_nRowHeight = nHeight;
        ArrangeIfOpen();
        return CB_OKAY;
    }
    RECT rc{};
    GetWindowRect(m_combo.m_hWnd, &rc);
    SetWindowPos(m_combo.m_hWnd, nullptr, 0, 0, WidthOf(rc), rc.bottom - rc.top + nHeight - FieldHeight(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return CB_OKAY;
}

LRESULT GComboBox::Modern::SetMinVisible(UINT nRows)
{
    if (nRows == 0) {
        return FALSE;
    }
    m_nMinVisible = nRows;
    ArrangeIfOpen();
    return TRUE;
}

LRESULT GComboBox::Modern::SetTopIndex(UINT nIndex)
{
    if (!m_combo.ItemAt(nIndex)) {
        return CB_ERR;
    }
    m_nTop = nIndex;
    if (List().IsOpen()) {
        List().ScrollTo(LONGLONG{nIndex} * List().ItemHeight());
    }
    return CB_OKAY;
}

LRESULT GComboBox::Modern::Info(COMBOBOXINFO* pInfo) const
{
    if (!pInfo || pInfo->cbSize != sizeof(COMBOBOXINFO)) {
        return FALSE;
    }
    RECT rcClient{};
    GetClientRect(m_combo.m_hWnd, &rcClient);
    const DWORD dwButton = IsOpen() ? STATE_SYSTEM_PRESSED : 0;
    *pInfo = {sizeof(COMBOBOXINFO),
              TextRect(),
              HasList() ? m_combo.ButtonRect(rcClient) : RECT{},
              HasList() ? dwButton : STATE_SYSTEM_INVISIBLE,
              m_combo.m_hWnd,
              nullptr,
              List().IsOpen() ? List().m_hWnd : nullptr};
    return TRUE;
}
