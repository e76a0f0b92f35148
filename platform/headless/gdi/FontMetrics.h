// The measures of a font. Every character of a font is equally wide.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// For a font of em height e: characters e/2 wide, lines e + e/4 high. The 9-point font of 96 dots per inch
// has e = 12: characters 6 wide, lines 15 high. A font made by cell height has the em that fits into it.
struct FontMetrics
{
    int em;
    int height;
    int ascent;
    int width;
};

FontMetrics MeasureFont(const LOGFONTW& font);

// The measures of the font that is selected into a context; the context must be live.
FontMetrics MeasureSelectedFont(HDC hdc);

// The default font of dialogs and of the visual style, at `points`, for the dots per inch that are set.
LOGFONTW UserInterfaceFont(int points, int weight = FW_NORMAL);

} // namespace gesso::headless
