#include <gesso/framework/ThemeHandle.h>

namespace gesso {

void CloseTheme(HTHEME hTheme) noexcept
{
    CloseThemeData(hTheme);
}

} // namespace gesso
