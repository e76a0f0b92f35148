// A combo box's text field: caret, selection, mouse, keys and clipboard.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>

#include <algorithm>
#include <climits>
#include <functional>

using gesso::COMBO_BUTTON;
using gesso::COMBO_OUTSIDE;
using gesso::COMBO_TEXT;
using gesso::Frame;
using gesso::IsKeyDown;

// --- Selection

// The one place that changes the field's selection, after every edit as well. Both ends are in the text then.
void GComboBox::ChangeField(const gesso::TextField& field)
{
    m_nCaret = field.Caret().nChar;
    m_nAnchor = field.Anchor().nChar;
}

void GComboBox::SelectAllText()
{
    Field field(*this);
    field.text.SelectAll();
    ChangeField(field.text);
    ShowCursor();
    Invalidate(0);
}

// --- Caret

void GComboBox::ShowCursor()
{
    if (!Has(*this, gesso::Quirk::ComboFieldIsPlain)) {
        return; // a field's caret is its own
    }
    if (m_bCaret) {
        UpdateCursorPos();
        return;
    }
    gesso::CreateTextCaret(m_hWnd, m_hFont);
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

// Fixed behaviour: the field does not scroll, a caret behind more text than fits stands beyond its edge, and
// a button at the left is not taken into account; the caret would stand elsewhere.
void GComboBox::UpdateCursorPos()
{
    const HWND hwndFocus = GetFocus();
    if (!m_bCaret || (hwndFocus && hwndFocus != m_hWnd)) {
        return; // the caret that there is may be another control's
    }
    const gesso::WindowContext hdc(m_hWnd);
    const gesso::SelectScope font(hdc, m_hFont);
    const RECT rcField = FieldRect(hdc, 0);
    const gesso::TextMeasure measure(hdc, false);
    int nAcross = measure.Extent(m_strText, m_nCaret).cx;
    if (gesso::IsMirrored(m_hWnd)) {
        nAcross = measure.Extent(m_strText, m_strText.GetLength()).cx - nAcross;
    }
    SetCaretPos(rcField.left + nAcross, rcField.top);
}

LRESULT GComboBox::OnSetFocus(HWND)
{
    if (Kind() == GCBS_DROPDOWN) {
        m_bCaret = 0; // one that was made before has gone with the focus
        SelectAllText();
    }
    return Inside::TakeFocus(*this);
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
        return COMBO_OUTSIDE;
    }
    switch (Kind()) {
    case GCBS_DROPDOWNLIST: return COMBO_BUTTON;
    case GCBS_DROPDOWN: {
        const RECT rcButton = ButtonRect(rcClient);
        return pt.x >= rcButton.left && pt.x <= rcButton.right ? COMBO_BUTTON : COMBO_TEXT;
    }
    default: return COMBO_TEXT;
    }
}

UINT GComboBox::CharAt(int x) const
{
    const gesso::WindowMeasure measure(m_hWnd, m_hFont, false);
    const UINT nLength = m_strText.GetLength();
    if (gesso::IsMirrored(m_hWnd)) {
        x = measure->Extent(m_strText, nLength).cx - x;
    }
    return measure->CountBefore(m_strText, nLength,
                                x + gesso::Pixels(m_hWnd, gesso::Metrics::COMBO_HIT_SLACK));
}

int GComboBox::HitTest(HitTestInfo* pInfo) const
{
    const bool fSelecting = (m_dwState & GWS_PRESSED) && m_hitDown.nPart == COMBO_TEXT;
    pInfo->nPart = fSelecting ? COMBO_TEXT : PartAt(pInfo->pt);
    if (pInfo->nPart == COMBO_TEXT) {
        Modern* pModern = ModernPart();
        pInfo->nChar = pModern && pModern->HasField() ? pModern->CharAt(pInfo->pt) : CharAt(pInfo->pt.x);
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
    case COMBO_TEXT: PressText(wKeys & MK_SHIFT); break;
    case COMBO_BUTTON: ShowDropDown(); break;
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
    Frame::AddState(*this, GWS_PRESSED);
    Field field(*this);
    field.text.MoveTo({0, m_hitDown.nChar}, fExtend);
    ChangeField(field.text);
    UpdateCursorPos();
}

LRESULT GComboBox::OnLButtonUp(WPARAM, POINTS)
{
    if (m_dwState & GWS_PRESSED) {
        const HWND hwnd = m_hWnd;
        ReleaseCapture();
        if (Frame::IsAlive(hwnd, this)) {
            Invalidate(0);
            m_hitDown = {{}, COMBO_OUTSIDE, 0};
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
    Frame::AddState(*this, GWS_HOT);
    if ((m_dwState & GWS_PRESSED) && m_hitMove.nPart == COMBO_TEXT) {
        Field field(*this);
        field.text.MoveTo({0, m_hitMove.nChar}, true);
        ChangeField(field.text);
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
    m_hitMove.nPart = COMBO_OUTSIDE;
    return Frame::OnMouseLeave(*this);
}

// Without items the selection becomes 0 or none, and the text empty for both.
LRESULT GComboBox::OnMouseWheel(int nDelta)
{
    SelectWithin(LONGLONG{static_cast<int>(Selected())} - nDelta / WHEEL_DELTA);
    return 0;
}

LRESULT GComboBox::OnSetCursor(WPARAM wParam, LPARAM lParam)
{
    POINT pt{};
    GetCursorPos(&pt);
    ScreenToClient(m_hWnd, &pt);
    const POINTS ptClient{static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
    if (Kind() == GCBS_DROPDOWN && PartAt(ptClient) == COMBO_TEXT) {
        SetCursor(s_hIbeam);
        return TRUE;
    }
    return Frame::Default(*this, WM_SETCURSOR, wParam, lParam);
}

// --- Edits of the user's, which are told last: the control may be gone afterwards

template <class EDIT> void GComboBox::Edit(EDIT edit)
{
    if (ChangeText([&](gesso::TextField& field) { return std::invoke(edit, field); })) {
        UpdateCursorPos();
        Invalidate(0);
        Frame::SendCommand(*this, EN_CHANGE);
    }
}

bool GComboBox::Inside::TypeOver(GComboBox& combo, LPCWSTR pszText)
{
    const Telling telling(combo);
    if (Modern* pModern = combo.ModernPart()) {
        return pModern->TypeOver(pszText);
    }
    bool fTyped = false;
    combo.Edit([&](gesso::TextField& field) {
        field.SelectAll();
        fTyped = field.Insert(pszText);
        return fTyped;
    });
    return fTyped;
}

// By the open list, or by the keys.
void GComboBox::Inside::PickItem(GComboBox& combo, UINT nIndex)
{
    const Telling telling(combo);
    if (Modern* pModern = combo.ModernPart()) {
        pModern->PickItem(nIndex);
    } else if (combo.IsDropped()) {
        combo.m_pList->Pick(nIndex);
    } else if (nIndex != combo.Selected()) {
        combo.SelectWithin(nIndex);
    }
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

void GComboBox::SelectWithin(LONGLONG nIndex)
{
    const LONGLONG nLast = LONGLONG{m_aItems.GetLength()} - 1;
    if (ChangeSelection(static_cast<UINT>(nIndex < 0 ? 0 : std::min(nIndex, nLast)))) {
        Update(true);
    }
}

void GComboBox::StepThroughItems(UINT uKey)
{
    const LONGLONG nSelected = static_cast<int>(Selected());
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
    if (MoveByKey(uKey)) {
        return;
    }
    switch (uKey) {
    case VK_UP: StepItem(-1); break;
    case VK_DOWN: StepItem(1); break;
    case VK_DELETE: Edit(&gesso::TextField::RemoveBehind); break;
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
    case 'C': Field(*this).text.Copy(*this); break;
    case 'X': Field(*this).text.Cut(*this, [&](auto remove) { Edit(remove); }); break;
    case 'V':
        gesso::TextField::Paste(*this, gesso::PastedAs::OneLine, [&](auto insert) { Edit(insert); });
        break;
    default: break;
    }
}

// False for a key that is none of those that move the caret.
bool GComboBox::MoveByKey(UINT uKey)
{
    Field field(*this);
    gesso::Place caret = field.text.Caret();
    switch (uKey) {
    case VK_END: caret = field.lines.End(); break;
    case VK_HOME: caret = {}; break;
    case VK_LEFT: caret = field.lines.Before(caret); break;
    case VK_RIGHT: caret = field.lines.Behind(caret); break;
    default: return false;
    }
    field.text.MoveTo(caret, IsKeyDown(VK_SHIFT));
    ChangeField(field.text);
    ShowCursor();
    Invalidate(0);
    return true;
}

void GComboBox::StepItem(int nStep)
{
    const UINT nSelected = Selected();
    const bool fRoom =
        nStep > 0 ? nSelected + 1 < m_aItems.GetLength() : nSelected != 0 && nSelected != gesso::NO_INDEX;
    if (fRoom && ChangeSelection(nSelected + static_cast<UINT>(nStep))) {
        ShowCursor();
        Update(true);
    }
}

// Fixed behaviour: Ctrl swallows every character, those of AltGr included; characters would come in that are
// swallowed now.
LRESULT GComboBox::OnChar(wchar_t c, LPARAM)
{
    if (Kind() != GCBS_DROPDOWN) {
        return 0;
    }
    switch (c) {
    case gesso::CHAR_BACKSPACE: Edit(&gesso::TextField::RemoveBefore); return 0;
    case gesso::CHAR_TAB: gesso::SendTab(*this); return 0;
    case gesso::CHAR_LINE_FEED:
    case gesso::CHAR_ESCAPE: return 1;
    case gesso::CHAR_RETURN: return 0;
    default:
        if (c && !IsKeyDown(VK_CONTROL)) {
            Edit([c](gesso::TextField& field) {
                const wchar_t szTyped[] = {c, 0};
                return field.Insert(szTyped);
            });
        }
        return 0;
    }
}
