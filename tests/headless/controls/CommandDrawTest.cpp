// What command links draw. Text is 6 pixels a character and 15 high in the default font; with the margins set
// here, the content of a link of 200 x 60 is (3,5,196,54), and the glyph is 20 x 20.

#include "DrawFixture.h"

namespace {

using namespace test;

LOGFONTW FontOf(int nHeight)
{
    LOGFONTW font{};
    font.lfHeight = nHeight;
    font.lfWeight = FW_NORMAL;
    wcscpy(font.lfFaceName, L"Segoe UI");
    return font;
}

class CommandDrawTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        desk::SetThemeMargins("BUTTON", BP_COMMANDLINK, 0, TMT_CONTENTMARGINS, {3, 4, 5, 6});
        desk::SetThemePartSize("BUTTON", BP_COMMANDLINKGLYPH, 0, {20, 20});
        desk::SetThemeFont("BUTTON", BP_COMMANDLINK, 0, TMT_FONT, FontOf(-12));
        desk::SetThemeFont("BUTTON", BP_COMMANDLINK, 0, TMT_BODYFONT, FontOf(-12));
        desk::SetThemeColor("BUTTON", BP_COMMANDLINK, 1, TMT_TEXTCOLOR, RGB(0x12, 0x34, 0x56));
    }
    void Make(DWORD dwStyle, LPCWSTR pszNote = L"n&ote")
    {
        button.Create(0, 0, 200, 60, Parent(), 5, L"a&bcd", pszNote, 0, WS_CHILD | WS_VISIBLE | dwStyle);
    }
    // What stands where the glyph would.
    Lines Glyphs(DWORD dwStyle)
    {
        Make(dwStyle);
        Lines lines = Draw(button, "");
        DestroyWindow(button);
        std::erase_if(lines, [](const std::string& line) {
            return !line.starts_with("DrawStateW") && !line.starts_with("DrawThemeBackground BUTTON 7");
        });
        return lines;
    }

    GCommandButton button;
};

TEST_F(CommandDrawTest, WholeRecord)
{
    Make(0);
    EXPECT_EQ(
        Draw(button, ""),
        (Lines{
            "DrawThemeParentBackground (0,0,200,60)",
            "FillRect (0,0,400,300) brush=sys15 F0F0F0 clip=(0,0,200,60)",
            "DrawThemeBackground BUTTON 6 1 (0,0,200,60)",
            "DrawThemeBackground BUTTON 7 1 (3,5,23,25)",
            "DrawThemeText BUTTON 6 1 \"a&bcd\" (28,5,52,20) 0x100020 font=\"Segoe UI\" 12 color=123456",
            "DrawTextW \"n&ote\" (28,20,196,54) 0x100010 font=\"Segoe UI\" 12 color=123456",
            "BitBlt (0,0,200,60) from (0,0) SRCCOPY",
        }));
}

TEST_F(CommandDrawTest, NoteHidesItsPrefixesAlsoWhereTheTitleShowsThem)
{
    Make(GS_MULTILINE);
    SendMessageW(button, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL), 0);
    EXPECT_NE(Draw(button, "DrawThemeText").at(0).find(" 0x0010 "), std::string::npos);
    EXPECT_NE(Draw(button, "DrawTextW").at(0).find(" 0x100010 "), std::string::npos);
    button.SetNote(nullptr);
    EXPECT_EQ(Draw(button, "DrawTextW"), Lines{});
}

TEST_F(CommandDrawTest, ImageTakesTheGlyphsPlaceButNotItsRoom)
{
    const HBITMAP hBitmap = CreateBitmap(40, 12, 1, 32, nullptr);
    button.SetBitmap(hBitmap);
    EXPECT_EQ(Glyphs(GS_BITMAP), Lines{"DrawStateW bitmap=40x12 (3,5,43,17) 0x0004"});
    EXPECT_EQ(Glyphs(GS_BITMAP | WS_DISABLED), Lines{"DrawStateW bitmap=40x12 (3,5,43,17) 0x0024"});
    Make(GS_BITMAP);
    EXPECT_NE(Draw(button, "DrawThemeText").at(0).find("(28,5,52,20)"), std::string::npos)
        << "the text's column is the glyph's all the same";
    DestroyWindow(button);
    DeleteObject(hBitmap);
    EXPECT_EQ(Glyphs(GS_BITMAP), Lines{}) << "an image that cannot be measured, and no glyph for it";
    EXPECT_EQ(Glyphs(GS_ICON), Lines{});
}

TEST_F(CommandDrawTest, ShieldStandsBeneathGlyphOrImage)
{
    EXPECT_EQ(Glyphs(GCBS_SHIELD), (Lines{"DrawStateW icon=32518 (3,5,23,25) 0x0003",
                                          "DrawThemeBackground BUTTON 7 1 (3,5,23,25)"}));
    const HICON hIcon = MakeIcon(24);
    button.SetIcon(hIcon);
    EXPECT_EQ(
        Glyphs(GCBS_SHIELD | GS_ICON | WS_DISABLED),
        (Lines{"DrawStateW icon=32518 (3,5,23,25) 0x0023", "DrawStateW icon=24x24 (3,5,27,29) 0x0023"}));
    DestroyIcon(hIcon);
    Make(GCBS_SHIELD);
    desk::Pump();
    desk::Fail("LoadImageW");
    EXPECT_EQ(Draw(button, "DrawStateW"), Lines{}) << "no shield, no fault";
}

TEST_F(CommandDrawTest, StateAndFocus)
{
    Make(GBS_DEFAULT);
    EXPECT_EQ(Draw(button, "DrawThemeBackground BUTTON 6 5").size(), 1u);
    EXPECT_EQ(Draw(button, "DrawThemeBackground BUTTON 7 5").size(), 1u);
    SetFocus(button);
    SendMessageW(button, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    EXPECT_EQ(Draw(button, "DrawFocusRect"), Lines{"DrawFocusRect (3,5,196,54)"});
}

TEST_F(CommandDrawTest, FontsAreTheStylesAndFollowItsChanges)
{
    desk::SetThemeFont("BUTTON", BP_COMMANDLINK, 0, TMT_FONT, FontOf(-17));
    Make(0);
    EXPECT_NE(Draw(button, "DrawThemeText").at(0).find("\" 17 "), std::string::npos);
    EXPECT_NE(Draw(button, "DrawTextW").at(0).find("\" 12 "), std::string::npos);
    desk::SetThemeFont("BUTTON", BP_COMMANDLINK, 0, TMT_BODYFONT, FontOf(-10));
    const desk::Census before = desk::Live();
    SendMessageW(button, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(desk::Live(), before);
    EXPECT_NE(Draw(button, "DrawTextW").at(0).find("\" 10 "), std::string::npos);
}

TEST_F(CommandDrawTest, WithoutAStyleItIsAPlainButtonInLikenessOfTheDefaultFont)
{
    desk::SetThemed(false);
    Make(0);
    EXPECT_EQ(Draw(button, "DrawFrameControl (0,0,200,60)").size(), 1u);
    const Lines texts = Draw(button, "DrawTextW");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_NE(texts[0].find("\"Segoe UI\" 16 "), std::string::npos) << "the title is a third larger";
    EXPECT_NE(texts[1].find("\"Segoe UI\" 12 "), std::string::npos);
}

TEST_F(CommandDrawTest, ObjectThatGoesBeforeItsWindowTakesItsFontsAlong)
{
    const int nFonts = desk::Live()[desk::Kind::Font];
    auto* pButton = new GCommandButton;
    const HWND hwnd = pButton->Create(0, 0, 200, 60, Parent(), 5, L"a", L"b", 0, WS_CHILD | WS_VISIBLE);
    pButton->Delete(pButton);
    EXPECT_EQ(desk::Live()[desk::Kind::Font], nFonts);
    DestroyWindow(hwnd);
    desk::Fail("CreateFontIndirectW", 2);
    Make(0);
    EXPECT_EQ(button.GetFont(), nullptr);
    EXPECT_FALSE(Draw(button, "DrawThemeText").empty()) << "in the context's own font";
}

} // namespace
