// What the library draws of a disabled image by itself: its shape in the colour of disabled texts, so that it
// can be told from any ground, whatever its own shades are.
#pragma once

#include <gesso/api.h>

#include <cstddef>

namespace gesso {

// Of the pixels of an image over black, and of the same over white, what is to be blended over a ground, as
// AC_SRC_ALPHA has it; it comes in place of the first. What shows through stays so. What is light keeps most
// of a light colour, and what is dark most of a dark one; the rest has two thirds of it.
void MakeFaint(DWORD* pOnBlack, const DWORD* pOnWhite, size_t nPixels, COLORREF cr);

// Draws an image into a context that it is handed, at a place that it knows.
class ImageDrawing
{
public:
    virtual void DrawInto(HDC hdc) const = 0;

protected:
    ~ImageDrawing() = default;
};

// Blends what an image shows in a rectangle, whose left upper corner is at 0, 0 where it draws. False, with
// nothing drawn, where there is no bitmap to be had.
bool DrawFaintly(HDC hdc, const RECT& rc, const ImageDrawing& image, COLORREF cr);

} // namespace gesso
