// What labels draw, operation by operation.

#include "../../support/WithBehavior.h"
#include "DrawFixture.h"

namespace {

using namespace test;

class LabelDrawTest : public DrawFixture
{
protected:
    // What is drawn over the parent's background with a style.
    Lines Content(DWORD dwStyle, LPCWSTR pszText = L"a&bcd")
    {
        label.Create(0, 0, 100, 40, Parent(), 5, pszText, 0, WS_CHILD | WS_VISIBLE | dwStyle);
        Lines lines = Draw(label, "");
        EXPECT_EQ(lines.at(0), "DrawThemeParentBackground (0,0,100,40)");
        EXPECT_EQ(lines.back(), "BitBlt (0,0,100,40) from (0,0) SRCCOPY");
        DestroyWindow(label);
        return Lines(lines.begin() + 2, lines.end() - 1);
    }

    static std::string Text(const std::string& rectangle, const std::string& format,
                            const char* pszColor = "000000")
    {
        return "DrawTextW \"a&bcd\" " + rectangle + " " + format + " font=\"Segoe UI\" 12 color=" + pszColor;
    }

    GLabel label;
};

TEST_F(LabelDrawTest, TextFormats)
{
    EXPECT_EQ(Content(0), Lines{Text("(0,0,100,40)", "0x100020")});
    EXPECT_EQ(Content(GS_CENTER | GS_VCENTER), Lines{Text("(0,0,100,40)", "0x100025")});
    EXPECT_EQ(Content(GS_RIGHT | GS_BOTTOM | GS_MULTILINE), Lines{Text("(0,0,100,40)", "0x10001A")});
    EXPECT_EQ(Content(GLS_INSET | GLS_NOPREFIX), Lines{Text("(1,1,99,39)", "0x100820")});
    label.SetTextColor(RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(Content(0), Lines{Text("(0,0,100,40)", "0x100020", "112233")});
}

TEST_F(LabelDrawTest, EtchedLinesAndEmptiness)
{
    EXPECT_EQ(Content(GLS_ETCHEDHORZ), Lines{"DrawEdge (0,0,100,40) 0x0006 0x0002"});
    EXPECT_EQ(Content(GLS_ETCHEDVERT | GLS_ETCHEDHORZ), Lines{"DrawEdge (0,0,100,40) 0x0006 0x0001"});
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 32, nullptr);
    label.SetBitmap(hBitmap);
    EXPECT_EQ(Content(GLS_EMPTY | GS_BITMAP | GLS_ETCHEDVERT), Lines{});
    DeleteObject(hBitmap);
}

// Heights and widths are not the image's own: with those, the images of such labels would be scaled anew.
TEST_F(LabelDrawTest, ImagePlacesAndExtents)
{
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 32, nullptr);
    label.SetBitmap(hBitmap);
    struct
    {
        DWORD dwStyle;
        int x, y, cx, cy;
    } const rows[] = {
        {0, 0, 0, 16, 12},
        {GS_VCENTER, 0, 14, 16, 12 - 14},
        {GS_BOTTOM, 0, 28, 16, 12 - 28},
        {GS_CENTER, 42, 0, 16, 12},
        {GS_RIGHT, 84, 0, 16 - 84, 12},
        {GS_CENTER | GS_VCENTER, 42, 14, 16, 12 - 14},
    };
    for (const auto& row : rows) {
        const std::string rectangle = "(" + std::to_string(row.x) + "," + std::to_string(row.y) + "," +
                                      std::to_string(row.x + row.cx) + "," + std::to_string(row.y + row.cy) +
                                      ")";
        EXPECT_EQ(Content(GS_BITMAP | row.dwStyle),
                  Lines{"DrawStateW bitmap=16x12 " + rectangle + " 0x0004"});
    }
    EXPECT_EQ(Content(GS_BITMAP | WS_DISABLED), Lines{"DrawStateW bitmap=16x12 (0,0,16,12) 0x0024"});
    {
        const Modern modern;
        EXPECT_EQ(Content(GS_BITMAP | GS_RIGHT | GS_BOTTOM),
                  Lines{"DrawStateW bitmap=16x12 (84,28,100,40) 0x0004"})
            << "as large as it is";
    }
    label.SetBitmap(nullptr);
    EXPECT_EQ(Content(GS_BITMAP), Lines{}) << "an image hides the text, also where there is none";
    DeleteObject(hBitmap);
}

TEST_F(LabelDrawTest, IconsAreMeasuredWithoutLeavingTheirBitmapsBehind)
{
    const HICON hIcon = MakeIcon(24);
    const desk::Census before = desk::Live();
    label.SetIcon(hIcon);
    EXPECT_EQ(Content(GS_ICON), Lines{"DrawStateW icon=24x24 (0,0,24,24) 0x0003"});
    EXPECT_EQ(desk::Live(), before);
    desk::Fail("GetObjectW");
    label.SetIcon(hIcon);
    EXPECT_EQ(desk::Live(), before) << "nor where they cannot be measured";
    DestroyIcon(hIcon);
    ICONINFO info{TRUE, 0, 0, CreateBitmap(16, 32, 1, 1, nullptr), nullptr};
    const HICON hMonochrome = CreateIconIndirect(&info);
    ASSERT_TRUE(hMonochrome);
    DeleteObject(info.hbmMask);
    label.SetIcon(hMonochrome);
    EXPECT_EQ(Content(GS_ICON).size(), 1u) << "an icon of masks alone";
    DestroyIcon(hMonochrome);
}

TEST_F(LabelDrawTest, MeasuringFailsWithThePlatformAndLeavesNothingBehind)
{
    label.Create(0, 0, 100, 40, Parent(), 5, L"", 0, WS_CHILD);
    const desk::Census before = desk::Live();
    RECT rc{};
    EXPECT_EQ(label.CalcSizeText(&rc, 0, L"text", 1, 100, 100), S_OK);
    desk::Fail("DrawTextW");
    EXPECT_EQ(label.CalcSizeText(&rc, 0, L"text", 1, 100, 100), E_FAIL);
    EXPECT_EQ(desk::Live(), before);
}

} // namespace
