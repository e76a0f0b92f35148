#include <gesso/framework/DpiApi.h>
#include <gesso/framework/Scaling.h>
#include <gesso/framework/ThemeHandle.h>
#include <gesso/framework/ThemePartCache.h>

namespace gesso {

void CloseTheme(HTHEME hTheme) noexcept
{
    DropCachedParts(hTheme);
    CloseThemeData(hTheme);
}

void ThemeHandle::Open(HWND hwnd, LPCWSTR pszClass)
{
    Reset();
    const bool fScaled = GetScaling() != Scaling::None;
    Reset(fScaled ? OpenPlatformTheme(hwnd, pszClass, DpiOf(hwnd)) : OpenThemeData(hwnd, pszClass));
    ForgetPartSizes();
}

} // namespace gesso
