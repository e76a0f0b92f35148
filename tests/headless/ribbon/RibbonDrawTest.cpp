// What ribbons, their pages and the value menu draw, operation by operation.

#include "../../ribbon/RibbonTestSupport.h"
#include "../../support/WithBehavior.h"
#include "../controls/DrawFixture.h"

#include <gesso/ribbon/GRightClickMenu.h>

#include <memory>

namespace {

using namespace test::ribbon;

constexpr auto PARENT = "DrawThemeParentBackground (0,0,700,118)";
constexpr auto BOTTOM_LINE = "LineTo (0,117) (700,117) pen=solid 1 DBDBDB";
constexpr auto PAGE_PARENT = "DrawThemeParentBackground (0,26,700,117)";

class RibbonDrawTest : public DrawFixture
{
protected:
    void TearDown() override
    {
        m_pRibbon->Destroy();
        m_pRibbon.reset();
        DrawFixture::TearDown();
    }

    // The lines of the next paint, without what the parent and the copying to the window take.
    Lines Drawn()
    {
        Lines lines = Draw(hwnd, "");
        EXPECT_EQ(lines.back(), "BitBlt (0,0,700,118) from (0,0) SRCCOPY");
        lines.pop_back();
        std::erase_if(lines,
                      [](const std::string& line) { return line.starts_with("FillRect (0,0,400,300)"); });
        return lines;
    }
    // What of it belongs to the page behind its background.
    Lines DrawnOfPage()
    {
        const Lines lines = Drawn();
        const auto at = std::find(lines.begin(), lines.end(), PAGE_PARENT);
        EXPECT_NE(at, lines.end());
        return at == lines.end() ? Lines() : Lines(at + 1, lines.end());
    }
    // The same without the frames of groups.
    Lines DrawnOfItems()
    {
        Lines lines = DrawnOfPage();
        std::erase_if(lines, [](const std::string& line) {
            return line.starts_with("LineTo") || line.starts_with("DrawTextW");
        });
        return lines;
    }

    OpenPage& AddPage()
    {
        auto* pPage = new OpenPage(1, L"One");
        Ribbon().AddPage(pPage, 0, nullptr);
        pPage->InsertGroup(0, 1, L"Group", 0);
        return *pPage;
    }

    OpenRibbon& Ribbon() { return *m_pRibbon; }

private:
    std::unique_ptr<OpenRibbon> m_pRibbon = std::make_unique<OpenRibbon>();

protected:
    HWND hwnd = CreateRibbon(*m_pRibbon, Parent());
};

TEST_F(RibbonDrawTest, TheActiveTabAloneDrawsTheBaseLine)
{
    EXPECT_EQ(Drawn(), (Lines{PARENT, BOTTOM_LINE}));
    Ribbon().AddPage(nullptr, 1, L"One");
    Ribbon().AddPage(nullptr, 2, L"Three");
    Ribbon().SetActive(1);
    const std::string font = " 0x0024 font=\"Calibri\" 14 color=000000";
    // Six pixels a character and a half in the tab's font of 14.
    EXPECT_EQ(Drawn(),
              (Lines{PARENT, "DrawTextW \"One\" (25,1,46,24)" + font,
                     "LineTo (0,25) (73,25) pen=solid 1 DBDBDB", "LineTo (73,25) (73,0) pen=solid 1 DBDBDB",
                     "LineTo (73,0) (158,0) pen=solid 1 DBDBDB", "LineTo (158,0) (158,25) pen=solid 1 DBDBDB",
                     "LineTo (158,25) (700,25) pen=solid 1 DBDBDB", "FillRect (74,1,158,26) brush=F6F6F6",
                     "DrawTextW \"Three\" (98,1,133,24)" + font, BOTTOM_LINE, PAGE_PARENT}));
    Ribbon().SetStatus(0, 0);
    Ribbon().SetStatus(1, 0);
    EXPECT_EQ(Drawn(), (Lines{PARENT, BOTTOM_LINE, PAGE_PARENT})) << "the first page shows without a tab";
    Ribbon().SetActive(RIBBON_NONE);
    EXPECT_EQ(Drawn(), (Lines{PARENT, BOTTOM_LINE}));
}

TEST_F(RibbonDrawTest, TheHotTabIsDrawnInItsOwnLinesAndFill)
{
    Ribbon().AddPage(nullptr, 1, L"One");
    Ribbon().AddPage(new OpenPage(2, L"Own"), 0, L"Given"); // is only measured
    PointAt(hwnd, 80, 10);
    Lines lines = Drawn();
    const auto first = "LineTo (73,25) (73,0) pen=solid 1 EBEBEB";
    lines.erase(lines.begin(), std::find(lines.begin(), lines.end(), first));
    lines.resize(6);
    EXPECT_EQ(
        lines,
        (Lines{first, "LineTo (73,0) (158,0) pen=solid 1 EBEBEB",
               "LineTo (158,0) (158,25) pen=solid 1 EBEBEB", "FillRect (74,1,157,25) brush=FDFDFD",
               "DrawTextW \"Own\" (98,1,133,24) 0x0024 font=\"Calibri\" 14 color=000000", BOTTOM_LINE}));
}

TEST_F(RibbonDrawTest, GroupsDrawATitleAndALineBehindThem)
{
    OpenPage& page = AddPage();
    page.InsertGroup(1, 2, L"Hosted", 100);
    InsertButton(page, 2, 5, RIS_LARGE, L"Not drawn", 0);
    EXPECT_EQ(DrawnOfPage(),
              (Lines{"LineTo (40,28) (40,114) pen=solid 1 E4E4E4",
                     "DrawTextW \"Group\" (0,96,40,117) 0x0025 font=\"Calibri\" 12 color=767676",
                     "LineTo (141,28) (141,114) pen=solid 1 E4E4E4",
                     "DrawTextW \"Hosted\" (40,96,141,117) 0x0025 font=\"Calibri\" 12 color=767676"}));
}

TEST_F(RibbonDrawTest, ButtonsDrawTheirImageAndTextBySize)
{
    const HBITMAP hImages = CreateBitmap(64, 32, 1, 32, nullptr);
    ImageList_Add(Ribbon().m_hLargeImages, hImages, nullptr);
    ImageList_Add(Ribbon().m_hSmallImages, hImages, nullptr);
    DeleteObject(hImages);
    OpenPage& page = AddPage();
    InsertButton(page, 1, 1, RIS_LARGE, L"A wider text", 1);
    InsertButton(page, 1, 2, RIS_LARGE, L"Bare", -1);
    InsertButton(page, 1, 3, RIS_SMALL, L"Not drawn", 2);
    InsertButton(page, 1, 4, RIS_MEDIUM, L"Medium", 3);
    InsertButton(page, 1, 5, RIS_MEDIUM, L"Bare", -1);
    InsertButton(page, 1, 6, RIS_SMALL, nullptr, -1);
    InsertButton(page, 1, 7, 0, L"Of no size", 1);
    const std::string font = " font=\"Segoe UI\" 12 color=000000";
    EXPECT_EQ(DrawnOfItems(),
              (Lines{"ImageList_Draw 1 (12,33,44,65) 0x0000",
                     "DrawThemeText BUTTON 1 1 \"A wider text\" (7,68,49,93) 0x0011" + font,
                     "DrawThemeText BUTTON 1 1 \"Bare\" (55,36,95,93) 0x0011" + font,
                     "ImageList_Draw 2 (101,33,117,49) 0x0000", "ImageList_Draw 3 (101,55,117,71) 0x0000",
                     "DrawThemeText BUTTON 1 1 \"Medium\" (120,55,156,71) 0x0024" + font,
                     "DrawThemeText BUTTON 1 1 \"Bare\" (101,77,125,93) 0x0024" + font}));
}

TEST_F(RibbonDrawTest, ButtonStates)
{
    OpenPage& page = AddPage();
    InsertButton(page, 1, 1, RIS_MEDIUM, L"A", -1);
    InsertButton(page, 1, 2, RIS_MEDIUM, L"B", -1);
    page.ItemAt(0, 1).uFlags |= RIF_DISABLED;
    // With backgrounds but for state 1.
    const auto drawnIn = [](int nStateA, int nStateB) {
        Lines lines;
        const auto draw = [&](const char* pszText, int nState, const char* pszPlace,
                              const char* pszTextPlace) {
            const std::string state = " BUTTON 1 " + std::to_string(nState) + " ";
            if (nState != 1) {
                lines.push_back("DrawThemeBackground" + state + pszPlace);
            }
            lines.push_back("DrawThemeText" + state + pszText + pszTextPlace +
                            " 0x0024 font=\"Segoe UI\" 12 color=000000");
        };
        draw("\"A\" ", nStateA, "(3,29,17,53)", "(7,33,13,49)");
        draw("\"B\" ", nStateB, "(3,51,17,75)", "(7,55,13,71)");
        return lines;
    };
    EXPECT_EQ(DrawnOfItems(), drawnIn(1, 4));
    PointAt(hwnd, 8, 40);
    EXPECT_EQ(DrawnOfItems(), drawnIn(2, 4));
    PressThere();
    EXPECT_EQ(DrawnOfItems(), drawnIn(3, 4));
    desk::ReleaseButton();
    PointAt(hwnd, 8, 62);
    EXPECT_EQ(DrawnOfItems(), drawnIn(1, 2)) << "hot is more than disabled";
    desk::MoveMouse(1, 1);
    desk::Pump();
    EXPECT_EQ(DrawnOfItems(), drawnIn(1, 2)) << "off the ribbon, the last one stays hot";
}

TEST_F(RibbonDrawTest, ACheckedBoxIsDrawnOneStateBeyondItsPlainCounterpart)
{
    OpenPage& page = AddPage();
    InsertCheckBox(page, 1, 1, false, L"A");
    InsertCheckBox(page, 1, 2, true, L"B");
    InsertCheckBox(page, 1, 3, true, nullptr);
    page.ItemAt(0, 2).uFlags |= RIF_DISABLED;
    const std::string font = " 0x0024 font=\"Segoe UI\" 12 color=000000";
    EXPECT_EQ(DrawnOfItems(), (Lines{"DrawThemeBackground BUTTON 3 1 (8,31,21,51)",
                                     "DrawThemeText BUTTON 3 1 \"A\" (24,33,31,49)" + font,
                                     "DrawThemeBackground BUTTON 3 6 (8,53,21,73)",
                                     "DrawThemeText BUTTON 3 6 \"B\" (24,55,31,71)" + font,
                                     "DrawThemeBackground BUTTON 3 9 (8,75,21,95)"}));
    PointAt(hwnd, 10, 60);
    EXPECT_TRUE(AnyStartsWith(DrawnOfItems(), "DrawThemeBackground BUTTON 3 7 (8,53,21,73)"));
}

// --- In Modern

namespace {

struct MadeInModern
{
    test::Modern modern;
};

class RibbonModernDrawTest : MadeInModern, public RibbonDrawTest
{};

} // namespace

TEST_F(RibbonModernDrawTest, ItemsLookAsTheyAre)
{
    OpenPage& page = AddPage();
    Ribbon().AddPage(nullptr, 2, L"Two");
    InsertCheckBox(page, 1, 1, false, L"A");
    InsertCheckBox(page, 1, 2, true, L"B");
    InsertCheckBox(page, 1, 3, true, L"C");
    page.ItemAt(0, 2).uFlags |= RIF_DISABLED;
    const auto states = [&] {
        std::string all;
        for (const std::string& line : DrawnOfItems()) {
            if (line.starts_with("DrawThemeBackground BUTTON 3 ")) {
                all += line[29];
            }
        }
        return all;
    };
    EXPECT_EQ(states(), "158");
    PointAt(hwnd, 10, 60);
    EXPECT_EQ(states(), "168");
    PressThere();
    EXPECT_EQ(states(), "178");
    PointAt(hwnd, 10, 40);
    EXPECT_EQ(states(), "158") << "pressed, and the pointer is on another one";
    desk::ReleaseButton();
    desk::Pump();
    EXPECT_EQ(states(), "258");
    PointAt(hwnd, 10, 80);
    EXPECT_EQ(states(), "158") << "disabled";
    PointAt(hwnd, 10, 40);
    PointAt(hwnd, 100, 10);
    EXPECT_EQ(states(), "158") << "over another tab";
    PointAt(hwnd, 10, 40);
    desk::MoveMouse(1, 1);
    desk::Pump();
    EXPECT_EQ(states(), "158") << "off the ribbon";
}

TEST_F(RibbonModernDrawTest, ALargeButtonHasRoomForTwoLinesAndTheHostsImages)
{
    const HIMAGELIST hLarge = ImageList_Create(32, 32, ILC_COLOR32, 1, 1);
    const HBITMAP hImage = CreateBitmap(32, 32, 1, 32, nullptr);
    ImageList_Add(hLarge, hImage, nullptr);
    DeleteObject(hImage);
    InsertButton(AddPage(), 1, 1, RIS_LARGE, L"A wider text", 0);
    TakeRepaint(hwnd);
    Ribbon().SetImageLists(hLarge, nullptr);
    EXPECT_TRUE(TakeRepaint(hwnd));
    EXPECT_EQ(DrawnOfItems(),
              (Lines{"ImageList_Draw 0 (12,30,44,62) 0x0000",
                     "DrawThemeText BUTTON 1 1 \"A wider text\" (5,63,51,97) 0x0011 font=\"Segoe UI\" 12 "
                     "color=000000"}));
    desk::ClearDrawing(hwnd);
    const HDC hdc = GetDC(hwnd);
    OpenRibbon(Ribbon()).Draw(hdc);
    ReleaseDC(hwnd, hdc);
    EXPECT_TRUE(AnyStartsWith(desk::Drawing(hwnd), "ImageList_Draw 0")) << "a copy shows them too";
    Ribbon().SetImageLists(nullptr, nullptr);
    EXPECT_FALSE(AnyStartsWith(DrawnOfItems(), "ImageList_Draw"));
    ImageList_Destroy(hLarge);
}

TEST_F(RibbonModernDrawTest, TheFocusRectangleIsWhereTheKeyboardIs)
{
    InsertButton(AddPage(), 1, 1, RIS_LARGE, L"A", -1);
    SetFocus(hwnd);
    EXPECT_FALSE(AnyStartsWith(Drawn(), "DrawFocusRect")) << "no cues yet";
    gesso::ShowKeyboardCues(Parent());
    EXPECT_TRUE(AnyStartsWith(Drawn(), "DrawFocusRect (3,3,69,23)"));
    SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_TRUE(AnyStartsWith(Drawn(), "DrawFocusRect (5,31,49,95)"));
    SetFocus(nullptr);
    EXPECT_FALSE(AnyStartsWith(Drawn(), "DrawFocusRect"));
}

TEST_F(RibbonDrawTest, WithoutAStyleItemsAreDrawnPlain)
{
    desk::SetThemed(false);
    OpenPage& page = AddPage();
    InsertCheckBox(page, 1, 1, true, L"A");
    const Lines lines = DrawnOfPage();
    EXPECT_TRUE(AnyStartsWith(lines, "DrawFrameControl (8,31,"));
    EXPECT_TRUE(AnyStartsWith(lines, "DrawTextW \"A\""));
}

TEST_F(RibbonDrawTest, PrintingDrawsStraightIntoTheContextAndLeavesItBlack)
{
    AddPage();
    const HDC hdc = CreateCompatibleDC(nullptr);
    SetTextColor(hdc, 0x112233);
    SetBkMode(hdc, OPAQUE);
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_NONCLIENT);
    EXPECT_EQ(GetTextColor(hdc), 0x112233u) << "not the client area";
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
    EXPECT_EQ(GetTextColor(hdc), 0u);
    EXPECT_EQ(GetBkMode(hdc), OPAQUE);
    DeleteDC(hdc);
}

TEST_F(RibbonDrawTest, ARibbonFromATemplateIsBlackUnlessASubclassSetsItsColors)
{
    OpenRibbon bare(UINT{1});
    const HWND hwndBare = CreateRibbon(bare, Parent());
    bare.AddPage(nullptr, 1, L"One");
    const Lines lines = Draw(hwndBare, "");
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with("FillRect (1,1,") && line.ends_with(",26) brush=000000");
    }));
    EXPECT_TRUE(AnyStartsWith(lines, "LineTo (0,117) (700,117) pen=solid 1 000000"));
    bare.Destroy();
}

using ValueMenuDrawTest = DrawFixture;

struct OpenMenu : GRightClickMenu
{
    using GRightClickMenu::m_crText;
    using GRightClickMenu::m_hFont;
};

TEST_F(ValueMenuDrawTest, RowsOfTwentyPixelsWithTheHotOneFilled)
{
    GRightClickMenu menu;
    const HWND hwnd = menu.Create(100, 100, 122, 62, Parent(), 0);
    auto& shown = static_cast<GRightClickMenu&>(*GWnd::FromHwnd(hwnd));
    const Lines empty = Draw(hwnd, "");
    EXPECT_EQ(empty.at(0), "FillRect (0,0,120,60) brush=FFFFFF");
    EXPECT_EQ(empty.at(1), "BitBlt (0,0,120,60) from (0,0) SRCCOPY");
    shown.*& OpenMenu::m_hFont = g_hDefaultFont;
    shown.*& OpenMenu::m_crText = RGB(0x11, 0x22, 0x33);
    shown.AddValue(L"One");
    shown.AddValue(L"Two");
    desk::MoveMouse(110, 130);
    const std::string font = " 0x0000 font=\"Segoe UI\" 12 color=112233";
    EXPECT_EQ(Draw(hwnd, ""),
              (Lines{"FillRect (0,0,120,60) brush=FFFFFF", "DrawTextW \"One\" (5,0,120,20)" + font,
                     "FillRect (0,20,120,40) brush=FFC88C", "DrawTextW \"Two\" (5,20,120,40)" + font,
                     "BitBlt (0,0,120,60) from (0,0) SRCCOPY"}));
    DestroyWindow(hwnd);
}

} // namespace
