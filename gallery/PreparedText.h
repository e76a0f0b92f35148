// Prepared texts for the gallery: their owner, and lines painted one by one.
#pragma once

#include <gesso/gesso.h>

#include <memory>

namespace gallery {

struct CloseText
{
    void operator()(stcDrawTextBuffer* pBuffer) const { CDrawText::DrawText_CloseHandle(pBuffer); }
};
using PreparedText = std::unique_ptr<stcDrawTextBuffer, CloseText>;

// Prepares a text in the context's font for a rectangle.
PreparedText PrepareText(HDC hdc, LPCWSTR pszText, RECT rc, UINT uFormat, int nLineHeight);

// Paints each line from its own start to its own end, left aligned. DrawText_TextOut_Break repeats an item's
// beginning and end behind the lines that lie within it.
void DrawLineByLine(HDC hdc, const RECT& rc, stcDrawTextBuffer& text);

// Fills each line's box: as wide as its record says, and as high as the font.
void DrawLineBoxes(HDC hdc, const RECT& rc, const stcDrawTextBuffer& text);

} // namespace gallery
