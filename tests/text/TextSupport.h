// What tests of CDrawText share.
#pragma once

#include "tests/support/TextCheck.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

constexpr bool operator==(const stcDrawTextBreak& a, const stcDrawTextBreak& b)
{
    return a.nItem == b.nItem && a.nGlyph == b.nGlyph && a.nWidth == b.nWidth;
}

std::ostream& operator<<(std::ostream& out, const stcDrawTextBreak& record);

namespace test {

// A memory context with a font of so many pixels: of twelve, on the simulated desktop each character is 6
// wide and a line 15 high.
class TextContext
{
public:
    explicit TextContext(int height = 12, LPCWSTR face = L"Segoe UI");
    ~TextContext();
    TextContext(const TextContext&) = delete;
    TextContext& operator=(const TextContext&) = delete;

    operator HDC() const { return m_hdc; }
    int FontHeight() const;

private:
    HDC m_hdc;
    HFONT m_font;
    HGDIOBJ m_former;
};

struct CloseText
{
    void operator()(stcDrawTextBuffer* buffer) const { CDrawText::DrawText_CloseHandle(buffer); }
};
using Text = std::unique_ptr<stcDrawTextBuffer, CloseText>;

LPCWSTR Wide(std::u16string_view terminated);

// Prepares a text in a rectangle of a width and a height of 100 at (0, 0); a width of 0 is unlimited.
Text Prepare(HDC hdc, std::u16string_view text, int width, UINT format = 0, int lineHeight = 20);

// Calls every operation that paints, with numbers that may lie outside of the text.
void PaintInEveryWay(HDC hdc, stcDrawTextBuffer* buffer, UINT first, UINT second);

std::vector<stcDrawTextBreak> BreaksOf(const stcDrawTextBuffer& buffer);

// A buffer that starts as all zero and is freed at the end.
struct HandMadeText : stcDrawTextBuffer
{
    HandMadeText() : stcDrawTextBuffer() {}
    ~HandMadeText() { CDrawText::FreeBuffer(this); }
    HandMadeText(const HandMadeText&) = delete;
    HandMadeText& operator=(const HandMadeText&) = delete;
};

} // namespace test
