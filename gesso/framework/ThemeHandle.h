// A control's handle to a class of the visual style.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

GESSO_API void CloseTheme(HTHEME hTheme) noexcept;

// Null where the style has no such class, or visual styles are off.
class ThemeHandle : public Owned<HTHEME, CloseTheme>
{
public:
    // Closes the class that was open, and opens one for a window; the one way to the style's classes.
    void Open(HWND hwnd, LPCWSTR pszClass);
};

} // namespace gesso
