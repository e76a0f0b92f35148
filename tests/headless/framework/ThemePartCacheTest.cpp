// The cache of drawings: which parts of the style it takes, that each is copied in its own place, and that it
// looks there as the part does.

#include "../controls/DrawFixture.h"
#include "../memory/MemoryLimit.h"

#include <gesso/framework/DrawScope.h>
#include <gesso/framework/PictureCache.h>
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
        m_control.Create(0, 0, 10, 10, Parent(), 1, L"", 0, WS_CHILD);
        desk::SetThemeInt("HEADER", HEADER_PART, 0, TMT_BGTYPE, BT_IMAGEFILE);
        m_theme.Reset(OpenThemeData(Parent(), L"HEADER"));
    }
    void TearDown() override
    {
        m_theme.Reset();
        DestroyWindow(m_control);
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
        EXPECT_TRUE(gesso::CheckPictureCache());
        return desk::Drawing(Parent()).at(0);
    }

    GLabel m_control; // there is a cache as long as the library has a window
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

TEST_F(ThemePartCacheTest, WhatIsNoImageOrCannotBeReadIsDrawn)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 3, TMT_BGTYPE, BT_BORDERFILL);
    desk::Fail("CreateDIBSection", 6);
    for (int n = 0; n < 3; n++) {
        EXPECT_EQ(Draw(), DRAWN);
        EXPECT_EQ(Draw(3), "DrawThemeBackground HEADER 1 3 (10,5,60,25)");
    }
}

TEST_F(ThemePartCacheTest, WhatShowsThroughIsBlendedAndWhatLeavesItsGroundIsLeftOut)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 2, TMT_TRANSPARENT, TRUE);
    desk::SetThemeInt("HEADER", HEADER_PART, 3, TMT_ALPHALEVEL, 200);
    Draw(2);
    Draw(3);
    EXPECT_EQ(Draw(2), "SetDIBitsToDevice (10,5,60,15) 0x0102");
    EXPECT_EQ(Draw(3), "GdiAlphaBlend (10,5,60,25) from (0,0,50,20) 255");
}

TEST_F(ThemePartCacheTest, SourceThatCannotBeHadIsDrawn)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 1, TMT_ALPHALEVEL, 200);
    Draw();
    for (const char* operation : {"GdiAlphaBlend", "CreateDIBSection"}) {
        desk::Fail(operation);
        EXPECT_EQ(Draw(), DRAWN) << operation;
    }
    EXPECT_EQ(Draw(), "GdiAlphaBlend (10,5,60,25) from (0,0,50,20) 255");
}

// The pixels of a context on a background of noise, with the part drawn into it.
class Painting
{
public:
    explicit Painting(DWORD dwLayout) : m_hdc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), SIDE, -SIDE, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* pBits = nullptr;
        m_hBitmap = CreateDIBSection(m_hdc, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
        m_hFormer = SelectObject(m_hdc, m_hBitmap);
        SetLayout(m_hdc, dwLayout);
        m_pPixels = static_cast<DWORD*>(pBits);
        for (DWORD i = 0; i < SIDE * SIDE; i++) {
            m_pPixels[i] = i * 2654435761U >> 8;
        }
    }
    ~Painting()
    {
        SelectObject(m_hdc, m_hFormer);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hdc);
    }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    HDC Context() const { return m_hdc; }
    std::vector<DWORD> Shades() const
    {
        std::vector<DWORD> shades(m_pPixels, m_pPixels + SIDE * SIDE);
        for (DWORD& shade : shades) {
            shade &= 0xFFFFFF;
        }
        return shades;
    }

private:
    static constexpr int SIDE = 64;
    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hFormer;
    DWORD* m_pPixels;
};

// A part of the style that is drawn, copied or blended, and the boxes that the library draws by itself, in
// both directions, and in a context that counts from elsewhere.
TEST_F(ThemePartCacheTest, CopiesLookAsWhatTheyStandForOverAnyGround)
{
    struct Case
    {
        gesso::PlainPart plain;
        int nPart, nState;
        gesso::ColorScheme scheme;
    };
    using gesso::ColorScheme;
    using gesso::PlainPart;
    desk::SetThemeInt("HEADER", HEADER_PART, 2, TMT_TRANSPARENT, TRUE);
    desk::SetThemeInt("HEADER", HEADER_PART, 3, TMT_ALPHALEVEL, 200);
    std::vector<Case> cases;
    for (const int nState : {1, 2, 3}) {
        cases.push_back({PlainPart::HeaderItem, HEADER_PART, nState, ColorScheme::Light});
        cases.push_back({PlainPart::PushButton, BP_PUSHBUTTON, nState, ColorScheme::Dark});
        cases.push_back({PlainPart::ScrollThumb, SBP_THUMBBTNVERT, nState, ColorScheme::Dark});
    }
    for (int nState = CBS_UNCHECKEDNORMAL; nState <= CBS_MIXEDDISABLED; nState++) {
        cases.push_back({PlainPart::CheckBox, BP_CHECKBOX, nState, ColorScheme::Dark});
        cases.push_back({PlainPart::RadioButton, BP_RADIOBUTTON, nState, ColorScheme::Dark});
    }
    for (const Case& part : cases) {
        gesso::SetColorScheme(part.scheme);
        for (const DWORD dwLayout : {DWORD{0}, DWORD{LAYOUT_RTL}}) {
            std::vector<DWORD> drawn;
            for (int n = 0; n < 3; n++) {
                const Painting painting(dwLayout);
                SetWindowOrgEx(painting.Context(), -3, 2, nullptr);
                gesso::ThemePart(m_theme, painting.Context(), part.nPart, part.nState, part.plain)
                    .In(Parent())
                    .DrawBackground({7, 9, 47, 36});
                drawn = n == 0 ? painting.Shades() : drawn;
                EXPECT_TRUE(painting.Shades() == drawn) << "part " << part.nPart << ", state " << part.nState
                                                        << ", layout " << dwLayout << ", time " << n + 1;
            }
        }
    }
    gesso::SetColorScheme(gesso::ColorScheme::Light);
    EXPECT_TRUE(gesso::CheckPictureCache());
}

// A size that is asked for again and again is asked of the service once, until a theme is opened.
TEST_F(ThemePartCacheTest, SizeIsKeptUntilAThemeIsOpened)
{
    const auto size = [this] {
        const gesso::WindowContext hdc(Parent());
        return gesso::ThemePart(m_theme, hdc, HEADER_PART, 1, gesso::PlainPart::HeaderItem)
            .Size(Parent(), nullptr)
            .cx;
    };
    desk::SetThemePartSize("HEADER", HEADER_PART, 0, {11, 11});
    EXPECT_EQ(size(), 11);
    desk::SetThemePartSize("HEADER", HEADER_PART, 0, {22, 22});
    EXPECT_EQ(size(), 11);
    m_theme.Open(Parent(), L"HEADER");
    EXPECT_EQ(size(), 22);
}

// Bitmaps, contexts and blocks of the cache go with the last control, while a theme is still open.
TEST_F(ThemePartCacheTest, EverythingGoesWithTheLastWindow)
{
    desk::SetThemeInt("HEADER", HEADER_PART, 1, TMT_ALPHALEVEL, 200);
    const desk::Census before = desk::Live();
    Draw();
    Draw();
    EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], before[desk::Kind::Bitmap] + 1);
    EXPECT_EQ(desk::Live()[desk::Kind::DeviceContext], before[desk::Kind::DeviceContext] + 1);
    DestroyWindow(m_control);
    EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], before[desk::Kind::Bitmap]);
    EXPECT_EQ(desk::Live()[desk::Kind::DeviceContext], before[desk::Kind::DeviceContext]);
    for (int n = 0; n < 3; n++) {
        EXPECT_EQ(Draw(), DRAWN);
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
    for (int cx = 1; cx <= 80; cx++) {
        Draw(1, {0, 0, cx, 1});
    }
    EXPECT_EQ(Draw(), DRAWN);
    EXPECT_EQ(Draw(), COPIED);
}

} // namespace
