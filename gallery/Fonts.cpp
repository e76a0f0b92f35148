#include <gallery/Fonts.h>

namespace gallery {
namespace {

HFONT MakeFont(int nPoints, int nWeight)
{
    const HDC hdcScreen = GetDC(nullptr);
    const int nHeight = -MulDiv(nPoints, GetDeviceCaps(hdcScreen, LOGPIXELSY), 72);
    ReleaseDC(nullptr, hdcScreen);
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

} // namespace gallery
