#include "EditFixture.h"

#include <gesso/edit/ClipboardText.h>

namespace test {

std::string ProbeEdit::Lines() const
{
    OStringEx<wchar_t> shown(m_strText.GetLength() + 3 * m_aLines.GetLength() + 1);
    UINT nOffset = 0;
    const auto add = [&](LPCWSTR psz, UINT n) { shown.Insert(shown.GetLength(), psz, n); };
    for (UINT i = 0; i < m_aLines.GetLength(); ++i) {
        const UINT nStart = std::min(nOffset, m_strText.GetLength());
        add(static_cast<LPCWSTR>(m_strText) + nStart, std::min(m_aLines[i], m_strText.GetLength() - nStart));
        if (LengthOfLine(i, nOffset) > m_aLines[i]) {
            add(L"/", 1);
        }
        add(L"|", 1);
        nOffset += LengthOfLine(i, nOffset);
    }
    return Narrow(shown);
}

std::string ProbeEdit::Caret() const
{
    const auto place = [](UINT nLine, UINT nChar) {
        return std::to_string(nLine) + "," + std::to_string(static_cast<int>(nChar));
    };
    const std::string caret = place(m_nCaretLine, m_nCaretChar);
    const std::string anchor = place(m_nAnchorLine, m_nAnchorChar);
    return caret == anchor ? caret : anchor + "-" + caret;
}

void ProbeEdit::PutCaret(UINT nLine, UINT nChar)
{
    Select(nLine, nChar, nLine, nChar);
}

void ProbeEdit::Select(UINT nAnchorLine, UINT nAnchorChar, UINT nCaretLine, UINT nCaretChar)
{
    m_nAnchorLine = nAnchorLine;
    m_nAnchorChar = nAnchorChar;
    m_nCaretLine = nCaretLine;
    m_nCaretChar = nCaretChar;
    UpdateCursorPos();
}

std::string ProbeEdit::Fault() const
{
    if (m_aLines.GetLength() == 0) {
        return "no line";
    }
    UINT nOffset = 0;
    for (UINT i = 0; i < m_aLines.GetLength(); ++i) {
        nOffset += LengthOfLine(i, nOffset);
    }
    if (nOffset != m_strText.GetLength()) {
        return "lines of " + std::to_string(nOffset) + " in all for a text of " +
               std::to_string(m_strText.GetLength());
    }
    if (wcslen(m_strText) != m_strText.GetLength() || m_strText.GetBufferLength() <= m_strText.GetLength()) {
        return "a text that does not end where it should";
    }
    const auto isInside = [&](UINT nLine, UINT nChar) {
        return nLine < m_aLines.GetLength() && nChar <= m_aLines[nLine];
    };
    if (!isInside(m_nCaretLine, m_nCaretChar) || !isInside(m_nAnchorLine, m_nAnchorChar)) {
        return "a place outside of the lines: " + Caret();
    }
    return "";
}

std::string ProbeEdit::HitAt(int x, int y) const
{
    HitTestInfo info{{static_cast<SHORT>(x), static_cast<SHORT>(y)}, 0, 0};
    HitTest(&info);
    return std::to_string(info.nLine) + "," + std::to_string(info.nChar);
}

HeldKeys::HeldKeys(std::initializer_list<int> keys)
{
    BYTE states[256];
    GetKeyboardState(m_former);
    std::memcpy(states, m_former, sizeof(states));
    for (const int nKey : keys) {
        states[nKey] |= 0x80;
    }
    SetKeyboardState(states);
}

HeldKeys::~HeldKeys()
{
    SetKeyboardState(m_former);
}

EditFixture::EditFixture()
    : m_hFont(CreateFontW(-16, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, FIXED_PITCH | FF_MODERN,
                          L"Courier New"))
{
    InitControls();
    const HDC hdc = GetDC(nullptr);
    const HGDIOBJ hFormer = SelectObject(hdc, m_hFont);
    SIZE ten{};
    SIZE spaces{};
    GetTextExtentPoint32W(hdc, L"abcdefghij", 10, &ten);
    GetTextExtentPoint32W(hdc, L"          ", 10, &spaces);
    EXPECT_EQ(ten.cx, spaces.cx) << "the tests need an even-spaced font";
    m_cxChar = ten.cx / 10;
    RECT rc{};
    DrawTextW(hdc, L"a", 1, &rc, DT_CALCRECT | DT_EXTERNALLEADING | DT_NOPREFIX);
    m_cyLine = rc.bottom;
    SelectObject(hdc, hFormer);
    ReleaseDC(nullptr, hdc);
}

EditFixture::~EditFixture()
{
    DestroyWindow(edit);
    DeleteObject(m_hFont);
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

HWND EditFixture::Make(int nColumns, int nRows, DWORD dwStyle)
{
    edit.Create(0, 0, nColumns * m_cxChar + 1, nRows * m_cyLine + 1, host, ID, L"",
                WS_CHILD | WS_VISIBLE | dwStyle, 0);
    edit.SetFont(m_hFont);
    SetFocus(edit);
    host.TakeReports();
    return edit;
}

void EditFixture::Resize(int nColumns, int nPixels, int nRows)
{
    edit.MoveWindow(0, 0, nColumns * m_cxChar + nPixels, nRows * m_cyLine + 1);
}

LRESULT EditFixture::Key(UINT uKey, std::initializer_list<int> held)
{
    const HeldKeys keys(held);
    return SendMessageW(edit, WM_KEYDOWN, uKey, 1);
}

LRESULT EditFixture::Char(wchar_t ch)
{
    return SendMessageW(edit, WM_CHAR, ch, 1);
}

void EditFixture::Type(LPCWSTR psz)
{
    for (; *psz; ++psz) {
        Char(*psz);
    }
}

// In the middle of a column, counted from the text's left, and of a row.
void EditFixture::Mouse(UINT uMsg, int nColumn, int nRow, WPARAM wKeys)
{
    const int x = nColumn * m_cxChar + m_cxChar / 2;
    const int y = nRow * m_cyLine + m_cyLine / 2;
    SendMessageW(edit, uMsg, wKeys, MAKELPARAM(x, y));
}

void SetClipboard(LPCWSTR psz)
{
    EXPECT_TRUE(gesso::PutClipboardText(nullptr, psz, static_cast<UINT>(wcslen(psz))));
}

std::string Clipboard()
{
    OStringEx<wchar_t> str;
    return gesso::GetClipboardText(nullptr, &str) ? Narrow(str) : "(none)";
}

} // namespace test
