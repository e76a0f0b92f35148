#include <gesso/edit/GEditModern.h>
#include <gesso/edit/LabelEdit.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>
#include <climits>
#include <iterator>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace gesso {
namespace {

// Text is taken also where its line is higher than the row.
constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_CLIPSIBLINGS | ES_AUTOHSCROLL | ES_AUTOVSCROLL;

// With its terminator.
std::vector<wchar_t> TextOf(const GEdit& edit)
{
    int nLength = edit.GetTextLength() + 1;
    std::vector<wchar_t> text(static_cast<size_t>(nLength));
    edit.GetText(text.data(), &nLength);
    return text;
}

// What was typed or pasted, up to its first line end.
std::vector<wchar_t> FirstLineOf(const GEdit& edit)
{
    std::vector<wchar_t> text = TextOf(edit);
    const auto end =
        std::find_if(text.begin(), text.end() - 1, [](wchar_t ch) { return ch == L'\r' || ch == L'\n'; });
    text.erase(end, text.end() - 1);
    return text;
}

// Whether the text may be another after a message.
bool MayChangeText(UINT uMsg)
{
    constexpr UINT MESSAGES[] = {WM_KEYDOWN,        WM_CHAR, WM_CUT,        WM_PASTE,     WM_CLEAR,
                                 WM_UNDO,           EM_UNDO, EM_REPLACESEL, WM_LBUTTONUP, WM_CONTEXTMENU,
                                 WM_IME_COMPOSITION};
    return std::find(std::begin(MESSAGES), std::end(MESSAGES), uMsg) != std::end(MESSAGES);
}

bool IsEnding(WPARAM wKey)
{
    return wKey == VK_RETURN || wKey == VK_ESCAPE;
}

} // namespace

LabelEdit::LabelEdit(EndFunction pfnEnd) : m_pfnEnd(pfnEnd)
{
    Own().fOneLine = true;
}

HWND LabelEdit::Make(HWND hwndOwner, const RECT& rcLabel, HFONT hFont, LPCWSTR pszText, EndFunction pfnEnd)
try {
    std::unique_ptr<LabelEdit> pEdit(new LabelEdit(pfnEnd));
    const int cy = Saturated(int64_t{rcLabel.bottom} - rcLabel.top);
    const HWND hwnd = pEdit->Create(rcLabel.left, rcLabel.top, cy, cy, hwndOwner, 0, pszText, STYLE, 0);
    if (!hwnd || !Frame::GiveToWindow(*pEdit)) {
        DestroyWindow(hwnd);
        return nullptr;
    }
    LabelEdit& edit = *pEdit.release();
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc));
    edit.SetFont(hFont);
    // Without a range the text would not move with the caret. There is no bar to show it.
    edit.m_siH.nMax = SHRT_MAX;
    Place(hwnd, rcLabel);
    edit.SetSel(0, -1);
    return hwnd;
} catch (const std::bad_alloc&) {
    return nullptr;
}

bool LabelEdit::Begin(HWND hwnd)
{
    SetFocus(hwnd);
    if (GetFocus() != hwnd) {
        End(hwnd, false);
    }
    return IsWindow(hwnd);
}

void LabelEdit::Place(HWND hwnd, const RECT& rcLabel)
{
    if (LabelEdit* edit = Of(hwnd)) {
        edit->m_rcLabel = rcLabel;
        edit->Fit();
    }
}

void LabelEdit::ReplaceFont(HWND hwnd, HFONT hFormer, HFONT hFont)
{
    LabelEdit* edit = Of(hwnd);
    if (edit && edit->m_hFont == hFormer) {
        edit->SetFont(hFont);
        edit->Fit();
    }
}

// The text begins where the label's does.
void LabelEdit::Fit()
{
    RECT rcOwner{};
    GetClientRect(::GetParent(m_hWnd), &rcOwner);
    const int nInset = Pixels(m_hWnd, Metrics::LABEL_EDIT_INSET);
    const std::vector<wchar_t> text = TextOf(*this);
    const auto nLength = static_cast<UINT>(text.size()) - 1;
    const int nText = WindowMeasure(m_hWnd, m_hFont, false)->Extent(text.data(), nLength).cx;
    const int nLeft = Saturated(std::max<int64_t>(int64_t{m_rcLabel.left} - nInset, 0));
    const int nWanted = nText + 2 * nInset + Pixels(m_hWnd, Metrics::LABEL_EDIT_ROOM);
    const int nWidth = std::max(std::min<int>(nWanted, rcOwner.right - nLeft), nInset);
    SetWindowPos(m_hWnd, nullptr, nLeft, m_rcLabel.top, nWidth,
                 Saturated(int64_t{m_rcLabel.bottom} - m_rcLabel.top), SWP_NOZORDER | SWP_NOACTIVATE);
}

LabelEdit* LabelEdit::Of(HWND hwnd)
{
    return hwnd ? static_cast<LabelEdit*>(Frame::ObjectOf<GEdit>(hwnd)) : nullptr;
}

// --- The end

void LabelEdit::End(HWND hwnd, bool fTake)
try {
    LabelEdit* edit = Of(hwnd);
    if (!edit || !edit->m_pfnEnd) {
        return;
    }
    const HWND hwndOwner = ::GetParent(hwnd);
    const std::vector<wchar_t> text = FirstLineOf(*edit);
    const EndFunction pfnEnd = std::exchange(edit->m_pfnEnd, nullptr);
    if (GetFocus() == hwnd) {
        SetFocus(hwndOwner); // tells the owner's parent, which may do anything
    }
    DestroyWindow(hwnd);
    pfnEnd(hwndOwner, fTake ? text.data() : nullptr);
} catch (const std::bad_alloc&) {
}

void LabelEdit::Forget(HWND hwnd)
{
    if (LabelEdit* edit = Of(hwnd)) {
        edit->m_pfnEnd = nullptr;
    }
}

// --- Messages

// Enter and Esc, and the characters that come of them.
bool LabelEdit::TakesKey(UINT uMsg, WPARAM wKey) const
{
    return (uMsg == WM_KEYDOWN || uMsg == WM_CHAR) && IsEnding(wKey);
}

LRESULT CALLBACK LabelEdit::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const LabelEdit* edit = Of(hwnd);
    Modern* const modern = edit ? edit->AsModern() : nullptr;
    const bool fComposing = modern && modern->editor.IsComposing();
    if (edit && !fComposing && edit->TakesKey(uMsg, wParam)) {
        if (uMsg == WM_KEYDOWN) {
            End(hwnd, wParam == VK_RETURN);
        }
        return 0;
    }
    // The owner would take the field's own notification for that of a host's edit.
    if (edit && uMsg == WM_KILLFOCUS) {
        if (LRESULT lAnswer = 0; modern) {
            modern->editor.OnMessage(uMsg, wParam, lParam, &lAnswer); // takes what is being composed
        } else {
            DestroyCaret();
        }
        End(hwnd, true);
        return 0;
    }
    LRESULT lAnswer = GEdit::WindowProc(hwnd, uMsg, wParam, lParam);
    const auto* pMessage = reinterpret_cast<const MSG*>(lParam);
    if (uMsg == WM_GETDLGCODE && pMessage && pMessage->message == WM_KEYDOWN && IsEnding(pMessage->wParam)) {
        lAnswer |= DLGC_WANTALLKEYS;
    }
    if (MayChangeText(uMsg) || IsScalingMessage(uMsg)) {
        if (LabelEdit* changed = Of(hwnd)) {
            changed->Fit();
        }
    }
    return lAnswer;
}

} // namespace gesso
