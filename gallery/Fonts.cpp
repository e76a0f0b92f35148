#include <gallery/Fonts.h>
#include <gallery/Scale.h>

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

HFONT MakeFont(int nPoints, int nWeight)
{
    const int nHeight = -MulDiv(nPoints, DotsOfFonts(), 72);
    return CreateFontW(nHeight, 0, 0, 0, nWeight, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
}

} // namespace

HFONT TitleFont()
{
    static const HFONT s_hFont = MakeFont(16, FW_NORMAL);
    return s_hFont;
}

HFONT HeadingFont()
{
    static const HFONT s_hFont = MakeFont(9, FW_BOLD);
    return s_hFont;
}

HFONT CaptionFont()
{
    static const HFONT s_hFont = MakeFont(8, FW_NORMAL);
    return s_hFont;
}

HFONT BodyFont()
{
    static const HFONT s_hFont = Dots() == USER_DEFAULT_SCREEN_DPI ? g_hDefaultFont : MakeFont(9, FW_NORMAL);
    return s_hFont;
}

} // namespace gallery
