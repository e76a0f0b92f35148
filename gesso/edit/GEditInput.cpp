// What keys, the mouse and the clipboard do to a GEdit.
//
// The parent may do anything when it is told, destroying the control included: EN_CHANGE is sent last.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GEditModern.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

using gesso::Frame;
using gesso::IsKeyDown;
using gesso::PastedAs;
using gesso::Place;
using gesso::TextField;

// --- After a change

void GEdit::Moved(TextField& field)
{
    if (!IsKeyDown(VK_SHIFT)) {
        field.Collapse();
    }
    Show(field);
}

// An edit of the user's, after which nothing is selected; a refused one is told too. The control may be gone
// afterwards.
template <class EDIT> LRESULT GEdit::Edit(EDIT edit)
{
    const auto andCollapse = [&](TextField& field) {
        const bool fDone = edit(field);
        field.Collapse();
        return fDone;
    };
    const UINT nFormer = m_strText.GetLength();
    const UINT nChanges = Own().nTextChanges;
    const bool fSelected = Field().HasSelection();
    if (ChangeText(andCollapse)) {
        const bool fChanged = fSelected || m_strText.GetLength() != nFormer;
        Own().fModified = Own().fModified || fChanged;
        if (!fChanged) {
            Own().nTextChanges = nChanges; // it was refused
        }
        ShowChange();
        Frame::SendCommand(*this, EN_CHANGE);
    }
    return 0;
}

bool GEdit::Inside::TypeOver(GEdit& edit, LPCWSTR pszText)
{
    const Telling telling(edit);
    if (Modern* const modern = edit.AsModern()) {
        return modern->editor.TypeOver(pszText);
    }
    edit.SelectAll();
    bool fTyped = false;
    edit.Edit([&](TextField& field) {
        fTyped = field.Insert(pszText);
        if (fTyped) {
            edit.WrapAll(field);
        }
        return fTyped;
    });
    return fTyped;
}

// --- Keys

LRESULT GEdit::OnKeyDown(UINT uKey, UINT, UINT)
{
    TextField field = Field();
    // What SetSel or a deleted line end left outside of a line comes back in.
    field.Limit();
    ChangeSelection(field);
    if (MoveByKey(uKey, field)) {
        Moved(field);
        return 0;
    }
    if (uKey == VK_DELETE) {
        return OnDelete();
    }
    return IsKeyDown(VK_CONTROL) ? OnControlKey(uKey) : 0;
}

// False for a key that is none of those that move the caret. At the text's start and end these leave it where
// it is.
bool GEdit::MoveByKey(UINT uKey, TextField& field) const
{
    const Place caret = field.Caret();
    switch (uKey) {
    case VK_END: field.PutCaret({caret.nLine, field.Lines().Length(caret.nLine)}); break;
    case VK_HOME: field.PutCaret({caret.nLine, 0}); break;
    case VK_LEFT: field.PutCaret(field.Lines().Before(caret)); break;
    case VK_RIGHT: field.PutCaret(field.Lines().Behind(caret)); break;
    case VK_UP: MoveUp(field); break;
    case VK_DOWN: MoveDown(field); break;
    default: return false;
    }
    return true;
}

void GEdit::MoveUp(TextField& field) const
{
    if (field.Caret().nLine > 0) {
        POINT pt{};
        GetCaretPos(&pt);
        MoveToRow(pt.x, LONGLONG{pt.y} - 1, field);
    }
}

// Fixed behaviour: the distance is the line height of the context's own font, which need not be the
// control's; in a much larger font the caret would otherwise leave a line that it stays in now.
void GEdit::MoveDown(TextField& field) const
{
    if (field.Caret().nLine + 1 < field.Lines().Count()) {
        POINT pt{};
        GetCaretPos(&pt);
        const int nHeight = gesso::WindowMeasure(m_hWnd, nullptr, false)->LineHeight();
        MoveToRow(pt.x, LONGLONG{pt.y} + nHeight, field);
    }
}

void GEdit::MoveToRow(LONGLONG x, LONGLONG y, TextField& field) const
{
    HitTestInfo info{{static_cast<SHORT>(x), static_cast<SHORT>(y)}, 0, 0};
    HitTest(&info);
    field.PutCaret({info.nLine, info.nChar});
}

LRESULT GEdit::OnControlKey(UINT uKey)
{
    switch (uKey) {
    case 'A':
        SelectAll();
        // Told as a change though only the selection changed.
        Frame::SendCommand(*this, EN_CHANGE);
        break;
    case 'C': Field().Copy(*this); break;
    // The lines are not wrapped anew before the next edit.
    case 'X': Field().Cut(*this, [&](auto remove) { Edit(remove); }); break;
    case 'V':
        TextField::Paste(*this, PastedAs::Lines, [&](auto insert) {
            Edit([&](TextField& field) {
                const bool fInserted = insert(field);
                if (fInserted) {
                    WrapAll(field);
                }
                return fInserted;
            });
        });
        break;
    default: break;
    }
    return 0;
}

void GEdit::SelectAll()
{
    TextField field = Field();
    field.SelectAll();
    Show(field);
}

LRESULT GEdit::OnDelete()
{
    return Edit([&](TextField& field) {
        const bool fRemoved = field.RemoveBehind();
        if (fRemoved) {
            Repair(field);
        }
        return fRemoved;
    });
}

// --- Characters

LRESULT GEdit::OnChar(UINT uChar, UINT, UINT)
{
    TextField field = Field();
    field.Limit();
    ChangeSelection(field);
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
    return Edit([&](TextField& field) {
        field.RemoveBefore();
        Repair(field);
        return true;
    });
}

LRESULT GEdit::OnEnter()
{
    return Edit([&](TextField& field) {
        if (!field.InsertBreak()) {
            return false;
        }
        Repair(field);
        const UINT nLine = field.Caret().nLine;
        if (!(Frame::Style(*this) & ES_AUTOVSCROLL) && !DoesFitHeight()) {
            field.PutCaret(field.Lines().DeleteBreak(nLine, field.Lines().OffsetOfLine(nLine)));
            Repair(field);
        }
        return true;
    });
}

LRESULT GEdit::OnTyped(wchar_t ch)
{
    constexpr UINT MOST_UNITS = 2; // of a character, whose halves come one after the other
    return Edit([&](TextField& field) {
        const bool fRestOfRefused = IS_LOW_SURROGATE(ch) && Own().chRefused;
        Own().chRefused = 0;
        if (ch && !fRestOfRefused && !field.Lines().Reserve(MOST_UNITS, 0)) {
            return false;
        }
        field.RemoveSelection();
        if (ch && !fRestOfRefused) {
            InsertIfRoom(field, ch);
        }
        return true;
    });
}

void GEdit::InsertIfRoom(TextField& field, wchar_t ch)
{
    gesso::TypedChar typed(field.Lines(), field.Caret(), ch);
    field.PutCaret(typed.Behind());
    if (HasRoomForTyped(field)) {
        return;
    }
    field.PutCaret(typed.TakeBack(&Own().chRefused));
    if (WrapsWhenTyped()) {
        Repair(field);
    }
}

bool GEdit::WrapsWhenTyped() const
{
    return Frame::Style(*this) & (ES_MULTILINE | ES_AUTOHSCROLL);
}

bool GEdit::HasRoomForTyped(TextField& field) const
{
    if (!WrapsWhenTyped()) {
        return DoesFitLine(field.Caret().nLine);
    }
    Repair(field);
    return (Frame::Style(*this) & ES_AUTOVSCROLL) || DoesFitHeight();
}

// --- Mouse

void GEdit::ClickAt(POINTS pt, HitTestInfo* pInfo, bool fExtend)
{
    TextField field = Field();
    pInfo->pt = pt;
    HitTest(pInfo);
    field.MoveTo({pInfo->nLine, pInfo->nChar}, fExtend);
    ChangeSelection(field);
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
    Frame::AddState(*this, GWS_PRESSED);
    ClickAt(pt, &m_hitDown, wKeys & MK_SHIFT);
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
        ClickAt(pt, &m_hitMove, true);
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
