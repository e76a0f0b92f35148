#include "EditMonkey.h"

#include "../../support/Host.h"
#include "../../support/Keys.h"

#include <platform/headless/headless.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace test {

namespace desk = gesso::headless;

namespace {

constexpr int CHAR = 8; // of the first font, in pixels
constexpr int LINE = 20;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

HFONT MakeFont(int nHeight)
{
    return CreateFontW(-nHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Monkey");
}

LPCWSTR Wide(const std::u16string& text)
{
    return reinterpret_cast<LPCWSTR>(text.c_str());
}

std::string Utf8(const std::u16string& text)
{
    return Narrow(Wide(text));
}

// Line ends as an edit field stores them.
std::u16string WithPairs(const std::u16string& text)
{
    std::u16string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r' && text[i] != u'\n') {
            result += text[i];
            continue;
        }
        i += text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        result += u"\r\n";
    }
    return result;
}

} // namespace

EditMonkey::EditMonkey(HWND hwndParent, std::function<unsigned(unsigned)> choose)
    : m_choose(std::move(choose)), m_fonts{MakeFont(16), MakeFont(24)}
{
    for (ProbeEdit* pEdit : {&m_edit, &m_twin}) {
        pEdit->Create(0, 0, 10 * CHAR, 5 * LINE, hwndParent, pEdit == &m_edit, L"",
                      CHILD | ES_MULTILINE | ES_AUTOVSCROLL, 0);
        pEdit->SetFont(m_fonts[0]);
    }
    SetFocus(m_edit);
}

EditMonkey::~EditMonkey()
{
    m_edit.Destroy();
    m_twin.Destroy();
    DeleteObject(m_fonts[0]);
    DeleteObject(m_fonts[1]);
    desk::SetClipboardText("");
}

std::string EditMonkey::Step()
{
    using Do = void (EditMonkey::*)();
    constexpr Do THINGS[] = {
        &EditMonkey::TypeCharacter, &EditMonkey::TypeCharacter,  &EditMonkey::TypeCharacter,
        &EditMonkey::PressEnter,    &EditMonkey::PressBackspace, &EditMonkey::PressBackspace,
        &EditMonkey::PressDelete,   &EditMonkey::PressDelete,    &EditMonkey::MoveCaret,
        &EditMonkey::MoveCaret,     &EditMonkey::MoveCaret,      &EditMonkey::UseClipboard,
        &EditMonkey::SetWholeText,  &EditMonkey::SetSelection,   &EditMonkey::ClickOrDrag,
        &EditMonkey::Resize,        &EditMonkey::ChangeStyle,    &EditMonkey::ChangeFont,
        &EditMonkey::Paint,
    };
    m_twin.SetFont(m_twin.GetFont()); // it forgets what it knows of its lines
    Expect(TextNow());
    m_before = m_edit.Lines() + " " + m_edit.Caret();
    (this->*THINGS[m_choose(static_cast<unsigned>(std::size(THINGS)))])();
    return Check();
}

std::string EditMonkey::Check()
{
    std::string fault;
    if (m_edit.Lines() != m_twin.Lines() || m_edit.Caret() != m_twin.Caret()) {
        fault = "other than the one that measures all: " + m_twin.Lines() + " " + m_twin.Caret();
    } else if (!m_fAtOdds && !m_edit.Fault().empty()) {
        fault = m_edit.Fault();
    } else if (!m_fAtOdds && !m_may.empty() &&
               std::find(m_may.begin(), m_may.end(), TextNow()) == m_may.end()) {
        fault = "the text should be \"" + Utf8(m_may[0]) + "\"";
    }
    return fault.empty()
               ? fault
               : m_before + ", " + m_done + " -> " + m_edit.Lines() + " " + m_edit.Caret() + ": " + fault;
}

// To the one without the focus first: moves by row go by the platform's caret, which is that of the other
// one.
void EditMonkey::Send(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const bool fTwinLast = GetFocus() == m_twin.GetHwnd();
    SendMessageW(fTwinLast ? m_edit : m_twin, uMsg, wParam, lParam);
    SendMessageW(fTwinLast ? m_twin : m_edit, uMsg, wParam, lParam);
}

void EditMonkey::SendKey(UINT uKey, bool fShift, bool fControl)
{
    const HeldKeys keys({fShift ? VK_SHIFT : 0, fControl ? VK_CONTROL : 0});
    Send(WM_KEYDOWN, uKey, 1);
}

EditMonkey::Text EditMonkey::AnyText(unsigned nLongest)
{
    constexpr std::u16string_view CHARACTERS = u"abc defgh ijk lmn    \r\n\t\u0301\u00e9\u4e2d";
    Text text;
    for (unsigned n = m_choose(nLongest + 1); n > 0; --n) {
        const unsigned nChosen = m_choose(static_cast<unsigned>(CHARACTERS.size()) + 1);
        text += nChosen < CHARACTERS.size() ? Text(1, CHARACTERS[nChosen]) : u"\U0001F600";
    }
    return text;
}

EditMonkey::Text EditMonkey::TextNow() const
{
    const auto* psz = reinterpret_cast<const char16_t*>(static_cast<LPCWSTR>(m_edit.Text()));
    return {psz, m_edit.Text().GetLength()};
}

void EditMonkey::Expect(Text text)
{
    m_may = {std::move(text)};
}

EditMonkey::Text EditMonkey::Replaced(const Text& with, UINT nOffset, UINT nCount) const
{
    const UINT nFrom = std::min(m_edit.CaretOffset(), m_edit.AnchorOffset());
    const UINT nTo = std::max(m_edit.CaretOffset(), m_edit.AnchorOffset());
    Text text = TextNow();
    const bool fSelected = m_edit.IsSelected();
    const size_t nAt = fSelected ? nFrom : nOffset;
    return nAt <= text.size() ? text.replace(nAt, fSelected ? nTo - nFrom : nCount, with) : text;
}

// --- What it does

void EditMonkey::TypeCharacter()
{
    const Text text = AnyText(1);
    if (text.empty() || text[0] < u' ') {
        return;
    }
    m_done = "type " + Utf8(text);
    // It may be refused, but not what was selected.
    m_may = {Replaced(text, m_edit.CaretOffset()), Replaced(u"")};
    for (const char16_t ch : text) {
        Send(WM_CHAR, ch, 1);
    }
}

void EditMonkey::PressEnter()
{
    m_done = "Enter";
    m_may = {Replaced(u"\r\n", m_edit.CaretOffset()), Replaced(u"")};
    Send(WM_CHAR, VK_RETURN, 1);
}

void EditMonkey::PressBackspace()
{
    m_done = "Backspace";
    const UINT nCaret = m_edit.CaretOffset();
    const Text text = TextNow();
    const UINT nCount = nCaret >= 2 && text.compare(nCaret - 2, 2, u"\r\n") == 0 ? 2 : std::min(nCaret, 1u);
    Expect(Replaced(u"", nCaret - nCount, nCount));
    Send(WM_CHAR, VK_BACK, 1);
}

void EditMonkey::PressDelete()
{
    m_done = "Delete";
    if (!m_edit.IsSelected() && m_edit.IsAtHardEnd()) {
        // Seldom, since the table may be at odds with the text from then on.
        if (m_choose(20) > 0) {
            return;
        }
        m_fAtOdds = true;
    }
    Expect(Replaced(u"", m_edit.CaretOffset(), 1));
    SendKey(VK_DELETE, false, false);
}

void EditMonkey::MoveCaret()
{
    constexpr UINT KEYS[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END};
    const UINT uKey = KEYS[m_choose(static_cast<unsigned>(std::size(KEYS)))];
    m_done = "key " + std::to_string(uKey);
    SendKey(uKey, m_choose(3) == 0, false);
}

void EditMonkey::UseClipboard()
{
    constexpr UINT KEYS[] = {'A', 'C', 'X', 'V', 'V'};
    const UINT uKey = KEYS[m_choose(static_cast<unsigned>(std::size(KEYS)))];
    m_done = std::string("Ctrl+") + static_cast<char>(uKey);
    if (uKey == 'V') {
        const Text text = AnyText(40);
        desk::SetClipboardText(Utf8(text));
        Expect(text.empty() ? TextNow() : Replaced(WithPairs(text), m_edit.CaretOffset()));
    } else if (uKey == 'X') {
        Expect(Replaced(u"", m_edit.CaretOffset()));
    }
    SendKey(uKey, false, true);
}

void EditMonkey::SetWholeText()
{
    const Text text = AnyText(120);
    m_done = "set text";
    m_fAtOdds = false;
    Expect(WithPairs(text));
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

void EditMonkey::SetSelection()
{
    m_done = "select";
    const auto anyEnd = [&] { return m_choose(10) ? m_choose(150) : 0xFFFFFFFF; };
    Send(EM_SETSEL, anyEnd(), static_cast<LPARAM>(anyEnd()));
    // Its places may be negative until the next key.
    SendKey(VK_HOME, true, false);
}

void EditMonkey::ClickOrDrag()
{
    m_done = "click";
    const auto anyPoint = [&] {
        return MAKELPARAM(static_cast<int>(m_choose(200)) - 20, static_cast<int>(m_choose(200)) - 20);
    };
    const LPARAM lDown = anyPoint();
    const LPARAM lUp = anyPoint();
    const UINT uDown = m_choose(5) ? WM_LBUTTONDOWN : WM_LBUTTONDBLCLK;
    const WPARAM wKeys = m_choose(2) ? 0 : MK_SHIFT;
    for (ProbeEdit* pEdit : {&m_twin, &m_edit}) {
        SendMessageW(*pEdit, uDown, wKeys, lDown);
        SendMessageW(*pEdit, WM_MOUSEMOVE, wKeys, lUp);
        SendMessageW(*pEdit, WM_LBUTTONUP, wKeys, lUp);
    }
}

void EditMonkey::Resize()
{
    m_done = "resize";
    const int cx = static_cast<int>(m_choose(20)) * CHAR + static_cast<int>(m_choose(2));
    const int cy = static_cast<int>(m_choose(12)) * LINE;
    m_twin.MoveWindow(0, 0, cx, cy);
    m_edit.MoveWindow(0, 0, cx, cy);
}

void EditMonkey::ChangeStyle()
{
    m_done = "style";
    constexpr DWORD STYLES[] = {ES_MULTILINE | ES_AUTOVSCROLL, ES_MULTILINE, ES_AUTOHSCROLL, 0, ES_PASSWORD,
                                ES_MULTILINE | ES_AUTOHSCROLL, WS_POPUP,     WS_BORDER};
    const auto lStyle = static_cast<LONG>(CHILD | STYLES[m_choose(static_cast<unsigned>(std::size(STYLES)))]);
    SetWindowLongW(m_twin, GWL_STYLE, lStyle);
    SetWindowLongW(m_edit, GWL_STYLE, lStyle);
}

void EditMonkey::ChangeFont()
{
    m_done = "font";
    const HFONT hFont = m_fonts[m_choose(2)];
    m_twin.SetFont(hFont);
    m_edit.SetFont(hFont);
}

void EditMonkey::Paint()
{
    m_done = "paint";
    InvalidateRect(m_edit, nullptr, FALSE);
    UpdateWindow(m_edit);
}

} // namespace test
