// A font that a control makes from the visual style. A font of the host's put in its place is handed over: it
// is deleted in its turn, while the former one is left to whoever took it with GetFont.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

GESSO_API void DeleteThemeFont(HFONT hFont) noexcept;

class ThemeFont : public Owned<HFONT, DeleteThemeFont>
{
public:
    ThemeFont& operator=(HFONT hFont) noexcept
    {
        Replace(hFont);
        return *this;
    }
};

// The font that the style gives a part in its state 0 (nProperty: TMT_FONT, ...). Where the style has none,
// one like the library's default font, nPercent of its size; null before InitControls. The caller deletes it.
HFONT MakeThemeFont(HTHEME hTheme, int nPart, int nProperty, int nPercent);

} // namespace gesso
