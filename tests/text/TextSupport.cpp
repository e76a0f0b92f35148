#include "TextSupport.h"

std::ostream& operator<<(std::ostream& out, const stcDrawTextBreak& record)
{
    return out << '{' << record.nItem << ", " << record.nGlyph << ", " << static_cast<int>(record.nWidth)
               << '}';
}

namespace test {

TextContext::TextContext(int height, LPCWSTR face)
    : m_hdc(CreateCompatibleDC(nullptr)),
      m_font(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                         OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, face)),
      m_former(SelectObject(m_hdc, m_font))
{}

TextContext::~TextContext()
{
    SelectObject(m_hdc, m_former);
    DeleteObject(m_font);
    DeleteDC(m_hdc);
}

int TextContext::FontHeight() const
{
    TEXTMETRICW metrics{};
    GetTextMetricsW(m_hdc, &metrics);
    return metrics.tmHeight;
}

LPCWSTR Wide(std::u16string_view terminated)
{
    return reinterpret_cast<LPCWSTR>(terminated.data());
}

Text Prepare(HDC hdc, std::u16string_view text, int width, UINT format, int lineHeight)
{
    RECT rc = {0, 0, width, 100};
    const std::u16string terminated(text);
    return Text(CDrawText::DrawText_Prepare_Int(hdc, Wide(terminated), static_cast<int>(text.size()), &rc,
                                                format, lineHeight, nullptr));
}

void PaintInEveryWay(HDC hdc, stcDrawTextBuffer* buffer, UINT first, UINT second)
{
    CDrawText::DrawTextW(hdc, buffer, RECT{0, 0, 50, 50});
    CDrawText::DrawText_TextOut_Break(hdc, {0, 0, 30, 30}, buffer);
    CDrawText::DrawText_TextOut(hdc, 0, 0, buffer);
    CDrawText::DrawText_TextOut_Start_Glyph(hdc, 0, 0, buffer, first, second);
    CDrawText::DrawText_TextOut_cxMax(hdc, 0, 0, buffer, first, second);
    CDrawText::DrawText_TextOut_Item(hdc, 0, 0, buffer, first, 0);
    CDrawText::DrawText_TextOut_Char(hdc, 0, 0, buffer, second);
}

std::vector<stcDrawTextBreak> BreaksOf(const stcDrawTextBuffer& buffer)
{
    return {buffer.pBreaks, buffer.pBreaks + buffer.nBreaks + 1};
}

} // namespace test
