// A font that a control makes from the visual style. A font of the host's may be put in its place; the former
// one is then left to whoever took it with GetFont, and deleted where nobody did.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

GESSO_API void DeleteThemeFont(HFONT hFont) noexcept;

class ThemeFont : public Owned<HFONT, DeleteThemeFont>
{
public:
    ThemeFont& operator=(HFONT hFont) noexcept
    {
        if (!m_fHandedOut) {
            Reset();
        }
        Borrow(hFont);
        return *this;
    }

    // Takes a font that nobody has yet.
    void Reset(HFONT hFont = nullptr) noexcept
    {
        Owned::Reset(hFont);
        m_fHandedOut = false;
    }

    HFONT HandOut() const noexcept
    {
        m_fHandedOut = true;
        return *this;
    }

    // Whether the font is the host's.
    bool IsGiven() const noexcept { return *this && !IsOwner(); }

    // Deletes the font whosever it is. The end of the object alone deletes none of the host's.
    void Delete() noexcept
    {
        const HFONT hFont = *this;
        Borrow(nullptr);
        DeleteThemeFont(hFont);
    }

private:
    mutable bool m_fHandedOut = false; // the font, or a host's that came in its place
};

// How large titles are, in percent of the default font, where the style has no font for them.
inline constexpr int TITLE_PERCENT = 133;

// The font that the style gives a part in its state 0 (nProperty: TMT_FONT, ...). Where the style has none,
// one like the window's default font, nPercent of its size; null before InitControls. The caller deletes it.
HFONT MakeThemeFont(HWND hwnd, HTHEME hTheme, int nPart, int nProperty, int nPercent);

} // namespace gesso
