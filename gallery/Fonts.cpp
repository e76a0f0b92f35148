#include <gallery/Fonts.h>
#include <gallery/Scale.h>

#include <map>
#include <utility>

namespace gallery {

int DotsOfFonts()
{
    if (gesso::GetScaling() != gesso::Scaling::None) {
        return Dots();
    }
    const HDC hdcScreen = GetDC(nullptr);
    const int nDots = GetDeviceCaps(hdcScreen, LOGPIXELSY);
    ReleaseDC(nullptr, hdcScreen);
    return nDots;
}

namespace {

HFONT FontOf(int nPoints, int nWeight)
{
    static std::map<std::pair<int, int>, HFONT> s_made;
    const int nHeight = -MulDiv(nPoints, DotsOfFonts(), 72);
    HFONT& hFont = s_made[{nHeight, nWeight}];
    if (!hFont) {
        hFont = CreateFontW(nHeight, 0, 0, 0, nWeight, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    }
    return hFont;
}

} // namespace

HFONT TitleFont()
{
    return FontOf(16, FW_NORMAL);
}

HFONT HeadingFont()
{
    return FontOf(9, FW_BOLD);
}

HFONT CaptionFont()
{
    return FontOf(8, FW_NORMAL);
}

HFONT BodyFont()
{
    return Dots() == USER_DEFAULT_SCREEN_DPI ? g_hDefaultFont : FontOf(9, FW_NORMAL);
}

} // namespace gallery
