#include <gesso/framework/PartPictures.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {

void CloseTheme(HTHEME hTheme) noexcept
{
    ForgetPartPictures(hTheme);
    CloseThemeData(hTheme);
}

} // namespace gesso
