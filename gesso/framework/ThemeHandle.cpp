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
    Reset(OpenThemeData(hwnd, pszClass));
}

} // namespace gesso
