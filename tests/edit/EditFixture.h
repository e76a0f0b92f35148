// Edit fields of so many columns and rows of an even-spaced font, driven by messages, on both platforms.
#pragma once

#include "../support/Host.h"
#include "../support/Keys.h"
#include "ProbeEdit.h"

#include <gtest/gtest.h>

namespace test {

class EditFixture : public testing::Test
{
protected:
    static constexpr int ID = 7;
    static constexpr DWORD MULTILINE = ES_MULTILINE | ES_AUTOVSCROLL;

    EditFixture();
    ~EditFixture() override;

    // A field with room for so many columns and a little more, so that none is exactly as wide, and rows.
    HWND Make(int nColumns, int nRows = 10, DWORD dwStyle = MULTILINE);
    // The width of the client area: so many columns and pixels.
    void Resize(int nColumns, int nPixels = 1, int nRows = 10);
    LRESULT Key(UINT uKey, std::initializer_list<int> held = {});
    LRESULT Char(wchar_t ch);
    void Type(LPCWSTR psz);
    void Mouse(UINT uMsg, int nColumn, int nRow, WPARAM wKeys = 0);
    int Column() const { return m_cxChar; }
    int Row() const { return m_cyLine; }

    Host host;
    ProbeEdit edit;

private:
    HFONT m_hFont;
    int m_cxChar = 0;
    int m_cyLine = 0;
};

// A block for the clipboard that holds a text.
HGLOBAL BlockOf(LPCWSTR psz);
void EmptyTheClipboard();
void SetClipboard(LPCWSTR psz);
std::string Clipboard();

} // namespace test
