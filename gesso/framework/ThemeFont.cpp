#include <gesso/framework/ThemeFont.h>
#include <gesso/framework/WindowDpi.h>

namespace gesso {
namespace {

HFONT MakeLikeDefault(HWND hwnd, int nPercent)
{
    LOGFONTW font{};
    const HFONT hDefault = DefaultFontOf(hwnd);
    if (!hDefault || GetObjectW(hDefault, sizeof(font), &font) <= 0) {
        return nullptr;
    }
    font.lfHeight = MulDiv(font.lfHeight, nPercent, 100);
    return CreateFontIndirectW(&font);
}

} // namespace

// One that the library has made for all windows of some dots stays, though a host has given it on.
void DeleteThemeFont(HFONT hFont) noexcept
{
    if (!IsSharedFont(hFont)) {
        DeleteObject(hFont);
    }
}

HFONT MakeThemeFont(HWND hwnd, HTHEME hTheme, int nPart, int nProperty, int nPercent)
{
    LOGFONTW font{};
    const HRESULT hr = GetThemeFont(hTheme, nullptr, nPart, 0, nProperty, &font);
    // A font without a height has the same one at all scales.
    if (FAILED(hr) || (!font.lfHeight && GetScaling() != Scaling::None)) {
        return MakeLikeDefault(hwnd, nPercent);
    }
    font.lfHeight = MulDiv(font.lfHeight, TextPercent(), 100);
    return CreateFontIndirectW(&font);
}

} // namespace gesso
