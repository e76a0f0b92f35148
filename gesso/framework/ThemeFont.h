// A font that a control makes from the visual style. A font of the host's may be put in its place; the former
// one is then left to whoever took it with GetFont.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

GESSO_API void DeleteThemeFont(HFONT hFont) noexcept;

class ThemeFont : public Owned<HFONT, DeleteThemeFont>
{
public:
    ThemeFont& operator=(HFONT hFont) noexcept
    {
        Borrow(hFont);
        return *this;
    }

    // Deletes the font whosever it is. The end of the object alone deletes none of the host's.
    void Delete() noexcept
    {
        const HFONT hFont = *this;
        Borrow(nullptr);
        DeleteThemeFont(hFont);
    }
};

// The font that the style gives a part in its state 0 (nProperty: TMT_FONT, ...). Where the style has none,
// one like the library's default font, nPercent of its size; null before InitControls. The caller deletes it.
HFONT MakeThemeFont(HTHEME hTheme, int nPart, int nProperty, int nPercent);

} // namespace gesso
