// What keys, the mouse and the clipboard do to a GEdit.
//
// The parent may do anything when it is told, destroying the control included: EN_CHANGE is sent last.

#include <gesso/edit/ClipboardText.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::IsKeyDown;

// --- After a change

void GEdit::Moved()
{
    if (!IsKeyDown(VK_SHIFT)) {
        PutAnchor(Caret());
    }
    UpdateCursorPos();
    Invalidate(0);
}

// Ends every edit, a refused one too. The control may be gone afterwards.
LRESULT GEdit::Edited()
{
    PutAnchor(Caret());
    UpdateCursorPos();
    Invalidate(0);
    Frame::SendCommand(*this, EN_CHANGE);
    return 0;
}

// --- Keys

LRESULT GEdit::OnKeyDown(UINT uKey, UINT, UINT)
{
    // What SetSel or a deleted line end left outside of a line comes back in.
    PutCaret(Caret());
    PutAnchor(Anchor());
    if (MoveCaret(uKey)) {
        Moved();
        return 0;
    }
    if (uKey == VK_DELETE) {
        return OnDelete();
    }
    return IsKeyDown(VK_CONTROL) ? OnControlKey(uKey) : 0;
}

// False where the key moves nothing.
bool GEdit::MoveCaret(UINT uKey)
{
    switch (uKey) {
    case VK_END: m_nCaretChar = m_aLines[m_nCaretLine]; return true;
    case VK_HOME: m_nCaretChar = 0; return true;
    case VK_LEFT: return MoveLeft();
    case VK_RIGHT: return MoveRight();
    case VK_UP: return MoveUp();
    case VK_DOWN: return MoveDown();
    default: return false;
    }
}

LRESULT GEdit::OnControlKey(UINT uKey)
{
    switch (uKey) {
    case 'A':
        SelectAll();
        // Hosts are told of a change though only the selection did.
        Frame::SendCommand(*this, EN_CHANGE);
        break;
    case 'C': Copy(); break;
    case 'X': return OnCut();
    case 'V': return OnPaste();
    default: break;
    }
    return 0;
}

bool GEdit::MoveLeft()
{
    if (m_nCaretChar > 0) {
        --m_nCaretChar;
        return true;
    }
    if (m_nCaretLine == 0) {
        return false;
    }
    const UINT nUpper = m_nCaretLine - 1;
    const UINT nLength = m_aLines[nUpper];
    const bool fWrapped = !IsLineEnd(OffsetOfLine(nUpper) + nLength);
    PutCaret({nUpper, fWrapped && nLength > 0 ? nLength - 1 : nLength});
    return true;
}

bool GEdit::MoveRight()
{
    if (m_nCaretChar < m_aLines[m_nCaretLine]) {
        ++m_nCaretChar;
        return true;
    }
    const UINT nLower = m_nCaretLine + 1;
    if (nLower == m_aLines.GetLength()) {
        return false;
    }
    const bool fWrapped = !IsLineEnd(OffsetOf(Caret()));
    PutCaret({nLower, fWrapped ? std::min(m_aLines[nLower], 1u) : 0});
    return true;
}

bool GEdit::MoveUp()
{
    if (m_nCaretLine == 0) {
        return false;
    }
    POINT pt{};
    GetCaretPos(&pt);
    MoveToRow({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y - 1)});
    return true;
}

// The distance is the line height of the context's own font, which need not be the control's: hosts know the
// key so.
bool GEdit::MoveDown()
{
    if (m_nCaretLine + 1 == m_aLines.GetLength()) {
        return false;
    }
    POINT pt{};
    GetCaretPos(&pt);
    const int nHeight = gesso::WindowMeasure(m_hWnd, nullptr, false)->LineHeight();
    MoveToRow({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y + nHeight)});
    return true;
}

void GEdit::MoveToRow(POINTS pt)
{
    HitTestInfo info{pt, 0, 0};
    HitTest(&info);
    PutCaret({info.nLine, info.nChar});
}

void GEdit::SelectAll()
{
    PutAnchor({0, 0});
    PutCaret(End());
    UpdateCursorPos();
    Invalidate(0);
}

LRESULT GEdit::OnDelete()
{
    const Place caret = Caret();
    const UINT nOffset = OffsetOfLine(caret.nLine);
    const UINT nEnd = nOffset + m_aLines[caret.nLine];
    const UINT nNext = caret.nLine + 1;
    if (HasSelection()) {
        DeleteSelection();
    } else if (caret.nChar < m_aLines[caret.nLine]) {
        RemoveChar(caret.nLine, nOffset + caret.nChar);
    } else if (nNext == m_aLines.GetLength()) {
        return 0;
    } else if (IsLineEnd(nEnd)) {
        // This is the next line's offset only where both lines are equally long. Elsewhere other characters
        // than the line end go: hosts know the key so.
        PutCaret({nNext, 0});
        DeleteBreak(nNext, nOffset + LengthOfLine(nNext, nOffset));
    } else {
        UINT nHolder = caret.nLine;
        while (m_aLines[nHolder] == 0 && nHolder + 1 < m_aLines.GetLength()) {
            ++nHolder;
        }
        RemoveChar(nHolder, nEnd);
        PutCaretAt(nEnd);
    }
    RepairLines();
    return Edited();
}

// --- Characters

LRESULT GEdit::OnChar(UINT uChar, UINT, UINT)
{
    PutCaret(Caret());
    PutAnchor(Anchor());
    switch (uChar) {
    case gesso::CHAR_BACKSPACE: return OnBackspace();
    case gesso::CHAR_TAB: gesso::SendTab(*this); return 0;
    case gesso::CHAR_LINE_FEED:
    case gesso::CHAR_ESCAPE: return 1;
    case gesso::CHAR_RETURN: return OnEnter();
    default: return IsKeyDown(VK_CONTROL) ? 0 : OnTyped(static_cast<wchar_t>(uChar));
    }
}

LRESULT GEdit::OnBackspace()
{
    const Place caret = Caret();
    if (HasSelection()) {
        DeleteSelection();
    } else if (caret.nChar > 0) {
        PutCaret({caret.nLine, caret.nChar - 1});
        RemoveChar(caret.nLine, OffsetOf(Caret()));
    } else if (caret.nLine > 0) {
        JoinWithLineBefore();
    }
    RepairLines();
    return Edited();
}

LRESULT GEdit::OnEnter()
{
    if (HasSelection()) {
        DeleteSelection();
    }
    InsertBreak(m_nCaretLine, OffsetOfLine(m_nCaretLine));
    RepairLines();
    if (!(Frame::Style(*this) & ES_AUTOVSCROLL) && !DoesFitHeight() && m_nCaretLine > 0) {
        DeleteBreak(m_nCaretLine, OffsetOfLine(m_nCaretLine));
        RepairLines();
    }
    return Edited();
}

LRESULT GEdit::OnTyped(wchar_t ch)
{
    const bool fRestOfRefused = IS_LOW_SURROGATE(ch) && m_chRefused;
    m_chRefused = 0;
    if (HasSelection()) {
        DeleteSelection();
    }
    if (ch && !fRestOfRefused) {
        const Place caret = Caret();
        const OArray<UINT, UINT const&> aLines = m_aLines;
        const UINT nOffset = InsertChar(ch);
        if (!HasRoomForTyped()) {
            m_aLines = aLines;
            PutCaret(caret);
            TakeBack(nOffset);
        }
    }
    return Edited();
}

bool GEdit::WrapsWhenTyped() const
{
    return Frame::Style(*this) & (ES_MULTILINE | ES_AUTOHSCROLL);
}

bool GEdit::HasRoomForTyped()
{
    if (!WrapsWhenTyped()) {
        return DoesFitLine(m_nCaretLine);
    }
    RepairLines();
    return (Frame::Style(*this) & ES_AUTOVSCROLL) || DoesFitHeight();
}

// Ends the refusal of a typed character, once the lines and the caret are what they were before. A character
// of two halves goes as a whole, whichever of them has no room.
void GEdit::TakeBack(UINT nOffset)
{
    const wchar_t ch = CharAt(nOffset);
    m_chRefused = IS_HIGH_SURROGATE(ch) ? ch : L'\0';
    m_strText.Delete(nOffset, 1);
    m_nSettled = 0;
    if (IS_LOW_SURROGATE(ch) && nOffset > 0 && IS_HIGH_SURROGATE(CharAt(nOffset - 1))) {
        RemoveChar(LineHolding(nOffset - 1), nOffset - 1);
        PutCaretAt(nOffset - 1);
    }
    if (WrapsWhenTyped()) {
        RepairLines();
    }
}

// --- Clipboard

// False if there was nothing to copy, or the clipboard would not take it. The control may be gone afterwards.
bool GEdit::Copy() const
{
    const UINT nLength = m_strText.GetLength();
    const UINT nStart = std::min(OffsetOf(std::min(Caret(), Anchor())), nLength);
    const UINT nEnd = std::min(OffsetOf(std::max(Caret(), Anchor())), nLength);
    return nStart < nEnd && gesso::PutClipboardText(m_hWnd, TextAt(nStart), nEnd - nStart);
}

// What the clipboard did not take stays. The lines are not wrapped anew before the next edit.
LRESULT GEdit::OnCut()
{
    const HWND hwnd = m_hWnd;
    if (!Copy() || !Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    DeleteSelection();
    return Edited();
}

LRESULT GEdit::OnPaste()
{
    const HWND hwnd = m_hWnd;
    OStringEx<wchar_t> strText;
    if (!gesso::GetClipboardText(hwnd, &strText) || !Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    if (HasSelection()) {
        DeleteSelection();
    }
    InsertText(strText);
    WrapAll();
    return Edited();
}

// --- Mouse

void GEdit::ClickAt(POINTS pt, HitTestInfo* pInfo)
{
    pInfo->pt = pt;
    HitTest(pInfo);
    PutCaret({pInfo->nLine, pInfo->nChar});
}

LRESULT GEdit::OnLButtonDown(WPARAM wKeys, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    SetFocus(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Invalidate(0);
    // Tells the window that had the capture.
    SetCapture(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    m_dwState |= GWS_PRESSED;
    PutAnchor(Anchor());
    ClickAt(pt, &m_hitDown);
    if (!(wKeys & MK_SHIFT)) {
        PutAnchor(Caret());
    }
    UpdateCursorPos();
    return 0;
}

LRESULT GEdit::OnLButtonDblClk(WPARAM, POINTS)
{
    SelectAll();
    return 0;
}

LRESULT GEdit::OnLButtonUp(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcLButtonUp(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    if (m_dwState & GWS_PRESSED) {
        const HWND hwnd = m_hWnd;
        ReleaseCapture();
        if (Frame::IsAlive(hwnd, this)) {
            Invalidate(0);
        }
    }
    return 0;
}

LRESULT GEdit::OnMouseMove(WPARAM, POINTS pt)
{
    if (m_dwState & GWS_NCPRESSED) {
        return OnNcMouseMove(HTCLIENT, gesso::ToScreen(m_hWnd, pt));
    }
    Frame::TrackLeave(*this);
    if (m_dwState & GWS_PRESSED) {
        ClickAt(pt, &m_hitMove);
        UpdateCursorPos();
        Invalidate(0);
    }
    return 0;
}

LRESULT GEdit::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GEdit::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}
