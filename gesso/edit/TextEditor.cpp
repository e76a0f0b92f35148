#include <gesso/edit/TextEditorInside.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

#include <algorithm>
#include <new>

namespace gesso {

void TextEditor::OnTextChange(const TextChange& change)
try {
    m_inside->FollowChange(change);
} catch (const std::bad_alloc&) {
    m_inside->ForgetLines();
}

// --- Operations

bool TextEditor::SetText(LPCWSTR psz)
try {
    Inside& own = *m_inside;
    const InputRules rules{!own.IsMultiLine(), false, (own.Style() & ES_UPPERCASE) != 0,
                           (own.Style() & ES_LOWERCASE) != 0};
    bool fCut = false;
    const LPCWSTR pszText = psz ? psz : L"";
    const auto nLength = static_cast<UINT>(wcsnlen(pszText, TextBuffer::MOST));
    own.ForgetLines();
    if (IsPrepared(pszText, nLength, rules)) {
        if (!own.model.SetText(pszText, nLength)) {
            return false;
        }
    } else {
        const std::vector<wchar_t> text = PrepareInput(pszText, nLength, rules, TextBuffer::MOST, &fCut);
        if (!own.model.SetText(text.data(), static_cast<UINT>(text.size()))) {
            return false;
        }
    }
    own.fTrailing = false;
    own.nColumn = -1;
    own.nTop = 0;
    own.nTopStart = 0;
    own.pressed = {0, 0};
    own.xScroll = 0;
    if (!own.EndInput()) {
        return false;
    }
    Reflow();
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

// What is composed, or dragged, is of a text that is gone. False if the control is gone.
bool TextEditor::Inside::EndInput()
{
    if (composition.IsActive() && !composition.Cancel()) {
        return false;
    }
    const Watch watch(site.Window());
    if (press == Press::Dragging) {
        ReleaseCapture();
    }
    return watch;
}

SplitText TextEditor::Text() const
{
    return m_inside->model.Text();
}

LRESULT TextEditor::CopyText(UINT nCapacity, LPWSTR pszBuffer) const
{
    if (nCapacity == 0 || !pszBuffer) {
        return 0;
    }
    const UINT n = std::min(nCapacity - 1, Text().Length());
    Text().Copy({0, n}, pszBuffer);
    pszBuffer[n] = 0;
    return n;
}

int TextEditor::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    if (!pnLength) {
        return 0;
    }
    const int nLength = static_cast<int>(Text().Length());
    if (nLength >= *pnLength || !pszBuffer) {
        *pnLength = nLength + 1;
        return 0;
    }
    CopyText(static_cast<UINT>(nLength) + 1, pszBuffer);
    *pnLength = nLength;
    return 1;
}

TextRange TextEditor::Selection() const
{
    return m_inside->model.Selection();
}

UINT TextEditor::Caret() const
{
    return m_inside->model.Caret();
}

UINT TextEditor::Anchor() const
{
    return m_inside->model.Anchor();
}

void TextEditor::Select(UINT nAnchor, UINT nCaret)
try {
    m_inside->Select(nAnchor, nCaret);
    m_inside->ShowChange();
} catch (const std::bad_alloc&) {
}

bool TextEditor::ReplaceSelection(LPCWSTR psz, bool fCanUndo)
try {
    const LPCWSTR pszText = psz ? psz : L"";
    const auto n = static_cast<UINT>(wcsnlen(pszText, TextBuffer::MOST));
    return m_inside->Insert(pszText, n, EditKind::Step, Inside::Origin::Program, fCanUndo);
} catch (const std::bad_alloc&) {
    return false;
}

bool TextEditor::TypeOver(LPCWSTR psz)
try {
    Inside& own = *m_inside;
    if (!own.MayChange() || !own.EndInput()) {
        return false;
    }
    const auto n = static_cast<UINT>(wcsnlen(psz, TextBuffer::MOST));
    return own.InsertAt({0, own.model.Length()}, psz, n, EditKind::Step, Inside::Origin::User, true);
} catch (const std::bad_alloc&) {
    return false;
}

void TextEditor::Complete(LPCWSTR psz)
try {
    m_inside->Insert(psz, static_cast<UINT>(wcsnlen(psz, TextBuffer::MOST)), EditKind::Completing,
                     Inside::Origin::Program);
} catch (const std::bad_alloc&) {
}

bool TextEditor::Redo()
try {
    return m_inside->TakeBack(&EditModel::Redo);
} catch (const std::bad_alloc&) {
    return false;
}

bool TextEditor::CanRedo() const
{
    return m_inside->MayChange() && m_inside->model.CanRedo();
}

bool TextEditor::IsComposing() const
{
    return m_inside->composition.IsActive();
}

bool TextEditor::IsPressed() const
{
    return m_inside->press != Inside::Press::None;
}

bool TextEditor::IsDragging() const
{
    return m_inside->press == Inside::Press::Dragging;
}

bool TextEditor::IsModified() const
{
    return m_inside->model.IsModified();
}

void TextEditor::SetModified(bool fModified)
{
    m_inside->model.SetModified(fModified);
}

// The view stays at the text that it shows.
void TextEditor::Reflow()
try {
    const Watch watch(m_inside->site.Window());
    m_inside->Relayout();
    if (watch) {
        m_inside->composition.FollowFont();
    }
} catch (const std::bad_alloc&) {
}

void TextEditor::ScrollByBar(int nBar, UINT uCode, UINT nThumb)
try {
    m_inside->OnScroll(nBar, uCode, nThumb);
} catch (const std::bad_alloc&) {
}

// --- Messages

bool TextEditor::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const Watch watch(m_inside->site.Window());
    try {
        const bool fDone = m_inside->composition.OnMessage(uMsg, wParam, lParam, plAnswer) ||
                           m_inside->OnEditMessage(uMsg, wParam, lParam, plAnswer) ||
                           m_inside->OnInput(uMsg, wParam, lParam, plAnswer) ||
                           m_inside->OnClipboardMessage(uMsg, plAnswer);
        if (watch && m_inside->composition.FollowSecret()) {
            m_inside->composition.Follow();
        }
        return fDone;
    } catch (const std::bad_alloc&) {
        if (watch) {
            m_inside->ForgetLines();
            m_inside->Repaint();
        }
        return true;
    }
}

bool TextEditor::Inside::OnInput(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const POINT pt{PointOf(lParam).x, PointOf(lParam).y};
    *plAnswer = 0;
    switch (uMsg) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return OnKey(static_cast<UINT>(wParam));
    case WM_KEYUP: wAsked = 0; return false;
    case WM_CHAR: return OnChar(static_cast<wchar_t>(wParam), plAnswer);
    case WM_SYSCHAR: return wParam == VK_BACK; // which the key has done
    case WM_GETDLGCODE: *plAnswer = DialogCode(reinterpret_cast<const MSG*>(lParam)); return true;
    case WM_LBUTTONDOWN: OnButtonDown(wParam, pt); return true;
    case WM_LBUTTONDBLCLK: OnDoubleClick(pt); return true;
    case WM_LBUTTONUP: OnButtonUp(pt); return true;
    case WM_MOUSEMOVE: OnMove(pt); return true;
    case WM_CAPTURECHANGED: OnCaptureLost(reinterpret_cast<HWND>(lParam)); return true;
    case WM_SETCURSOR: *plAnswer = SetsCursor(LOWORD(lParam)); return *plAnswer != 0;
    case WM_MOUSEWHEEL: return OnWheel(GET_WHEEL_DELTA_WPARAM(wParam), false);
    case WM_MOUSEHWHEEL: return OnWheel(GET_WHEEL_DELTA_WPARAM(wParam), true);
    case WM_VSCROLL: OnScroll(SB_VERT, LOWORD(wParam), HIWORD(wParam)); return true;
    case WM_HSCROLL: OnScroll(SB_HORZ, LOWORD(wParam), HIWORD(wParam)); return true;
    case WM_TIMER: return OnTimer(wParam);
    case WM_CONTEXTMENU: return OnContextMenu(lParam);
    case WM_SIZE: Rearrange(); return true;
    case WM_FONTCHANGE: Relayout(); return false;
    case WM_SETFOCUS: OnFocus(true); return true;
    case WM_KILLFOCUS: OnFocus(false); return true;
    default: return false;
    }
}

bool TextEditor::Inside::OnClipboardMessage(UINT uMsg, LRESULT* plAnswer)
{
    *plAnswer = 0;
    switch (uMsg) {
    case WM_CUT: Cut(); return true;
    case WM_COPY: Copy(); return true;
    case WM_PASTE: Paste(); return true;
    case WM_CLEAR: Erase(model.Selection()); return true;
    default: return false;
    }
}

void TextEditor::Inside::OnFocus(bool fGained)
{
    fCaret = fGained;
    fDoubleClicked = false;
    Repaint();
    if (!fGained) {
        DestroyCaret();
        return;
    }
    CreateTextCaret(Window(), site.Font());
    UpdateCaret();
    ShowCaret(Window());
}

} // namespace gesso
