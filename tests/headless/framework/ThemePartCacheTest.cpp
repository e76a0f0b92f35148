// The cache of theme parts: which parts it takes, and that each is copied in its own place.

#include "../controls/DrawFixture.h"
#include "../memory/MemoryLimit.h"

#include <gesso/framework/ThemeHandle.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/ThemePartCache.h>

namespace {

using namespace test;

constexpr int HEADER_PART = HP_HEADERITEM;
constexpr const char* DRAWN = "DrawThemeBackground HEADER 1 1 (10,5,60,25)";
constexpr const char* COPIED = "SetDIBitsToDevice (10,5,60,25) 0x0101";

class ThemePartCacheTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        desk::SetThemeInt("HEADER", HEADER_PART, 0, TMT_BGTYPE, BT_IMAGEFILE);
        m_theme.Reset(OpenThemeData(Parent(), L"HEADER"));
    }
    void TearDown() override
    {
        m_theme.Reset();
        DrawFixture::TearDown();
    }

    // How the part comes into a memory context; the copy to the window if not at all.
    std::string Draw(int nState = 1, RECT rc = {10, 5, 60, 25})
    {
        const HDC hdc = GetDC(Parent());
        const HDC hdcMemory = CreateCompatibleDC(hdc);
        const HGDIOBJ hFormer = SelectObject(hdcMemory, CreateCompatibleBitmap(hdc, 100, 100));
        gesso::ThemePart(m_theme, hdcMemory, HEADER_PART, nState, gesso::PlainPart::HeaderItem)
            .DrawBackground(rc);
        desk::ClearDrawing(Parent());
        BitBlt(hdc, 0, 0, 100, 100, hdcMemory, 0, 0, SRCCOPY);
        DeleteObject(SelectObject(hdcMemory, hFormer));
        DeleteDC(hdcMemory);
        ReleaseDC(Parent(), hdc);
        EXPECT_TRUE(gesso::CheckThemePartCache());
        return desk::Drawing(Parent()).at(0);
    }

    gesso::ThemeHandle m_theme;
};

TEST_F(ThemePartCacheTest, ImageIsCopiedFromTheSecondTimeOnInItsStateAndSize)
{
    EXPECT_EQ(Draw(), DRAWN);
    EXPECT_EQ(Draw(), COPIED);
    EXPECT_EQ(Draw(2), "DrawThemeBackground HEADER 1 2 (10,5,60,25)");
    EXPECT_EQ(Draw(1, {0, 0, 70, 20}), "DrawThemeBackground HEADER 1 1 (0,0,70,20)");
    EXPECT_EQ(Draw(2), "SetDIBitsToDevice (10,5,60,25) 0x0102");
    EXPECT_EQ(Draw(1, {20, 30, 70, 50}), "SetDIBitsToDevice (20,30,70,50) 0x0101");
}

TEST_F(ThemePartCacheTest, WhatShowsThroughOrIsNoImageOrCannotBeReadIsDrawn)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 2, TMT_TRANSPARENT, TRUE);
    desk::SetThemeInt("HEADER", HEADER_PART, 3, TMT_BGTYPE, BT_BORDERFILL);
    desk::Fail("CreateDIBSection", 3);
    for (int n = 0; n < 3; n++) {
        EXPECT_EQ(Draw(), DRAWN);
        EXPECT_EQ(Draw(2), "DrawThemeBackground HEADER 1 2 (10,5,60,25)");
        EXPECT_EQ(Draw(3), "DrawThemeBackground HEADER 1 3 (10,5,60,25)");
    }
}

TEST_F(ThemePartCacheTest, WhatTurnsOutToBeNoPictureIsLeftOut)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 2, TMT_IMAGECOUNT, 0);
    EXPECT_EQ(Draw(2), "DrawThemeBackground HEADER 1 2 (10,5,60,25)");
    EXPECT_EQ(Draw(2), "BitBlt (0,0,100,100) from (0,0) SRCCOPY");
}

TEST_F(ThemePartCacheTest, WhatIsTooLargeForTheMemoryIsDrawnUntilThereIsSome)
{
    const RECT rc{0, 0, 200, 100};
    for (int n = 0; n < 3; n++) {
        const MemoryLimit limit;
        EXPECT_EQ(Draw(1, rc), "DrawThemeBackground HEADER 1 1 (0,0,200,100)");
    }
    Draw(1, rc);
    EXPECT_EQ(Draw(1, rc), "SetDIBitsToDevice (0,0,200,100) 0x0101");
}

TEST_F(ThemePartCacheTest, WhatCouldNotBeReadOnceIsReadTheNextTime)
{
    for (const char* operation : {"CreateCompatibleDC", "SelectObject"}) {
        m_theme.Reset();
        m_theme.Reset(OpenThemeData(Parent(), L"HEADER"));
        const HDC hdc = GetDC(Parent());
        const HDC hdcMemory = CreateCompatibleDC(hdc);
        const HGDIOBJ hFormer = SelectObject(hdcMemory, CreateCompatibleBitmap(hdc, 100, 100));
        const RECT rc{10, 5, 60, 25};
        const auto draw = [&] { return gesso::DrawCachedPart(m_theme, hdcMemory, HEADER_PART, 1, rc); };
        EXPECT_FALSE(draw());
        desk::Fail(operation);
        EXPECT_FALSE(draw()) << operation;
        EXPECT_TRUE(draw()) << operation;
        desk::ClearDrawing(Parent());
        BitBlt(hdc, 0, 0, 100, 100, hdcMemory, 0, 0, SRCCOPY);
        EXPECT_EQ(desk::Drawing(Parent()).at(0), COPIED) << operation;
        DeleteObject(SelectObject(hdcMemory, hFormer));
        DeleteDC(hdcMemory);
        ReleaseDC(Parent(), hdc);
    }
}

TEST_F(ThemePartCacheTest, CopyThatFailsIsDrawn)
{
    Draw();
    desk::Fail("SetDIBitsToDevice");
    EXPECT_EQ(Draw(), DRAWN);
    EXPECT_EQ(Draw(), COPIED);
}

TEST_F(ThemePartCacheTest, EntryGoesWithItsThemeHandle)
{
    Draw();
    EXPECT_EQ(Draw(), COPIED);
    gesso::ThemeHandle other;
    other.Reset(OpenThemeData(Parent(), L"HEADER"));
    other.Reset();
    EXPECT_EQ(Draw(), COPIED);
    m_theme.Reset(OpenThemeData(Parent(), L"HEADER"));
    EXPECT_EQ(Draw(), DRAWN);
}

TEST_F(ThemePartCacheTest, ThoseOfLongAgoMakeRoomForOthers)
{
    constexpr int LARGE = 700; // one such part is all there is room for
    Draw();
    Draw(1, {0, 0, LARGE, LARGE});
    EXPECT_EQ(Draw(1, {0, 0, LARGE, LARGE}), "SetDIBitsToDevice (0,0,700,700) 0x0101");
    Draw(2, {0, 0, LARGE, LARGE});
    EXPECT_EQ(Draw(2, {0, 0, LARGE, LARGE}), "SetDIBitsToDevice (0,0,700,700) 0x0102");
    EXPECT_EQ(Draw(1, {0, 0, LARGE, LARGE}), "DrawThemeBackground HEADER 1 1 (0,0,700,700)");
    EXPECT_EQ(Draw(1, {0, 0, LARGE, 2 * LARGE}), "DrawThemeBackground HEADER 1 1 (0,0,700,1400)");
    for (int cx = 1; cx <= 60; cx++) {
        Draw(1, {0, 0, cx, 1});
    }
    EXPECT_EQ(Draw(), DRAWN);
    EXPECT_EQ(Draw(), COPIED);
}

} // namespace
