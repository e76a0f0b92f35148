// A combo box that was made in Modern: its messages, its keys, and the steps from item to item.

#include <gesso/edit/ComboSearch.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ScrollSteps.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::Lifeline;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

// Whether the other end of the focus' way is in another top-level window than the control, or in none.
bool IsOtherWindow(HWND hwnd, HWND hwndOther)
{
    return !hwndOther || GetAncestor(hwndOther, GA_ROOT) != GetAncestor(hwnd, GA_ROOT);
}

} // namespace

GComboBox::Modern* GComboBox::ModernPart() const
{
    return m_inside->pModern.get();
}

// The window has just been made with the behaviour of now.
void GComboBox::StartModern()
{
    m_inside->pModern.reset();
    if (!gesso::WillHave(Quirk::ComboListIsModal)) {
        m_inside->pModern = std::make_unique<Modern>(*this);
        m_inside->pModern->TakeText();
        m_inside->pModern->ShowItem();
    }
}

// False where the field has no memory for the control's text.
bool GComboBox::ShowText()
{
    Modern* pModern = ModernPart();
    return !pModern || pModern->TakeText();
}

GComboBox::Modern::~Modern()
{
    Lifeline::Cut(this);
}

bool GComboBox::Modern::HasList() const
{
    const DWORD dwKind = m_combo.Kind();
    return dwKind == GCBS_DROPDOWN || dwKind == GCBS_DROPDOWNLIST;
}

bool GComboBox::Modern::HasField() const
{
    return m_combo.Kind() == GCBS_DROPDOWN;
}

bool GComboBox::Modern::Report(UINT uCode)
{
    if (uCode != CBN_SELCHANGE && Has(m_combo, Quirk::ComboTellsLittle)) {
        return true;
    }
    const Lifeline life = Life();
    Frame::SendCommand(m_combo, uCode);
    return life;
}

// --- Messages

bool GComboBox::Modern::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    return OnWindowMessage(uMsg, wParam, lParam, plAnswer) ||
           (!Has(m_combo, Quirk::ComboKeysAreItems) && OnKey(uMsg, wParam)) ||
           (!Has(m_combo, Quirk::ComboKnowsFewMessages) && OnComboMessage(uMsg, wParam, lParam, plAnswer)) ||
           (HasField() && OnFieldMessage(uMsg, wParam, lParam, plAnswer));
}

bool GComboBox::Modern::OnWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    switch (uMsg) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS: return OnFocus(uMsg, wParam, lParam);
    case WM_GETDLGCODE: *plAnswer = DlgCode(reinterpret_cast<const MSG*>(lParam)); return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: return OnPress(gesso::PointOf(lParam));
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
    case WM_XBUTTONUP: return EndPress();
    case WM_MOUSEMOVE: return m_fUsedUp;
    case WM_CAPTURECHANGED: m_fUsedUp = false; return false;
    case WM_MOUSEWHEEL: OnWheel(GET_WHEEL_DELTA_WPARAM(wParam)); return true;
    case WM_CANCELMODE: return !Leave();
    case WM_ENABLE: return !wParam && !Leave();
    case WM_WINDOWPOSCHANGED: return !LeaveIfMoved();
    case WM_STYLECHANGED: return !OnStyle() || !Leave();
    case WM_SIZE: m_editor.Reflow(); return false;
    case WM_FONTCHANGE:
        Reflow();
        ArrangeIfOpen();
        return false;
    case WM_SETFONT:
        m_combo.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
        OnFont();
        return true;
    case WM_SETTEXT: *plAnswer = SetText(reinterpret_cast<LPCWSTR>(lParam)); return true;
    case WM_THEMECHANGED:
        m_combo.OnThemeChanged();
        Reflow();
        return true;
    default: return false;
    }
}

// False where the control is gone. A field that comes or goes while the control has the focus is told.
bool GComboBox::Modern::OnStyle()
{
    const Lifeline life = Life();
    const bool fHad = std::exchange(m_fField, HasField());
    LRESULT lAnswer = 0;
    if (fHad && !m_fField && m_editor.IsPressed()) {
        m_editor.OnMessage(WM_CAPTURECHANGED, 0, 0, &lAnswer);
        ReleaseCapture();
    }
    if (life && fHad != m_fField && GetFocus() == m_combo.m_hWnd) {
        m_editor.OnMessage(m_fField ? WM_SETFOCUS : WM_KILLFOCUS, 0, 0, &lAnswer);
    }
    if (life) {
        Reflow();
        ShowItem();
    }
    return life;
}

// All is selected, but where the focus comes back with its window.
bool GComboBox::Modern::OnFocus(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const bool fComes = uMsg == WM_SETFOCUS;
    m_typed.Forget();
    if (!fComes && !Leave()) {
        return true;
    }
    const bool fOther = IsOtherWindow(m_combo.m_hWnd, reinterpret_cast<HWND>(wParam));
    const bool fReturns = fComes && m_fAway && fOther;
    m_fAway = !fComes && fOther;
    const Lifeline life = Life();
    if (HasField()) {
        LRESULT lAnswer = 0;
        m_editor.OnMessage(uMsg, wParam, lParam, &lAnswer);
        if (life && fComes && !fReturns) {
            m_editor.Select(0, TextLength());
            CopySelection();
        }
    }
    if (life && Report(fComes ? CBN_SETFOCUS : CBN_KILLFOCUS)) {
        fComes ? Inside::TakeFocus(m_combo) : Frame::OnKillFocus(m_combo);
    }
    return true;
}

LRESULT GComboBox::Modern::SetText(LPCWSTR psz)
{
    if (!HasField()) {
        return CB_ERR;
    }
    return m_combo.OnSetText(psz) ? TRUE : CB_ERRSPACE;
}

// Enter and Esc are the open list's, Esc before it what is being composed or dragged, and otherwise the
// dialog's.
LRESULT GComboBox::Modern::DlgCode(const MSG* pMsg) const
{
    const bool fEscape = pMsg && pMsg->wParam == VK_ESCAPE;
    const bool fEnds = fEscape || (pMsg && pMsg->wParam == VK_RETURN);
    const bool fOwn = (fEnds && IsOpen()) || (fEscape && (m_editor.IsComposing() || IsDragging()));
    return DLGC_WANTCHARS | DLGC_WANTARROWS | (HasField() ? DLGC_HASSETSEL : 0) |
           (fOwn ? DLGC_WANTALLKEYS : 0);
}

// False for a press in the text. That of a field takes the focus by itself: it knows what was selected
// before.
bool GComboBox::Modern::OnPress(POINTS pt)
{
    m_typed.Forget();
    if (HasField() && m_combo.PartAt(pt) == gesso::COMBO_TEXT) {
        return false;
    }
    const Lifeline life = Life();
    SetFocus(m_combo.m_hWnd);
    if (!life) {
        return true;
    }
    if (m_combo.PartAt(pt) != gesso::COMBO_BUTTON) {
        return false;
    }
    m_combo.Invalidate(0);
    m_fHeld = true;
    Open();
    return true;
}

void GComboBox::Modern::OnWheel(int nDelta)
{
    if (IsDragging()) {
        return;
    }
    const int nNotches = gesso::WheelNotches(m_combo, List().m_siV, nDelta);
    if (nNotches == 0) {
        return;
    }
    if (IsOpen()) {
        List().OnMouseWheel(nNotches * WHEEL_DELTA);
    } else {
        StepBy(-nNotches);
    }
}

// --- Keys

bool GComboBox::Modern::OnKey(UINT uMsg, WPARAM wParam)
{
    if (IsDragging()) {
        return false;
    }
    switch (uMsg) {
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam));
    case WM_CHAR: return OnChar(static_cast<wchar_t>(wParam));
    case WM_SYSKEYDOWN:
        if ((wParam == VK_UP || wParam == VK_DOWN) && HasList()) {
            Toggle();
            return true;
        }
        return false;
    default: return false;
    }
}

bool GComboBox::Modern::OnKeyDown(UINT uKey)
{
    if (uKey == VK_ESCAPE && m_editor.IsComposing()) {
        return false;
    }
    if (uKey == VK_RETURN || uKey == VK_ESCAPE) {
        if (IsOpen()) {
            Close(uKey == VK_RETURN ? Ending::Take : Ending::GiveBack);
        }
        return true;
    }
    const bool fToggles = m_fExtended ? uKey == VK_DOWN && !IsOpen() : uKey == VK_F4;
    if (fToggles && HasList()) {
        Toggle();
        return true;
    }
    return StepByKey(uKey) || !HasField();
}

// Characters that stand for keys, and in the kinds without a field those of a typed word.
bool GComboBox::Modern::OnChar(wchar_t c)
{
    switch (c) {
    case gesso::CHAR_TAB: gesso::SendTab(m_combo); return true;
    case gesso::CHAR_LINE_FEED:
    case gesso::CHAR_RETURN:
    case gesso::CHAR_ESCAPE: return true;
    default: break;
    }
    if (HasField()) {
        return false;
    }
    if (m_typed.Add(c)) {
        const UINT nFound = m_typed.Find(m_combo.Selected(), m_combo.GetItemCount(),
                                         [&](UINT n) { return m_combo.ItemAt(n)->pszText; });
        if (nFound != NO_INDEX) {
            StepTo(nFound);
        }
    }
    return true;
}

// --- Steps

// Of the open list, or of one that would open now.
int GComboBox::Modern::PageRows()
{
    RECT rc{};
    if (IsOpen()) {
        GetClientRect(List().m_hWnd, &rc);
    } else {
        rc = PlaceOfList();
        InflateRect(&rc, 0, -ListFrame().cy);
    }
    return std::max(1, static_cast<int>(rc.bottom - rc.top) / RowHeight() - 1);
}

// False for a key that is the field's, or nobody's.
bool GComboBox::Modern::StepByKey(UINT uKey)
{
    const int nAll = static_cast<int>(m_combo.GetItemCount());
    switch (uKey) {
    case VK_UP: StepBy(-1); return true;
    case VK_DOWN: StepBy(1); return true;
    case VK_PRIOR: StepBy(-PageRows()); return true;
    case VK_NEXT: StepBy(PageRows()); return true;
    default: break;
    }
    if (HasField()) {
        return false;
    }
    switch (uKey) {
    case VK_LEFT: StepBy(-1); return true;
    case VK_RIGHT: StepBy(1); return true;
    case VK_HOME: StepBy(-nAll); return true;
    case VK_END: StepBy(nAll); return true;
    default: return false;
    }
}

// From the row that is highlighted, or the item that is selected. To the item that the typed text leads to,
// however far the step.
LONGLONG GComboBox::Modern::StepTarget(int nRows) const
{
    const UINT nHot = List().m_nHot;
    if (IsOpen() && List().IsRow(nHot) && nHot != m_nShown) {
        return LONGLONG{nHot} + nRows;
    }
    if (m_combo.ItemAt(m_combo.Selected())) {
        return LONGLONG{m_combo.Selected()} + nRows;
    }
    const UINT nMatch = MatchOfText();
    return nMatch == NO_INDEX ? LONGLONG{nRows} - 1 : nMatch;
}

void GComboBox::Modern::StepBy(int nRows)
{
    m_typed.Forget();
    const LONGLONG nLast = LONGLONG{m_combo.GetItemCount()} - 1;
    const bool fNothing = nLast < 0 || nRows == 0;
    if (!fNothing) {
        StepTo(static_cast<UINT>(std::clamp<LONGLONG>(StepTarget(nRows), 0, nLast)));
    }
}

void GComboBox::Modern::StepTo(UINT nIndex)
{
    if (!IsOpen()) {
        if (Choose(nIndex) == Choice::Changed && Report(CBN_SELENDOK)) {
            Report(CBN_SELCHANGE);
        }
        return;
    }
    const Choice choice = KeepFormer() ? Choose(nIndex) : Choice::Failed;
    if (choice == Choice::Failed) {
        return;
    }
    List().ChangeHot(nIndex);
    List().ShowRow(nIndex);
    m_nShown = NO_INDEX;
    if (choice == Choice::Changed) {
        Report(CBN_SELCHANGE);
    }
}

void GComboBox::Modern::PickItem(UINT nIndex)
{
    IsOpen() ? Pick(nIndex) : StepTo(nIndex);
}

// What Esc gives back, from the first step on.
bool GComboBox::Modern::KeepFormer()
{
    if (!m_fStepped) {
        m_nFormer = m_combo.Selected();
        m_fStepped = gesso::HoldText(m_strFormer, m_combo.m_strText);
    }
    return m_fStepped;
}

// Changed where the selected item or the text is another one now: the item may be the same one that takes the
// place of a text that was set.
GComboBox::Modern::Choice GComboBox::Modern::Choose(UINT nIndex)
{
    const UINT nFormer = m_combo.Selected();
    gesso::ControlText strFormer;
    if (!gesso::HoldText(strFormer, m_combo.m_strText) || !Field::Select(m_combo, nIndex)) {
        return Choice::Failed;
    }
    const bool fChanged = nIndex != nFormer || wcscmp(strFormer, m_combo.m_strText) != 0;
    return fChanged ? Choice::Changed : Choice::Same;
}

void GComboBox::Modern::ShowItem()
{
    if (!HasField()) {
        Field::ShowItem(m_combo);
    }
}

void GComboBox::Modern::OnSelected()
{
    m_fStepped = false;
    if (IsOpen()) {
        HighlightText();
    }
}
