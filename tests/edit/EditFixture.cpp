#include "EditFixture.h"

namespace test {

EditFixture::EditFixture()
    : m_hFont(CreateFontW(-16, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, FIXED_PITCH | FF_MODERN,
                          L"Courier New"))
{
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
    EmptyTheClipboard();
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

HGLOBAL BlockOf(LPCWSTR psz)
{
    const size_t nSize = (wcslen(psz) + 1) * sizeof(wchar_t);
    const HGLOBAL hBlock = GlobalAlloc(GMEM_MOVEABLE, nSize);
    std::memcpy(GlobalLock(hBlock), psz, nSize);
    GlobalUnlock(hBlock);
    return hBlock;
}

void EmptyTheClipboard()
{
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

void SetClipboard(LPCWSTR psz)
{
    const HGLOBAL hBlock = BlockOf(psz);
    EXPECT_TRUE(OpenClipboard(GetActiveWindow())); // which it needs to take data
    EmptyClipboard();
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, hBlock), hBlock);
    CloseClipboard();
}

std::string Clipboard()
{
    EXPECT_TRUE(OpenClipboard(nullptr));
    const HANDLE hBlock = GetClipboardData(CF_UNICODETEXT);
    std::string text = hBlock ? Narrow(static_cast<LPCWSTR>(GlobalLock(hBlock))) : "(none)";
    GlobalUnlock(hBlock);
    CloseClipboard();
    return text;
}

} // namespace test
