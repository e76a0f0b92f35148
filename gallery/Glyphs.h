// The gallery's pictures, drawn at run time; a PictureSession must be open. They live until the process ends,
// since an image must outlive its control's use of it.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

enum class Glyph
{
    Check, // a tick on green
    Add,   // a plus on blue
    Info,  // an i on slate
    Up,    // an arrow on blue
};

// A square icon of so many pixels, with transparency.
HICON IconOf(Glyph glyph, int nSize);

// A little landscape.
HBITMAP LandscapeBitmap(int cx, int cy);

// Line drawings in black and white, which the platform's disabled drawing is made for: a disc with an i, and
// the landscape.
HICON SketchIcon(int nSize);
HBITMAP SketchBitmap(int cx, int cy);

} // namespace gallery
