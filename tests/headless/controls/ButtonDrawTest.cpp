// What push buttons draw, operation by operation. Text is 6 pixels a character and 15 high; with the margins
// set here, the content of a button of 100 x 40 is (3,5,96,34).

#include "../../support/WithBehavior.h"
#include "DrawFixture.h"

namespace {

using namespace test;

class ButtonDrawTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        desk::SetThemeMargins("BUTTON", BP_PUSHBUTTON, 0, TMT_CONTENTMARGINS, {3, 4, 5, 6});
    }

    void Make(DWORD dwStyle, LPCWSTR pszText = L"abcd")
    {
        button.Create(0, 0, 100, 40, Parent(), 5, pszText, 0, WS_CHILD | WS_VISIBLE | dwStyle);
    }

    // The place of the image and of the text with a style.
    Lines Places(DWORD dwStyle)
    {
        Make(dwStyle);
        Lines lines = Draw(button, "DrawStateW");
        for (const std::string& line : Draw(button, "DrawThemeText")) {
            lines.push_back(line);
        }
        DestroyWindow(button);
        for (std::string& line : lines) {
            line = PlaceOf(line);
        }
        return lines;
    }

    GButton button;
};

TEST_F(ButtonDrawTest, WholeRecord)
{
    Make(GS_CENTER | GS_VCENTER, L"a&bcd");
    EXPECT_EQ(Draw(button, ""), (Lines{
                                    "DrawThemeParentBackground (0,0,100,40)",
                                    "FillRect (0,0,400,300) brush=sys15 F0F0F0 clip=(0,0,100,40)",
                                    "DrawThemeBackground BUTTON 1 1 (0,0,100,40)",
                                    "DrawThemeText BUTTON 1 1 \"a&bcd\" (37,12,61,27) 0x100020 "
                                    "font=\"Segoe UI\" 12 color=000000",
                                    "BitBlt (0,0,100,40) from (0,0) SRCCOPY",
                                }));
}

TEST_F(ButtonDrawTest, ThemeStateByConditionInTheStatedOrder)
{
    OpenState<GButton> probe;
    probe.Create(0, 0, 100, 40, Parent(), 5, L"", 0, WS_CHILD | WS_VISIBLE);
    ExpectStates(probe, "BUTTON 1 ",
                 {
                     {0, 0, 1},
                     {GWS_HOT, 0, 2},
                     {GWS_PRESSED, 0, 1}, // dragged outside
                     {GWS_HOT | GWS_PRESSED, 0, 3},
                     {GWS_KEYDOWN, WS_DISABLED, 3},
                     {GWS_HOT, WS_DISABLED, 2},
                     {0, WS_DISABLED | GBS_DEFAULT, 4},
                     {0, GBS_DEFAULT, 5},
                     {GWS_HOT, GBS_DEFAULT, 2},
                 });
}

TEST_F(ButtonDrawTest, TextAlignmentAndFormat)
{
    EXPECT_EQ(Places(0), Lines{"(3,5,27,20)"});
    EXPECT_EQ(Places(GS_RIGHT | GS_BOTTOM), Lines{"(72,19,96,34)"});
    EXPECT_EQ(Places(GS_CENTER | GS_VCENTER), Lines{"(37,12,61,27)"});
    Make(GS_MULTILINE);
    EXPECT_NE(Draw(button, "DrawThemeText").at(0).find(" 0x100010 "), std::string::npos)
        << "wrapped at words";
}

// The image is 16 x 12. Beside the text its x follows from its y, and below means above: as it is known.
TEST_F(ButtonDrawTest, ImagePlaces)
{
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 32, nullptr);
    button.SetBitmap(hBitmap);
    constexpr DWORD CENTERED = GS_BITMAP | GS_CENTER | GS_VCENTER;
    EXPECT_EQ(Places(CENTERED), (Lines{"(28,13,44,25)", "(58,12,82,27)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGERIGHT), (Lines{"(-3,13,13,25)", "(27,12,51,27)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGETOP), (Lines{"(41,3,57,15)", "(37,20,61,35)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGEBOTTOM), (Lines{"(41,-5,57,7)", "(37,12,61,27)"}));
    EXPECT_EQ(Places(GS_BITMAP), (Lines{"(12,5,28,17)", "(34,5,58,20)"}));
    EXPECT_EQ(Places(GS_BITMAP | GS_RIGHT | GBS_IMAGETOP), (Lines{"(80,5,96,17)", "(72,22,96,37)"}));
    EXPECT_EQ(Places(GS_CENTER | GS_VCENTER), Lines{"(37,12,61,27)"}) << "no image bit, no image";
    Make(CENTERED | WS_DISABLED);
    EXPECT_EQ(Draw(button, "DrawStateW"), Lines{"DrawStateW bitmap=16x12 (28,13,44,25) 0x0024"});
    DestroyWindow(button);
    DeleteObject(hBitmap);
}

TEST_F(ButtonDrawTest, InModernTheImageStandsBesideTheText)
{
    const Modern modern;
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 32, nullptr);
    button.SetBitmap(hBitmap);
    constexpr DWORD CENTERED = GS_BITMAP | GS_CENTER | GS_VCENTER;
    EXPECT_EQ(Places(CENTERED), (Lines{"(27,13,43,25)", "(48,12,72,27)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGERIGHT), (Lines{"(56,13,72,25)", "(27,12,51,27)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGETOP), (Lines{"(41,3,57,15)", "(37,20,61,35)"}));
    EXPECT_EQ(Places(CENTERED | GBS_IMAGEBOTTOM), (Lines{"(41,23,57,35)", "(37,3,61,18)"}));
    DeleteObject(hBitmap);
}

TEST_F(ButtonDrawTest, FocusRectangleNeedsFocusAndTheUiState)
{
    Make(0);
    SetFocus(button);
    EXPECT_EQ(Draw(button, "DrawFocusRect"), Lines{});
    SendMessageW(button, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    EXPECT_EQ(Draw(button, "DrawFocusRect"), Lines{"DrawFocusRect (3,5,96,34)"});
    EXPECT_NE(Draw(button, "DrawThemeText").at(0).find(" 0x0020 "), std::string::npos) << "mnemonics shown";
    SetFocus(Parent());
    EXPECT_EQ(Draw(button, "DrawFocusRect"), Lines{});
}

TEST_F(ButtonDrawTest, WithoutAStyleAPlainButtonIsDrawn)
{
    desk::SetThemed(false);
    Make(GS_CENTER | GS_VCENTER);
    const Lines lines = Draw(button, "");
    EXPECT_TRUE(AnyStartsWith(lines, "DrawFrameControl (0,0,100,40)"));
    EXPECT_TRUE(AnyStartsWith(lines, "DrawTextW \"abcd\""));
    EXPECT_FALSE(AnyStartsWith(lines, "DrawThemeBackground"));
    EXPECT_FALSE(AnyStartsWith(lines, "FrameRect"));
    DestroyWindow(button);
    Make(GBS_DEFAULT);
    const Lines ofDefault = Draw(button, "");
    EXPECT_TRUE(AnyStartsWith(ofDefault, "FrameRect (0,0,100,40) brush=sys6")) << "the default button's line";
    EXPECT_TRUE(AnyStartsWith(ofDefault, "DrawFrameControl (1,1,99,39)"));
    EXPECT_TRUE(AnyStartsWith(ofDefault, "DrawTextW \"abcd\" (5,3,")) << "clear of the edge";
    DestroyWindow(button);
    EXPECT_EQ(desk::Live()[desk::Kind::Theme], 0);
}

TEST_F(ButtonDrawTest, ThemeChangeOpensTheStyleAnew)
{
    desk::SetThemed(false);
    Make(0);
    desk::SetThemed(true);
    SendMessageW(button, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(desk::Live()[desk::Kind::Theme], 1);
    EXPECT_FALSE(Draw(button, "DrawThemeBackground BUTTON").empty());
    SendMessageW(button, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(desk::Live()[desk::Kind::Theme], 1);
}

TEST_F(ButtonDrawTest, PrintClientDrawsIntoTheGivenContextAndOnlyForTheClient)
{
    Make(0);
    desk::Pump();
    const HDC hdc = GetDC(Parent());
    desk::ClearDrawing(Parent());
    EXPECT_EQ(SendMessageW(button, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CHILDREN), 0);
    EXPECT_EQ(desk::Drawing(Parent()), Lines{});
    SendMessageW(button, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
    EXPECT_FALSE(desk::Drawing(Parent()).empty());
    EXPECT_EQ(AnyStartsWith(desk::Drawing(Parent()), "BitBlt"), false) << "no buffer in between";
    ReleaseDC(Parent(), hdc);
}

TEST_F(ButtonDrawTest, PointerThatLeavesIsHeardOf)
{
    Make(0);
    PointAt(button, 5, 5);
    EXPECT_EQ(Draw(button, "DrawThemeBackground BUTTON 1 2").size(), 1u);
    desk::ClearDrawing(button);
    PointAt(button, -5, -5);
    EXPECT_TRUE(AnyStartsWith(desk::Drawing(button), "DrawThemeBackground BUTTON 1 1"));
}

} // namespace
