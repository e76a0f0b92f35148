#include <gallery/EditorField.h>
#include <gesso/framework/Behavior.h>

#include <algorithm>

namespace gallery {
namespace {

constexpr BYTE KEY_DOWN = 0x80;

// The control key is down while this lives, for the thread that asks for it.
class ControlKeyScope
{
public:
    ControlKeyScope()
    {
        GetKeyboardState(m_former);
        BYTE held[256];
        std::copy(std::begin(m_former), std::end(m_former), held);
        held[VK_CONTROL] = KEY_DOWN;
        SetKeyboardState(held);
    }
    ~ControlKeyScope() { SetKeyboardState(m_former); }
    ControlKeyScope(const ControlKeyScope&) = delete;
    ControlKeyScope& operator=(const ControlKeyScope&) = delete;

private:
    BYTE m_former[256];
};

} // namespace

std::wstring EditorField::Text() const
{
    int nLength = GetTextLength() + 1;
    std::wstring text(static_cast<size_t>(nLength), 0);
    GetText(text.data(), &nLength);
    text.resize(text.size() - 1);
    return text;
}

// --- Commands

void EditorField::StartAnew()
{
    Remember();
    SetText(L"");
    SetFocus(*this);
}

void EditorField::Cut()
{
    Remember();
    PressWithControl('X');
}

void EditorField::Copy()
{
    PressWithControl('C');
}

void EditorField::Paste()
{
    Remember();
    PressWithControl('V');
}

void EditorField::Clear()
{
    Remember();
    Press(VK_DELETE);
}

void EditorField::Undo()
{
    if (IsTextField()) {
        SendMessageW(*this, EM_UNDO, 0, 0);
        SetFocus(*this);
        return;
    }
    const std::wstring text = std::exchange(m_former, Text());
    SetText(text.c_str());
    SetFocus(*this);
}

void EditorField::Type(const std::wstring& text)
{
    Remember();
    SetFocus(*this);
    for (const wchar_t c : text) {
        SendMessageW(*this, WM_CHAR, c, 1);
    }
}

void EditorField::ReplaceCharacters(wint_t (*convert)(wint_t))
{
    const auto [nFrom, nTo] = Selection();
    std::wstring text = Text().substr(nFrom, nTo - nFrom);
    std::transform(text.begin(), text.end(), text.begin(),
                   [convert](wchar_t c) { return static_cast<wchar_t>(convert(c)); });
    Remember();
    ReplaceSel(text.c_str(), true);
    Select(nFrom, nTo);
}

void EditorField::SelectAll()
{
    Select(0, Text().size());
}

void EditorField::SelectStart()
{
    Select(0, 0);
}

void EditorField::SelectEnd()
{
    const size_t nEnd = Text().size();
    Select(nEnd, nEnd);
}

void EditorField::FindNext(const std::wstring& wanted)
{
    int nAt = Find(wanted.c_str(), static_cast<int>(Selection().second), GEF_CASE);
    if (nAt < 0) {
        nAt = Find(wanted.c_str(), 0, GEF_CASE);
    }
    if (nAt >= 0) {
        Select(static_cast<size_t>(nAt), static_cast<size_t>(nAt) + wanted.size());
    }
}

void EditorField::WrapAnew()
{
    if (IsTextField()) {
        return; // by itself
    }
    const auto [nFrom, nTo] = Selection();
    SetText(Text().c_str());
    PutSelection(nFrom, nTo);
}

void EditorField::ChangeFont(HFONT hFont)
{
    SetFont(hFont);
    WrapAnew();
}

// --- Keys and places

void EditorField::Press(UINT uKey)
{
    SetFocus(*this);
    SendMessageW(*this, WM_KEYDOWN, uKey, 1);
}

void EditorField::PressWithControl(UINT uKey)
{
    const ControlKeyScope control;
    Press(uKey);
}

// Made in Modern.
bool EditorField::IsTextField() const
{
    return gesso::BehaviorOf(*this) == gesso::Behavior::Modern;
}

std::pair<size_t, size_t> EditorField::Selection() const
{
    int nStart = 0;
    int nEnd = 0;
    GetSel(&nStart, &nEnd);
    return {static_cast<size_t>(nStart), static_cast<size_t>(nEnd)};
}

void EditorField::Select(size_t nFrom, size_t nTo)
{
    SetFocus(*this);
    if (IsTextField()) {
        SetSel(static_cast<int>(nFrom), static_cast<int>(nTo));
    } else {
        PutSelection(nFrom, nTo);
    }
}

// What SetSel makes of a text of several lines in Classic is other places.
void EditorField::PutSelection(size_t nFrom, size_t nTo)
{
    PutInLine(nFrom, m_nAnchorLine, m_nAnchorChar);
    PutInLine(nTo, m_nCaretLine, m_nCaretChar);
    UpdateCursorPos();
    Invalidate(0);
}

// A character of a line end belongs to the line that it ends.
void EditorField::PutInLine(size_t nOffset, UINT& nLine, UINT& nChar) const
{
    UINT nStart = 0;
    nLine = 0;
    while (nLine + 1 < m_aLines.GetLength() && nOffset >= size_t{nStart} + LengthOfLine(nLine, nStart)) {
        nStart += LengthOfLine(nLine, nStart);
        nLine++;
    }
    nChar = static_cast<UINT>(nOffset) - nStart;
}

} // namespace gallery
