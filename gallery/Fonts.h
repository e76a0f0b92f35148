// The fonts that the gallery's own texts use at its dots, made on first use and kept until the process ends.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// The dots an inch that a font's points are reckoned by.
int DotsOfFonts();

HFONT TitleFont();
HFONT HeadingFont();
HFONT CaptionFont();
// The library's default font as it is at the gallery's dots, for what the gallery paints itself.
HFONT BodyFont();

} // namespace gallery
