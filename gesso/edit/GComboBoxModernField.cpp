// The text field of a combo box that was made in Modern: a TextEditor, whose text and selection the control's
// own members follow.

#include <gesso/edit/ComboSearch.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/edit/GEdit.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Lifeline;
using gesso::NO_INDEX;

namespace {

bool IsMousePress(UINT uMsg)
{
    return uMsg == WM_LBUTTONDOWN || uMsg == WM_LBUTTONDBLCLK || uMsg == WM_RBUTTONDOWN ||
           uMsg == WM_RBUTTONDBLCLK || uMsg == WM_MBUTTONDOWN || uMsg == WM_MBUTTONDBLCLK;
}

// The field is no window that a program could mean by them.
bool IsEditMessage(UINT uMsg)
{
    constexpr UINT LAST = 0x00DF;
    return (uMsg >= EM_GETSEL && uMsg <= LAST) || (uMsg >= ECM_FIRST && uMsg < BCM_FIRST);
}

bool IsPrintable(WPARAM wChar)
{
    constexpr WPARAM DELETE_CHARACTER = 0x7F; // Ctrl+Backspace
    return wChar >= L' ' && wChar != DELETE_CHARACTER;
}

} // namespace

GComboBox::Modern::Modern(GComboBox& combo) : m_combo(combo), m_editor(*this)
{
    if (combo.m_inside->fLimited || combo.m_nTextLimit != gesso::FIRST_TEXT_LIMIT) {
        SetLimit();
    }
}

// --- The control as a TextEditor's window

DWORD GComboBox::Modern::EditStyle() const
{
    const DWORD dwKind = HasField() ? ES_AUTOHSCROLL : ES_AUTOHSCROLL | ES_READONLY;
    return dwKind | (Frame::Style(m_combo) & WS_DISABLED);
}

RECT GComboBox::Modern::TextRect() const
{
    const gesso::WindowContext hdc(m_combo.m_hWnd);
    return m_combo.TextRect(hdc, 0);
}

LRESULT GComboBox::Modern::Tell(UINT uCode)
{
    switch (uCode) {
    case EN_UPDATE:
        OnEdited();
        if (std::exchange(m_fTyped, false)) {
            CompleteText();
        }
        if (!m_fCompleting) {
            Report(CBN_EDITUPDATE);
        }
        return 0;
    case EN_CHANGE:
        if (!m_fCompleting) {
            Report(CBN_EDITCHANGE);
        }
        return 0;
    case EN_CONTEXTMENU:
        return SendMessageW(m_combo.GetParent(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(m_combo.m_hWnd), uCode),
                            reinterpret_cast<LPARAM>(m_combo.m_hWnd));
    default: return 0;
    }
}

bool GComboBox::Modern::HasRoomFor(UINT nLength)
{
    return m_combo.m_strText.GetBuffer(nLength + 1) != nullptr;
}

bool GComboBox::Modern::TakesDropAt(POINT pt) const
{
    return m_combo.PartAt({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)}) == gesso::COMBO_TEXT;
}

// --- What the members of the public class tell

// There is room for it, by HasRoomFor, or since it was there before.
void GComboBox::Modern::CopyText()
{
    const gesso::SplitText text = m_editor.Text();
    if (wchar_t* psz = m_combo.m_strText.GetBuffer(text.Length() + 1)) {
        text.Copy({0, text.Length()}, psz);
        m_combo.m_strText.ReleaseBuffer(text.Length());
        ++m_combo.m_inside->nTextChanges;
    }
    CopySelection();
}

void GComboBox::Modern::CopySelection()
{
    if (m_combo.m_nCaret == m_editor.Caret() && m_combo.m_nAnchor == m_editor.Anchor()) {
        return;
    }
    Field field(m_combo);
    field.text.Select({0, m_editor.Anchor()}, {0, m_editor.Caret()});
    m_combo.ChangeField(field.text);
}

bool GComboBox::Modern::TakeText()
{
    const UINT nAnchor = m_combo.m_nAnchor;
    const UINT nCaret = m_combo.m_nCaret;
    const bool fTaken = m_editor.SetText(m_combo.m_strText);
    if (fTaken) {
        m_editor.Select(nAnchor, nCaret);
    }
    CopyText();
    return fTaken;
}

void GComboBox::Modern::Reflow()
{
    m_nWidest = -1;
    m_texts.Forget();
    m_editor.Reflow();
}

void GComboBox::Modern::OnFont()
{
    Reflow();
    List().m_hFont = m_combo.m_hFont;
    ArrangeIfOpen();
}

// Of what is typed and pasted.
void GComboBox::Modern::SetLimit()
{
    LRESULT lAnswer = 0;
    m_editor.OnMessage(EM_LIMITTEXT, static_cast<UINT>(m_combo.m_nTextLimit), 0, &lAnswer);
}

// --- Input

bool GComboBox::Modern::IsPointerOnText() const
{
    POINT pt{};
    GetCursorPos(&pt);
    ScreenToClient(m_combo.m_hWnd, &pt);
    return m_combo.PartAt({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)}) == gesso::COMBO_TEXT;
}

bool GComboBox::Modern::OnFieldMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    if (uMsg == EM_SETSEL) { // of a dialog, to which the control has said that it has text to select
        m_editor.OnMessage(uMsg, wParam, lParam, plAnswer);
        CopySelection();
        return true;
    }
    const bool fBeside =
        (IsMousePress(uMsg) && m_combo.PartAt(gesso::PointOf(lParam)) != gesso::COMBO_TEXT) ||
        (uMsg == WM_SETCURSOR && !IsPointerOnText());
    if (fBeside || IsEditMessage(uMsg)) {
        return false;
    }
    if (uMsg == WM_CHAR || (uMsg == WM_IME_COMPOSITION && (lParam & GCS_RESULTSTR))) {
        return OnTyped(uMsg, wParam, lParam, plAnswer);
    }
    const Lifeline life = Life();
    const bool fTaken = m_editor.OnMessage(uMsg, wParam, lParam, plAnswer);
    if (!life) {
        return true;
    }
    if (fTaken) {
        CopySelection();
    }
    // A key that the field does not know is nobody's. The control looks hot as well, and lets go of what it
    // has pressed.
    return (fTaken || uMsg == WM_KEYDOWN) && uMsg != WM_MOUSEMOVE && uMsg != WM_MOUSELEAVE &&
           uMsg != WM_CAPTURECHANGED;
}

// One notification of what was typed, or accepted from an input method, and completed.
bool GComboBox::Modern::OnTyped(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const Lifeline life = Life();
    m_fTyped = m_combo.m_inside->fCompletes &&
               (uMsg != WM_CHAR || (IsPrintable(wParam) && !IS_HIGH_SURROGATE(wParam)));
    const bool fTaken = m_editor.OnMessage(uMsg, wParam, lParam, plAnswer);
    if (!life) {
        return true;
    }
    m_fTyped = false;
    CopySelection();
    return fTaken || uMsg == WM_CHAR;
}

bool GComboBox::Modern::TypeOver(LPCWSTR psz)
{
    const Lifeline life = Life();
    const bool fTyped = HasField() && m_editor.TypeOver(psz);
    if (life) {
        CopySelection();
    }
    return fTyped;
}

// Within the edit that is completed, before anybody is told of it or sees it.
void GComboBox::Modern::CompleteText()
{
    const UINT nTyped = TextLength();
    if (nTyped == 0 || m_editor.Caret() != nTyped) {
        return;
    }
    const UINT nItem = MatchOfText();
    if (nItem == NO_INDEX || wcslen(m_combo.ItemAt(nItem)->pszText) <= nTyped) {
        return;
    }
    m_fCompleting = true;
    m_editor.Complete(m_combo.ItemAt(nItem)->pszText + nTyped); // a limit may leave some out
    m_fCompleting = false;
}

// The text is no item's any longer. An open list shows the item that it leads to.
void GComboBox::Modern::OnEdited()
{
    CopyText();
    m_combo.ChangeSelection(NO_INDEX);
    m_fStepped = false;
    if (IsOpen()) {
        HighlightText();
    }
}

UINT GComboBox::Modern::MatchOfText() const
{
    return HasField()
               ? gesso::FindItem(m_combo.m_aItems, NO_INDEX, m_combo.m_strText, gesso::ComboMatch::Start)
               : NO_INDEX;
}

// The field's own menu. The control may be gone afterwards.
bool GComboBox::AnswersContextMenu(LPARAM lParam)
{
    constexpr LPARAM BY_THE_KEYBOARD = -1;
    const Inside::Telling telling(*this);
    Modern* pModern = ModernPart();
    if (!pModern || !pModern->HasField()) {
        return false;
    }
    POINT pt{gesso::PointOf(lParam).x, gesso::PointOf(lParam).y};
    ScreenToClient(m_hWnd, &pt);
    const bool fText = PartAt({static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)}) == gesso::COMBO_TEXT;
    LRESULT lAnswer = 0;
    return (lParam == BY_THE_KEYBOARD || fText) && pModern->OnMessage(WM_CONTEXTMENU, 0, lParam, &lAnswer);
}

// --- Drawing, and where the characters are

void GComboBox::Modern::DrawField(HDC hdc)
{
    const gesso::TextColorScope color(hdc, gesso::ColorOf(gesso::Color::FieldText));
    m_editor.Draw(hdc, TextRect());
}

void GComboBox::Modern::DrawCue(HDC hdc, const RECT& rcText)
{
    if (m_cue) {
        m_texts.Draw(hdc, m_cue, rcText,
                     gesso::IsDrawnFlat() ? gesso::ColorOf(gesso::Color::FaceCue)
                                          : gesso::SystemColor(COLOR_GRAYTEXT));
    }
}

UINT GComboBox::Modern::CharAt(POINTS pt)
{
    LRESULT lAnswer = 0;
    m_editor.OnMessage(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y), &lAnswer);
    return std::min<UINT>(LOWORD(lAnswer), TextLength());
}
