// What the drawing record says, and how it travels with bitmaps.
#include <platform/headless/gdi/DeviceContext.h>

#include <gtest/gtest.h>

using namespace gesso::headless;

namespace {

using Lines = std::vector<std::string>;

/// A context on a window that stands only in the record.
class DrawingRecord : public testing::Test
{
protected:
    void SetUp() override
    {
        m_before = Live();
        m_hdc = CreateWindowContext(m_hwnd, {200, 100}, false);
    }

    void TearDown() override
    {
        DeleteWindowContext(m_hdc);
        ForgetDrawing(m_hwnd);
        EXPECT_EQ(Live(), m_before);
    }

    const HWND m_hwnd = reinterpret_cast<HWND>(uintptr_t{0x7770});
    HDC m_hdc = nullptr;
    Census m_before;
};

} // namespace

TEST_F(DrawingRecord, TellsShapesWithThePensAndBrushesInUse)
{
    const RECT rect = {1, 2, 30, 40};
    const HBRUSH brush = CreateSolidBrush(RGB(0x10, 0x20, 0x30));
    const HPEN pen = CreatePen(PS_DOT, 2, RGB(0xFF, 0, 0));
    FillRect(m_hdc, &rect, brush);
    FillRect(m_hdc, &rect, reinterpret_cast<HBRUSH>(uintptr_t{COLOR_WINDOW + 1}));
    DrawFocusRect(m_hdc, &rect);
    MoveToEx(m_hdc, 3, 4, nullptr);
    const HGDIOBJ former = SelectObject(m_hdc, pen);
    LineTo(m_hdc, 30, 4);
    Rectangle(m_hdc, 1, 2, 3, 4);
    SelectObject(m_hdc, former);
    EXPECT_EQ(Drawing(m_hwnd), (Lines{
                                   "FillRect (1,2,30,40) brush=102030",
                                   "FillRect (1,2,30,40) brush=sys5 FFFFFF",
                                   "DrawFocusRect (1,2,30,40)",
                                   "LineTo (3,4) (30,4) pen=dot 2 FF0000",
                                   "Rectangle (1,2,3,4) pen=dot 2 FF0000 brush=FFFFFF",
                               }));
    DeleteObject(pen);
    DeleteObject(brush);
}

TEST_F(DrawingRecord, TellsTextsWithFontColourAndBackground)
{
    RECT rect = {0, 0, 100, 30};
    const HFONT font = CreateFontW(-12, 0, 0, 0, FW_BOLD, 1, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HGDIOBJ former = SelectObject(m_hdc, font);
    SetTextColor(m_hdc, RGB(0, 0, 0xFF));
    TextOutW(m_hdc, 5, 6, L"abc", 2);
    SetBkMode(m_hdc, TRANSPARENT);
    DrawTextW(m_hdc, L"Say \"hi\"\r\n", -1, &rect, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
    DrawTextW(m_hdc, L"measured only", -1, &rect, DT_CALCRECT);
    SelectObject(m_hdc, former);
    DeleteObject(font);
    EXPECT_EQ(
        Drawing(m_hwnd),
        (Lines{
            R"(TextOutW "ab" (5,6) font="Segoe UI" 12 bold italic color=0000FF back=FFFFFF)",
            R"(DrawTextW "Say \"hi\"\r\n" (0,0,100,30) 0x0025 font="Segoe UI" 12 bold italic color=0000FF)",
        }));
}

TEST_F(DrawingRecord, ABlitBringsWhatTheBitmapShows)
{
    const HDC memory = CreateCompatibleDC(m_hdc);
    const HBITMAP bitmap = CreateCompatibleBitmap(m_hdc, 20, 10);
    const RECT rect = {0, 0, 20, 10};
    DrawFocusRect(memory, &rect); // the default bitmap shows nothing
    const HGDIOBJ former = SelectObject(memory, bitmap);
    InvertRect(memory, &rect);
    EXPECT_TRUE(Drawing(m_hwnd).empty());
    EXPECT_TRUE(BitBlt(m_hdc, 7, 8, 20, 10, memory, 1, 2, SRCCOPY));
    EXPECT_EQ(Drawing(m_hwnd), (Lines{"InvertRect (0,0,20,10)", "BitBlt (7,8,27,18) from (1,2) SRCCOPY"}));
    ClearDrawing(m_hwnd);
    EXPECT_TRUE(Drawing(m_hwnd).empty());
    DeleteObject(SelectObject(memory, former));
    DeleteDC(memory);
}

TEST_F(DrawingRecord, TellsMovedOriginsClippingTheWholeWindowAndTheLayout)
{
    const RECT rect = {0, 0, 5, 5};
    SetWindowOrgEx(m_hdc, 10, -20, nullptr);
    DrawFocusRect(m_hdc, &rect);
    SetWindowOrgEx(m_hdc, 0, 0, nullptr);
    ExcludeClipRect(m_hdc, 0, 50, 200, 100);
    DrawFocusRect(m_hdc, &rect);
    const HDC whole = CreateWindowContext(m_hwnd, {210, 110}, true);
    DrawFocusRect(whole, &rect);
    SetLayout(whole, LAYOUT_RTL);
    ExcludeClipRect(whole, 0, 50, 210, 110);
    ExcludeClipRect(whole, 200, 0, 210, 50);
    DrawFocusRect(whole, &rect);
    SetLayout(whole, 0);
    DrawFocusRect(whole, &rect);
    DeleteWindowContext(whole);
    EXPECT_EQ(Drawing(m_hwnd), (Lines{
                                   "DrawFocusRect (0,0,5,5) origin=(-10,20)",
                                   "DrawFocusRect (0,0,5,5) clip=(0,0,200,50)",
                                   "DrawFocusRect (0,0,5,5) nonclient",
                                   "DrawFocusRect (0,0,5,5) clip=(0,0,200,50) nonclient mirrored",
                                   "DrawFocusRect (0,0,5,5) clip=(10,0,210,50) nonclient",
                               }));
}

TEST_F(DrawingRecord, TellsImagesByNameOrSize)
{
    const auto warning =
        static_cast<HICON>(LoadImageW(nullptr, MAKEINTRESOURCEW(32515), IMAGE_ICON, 16, 16, 0));
    const HICON made = CreateIcon(nullptr, 8, 9, 1, 1, nullptr, nullptr);
    const HBITMAP bitmap = CreateBitmap(4, 5, 1, 32, nullptr);
    DrawStateW(m_hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(warning), 0, 1, 2, 16, -3,
               DST_ICON | DSS_DISABLED);
    DrawStateW(m_hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(bitmap), 0, 1, 2, 0, 0, DST_BITMAP);
    DrawIconEx(m_hdc, 0, 0, made, 0, 0, 0, nullptr, DI_NORMAL);
    EXPECT_EQ(Drawing(m_hwnd), (Lines{
                                   "DrawStateW icon=32515 (1,2,17,-1) 0x0023",
                                   "DrawStateW bitmap=4x5 (1,2,5,7) 0x0004",
                                   "DrawIconEx icon=8x9 (0,0,8,9) 0x0003",
                               }));
    DestroyIcon(warning);
    DestroyIcon(made);
    DeleteObject(bitmap);
}

TEST_F(DrawingRecord, TellsThemedPartsAndTextsInTheStylesColour)
{
    const HTHEME theme = OpenThemeData(nullptr, L"Button");
    SetThemeColor("BUTTON", 1, 4, TMT_TEXTCOLOR, RGB(0x80, 0x80, 0x80));
    const RECT rect = {0, 0, 75, 23};
    EXPECT_EQ(DrawThemeBackground(theme, m_hdc, 1, 4, &rect, nullptr), S_OK);
    EXPECT_EQ(DrawThemeText(theme, m_hdc, 1, 4, L"OK", 2, DT_SINGLELINE, 0, &rect), S_OK);
    EXPECT_EQ(DrawThemeBackground(theme, m_hdc, 1, 1, &rect, &rect), S_OK);
    ResetGraphics();
    EXPECT_EQ(Drawing(m_hwnd),
              (Lines{
                  "DrawThemeBackground Button 1 4 (0,0,75,23)",
                  R"(DrawThemeText Button 1 4 "OK" (0,0,75,23) 0x0020 font="System" 12 bold color=808080)",
                  "DrawThemeBackground Button 1 1 (0,0,75,23) within (0,0,75,23)",
              }));
    CloseThemeData(theme);
}

TEST_F(DrawingRecord, DrawingFailsWhereAFaultIsOrdered)
{
    const RECT rect = {0, 0, 5, 5};
    Fail("DrawFocusRect", 1, ERROR_GEN_FAILURE);
    EXPECT_FALSE(DrawFocusRect(m_hdc, &rect));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_GEN_FAILURE});
    EXPECT_TRUE(DrawFocusRect(m_hdc, &rect));
    EXPECT_EQ(Drawing(m_hwnd).size(), 1u);
    EXPECT_FALSE(DrawFocusRect(nullptr, &rect));
}
