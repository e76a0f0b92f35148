// A combo box's text field: caret, selection, mouse, keys and clipboard.

#include <gesso/edit/ClipboardText.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxList.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <climits>

using gesso::Frame;
using gesso::IsKeyDown;

namespace {

constexpr int OUTSIDE = -1;
constexpr int TEXT = 1;
constexpr int BUTTON = 2;

constexpr int HIT_SLACK = 3; // pixels by which a point reaches the character behind it

} // namespace

// --- Selection

GComboBox::TextRange GComboBox::Selection() const
{
    return {std::min(m_nCaret, m_nAnchor), std::max(m_nCaret, m_nAnchor)};
}

void GComboBox::SetCaret(UINT nCaret, UINT nAnchor)
{
    m_nCaret = nCaret;
    m_nAnchor = nAnchor;
    LimitSelection();
}

void GComboBox::LimitSelection()
{
    m_nCaret = std::min(m_nCaret, m_strText.GetLength());
    m_nAnchor = std::min(m_nAnchor, m_strText.GetLength());
}

void GComboBox::SelectAllText()
{
    SetCaret(m_strText.GetLength(), 0);
    ShowCursor();
    Invalidate(0);
}

// --- Caret

void GComboBox::ShowCursor()
{
    if (m_bCaret) {
        UpdateCursorPos();
        return;
    }
    const TEXTMETRICW metric = gesso::WindowMeasure(m_hWnd, m_hFont, false).FontMetric();
    CreateCaret(m_hWnd, nullptr, 0, metric.tmAscent + metric.tmDescent);
    m_bCaret = 1;
    UpdateCursorPos();
    ShowCaret(m_hWnd);
}

void GComboBox::HideCursor()
{
    if (m_bCaret) {
        DestroyCaret();
        m_bCaret = 0;
    }
}

// The field does not scroll: a caret behind more text than fits stands beyond its edge. A button at the left
// is not taken into account either; hosts know it so.
void GComboBox::UpdateCursorPos()
{
    const HWND hwndFocus = GetFocus();
    if (!m_bCaret || (hwndFocus && hwndFocus != m_hWnd)) {
        return; // the caret that there is may be another control's
    }
    const gesso::WindowContext hdc(m_hWnd);
    const gesso::SelectScope font(hdc, m_hFont);
    const RECT rcField = FieldRect(hdc, 0);
    const SIZE before = gesso::TextMeasure(hdc, false).Extent(m_strText, m_nCaret);
    SetCaretPos(rcField.left + before.cx, rcField.top);
}

LRESULT GComboBox::OnSetFocus(HWND)
{
    if (Kind() == GCBS_DROPDOWN) {
        m_bCaret = 0; // one that was made before has gone with the focus
        SelectAllText();
    }
    return Frame::OnSetFocus(*this);
}

LRESULT GComboBox::OnKillFocus(HWND)
{
    if (Kind() == GCBS_DROPDOWN) {
        HideCursor();
    }
    return Frame::OnKillFocus(*this);
}

// --- Hit-testing

int GComboBox::PartAt(POINTS pt) const
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    if (pt.x < 0 || pt.y < 0 || pt.x > rcClient.right || pt.y > rcClient.bottom) {
        return OUTSIDE;
    }
    switch (Kind()) {
    case GCBS_DROPDOWNLIST: return BUTTON;
    case GCBS_DROPDOWN: {
        const RECT rcButton = ButtonRect(rcClient);
        return pt.x >= rcButton.left && pt.x <= rcButton.right ? BUTTON : TEXT;
    }
    default: return TEXT;
    }
}

UINT GComboBox::CharAt(int x) const
{
    const gesso::WindowMeasure measure(m_hWnd, m_hFont, false);
    return measure->CountBefore(m_strText, m_strText.GetLength(), x + HIT_SLACK);
}

int GComboBox::HitTest(HitTestInfo* pInfo) const
{
    const bool fSelecting = (m_dwState & GWS_PRESSED) && m_hitDown.nPart == TEXT;
    pInfo->nPart = fSelecting ? TEXT : PartAt(pInfo->pt);
    if (pInfo->nPart == TEXT) {
        pInfo->nChar = CharAt(pInfo->pt.x);
    }
    return pInfo->nPart;
}

// --- Mouse

LRESULT GComboBox::OnLButtonDown(WPARAM wKeys, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    SetFocus(m_hWnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Invalidate(0);
    m_hitDown.pt = pt;
    switch (HitTest(&m_hitDown)) {
    case TEXT: PressText(wKeys & MK_SHIFT); break;
    case BUTTON: ShowDropDown(); break;
    default: break;
    }
    return 0;
}

void GComboBox::PressText(bool fExtend)
{
    const HWND hwnd = m_hWnd;
    // Tells the window that had the capture.
    SetCapture(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return;
    }
    m_dwState |= GWS_PRESSED;
    SetCaret(m_hitDown.nChar, fExtend ? m_nAnchor : m_hitDown.nChar);
    UpdateCursorPos();
}

LRESULT GComboBox::OnLButtonUp(WPARAM, POINTS)
{
    if (m_dwState & GWS_PRESSED) {
        const HWND hwnd = m_hWnd;
        ReleaseCapture();
        if (Frame::IsAlive(hwnd, this)) {
            Invalidate(0);
            m_hitDown = {{}, OUTSIDE, 0};
        }
    }
    return 0;
}

LRESULT GComboBox::OnLButtonDblClk(WPARAM, POINTS)
{
    if (Kind() != GCBS_DROPDOWNLIST) {
        SelectAllText();
    }
    return 0;
}

LRESULT GComboBox::OnMouseMove(WPARAM, POINTS pt)
{
    Frame::TrackLeave(*this);
    const int nFormer = m_hitMove.nPart;
    m_hitMove.pt = pt;
    HitTest(&m_hitMove);
    m_dwState |= GWS_HOT;
    if ((m_dwState & GWS_PRESSED) && m_hitMove.nPart == TEXT) {
        SetCaret(m_hitMove.nChar, m_nAnchor);
        ShowCursor();
        Invalidate(0);
    }
    if (m_hitMove.nPart != nFormer) {
        Invalidate(0);
    }
    return 0;
}

LRESULT GComboBox::OnMouseLeave()
{
    m_hitMove.nPart = OUTSIDE;
    return Frame::OnMouseLeave(*this);
}

// Without items the selection becomes 0 or none, and the text empty for both.
LRESULT GComboBox::OnMouseWheel(int nDelta)
{
    SelectWithin(static_cast<int>(Selected()) - nDelta / WHEEL_DELTA);
    return 0;
}

LRESULT GComboBox::OnSetCursor(WPARAM wParam, LPARAM lParam)
{
    POINT pt{};
    GetCursorPos(&pt);
    ScreenToClient(m_hWnd, &pt);
    const POINTS ptClient{static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
    if (Kind() == GCBS_DROPDOWN && PartAt(ptClient) == TEXT) {
        SetCursor(s_hIbeam);
        return TRUE;
    }
    return DefWindowProcW(m_hWnd, WM_SETCURSOR, wParam, lParam);
}

// --- Keys

LRESULT GComboBox::OnKeyDown(UINT uKey, LPARAM)
{
    if (Kind() == GCBS_DROPDOWN) {
        EditByKey(uKey);
    } else if (m_aItems.GetLength() > 0) {
        StepThroughItems(uKey);
    }
    return 0;
}

void GComboBox::SelectWithin(int nIndex)
{
    const int nLast = static_cast<int>(m_aItems.GetLength()) - 1;
    m_pList->m_nSelected = static_cast<UINT>(nIndex < 0 ? 0 : std::min(nIndex, nLast));
    Update(true);
}

void GComboBox::StepThroughItems(UINT uKey)
{
    const int nSelected = static_cast<int>(Selected());
    switch (uKey) {
    case VK_PRIOR:
    case VK_HOME: SelectWithin(0); break;
    case VK_NEXT:
    case VK_END: SelectWithin(INT_MAX); break;
    case VK_LEFT:
    case VK_UP: SelectWithin(nSelected - 1); break;
    case VK_RIGHT:
    case VK_DOWN: SelectWithin(nSelected + 1); break;
    default: break;
    }
}

void GComboBox::EditByKey(UINT uKey)
{
    switch (uKey) {
    case VK_END: MoveCaret(m_strText.GetLength()); break;
    case VK_HOME: MoveCaret(0); break;
    case VK_LEFT: MoveCaret(m_nCaret > 0 ? m_nCaret - 1 : 0); break;
    case VK_RIGHT: MoveCaret(m_nCaret + 1); break;
    case VK_UP: StepItem(-1); break;
    case VK_DOWN: StepItem(1); break;
    case VK_DELETE: DeleteForward(); break;
    case VK_F4:
        Invalidate(0);
        ShowDropDown();
        break;
    default:
        if (IsKeyDown(VK_CONTROL)) {
            EditByControlKey(uKey);
        }
        break;
    }
}

void GComboBox::EditByControlKey(UINT uKey)
{
    switch (uKey) {
    case 'A': SelectAllText(); break;
    case 'C': Copy(); break;
    case 'X': Cut(); break;
    case 'V': Paste(); break;
    default: break;
    }
}

void GComboBox::MoveCaret(UINT nCaret)
{
    SetCaret(nCaret, IsKeyDown(VK_SHIFT) ? m_nAnchor : nCaret);
    ShowCursor();
    Invalidate(0);
}

void GComboBox::StepItem(int nStep)
{
    const UINT nSelected = Selected();
    const bool fRoom = nStep > 0 ? nSelected + 1 < m_aItems.GetLength()
                                 : nSelected != 0 && nSelected != static_cast<UINT>(-1);
    if (fRoom) {
        m_pList->m_nSelected = nSelected + static_cast<UINT>(nStep);
        ShowCursor();
        Update(true);
    }
}

// Ctrl swallows every character, those of AltGr included: hosts know it so.
LRESULT GComboBox::OnChar(wchar_t c, LPARAM)
{
    if (Kind() != GCBS_DROPDOWN) {
        return 0;
    }
    switch (c) {
    case gesso::CHAR_BACKSPACE: DeleteBackward(); return 0;
    case gesso::CHAR_TAB: gesso::SendTab(*this); return 0;
    case gesso::CHAR_LINE_FEED:
    case gesso::CHAR_ESCAPE: return 1;
    case gesso::CHAR_RETURN: return 0;
    default:
        if (c && !IsKeyDown(VK_CONTROL)) {
            ReplaceSelection(&c, 1);
        }
        return 0;
    }
}

// --- Editing: each operation ends with the notification, after which the control may be gone

void GComboBox::SendChanged()
{
    UpdateCursorPos();
    Invalidate(0);
    Frame::SendCommand(*this, EN_CHANGE);
}

void GComboBox::RemoveText(TextRange range)
{
    m_strText.Delete(range.nFrom, range.nTo - range.nFrom);
    SetCaret(range.nFrom, range.nFrom);
    SendChanged();
}

void GComboBox::ReplaceSelection(LPCWSTR psz, UINT nLength)
{
    const TextRange range = Selection();
    m_strText.Delete(range.nFrom, range.nTo - range.nFrom);
    m_strText.Insert(range.nFrom, psz, nLength);
    SetCaret(range.nFrom + nLength, range.nFrom + nLength);
    SendChanged();
}

void GComboBox::DeleteForward()
{
    if (m_nCaret != m_nAnchor) {
        RemoveText(Selection());
    } else if (m_nCaret < m_strText.GetLength()) {
        RemoveText({m_nCaret, m_nCaret + 1});
    }
}

void GComboBox::DeleteBackward()
{
    if (m_nCaret != m_nAnchor) {
        RemoveText(Selection());
    } else if (m_nCaret > 0) {
        RemoveText({m_nCaret - 1, m_nCaret});
    }
}

// False where there is no selection, or the clipboard did not take it. The control may be gone afterwards.
bool GComboBox::Copy() const
{
    const TextRange range = Selection();
    return range.nFrom != range.nTo &&
           gesso::PutClipboardText(m_hWnd, static_cast<LPCWSTR>(m_strText) + range.nFrom,
                                   range.nTo - range.nFrom);
}

void GComboBox::Cut()
{
    const HWND hwnd = m_hWnd;
    if (Copy() && Frame::IsAlive(hwnd, this)) {
        RemoveText(Selection());
    }
}

void GComboBox::Paste()
{
    const HWND hwnd = m_hWnd;
    OStringEx<wchar_t> strPasted;
    if (!gesso::GetClipboardText(hwnd, &strPasted) || !Frame::IsAlive(hwnd, this)) {
        return;
    }
    strPasted.Remove(L'\r');
    strPasted.Replace(L'\n', L' ');
    ReplaceSelection(strPasted, strPasted.GetLength());
}
