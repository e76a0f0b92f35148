// The fonts that the gallery's own texts use, made on first use and kept until the process ends.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

HFONT TitleFont();
HFONT HeadingFont();
HFONT CaptionFont();

} // namespace gallery
