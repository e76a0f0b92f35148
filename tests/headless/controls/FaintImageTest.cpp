// What a disabled image is in the schemes that the library draws by itself.

#include "../appearance/Picture.h"
#include "../appearance/Schemes.h"

#include <gesso/controls/FaintImage.h>

namespace {

using namespace test;

COLORREF Blended(DWORD pixel, COLORREF crGround)
{
    const auto channel = [pixel](int nShift, BYTE ground) {
        const auto nAlpha = static_cast<int>(pixel >> 24);
        return std::min<int>(static_cast<int>(pixel >> nShift & 0xFF) + ground * (0xFF - nAlpha) / 0xFF,
                             0xFF);
    };
    return RGB(channel(16, GetRValue(crGround)), channel(8, GetGValue(crGround)),
               channel(0, GetBValue(crGround)));
}

// What an image's pixel becomes that is of one shade and covers its ground.
COLORREF FaintOn(COLORREF crGround, DWORD shade, COLORREF crText)
{
    DWORD pixel = shade;
    gesso::MakeFaint(&pixel, &shade, 1, crText);
    return Blended(pixel, crGround);
}

} // namespace

// Black on black, and white on white, were what disabled images vanished as.
TEST(FaintImageTest, EveryShadeCanBeToldFromItsGroundAndBlackFromWhite)
{
    const FreshDesktop desktop;
    for (const Scheme& scheme : SCHEMES) {
        SCOPED_TRACE(scheme.name);
        const WithScheme looks(scheme);
        const COLORREF crGround = ColorOf(gesso::ColorRole::Panel);
        const COLORREF crText = ColorOf(gesso::ColorRole::DisabledText);
        for (const DWORD shade : {0x000000u, 0xFFFFFFu, 0x808080u, 0x3060C0u}) {
            // More than half as much as the user's own disabled texts.
            EXPECT_GE(Contrast(FaintOn(crGround, shade, crText), crGround),
                      std::min(Contrast(crText, crGround), 4.5) * 0.55)
                << std::hex << shade;
        }
        EXPECT_GE(Contrast(FaintOn(crGround, 0, crText), FaintOn(crGround, 0xFFFFFF, crText)), 1.3);
    }
}

TEST(FaintImageTest, WhatShowsThroughStaysAsItIsAndEdgesAreHalfway)
{
    constexpr COLORREF GREY = RGB(0x90, 0x90, 0x90);
    DWORD onBlack[] = {0x000000, 0x404040};
    const DWORD onWhite[] = {0xFFFFFF, 0xBFBFBF};
    gesso::MakeFaint(onBlack, onWhite, 2, GREY);
    EXPECT_EQ(onBlack[0], 0u);
    EXPECT_NEAR(static_cast<int>(onBlack[1] >> 24), 0x80 * 212 / 255, 3) << "half as much as a mid grey";
    EXPECT_EQ(onBlack[1] & 0xFF, onBlack[1] >> 16 & 0xFF);
}

TEST(FaintImageTest, NothingIsDrawnWhereThereIsNoBitmap)
{
    const FreshDesktop desktop;
    struct Drawing final : gesso::ImageDrawing
    {
        void DrawInto(HDC) const override { ++nTimes; }
        mutable int nTimes = 0;
    };
    const Drawing drawing;
    const HDC hdc = GetDC(nullptr);
    EXPECT_TRUE(gesso::DrawFaintly(hdc, {5, 5, 21, 21}, drawing, 0));
    EXPECT_EQ(drawing.nTimes, 2) << "over black and over white";
    desk::Fail("CreateDIBSection", 1, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_FALSE(gesso::DrawFaintly(hdc, {5, 5, 21, 21}, drawing, 0));
    EXPECT_EQ(drawing.nTimes, 2);
    ReleaseDC(nullptr, hdc);
}
