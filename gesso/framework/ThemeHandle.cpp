#include <gesso/framework/PartPictures.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {

void CloseTheme(HTHEME hTheme) noexcept
{
    ForgetPartPictures(hTheme);
    CloseThemeData(hTheme);
}

void ThemeHandle::Open(HWND hwnd, LPCWSTR pszClass)
{
    Reset();
    Reset(OpenThemeData(hwnd, pszClass));
}

} // namespace gesso
