#include <gesso/framework/Library.h>
#include <gesso/framework/ThemeFont.h>

namespace gesso {
namespace {

HFONT MakeLikeDefault(int nPercent)
{
    LOGFONTW font{};
    if (!g_hDefaultFont || GetObjectW(g_hDefaultFont, sizeof(font), &font) <= 0) {
        return nullptr;
    }
    font.lfHeight = MulDiv(font.lfHeight, nPercent, 100);
    return CreateFontIndirectW(&font);
}

} // namespace

void DeleteThemeFont(HFONT hFont) noexcept
{
    DeleteObject(hFont);
}

HFONT MakeThemeFont(HTHEME hTheme, int nPart, int nProperty, int nPercent)
{
    LOGFONTW font{};
    return SUCCEEDED(GetThemeFont(hTheme, nullptr, nPart, 0, nProperty, &font)) ? CreateFontIndirectW(&font)
                                                                                : MakeLikeDefault(nPercent);
}

} // namespace gesso
